#include "gui2d/GUI2D_CurveTable.h"

#include "gui2d/TestPlot.h"

#include <gtest/gtest.h>

#include <limits>
#include <locale>

TEST(GUI2D_CurveTable, ShorterCurvesLeaveTheirColumnsEmpty)
{
    const TestPlot plot;
    plot.add({1.0, 2.0}, {3.0, 4.0}, "a");
    plot.add({5.0}, {6.0}, "b");
    EXPECT_EQ(GUI2D_CurveTable::text(plot.plotter(), ','),
              "a: XLabel,a: YLabel,b: XLabel,b: YLabel\n"
              "1.0000000000000000e+00,3.0000000000000000e+00,"
              "5.0000000000000000e+00,6.0000000000000000e+00\n"
              "2.0000000000000000e+00,4.0000000000000000e+00,,\n");
}

TEST(GUI2D_CurveTable, NamesThatWouldBreakTheTableAreQuoted)
{
    const TestPlot plot;
    plot.plotter().setXLabel("x\"y");
    plot.plotter().setYLabel("tab\there");
    plot.add({}, {}, "a,b");
    EXPECT_EQ(GUI2D_CurveTable::text(plot.plotter(), ','), "\"a,b: x\"\"y\",\"a,b: tab\there\"\n");
    EXPECT_EQ(GUI2D_CurveTable::text(plot.plotter(), '\t'),
              "\"a,b: x\"\"y\"\t\"a,b: tab\there\"\n");
}

TEST(GUI2D_CurveTable, NumbersReadBackExactly)
{
    const TestPlot plot;
    const double third = 1.0 / 3.0;
    plot.add({third}, {-std::numeric_limits<double>::infinity()}, "a");
    const std::string text = GUI2D_CurveTable::text(plot.plotter(), '\t');
    const std::string line = text.substr(text.find('\n') + 1);
    EXPECT_EQ(std::stod(line), third);
    EXPECT_TRUE(line.ends_with("\t-inf\n")) << line;
}

TEST(GUI2D_CurveTable, WithoutAShownCurveItIsEmpty)
{
    const TestPlot plot;
    EXPECT_EQ(GUI2D_CurveTable::text(plot.plotter(), ','), "");
    plot.add({1.0}, {2.0});
    plot.curve(0).setShown(false);
    EXPECT_EQ(GUI2D_CurveTable::text(plot.plotter(), ','), "");
}
