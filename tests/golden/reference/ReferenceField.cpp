#include "ReferenceField.h"

#include "ReferenceAtoms.h"

void ReferenceField::initialize(const ReferenceProblem& problem, const ReferenceMesh& mesh,
                                double rabiFrequency, std::ostream& log)
{
    mEnds = problem.mEnds;
    mR = problem.mR;
    mDimension = problem.mDimension;
    if (mFactors.empty()) {
        mFactors = problem.mFactors;
    }
    const auto nodes = static_cast<std::size_t>(mesh.mNodes);
    mE.assign(nodes, std::vector<double>(mDimension, 0.0));
    mB.assign(nodes - 1, std::vector<double>(mDimension, 0.0));
    mPulse.initialize(problem, rabiFrequency);
    log << "A_pulse/pi:" << 2 * mPulse.getDuration() << "\n";
}

void ReferenceField::readMesh(const ReferenceMesh& mesh)
{
    if (!(mDz > 0)) {
        mDz = mesh.cellLength();
    }
    if (mIFirst < 0 || mILast < 0) {
        mIFirst = mesh.mFirst;
        mILast = mesh.mLast;
    }
}

double ReferenceField::lineField(long i, std::size_t j) const
{
    if (i < 0 || i >= static_cast<long>(mB.size())) {
        return 0.0;
    }
    return mB[static_cast<std::size_t>(i)][j];
}

void ReferenceField::solveFaraday(double t, double dt)
{
    const std::size_t n = mB.size();
    const std::size_t p = mDimension;
    const double r1 = dt / mDz;

    mPulse.computeFields(p, t);
    const std::vector<double>& Ei = mPulse.getIncidentField();

    for (std::size_t i = 0; i < n; ++i) {
        double eps = 1.0;
        for (std::size_t j = 0; j < p; ++j) {
            const std::size_t jp1 = (j + 1) % p;
            // B[i][jp1] -= eps r1 (E[i+1][j] - E[i][j])
            mB[i][jp1] -= eps * r1 * (mE[i + 1][j] - mE[i][j]);
            eps = -eps;
        }
    }

    double eps = 1.0;
    for (std::size_t j = 0; j < p; ++j) {
        const std::size_t jp1 = (j + 1) % p;
        mB[0][jp1] += eps * r1 * Ei[j]; // B[0][jp1] += eps r1 Ei[j]
        eps = -eps;
    }
}

void ReferenceField::solveAmpere(double dt, const std::vector<ReferenceAtoms>& systems)
{
    const std::size_t p = mDimension;
    const double r1 = dt / mDz;
    if (mFactors.empty()) {
        mFactors.assign(systems.size(), 1.0 / static_cast<double>(systems.size()));
    }

    for (long i = mIFirst; i <= mILast; ++i) {
        std::vector<double>& Ei = mE[static_cast<std::size_t>(i)];

        // S[j] = sum over b of factor[b] * term of system b
        std::vector<double> S(p, 0.0);
        for (std::size_t b = 0; b < systems.size(); ++b) {
            const std::vector<double> term = systems[b].polarizationTerm(i, Ei);
            const double factor = b < mFactors.size() ? mFactors[b] : 0.0;
            for (std::size_t j = 0; j < p; ++j) {
                S[j] += factor * term[j];
            }
        }

        double eps = 1.0;
        for (std::size_t j = 0; j < p; ++j) {
            const std::size_t jp1 = (j + 1) % p;
            // E[i][j] -= eps r1 (B[i][jp1] - B[i-1][jp1]) + dt S[j]
            Ei[j] = Ei[j] - (eps * r1 * (lineField(i, jp1) - lineField(i - 1, jp1)) + dt * S[j]);
            eps = -eps;
        }
    }

    mSolvingInEmptyMilieu = true;
    solveAmpereZiolko(dt);
    mSolvingInEmptyMilieu = false;
}

void ReferenceField::advanceEmptyNode(long i, double r1)
{
    const std::size_t p = mDimension;
    double eps = 1.0;
    for (std::size_t j = 0; j < p; ++j) {
        const std::size_t jp1 = (j + 1) % p;
        // E[i][j] -= eps r1 (B[i][jp1] - B[i-1][jp1])
        mE[static_cast<std::size_t>(i)][j] -=
            eps * r1 * (lineField(i, jp1) - lineField(i - 1, jp1));
        eps = -eps;
    }
}

void ReferenceField::solveAmpereZiolko(double dt)
{
    const std::size_t n = mB.size();
    const std::size_t p = mDimension;
    const double r1 = dt / mDz;
    const double coef = (1 - r1) / (1 + r1); // first-order absorbing end

    if (mMoving.empty()) {
        mMoving.assign(p, 0.0);
        mE1Old.assign(p, 0.0);
        mEn1Old.assign(p, 0.0);
    }

    for (long i = 1; i <= mIFirst - 1; ++i) {
        advanceEmptyNode(i, r1);
    }
    for (long i = mILast + 1; i <= static_cast<long>(n) - 1; ++i) {
        advanceEmptyNode(i, r1);
    }

    double eps = 1.0;
    for (std::size_t j = 0; j < p; ++j) {
        const std::size_t jp1 = (j + 1) % p;
        // Enew = Es - eps r1 (B[1][jp1] - B[0][jp1])
        const double Es = mMoving[j];
        const double Enew = Es - eps * r1 * (mB[1][jp1] - mB[0][jp1]);

        if (mEnds == ReferenceEnds::Absorbing) {
            // E[0] = E1old - Es + (E[0] - E[1] + Enew) coef
            mE[0][j] = mE1Old[j] - Es + (mE[0][j] - mE[1][j] + Enew) * coef;
        } else {
            // E[0] = R E[0] + E1old - Es + (E[0] - E[1] + Enew) coef
            mE[0][j] = mR * mE[0][j] + mE1Old[j] - Es + (mE[0][j] - mE[1][j] + Enew) * coef;
        }
        mMoving[j] = Enew;
        mE1Old[j] = mE[1][j];

        // A laser cavity leaves node n alone unless the whole Ampere step is done.
        if (mEnds == ReferenceEnds::Reflexive
            || (mEnds == ReferenceEnds::Laser && mSolvingInEmptyMilieu)) {
            mE[n][j] = mR * mE[n][j]; // E[n] = R E[n]
        }
        eps = -eps;
    }

    if (mEnds == ReferenceEnds::Absorbing) {
        for (std::size_t j = 0; j < p; ++j) {
            // E[n] = (E[n] - E[n-1]) coef + En1old
            mE[n][j] = (mE[n][j] - mE[n - 1][j]) * coef + mEn1Old[j];
            mEn1Old[j] = mE[n - 1][j];
        }
    }
}
