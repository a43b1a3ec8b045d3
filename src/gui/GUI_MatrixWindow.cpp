#include "gui/GUI_MatrixWindow.h"

#include "gui/GUI_TableFit.h"

template <typename T>
GUI_MatrixWindow<T>::GUI_MatrixWindow(GUI_ParentWindow& parent, bool isContainer,
                                      LA_Matrix<T>& matrix, bool showDim)
    : GUI_MatrixWindow(&parent, isContainer, &matrix, showDim)
{}

template <typename T>
GUI_MatrixWindow<T>::GUI_MatrixWindow(GUI_ParentWindow* parent, bool isContainer,
                                      LA_Matrix<T>* matrix, bool showDim)
    : GUI_TableWindow(parent, isContainer)
{
    COM_TYPE(GUI_MatrixWindow);
    fill<Form>(translate("Matrix Window"), matrix, showDim);
    GUI_TableFit::fitWindow(*this, *getMatrixPanel()->getTable(), 5, 5);
}

template class GUI_MatrixWindow<double>;
template class GUI_MatrixWindow<std::complex<double>>;
template class GUI_MatrixWindow<unsigned long>;
