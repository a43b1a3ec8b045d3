#include "gui2d/GUI2D_OpenAction.h"

#include "gui2d/GUI2D_LegendWindow.h"
#include "gui2d/GUI2D_OptionsWindow.h"
#include "gui2d/GUI2D_ToolsWindow.h"
#include "gui2d/TestPlot.h"

#include <gtest/gtest.h>

namespace {

template <typename Window>
void expectOneWindow(const char* label, const char* name)
{
    const TestPlot plot;
    plot.addAndShow();
    Window& window = plot.open<Window>(label);
    EXPECT_EQ(window.getName(), name);
    EXPECT_EQ(window.getParent(), &*plot);
    EXPECT_TRUE(window.isVisible());
    window.showMinimized();
    plot.trigger(label);
    EXPECT_EQ(plot.children<Window>(), std::vector<Window*>{&window});
    EXPECT_FALSE(window.isMinimized());

    QTest::keyClick(&window, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(plot.children<Window>().empty());
    plot.open<Window>(label);
    EXPECT_EQ(plot.children<Window>().size(), 1U);
}

} // namespace

TEST(GUI2D_OpenAction, LegendsOpenOnceAndEscapeClosesThem)
{
    expectOneWindow<GUI2D_LegendWindow>("&Legends", "Legends Window");
}

TEST(GUI2D_OpenAction, OptionsOpenOnceAndEscapeClosesThem)
{
    expectOneWindow<GUI2D_OptionsWindow>("&Options", "Plotter Options Window");
}

TEST(GUI2D_OpenAction, ToolsOpenOnceAndEscapeClosesThem)
{
    expectOneWindow<GUI2D_ToolsWindow>("Log/FFT Transform", "Tools Window");
}

TEST(GUI2D_OpenAction, EachPlotHasItsOwnWindow)
{
    const TestPlot plot;
    plot.addAndShow();
    const COM_Scoped other(GUI2D_PlotterWindow::New(*plot.root(), "Other"));
    plot.trigger("&Legends");
    other->getMenu()->getMenu("&Edit")->getAction("&Legends")->trigger();
    EXPECT_EQ(plot.children<GUI2D_LegendWindow>().size(), 1U);
    EXPECT_EQ(childrenOf<GUI_ChildWindow>(*other).size(), 1U);
}

TEST(GUI2D_OpenAction, TheyCloseWithThePlot)
{
    const TestPlot plot;
    plot.addAndShow();
    const QPointer<GUI2D_LegendWindow> legends = &plot.open<GUI2D_LegendWindow>("&Legends");
    const QPointer<GUI2D_OptionsWindow> options = &plot.open<GUI2D_OptionsWindow>("&Options");
    plot->close(false);
    settle();
    EXPECT_EQ(legends, nullptr);
    EXPECT_EQ(options, nullptr);
}
