#include "quorvex/QV_IterationKernel.h"

#include "quorvex/QV_FieldKernel.h"
#include "quorvex/QV_HermitianBlock.h"
#include "quorvex/QV_Inline.h"
#include "quorvex/QV_Pack.h"
#include "quorvex/QV_PackComplex.h"
#include "quorvex/QV_PolarizationTerm.h"

#include <algorithm>

#pragma GCC diagnostic ignored "-Wpsabi" // no pack crosses a call that is not inlined

namespace {

using Scheme = QV_IterationKernel::Scheme;
using Nodes = QV_IterationKernel::Nodes;

/// Constants of one call, shared by all nodes: the tables as plain arrays. Products formed in the loop would have the
/// same bits.
struct Call
{
    QV_InstructionSet::Level mLevel;
    const QV_Atoms* mAtoms;
    double mDt;
    double mDz2;
    double mHalf; ///< dt / 2
    const double* mHalfD;
    const double* mHalfW;
    const double* mHalfNu;
    const double* mPNu;
    double* mWork; ///< Densities of the plain form, when the level count is not known to it.

    bool mIsSymmetric;
    unsigned long mTransitions;
    unsigned long mLongitudinal;
    unsigned long mOperator;
};

constexpr unsigned long densitiesInWork = 4; ///< rho, R, Rp and their sum.

/// The iterates of W nodes with N levels; N = 0 reads the count from the atoms, for single nodes only.
template <int W, int N>
struct Block
{
    using Pack = QV_Pack<W>;
    using Real = typename Pack::Real;
    using Mask = typename Pack::Mask;
    using Complex = QV_PackComplex<Real>;

    static constexpr int LOCAL_SIZE = N > 0 ? static_cast<int>(densitiesInWork) * N* N : 1;

    Complex mLocal[LOCAL_SIZE];
    Real mE0{}; ///< Field at entry.
    Real mE{};  ///< Present iterate.
    Real mEp{}; ///< Previous iterate.
    Real mAux{};
    unsigned long mLevels;
    Complex* mRho; ///< As they stood at entry.
    Complex* mR;   ///< Present iterate.
    Complex* mRp;  ///< Previous iterate.
    Complex* mSum; ///< Rp + rho.

    QV_INLINE unsigned long levels() const { return N > 0 ? N : mLevels; }

    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): mLocal is filled below, clearing it costs a step
    QV_INLINE Block(const Call& call, const Nodes& nodes, unsigned long first)
        : mLevels(call.mAtoms->mLevels)
        , mRho(N > 0 ? mLocal : reinterpret_cast<Complex*>(call.mWork))
        , mR(mRho + levels() * levels())
        , mRp(mR + levels() * levels())
        , mSum(mRp + levels() * levels())
    {
        const unsigned long size = levels() * levels();
        // A complex pack is its real part followed by its imaginary part.
        Pack::load(nodes.mRho + 2 * size * first, 2 * size, 2 * size, &mRho->mRe);
        Pack::load(nodes.mE + first, 1, 1, &mE0);
        if (nodes.mAux != nullptr) {
            Pack::load(nodes.mAux + first, 1, 1, &mAux);
        }
        for (unsigned long i = 0; i < size; ++i) {
            mR[i].mRe =
                mRho[i].mRe; // part by part: a copy of the whole is cut into pieces that stall
            mR[i].mIm = mRho[i].mIm;
        }
        mE = mE0;
    }

    /// Makes the present iterate the previous one.
    QV_INLINE void turn()
    {
        mEp = mE;
        for (unsigned long i = 0; i < levels() * levels(); ++i) {
            mRp[i].mRe = mR[i].mRe;
            mRp[i].mIm = mR[i].mIm;
            mSum[i].mRe = mRp[i].mRe + mRho[i].mRe;
            mSum[i].mIm = mRp[i].mIm + mRho[i].mIm;
        }
    }

    /// Takes the present iterate back in the lanes that have come to an end before.
    QV_INLINE void freeze(const Mask& active)
    {
        mE = active ? mE : mEp;
        for (unsigned long i = 0; i < levels() * levels(); ++i) {
            mR[i].mRe = active ? mR[i].mRe : mRp[i].mRe;
            mR[i].mIm = active ? mR[i].mIm : mRp[i].mIm;
        }
    }

    QV_INLINE void store(const Nodes& nodes, unsigned long first, bool isFieldAdvanced) const
    {
        const unsigned long size = levels() * levels();
        Pack::store(&mR->mRe, 2 * size, 2 * size, nodes.mRho + 2 * size * first);
        if (isFieldAdvanced) {
            Pack::store(&mE, 1, 1, nodes.mE + first);
        }
    }

    /// C[a][b] = sum over k of (P[a][k] S[k][b] - P[k][b] S[a][k]), S being Rp + rho.
    QV_INLINE void commutator(const double* P, unsigned long a, unsigned long b, Complex& C) const
    {
        const unsigned long n = levels();
        C.mRe = Real{};
        C.mIm = Real{};
        for (unsigned long k = 0; k < n; ++k) {
            const Complex& kb = mSum[k * n + b];
            const Complex& ak = mSum[a * n + k];
            C.mRe += P[a * n + k] * kb.mRe - P[k * n + b] * ak.mRe;
            C.mIm += P[a * n + k] * kb.mIm - P[k * n + b] * ak.mIm;
        }
    }

    /// Re((R - Rp)^2) at a diagonal element: the complex square, not the squared modulus.
    QV_INLINE void addDiagonalResidual(unsigned long a, Real& sum) const
    {
        const unsigned long i = a * levels() + a;
        const Real re = mR[i].mRe - mRp[i].mRe;
        const Real im = mR[i].mIm - mRp[i].mIm;
        sum += re * re - im * im;
    }

    /// R[c][a] = conj(R[a][c]), and 2 Re((R - Rp)[c][a] (R - Rp)[a][c]) on top of `sum`.
    QV_INLINE void mirror(unsigned long a, unsigned long c, Real& sum)
    {
        const unsigned long ac = a * levels() + c;
        const unsigned long ca = c * levels() + a;
        mR[ca].mRe = mR[ac].mRe;
        mR[ca].mIm = -mR[ac].mIm;
        const Real re1 = mR[ca].mRe - mRp[ca].mRe;
        const Real im1 = mR[ca].mIm - mRp[ca].mIm;
        const Real re2 = mR[ac].mRe - mRp[ac].mRe;
        const Real im2 = mR[ac].mIm - mRp[ac].mIm;
        sum += 2.0 * (re1 * re2 - im1 * im2);
    }
};

/// R[a][b] = rho[a][b] + (dt / 2) (i E C[a][b] - Nu[a][b] S[a][b]), on the diagonal with
/// sum over k of (dt / 2) D[a][k] S[k][k] on top. The residual covers all elements.
template <int W, int N>
QV_INLINE void updateCrank(const Call& call, Block<W, N>& block,
                           typename Block<W, N>::Real& residual)
{
    using Real = typename Block<W, N>::Real;
    using Complex = typename Block<W, N>::Complex;
    const unsigned long n = block.levels();
    const double* const nu = call.mAtoms->mNu;
    Real sum{};
    for (unsigned long a = 0; a < n; ++a) {
        for (unsigned long b = 0; b <= a; ++b) {
            const unsigned long i = a * n + b;
            Complex C;
            block.commutator(call.mAtoms->mPs, a, b, C);
            const Complex& s = block.mSum[i];
            const double nuRe = nu[2 * i];
            const double nuIm = nu[2 * i + 1];
            block.mR[i].mRe = block.mRho[i].mRe
                              + call.mHalf * (-block.mE0 * C.mIm - (nuRe * s.mRe - nuIm * s.mIm));
            block.mR[i].mIm = block.mRho[i].mIm
                              + call.mHalf * (block.mE0 * C.mRe - (nuRe * s.mIm + nuIm * s.mRe));
        }
        Real gainRe{};
        Real gainIm{};
        for (unsigned long k = 0; k < n; ++k) {
            gainRe += call.mHalfD[a * n + k] * block.mSum[k * n + k].mRe;
            gainIm += call.mHalfD[a * n + k] * block.mSum[k * n + k].mIm;
        }
        block.mR[a * n + a].mRe += gainRe;
        block.mR[a * n + a].mIm += gainIm;
        block.addDiagonalResidual(a, sum);
        for (unsigned long c = 0; c < a; ++c) {
            block.mirror(a, c, sum);
        }
    }
    residual = call.mDz2 * sum;
}

/// The polarization's part of Ampere's equation at a node, to be scaled by the coupling.
/// P, PRED_CORR: sum over a, k of Re(P[a][k] (R - rho)[k][a]), the increment of the polarization.
/// ZIOLKO: sum over b, k of Re(P[b][k] Nu[k][b] (R + rho)[k][b]) dt / 2, its time derivative.
template <Scheme S, int W, int N>
QV_INLINE void polarizationStep(const Call& call, const Block<W, N>& block,
                                typename Block<W, N>::Real& T)
{
    using Complex = typename Block<W, N>::Complex;
    const unsigned long n = block.levels();
    T = typename Block<W, N>::Real{};
    for (unsigned long a = 0; a < n; ++a) {
        for (unsigned long k = 0; k < n; ++k) {
            if constexpr (S == Scheme::ZIOLKO) {
                const Complex& s = block.mSum[k * n + a];
                const double* const pNu = call.mPNu + 2 * (a * n + k);
                T += (pNu[0] * s.mRe - pNu[1] * s.mIm) * call.mDt * 0.5;
            } else {
                T += call.mAtoms->mPs[a * n + k]
                     * (block.mR[k * n + a].mRe - block.mRho[k * n + a].mRe);
            }
        }
    }
}

/// Field and density together. E = E0 - T dzeta + S; the density sees the sum of E0 and the previous
/// iterate of the field: R[a][c] = rho[a][c] + i (dt / 4) (E0 + Ep) C[a][c] - (dt / 2) z S[a][c], with
/// z = Nu[a][c], or i (omega[a] - omega[c]) + gamma for PRED_CORR. Populations are real. The residual
/// restarts with each row, so the test sees the last row and the field alone: a sum over all rows would
/// take more iterations and change every result on disk.
template <Scheme S, int W, int N>
QV_INLINE void updateCoupled(const Call& call, Block<W, N>& block,
                             typename Block<W, N>::Real& residual)
{
    using Real = typename Block<W, N>::Real;
    using Complex = typename Block<W, N>::Complex;
    const unsigned long n = block.levels();
    Real T;
    polarizationStep<S>(call, block, T);
    block.mE = (block.mE0 - T * call.mAtoms->mDzeta) + block.mAux;
    const Real g = (call.mDt * 0.25) * (block.mEp + block.mE0);

    Real sum{};
    for (unsigned long a = 0; a < n; ++a) {
        sum = Real{};
        for (unsigned long c = 0; c < a; ++c) {
            const unsigned long i = a * n + c;
            Complex C;
            block.commutator(call.mAtoms->mPs, a, c, C);
            const Complex& s = block.mSum[i];
            const double zRe = call.mHalfNu[2 * i];
            const double zIm = call.mHalfNu[2 * i + 1];
            block.mR[i].mRe = (block.mRho[i].mRe - g * C.mIm) - (zRe * s.mRe - zIm * s.mIm);
            block.mR[i].mIm = (block.mRho[i].mIm + g * C.mRe) - (zRe * s.mIm + zIm * s.mRe);
            block.mirror(a, c, sum);
        }
        const unsigned long aa = a * n + a;
        Complex C;
        block.commutator(call.mAtoms->mPs, a, a, C);
        Real gain{};
        for (unsigned long k = 0; k < n; ++k) {
            const Real& sk = block.mSum[k * n + k].mRe;
            if constexpr (S == Scheme::PRED_CORR) {
                // The loss term is the same for every k, so the populations gain on the whole.
                gain += call.mAtoms->mW[a * n + k] * sk - call.mAtoms->mW[aa] * block.mSum[aa].mRe;
            } else {
                gain += call.mHalfW[a * n + k] * sk;
            }
        }
        if constexpr (S == Scheme::PRED_CORR) {
            block.mR[aa].mRe =
                (-(g * C.mIm) + gain * call.mDt * 0.5) + (C.mRe + block.mRho[aa].mRe);
        } else {
            block.mR[aa].mRe =
                ((-(g * C.mIm) + gain) + call.mHalfD[aa] * block.mSum[aa].mRe) + block.mRho[aa].mRe;
        }
        block.mR[aa].mIm = Real{};
        block.addDiagonalResidual(a, sum);
    }
    const Real change = block.mEp - block.mE;
    residual = (change * change + sum) * call.mDz2;
}

/// R[a][a] = rho[a][a] + (dt / 2) (i (Eold + E) (C1 - C2) + sum over k of (Rp + rho)[k][k] D[a][k]), with
/// C1 and C2 from the coherences, which stay.
template <int W, int N>
QV_INLINE void updateDiagonal(const Call& call, Block<W, N>& block,
                              typename Block<W, N>::Real& residual)
{
    using Real = typename Block<W, N>::Real;
    const unsigned long n = block.levels();
    const double* const P = call.mAtoms->mPs;
    const double* const D = call.mAtoms->mD;
    const Real fields = block.mAux + block.mE0;
    Real sum{};
    for (unsigned long a = 0; a < n; ++a) {
        Real re1{};
        Real im1{};
        Real re2{};
        Real im2{};
        Real gainRe{};
        Real gainIm{};
        for (unsigned long k = 0; k < n; ++k) {
            if (k != a) {
                re1 += P[a * n + k] * block.mRho[k * n + a].mRe;
                im1 += P[a * n + k] * block.mRho[k * n + a].mIm;
                re2 += P[k * n + a] * block.mRho[a * n + k].mRe;
                im2 += P[k * n + a] * block.mRho[a * n + k].mIm;
            }
            gainRe += block.mSum[k * n + k].mRe * D[a * n + k];
            gainIm += block.mSum[k * n + k].mIm * D[a * n + k];
        }
        const unsigned long aa = a * n + a;
        block.mR[aa].mRe = block.mRho[aa].mRe + call.mHalf * (-fields * (im1 - im2) + gainRe);
        block.mR[aa].mIm = block.mRho[aa].mIm + call.mHalf * (fields * (re1 - re2) + gainIm);
        block.addDiagonalResidual(a, sum);
    }
    residual = sum;
}

// ---------------------------------------------------------------- Hermitian densities

// The loops over levels are unrolled, so that the iterates of two levels stay in registers.

/// Whether an entry of an N by N table is not zero.
template <int N>
QV_INLINE bool isSet(unsigned long entries, unsigned long a, unsigned long c)
{
    return (entries >> (a * N + c) & 1) != 0;
}

/// Whether the dipole couples two levels. The only two are taken to be coupled.
template <int N>
QV_INLINE bool isCoupled(const Call& call, unsigned long a, unsigned long c)
{
    return N == 2 || isSet<N>(call.mTransitions, a, c);
}

/// A sum of terms may start from -0.0: it then takes no operation to add the first of them.
template <typename Real>
QV_INLINE void clear(Real& sum)
{
    sum = -Real{};
}

/// P[a][k] S[k][c] - P[k][c] S[a][k] on top of C, with k neither a nor c and c < a. The imaginary part changes its sign
/// with k < c in the first term and with a < k in the second.
template <int W, int N>
QV_INLINE void addPath(const Call& call, const QV_HermitianBlock<W, N>& block, unsigned long a,
                       unsigned long c, unsigned long k,
                       QV_PackComplex<typename QV_Pack<W>::Real>& C)
{
    using Block = QV_HermitianBlock<W, N>;
    using Real = typename Block::Real;
    const double* const P = call.mAtoms->mPs;
    const auto& kc = block.mSum.mCoherences[Block::pair(k, c)];
    const auto& ak = block.mSum.mCoherences[Block::pair(a, k)];
    const bool isFirst = isCoupled<N>(call, a, k);
    const bool isSecond = isCoupled<N>(call, k, c);
    if (isFirst && isSecond) {
        C.mRe += P[a * N + k] * kc.mRe - P[k * N + c] * ak.mRe;
        const Real first = P[a * N + k] * kc.mIm;
        const Real second = P[k * N + c] * ak.mIm;
        if (k < c) {
            C.mIm -= first + second;
        } else if (k < a) {
            C.mIm += first - second;
        } else {
            C.mIm += first + second;
        }
    } else if (isFirst) {
        C.mRe += P[a * N + k] * kc.mRe;
        if (k < c) {
            C.mIm -= P[a * N + k] * kc.mIm;
        } else {
            C.mIm += P[a * N + k] * kc.mIm;
        }
    } else if (isSecond) {
        C.mRe -= P[k * N + c] * ak.mRe;
        if (k < a) {
            C.mIm -= P[k * N + c] * ak.mIm;
        } else {
            C.mIm += P[k * N + c] * ak.mIm;
        }
    }
}

/// C[a][c] of a coherence, c < a. The imaginary part, which populations have no share in, is 0 for two levels.
template <int W, int N>
QV_INLINE void commutator(const Call& call, const QV_HermitianBlock<W, N>& block, unsigned long a,
                          unsigned long c, QV_PackComplex<typename QV_Pack<W>::Real>& C)
{
    const double P = call.mAtoms->mPs[a * N + c];
    clear(C.mRe);
    clear(C.mIm);
#pragma GCC unroll 4
    for (unsigned long k = 0; k < N; ++k) {
        if (k != a && k != c) {
            addPath(call, block, a, c, k, C);
        } else if (k == c && isCoupled<N>(call, a, c)) {
            C.mRe += P * block.mSum.mPopulations[c];
        } else if (isCoupled<N>(call, a, c)) {
            C.mRe -= P * block.mSum.mPopulations[a];
        }
    }
}

/// Im C[a][a] = 2 sum over k of P[a][k] Im S[k][a] of the density `S`, for all levels. The real part is 0.
/// Doubled term by term: a doubled sum could overflow elsewhere.
template <int W, int N>
QV_INLINE void populationFluxes(const Call& call, const typename QV_HermitianBlock<W, N>::State& S,
                                typename QV_Pack<W>::Real (&fluxes)[N])
{
    using Block = QV_HermitianBlock<W, N>;
    using Real = typename Block::Real;
    const double* const P = call.mAtoms->mPs;
#pragma GCC unroll 4
    for (unsigned long a = 0; a < N; ++a) {
        clear(fluxes[a]);
#pragma GCC unroll 4
        for (unsigned long k = 0; k < N; ++k) {
            if (k != a && isCoupled<N>(call, a, k)) {
                const Real half = P[a * N + k] * S.mCoherences[Block::pair(a, k)].mIm;
                if (k < a) {
                    fluxes[a] -= half + half;
                } else {
                    fluxes[a] += half + half;
                }
            }
        }
    }
}

/// sum over k of table[a][k] (Rp + rho)[k][k], of the `entries` of the table that are not zero.
template <int W, int N>
QV_INLINE void populationSum(const double* table, unsigned long entries,
                             const QV_HermitianBlock<W, N>& block, unsigned long a,
                             typename QV_Pack<W>::Real& sum)
{
    clear(sum);
#pragma GCC unroll 4
    for (unsigned long k = 0; k < N; ++k) {
        if (isSet<N>(entries, a, k)) {
            sum += table[a * N + k] * block.mSum.mPopulations[k];
        }
    }
}

/// (R - Rp)^2 of a population on top of `sum`.
template <int W, int N>
QV_INLINE void addPopulationResidual(const QV_HermitianBlock<W, N>& block, unsigned long a,
                                     typename QV_Pack<W>::Real& sum)
{
    const auto change = block.mIterate.mPopulations[a] - block.mPrevious.mPopulations[a];
    sum += change * change;
}

/// 2 |R - Rp|^2 of a coherence on top of `sum`.
template <int W, int N>
QV_INLINE void addCoherenceResidual(const QV_HermitianBlock<W, N>& block, unsigned long a,
                                    unsigned long c, typename QV_Pack<W>::Real& sum)
{
    const unsigned long i = QV_HermitianBlock<W, N>::pair(a, c);
    const auto re = block.mIterate.mCoherences[i].mRe - block.mPrevious.mCoherences[i].mRe;
    const auto im = block.mIterate.mCoherences[i].mIm - block.mPrevious.mCoherences[i].mIm;
    sum += 2.0 * (re * re + im * im);
}

/// updateCrank() for one coherence of the lower triangle.
template <int W, int N>
QV_INLINE void updateCrankCoherence(const Call& call, QV_HermitianBlock<W, N>& block,
                                    unsigned long a, unsigned long c)
{
    using Block = QV_HermitianBlock<W, N>;
    using Real = typename Block::Real;
    const unsigned long i = Block::pair(a, c);
    const Real& E = block.mEntry.mE;
    QV_PackComplex<Real> C{};
    commutator(call, block, a, c, C);
    const auto& s = block.mSum.mCoherences[i];
    const double nuRe = call.mAtoms->mNu[2 * (a * N + c)];
    const double nuIm = call.mAtoms->mNu[2 * (a * N + c) + 1];
    Real loss = nuRe * s.mRe - nuIm * s.mIm;
    if constexpr (N > 2) {
        loss = E * C.mIm + loss;
    }
    block.mIterate.mCoherences[i].mRe = block.mEntry.mCoherences[i].mRe - call.mHalf * loss;
    block.mIterate.mCoherences[i].mIm =
        block.mEntry.mCoherences[i].mIm + call.mHalf * (E * C.mRe - (nuRe * s.mIm + nuIm * s.mRe));
}

/// updateCrank() on the lower triangle.
template <int W, int N>
QV_INLINE void updateCrank(const Call& call, QV_HermitianBlock<W, N>& block,
                           typename QV_Pack<W>::Real& residual)
{
    using Real = typename QV_Pack<W>::Real;
    Real fluxes[N];
    populationFluxes<W, N>(call, block.mSum, fluxes);
#pragma GCC unroll 4
    for (unsigned long a = 0; a < N; ++a) {
#pragma GCC unroll 4
        for (unsigned long c = 0; c < a; ++c) {
            updateCrankCoherence(call, block, a, c);
        }
    }
#pragma GCC unroll 4
    for (unsigned long a = 0; a < N; ++a) {
        Real gain;
        populationSum(call.mHalfD, call.mOperator, block, a, gain);
        const Real turned =
            block.mEntry.mPopulations[a] - call.mHalf * (block.mEntry.mE * fluxes[a]);
        block.mIterate.mPopulations[a] = turned + gain;
    }
    Real sum;
    clear(sum);
#pragma GCC unroll 4
    for (unsigned long a = 0; a < N; ++a) {
        addPopulationResidual(block, a, sum);
#pragma GCC unroll 4
        for (unsigned long c = 0; c < a; ++c) {
            addCoherenceResidual(block, a, c, sum);
        }
    }
    residual = call.mDz2 * sum;
}

/// polarizationStep() on the lower triangle. The terms of [a][k] and [k][a] are equal, and added one by one.
template <Scheme S, int W, int N>
QV_INLINE void polarizationStep(const Call& call, const QV_HermitianBlock<W, N>& block,
                                typename QV_Pack<W>::Real& T)
{
    using Block = QV_HermitianBlock<W, N>;
    using Real = typename Block::Real;
    clear(T);
#pragma GCC unroll 4
    for (unsigned long a = 0; a < N; ++a) {
#pragma GCC unroll 4
        for (unsigned long k = 0; k < N; ++k) {
            if (k == a || !isCoupled<N>(call, a, k)) {
                continue;
            }
            const unsigned long i = Block::pair(a, k);
            const unsigned long upper = a < k ? a * N + k : k * N + a;
            if constexpr (S == Scheme::ZIOLKO) {
                const auto& s = block.mSum.mCoherences[i];
                const double* const pNu = call.mPNu + 2 * upper;
                T += (pNu[0] * s.mRe - pNu[1] * s.mIm) * call.mDt * 0.5;
            } else {
                const Real change =
                    block.mIterate.mCoherences[i].mRe - block.mEntry.mCoherences[i].mRe;
                T += call.mAtoms->mPs[upper] * change;
            }
        }
    }
}

/// What relaxation adds to the population of level a, but for D[a][a] in P and ZIOLKO.
template <Scheme S, int W, int N>
QV_INLINE void populationGain(const Call& call, const QV_HermitianBlock<W, N>& block,
                              unsigned long a, typename QV_Pack<W>::Real& gain)
{
    if constexpr (S != Scheme::PRED_CORR) {
        populationSum(call.mHalfW, call.mLongitudinal, block, a, gain);
        return;
    }
    clear(gain);
#pragma GCC unroll 4
    for (unsigned long k = 0; k < N; ++k) {
        const auto& s = block.mSum.mPopulations[k];
        // The term of k = a is 0.
        if (k != a && isSet<N>(call.mLongitudinal, a, a)) {
            gain += call.mAtoms->mW[a * N + k] * s
                    - call.mAtoms->mW[a * N + a] * block.mSum.mPopulations[a];
        } else if (k != a && isSet<N>(call.mLongitudinal, a, k)) {
            gain += call.mAtoms->mW[a * N + k] * s;
        }
    }
    gain = gain * call.mDt * 0.5;
}

/// updateCoupled() for one coherence of the lower triangle, `g` being dt / 4 times the sum of the fields.
template <int W, int N>
QV_INLINE void updateCoupledCoherence(const Call& call, QV_HermitianBlock<W, N>& block,
                                      const typename QV_Pack<W>::Real& g, unsigned long a,
                                      unsigned long c)
{
    using Block = QV_HermitianBlock<W, N>;
    using Real = typename Block::Real;
    const unsigned long i = Block::pair(a, c);
    QV_PackComplex<Real> C{};
    commutator(call, block, a, c, C);
    const auto& s = block.mSum.mCoherences[i];
    const double zRe = call.mHalfNu[2 * (a * N + c)];
    const double zIm = call.mHalfNu[2 * (a * N + c) + 1];
    Real turned = block.mEntry.mCoherences[i].mRe;
    if constexpr (N > 2) {
        turned = turned - g * C.mIm;
    }
    block.mIterate.mCoherences[i].mRe = turned - (zRe * s.mRe - zIm * s.mIm);
    block.mIterate.mCoherences[i].mIm =
        (block.mEntry.mCoherences[i].mIm + g * C.mRe) - (zRe * s.mIm + zIm * s.mRe);
}

/// updateCoupled() on the lower triangle.
template <Scheme S, int W, int N>
QV_INLINE void updateCoupled(const Call& call, QV_HermitianBlock<W, N>& block,
                             typename QV_Pack<W>::Real& residual)
{
    using Real = typename QV_Pack<W>::Real;
    Real T;
    polarizationStep<S>(call, block, T);
    block.mIterate.mE = (block.mEntry.mE - T * call.mAtoms->mDzeta) + block.mAux;
    const Real g = (call.mDt * 0.25) * (block.mPrevious.mE + block.mEntry.mE);

    Real fluxes[N];
    populationFluxes<W, N>(call, block.mSum, fluxes);
#pragma GCC unroll 4
    for (unsigned long a = 0; a < N; ++a) {
#pragma GCC unroll 4
        for (unsigned long c = 0; c < a; ++c) {
            updateCoupledCoherence(call, block, g, a, c);
        }
    }
#pragma GCC unroll 4
    for (unsigned long a = 0; a < N; ++a) {
        Real gain;
        populationGain<S>(call, block, a, gain);
        Real change = gain - g * fluxes[a];
        if (S != Scheme::PRED_CORR && isSet<N>(call.mOperator, a, a)) {
            change = change + call.mHalfD[a * N + a] * block.mSum.mPopulations[a];
        }
        block.mIterate.mPopulations[a] = change + block.mEntry.mPopulations[a];
    }

    Real sum;
    clear(sum);
#pragma GCC unroll 4
    for (unsigned long c = 0; c + 1 < N; ++c) {
        addCoherenceResidual(block, N - 1, c, sum);
    }
    addPopulationResidual(block, N - 1, sum);
    const Real change = block.mPrevious.mE - block.mIterate.mE;
    residual = (change * change + sum) * call.mDz2;
}

/// updateDiagonal() on the lower triangle.
template <int W, int N>
QV_INLINE void updateDiagonal(const Call& call, QV_HermitianBlock<W, N>& block,
                              typename QV_Pack<W>::Real& residual)
{
    using Real = typename QV_Pack<W>::Real;
    const Real fields = block.mAux + block.mEntry.mE;
    Real fluxes[N];
    populationFluxes<W, N>(call, block.mEntry, fluxes);
    clear(residual);
#pragma GCC unroll 4
    for (unsigned long a = 0; a < N; ++a) {
        Real gain;
        populationSum(call.mAtoms->mD, call.mOperator, block, a, gain);
        block.mIterate.mPopulations[a] =
            block.mEntry.mPopulations[a] + call.mHalf * (gain - fields * fluxes[a]);
        addPopulationResidual(block, a, residual);
    }
}

template <Scheme S, typename AnyBlock>
QV_INLINE void update(const Call& call, AnyBlock& block, typename AnyBlock::Real& residual)
{
    if constexpr (S == Scheme::CRANK) {
        updateCrank(call, block, residual);
    } else if constexpr (S == Scheme::RELAX_DIAG) {
        updateDiagonal(call, block, residual);
    } else {
        updateCoupled<S>(call, block, residual);
    }
}

/// What one node leaves to the next.
struct Progress
{
    double mNorm0 = 1.0;     ///< First residual of the node before.
    unsigned long mMost = 0; ///< Largest number of iterations up to now.
};

/// True when the residual carried over lets a node enter its loop.
QV_INLINE bool isEntered(const QV_Atoms& atoms, double norm0)
{
    return norm0 * atoms.mConvergence < 1.0;
}

/// Writes the polarization terms of nodes whose densities stand in memory.
[[gnu::noinline]] void writeTerms(const Call& call, const Nodes& nodes, unsigned long first,
                                  unsigned long last)
{
    const unsigned long size = call.mAtoms->mLevels * call.mAtoms->mLevels;
    if (nodes.mTerms != nullptr) {
        QV_FieldKernel::polarization(call.mLevel, *call.mAtoms, last - first,
                                     nodes.mRho + 2 * size * first, nodes.mTerms + first);
    }
}

/// Iterates at W nodes from `first` on. False, with nothing changed, when a node would keep a later one of them from
/// its loop: then they have to be treated one by one. Requires: the first node enters its loop.
template <Scheme S, int W, int N>
QV_INLINE bool iterate(const Call& call, const Nodes& nodes, unsigned long first,
                       Progress& progress)
{
    using Pack = QV_Pack<W>;
    const QV_Atoms& atoms = *call.mAtoms;
    Block<W, N> block(call, nodes, first);
    typename Pack::Real firstResidual{};
    typename Pack::Real residual{};
    typename Pack::Mask active;
    Pack::setAll(active);
    unsigned long iterations[W] = {};
    unsigned long iteration = 0;
    do {
        ++iteration;
        block.turn();
        update<S>(call, block, residual);
        if (iteration == 1) {
            firstResidual = residual;
        } else if constexpr (W > 1) {
            block.freeze(active);
        }
        for (int lane = 0; lane < W; ++lane) {
            if (Pack::isSet(active, lane)) {
                iterations[lane] = iteration;
            }
        }
        active = active & (atoms.mConvergence * firstResidual < residual);
    } while (iteration < atoms.mIterationsMax && Pack::isAny(active));

    for (int lane = 0; lane + 1 < W; ++lane) {
        if (!isEntered(atoms, Pack::get(firstResidual, lane))) {
            return false;
        }
    }
    progress.mNorm0 = Pack::get(firstResidual, W - 1);
    progress.mMost = std::max(progress.mMost, iteration);
    block.store(nodes, first, S != Scheme::CRANK && S != Scheme::RELAX_DIAG);
    std::copy_n(iterations, W, nodes.mIterations + first);
    return true;
}

/// The same for Hermitian densities. False also when a density is not Hermitian or does not stay finite.
template <Scheme S, int W, int N>
QV_INLINE bool iterateHermitian(const Call& call, const QV_PolarizationTerm<N>& term,
                                const Nodes& nodes, unsigned long first, Progress& progress)
{
    using Pack = QV_Pack<W>;
    using Mask = typename Pack::Mask;
    constexpr unsigned long size = 2UL * N * N;
    const QV_Atoms& atoms = *call.mAtoms;
    QV_HermitianBlock<W, N> block{};
    Mask refused;
    block.load(nodes.mRho + size * first, nodes.mE + first,
               nodes.mAux != nullptr ? nodes.mAux + first : nullptr, refused);
    if (Pack::bits(refused != 0) != 0) {
        return false;
    }

    typename Pack::Real firstResidual{};
    typename Pack::Real residual{};
    Mask active;
    Pack::setAll(active);
    Mask iterations{};
    unsigned long activeBits = Pack::ALL_BITS;
    unsigned long iteration = 0;
    do {
        ++iteration;
        block.turn();
        update<S>(call, block, residual);
        if (iteration == 1) {
            firstResidual = residual;
            Mask entered = atoms.mConvergence * firstResidual < 1.0;
            Mask last{}; // what the last node leaves is the next one's affair
            last[W - 1] = -1;
            if (Pack::bits(entered | last) != Pack::ALL_BITS) {
                return false;
            }
        }
        Mask now = active & (atoms.mConvergence * firstResidual < residual);
        if (iteration == atoms.mIterationsMax) {
            now = Mask{};
        }
        const unsigned long bits = Pack::bits(now);
        if (bits != activeBits) {
            const Mask ended = active ^ now;
            block.keep(ended);
            iterations |= ended & static_cast<long>(iteration);
        }
        active = now;
        activeBits = bits;
    } while (activeBits != 0);

    if (!block.isKeptFinite()) {
        return false;
    }
    progress.mNorm0 = Pack::get(firstResidual, W - 1);
    progress.mMost = std::max(progress.mMost, iteration);
    if constexpr (S == Scheme::RELAX_DIAG) {
        block.storePopulations(nodes.mRho + size * first);
    } else {
        block.storeDensities(nodes.mRho + size * first);
    }
    if constexpr (S != Scheme::RELAX_DIAG && S != Scheme::CRANK) {
        block.storeField(nodes.mE + first);
    }
    Pack::storeRow(iterations, nodes.mIterations + first);
    if constexpr (QV_IterationKernel::leavesTerms(S)) {
        if (nodes.mTerms != nullptr) {
            typename Pack::Real terms;
            if (term.template compute<W>(block, terms)) {
                Pack::storeRow(terms, nodes.mTerms + first);
            } else {
                writeTerms(call, nodes, first, first + W);
            }
        }
    }
    return true;
}

/// The plain form: node by node, for any number of levels. Not inlined, so that it exists once.
template <Scheme S>
[[gnu::noinline]] void iterateOneByOne(const Call& call, const Nodes& nodes, unsigned long first,
                                       unsigned long last, Progress& progress)
{
    for (unsigned long node = first; node < last; ++node) {
        if (call.mAtoms->mIterationsMax == 0 || !isEntered(*call.mAtoms, progress.mNorm0)) {
            nodes.mIterations[node] = 0;
        } else {
            iterate<S, 1, 0>(call, nodes, node, progress);
        }
    }
    if constexpr (QV_IterationKernel::leavesTerms(S)) {
        writeTerms(call, nodes, first, last);
    }
}

template <Scheme S, int W, int N>
QV_INLINE void advanceNodes(const Call& call, const Nodes& nodes, Progress& progress)
{
    const QV_PolarizationTerm<N> term(*call.mAtoms);
    unsigned long node = 0;
    for (; node + W <= nodes.mCount; node += W) {
        const bool isEntering =
            call.mAtoms->mIterationsMax > 0 && isEntered(*call.mAtoms, progress.mNorm0);
        if (isEntering && call.mIsSymmetric
            && iterateHermitian<S, W, N>(call, term, nodes, node, progress)) {
            continue;
        }
        if (!isEntering || !iterate<S, W, N>(call, nodes, node, progress)) {
            iterateOneByOne<S>(call, nodes, node, node + W, progress);
        } else if constexpr (QV_IterationKernel::leavesTerms(S)) {
            writeTerms(call, nodes, node, node + W);
        }
    }
    iterateOneByOne<S>(call, nodes, node, nodes.mCount, progress);
}

template <Scheme S, int W>
QV_INLINE void advanceLevels(const Call& call, const Nodes& nodes, Progress& progress)
{
    switch (call.mAtoms->mLevels) {
    case 2:
        advanceNodes<S, W, 2>(call, nodes, progress);
        break;
    case 3:
        advanceNodes<S, W, 3>(call, nodes, progress);
        break;
    case 4:
        advanceNodes<S, W, 4>(call, nodes, progress);
        break;
    default:
        iterateOneByOne<S>(call, nodes, 0, nodes.mCount, progress);
        break;
    }
}

template <int W>
QV_INLINE void advanceScheme(Scheme scheme, const Call& call, const Nodes& nodes,
                             Progress& progress)
{
    switch (scheme) {
    case Scheme::CRANK:
        advanceLevels<Scheme::CRANK, W>(call, nodes, progress);
        break;
    case Scheme::P:
        advanceLevels<Scheme::P, W>(call, nodes, progress);
        break;
    case Scheme::ZIOLKO:
        advanceLevels<Scheme::ZIOLKO, W>(call, nodes, progress);
        break;
    case Scheme::PRED_CORR:
        advanceLevels<Scheme::PRED_CORR, W>(call, nodes, progress);
        break;
    case Scheme::RELAX_DIAG:
        advanceLevels<Scheme::RELAX_DIAG, W>(call, nodes, progress);
        break;
    }
}

void advancePlainScheme(Scheme scheme, const Call& call, const Nodes& nodes, Progress& progress)
{
    switch (scheme) {
    case Scheme::CRANK:
        iterateOneByOne<Scheme::CRANK>(call, nodes, 0, nodes.mCount, progress);
        break;
    case Scheme::P:
        iterateOneByOne<Scheme::P>(call, nodes, 0, nodes.mCount, progress);
        break;
    case Scheme::ZIOLKO:
        iterateOneByOne<Scheme::ZIOLKO>(call, nodes, 0, nodes.mCount, progress);
        break;
    case Scheme::PRED_CORR:
        iterateOneByOne<Scheme::PRED_CORR>(call, nodes, 0, nodes.mCount, progress);
        break;
    case Scheme::RELAX_DIAG:
        iterateOneByOne<Scheme::RELAX_DIAG>(call, nodes, 0, nodes.mCount, progress);
        break;
    }
}

void advanceBaseline(Scheme scheme, const Call& call, const Nodes& nodes, Progress& progress)
{
    advanceScheme<2>(scheme, call, nodes, progress);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void advanceAvx2(Scheme scheme, const Call& call, const Nodes& nodes,
                                         Progress& progress)
{
    advanceScheme<4>(scheme, call, nodes, progress);
}

[[gnu::target("avx512f")]] void advanceAvx512(Scheme scheme, const Call& call, const Nodes& nodes,
                                              Progress& progress)
{
    advanceScheme<8>(scheme, call, nodes, progress);
}
#endif

/// True when densities stay Hermitian and populations real: the dipole is symmetric and couples no level to
/// itself, coherences [a][c] and [c][a] decay and turn as conjugates, populations do neither.
bool isSymmetric(const QV_Atoms& atoms, const std::vector<double>& pNu)
{
    const unsigned long n = atoms.mLevels;
    const auto isConjugate = [](const double* a, const double* b) {
        return a[0] == b[0] && a[1] == -b[1];
    };
    bool result = true;
    for (unsigned long a = 0; a < n; ++a) {
        const unsigned long aa = a * n + a;
        result = result && atoms.mPs[aa] == 0.0 && pNu[2 * aa] == 0.0 && pNu[2 * aa + 1] == 0.0
                 && atoms.mNu[2 * aa] == 0.0 && atoms.mNu[2 * aa + 1] == 0.0;
        for (unsigned long c = 0; c < a; ++c) {
            const unsigned long ac = a * n + c;
            const unsigned long ca = c * n + a;
            result =
                result && atoms.mPs[ac] == atoms.mPs[ca] && isConjugate(&pNu[2 * ac], &pNu[2 * ca]);
        }
    }
    return result;
}

/// Bit i: entry i of a table of at most four levels is not zero.
unsigned long entries(const double* table, unsigned long levels)
{
    unsigned long bits = 0;
    for (unsigned long i = 0; levels <= 4 && i < levels * levels; ++i) {
        bits |= static_cast<unsigned long>(table[i] != 0.0) << i;
    }
    return bits;
}

} // namespace

QV_IterationKernel::Tables::Tables(Scheme scheme, const QV_Atoms& atoms, double dt)
    : mScheme(scheme)
    , mAtoms(atoms)
    , mDt(dt)
{
    const double half = dt * 0.5;
    for (unsigned long a = 0; a < atoms.mLevels; ++a) {
        for (unsigned long b = 0; b < atoms.mLevels; ++b) {
            const unsigned long i = a * atoms.mLevels + b;
            const unsigned long t = b * atoms.mLevels + a;
            mHalfD.push_back(half * atoms.mD[i]);
            mHalfW.push_back(half * atoms.mW[i]);
            if (scheme == PRED_CORR) {
                mHalfNu.push_back(half * atoms.mTransversal);
                mHalfNu.push_back(half * (atoms.mOmega[a] - atoms.mOmega[b]));
            } else {
                mHalfNu.push_back(half * atoms.mNu[2 * i]);
                mHalfNu.push_back(half * atoms.mNu[2 * i + 1]);
            }
            mPNu.push_back(atoms.mPs[i] * atoms.mNu[2 * t]);
            mPNu.push_back(atoms.mPs[i] * atoms.mNu[2 * t + 1]);
        }
    }
    mIsSymmetric = isSymmetric(atoms, mPNu);
    mTransitions = entries(atoms.mPs, atoms.mLevels);
    mLongitudinal = entries(atoms.mW, atoms.mLevels);
    mOperator = entries(atoms.mD, atoms.mLevels);
}

unsigned long QV_IterationKernel::advance(QV_InstructionSet::Level level, const Tables& tables,
                                          double dz2, const Nodes& nodes, std::vector<double>& work)
{
    const unsigned long levels = tables.mAtoms.mLevels;
    work.resize(std::max<std::size_t>(work.size(), 2 * densitiesInWork * levels * levels));
    const Scheme scheme = tables.mScheme;
    const Call call{level,
                    &tables.mAtoms,
                    tables.mDt,
                    dz2,
                    tables.mDt * 0.5,
                    tables.mHalfD.data(),
                    tables.mHalfW.data(),
                    tables.mHalfNu.data(),
                    tables.mPNu.data(),
                    work.data(),
                    tables.mIsSymmetric,
                    tables.mTransitions,
                    tables.mLongitudinal,
                    tables.mOperator};
    Progress progress;
    switch (level) {
    case QV_InstructionSet::PLAIN:
        advancePlainScheme(scheme, call, nodes, progress);
        break;
#if defined(__x86_64__)
    case QV_InstructionSet::AVX2:
        advanceAvx2(scheme, call, nodes, progress);
        break;
    case QV_InstructionSet::AVX512:
        advanceAvx512(scheme, call, nodes, progress);
        break;
#endif
    default:
        advanceBaseline(scheme, call, nodes, progress);
        break;
    }
    return progress.mMost;
}
