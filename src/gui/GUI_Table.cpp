#include "gui/GUI_Table.h"

#include "common/COM_Integer.h"
#include "gui/GUI_EventScope.h"

#include <QComboBox>
#include <QHeaderView>
#include <QSignalBlocker>

#include <algorithm>

GUI_Table::GUI_Table(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    COM_TYPE(GUI_Table);
    for (QHeaderView* const header : {horizontalHeader(), verticalHeader()}) {
        header->setSectionsMovable(false);
        header->setSectionResizeMode(QHeaderView::Fixed);
    }
    connect(this, &QTableWidget::currentCellChanged, this, &GUI_Table::toDo);
    connect(this, &QTableWidget::cellChanged, this, [this](int row, int column) {
        const GUI_EventScope scope;
        // A click on the mark of a check box changes its cell without making it current.
        makeCurrent(row, column);
        toDo();
    });
}

GUI_Table::GUI_Table(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_Table(&panel, flag)
{}

void GUI_Table::setColumnsNumber(int number)
{
    const QSignalBlocker blocker(this);
    setColumnCount(std::max(number, 0));
    setItems(rowCount(), columnCount());
}

void GUI_Table::setRowsNumber(int number)
{
    const QSignalBlocker blocker(this);
    setRowCount(std::max(number, 0));
    setItems(rowCount(), columnCount());
}

void GUI_Table::setColumnLabel(int column, const std::string& label)
{
    if (column < 0) {
        return;
    }
    if (column >= columnCount()) {
        setColumnsNumber(column + 1);
    }
    const QSignalBlocker blocker(this);
    setHorizontalHeaderItem(column, new QTableWidgetItem(toQString(label)));
}

void GUI_Table::setColumnLabel(int column, const std::string& label, int width)
{
    setColumnLabel(column, label);
    setColumnWidth(column, width);
}

void GUI_Table::setRowLabel(int row, const std::string& label)
{
    if (row < 0) {
        return;
    }
    if (row >= rowCount()) {
        setRowsNumber(row + 1);
    }
    const QSignalBlocker blocker(this);
    setVerticalHeaderItem(row, new QTableWidgetItem(toQString(label)));
}

void GUI_Table::setRowLabel(int row, const std::string& label, int height)
{
    setRowLabel(row, label);
    setRowHeight(row, height);
}

std::string GUI_Table::getColumnLabel(int column) const
{
    return toTString(model()->headerData(column, Qt::Horizontal).toString());
}

std::string GUI_Table::getRowLabel(int row) const
{
    return toTString(model()->headerData(row, Qt::Vertical).toString());
}

void GUI_Table::setColumnsResizabled(bool flag)
{
    horizontalHeader()->setSectionResizeMode(flag ? QHeaderView::Interactive : QHeaderView::Fixed);
}

void GUI_Table::setCheckedTable(bool flag, const std::string& title)
{
    mCheckTitle = title;
    if (flag == mIsCheckedTable) {
        return;
    }
    mIsCheckedTable = flag;
    setItems(rowCount(), columnCount());
}

void GUI_Table::setCheckedTable(bool flag)
{
    setCheckedTable(flag, {});
}

void GUI_Table::setComboBoxTable(bool flag, const std::vector<std::string>& entries)
{
    if (flag == mIsComboBoxTable) {
        return;
    }
    for (const std::string& entry : entries) {
        mComboList.append(toQString(entry));
    }
    mIsComboBoxTable = flag;
    setItems(rowCount(), columnCount());
}

void GUI_Table::setComboBoxTable(bool flag)
{
    setComboBoxTable(flag, {});
}

void GUI_Table::setValue(const std::string& value)
{
    setValue(currentRow(), currentColumn(), value);
}

void GUI_Table::setValue(int row, int column, const std::string& value)
{
    if (!model()->hasIndex(row, column)) {
        return;
    }
    const QSignalBlocker blocker(this);
    if (mIsCheckedTable) {
        if (QTableWidgetItem* const box = checkItem(row, column)) {
            box->setCheckState(COM_Integer::parseInt(value) != 0 ? Qt::Checked : Qt::Unchecked);
        }
    } else if (mIsComboBoxTable) {
        QComboBox* const combo = comboItem(row, column);
        if (combo != nullptr && combo->count() > 0) {
            const long last = combo->count() - 1;
            const long index = std::clamp(COM_Integer::parseInt(value), 0L, last);
            combo->setCurrentIndex(static_cast<int>(index));
        }
    } else if (QTableWidgetItem* const cell = item(row, column)) {
        cell->setText(toQString(value));
    } else {
        setItem(row, column, new QTableWidgetItem(toQString(value)));
    }
}

std::string GUI_Table::getValue() const
{
    const int row = currentRow();
    const int column = currentColumn();
    if (mIsCheckedTable) {
        const QTableWidgetItem* const box = checkItem(row, column);
        return box != nullptr && box->checkState() == Qt::Checked ? "1" : "0";
    }
    return getValue(row, column);
}

std::string GUI_Table::getValue(int row, int column) const
{
    if (const QComboBox* const combo = comboItem(row, column)) {
        return toTString(combo->currentText());
    }
    const QTableWidgetItem* const cell = item(row, column);
    return cell != nullptr ? toTString(cell->text()) : std::string();
}

void GUI_Table::setItems(int rows, int columns)
{
    if (!mIsCheckedTable && !mIsComboBoxTable) {
        return;
    }
    const QSignalBlocker blocker(this);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            // As it is before the cell becomes something else: a table may have both flags.
            const std::string text = getValue(row, column);
            if (mIsCheckedTable) {
                makeCheckItem(row, column, text);
            }
            if (mIsComboBoxTable) {
                makeComboItem(row, column, text);
            }
        }
    }
    if (mIsCheckedTable) {
        widenColumns(fontMetrics().horizontalAdvance(toQString(mCheckTitle) + "     "));
    }
    if (mIsComboBoxTable) {
        int width = 1;
        for (const QString& entry : mComboList) {
            width = std::max(width, fontMetrics().horizontalAdvance(entry + "  "));
        }
        widenColumns(width);
    }
}

void GUI_Table::makeCheckItem(int row, int column, const std::string& text)
{
    if (checkItem(row, column) != nullptr) {
        return;
    }
    const bool isOn = COM_Integer::parseInt(text) != 0;
    removeCellWidget(row, column);
    auto* const box = new QTableWidgetItem(toQString(mCheckTitle));
    box->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    box->setCheckState(isOn ? Qt::Checked : Qt::Unchecked);
    setItem(row, column, box);
}

void GUI_Table::makeComboItem(int row, int column, const std::string& text)
{
    if (comboItem(row, column) != nullptr) {
        return;
    }
    auto* const combo = new QComboBox;
    combo->addItems(mComboList);
    combo->setCurrentIndex(std::max(combo->findText(toQString(text)), 0));
    delete takeItem(row, column);
    setCellWidget(row, column, combo);
    connect(combo, &QComboBox::activated, this, [this, row, column] {
        const GUI_EventScope scope;
        makeCurrent(row, column);
        toDo();
    });
}

void GUI_Table::widenColumns(int width)
{
    for (int column = 0; column < columnCount(); ++column) {
        if (columnWidth(column) < width) {
            setColumnLabel(column, getColumnLabel(column), width);
        }
    }
}

void GUI_Table::makeCurrent(int row, int column)
{
    if (row != currentRow() || column != currentColumn()) {
        const QSignalBlocker blocker(this);
        setCurrentCell(row, column);
    }
}

QTableWidgetItem* GUI_Table::checkItem(int row, int column) const
{
    QTableWidgetItem* const cell = item(row, column);
    return cell != nullptr && cell->data(Qt::CheckStateRole).isValid() ? cell : nullptr;
}

QComboBox* GUI_Table::comboItem(int row, int column) const
{
    return qobject_cast<QComboBox*>(cellWidget(row, column));
}
