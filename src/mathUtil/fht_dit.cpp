#include "mathUtil/fht_dit.h"

#include "mathUtil/revbin_permute.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double quarterPi = 0.7853981633974483;
constexpr double sqrt2 = 1.4142135623730951;
constexpr double cosPi4 = 0.7071067811865476;
constexpr double cosPi8 = 0.9238795325112867;
constexpr double sinPi8 = 0.3826834323650898;

// A pass joins four transforms of length l to one of length 4 l. Bit reversal has put them side by side: those
// of the samples 0, 2, 1 and 3 modulo 4, here g0, g1, g2 and g3. Two steps of
//
//     H[k] = E[k] + cos(2 pi k / n) O[k] + sin(2 pi k / n) O[n - k],
//
// E and O being the transforms of the even and the odd samples, are done at once: (g0, g1) becomes E and
// (g2, g3) becomes O with the angle 2 a, and these become H with the angle a = j (pi / 2) / l. The sums in k and
// l - k need the same inputs and have the same rotations, so that a pair is done together and in place.

/// The twiddles of angle a and of angle 2 a.
struct Twiddle
{
    double mC;
    double mS;
    double mC2;
    double mS2;
};

/// The four transforms at j and at l - j.
[[gnu::always_inline]] inline void joinPair(double& g0, double& g1, double& g2, double& g3,
                                            double& h0, double& h1, double& h2, double& h3,
                                            const Twiddle& w)
{
    const double a = w.mC2 * g1 + w.mS2 * h1;
    const double b = w.mS2 * g1 - w.mC2 * h1;
    const double c = w.mC2 * g3 + w.mS2 * h3;
    const double d = w.mS2 * g3 - w.mC2 * h3;
    const double evenG0 = g0 + a;
    const double evenG1 = g0 - a;
    const double evenH0 = h0 + b;
    const double evenH1 = h0 - b;
    const double oddG0 = g2 + c;
    const double oddG1 = g2 - c;
    const double oddH0 = h2 + d;
    const double oddH1 = h2 - d;
    const double p = w.mC * oddG0 + w.mS * oddH1;
    const double q = w.mS * oddG0 - w.mC * oddH1;
    const double r = w.mC * oddH0 - w.mS * oddG1;
    const double t = w.mS * oddH0 + w.mC * oddG1;
    g0 = evenG0 + p;
    g1 = evenG1 + r;
    g2 = evenG0 - p;
    g3 = evenG1 - r;
    h0 = evenH0 + t;
    h1 = evenH1 + q;
    h2 = evenH0 - t;
    h3 = evenH1 - q;
}

/// The four transforms at j = 0, which has no twiddles.
inline void joinFirst(double& g0, double& g1, double& g2, double& g3)
{
    const double even0 = g0 + g1;
    const double even1 = g0 - g1;
    const double odd0 = g2 + g3;
    const double odd1 = g2 - g3;
    g0 = even0 + odd0;
    g1 = even1 + odd1;
    g2 = even0 - odd0;
    g3 = even1 - odd1;
}

/// The four transforms at j = l / 2, its own mirror: a = pi / 4.
inline void joinMiddle(double& g0, double& g1, double& g2, double& g3)
{
    const double even0 = g0 + g1;
    const double even1 = g0 - g1;
    const double odd0 = sqrt2 * g2;
    const double odd1 = sqrt2 * g3;
    g0 = even0 + odd0;
    g1 = even1 + odd1;
    g2 = even0 - odd0;
    g3 = even1 - odd1;
}

/// Both for a group of four transforms of length `l`.
inline void joinFirstAndMiddle(double* f, unsigned long l)
{
    joinFirst(f[0], f[l], f[2 * l], f[3 * l]);
    double* const middle = f + l / 2;
    joinMiddle(middle[0], middle[l], middle[2 * l], middle[3 * l]);
}

void transform8(double* f)
{
    for (unsigned long i = 0; i < 8; i += 2) {
        const double difference = f[i] - f[i + 1];
        f[i] += f[i + 1];
        f[i + 1] = difference;
    }
    joinFirstAndMiddle(f, 2);
}

void transform16(double* f)
{
    for (unsigned long i = 0; i < 16; i += 4) {
        joinFirst(f[i], f[i + 1], f[i + 2], f[i + 3]);
    }
    joinFirstAndMiddle(f, 4);
    joinPair(f[1], f[5], f[9], f[13], f[3], f[7], f[11], f[15], {cosPi8, sinPi8, cosPi4, cosPi4});
}

/// The twiddles of neighbouring j, in columns. As many as fill a few cache lines of each row of a group: what
/// is fetched for one j then serves the next ones too, also where the groups of a pass overflow the cache.
struct Twiddles
{
    static constexpr unsigned long SIZE = 64;

    double mC[SIZE];
    double mS[SIZE];
    double mC2[SIZE];
    double mS2[SIZE];
};

void evaluate(Twiddles& w, unsigned long first, unsigned long count, double step)
{
    for (unsigned long t = 0; t < count; ++t) {
        const double angle = static_cast<double>(first + t) * step;
        w.mS[t] = std::sin(angle);
        w.mC[t] = std::cos(angle);
    }
    for (unsigned long t = 0; t < count; ++t) {
        w.mC2[t] = w.mC[t] * w.mC[t] - w.mS[t] * w.mS[t];
        w.mS2[t] = 2.0 * w.mS[t] * w.mC[t];
    }
}

/// `count` pairs of one group. The rows `g` start at the first j and go up, the rows `h` start at its mirror and
/// go down; they never meet, which is what lets neighbouring pairs go through vector registers together.
void joinPairs(double* __restrict g0, double* __restrict g1, double* __restrict g2,
               double* __restrict g3, double* __restrict h0, double* __restrict h1,
               double* __restrict h2, double* __restrict h3, const Twiddles& w, long count)
{
    for (long t = 0; t < count; ++t) {
        joinPair(g0[t], g1[t], g2[t], g3[t], h0[-t], h1[-t], h2[-t], h3[-t],
                 {w.mC[t], w.mS[t], w.mC2[t], w.mS2[t]});
    }
}

void pass(double* f, unsigned long n, unsigned long l)
{
    for (unsigned long i = 0; i < n; i += 4 * l) {
        joinFirstAndMiddle(f + i, l);
    }
    const unsigned long middle = l / 2;
    const double step = quarterPi / static_cast<double>(middle);
    Twiddles w{};
    for (unsigned long first = 1; first < middle;) {
        const unsigned long end = std::min((first / Twiddles::SIZE + 1) * Twiddles::SIZE, middle);
        evaluate(w, first, end - first, step);
        for (unsigned long i = 0; i < n; i += 4 * l) {
            double* const g = f + i + first;
            double* const h = f + i + l - first;
            joinPairs(g, g + l, g + 2 * l, g + 3 * l, h, h + l, h + 2 * l, h + 3 * l, w,
                      static_cast<long>(end - first));
        }
        first = end;
    }
}

} // namespace

void fht_dit(double* f, unsigned long ldn)
{
    if (ldn == 1) {
        const double difference = f[0] - f[1];
        f[0] += f[1];
        f[1] = difference;
    } else if (ldn == 2) {
        std::swap(f[1], f[2]);
        joinFirst(f[0], f[1], f[2], f[3]);
    } else if (ldn > 2) {
        revbin_permute(f, 1UL << ldn);
        fht_dit_core(f, ldn);
    }
}

void fht_dit_core(double* f, unsigned long ldn)
{
    const unsigned long n = 1UL << ldn;
    const bool isOdd = ldn % 2 != 0;
    if (isOdd) {
        for (unsigned long i = 0; i < n; i += 8) {
            transform8(f + i);
        }
    } else {
        for (unsigned long i = 0; i < n; i += 16) {
            transform16(f + i);
        }
    }
    for (unsigned long ldk = isOdd ? 3 : 4; ldk < ldn; ldk += 2) {
        pass(f, n, 1UL << ldk);
    }
}
