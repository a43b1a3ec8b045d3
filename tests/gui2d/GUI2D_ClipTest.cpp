#include "gui2d/GUI2D_Clip.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The view 0 <= x <= 8, 0 <= y <= 4 at 20 pixels a unit: (x, y) falls on (20 x, 80 - 20 y).
GUI2D_Mapping mapping()
{
    GUI2D_Mapping result;
    result.mOriginX = 0.0;
    result.mOriginY = 4.0;
    result.mWidth = 8.0;
    result.mHeight = 4.0;
    result.mScaleX = 20.0;
    result.mScaleY = 20.0;
    return result;
}

std::vector<QLine> clip(double x0, double y0, double x1, double y1)
{
    const GUI2D_Mapping m = mapping();
    const GUI2D_Clip::Lines lines = GUI2D_Clip::clip(m, m.point(x0, y0), m.point(x1, y1));
    return {lines.begin(), lines.end()};
}

using Lines = std::vector<QLine>;

} // namespace

TEST(GUI2D_Clip, ALineInsideIsKeptFromLeftToRight)
{
    EXPECT_EQ(clip(1.0, 1.0, 7.0, 3.0), Lines{QLine(20, 60, 140, 20)});
    EXPECT_EQ(clip(7.0, 3.0, 1.0, 1.0), Lines{QLine(20, 60, 140, 20)});
    EXPECT_EQ(clip(3.0, 1.0, 3.0, 1.0), Lines{QLine(60, 60, 60, 60)});
}

TEST(GUI2D_Clip, TheLimitsBelongToTheView)
{
    EXPECT_EQ(clip(0.0, 0.0, 8.0, 4.0), Lines{QLine(0, 80, 160, 0)});
    EXPECT_EQ(clip(0.0, 4.0, 8.0, 4.0), Lines{QLine(0, 0, 160, 0)});
}

TEST(GUI2D_Clip, ALineBesideTheViewLeavesNothing)
{
    EXPECT_EQ(clip(-3.0, 1.0, -1.0, 3.0), Lines{});
    EXPECT_EQ(clip(9.0, 1.0, 8.5, 3.0), Lines{});
    EXPECT_EQ(clip(-3.0, 5.0, 9.0, 4.5), Lines{});
    EXPECT_EQ(clip(-3.0, -5.0, 9.0, -0.5), Lines{});
}

TEST(GUI2D_Clip, ALinePastACornerLeavesNothing)
{
    EXPECT_EQ(clip(-2.0, 3.0, 1.0, 6.0), Lines{});
}

TEST(GUI2D_Clip, ALineThatLeavesEndsAtTheLimit)
{
    EXPECT_EQ(clip(4.0, 2.0, 12.0, 2.0), Lines{QLine(80, 40, 160, 40)});
    EXPECT_EQ(clip(4.0, 2.0, 4.0, 10.0), Lines{QLine(80, 40, 80, 0)});
    EXPECT_EQ(clip(4.0, 2.0, 4.0, -10.0), Lines{QLine(80, 40, 80, 80)});
}

TEST(GUI2D_Clip, ALineThatEntersBeginsAtTheLimit)
{
    EXPECT_EQ(clip(-4.0, 2.0, 4.0, 2.0), Lines{QLine(0, 40, 80, 40)});
    EXPECT_EQ(clip(4.0, 2.0, -4.0, 2.0), Lines{QLine(0, 40, 80, 40)});
}

TEST(GUI2D_Clip, ALineThroughTheViewKeepsItsMiddle)
{
    EXPECT_EQ(clip(-4.0, 2.0, 12.0, 2.0), Lines{QLine(0, 40, 160, 40)});
    EXPECT_EQ(clip(4.0, 12.0, 4.0, -4.0), Lines{QLine(80, 0, 80, 80)});
    // From (2, 4) to (6, 0).
    EXPECT_EQ(clip(-2.0, 8.0, 10.0, -4.0), Lines{QLine(40, 0, 120, 80)});
}

TEST(GUI2D_Clip, CrossingsAreCutTowardsTheFirstPixel)
{
    // t = 1 / 3 of the 140 pixels to the right and of the 7 downwards.
    EXPECT_EQ(clip(-7.0 / 3.0, 2.0, 14.0 / 3.0, 2.0 - 7.0 / 20.0),
              Lines{QLine(-47 + 46, 40 + 2, 93, 47)});
}

TEST(GUI2D_Clip, ALineThroughTwoCornersLeavesThoseAlone)
{
    // Each corner is crossed twice, by both of its limits: in and out again.
    EXPECT_EQ(clip(-8.0, -4.0, 16.0, 8.0), (Lines{QLine(0, 80, 0, 80), QLine(160, 0, 160, 0)}));
}

TEST(GUI2D_Clip, ASingleCrossingLeadsToTheSecondEnd)
{
    // Touches the corner (0, 4); rounding lets it cross one of the two limits there, and puts its pixel one
    // above.
    EXPECT_EQ(clip(-0.1, 3.7, 0.3, 4.9), Lines{QLine(0, -1, 6, -19)});
    // Ends on the limit itself.
    EXPECT_EQ(clip(-4.0, 2.0, 0.0, 2.0), Lines{QLine(0, 40, 0, 40)});
}

TEST(GUI2D_Clip, WhatBeginsOnALimitAndGoesOutLeavesNothing)
{
    EXPECT_EQ(clip(8.0, 2.0, 9.0, 2.0), Lines{});
}

TEST(GUI2D_Clip, PointsThatAreNotFiniteLeaveNothing)
{
    for (const double wrong : {infinity, -infinity, notANumber}) {
        EXPECT_EQ(clip(wrong, 2.0, 4.0, 2.0), Lines{});
        EXPECT_EQ(clip(1.0, wrong, 4.0, 2.0), Lines{});
        EXPECT_EQ(clip(1.0, 2.0, wrong, 2.0), Lines{});
        EXPECT_EQ(clip(1.0, 2.0, 4.0, wrong), Lines{});
    }
}

TEST(GUI2D_Clip, DataFarOutsideComeDownToTheView)
{
    EXPECT_EQ(clip(-1e300, 2.0, 1e300, 2.0), Lines{QLine(0, 40, 0, 40)});
    EXPECT_EQ(clip(-1e6, 2.0, 1e6, 2.0).size(), 1U);
    EXPECT_EQ(clip(-1e308, -1e308, 1e308, 1e308).size(), 0U);
}

TEST(GUI2D_Clip, NoLineLeavesTheViewByMoreThanItsRounding)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> x(-8.0, 16.0);
    std::uniform_real_distribution<double> y(-4.0, 8.0);
    int kept = 0;
    for (int i = 0; i < 20000; ++i) {
        for (const QLine& line : clip(x(random), y(random), x(random), y(random))) {
            ++kept;
            for (const QPoint& end : {line.p1(), line.p2()}) {
                // A pixel for the floor of the ends and one for that of the crossing.
                ASSERT_GE(end.x(), -2);
                ASSERT_LE(end.x(), 162);
                ASSERT_GE(end.y(), -2);
                ASSERT_LE(end.y(), 82);
            }
        }
    }
    EXPECT_GT(kept, 5000);
}
