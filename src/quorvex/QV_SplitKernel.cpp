#include "quorvex/QV_SplitKernel.h"

#include "quorvex/QV_FieldKernel.h"
#include "quorvex/QV_Inline.h"
#include "quorvex/QV_Pack.h"
#include "quorvex/QV_PackComplex.h"
#include "quorvex/QV_PolarizationTerm.h"
#include "quorvex/QV_Unroll.h"

#include <algorithm>
#include <cmath>

#pragma GCC diagnostic ignored "-Wpsabi" // no pack crosses a call that is not inlined

namespace {

struct Call
{
    QV_InstructionSet::Level mLevel;
    const QV_Atoms* mAtoms;
    const QV_SplitKernel::Tables* mTables;
    unsigned long mCount;
    double* mRho;
    const double* mE;
    double* mTerms;
    double* mWork; ///< Matrices and field of the plain form.
};

constexpr unsigned long matricesInWork = 3; ///< rho, U and a temporary, complex.
constexpr unsigned long mostComponents = 4; ///< Of a field in the batched form; more go one by one.
constexpr double mostTau = 1e60;            ///< Its third power times zero is zero still.

/// W nodes with N levels; N = 0 reads the count from the atoms, for single nodes only.
template <int W, int N>
struct Block
{
    using Pack = QV_Pack<W>;
    using Real = typename Pack::Real;
    using Complex = QV_PackComplex<Real>;

    static constexpr int LOCAL_SIZE = N > 0 ? static_cast<int>(matricesInWork) * N* N : 1;

    Complex mLocal[LOCAL_SIZE];
    Real mLocalE[N > 0 ? mostComponents : 1];
    Real mLocalPopulations[N > 0 ? N : 1];
    const Call* mCall;
    unsigned long mLevels;
    Complex* mRho;
    Complex* mU;
    Complex* mTemp;
    Real* mE;
    Real* mPopulations;

    QV_INLINE unsigned long levels() const { return N > 0 ? N : mLevels; }
    QV_INLINE unsigned long components() const { return mCall->mAtoms->mComponents; }

    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): the arrays are filled before they are read
    QV_INLINE Block(const Call& call, unsigned long first)
        : mCall(&call)
        , mLevels(call.mAtoms->mLevels)
        , mRho(N > 0 ? mLocal : reinterpret_cast<Complex*>(call.mWork))
        , mU(mRho + levels() * levels())
        , mTemp(mU + levels() * levels())
        , mE(N > 0 ? mLocalE : reinterpret_cast<Real*>(mTemp + levels() * levels()))
        , mPopulations(N > 0 ? mLocalPopulations : mE + components())
    {
        const unsigned long size = levels() * levels();
        Pack::load(call.mRho + 2 * size * first, 2 * size, 2 * size, &mRho->mRe);
        Pack::load(call.mE + components() * first, components(), components(), mE);
    }

    QV_INLINE void store(unsigned long first) const
    {
        const unsigned long size = levels() * levels();
        Pack::store(&mRho->mRe, 2 * size, 2 * size, mCall->mRho + 2 * size * first);
    }

    /// sum over p, q, ... of E[p] E[q] ... times the table's values, `order` indices deep, `values` numbers
    /// apart.
    QV_INLINE void contract(const double* table, int order, unsigned long stride, Real& sum) const
    {
        const unsigned long m = components();
        sum = Real{};
        unsigned long count = 1;
        for (int i = 0; i < order; ++i) {
            count *= m;
        }
        for (unsigned long index = 0; index < count; ++index) {
            Real field = mE[index % m];
            unsigned long rest = index / m;
            for (int i = 1; i < order; ++i) {
                field = mE[rest % m] * field;
                rest /= m;
            }
            sum += field * table[index * stride];
        }
    }

    /// One element of U from its numerator: divided by (`re`, `im`).
    QV_INLINE static void divide(const Complex& numerator, const Real& re, const Real& im,
                                 Complex& u)
    {
        const Real norm = re * re + im * im;
        u.mRe = (numerator.mRe * re + numerator.mIm * im) / norm;
        u.mIm = (numerator.mIm * re - numerator.mRe * im) / norm;
    }

    /// d = c^2 s2 / 2, e = c^3 s3 / 3, f = d^2 / 2, g = c^4 s4, with s2, s3, s4 the traces of A^2, A^3, A^4:
    /// 2 levels: ((1 + d) - 2 c A) / (1 - d)
    /// 3 levels: ((1 - d - e) - 2 c A + 2 c^2 A^2) / (1 - d + e)
    /// 4 levels: ((1 - d - e - f + g / 4) - c (2 - 2 d) A + 2 c^2 A^2 + c^3 T) / (1 - d + e + f - g / 4)
    QV_INLINE void formPropagator()
    {
        const QV_SplitKernel::Tables& tables = *mCall->mTables;
        const unsigned long n = levels();
        const unsigned long size = n * n;
        const double c = tables.mTau * 0.5; // imaginary part; the real one is 0
        const double c2 = -(c * c);
        const double c3 = c * c2; // imaginary part
        Real s;
        contract(tables.mTraces2, 2, 1, s);
        const Real d = 0.5 * c2 * s;
        Real e{};
        Real f{};
        Real g{};
        if (n > 2) {
            contract(tables.mTraces3, 3, 1, s);
            e = s * c3 / 3.0;
        }
        if (n > 3) {
            contract(tables.mTraces4, 4, 1, s);
            f = 0.5 * d * d;
            g = c2 * c2 * s;
        }
        const Real unitRe = n == 2 ? 1.0 + d : n == 3 ? 1.0 - d : 1.0 - d - f + g / 4.0;
        const Real divisorRe = n > 3 ? 1.0 - d + f - g / 4.0 : 1.0 - d;
        for (unsigned long i = 0; i < size; ++i) {
            Real A;
            contract(mCall->mAtoms->mPs + i, 1, size, A);
            Complex numerator{Real{}, -2.0 * c * A};
            if (n > 2) {
                Real squared;
                contract(tables.mProducts2 + i, 2, size, squared);
                numerator.mRe += 2.0 * c2 * squared;
            }
            if (n > 3) {
                Real T;
                contract(tables.mProducts3 + i, 3, size, T);
                numerator.mIm = -(c * (2.0 - 2.0 * d)) * A + c3 * T;
            }
            if (i % (n + 1) == 0) {
                numerator.mRe += unitRe;
                numerator.mIm -= e;
            }
            if (n == 2) {
                mU[i].mRe = numerator.mRe / divisorRe;
                mU[i].mIm = numerator.mIm / divisorRe;
            } else {
                divide(numerator, divisorRe, e, mU[i]);
            }
        }
    }

    QV_INLINE void clearPropagator()
    {
        for (unsigned long i = 0; i < levels() * levels(); ++i) {
            mU[i].mRe = Real{};
            mU[i].mIm = Real{};
        }
    }

    /// rho = U^+ rho U
    QV_INLINE void hamiltonianStep()
    {
        const unsigned long n = levels();
        for (unsigned long a = 0; a < n; ++a) {
            for (unsigned long b = 0; b < n; ++b) {
                Complex& t = mTemp[a * n + b];
                t.mRe = Real{};
                t.mIm = Real{};
                for (unsigned long k = 0; k < n; ++k) {
                    const Complex& x = mRho[a * n + k];
                    const Complex& y = mU[k * n + b];
                    t.mRe += x.mRe * y.mRe - x.mIm * y.mIm;
                    t.mIm += x.mRe * y.mIm + x.mIm * y.mRe;
                }
            }
        }
        for (unsigned long a = 0; a < n; ++a) {
            for (unsigned long b = 0; b < n; ++b) {
                Complex& r = mRho[a * n + b];
                r.mRe = Real{};
                r.mIm = Real{};
                for (unsigned long k = 0; k < n; ++k) {
                    const Complex& x = mU[k * n + a]; // its conjugate
                    const Complex& y = mTemp[k * n + b];
                    r.mRe += x.mRe * y.mRe + x.mIm * y.mIm;
                    r.mIm += x.mRe * y.mIm - x.mIm * y.mRe;
                }
            }
        }
    }

    /// Populations by the propagator, towards the equilibrium if there is one; coherences by their
    /// decay and rotation.
    QV_INLINE void relaxationStep()
    {
        const QV_SplitKernel::Tables& tables = *mCall->mTables;
        const unsigned long n = levels();
        for (unsigned long k = 0; k < n; ++k) {
            if (tables.mRhoE != nullptr) {
                mRho[k * n + k].mRe -= tables.mRhoE[k];
            }
        }
        for (unsigned long a = 0; a < n; ++a) {
            mPopulations[a] = Real{};
            for (unsigned long k = 0; k < n; ++k) {
                mPopulations[a] += tables.mExpA[a * n + k] * mRho[k * n + k].mRe;
            }
        }
        for (unsigned long a = 0; a < n; ++a) {
            for (unsigned long c = 0; c < a; ++c) {
                const double re = tables.mDecay[2 * (a * n + c)];
                const double im = tables.mDecay[2 * (a * n + c) + 1];
                Complex& low = mRho[a * n + c];
                Complex& high = mRho[c * n + a];
                high.mRe = low.mRe * re - low.mIm * im;
                low.mIm = low.mRe * im + low.mIm * re;
                low.mRe = high.mRe;
                high.mIm = -low.mIm;
            }
        }
        for (unsigned long k = 0; k < n; ++k) {
            mRho[k * n + k].mRe = mPopulations[k];
            mRho[k * n + k].mIm = Real{};
            if (tables.mRhoE != nullptr) {
                mRho[k * n + k].mRe += tables.mRhoE[k];
            }
        }
    }

    QV_INLINE void advance()
    {
        if (levels() >= 2 && levels() <= 4) {
            formPropagator();
        } else {
            clearPropagator();
        }
        switch (mCall->mTables->mOrder) {
        case QV_SplitKernel::RNH:
            relaxationStep();
            hamiltonianStep();
            break;
        case QV_SplitKernel::HRNH:
            hamiltonianStep();
            relaxationStep();
            hamiltonianStep();
            break;
        case QV_SplitKernel::RNHRN:
            relaxationStep();
            hamiltonianStep();
            relaxationStep();
            break;
        default:
            hamiltonianStep();
            relaxationStep();
            break;
        }
    }
};

/// Writes the polarization terms of densities that stand in memory.
void writeTerms(const Call& call)
{
    if (call.mTerms != nullptr) {
        QV_FieldKernel::polarization(call.mLevel, *call.mAtoms, call.mCount, call.mRho,
                                     call.mTerms);
    }
}

/// The plain form: node by node, for any number of levels and components.
[[gnu::noinline]] void advanceOneByOne(const Call& call, unsigned long first)
{
    for (unsigned long node = first; node < call.mCount; ++node) {
        Block<1, 0> block(call, node);
        block.advance();
        block.store(node);
    }
}

template <int W, int N>
QV_INLINE void advanceNodes(const Call& call)
{
    unsigned long node = 0;
    for (; node + W <= call.mCount; node += W) {
        Block<W, N> block(call, node);
        block.advance();
        block.store(node);
    }
    advanceOneByOne(call, node);
}

/// A sum of terms of either sign. It is +0 before the first term, or nothing, which saves an addition and
/// differs in the sign of a zero.
template <typename Real>
struct Sum
{
    Real mValue{};
    bool mIsEmpty;

    QV_INLINE explicit Sum(bool isEmpty)
        : mIsEmpty(isEmpty)
    {}
    QV_INLINE void add(const Real& term)
    {
        mValue = mIsEmpty ? term : mValue + term;
        mIsEmpty = false;
    }
    QV_INLINE void subtract(const Real& term)
    {
        mValue = mIsEmpty ? -term : mValue - term;
        mIsEmpty = false;
    }
};

/// Levels of two parities: bit a of PARITY is that of level a. One component's dipole that leads from one
/// parity to the other alone makes odd powers of A odd and even ones even, and all of them symmetric:
///
///     U[a][b] = U[b][a] = u  between levels of the same parity,  i u  between others,  u real.
template <int N, unsigned PARITY>
struct Parity
{
    static constexpr bool isOdd(int a, int b) { return ((PARITY >> a ^ PARITY >> b) & 1U) != 0; }

    /// Whether a matrix is symmetric and has zeros wherever the parities differ, or where they do not.
    static bool isKeptBy(const double* matrix, bool isMatrixOdd)
    {
        bool isKept = true;
        for (int a = 0; a < N; ++a) {
            for (int b = 0; b < N; ++b) {
                const double value = matrix[a * N + b];
                isKept = isKept && value == matrix[b * N + a];
                isKept = isKept && (value == 0.0 || isOdd(a, b) == isMatrixOdd);
            }
        }
        return isKept;
    }

    /// Whether the dipole and the tables formed of it are such. With one component the third-order term of
    /// 4 levels is zero.
    static bool isKeptBy(const QV_Atoms& atoms, const QV_SplitKernel::Tables& tables)
    {
        bool isKept =
            atoms.mComponents == 1 && std::abs(tables.mTau) < mostTau && isKeptBy(atoms.mPs, true);
        if constexpr (N > 2) {
            isKept = isKept && tables.mTraces3[0] == 0.0 && isKeptBy(tables.mProducts2, false);
        }
        for (int i = 0; N > 3 && i < N * N; ++i) {
            isKept = isKept && tables.mProducts3[i] == 0.0;
        }
        return isKept;
    }
};

/// The tables of a call, where no store to a density can change them.
template <int N>
struct Constants
{
    double mC; ///< Imaginary part of c; the real one is 0.
    double mTrace2;
    double mTrace4 = 0.0;
    double mP[N * N] = {};
    double mProduct[N * N] = {};
    double mExpA[N * N] = {};
    double mDecay[2 * N * N] = {};
    double mRhoE[N] = {};
    bool mStartsRelaxing;

    explicit Constants(const Call& call)
        : mC(call.mTables->mTau * 0.5)
        , mTrace2(call.mTables->mTraces2[0])
        , mStartsRelaxing(call.mTables->mOrder == QV_SplitKernel::RNHRN)
    {
        const QV_SplitKernel::Tables& tables = *call.mTables;
        std::copy_n(call.mAtoms->mPs, N * N, mP);
        std::copy_n(tables.mExpA, N * N, mExpA);
        std::copy_n(tables.mDecay, 2 * N * N, mDecay);
        if constexpr (N > 2) {
            std::copy_n(tables.mProducts2, N * N, mProduct);
        }
        if constexpr (N > 3) {
            mTrace4 = tables.mTraces4[0];
        }
        for (int k = 0; k < N; ++k) {
            mRhoE[k] = tables.mRhoE != nullptr ? tables.mRhoE[k] + 0.0 : 0.0; // no -0
        }
    }
};

/// W nodes with N levels of two parities, for the orders that end with RN, which takes one half of the
/// density from the other and makes the populations real: only that half is worked out.
///
/// The rest of what `Block` computes is of two kinds: values that RN drops, and products with a zero, added
/// to sums that start with +0. While all numbers are finite the latter change nothing, not even the sign of
/// a zero. A number that is not finite makes each one that it enters such, and by way of column 0 of rho U
/// all of them enter the density: `advance` looks there, and tells whether the result holds.
template <int W, int N, unsigned PARITY>
struct ParityBlock
{
    using Pack = QV_Pack<W>;
    using Real = typename Pack::Real;
    using Mask = typename Pack::Mask;
    using Complex = QV_PackComplex<Real>;

    const Constants<N>& mConstants;
    Real mRe[N * N]{}; ///< Of rho: on and below the diagonal, which is taken as real.
    Real mIm[N * N]{};
    Real mU[N * N]{}; ///< u, on and below the diagonal.
    Real mE{};
    Mask mOddities{}; ///< With a bit set where the result does not hold.

    static constexpr int index(int a, int b) { return a > b ? a * N + b : b * N + a; }
    static constexpr bool isOdd(int a, int b) { return Parity<N, PARITY>::isOdd(a, b); }

    QV_INLINE ParityBlock(const Constants<N>& constants, const double* rho, const double* E)
        : mConstants(constants)
    {
        Pack::template loadComplex<N * N>(rho, mRe, mIm);
        __builtin_memcpy(&mE, E, sizeof(Real));
    }

    /// Marks nodes that differ in a bit from what RN leaves.
    QV_INLINE void markUnrelaxed()
    {
        QV_Unroll::each<N>([&](auto a) __attribute__((always_inline)) {
            QV_Unroll::each<a>([&](auto b) __attribute__((always_inline)) {
                const Real conjugate = -mIm[a * N + b];
                Pack::addDifference(mRe[a * N + b], mRe[b * N + a], mOddities);
                Pack::addDifference(conjugate, mIm[b * N + a], mOddities);
            });
            Pack::addDifference(Real{}, mIm[a * N + a], mOddities);
        });
    }

    /// Marks nodes with a density, or a third power of the field, that is not finite.
    QV_INLINE void markInfinite()
    {
        Sum<Real> sum(true);
        QV_Unroll::each<N>([&](auto a) __attribute__((always_inline)) {
            QV_Unroll::each<a>([&](auto b) __attribute__((always_inline)) {
                sum.add(mRe[a * N + b]);
                sum.add(mIm[a * N + b]);
            });
            sum.add(mRe[a * N + a]);
        });
        if constexpr (N > 2) {
            sum.add(mE * mE * mE);
        }
        const Real difference = sum.mValue - sum.mValue;
        Pack::addDifference(Real{}, difference, mOddities);
    }

    /// The numerator of u[A][B] in the formulas of `Block` with e = 0, which the trace of an odd power is.
    template <int A, int B>
    QV_INLINE void formNumerator(const Real& squaredE, const Real& d, const Real& unit,
                                 Real& numerator) const
    {
        constexpr int i = A * N + B;
        const double c = mConstants.mC;
        if constexpr (isOdd(A, B)) {
            const Real term = mE * mConstants.mP[i];
            numerator = N > 3 ? -(c * (2.0 - 2.0 * d)) * term : -2.0 * c * term;
        } else if constexpr (N > 2) {
            numerator = 2.0 * -(c * c) * (squaredE * mConstants.mProduct[i]);
            numerator = A == B ? numerator + unit : numerator;
        } else {
            numerator = unit;
        }
    }

    QV_INLINE void formPropagator()
    {
        const double c2 = -(mConstants.mC * mConstants.mC);
        const Real squaredE = mE * mE;
        const Real d = 0.5 * c2 * (squaredE * mConstants.mTrace2);
        Real f{};
        Real g{};
        if constexpr (N > 3) {
            f = 0.5 * d * d;
            g = c2 * c2 * (mE * (mE * squaredE) * mConstants.mTrace4);
        }
        const Real unit = N == 2 ? 1.0 + d : N == 3 ? 1.0 - d : 1.0 - d - f + g / 4.0;
        const Real divisor = N > 3 ? 1.0 - d + f - g / 4.0 : 1.0 - d;
        const Real norm = divisor * divisor;
        QV_Unroll::each<N>([&](auto a) __attribute__((always_inline)) {
            QV_Unroll::each<a + 1>([&](auto b) __attribute__((always_inline)) {
                constexpr int i = a * N + b;
                Real numerator;
                formNumerator<a, b>(squaredE, d, unit, numerator);
                if constexpr (N > 2) {
                    mU[i] = numerator * divisor / norm;
                } else {
                    mU[i] = a > 0 && a == b ? mU[0] : numerator / divisor;
                }
            });
        });
    }

    /// Element (A, B) of rho U.
    template <int A, int B>
    QV_INLINE void multiplyRight(Complex& t) const
    {
        Sum<Real> re(true);
        Sum<Real> im(true);
        QV_Unroll::each<N>([&](auto k) __attribute__((always_inline)) {
            constexpr int i = index(A, k);
            const Real& u = mU[index(k, B)];
            Sum<Real>& ofRe = isOdd(k, B) ? im : re;
            Sum<Real>& ofIm = isOdd(k, B) ? re : im;
            ofRe.add(mRe[i] * u);
            if constexpr (k != A) {
                // i times i, and the conjugate above the diagonal, turn the sign
                if constexpr (isOdd(k, B) == (k > A)) {
                    ofIm.add(mIm[i] * u);
                } else {
                    ofIm.subtract(mIm[i] * u);
                }
            }
        });
        t.mRe = re.mValue;
        t.mIm = im.mValue;
    }

    /// Element (A, B) of U^+ t from column B of t.
    template <int A, int B>
    QV_INLINE void multiplyLeft(const Complex* t, Complex& rho) const
    {
        Sum<Real> re(A == B); // of populations RN takes no sign of a zero
        Sum<Real> im(false);
        QV_Unroll::each<N>([&](auto k) __attribute__((always_inline)) {
            const Real& u = mU[index(k, A)];
            if constexpr (isOdd(k, A)) {
                re.add(u * t[k].mIm);
                im.subtract(u * t[k].mRe);
            } else {
                re.add(u * t[k].mRe);
                im.add(u * t[k].mIm);
            }
        });
        rho.mRe = re.mValue;
        rho.mIm = im.mValue;
    }

    QV_INLINE void hamiltonianStep()
    {
        Complex result[N * N];
        QV_Unroll::each<N>([&](auto b) __attribute__((always_inline)) {
            Complex t[N];
            QV_Unroll::each<N>([&](auto a)
                                   __attribute__((always_inline)) { multiplyRight<a, b>(t[a]); });
            QV_Unroll::each<N - b>([&](auto i) __attribute__((always_inline)) {
                multiplyLeft<b + i, b>(t, result[(b + i) * N + b]);
            });
        });
        QV_Unroll::each<N * N>([&](auto i) __attribute__((always_inline)) {
            if constexpr (i % N <= i / N) {
                mRe[i] = result[i].mRe;
                mIm[i] = result[i].mIm;
            }
        });
    }

    QV_INLINE void relaxationStep()
    {
        Real populations[N];
        QV_Unroll::each<N>([&](auto a) __attribute__((always_inline)) {
            Sum<Real> sum(true);
            QV_Unroll::each<N>([&](auto k) __attribute__((always_inline)) {
                sum.add(mConstants.mExpA[a * N + k] * (mRe[k * N + k] - mConstants.mRhoE[k]));
            });
            populations[a] =
                sum.mValue + mConstants.mRhoE[a]; // no -0, with an equilibrium of +0 too
        });
        QV_Unroll::each<N>([&](auto a) __attribute__((always_inline)) {
            mRe[a * N + a] = populations[a];
            QV_Unroll::each<a>([&](auto b) __attribute__((always_inline)) {
                constexpr int i = a * N + b;
                const double decayRe = mConstants.mDecay[2 * i];
                const double decayIm = mConstants.mDecay[2 * i + 1];
                const Real re = mRe[i] * decayRe - mIm[i] * decayIm;
                mIm[i] = mRe[i] * decayIm + mIm[i] * decayRe;
                mRe[i] = re;
            });
        });
    }

    QV_INLINE bool advance()
    {
        if (mConstants.mStartsRelaxing) {
            relaxationStep();
        } else {
            markUnrelaxed();
        }
        formPropagator();
        hamiltonianStep();
        relaxationStep();
        markInfinite();
        return !Pack::isAnyBit(mOddities);
    }

    // For the polarization term.
    QV_INLINE const Real& population(int a) const { return mRe[a * N + a]; }
    QV_INLINE const Real& re(int a, int c) const { return mRe[a * N + c]; }
    QV_INLINE const Real& im(int a, int c) const { return mIm[a * N + c]; }

    QV_INLINE void store(double* rho)
    {
        QV_Unroll::each<N>([&](auto a) __attribute__((always_inline)) {
            QV_Unroll::each<a>([&](auto b) __attribute__((always_inline)) {
                mRe[b * N + a] = mRe[a * N + b];
                mIm[b * N + a] = -mIm[a * N + b];
            });
            mIm[a * N + a] = Real{};
        });
        Pack::template storeComplex<N * N>(mRe, mIm, rho);
    }
};

/// The part of a call from one node to another.
Call part(const Call& call, unsigned long first, unsigned long last)
{
    const unsigned long n = call.mAtoms->mLevels;
    const unsigned long m = call.mAtoms->mComponents;
    return {call.mLevel,
            call.mAtoms,
            call.mTables,
            last - first,
            call.mRho + 2 * n * n * first,
            call.mE + m * first,
            call.mTerms != nullptr ? call.mTerms + m * first : nullptr,
            call.mWork};
}

/// `GENERAL` advances what this form is not made for.
template <int W, int N, unsigned PARITY, void (*GENERAL)(const Call&)>
QV_INLINE bool advanceParity(const Call& call)
{
    const unsigned long order = call.mTables->mOrder;
    if (order == QV_SplitKernel::RNH || order == QV_SplitKernel::HRNH
        || !Parity<N, PARITY>::isKeptBy(*call.mAtoms, *call.mTables)) {
        return false;
    }
    const Constants<N> constants(call);
    const QV_PolarizationTerm<N> term(*call.mAtoms);
    unsigned long node = 0;
    for (; node + W <= call.mCount; node += W) {
        double* const rho = call.mRho + static_cast<unsigned long>(2 * N * N) * node;
        ParityBlock<W, N, PARITY> block(constants, rho, call.mE + node);
        if (!block.advance()) {
            GENERAL(part(call, node, node + W));
            continue;
        }
        block.store(rho);
        typename QV_Pack<W>::Real terms;
        if (call.mTerms != nullptr) {
            if (term.template compute<W>(block, terms)) {
                QV_Pack<W>::storeRow(terms, call.mTerms + node);
            } else {
                writeTerms(part(call, node, node + W));
            }
        }
    }
    GENERAL(part(call, node, call.mCount));
    return true;
}

/// The ways to give parities to two and three levels (a ladder, two lower levels, two upper ones), and a ladder of four;
/// level 0 has parity 0.
template <int W, void (*GENERAL)(const Call&)>
QV_INLINE void advanceParities(const Call& call)
{
    bool isDone = false;
    switch (call.mAtoms->mLevels) {
    case 2:
        isDone = advanceParity<W, 2, 0b10, GENERAL>(call);
        break;
    case 3:
        isDone = advanceParity<W, 3, 0b010, GENERAL>(call)
                 || advanceParity<W, 3, 0b100, GENERAL>(call)
                 || advanceParity<W, 3, 0b110, GENERAL>(call);
        break;
    case 4:
        isDone = advanceParity<W, 4, 0b1010, GENERAL>(call);
        break;
    default:
        break;
    }
    if (!isDone) {
        GENERAL(call);
    }
}

template <int W>
QV_INLINE void advanceLevels(const Call& call)
{
    const unsigned long levels =
        call.mAtoms->mComponents <= mostComponents ? call.mAtoms->mLevels : 0;
    switch (levels) {
    case 2:
        advanceNodes<W, 2>(call);
        break;
    case 3:
        advanceNodes<W, 3>(call);
        break;
    case 4:
        advanceNodes<W, 4>(call);
        break;
    default:
        advanceOneByOne(call, 0);
        break;
    }
}

[[gnu::noinline]] void advanceGeneralBaseline(const Call& call)
{
    advanceLevels<2>(call);
    writeTerms(call);
}

void advanceBaseline(const Call& call)
{
    advanceParities<2, advanceGeneralBaseline>(call);
}

#if defined(__x86_64__)
[[gnu::noinline, gnu::target("avx2")]] void advanceGeneralAvx2(const Call& call)
{
    advanceLevels<4>(call);
    writeTerms(call);
}

[[gnu::target("avx2")]] void advanceAvx2(const Call& call)
{
    advanceParities<4, advanceGeneralAvx2>(call);
}

[[gnu::noinline, gnu::target("avx512f")]] void advanceGeneralAvx512(const Call& call)
{
    advanceLevels<8>(call);
    writeTerms(call);
}

[[gnu::target("avx512f")]] void advanceAvx512(const Call& call)
{
    advanceParities<8, advanceGeneralAvx512>(call);
}
#endif

} // namespace

// NOLINTBEGIN(readability-non-const-parameter): rho is advanced in place, through the call
void QV_SplitKernel::advance(QV_InstructionSet::Level level, const QV_Atoms& atoms,
                             const Tables& tables, unsigned long count, double* rho,
                             const double* E, double* terms, std::vector<double>& work)
// NOLINTEND(readability-non-const-parameter)
{
    const unsigned long needed =
        2 * matricesInWork * atoms.mLevels * atoms.mLevels + atoms.mComponents + atoms.mLevels;
    work.resize(std::max<std::size_t>(work.size(), needed));
    const Call call{level, &atoms, &tables, count, rho, E, terms, work.data()};
    switch (level) {
    case QV_InstructionSet::PLAIN:
        advanceOneByOne(call, 0);
        writeTerms(call);
        break;
#if defined(__x86_64__)
    case QV_InstructionSet::AVX2:
        advanceAvx2(call);
        break;
    case QV_InstructionSet::AVX512:
        advanceAvx512(call);
        break;
#endif
    default:
        advanceBaseline(call);
        break;
    }
}
