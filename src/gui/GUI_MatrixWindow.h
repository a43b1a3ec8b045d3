#pragma once
#include "gui/GUI_MatrixPanel.h"
#include "gui/GUI_TableWindow.h"

#include <complex>
#include <string>
#include <vector>

/// A window with a form for a matrix. It opens with up to five rows and columns in full view. The setters
/// are those of the form.
template <typename T>
class GUI_MatrixWindow : public GUI_TableWindow
{
    using Form = GUI_MatrixPanel<T>;
    COM_CLASS(GUI_MatrixWindow)
public:
    /// Null once the window is closed.
    Form* getMatrixPanel() const { return getForm<Form>(); }

    void setMatrix(LA_Matrix<T>& matrix) { setMatrix(&matrix); }
    void setMatrix(LA_Matrix<T>* matrix)
    {
        tell<Form>([matrix](auto& form) { form.setMatrix(matrix); });
    }
    void resetMatrix() { tell<Form>(&Form::resetMatrix); }
    void setSymetric(bool flag) { tell<Form>(&Form::setSymetric, flag); }
    void setAntiSymetric(bool flag) { tell<Form>(&Form::setAntiSymetric, flag); }
    void setDiagonal(bool flag) { tell<Form>(&Form::setDiagonal, flag); }
    void setConjugate(bool flag) { tell<Form>(&Form::setConjugate, flag); }
    void setXDimensionLabel(const std::string& label)
    {
        tell<Form>(&Form::setXDimensionLabel, label);
    }
    void setYDimensionLabel(const std::string& label)
    {
        tell<Form>(&Form::setYDimensionLabel, label);
    }
    void setCheckedMatrix(bool flag)
    {
        tell<Form>([flag](auto& form) { form.setCheckedMatrix(flag); });
    }
    void setCheckedMatrix(bool flag, const std::string& title)
    {
        tell<Form>([flag, &title](auto& form) { form.setCheckedMatrix(flag, title); });
    }
    void setComboBoxMatrix(bool flag)
    {
        tell<Form>([flag](auto& form) { form.setComboBoxMatrix(flag); });
    }
    void setComboBoxMatrix(bool flag, const std::vector<std::string>& entries)
    {
        tell<Form>([flag, &entries](auto& form) { form.setComboBoxMatrix(flag, entries); });
    }
    void setColumnsResizabled(bool flag) { tell<Form>(&Form::setColumnsResizabled, flag); }

protected:
    GUI_MatrixWindow(GUI_ParentWindow& parent, bool isContainer, LA_Matrix<T>& matrix,
                     bool showDim);
    /// A null matrix leaves the form empty. Requires: `parent` is not null.
    GUI_MatrixWindow(GUI_ParentWindow* parent, bool isContainer, LA_Matrix<T>* matrix,
                     bool showDim);
    ~GUI_MatrixWindow() override = default;
};

extern template class GUI_MatrixWindow<double>;
extern template class GUI_MatrixWindow<std::complex<double>>;
extern template class GUI_MatrixWindow<unsigned long>;
