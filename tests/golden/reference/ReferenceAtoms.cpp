#include "ReferenceAtoms.h"

#include <algorithm>
#include <cmath>

namespace {

using Complex = std::complex<double>;
const Complex I(0.0, 1.0);

} // namespace

ReferenceAtoms::ReferenceAtoms(const ReferenceProblem& problem, std::size_t system,
                               ReferenceMargins* margins)
    : mProblem(problem)
    , mOmega(problem.mOmegas[system])
    , mMargins(margins)
    , mN(problem.mLevelsNumber)
    , mWAdim(mN)
    , mRelaxDiag(mN)
    , mRelaxNut(mN)
    , mExpA(mN)
{}

void ReferenceAtoms::initialize(const ReferenceMesh& mesh, double omegac, std::ostream& log)
{
    const double muc = mProblem.mPMax;

    log << "\t init densities \n";
    mDensities.assign(static_cast<std::size_t>(mesh.mNodes), mProblem.mInitialDensity);
    log << "\t create adim values \n";
    mWAdim = mProblem.mW;
    mOmegaAdim = mOmega;
    mPsAdim = mProblem.mPs;
    mTransversalRelaxationAdim = mProblem.mTransversalRelaxation / omegac;
    log << "\t create the relax Diag and Relax Nut matrix \n";
    initRelaxation();

    log << "\t dimensionize \n";
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b < mN; ++b) {
            for (ReferenceRealMatrix& P : mPsAdim) {
                P(a, b) /= muc; // P' = P / muc
            }
            mWAdim(a, b) /= omegac;                  // W' = W / Rabi
            mRelaxDiag(a, b) /= omegac;              // D' = D / Rabi
            mRelaxNut(a, b) /= Complex(omegac, 0.0); // Nu' = Nu / Rabi
        }
        if (omegac != 0.0) {
            mOmegaAdim[a] /= omegac; // omega' = omega / Rabi
        }
    }
    // dzeta = muc N / eps0 / Emax
    mDzeta = muc * mProblem.mAtomsNumber / ReferenceProblem::EPS0 / mProblem.mFieldMaxValue;
    log << "\t end adimensionize \n";
}

/// The relaxation operators, in physical units.
void ReferenceAtoms::initRelaxation()
{
    if (mProblem.mRelaxationType == 1) {
        setLosses(mProblem.mW);
    } else if (mProblem.mRelaxationType == 2) {
        mRelaxDiag = ReferenceRealMatrix(mN);
        for (std::size_t i = 0; i < mN; ++i) {
            mRelaxDiag(i, i) = mProblem.mW(i, i); // D[i][i] = W[i][i]
        }
    } else {
        initPauli();
        setLosses(mWAdim);
    }

    mRelaxNut = ReferenceComplexMatrix(mN);
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t b = 0; b < mN; ++b) {
            if (a != b) {
                // Nu[a][b] = -(D[b][b] + D[a][a]) / 2 + 2 gamma + i (omega[a] - omega[b])
                mRelaxNut(a, b) = -0.5 * (mRelaxDiag(b, b) + mRelaxDiag(a, a))
                                  + 2 * mProblem.mTransversalRelaxation
                                  + I * (mOmega[a] - mOmega[b]);
            }
        }
    }
}

/// The rates towards lower level numbers from those towards higher ones; they stay in mWAdim too.
void ReferenceAtoms::initPauli()
{
    for (std::size_t i = 1; i < mN; ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            // detailed balance: W[j][i] = exp((omega[j] - omega[i]) beta) W[i][j]
            mWAdim(j, i) = std::exp((mOmega[j] - mOmega[i]) * mProblem.mBeta) * mProblem.mW(i, j);
        }
    }
}

/// D = gains off the diagonal; D[i][i] = - sum over j != i of gains[j][i]
void ReferenceAtoms::setLosses(const ReferenceRealMatrix& gains)
{
    mRelaxDiag = gains;
    for (std::size_t i = 0; i < mN; ++i) {
        double sum = 0.0;
        for (std::size_t j = 0; j < mN; ++j) {
            if (j != i) {
                sum += gains(j, i);
            }
        }
        mRelaxDiag(i, i) = -sum;
    }
}

void ReferenceAtoms::readMesh(const ReferenceMesh& mesh)
{
    if (mDz < 0) {
        mDz = mesh.cellLength();
    }
    if (mIFirst < 0 || mILast < 0) {
        mIFirst = mesh.mFirst;
        mILast = mesh.mLast;
    }
}

std::vector<double> ReferenceAtoms::polarizationTerm(long node, const std::vector<double>& E) const
{
    const ReferenceComplexMatrix& rho = mDensities[static_cast<std::size_t>(node)];
    const ReferenceRealMatrix& D = mRelaxDiag;
    const ReferenceComplexMatrix& Nu = mRelaxNut;
    const std::size_t m = E.size();

    ReferenceComplexMatrix X(mN);
    for (std::size_t a = 0; a < mN; ++a) {
        for (std::size_t k = 0; k < mN; ++k) {
            X(a, a) += rho(a, k) * D(a, k); // X[a][a] = sum over k of rho[a][k] D[a][k]
        }
        for (std::size_t b = 0; b < mN; ++b) {
            if (b != a) {
                X(a, b) = -Nu(a, b) * rho(a, b); // X[a][b] = -Nu[a][b] rho[a][b]
            }
        }
    }

    std::vector<double> term(m, 0.0);
    for (std::size_t p = 0; p < m; ++p) {
        term[p] = mDzeta * dipoleTrace(X, p); // term[p] = dzeta sum_b sum_k Re(X[k][b] P_p[b][k])
    }

    if (m > 1) {
        X = ReferenceComplexMatrix(mN);
        for (std::size_t p = 0; p < m; ++p) {
            for (std::size_t a = 0; a < mN; ++a) {
                for (std::size_t b = 0; b < mN; ++b) {
                    X(a, b) += (I * E[p]) * mPsAdim[p](a, b); // X = i sum over p of E[p] P_p
                }
            }
        }
        for (std::size_t p = 0; p < m; ++p) {
            term[p] += mDzeta * dipoleTrace(X, p); // adds zero, since E and P are real
        }
    }
    return term;
}

/// sum over b of sum over k of Re(X[k][b] P_p[b][k])
double ReferenceAtoms::dipoleTrace(const ReferenceComplexMatrix& X, std::size_t p) const
{
    double sum = 0.0;
    for (std::size_t b = 0; b < mN; ++b) {
        for (std::size_t k = 0; k < mN; ++k) {
            sum += (X(k, b) * mPsAdim[p](b, k)).real();
        }
    }
    return sum;
}

double ReferenceAtoms::savedValue(long node, std::size_t a, std::size_t b, double t) const
{
    const Complex value = mDensities[static_cast<std::size_t>(node)](a, b);
    if (mProblem.mMethod != ReferenceMethod::PredCorr) {
        return value.real();
    }
    // out of the rotating frame, with d = omega[b] - omega[a]:
    // Re(rho[a][b] exp(-g t) (cos(d t) + i sin(d t)))
    const double d = mOmegaAdim[b] - mOmegaAdim[a];
    const double decay = std::exp(-mTransversalRelaxationAdim * t);
    return (value * decay * Complex(std::cos(d * t), std::sin(d * t))).real();
}

bool ReferenceAtoms::mayIterate(double norm0)
{
    if (mProblem.mIterationsMaxNumber == 0) {
        return false;
    }
    const bool may = norm0 * mProblem.mConvergenceRate < 1.0;
    record(std::fabs(norm0 * mProblem.mConvergenceRate - 1.0));
    if (mMargins != nullptr && !may) {
        ++mMargins->mSkipped;
    }
    return may;
}

bool ReferenceAtoms::goesOn(unsigned long iter, double norm0, double norme)
{
    if (iter >= mProblem.mIterationsMaxNumber) {
        return false;
    }
    const double threshold = mProblem.mConvergenceRate * norm0;
    record(std::fabs(threshold - norme) / norme);
    return threshold < norme;
}

void ReferenceAtoms::record(double margin)
{
    if (mMargins != nullptr) {
        ++mMargins->mTests;
        // A margin of two zeros isn't a number, and no close call.
        if (margin < mMargins->mSmallest) {
            mMargins->mSmallest = margin;
        }
    }
}

void ReferenceAtoms::reportLimit(double t, double dt, unsigned long iter, std::ostream& log) const
{
    log << iter << " max:" << mProblem.mIterationsMaxNumber << "\n";
    log << "Le predicteur-correcteur ne converge plus, iteration " << static_cast<long>(t / dt)
        << "\n";
}
