#include "gui2d/GUI2D_Extremes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

std::vector<double> noise(std::size_t size)
{
    std::mt19937 random(size);
    std::normal_distribution<double> normal;
    std::vector<double> values(size);
    std::generate(values.begin(), values.end(), [&] { return normal(random); });
    return values;
}

} // namespace

class GUI2D_ExtremesOf : public testing::TestWithParam<int>
{};

TEST_P(GUI2D_ExtremesOf, AreThoseOfEachStretch)
{
    const std::vector<double> values = noise(GetParam());
    const GUI2D_Extremes extremes(values.data(), values.size());
    std::mt19937 random(1);
    for (int i = 0; i < 500; ++i) {
        std::size_t first = random() % values.size();
        std::size_t last = random() % values.size();
        if (first > last) {
            std::swap(first, last);
        }
        const auto [low, high] =
            std::minmax_element(values.begin() + first, values.begin() + last + 1);
        const GUI2D_Extremes::Range range = extremes.getRange(first, last);
        ASSERT_EQ(range.mMin, *low) << first << " to " << last;
        ASSERT_EQ(range.mMax, *high) << first << " to " << last;
    }
}

TEST_P(GUI2D_ExtremesOf, AreThoseOfEachBlock)
{
    const std::vector<double> values = noise(GetParam());
    const GUI2D_Extremes extremes(values.data(), values.size());
    ASSERT_GT(extremes.getLevels(), 0U);
    for (std::size_t level = 0; level < extremes.getLevels(); ++level) {
        const std::size_t size = GUI2D_Extremes::blockSize(level);
        for (std::size_t first = 0; first < values.size(); first += size) {
            const auto end = values.begin() + std::min(first + size, values.size());
            const auto [low, high] = std::minmax_element(values.begin() + first, end);
            ASSERT_EQ(extremes.getBlock(level, first / size).mMin, *low);
            ASSERT_EQ(extremes.getBlock(level, first / size).mMax, *high);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, GUI2D_ExtremesOf,
                         testing::Values(1, 2, 15, 16, 17, 255, 256, 257, 4095, 4097, 10000));

TEST(GUI2D_Extremes, AreInfiniteWhereAValueIsNotFinite)
{
    for (const double hole : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
        std::vector<double> values = noise(1000);
        values[500] = hole;
        const GUI2D_Extremes extremes(values.data(), values.size());
        for (const std::size_t first : {0U, 490U, 500U}) {
            const GUI2D_Extremes::Range range = extremes.getRange(first, 999);
            EXPECT_EQ(range.mMin, -infinity);
            EXPECT_EQ(range.mMax, infinity);
        }
        EXPECT_LT(extremes.getRange(0, 499).mMax, infinity);
        EXPECT_GT(extremes.getRange(501, 999).mMin, -infinity);
    }
}

TEST(GUI2D_Extremes, OfNothingHaveNoLevel)
{
    EXPECT_EQ(GUI2D_Extremes(nullptr, 0).getLevels(), 0U);
}
