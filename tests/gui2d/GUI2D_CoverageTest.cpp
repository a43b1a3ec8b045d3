#include "gui2d/GUI2D_Coverage.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <utility>
#include <vector>

namespace {

std::vector<QLine> linesOf(GUI2D_Coverage& coverage)
{
    std::vector<QLine> lines;
    coverage.takeLines(lines);
    return lines;
}

} // namespace

TEST(GUI2D_Coverage, JoinsWhatOverlapsOrTouches)
{
    GUI2D_Coverage coverage(10, 20, 5, 300);
    EXPECT_TRUE(coverage.add(12, 30, 40));
    EXPECT_TRUE(coverage.add(12, 50, 41));
    EXPECT_TRUE(coverage.add(12, 35, 35));
    EXPECT_TRUE(coverage.add(12, 52, 250));
    EXPECT_TRUE(coverage.add(14, 20, 20));
    EXPECT_TRUE(coverage.add(10, 319, 319));
    EXPECT_EQ(linesOf(coverage),
              (std::vector<QLine>{QLine(10, 319, 10, 319), QLine(12, 30, 12, 50),
                                  QLine(12, 52, 12, 250), QLine(14, 20, 14, 20)}));
    EXPECT_TRUE(linesOf(coverage).empty());
}

TEST(GUI2D_Coverage, RefusesWhatLiesOutside)
{
    GUI2D_Coverage coverage(0, 0, 4, 64);
    EXPECT_FALSE(coverage.add(-1, 1, 2));
    EXPECT_FALSE(coverage.add(4, 1, 2));
    EXPECT_FALSE(coverage.add(1, -1, 2));
    EXPECT_FALSE(coverage.add(1, 60, 64));
    EXPECT_TRUE(coverage.add(1, 63, 0));
    EXPECT_EQ(linesOf(coverage), (std::vector<QLine>{QLine(1, 0, 1, 63)}));
    GUI2D_Coverage none(0, 0, -3, -3);
    EXPECT_FALSE(none.add(0, 0, 0));
    EXPECT_TRUE(linesOf(none).empty());
}

TEST(GUI2D_Coverage, CoversWhatTheLinesCover)
{
    std::mt19937 random(3);
    for (int turn = 0; turn < 200; ++turn) {
        const int rows = 1 + static_cast<int>(random() % 200);
        GUI2D_Coverage coverage(-5, 7, 9, rows);
        std::set<std::pair<int, int>> wanted;
        for (int i = 0; i < 12; ++i) {
            const int column = -5 + static_cast<int>(random() % 9);
            const int from = 7 + static_cast<int>(random() % rows);
            const int to = std::min(from + static_cast<int>(random() % 30), 7 + rows - 1);
            ASSERT_TRUE(coverage.add(column, from, to));
            for (int row = from; row <= to; ++row) {
                wanted.emplace(column, row);
            }
        }
        std::set<std::pair<int, int>> covered;
        for (const QLine& line : linesOf(coverage)) {
            ASSERT_EQ(line.x1(), line.x2());
            for (int row = line.y1(); row <= line.y2(); ++row) {
                ASSERT_TRUE(covered.emplace(line.x1(), row).second);
            }
        }
        ASSERT_EQ(covered, wanted);
    }
}
