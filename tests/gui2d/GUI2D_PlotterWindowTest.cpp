#include "gui2d/GUI2D_PlotterWindow.h"

#include "gui2d/TestPlot.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <QStatusBar>

#include <gtest/gtest.h>

TEST(GUI2D_PlotterWindow, HoldsAPlotterThatFillsIt)
{
    const TestPlot plot;
    EXPECT_EQ(plot->getName(), "Plot");
    EXPECT_EQ(plot->getTypes().back(), "GUI2D_PlotterWindow");
    EXPECT_EQ(plot->getPanel()->getTypes().back(), "GUI2D_RootPanel");
    EXPECT_EQ(plot->getDrawPanel(), &plot.plotter());
    EXPECT_EQ(plot->getPlotsNumber(), 0U);
    EXPECT_FALSE(plot->isLoaded());
    plot.addAndShow();
    EXPECT_EQ(plot->getPlotsNumber(), 1U);
    EXPECT_EQ(plot.plotter().size(), plot->getPanel()->contentsRect().size());
}

TEST(GUI2D_PlotterWindow, ForwardsToThePlotter)
{
    const TestPlot plot;
    const COM_Scoped x(LA_RealVector::New(2UL));
    const COM_Scoped y(LA_RealVector::New(2UL));
    x->setValues(0.0, 1.0);
    y->setValues(2.0, 4.0);
    const COM_Scoped color(COM_Color::New(1, 2, 3));
    plot->addPlot(*x, *y, "Ex", false, *color);
    plot->addPlot(*x, *y, "Ey", true, *color);
    EXPECT_FALSE(plot.curve(0).isShown());
    EXPECT_TRUE(plot.curve(1).isShown());
    EXPECT_EQ(plot.curve(0).getColor(), color.get());
    plot->curvesYNormalization("Ex", 2.0);
    EXPECT_EQ(plot.curve(0).getYMax(), 2.0);
    EXPECT_EQ(plot.curve(1).getYMax(), 4.0);
}

TEST(GUI2D_PlotterWindow, IsAContainerWhenAskedFor)
{
    const TestPlot plot;
    EXPECT_FALSE(plot->isContainer());
    const COM_Scoped container(GUI2D_PlotterWindow::New(*plot.root(), "Container", true));
    EXPECT_TRUE(container->isContainer());
    EXPECT_NE(container->getPlotter(), nullptr);
}

TEST(GUI2D_PlotterWindow, NormalizedCurvesAreAViewThatCanBeUndone)
{
    const TestPlot plot;
    plot.addAndShow();
    EXPECT_FALSE(plot.find("&Undo")->isEnabled());
    plot->curvesYNormalization("Curve", 2.0);
    EXPECT_TRUE(plot.find("&Undo")->isEnabled());
}

TEST(GUI2D_PlotterWindow, TheFirstMessageDoesNotResizeThePlot)
{
    const TestPlot plot;
    plot.addAndShow();
    const QSize size = plot.plotter().size();
    QTest::mouseMove(&plot.plotter(), plot.plotter().rect().center());
    settle();
    EXPECT_TRUE(plot->statusBar()->currentMessage().startsWith("Current Point:("));
    EXPECT_EQ(plot.plotter().size(), size);
}

TEST(GUI2D_PlotterWindow, SavesAndLoadsItsPlotter)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShow();
    plot.trigger("Zoom +");
    plot->save(directory.slashed(), "plot.xml");
    plot.trigger("Zoom Fit");
    plot.add({0.0}, {1.0}, "another");
    GUI2D_Plotter* const former = plot->getPlotter();
    plot->load(directory.slashed(), "plot.xml");
    EXPECT_TRUE(plot->isLoaded());
    EXPECT_EQ(plot->getPlotter(), former);
    EXPECT_EQ(plot->getPlotsNumber(), 1U);
    EXPECT_EQ(plot.plotter().getDrawingBoxes().size(), 2U);
    EXPECT_EQ(plot->getName(), "Plot");
}

TEST(GUI2D_PlotterWindow, TellsWhetherThereWasAPlotterInTheFile)
{
    const TestDirectory directory;
    directory.write("foreign.xml", "no plotter");
    const TestPlot plot;
    plot.addAndShow();
    printedBy([&] { plot->load(directory.slashed(), "missing.xml"); });
    EXPECT_FALSE(plot->isLoaded());
    printedBy([&] { plot->load(directory.slashed(), "foreign.xml"); });
    EXPECT_FALSE(plot->isLoaded());
    EXPECT_EQ(plot->getPlotsNumber(), 1U);
}

TEST(GUI2D_PlotterWindow, ClosedItHasNoPlotter)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShow();
    const COM_Guard guard(*plot);
    plot->close(false);
    EXPECT_EQ(plot->getPlotter(), nullptr);
    EXPECT_EQ(plot->getDrawPanel(), nullptr);
    EXPECT_EQ(plot->getPlotsNumber(), 0U);
    plot.add({0.0}, {1.0});
    plot->curvesYNormalization("C", 2.0);
    plot->save(directory.slashed(), "plot.xml");
    plot->load(directory.slashed(), "plot.xml");
    EXPECT_FALSE(plot->isLoaded());
    EXPECT_FALSE(std::filesystem::exists(directory.file("plot.xml")));
}

TEST(GUI2D_PlotterWindow, SaveOfItsMenuSavesTheProject)
{
    const TestPlot plot;
    plot.root()->setSavingPath("/project/");
    plot.root()->setSavingFile("project.dpj");
    plot.trigger("&Save");
    EXPECT_EQ(plot.root()->mCalls, (std::vector<std::string>{"save /project/ project.dpj"}));
    plot.root()->setSavingFile("");
}
