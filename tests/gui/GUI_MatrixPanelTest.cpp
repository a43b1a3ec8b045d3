#include "gui/GUI_MatrixPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_SpinBox.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_IntegerMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "support/CompositeTest.h"
#include "support/Printed.h"

#include <QComboBox>
#include <QHeaderView>

#include <complex>
#include <vector>

namespace {

using Complex = std::complex<double>;
using RealPanel = GUI_MatrixPanel<double>;
using ComplexPanel = GUI_MatrixPanel<Complex>;
using IntegerPanel = GUI_MatrixPanel<unsigned long>;

/// Counts how often it brought up to date what depends on the matrix.
class DependentPanel : public RealPanel
{
    COM_CLASS(DependentPanel)
public:
    int mUpdates = 0;

    void updateValues() override
    {
        RealPanel::updateValues();
        ++mUpdates;
    }

protected:
    DependentPanel(GUI_ParentPanel& parent, LA_Matrix<double>& matrix)
        : RealPanel(parent, matrix, true)
    {}
    ~DependentPanel() override = default;
};

/// Values whose digits do not end where those of the cells do: 1 / 3, 2 / 3 ...
std::vector<double> thirds(unsigned long number)
{
    std::vector<double> values(number);
    for (unsigned long i = 0; i < number; ++i) {
        values[i] = static_cast<double>(i + 1) / 3.0;
    }
    return values;
}

std::vector<double> valuesOf(const LA_Matrix<double>& matrix)
{
    return {matrix.getValues(),
            matrix.getValues() + matrix.getLinesNumber() * matrix.getColumnsNumber()};
}

} // namespace

class GUI_MatrixPanelTest : public CompositeTest
{
protected:
    static GUI_Table& table(const GUI_ParentPanel& panel)
    {
        return component<GUI_Table>(panel, RealPanel::COMPO_TABLE);
    }
    static GUI_SpinBox& columnsBox(const GUI_ParentPanel& panel)
    {
        return component<GUI_SpinBox>(panel, RealPanel::COMPO_SB_XDIM);
    }
    static GUI_SpinBox& rowsBox(const GUI_ParentPanel& panel)
    {
        return component<GUI_SpinBox>(panel, RealPanel::COMPO_SB_YDIM);
    }
};

TEST_F(GUI_MatrixPanelTest, HasItsTypeNamesInOrder)
{
    const COM_Scoped panel(RealPanel::New(root()));
    const std::vector<std::string> types = panel->getTypes();
    ASSERT_GE(types.size(), 2U);
    EXPECT_EQ(types[types.size() - 2], "GUI_FramePanel");
    EXPECT_EQ(types.back(), "GUI_MatrixPanel");
}

TEST_F(GUI_MatrixPanelTest, HoldsItsMatrixUntilItGetsAnotherOrGoes)
{
    const COM_Scoped first(LA_RealMatrix::New(2, 2));
    const COM_Scoped second(LA_RealMatrix::New(2, 2));
    auto* const panel = RealPanel::New(root(), *first, true);
    EXPECT_EQ(panel->getMatrix(), first.get());
    EXPECT_EQ(first->getReferenceCount(), 2);
    panel->setMatrix(*first);
    EXPECT_EQ(first->getReferenceCount(), 2);
    panel->setMatrix(*second);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
    panel->setMatrix(nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(panel->getMatrix(), nullptr);
    panel->setMatrix(*second);
    root().removeFromChildren(*panel);
    panel->Delete();
    EXPECT_EQ(second->getReferenceCount(), 1);
}

TEST_F(GUI_MatrixPanelTest, ShowsEachKindOfNumberInItsOwnForm)
{
    const COM_Scoped reals(LA_RealMatrix::New(1, 1));
    reals->setValue(0, 0, -1.0 / 3.0);
    const COM_Scoped complexes(LA_ComplexMatrix::New(1, 1));
    complexes->setValue(0, 0, Complex(0.5, -1.0 / 3.0));
    const COM_Scoped integers(LA_IntegerMatrix::New(1, 1));
    integers->setValue(0, 0, 42UL);
    const COM_Scoped realPanel(RealPanel::New(root(), *reals, true));
    const COM_Scoped complexPanel(ComplexPanel::New(root(), *complexes, true));
    const COM_Scoped integerPanel(IntegerPanel::New(root(), *integers, true));
    EXPECT_EQ(table(*realPanel).getValue(0, 0), "-3.333333e-01");
    EXPECT_EQ(table(*complexPanel).getValue(0, 0), "(5.000000e-01,-3.333333e-01)");
    EXPECT_EQ(table(*integerPanel).getValue(0, 0), "42");
}

TEST_F(GUI_MatrixPanelTest, ShowingAMatrixDoesNotChangeIt)
{
    const COM_Scoped matrix(LA_RealMatrix::New(3, 2));
    matrix->setValues(thirds(6), 3, 2);
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    EXPECT_EQ(matrix->getLinesNumber(), 3U);
    EXPECT_EQ(matrix->getColumnsNumber(), 2U);
    EXPECT_EQ(valuesOf(*matrix), thirds(6));
    EXPECT_EQ(columnsBox(*panel).getValue(), "2");
    EXPECT_EQ(rowsBox(*panel).getValue(), "3");
    EXPECT_EQ(table(*panel).rowCount(), 3);
    EXPECT_EQ(table(*panel).columnCount(), 2);
    EXPECT_EQ(table(*panel).getValue(2, 1), "2.000000e+00");
    EXPECT_EQ(table(*panel).getValue(2, 0), "1.666667e+00");
}

TEST_F(GUI_MatrixPanelTest, TheSameMatrixIsNotShownAnew)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 1));
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    matrix->setValue(0, 0, 1.0);
    panel->setMatrix(*matrix);
    EXPECT_EQ(table(*panel).getValue(0, 0), "0.000000e+00");
    panel->updateValues();
    EXPECT_EQ(table(*panel).getValue(0, 0), "1.000000e+00");
}

TEST_F(GUI_MatrixPanelTest, ResetLeavesNoRows)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 3));
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    panel->resetMatrix();
    EXPECT_EQ(table(*panel).rowCount(), 0);
    EXPECT_EQ(panel->getMatrix(), nullptr);
    panel->updateValues();
    EXPECT_EQ(table(*panel).rowCount(), 0);
    EXPECT_EQ(matrix->getLinesNumber(), 2U);
}

TEST_F(GUI_MatrixPanelTest, TypedNumbersReachTheMatrixWhole)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    typeIntoCell(table(*panel), 0, 1, "0.123456789012");
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{0.0, 0.123456789012, 0.0, 0.0}));
    EXPECT_EQ(table(*panel).getValue(0, 1), "1.234568e-01");
    typeIntoCell(table(*panel), 1, 0, "-2", Qt::Key_Tab);
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{0.0, 0.123456789012, -2.0, 0.0}));
    EXPECT_EQ(table(*panel).getValue(1, 0), "-2.000000e+00");
}

TEST_F(GUI_MatrixPanelTest, TextThatIsNoNumberCountsAsZero)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 1));
    matrix->setValue(0, 0, 3.0);
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    typeIntoCell(table(*panel), 0, 0, "abc");
    EXPECT_EQ(matrix->getValue(0, 0), 0.0);
    EXPECT_EQ(table(*panel).getValue(0, 0), "0.000000e+00");
}

TEST_F(GUI_MatrixPanelTest, AnEditThatIsGivenUpChangesNothing)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 1));
    matrix->setValue(0, 0, 1.0 / 3.0);
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    typeIntoCell(table(*panel), 0, 0, "5", Qt::Key_Escape);
    EXPECT_EQ(matrix->getValue(0, 0), 1.0 / 3.0);
    EXPECT_EQ(table(*panel).getValue(0, 0), "3.333333e-01");
}

TEST_F(GUI_MatrixPanelTest, ComplexAndIntegerNumbersAreTypedInTheirOwnForm)
{
    const COM_Scoped complexes(LA_ComplexMatrix::New(2, 2));
    const COM_Scoped complexPanel(ComplexPanel::New(root(), *complexes, true));
    show(*complexPanel);
    typeIntoCell(table(*complexPanel), 0, 1, "(0.25,-1e-3)");
    EXPECT_EQ(complexes->getValue(0, 1), Complex(0.25, -1e-3));
    EXPECT_EQ(complexes->getValue(1, 0), Complex());
    const COM_Scoped integers(LA_IntegerMatrix::New(2, 2));
    const COM_Scoped integerPanel(IntegerPanel::New(root(), *integers, true));
    show(*integerPanel);
    typeIntoCell(table(*integerPanel), 1, 1, "17");
    EXPECT_EQ(integers->getValue(1, 1), 17U);
}

TEST_F(GUI_MatrixPanelTest, WalkingThroughACellKeepsEveryDigit)
{
    const COM_Scoped matrix(LA_RealMatrix::New(3, 3));
    matrix->setValues(thirds(9), 3, 3);
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    panel->setSymetric(true);
    panel->setDiagonal(true);
    show(*panel);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            clickCell(table(*panel), row, column);
        }
    }
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Tab, Qt::Key_Home, Qt::Key_Down}) {
        QTest::keyClick(&table(*panel), key);
    }
    EXPECT_EQ(valuesOf(*matrix), thirds(9));
}

TEST_F(GUI_MatrixPanelTest, TypingTheShownTextAgainKeepsEveryDigit)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    matrix->setValues(thirds(4), 2, 2);
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    typeIntoCell(table(*panel), 0, 0, "3.333333e-01");
    EXPECT_EQ(valuesOf(*matrix), thirds(4));
    typeIntoCell(table(*panel), 0, 0, "0.3333333");
    EXPECT_EQ(matrix->getValue(0, 0), 0.3333333);
}

TEST_F(GUI_MatrixPanelTest, AnEditorThatIsOnlyOpenedKeepsEveryDigit)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    matrix->setValues(thirds(4), 2, 2);
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    typeIntoCell(table(*panel), 0, 0, "5", Qt::Key_Tab);
    // Tab has opened the editor of the next cell.
    auto* const next = table(*panel).findChild<QLineEdit*>();
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->text(), "6.666667e-01");
    QTest::keyClick(next, Qt::Key_Tab);
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{5.0, 2.0 / 3.0, 1.0, 4.0 / 3.0}));
    columnsBox(*panel).setFocus();
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{5.0, 2.0 / 3.0, 1.0, 4.0 / 3.0}));
}

/// What the flags make of an edit of a complex 2 x 2 matrix that holds (row + 1, column + 1).
struct FlagCase
{
    const char* name;
    void (*set)(ComplexPanel& panel);
    int row;
    int column;
    std::vector<Complex> values; ///< After (5,7) was typed into the cell.
};

class GUI_MatrixPanelFlagTest : public GUI_MatrixPanelTest,
                                public testing::WithParamInterface<FlagCase>
{};

TEST_P(GUI_MatrixPanelFlagTest, ChangesTheCellAndItsMirror)
{
    const COM_Scoped matrix(LA_ComplexMatrix::New(2, 2));
    matrix->setValues({{1, 1}, {1, 2}, {2, 1}, {2, 2}}, 2, 2);
    const COM_Scoped panel(ComplexPanel::New(root(), *matrix, true));
    GetParam().set(*panel);
    show(*panel);
    typeIntoCell(table(*panel), GetParam().row, GetParam().column, "(5,7)");
    for (int i = 0; i < 4; ++i) {
        const Complex expected = GetParam().values[i];
        EXPECT_EQ(matrix->getValue(i / 2, i % 2), expected) << i;
        char text[64];
        std::snprintf(text, sizeof text, "(%.6e,%.6e)", expected.real(), expected.imag());
        EXPECT_EQ(table(*panel).getValue(i / 2, i % 2), text) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Flags, GUI_MatrixPanelFlagTest,
    testing::Values(FlagCase{"none", [](ComplexPanel&) {}, 0, 1, {{1, 1}, {5, 7}, {2, 1}, {2, 2}}},
                    FlagCase{"symmetric",
                             [](ComplexPanel& p) { p.setSymetric(true); },
                             0,
                             1,
                             {{1, 1}, {5, 7}, {5, 7}, {2, 2}}},
                    FlagCase{"symmetricBelow",
                             [](ComplexPanel& p) { p.setSymetric(true); },
                             1,
                             0,
                             {{1, 1}, {5, 7}, {5, 7}, {2, 2}}},
                    FlagCase{"symmetricOnTheDiagonal",
                             [](ComplexPanel& p) { p.setSymetric(true); },
                             1,
                             1,
                             {{1, 1}, {1, 2}, {2, 1}, {5, 7}}},
                    FlagCase{"antisymmetric",
                             [](ComplexPanel& p) { p.setAntiSymetric(true); },
                             0,
                             1,
                             {{1, 1}, {5, 7}, {-5, -7}, {2, 2}}},
                    // The mirror of a cell of the diagonal is the cell itself.
                    FlagCase{"antisymmetricOnTheDiagonal",
                             [](ComplexPanel& p) { p.setAntiSymetric(true); },
                             0,
                             0,
                             {{-5, -7}, {1, 2}, {2, 1}, {2, 2}}},
                    FlagCase{"diagonal",
                             [](ComplexPanel& p) { p.setDiagonal(true); },
                             0,
                             1,
                             {{1, 1}, {0, 0}, {2, 1}, {2, 2}}},
                    FlagCase{"diagonalOnTheDiagonal",
                             [](ComplexPanel& p) { p.setDiagonal(true); },
                             1,
                             1,
                             {{1, 1}, {1, 2}, {2, 1}, {5, 7}}},
                    FlagCase{"conjugate",
                             [](ComplexPanel& p) { p.setConjugate(true); },
                             0,
                             1,
                             {{1, 1}, {5, 7}, {5, -7}, {2, 2}}},
                    FlagCase{"conjugateOnTheDiagonal",
                             [](ComplexPanel& p) { p.setConjugate(true); },
                             0,
                             0,
                             {{5, -7}, {1, 2}, {2, 1}, {2, 2}}},
                    // Of two flags for the mirror cell the later one has the last word.
                    FlagCase{"symmetricAndAntisymmetric",
                             [](ComplexPanel& p) {
                                 p.setSymetric(true);
                                 p.setAntiSymetric(true);
                             },
                             0,
                             1,
                             {{1, 1}, {5, 7}, {-5, -7}, {2, 2}}},
                    FlagCase{"antisymmetricAndConjugate",
                             [](ComplexPanel& p) {
                                 p.setAntiSymetric(true);
                                 p.setConjugate(true);
                             },
                             0,
                             1,
                             {{1, 1}, {5, 7}, {5, -7}, {2, 2}}},
                    // The mirror cell has got the value before the cell is put back to 0.
                    FlagCase{"symmetricAndDiagonal",
                             [](ComplexPanel& p) {
                                 p.setSymetric(true);
                                 p.setDiagonal(true);
                             },
                             0,
                             1,
                             {{1, 1}, {0, 0}, {5, 7}, {2, 2}}},
                    FlagCase{"switchedOff",
                             [](ComplexPanel& p) {
                                 p.setSymetric(true);
                                 p.setSymetric(false);
                             },
                             0,
                             1,
                             {{1, 1}, {5, 7}, {2, 1}, {2, 2}}}),
    [](const auto& entry) { return std::string(entry.param.name); });

TEST_F(GUI_MatrixPanelTest, RealAndIntegerMatricesAreTheirOwnConjugates)
{
    const COM_Scoped reals(LA_RealMatrix::New(2, 2));
    const COM_Scoped realPanel(RealPanel::New(root(), *reals, true));
    realPanel->setConjugate(true);
    show(*realPanel);
    typeIntoCell(table(*realPanel), 0, 1, "5");
    EXPECT_EQ(reals->getValue(1, 0), 5.0);
    const COM_Scoped integers(LA_IntegerMatrix::New(2, 2));
    const COM_Scoped integerPanel(IntegerPanel::New(root(), *integers, true));
    integerPanel->setConjugate(true);
    show(*integerPanel);
    typeIntoCell(table(*integerPanel), 0, 1, "5");
    EXPECT_EQ(integers->getValue(1, 0), 5U);
}

TEST_F(GUI_MatrixPanelTest, AMirrorCellOutsideTheMatrixIsPassedOver)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 3));
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    panel->setSymetric(true);
    panel->setAntiSymetric(true);
    panel->setConjugate(true);
    show(*panel);
    typeIntoCell(table(*panel), 0, 2, "5");
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{0.0, 0.0, 5.0}));
}

TEST_F(GUI_MatrixPanelTest, BoxesHaveTheirLabelsAndRanges)
{
    const COM_Scoped panel(RealPanel::New(root()));
    const QList<GUI_Label*> labels = panel->findChildren<GUI_Label*>();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->text(), "Columns Number");
    EXPECT_EQ(labels[1]->text(), "Rows Number");
    for (const GUI_SpinBox* const box : {&columnsBox(*panel), &rowsBox(*panel)}) {
        EXPECT_EQ(box->minimum(), 1);
        EXPECT_EQ(box->maximum(), 100000);
    }
    panel->setXDimensionLabel("Width");
    panel->setYDimensionLabel("Height");
    EXPECT_EQ(labels[0]->text(), "Width");
    EXPECT_EQ(labels[1]->text(), "Height");
    const QMargins margins = dynamic_cast<QGridLayout*>(panel->layout())->contentsMargins();
    EXPECT_EQ(margins, QMargins(11, 11, 11, 11));
    EXPECT_EQ(panel->layout()->spacing(), 6);
}

TEST_F(GUI_MatrixPanelTest, TheBoxesStandInARowAboveTheTable)
{
    const COM_Scoped panel(RealPanel::New(root()));
    const auto* const grid = dynamic_cast<QGridLayout*>(panel->layout());
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->rowCount(), 2);
    EXPECT_EQ(grid->columnCount(), 2);
    EXPECT_EQ(grid->itemAtPosition(1, 0)->widget(), &table(*panel));
    show(*panel);
    const QList<GUI_Label*> labels = panel->findChildren<GUI_Label*>();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_LT(labels[0]->geometry().right(), columnsBox(*panel).x());
    EXPECT_LT(columnsBox(*panel).geometry().right(), labels[1]->x());
    EXPECT_LT(labels[1]->geometry().right(), rowsBox(*panel).x());
    EXPECT_LT(rowsBox(*panel).geometry().bottom(), table(*panel).y());
}

TEST_F(GUI_MatrixPanelTest, ANewMatrixAndAnUpdateGiveANewPicture)
{
    const COM_Scoped first(LA_RealMatrix::New(2, 2));
    const COM_Scoped second(LA_RealMatrix::New(2, 2));
    const COM_Scoped panel(RealPanel::New(root(), *first, true));
    show(*panel);
    EXPECT_FALSE(isPaintedAfter(*panel, [&] { panel->setMatrix(*first); }));
    EXPECT_TRUE(isPaintedAfter(*panel, [&] { panel->updateValues(); }));
    EXPECT_TRUE(isPaintedAfter(*panel, [&] { panel->setMatrix(*second); }));
}

TEST_F(GUI_MatrixPanelTest, LabelsAreTranslated)
{
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped panel(RealPanel::New(root()));
    const QList<GUI_Label*> labels = panel->findChildren<GUI_Label*>();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->text(), "Nombre de colonnes");
    EXPECT_EQ(labels[1]->text(), "Nombre de lignes");
}

TEST_F(GUI_MatrixPanelTest, WithoutBoxesThereIsTheTableAlone)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    const COM_Scoped panel(RealPanel::New(root(), *matrix, false));
    EXPECT_EQ(panel->getComponent(RealPanel::COMPO_SB_XDIM), nullptr);
    EXPECT_EQ(panel->getComponent(RealPanel::COMPO_SB_YDIM), nullptr);
    EXPECT_TRUE(panel->findChildren<GUI_Label*>().isEmpty());
    panel->setXDimensionLabel("Width");
    panel->setYDimensionLabel("Height");
    panel->updateValues();
    EXPECT_EQ(table(*panel).rowCount(), 2);
    EXPECT_EQ(matrix->getLinesNumber(), 2U);
}

TEST_F(GUI_MatrixPanelTest, BoxesChangeTheDimensions)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    matrix->setValues({1.0, 2.0, 3.0, 4.0}, 2, 2);
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    typeNumber(columnsBox(*panel), "12");
    EXPECT_EQ(matrix->getLinesNumber(), 2U);
    EXPECT_EQ(matrix->getColumnsNumber(), 12U);
    EXPECT_EQ(table(*panel).columnCount(), 12);
    QTest::keyClick(&rowsBox(*panel), Qt::Key_Up);
    EXPECT_EQ(matrix->getLinesNumber(), 3U);
    EXPECT_EQ(matrix->getColumnsNumber(), 12U);
    EXPECT_EQ(table(*panel).rowCount(), 3);
    EXPECT_EQ(rowsBox(*panel).getValue(), "3");
    EXPECT_EQ(columnsBox(*panel).getValue(), "12");
}

TEST_F(GUI_MatrixPanelTest, AnUpdateKeepsWhatIsBeingTypedIntoABox)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    auto* const field = columnsBox(*panel).findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    field->selectAll();
    QTest::keyClicks(field, "12");
    panel->updateValues();
    EXPECT_EQ(field->text(), "12");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(matrix->getColumnsNumber(), 12U);
}

TEST_F(GUI_MatrixPanelTest, ASquareMatrixKeepsItsElementsWhenItGrows)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    matrix->setValues({1.0, 2.0, 3.0, 4.0}, 2, 2);
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    QTest::keyClick(&columnsBox(*panel), Qt::Key_Up);
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{1.0, 2.0, 3.0, 4.0, 0.0, 0.0}));
    EXPECT_EQ(table(*panel).getValue(1, 0), "4.000000e+00");
}

TEST_F(GUI_MatrixPanelTest, SizesBeyondMemoryAreRefused)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 40));
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    QTest::keyClick(&columnsBox(*panel), Qt::Key_Up);
    ASSERT_EQ(matrix->getColumnsNumber(), 41U);
    typeNumber(rowsBox(*panel), "97561"); // 41 * 97561 = 4000001
    EXPECT_EQ(matrix->getLinesNumber(), 1U);
    EXPECT_EQ(matrix->getColumnsNumber(), 41U);
    EXPECT_EQ(rowsBox(*panel).getValue(), "1");
    EXPECT_EQ(columnsBox(*panel).getValue(), "41");
    EXPECT_EQ(table(*panel).rowCount(), 1);
    typeNumber(rowsBox(*panel), "100000");
    EXPECT_EQ(matrix->getLinesNumber(), 1U);
    EXPECT_EQ(rowsBox(*panel).getValue(), "1");
}

TEST_F(GUI_MatrixPanelTest, AnEmptyMatrixStaysEmptyUntilABoxIsChanged)
{
    const COM_Scoped matrix(LA_RealMatrix::New(0, 0));
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    show(*panel);
    EXPECT_EQ(columnsBox(*panel).getValue(), "1");
    EXPECT_EQ(rowsBox(*panel).getValue(), "1");
    EXPECT_EQ(matrix->getLinesNumber(), 0U);
    EXPECT_EQ(matrix->getColumnsNumber(), 0U);
    EXPECT_EQ(table(*panel).rowCount(), 0);
    EXPECT_EQ(table(*panel).columnCount(), 0);
    QTest::keyClick(&columnsBox(*panel), Qt::Key_Up);
    EXPECT_EQ(matrix->getLinesNumber(), 1U);
    EXPECT_EQ(matrix->getColumnsNumber(), 2U);
}

TEST_F(GUI_MatrixPanelTest, EveryChangeEndsWithTheHeirsUpdate)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    const COM_Scoped panel(DependentPanel::New(root(), *matrix));
    EXPECT_EQ(panel->mUpdates, 0);
    show(*panel);
    clickCell(table(*panel), 1, 1);
    const int visits = panel->mUpdates;
    EXPECT_GT(visits, 0);
    typeIntoCell(table(*panel), 1, 1, "5");
    const int edits = panel->mUpdates;
    EXPECT_GT(edits, visits);
    QTest::keyClick(&rowsBox(*panel), Qt::Key_Up);
    EXPECT_GT(panel->mUpdates, edits);
}

TEST_F(GUI_MatrixPanelTest, AnUnknownFlagIsNamedAndTheMatrixShownAnew)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 1));
    const COM_Scoped panel(DependentPanel::New(root(), *matrix));
    const COM_Scoped box(GUI_SpinBox::New(*panel, 200));
    EXPECT_EQ(printedBy([&] { panel->componentClicked(*box); }), "action unknown !200\n");
    EXPECT_EQ(panel->mUpdates, 1);
}

TEST_F(GUI_MatrixPanelTest, WithoutMatrixOrCurrentCellNothingIsWritten)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    matrix->setValues(thirds(4), 2, 2);
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    ASSERT_EQ(table(*panel).getRow(), -1);
    panel->componentClicked(table(*panel));
    EXPECT_EQ(valuesOf(*matrix), thirds(4));
    panel->resetMatrix();
    show(*panel);
    QTest::keyClick(&columnsBox(*panel), Qt::Key_Up);
    panel->componentClicked(table(*panel));
    EXPECT_EQ(matrix->getColumnsNumber(), 2U);
}

TEST_F(GUI_MatrixPanelTest, APanelWithoutLayoutDoesNothing)
{
    const COM_Scoped matrix(LA_RealMatrix::New(2, 2));
    const COM_Scoped panel(RealPanel::New(root()));
    panel->resetMainLayout();
    EXPECT_EQ(panel->getTable(), nullptr);
    panel->setMatrix(*matrix);
    panel->updateValues();
    panel->setCheckedMatrix(true, "shown");
    panel->setComboBoxMatrix(true, {"a"});
    panel->setColumnsResizabled(true);
    panel->resetMatrix();
    EXPECT_EQ(matrix->getReferenceCount(), 1);
    EXPECT_EQ(matrix->getLinesNumber(), 2U);
}

TEST_F(GUI_MatrixPanelTest, CheckBoxesSetOnesAndZeros)
{
    const COM_Scoped matrix(LA_IntegerMatrix::New(2, 2));
    matrix->setValue(0, 1, 1UL);
    matrix->setValue(1, 0, 5UL);
    const COM_Scoped panel(IntegerPanel::New(root(), *matrix, false));
    panel->setCheckedMatrix(true, "shown");
    show(*panel);
    GUI_Table& cells = table(*panel);
    EXPECT_EQ(cells.getValue(0, 1), "shown");
    EXPECT_EQ(cells.item(0, 0)->checkState(), Qt::Unchecked);
    EXPECT_EQ(cells.item(0, 1)->checkState(), Qt::Checked);
    EXPECT_EQ(cells.item(1, 0)->checkState(), Qt::Checked);

    for (const int cell : {0, 1, 3, 2}) {
        cells.setCurrentCell(cell / 2, cell % 2);
    }
    EXPECT_EQ(matrix->getValue(0, 0), 0U);
    EXPECT_EQ(matrix->getValue(0, 1), 1U);
    EXPECT_EQ(matrix->getValue(1, 0), 5U) << "a cell that was only visited";

    // The mark stands at the left of its cell; the current cell is another one.
    const QRect cell = cells.visualRect(cells.model()->index(1, 1));
    QTest::mouseClick(cells.viewport(), Qt::LeftButton, {},
                      QPoint(cell.left() + 10, cell.center().y()));
    EXPECT_EQ(matrix->getValue(1, 1), 1U);
    EXPECT_EQ(matrix->getValue(1, 0), 5U);
    QTest::keyClick(&cells, Qt::Key_Space);
    EXPECT_EQ(matrix->getValue(1, 1), 0U);
    EXPECT_EQ(cells.item(1, 1)->checkState(), Qt::Unchecked);
}

TEST_F(GUI_MatrixPanelTest, CheckBoxesFollowTheMatrix)
{
    const COM_Scoped first(LA_IntegerMatrix::New(1, 1));
    const COM_Scoped second(LA_IntegerMatrix::New(2, 2));
    second->setValue(1, 1, 1UL);
    const COM_Scoped panel(IntegerPanel::New(root(), *first, false));
    panel->setCheckedMatrix(true, "shown");
    panel->setMatrix(*second);
    EXPECT_EQ(table(*panel).item(0, 0)->checkState(), Qt::Unchecked);
    EXPECT_EQ(table(*panel).item(1, 1)->checkState(), Qt::Checked);
}

TEST_F(GUI_MatrixPanelTest, ChoicesGiveTheirEntries)
{
    const COM_Scoped matrix(LA_IntegerMatrix::New(1, 2));
    matrix->setValue(0, 1, 2UL);
    const COM_Scoped panel(IntegerPanel::New(root(), *matrix, false));
    panel->setComboBoxMatrix(true, {"0", "1", "2"});
    show(*panel);
    auto* const choice = qobject_cast<QComboBox*>(table(*panel).cellWidget(0, 1));
    ASSERT_NE(choice, nullptr);
    EXPECT_EQ(choice->currentText(), "2");
    QTest::keyClick(choice, Qt::Key_Up);
    EXPECT_EQ(matrix->getValue(0, 1), 1U);
    EXPECT_EQ(matrix->getValue(0, 0), 0U);
}

TEST_F(GUI_MatrixPanelTest, ColumnsCanBeMadeResizable)
{
    const COM_Scoped matrix(LA_RealMatrix::New(1, 1));
    const COM_Scoped panel(RealPanel::New(root(), *matrix, true));
    const QHeaderView* const header = table(*panel).horizontalHeader();
    EXPECT_EQ(header->sectionResizeMode(0), QHeaderView::Fixed);
    panel->setColumnsResizabled(true);
    EXPECT_EQ(header->sectionResizeMode(0), QHeaderView::Interactive);
    panel->setColumnsResizabled(false);
    EXPECT_EQ(header->sectionResizeMode(0), QHeaderView::Fixed);
}

TEST_F(GUI_MatrixPanelTest, NoNumberIsCutOff)
{
    const COM_Scoped matrix(LA_ComplexMatrix::New(4, 4));
    matrix->setValue(0, 0, Complex(-1e-300, -1e300));
    matrix->setValue(1, 1, Complex(-0.25, 1.0));
    matrix->setValue(3, 3, Complex(-1e300, -1e300));
    const COM_Scoped panel(ComplexPanel::New(root(), *matrix, true));
    show(*panel);
    const GUI_Table& cells = table(*panel);
    for (int column = 0; column < 4; ++column) {
        // What Qt itself would make of the column.
        const QAbstractItemView& view = cells;
        EXPECT_GE(cells.columnWidth(column), view.sizeHintForColumn(column)) << column;
    }
}

TEST_F(GUI_MatrixPanelTest, AColumnGrowsWithANumberTypedIntoIt)
{
    const COM_Scoped matrix(LA_ComplexMatrix::New(1, 1));
    const COM_Scoped panel(ComplexPanel::New(root(), *matrix, true));
    show(*panel);
    const int before = table(*panel).columnWidth(0);
    typeIntoCell(table(*panel), 0, 0, "(-1e-200,-1e-200)");
    const QAbstractItemView& view = table(*panel);
    EXPECT_GT(table(*panel).columnWidth(0), before);
    EXPECT_GE(table(*panel).columnWidth(0), view.sizeHintForColumn(0));
}
