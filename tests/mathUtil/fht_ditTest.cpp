#include "mathUtil/fht_dit.h"

#include "DirectSum.h"
#include "mathUtil/revbin_permute.h"
#include "support/TestNumbers.h"
#include "TransformTolerance.h"

#include <gtest/gtest.h>

#include <complex>
#include <vector>

namespace {

TEST(fht_dit, OneValueStaysAsItIs)
{
    double f = 3.5;
    fht_dit(&f, 0);
    EXPECT_EQ(f, 3.5);
}

TEST(fht_dit, TwoValuesGiveSumAndDifference)
{
    std::vector<double> f = {5.0, 3.0};
    fht_dit(f.data(), 1);
    EXPECT_EQ(f, (std::vector<double>{8.0, 2.0}));
}

TEST(fht_dit, FourValuesAreExactInWholeNumbers)
{
    std::vector<double> f = {1.0, 20.0, 300.0, 4000.0};
    fht_dit(f.data(), 2);
    EXPECT_EQ(f, (std::vector<double>{4321.0, -4279.0, -3719.0, 3681.0}));
}

class fht_ditLengthTest : public testing::TestWithParam<unsigned long>
{};

TEST_P(fht_ditLengthTest, EqualsTheDirectSum)
{
    const unsigned long ldn = GetParam();
    const unsigned long n = 1UL << ldn;
    std::vector<double> f = randomNumbers(n);
    const DirectSum direct({f.begin(), f.end()});
    const double tolerance = transformTolerance(ldn, normOf(f));

    fht_dit(f.data(), ldn);

    for (unsigned long k = 0; k < n; ++k) {
        const auto expected = static_cast<double>(direct.cosine[k].real() + direct.sine[k].real());
        ASSERT_NEAR(f[k], expected, tolerance) << "k = " << k;
    }
}

/// Shorter transforms do without the core.
class fht_dit_coreTest : public testing::TestWithParam<unsigned long>
{};

TEST_P(fht_dit_coreTest, TakesValuesInReversedOrder)
{
    const unsigned long ldn = GetParam();
    std::vector<double> whole = randomNumbers(1UL << ldn);
    std::vector<double> f = whole;
    fht_dit(whole.data(), ldn);
    revbin_permute(f.data(), f.size());
    fht_dit_core(f.data(), ldn);
    EXPECT_EQ(f, whole);
}

TEST_P(fht_ditLengthTest, NothingBesideTheValuesIsTouched)
{
    const unsigned long ldn = GetParam();
    const unsigned long n = 1UL << ldn;
    std::vector<double> f = randomNumbers(n + 2);
    const double before = f.front();
    const double after = f.back();
    fht_dit(f.data() + 1, ldn);
    EXPECT_EQ(f.front(), before);
    EXPECT_EQ(f.back(), after);
}

INSTANTIATE_TEST_SUITE_P(Ldn, fht_ditLengthTest, testing::Range(0UL, 13UL));
INSTANTIATE_TEST_SUITE_P(Ldn, fht_dit_coreTest, testing::Range(3UL, 13UL));

} // namespace
