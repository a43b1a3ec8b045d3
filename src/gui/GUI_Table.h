#pragma once
#include "gui/GUI_Widget.h"

#include <QStringList>
#include <QTableWidget>

#include <string>
#include <vector>

class QComboBox;

/// A table of texts, of check boxes, or of choices. What the user does to a cell makes the cell current and
/// is reported after that; what code writes into cells, sizes and headers is not reported.
class GUI_Table : public GUI_Widget<QTableWidget>
{
    Q_OBJECT
    COM_CLASS(GUI_Table)
public:
    void setColumnsNumber(int number);
    void setRowsNumber(int number);

    /// The title of a column; a table with fewer columns grows that far.
    void setColumnLabel(int column, const std::string& label);
    /// The same with the column's width in pixels.
    void setColumnLabel(int column, const std::string& label, int width);
    void setRowLabel(int row, const std::string& label);
    /// The same with the row's height in pixels.
    void setRowLabel(int row, const std::string& label, int height);
    /// Without a label of its own a column or row is numbered from 1.
    std::string getColumnLabel(int column) const;
    std::string getRowLabel(int row) const;
    /// Whether the user can change the columns' widths; not at first.
    void setColumnsResizabled(bool flag);

    /// The current cell's, -1 without one.
    int getRow() const { return currentRow(); }
    int getColumn() const { return currentColumn(); }

    /// Makes every cell a check box with `title` beside it. A title that comes with an unchanged flag counts
    /// for the cells made from then on.
    void setCheckedTable(bool flag, const std::string& title);
    void setCheckedTable(bool flag);
    /// Makes every cell a choice. The entries join those of former calls; with an unchanged flag they are
    /// not looked at.
    void setComboBoxTable(bool flag, const std::vector<std::string>& entries);
    void setComboBoxTable(bool flag);

    /// For the current cell.
    void setValue(const std::string& value) override;
    /// For a cell: its text, or the number that says whether its box is checked, or the index of its choice,
    /// the first for a negative one and the last beyond the end. Outside the table: nothing.
    void setValue(int row, int column, const std::string& value);
    /// Of the current cell: its text, "1" or "0" for a check box, the entry chosen.
    std::string getValue() const override;
    /// The text of a cell: of a check box its title, of a choice the entry. Empty outside the table.
    std::string getValue(int row, int column) const;

public slots:
    void toDo() override { GUI_Widget::toDo(); }

protected:
    explicit GUI_Table(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_Table(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_Table() override = default;

private:
    void setItems(int rows, int columns);
    // Nothing where there is one; `text` is that of the cell.
    void makeCheckItem(int row, int column, const std::string& text);
    void makeComboItem(int row, int column, const std::string& text);
    void widenColumns(int width);
    void makeCurrent(int row, int column);
    /// The check box of a cell, or null.
    QTableWidgetItem* checkItem(int row, int column) const;
    /// The choice of a cell, or null.
    QComboBox* comboItem(int row, int column) const;

    bool mIsCheckedTable = false;
    bool mIsComboBoxTable = false;
    std::string mCheckTitle; ///< Beside each check box.
    QStringList mComboList;  ///< Entries of each choice.
};
