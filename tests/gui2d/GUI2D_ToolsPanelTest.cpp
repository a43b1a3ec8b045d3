#include "gui2d/GUI2D_ToolsPanel.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_CheckBox.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_SpinBox.h"
#include "gui2d/GUI2D_ToolsWindow.h"
#include "gui2d/TestPlot.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

using Panel = GUI2D_ToolsPanel;

/// The tools of a plot with a curve of so many points, 0.25 apart on X and -2 on Y.
class Tools
{
public:
    explicit Tools(int points)
    {
        std::vector<double> x(points);
        std::vector<double> y(points);
        for (int i = 0; i < points; ++i) {
            x[i] = 0.25 * i;
            y[i] = 10.0 - 2.0 * i;
        }
        mPlot.add(x, y);
        mPlot->show();
        mWindow = &mPlot.open<GUI2D_ToolsWindow>("Log/FFT Transform");
    }
    const TestPlot& plot() const { return mPlot; }
    Panel& panel() const { return dynamic_cast<Panel&>(*mWindow->getPanel()); }
    template <typename Component>
    Component& get(unsigned char flag) const
    {
        return dynamic_cast<Component&>(*panel().getComponent(flag));
    }
    void click(unsigned char flag) const
    {
        QTest::mouseClick(&get<QAbstractButton>(flag), Qt::LeftButton, {},
                          QPoint(8, get<QAbstractButton>(flag).height() / 2));
    }
    void type(unsigned char flag, const char* text) const
    {
        auto& field = get<GUI_LineEdit>(flag);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    std::string label() const
    {
        return get<GUI_Label>(Panel::COMPO_LABEL_FFT).text().toStdString();
    }
    /// The windows that "Visualize" has opened.
    std::vector<GUI2D_PlotterWindow*> results() const
    {
        std::vector<GUI2D_PlotterWindow*> all = mPlot.root().children<GUI2D_PlotterWindow>();
        all.erase(all.begin());
        return all;
    }

private:
    TestPlot mPlot;
    GUI2D_ToolsWindow* mWindow; ///< Held by the plotter window.
};

} // namespace

TEST(GUI2D_ToolsPanel, BeginsWithThePointsOfThePlotter)
{
    const Tools tools(9);
    // Means lack the first of eight steps.
    EXPECT_EQ(tools.get<GUI_LineEdit>(Panel::COMPO_FFTX_PERIOD).text(), "2.187500e-01");
    EXPECT_EQ(tools.get<GUI_LineEdit>(Panel::COMPO_FFTY_PERIOD).text(), "1.750000e+00");
    EXPECT_EQ(tools.get<GUI_SpinBox>(Panel::COMPO_FFT2P).value(), 3);
    EXPECT_EQ(tools.get<GUI_SpinBox>(Panel::COMPO_FFT2P).minimum(), 0);
    EXPECT_EQ(tools.get<GUI_SpinBox>(Panel::COMPO_FFT2P).maximum(), 3);
    EXPECT_EQ(tools.label(), "(8/9) last values");
    for (const unsigned char flag :
         {Panel::COMPO_LOGX, Panel::COMPO_LOGY, Panel::COMPO_FFTX, Panel::COMPO_FFTY}) {
        EXPECT_FALSE(tools.get<GUI_CheckBox>(flag).isChecked()) << int(flag);
    }
}

TEST(GUI2D_ToolsPanel, TextsAreThoseOfTheForm)
{
    const Tools tools(4);
    EXPECT_EQ(tools.get<GUI_CheckBox>(Panel::COMPO_LOGX).text(), "Log X");
    EXPECT_EQ(tools.get<GUI_CheckBox>(Panel::COMPO_LOGY).text(), "Log Y");
    EXPECT_EQ(tools.get<GUI_CheckBox>(Panel::COMPO_FFTX).text(), "X FFT");
    EXPECT_EQ(tools.get<GUI_CheckBox>(Panel::COMPO_FFTY).text(), "Y FFT");
    EXPECT_EQ(tools.get<GUI_Button>(Panel::COMPO_OK).text(), "Visualize");
    EXPECT_EQ(tools.get<GUI_Button>(Panel::COMPO_CANCEL).text(), "Cancel");
    QStringList labels;
    for (const QLabel* const label : tools.panel().findChildren<QLabel*>()) {
        labels.append(label->text());
    }
    EXPECT_TRUE(labels.contains("\tX FFT Period"));
    EXPECT_TRUE(labels.contains("\tY FFT Period"));
    EXPECT_TRUE(labels.contains("FFT computed on the 2 power"));
}

TEST(GUI2D_ToolsPanel, TheFormStaysTogetherInAHigherWindow)
{
    const Tools tools(4);
    const auto bottom = [&] {
        return tools.get<GUI_Button>(Panel::COMPO_CANCEL).geometry().bottom();
    };
    const int former = bottom();
    QWidget* const window = tools.panel().window();
    window->resize(window->width(), window->height() + 300);
    settle();
    EXPECT_GT(tools.panel().height(), former + 300);
    EXPECT_LT(bottom(), former + 30);
}

TEST(GUI2D_ToolsPanel, ComponentsAreNumberedInTheirOrder)
{
    unsigned char number = 0;
    for (const unsigned char flag :
         {Panel::COMPO_LOGX, Panel::COMPO_LOGY, Panel::COMPO_FFTX, Panel::COMPO_FFTY,
          Panel::COMPO_FFTX_PERIOD, Panel::COMPO_FFTY_PERIOD, Panel::COMPO_FFT2P,
          Panel::COMPO_LABEL_FFT, Panel::COMPO_OK, Panel::COMPO_CANCEL}) {
        EXPECT_EQ(flag, number++);
    }
}

TEST(GUI2D_ToolsPanel, TheShortestCurveLimitsThePowerFromTheStart)
{
    const TestPlot plot;
    plot.add(std::vector<double>(100), std::vector<double>(100));
    plot.add({0.0, 1.0, 2.0, 3.0, 4.0}, {0.0, 1.0, 2.0, 3.0, 4.0});
    plot.add(std::vector<double>(16), std::vector<double>(16));
    plot->show();
    const auto& panel = *plot.open<GUI2D_ToolsWindow>("Log/FFT Transform").getPanel();
    EXPECT_EQ(dynamic_cast<GUI_SpinBox&>(*panel.getComponent(Panel::COMPO_FFT2P)).maximum(), 2);
    EXPECT_EQ(dynamic_cast<GUI_Label&>(*panel.getComponent(Panel::COMPO_LABEL_FFT)).text(),
              "(4/5) last values");
}

TEST(GUI2D_ToolsPanel, EachSwitchIsThatOfItsTransform)
{
    const std::vector<std::pair<unsigned char, std::string>> switches{
        {Panel::COMPO_LOGX, "LOG(X)"},
        {Panel::COMPO_LOGY, "LOG(Y)"},
        {Panel::COMPO_FFTX, "FFT(X)"},
        {Panel::COMPO_FFTY, "FFT(Y)"}};
    const Tools tools(8);
    for (const auto& [flag, description] : switches) {
        tools.click(flag);
        tools.click(Panel::COMPO_OK);
        tools.click(flag);
        EXPECT_EQ(tools.results().back()->getName(), "Quorvex Tools - " + description);
    }
}

TEST(GUI2D_ToolsPanel, TheStepOnYIsThePeriodOfXTransforms)
{
    const Tools tools(8);
    tools.type(Panel::COMPO_FFTX_PERIOD, "5");
    tools.type(Panel::COMPO_FFTY_PERIOD, "0.5");
    tools.click(Panel::COMPO_FFTX);
    tools.click(Panel::COMPO_OK);
    ASSERT_EQ(tools.results().size(), 1U);
    EXPECT_NEAR(tools.results()[0]->getPlotter()->getCurves()[0].getYMin(),
                -4.0 * 6.283185307179586 / (8.0 * 0.5), 1e-12);
}

TEST(GUI2D_ToolsPanel, PowersOfTwoAreCountedExactly)
{
    for (const int points : {1, 2, 3, 4, 7, 8, 1024}) {
        const Tools tools(points);
        const int power = tools.get<GUI_SpinBox>(Panel::COMPO_FFT2P).maximum();
        EXPECT_LE(1 << power, points);
        EXPECT_GT(2 << power, points);
    }
}

TEST(GUI2D_ToolsPanel, ThePowerRebuildsTheLabel)
{
    const Tools tools(9);
    auto& power = tools.get<GUI_SpinBox>(Panel::COMPO_FFT2P);
    QTest::keyClick(&power, Qt::Key_Down);
    EXPECT_EQ(tools.label(), "(4/9) last values");
    power.setValue(std::string("0"));
    EXPECT_EQ(tools.label(), "(1/9) last values");
}

TEST(GUI2D_ToolsPanel, ANegativePeriodBecomesOne)
{
    const Tools tools(8);
    tools.type(Panel::COMPO_FFTX_PERIOD, "-3");
    EXPECT_EQ(tools.get<GUI_LineEdit>(Panel::COMPO_FFTX_PERIOD).text(), "1.0");
    tools.type(Panel::COMPO_FFTY_PERIOD, "-1e-9");
    EXPECT_EQ(tools.get<GUI_LineEdit>(Panel::COMPO_FFTY_PERIOD).text(), "1.0");
    tools.click(Panel::COMPO_FFTY);
    tools.click(Panel::COMPO_OK);
    ASSERT_EQ(tools.results().size(), 1U);
    EXPECT_NEAR(tools.results()[0]->getPlotter()->getCurves()[0].getXMin(),
                -4.0 * 6.283185307179586 / 8.0, 1e-12);
}

TEST(GUI2D_ToolsPanel, APeriodOfZeroIsKept)
{
    const Tools tools(8);
    tools.type(Panel::COMPO_FFTX_PERIOD, "0");
    EXPECT_EQ(tools.get<GUI_LineEdit>(Panel::COMPO_FFTX_PERIOD).text(), "0");
    tools.click(Panel::COMPO_FFTY);
    tools.click(Panel::COMPO_OK);
    ASSERT_EQ(tools.results().size(), 1U);
    EXPECT_EQ(tools.results()[0]->getPlotter()->getCurves()[0].getXMin(),
              -std::numeric_limits<double>::infinity());
    settle(); // is painted
}

TEST(GUI2D_ToolsPanel, TextWithoutANumberIsZeroAndShownAsSuch)
{
    const Tools tools(8);
    tools.type(Panel::COMPO_FFTX_PERIOD, "abc");
    EXPECT_EQ(tools.get<GUI_LineEdit>(Panel::COMPO_FFTX_PERIOD).text(), "0.000000e+00");
}

TEST(GUI2D_ToolsPanel, VisualizeTransformsAndStaysOpen)
{
    const Tools tools(8);
    tools.click(Panel::COMPO_LOGX);
    tools.click(Panel::COMPO_LOGY);
    tools.click(Panel::COMPO_FFTX);
    tools.click(Panel::COMPO_FFTY);
    tools.click(Panel::COMPO_OK);
    ASSERT_EQ(tools.results().size(), 1U);
    EXPECT_EQ(tools.results()[0]->getName(), "Quorvex Tools - LOG(FFT(X)) - LOG(FFT(Y))");
    EXPECT_EQ(tools.plot().children<GUI2D_ToolsWindow>().size(), 1U);
    tools.click(Panel::COMPO_LOGX);
    tools.click(Panel::COMPO_FFTX);
    tools.click(Panel::COMPO_FFTY);
    tools.click(Panel::COMPO_OK);
    ASSERT_EQ(tools.results().size(), 2U);
    EXPECT_EQ(tools.results()[1]->getName(), "Quorvex Tools - LOG(Y)");
}

TEST(GUI2D_ToolsPanel, CancelClosesTheWindow)
{
    const Tools tools(8);
    tools.click(Panel::COMPO_CANCEL);
    settle();
    EXPECT_TRUE(tools.plot().children<GUI2D_ToolsWindow>().empty());
}

TEST(GUI2D_ToolsPanel, AShorterCurveLimitsThePower)
{
    const Tools tools(8);
    tools.plot().add({0.0, 1.0}, {0.0, 1.0});
    tools.panel().updateValues();
    EXPECT_EQ(tools.get<GUI_SpinBox>(Panel::COMPO_FFT2P).value(), 1);
    EXPECT_EQ(tools.label(), "(2/2) last values");
}

TEST(GUI2D_ToolsPanel, WithoutAPlotterItHasItsDefaults)
{
    const ProjectRoot root;
    const COM_Scoped window(GUI2D_ToolsWindow::New(*root));
    const auto& panel = *window->getPanel();
    EXPECT_EQ(dynamic_cast<GUI_LineEdit&>(*panel.getComponent(Panel::COMPO_FFTX_PERIOD)).text(),
              "1.000000e+00");
    EXPECT_EQ(dynamic_cast<GUI_LineEdit&>(*panel.getComponent(Panel::COMPO_FFTY_PERIOD)).text(),
              "1.000000e+00");
    EXPECT_EQ(dynamic_cast<GUI_Label&>(*panel.getComponent(Panel::COMPO_LABEL_FFT)).text(),
              "(1/0) last values");
    dynamic_cast<GUI_Button&>(*panel.getComponent(Panel::COMPO_OK)).click();
    EXPECT_TRUE(root.children<GUI2D_PlotterWindow>().empty());
}
