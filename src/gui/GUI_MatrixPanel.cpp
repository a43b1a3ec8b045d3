#include "gui/GUI_MatrixPanel.h"

#include "common/COM_Integer.h"
#include "gui/GUI_CellValue.h"
#include "gui/GUI_DimensionBox.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_Table.h"
#include "gui/GUI_TableFit.h"

template <typename T>
GUI_MatrixPanel<T>::GUI_MatrixPanel(GUI_ParentPanel* parent, bool showDim)
    : GUI_TablePanel(parent, showDim)
{
    COM_TYPE(GUI_MatrixPanel);
    initTable({translate("Columns Number"), translate("Rows Number")});
}

template <typename T>
GUI_MatrixPanel<T>::GUI_MatrixPanel(GUI_ParentPanel& parent, bool showDim)
    : GUI_MatrixPanel(&parent, showDim)
{}

template <typename T>
GUI_MatrixPanel<T>::GUI_MatrixPanel(GUI_ParentPanel* parent, LA_Matrix<T>* matrix, bool showDim)
    : GUI_MatrixPanel(parent, showDim)
{
    setMatrix(matrix);
}

template <typename T>
GUI_MatrixPanel<T>::GUI_MatrixPanel(GUI_ParentPanel& parent, LA_Matrix<T>& matrix, bool showDim)
    : GUI_MatrixPanel(&parent, &matrix, showDim)
{}

template <typename T>
GUI_MatrixPanel<T>::~GUI_MatrixPanel()
{
    dissociate(mMatrix);
}

template <typename T>
void GUI_MatrixPanel<T>::setMatrix(LA_Matrix<T>* matrix)
{
    if (matrix == mMatrix) {
        return;
    }
    resetMatrix();
    if (associate(mMatrix, matrix)) {
        updateTable();
        updateLines();
        QGroupBox::update();
    }
}

template <typename T>
void GUI_MatrixPanel<T>::resetMatrix()
{
    dissociate(mMatrix);
    resetTable();
}

template <typename T>
void GUI_MatrixPanel<T>::updateTable()
{
    GUI_Table* const table = getTable();
    if (mMatrix == nullptr || table == nullptr) {
        return;
    }
    const GUI_Display display(*this);
    const int rows = static_cast<int>(mMatrix->getLinesNumber());
    const int columns = static_cast<int>(mMatrix->getColumnsNumber());
    table->setColumnsNumber(columns);
    table->setRowsNumber(rows);
    for (int column = 0; column < columns; ++column) {
        std::string longest;
        for (int row = 0; row < rows; ++row) {
            const std::string text = GUI_CellValue::toString((*mMatrix)[row][column]);
            table->setValue(row, column, text);
            if (text.size() > longest.size()) {
                longest = text;
            }
        }
        GUI_TableFit::fitColumn(*table, column, longest);
    }
}

template <typename T>
void GUI_MatrixPanel<T>::updateLines()
{
    if (mMatrix == nullptr) {
        return;
    }
    const GUI_Display display(*this);
    GUI_DimensionBox::show(*this, COMPO_SB_XDIM, mMatrix->getColumnsNumber());
    GUI_DimensionBox::show(*this, COMPO_SB_YDIM, mMatrix->getLinesNumber());
}

template <typename T>
void GUI_MatrixPanel<T>::edit(GUI_Table& table)
{
    const int row = table.getRow();
    const int column = table.getColumn();
    if (mMatrix == nullptr || row < 0 || column < 0) {
        return;
    }
    const GUI_Display display(*this);
    const std::string text = table.getValue();
    table.setValue(row, column, GUI_CellValue::toString(mMatrix->getValue(row, column)));
    // A cell that shows what it would show anyway was only visited. Written back, the seven digits that it
    // shows would replace those of the matrix.
    if (text != table.getValue()) {
        setValue(row, column, text);
    }
}

template <typename T>
void GUI_MatrixPanel<T>::setValue(unsigned long row, unsigned long column, const std::string& text)
{
    mMatrix->setValueFromString(row, column, text);
    const T value = mMatrix->getValue(row, column);
    if (mIsSymetric) {
        mMatrix->setValue(column, row, value);
    }
    if (mIsAntiSymetric) {
        mMatrix->setValue(column, row, T() - value);
    }
    if (mIsDiagonal && row != column) {
        mMatrix->setValue(row, column, T());
    }
    if (mIsConjugate) {
        mMatrix->setValue(column, row, GUI_CellValue::conjugate(value));
    }
}

template <typename T>
void GUI_MatrixPanel<T>::resize()
{
    if (mMatrix == nullptr) {
        return;
    }
    const unsigned long columns =
        GUI_DimensionBox::get(*this, COMPO_SB_XDIM, mMatrix->getColumnsNumber());
    const unsigned long rows =
        GUI_DimensionBox::get(*this, COMPO_SB_YDIM, mMatrix->getLinesNumber());
    if (rows * columns <= MAX_ELEMENTS) {
        mMatrix->setDimensions(rows, columns);
    }
}

template <typename T>
void GUI_MatrixPanel<T>::setXDimensionLabel(const std::string& label)
{
    GUI_TablePanel::setDimensionLabel(COMPO_SB_XDIM, label);
}

template <typename T>
void GUI_MatrixPanel<T>::setYDimensionLabel(const std::string& label)
{
    GUI_TablePanel::setDimensionLabel(COMPO_SB_YDIM, label);
}

template <typename T>
void GUI_MatrixPanel<T>::setCheckedMatrix(bool flag)
{
    setCheckedMatrix(flag, {});
}

template <typename T>
void GUI_MatrixPanel<T>::setCheckedMatrix(bool flag, const std::string& title)
{
    if (GUI_Table* const table = getTable()) {
        const GUI_Display display(*this);
        table->setCheckedTable(flag, title);
        updateTable();
    }
}

template <typename T>
void GUI_MatrixPanel<T>::setComboBoxMatrix(bool flag)
{
    setComboBoxMatrix(flag, {});
}

template <typename T>
void GUI_MatrixPanel<T>::setComboBoxMatrix(bool flag, const std::vector<std::string>& entries)
{
    if (GUI_Table* const table = getTable()) {
        const GUI_Display display(*this);
        table->setComboBoxTable(flag, entries);
        updateTable();
    }
}

template class GUI_MatrixPanel<double>;
template class GUI_MatrixPanel<std::complex<double>>;
template class GUI_MatrixPanel<unsigned long>;
