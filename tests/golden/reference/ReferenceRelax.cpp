// The scheme that advances coherences and populations apart, with the field's step between them.
#include "ReferenceAtoms.h"

#include <algorithm>
#include <complex>

namespace {

using Complex = std::complex<double>;
const Complex I(0.0, 1.0);

bool refused(const ReferenceField& field, std::ostream& log)
{
    if (field.getDimension() == 1) {
        return false;
    }
    log << "Bloch Relaxation method  not implemented for a field dimension superior to 1 \n";
    return true;
}

} // namespace

/// The coherences of one node, the first active one, and the increment of its populations.
bool ReferenceAtoms::solveBlochRelaxExtraDiag(double t, double dt, const ReferenceField& field,
                                              std::ostream& log)
{
    if (refused(field, log)) {
        return false;
    }
    double norm0 = 1.0;
    mIterMax = 0;

    const long j = mIFirst;
    ReferenceComplexMatrix& rho = mDensities[static_cast<std::size_t>(j)];
    const double E = field.mE[static_cast<std::size_t>(j)][0];
    ReferenceComplexMatrix R = rho; // its diagonal is the increment of the populations
    for (std::size_t a = 0; a < mN; ++a) {
        R(a, a) = 0.0;
    }
    unsigned long iter = 0;

    if (mayIterate(norm0)) {
        double norme = 0.0;
        do {
            ++iter;
            const ReferenceComplexMatrix Rp = R;
            norme = densityStepExtraDiag(R, Rp, rho, E, dt); // norme = acc
            if (iter == 1) {
                norm0 = norme;
            }
        } while (goesOn(iter, norm0, norme));
    }

    mIterMax = std::max(mIterMax, iter);
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b < mN; ++b) {
            if (a == b) {
                rho(a, a) += R(a, a); // populations: rho[a][a] += R[a][a]
            } else {
                rho(a, b) = R(a, b); // coherences: rho[a][b] = R[a][b]
            }
        }
    }
    if (iter == mProblem.mIterationsMaxNumber) {
        reportLimit(t, dt, iter, log);
        log << "i:" << j << "\n";
    }
    return true;
}

double ReferenceAtoms::densityStepExtraDiag(ReferenceComplexMatrix& R,
                                            const ReferenceComplexMatrix& Rp,
                                            const ReferenceComplexMatrix& rho, double E,
                                            double dt) const
{
    const ReferenceRealMatrix& P = mPsAdim[0];
    const ReferenceComplexMatrix& Nu = mRelaxNut;
    double acc = 0.0;

    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b <= a; ++b) {
            // c1 = sum over j != b of P[a][j] (Rp + rho)[j][b] + P[a][b] Rp[b][b]
            Complex c1 = 0.0;
            for (std::size_t j = 0; j < mN; ++j) {
                if (j != b) {
                    c1 += P(a, j) * (Rp(j, b) + rho(j, b));
                }
            }
            c1 += P(a, b) * Rp(b, b);
            // c2 = sum over j != a of (Rp + rho)[a][j] P[j][b] + Rp[a][a] P[a][b]
            Complex c2 = 0.0;
            for (std::size_t j = 0; j < mN; ++j) {
                if (j != a) {
                    c2 += (Rp(a, j) + rho(a, j)) * P(j, b);
                }
            }
            c2 += Rp(a, a) * P(a, b);
            // Z = rho[a][b], 0 on the diagonal
            const Complex Z = b != a ? rho(a, b) : Complex(0.0);
            // G = (c1 - c2) / 2 + P[a][b] Re rho[b][b] - P[a][b] Re rho[a][a]
            const Complex G =
                0.5 * (c1 - c2) + P(a, b) * rho(b, b).real() - P(a, b) * rho(a, a).real();
            // R[a][b] = Z + i dt E G - (Nu dt / 2) (Rp + Z)
            R(a, b) = Z + ((I * dt) * E) * G - (Nu(a, b) * dt * 0.5) * (Rp(a, b) + Z);
        }
        const Complex d = R(a, a) - Rp(a, a);
        acc += (d * d).real(); // acc += Re(d d)
    }
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t c = 0; c < a; ++c) {
            R(c, a) = std::conj(R(a, c));
            const Complex d1 = R(c, a) - Rp(c, a);
            const Complex d2 = R(a, c) - Rp(a, c);
            acc += 2 * (d1 * d2).real(); // acc += 2 Re(d1 d2)
        }
    }
    return acc;
}

/// The populations of every active node; Eold is the field before Ampere's step.
bool ReferenceAtoms::solveBlochRelaxDiag(double t, double dt, const ReferenceField& field,
                                         const std::vector<std::vector<double>>& Eold,
                                         std::ostream& log)
{
    if (refused(field, log)) {
        return false;
    }
    double norm0 = 1.0; // the first residual of a node; handed on from node to node
    mIterMax = 0;

    for (long j = mIFirst; j <= mILast; ++j) {
        ReferenceComplexMatrix& rho = mDensities[static_cast<std::size_t>(j)];
        const double Esum =
            Eold[static_cast<std::size_t>(j)][0] + field.mE[static_cast<std::size_t>(j)][0];
        std::vector<Complex> Dn(mN);
        for (std::size_t a = 0; a < mN; ++a) {
            Dn[a] = rho(a, a);
        }
        unsigned long iter = 0;

        if (mayIterate(norm0)) {
            double norme = 0.0;
            do {
                ++iter;
                const std::vector<Complex> Dp = Dn;
                norme = densityStepDiag(Dn, Dp, rho, Esum, dt); // norme = acc
                if (iter == 1) {
                    norm0 = norme;
                }
            } while (goesOn(iter, norm0, norme));
        }

        mIterMax = std::max(mIterMax, iter);
        for (std::size_t a = 0; a < mN; ++a) {
            rho(a, a) = Dn[a];
        }
        if (iter == mProblem.mIterationsMaxNumber) {
            reportLimit(t, dt, iter, log);
            log << "i:" << j << "\n";
        }
    }
    return true;
}

double ReferenceAtoms::densityStepDiag(std::vector<Complex>& Dn, const std::vector<Complex>& Dp,
                                       const ReferenceComplexMatrix& rho, double Esum,
                                       double dt) const
{
    const ReferenceRealMatrix& P = mPsAdim[0];
    const ReferenceRealMatrix& D = mRelaxDiag;
    double acc = 0.0;

    for (std::size_t a = 0; a < mN; ++a) {
        Complex c1 = 0.0; // c1 = sum over c != a of P[a][c] rho[c][a]
        Complex c2 = 0.0; // c2 = sum over c != a of P[c][a] rho[a][c]
        for (std::size_t c = 0; c < mN; ++c) {
            if (c != a) {
                c1 += P(a, c) * rho(c, a);
                c2 += P(c, a) * rho(a, c);
            }
        }
        Complex Q = 0.0; // Q = sum over k of (Dp[k] + rho[k][k]) D[a][k]
        for (std::size_t k = 0; k < mN; ++k) {
            Q += (Dp[k] + rho(k, k)) * D(a, k);
        }
        // Dn[a] = rho[a][a] + (dt / 2) (i (Eold + E) (c1 - c2) + Q)
        Dn[a] = rho(a, a) + (dt * 0.5) * ((I * Esum) * (c1 - c2) + Q);
        const Complex d = Dn[a] - Dp[a];
        acc += (d * d).real(); // acc += Re(d d)
    }
    return acc;
}
