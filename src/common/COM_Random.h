#pragma once
#include "common/COM_Object.h"

/// Gaussian random numbers, seeded by the processor time that the process has used.
///
/// A linear congruential generator feeds Marsaglia's polar form of the Box-Muller transform. Two calls
/// within one tick of the clock give the same numbers.
class COM_Random : public virtual COM_Object
{
    COM_CLASS(COM_Random)
public:
    /// Fills `out[0..n)` with samples of mean `mean` and standard deviation `deltaType`.
    static void gauss(double mean, double deltaType, unsigned long n, double* out);
    /// One sample, or not-a-number when the single draw falls outside the unit circle.
    static double gauss(double mean, double deltaType);

protected:
    COM_Random();
    ~COM_Random() override = default;

private:
    static const long M_A; ///< Factor of the generator.
    static const long M_B; ///< Increment.
    static const long M_M; ///< Modulus.

    /// One step of the generator, which moves `t` on; returns false if the draw is to be repeated.
    static bool draw(long& t, double& value);
};
