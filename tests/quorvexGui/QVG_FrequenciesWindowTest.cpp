#include "quorvexGui/QVG_FrequenciesWindow.h"

#include "FieldCase.h"
#include "FocusOrder.h"
#include "gui/GUI_ListPanel.h"
#include "gui/GUI_RootLayout.h"
#include "gui/GUI_Table.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvexGui/QVG_BlochItemPanel.h"
#include "quorvexGui/QVG_BlochSelectionPanel.h"
#include "quorvexGui/QVG_FrequenciesRootPanel.h"
#include "quorvexGui/QVG_PhysicalDataBlochPanel.h"
#include "support/TestWindows.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QSpinBox>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

using Root = QVG_FrequenciesRootPanel;
using Form = QVG_PhysicalDataBlochPanel;
using Texts = std::vector<std::string>;

/// The window of the frequencies of a new project, opened from the forms, and what a user does in it.
class TestFrequencies
{
public:
    /// With so many systems from the start.
    explicit TestFrequencies(int systems = 1)
    {
        for (int i = 1; i < systems; ++i) {
            const COM_Scoped bloch(QV_Bloch::New());
            mForms.problem().addToBlochEquations(*bloch);
        }
        mForms.click<Form>(Form::COMPO_PB_FREQ);
        QApplication::setActiveWindow(&window());
    }

    TestForms& forms() { return mForms; }
    QVG_FrequenciesWindow& window() const
    {
        return dynamic_cast<QVG_FrequenciesWindow&>(mForms.detail());
    }
    Root& root() const { return dynamic_cast<Root&>(*window().getPanel()); }
    QVG_BlochSelectionPanel& selection() const
    {
        return dynamic_cast<QVG_BlochSelectionPanel&>(*root().getChild(0));
    }
    const QGroupBox& group() const { return dynamic_cast<QGroupBox&>(*root().getChild(1)); }
    QV_Bloch& system(unsigned long i) const { return (*mForms.problem().getBlochEquations())[i]; }
    unsigned long systems() const { return mForms.problem().getBlochEquations()->size(); }

    GUI_ActionComponent& component(unsigned char flag) const
    {
        GUI_Component* const found = flag == Root::COMPO_SB_ELN
                                         ? root().getMainLayout()->getComponent(flag)
                                         : root().getChild(1)->getComponent(flag);
        return dynamic_cast<GUI_ActionComponent&>(*found);
    }
    void type(unsigned char flag, const char* text) const
    {
        QWidget& field = *component(flag).qtWidget();
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    static void click(GUI_ActionComponent& button)
    {
        QTest::mouseClick(button.qtWidget(), Qt::LeftButton);
    }
    /// A button below the list.
    GUI_ActionComponent& button(unsigned char flag) const
    {
        return dynamic_cast<GUI_ActionComponent&>(*selection().getChild(0)->getComponent(flag));
    }
    QListWidget& list() const
    {
        return dynamic_cast<QListWidget&>(*button(GUI_ListPanel::COMPO_LIST).qtWidget());
    }
    Texts names() const
    {
        Texts texts;
        for (int i = 0; i < list().count(); ++i) {
            texts.push_back(list().item(i)->text().toStdString());
        }
        return texts;
    }
    void select(int item) const
    {
        const QRect place = list().visualItemRect(list().item(item));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place.center());
    }
    GUI_VectorPanel<double>& vectorPanel() const
    {
        return dynamic_cast<GUI_VectorPanel<double>&>(*selection().getChild(1)->getChild(0));
    }
    Texts shownFrequencies() const
    {
        const GUI_Table& table = *vectorPanel().getTable();
        Texts texts;
        for (int i = 0; i < table.rowCount(); ++i) {
            texts.push_back(table.getValue(i, 0));
        }
        return texts;
    }

private:
    TestForms mForms;
};

constexpr unsigned char generation[] = {Root::COMPO_CB_STAT, Root::COMPO_LE_MEAN,
                                        Root::COMPO_LE_TYPE, Root::COMPO_PB_GENERATE};

} // namespace

TEST(QVG_FrequenciesWindow, OpensOnceWithTheSystemsOfTheProblem)
{
    TestFrequencies frequencies(2);
    EXPECT_EQ(frequencies.forms().details(), Texts{"Level Frequencies Window"});
    EXPECT_FALSE(frequencies.window().isModal());
    EXPECT_EQ(frequencies.names(), (Texts{"Bloch Equation Number 1", "Bloch Equation Number 2"}));
    EXPECT_EQ(frequencies.list().currentRow(), 0);
    EXPECT_EQ(frequencies.vectorPanel().getVector(), frequencies.system(0).getLevelsFrequency());
    EXPECT_EQ(frequencies.vectorPanel().getTable()->getColumnLabel(0), "Frequencies");
    EXPECT_EQ(frequencies.vectorPanel().findChild<QSpinBox*>(), nullptr);
    frequencies.forms().click<Form>(Form::COMPO_PB_FREQ);
    EXPECT_EQ(frequencies.forms().details().size(), 1UL);
}

TEST(QVG_FrequenciesWindow, TypesAreThoseOfItsClasses)
{
    const TestFrequencies frequencies;
    const auto last = [](const COM_Object& object) { return object.getTypes().back(); };
    EXPECT_EQ(last(frequencies.window()), "QVG_FrequenciesWindow");
    EXPECT_EQ(last(frequencies.root()), "QVG_FrequenciesRootPanel");
    EXPECT_EQ(last(frequencies.selection()), "QVG_BlochSelectionPanel");
    EXPECT_EQ(last(*frequencies.selection().getChild(1)), "QVG_BlochItemPanel");
}

TEST(QVG_FrequenciesWindow, ShowsTheLevelsAndTheLaw)
{
    TestFrequencies frequencies;
    frequencies.forms().problem().setFrequenciesDistributionMean(2e10);
    frequencies.forms().problem().setFrequenciesDistributionDelta(0.5);
    frequencies.window().updateValues();
    Texts labels;
    for (const QLabel* const label : frequencies.root().findChildren<QLabel*>()) {
        labels.push_back(label->text().toStdString());
    }
    EXPECT_EQ(labels, (Texts{"Energy Levels Number", "Statistical Law", "Mean", "Delta Type"}));
    EXPECT_EQ(frequencies.group().title(), "Frequencies Generation");
    EXPECT_EQ(frequencies.component(Root::COMPO_SB_ELN).getValue(),
              std::to_string(QV_Bloch::getLevelsNumber()));
    EXPECT_EQ(itemsOf(*frequencies.component(Root::COMPO_CB_STAT).qtWidget()), Texts{"GAUSS"});
    EXPECT_EQ(frequencies.component(Root::COMPO_CB_STAT).getValue(), "0");
    EXPECT_EQ(frequencies.component(Root::COMPO_LE_MEAN).getValue(), "2.000000e+10");
    EXPECT_EQ(frequencies.component(Root::COMPO_LE_TYPE).getValue(), "5.000000e-01");
    EXPECT_EQ(frequencies.component(Root::COMPO_PB_GENERATE).getValue(), "Generate");
    const auto& box =
        dynamic_cast<const QSpinBox&>(*frequencies.component(Root::COMPO_SB_ELN).qtWidget());
    EXPECT_EQ(box.minimum(), 1);
    EXPECT_EQ(box.maximum(), 100);
}

TEST(QVG_FrequenciesWindow, ComponentsAreNumberedInTheirOrder)
{
    unsigned char number = 0;
    for (const unsigned char flag : {Root::COMPO_SB_ELN, Root::COMPO_CB_STAT, Root::COMPO_LE_MEAN,
                                     Root::COMPO_LE_TYPE, Root::COMPO_PB_GENERATE}) {
        EXPECT_EQ(flag, number++);
    }
}

TEST(QVG_FrequenciesWindow, PartsStandBelowEachOther)
{
    const TestFrequencies frequencies(2);
    settle();
    const auto top = [&](const QWidget& widget) {
        return widget.mapTo(&frequencies.root(), QPoint()).y();
    };
    const QWidget& levels = *frequencies.component(Root::COMPO_SB_ELN).qtWidget();
    EXPECT_LE(top(levels) + levels.height(), top(frequencies.selection()));
    EXPECT_LE(top(frequencies.selection()) + frequencies.selection().height(),
              top(frequencies.group()));
}

TEST(QVG_FrequenciesWindow, WithASingleSystemNoLawCanBeUsed)
{
    const TestFrequencies single;
    for (const unsigned char flag : generation) {
        EXPECT_FALSE(single.component(flag).qtWidget()->isEnabled()) << int{flag};
    }
    EXPECT_TRUE(single.component(Root::COMPO_SB_ELN).qtWidget()->isEnabled());
    EXPECT_FALSE(single.button(GUI_ListPanel::COMPO_DELETE).qtWidget()->isEnabled());
}

TEST(QVG_FrequenciesWindow, WithTwoSystemsTheLawCanBeUsed)
{
    const TestFrequencies two(2);
    for (const unsigned char flag : generation) {
        EXPECT_TRUE(two.component(flag).qtWidget()->isEnabled()) << int{flag};
    }
    EXPECT_TRUE(two.button(GUI_ListPanel::COMPO_DELETE).qtWidget()->isEnabled());
}

TEST(QVG_FrequenciesWindow, NegativeParametersOfTheLawBecomeZero)
{
    TestFrequencies frequencies(2);
    const QV_Problem& problem = frequencies.forms().problem();
    frequencies.type(Root::COMPO_LE_MEAN, "3e9");
    frequencies.type(Root::COMPO_LE_TYPE, "4e8");
    EXPECT_EQ(problem.getFrequenciesDistributionMean(), 3e9);
    EXPECT_EQ(problem.getFrequenciesDistributionDelta(), 4e8);
    frequencies.type(Root::COMPO_LE_MEAN, "-1");
    frequencies.type(Root::COMPO_LE_TYPE, "-2");
    EXPECT_EQ(problem.getFrequenciesDistributionMean(), 0.0);
    EXPECT_EQ(problem.getFrequenciesDistributionDelta(), 0.0);
    EXPECT_EQ(frequencies.component(Root::COMPO_LE_MEAN).getValue(), "0.000000e+00");
    EXPECT_EQ(frequencies.component(Root::COMPO_LE_TYPE).getValue(), "0.000000e+00");
}

TEST(QVG_FrequenciesWindow, TheLawIsTheItemsNumber)
{
    TestFrequencies frequencies(2);
    QV_Problem& problem = frequencies.forms().problem();
    problem.setFrequenciesDistributionMethod(7); // of no item
    frequencies.root().componentClicked(frequencies.component(Root::COMPO_CB_STAT));
    EXPECT_EQ(problem.getFrequenciesDistributionMethod(), 0);
}

TEST(QVG_FrequenciesWindow, FieldsThatAreOnlyVisitedKeepAllDigits)
{
    TestFrequencies frequencies(2);
    constexpr double exact = 1.23456789012345e9;
    frequencies.forms().problem().setFrequenciesDistributionMean(exact);
    frequencies.window().updateValues();
    frequencies.component(Root::COMPO_LE_MEAN).qtWidget()->setFocus();
    frequencies.component(Root::COMPO_LE_TYPE).qtWidget()->setFocus();
    EXPECT_EQ(frequencies.forms().problem().getFrequenciesDistributionMean(), exact);
}

TEST(QVG_FrequenciesWindow, TheLevelsNumberResizesEverySystemAndAllMatricesAtOnce)
{
    TestFrequencies frequencies(2);
    frequencies.type(Root::COMPO_SB_ELN, "4");
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 4UL);
    for (const unsigned long i : {0UL, 1UL}) {
        EXPECT_EQ(frequencies.system(i).getLevelsFrequency()->getDimension(), 4UL);
        EXPECT_EQ(frequencies.system(i).getDensity(0)->getLinesNumber(), 4UL);
    }
    EXPECT_EQ(QV_Bloch::getInitialDensity()->getLinesNumber(), 4UL);
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getLinesNumber(), 4UL);
    EXPECT_EQ((*QV_Bloch::getPolarizations())[0].getLinesNumber(), 4UL);
    EXPECT_EQ(frequencies.shownFrequencies().size(), 4UL);
    frequencies.type(Root::COMPO_SB_ELN, "3");
    EXPECT_EQ(frequencies.shownFrequencies().size(), 3UL);
}

TEST(QVG_FrequenciesWindow, ANewLevelsNumberShowsInTheOtherWindowsOfTheForms)
{
    TestFrequencies frequencies;
    frequencies.forms().click<Form>(Form::COMPO_PB_DENSITY);
    frequencies.forms().click<Form>(Form::COMPO_PB_POLARIZATION);
    const auto windows = childrenOf<GUI_ChildWindow>(frequencies.forms().window());
    ASSERT_EQ(windows.size(), 3UL);
    frequencies.type(Root::COMPO_SB_ELN, "5");
    for (const unsigned long i : {1UL, 2UL}) {
        EXPECT_EQ(windows[i]->findChild<GUI_Table*>()->rowCount(), 5);
        EXPECT_EQ(windows[i]->findChild<GUI_Table*>()->columnCount(), 5);
    }
}

TEST(QVG_FrequenciesWindow, FrequenciesAreEditedInTheSystemThatIsSelected)
{
    const TestFrequencies frequencies(2);
    frequencies.select(1);
    EXPECT_EQ(frequencies.vectorPanel().getVector(), frequencies.system(1).getLevelsFrequency());
    const double former = frequencies.system(0).getLevelsFrequency()->getValue(1);
    frequencies.vectorPanel().getTable()->item(1, 0)->setText("7e15");
    EXPECT_EQ(frequencies.system(1).getLevelsFrequency()->getValue(1), 7e15);
    EXPECT_EQ(frequencies.system(0).getLevelsFrequency()->getValue(1), former);
}

TEST(QVG_FrequenciesWindow, AddingMakesASystemOfTheProblem)
{
    const TestFrequencies frequencies;
    frequencies.click(frequencies.button(GUI_ListPanel::COMPO_ADD));
    ASSERT_EQ(frequencies.systems(), 2UL);
    EXPECT_EQ(frequencies.names(), (Texts{"Bloch Equation Number 1", "Bloch Equation Number 2"}));
    EXPECT_EQ(frequencies.list().currentRow(), 1);
    EXPECT_EQ(frequencies.vectorPanel().getVector(), frequencies.system(1).getLevelsFrequency());
    EXPECT_EQ(frequencies.system(1).getReferenceCount(), 3); // problem, list, editor
    for (const unsigned char flag : generation) {
        EXPECT_TRUE(frequencies.component(flag).qtWidget()->isEnabled()) << int{flag};
    }
    EXPECT_TRUE(frequencies.button(GUI_ListPanel::COMPO_DELETE).qtWidget()->isEnabled());
}

TEST(QVG_FrequenciesWindow, ANewSystemHasThePresentLevels)
{
    const TestFrequencies frequencies;
    frequencies.type(Root::COMPO_SB_ELN, "6");
    frequencies.click(frequencies.button(GUI_ListPanel::COMPO_ADD));
    EXPECT_EQ(frequencies.system(1).getLevelsFrequency()->getDimension(), 6UL);
}

TEST(QVG_FrequenciesWindow, DeletingTakesTheSystemOutOfTheProblem)
{
    const TestFrequencies frequencies(3);
    const QV_Bloch* const first = &frequencies.system(0);
    const QV_Bloch* const last = &frequencies.system(2);
    frequencies.select(1);
    frequencies.click(frequencies.button(GUI_ListPanel::COMPO_DELETE));
    ASSERT_EQ(frequencies.systems(), 2UL);
    EXPECT_EQ(&frequencies.system(0), first);
    EXPECT_EQ(&frequencies.system(1), last);
    EXPECT_EQ(frequencies.names(), (Texts{"Bloch Equation Number 1", "Bloch Equation Number 3"}));
    EXPECT_EQ(frequencies.vectorPanel().getVector(), first->getLevelsFrequency());
}

TEST(QVG_FrequenciesWindow, TheLastSystemStays)
{
    const TestFrequencies frequencies(2);
    frequencies.select(1);
    frequencies.click(frequencies.button(GUI_ListPanel::COMPO_DELETE));
    ASSERT_EQ(frequencies.systems(), 1UL);
    EXPECT_FALSE(frequencies.button(GUI_ListPanel::COMPO_DELETE).qtWidget()->isEnabled());
    EXPECT_FALSE(frequencies.component(Root::COMPO_PB_GENERATE).qtWidget()->isEnabled());
    EXPECT_FALSE(frequencies.selection().removeItem(0));
    EXPECT_EQ(frequencies.systems(), 1UL);
}

TEST(QVG_FrequenciesWindow, ANewSystemTakesTheSmallestFreeNumber)
{
    const TestFrequencies frequencies(3);
    frequencies.select(1);
    frequencies.click(frequencies.button(GUI_ListPanel::COMPO_DELETE));
    frequencies.click(frequencies.button(GUI_ListPanel::COMPO_ADD));
    EXPECT_EQ(frequencies.names(), (Texts{"Bloch Equation Number 1", "Bloch Equation Number 2",
                                          "Bloch Equation Number 3"}));
    frequencies.click(frequencies.button(GUI_ListPanel::COMPO_ADD));
    EXPECT_EQ(frequencies.names()[2], "Bloch Equation Number 4");
    EXPECT_EQ(frequencies.systems(), 4UL);
}

TEST(QVG_FrequenciesWindow, GeneratingDrawsAroundTheFirstSystemAndShowsIt)
{
    const TestFrequencies frequencies(3);
    const LA_RealVector* const first = frequencies.system(0).getLevelsFrequency();
    const double centre = first->getValue(1);
    frequencies.type(Root::COMPO_LE_MEAN, "1e12");
    frequencies.type(Root::COMPO_LE_TYPE, "0"); // no spread: the shift alone
    frequencies.select(2);
    frequencies.click(frequencies.component(Root::COMPO_PB_GENERATE));
    EXPECT_EQ(frequencies.system(0).getLevelsFrequency(), first);
    EXPECT_EQ(first->getValue(1), centre);
    for (const unsigned long i : {1UL, 2UL}) {
        EXPECT_DOUBLE_EQ(frequencies.system(i).getLevelsFrequency()->getValue(0), 1e12);
        EXPECT_DOUBLE_EQ(frequencies.system(i).getLevelsFrequency()->getValue(1), centre + 1e12);
    }
    EXPECT_EQ(frequencies.vectorPanel().getVector(), frequencies.system(2).getLevelsFrequency());
    EXPECT_EQ(frequencies.shownFrequencies()[0], "1.000000e+12");
}

TEST(QVG_FrequenciesWindow, GeneratingWithASpreadGivesEverySystemFrequenciesOfItsOwn)
{
    const TestFrequencies frequencies(3);
    frequencies.type(Root::COMPO_LE_TYPE, "1e10");
    frequencies.click(frequencies.component(Root::COMPO_PB_GENERATE));
    const double a = frequencies.system(1).getLevelsFrequency()->getValue(1);
    const double b = frequencies.system(2).getLevelsFrequency()->getValue(1);
    EXPECT_NE(a, b);
    const double centre = frequencies.system(0).getLevelsFrequency()->getValue(1);
    // Ten standard deviations.
    EXPECT_LT(std::abs(a - centre), 1e11);
    EXPECT_LT(std::abs(b - centre), 1e11);
}

TEST(QVG_FrequenciesWindow, AnUnknownComponentIsPrinted)
{
    const TestFrequencies frequencies;
    GUI_ActionComponent& box = frequencies.component(Root::COMPO_SB_ELN);
    box.setFlagId(9);
    EXPECT_EQ(printedBy([&] { frequencies.root().componentClicked(box); }), "action unknown !9\n");
}

TEST(QVG_FrequenciesWindow, ClosesWithTheFormsAndReleasesTheSystems)
{
    TestFrequencies frequencies(2);
    const COM_Scoped problem(&frequencies.forms().problem());
    problem->addReference(nullptr);
    frequencies.forms().window().close(false);
    settle();
    EXPECT_EQ((*problem->getBlochEquations())[0].getReferenceCount(), 1);
    EXPECT_EQ((*problem->getBlochEquations())[1].getReferenceCount(), 1);
}

TEST(QVG_FrequenciesWindow, TabGoesDownTheForm)
{
    const TestFrequencies frequencies(2);
    QWidget& first = *frequencies.component(Root::COMPO_SB_ELN).qtWidget();
    const std::vector<const QWidget*> form{
        &first,
        &frequencies.list(),
        frequencies.button(GUI_ListPanel::COMPO_ADD).qtWidget(),
        frequencies.button(GUI_ListPanel::COMPO_DELETE).qtWidget(),
        frequencies.vectorPanel().getTable(),
        frequencies.component(Root::COMPO_CB_STAT).qtWidget(),
        frequencies.component(Root::COMPO_LE_MEAN).qtWidget(),
        frequencies.component(Root::COMPO_LE_TYPE).qtWidget(),
        frequencies.component(Root::COMPO_PB_GENERATE).qtWidget()};
    EXPECT_EQ(focusOrder(first, form), form);
}

TEST(QVG_FrequenciesWindow, ShowsAllOfASmallVectorAndOfItsNames)
{
    const TestFrequencies frequencies(2);
    settle();
    EXPECT_GE(frequencies.list().viewport()->width(), frequencies.list().sizeHintForColumn(0));
    const GUI_Table& table = *frequencies.vectorPanel().getTable();
    EXPECT_GE(table.viewport()->width(), table.columnWidth(0));
    EXPECT_LE(frequencies.window().width(), 800);
    EXPECT_LE(frequencies.window().height(), 600);
}
