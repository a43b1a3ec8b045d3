#include "mathUtil/revbin_permute.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace {

/// `i` with its `bits` lowest bits in reversed order.
unsigned long reversed(unsigned long i, unsigned long bits)
{
    unsigned long r = 0;
    for (unsigned long bit = 0; bit < bits; ++bit) {
        r = 2 * r + (i >> bit) % 2;
    }
    return r;
}

class revbin_permuteTest : public testing::TestWithParam<unsigned long>
{
protected:
    /// 0, 1, 2, ...
    static std::vector<double> indices()
    {
        std::vector<double> f(1UL << GetParam());
        std::iota(f.begin(), f.end(), 0.0);
        return f;
    }
};

TEST_P(revbin_permuteTest, EachValueMovesToItsReversedIndex)
{
    std::vector<double> f = indices();
    revbin_permute(f.data(), f.size());
    for (unsigned long i = 0; i < f.size(); ++i) {
        ASSERT_EQ(f[i], static_cast<double>(reversed(i, GetParam()))) << "i = " << i;
    }
}

TEST_P(revbin_permuteTest, TwiceIsNothing)
{
    std::vector<double> f = indices();
    revbin_permute(f.data(), f.size());
    revbin_permute(f.data(), f.size());
    EXPECT_EQ(f, indices());
}

INSTANTIATE_TEST_SUITE_P(Ldn, revbin_permuteTest, testing::Range(0UL, 13UL));

} // namespace
