#pragma once
#include "quorvex/QV_Inline.h"
#include "quorvex/QV_Pack.h"
#include "quorvex/QV_PackComplex.h"

#include <limits>

/// The iterates of W nodes with N levels whose densities are Hermitian with real populations: the lower
/// triangle stands for the whole, which halves the work of an iteration.
///
/// It gives the bits of the full matrix, since a rounded result and its negative have the same digits: the
/// upper triangle is the lower one with the imaginary parts negated, exactly. What is added to a number other
/// than -0.0 may be a zero of either sign, so products with a zero factor may be left out. Both hold
/// while all values are finite. `load` tells whether the block may be used at all, `isKeptFinite` whether it has
/// stayed finite: a value that is not comes back in the next iterate of the same element, and stays.
template <int W, int N>
struct QV_HermitianBlock
{
    using Pack = QV_Pack<W>;
    using Real = typename Pack::Real;
    using Mask = typename Pack::Mask;
    using Complex = QV_PackComplex<Real>;

    static constexpr unsigned long LEVELS = N;
    static constexpr unsigned long PAIRS = LEVELS * (LEVELS - 1) / 2;

    /// Coherences [a][c] stand at `pair(a, c)`.
    struct State
    {
        Real mE;
        Real mPopulations[LEVELS];
        Complex mCoherences[PAIRS];
    };

    State mEntry;    ///< As it stood at entry.
    State mIterate;  ///< Present iterate.
    State mPrevious; ///< Previous iterate.
    State mSum;      ///< Previous iterate and entry; the field is not summed.
    State mKept;     ///< Last iterate of the nodes that have come to an end.
    Real mAux;

    /// The place of two levels, in any order.
    QV_INLINE static constexpr unsigned long pair(unsigned long a, unsigned long c)
    {
        return a > c ? a * (a - 1) / 2 + c : c * (c - 1) / 2 + a;
    }

    /// Reads the densities (2 n n numbers a node), the field and, if there is one, the auxiliary field. A lane of
    /// `refused` is other than 0 where the density is not Hermitian with real populations, or where a value to
    /// which the schemes add is -0.0.
    QV_INLINE void load(const double* rho, const double* E, const double* aux, Mask& refused)
    {
        Real re[N * N];
        Real im[N * N];
        Pack::template loadComplex<N * N>(rho, re, im);
        Pack::loadRow(E, mEntry.mE);
        mAux = Real{};
        if (aux != nullptr) {
            Pack::loadRow(aux, mAux);
        }
        // A difference of equal numbers is +0.0, which has no bit set. Read as an integer, -0.0 is the least
        // of all numbers.
        Mask unequal{};
        Mask least{};
        addLeast(mEntry.mE, least);
#pragma GCC unroll 8
        for (unsigned long a = 0; a < LEVELS; ++a) {
            mEntry.mPopulations[a] = re[a * LEVELS + a];
            Pack::addBits(im[a * LEVELS + a], unequal);
            addLeast(mEntry.mPopulations[a], least);
#pragma GCC unroll 8
            for (unsigned long c = 0; c < a; ++c) {
                const unsigned long low = a * LEVELS + c;
                const unsigned long high = c * LEVELS + a;
                mEntry.mCoherences[pair(a, c)].mRe = re[low];
                mEntry.mCoherences[pair(a, c)].mIm = im[low];
                Pack::addBits(re[high] - re[low], unequal);
                Pack::addBits(im[high] + im[low], unequal);
                addLeast(re[low], least);
                addLeast(im[low], least);
            }
        }
        refused = unequal | (least == std::numeric_limits<long>::min());
        mIterate = mEntry;
        mKept = mEntry;
    }

    /// Makes the present iterate the previous one.
    QV_INLINE void turn()
    {
        mPrevious = mIterate;
#pragma GCC unroll 8
        for (unsigned long a = 0; a < LEVELS; ++a) {
            mSum.mPopulations[a] = mPrevious.mPopulations[a] + mEntry.mPopulations[a];
        }
#pragma GCC unroll 8
        for (unsigned long i = 0; i < PAIRS; ++i) {
            mSum.mCoherences[i].mRe = mPrevious.mCoherences[i].mRe + mEntry.mCoherences[i].mRe;
            mSum.mCoherences[i].mIm = mPrevious.mCoherences[i].mIm + mEntry.mCoherences[i].mIm;
        }
    }

    /// Keeps the present iterate in the lanes that have come to an end.
    QV_INLINE void keep(const Mask& ended)
    {
        mKept.mE = ended ? mIterate.mE : mKept.mE;
#pragma GCC unroll 8
        for (unsigned long a = 0; a < LEVELS; ++a) {
            mKept.mPopulations[a] = ended ? mIterate.mPopulations[a] : mKept.mPopulations[a];
        }
#pragma GCC unroll 8
        for (unsigned long i = 0; i < PAIRS; ++i) {
            const Complex& now = mIterate.mCoherences[i];
            mKept.mCoherences[i].mRe = ended ? now.mRe : mKept.mCoherences[i].mRe;
            mKept.mCoherences[i].mIm = ended ? now.mIm : mKept.mCoherences[i].mIm;
        }
    }

    /// True when what is kept is finite in all lanes. A sum that overflows says no without need.
    QV_INLINE bool isKeptFinite() const
    {
        Real sum = mKept.mE;
#pragma GCC unroll 8
        for (unsigned long a = 0; a < LEVELS; ++a) {
            sum += mKept.mPopulations[a];
        }
#pragma GCC unroll 8
        for (unsigned long i = 0; i < PAIRS; ++i) {
            sum += mKept.mCoherences[i].mRe + mKept.mCoherences[i].mIm;
        }
        const Mask finite = 0.0 * sum == Real{};
        return Pack::bits(finite) == Pack::ALL_BITS;
    }

    /// Writes the kept densities, the upper triangle as the conjugate of the lower one.
    QV_INLINE void storeDensities(double* rho) const
    {
        Real re[N * N];
        Real im[N * N];
#pragma GCC unroll 8
        for (unsigned long a = 0; a < LEVELS; ++a) {
            re[a * LEVELS + a] = mKept.mPopulations[a];
            im[a * LEVELS + a] = Real{};
#pragma GCC unroll 8
            for (unsigned long c = 0; c < a; ++c) {
                const Complex& low = mKept.mCoherences[pair(a, c)];
                re[a * LEVELS + c] = low.mRe;
                im[a * LEVELS + c] = low.mIm;
                re[c * LEVELS + a] = low.mRe;
                im[c * LEVELS + a] = -low.mIm;
            }
        }
        Pack::template storeComplex<N * N>(re, im, rho);
    }

    /// Writes the kept populations alone.
    QV_INLINE void storePopulations(double* rho) const
    {
#pragma GCC unroll 8
        for (unsigned long a = 0; a < LEVELS; ++a) {
            Pack::store(&mKept.mPopulations[a], 2 * LEVELS * LEVELS, 1, rho + 2 * (a * LEVELS + a));
        }
    }

    QV_INLINE void storeField(double* E) const
    {
        Pack::storeRow(mKept.mE, E);
    }

    // What is kept, for the polarization term.
    QV_INLINE const Real& population(unsigned long a) const
    {
        return mKept.mPopulations[a];
    }
    QV_INLINE const Real& re(unsigned long a, unsigned long c) const
    {
        return mKept.mCoherences[pair(a, c)].mRe;
    }
    QV_INLINE const Real& im(unsigned long a, unsigned long c) const
    {
        return mKept.mCoherences[pair(a, c)].mIm;
    }

private:
    QV_INLINE static void addLeast(const Real& pack, Mask& least)
    {
        const Mask number = reinterpret_cast<Mask>(pack);
        least = number < least ? number : least;
    }
};
