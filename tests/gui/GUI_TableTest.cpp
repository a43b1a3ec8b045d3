#include "gui/GUI_Table.h"

#include "support/TestPanel.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QStyle>

#include <utility>

namespace {

/// A table of 2 rows and 3 columns, on the screen with its first cell current.
GUI_Table& addTable(const TestForm& form)
{
    auto& table = form.add<GUI_Table>(1);
    table.setColumnsNumber(3);
    table.setRowsNumber(2);
    return table;
}

void show(const TestForm& form, GUI_Table& table)
{
    form->resize(600, 300);
    table.setCurrentCell(0, 0);
    form.show();
}

QPoint placeOf(const GUI_Table& table, int row, int column)
{
    return table.visualRect(table.model()->index(row, column)).center();
}

/// Where the mark of a check box stands.
QPoint markOf(const GUI_Table& table, int row, int column)
{
    const QRect cell = table.visualRect(table.model()->index(row, column));
    const int margin =
        table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table) + 1;
    const int half = table.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &table) / 2;
    return {cell.left() + margin + half, cell.center().y()};
}

QComboBox& comboOf(const GUI_Table& table, int row, int column)
{
    return dynamic_cast<QComboBox&>(*table.cellWidget(row, column));
}

const std::vector<std::string> LAWS = {"none", "left", "right"};

} // namespace

TEST(GUI_Table, IsEmptyAtFirstAndOfFixedSections)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped table(GUI_Table::New(*panel));
    EXPECT_TRUE(table->instanceOf("GUI_Table"));
    EXPECT_EQ(table->rowCount(), 0);
    EXPECT_EQ(table->columnCount(), 0);
    EXPECT_EQ(table->getRow(), -1);
    EXPECT_EQ(table->getColumn(), -1);
    EXPECT_EQ(table->getValue(), "");
    table->setColumnsNumber(1);
    table->setRowsNumber(1);
    for (const QHeaderView* const header : {table->horizontalHeader(), table->verticalHeader()}) {
        EXPECT_FALSE(header->sectionsMovable());
        EXPECT_EQ(header->sectionResizeMode(0), QHeaderView::Fixed);
    }
    table->setColumnsResizabled(true);
    EXPECT_EQ(table->horizontalHeader()->sectionResizeMode(0), QHeaderView::Interactive);
    table->setColumnsResizabled(false);
    EXPECT_EQ(table->horizontalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
}

TEST(GUI_Table, ReportsAMoveOnceAndAnEditOnce)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setValue(1, 2, "old");
    show(form, table);

    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, placeOf(table, 1, 2));
    EXPECT_EQ(form->mFlags, std::vector<int>{1});
    EXPECT_EQ(form->mValues, std::vector<std::string>{"old"});
    EXPECT_EQ(table.getRow(), 1);
    EXPECT_EQ(table.getColumn(), 2);

    form->forget();
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, placeOf(table, 1, 2));
    auto* const editor = table.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, "2.5");
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();

    EXPECT_EQ(form->mValues, std::vector<std::string>{"2.5"});
    EXPECT_EQ(table.getValue(1, 2), "2.5");
}

TEST(GUI_Table, DoesNotReportWhatCodeWrites)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setValue(0, 0, "a");
    table.setCurrentCell(0, 0);
    form->forget();

    table.setValue("b");
    table.setValue(1, 1, "c");
    table.setColumnLabel(0, "X");
    table.setRowLabel(0, "Y");
    table.setColumnsNumber(9);
    table.setRowsNumber(8);
    table.setCheckedTable(true, "title");
    table.setRowsNumber(0);

    EXPECT_TRUE(form->mFlags.empty());
}

TEST(GUI_Table, ReadsAndWritesCells)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    EXPECT_EQ(table.getValue(1, 1), "");
    table.setValue(1, 1, "(1,2)");
    table.setValue(1, 1, "(3,4)");
    EXPECT_EQ(table.getValue(1, 1), "(3,4)");

    table.setCurrentCell(1, 1);
    EXPECT_EQ(table.getValue(), "(3,4)");
    table.setValue("7");
    EXPECT_EQ(table.getValue(1, 1), "7");
}

TEST(GUI_Table, PassesOverCellsOutside)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    for (const auto& [row, column] : {std::pair{2, 0}, {0, 3}, {-1, 0}, {0, -1}, {-1, -1}}) {
        table.setValue(row, column, "x");
        EXPECT_EQ(table.getValue(row, column), "");
    }
    table.setValue("x");
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.columnCount(), 3);
    EXPECT_TRUE(form->mFlags.empty());
}

TEST(GUI_Table, GrowsForALabelBeyondItsEnd)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setColumnLabel(5, "sixth", 133);
    table.setRowLabel(3, "fourth", 44);
    table.setColumnLabel(0, "first");
    table.setRowLabel(0, "top");
    table.setColumnLabel(-1, "none");
    table.setRowLabel(-1, "none");

    EXPECT_EQ(table.columnCount(), 6);
    EXPECT_EQ(table.rowCount(), 4);
    EXPECT_EQ(table.columnWidth(5), 133);
    EXPECT_EQ(table.rowHeight(3), 44);
    EXPECT_EQ(table.getColumnLabel(5), "sixth");
    EXPECT_EQ(table.getRowLabel(3), "fourth");
    EXPECT_EQ(table.getColumnLabel(0), "first");
    EXPECT_EQ(table.getRowLabel(0), "top");
    EXPECT_EQ(table.getColumnLabel(1), "2");
    EXPECT_EQ(table.getColumnLabel(6), "");
}

TEST(GUI_Table, ShrinksAndRefusesNegativeSizes)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setColumnsNumber(1);
    table.setRowsNumber(-4);
    EXPECT_EQ(table.columnCount(), 1);
    EXPECT_EQ(table.rowCount(), 0);
}

TEST(GUI_Table, TurnsTextsIntoCheckBoxes)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setValue(0, 1, "1");
    table.setValue(0, 2, "x");
    table.setCheckedTable(true, "On");

    const std::vector<std::pair<int, std::string>> expected = {{0, "0"}, {1, "1"}, {2, "0"}};
    for (const auto& [column, value] : expected) {
        table.setCurrentCell(0, column);
        EXPECT_EQ(table.getValue(), value) << column;
        EXPECT_EQ(table.getValue(0, column), "On");
    }
}

TEST(GUI_Table, ChangesACheckBoxByAClickOnItsMark)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setCheckedTable(true, "On");
    show(form, table);

    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, markOf(table, 1, 2));

    ASSERT_FALSE(form->mValues.empty());
    EXPECT_EQ(form->mValues.back(), "1");
    EXPECT_EQ(table.getRow(), 1);
    EXPECT_EQ(table.getColumn(), 2);
    table.setCurrentCell(0, 0);
    EXPECT_EQ(table.getValue(), "0");
}

TEST(GUI_Table, HasTheClickedCellCurrentInEveryReport)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setCheckedTable(true, "On");
    show(form, table);
    std::vector<std::pair<int, int>> cells;
    form->mAnswer = [&](GUI_ActionComponent&) {
        cells.emplace_back(table.getRow(), table.getColumn());
    };

    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, markOf(table, 1, 1));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, markOf(table, 0, 2));

    ASSERT_FALSE(cells.empty());
    EXPECT_EQ(cells.front(), (std::pair{1, 1}));
    EXPECT_EQ(cells.back(), (std::pair{0, 2}));
    for (const auto& cell : cells) {
        EXPECT_NE(cell, (std::pair{0, 0}));
    }
    EXPECT_EQ(table.item(1, 1)->checkState(), Qt::Checked);
    EXPECT_EQ(table.item(0, 2)->checkState(), Qt::Checked);
    EXPECT_EQ(table.item(0, 0)->checkState(), Qt::Unchecked);
}

TEST(GUI_Table, SetsCheckBoxesByNumbers)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setCheckedTable(true, "On");
    table.setCurrentCell(1, 1);
    table.setValue("3");
    EXPECT_EQ(table.getValue(), "1");
    table.setValue("0");
    EXPECT_EQ(table.getValue(), "0");
    table.setValue(1, 1, "1");
    EXPECT_EQ(table.getValue(), "1");
    EXPECT_EQ(table.getValue(1, 1), "On");
}

TEST(GUI_Table, KeepsItsMarksWhenItGrows)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setCheckedTable(true, "On");
    table.setValue(1, 1, "1");

    table.setRowsNumber(4);
    table.setCheckedTable(true, "Other");
    table.setColumnsNumber(4);

    table.setCurrentCell(1, 1);
    EXPECT_EQ(table.getValue(), "1");
    EXPECT_EQ(table.getValue(1, 1), "On");
    EXPECT_EQ(table.getValue(3, 2), "On");
    EXPECT_EQ(table.getValue(3, 3), "Other");
    table.setCurrentCell(3, 3);
    EXPECT_EQ(table.getValue(), "0");
}

TEST(GUI_Table, HasItsItemsInTheCellsThatALabelAdds)
{
    const TestForm form;
    auto& checks = form.add<GUI_Table>(1);
    checks.setCheckedTable(true, "On");
    checks.setColumnLabel(1, "second");
    checks.setRowLabel(2, "third");
    auto& choices = form.add<GUI_Table>(2);
    choices.setComboBoxTable(true, LAWS);
    choices.setRowLabel(2, "third");
    choices.setColumnLabel(1, "second");

    EXPECT_EQ(checks.getValue(2, 1), "On");
    EXPECT_EQ(choices.getValue(2, 1), "none");
}

TEST(GUI_Table, SaysZeroWithoutACurrentCheckBox)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setCheckedTable(true);
    EXPECT_EQ(table.getRow(), -1);
    EXPECT_EQ(table.getValue(), "0");
    table.setValue("1");
    EXPECT_EQ(table.getValue(), "0");
}

TEST(GUI_Table, LeavesTheCellsWhenCheckBoxesAreGivenUp)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setCheckedTable(true, "On");
    table.setCheckedTable(false);
    table.setCurrentCell(0, 0);
    EXPECT_EQ(table.getValue(), "On");
    table.setValue("text");
    EXPECT_EQ(table.getValue(0, 0), "text");
}

TEST(GUI_Table, WidensItsColumnsForTheTitleOfTheCheckBoxes)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setColumnLabel(0, "kept", 10);
    table.setColumnLabel(1, "wide", 900);
    const std::string title = "a title that needs much more room than a column has";
    const int width =
        table.fontMetrics().horizontalAdvance(QString::fromStdString(title) + "     ");
    ASSERT_GT(width, table.columnWidth(2));

    table.setCheckedTable(true, title);

    EXPECT_EQ(table.columnWidth(0), width);
    EXPECT_EQ(table.getColumnLabel(0), "kept");
    EXPECT_EQ(table.columnWidth(1), 900);
    EXPECT_EQ(table.columnWidth(2), width);
}

TEST(GUI_Table, TurnsTextsIntoChoices)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setValue(0, 1, "right");
    table.setValue(0, 2, "unknown");

    table.setComboBoxTable(true, LAWS);

    EXPECT_EQ(table.getValue(0, 0), "none");
    EXPECT_EQ(table.getValue(0, 1), "right");
    EXPECT_EQ(table.getValue(0, 2), "none");
    EXPECT_FALSE(comboOf(table, 0, 0).isEditable());
    table.setCurrentCell(0, 1);
    EXPECT_EQ(table.getValue(), "right");
    table.setRowsNumber(3);
    EXPECT_EQ(table.getValue(0, 1), "right");
    EXPECT_EQ(comboOf(table, 2, 2).count(), 3);
}

TEST(GUI_Table, KeepsTheFirstListOfTwo)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setComboBoxTable(true, LAWS);
    table.setComboBoxTable(true, {"other"});
    EXPECT_EQ(comboOf(table, 0, 0).count(), 3);
    table.setColumnsNumber(4);
    EXPECT_EQ(comboOf(table, 0, 3).count(), 3);

    table.setComboBoxTable(false);
    table.setComboBoxTable(true, {"other"});
    table.setColumnsNumber(5);
    EXPECT_EQ(comboOf(table, 0, 3).count(), 3);
    EXPECT_EQ(comboOf(table, 0, 4).count(), 4);
}

TEST(GUI_Table, ThatIsToHaveCheckBoxesTooKeepsItsChoices)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setComboBoxTable(true, LAWS);
    table.setValue(0, 1, "2");

    table.setCheckedTable(true, "On");
    EXPECT_EQ(table.getValue(0, 1), "right");
    table.setRowsNumber(3);
    EXPECT_EQ(table.getValue(0, 1), "right");
    EXPECT_EQ(table.getValue(2, 2), "none");

    // Values are those of check boxes, which no cell has.
    table.setCurrentCell(0, 1);
    EXPECT_EQ(table.getValue(), "0");
    table.setValue("1");
    EXPECT_EQ(table.getValue(0, 1), "right");
}

TEST(GUI_Table, SetsChoicesByNumbersWithinTheList)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setComboBoxTable(true, LAWS);
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"1", "left"}, {"2", "right"},          {"3", "right"},
        {"0", "none"}, {"4294967296", "right"}, {"-1", "none"}};
    for (const auto& [value, text] : expected) {
        table.setValue(1, 1, value);
        EXPECT_EQ(table.getValue(1, 1), text) << value;
    }
    EXPECT_TRUE(form->mFlags.empty());
}

TEST(GUI_Table, WithAnEmptyListHasNothingToChoose)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setComboBoxTable(true);
    table.setValue(0, 0, "1");
    EXPECT_EQ(table.getValue(0, 0), "");
}

TEST(GUI_Table, ReportsTheUsersChoiceWithItsCellCurrent)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setComboBoxTable(true, LAWS);
    show(form, table);
    QComboBox& combo = comboOf(table, 1, 2);
    std::vector<std::pair<int, int>> cells;
    form->mAnswer = [&](GUI_ActionComponent&) {
        cells.emplace_back(table.getRow(), table.getColumn());
    };

    QTest::mouseClick(&combo, Qt::LeftButton);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);

    EXPECT_EQ(table.getValue(1, 2), "left");
    ASSERT_FALSE(cells.empty());
    EXPECT_EQ(cells.back(), (std::pair{1, 2}));
    EXPECT_EQ(form->mValues.back(), "left");
}

TEST(GUI_Table, MakesTheCellOfAChoiceCurrentBeforeItReports)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setComboBoxTable(true, LAWS);
    show(form, table);

    // The wheel or a key may reach a choice whose cell is not current.
    QTest::keyClick(&comboOf(table, 0, 1), Qt::Key_Down);

    EXPECT_EQ(form->mValues, std::vector<std::string>{"left"});
    EXPECT_EQ(table.getRow(), 0);
    EXPECT_EQ(table.getColumn(), 1);
}

TEST(GUI_Table, WidensItsColumnsForTheLongestChoice)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    const std::string entry = "an entry that needs much more room than a column has";
    const int width = table.fontMetrics().horizontalAdvance(QString::fromStdString(entry) + "  ");
    ASSERT_GT(width, table.columnWidth(0));
    table.setComboBoxTable(true, {"short", entry, "x"});
    EXPECT_EQ(table.columnWidth(0), width);
    EXPECT_EQ(table.columnWidth(2), width);
}

TEST(GUI_Table, GivesEveryColumnOfChoicesSomeWidth)
{
    const TestForm form;
    GUI_Table& table = addTable(form);
    table.setColumnLabel(0, "narrow", 0);
    ASSERT_EQ(table.columnWidth(0), 0);
    table.setComboBoxTable(true, {});
    EXPECT_GE(table.columnWidth(0), 1); // headers have a least width of their own
}

TEST(GUI_Table, CanBeDisabled)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped table(GUI_Table::New(panel.get()));
    static_cast<GUI_ActionComponent&>(*table).setEnabled(false);
    EXPECT_FALSE(table->isEnabled());
}
