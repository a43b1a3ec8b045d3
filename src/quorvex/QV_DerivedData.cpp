#include "quorvex/QV_DerivedData.h"

#include "common/COM_Array.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Maxwell.h"
#include "quorvex/QV_Problem.h"
#include "quorvex/QV_ProblemCheck.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

/// Node-steps per second of a mesh of 5000 nodes, 80 % of them with atoms.
struct Rates
{
    double mTwoLevels; // the first three: docs/performance.md, "Speed"
    double mThreeLevels;
    double mFourLevels;
    double mEightLevels; // the time loop alone, 200 steps, on the same machine
};

/// By number of the method. The splitting treats no eight levels.
constexpr Rates oneComponent[QV_Problem::mMethodsNameLength] = {
    {32.6e6, 28.2e6, 10.4e6, 0.84e6}, {35.3e6, 25.9e6, 11.3e6, 0.85e6},
    {38.1e6, 15.7e6, 9.4e6, 0.39e6},  {48.7e6, 29.7e6, 22.4e6, 1.07e6},
    {39.8e6, 18.0e6, 9.3e6, none},    {30.4e6, 19.2e6, 9.0e6, 0.86e6}};
/// The splitting with two components, the time loop alone, 800 steps.
constexpr Rates twoComponents = {31.5e6, 9.5e6, 2.4e6, none};

constexpr double filledPart = 0.8;     ///< Of the meshes above.
constexpr double emptyNode = 2.5e-9;   ///< s for a node without atoms, by CN_dtP; the others alike.
constexpr double levelsExponent = 2.3; ///< Growth of the cost from 8 to 12 levels, and from 5 to 8.
constexpr double nodeStart = 2.15e-5;  ///< s for a node's mesh and record; docs/performance.md.

/// Seconds that the atoms of a node take for a step.
double atomsCost(const Rates& rates, unsigned long levels)
{
    const auto cost = [](double rate) { return (1.0 / rate - emptyNode) / filledPart; };
    switch (levels) {
    case 0:
    case 1:
    case 2:
        return cost(rates.mTwoLevels);
    case 3:
        return cost(rates.mThreeLevels);
    case 4:
        return cost(rates.mFourLevels);
    default:
        return cost(rates.mEightLevels)
               * std::pow(static_cast<double>(levels) / 8.0, levelsExponent);
    }
}

} // namespace

QV_DerivedData::QV_DerivedData(const QV_Problem& problem)
    : mRabiFrequency(none)
    , mPulseArea(none)
    , mTimeStep(none)
    , mTimeStepPeriods(none)
    , mNodes(none)
    , mActiveNodes(none)
    , mDuration(none)
    , mTransitTime(none)
    , mMemory(none)
    , mRunTime(none)
{
    const auto* const milieu = dynamic_cast<QV_1DMilieu*>(problem.getMilieu());
    const QV_Maxwell* const maxwell = problem.getMaxwellSystem();
    const QV_IncidentFields* const fields =
        maxwell != nullptr ? maxwell->getIncidentFields() : nullptr;
    if (milieu == nullptr || fields == nullptr) {
        return;
    }
    computeMesh(problem, *milieu);
    mTimeStep = fields->computeTimeStep(milieu->getDiscretizationNumber());
    mDuration = static_cast<double>(problem.getMaxTimeStepsNumber()) * mTimeStep;
    computeLight(*fields);
    computeRunTime(problem);
}

void QV_DerivedData::computeMesh(const QV_Problem& problem, const QV_1DMilieu& milieu)
{
    mTransitTime = milieu.computeTransitTime();
    const QV_1DMilieu::Mesh mesh = milieu.computeMesh();
    const double cells = milieu.getLength() / mesh.mCell;
    if (!std::isfinite(cells)) {
        mNodes = cells; // the mesh itself is cut to a whole number
        return;
    }
    mNodes = static_cast<double>(mesh.mNodesNumber);
    const double first = std::max(static_cast<double>(mesh.mFirstActive), 0.0);
    const double last = std::min(static_cast<double>(mesh.mLastActive), mNodes - 1.0);
    mActiveNodes = std::max(last - first + 1.0, 0.0);
    mMemory = std::max(QV_ProblemCheck::memory(problem), 0.0);
}

void QV_DerivedData::computeLight(const QV_IncidentFields& fields)
{
    mRabiFrequency = fields.computeRabiFrequency(QV_Bloch::getMaxPolarizationValue());
    mPulseArea = fields.computeArea(mRabiFrequency);
    mTimeStepPeriods = mTimeStep * fields.getFrequency() / (2.0 * std::numbers::pi);
}

void QV_DerivedData::computeRunTime(const QV_Problem& problem)
{
    const unsigned char method = problem.getMethod();
    if (method >= QV_Problem::mMethodsNameLength) {
        return;
    }
    const auto components = static_cast<double>(problem.getMaxwellSystem()->getDimension());
    const bool isPlane = components > 1.0 && method == QV_Problem::SPLIT_METHOD;
    const double atoms =
        atomsCost(isPlane ? twoComponents : oneComponent[method], QV_Bloch::getLevelsNumber());
    const auto systems = static_cast<double>(problem.getBlochEquations()->size());
    const double step = std::max(mNodes, 0.0) * emptyNode * components
                        + mActiveNodes * (systems > 0.0 ? systems * atoms : 0.0);
    mRunTime = std::max(mNodes, 0.0) * nodeStart
               + static_cast<double>(problem.getMaxTimeStepsNumber()) * step;
}
