#pragma once
#include "gui/GUI_TableWindow.h"
#include "gui/GUI_VectorPanel.h"

#include <complex>
#include <string>

/// A window with a form for a vector. It opens with up to ten values in full view. The setters are those of
/// the form.
template <typename T>
class GUI_VectorWindow : public GUI_TableWindow
{
    using Form = GUI_VectorPanel<T>;
    COM_CLASS(GUI_VectorWindow)
public:
    /// Null once the window is closed.
    Form* getVectorPanel() const { return getForm<Form>(); }

    void setVector(LA_Vector<T>& vector) { setVector(&vector); }
    void setVector(LA_Vector<T>* vector)
    {
        tell<Form>([vector](auto& form) { form.setVector(vector); });
    }
    void resetVector() { tell<Form>(&Form::resetVector); }
    void setDimensionLabel(const std::string& label)
    {
        tell<Form>(&Form::setDimensionLabel, label);
    }
    void setValuesLabel(const std::string& label);
    void setColumnsResizabled(bool flag) { tell<Form>(&Form::setColumnsResizabled, flag); }

protected:
    GUI_VectorWindow(GUI_ParentWindow& parent, bool isContainer, LA_Vector<T>& vector,
                     bool showDim);
    /// A null vector leaves the form empty. Requires: `parent` is not null.
    GUI_VectorWindow(GUI_ParentWindow* parent, bool isContainer, LA_Vector<T>* vector,
                     bool showDim);
    ~GUI_VectorWindow() override = default;

private:
    /// Gives the window the size of its table, up to ten rows.
    void fit(const GUI_VectorPanel<T>& panel);
};

extern template class GUI_VectorWindow<double>;
extern template class GUI_VectorWindow<std::complex<double>>;
