#include "quorvexGui/QVG_VisualizationWindow.h"

#include "common/COM_Color.h"
#include "FocusOrder.h"
#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_ListPanel.h"
#include "gui/GUI_RootLayout.h"
#include "gui/GUI_RootPanel.h"
#include "gui/GUI_SpinBox.h"
#include "gui/GUI_Table.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_PlotterWindow.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvexGui/QVG_Captor.h"
#include "quorvexGui/QVG_CaptorItemPanel.h"
#include "quorvexGui/QVG_CaptorsSelectionPanel.h"
#include "quorvexGui/QVG_VisualizationRootPanel.h"
#include "support/DialogAnswers.h"
#include "support/TestWindows.h"
#include "TestMainWindow.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

using Root = QVG_VisualizationRootPanel;
using Item = QVG_CaptorItemPanel;
using Texts = std::vector<std::string>;
using Numbers = std::vector<double>;

/// What a captor of a run is told to be.
std::string captor(int location, int rhoSize = 2, int systems = 1, int dimension = 1)
{
    return "captors Location: " + std::to_string(location) + " RelPosition: 0.250000 Position: ("
           + std::to_string(location) + ".500000e+00) RhoSize: " + std::to_string(rhoSize)
           + " BlochEquationsNumber: " + std::to_string(systems)
           + " EDim: " + std::to_string(dimension) + "\n";
}

Numbers valuesOf(const LA_RealVector* vector)
{
    Numbers values;
    for (unsigned long i = 0; vector != nullptr && i < vector->getDimension(); ++i) {
        values.push_back(vector->getValue(i));
    }
    return values;
}

/// The window of the results of a project whose files the test writes, and what a user does in it.
class TestResults
{
public:
    explicit TestResults(const std::string& captors = captor(7))
    {
        mMain.createProject();
        mMain.write("captors.res", captors);
        mMain.write("tps.res", "0 1e14 0 \n1 1e14 1e-14 \n2 1e14 2e-14 \n");
        mMain->getMenu()->updateStateMenus();
    }
    TestMainWindow& main() { return mMain; }
    void write(const std::string& name, const std::string& text) const { mMain.write(name, text); }

    GUI_Action& action() const { return mMain.action(QVG_MainMenu::VISUALIZE, 0); }
    void open() const
    {
        action().trigger();
        QApplication::setActiveWindow(&window());
        QCoreApplication::processEvents();
    }
    template <typename Window>
    std::vector<Window*> windows() const
    {
        return childrenOf<Window>(*mMain);
    }
    QVG_VisualizationWindow& window() const { return *windows<QVG_VisualizationWindow>().at(0); }
    Root& root() const { return dynamic_cast<Root&>(*window().getPanel()); }
    QVG_CaptorsSelectionPanel& selection() const
    {
        return dynamic_cast<QVG_CaptorsSelectionPanel&>(*root().getChild(0));
    }
    QVG_Captor& captorAt(int k) const
    {
        return dynamic_cast<QVG_Captor&>(*selection().getObject(k));
    }
    Item& item() const { return dynamic_cast<Item&>(*selection().getChild(1)); }
    GUI_ActionComponent& field(unsigned char flag) const
    {
        return dynamic_cast<GUI_ActionComponent&>(*item().getMainLayout()->getComponent(flag));
    }
    GUI_MatrixPanel<unsigned long>& marks() const
    {
        return dynamic_cast<GUI_MatrixPanel<unsigned long>&>(*item().getChild(0));
    }
    QListWidget& list() const { return *selection().findChild<QListWidget*>(); }
    Texts names() const
    {
        Texts texts;
        for (int i = 0; i < list().count(); ++i) {
            texts.push_back(list().item(i)->text().toStdString());
        }
        return texts;
    }
    void select(int k) const
    {
        const QRect place = list().visualItemRect(list().item(k));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place.center());
    }
    static void click(GUI_ActionComponent& component)
    {
        QWidget& button = *component.qtWidget();
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }
    void click(unsigned char flag) const { click(field(flag)); }
    /// Ticks the box of an element of the density matrix shown.
    void mark(int i, int j) const
    {
        GUI_Table& table = *marks().getTable();
        const QRect cell = table.visualRect(table.model()->index(i, j));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                          QPoint(cell.left() + 10, cell.center().y()));
    }
    void typeSystem(const char* number) const
    {
        QWidget& box = *field(Item::COMPO_BLOCH_NUMBER).qtWidget();
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&box, number);
        QTest::keyClick(&box, Qt::Key_Return);
    }
    void normalize() const { click(component(Root::COMPO_E_NORMALIZATION)); }
    void visualize() const { click(component(Root::COMPO_VISUALIZE_BUTTON)); }
    GUI_ActionComponent& component(unsigned char flag) const
    {
        return dynamic_cast<GUI_ActionComponent&>(*root().getMainLayout()->getComponent(flag));
    }
    GUI2D_Plotter& plotter() const { return *windows<GUI2D_PlotterWindow>().at(0)->getPlotter(); }
    const GUI2D_Curve& curve(unsigned long i) const { return plotter().getCurves()[i]; }
    Texts curves() const
    {
        Texts texts;
        for (unsigned long i = 0; i < plotter().getCurves().size(); ++i) {
            texts.push_back(curve(i).getName());
        }
        return texts;
    }
    Texts colors() const
    {
        Texts texts;
        for (unsigned long i = 0; i < plotter().getCurves().size(); ++i) {
            texts.push_back(curve(i).getColor()->toString());
        }
        return texts;
    }

private:
    TestMainWindow mMain;
};

} // namespace

// ---------------------------------------------------------------- the window and its captors

TEST(QVG_VisualizationWindow, OpensFromTheMenuOnceAndIsRaised)
{
    const TestResults results;
    results.open();
    ASSERT_EQ(results.windows<QVG_VisualizationWindow>().size(), 1UL);
    EXPECT_EQ(results.window().getName(), "Visualization Window");
    EXPECT_EQ(results.window().getTypes().back(), "QVG_VisualizationWindow");
    EXPECT_EQ(results.root().getTypes().back(), "QVG_VisualizationRootPanel");
    EXPECT_EQ(results.selection().getTypes().back(), "QVG_CaptorsSelectionPanel");
    EXPECT_EQ(results.item().getTypes().back(), "QVG_CaptorItemPanel");
    results.window().showMinimized();
    results.action().trigger();
    EXPECT_EQ(results.windows<QVG_VisualizationWindow>().size(), 1UL);
    EXPECT_FALSE(results.window().isMinimized());
    results.window().close(false);
    results.action().trigger();
    EXPECT_EQ(results.windows<QVG_VisualizationWindow>().size(), 1UL);
}

TEST(QVG_VisualizationWindow, TheActionBringsTheMenusUpToDate)
{
    TestResults results;
    std::filesystem::remove(results.main().file("captors.res"));
    std::filesystem::remove(results.main().file("tps.res"));
    EXPECT_TRUE(results.action().isEnabled());
    results.action().trigger();
    EXPECT_FALSE(results.action().isEnabled());
}

TEST(QVG_VisualizationWindow, TellsOfNewerResultsWhenRaised)
{
    TestResults results;
    results.open();
    results.action().trigger();
    EXPECT_EQ(results.window().statusBar()->currentMessage(), "");
    const std::string file = results.main().file("captors.res");
    std::filesystem::last_write_time(file, std::filesystem::last_write_time(file)
                                               + std::chrono::seconds(1));
    results.action().trigger();
    EXPECT_EQ(results.window().statusBar()->currentMessage(), "New results are there");
    EXPECT_EQ(results.names(), Texts{"Captor 1"});
}

TEST(QVG_VisualizationWindow, CaptorsStandByLocationWithPaddedNumbers)
{
    std::string text;
    for (int k = 10; k > 0; --k) {
        text += captor(10 * k);
    }
    const TestResults results(text);
    results.open();
    EXPECT_EQ(results.names(),
              (Texts{"Captor 01", "Captor 02", "Captor 03", "Captor 04", "Captor 05", "Captor 06",
                     "Captor 07", "Captor 08", "Captor 09", "Captor 10"}));
    EXPECT_EQ(results.list().currentRow(), 0);
    for (int k = 0; k < 10; ++k) {
        EXPECT_EQ(results.captorAt(k).getLocation(), 10UL * (k + 1));
    }
}

TEST(QVG_VisualizationWindow, CaptorsTakeOverWhatTheFileTells)
{
    const TestResults results("captors Location: 12 RelPosition: 0.300000 Position: "
                              "(1.5,-2,3e1) RhoSize: 3 BlochEquationsNumber: 4 EDim: 2\n");
    results.open();
    const QVG_Captor& read = results.captorAt(0);
    EXPECT_EQ(read.getLocation(), 12UL);
    EXPECT_EQ(read.getRelativePosition(), 0.3);
    EXPECT_EQ(valuesOf(&read.getPosition()), (Numbers{1.5, -2.0, 30.0}));
    EXPECT_EQ(read.getRhoSize(), 3UL);
    EXPECT_EQ(read.getBlochEquationsNumber(), 4UL);
    EXPECT_EQ(read.getEDimension(), 2UL);
    EXPECT_TRUE(read.isEx());
    EXPECT_FALSE(read.isEy());
}

TEST(QVG_VisualizationWindow, DamagedCaptorsOpenAllTheSame)
{
    const TestResults results("Location: 3 captors Position: ( RhoSize: -4 EDim: 9 captors "
                              "BlochEquationsNumber: 100000 RhoSize: 100 captors");
    results.open();
    ASSERT_EQ(results.names(), (Texts{"Captor 1", "Captor 2", "Captor 3"}));
    EXPECT_EQ(results.captorAt(0).getRhoSize(), 1UL);
    EXPECT_EQ(results.captorAt(0).getEDimension(), 1UL);
    EXPECT_EQ(results.captorAt(0).getPosition().getDimension(), 0UL);
    EXPECT_EQ(results.captorAt(1).getBlochEquationsNumber(), 100000UL);
}

TEST(QVG_VisualizationWindow, WithoutCaptorsFileTheListIsEmpty)
{
    TestResults results;
    std::filesystem::remove(results.main().file("captors.res"));
    results.open();
    EXPECT_EQ(results.names(), Texts());
    EXPECT_EQ(results.selection().getChild(0)->getComponent(GUI_ListPanel::COMPO_ADD), nullptr);
    EXPECT_EQ(results.selection().getChild(0)->getComponent(GUI_ListPanel::COMPO_DELETE), nullptr);
}

TEST(QVG_VisualizationWindow, ANewItemIsADefaultCaptorWithTheNextNumber)
{
    const TestResults results;
    results.open();
    std::string name;
    const COM_Scoped made(results.selection().NewItem(name));
    EXPECT_EQ(name, "Captor 2");
    EXPECT_NE(dynamic_cast<QVG_Captor*>(made.get()), nullptr);
}

// ---------------------------------------------------------------- the form of a captor

TEST(QVG_CaptorItemPanel, ShowsTheCaptorReadOnly)
{
    const TestResults results(captor(7, 3, 2, 2));
    results.open();
    EXPECT_EQ(results.item().title(), "Captor");
    EXPECT_EQ(results.field(Item::COMPO_POSITION).getValue(), "(7.500000e+00)");
    EXPECT_EQ(results.field(Item::COMPO_RELATIVE_POSITION).getValue(), "2.500000e+01");
    EXPECT_EQ(results.field(Item::COMPO_LOCATION).getValue(), "7");
    for (const unsigned char flag :
         {Item::COMPO_POSITION, Item::COMPO_RELATIVE_POSITION, Item::COMPO_LOCATION}) {
        const auto& edit = dynamic_cast<const QLineEdit&>(*results.field(flag).qtWidget());
        EXPECT_TRUE(edit.isReadOnly() && edit.isEnabled()) << int{flag};
    }
    Texts labels;
    for (const QLabel* const label : results.item().findChildren<QLabel*>()) {
        labels.push_back(label->text().toStdString());
    }
    EXPECT_EQ(labels, (Texts{"Position", "Relative Position", "Location",
                             "Show Density of Bloch Equation"}));
    const auto textOf = [&](unsigned char flag) {
        return dynamic_cast<const QRadioButton&>(*results.field(flag).qtWidget()).text();
    };
    EXPECT_EQ(textOf(Item::COMPO_Ex), "Show Ex");
    EXPECT_EQ(textOf(Item::COMPO_Ey), "Show Ey");
    EXPECT_EQ(results.item().getMainLayout()->getComponent(Item::COMPO_Ez), nullptr);
    const auto& box =
        dynamic_cast<const QSpinBox&>(*results.field(Item::COMPO_BLOCH_NUMBER).qtWidget());
    EXPECT_EQ(box.minimum(), 1);
    EXPECT_EQ(box.maximum(), 10);
    EXPECT_EQ(box.value(), 1);
    EXPECT_EQ(results.marks().getTable()->rowCount(), 3);
    EXPECT_EQ(results.marks().getTable()->getValue(0, 0), "shown");
}

TEST(QVG_CaptorItemPanel, RelativePositionsPassThroughSinglePrecision)
{
    const TestResults results("captors RelPosition: 0.097");
    results.open();
    EXPECT_EQ(results.field(Item::COMPO_RELATIVE_POSITION).getValue(), "9.700001e+00");
    EXPECT_EQ(results.captorAt(0).getRelativePosition(), 0.097);
}

TEST(QVG_CaptorItemPanel, ComponentsAreNumberedInTheirOrder)
{
    unsigned char number = 0;
    for (const unsigned char flag :
         {Item::COMPO_Ex, Item::COMPO_Ey, Item::COMPO_Ez, Item::COMPO_POSITION,
          Item::COMPO_RELATIVE_POSITION, Item::COMPO_LOCATION, Item::COMPO_BLOCH_NUMBER}) {
        EXPECT_EQ(flag, number++);
    }
}

TEST(QVG_CaptorItemPanel, SwitchesChooseTheComponents)
{
    const TestResults results(captor(7, 2, 1, 2));
    results.open();
    results.click(Item::COMPO_Ey);
    EXPECT_TRUE(results.captorAt(0).isEx());
    EXPECT_TRUE(results.captorAt(0).isEy());
    results.click(Item::COMPO_Ex);
    EXPECT_FALSE(results.captorAt(0).isEx());
    EXPECT_TRUE(results.captorAt(0).isEy());
    results.click(Item::COMPO_Ey);
    EXPECT_FALSE(results.captorAt(0).isEy());
}

TEST(QVG_CaptorItemPanel, TheThirdIdentifierWritesTheSecondComponent)
{
    const TestResults results(captor(7, 2, 1, 3));
    results.open();
    GUI_ActionComponent& button = results.field(Item::COMPO_Ex);
    button.setFlagId(Item::COMPO_Ez);
    button.setValue("1");
    results.item().componentClicked(button);
    EXPECT_TRUE(results.captorAt(0).isEy());
    EXPECT_FALSE(results.captorAt(0).isEz());
}

TEST(QVG_CaptorItemPanel, OtherIdentifiersAreIgnored)
{
    const TestResults results;
    results.open();
    const std::string former = results.captorAt(0).toString();
    GUI_ActionComponent& field = results.field(Item::COMPO_LOCATION);
    EXPECT_EQ(printedBy([&] { results.item().componentClicked(field); }), "");
    EXPECT_EQ(results.captorAt(0).toString(), former);
}

TEST(QVG_CaptorItemPanel, ComponentsThatWereNotSavedAreSwitchedOff)
{
    const TestResults results(captor(1, 2, 1, 1) + captor(2, 2, 1, 0) + captor(3, 2, 1, 2));
    results.open();
    results.captorAt(0).setEy(true);
    const auto isEnabled = [&](unsigned char flag) {
        return results.field(flag).qtWidget()->isEnabled();
    };
    results.select(1);
    EXPECT_FALSE(isEnabled(Item::COMPO_Ex));
    EXPECT_FALSE(isEnabled(Item::COMPO_Ey));
    EXPECT_FALSE(results.captorAt(1).isEx());
    results.select(0);
    EXPECT_TRUE(isEnabled(Item::COMPO_Ex));
    EXPECT_FALSE(isEnabled(Item::COMPO_Ey));
    EXPECT_TRUE(results.captorAt(0).isEx());
    EXPECT_FALSE(results.captorAt(0).isEy());
    EXPECT_EQ(results.field(Item::COMPO_Ex).getValue(), "1");
    results.select(2);
    EXPECT_TRUE(isEnabled(Item::COMPO_Ey));
}

TEST(QVG_CaptorItemPanel, MarksAreSetByTheirBoxes)
{
    const TestResults results(captor(7, 3, 2));
    results.open();
    results.mark(1, 2);
    EXPECT_TRUE(results.captorAt(0).isRho(0, 1, 2));
    EXPECT_FALSE(results.captorAt(0).isRho(0, 2, 1));
    results.mark(1, 2);
    EXPECT_FALSE(results.captorAt(0).isRho(0, 1, 2));
}

TEST(QVG_CaptorItemPanel, TheNumberOfTheSystemChoosesTheMatrix)
{
    const TestResults results(captor(7, 2, 3));
    results.open();
    results.typeSystem("3");
    EXPECT_EQ(results.captorAt(0).getLastIndex(), 2UL);
    EXPECT_EQ(results.marks().getMatrix(), results.captorAt(0).getShowRho(2));
    results.mark(0, 1);
    EXPECT_TRUE(results.captorAt(0).isRho(2, 0, 1));
    EXPECT_FALSE(results.captorAt(0).isRho(0, 0, 1));
}

TEST(QVG_CaptorItemPanel, ANumberBeyondTheSystemsLeavesTheViewAndStaysShown)
{
    const TestResults results(captor(7, 2, 3));
    results.open();
    results.typeSystem("2");
    results.typeSystem("8");
    EXPECT_EQ(results.captorAt(0).getLastIndex(), 1UL);
    EXPECT_EQ(results.marks().getMatrix(), results.captorAt(0).getShowRho(1));
    EXPECT_EQ(results.field(Item::COMPO_BLOCH_NUMBER).getValue(), "8");
}

TEST(QVG_CaptorItemPanel, WithoutSystemsTheMatrixIsDisabled)
{
    const TestResults results(captor(7, 2, 0));
    results.open();
    EXPECT_FALSE(results.field(Item::COMPO_BLOCH_NUMBER).qtWidget()->isEnabled());
    EXPECT_FALSE(results.marks().getTable()->isEnabled());
    EXPECT_EQ(results.marks().getMatrix(), nullptr);
}

TEST(QVG_CaptorItemPanel, AnIndexBeyondTheSystemsShowsNoMatrix)
{
    const TestResults results(captor(7, 2, 3));
    results.open();
    results.typeSystem("3");
    results.captorAt(0).setBlochEquationsNumber(1);
    results.root().updateValues();
    EXPECT_EQ(results.marks().getMatrix(), nullptr);
    EXPECT_TRUE(results.marks().getTable()->isEnabled());
}

// ---------------------------------------------------------------- plots

TEST(QVG_VisualizationRootPanel, TheFieldOfACaptorIsACurveOverTheSeconds)
{
    const TestResults results;
    results.write("E_at_7.res", "0 1 \n1 -3 \n2 2 \n");
    results.open();
    EXPECT_FALSE(results.root().isENormalized());
    results.visualize();
    ASSERT_EQ(results.windows<GUI2D_PlotterWindow>().size(), 1UL);
    const GUI2D_PlotterWindow& window = *results.windows<GUI2D_PlotterWindow>()[0];
    EXPECT_EQ(window.getName(), "Quorvex Visualization");
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isContainer());
    EXPECT_EQ(window.size(), QSize(800, 500));
    EXPECT_EQ(results.plotter().getTitle(), "Quorvex Solutions");
    EXPECT_EQ(results.plotter().getXLabel(), "Times");
    EXPECT_EQ(results.plotter().getYLabel(), "E Fields");
    ASSERT_EQ(results.curves(), Texts{"Ex at Captor 1"});
    EXPECT_EQ(valuesOf(results.curve(0).getXValues()), (Numbers{0.0, 1e-14, 2e-14}));
    EXPECT_EQ(valuesOf(results.curve(0).getYValues()), (Numbers{1.0, -3.0, 2.0}));
    EXPECT_EQ(results.colors(), Texts{"Color[255,0,0]"});
}

TEST(QVG_VisualizationRootPanel, NamesOfFilesAndNumbersOfComponentsAreFixed)
{
    EXPECT_STREQ(Root::CAPTORS_FILE, "captors.res");
    EXPECT_STREQ(Root::E_FILE, "E_at_");
    EXPECT_STREQ(Root::E_EXT, ".res");
    EXPECT_STREQ(Root::RHO_FILE, "Rho_Bloch");
    EXPECT_STREQ(Root::RHO_EXT, ".res");
    EXPECT_EQ(Root::COMPO_VISUALIZE_BUTTON, 4);
    EXPECT_EQ(Root::COMPO_E_NORMALIZATION, 10);
}

TEST(QVG_VisualizationRootPanel, EachPressMakesAWindow)
{
    const TestResults results;
    results.write("E_at_7.res", "0 1 \n1 -3 \n2 2 \n");
    results.open();
    results.visualize();
    results.visualize();
    EXPECT_EQ(results.windows<GUI2D_PlotterWindow>().size(), 2UL);
}

TEST(QVG_VisualizationRootPanel, TheSecondCaptorBeginsThreeColorsFurther)
{
    const TestResults results(captor(9) + captor(7));
    results.write("E_at_7.res", "0 1 \n1 2 \n2 3 \n");
    results.write("E_at_9.res", "0 4 \n1 5 \n2 6 \n");
    results.open();
    results.visualize();
    EXPECT_EQ(results.curves(), (Texts{"Ex at Captor 1", "Ex at Captor 2"}));
    EXPECT_EQ(results.colors(), (Texts{"Color[255,0,0]", "Color[127,0,127]"}));
    EXPECT_EQ(valuesOf(results.curve(1).getYValues()), (Numbers{4.0, 5.0, 6.0}));
}

TEST(QVG_VisualizationRootPanel, ACaptorWithoutFieldTakesNoColor)
{
    const TestResults results(captor(1) + captor(2) + captor(3));
    results.open();
    results.select(1);
    results.click(Item::COMPO_Ex);
    results.visualize();
    EXPECT_EQ(results.curves(), (Texts{"Ex at Captor 1", "Ex at Captor 3"}));
    EXPECT_EQ(results.colors(), (Texts{"Color[255,0,0]", "Color[170,0,85]"}));
}

TEST(QVG_VisualizationRootPanel, AllComponentsHaveOneColorAndTheThirdTakesTheSecondColumn)
{
    const TestResults results(captor(7, 2, 1, 3));
    results.write("E_at_7.res", "0 1 10 100 \n1 2 20 200 \n2 3 30 300 \n");
    results.open();
    results.click(Item::COMPO_Ey);
    results.captorAt(0).setEz(true); // the form has no switch for it
    results.visualize();
    ASSERT_EQ(results.curves(), (Texts{"Ex at Captor 1", "Ey at Captor 1", "Ez at Captor 1"}));
    EXPECT_EQ(results.colors(), Texts(3, "Color[255,0,0]"));
    EXPECT_EQ(valuesOf(results.curve(0).getYValues()), (Numbers{1.0, 2.0, 3.0}));
    EXPECT_EQ(valuesOf(results.curve(1).getYValues()), (Numbers{10.0, 20.0, 30.0}));
    EXPECT_EQ(valuesOf(results.curve(2).getYValues()), (Numbers{10.0, 20.0, 30.0}));
}

TEST(QVG_VisualizationRootPanel, ASecondComponentThatWasNotSavedIsAnEmptyCurve)
{
    const TestResults results;
    results.write("E_at_7.res", "0 1 \n1 2 \n2 3 \n");
    results.open();
    results.captorAt(0).setEz(true);
    results.visualize();
    ASSERT_EQ(results.curves(), (Texts{"Ex at Captor 1", "Ez at Captor 1"}));
    EXPECT_EQ(results.curve(1).getPointsNumber(), 0UL);
}

TEST(QVG_VisualizationRootPanel, MissingAndCutFilesGiveTheirPointsAndNoMore)
{
    const TestResults results(captor(1) + captor(2));
    results.write("E_at_2.res", "0 4 \n1 5");
    results.open();
    results.visualize();
    ASSERT_EQ(results.curves(), (Texts{"Ex at Captor 1", "Ex at Captor 2"}));
    EXPECT_EQ(results.curve(0).getPointsNumber(), 0UL);
    EXPECT_EQ(valuesOf(results.curve(1).getYValues()), Numbers{4.0});
}

TEST(QVG_VisualizationRootPanel, MarkedDensitiesFollowTheField)
{
    const TestResults results(captor(7, 2, 2));
    results.write("E_at_7.res", "0 1 \n1 2 \n2 3 \n");
    results.write("Rho_Bloch0_at_7.res", "0 5 1 2 3 4 \n1 5 5 6 7 8 \n2 5 9 10 11 12 \n");
    results.write("Rho_Bloch1_at_7.res", "0 5 .1 .2 .3 .4 \n1 5 .5 .6 .7 .8 \n2 5 0 0 0 1 \n");
    results.open();
    results.mark(1, 0);
    results.mark(0, 0);
    results.typeSystem("2");
    results.mark(1, 1);
    results.visualize();
    ASSERT_EQ(results.curves(),
              (Texts{"Ex at Captor 1", "Bloch Eq:0 Rho[0][0] at Captor 1",
                     "Bloch Eq:0 Rho[1][0] at Captor 1", "Bloch Eq:1 Rho[1][1] at Captor 1"}));
    EXPECT_EQ(valuesOf(results.curve(1).getXValues()), (Numbers{0.0, 1e-14, 2e-14}));
    EXPECT_EQ(valuesOf(results.curve(1).getYValues()), (Numbers{1.0, 5.0, 9.0}));
    EXPECT_EQ(valuesOf(results.curve(2).getYValues()), (Numbers{3.0, 7.0, 11.0}));
    EXPECT_EQ(valuesOf(results.curve(3).getYValues()), (Numbers{0.4, 0.8, 1.0}));
    EXPECT_EQ(results.plotter().getYLabel(), "E Fields Rho Fields");
    EXPECT_EQ(results.colors(),
              (Texts{"Color[255,0,0]", "Color[1,1,1]", "Color[1,1,1]", "Color[64,128,1]"}));
}

TEST(QVG_VisualizationRootPanel, ColorsOfDensitiesTellElementSystemAndCaptor)
{
    const TestResults results(captor(1, 3, 3) + captor(2, 3, 3) + captor(3, 3, 3));
    results.open();
    for (const int k : {0, 1, 2}) {
        results.select(k);
        results.click(Item::COMPO_Ex);
    }
    results.captorAt(2).setRhoVisible(2, 2, 1, true);
    results.visualize();
    EXPECT_EQ(results.curves(), Texts{"Bloch Eq:2 Rho[2][1] at Captor 3"});
    EXPECT_EQ(results.colors(), Texts{"Color[57,170,170]"}); // 254 * 2 / 9, 2 / 3, 2 / 3
    EXPECT_EQ(results.plotter().getYLabel(), "Rho Fields");
}

TEST(QVG_VisualizationRootPanel, TheLabelOfYNamesEachKindOnceFieldsOnlyWhenTheyComeFirst)
{
    const TestResults results(captor(1) + captor(2));
    results.open();
    results.mark(0, 0);
    results.select(1);
    results.mark(0, 0);
    results.visualize();
    EXPECT_EQ(results.plotter().getYLabel(), "E Fields Rho Fields");
    results.windows<GUI2D_PlotterWindow>().at(0)->close(false);
    results.select(0);
    results.click(Item::COMPO_Ex);
    results.visualize();
    EXPECT_EQ(results.curves(), (Texts{"Bloch Eq:0 Rho[0][0] at Captor 1", "Ex at Captor 2",
                                       "Bloch Eq:0 Rho[0][0] at Captor 2"}));
    EXPECT_EQ(results.plotter().getYLabel(), "Rho Fields");
}

TEST(QVG_VisualizationRootPanel, DensitiesEndWithTheShorterOfTimesAndMatrices)
{
    const TestResults results(captor(1) + captor(2));
    results.write("Rho_Bloch0_at_1.res", "0 5 1 2 3 4 \n1 5 5 6 7 8 \n");
    results.write("Rho_Bloch0_at_2.res",
                  "0 5 1 2 3 4 \n1 5 5 6 7 8 \n2 5 9 0 0 0 \n3 5 9 0 0 0 \n");
    results.open();
    results.mark(0, 0);
    results.select(1);
    results.mark(0, 0);
    results.visualize();
    ASSERT_EQ(results.curves().size(), 4UL);
    EXPECT_EQ(results.curve(1).getPointsNumber(), 2UL);
    EXPECT_EQ(results.curve(3).getPointsNumber(), 3UL);
}

TEST(QVG_VisualizationRootPanel, NormalizationDividesTheFieldsByTheGreatestOfAllCaptors)
{
    const TestResults results(captor(1, 2, 1, 2) + captor(2));
    results.write("E_at_1.res", "0 1 -8 \n1 2 0 \n2 4 0 \n");
    results.write("E_at_2.res", "0 2 \n1 4 \n2 6 \n");
    results.write("Rho_Bloch0_at_1.res", "0 5 1 2 3 4 \n1 5 5 6 7 8 \n2 5 9 10 11 12 \n");
    results.open();
    results.mark(0, 0);
    results.normalize();
    EXPECT_TRUE(results.root().isENormalized());
    results.visualize();
    EXPECT_EQ(valuesOf(results.curve(0).getYValues()), (Numbers{0.125, 0.25, 0.5}));
    EXPECT_EQ(valuesOf(results.curve(1).getYValues()), (Numbers{1.0, 5.0, 9.0}));
    EXPECT_EQ(valuesOf(results.curve(2).getYValues()), (Numbers{0.25, 0.5, 0.75}));
    EXPECT_EQ(results.plotter().getTitle(), "Quorvex Solutions (E Normalized by 8.000000e+00)");
    results.normalize();
    EXPECT_FALSE(results.root().isENormalized());
}

TEST(QVG_VisualizationRootPanel, NormalizationDividesAllComponents)
{
    const TestResults results(captor(7, 2, 1, 3));
    results.write("E_at_7.res", "0 1 2 3 \n1 4 -8 5 \n2 6 2 7 \n");
    results.open();
    results.click(Item::COMPO_Ey);
    results.captorAt(0).setEz(true); // the form has no switch for it
    results.normalize();
    results.visualize();
    ASSERT_EQ(results.curves(), (Texts{"Ex at Captor 1", "Ey at Captor 1", "Ez at Captor 1"}));
    EXPECT_EQ(valuesOf(results.curve(0).getYValues()), (Numbers{0.125, 0.5, 0.75}));
    EXPECT_EQ(valuesOf(results.curve(1).getYValues()), (Numbers{0.25, -1.0, 0.25}));
    EXPECT_EQ(valuesOf(results.curve(2).getYValues()), (Numbers{0.25, -1.0, 0.25}));
}

TEST(QVG_VisualizationRootPanel, WithoutAFieldNormalizationChangesNothing)
{
    const TestResults results;
    results.write("Rho_Bloch0_at_7.res", "0 5 1 2 3 4 \n1 5 5 6 7 8 \n2 5 9 10 11 12 \n");
    results.open();
    results.click(Item::COMPO_Ex);
    results.mark(0, 0);
    results.normalize();
    results.visualize();
    EXPECT_EQ(results.curves(), Texts{"Bloch Eq:0 Rho[0][0] at Captor 1"});
    EXPECT_EQ(valuesOf(results.curve(0).getYValues()), (Numbers{1.0, 5.0, 9.0}));
    EXPECT_EQ(results.plotter().getTitle(), "Quorvex Solutions");
}

TEST(QVG_VisualizationRootPanel, FieldsWithoutDataAreNormalizedByMinusOne)
{
    const TestResults results;
    results.open();
    results.normalize();
    results.visualize();
    EXPECT_EQ(results.plotter().getTitle(), "Quorvex Solutions (E Normalized by -1.000000e+00)");
    settle(); // painted all the same
}

TEST(QVG_VisualizationRootPanel, WithoutACurveAMessageSaysSoAndNoWindowIsLeft)
{
    const TestResults results;
    results.open();
    results.click(Item::COMPO_Ex);
    std::string title;
    std::string text;
    DialogAnswers answers;
    answers.add<QMessageBox>([&](QMessageBox& dialog) {
        title = dialog.windowTitle().toStdString();
        text = dialog.text().toStdString();
    });
    results.visualize();
    EXPECT_EQ(title, "Visualization Empty:");
    EXPECT_EQ(text, "No curve selected !");
    EXPECT_TRUE(results.windows<GUI2D_PlotterWindow>().empty());
}

TEST(QVG_VisualizationRootPanel, AnEmptyListShowsTheMessageToo)
{
    const TestResults results("");
    results.open();
    DialogAnswers answers;
    answers.add<QMessageBox>(
        [](QMessageBox& dialog) { EXPECT_EQ(dialog.text(), "No curve selected !"); });
    results.visualize();
    EXPECT_TRUE(results.windows<GUI2D_PlotterWindow>().empty());
}

TEST(QVG_VisualizationRootPanel, WithoutAListNothingIsPlotted)
{
    const TestResults results;
    results.open();
    results.root().removeFromChildren(0);
    const DialogAnswers noDialogs;
    results.visualize();
    EXPECT_TRUE(results.windows<GUI2D_PlotterWindow>().empty());
}

TEST(QVG_VisualizationRootPanel, PlotsTheResultsOfARun)
{
    TestMainWindow window;
    window.createSmallProject();
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog&) {});
    printedBy([&] { window.action(QVG_MainMenu::RUN, 0).trigger(); });
    ASSERT_TRUE(window.exists("captors.res"));
    window.action(QVG_MainMenu::VISUALIZE, 0).trigger();
    const auto* const results = window->findForm<QVG_VisualizationWindow>();
    ASSERT_NE(results, nullptr);
    dynamic_cast<Root&>(*results->getPanel()).visualize();
    const auto* const plot = window->findForm<GUI2D_PlotterWindow>();
    ASSERT_NE(plot, nullptr);
    const std::string captors = window.read("captors.res");
    ASSERT_EQ(static_cast<long>(plot->getPlotsNumber()),
              std::count(captors.begin(), captors.end(), '\n'));
    EXPECT_EQ(plot->getPlotter()->getCurves()[0].getPointsNumber(), 40UL);
    EXPECT_LT(plot->getPlotter()->getCurves()[0].getYMin(),
              plot->getPlotter()->getCurves()[0].getYMax())
        << "a field that never moves";
}

// ---------------------------------------------------------------- how it looks

TEST(QVG_VisualizationWindow, OpensWithAllMarksInView)
{
    const TestResults results(captor(7, 4));
    results.open();
    const GUI_Table& table = *results.marks().getTable();
    ASSERT_EQ(table.columnCount(), 4);
    EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(table.verticalScrollBar()->isVisible());
    // A captor's name is whole in the narrowest window, too.
    EXPECT_GT(results.list().minimumSizeHint().width(),
              results.list().fontMetrics().horizontalAdvance("Captor 00"));
}

TEST(QVG_VisualizationWindow, TabGoesDownTheForm)
{
    const TestResults results(captor(7, 2, 2, 2));
    results.open();
    std::vector<const QWidget*> form{&results.list()};
    for (const unsigned char flag :
         {Item::COMPO_POSITION, Item::COMPO_RELATIVE_POSITION, Item::COMPO_LOCATION, Item::COMPO_Ex,
          Item::COMPO_Ey, Item::COMPO_BLOCH_NUMBER}) {
        form.push_back(results.field(flag).qtWidget());
    }
    form.push_back(results.marks().getTable());
    form.push_back(results.component(Root::COMPO_E_NORMALIZATION).qtWidget());
    form.push_back(results.component(Root::COMPO_VISUALIZE_BUTTON).qtWidget());
    EXPECT_EQ(focusOrder(results.list(), form), form);
}

TEST(QVG_VisualizationWindow, SwitchAndButtonStandInTheMiddle)
{
    const TestResults results;
    results.open();
    for (const unsigned char flag : {Root::COMPO_E_NORMALIZATION, Root::COMPO_VISUALIZE_BUTTON}) {
        const QWidget& widget = *results.component(flag).qtWidget();
        EXPECT_NEAR(widget.geometry().center().x(), results.root().width() / 2, 2) << int{flag};
    }
    EXPECT_EQ(results.component(Root::COMPO_VISUALIZE_BUTTON).getValue(), "Visualize");
    EXPECT_EQ(
        dynamic_cast<QRadioButton&>(*results.component(Root::COMPO_E_NORMALIZATION).qtWidget())
            .text(),
        "E Fields Normalization");
}
