#include "mathUtil/fht_fft.h"

#include "mathUtil/fht_dit.h"

namespace {

// With H = C + S, the cosine and the sine sum, H[n - k] = C - S. Half the sum and half the difference of a
// mirrored pair are therefore the real and the imaginary part that each real input gives to F[k]; the input
// fi enters with a factor of i.
//
// `up` pointers stand on element 1 and move up, `down` pointers on n - 1 and move down; they never meet.
void convert(double* __restrict upR, double* __restrict downR, double* __restrict upI,
             double* __restrict downI, long count, double sign)
{
    for (long i = 0; i < count; ++i) {
        const double realSum = upR[i] + downR[-i];
        const double imagSum = upI[i] + downI[-i];
        const double realDifference = sign * (upR[i] - downR[-i]);
        const double imagDifference = sign * (upI[i] - downI[-i]);
        downR[-i] = (realSum + imagDifference) * 0.5;
        upR[i] = (realSum - imagDifference) * 0.5;
        upI[i] = (imagSum + realDifference) * 0.5;
        downI[-i] = (imagSum - realDifference) * 0.5;
    }
}

} // namespace

void fht_fft(double* fr, double* fi, unsigned long ldn, int is)
{
    fht_dit(fr, ldn);
    fht_dit(fi, ldn);
    fht_fft_conversion(fr, fi, ldn, is);
}

void fht_fft_conversion(double* fr, double* fi, unsigned long ldn, int is)
{
    const unsigned long n = 1UL << ldn;
    if (n < 3) {
        return;
    }
    convert(fr + 1, fr + n - 1, fi + 1, fi + n - 1, static_cast<long>(n / 2 - 1),
            is >= 1 ? 1.0 : -1.0);
}
