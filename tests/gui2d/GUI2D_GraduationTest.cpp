#include "gui2d/GUI2D_Graduation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct Extent
{
    double mExtent;
    long mExponent;
};

class GUI2D_GraduationExtentTest : public testing::TestWithParam<Extent>
{};

std::size_t ticksOf(double extent)
{
    const long exponent = GUI2D_Graduation::exponentFor(extent);
    return GUI2D_Graduation::between(0.0, extent, exponent).mTicks.size();
}

} // namespace

TEST_P(GUI2D_GraduationExtentTest, TheStepFollowsTheExtent)
{
    EXPECT_EQ(GUI2D_Graduation::exponentFor(GetParam().mExtent), GetParam().mExponent);
}

INSTANTIATE_TEST_SUITE_P(Table, GUI2D_GraduationExtentTest,
                         testing::Values(Extent{10.0, 0}, Extent{30.0, 1}, Extent{1.0, -1},
                                         Extent{1.99, -1}, Extent{2.01, 0}, Extent{4.99, 0},
                                         Extent{5.01, 0}, Extent{9.99, 0}, Extent{19.9, 0},
                                         Extent{20.1, 1}, Extent{100.0, 1}, Extent{0.015, -3},
                                         Extent{0.03, -2}, Extent{2.1e-24, -24}, Extent{0.0, 0},
                                         Extent{-1.0, 0}, Extent{infinity, 0},
                                         Extent{notANumber, 0}));

TEST(GUI2D_Graduation, ThereAreTenToTwentyStepsBelowTwiceAPowerOfTenElseTwoToTen)
{
    for (int k = -20; k <= 20; ++k) {
        const double power = std::pow(10.0, k);
        for (double m = 1.0; m < 9.95; m += 0.1) {
            const double steps =
                m * power / GUI2D_Graduation::power(GUI2D_Graduation::exponentFor(m * power));
            // At 2 itself either rule may hold.
            const bool isFine = m < 1.95;
            const bool isCoarse = m > 2.05;
            EXPECT_GT(steps, isFine ? 9.99 : 1.99) << m << "e" << k;
            EXPECT_LT(steps, isCoarse ? 10.01 : 20.51) << m << "e" << k;
        }
    }
}

TEST(GUI2D_Graduation, TheMultiplesOfTheStepLieWithinTheLimits)
{
    const GUI2D_Graduation ticks = GUI2D_Graduation::between(-0.5, 3.0, 0);
    EXPECT_EQ(ticks.mTicks, (std::vector<double>{0.0, 1.0, 2.0, 3.0}));
    EXPECT_FALSE(ticks.mIsEmpty);
    EXPECT_EQ(GUI2D_Graduation::between(-30.0, -9.0, 1).mTicks,
              (std::vector<double>{-30.0, -20.0, -10.0}));
    EXPECT_EQ(GUI2D_Graduation::between(0.0, 0.5, -1).mTicks.size(), 6U);
    EXPECT_EQ(ticksOf(10.0), 11U);
    EXPECT_EQ(ticksOf(30.0), 4U);
}

TEST(GUI2D_Graduation, TheLastValueLookedAtMayLieBeyondTheLimit)
{
    EXPECT_EQ(GUI2D_Graduation::between(0.0, 3.5, 0).mLast, 4.0);
    const GUI2D_Graduation none = GUI2D_Graduation::between(0.2, 0.8, 0);
    EXPECT_TRUE(none.mTicks.empty());
    EXPECT_FALSE(none.mIsEmpty);
    EXPECT_EQ(none.mLast, 1.0);
}

TEST(GUI2D_Graduation, LimitsInTheWrongOrderHaveNone)
{
    const GUI2D_Graduation ticks = GUI2D_Graduation::between(5.0, 1.0, 0);
    EXPECT_TRUE(ticks.mTicks.empty());
    EXPECT_TRUE(ticks.mIsEmpty);
}

TEST(GUI2D_Graduation, LimitsThatAreNotFiniteHaveNone)
{
    for (const double wrong : {infinity, -infinity, notANumber}) {
        EXPECT_TRUE(GUI2D_Graduation::between(0.0, wrong, 0).mTicks.empty());
        EXPECT_TRUE(GUI2D_Graduation::between(wrong, 1.0, 0).mTicks.empty());
        EXPECT_TRUE(GUI2D_Graduation::between(wrong, 1.0, 0).mIsEmpty);
    }
    EXPECT_TRUE(GUI2D_Graduation::between(0.0, 1.0, 400).mTicks.empty());
    EXPECT_TRUE(GUI2D_Graduation::between(0.0, 1.0, -400).mTicks.empty());
}

TEST(GUI2D_Graduation, NoScaleHasMoreThanAThousand)
{
    const GUI2D_Graduation ticks = GUI2D_Graduation::between(0.0, 1.0, -20);
    EXPECT_LE(ticks.mTicks.size(), 1000U);
    EXPECT_GE(ticks.mTicks.size(), 990U);
}

TEST(GUI2D_Graduation, FarFromZeroTheMultiplesExceedEveryInteger)
{
    const double place = 1e24;
    const GUI2D_Graduation ticks = GUI2D_Graduation::between(place, place + 1e10, -2);
    EXPECT_FALSE(ticks.mIsEmpty);
    EXPECT_LE(ticks.mTicks.size(), 1000U);
}

TEST(GUI2D_Graduation, NegativePowersAreReciprocals)
{
    EXPECT_EQ(GUI2D_Graduation::power(3), 1000.0);
    EXPECT_EQ(GUI2D_Graduation::power(0), 1.0);
    EXPECT_EQ(GUI2D_Graduation::power(-15), 1.0 / 1e15);
    EXPECT_EQ(GUI2D_Graduation::power(-1), 0.1);
}
