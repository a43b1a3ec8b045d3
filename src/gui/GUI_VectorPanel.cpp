#include "gui/GUI_VectorPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_CellValue.h"
#include "gui/GUI_DimensionBox.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_Table.h"
#include "gui/GUI_TableFit.h"
#include "gui/GUI_UnknownAction.h"

template <typename T>
GUI_VectorPanel<T>::GUI_VectorPanel(GUI_ParentPanel* parent, bool showDim)
    : GUI_FramePanel(parent)
    , mShowDim(showDim)
{
    COM_TYPE(GUI_VectorPanel);
    initComponents();
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
    dissociate(mLabelDim);
    dissociate(mVector);
}

template <typename T>
void GUI_VectorPanel<T>::initComponents()
{
    const COM_Scoped layout(GUI_RootGridLayout::New(*this, 2, 2, 11, 6));
    const COM_Scoped dimension(GUI_HBoxLayout::New());
    layout->addToChildren(*dimension, 0, 0);
    if (mShowDim) {
        associate(mLabelDim,
                  GUI_DimensionBox::add(*this, *dimension, COMPO_SB_DIM, translate("Dimension")));
    }
    const COM_Scoped table(GUI_Table::New(this, COMPO_TABLE));
    layout->addToComponents(*table, 1, 0);
    setValuesLabel(translate("Values"));
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
    if (GUI_Table* const table = getTable()) {
        const GUI_Display display(*this);
        table->setRowsNumber(0);
    }
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
void GUI_VectorPanel<T>::updateValues()
{
    const COM_Guard guard(*this);
    updateTable();
    updateLine();
    GUI_FramePanel::updateValues();
}

template <typename T>
void GUI_VectorPanel<T>::componentClicked(GUI_ActionComponent& component)
{
    const COM_Guard guard(*this);
    switch (component.getFlagId()) {
    case COMPO_TABLE:
        if (auto* const table = dynamic_cast<GUI_Table*>(&component)) {
            edit(*table);
        }
        break;
    case COMPO_SB_DIM:
        resize();
        break;
    default:
        GUI_UnknownAction::print(component);
    }
    updateValues();
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
    if (mLabelDim != nullptr) {
        mLabelDim->setLabel(label);
    }
}

template <typename T>
void GUI_VectorPanel<T>::setValuesLabel(const std::string& label)
{
    if (GUI_Table* const table = getTable()) {
        table->setColumnLabel(0, label);
        GUI_TableFit::fitColumn(*table, 0, {});
    }
}

template <typename T>
void GUI_VectorPanel<T>::setColumnsResizabled(bool flag)
{
    if (GUI_Table* const table = getTable()) {
        table->setColumnsResizabled(flag);
    }
}

template <typename T>
GUI_Table* GUI_VectorPanel<T>::getTable() const
{
    return getMainLayout() != nullptr
               ? dynamic_cast<GUI_Table*>(getMainLayout()->getComponent(COMPO_TABLE))
               : nullptr;
}

template class GUI_VectorPanel<double>;
template class GUI_VectorPanel<std::complex<double>>;
