#pragma once
#include "common/COM_Object.h"

#include <vector>

class LA_ComplexVector;
class LA_RealVector;

/// The spectrum of a sampled signal.
///
/// The last N = 2^powerOfTwo samples are transformed; a signal of fewer is cut down to the largest power of
/// two that it holds, never filled up. With x[0..N) the samples taken
///
///     out[k] = sum over m of x[m] exp(+2 pi i m k / N),
///
/// without a scaling factor, frequency 0 first; `LA_Vector::shift` centres it. Of an empty signal the
/// spectrum is empty.
class MATH_FFT : public virtual COM_Object
{
    COM_CLASS(MATH_FFT)
public:
    static void FastFourierTransform(const LA_RealVector& x, unsigned long powerOfTwo,
                                     LA_ComplexVector& out);
    static void FastFourierTransform(const std::vector<double>& x, unsigned long powerOfTwo,
                                     LA_ComplexVector& out);
    /// A `count` below 1 is an empty signal.
    static void FastFourierTransform(const double* values, int count, unsigned long powerOfTwo,
                                     LA_ComplexVector& out);

protected:
    MATH_FFT();
    ~MATH_FFT() override = default;
};
