#include "gui/GUI_VectorWindow.h"

#include "gui/GUI_TableFit.h"

template <typename T>
GUI_VectorWindow<T>::GUI_VectorWindow(GUI_ParentWindow& parent, bool isContainer,
                                      LA_Vector<T>& vector, bool showDim)
    : GUI_VectorWindow(&parent, isContainer, &vector, showDim)
{}

template <typename T>
GUI_VectorWindow<T>::GUI_VectorWindow(GUI_ParentWindow* parent, bool isContainer,
                                      LA_Vector<T>* vector, bool showDim)
    : GUI_TableWindow(parent, isContainer)
{
    COM_TYPE(GUI_VectorWindow);
    fill<Form>(translate("Vector Window"), vector, showDim);
    fit(*getVectorPanel());
}

template <typename T>
void GUI_VectorWindow<T>::setValuesLabel(const std::string& label)
{
    tell<Form>([this, &label](auto& form) {
        form.setValuesLabel(label);
        fit(form);
    });
}

template <typename T>
void GUI_VectorWindow<T>::fit(const GUI_VectorPanel<T>& panel)
{
    GUI_TableFit::fitWindow(*this, *panel.getTable(), 10, 1);
}

template class GUI_VectorWindow<double>;
template class GUI_VectorWindow<std::complex<double>>;
