#include "gui/GUI_MatrixWindow.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Label.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_IntegerMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "support/CompositeTest.h"

#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>

#include <complex>

namespace {

using Complex = std::complex<double>;
using RealWindow = GUI_MatrixWindow<double>;
using ComplexWindow = GUI_MatrixWindow<Complex>;
using IntegerWindow = GUI_MatrixWindow<unsigned long>;

} // namespace

class GUI_MatrixWindowTest : public CompositeTest
{
protected:
    static void open(GUI_ParentWindow& window)
    {
        window.show();
        QApplication::setActiveWindow(&window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
};

TEST_F(GUI_MatrixWindowTest, HasItsTypeNamesInOrder)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    const COM_Scoped shown(RealWindow::New(window(), false, *matrix, true));
    const std::vector<std::string> types = shown->getTypes();
    ASSERT_GE(types.size(), 2U);
    EXPECT_EQ(types[types.size() - 2], "GUI_ChildWindow");
    EXPECT_EQ(types.back(), "GUI_MatrixWindow");
}

TEST_F(GUI_MatrixWindowTest, HasATranslatedTitleThatCanBeReplaced)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    const COM_Scoped english(RealWindow::New(window(), false, *matrix, true));
    EXPECT_EQ(english->getName(), "Matrix Window");
    english->setName("Initial Density Window");
    EXPECT_EQ(english->getName(), "Initial Density Window");
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped french(RealWindow::New(&window(), false, matrix.get(), true));
    EXPECT_EQ(french->getName(), "Matrice");
}

TEST_F(GUI_MatrixWindowTest, IsAContainerIfItIsAskedFor)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 1));
    const COM_Scoped plain(RealWindow::New(window(), false, *matrix, true));
    EXPECT_FALSE(plain->isContainer());
    const COM_Scoped container(RealWindow::New(window(), true, *matrix, true));
    EXPECT_TRUE(container->isContainer());
    EXPECT_EQ(container->centralWidget(), container->getPanel()->qtWidget())
        << "the form is seen all the same";
}

TEST_F(GUI_MatrixWindowTest, LivesAsItsParentsChildAndReleasesTheMatrix)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    auto* const shown = RealWindow::New(window(), false, *matrix, true);
    const unsigned long id = GUI_ParentWindow::getId(*shown);
    EXPECT_EQ(window().getChild(id), shown);
    EXPECT_EQ(matrix->getReferenceCount(), 2);
    shown->show();
    shown->Delete();
    ASSERT_EQ(window().getChild(id), shown);
    EXPECT_TRUE(shown->close(false));
    EXPECT_EQ(window().getChild(id), nullptr);
    EXPECT_EQ(matrix->getReferenceCount(), 1);
}

TEST_F(GUI_MatrixWindowTest, EditsTheMatrixThatItShows)
{
    const COM_Scoped matrix(LA_RealMatrix::New(3, 3));
    const COM_Scoped shown(RealWindow::New(window(), false, *matrix, false));
    shown->setSymetric(true);
    open(*shown);
    ASSERT_NE(shown->getMatrixPanel(), nullptr);
    GUI_Table& table = *shown->getMatrixPanel()->getTable();
    typeIntoCell(table, 1, 2, "7");
    EXPECT_EQ(matrix->getValue(1, 2), 7.0);
    EXPECT_EQ(matrix->getValue(2, 1), 7.0);
    EXPECT_EQ(table.getValue(2, 1), "7.000000e+00");
}

TEST_F(GUI_MatrixWindowTest, TheTextBeingTypedCountsWhenTheWindowIsClosed)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 1));
    const COM_Scoped shown(RealWindow::New(window(), false, *matrix, false));
    open(*shown);
    GUI_Table& table = *shown->getMatrixPanel()->getTable();
    clickCell(table, 0, 0);
    QTest::keyClick(&table, Qt::Key_F2);
    auto* const editor = table.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, "5");
    shown->close(false);
    EXPECT_EQ(matrix->getValue(0, 0), 5.0);
}

TEST_F(GUI_MatrixWindowTest, ShowsChangesWhenItsParentIsUpdated)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 1));
    const COM_Scoped shown(RealWindow::New(window(), false, *matrix, true));
    matrix->setDimensions(2, 2);
    matrix->setValue(1, 1, 3.0);
    window().updateValues();
    EXPECT_EQ(shown->getMatrixPanel()->getTable()->getValue(1, 1), "3.000000e+00");
}

TEST_F(GUI_MatrixWindowTest, PassesItsSettingsToTheForm)
{
    const COM_Scoped matrix(LA_ComplexMatrix::New(2, 2));
    const COM_Scoped other(LA_ComplexMatrix::New(1, 1));
    const COM_Scoped shown(ComplexWindow::New(window(), false, *matrix, true));
    open(*shown);
    GUI_Table& table = *shown->getMatrixPanel()->getTable();
    shown->setConjugate(true);
    typeIntoCell(table, 0, 1, "(1,2)");
    EXPECT_EQ(matrix->getValue(1, 0), Complex(1.0, -2.0));
    shown->setConjugate(false);
    shown->setAntiSymetric(true);
    typeIntoCell(table, 0, 1, "(3,4)");
    EXPECT_EQ(matrix->getValue(1, 0), Complex(-3.0, -4.0));
    shown->setAntiSymetric(false);
    shown->setSymetric(true);
    typeIntoCell(table, 0, 1, "(5,6)");
    EXPECT_EQ(matrix->getValue(1, 0), Complex(5.0, 6.0));
    shown->setSymetric(false);
    shown->setDiagonal(true);
    typeIntoCell(table, 0, 1, "(7,8)");
    EXPECT_EQ(matrix->getValue(0, 1), Complex());
    shown->setXDimensionLabel("Width");
    shown->setYDimensionLabel("Height");
    const QList<GUI_Label*> labels = shown->findChildren<GUI_Label*>();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->text(), "Width");
    EXPECT_EQ(labels[1]->text(), "Height");
    shown->setColumnsResizabled(true);
    EXPECT_EQ(table.horizontalHeader()->sectionResizeMode(0), QHeaderView::Interactive);
    shown->setMatrix(*other);
    EXPECT_EQ(shown->getMatrixPanel()->getMatrix(), other.get());
    shown->resetMatrix();
    EXPECT_EQ(shown->getMatrixPanel()->getMatrix(), nullptr);
}

TEST_F(GUI_MatrixWindowTest, CellsCanBeCheckBoxesOrChoices)
{
    const COM_Scoped matrix(LA_IntegerMatrix::New(1, 1));
    const COM_Scoped checks(IntegerWindow::New(window(), false, *matrix, false));
    checks->setCheckedMatrix(true, "shown");
    EXPECT_EQ(checks->getMatrixPanel()->getTable()->getValue(0, 0), "shown");
    const COM_Scoped choices(IntegerWindow::New(window(), false, *matrix, false));
    choices->setComboBoxMatrix(true, {"first", "second"});
    EXPECT_EQ(choices->getMatrixPanel()->getTable()->getValue(0, 0), "first");
    const COM_Scoped plain(IntegerWindow::New(window(), false, *matrix, false));
    plain->setCheckedMatrix(false);
    plain->setComboBoxMatrix(false);
    EXPECT_EQ(plain->getMatrixPanel()->getTable()->getValue(0, 0), "0");
}

TEST_F(GUI_MatrixWindowTest, AClosedWindowHasNoFormToTell)
{
    const COM_Scoped matrix(LA_IntegerMatrix::New(1, 1));
    const COM_Scoped shown(IntegerWindow::New(window(), false, *matrix, true));
    shown->show();
    shown->close(false);
    EXPECT_EQ(shown->getMatrixPanel(), nullptr);
    shown->setMatrix(*matrix);
    shown->setSymetric(true);
    shown->setXDimensionLabel("Width");
    shown->setCheckedMatrix(true);
    shown->resetMatrix();
    EXPECT_EQ(matrix->getReferenceCount(), 1);
}

TEST_F(GUI_MatrixWindowTest, AWindowCanOpenWithoutMatrix)
{
    LA_Matrix<double>* const none = nullptr;
    const COM_Scoped shown(RealWindow::New(&window(), false, none, true));
    ASSERT_NE(shown->getMatrixPanel(), nullptr);
    EXPECT_EQ(shown->getMatrixPanel()->getMatrix(), nullptr);
    EXPECT_EQ(shown->getMatrixPanel()->getTable()->rowCount(), 0);
}

/// Sizes that are in full view when the window opens on a screen that is large enough.
class GUI_MatrixWindowSizeTest : public GUI_MatrixWindowTest,
                                 public testing::WithParamInterface<int>
{};

TEST_P(GUI_MatrixWindowSizeTest, OpensWithTheMatrixInFullView)
{
    const auto size = static_cast<unsigned long>(GetParam());
    const COM_Scoped matrix(LA_RealMatrix::New(size, size));
    for (const bool showDim : {false, true}) {
        const COM_Scoped shown(RealWindow::New(window(), false, *matrix, showDim));
        open(*shown);
        const GUI_Table& table = *shown->getMatrixPanel()->getTable();
        ASSERT_LT(shown->width(), shown->screen()->availableSize().width());
        EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
        EXPECT_FALSE(table.verticalScrollBar()->isVisible());
        const QRect last = table.visualRect(table.model()->index(GetParam() - 1, GetParam() - 1));
        EXPECT_TRUE(table.viewport()->rect().contains(last));
        const QPoint left = table.viewport()->rect().bottomRight() - last.bottomRight();
        if (!showDim && GetParam() > 1) {
            // Nothing is left over but the lines below and beside the last cell, and what a caption takes.
            EXPECT_EQ(left.y(), 1);
            EXPECT_TRUE(left.x() == 1 || shown->width() == 320) << left.x();
        }
        shown->close(false);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, GUI_MatrixWindowSizeTest, testing::Values(1, 2, 3, 4, 5));

TEST_F(GUI_MatrixWindowTest, ALargeMatrixOpensWithFiveRowsAndColumns)
{
    const COM_Scoped matrix(LA_RealMatrix::New(30, 30));
    const COM_Scoped shown(RealWindow::New(window(), false, *matrix, false));
    open(*shown);
    const GUI_Table& table = *shown->getMatrixPanel()->getTable();
    const QRect visible = table.viewport()->rect();
    EXPECT_TRUE(visible.contains(table.visualRect(table.model()->index(4, 4))));
    EXPECT_FALSE(visible.contains(table.visualRect(table.model()->index(6, 6))));
    EXPECT_TRUE(table.horizontalScrollBar()->isVisible());
    EXPECT_TRUE(table.verticalScrollBar()->isVisible());
}

TEST_F(GUI_MatrixWindowTest, NoWindowOpensLargerThanTheScreen)
{
    const COM_Scoped matrix(LA_ComplexMatrix::New(5, 5));
    const COM_Scoped shown(ComplexWindow::New(window(), false, *matrix, true));
    open(*shown);
    EXPECT_LE(shown->width(), shown->screen()->availableSize().width());
    EXPECT_LE(shown->height(), shown->screen()->availableSize().height());
}

TEST_F(GUI_MatrixWindowTest, AComplexMatrixHasNoClippedCell)
{
    const COM_Scoped matrix(LA_ComplexMatrix::New(4, 4));
    matrix->setValue(3, 3, Complex(-1e-200, -1e-200));
    const COM_Scoped shown(ComplexWindow::New(window(), false, *matrix, false));
    open(*shown);
    const GUI_Table& table = *shown->getMatrixPanel()->getTable();
    const QAbstractItemView& view = table;
    int width = table.verticalHeader()->width() + 2 * table.frameWidth();
    for (int column = 0; column < 4; ++column) {
        EXPECT_GE(table.columnWidth(column), view.sizeHintForColumn(column)) << column;
        width += table.columnWidth(column);
    }
    const int available = shown->screen()->availableSize().width();
    EXPECT_GE(table.width(), std::min(width, available - (shown->width() - table.width())));
}
