#pragma once
#include "gui/GUI_ChildWindow.h"
#include "gui/GUI_MatrixPanel.h"

#include <complex>
#include <string>
#include <vector>

/// A window with a form for a matrix. It opens with up to five rows and columns in full view. The setters
/// are those of the form.
template <typename T>
class GUI_MatrixWindow : public GUI_ChildWindow
{
    COM_CLASS(GUI_MatrixWindow)
public:
    /// Null once the window is closed.
    GUI_MatrixPanel<T>* getMatrixPanel() const;

    void setMatrix(LA_Matrix<T>& matrix) { setMatrix(&matrix); }
    void setMatrix(LA_Matrix<T>* matrix);
    void resetMatrix();
    void setSymetric(bool flag);
    void setAntiSymetric(bool flag);
    void setDiagonal(bool flag);
    void setConjugate(bool flag);
    void setXDimensionLabel(const std::string& label);
    void setYDimensionLabel(const std::string& label);
    void setCheckedMatrix(bool flag);
    void setCheckedMatrix(bool flag, const std::string& title);
    void setComboBoxMatrix(bool flag);
    void setComboBoxMatrix(bool flag, const std::vector<std::string>& entries);
    void setColumnsResizabled(bool flag);

protected:
    GUI_MatrixWindow(GUI_ParentWindow& parent, bool isContainer, LA_Matrix<T>& matrix,
                     bool showDim);
    /// A null matrix leaves the form empty. Requires: `parent` is not null.
    GUI_MatrixWindow(GUI_ParentWindow* parent, bool isContainer, LA_Matrix<T>* matrix,
                     bool showDim);
    ~GUI_MatrixWindow() override = default;

private:
    void initComponents(LA_Matrix<T>* matrix, bool showDim);
};

extern template class GUI_MatrixWindow<double>;
extern template class GUI_MatrixWindow<std::complex<double>>;
extern template class GUI_MatrixWindow<unsigned long>;
