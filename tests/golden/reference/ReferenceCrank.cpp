// The trapezoidal schemes, solved by fixed-point iteration at each node. rho is the density at the
// start of the step, R the iterate, Rp the iterate before; P is the first dipole matrix.
#include "ReferenceAtoms.h"

#include <algorithm>
#include <complex>

namespace {

using Complex = std::complex<double>;
const Complex I(0.0, 1.0);

} // namespace

/// C[a][b] = sum over k of P[a][k] (Rp + rho)[k][b] - P[k][b] (Rp + rho)[a][k]
Complex ReferenceAtoms::commutator(const ReferenceComplexMatrix& Rp,
                                   const ReferenceComplexMatrix& rho, std::size_t a,
                                   std::size_t b) const
{
    const ReferenceRealMatrix& P = mPsAdim[0];
    Complex C = 0.0;
    for (std::size_t k = 0; k < mN; ++k) {
        C += P(a, k) * (Rp(k, b) + rho(k, b)) - P(k, b) * (Rp(a, k) + rho(a, k));
    }
    return C;
}

bool ReferenceAtoms::solveBlochZiolko(double t, double dt, ReferenceField& field, std::ostream& log)
{
    if (field.getDimension() != 1) {
        log << "Bloch Ziolko  method  not implemented for a field dimension superior to 1 \n";
        return false;
    }
    return solveWithField(Scheme::Ziolko, t, dt, field, log);
}

bool ReferenceAtoms::solveBlochP(double t, double dt, ReferenceField& field, std::ostream& log)
{
    if (field.getDimension() != 1) {
        log << "Bloch P  method  not implemented for a field dimension superior to 1 \n";
        return false;
    }
    return solveWithField(Scheme::P, t, dt, field, log);
}

bool ReferenceAtoms::solveBlochPredCorr(double t, double dt, ReferenceField& field,
                                        std::ostream& log)
{
    if (field.getDimension() != 1) {
        log << "Bloch Predictor Corrector  method  not implemented for a field dimension superior "
               "to 1 \n";
        return false;
    }
    return solveWithField(Scheme::PredCorr, t, dt, field, log);
}

/// Advances field and density of every active node together.
bool ReferenceAtoms::solveWithField(Scheme scheme, double t, double dt, ReferenceField& field,
                                    std::ostream& log)
{
    const double r = dt / mDz;
    double norm0 = 1.0; // the first residual of a node; handed on from node to node
    mIterMax = 0;

    // S[j] = -r (H[j] - H[j-1]), with the magnetic field of the whole zone as it stands at entry
    std::vector<double> S;
    for (long j = mIFirst; j <= mILast; ++j) {
        S.push_back(-r * (field.lineField(j, 0) - field.lineField(j - 1, 0)));
    }

    for (long j = mIFirst; j <= mILast; ++j) {
        ReferenceComplexMatrix& rho = mDensities[static_cast<std::size_t>(j)];
        const double Sj = S[static_cast<std::size_t>(j - mIFirst)];
        const double Eold = field.mE[static_cast<std::size_t>(j)][0];
        ReferenceComplexMatrix R = rho;
        double Enew = Eold;
        unsigned long iter = 0;

        if (mayIterate(norm0)) {
            double norme = 0.0;
            do {
                ++iter;
                const double Ep = Enew;
                const ReferenceComplexMatrix Rp = R;

                // Enew = (Eold - T dzeta) + S[j]
                const double T = polarizationStep(scheme, R, rho, dt);
                Enew = (Eold - T * mDzeta) + Sj;

                // The density sees the field of the iterate before: Ef = Ep + Eold
                const double Ef = Ep + Eold;
                const double acc = scheme == Scheme::PredCorr
                                       ? densityStepPredCorr(R, Rp, rho, Ef, dt)
                                       : densityStepP(R, Rp, rho, Ef, dt);

                // norme = ((Ep - Enew)^2 + acc) dz^2
                norme = ((Ep - Enew) * (Ep - Enew) + acc) * (mDz * mDz);
                if (iter == 1) {
                    norm0 = norme;
                }
            } while (goesOn(iter, norm0, norme));
        }

        mIterMax = std::max(mIterMax, iter);
        field.mE[static_cast<std::size_t>(j)][0] = Enew;
        rho = R;
        if (iter == mProblem.mIterationsMaxNumber) {
            reportLimit(t, dt, iter, log);
            if (scheme == Scheme::PredCorr) {
                return false;
            }
        }
    }
    return true;
}

/// T, what the polarization takes from the field of the node, before the coupling.
double ReferenceAtoms::polarizationStep(Scheme scheme, const ReferenceComplexMatrix& R,
                                        const ReferenceComplexMatrix& rho, double dt) const
{
    const ReferenceRealMatrix& P = mPsAdim[0];
    const ReferenceComplexMatrix& Nu = mRelaxNut;
    double T = 0.0;
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t k = 0; k < mN; ++k) {
            if (scheme == Scheme::Ziolko) {
                // T = sum over a, k of Re(P[a][k] Nu[k][a] (R + rho)[k][a]) dt / 2
                T += ((P(a, k) * Nu(k, a)) * (R(k, a) + rho(k, a))).real() * dt * 0.5;
            } else {
                // T = sum over a, k of Re(P[a][k] (R - rho)[k][a])
                T += (P(a, k) * (R(k, a) - rho(k, a))).real();
            }
        }
    }
    return T;
}

/// The density of the schemes with the polarization and with its derivative. The residual restarts
/// with each row, so what is returned is the last row's.
double ReferenceAtoms::densityStepP(ReferenceComplexMatrix& R, const ReferenceComplexMatrix& Rp,
                                    const ReferenceComplexMatrix& rho, double Ef, double dt) const
{
    const ReferenceRealMatrix& W = mWAdim;
    const ReferenceRealMatrix& D = mRelaxDiag;
    const ReferenceComplexMatrix& Nu = mRelaxNut;
    double acc = 0.0;

    for (std::size_t a = 0; a < mN; ++a) {
        acc = 0.0;
        for (std::size_t c = 0; c < a; ++c) {
            // R[a][c] = rho + (i dt / 4) Ef C - (dt / 2) Nu (Rp + rho)
            R(a, c) = rho(a, c) + ((I * dt * 0.25) * Ef) * commutator(Rp, rho, a, c)
                      - (dt * 0.5 * Nu(a, c)) * (Rp(a, c) + rho(a, c));
            R(c, a) = std::conj(R(a, c));
            const Complex d1 = R(c, a) - Rp(c, a);
            const Complex d2 = R(a, c) - Rp(a, c);
            acc += 2 * (d1 * d2).real(); // acc += 2 Re(d1 d2)
        }
        // v = (i dt / 4) Ef C + sum over k of (dt / 2) W[a][k] (Rp + rho)[k][k]
        //     + (dt / 2) D[a][a] (Rp + rho)[a][a] + rho[a][a]
        Complex v = ((I * dt * 0.25) * Ef) * commutator(Rp, rho, a, a);
        for (std::size_t k = 0; k < mN; ++k) {
            v += (dt * 0.5 * W(a, k)) * (Rp(k, k) + rho(k, k));
        }
        v += (dt * 0.5 * D(a, a)) * (Rp(a, a) + rho(a, a));
        v += rho(a, a);
        R(a, a) = v.real(); // R[a][a] = Re(v)
        const Complex d = R(a, a) - Rp(a, a);
        acc += (d * d).real(); // acc += Re(d d)
    }
    return acc;
}

/// The density of the predictor-corrector: coherences turn and decay with the single dephasing
/// rate, populations lose with W[a][a]. The residual is the last row's.
double ReferenceAtoms::densityStepPredCorr(ReferenceComplexMatrix& R,
                                           const ReferenceComplexMatrix& Rp,
                                           const ReferenceComplexMatrix& rho, double Ef,
                                           double dt) const
{
    const ReferenceRealMatrix& W = mWAdim;
    double acc = 0.0;

    for (std::size_t a = 0; a < mN; ++a) {
        acc = 0.0;
        for (std::size_t c = 0; c < a; ++c) {
            // z = i (omega[a] - omega[c]) + gamma
            const Complex z = I * (mOmegaAdim[a] - mOmegaAdim[c]) + mTransversalRelaxationAdim;
            // R[a][c] = rho + (i dt / 4) Ef C - (dt / 2) z (Rp + rho)
            R(a, c) = rho(a, c) + ((I * dt * 0.25) * Ef) * commutator(Rp, rho, a, c)
                      - (dt * 0.5 * z) * (Rp(a, c) + rho(a, c));
            R(c, a) = std::conj(R(a, c));
            const Complex d1 = R(c, a) - Rp(c, a);
            const Complex d2 = R(a, c) - Rp(a, c);
            acc += 2 * (d1 * d2).real(); // acc += 2 Re(d1 d2)
        }
        // v = (i dt / 4) Ef C + sum over k of (W[a][k] (Rp + rho)[k][k] - W[a][a] (Rp + rho)[a][a])
        //     dt / 2 + C + rho[a][a]
        const Complex C = commutator(Rp, rho, a, a);
        Complex v = ((I * dt * 0.25) * Ef) * C;
        for (std::size_t k = 0; k < mN; ++k) {
            v += (W(a, k) * (Rp(k, k) + rho(k, k)) - W(a, a) * (Rp(a, a) + rho(a, a))) * dt * 0.5;
        }
        v += C + rho(a, a);
        R(a, a) = v.real(); // R[a][a] = Re(v)
        const Complex d = R(a, a) - Rp(a, a);
        acc += (d * d).real(); // acc += Re(d d)
    }
    return acc;
}

bool ReferenceAtoms::solveBlochCrank(double t, double dt, const ReferenceField& field,
                                     std::ostream& log)
{
    if (field.getDimension() != 1) {
        log << "Bloch Crank Nicholson method  not implemented for a field dimension superior to 1 "
               "\n";
        return false;
    }
    double norm0 = 1.0; // the first residual of a node; handed on from node to node
    mIterMax = 0;

    for (long j = mIFirst; j <= mILast; ++j) {
        ReferenceComplexMatrix& rho = mDensities[static_cast<std::size_t>(j)];
        const double E = field.mE[static_cast<std::size_t>(j)][0];
        ReferenceComplexMatrix R = rho;
        unsigned long iter = 0;

        if (mayIterate(norm0)) {
            double norme = 0.0;
            do {
                ++iter;
                const ReferenceComplexMatrix Rp = R;
                norme = (mDz * mDz) * densityStepCrank(R, Rp, rho, E, dt); // norme = dz^2 acc
                if (iter == 1) {
                    norm0 = norme;
                }
            } while (goesOn(iter, norm0, norme));
        }

        mIterMax = std::max(mIterMax, iter);
        rho = R;
        if (iter == mProblem.mIterationsMaxNumber) {
            reportLimit(t, dt, iter, log);
            log << "i:" << j << "\n";
        }
    }
    return true;
}

/// One iteration with the field given; the residual sums over all rows.
double ReferenceAtoms::densityStepCrank(ReferenceComplexMatrix& R, const ReferenceComplexMatrix& Rp,
                                        const ReferenceComplexMatrix& rho, double E,
                                        double dt) const
{
    const ReferenceRealMatrix& D = mRelaxDiag;
    const ReferenceComplexMatrix& Nu = mRelaxNut;
    double acc = 0.0;

    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b <= a; ++b) {
            // R[a][b] = rho + (dt / 2) (i E C - Nu (Rp + rho))
            R(a, b) =
                rho(a, b)
                + (dt * 0.5)
                      * ((I * E) * commutator(Rp, rho, a, b) - Nu(a, b) * (Rp(a, b) + rho(a, b)));
        }
        for (std::size_t k = 0; k < mN; ++k) {
            // R[a][a] += sum over k of (dt / 2) D[a][k] (Rp + rho)[k][k]
            R(a, a) += (dt * 0.5 * D(a, k)) * (Rp(k, k) + rho(k, k));
        }
        const Complex d = R(a, a) - Rp(a, a);
        acc += (d * d).real(); // acc += Re(d d)
        for (std::size_t c = 0; c < a; ++c) {
            R(c, a) = std::conj(R(a, c));
            const Complex d1 = R(c, a) - Rp(c, a);
            const Complex d2 = R(a, c) - Rp(a, c);
            acc += 2 * (d1 * d2).real(); // acc += 2 Re(d1 d2)
        }
    }
    return acc;
}
