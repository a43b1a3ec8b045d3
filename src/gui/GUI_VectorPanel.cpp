#include "gui/GUI_VectorPanel.h"

#include "gui/GUI_CellValue.h"
#include "gui/GUI_DimensionBox.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_Table.h"
#include "gui/GUI_TableFit.h"

template <typename T>
GUI_VectorPanel<T>::GUI_VectorPanel(GUI_ParentPanel* parent, bool showDim)
    : GUI_TablePanel(parent, showDim)
{
    COM_TYPE(GUI_VectorPanel);
    initTable({translate("Dimension")});
    setValuesLabel(translate("Values"));
}

template <typename T>
GUI_VectorPanel<T>::GUI_VectorPanel(GUI_ParentPanel& parent, bool showDim)
    : GUI_VectorPanel(&parent, showDim)
{}

template <typename T>
GUI_VectorPanel<T>::GUI_VectorPanel(GUI_ParentPanel* parent, LA_Vector<T>* vector, bool showDim)
    : GUI_VectorPanel(parent, showDim)
{
    setVector(vector);
}

template <typename T>
GUI_VectorPanel<T>::GUI_VectorPanel(GUI_ParentPanel& parent, LA_Vector<T>& vector, bool showDim)
    : GUI_VectorPanel(&parent, &vector, showDim)
{}

template <typename T>
GUI_VectorPanel<T>::~GUI_VectorPanel()
{
    dissociate(mVector);
}

template <typename T>
void GUI_VectorPanel<T>::setVector(LA_Vector<T>* vector)
{
    if (vector == mVector) {
        return;
    }
    resetVector();
    if (associate(mVector, vector)) {
        updateTable();
        updateLine();
        QGroupBox::update();
    }
}

template <typename T>
void GUI_VectorPanel<T>::resetVector()
{
    dissociate(mVector);
    resetTable();
}

template <typename T>
void GUI_VectorPanel<T>::updateTable()
{
    GUI_Table* const table = getTable();
    if (mVector == nullptr || table == nullptr) {
        return;
    }
    const GUI_Display display(*this);
    const auto rows = static_cast<int>(mVector->getDimension());
    table->setColumnsNumber(1);
    table->setRowsNumber(rows);
    std::string longest;
    for (int row = 0; row < rows; ++row) {
        const std::string text = GUI_CellValue::toString((*mVector)[row]);
        table->setValue(row, 0, text);
        if (text.size() > longest.size()) {
            longest = text;
        }
    }
    GUI_TableFit::fitColumn(*table, 0, longest);
}

template <typename T>
void GUI_VectorPanel<T>::updateLine()
{
    if (mVector != nullptr) {
        const GUI_Display display(*this);
        GUI_DimensionBox::show(*this, COMPO_SB_DIM, mVector->getDimension());
    }
}

template <typename T>
void GUI_VectorPanel<T>::edit(GUI_Table& table)
{
    const int row = table.getRow();
    if (mVector == nullptr || row < 0) {
        return;
    }
    const std::string text = table.getValue();
    // A cell that shows what it would show anyway was only visited. Written back, the seven digits that it
    // shows would replace those of the vector.
    if (text != GUI_CellValue::toString(mVector->getValue(row))) {
        mVector->setValueFromString(row, text);
    }
}

template <typename T>
void GUI_VectorPanel<T>::resize()
{
    if (mVector != nullptr) {
        mVector->setDimension(GUI_DimensionBox::get(*this, COMPO_SB_DIM, mVector->getDimension()));
    }
}

template <typename T>
void GUI_VectorPanel<T>::setDimensionLabel(const std::string& label)
{
    GUI_TablePanel::setDimensionLabel(COMPO_SB_DIM, label);
}

template <typename T>
void GUI_VectorPanel<T>::setValuesLabel(const std::string& label)
{
    if (GUI_Table* const table = getTable()) {
        table->setColumnLabel(0, label);
        GUI_TableFit::fitColumn(*table, 0, {});
    }
}

template class GUI_VectorPanel<double>;
template class GUI_VectorPanel<std::complex<double>>;
