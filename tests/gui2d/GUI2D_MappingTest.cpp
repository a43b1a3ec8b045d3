#include "gui2d/GUI2D_Mapping.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The view 2 <= x <= 10, -1 <= y <= 3 on 160 x 80 pixels from (30, 12) on.
GUI2D_Mapping mapping()
{
    GUI2D_Mapping result;
    result.mOriginX = 2.0;
    result.mOriginY = 3.0;
    result.mWidth = 8.0;
    result.mHeight = 4.0;
    result.mScaleX = 20.0;
    result.mScaleY = 20.0;
    result.mGraphicsOrigin = {30, 12};
    return result;
}

} // namespace

TEST(GUI2D_Mapping, TheTopLeftCornerIsTheOriginAndYGrowsUpwards)
{
    const GUI2D_Mapping m = mapping();
    EXPECT_EQ(m.pixel(2.0, 3.0), QPoint(30, 12));
    EXPECT_EQ(m.pixel(10.0, -1.0), QPoint(190, 92));
    EXPECT_EQ(m.pixel(3.0, 0.0), QPoint(50, 72));
    EXPECT_EQ(m.xMin(), 2.0);
    EXPECT_EQ(m.xMax(), 10.0);
    EXPECT_EQ(m.yMin(), -1.0);
    EXPECT_EQ(m.yMax(), 3.0);
}

TEST(GUI2D_Mapping, PixelsAreRoundedTowardsMinusInfinity)
{
    const GUI2D_Mapping m = mapping();
    EXPECT_EQ(m.pixel(2.049, 3.0), QPoint(30, 12));
    EXPECT_EQ(m.pixel(1.999, 3.001), QPoint(29, 11));
    EXPECT_EQ(m.pixel(-1.001, 3.0), QPoint(-31, 12));
    EXPECT_DOUBLE_EQ(m.pixelX(2.02), 30.4);
    EXPECT_DOUBLE_EQ(m.pixelY(2.98), 12.4);
}

TEST(GUI2D_Mapping, ReversedAxesRunToTheLeftAndDownwards)
{
    GUI2D_Mapping m = mapping();
    m.mXDirection = -1;
    m.mYDirection = 1;
    EXPECT_EQ(m.pixel(3.0, 4.0), QPoint(10, 32));
    EXPECT_EQ(m.modelOfPixelX(10), 3.0);
    EXPECT_EQ(m.modelOfPixelY(32), 4.0);
}

TEST(GUI2D_Mapping, APixelLeadsBackToItsModelPoint)
{
    const GUI2D_Mapping m = mapping();
    EXPECT_EQ(m.modelOfPixelX(50), 3.0);
    EXPECT_EQ(m.modelOfPixelY(72), 0.0);
    EXPECT_EQ(m.modelOfPixelX(45), 2.75);
    EXPECT_EQ(m.modelOfPixelX(20), 1.5);
}

TEST(GUI2D_Mapping, FactorsThatAreNotPositiveDivideNothing)
{
    GUI2D_Mapping m;
    m.mXadim = 0.01;
    m.mYadim = 100.0;
    EXPECT_EQ(m.modelX(3.0), 300.0);
    EXPECT_EQ(m.modelY(3.0), 0.03);
    m.mXadim = 0.0;
    m.mYadim = -2.0;
    EXPECT_EQ(m.modelX(3.0), 3.0);
    EXPECT_EQ(m.modelY(3.0), 3.0);
    m.mXadim = notANumber;
    EXPECT_EQ(m.modelX(3.0), 3.0);
}

TEST(GUI2D_Mapping, PixelsThatCannotBeCountedLieFarAway)
{
    EXPECT_EQ(GUI2D_Mapping::toPixel(1e300), 1000000000);
    EXPECT_EQ(GUI2D_Mapping::toPixel(-infinity), -1000000000);
    EXPECT_EQ(GUI2D_Mapping::toPixel(notANumber), 0);
    EXPECT_EQ(GUI2D_Mapping::toPixel(999999999.9), 999999999);
    EXPECT_EQ(GUI2D_Mapping::toPixel(-0.5), -1);
}
