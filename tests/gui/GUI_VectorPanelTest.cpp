#include "gui/GUI_VectorPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_SpinBox.h"
#include "linearAlgebra/LA_ComplexVector.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/CompositeTest.h"
#include "support/Printed.h"

#include <QHeaderView>

#include <complex>
#include <vector>

namespace {

using Complex = std::complex<double>;
using RealPanel = GUI_VectorPanel<double>;
using ComplexPanel = GUI_VectorPanel<Complex>;

std::vector<double> valuesOf(const LA_Vector<double>& vector)
{
    return {vector.getValues(), vector.getValues() + vector.getDimension()};
}

const std::vector<double> THIRDS = {1.0 / 3.0, 2.0 / 3.0, 4.0 / 3.0};

} // namespace

class GUI_VectorPanelTest : public CompositeTest
{
protected:
    static GUI_Table& table(const GUI_ParentPanel& panel)
    {
        return component<GUI_Table>(panel, RealPanel::COMPO_TABLE);
    }
    static GUI_SpinBox& box(const GUI_ParentPanel& panel)
    {
        return component<GUI_SpinBox>(panel, RealPanel::COMPO_SB_DIM);
    }
};

TEST_F(GUI_VectorPanelTest, HasItsTypeNamesInOrder)
{
    const COM_Scoped panel(RealPanel::New(root()));
    const std::vector<std::string> types = panel->getTypes();
    ASSERT_GE(types.size(), 2U);
    EXPECT_EQ(types[types.size() - 2], "GUI_FramePanel");
    EXPECT_EQ(types.back(), "GUI_VectorPanel");
}

TEST_F(GUI_VectorPanelTest, HoldsItsVectorUntilItGetsAnotherOrGoes)
{
    const COM_Scoped first(LA_RealVector::New(2));
    const COM_Scoped second(LA_RealVector::New(2));
    auto* const panel = RealPanel::New(root(), *first, true);
    EXPECT_EQ(panel->getVector(), first.get());
    EXPECT_EQ(first->getReferenceCount(), 2);
    panel->setVector(*first);
    EXPECT_EQ(first->getReferenceCount(), 2);
    panel->setVector(*second);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
    panel->setVector(nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(table(*panel).rowCount(), 0);
    panel->setVector(*second);
    root().removeFromChildren(*panel);
    panel->Delete();
    EXPECT_EQ(second->getReferenceCount(), 1);
}

TEST_F(GUI_VectorPanelTest, ShowingAVectorDoesNotChangeIt)
{
    const COM_Scoped vector(LA_RealVector::New(3));
    vector->setValues(THIRDS);
    const COM_Scoped panel(RealPanel::New(root(), *vector, true));
    show(*panel);
    EXPECT_EQ(valuesOf(*vector), THIRDS);
    EXPECT_EQ(box(*panel).getValue(), "3");
    EXPECT_EQ(table(*panel).rowCount(), 3);
    EXPECT_EQ(table(*panel).columnCount(), 1);
    EXPECT_EQ(table(*panel).getColumnLabel(0), "Values");
    EXPECT_EQ(table(*panel).getValue(0, 0), "3.333333e-01");
    EXPECT_EQ(table(*panel).getValue(2, 0), "1.333333e+00");
}

TEST_F(GUI_VectorPanelTest, TheSameVectorIsNotShownAnew)
{
    const COM_Scoped vector(LA_RealVector::New(1));
    const COM_Scoped panel(RealPanel::New(root(), *vector, true));
    vector->setValue(0, 1.0);
    panel->setVector(*vector);
    EXPECT_EQ(table(*panel).getValue(0, 0), "0.000000e+00");
    panel->updateValues();
    EXPECT_EQ(table(*panel).getValue(0, 0), "1.000000e+00");
}

TEST_F(GUI_VectorPanelTest, TypedNumbersReachTheVectorWhole)
{
    const COM_Scoped vector(LA_RealVector::New(3));
    vector->setValues(THIRDS);
    const COM_Scoped panel(RealPanel::New(root(), *vector, true));
    show(*panel);
    typeIntoCell(table(*panel), 1, 0, "0.123456789012");
    EXPECT_EQ(valuesOf(*vector), (std::vector<double>{1.0 / 3.0, 0.123456789012, 4.0 / 3.0}));
    EXPECT_EQ(table(*panel).getValue(1, 0), "1.234568e-01");
}

TEST_F(GUI_VectorPanelTest, ComplexNumbersAreTypedInParentheses)
{
    const COM_Scoped vector(LA_ComplexVector::New(2));
    const COM_Scoped panel(ComplexPanel::New(root(), *vector, true));
    show(*panel);
    typeIntoCell(table(*panel), 1, 0, "(1,-2)");
    EXPECT_EQ(vector->getValue(1), Complex(1.0, -2.0));
    EXPECT_EQ(table(*panel).getValue(1, 0), "(1.000000e+00,-2.000000e+00)");
}

TEST_F(GUI_VectorPanelTest, WalkingThroughACellKeepsEveryDigit)
{
    const COM_Scoped vector(LA_RealVector::New(3));
    vector->setValues(THIRDS);
    const COM_Scoped panel(RealPanel::New(root(), *vector, true));
    show(*panel);
    for (const int row : {2, 0, 1}) {
        clickCell(table(*panel), row, 0);
    }
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Tab, Qt::Key_End}) {
        QTest::keyClick(&table(*panel), key);
    }
    typeIntoCell(table(*panel), 0, 0, "3.333333e-01");
    EXPECT_EQ(valuesOf(*vector), THIRDS);
}

TEST_F(GUI_VectorPanelTest, TheBoxChangesTheDimension)
{
    const COM_Scoped vector(LA_RealVector::New(3));
    vector->setValues(THIRDS);
    const COM_Scoped panel(RealPanel::New(root(), *vector, true));
    show(*panel);
    typeNumber(box(*panel), "12");
    EXPECT_EQ(vector->getDimension(), 12U);
    EXPECT_EQ(vector->getValue(2), 4.0 / 3.0);
    EXPECT_EQ(vector->getValue(3), 0.0);
    EXPECT_EQ(table(*panel).rowCount(), 12);
    typeNumber(box(*panel), "2");
    EXPECT_EQ(valuesOf(*vector), (std::vector<double>{1.0 / 3.0, 2.0 / 3.0}));
    EXPECT_EQ(table(*panel).rowCount(), 2);
}

TEST_F(GUI_VectorPanelTest, AnEmptyVectorStaysEmptyUntilTheBoxIsChanged)
{
    const COM_Scoped vector(LA_RealVector::New(0));
    const COM_Scoped panel(RealPanel::New(root(), *vector, true));
    show(*panel);
    EXPECT_EQ(vector->getDimension(), 0U);
    EXPECT_EQ(box(*panel).getValue(), "1");
    EXPECT_EQ(table(*panel).rowCount(), 0);
    QTest::keyClick(&box(*panel), Qt::Key_Up);
    EXPECT_EQ(vector->getDimension(), 2U);
}

TEST_F(GUI_VectorPanelTest, TheLargestDimensionIsThatOfTheBox)
{
    const COM_Scoped vector(LA_RealVector::New(1));
    const COM_Scoped panel(RealPanel::New(root(), *vector, true));
    show(*panel);
    EXPECT_EQ(box(*panel).minimum(), 1);
    EXPECT_EQ(box(*panel).maximum(), 100000);
    typeNumber(box(*panel), "100000");
    EXPECT_EQ(vector->getDimension(), 100000U);
    EXPECT_EQ(table(*panel).rowCount(), 100000);
}

TEST_F(GUI_VectorPanelTest, LabelsAreTranslatedAndCanBeReplaced)
{
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped panel(RealPanel::New(root()));
    const auto* const label = panel->findChild<GUI_Label*>();
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), "Dimension");
    EXPECT_EQ(table(*panel).getColumnLabel(0), "Valeurs");
    panel->setDimensionLabel("Captors Number");
    panel->setValuesLabel("A title that is wider than any number would be (%)");
    EXPECT_EQ(label->text(), "Captors Number");
    EXPECT_EQ(table(*panel).getColumnLabel(0),
              "A title that is wider than any number would be (%)");
    EXPECT_GE(table(*panel).columnWidth(0),
              table(*panel).fontMetrics().horizontalAdvance(
                  "A title that is wider than any number would be (%)"));
    const COM_Scoped vector(LA_RealVector::New(2));
    panel->setVector(*vector);
    EXPECT_EQ(table(*panel).getColumnLabel(0),
              "A title that is wider than any number would be (%)");
}

TEST_F(GUI_VectorPanelTest, TheBoxStandsBesideItsLabelAboveTheTable)
{
    const COM_Scoped panel(RealPanel::New(root()));
    const auto* const grid = dynamic_cast<QGridLayout*>(panel->layout());
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->rowCount(), 2);
    EXPECT_EQ(grid->columnCount(), 2);
    EXPECT_EQ(grid->contentsMargins(), QMargins(11, 11, 11, 11));
    EXPECT_EQ(panel->layout()->spacing(), 6);
    show(*panel);
    EXPECT_LT(panel->findChild<GUI_Label*>()->geometry().right(), box(*panel).x());
    EXPECT_LT(box(*panel).geometry().bottom(), table(*panel).y());
}

TEST_F(GUI_VectorPanelTest, ANewVectorAndAnUpdateGiveANewPicture)
{
    const COM_Scoped first(LA_RealVector::New(2));
    const COM_Scoped second(LA_RealVector::New(2));
    const COM_Scoped panel(RealPanel::New(root(), *first, true));
    show(*panel);
    EXPECT_FALSE(isPaintedAfter(*panel, [&] { panel->setVector(*first); }));
    EXPECT_TRUE(isPaintedAfter(*panel, [&] { panel->updateValues(); }));
    EXPECT_TRUE(isPaintedAfter(*panel, [&] { panel->setVector(*second); }));
}

TEST_F(GUI_VectorPanelTest, WithoutBoxThereIsTheTableAlone)
{
    const COM_Scoped vector(LA_RealVector::New(2));
    const COM_Scoped panel(RealPanel::New(root(), *vector, false));
    EXPECT_EQ(panel->getComponent(RealPanel::COMPO_SB_DIM), nullptr);
    EXPECT_EQ(panel->findChild<GUI_Label*>(), nullptr);
    panel->setDimensionLabel("Captors Number");
    panel->updateValues();
    EXPECT_EQ(table(*panel).rowCount(), 2);
    EXPECT_EQ(vector->getDimension(), 2U);
}

TEST_F(GUI_VectorPanelTest, AnUnknownFlagIsNamedAndTheVectorShownAnew)
{
    const COM_Scoped vector(LA_RealVector::New(1));
    const COM_Scoped panel(RealPanel::New(root(), *vector, true));
    const COM_Scoped stranger(GUI_SpinBox::New(*panel, 200));
    vector->setValue(0, 1.0);
    EXPECT_EQ(printedBy([&] { panel->componentClicked(*stranger); }), "action unknown !200\n");
    EXPECT_EQ(table(*panel).getValue(0, 0), "1.000000e+00");
}

TEST_F(GUI_VectorPanelTest, WithoutVectorOrCurrentCellNothingIsWritten)
{
    const COM_Scoped vector(LA_RealVector::New(3));
    vector->setValues(THIRDS);
    const COM_Scoped panel(RealPanel::New(root(), *vector, true));
    ASSERT_EQ(table(*panel).getRow(), -1);
    panel->componentClicked(table(*panel));
    EXPECT_EQ(valuesOf(*vector), THIRDS);
    panel->resetVector();
    show(*panel);
    QTest::keyClick(&box(*panel), Qt::Key_Up);
    panel->componentClicked(table(*panel));
    EXPECT_EQ(valuesOf(*vector), THIRDS);
}

TEST_F(GUI_VectorPanelTest, APanelWithoutLayoutDoesNothing)
{
    const COM_Scoped vector(LA_RealVector::New(2));
    const COM_Scoped panel(RealPanel::New(root()));
    panel->resetMainLayout();
    EXPECT_EQ(panel->getTable(), nullptr);
    panel->setVector(*vector);
    panel->updateValues();
    panel->setValuesLabel("a");
    panel->setColumnsResizabled(true);
    panel->resetVector();
    EXPECT_EQ(vector->getReferenceCount(), 1);
}

TEST_F(GUI_VectorPanelTest, TheColumnCanBeMadeResizable)
{
    const COM_Scoped panel(RealPanel::New(root()));
    const QHeaderView* const header = table(*panel).horizontalHeader();
    EXPECT_EQ(header->sectionResizeMode(0), QHeaderView::Fixed);
    panel->setColumnsResizabled(true);
    EXPECT_EQ(header->sectionResizeMode(0), QHeaderView::Interactive);
}
