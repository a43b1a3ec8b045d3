// Operator splitting: a Hamiltonian step in closed form, composed with a relaxation step.
#include "ReferenceAtoms.h"

#include <cmath>
#include <complex>

namespace {

using Complex = std::complex<double>;
const Complex I(0.0, 1.0);

ReferenceRealMatrix product(const ReferenceRealMatrix& A, const ReferenceRealMatrix& B)
{
    ReferenceRealMatrix C(A.size());
    for (std::size_t a = 0; a < A.size(); ++a) {
        for (std::size_t b = 0; b < A.size(); ++b) {
            for (std::size_t k = 0; k < A.size(); ++k) {
                C(a, b) += A(a, k) * B(k, b); // C[a][b] = sum over k of A[a][k] B[k][b]
            }
        }
    }
    return C;
}

/// rho becomes U-dagger rho U
void turn(ReferenceComplexMatrix& rho, const ReferenceComplexMatrix& U)
{
    const std::size_t n = U.size();
    ReferenceComplexMatrix temp(n);
    for (std::size_t a = 0; a < n; ++a) {
        for (std::size_t b = 0; b < n; ++b) {
            for (std::size_t k = 0; k < n; ++k) {
                temp(a, b) += rho(a, k) * U(k, b); // temp = rho U
            }
        }
    }
    for (std::size_t a = 0; a < n; ++a) {
        for (std::size_t b = 0; b < n; ++b) {
            rho(a, b) = 0.0;
            for (std::size_t k = 0; k < n; ++k) {
                rho(a, b) += std::conj(U(k, a)) * temp(k, b); // rho = U-dagger temp
            }
        }
    }
}

} // namespace

void ReferenceAtoms::solveBlochSplitInit(double dt, const ReferenceField& field, std::ostream& log)
{
    // The populations take half a step with order 3; the step itself halves with order 2.
    const double tau = mProblem.mSplitType == 3 ? dt * 0.5 : dt;
    const ReferenceRealMatrix& A = mRelaxDiag;

    // exp(tau A) by the classical Runge-Kutta scheme on dX/dt = A X, X(0) = 1:
    // k2 = A + (tau / 2) A A; k3 = A + (tau / 2) A k2; k4 = A + tau A k3
    ReferenceRealMatrix k2 = product(A, A);
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b < mN; ++b) {
            k2(a, b) = A(a, b) + (tau / 2) * k2(a, b);
        }
    }
    ReferenceRealMatrix k3 = product(A, k2);
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b < mN; ++b) {
            k3(a, b) = A(a, b) + (tau / 2) * k3(a, b);
        }
    }
    ReferenceRealMatrix k4 = product(A, k3);
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b < mN; ++b) {
            k4(a, b) = A(a, b) + tau * k4(a, b);
        }
    }
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b < mN; ++b) {
            // exp(tau A) = 1 + (tau / 6) A + (tau / 3) k2 + (tau / 3) k3 + (tau / 6) k4
            mExpA(a, b) = (a == b ? 1.0 : 0.0) + (tau / 6) * A(a, b) + (tau / 3) * k2(a, b)
                          + (tau / 3) * k3(a, b) + (tau / 6) * k4(a, b);
        }
    }

    log << "compute TrPPower \n";
    const unsigned long m = field.getDimension();
    mTableSize = 1;
    for (std::size_t r = 0; r < mN; ++r) {
        mTableSize *= m + 1; // (m + 1)^n entries
        if (mTableSize > 1048576) {
            mTableSize = (m + 1) * (m + 1) * (m + 1) * (m + 1); // no step reads beyond
            break;
        }
    }
    mPPower.clear();
    for (unsigned long p = 1; p <= m; ++p) {
        mPPower.emplace(p, mPsAdim[p - 1]);
    }
    unsigned long s = 1;
    for (std::size_t r = 1; r < mN; ++r) {
        s *= m + 1; // s = (m + 1)^r
        computePolarizationsPower(s, m, log);
    }
}

void ReferenceAtoms::computePolarizationsPower(unsigned long s, unsigned long p, std::ostream& log)
{
    log << "computePolarizationsPower \n";
    const unsigned long step = (s - 1) / p; // the first index of r - 1 factors, 11...1
    for (unsigned long q = 1; q <= p; ++q) {
        for (unsigned long u = step; u < s && q * s + u < mTableSize; ++u) {
            if (mPPower.contains(u)) {
                // product[q s + u] = P_q product[u]
                mPPower.emplace(q * s + u, product(mPPower.at(q), mPPower.at(u)));
            }
        }
    }
}

double ReferenceAtoms::traceOfProduct(unsigned long index) const
{
    double trace = 0.0;
    const auto entry = mPPower.find(index);
    if (entry != mPPower.end()) {
        for (std::size_t a = 0; a < mN; ++a) {
            trace += entry->second(a, a);
        }
    }
    return trace;
}

/// U += factor * the product at an index of the table
void ReferenceAtoms::addProduct(ReferenceComplexMatrix& U, Complex factor,
                                unsigned long index) const
{
    const auto entry = mPPower.find(index);
    if (entry != mPPower.end()) {
        for (std::size_t a = 0; a < mN; ++a) {
            for (std::size_t b = 0; b < mN; ++b) {
                U(a, b) += factor * entry->second(a, b);
            }
        }
    }
}

void ReferenceAtoms::solveBlochSplit(double dt, const ReferenceField& field, std::ostream& log)
{
    const double tau = mProblem.mSplitType == 2 ? dt * 0.5 : dt;
    ReferenceComplexMatrix U(mN); // stays zero for a number of levels without closed form

    for (long j = mIFirst; j <= mILast; ++j) {
        ReferenceComplexMatrix& rho = mDensities[static_cast<std::size_t>(j)];
        const Complex c = (I * tau) * 0.5; // c = i tau / 2
        hamiltonianPropagator(c, field.mE[static_cast<std::size_t>(j)], U, log);

        switch (mProblem.mSplitType) {
        case 1:
            relaxationStep(tau, rho);
            turn(rho, U);
            break;
        case 2:
            turn(rho, U);
            relaxationStep(tau, rho);
            turn(rho, U);
            break;
        case 3:
            relaxationStep(tau, rho);
            turn(rho, U);
            relaxationStep(tau, rho);
            break;
        default:
            turn(rho, U);
            relaxationStep(tau, rho);
            break;
        }
    }
}

void ReferenceAtoms::relaxationStep(double tau, ReferenceComplexMatrix& rho) const
{
    const bool shifted = mProblem.mRelaxationType != 0; // populations count from equilibrium
    const std::vector<double>& rhoE = mProblem.mRhoE;

    if (shifted) {
        for (std::size_t k = 0; k < mN; ++k) {
            rho(k, k) -= rhoE[k]; // rho[k][k] -= rhoE[k]
        }
    }
    std::vector<double> work(mN, 0.0);
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t k = 0; k < mN; ++k) {
            work[a] += mExpA(a, k) * rho(k, k).real(); // work[a] = sum_k exp(A)[a][k] Re rho[k][k]
        }
    }
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t c = 0; c < a; ++c) {
            // rho[a][c] *= exp(-tau Nu[a][c])
            const Complex z = -tau * mRelaxNut(a, c);
            rho(a, c) *= std::exp(z.real()) * Complex(std::cos(z.imag()), std::sin(z.imag()));
            rho(c, a) = std::conj(rho(a, c));
        }
    }
    for (std::size_t k = 0; k < mN; ++k) {
        rho(k, k) = shifted ? work[k] + rhoE[k] : work[k]; // rho[k][k] = work[k] (+ rhoE[k])
    }
}

/// s2 = Tr(A^2), s3 = Tr(A^3), s4 = Tr(A^4), multiplied out over the components.
ReferenceAtoms::Traces ReferenceAtoms::tracesOfPowers(const std::vector<double>& E) const
{
    const unsigned long m = E.size();
    const unsigned long base = m + 1;
    Traces traces;
    for (unsigned long p = 0; p < m; ++p) {
        for (unsigned long q = 0; q < m; ++q) {
            const unsigned long pq = (p + 1) * base + (q + 1);
            traces.mS2 += E[p] * E[q] * traceOfProduct(pq);
            for (unsigned long r = 0; r < m; ++r) {
                const unsigned long pqr = pq * base + (r + 1);
                traces.mS3 += E[p] * E[q] * E[r] * traceOfProduct(pqr);
                for (unsigned long s = 0; s < m; ++s) {
                    const unsigned long pqrs = pqr * base + (s + 1);
                    traces.mS4 += E[p] * E[q] * E[r] * E[s] * traceOfProduct(pqrs);
                }
            }
        }
    }
    return traces;
}

/// U = (1 - c A)(1 + c A)^-1 for A = sum over p of E[p] P_p, by the theorem of Cayley and Hamilton.
void ReferenceAtoms::hamiltonianPropagator(Complex c, const std::vector<double>& E,
                                           ReferenceComplexMatrix& U, std::ostream& log) const
{
    const unsigned long m = E.size();
    const unsigned long base = m + 1;

    const auto [s2, s3, s4] = tracesOfPowers(E);
    const double c2 = c.real() * c.real() - c.imag() * c.imag(); // c2 = Re(c^2)
    const Complex c3 = c * c2;                                   // c3 = c c2
    const double d = 0.5 * c2 * s2;                              // d = c2 s2 / 2
    const Complex e = s3 * c3 / 3.0;                             // e = s3 c3 / 3
    const double f = 0.5 * d * d;                                // f = d^2 / 2
    const double g = c2 * c2 * s4;                               // g = c2^2 s4

    Complex identity = 0.0; // factor of 1
    Complex linear = 0.0;   // factor of A
    Complex square = 0.0;   // factor of A^2
    Complex cube = 0.0;     // factor of T
    Complex denominator = 0.0;
    if (mN == 2) {
        // ((1 + d) 1 - 2c A) / (1 - d)
        identity = 1 + d;
        linear = -2.0 * c;
        denominator = 1 - d;
    } else if (mN == 3) {
        // ((1 - d - e) 1 - 2c A + 2 c2 A^2) / (1 - d + e)
        identity = 1 - d - e;
        linear = -2.0 * c;
        square = 2 * c2;
        denominator = 1 - d + e;
    } else if (mN == 4) {
        // ((1 - d - e - f + g/4) 1 - c (2 - 2d) A + 2 c2 A^2 + c3 T) / (1 - d + e + f - g/4)
        identity = 1 - d - e - f + g / 4;
        linear = -c * (2 - 2 * d);
        square = 2 * c2;
        cube = c3;
        denominator = 1 - d + e + f - g / 4;
    } else {
        log << "FATAL ERROR: No more than 4 levels for the splitting !! " << mN << " used.\n";
        return;
    }

    U = ReferenceComplexMatrix(mN);
    for (std::size_t a = 0; a < mN; ++a) {
        U(a, a) = identity;
    }
    for (unsigned long p = 0; p < m; ++p) {
        addProduct(U, linear * E[p], p + 1); // A
        for (unsigned long q = 0; q < m && mN > 2; ++q) {
            addProduct(U, square * (E[p] * E[q]), (p + 1) * base + (q + 1)); // A^2
            for (unsigned long r = 0; r < m && mN > 3; ++r) {
                // T: the stride of the second component is m, not m + 1, so this is not A^3
                const unsigned long index = (p + 1) * base * base + (q + 1) * m + (r + 1);
                addProduct(U, cube * (E[p] * E[q] * E[r]), index);
            }
        }
    }
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b < mN; ++b) {
            U(a, b) /= denominator;
        }
    }
}
