#include "quorvex/QV_ProblemCheck.h"

#include "common/COM_Array.h"
#include "common/COM_Real.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMaxwell.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Problem.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <set>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr double longTimeStep = 0.1;     ///< Of a rate; above it a step is coarse.
constexpr double longPhase = 0.7;        ///< rad per step; nine points of a period.
constexpr unsigned long fewPoints = 10;  ///< Of a wavelength.
constexpr double noticeableShift = 1e-4; ///< Relative, of an atom's frequency.
constexpr double equality = 1e-6;        ///< Relative, of a kept value and the present one.
constexpr double safeCourant = 0.95;     ///< Cells in a step, docs/physics.md, "Leapfrog".
constexpr double nodeBytes = 1250.0;     ///< Mesh, field and registries of a node, measured.
constexpr double densityBytes = 136.0;   ///< A density's matrix without its values.
constexpr unsigned long ownFiles = 16;   ///< Files that the process holds open besides results.
constexpr double populationError = 1e-3; ///< Of a sum of populations that should be 1.

std::string text(double x)
{
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.6g", x);
    std::string result(buffer);
    std::replace(result.begin(), result.end(), ',', '.'); // a decimal comma of the locale
    return result;
}

std::string text(unsigned long x)
{
    return std::to_string(x);
}

std::string text(long x)
{
    return std::to_string(x);
}

bool isPositive(double x)
{
    return x > 0.0 && std::isfinite(x);
}

template <typename Matrix>
bool isSquare(const Matrix* matrix, unsigned long n)
{
    return matrix == nullptr || (matrix->getLinesNumber() == n && matrix->getColumnsNumber() == n);
}

template <typename Matrix>
std::string sizeOf(const Matrix& matrix)
{
    return text(matrix.getLinesNumber()) + " x " + text(matrix.getColumnsNumber());
}

bool differ(double kept, double present)
{
    return std::fabs(kept - present) > equality * std::fabs(present);
}

} // namespace

std::string QV_ProblemCheck::Finding::sentence() const
{
    std::string result;
    for (std::size_t i = 0; i < mSentence.size(); ++i) {
        const char digit = mSentence[i] == '%' && i + 1 < mSentence.size() ? mSentence[i + 1] : '0';
        if (digit >= '1' && static_cast<std::size_t>(digit - '1') < mNumbers.size()) {
            result += mNumbers[static_cast<std::size_t>(digit - '1')];
            ++i;
        } else {
            result += mSentence[i];
        }
    }
    return result;
}

std::string QV_ProblemCheck::Finding::text() const
{
    return mLabel + " = " + mValue + ": " + sentence();
}

QV_ProblemCheck::QV_ProblemCheck(const QV_Problem& problem, const QV_1DMilieu& milieu,
                                 const QV_1DMaxwell& maxwell, const QV_IncidentFields& fields)
    : mProblem(problem)
    , mMilieu(milieu)
    , mMaxwell(maxwell)
    , mFields(fields)
{}

void QV_ProblemCheck::add(Grade grade, const char* label, const std::string& value,
                          const char* sentence, const std::vector<std::string>& numbers)
{
    mFindings.push_back({grade, label, value, sentence, numbers});
}

std::vector<QV_ProblemCheck::Finding> QV_ProblemCheck::check(const QV_Problem& problem,
                                                             const std::string& directory)
{
    const auto* const milieu = dynamic_cast<QV_1DMilieu*>(problem.getMilieu());
    const auto* const maxwell = dynamic_cast<QV_1DMaxwell*>(problem.getMaxwellSystem());
    const QV_IncidentFields* const fields =
        maxwell != nullptr ? maxwell->getIncidentFields() : nullptr;
    if (milieu == nullptr || fields == nullptr) {
        return {{STOPS,
                 "Milieu",
                 "-",
                 "a part of the problem is missing: medium, field or incident wave.",
                 {}}};
    }
    QV_ProblemCheck check(problem, *milieu, *maxwell, *fields);
    check.checkMesh();
    check.checkMemory();
    check.checkSizes();
    check.checkSteps();
    check.checkLight();
    check.checkAtoms();
    check.checkMethod();
    check.checkEnds();
    check.checkFiles(directory);
    check.noteTimeStep();
    check.noteDensity();
    check.noteUnused();
    check.noteScheme();
    check.noteSplitting();
    check.noteReach();
    check.noteKept();
    std::stable_sort(check.mFindings.begin(), check.mFindings.end(),
                     [](const Finding& a, const Finding& b) { return a.mGrade < b.mGrade; });
    return check.mFindings;
}

bool QV_ProblemCheck::has(const std::vector<Finding>& findings, Grade grade)
{
    return std::any_of(findings.begin(), findings.end(),
                       [grade](const Finding& finding) { return finding.mGrade == grade; });
}

double QV_ProblemCheck::memory(const QV_Problem& problem)
{
    const auto* const milieu = dynamic_cast<QV_1DMilieu*>(problem.getMilieu());
    if (milieu == nullptr || problem.getMaxwellSystem() == nullptr) {
        return 0.0;
    }
    const auto nodes = static_cast<double>(milieu->computeMesh().mNodesNumber);
    const auto systems = static_cast<double>(problem.getBlochEquations()->size());
    const auto levels = static_cast<double>(QV_Bloch::getLevelsNumber());
    const auto components = static_cast<double>(problem.getMaxwellSystem()->getDimension());
    return nodes
           * (nodeBytes + systems * (densityBytes + 16.0 * levels * levels) + 24.0 * components);
}

double QV_ProblemCheck::timeStep() const
{
    return mFields.computeTimeStep(mMilieu.getDiscretizationNumber());
}

/// Cells that light in the medium crosses in a step.
double QV_ProblemCheck::courant() const
{
    return timeStep() * QV_Object::C * mMilieu.getIndice() / mMilieu.computeMesh().mCell;
}

bool QV_ProblemCheck::isAlternating() const
{
    return mProblem.getMethod() == QV_Problem::CN_dtP_METHOD || isSplitting();
}

bool QV_ProblemCheck::isTrapezoidal() const
{
    return isCoupled() || mProblem.getMethod() == QV_Problem::CN_dtP_METHOD;
}

bool QV_ProblemCheck::isCoupled() const
{
    const unsigned char method = mProblem.getMethod();
    return method == QV_Problem::CN_Z_METHOD || method == QV_Problem::CN_P_METHOD
           || method == QV_Problem::PRED_CORR_METHOD;
}

bool QV_ProblemCheck::isSplitting() const
{
    return mProblem.getMethod() == QV_Problem::SPLIT_METHOD;
}

// ---------------------------------------------------------------- what stops a run

void QV_ProblemCheck::checkMesh()
{
    const QV_1DMilieu::Mesh mesh = mMilieu.computeMesh();
    if (mesh.mNodesNumber < 3) {
        add(STOPS, "Domain Length", text(mMilieu.getLength()),
            "the mesh has %1 nodes and needs 3 at least; a cell is %2 m long.",
            {text(mesh.mNodesNumber), text(mesh.mCell)});
        return;
    }
    if (mesh.mFirstActive < 1 || mesh.mFirstActive >= mesh.mNodesNumber) {
        add(STOPS, "Milieu Begining Position", text(mMilieu.getStartingPosition()),
            "the active zone would start at node %1; it has to start between node 1 and node %2, "
            "that is from "
            "%3 % on.",
            {text(mesh.mFirstActive), text(mesh.mNodesNumber - 2),
             text(200.0 / static_cast<double>(mesh.mNodesNumber))});
    }
    if (mesh.mLastActive >= mesh.mNodesNumber) {
        add(STOPS, "Milieu Ending Position", text(mMilieu.getEndingPosition()),
            "the active zone would end at node %1, beyond the last node %2; 100 % is the end of "
            "the mesh.",
            {text(mesh.mLastActive), text(mesh.mNodesNumber - 1)});
    } else if (mMilieu.getEndingPosition() < mMilieu.getStartingPosition()) {
        add(HARMS, "Milieu Ending Position", text(mMilieu.getEndingPosition()),
            "the active zone ends before it starts, at %1 %; a single node of atoms is left.",
            {text(mMilieu.getStartingPosition())});
    }
}

void QV_ProblemCheck::checkMemory()
{
    constexpr double mega = 1048576.0;
    const double available =
        static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGE_SIZE));
    const double needed = memory(mProblem);
    if (needed > available) {
        add(STOPS, "Number of Points by Wave Length", text(mMilieu.getDiscretizationNumber()),
            "the mesh of %1 nodes needs %2 MB of memory; this machine has %3 MB.",
            {text(mMilieu.computeMesh().mNodesNumber), text(std::floor(needed / mega)),
             text(std::floor(available / mega))});
    }
}

void QV_ProblemCheck::checkSizes()
{
    const unsigned long n = QV_Bloch::getLevelsNumber();
    if (n == 0) {
        add(STOPS, "Energy Levels Number", "0", "atoms need one level at least.");
    }
    if (mMaxwell.getDimension() == 0) {
        add(STOPS, "Dimension", "0", "the field needs one component at least.");
    }
    const char* const wrongMatrix = "the matrix has to be %1 x %1, one line for each level.";
    if (!isSquare(QV_Bloch::getLongitudinalRelaxation(), n)) {
        add(STOPS, "Longitudinal Relaxation Matrix", sizeOf(*QV_Bloch::getLongitudinalRelaxation()),
            wrongMatrix, {text(n)});
    }
    if (!isSquare(QV_Bloch::getInitialDensity(), n)) {
        add(STOPS, "Density Matrix", sizeOf(*QV_Bloch::getInitialDensity()), wrongMatrix,
            {text(n)});
    }
    const COM_Array<LA_RealMatrix>* const dipoles = QV_Bloch::getPolarizations();
    for (unsigned long i = 0; dipoles != nullptr && i < dipoles->size(); ++i) {
        if (!isSquare(dipoles->get(i), n)) {
            add(STOPS, "Polarization Matrix", sizeOf((*dipoles)[i]), wrongMatrix, {text(n)});
        }
    }
    const LA_RealVector* const equilibrium = QV_Bloch::getEquilibriumDensity();
    if (equilibrium != nullptr && equilibrium->getDimension() != n) {
        add(STOPS, "Equilibrium Density", text(equilibrium->getDimension()),
            "the vector needs %1 values.", {text(n)});
    }
    for (unsigned long b = 0; b < mProblem.getBlochEquations()->size(); ++b) {
        const LA_RealVector* const omega = (*mProblem.getBlochEquations())[b].getLevelsFrequency();
        if (omega != nullptr && omega->getDimension() != n) {
            add(STOPS, "Energy Levels Frequencies", text(omega->getDimension()),
                "the vector needs %1 values.", {text(n)});
        }
    }
}

// ---------------------------------------------------------------- what would spoil it

void QV_ProblemCheck::checkSteps()
{
    const unsigned long steps = mProblem.getMaxTimeStepsNumber();
    const unsigned long fewest = mProblem.getMethod() == QV_Problem::CN_dtP_METHOD ? 20 : 10;
    if (steps == 0) {
        add(NOTE, "Time Steps Number", "0",
            "no step will be made, and the result files stay empty.");
    } else if (steps < fewest) {
        add(HARMS, "Time Steps Number", text(steps),
            "a run of this method needs %1 steps at least, or none, or it ends with an arithmetic "
            "trap.",
            {text(fewest)});
    }
}

void QV_ProblemCheck::checkLight()
{
    if (!isPositive(mFields.getCFL())) {
        add(HARMS, "C.F.L.", text(mFields.getCFL()),
            "the time step has no length; 0.8 is usual, 1 the limit.");
    }
    if (!isPositive(mFields.getWaveLength())) {
        add(HARMS, "Wave Length", text(mFields.getWaveLength()),
            "the wavelength has to be above 0 m.");
    }
    if (!isPositive(std::fabs(mFields.getFieldMaxValue()))) {
        add(HARMS, "Max. Intensity", text(mFields.getFieldMaxValue()),
            "a peak field of this value leaves no scale of time: all results would be "
            "not-a-numbers.");
    }
    if (!isPositive(mMilieu.getIndice())) {
        add(HARMS, "Milieu Index Property", text(mMilieu.getIndice()),
            "the refractive index has to be above 0.");
    } else if (courant() > 1.0 + equality) {
        add(HARMS, "C.F.L.", text(mFields.getCFL()),
            "with the index %1 light crosses %2 cells in a step; above 1 the field grows without "
            "limit. Take %3 "
            "at most.",
            {text(mMilieu.getIndice()), text(courant()), text(mFields.getCFL() / courant())});
    } else if (courant() > safeCourant + equality && isAlternating()
               && mProblem.getBlochEquations()->size() > 0) {
        add(NOTE, "C.F.L.", text(mFields.getCFL()),
            "at %1 cells in a step a dense medium can make the field grow without limit; take %2 "
            "at most.",
            {text(courant()), text(safeCourant)});
    }
    if (mFields.getTestType() >= QV_IncidentFields::mTypesNameLength) {
        add(NOTE, "Incident Electromagnetic Field", text(static_cast<long>(mFields.getTestType())),
            "no pulse has this number, and no light enters; they go from 0 to 6.");
    }
}

void QV_ProblemCheck::checkAtoms()
{
    const unsigned char type = QV_Bloch::getRelaxationType();
    const bool isBalanced =
        type != QV_Bloch::CASCADE_RELAXATION_TYPE && type != QV_Bloch::EQUILIBRE_RELAXATION_TYPE;
    if (isBalanced && !(QV_Bloch::getTemperature() > 0.0)) {
        add(HARMS, "Temperature", text(QV_Bloch::getTemperature()),
            "detailed balance between the levels needs a temperature above 0 K.");
    }
    if (QV_Bloch::getIterationsMaxNumber() == 0
        && mProblem.getMethod() == QV_Problem::PRED_CORR_METHOD) {
        add(HARMS, "Numerical Method", QV_Problem::mMethodsName[QV_Problem::PRED_CORR_METHOD],
            "with a limit of 0 iterations this method ends the program at its first node.");
    }
    if (isTrapezoidal() && QV_Bloch::getConvergenceRate() >= 1.0) {
        add(NOTE, "Convergence Criterium", text(QV_Bloch::getConvergenceRate()),
            "with 1 or more the atoms stand still; 1e-6 is usual.");
    }
}

void QV_ProblemCheck::checkMethod()
{
    const unsigned char method = mProblem.getMethod();
    if (method >= QV_Problem::mMethodsNameLength) {
        add(HARMS, "Numerical Method", text(static_cast<long>(method)),
            "no method has this number, and no step would be made; they go from 0 to 5.");
        return;
    }
    if (mMaxwell.getDimension() > 1 && !isSplitting()) {
        add(HARMS, "Dimension", text(mMaxwell.getDimension()),
            "the method %1 ends the program with more than one component; Split treats them.",
            {QV_Problem::mMethodsName[method]});
    }
    const unsigned long n = QV_Bloch::getLevelsNumber();
    if (isSplitting() && (n < 2 || n > 4)) {
        add(HARMS, "Energy Levels Number", text(n),
            "the splitting treats 2, 3 or 4 levels; with others the densities become zero.");
    }
}

void QV_ProblemCheck::checkFiles(const std::string& directory)
{
    const LA_RealVector* const captors = mMilieu.getCaptors();
    const long nodes = std::max(mMilieu.computeMesh().mNodesNumber, 1L);
    std::set<long> saved = {1, nodes - 2};
    for (unsigned long i = 0; captors != nullptr && i < captors->getDimension(); ++i) {
        const double node = captors->getValue(i) * static_cast<double>(nodes) / 100.0 - 1.0;
        saved.insert(std::clamp(COM_Real::toLong(node), 0L, nodes - 1));
    }
    const unsigned long files = saved.size() * (1 + mProblem.getBlochEquations()->size()) + 1;
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_max != RLIM_INFINITY
        && files + ownFiles > limit.rlim_max) {
        add(HARMS, "Captors", text(static_cast<unsigned long>(saved.size())),
            "a run holds %1 result files open, and this system allows %2; take fewer captors or "
            "systems.",
            {text(files), text(static_cast<unsigned long>(limit.rlim_max))});
    }
    const std::string place = directory.empty() ? "./" : directory;
    if (access(place.c_str(), W_OK | X_OK) != 0) {
        add(HARMS, "Project Directory", directory,
            "the result files cannot be made there: no such directory, or "
            "no right to write.");
    }
}

// ---------------------------------------------------------------- what is worth knowing

void QV_ProblemCheck::noteTimeStep()
{
    const double dt = timeStep();
    if (mMilieu.getDiscretizationNumber() < fewPoints) {
        add(NOTE, "Number of Points by Wave Length", text(mMilieu.getDiscretizationNumber()),
            "below %1 points the light travels noticeably too slow.", {text(fewPoints)});
    }
    if (!isPositive(dt)) {
        return;
    }
    if (dt * QV_Bloch::getTransversalRelaxation() > longTimeStep) {
        add(NOTE, "Transversal Relaxation", text(QV_Bloch::getTransversalRelaxation()),
            "a step is long against this rate: %1 of its time constant.",
            {text(dt * QV_Bloch::getTransversalRelaxation())});
    }
    const LA_RealMatrix* const w = QV_Bloch::getLongitudinalRelaxation();
    if (w != nullptr && dt * w->getMaxValue() > longTimeStep) {
        add(NOTE, "Longitudinal Relaxation Matrix", text(w->getMaxValue()),
            "a step is long against this rate: %1 of its time constant.",
            {text(dt * w->getMaxValue())});
    }
    for (unsigned long b = 0; b < mProblem.getBlochEquations()->size(); ++b) {
        noteFrequency((*mProblem.getBlochEquations())[b].getLevelsFrequency());
    }
}

void QV_ProblemCheck::noteFrequency(const LA_RealVector* omega)
{
    if (omega == nullptr || omega->getDimension() < 2) {
        return;
    }
    const auto [least, most] =
        std::minmax_element(omega->getValues(), omega->getValues() + omega->getDimension());
    const double phase = (*most - *least) * timeStep();
    if (phase > longPhase) {
        add(NOTE, "Energy Levels Frequencies", text(*most - *least),
            "a step is long against this frequency: %1 rad.", {text(phase)});
    } else if (isTrapezoidal() && phase * phase / 12.0 > noticeableShift) {
        add(NOTE, "Energy Levels Frequencies", text(*most - *least),
            "the Crank-Nicolson methods lower this frequency by %1 %; Split keeps it.",
            {text(phase * phase / 12.0 * 100.0)});
    }
}

/// A number without its parentheses is read as 0, so that a density without atoms is soon typed.
void QV_ProblemCheck::noteDensity()
{
    const LA_ComplexMatrix* const density = QV_Bloch::getInitialDensity();
    if (density == nullptr || mProblem.getBlochEquations()->size() == 0) {
        return;
    }
    const double sum = density->trace().real();
    if (!(std::fabs(sum - 1.0) <= populationError)) {
        add(NOTE, "Density Matrix", text(sum),
            "the populations add up to %1 and not to 1; a number is typed with its parentheses, as "
            "in (1,0).",
            {text(sum)});
    }
}

void QV_ProblemCheck::noteUnused()
{
    if (!mMaxwell.isLaserType() && !mMaxwell.isReflexifLaserType()
        && mMaxwell.getLaserReflectorFactor() != 1.0) {
        add(NOTE, "Reflexive Coef:", text(mMaxwell.getLaserReflectorFactor()),
            "has no effect with absorbing ends.");
    }
    const LA_RealVector* const weights = mMaxwell.getPolarizationTermFactors();
    const unsigned long systems = mProblem.getBlochEquations()->size();
    const auto isEqualWeight = [systems](double weight) {
        return weight == 1.0 / static_cast<double>(systems);
    };
    if (weights != nullptr && isCoupled()
        && !std::all_of(weights->getValues(), weights->getValues() + weights->getDimension(),
                        isEqualWeight)) {
        add(NOTE, "Bloch Equation Number", text(systems),
            "the weights of the systems have no effect with %1.",
            {QV_Problem::mMethodsName[mProblem.getMethod()]});
    }
    const LA_RealVector* const equilibrium = QV_Bloch::getEquilibriumDensity();
    const bool isUsed =
        isSplitting() && QV_Bloch::getRelaxationType() != QV_Bloch::PAULI_RELAXATION_TYPE;
    if (equilibrium == nullptr) {
        return;
    }
    double sum = 0.0;
    for (unsigned long i = 0; i < equilibrium->getDimension(); ++i) {
        sum += equilibrium->getValue(i);
    }
    const bool isDensity = std::fabs(sum - 1.0) <= populationError;
    if (!isUsed && isDensity) {
        add(NOTE, "Equilibrium Density", equilibrium->toString(),
            "has no effect without the method Split and a relaxation type other than PAULI.");
    } else if (isUsed && !isDensity) {
        add(NOTE, "Equilibrium Density", equilibrium->toString(),
            "the populations add up to %1 and not to 1; the atoms would relax towards them.",
            {text(sum)});
    }
}

void QV_ProblemCheck::noteScheme()
{
    const unsigned char method = mProblem.getMethod();
    const unsigned long systems = mProblem.getBlochEquations()->size();
    const std::string name = method < QV_Problem::mMethodsNameLength
                                 ? QV_Problem::mMethodsName[method]
                                 : text(static_cast<long>(method));
    if (method == QV_Problem::CN_Z_METHOD) {
        add(NOTE, "Numerical Method", name,
            "couples the polarization with the opposite sign: a medium in its ground state "
            "amplifies. CN_P, CN_dtP "
            "and Split follow theory.");
    }
    if (method == QV_Problem::RELAX_METHOD) {
        add(NOTE, "Numerical Method", name,
            "advances the coherences of the first active node alone.");
    }
    if (method == QV_Problem::PRED_CORR_METHOD) {
        add(NOTE, "Numerical Method", name,
            "its populations gain without loss, and its density files are written in a turning, "
            "decaying frame.");
    }
    if (isCoupled() && systems > 1) {
        add(NOTE, "Bloch Equation Number", text(systems),
            "with %1 each system advances the field by a whole step; CN_dtP and Split take their "
            "weighted sum.",
            {name});
    }
    const LA_RealMatrix* const w = QV_Bloch::getLongitudinalRelaxation();
    for (unsigned long i = 0; w != nullptr && i < w->getLinesNumber(); ++i) {
        if (QV_Bloch::getRelaxationType() == QV_Bloch::EQUILIBRE_RELAXATION_TYPE
            && w->getValue(i, i) > 0.0) {
            add(NOTE, "Longitudinal Relaxation Matrix", text(w->getValue(i, i)),
                "a positive rate on the diagonal drives level %1 away from its equilibrium.",
                {text(i)});
        }
    }
}

void QV_ProblemCheck::noteSplitting()
{
    const unsigned char order = QV_Bloch::getSplitType();
    if (!isSplitting()) {
        return;
    }
    if (order == QV_Bloch::HRNH_SPLIT_TYPE || order == QV_Bloch::RNHRN_SPLIT_TYPE) {
        add(NOTE, "Splitting Type", text(static_cast<long>(order)),
            "this order turns the coherences at %1 times their frequency; 0 and 1 keep it.",
            {order == QV_Bloch::HRNH_SPLIT_TYPE ? "0.5" : "2"});
    }
    if (QV_Bloch::getLevelsNumber() == 4) {
        add(NOTE, "Energy Levels Number", "4",
            "the step of 4 levels does not keep the sum of the populations exactly.");
    }
}

void QV_ProblemCheck::checkEnds()
{
    const QV_1DMilieu::Mesh mesh = mMilieu.computeMesh();
    const bool isLaser = mMaxwell.isLaserType() || mMaxwell.isReflexifLaserType();
    if (!mesh.isValid()) {
        return;
    }
    if (isLaser && mesh.mFirstActive == 1) {
        add(HARMS, "Milieu Begining Position", text(mMilieu.getStartingPosition()),
            "the end of a cavity beside atoms at node 1 makes the field grow without limit; start "
            "the "
            "active zone at node 2, that is from %1 % on.",
            {text(300.0 / static_cast<double>(mesh.mNodesNumber))});
    } else if (isLaser) {
        add(NOTE, "Reflexive Coef:", text(mMaxwell.getLaserReflectorFactor()),
            "both ends of a cavity reflect the whole field whatever this factor is, while the "
            "cells "
            "beside them are empty.");
    }
    // The coupled methods advance the medium after the ends, whose formulas then read a neighbour that is a
    // step behind: at Courant number 0.8 a problem of 20 nodes is not-a-number after 51 and 324 steps.
    if (mesh.mFirstActive == 1 && isCoupled() && !isLaser) {
        add(HARMS, "Milieu Begining Position", text(mMilieu.getStartingPosition()),
            "with atoms from node 1 on this method makes the field grow without limit; start the "
            "active zone at node 2, that is from %1 % on.",
            {text(300.0 / static_cast<double>(mesh.mNodesNumber))});
    }
    const long last = mesh.mNodesNumber - 1;
    if (mesh.mLastActive >= last - 1 && isCoupled()) {
        add(HARMS, "Milieu Ending Position", text(mMilieu.getEndingPosition()),
            "with atoms so near to the end this method makes the field grow without limit; leave "
            "two empty cells.");
    } else if (mesh.mLastActive == last) {
        add(NOTE, "Milieu Ending Position", text(mMilieu.getEndingPosition()),
            "atoms so near to the end make it reflect noticeably; leave two empty cells.");
    }
}

void QV_ProblemCheck::noteReach()
{
    const LA_RealVector* const captors = mMilieu.getCaptors();
    if (captors == nullptr || captors->getDimension() == 0 || !isPositive(timeStep())) {
        return;
    }
    const double farthest =
        *std::max_element(captors->getValues(), captors->getValues() + captors->getDimension());
    const double distance = std::clamp(farthest, 0.0, 100.0) / 100.0 * mMilieu.getLength();
    const double time = distance * mMilieu.getIndice() / QV_Object::C;
    const double run = static_cast<double>(mProblem.getMaxTimeStepsNumber()) * timeStep();
    if (run < time && mProblem.getMaxTimeStepsNumber() > 0) {
        add(NOTE, "Time Steps Number", text(mProblem.getMaxTimeStepsNumber()),
            "the run ends before light reaches the last captor; that takes %1 steps.",
            {text(std::ceil(time / timeStep()))});
    }
}

void QV_ProblemCheck::noteKept()
{
    const QV_1DMilieu::Mesh mesh = mMilieu.computeMesh();
    const double rabi = mFields.computeRabiFrequency(QV_Bloch::getMaxPolarizationValue());
    const double cell = mesh.mCell * rabi / (QV_Object::C * mMilieu.getIndice());
    if (mMaxwell.getDz() > 0.0 && differ(mMaxwell.getDz(), cell)) {
        add(NOTE, "Number of Points by Wave Length", text(mMilieu.getDiscretizationNumber()),
            "the cell size %1 of a former run is kept; the present data give %2. Start from a new "
            "problem to use "
            "them.",
            {text(mMaxwell.getDz()), text(cell)});
    }
    const bool isKept = mMaxwell.getFirstNode() >= 0 && mMaxwell.getLastNode() >= 0;
    if (isKept
        && (mMaxwell.getFirstNode() != mesh.mFirstActive
            || mMaxwell.getLastNode() != mesh.mLastActive)) {
        add(NOTE, "Milieu Begining Position", text(mMilieu.getStartingPosition()),
            "the active zone of a former run is kept, nodes %1 to %2; the present data give %3 to "
            "%4.",
            {text(mMaxwell.getFirstNode()), text(mMaxwell.getLastNode()), text(mesh.mFirstActive),
             text(mesh.mLastActive)});
    }
    const LA_RealVector* const ends = mMaxwell.getMovingIncidentFieldValue();
    if (ends != nullptr && ends->getDimension() < mMaxwell.getDimension()) {
        add(NOTE, "Dimension", text(mMaxwell.getDimension()),
            "the state of the ends of a former run is kept, with %1 components; the others count "
            "as 0.",
            {text(ends->getDimension())});
    }
    const LA_RealVector* const weights = mMaxwell.getPolarizationTermFactors();
    const unsigned long systems = mProblem.getBlochEquations()->size();
    if (weights != nullptr && !isCoupled() && weights->getDimension() != systems) {
        add(NOTE, "Bloch Equation Number", text(systems),
            "there are %1 weights, kept from a former run or from the file; a missing one is 0.",
            {text(weights->getDimension())});
    }
    for (unsigned long b = 0; b < systems; ++b) {
        const QV_Bloch& bloch = (*mProblem.getBlochEquations())[b];
        const bool isZoneKept = bloch.getFirstNode() >= 0 && bloch.getLastNode() >= 0;
        if ((isCoupled() && bloch.getDz() >= 0.0 && differ(bloch.getDz(), cell))
            || (isZoneKept
                && (bloch.getFirstNode() != mesh.mFirstActive
                    || bloch.getLastNode() != mesh.mLastActive))) {
            add(NOTE, "Bloch Equation Number", text(b + 1),
                "this system keeps the cell size or the active zone of a former run.");
        }
    }
}
