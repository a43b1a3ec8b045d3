#include "gui2d/GUI2D_Extremes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

GUI2D_Extremes::Range rangeOf(const double* values, std::size_t size)
{
    GUI2D_Extremes::Range range{infinity, -infinity};
    // The sum of the values times 0 is 0 if they all are finite, else not a number.
    double finite = 0.0;
    for (std::size_t i = 0; i < size; ++i) {
        range.mMin = std::min(range.mMin, values[i]);
        range.mMax = std::max(range.mMax, values[i]);
        finite += 0.0 * values[i];
    }
    return finite == 0.0 ? range : GUI2D_Extremes::Range{-infinity, infinity};
}

} // namespace

GUI2D_Extremes::GUI2D_Extremes(const double* values, std::size_t size)
    : mValues(values)
{
    const auto blocksOf = [](std::size_t count) { return (count + BLOCK - 1) / BLOCK; };
    if (size == 0) {
        return;
    }
    mLevels.emplace_back(blocksOf(size));
    for (std::size_t block = 0; block < mLevels[0].size(); ++block) {
        const std::size_t first = block * BLOCK;
        mLevels[0][block] = rangeOf(values + first, std::min(BLOCK, size - first));
    }
    while (mLevels.back().size() > 1) {
        const std::vector<Range>& fine = mLevels.back();
        std::vector<Range> coarse(blocksOf(fine.size()));
        for (std::size_t block = 0; block < coarse.size(); ++block) {
            Range& range = coarse[block];
            range = fine[block * BLOCK];
            const std::size_t end = std::min((block + 1) * BLOCK, fine.size());
            for (std::size_t i = block * BLOCK + 1; i < end; ++i) {
                range.combine(fine[i]);
            }
        }
        mLevels.push_back(std::move(coarse));
    }
}

std::size_t GUI2D_Extremes::blockSize(std::size_t level)
{
    std::size_t size = BLOCK;
    for (; level > 0; --level) {
        size *= BLOCK;
    }
    return size;
}

GUI2D_Extremes::Range GUI2D_Extremes::getRange(std::size_t first, std::size_t last) const
{
    Range range{infinity, -infinity};
    std::size_t begin = first;
    std::size_t end = last + 1;
    // What is left on both sides of the blocks of each level is taken from the level below.
    const auto fold = [&range](auto from, auto to, const auto& rangeAt) {
        for (; from < to; ++from) {
            range.combine(rangeAt(from));
        }
    };
    const auto value = [this](std::size_t i) { return rangeOf(mValues + i, 1); };
    const auto takeSides = [&](const auto& rangeAt) {
        const std::size_t upper = (begin + BLOCK - 1) / BLOCK;
        const std::size_t lower = end / BLOCK;
        if (upper >= lower) {
            fold(begin, end, rangeAt);
            begin = end = 0;
            return;
        }
        fold(begin, upper * BLOCK, rangeAt);
        fold(lower * BLOCK, end, rangeAt);
        begin = upper;
        end = lower;
    };
    takeSides(value);
    std::size_t level = 0;
    while (begin < end) {
        takeSides([this, level](std::size_t i) { return mLevels[level][i]; });
        ++level;
    }
    return range;
}
