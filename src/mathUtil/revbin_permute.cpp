#include "mathUtil/revbin_permute.h"

#include <bit>
#include <utility>

namespace {

/// For n above 8.
void permuteInFours(double* f, unsigned long n)
{
    // Bits of an index, the outermost ones first but for the two at the ends, and each beside its mirror
    // image; one in the middle is its own.
    unsigned long masks[64];
    unsigned long used = 0;
    for (unsigned long low = 2, high = n / 4; low <= high; low *= 2, high /= 2) {
        masks[used++] = low;
        masks[used++] = high;
    }

    // x and its reverse r walk through the n / 4 values whose first and last bit are zero; with these two bits
    // each stands for four indices. In Gray's order a step changes one bit of x and the mirrored one of r. The
    // outermost bits change most often, so that a few cache lines at both ends of the stride are used whole.
    const unsigned long half = n / 2;
    const unsigned long count = n / 4;
    unsigned long x = 0;
    unsigned long r = 0;
    for (unsigned long step = 1;; ++step) {
        if (x < r) {
            std::swap(f[x], f[r]);
            std::swap(f[x + 1], f[r + half]);
            std::swap(f[x + half], f[r + 1]);
            std::swap(f[x + half + 1], f[r + half + 1]);
        } else if (x == r) {
            std::swap(f[x + 1], f[x + half]);
        }
        if (step == count) {
            return;
        }
        const auto bit = static_cast<unsigned long>(std::countr_zero(step));
        x ^= masks[bit];
        r ^= masks[bit ^ 1];
    }
}

} // namespace

void revbin_permute(double* f, unsigned long n)
{
    if (n > 8) {
        permuteInFours(f, n);
    } else if (n == 8) {
        std::swap(f[1], f[4]);
        std::swap(f[3], f[6]);
    } else if (n == 4) {
        std::swap(f[1], f[2]);
    }
}
