#include "mathUtil/MATH_FFT.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_ComplexVector.h"
#include "linearAlgebra/LA_RealVector.h"
#include "mathUtil/fht_fft.h"
#include "support/TestNumbers.h"
#include "TransformTolerance.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <vector>

namespace {

using Spectrum = std::vector<std::complex<double>>;

/// What stands in `out` before: a transform must leave nothing of it.
LA_ComplexVector* newUsedVector()
{
    auto* const out = LA_ComplexVector::New(3UL);
    for (unsigned long i = 0; i < out->getDimension(); ++i) {
        (*out)[i] = {7.0, -7.0};
    }
    return out;
}

Spectrum spectrumOf(const LA_ComplexVector& out)
{
    return {out.getValues(), out.getValues() + out.getDimension()};
}

Spectrum transformed(const std::vector<double>& x, unsigned long powerOfTwo)
{
    const COM_Scoped out(newUsedVector());
    MATH_FFT::FastFourierTransform(x, powerOfTwo, *out);
    return spectrumOf(*out);
}

Spectrum transformedAsVector(const std::vector<double>& x, unsigned long powerOfTwo)
{
    const COM_Scoped in(LA_RealVector::New(0UL));
    in->setValues(x);
    const COM_Scoped out(newUsedVector());
    MATH_FFT::FastFourierTransform(*in, powerOfTwo, *out);
    return spectrumOf(*out);
}

Spectrum transformedAsArray(const std::vector<double>& x, unsigned long powerOfTwo)
{
    const COM_Scoped out(newUsedVector());
    MATH_FFT::FastFourierTransform(x.data(), static_cast<int>(x.size()), powerOfTwo, *out);
    return spectrumOf(*out);
}

TEST(MATH_FFT, HasItsOwnName)
{
    const COM_Scoped fft(MATH_FFT::New());
    EXPECT_TRUE(fft->instanceOf("MATH_FFT"));
    EXPECT_EQ(fft->getTypes().back(), "MATH_FFT");
    EXPECT_EQ(fft->getReferenceCount(), 1);
}

TEST(MATH_FFT, AnImpulseAtTheStartIsOneAtEveryFrequency)
{
    for (unsigned long p = 0; p <= 10; ++p) {
        std::vector<double> x(1UL << p);
        x[0] = 1.0;
        EXPECT_EQ(transformed(x, p), Spectrum(x.size(), {1.0, 0.0})) << "p = " << p;
    }
}

TEST(MATH_FFT, TheSignOfTheExponentIsPositive)
{
    const unsigned long p = 5;
    const unsigned long n = 1UL << p;
    std::vector<double> x(n);
    x[1] = 1.0;
    const Spectrum out = transformed(x, p);
    ASSERT_EQ(out.size(), n);
    for (unsigned long k = 0; k < n; ++k) {
        const std::complex<double> expected = std::polar(
            1.0, 2.0 * std::numbers::pi * static_cast<double>(k) / static_cast<double>(n));
        EXPECT_LE(std::abs(out[k] - expected), transformTolerance(p, 1.0)) << "k = " << k;
    }
}

TEST(MATH_FFT, AConstantStandsAtFrequencyZeroWithoutDivision)
{
    Spectrum expected(8);
    expected[0] = 20.0;
    EXPECT_EQ(transformed(std::vector<double>(8, 2.5), 3), expected);
}

TEST(MATH_FFT, FiveSamplesWithPowerThreeUseTheLastFour)
{
    const std::vector<double> x = {1000.0, 1.0, 2.0, 4.0, 8.0};
    const Spectrum expected = {{15.0, 0.0}, {-3.0, -6.0}, {-5.0, 0.0}, {-3.0, 6.0}};
    EXPECT_EQ(transformed(x, 3), expected);
}

TEST(MATH_FFT, ALongerSignalUsesOnlyItsLastSamples)
{
    const std::vector<double> x = randomNumbers(37);
    EXPECT_EQ(transformed(x, 4), transformed({x.end() - 16, x.end()}, 4));
}

TEST(MATH_FFT, PowerZeroGivesTheLastSample)
{
    EXPECT_EQ(transformed({3.0, 4.0, 5.0}, 0), Spectrum(1, {5.0, 0.0}));
    EXPECT_EQ(transformed({3.0}, 0), Spectrum(1, {3.0, 0.0}));
}

TEST(MATH_FFT, ASignalIsCutDownToTheLargestPowerOfTwoNeverFilledUp)
{
    for (unsigned long count = 1; count <= 130; ++count) {
        const std::vector<double> x = randomNumbers(count);
        const unsigned long n = std::bit_floor(count);
        const auto p = static_cast<unsigned long>(std::countr_zero(n));
        const Spectrum expected = transformed({x.end() - static_cast<long>(n), x.end()}, p);
        ASSERT_EQ(expected.size(), n);
        EXPECT_EQ(transformed(x, p + 1), expected) << count << " samples";
        EXPECT_EQ(transformed(x, p), expected) << count << " samples";
    }
}

TEST(MATH_FFT, PowersBeyondTheBitsOfANumberAreCutDownToo)
{
    const std::vector<double> x = randomNumbers(9);
    const Spectrum expected = transformed(x, 3);
    ASSERT_EQ(expected.size(), 8U);
    for (const unsigned long p :
         {31UL, 32UL, 63UL, 64UL, 65UL, std::numeric_limits<unsigned long>::max()}) {
        EXPECT_EQ(transformed(x, p), expected) << "p = " << p;
    }
}

TEST(MATH_FFT, AnEmptySignalGivesAnEmptySpectrum)
{
    EXPECT_EQ(transformed({}, 3), Spectrum());
    EXPECT_EQ(transformedAsVector({}, 3), Spectrum());
    EXPECT_EQ(transformedAsArray({}, 3), Spectrum());
    EXPECT_EQ(transformed({}, 0), Spectrum());
}

TEST(MATH_FFT, ANegativeCountIsAnEmptySignal)
{
    const double value = 1.0;
    const COM_Scoped out(newUsedVector());
    MATH_FFT::FastFourierTransform(&value, -1, 0, *out);
    EXPECT_EQ(out->getDimension(), 0U);
}

TEST(MATH_FFT, AllFormsGiveTheSame)
{
    for (const unsigned long count : {1UL, 2UL, 5UL, 64UL, 100UL}) {
        const std::vector<double> x = randomNumbers(count);
        for (unsigned long p = 0; p <= 8; ++p) {
            const Spectrum expected = transformed(x, p);
            EXPECT_EQ(transformedAsVector(x, p), expected);
            EXPECT_EQ(transformedAsArray(x, p), expected);
        }
    }
}

TEST(MATH_FFT, IsTheTransformWithoutAnImaginaryPart)
{
    for (unsigned long p = 0; p <= 12; ++p) {
        std::vector<double> fr = randomNumbers(1UL << p);
        std::vector<double> fi(fr.size());
        const Spectrum out = transformed(fr, p);
        fht_fft(fr.data(), fi.data(), p, 1);
        ASSERT_EQ(out.size(), fr.size());
        for (unsigned long k = 0; k < fr.size(); ++k) {
            ASSERT_EQ(out[k], std::complex<double>(fr[k], fi[k])) << "p = " << p << ", k = " << k;
        }
    }
}

} // namespace
