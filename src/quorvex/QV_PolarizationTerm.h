#pragma once
#include "quorvex/QV_Atoms.h"
#include "quorvex/QV_Inline.h"
#include "quorvex/QV_Pack.h"
#include "quorvex/QV_Unroll.h"

#include <algorithm>
#include <cmath>

/// What atoms of N levels put into Ampere's equation, worked out in the node loops while the densities that they have
/// just advanced are still in registers: `QV_FieldKernel::polarization` from the lower triangle of Hermitian densities.
///
/// It gives the same bits as the whole matrix. With a dipole that couples no level to itself, populations enter in
/// products with zero, on top of sums that began with +0, which a zero of either sign does not change as long as the
/// products are finite: tables below 1e100 and densities below 2 see to that. Others are left to the caller.
template <int N>
class QV_PolarizationTerm
{
public:
    QV_INLINE explicit QV_PolarizationTerm(const QV_Atoms& atoms)
        : mDzeta(atoms.mDzeta)
        , mHolds(holds(atoms))
    {
        std::copy_n(atoms.mPs, SIZE, mP);
        std::copy_n(atoms.mNu, 2 * SIZE, mNu);
    }

    /// The terms of W nodes. `block` has population(a), and re(a, c) and im(a, c) of the coherences, c < a. False
    /// when the term of these atoms, or of one of the densities, is not of this form.
    template <int W, typename Block>
    QV_INLINE bool compute(const Block& block, typename QV_Pack<W>::Real& term) const
    {
        using Real = typename QV_Pack<W>::Real;
        typename QV_Pack<W>::Mask bits{};
        Real sum{};
        QV_Unroll::each<N>([&](auto b) __attribute__((always_inline)) {
            QV_Pack<W>::addBits(block.population(b), bits);
            Real column{};
            QV_Unroll::each<N>([&](auto k) __attribute__((always_inline)) {
                constexpr int i = k * N + b;
                if constexpr (k > b) {
                    QV_Pack<W>::addBits(block.re(k, b), bits);
                    QV_Pack<W>::addBits(block.im(k, b), bits);
                    const Real X = -(mNu[2 * i] * block.re(k, b) - mNu[2 * i + 1] * block.im(k, b));
                    column += X * mP[b * N + k];
                } else if constexpr (k < b) { // the conjugate
                    const Real X = -(mNu[2 * i] * block.re(b, k) + mNu[2 * i + 1] * block.im(b, k));
                    column += X * mP[b * N + k];
                }
            });
            sum += column;
        });
        term = 0.0 + mDzeta * sum; // no -0
        bits &= TWO_OR_MORE;
        return mHolds && !QV_Pack<W>::isAnyBit(bits);
    }

private:
    static constexpr unsigned long SIZE = 1UL * N * N;
    static constexpr double BOUND = 1e100;
    static constexpr long TWO_OR_MORE = 1L << 62; // the first bit of the exponent

    /// One component, no permanent dipoles, and numbers small enough that nothing overflows with densities below 2.
    static bool holds(const QV_Atoms& atoms)
    {
        const auto isModerate = [](double x) { return std::fabs(x) < BOUND; };
        bool isPlain = atoms.mComponents == 1;
        for (int a = 0; a < N; ++a) {
            isPlain = isPlain && atoms.mPs[a * N + a] == 0.0;
        }
        return isPlain && std::all_of(atoms.mPs, atoms.mPs + SIZE, isModerate)
               && std::all_of(atoms.mD, atoms.mD + SIZE, isModerate)
               && std::all_of(atoms.mNu, atoms.mNu + 2 * SIZE, isModerate);
    }

    double mP[SIZE] = {};
    double mNu[2 * SIZE] = {};
    double mDzeta;
    bool mHolds;
};
