#pragma once
#include <cstddef>
#include <vector>

/// The smallest and greatest value of every stretch of a series, at hand in a few steps whatever its length: a
/// tree of blocks, sixteen in each larger one.
class GUI2D_Extremes
{
public:
    struct Range
    {
        double mMin;
        double mMax;

        void combine(const Range& other)
        {
            mMin = other.mMin < mMin ? other.mMin : mMin;
            mMax = other.mMax > mMax ? other.mMax : mMax;
        }
    };

    /// Values in a block, and blocks in the next larger one.
    static constexpr std::size_t BLOCK = 16;

    GUI2D_Extremes() = default;
    /// Borrows the values.
    GUI2D_Extremes(const double* values, std::size_t size);

    /// Levels of blocks. Level 0 has blocks of `BLOCK` values.
    std::size_t getLevels() const { return mLevels.size(); }
    /// How many values a block of that level covers.
    static std::size_t blockSize(std::size_t level);
    /// The extremes of a block. One that holds a value which is not finite has infinite ones.
    const Range& getBlock(std::size_t level, std::size_t block) const
    {
        return mLevels[level][block];
    }
    /// The extremes of the values from `first` to `last`, under the same rule. Requires: first <= last.
    Range getRange(std::size_t first, std::size_t last) const;

private:
    const double* mValues = nullptr;
    std::vector<std::vector<Range>> mLevels;
};
