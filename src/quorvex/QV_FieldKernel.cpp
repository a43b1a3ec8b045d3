#include "quorvex/QV_FieldKernel.h"

#include "quorvex/QV_Inline.h"
#include "quorvex/QV_Pack.h"
#include "quorvex/QV_PackComplex.h"

#include <algorithm>

#pragma GCC diagnostic ignored "-Wpsabi" // no pack crosses a call that is not inlined

namespace {

using Fields = QV_FieldKernel::Fields;

/// The component that component j drives, and the sign of the coupling.
struct Rotation
{
    unsigned long mNext;
    double mSign;
    Rotation(unsigned long j, unsigned long p)
        : mNext((j + 1) % p)
        , mSign(j % 2 == 0 ? 1.0 : -1.0)
    {}
};

QV_INLINE void faradayBody(const Fields& fields, double r)
{
    const unsigned long p = fields.mComponents;
    for (unsigned long j = 0; j < p; ++j) {
        const Rotation rotation(j, p);
        const double sr = rotation.mSign * r;
        double* const __restrict b = fields.mB + rotation.mNext;
        const double* const __restrict e = fields.mE + j;
        if (p == 1) {
            for (unsigned long i = 0; i < fields.mLines; ++i) {
                b[i] -= sr * (e[i + 1] - e[i]);
            }
        } else {
            for (unsigned long i = 0; i < fields.mLines; ++i) {
                b[i * p] -= sr * (e[(i + 1) * p] - e[i * p]);
            }
        }
    }
}

/// `terms` is null in the empty zones.
QV_INLINE void ampereBody(const Fields& fields, unsigned long first, unsigned long last, double r,
                          double dt, const double* terms)
{
    const unsigned long p = fields.mComponents;
    for (unsigned long j = 0; j < p; ++j) {
        const Rotation rotation(j, p);
        const double sr = rotation.mSign * r;
        double* const __restrict e = fields.mE + j;
        const double* const __restrict b = fields.mB + rotation.mNext;
        if (terms == nullptr && p == 1) {
            for (unsigned long i = first; i <= last; ++i) {
                e[i] -= sr * (b[i] - b[i - 1]);
            }
        } else if (terms == nullptr) {
            for (unsigned long i = first; i <= last; ++i) {
                e[i * p] -= sr * (b[i * p] - b[(i - 1) * p]);
            }
        } else if (p == 1) {
            for (unsigned long i = first; i <= last; ++i) {
                e[i] -= sr * (b[i] - b[i - 1]) + dt * terms[i - first];
            }
        } else {
            for (unsigned long i = first; i <= last; ++i) {
                e[i * p] -= sr * (b[i * p] - b[(i - 1) * p]) + dt * terms[(i - first) * p + j];
            }
        }
    }
}

/// Nodes between two lines.
QV_INLINE void curlBody(const Fields& fields, unsigned long first, unsigned long count, double r,
                        double* __restrict terms)
{
    const double* const __restrict b = fields.mB;
    const unsigned long p = fields.mComponents;
    if (p == 1) {
        for (unsigned long i = 0; i < count; ++i) {
            terms[i] = -r * (b[first + i] - b[first + i - 1]);
        }
    } else {
        for (unsigned long i = 0; i < count; ++i) {
            terms[i] = -r * (b[(first + i) * p] - b[(first + i - 1) * p]);
        }
    }
}

QV_INLINE void sumBody(double factor, unsigned long count, const double* __restrict known,
                       double* __restrict terms)
{
    for (unsigned long i = 0; i < count; ++i) {
        terms[i] += factor * known[i];
    }
}

/// One node beside a line that does not exist, or beside none.
double curlAtEdge(const Fields& fields, unsigned long node, double r)
{
    const unsigned long p = fields.mComponents;
    const double after = node < fields.mLines ? fields.mB[node * p] : 0.0;
    const double before = node > 0 && node <= fields.mLines ? fields.mB[(node - 1) * p] : 0.0;
    return -r * (after - before);
}

/// One node beside a line that does not exist.
void ampereAtEdge(const Fields& fields, unsigned long node, double r, double dt,
                  const double* terms)
{
    const unsigned long p = fields.mComponents;
    for (unsigned long j = 0; j < p; ++j) {
        const Rotation rotation(j, p);
        const double after = node < fields.mLines ? fields.mB[node * p + rotation.mNext] : 0.0;
        const double before = node > 0 ? fields.mB[(node - 1) * p + rotation.mNext] : 0.0;
        fields.mE[node * p + j] -= rotation.mSign * r * (after - before) + dt * terms[j];
    }
}

/// X[a][b] of the polarization term, of n levels.
template <typename Real>
QV_INLINE Real sourceElement(const QV_Atoms& atoms, unsigned long n,
                             const QV_PackComplex<Real>* density, unsigned long a, unsigned long b)
{
    const unsigned long i = a * n + b;
    if (a != b) {
        return -(atoms.mNu[2 * i] * density[i].mRe - atoms.mNu[2 * i + 1] * density[i].mIm);
    }
    // The row of the density, not its diagonal, so that coherences take part as well.
    Real sum{};
    for (unsigned long k = 0; k < n; ++k) {
        sum += density[a * n + k].mRe * atoms.mD[a * n + k];
    }
    return sum;
}

/// Adds the terms of W nodes with n levels.
template <int W>
QV_INLINE void polarizationAt(const QV_Atoms& atoms, unsigned long n, double factor,
                              const QV_PackComplex<typename QV_Pack<W>::Real>* density,
                              double* terms)
{
    using Pack = QV_Pack<W>;
    using Real = typename Pack::Real;
    const unsigned long m = atoms.mComponents;
    for (unsigned long p = 0; p < m; ++p) {
        const double* const P = atoms.mPs + p * n * n;
        Real sum{};
        for (unsigned long b = 0; b < n; ++b) {
            Real column{};
            for (unsigned long k = 0; k < n; ++k) {
                column += sourceElement(atoms, n, density, k, b) * P[b * n + k];
            }
            sum += column;
        }
        // With several components the field itself enters the source with i E P, whose real part is zero.
        Real term;
        Pack::load(terms + p, m, 1, &term);
        term += factor * (atoms.mDzeta * sum);
        Pack::store(&term, m, 1, terms + p);
    }
}

[[gnu::noinline]] void polarizationOneByOne(const QV_Atoms& atoms, double factor,
                                            unsigned long first, unsigned long count,
                                            const double* rho, double* terms)
{
    const unsigned long n = atoms.mLevels;
    const auto* const densities = reinterpret_cast<const QV_PackComplex<double>*>(rho);
    for (unsigned long i = first; i < count; ++i) {
        polarizationAt<1>(atoms, n, factor, densities + n * n * i, terms + atoms.mComponents * i);
    }
}

template <int W, int N>
QV_INLINE void polarizationNodes(const QV_Atoms& atoms, double factor, unsigned long count,
                                 const double* rho, double* terms)
{
    unsigned long i = 0;
    for (; i + W <= count; i += W) {
        QV_PackComplex<typename QV_Pack<W>::Real> density[N * N] = {};
        QV_Pack<W>::load(rho + 2UL * N * N * i, 2UL * N * N, 2UL * N * N, &density[0].mRe);
        polarizationAt<W>(atoms, N, factor, density, terms + atoms.mComponents * i);
    }
    polarizationOneByOne(atoms, factor, i, count, rho, terms);
}

template <int W>
QV_INLINE void polarizationLevels(const QV_Atoms& atoms, double factor, unsigned long count,
                                  const double* rho, double* terms)
{
    switch (atoms.mLevels) {
    case 2:
        polarizationNodes<W, 2>(atoms, factor, count, rho, terms);
        break;
    case 3:
        polarizationNodes<W, 3>(atoms, factor, count, rho, terms);
        break;
    case 4:
        polarizationNodes<W, 4>(atoms, factor, count, rho, terms);
        break;
    default:
        polarizationOneByOne(atoms, factor, 0, count, rho, terms);
        break;
    }
}

// What the wrappers do, so that there is one for each instruction set and not one for each operation.
enum class Task { FARADAY, AMPERE, CURL, POLARIZATION, SUM };

/// The arguments of the tasks; each reads its own.
struct Call
{
    Task mTask;
    Fields mFields = {};
    unsigned long mFirst = 0;
    unsigned long mLast = 0;
    unsigned long mCount = 0;
    double mR = 0.0;
    double mDt = 0.0;
    double mFactor = 0.0;
    const QV_Atoms* mAtoms = nullptr;
    const double* mRho = nullptr;
    const double* mSource = nullptr;
    double* mTerms = nullptr;
};

template <int W>
QV_INLINE void perform(const Call& call)
{
    switch (call.mTask) {
    case Task::FARADAY:
        faradayBody(call.mFields, call.mR);
        break;
    case Task::AMPERE:
        ampereBody(call.mFields, call.mFirst, call.mLast, call.mR, call.mDt, call.mSource);
        break;
    case Task::CURL:
        curlBody(call.mFields, call.mFirst, call.mCount, call.mR, call.mTerms);
        break;
    case Task::POLARIZATION:
        polarizationLevels<W>(*call.mAtoms, call.mFactor, call.mCount, call.mRho, call.mTerms);
        break;
    case Task::SUM:
        sumBody(call.mFactor, call.mCount, call.mSource, call.mTerms);
        break;
    }
}

void performBaseline(const Call& call)
{
    perform<2>(call);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void performAvx2(const Call& call)
{
    perform<4>(call);
}

[[gnu::target("avx512f")]] void performAvx512(const Call& call)
{
    perform<8>(call);
}
#endif

void dispatch(QV_InstructionSet::Level level, const Call& call)
{
    switch (level) {
    case QV_InstructionSet::PLAIN:
        if (call.mTask == Task::POLARIZATION) {
            polarizationOneByOne(*call.mAtoms, call.mFactor, 0, call.mCount, call.mRho,
                                 call.mTerms);
        } else {
            performBaseline(call);
        }
        break;
#if defined(__x86_64__)
    case QV_InstructionSet::AVX2:
        performAvx2(call);
        break;
    case QV_InstructionSet::AVX512:
        performAvx512(call);
        break;
#endif
    default:
        performBaseline(call);
        break;
    }
}

} // namespace

void QV_FieldKernel::faraday(QV_InstructionSet::Level level, const Fields& fields, double r)
{
    dispatch(level, {.mTask = Task::FARADAY, .mFields = fields, .mR = r});
}

void QV_FieldKernel::ampere(QV_InstructionSet::Level level, const Fields& fields, long first,
                            long last, double r)
{
    if (first <= last) {
        dispatch(level, {.mTask = Task::AMPERE,
                         .mFields = fields,
                         .mFirst = static_cast<unsigned long>(first),
                         .mLast = static_cast<unsigned long>(last),
                         .mR = r});
    }
}

void QV_FieldKernel::ampereWithSource(QV_InstructionSet::Level level, const Fields& fields,
                                      long first, long last, double r, double dt,
                                      const double* terms)
{
    if (first > last) {
        return;
    }
    auto from = static_cast<unsigned long>(first);
    auto to = static_cast<unsigned long>(last);
    if (from == 0) {
        ampereAtEdge(fields, from, r, dt, terms);
        terms += fields.mComponents;
        ++from;
    }
    if (to == fields.mLines && from <= to) {
        ampereAtEdge(fields, to, r, dt, terms + (to - from) * fields.mComponents);
        --to;
    }
    if (from <= to) {
        dispatch(level, {.mTask = Task::AMPERE,
                         .mFields = fields,
                         .mFirst = from,
                         .mLast = to,
                         .mR = r,
                         .mDt = dt,
                         .mSource = terms});
    }
}

void QV_FieldKernel::curl(QV_InstructionSet::Level level, const Fields& fields, unsigned long first,
                          unsigned long count, double r, double* terms)
{
    while (count > 0 && first == 0) {
        *terms++ = curlAtEdge(fields, first++, r);
        --count;
    }
    while (count > 0 && first + count > fields.mLines) {
        --count;
        terms[count] = curlAtEdge(fields, first + count, r);
    }
    if (count > 0) {
        dispatch(level, {.mTask = Task::CURL,
                         .mFields = fields,
                         .mFirst = first,
                         .mCount = count,
                         .mR = r,
                         .mTerms = terms});
    }
}

void QV_FieldKernel::addPolarization(QV_InstructionSet::Level level, const QV_Atoms& atoms,
                                     double factor, unsigned long count, const double* rho,
                                     double* terms)
{
    dispatch(level, {.mTask = Task::POLARIZATION,
                     .mCount = count,
                     .mFactor = factor,
                     .mAtoms = &atoms,
                     .mRho = rho,
                     .mTerms = terms});
}

void QV_FieldKernel::polarization(QV_InstructionSet::Level level, const QV_Atoms& atoms,
                                  unsigned long count, const double* rho, double* terms)
{
    std::fill_n(terms, atoms.mComponents * count, 0.0);
    addPolarization(level, atoms, 1.0, count, rho, terms);
}

void QV_FieldKernel::addTerms(QV_InstructionSet::Level level, double factor, unsigned long count,
                              const double* known, double* terms)
{
    dispatch(level, {.mTask = Task::SUM,
                     .mCount = count,
                     .mFactor = factor,
                     .mSource = known,
                     .mTerms = terms});
}
