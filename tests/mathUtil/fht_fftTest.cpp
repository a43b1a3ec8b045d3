#include "mathUtil/fht_fft.h"

#include "DirectSum.h"
#include "mathUtil/fht_dit.h"
#include "support/TestNumbers.h"
#include "TransformTolerance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

namespace {

/// A complex signal in two halves.
struct Signal
{
    explicit Signal(unsigned long ldn)
        : fr(1UL << ldn)
        , fi(1UL << ldn)
    {
        TestNumbers numbers(ldn);
        for (unsigned long i = 0; i < fr.size(); ++i) {
            fr[i] = numbers.next();
            fi[i] = numbers.next();
        }
    }
    std::vector<std::complex<double>> joined() const
    {
        std::vector<std::complex<double>> values;
        for (unsigned long i = 0; i < fr.size(); ++i) {
            values.emplace_back(fr[i], fi[i]);
        }
        return values;
    }
    double norm() const { return std::hypot(normOf(fr), normOf(fi)); }
    bool operator==(const Signal&) const = default;

    std::vector<double> fr;
    std::vector<double> fi;
};

class fht_fftTest : public testing::TestWithParam<unsigned long>
{};

TEST_P(fht_fftTest, EqualsTheDirectSumWithBothSigns)
{
    const unsigned long ldn = GetParam();
    const Signal signal(ldn);
    const DirectSum direct(signal.joined());
    const double tolerance = transformTolerance(ldn, signal.norm());
    const DirectSum::Number i(0.0L, 1.0L);

    Signal plus = signal;
    fht_fft(plus.fr.data(), plus.fi.data(), ldn, 1);
    Signal minus = signal;
    fht_fft(minus.fr.data(), minus.fi.data(), ldn, -1);

    for (unsigned long k = 0; k < signal.fr.size(); ++k) {
        const DirectSum::Number expectedPlus = direct.cosine[k] + i * direct.sine[k];
        const DirectSum::Number expectedMinus = direct.cosine[k] - i * direct.sine[k];
        const DirectSum::Number foundPlus(plus.fr[k], plus.fi[k]);
        const DirectSum::Number foundMinus(minus.fr[k], minus.fi[k]);
        ASSERT_LE(std::abs(foundPlus - expectedPlus), tolerance) << "k = " << k;
        ASSERT_LE(std::abs(foundMinus - expectedMinus), tolerance) << "k = " << k;
    }
}

TEST_P(fht_fftTest, IsTwoHartleyTransformsAndTheConversion)
{
    const unsigned long ldn = GetParam();
    for (const int is : {1, -1}) {
        Signal whole(ldn);
        Signal parts = whole;
        fht_fft(whole.fr.data(), whole.fi.data(), ldn, is);
        fht_dit(parts.fr.data(), ldn);
        fht_dit(parts.fi.data(), ldn);
        fht_fft_conversion(parts.fr.data(), parts.fi.data(), ldn, is);
        EXPECT_EQ(whole, parts);
    }
}

TEST_P(fht_fftTest, ConversionLeavesTheFirstAndTheMiddleElement)
{
    const unsigned long ldn = GetParam();
    const unsigned long middle = (1UL << ldn) / 2;
    for (const int is : {1, 0}) {
        const Signal before(ldn);
        Signal after = before;
        fht_fft_conversion(after.fr.data(), after.fi.data(), ldn, is);
        for (unsigned long k = 0; k < before.fr.size(); ++k) {
            const bool kept = k == 0 || k == middle;
            EXPECT_EQ(after.fr[k] == before.fr[k], kept) << "k = " << k;
            EXPECT_EQ(after.fi[k] == before.fi[k], kept) << "k = " << k;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Ldn, fht_fftTest, testing::Range(0UL, 13UL));

TEST(fht_fft, AnySignAboveZeroIsPositiveAndZeroIsNegative)
{
    const unsigned long ldn = 4;
    Signal one(ldn);
    Signal seven = one;
    Signal zero = one;
    Signal minusOne = one;
    fht_fft(one.fr.data(), one.fi.data(), ldn, 1);
    fht_fft(seven.fr.data(), seven.fi.data(), ldn, 7);
    fht_fft(zero.fr.data(), zero.fi.data(), ldn, 0);
    fht_fft(minusOne.fr.data(), minusOne.fi.data(), ldn, -1);
    EXPECT_EQ(seven, one);
    EXPECT_EQ(zero, minusOne);
    EXPECT_NE(zero, one);
}

TEST(fht_fft_conversion, MixesAMirroredPair)
{
    const Signal before(2);
    const double a = 10.0;
    const double b = 200.0;
    const double c = 3000.0;
    const double d = 40000.0;
    for (const int is : {1, -1}) {
        Signal f = before;
        f.fr[1] = a;
        f.fr[3] = b;
        f.fi[1] = c;
        f.fi[3] = d;
        fht_fft_conversion(f.fr.data(), f.fi.data(), 2, is);
        const double sign = is;
        EXPECT_EQ(f.fr[3], (a + b + sign * (c - d)) * 0.5);
        EXPECT_EQ(f.fr[1], (a + b - sign * (c - d)) * 0.5);
        EXPECT_EQ(f.fi[1], (c + d + sign * (a - b)) * 0.5);
        EXPECT_EQ(f.fi[3], (c + d - sign * (a - b)) * 0.5);
    }
}

class fht_fftRoundTripTest : public testing::TestWithParam<unsigned long>
{};

TEST_P(fht_fftRoundTripTest, TheOppositeSignLeadsBack)
{
    const unsigned long ldn = GetParam();
    const Signal signal(ldn);
    const auto n = static_cast<double>(signal.fr.size());
    Signal f = signal;
    fht_fft(f.fr.data(), f.fi.data(), ldn, 1);
    fht_fft(f.fr.data(), f.fi.data(), ldn, -1);
    // Relative errors of both ways add up; the second starts from sqrt(n) times the norm and n is divided out.
    const double tolerance = 2.0 * transformTolerance(ldn, signal.norm()) / std::sqrt(n);
    for (unsigned long i = 0; i < signal.fr.size(); ++i) {
        ASSERT_NEAR(f.fr[i] / n, signal.fr[i], tolerance) << "i = " << i;
        ASSERT_NEAR(f.fi[i] / n, signal.fi[i], tolerance) << "i = " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Ldn, fht_fftRoundTripTest, testing::Values(13, 14, 17, 18));

} // namespace
