#include "gui/GUI_VectorWindow.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "gui/GUI_RootPanel.h"
#include "gui/GUI_TableFit.h"

template <typename T>
GUI_VectorWindow<T>::GUI_VectorWindow(GUI_ParentWindow& parent, bool isContainer,
                                      LA_Vector<T>& vector, bool showDim)
    : GUI_VectorWindow(&parent, isContainer, &vector, showDim)
{}

template <typename T>
GUI_VectorWindow<T>::GUI_VectorWindow(GUI_ParentWindow* parent, bool isContainer,
                                      LA_Vector<T>* vector, bool showDim)
    : GUI_ChildWindow(parent, isContainer)
{
    COM_TYPE(GUI_VectorWindow);
    initComponents(vector, showDim);
}

template <typename T>
void GUI_VectorWindow<T>::initComponents(LA_Vector<T>* vector, bool showDim)
{
    setName(translate("Vector Window"));
    const COM_Scoped root(GUI_RootPanel::New(*this));
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*root));
    const COM_Scoped panel(GUI_VectorPanel<T>::New(root.get(), vector, showDim));
    layout->addPanel(*panel);
    fit(*panel);
}

template <typename T>
void GUI_VectorWindow<T>::fit(const GUI_VectorPanel<T>& panel)
{
    GUI_TableFit::fitWindow(*this, *panel.getTable(), 10, 1);
}

template <typename T>
GUI_VectorPanel<T>* GUI_VectorWindow<T>::getVectorPanel() const
{
    const GUI_RootPanel* const root = getPanel();
    return root != nullptr ? dynamic_cast<GUI_VectorPanel<T>*>(root->getChild(0)) : nullptr;
}

template <typename T>
void GUI_VectorWindow<T>::setVector(LA_Vector<T>* vector)
{
    if (GUI_VectorPanel<T>* const panel = getVectorPanel()) {
        panel->setVector(vector);
    }
}

template <typename T>
void GUI_VectorWindow<T>::resetVector()
{
    if (GUI_VectorPanel<T>* const panel = getVectorPanel()) {
        panel->resetVector();
    }
}

template <typename T>
void GUI_VectorWindow<T>::setDimensionLabel(const std::string& label)
{
    if (GUI_VectorPanel<T>* const panel = getVectorPanel()) {
        panel->setDimensionLabel(label);
    }
}

template <typename T>
void GUI_VectorWindow<T>::setValuesLabel(const std::string& label)
{
    if (GUI_VectorPanel<T>* const panel = getVectorPanel()) {
        panel->setValuesLabel(label);
        fit(*panel);
    }
}

template <typename T>
void GUI_VectorWindow<T>::setColumnsResizabled(bool flag)
{
    if (GUI_VectorPanel<T>* const panel = getVectorPanel()) {
        panel->setColumnsResizabled(flag);
    }
}

template class GUI_VectorWindow<double>;
template class GUI_VectorWindow<std::complex<double>>;
