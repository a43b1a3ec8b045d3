#include "quorvex/QV_SplitKernel.h"

#include "quorvex/QV_Inline.h"
#include "quorvex/QV_Pack.h"
#include "quorvex/QV_PackComplex.h"

#include <algorithm>

#pragma GCC diagnostic ignored "-Wpsabi" // no pack crosses a call that is not inlined

namespace {

struct Call
{
    const QV_Atoms* mAtoms;
    const QV_SplitKernel::Tables* mTables;
    unsigned long mCount;
    double* mRho;
    const double* mE;
    double* mWork; ///< Matrices and field of the plain form.
};

constexpr unsigned long matricesInWork = 3; ///< rho, U and a temporary, complex.
constexpr unsigned long mostComponents = 4; ///< Of a field in the batched form; more go one by one.

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

void advanceBaseline(const Call& call)
{
    advanceLevels<2>(call);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void advanceAvx2(const Call& call)
{
    advanceLevels<4>(call);
}

[[gnu::target("avx512f")]] void advanceAvx512(const Call& call)
{
    advanceLevels<8>(call);
}
#endif

} // namespace

// NOLINTBEGIN(readability-non-const-parameter): rho is advanced in place, through the call
void QV_SplitKernel::advance(QV_InstructionSet::Level level, const QV_Atoms& atoms,
                             const Tables& tables, unsigned long count, double* rho,
                             const double* E, std::vector<double>& work)
// NOLINTEND(readability-non-const-parameter)
{
    const unsigned long needed =
        2 * matricesInWork * atoms.mLevels * atoms.mLevels + atoms.mComponents + atoms.mLevels;
    work.resize(std::max<std::size_t>(work.size(), needed));
    const Call call{&atoms, &tables, count, rho, E, work.data()};
    switch (level) {
    case QV_InstructionSet::PLAIN:
        advanceOneByOne(call, 0);
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
