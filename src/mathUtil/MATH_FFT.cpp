#include "mathUtil/MATH_FFT.h"

#include "linearAlgebra/LA_ComplexVector.h"
#include "linearAlgebra/LA_RealVector.h"
#include "mathUtil/fht_fft.h"

#include <algorithm>
#include <bit>

namespace {

void transform(const double* values, unsigned long count, unsigned long powerOfTwo,
               LA_ComplexVector& out)
{
    if (count == 0) {
        out.setDimension(0);
        return;
    }
    const auto largest = static_cast<unsigned long>(std::bit_width(count)) - 1;
    const unsigned long ldn = std::min(powerOfTwo, largest);
    const unsigned long n = 1UL << ldn;
    std::vector<double> fr(values + (count - n), values + count);
    std::vector<double> fi(n);
    fht_fft(fr.data(), fi.data(), ldn, 1);
    out.setDimension(n);
    for (unsigned long i = 0; i < n; ++i) {
        out[i] = {fr[i], fi[i]};
    }
}

} // namespace

MATH_FFT::MATH_FFT()
{
    COM_TYPE(MATH_FFT);
}

void MATH_FFT::FastFourierTransform(const LA_RealVector& x, unsigned long powerOfTwo,
                                    LA_ComplexVector& out)
{
    transform(x.getValues(), x.getDimension(), powerOfTwo, out);
}

void MATH_FFT::FastFourierTransform(const std::vector<double>& x, unsigned long powerOfTwo,
                                    LA_ComplexVector& out)
{
    transform(x.data(), x.size(), powerOfTwo, out);
}

void MATH_FFT::FastFourierTransform(const double* values, int count, unsigned long powerOfTwo,
                                    LA_ComplexVector& out)
{
    transform(values, count > 0 ? static_cast<unsigned long>(count) : 0, powerOfTwo, out);
}
