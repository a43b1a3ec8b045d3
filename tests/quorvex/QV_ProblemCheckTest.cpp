#include "quorvex/QV_ProblemCheck.h"

#include "geometry/GEO_Vertex.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/ChildProcess.h"
#include "support/Description.h"
#include "support/Locales.h"
#include "support/TestProblem.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <set>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

using Check = QV_ProblemCheck;
using Findings = std::vector<Check::Finding>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

Findings check(const TestProblem& problem)
{
    return Check::check(*problem, problem.directory().path().string());
}

/// The findings that would stop or spoil a run.
Findings serious(const Findings& findings)
{
    Findings result;
    for (const Check::Finding& finding : findings) {
        if (finding.mGrade != Check::NOTE) {
            result.push_back(finding);
        }
    }
    return result;
}

std::string textOf(const Findings& findings)
{
    std::string text;
    for (const Check::Finding& finding : findings) {
        text += std::to_string(finding.mGrade) + " " + finding.text() + "\n";
    }
    return text;
}

void setMatrix(LA_RealMatrix& matrix, const std::vector<double>& values)
{
    matrix.setValues(values, QV_Bloch::getLevelsNumber(), QV_Bloch::getLevelsNumber());
}

void setVector(LA_RealVector& vector, const std::vector<double>& values)
{
    vector.setValues(values);
}

void setWeights(const TestProblem& problem, const std::vector<double>& values)
{
    const COM_Scoped weights(LA_RealVector::New(0));
    weights->setValues(values);
    problem.maxwell().setPolarizationTermFactors(*weights);
}

/// A change to the sound problem, and one finding that it brings or does not bring.
struct Case
{
    const char* mName;
    Check::Grade mGrade;
    const char* mLabel;
    const char* mValue; ///< Null when the finding is not there.
    const char* mPiece; ///< Of its sentence, as no other finding of this label has it.
    void (*mChange)(TestProblem&);
    unsigned long mNumber = 1; ///< How often it is there.

    friend std::ostream& operator<<(std::ostream& out, const Case& tested)
    {
        return out << tested.mName;
    }
};

constexpr const char* POINTS = "Number of Points by Wave Length";
constexpr const char* BEGIN = "Milieu Begining Position";
constexpr const char* END = "Milieu Ending Position";
constexpr const char* LEVELS = "Energy Levels Number";
constexpr const char* RATES = "Longitudinal Relaxation Matrix";
constexpr const char* FREQUENCIES = "Energy Levels Frequencies";
constexpr const char* STEPS = "Time Steps Number";
constexpr const char* METHOD = "Numerical Method";
constexpr const char* SYSTEMS = "Bloch Equation Number";
constexpr const char* EQUILIBRIUM = "Equilibrium Density";
constexpr const char* DENSITY = "Density Matrix";
constexpr const char* FACTOR = "Reflexive Coef:";
constexpr const char* INDEX = "Milieu Index Property";

constexpr const char* TRAP = "steps at least, or none, or it ends with an arithmetic trap.";
constexpr const char* SQUARE = "the matrix has to be 2 x 2, one line for each level.";
constexpr const char* PULSE = "no pulse has this number";
constexpr const char* TURNING = "times their frequency; 0 and 1 keep it.";

const Case MESH_CASES[] = {
    {"TwoNodes", Check::STOPS, "Domain Length", "1.875e-07",
     "the mesh has 2 nodes and needs 3 at least; a cell is 7.5e-08 m long.",
     [](TestProblem& p) { p.setNodes(2); }},
    {"ThreeNodes", Check::STOPS, "Domain Length", nullptr, "the mesh has",
     [](TestProblem& p) { p.setNodes(3); }},
    {"NoLength", Check::STOPS, "Domain Length", "0", "has 0 nodes",
     [](TestProblem& p) { p.milieu().setLength(0.0); }},
    {"NegativeLength", Check::STOPS, "Domain Length", "-1e-06", "has -13 nodes",
     [](TestProblem& p) { p.milieu().setLength(-1e-6); }},
    {"LengthThatIsNoNumber", Check::STOPS, "Domain Length", "nan", "has 0 nodes",
     [](TestProblem& p) { p.milieu().setLength(notANumber); }},
    {"NoCells", Check::STOPS, "Domain Length", "1.5375e-06", "has 0 nodes",
     [](TestProblem& p) { p.milieu().setDiscretizationNumber(0); }},
    {"NoCharacteristicLength", Check::STOPS, POINTS, "20", "MB of memory",
     [](TestProblem& p) { p.milieu().setCaracteristicLength(0.0); }},
    {"ZoneFromNode0", Check::STOPS, BEGIN, "9.9",
     "the active zone would start at node 0; it has to start between node 1 and node 18, that is "
     "from 10 % on.",
     [](TestProblem& p) { p.milieu().setStartingPosition(9.9); }},
    {"ZoneFromNode1", Check::STOPS, BEGIN, nullptr, "would start",
     [](TestProblem& p) { p.milieu().setStartingPosition(10.0); }},
    {"ZoneBeforeTheMesh", Check::STOPS, BEGIN, "-50", "at node -11;",
     [](TestProblem& p) { p.milieu().setStartingPosition(-50.0); }},
    {"ZoneBehindTheMesh", Check::STOPS, BEGIN, "105", "at node 20;",
     [](TestProblem& p) { p.milieu().setStartingPosition(105.0); }},
    {"StartThatIsNoNumber", Check::STOPS, BEGIN, "nan", "at node -1;",
     [](TestProblem& p) { p.milieu().setStartingPosition(notANumber); }},
    {"ZoneToBeyondTheMesh", Check::STOPS, END, "105",
     "the active zone would end at node 20, beyond the last node 19; 100 % is the end of the mesh.",
     [](TestProblem& p) { p.milieu().setEndingPosition(105.0); }},
    {"ZoneToTheLastNode", Check::STOPS, END, nullptr, "would end",
     [](TestProblem& p) { p.milieu().setEndingPosition(100.0); }},
    {"ZoneThatEndsBeforeItStarts", Check::HARMS, END, "50",
     "the active zone ends before it starts, at 60 %; a single node of atoms is left.",
     [](TestProblem& p) {
         p.milieu().setStartingPosition(60.0);
         p.milieu().setEndingPosition(50.0);
     }},
    {"ZoneThatEndsWhereItStarts", Check::HARMS, END, nullptr, "before it starts",
     [](TestProblem& p) {
         p.milieu().setStartingPosition(60.0);
         p.milieu().setEndingPosition(60.0);
     }},
    // 20.5 cells of the 20 in a wavelength are 1126999418470.4 of so many.
    {"MeshBeyondMemory", Check::STOPS, POINTS, "1099511627776",
     "the mesh of 1126999418470 nodes needs ",
     [](TestProblem& p) { p.milieu().setDiscretizationNumber(1099511627776UL); }},
    {"MeshOfAMillionNodes", Check::STOPS, POINTS, nullptr, "of memory",
     [](TestProblem& p) { p.setNodes(1000000); }},
};

const Case SIZES_CASES[] = {
    {"NoLevel", Check::STOPS, LEVELS, "0", "atoms need one level at least.",
     [](TestProblem&) { QV_Bloch::setLevelsNumber(0); }},
    {"OneLevel", Check::STOPS, LEVELS, nullptr, "one level at least",
     [](TestProblem&) { QV_Bloch::setLevelsNumber(1); }},
    {"NoComponent", Check::STOPS, "Dimension", "0", "the field needs one component at least.",
     [](TestProblem& p) { p.maxwell().setDimension(0); }},
    {"RatesOfAnotherSize", Check::STOPS, RATES, "3 x 2", SQUARE,
     [](TestProblem&) { QV_Bloch::getLongitudinalRelaxation()->setDimensions(3, 2); }},
    {"DensityOfAnotherSize", Check::STOPS, "Density Matrix", "2 x 1", SQUARE,
     [](TestProblem&) { QV_Bloch::getInitialDensity()->setDimensions(2, 1); }},
    {"DipolesOfAnotherSize", Check::STOPS, "Polarization Matrix", "1 x 1", SQUARE,
     [](TestProblem&) { (*QV_Bloch::getPolarizations())[0].setDimensions(1, 1); }},
    {"EquilibriumOfAnotherSize", Check::STOPS, EQUILIBRIUM, "3", "the vector needs 2 values.",
     [](TestProblem&) { QV_Bloch::getEquilibriumDensity()->setDimension(3); }},
    {"FrequenciesOfAnotherSize", Check::STOPS, FREQUENCIES, "1", "the vector needs 2 values.",
     [](TestProblem& p) { p.bloch().getLevelsFrequency()->setDimension(1); }},
    {"FrequenciesOfTwoSystemsOfAnotherSize", Check::STOPS, FREQUENCIES, "1",
     "the vector needs 2 values.",
     [](TestProblem& p) {
         p.addSystem();
         p.bloch(0).getLevelsFrequency()->setDimension(1);
         p.bloch(1).getLevelsFrequency()->setDimension(1);
     },
     2},
    {"ALevelMore", Check::STOPS, RATES, nullptr, "has to be",
     [](TestProblem&) { QV_Bloch::setLevelsNumber(3); }},
};

const Case NUMBERS_OF_STEPS_CASES[] = {
    {"NoStep", Check::NOTE, STEPS, "0", "no step will be made, and the result files stay empty.",
     [](TestProblem& p) { p->setMaxTimeStepsNumber(0); }},
    {"OneStep", Check::HARMS, STEPS, "1", TRAP,
     [](TestProblem& p) { p->setMaxTimeStepsNumber(1); }},
    {"NineSteps", Check::HARMS, STEPS, "9", "a run of this method needs 10 steps",
     [](TestProblem& p) { p->setMaxTimeStepsNumber(9); }},
    {"TenSteps", Check::HARMS, STEPS, nullptr, TRAP,
     [](TestProblem& p) { p->setMaxTimeStepsNumber(10); }},
    {"NineteenStepsOfCN_dtP", Check::HARMS, STEPS, "19", "a run of this method needs 20 steps",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_dtP_METHOD);
         p->setMaxTimeStepsNumber(19);
     }},
    {"TwentyStepsOfCN_dtP", Check::HARMS, STEPS, nullptr, TRAP,
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_dtP_METHOD);
         p->setMaxTimeStepsNumber(20);
     }},
};

const Case LIGHT_CASES[] = {
    {"NoCourantNumber", Check::HARMS, "C.F.L.", "0",
     "the time step has no length; 0.8 is usual, 1 the limit.",
     [](TestProblem& p) { p.wave().setCFL(0.0); }},
    {"NegativeCourantNumber", Check::HARMS, "C.F.L.", "-0.5", "no length",
     [](TestProblem& p) { p.wave().setCFL(-0.5); }},
    {"InfiniteCourantNumber", Check::HARMS, "C.F.L.", "inf", "no length",
     [](TestProblem& p) { p.wave().setCFL(infinity); }},
    {"CourantNumberThatIsNone", Check::HARMS, "C.F.L.", "nan", "no length",
     [](TestProblem& p) { p.wave().setCFL(notANumber); }},
    {"CourantNumber1", Check::HARMS, "C.F.L.", nullptr, "light crosses",
     [](TestProblem& p) { p.wave().setCFL(1.0); }},
    {"CourantNumber1OfSplit", Check::NOTE, "C.F.L.", "1",
     "at 1 cells in a step a dense medium can make the field grow without limit; take 0.95 at "
     "most.",
     [](TestProblem& p) { p.wave().setCFL(1.0); }},
    {"CourantNumber1OfCN_dtP", Check::NOTE, "C.F.L.", "1", "take 0.95 at most.",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_dtP_METHOD);
         p.wave().setCFL(1.0);
     }},
    {"CourantNumber1OfCN_P", Check::NOTE, "C.F.L.", nullptr, "a dense medium can",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.wave().setCFL(1.0);
     }},
    {"CourantNumber1WithoutAtoms", Check::NOTE, "C.F.L.", nullptr, "a dense medium can",
     [](TestProblem& p) {
         p->resetBlochEquations();
         p.wave().setCFL(1.0);
     }},
    {"CourantNumber095OfSplit", Check::NOTE, "C.F.L.", nullptr, "a dense medium can",
     [](TestProblem& p) { p.wave().setCFL(0.95); }},
    {"CourantNumberAbove1", Check::HARMS, "C.F.L.", "1.25",
     "with the index 1 light crosses 1.25 cells in a step; above 1 the field grows without limit. "
     "Take 1 at most.",
     [](TestProblem& p) { p.wave().setCFL(1.25); }},
    {"CourantNumberTimesIndexOf1", Check::HARMS, "C.F.L.", nullptr, "light crosses",
     [](TestProblem& p) { p.milieu().setIndice(1.25); }},
    {"CourantNumberTimesIndexAbove1", Check::HARMS, "C.F.L.", "0.8",
     "with the index 1.5 light crosses 1.2 cells in a step; above 1 the field grows without limit. "
     "Take 0.666667 at most.",
     [](TestProblem& p) { p.milieu().setIndice(1.5); }},
    {"WavelengthOfTwoCharacteristicLengths", Check::HARMS, "C.F.L.", "0.8", "crosses 1.6 cells",
     [](TestProblem& p) { p.wave().setWaveLength(3e-6); }},
    {"NoWavelength", Check::HARMS, "Wave Length", "0", "the wavelength has to be above 0 m.",
     [](TestProblem& p) { p.wave().setWaveLength(0.0); }},
    {"NegativeWavelength", Check::HARMS, "Wave Length", "-1e-06", "above 0 m",
     [](TestProblem& p) { p.wave().setWaveLength(-1e-6); }},
    {"InfiniteWavelength", Check::HARMS, "Wave Length", "inf", "above 0 m",
     [](TestProblem& p) { p.wave().setWaveLength(infinity); }},
    {"NoPeakField", Check::HARMS, "Max. Intensity", "0",
     "a peak field of this value leaves no scale of time: all results would be not-a-numbers.",
     [](TestProblem& p) { p.wave().setFieldMaxValue(0.0); }},
    {"PeakFieldThatIsNone", Check::HARMS, "Max. Intensity", "nan", "no scale of time",
     [](TestProblem& p) { p.wave().setFieldMaxValue(notANumber); }},
    {"NegativePeakField", Check::HARMS, "Max. Intensity", nullptr, "no scale",
     [](TestProblem& p) { p.wave().setFieldMaxValue(-1e9); }},
    {"NoIndex", Check::HARMS, INDEX, "0", "the refractive index has to be above 0.",
     [](TestProblem& p) { p.milieu().setIndice(0.0); }},
    {"NegativeIndex", Check::HARMS, INDEX, "-1", "above 0",
     [](TestProblem& p) { p.milieu().setIndice(-1.0); }},
    {"LastPulse", Check::NOTE, "Incident Electromagnetic Field", nullptr, PULSE,
     [](TestProblem& p) { p.wave().setIncidentFieldsType(static_cast<unsigned char>(6)); }},
    {"PulseWithoutShape", Check::NOTE, "Incident Electromagnetic Field", "7",
     "no pulse has this number, and no light enters; they go from 0 to 6.",
     [](TestProblem& p) { p.wave().setIncidentFieldsType(static_cast<unsigned char>(7)); }},
};

const Case ATOMS_CASES[] = {
    {"NoTemperature", Check::HARMS, "Temperature", "0",
     "detailed balance between the levels needs a temperature above 0 K.",
     [](TestProblem&) { QV_Bloch::setTemperature(0.0); }},
    {"NegativeTemperature", Check::HARMS, "Temperature", "-4", "above 0 K",
     [](TestProblem&) { QV_Bloch::setTemperature(-4.0); }},
    {"NoTemperatureInACascade", Check::HARMS, "Temperature", nullptr, "balance",
     [](TestProblem&) {
         QV_Bloch::setTemperature(0.0);
         QV_Bloch::setRelaxationType(QV_Bloch::CASCADE_RELAXATION_TYPE);
     }},
    {"NoTemperatureTowardsEquilibrium", Check::HARMS, "Temperature", nullptr, "balance",
     [](TestProblem&) {
         QV_Bloch::setTemperature(0.0);
         QV_Bloch::setRelaxationType(QV_Bloch::EQUILIBRE_RELAXATION_TYPE);
     }},
    {"NoTemperatureInAnotherRelaxation", Check::HARMS, "Temperature", "0", "balance",
     [](TestProblem&) {
         QV_Bloch::setTemperature(0.0);
         QV_Bloch::setRelaxationType(static_cast<unsigned char>(7));
     }},
    {"NoIterationOfThePredictorCorrector", Check::HARMS, METHOD, "pc",
     "with a limit of 0 iterations this method ends the program at its first node.",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::PRED_CORR_METHOD);
         QV_Bloch::setIterationsMaxNumber(0);
     }},
    {"OneIterationOfThePredictorCorrector", Check::HARMS, METHOD, nullptr, "0 iterations",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::PRED_CORR_METHOD);
         QV_Bloch::setIterationsMaxNumber(1);
     }},
    {"NoIterationOfCN_P", Check::HARMS, METHOD, nullptr, "0 iterations",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         QV_Bloch::setIterationsMaxNumber(0);
     }},
    {"ThresholdOf1", Check::NOTE, "Convergence Criterium", "1",
     "with 1 or more the atoms stand still; 1e-6 is usual.",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         QV_Bloch::setConvergenceRate(1.0);
     }},
    {"ThresholdBelow1", Check::NOTE, "Convergence Criterium", nullptr, "stand still",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         QV_Bloch::setConvergenceRate(0.999);
     }},
    {"ThresholdOf1BySplitting", Check::NOTE, "Convergence Criterium", nullptr, "stand still",
     [](TestProblem&) { QV_Bloch::setConvergenceRate(1.0); }},
};

const Case METHODS_CASES[] = {
    {"MethodWithoutName", Check::HARMS, METHOD, "6",
     "no method has this number, and no step would be made; they go from 0 to 5.",
     [](TestProblem& p) { p->setMethod(static_cast<unsigned char>(6)); }},
    {"LastMethod", Check::HARMS, METHOD, nullptr, "no method has",
     [](TestProblem& p) { p->setMethod(QV_Problem::PRED_CORR_METHOD); }},
    {"TwoComponentsOfCN_Z", Check::HARMS, "Dimension", "2",
     "the method CN_Z ends the program with more than one component; Split treats them.",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_Z_METHOD);
         p.maxwell().setDimension(2);
     }},
    {"TwoComponentsOfRelax", Check::HARMS, "Dimension", "2", "the method Relax ends",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::RELAX_METHOD);
         p.maxwell().setDimension(2);
     }},
    {"TwoComponentsBySplitting", Check::HARMS, "Dimension", nullptr, "ends the program",
     [](TestProblem& p) { p.maxwell().setDimension(2); }},
    {"OneLevelBySplitting", Check::HARMS, LEVELS, "1",
     "the splitting treats 2, 3 or 4 levels; with others the densities become zero.",
     [](TestProblem&) { QV_Bloch::setLevelsNumber(1); }},
    {"FourLevelsBySplitting", Check::HARMS, LEVELS, nullptr, "the splitting treats",
     [](TestProblem&) { QV_Bloch::setLevelsNumber(4); }},
    {"FiveLevelsBySplitting", Check::HARMS, LEVELS, "5", "the splitting treats",
     [](TestProblem&) { QV_Bloch::setLevelsNumber(5); }},
    {"FiveLevelsOfCN_P", Check::HARMS, LEVELS, nullptr, "the splitting treats",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         QV_Bloch::setLevelsNumber(5);
     }},
};

const Case TIME_STEP_CASES[] = {
    {"NinePoints", Check::NOTE, POINTS, "9",
     "below 10 points the light travels noticeably too slow.",
     [](TestProblem& p) { p.milieu().setDiscretizationNumber(9); }},
    {"TenPoints", Check::NOTE, POINTS, nullptr, "too slow",
     [](TestProblem& p) { p.milieu().setDiscretizationNumber(10); }},
    {"FastDephasing", Check::NOTE, "Transversal Relaxation", "1e+15",
     "a step is long against this rate: 0.2002 of its time constant.",
     [](TestProblem&) { QV_Bloch::setTransversalRelaxation(1e15); }},
    {"SlowDephasing", Check::NOTE, "Transversal Relaxation", nullptr, "long against",
     [](TestProblem&) { QV_Bloch::setTransversalRelaxation(4.9e14); }},
    {"FastRates", Check::NOTE, RATES, "1e+15",
     "a step is long against this rate: 0.2002 of its time constant.",
     [](TestProblem&) {
         setMatrix(*QV_Bloch::getLongitudinalRelaxation(), {0, 1e15, 1e8, 0});
     }},
    {"SlowRates", Check::NOTE, RATES, nullptr, "long against",
     [](TestProblem&) {
         setMatrix(*QV_Bloch::getLongitudinalRelaxation(), {0, 4.9e14, 1e8, 0});
     }},
    {"FastAtoms", Check::NOTE, FREQUENCIES, "4e+15",
     "a step is long against this frequency: 0.800801 rad.",
     [](TestProblem& p) {
         setVector(*p.bloch().getLevelsFrequency(), {1e15, 5e15});
     }},
    {"FastAtomsInAnyOrder", Check::NOTE, FREQUENCIES, "4e+15", "0.800801 rad.",
     [](TestProblem& p) {
         setVector(*p.bloch().getLevelsFrequency(), {5e15, 1e15});
     }},
    {"FastAtomsOfBothSystems", Check::NOTE, FREQUENCIES, "4e+15", "0.800801 rad.",
     [](TestProblem& p) {
         p.addSystem();
         setVector(*p.bloch(0).getLevelsFrequency(), {0, 4e15});
         setVector(*p.bloch(1).getLevelsFrequency(), {0, 4e15});
     },
     2},
    {"SlowAtoms", Check::NOTE, FREQUENCIES, nullptr, "long against",
     [](TestProblem& p) {
         setVector(*p.bloch().getLevelsFrequency(), {1e15, 4.4e15});
     }},
    {"FrequencyLoweredByCN_P", Check::NOTE, FREQUENCIES, "1.256e+15",
     "the Crank-Nicolson methods lower this frequency by 0.526899 %; Split keeps it.",
     [](TestProblem& p) { p->setMethod(QV_Problem::CN_P_METHOD); }},
    {"FrequencyLoweredByCN_dtP", Check::NOTE, FREQUENCIES, "1.256e+15", "lower this frequency",
     [](TestProblem& p) { p->setMethod(QV_Problem::CN_dtP_METHOD); }},
    {"FrequencyKeptByRelax", Check::NOTE, FREQUENCIES, nullptr, "lower this frequency",
     [](TestProblem& p) { p->setMethod(QV_Problem::RELAX_METHOD); }},
    {"LowFrequencyOfCN_P", Check::NOTE, FREQUENCIES, nullptr, "lower this frequency",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         setVector(*p.bloch().getLevelsFrequency(), {0, 1.7e14});
     }},
};

const Case WITHOUT_EFFECT_CASES[] = {
    {"FactorWithoutCavity", Check::NOTE, FACTOR, "0.5", "has no effect with absorbing ends.",
     [](TestProblem& p) { p.maxwell().setLaserReflectorFactor(0.5); }},
    {"FactorInACavity", Check::NOTE, FACTOR, nullptr, "absorbing ends",
     [](TestProblem& p) {
         p.maxwell().setLaserReflectorFactor(0.5);
         p.maxwell().setLaserType(true);
     }},
    {"WeightsOfCN_P", Check::NOTE, SYSTEMS, "2",
     "the weights of the systems have no effect with CN_P.",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.addSystem();
         setWeights(p, {0.25, 0.75});
     }},
    {"EqualWeightsOfCN_P", Check::NOTE, SYSTEMS, nullptr, "the weights of the systems",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.addSystem();
         setWeights(p, {0.5, 0.5});
     }},
    {"WeightsBySplitting", Check::NOTE, SYSTEMS, nullptr, "weights",
     [](TestProblem& p) {
         p.addSystem();
         setWeights(p, {0.25, 0.75});
     }},
    {"EquilibriumOfPauli", Check::NOTE, EQUILIBRIUM, "(7.500000e-01,2.500000e-01)",
     "has no effect without the method Split and a relaxation type other than PAULI.",
     [](TestProblem&) {
         setVector(*QV_Bloch::getEquilibriumDensity(), {0.75, 0.25});
     }},
    {"EquilibriumOfACascadeInAnotherMethod", Check::NOTE, EQUILIBRIUM,
     "(7.500000e-01,2.500000e-01)", "has no effect",
     [](TestProblem& p) {
         setVector(*QV_Bloch::getEquilibriumDensity(), {0.75, 0.25});
         QV_Bloch::setRelaxationType(QV_Bloch::CASCADE_RELAXATION_TYPE);
         p->setMethod(QV_Problem::CN_P_METHOD);
     }},
    {"EquilibriumOfACascade", Check::NOTE, EQUILIBRIUM, nullptr, "",
     [](TestProblem&) {
         setVector(*QV_Bloch::getEquilibriumDensity(), {0.75, 0.25});
         QV_Bloch::setRelaxationType(QV_Bloch::CASCADE_RELAXATION_TYPE);
     }},
    {"EquilibriumThatIsNoDensity", Check::NOTE, EQUILIBRIUM, "(1.303080e-06,1.000000e+08)",
     "the populations add up to 1e+08 and not to 1; the atoms would relax towards them.",
     [](TestProblem&) { QV_Bloch::setRelaxationType(QV_Bloch::CASCADE_RELAXATION_TYPE); }},
    {"EquilibriumThatIsNearlyADensity", Check::NOTE, EQUILIBRIUM, nullptr, "",
     [](TestProblem&) {
         setVector(*QV_Bloch::getEquilibriumDensity(), {0.75, 0.2505});
         QV_Bloch::setRelaxationType(QV_Bloch::EQUILIBRE_RELAXATION_TYPE);
     }},
    {"DensityWithoutAtoms", Check::NOTE, DENSITY, "0",
     "the populations add up to 0 and not to 1; a number is typed with its parentheses, as in "
     "(1,0).",
     [](TestProblem&) { QV_Bloch::getInitialDensity()->setValueFromString(1, 1, "1"); }},
    {"DensityOfTwoAtoms", Check::NOTE, DENSITY, "2", "the populations add up to 2 and not to 1;",
     [](TestProblem&) { QV_Bloch::getInitialDensity()->setValueFromString(0, 0, "(1,0)"); }},
    {"DensityThatIsNearlyOne", Check::NOTE, DENSITY, nullptr, "the populations",
     [](TestProblem&) {
         QV_Bloch::getInitialDensity()->setValueFromString(0, 0, "(0.25,0)");
         QV_Bloch::getInitialDensity()->setValueFromString(1, 1, "(0.7505,0)");
     }},
    {"DensityOfNoAtoms", Check::NOTE, DENSITY, nullptr, "the populations",
     [](TestProblem& p) {
         QV_Bloch::getInitialDensity()->setValueFromString(1, 1, "(0,0)");
         p->getBlochEquations()->clear();
     }},
};

const Case SCHEMES_CASES[] = {
    {"CN_Z", Check::NOTE, METHOD, "CN_Z",
     "couples the polarization with the opposite sign: a medium in its ground state amplifies. "
     "CN_P, CN_dtP and Split follow theory.",
     [](TestProblem& p) { p->setMethod(QV_Problem::CN_Z_METHOD); }},
    {"CN_P", Check::NOTE, METHOD, nullptr, "",
     [](TestProblem& p) { p->setMethod(QV_Problem::CN_P_METHOD); }},
    {"CN_dtP", Check::NOTE, METHOD, nullptr, "",
     [](TestProblem& p) { p->setMethod(QV_Problem::CN_dtP_METHOD); }},
    {"Relax", Check::NOTE, METHOD, "Relax",
     "advances the coherences of the first active node alone.",
     [](TestProblem& p) { p->setMethod(QV_Problem::RELAX_METHOD); }},
    {"PredictorCorrector", Check::NOTE, METHOD, "pc",
     "its populations gain without loss, and its density files are written in a turning, decaying "
     "frame.",
     [](TestProblem& p) { p->setMethod(QV_Problem::PRED_CORR_METHOD); }},
    {"TwoSystemsOfCN_P", Check::NOTE, SYSTEMS, "2",
     "with CN_P each system advances the field by a whole step; CN_dtP and Split take their "
     "weighted sum.",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.addSystem();
     }},
    {"TwoSystemsOfCN_dtP", Check::NOTE, SYSTEMS, nullptr, "",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_dtP_METHOD);
         p.addSystem();
     }},
    {"PositiveDiagonalTowardsEquilibrium", Check::NOTE, RATES, "2e+08",
     "a positive rate on the diagonal drives level 1 away from its equilibrium.",
     [](TestProblem&) {
         setMatrix(*QV_Bloch::getLongitudinalRelaxation(), {-1e8, 0, 0, 2e8});
         QV_Bloch::setRelaxationType(QV_Bloch::EQUILIBRE_RELAXATION_TYPE);
     }},
    {"PositiveDiagonalOfPauli", Check::NOTE, RATES, nullptr, "",
     [](TestProblem&) {
         setMatrix(*QV_Bloch::getLongitudinalRelaxation(), {1e8, 0, 0, 2e8});
     }},
    {"SplittingOrder0", Check::NOTE, "Splitting Type", nullptr, TURNING,
     [](TestProblem&) { QV_Bloch::setSplitType(QV_Bloch::HRN_SPLIT_TYPE); }},
    {"SplittingOrder1", Check::NOTE, "Splitting Type", nullptr, TURNING,
     [](TestProblem&) { QV_Bloch::setSplitType(QV_Bloch::RNH_SPLIT_TYPE); }},
    {"SplittingOrder2", Check::NOTE, "Splitting Type", "2",
     "this order turns the coherences at 0.5 times their frequency; 0 and 1 keep it.",
     [](TestProblem&) { QV_Bloch::setSplitType(QV_Bloch::HRNH_SPLIT_TYPE); }},
    {"SplittingOrder3", Check::NOTE, "Splitting Type", "3",
     "this order turns the coherences at 2 times their frequency; 0 and 1 keep it.",
     [](TestProblem&) { QV_Bloch::setSplitType(QV_Bloch::RNHRN_SPLIT_TYPE); }},
    {"SplittingOrder2OfAnotherMethod", Check::NOTE, "Splitting Type", nullptr, TURNING,
     [](TestProblem& p) {
         QV_Bloch::setSplitType(QV_Bloch::HRNH_SPLIT_TYPE);
         p->setMethod(QV_Problem::CN_P_METHOD);
     }},
    {"FourLevels", Check::NOTE, LEVELS, "4",
     "the step of 4 levels does not keep the sum of the populations exactly.",
     [](TestProblem&) { QV_Bloch::setLevelsNumber(4); }},
    {"ThreeLevels", Check::NOTE, LEVELS, nullptr, "4 levels",
     [](TestProblem&) { QV_Bloch::setLevelsNumber(3); }},
    {"FourLevelsOfCN_P", Check::NOTE, LEVELS, nullptr, "4 levels",
     [](TestProblem& p) {
         QV_Bloch::setLevelsNumber(4);
         p->setMethod(QV_Problem::CN_P_METHOD);
     }},
};

const Case ENDS_AND_REACH_CASES[] = {
    {"Cavity", Check::NOTE, FACTOR, "1",
     "both ends of a cavity reflect the whole field whatever this factor is, while the cells "
     "beside them are empty.",
     [](TestProblem& p) {
         p.maxwell().setLaserType(true);
         p.milieu().setStartingPosition(15.0);
     }},
    {"CavityWithTwoEnds", Check::NOTE, FACTOR, "1", "both ends of a cavity",
     [](TestProblem& p) {
         p.maxwell().setReflexiveLaserType(true);
         p.milieu().setStartingPosition(15.0);
     }},
    {"NoCavity", Check::NOTE, FACTOR, nullptr, "", [](TestProblem&) {}},
    {"CavityBesideAtoms", Check::HARMS, BEGIN, "10",
     "the end of a cavity beside atoms at node 1 makes the field grow without limit; start the "
     "active zone at node 2, that is from 15 % on.",
     [](TestProblem& p) { p.maxwell().setLaserType(true); }},
    {"CavityOneNodeOffAtoms", Check::HARMS, BEGIN, nullptr, "end of a cavity",
     [](TestProblem& p) {
         p.maxwell().setLaserType(true);
         p.milieu().setStartingPosition(15.0);
     }},
    {"AtomsFromNode1OfCN_P", Check::HARMS, BEGIN, "10",
     "with atoms from node 1 on this method makes the field grow without limit; start the active "
     "zone at node 2, that is from 15 % on.",
     [](TestProblem& p) { p->setMethod(QV_Problem::CN_P_METHOD); }},
    {"AtomsFromNode2OfCN_P", Check::HARMS, BEGIN, nullptr, "",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.milieu().setStartingPosition(15.0);
     }},
    {"AtomsFromNode1InACavityOfCN_P", Check::HARMS, BEGIN, "10", "the end of a cavity beside atoms",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.maxwell().setLaserType(true);
     }},
    {"AtomsToTheLastNode", Check::NOTE, END, "100",
     "atoms so near to the end make it reflect noticeably; leave two empty cells.",
     [](TestProblem& p) { p.milieu().setEndingPosition(100.0); }},
    {"AtomsToTheLastNodeButOne", Check::NOTE, END, nullptr, "",
     [](TestProblem& p) { p.milieu().setEndingPosition(95.0); }},
    {"AtomsToTheLastNodeOfCN_P", Check::HARMS, END, "100",
     "with atoms so near to the end this method makes the field grow without limit; leave two "
     "empty cells.",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.milieu().setEndingPosition(100.0);
     }},
    {"AtomsToTheLastNodeButOneOfCN_P", Check::HARMS, END, "95", "grow without limit",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.milieu().setEndingPosition(95.0);
     }},
    {"AtomsToTheLastNodeButTwoOfCN_P", Check::NOTE, END, nullptr, "",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.milieu().setEndingPosition(90.0);
     }},
    // The last captor is at 70 % of 20.5 cells, and a step crosses 0.8 of one.
    {"ShortRun", Check::NOTE, STEPS, "17",
     "the run ends before light reaches the last captor; that takes 18 steps.",
     [](TestProblem& p) { p->setMaxTimeStepsNumber(17); }},
    {"LongEnoughRun", Check::NOTE, STEPS, nullptr, "last captor",
     [](TestProblem& p) { p->setMaxTimeStepsNumber(18); }},
    {"ShortRunInADenseMedium", Check::NOTE, STEPS, "20", "that takes 22 steps.",
     [](TestProblem& p) { p.milieu().setIndice(1.2); }},
    {"ShortRunWithoutCaptors", Check::NOTE, STEPS, nullptr, "last captor",
     [](TestProblem& p) {
         p->setMaxTimeStepsNumber(10);
         p.milieu().resetCaptors();
     }},
    {"ShortRunWithCaptorsAtTheBeginning", Check::NOTE, STEPS, nullptr, "last captor",
     [](TestProblem& p) {
         p->setMaxTimeStepsNumber(10);
         setVector(*p.milieu().getCaptors(), {-10, 5, 0});
     }},
    {"RunThatTakesNoTime", Check::NOTE, STEPS, nullptr, "last captor",
     [](TestProblem& p) { p.wave().setWaveLength(-1e-6); }},
    {"FrequenciesWithoutTimeStep", Check::NOTE, FREQUENCIES, nullptr, "",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.wave().setCFL(-0.8);
     }},
};

const Case FORMER_RUN_CASES[] = {
    {"NothingKept", Check::NOTE, POINTS, nullptr, "former run", [](TestProblem&) {}},
    {"NothingChangedAfterARun", Check::NOTE, POINTS, nullptr, "former run",
     [](TestProblem& p) { p.run(); }},
    {"CellSizeKept", Check::NOTE, POINTS, "40", "of a former run is kept; the present data give ",
     [](TestProblem& p) {
         p.run();
         p.milieu().setDiscretizationNumber(40);
     }},
    {"CellSizeKeptByANewPeakField", Check::NOTE, POINTS, "20",
     "Start from a new problem to use them.",
     [](TestProblem& p) {
         p.run();
         p.wave().setFieldMaxValue(2 * p.wave().getFieldMaxValue());
     }},
    {"ZoneKept", Check::NOTE, BEGIN, "10",
     "the active zone of a former run is kept, nodes 1 to 17; the present data give 1 to 15.",
     [](TestProblem& p) {
         p.run();
         p.milieu().setEndingPosition(80.0);
     }},
    {"ComponentsKept", Check::NOTE, "Dimension", "2",
     "the state of the ends of a former run is kept, with 1 components; the others count as 0.",
     [](TestProblem& p) {
         p.run();
         p.maxwell().setDimension(2);
     }},
    {"WeightsKept", Check::NOTE, SYSTEMS, "2",
     "there are 1 weights, kept from a former run or from the file; a missing one is 0.",
     [](TestProblem& p) {
         p.run();
         p.addSystem();
     }},
    {"FewWeightsOfCN_P", Check::NOTE, SYSTEMS, nullptr, "there are 1 weights",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         setWeights(p, {0.5});
         p.addSystem();
     }},
    {"ZoneOfASystemKept", Check::NOTE, SYSTEMS, "1",
     "this system keeps the cell size or the active zone of a former run.",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.run();
         p.milieu().setEndingPosition(80.0);
     }},
    {"CellSizeOfASystemKept", Check::NOTE, SYSTEMS, "1", "this system keeps the cell size",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.run();
         p.wave().setFieldMaxValue(1e9);
     }},
    {"NothingOfASystemKept", Check::NOTE, SYSTEMS, nullptr, "this system keeps",
     [](TestProblem& p) {
         p->setMethod(QV_Problem::CN_P_METHOD);
         p.run();
     }},
};

class QV_ProblemCheckCase : public testing::TestWithParam<Case>
{
protected:
    TestProblem mProblem;
};

std::string nameOf(const testing::TestParamInfo<Case>& tested)
{
    return tested.param.mName;
}

/// The digits of the marks "%1", "%2" ... in a sentence.
std::set<char> marksOf(const std::string& sentence)
{
    std::set<char> marks;
    for (std::size_t place = sentence.find('%'); place != std::string::npos;
         place = sentence.find('%', place + 1)) {
        if (std::isdigit(static_cast<unsigned char>(sentence[place + 1])) != 0) {
            marks.insert(sentence[place + 1]);
        }
    }
    return marks;
}

} // namespace

TEST_P(QV_ProblemCheckCase, IsFoundExactlyWhenItIsSo)
{
    const Case& tested = GetParam();
    tested.mChange(mProblem);
    const Findings findings = check(mProblem);
    unsigned long number = 0;
    for (const Check::Finding& finding : findings) {
        if (finding.mGrade == tested.mGrade && finding.mLabel == tested.mLabel
            && finding.sentence().find(tested.mPiece) != std::string::npos) {
            ++number;
            EXPECT_EQ(finding.mValue, tested.mValue == nullptr ? "" : tested.mValue);
        }
    }
    EXPECT_EQ(number, tested.mValue == nullptr ? 0 : tested.mNumber) << textOf(findings);
}

TEST_P(QV_ProblemCheckCase, FillsEachMarkOfItsSentencesAndSortsByGrade)
{
    GetParam().mChange(mProblem);
    const Findings findings = check(mProblem);
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const Check::Finding& finding = findings[i];
        EXPECT_EQ(marksOf(finding.sentence()), std::set<char>{}) << finding.text();
        // As many numbers as marks, and none left over.
        EXPECT_EQ(marksOf(finding.mSentence).size(), finding.mNumbers.size()) << finding.mSentence;
        EXPECT_TRUE(i == 0 || findings[i - 1].mGrade <= finding.mGrade) << textOf(findings);
        EXPECT_FALSE(finding.mLabel.empty());
        EXPECT_FALSE(finding.mValue.empty()) << finding.text();
        EXPECT_TRUE(finding.mSentence.ends_with(".")) << finding.mSentence;
        EXPECT_EQ(finding.text(),
                  finding.mLabel + " = " + finding.mValue + ": " + finding.sentence());
    }
}

INSTANTIATE_TEST_SUITE_P(Mesh, QV_ProblemCheckCase, testing::ValuesIn(MESH_CASES), nameOf);
INSTANTIATE_TEST_SUITE_P(Sizes, QV_ProblemCheckCase, testing::ValuesIn(SIZES_CASES), nameOf);
INSTANTIATE_TEST_SUITE_P(NumbersOfSteps, QV_ProblemCheckCase,
                         testing::ValuesIn(NUMBERS_OF_STEPS_CASES), nameOf);
INSTANTIATE_TEST_SUITE_P(Light, QV_ProblemCheckCase, testing::ValuesIn(LIGHT_CASES), nameOf);
INSTANTIATE_TEST_SUITE_P(Atoms, QV_ProblemCheckCase, testing::ValuesIn(ATOMS_CASES), nameOf);
INSTANTIATE_TEST_SUITE_P(Methods, QV_ProblemCheckCase, testing::ValuesIn(METHODS_CASES), nameOf);
INSTANTIATE_TEST_SUITE_P(TimeStep, QV_ProblemCheckCase, testing::ValuesIn(TIME_STEP_CASES), nameOf);
INSTANTIATE_TEST_SUITE_P(WithoutEffect, QV_ProblemCheckCase,
                         testing::ValuesIn(WITHOUT_EFFECT_CASES), nameOf);
INSTANTIATE_TEST_SUITE_P(Schemes, QV_ProblemCheckCase, testing::ValuesIn(SCHEMES_CASES), nameOf);
INSTANTIATE_TEST_SUITE_P(EndsAndReach, QV_ProblemCheckCase, testing::ValuesIn(ENDS_AND_REACH_CASES),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(FormerRun, QV_ProblemCheckCase, testing::ValuesIn(FORMER_RUN_CASES),
                         nameOf);

// ---------------------------------------------------------------- sound problems

TEST(QV_ProblemCheck, ASoundProblemHasNoFinding)
{
    const TestProblem problem;
    EXPECT_EQ(textOf(check(problem)), "");
}

TEST(QV_ProblemCheck, TheProblemThatAProgramStartsWithIsSoundBySplitting)
{
    const TestDirectory directory;
    const COM_Scoped problem(QV_1DProblem::New());
    problem->setMethod(QV_Problem::SPLIT_METHOD);
    EXPECT_EQ(textOf(Check::check(*problem, directory.path().string())), "");
}

TEST(QV_ProblemCheck, EachMethodWithResonantAtomsHasNotesAtTheMost)
{
    const TestProblem problem;
    problem.milieu().setStartingPosition(15.0);
    setVector(*problem.bloch().getLevelsFrequency(), {0.0, problem.wave().getFrequency()});
    for (unsigned char method = 0; method < QV_Problem::mMethodsNameLength; ++method) {
        problem->setMethod(method);
        EXPECT_EQ(textOf(serious(check(problem))), "") << QV_Problem::mMethodsName[method];
    }
}

TEST(QV_ProblemCheck, LevelsComponentsAndSystemsThatASplittingTreatsAreSound)
{
    const TestProblem problem;
    for (unsigned long levels = 2; levels <= 4; ++levels) {
        QV_Bloch::setLevelsNumber(levels);
        for (unsigned long components = 1; components <= 3; ++components) {
            problem.maxwell().setDimension(components);
            QV_Bloch::setPolarizationsSize(components);
            EXPECT_EQ(textOf(serious(check(problem))), "") << levels << ", " << components;
        }
    }
    problem.addSystem();
    problem.addSystem();
    EXPECT_EQ(textOf(serious(check(problem))), "");
}

TEST(QV_ProblemCheck, AProblemThatHasRunIsAsSoundAsBefore)
{
    for (unsigned char method = 0; method < QV_Problem::mMethodsNameLength; ++method) {
        TestProblem problem;
        problem->setMethod(method);
        const std::string before = textOf(check(problem));
        ASSERT_EQ(problem.run(), 0);
        EXPECT_EQ(textOf(check(problem)), before) << QV_Problem::mMethodsName[method];
    }
}

// ---------------------------------------------------------------- the check itself

TEST(QV_ProblemCheck, NothingIsPrintedOrChangedAndNoMeshIsBuilt)
{
    const TestProblem problem;
    const auto describe = [&problem] {
        return Description(*problem).text() + Description(problem.milieu()).text()
               + Description(problem.maxwell()).text() + Description(problem.wave()).text()
               + Description(problem.bloch()).text();
    };
    const std::string before = describe();
    EXPECT_EQ(printedBy([&problem] { check(problem); }), "");
    EXPECT_EQ(describe(), before);
    EXPECT_FALSE(problem.milieu().isMeshed());
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    problem.milieu().getVertices(*vertices);
    EXPECT_EQ(vertices->size(), 0UL);
    // A mesh of this many nodes would take minutes, if there were memory for it.
    problem.setNodes(900000000);
    EXPECT_TRUE(Check::has(check(problem), Check::STOPS));
}

TEST(QV_ProblemCheck, AProblemWithoutOneOfItsPartsIsStopped)
{
    const auto text = [](const TestProblem& problem) { return textOf(check(problem)); };
    const std::string missing =
        "0 Milieu = -: a part of the problem is missing: medium, field or incident wave.\n";
    const TestProblem withoutMilieu;
    withoutMilieu->resetMilieu();
    EXPECT_EQ(text(withoutMilieu), missing);
    const TestProblem withoutField;
    withoutField->resetMaxwellSystem();
    EXPECT_EQ(text(withoutField), missing);
    const TestProblem withoutWave;
    withoutWave.maxwell().resetIncidentFields();
    EXPECT_EQ(text(withoutWave), missing);
}

TEST(QV_ProblemCheck, AProblemWithoutAtomsIsNotStopped)
{
    const TestProblem problem;
    problem->resetBlochEquations();
    EXPECT_EQ(textOf(serious(check(problem))), "");
}

TEST(QV_ProblemCheck, TheSharedDataOfAtomsMayBeMissing)
{
    TestProblem problem;
    problem.release();
    QV_Bloch::resetShared();
    const COM_Scoped other(QV_1DProblem::New());
    other->resetBlochEquations();
    QV_Bloch::resetShared();
    EXPECT_EQ(QV_Bloch::getPolarizations(), nullptr);
    EXPECT_FALSE(Check::has(Check::check(*other, ""), Check::STOPS));
}

TEST(QV_ProblemCheck, AGradeIsThereOrNot)
{
    const TestProblem problem;
    EXPECT_FALSE(Check::has(check(problem), Check::NOTE));
    problem.milieu().setEndingPosition(105.0);
    problem->setMethod(QV_Problem::CN_Z_METHOD);
    const Findings findings = check(problem);
    EXPECT_TRUE(Check::has(findings, Check::STOPS));
    EXPECT_FALSE(Check::has(findings, Check::HARMS));
    EXPECT_TRUE(Check::has(findings, Check::NOTE));
}

TEST(QV_ProblemCheck, TheWorstComesFirstAndEqualGradesKeepTheOrderOfTheForms)
{
    const TestProblem problem;
    problem->setMethod(QV_Problem::RELAX_METHOD);
    problem->setMaxTimeStepsNumber(5);
    problem.wave().setFieldMaxValue(0.0);
    problem.milieu().setStartingPosition(0.0);
    problem.milieu().setEndingPosition(105.0);
    std::string labels;
    for (const Check::Finding& finding : check(problem)) {
        labels += std::to_string(finding.mGrade) + " " + finding.mLabel + "; ";
    }
    EXPECT_EQ(labels, "0 Milieu Begining Position; 0 Milieu Ending Position; 1 Time Steps Number; "
                      "1 Max. Intensity; 2 Numerical Method; 2 Time Steps Number; ");
}

TEST(QV_ProblemCheck, NumbersAreWrittenWithAPointWhateverTheLocale)
{
    const TestProblem problem;
    problem.milieu().setIndice(1.5);
    const std::string before = textOf(check(problem));
    const CommaLocale locale;
    EXPECT_EQ(textOf(check(problem)), before);
    EXPECT_NE(before.find("1.2 cells"), std::string::npos) << before;
}

TEST(QV_ProblemCheck, MarksAreFilledWhereverTheyStandAndByTheirOwnNumbers)
{
    const Check::Finding finding{
        Check::NOTE, "a", "b", "%2 and %1 and %2, 100 % of %1", {"one", "%1"}};
    EXPECT_EQ(finding.sentence(), "%1 and one and %1, 100 % of one");
    EXPECT_EQ(finding.text(), "a = b: %1 and one and %1, 100 % of one");
}

TEST(QV_ProblemCheck, TheMemoryGrowsWithNodesLevelsSystemsAndComponents)
{
    const TestProblem problem;
    const double little = Check::memory(*problem);
    // The densities and the two fields alone.
    EXPECT_GT(little, 20 * (16 * 4 + 16));
    problem.setNodes(40);
    EXPECT_DOUBLE_EQ(Check::memory(*problem), 2 * little);
    problem.setNodes(20);
    QV_Bloch::setLevelsNumber(4);
    EXPECT_DOUBLE_EQ(Check::memory(*problem), little + 20 * 16 * 12);
    problem.maxwell().setDimension(2);
    const double more = Check::memory(*problem);
    EXPECT_GE(more, little + 20 * 16 * 12 + 20 * 16);
    problem.addSystem();
    EXPECT_GE(Check::memory(*problem), more + 20 * 16 * 16);
    problem->resetMilieu();
    EXPECT_EQ(Check::memory(*problem), 0.0);
}

TEST(QV_ProblemCheck, AMeshIsStoppedFromTheNodeOnThatDoesNotFitIntoMemory)
{
    const TestProblem problem;
    const double available =
        static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGE_SIZE));
    const double node = Check::memory(*problem) / 20.0;
    problem.setNodes(static_cast<unsigned long>(available / node * 0.999));
    EXPECT_FALSE(Check::has(check(problem), Check::STOPS));
    problem.setNodes(static_cast<unsigned long>(available / node * 1.001));
    const Findings findings = serious(check(problem));
    ASSERT_EQ(findings.size(), 1UL) << textOf(findings);
    EXPECT_NE(findings[0].text().find(
                  " MB of memory; this machine has "
                  + std::to_string(static_cast<long>(available / 1048576.0)).substr(0, 3)),
              std::string::npos)
        << findings[0].text();
}

// ---------------------------------------------------------------- result files

TEST(QV_ProblemCheck, ADirectoryThatCannotTakeTheResultsIsHarm)
{
    const TestProblem problem;
    const auto text = [&problem](const std::string& directory) {
        return textOf(Check::check(*problem, directory));
    };
    const std::string sentence = ": the result files cannot be made there: no such directory, or "
                                 "no right to write.\n";
    const std::string missing = problem.directory().file("missing");
    EXPECT_EQ(text(missing), "1 Project Directory = " + missing + sentence);
    const std::string file = problem.directory().write("file", "");
    EXPECT_EQ(text(file + "/below"), "1 Project Directory = " + file + "/below" + sentence);
    EXPECT_EQ(text(problem.directory().path().string()), "");
    EXPECT_EQ(text(problem.directory().slashed()), "");
    EXPECT_EQ(text(""), ""); // the working directory
}

TEST(QV_ProblemCheck, ADirectoryWithoutTheRightToWriteIsHarm)
{
    const TestProblem problem;
    std::filesystem::permissions(problem.directory().path(),
                                 static_cast<std::filesystem::perms>(0555));
    EXPECT_EQ(runInChild([&problem] {
                  becomeOrdinaryUser();
                  const Findings findings = check(problem);
                  return findings.size() == 1 && findings[0].mLabel == "Project Directory" ? 0 : 1;
              }),
              0);
}

TEST(QV_ProblemCheck, MoreOpenFilesThanTheSystemAllowsAreHarm)
{
    // Five nodes, each with one file for the field and one for the atoms, and the times: 11, and 16
    // that the process holds besides.
    const auto findingsWith = [](unsigned long limit) {
        return runInChild([limit] {
            TestProblem problem;
            const rlimit few{limit, limit};
            if (setrlimit(RLIMIT_NOFILE, &few) != 0) {
                return 98;
            }
            const Findings findings = check(problem);
            const bool isRight =
                findings.empty()
                || findings[0].text()
                       == "Captors = 5: a run holds 11 result files open, and this system allows "
                              + std::to_string(limit) + "; take fewer captors or systems.";
            return isRight ? static_cast<int>(findings.size()) : 99;
        });
    };
    EXPECT_EQ(findingsWith(27), 0);
    EXPECT_EQ(findingsWith(26), 1);
}

TEST(QV_ProblemCheck, CaptorsAtTheSameNodeShareTheirFiles)
{
    const TestProblem problem;
    const COM_Scoped captors(LA_RealVector::New(0));
    captors->setValues({-30.0, 0.0, 1.0, 50.0, 51.0, 99.9, 100.0, 400.0});
    problem.milieu().setCaptors(*captors);
    // The nodes 0, 1, 9, 18 and 19 remain, as many as before.
    EXPECT_EQ(runInChild([&problem] {
                  const rlimit few{26, 26};
                  setrlimit(RLIMIT_NOFILE, &few);
                  const Findings findings = check(problem);
                  return findings.size() == 2 && findings[0].mLabel == "Captors"
                                 && findings[0].mValue == "5"
                             ? 0
                             : 1;
              }),
              0);
}

// ---------------------------------------------------------------- what the findings say is true

namespace {

/// The largest magnitude in the files of the field or the densities; not-a-number if one is among
/// them.
double largestIn(const TestProblem& problem, const std::string& begin)
{
    double largest = 0.0;
    for (const auto& entry : std::filesystem::directory_iterator(problem.directory().path())) {
        if (!entry.path().filename().string().starts_with(begin)) {
            continue;
        }
        std::ifstream stream(entry.path());
        std::string line;
        while (std::getline(stream, line)) {
            std::istringstream words(line);
            std::string word;
            words >> word; // the time
            while (words >> word) {
                const double size = std::fabs(std::strtod(word.c_str(), nullptr));
                largest = std::isnan(size) || size > largest ? size : largest;
                if (std::isnan(largest)) {
                    return largest;
                }
            }
        }
    }
    return largest;
}

/// A process in which the problem runs after a change, as the processes of EXPECT_EXIT are.
void runAfter(void (*change)(TestProblem&))
{
    dup2(STDERR_FILENO, STDOUT_FILENO);
    TestProblem problem;
    change(problem);
    const int result = problem->run();
    std::cout.flush();
    _exit(result == 0 ? 77 : 78);
}

} // namespace

TEST(QV_ProblemCheckTruth, AStoppedMeshIsRefusedByTheRunToo)
{
    void (*const changes[])(TestProblem&) = {
        [](TestProblem& p) { p.setNodes(2); },
        [](TestProblem& p) { p.milieu().setLength(notANumber); },
        [](TestProblem& p) { p.milieu().setDiscretizationNumber(0); },
        [](TestProblem& p) { p.milieu().setStartingPosition(-50.0); },
        [](TestProblem& p) { p.milieu().setStartingPosition(105.0); },
        [](TestProblem& p) { p.milieu().setEndingPosition(105.0); },
    };
    for (const auto change : changes) {
        TestProblem problem;
        change(problem);
        EXPECT_TRUE(Check::has(check(problem), Check::STOPS));
        EXPECT_EQ(problem.run(), QV_Problem::MESH_ERROR);
        EXPECT_FALSE(std::filesystem::exists(problem.directory().path() / "tps.res"));
    }
}

TEST(QV_ProblemCheckTruth, AMeshThatIsNotStoppedRuns)
{
    TestProblem problem;
    problem.milieu().setStartingPosition(10.0);
    problem.milieu().setEndingPosition(100.0);
    EXPECT_EQ(textOf(serious(check(problem))), "");
    EXPECT_EQ(problem.run(), 0);
}

TEST(QV_ProblemCheckTruth, AZoneThatEndsBeforeItStartsHasOneNodeOfAtoms)
{
    TestProblem problem;
    problem.milieu().setStartingPosition(60.0);
    problem.milieu().setEndingPosition(50.0);
    EXPECT_EQ(problem.run(), 0);
    EXPECT_EQ(problem.milieu().getBoundaryLocation(QV_Milieu::FIRST_NODE), 11);
    EXPECT_EQ(problem.milieu().getBoundaryLocation(QV_Milieu::LAST_NODE), 11);
}

TEST(QV_ProblemCheckTruth, TooFewStepsEndByTheArithmeticTrap)
{
    EXPECT_EXIT(runAfter([](TestProblem& p) { p->setMaxTimeStepsNumber(9); }),
                testing::KilledBySignal(SIGFPE), "split method");
    EXPECT_EXIT(runAfter([](TestProblem& p) {
                    p->setMethod(QV_Problem::CN_dtP_METHOD);
                    p->setMaxTimeStepsNumber(19);
                }),
                testing::KilledBySignal(SIGFPE), "dtP discretization");
    EXPECT_EXIT(runAfter([](TestProblem& p) { p->setMaxTimeStepsNumber(10); }),
                testing::ExitedWithCode(77), "execution time");
}

TEST(QV_ProblemCheckTruth, WithoutCourantNumberNoTimePasses)
{
    TestProblem problem;
    problem.wave().setCFL(0.0);
    EXPECT_EQ(problem.run(), 0);
    EXPECT_EQ(problem->getTimeStepAdim(), 0.0);
}

TEST(QV_ProblemCheckTruth, LightThatCrossesMoreThanACellInAStepGrowsWithoutLimit)
{
    const auto largest = [](double cfl) {
        TestProblem problem;
        problem->setMaxTimeStepsNumber(400);
        problem.wave().setCFL(cfl);
        EXPECT_EQ(problem.run(), 0);
        return largestIn(problem, "E_at_") / problem.wave().getFieldMaxValue();
    };
    EXPECT_LT(largest(1.0), 10.0);
    EXPECT_FALSE(largest(1.25) < 1e6);
}

TEST(QV_ProblemCheckTruth, ACavityThatEndsBesideAtomsGrowsWithoutLimit)
{
    const auto largest = [](double start) {
        TestProblem problem;
        problem->setMaxTimeStepsNumber(1000);
        problem.maxwell().setLaserType(true);
        problem.milieu().setStartingPosition(start);
        EXPECT_EQ(problem.run(), 0);
        return largestIn(problem, "E_at_") / problem.wave().getFieldMaxValue();
    };
    EXPECT_LT(largest(15.0), 10.0);
    EXPECT_FALSE(largest(10.0) < 1e6);
}

TEST(QV_ProblemCheckTruth, AtomsBesideTheEndsOfACoupledMethodGrowWithoutLimit)
{
    const auto isBounded = [](double start, double end) {
        TestProblem problem;
        problem->setMethod(QV_Problem::CN_P_METHOD);
        problem->setMaxTimeStepsNumber(1000);
        problem.milieu().setStartingPosition(start);
        problem.milieu().setEndingPosition(end);
        EXPECT_EQ(problem.run(), 0);
        return largestIn(problem, "E_at_") < problem.wave().getFieldMaxValue();
    };
    EXPECT_TRUE(isBounded(15.0, 90.0));
    EXPECT_FALSE(isBounded(10.0, 90.0));
    EXPECT_FALSE(isBounded(15.0, 95.0));
    EXPECT_FALSE(isBounded(15.0, 100.0));
}

TEST(QV_ProblemCheckTruth, WithoutPeakFieldAllResultsAreNotANumbers)
{
    TestProblem problem;
    problem.wave().setFieldMaxValue(0.0);
    EXPECT_EQ(problem.run(), 0);
    EXPECT_TRUE(std::isnan(largestIn(problem, "E_at_")));
    EXPECT_TRUE(std::isnan(largestIn(problem, "Rho_")));
}

TEST(QV_ProblemCheckTruth, WithoutWavelengthIndexOrTemperatureNoUsefulNumberComesOut)
{
    TestProblem wavelength;
    wavelength.wave().setWaveLength(0.0);
    EXPECT_EQ(wavelength.run(), 0);
    EXPECT_EQ(wavelength->getTimeStepAdim(), 0.0);
    TestProblem index;
    index.milieu().setIndice(0.0);
    EXPECT_EQ(index.run(), 0);
    EXPECT_TRUE(std::isnan(largestIn(index, "E_at_")) || largestIn(index, "E_at_") == 0.0);
    // Where the first level is the higher one its rate is multiplied by exp(infinity).
    TestProblem temperature;
    setVector(*temperature.bloch().getLevelsFrequency(), {1.256e15, 0.0});
    QV_Bloch::setTemperature(0.0);
    EXPECT_EQ(temperature.run(), 0);
    EXPECT_TRUE(std::isnan(largestIn(temperature, "Rho_")));
}

TEST(QV_ProblemCheckTruth, APredictorCorrectorWithoutIterationEndsTheProgram)
{
    EXPECT_EXIT(runAfter([](TestProblem& p) {
                    p->setMethod(QV_Problem::PRED_CORR_METHOD);
                    QV_Bloch::setIterationsMaxNumber(0);
                }),
                testing::ExitedWithCode(0), "Le predicteur-correcteur ne converge plus");
}

TEST(QV_ProblemCheckTruth, TwoComponentsEndTheProgramInEveryMethodButSplitting)
{
    EXPECT_EXIT(runAfter([](TestProblem& p) {
                    p->setMethod(QV_Problem::CN_Z_METHOD);
                    p.maxwell().setDimension(2);
                }),
                testing::ExitedWithCode(0), "not implemented for a field dimension superior to 1");
    EXPECT_EXIT(runAfter([](TestProblem& p) {
                    p->setMethod(QV_Problem::RELAX_METHOD);
                    p.maxwell().setDimension(2);
                }),
                testing::ExitedWithCode(0), "not implemented for a field dimension superior to 1");
    EXPECT_EXIT(runAfter([](TestProblem& p) { p.maxwell().setDimension(2); }),
                testing::ExitedWithCode(77), "execution time");
}

TEST(QV_ProblemCheckTruth, ASplittingOfFiveLevelsGivesNoDensities)
{
    TestProblem problem;
    QV_Bloch::setLevelsNumber(5);
    EXPECT_EQ(problem.run(), 0);
    for (const char* node : {"1", "5", "9", "13"}) {
        EXPECT_EQ(largestIn(problem, "Rho_Bloch0_at_" + std::string(node) + "."), 0.0) << node;
    }
    EXPECT_EQ(largestIn(problem, "Rho_Bloch0_at_18."), 1.0); // behind the active zone
}

TEST(QV_ProblemCheckTruth, AMethodWithoutNameMakesNoStep)
{
    TestProblem problem;
    problem->setMethod(static_cast<unsigned char>(6));
    EXPECT_EQ(problem.run(), 0);
    EXPECT_NE(problem.log().find("method number 6 too large !\n"), std::string::npos);
    EXPECT_EQ(problem.directory().read("tps.res"), "");
}

TEST(QV_ProblemCheckTruth, ResultFilesThatCannotBeMadeEndTheProgram)
{
    EXPECT_EXIT(runAfter([](TestProblem& p) { p->setSavingPath("/missing/"); }),
                testing::ExitedWithCode(0), "impossible to save the initialization in /missing/");
    EXPECT_EXIT(runAfter([](TestProblem&) {
                    // The check of types in a sanitizer build needs files of its own, so that the statics
                    // must not be destroyed without any.
                    on_exit(
                        [](int status, void*) {
                            std::cout.flush();
                            std::fflush(nullptr);
                            _exit(status);
                        },
                        nullptr);
                    const rlimit few{13, 13}; // the five of the field, some of those of the atoms
                    setrlimit(RLIMIT_NOFILE, &few);
                }),
                testing::ExitedWithCode(0), "FATAL ERROR: Problem of creation of file");
}
