#include "gui/GUI_MatrixWindow.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "gui/GUI_RootPanel.h"
#include "gui/GUI_TableFit.h"

template <typename T>
GUI_MatrixWindow<T>::GUI_MatrixWindow(GUI_ParentWindow& parent, bool isContainer,
                                      LA_Matrix<T>& matrix, bool showDim)
    : GUI_MatrixWindow(&parent, isContainer, &matrix, showDim)
{}

template <typename T>
GUI_MatrixWindow<T>::GUI_MatrixWindow(GUI_ParentWindow* parent, bool isContainer,
                                      LA_Matrix<T>* matrix, bool showDim)
    : GUI_ChildWindow(parent, isContainer)
{
    COM_TYPE(GUI_MatrixWindow);
    initComponents(matrix, showDim);
}

template <typename T>
void GUI_MatrixWindow<T>::initComponents(LA_Matrix<T>* matrix, bool showDim)
{
    setName(translate("Matrix Window"));
    const COM_Scoped root(GUI_RootPanel::New(*this));
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*root));
    const COM_Scoped panel(GUI_MatrixPanel<T>::New(root.get(), matrix, showDim));
    layout->addPanel(*panel);
    GUI_TableFit::fitWindow(*this, *panel->getTable(), 5, 5);
}

template <typename T>
GUI_MatrixPanel<T>* GUI_MatrixWindow<T>::getMatrixPanel() const
{
    const GUI_RootPanel* const root = getPanel();
    return root != nullptr ? dynamic_cast<GUI_MatrixPanel<T>*>(root->getChild(0)) : nullptr;
}

template <typename T>
void GUI_MatrixWindow<T>::setMatrix(LA_Matrix<T>* matrix)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setMatrix(matrix);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::resetMatrix()
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->resetMatrix();
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setSymetric(bool flag)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setSymetric(flag);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setAntiSymetric(bool flag)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setAntiSymetric(flag);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setDiagonal(bool flag)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setDiagonal(flag);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setConjugate(bool flag)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setConjugate(flag);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setXDimensionLabel(const std::string& label)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setXDimensionLabel(label);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setYDimensionLabel(const std::string& label)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setYDimensionLabel(label);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setCheckedMatrix(bool flag)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setCheckedMatrix(flag);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setCheckedMatrix(bool flag, const std::string& title)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setCheckedMatrix(flag, title);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setComboBoxMatrix(bool flag)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setComboBoxMatrix(flag);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setComboBoxMatrix(bool flag, const std::vector<std::string>& entries)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setComboBoxMatrix(flag, entries);
    }
}

template <typename T>
void GUI_MatrixWindow<T>::setColumnsResizabled(bool flag)
{
    if (GUI_MatrixPanel<T>* const panel = getMatrixPanel()) {
        panel->setColumnsResizabled(flag);
    }
}

template class GUI_MatrixWindow<double>;
template class GUI_MatrixWindow<std::complex<double>>;
template class GUI_MatrixWindow<unsigned long>;
