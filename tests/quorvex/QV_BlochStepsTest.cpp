#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_ClassFactory.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Maxwell.h"
#include "quorvex/QV_RelaxKernel.h"
#include "support/PlainMatrix.h"
#include "support/Printed.h"
#include "support/TestNumbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Complex = std::complex<double>;
using Matrix = PlainMatrix; // n by n, row after row
using Scheme = QV_IterationKernel::Scheme;

constexpr Complex I{0.0, 1.0};
constexpr unsigned long nodes = 12;
constexpr unsigned long first = 2; // the active zone
constexpr unsigned long last = 8;
constexpr double step = 0.1;
constexpr double time0 = 0.75;

/// Densities and fields of all nodes, as they stand at one moment.
struct State
{
    std::vector<Matrix> mRho;
    std::vector<double> mE;
};

template <typename M>
Matrix matrixOf(const M& matrix)
{
    return {matrix.getValues(),
            matrix.getValues() + matrix.getLinesNumber() * matrix.getColumnsNumber()};
}

double distance(const Matrix& a, const Matrix& b)
{
    double largest = a.size() == b.size() ? 0.0 : 1e300;
    for (unsigned long i = 0; i < std::min(a.size(), b.size()); ++i) {
        largest = std::max(largest, std::abs(a[i] - b[i]));
    }
    return largest;
}

/// A problem of twelve nodes, seven of them active, whose scaled data are all near 1.
class QV_BlochStepsTest : public testing::Test
{
protected:
    QV_BlochStepsTest() { QV_Bloch::resetShared(); }
    ~QV_BlochStepsTest() override
    {
        mProblem = nullptr;
        QV_Bloch::resetShared();
    }

    /// Builds the problem anew, with random state.
    void start(unsigned long levels, unsigned long components = 1)
    {
        mProblem = nullptr;
        QV_Bloch::resetShared();
        QV_Bloch::setLevelsNumber(levels);
        mProblem = std::make_unique<COM_Scoped<QV_1DProblem>>(QV_1DProblem::New());
        TestNumbers numbers(levels + 10 * components);
        for (unsigned long p = 0; p < components; ++p) {
            const COM_Scoped P(LA_RealMatrix::New(levels, levels));
            for (unsigned long a = 0; a < levels; ++a) {
                for (unsigned long b = 0; b < a; ++b) {
                    (*P)[a][b] = 1e-29 * numbers.next();
                    (*P)[b][a] = (*P)[a][b];
                }
            }
            P->setValue(0, 1, 1e-29);
            P->setValue(1, 0, 1e-29);
            QV_Bloch::setPolarization(*P, p);
        }
        if (levels == 1) {
            (*QV_Bloch::getPolarizations())[0][0][0] = 1e-29;
            QV_Bloch::setPolarization((*QV_Bloch::getPolarizations())[0], 0);
        }
        const COM_Scoped W(LA_RealMatrix::New(levels, levels));
        const COM_Scoped omega(LA_RealVector::New(levels));
        const COM_Scoped rhoE(LA_RealVector::New(levels));
        for (unsigned long i = 0; i < levels * levels; ++i) {
            W->getValues()[i] = 1e11 * (1.5 + numbers.next());
        }
        for (unsigned long i = 0; i < levels; ++i) {
            (*omega)[i] = 1e12 * (static_cast<double>(i) + 0.2 * numbers.next());
            (*rhoE)[i] = numbers.next();
        }
        QV_Bloch::setLongitudinalRelaxation(*W);
        QV_Bloch::setEquilibriumDensity(*rhoE);
        bloch().setLevelsFrequency(*omega);
        QV_Bloch::setTransversalRelaxation(1e11);
        problem().getMaxwellSystem()->getIncidentFields()->setFieldMaxValue(1.0546e7);
        problem().getMaxwellSystem()->setDimension(components);
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem().getMilieu());
        milieu.setCaracteristicLength(2e-4);
        milieu.setDiscretizationNumber(2);
        milieu.setLength(12.5e-4);
        milieu.setStartingPosition(25.0);
        milieu.setEndingPosition(75.0);
        initialize();
        fill(levels);
    }
    /// Makes the mesh and the scaled data anew.
    void initialize()
    {
        printedBy([this] {
            problem().getMilieu()->create();
            ASSERT_EQ(problem().initialize(), 0);
        });
    }
    /// Leaves the system in the problem without a density at any node.
    void takeDensitiesAway()
    {
        QV_Bloch& system = bloch();
        const COM_Guard guard(system);
        problem().resetBlochEquations();
        system.initDensities(); // no problem, no nodes
        problem().addToBlochEquations(system);
    }
    /// Random Hermitian densities and fields at all nodes.
    void fill(unsigned long seed)
    {
        TestNumbers numbers(seed);
        const unsigned long n = QV_Bloch::getLevelsNumber();
        for (unsigned long j = 0; j < bloch().getDensities()->size(); ++j) {
            fill(*bloch().getDensity(j), numbers);
        }
        for (QV_Field* field : {&E(), &B()}) {
            for (unsigned long i = 0; i < field->getSize() * field->getDimension(); ++i) {
                field->getValues()[i] = numbers.next();
            }
        }
        ASSERT_EQ(n, QV_Bloch::getLevelsNumber());
    }
    static void fill(LA_ComplexMatrix& rho, TestNumbers& numbers)
    {
        for (unsigned long a = 0; a < rho.getLinesNumber(); ++a) {
            rho[a][a] = numbers.next();
            for (unsigned long b = 0; b < a; ++b) {
                const double re = numbers.next();
                rho[a][b] = {re, numbers.next()};
                rho[b][a] = std::conj(rho[a][b]);
            }
        }
    }

    QV_1DProblem& problem() const { return **mProblem; }
    QV_Bloch& bloch() const { return (*problem().getBlochEquations())[0]; }
    QV_Field& E() const { return *problem().getMaxwellSystem()->getField(QV_Maxwell::E_FIELD); }
    QV_Field& B() const { return *problem().getMaxwellSystem()->getField(QV_Maxwell::B_FIELD); }

    State state() const
    {
        State state;
        for (unsigned long j = 0; j < bloch().getDensities()->size(); ++j) {
            state.mRho.push_back(matrixOf(*bloch().getDensity(j)));
        }
        state.mE.assign(E().getValues(), E().getValues() + E().getSize() * E().getDimension());
        return state;
    }

    /// One step of a scheme through the system.
    bool advance(Scheme scheme, double dt = step) const
    {
        switch (scheme) {
        case Scheme::CRANK:
            return bloch().solveBlochCrank(time0, dt);
        case Scheme::P:
            return bloch().solveBlochP(time0, dt);
        case Scheme::ZIOLKO:
            return bloch().solveBlochZiolko(time0, dt);
        case Scheme::PRED_CORR:
            return bloch().solveBlochPredCorr(time0, dt);
        default:
            return bloch().solveBlochRelaxDiag(time0, dt, *mOld);
        }
    }

    /// What the kernels need of the scaled data, as they stand now.
    QV_Atoms atoms() const
    {
        const QV_Bloch& b = bloch();
        return {QV_Bloch::getLevelsNumber(),
                1,
                (*b.getPolarizationsAdim())[0].getValues(),
                b.getLongitudinalRelaxationAdim()->getValues(),
                b.getPopulationRelaxation()->getValues(),
                reinterpret_cast<const double*>(b.getCoherenceRelaxation()->getValues()),
                b.getLevelsFrequencyAdim()->getValues(),
                QV_Bloch::getTransversalRelaxationAdim(),
                b.getDzeta(),
                QV_Bloch::getConvergenceRate(),
                QV_Bloch::getIterationsMaxNumber()};
    }
    double magnetic(long line) const
    {
        return line >= 0 && line < static_cast<long>(B().getSize())
                   ? B().getValue(static_cast<unsigned long>(line), 0)
                   : 0.0;
    }
    /// The same step on nodes `from` to `to`, by the plain kernel on arrays of its own.
    State advancedByKernel(Scheme scheme, unsigned long& iterations, unsigned long from,
                           unsigned long to, double dz) const
    {
        State result = state();
        const unsigned long n2 = QV_Bloch::getLevelsNumber() * QV_Bloch::getLevelsNumber();
        const unsigned long count = to - from + 1;
        Matrix rho;
        std::vector<double> aux;
        for (unsigned long j = from; j <= to; ++j) {
            rho.insert(rho.end(), result.mRho[j].begin(), result.mRho[j].end());
            const auto line = static_cast<long>(j);
            aux.push_back(scheme == Scheme::RELAX_DIAG
                              ? mOld->getValue(j, 0)
                              : -(step / dz) * (magnetic(line) - magnetic(line - 1)));
        }
        std::vector<unsigned long> each(count);
        std::vector<double> work;
        iterations =
            QV_IterationKernel::advance(QV_InstructionSet::PLAIN, {scheme, atoms(), step}, dz * dz,
                                        {count, reinterpret_cast<double*>(rho.data()),
                                         result.mE.data() + from, aux.data(), each.data()},
                                        work);
        for (unsigned long j = from; j <= to; ++j) {
            const auto at = rho.begin() + static_cast<long>((j - from) * n2);
            result.mRho[j].assign(at, at + static_cast<long>(n2));
        }
        return result;
    }
    void expectState(const State& expected) const
    {
        const State found = state();
        EXPECT_EQ(found.mE, expected.mE);
        ASSERT_EQ(found.mRho.size(), expected.mRho.size());
        for (unsigned long j = 0; j < found.mRho.size(); ++j) {
            EXPECT_EQ(found.mRho[j], expected.mRho[j]) << j;
        }
    }
    /// A step of the system does what the kernel does on nodes `from` to `to`, and no more.
    void expectKernelStep(Scheme scheme, unsigned long from = first, unsigned long to = last,
                          double dz = QV_Milieu::getCellLength()) const
    {
        unsigned long iterations = 0;
        const State expected = advancedByKernel(scheme, iterations, from, to, dz);
        EXPECT_TRUE(advance(scheme));
        EXPECT_EQ(bloch().getIterationsNumber(), iterations);
        expectState(expected);
    }
    /// The report of a node that reaches the limit of iterations, at `time0` with `step`.
    static std::string report(unsigned long limit)
    {
        return std::to_string(limit) + " max:" + std::to_string(limit)
               + "\nLe predicteur-correcteur ne converge plus, iteration 7\n";
    }

    std::unique_ptr<COM_Scoped<QV_1DProblem>> mProblem;
    const COM_Scoped<QV_Field> mOld{QV_Field::New(nodes, 1)};
};

constexpr Scheme schemes[] = {Scheme::CRANK, Scheme::P, Scheme::ZIOLKO, Scheme::PRED_CORR,
                              Scheme::RELAX_DIAG};
constexpr Scheme coupledSchemes[] = {Scheme::P, Scheme::ZIOLKO, Scheme::PRED_CORR};

} // namespace

// ---------------------------------------------------------------- iterated schemes

TEST_F(QV_BlochStepsTest, EverySchemeAdvancesTheActiveNodesAndNoOthers)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (const Scheme scheme : schemes) {
            start(n);
            mOld->setValues(E().getValues(), nodes, 1);
            mOld->getValues()[4] = 0.75;
            expectKernelStep(scheme);
            EXPECT_EQ(bloch().getFirstNode(), static_cast<long>(first));
            EXPECT_EQ(bloch().getLastNode(), static_cast<long>(last));
            expectKernelStep(scheme);
        }
    }
}

TEST_F(QV_BlochStepsTest, TheIterationNumberIsThatOfTheLastStep)
{
    start(2);
    advance(Scheme::CRANK);
    EXPECT_GT(bloch().getIterationsNumber(), 1UL);
    for (unsigned long j = 0; j < nodes; ++j) {
        bloch().getDensity(j)->multipliedBy(0.0);
    }
    advance(Scheme::CRANK);
    EXPECT_EQ(bloch().getIterationsNumber(), 1UL);
}

TEST_F(QV_BlochStepsTest, AZoneFromNodeZeroTakesTheLineBeforeItAsZero)
{
    for (const Scheme scheme : coupledSchemes) {
        start(2);
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem().getMilieu());
        milieu.setStartingPosition(10.0);
        initialize();
        fill(3);
        expectKernelStep(scheme, 0);
    }
}

TEST_F(QV_BlochStepsTest, AZoneToTheMeshEndTakesTheLineBehindItAsZero)
{
    for (const Scheme scheme : coupledSchemes) {
        start(2);
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem().getMilieu());
        milieu.setEndingPosition(100.0);
        initialize();
        fill(3);
        expectKernelStep(scheme, first, nodes - 1);
    }
}

TEST_F(QV_BlochStepsTest, AZoneOfOneNodeIsAdvanced)
{
    for (const Scheme scheme : schemes) {
        start(3);
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem().getMilieu());
        milieu.setEndingPosition(0.0);
        initialize();
        fill(3);
        expectKernelStep(scheme, first, first);
    }
}

TEST_F(QV_BlochStepsTest, TheZoneOfTheFirstStepIsKept)
{
    for (const Scheme scheme : schemes) {
        start(2);
        advance(scheme);
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem().getMilieu());
        milieu.setStartingPosition(50.0);
        initialize();
        fill(3);
        expectKernelStep(scheme);
        EXPECT_EQ(bloch().getFirstNode(), static_cast<long>(first));
    }
}

TEST_F(QV_BlochStepsTest, AZoneOfWhichOneEndIsUnknownIsReadAnewAsAWhole)
{
    const std::function<void()> steps[] = {
        [this] { advance(Scheme::CRANK); },
        [this] { advance(Scheme::P); },
        [this] { advance(Scheme::RELAX_DIAG); },
        [this] { bloch().solveBlochRelaxExtraDiag(time0, step); },
        [this] {
            printedBy([this] { bloch().solveBlochSplitInit(0.0, step); });
            bloch().solveBlochSplit(time0, step);
        },
    };
    for (const auto& [key, place] : {std::pair("mIFirst", 5L), std::pair("mILast", 4L)}) {
        for (const std::function<void()>& oneStep : steps) {
            start(2);
            const COM_Scoped node(MM_Class::New());
            node->addAttributeToMetaFields(key, place);
            printedBy([&] { bloch().loadFromMetaClass(*node); });
            oneStep();
            EXPECT_EQ(bloch().getFirstNode(), static_cast<long>(first));
            EXPECT_EQ(bloch().getLastNode(), static_cast<long>(last));
        }
    }
}

TEST_F(QV_BlochStepsTest, TheCellSizeOfTheFirstStepIsKept)
{
    for (const Scheme scheme : {Scheme::CRANK, Scheme::P, Scheme::ZIOLKO, Scheme::PRED_CORR}) {
        start(2);
        EXPECT_EQ(bloch().getDz(), -1.0);
        advance(scheme);
        const double dz = QV_Milieu::getCellLength();
        EXPECT_EQ(bloch().getDz(), dz);
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem().getMilieu());
        milieu.setCaracteristicLength(4e-4);
        milieu.setLength(25e-4);
        initialize();
        fill(3);
        ASSERT_EQ(bloch().getDensities()->size(), nodes);
        EXPECT_NEAR(QV_Milieu::getCellLength(), 2.0 * dz, 1e-14 * dz);
        expectKernelStep(scheme, first, last, dz);
        EXPECT_EQ(bloch().getDz(), dz);
    }
}

TEST_F(QV_BlochStepsTest, ACellSizeOfZeroCountsAsKnown)
{
    start(2);
    const COM_Scoped node(MM_Class::New());
    node->addAttributeToMetaFields("mDz", 0.0);
    printedBy([&] { bloch().loadFromMetaClass(*node); });
    advance(Scheme::CRANK);
    EXPECT_EQ(bloch().getDz(), 0.0);
    EXPECT_EQ(bloch().getIterationsNumber(), 1UL); // no residual without cell size
}

TEST_F(QV_BlochStepsTest, RelaxationAndSplittingDoNotLookAtTheCellSize)
{
    start(2);
    bloch().solveBlochRelaxExtraDiag(time0, step);
    advance(Scheme::RELAX_DIAG);
    printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
    bloch().solveBlochSplit(time0, step);
    EXPECT_EQ(bloch().getDz(), -1.0);
}

TEST_F(QV_BlochStepsTest, OfAKeptZoneThePartOnTheMeshIsAdvanced)
{
    for (const Scheme scheme : schemes) {
        start(2);
        advance(scheme);
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem().getMilieu());
        milieu.setLength(6.5e-4);
        initialize();
        fill(3);
        expectKernelStep(scheme, first, 5);
        EXPECT_EQ(bloch().getLastNode(), static_cast<long>(last));
        milieu.setLength(2.5e-4); // the whole zone lies outside
        printedBy([&] {
            milieu.create();
            problem().initialize();
        });
        fill(3);
        const State before = state();
        EXPECT_TRUE(advance(scheme));
        expectState(before);
        EXPECT_EQ(bloch().getIterationsNumber(), 0UL);
    }
}

TEST_F(QV_BlochStepsTest, ALoadedZoneFarBeyondTheMeshEndsWithTheMesh)
{
    for (const char* end : {"1000000000000", "9223372036854775807"}) {
        for (const Scheme scheme : schemes) {
            start(2);
            const COM_Scoped node(MM_Class::New());
            node->addAttributeToMetaFields("mIFirst", 0L);
            node->addAttributeToMetaFields("mILast", std::string(end));
            printedBy([&] { bloch().loadFromMetaClass(*node); });
            expectKernelStep(scheme, 0, nodes - 1);
        }
    }
}

TEST_F(QV_BlochStepsTest, WithoutDensitiesTheFieldSchemesReturnAtOnce)
{
    for (const Scheme scheme : coupledSchemes) {
        start(2);
        advance(Scheme::CRANK);
        takeDensitiesAway();
        const State before = state();
        EXPECT_EQ(printedBy([&] { EXPECT_TRUE(advance(scheme)); }), "");
        EXPECT_EQ(state().mE, before.mE);
        EXPECT_EQ(bloch().getIterationsNumber(), 0UL);
    }
}

TEST_F(QV_BlochStepsTest, WithoutDensitiesTheFieldSchemesDoNotLookAtTheField)
{
    for (const Scheme scheme : coupledSchemes) {
        start(2, 2);
        takeDensitiesAway();
        EXPECT_EXIT(
            {
                dup2(STDERR_FILENO, STDOUT_FILENO);
                _exit(advance(scheme) ? 7 : 8);
            },
            testing::ExitedWithCode(7), testing::Eq(std::string()));
    }
}

TEST_F(QV_BlochStepsTest, WithoutDensitiesTheOtherSchemesLookAtTheFieldAllTheSame)
{
    const std::pair<std::function<void()>, std::string> methods[] = {
        {[this] { advance(Scheme::CRANK); }, "Bloch Crank Nicholson method  "},
        {[this] { advance(Scheme::RELAX_DIAG); }, "Bloch Relaxation method  "},
        {[this] { bloch().solveBlochRelaxExtraDiag(time0, step); }, "Bloch Relaxation method  "},
    };
    start(2, 2);
    takeDensitiesAway();
    for (const auto& [action, words] : methods) {
        EXPECT_EXIT(
            {
                dup2(STDERR_FILENO, STDOUT_FILENO);
                action();
                _exit(7);
            },
            testing::ExitedWithCode(0),
            testing::Eq(words + "not implemented for a field dimension superior to 1 \n"));
    }
}

TEST_F(QV_BlochStepsTest, WithoutProblemOrScaledDataNothingHappens)
{
    const COM_Scoped system(QV_Bloch::New());
    const COM_Scoped unscaled(QV_1DProblem::New());
    QV_Bloch& ofProblem = (*unscaled->getBlochEquations())[0];
    const COM_Scoped E1(QV_Field::New(5, 1));
    unscaled->getMaxwellSystem()->setField(QV_Maxwell::E_FIELD, *E1);
    for (QV_Bloch* one : {system.get(), &ofProblem}) {
        const Matrix before = matrixOf(*one->getDensity(0));
        EXPECT_EQ(printedBy([&] {
                      EXPECT_TRUE(one->solveBlochZiolko(time0, step));
                      EXPECT_TRUE(one->solveBlochP(time0, step));
                      EXPECT_TRUE(one->solveBlochPredCorr(time0, step));
                      EXPECT_TRUE(one->solveBlochCrank(time0, step));
                      EXPECT_TRUE(one->solveBlochRelaxExtraDiag(time0, step));
                      EXPECT_TRUE(one->solveBlochRelaxDiag(time0, step, *E1));
                      EXPECT_TRUE(one->solveBlochSplitInit(time0, step));
                      EXPECT_TRUE(one->solveBlochSplit(time0, step));
                  }),
                  "");
        EXPECT_EQ(matrixOf(*one->getDensity(0)), before);
    }
}

TEST_F(QV_BlochStepsTest, AChangeOfLevelsWaitsForTheNextInitialization)
{
    for (const unsigned long n : {1UL, 3UL}) {
        for (const Scheme scheme : schemes) {
            start(2);
            advance(scheme);
            QV_Bloch::setLevelsNumber(n);
            const State before = state();
            EXPECT_TRUE(advance(scheme));
            EXPECT_TRUE(bloch().solveBlochSplit(time0, step));
            expectState(before);
        }
    }
}

TEST_F(QV_BlochStepsTest, ALineFieldWithoutLinesLeavesTheNodesAlone)
{
    for (const Scheme scheme : coupledSchemes) {
        start(2);
        advance(
            scheme); // a second member of an earlier step must not be taken for that of this one
        const COM_Scoped none(QV_Field::New(0, 1));
        problem().getMaxwellSystem()->setField(QV_Maxwell::B_FIELD, *none);
        const State before = state();
        EXPECT_TRUE(advance(scheme));
        expectState(before);
    }
}

TEST_F(QV_BlochStepsTest, ALimitOfZeroIterationsLeavesEveryNodeAndReportsEachOne)
{
    start(2);
    QV_Bloch::setIterationsMaxNumber(0);
    const State before = state();
    std::string plain;
    std::string numbered;
    for (unsigned long j = first; j <= last; ++j) {
        plain += report(0);
        numbered += report(0) + "i:" + std::to_string(j) + "\n";
    }
    EXPECT_EQ(printedBy([&] { advance(Scheme::P); }), plain);
    EXPECT_EQ(printedBy([&] { advance(Scheme::ZIOLKO); }), plain);
    EXPECT_EQ(printedBy([&] { advance(Scheme::CRANK); }), numbered);
    EXPECT_EQ(printedBy([&] { advance(Scheme::RELAX_DIAG); }), numbered);
    EXPECT_EQ(printedBy([&] { bloch().solveBlochRelaxExtraDiag(time0, step); }),
              report(0) + "i:2\n");
    expectState(before);
}

TEST_F(QV_BlochStepsTest, NodesThatReachTheLimitAreReportedAndKeepTheirLastIterate)
{
    start(2);
    QV_Bloch::setIterationsMaxNumber(3);
    QV_Bloch::setConvergenceRate(-1e30); // never reached
    std::string plain;
    std::string numbered;
    for (unsigned long j = first; j <= last; ++j) {
        plain += report(3);
        numbered += report(3) + "i:" + std::to_string(j) + "\n";
    }
    EXPECT_EQ(printedBy([&] { expectKernelStep(Scheme::P); }), plain);
    EXPECT_EQ(printedBy([&] { expectKernelStep(Scheme::ZIOLKO); }), plain);
    EXPECT_EQ(printedBy([&] { expectKernelStep(Scheme::CRANK); }), numbered);
    EXPECT_EQ(printedBy([&] { expectKernelStep(Scheme::RELAX_DIAG); }), numbered);
    EXPECT_EQ(printedBy([&] { bloch().solveBlochRelaxExtraDiag(time0, step); }),
              report(3) + "i:2\n");
}

TEST_F(QV_BlochStepsTest, OnlyTheNodesThatReachTheLimitAreReported)
{
    start(2);
    // Nodes without density and field converge at once.
    for (const unsigned long j : {2UL, 3UL, 5UL, 8UL}) {
        bloch().getDensity(j)->multipliedBy(0.0);
    }
    QV_Bloch::setIterationsMaxNumber(2);
    QV_Bloch::setConvergenceRate(1e-30);
    EXPECT_EQ(printedBy([&] { advance(Scheme::CRANK); }),
              report(2) + "i:4\n" + report(2) + "i:6\n" + report(2) + "i:7\n");
}

TEST_F(QV_BlochStepsTest, ALastIterationThatConvergesIsReportedAllTheSame)
{
    start(2);
    for (unsigned long j = first; j <= last; ++j) {
        bloch().getDensity(j)->multipliedBy(0.0);
    }
    QV_Bloch::setIterationsMaxNumber(1);
    std::string expected;
    for (unsigned long j = first; j <= last; ++j) {
        expected += report(1) + "i:" + std::to_string(j) + "\n";
    }
    EXPECT_EQ(printedBy([&] { advance(Scheme::CRANK); }), expected);
}

TEST_F(QV_BlochStepsTest, TheStepNumberOfAReportIsTruncatedAsItStands)
{
    start(2);
    QV_Bloch::setIterationsMaxNumber(0);
    // 0.3 / 0.1 is a little less than 3.
    EXPECT_EQ(printedBy([&] { bloch().solveBlochRelaxExtraDiag(0.3, 0.1); }),
              "0 max:0\nLe predicteur-correcteur ne converge plus, iteration 2\ni:2\n");
    EXPECT_EQ(printedBy([&] { bloch().solveBlochRelaxExtraDiag(5.0, 0.5); }),
              "0 max:0\nLe predicteur-correcteur ne converge plus, iteration 10\ni:2\n");
}

TEST_F(QV_BlochStepsTest, NonConvergenceOfThePredictorCorrectorEndsTheProcessAtTheFirstNode)
{
    start(2);
    QV_Bloch::setIterationsMaxNumber(3);
    QV_Bloch::setConvergenceRate(-1e30);
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            advance(Scheme::PRED_CORR);
        },
        testing::ExitedWithCode(0), testing::Eq(report(3)));
}

TEST_F(QV_BlochStepsTest, ALimitOfZeroEndsThePredictorCorrectorsProcess)
{
    start(2);
    QV_Bloch::setIterationsMaxNumber(0);
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            advance(Scheme::PRED_CORR);
        },
        testing::ExitedWithCode(0), testing::Eq(report(0)));
}

TEST_F(QV_BlochStepsTest, AFieldOfOtherThanOneComponentEndsTheProcessWithTheWordsOfTheMethod)
{
    const std::string end = "not implemented for a field dimension superior to 1 \n";
    const std::pair<std::function<void()>, std::string> methods[] = {
        {[this] { advance(Scheme::ZIOLKO); }, "Bloch Ziolko  method  "},
        {[this] { advance(Scheme::P); }, "Bloch P  method  "},
        {[this] { advance(Scheme::CRANK); }, "Bloch Crank Nicholson method  "},
        {[this] { advance(Scheme::PRED_CORR); }, "Bloch Predictor Corrector  method  "},
        {[this] { advance(Scheme::RELAX_DIAG); }, "Bloch Relaxation method  "},
        {[this] { bloch().solveBlochRelaxExtraDiag(time0, step); }, "Bloch Relaxation method  "},
    };
    for (const unsigned long components : {0UL, 2UL, 3UL}) {
        start(2, components);
        for (const auto& [action, words] : methods) {
            EXPECT_EXIT(
                {
                    dup2(STDERR_FILENO, STDOUT_FILENO);
                    action();
                },
                testing::ExitedWithCode(0), testing::Eq(words + end));
        }
    }
}

// ---------------------------------------------------------------- relaxation

TEST_F(QV_BlochStepsTest, TheCoherencesOfTheFirstNodeAloneAreAdvanced)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        start(n);
        State expected = state();
        std::vector<double> work;
        const unsigned long iterations = QV_RelaxKernel::advanceCoherences(
            atoms(), step, expected.mE[first],
            reinterpret_cast<double*>(expected.mRho[first].data()), work);
        EXPECT_TRUE(bloch().solveBlochRelaxExtraDiag(time0, step));
        EXPECT_EQ(bloch().getIterationsNumber(), iterations);
        expectState(expected);
    }
}

TEST_F(QV_BlochStepsTest, TheFirstNodeIsAdvancedWhateverTheLastOneIs)
{
    start(2);
    const COM_Scoped node(MM_Class::New());
    node->addAttributeToMetaFields("mIFirst", 5L);
    node->addAttributeToMetaFields("mILast", 3L);
    printedBy([&] { bloch().loadFromMetaClass(*node); });
    State expected = state();
    std::vector<double> work;
    QV_RelaxKernel::advanceCoherences(atoms(), step, expected.mE[5],
                                      reinterpret_cast<double*>(expected.mRho[5].data()), work);
    EXPECT_TRUE(bloch().solveBlochRelaxExtraDiag(time0, step));
    expectState(expected);
}

TEST_F(QV_BlochStepsTest, PopulationsTakeTheFieldsBeforeAndAfterTheStep)
{
    start(2);
    TestNumbers numbers(5);
    for (unsigned long j = 0; j < nodes; ++j) {
        mOld->getValues()[j] = numbers.next();
    }
    expectKernelStep(Scheme::RELAX_DIAG);
}

TEST_F(QV_BlochStepsTest, AnOldFieldThatDoesNotFitLeavesThePopulations)
{
    start(2);
    const State before = state();
    for (const auto& [size, dimension] :
         {std::pair(last, 1UL), std::pair(nodes, 2UL), std::pair(0UL, 1UL)}) {
        const COM_Scoped old(QV_Field::New(size, dimension));
        EXPECT_TRUE(bloch().solveBlochRelaxDiag(time0, step, *old));
        expectState(before);
    }
    const COM_Scoped enough(QV_Field::New(last + 1, 1));
    bloch().solveBlochRelaxDiag(time0, step, *enough);
    EXPECT_NE(state().mRho[first], before.mRho[first]);
}

// ---------------------------------------------------------------- splitting: tables

TEST_F(QV_BlochStepsTest, TablesOfProductsAndTracesFollowTheIndexRule)
{
    for (unsigned long m = 1; m <= 3; ++m) {
        for (unsigned long n = 1; n <= 4; ++n) {
            start(n, m);
            std::string expected = "compute TrPPower \n";
            for (unsigned long r = 1; r < n; ++r) {
                expected += "computePolarizationsPower \n";
            }
            EXPECT_EQ(printedBy([&] { EXPECT_TRUE(bloch().solveBlochSplitInit(0.0, step)); }),
                      expected);
            const COM_Array<LA_RealMatrix>& powers = *bloch().getPolarizationsPower();
            const std::vector<double>& traces = bloch().getTracesPower();
            unsigned long size = 1;
            for (unsigned long i = 0; i < n; ++i) {
                size *= m + 1;
            }
            ASSERT_EQ(powers.size(), size);
            ASSERT_EQ(traces.size(), size);
            for (unsigned long index = 0; index < size; ++index) {
                // The digits of the index in base m + 1 are the components of the factors.
                Matrix expectedPower;
                bool isProduct = index > 0;
                for (unsigned long rest = index; rest > 0; rest /= m + 1) {
                    const unsigned long p = rest % (m + 1);
                    isProduct = isProduct && p != 0;
                    if (isProduct) {
                        const Matrix P = matrixOf((*bloch().getPolarizationsAdim())[p - 1]);
                        expectedPower = expectedPower.empty() ? P : product(P, expectedPower, n);
                    }
                }
                ASSERT_EQ(powers.get(index) != nullptr, isProduct) << index;
                if (!isProduct) {
                    EXPECT_EQ(traces[index], 0.0) << index;
                    continue;
                }
                EXPECT_LT(distance(matrixOf(powers[index]), expectedPower), 1e-14) << index;
                double trace = 0.0;
                for (unsigned long a = 0; a < n; ++a) {
                    trace += expectedPower[a * n + a].real();
                }
                EXPECT_NEAR(traces[index], trace, 1e-14) << index; // sums of a few terms near 1
            }
            EXPECT_EQ(powers.get(1), bloch().getPolarizationsAdim()->get(0));
        }
    }
}

TEST_F(QV_BlochStepsTest, OneComponentHasItsPowersAtOneLessThanPowersOfTwo)
{
    start(5);
    printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
    std::vector<unsigned long> filled;
    for (unsigned long i = 0; i < bloch().getPolarizationsPower()->size(); ++i) {
        if (bloch().getPolarizationsPower()->get(i) != nullptr) {
            filled.push_back(i);
        }
    }
    EXPECT_EQ(filled, (std::vector<unsigned long>{1, 3, 7, 15, 31}));
}

TEST_F(QV_BlochStepsTest, MissingDipolesLeaveTheirProductsOut)
{
    start(2, 2);
    QV_Bloch::removeFromPolarizations(1UL);
    initialize();
    printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
    std::vector<unsigned long> filled;
    for (unsigned long i = 0; i < bloch().getPolarizationsPower()->size(); ++i) {
        if (bloch().getPolarizationsPower()->get(i) != nullptr) {
            filled.push_back(i);
        }
    }
    EXPECT_EQ(filled, (std::vector<unsigned long>{1, 4}));
    EXPECT_TRUE(bloch().solveBlochSplit(time0, step));
}

TEST_F(QV_BlochStepsTest, TablesThatWouldFillTheMemoryAreKeptAtFourFactors)
{
    start(21);
    const std::string said = printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
    EXPECT_EQ(bloch().getPolarizationsPower()->size(), 16UL);
    EXPECT_EQ(bloch().getTracesPower().size(), 16UL);
    EXPECT_NE(bloch().getPolarizationsPower()->get(15), nullptr);
    unsigned long lines = 0;
    const std::string line = "computePolarizationsPower \n";
    for (std::size_t at = said.find(line); at != std::string::npos; at = said.find(line, at + 1)) {
        ++lines;
    }
    EXPECT_EQ(lines, 20UL);
}

TEST_F(QV_BlochStepsTest, TablesOfUpToAMillionEntriesAreKeptWhole)
{
    start(20);
    printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
    EXPECT_EQ(bloch().getPolarizationsPower()->size(), 1UL << 20);
    EXPECT_EQ(bloch().getTracesPower().size(), 1UL << 20);
    EXPECT_NE(bloch().getPolarizationsPower()->get((1UL << 20) - 1), nullptr);
}

TEST_F(QV_BlochStepsTest, AFieldWithoutComponentsIsNoReasonToStop)
{
    start(2);
    problem().getMaxwellSystem()->setDimension(0);
    initialize();
    EXPECT_EQ(printedBy([&] {
                  EXPECT_TRUE(bloch().solveBlochSplitInit(0.0, step));
                  EXPECT_TRUE(bloch().solveBlochSplit(time0, step));
              }),
              "compute TrPPower \ncomputePolarizationsPower \n");
}

TEST_F(QV_BlochStepsTest, ThePopulationPropagatorIsARungeKuttaStepOfFourthOrder)
{
    for (unsigned long n = 1; n <= 4; ++n) {
        for (const int type : {0, 1, 2, 3, 4}) {
            start(n);
            QV_Bloch::setSplitType(static_cast<unsigned char>(type));
            printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
            const double tau = type == 3 ? step * 0.5 : step;
            const Matrix A = matrixOf(*bloch().getPopulationRelaxation());
            const auto slope = [&](const Matrix& at, double h) {
                Matrix k = product(A, at, n);
                for (unsigned long i = 0; i < n * n; ++i) {
                    k[i] = A[i] + h * k[i];
                }
                return k;
            };
            const Matrix K2 = slope(A, tau / 2.0);
            const Matrix K3 = slope(K2, tau / 2.0);
            const Matrix K4 = slope(K3, tau);
            Matrix expected(n * n);
            for (unsigned long i = 0; i < n * n; ++i) {
                expected[i] = (i % (n + 1) == 0 ? 1.0 : 0.0) + tau / 6.0 * A[i] + tau / 3.0 * K2[i]
                              + tau / 3.0 * K3[i] + tau / 6.0 * K4[i];
            }
            EXPECT_LT(distance(matrixOf(*bloch().getPopulationPropagator()), expected), 1e-15);
        }
    }
}

TEST_F(QV_BlochStepsTest, ASecondPreparationReplacesTheFirst)
{
    start(2);
    printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
    const Matrix once = matrixOf(*bloch().getPopulationPropagator());
    printedBy([&] { bloch().solveBlochSplitInit(0.0, 2.0 * step); });
    EXPECT_NE(matrixOf(*bloch().getPopulationPropagator()), once);
    printedBy([&] { bloch().solveBlochSplitInit(99.0, step); });
    EXPECT_EQ(matrixOf(*bloch().getPopulationPropagator()), once);
    EXPECT_EQ(bloch().getPolarizationsPower()->size(), 4UL);
}

// ---------------------------------------------------------------- splitting: steps

namespace {

/// A splitting step of one node by its formulas, from the tables that the system holds.
class Splitting
{
public:
    Splitting(const QV_Bloch& bloch, unsigned long components, double dt)
        : mBloch(bloch)
        , n(QV_Bloch::getLevelsNumber())
        , m(components)
        , mTau(QV_Bloch::getSplitType() == 2 ? dt * 0.5 : dt)
    {}

    Matrix advance(Matrix rho, const double* E) const
    {
        static const char* const orders[] = {"HR", "RH", "HRH", "RHR"};
        const unsigned char type = QV_Bloch::getSplitType();
        for (const char part : std::string(orders[type > 3 ? 0 : type])) {
            rho = part == 'H' ? afterHamiltonian(rho, E) : afterRelaxation(rho);
        }
        return rho;
    }

private:
    double trace(unsigned long index) const
    {
        const std::vector<double>& traces = mBloch.getTracesPower();
        return index < traces.size() ? traces[index] : 0.0;
    }
    Matrix power(unsigned long index) const
    {
        const COM_Array<LA_RealMatrix>& powers = *mBloch.getPolarizationsPower();
        return index < powers.size() && powers.get(index) != nullptr ? matrixOf(powers[index])
                                                                     : Matrix(n * n);
    }
    void add(Matrix& sum, double f, const Matrix& term) const
    {
        for (unsigned long i = 0; i < n * n; ++i) {
            sum[i] += f * term[i];
        }
    }

    Matrix afterHamiltonian(const Matrix& rho, const double* E) const
    {
        const unsigned long b = m + 1;
        const Complex c = I * mTau * 0.5;
        const double c2 = c.real() * c.real() - c.imag() * c.imag();
        const Complex c3 = c * c2;
        double s2 = 0.0;
        double s3 = 0.0;
        double s4 = 0.0;
        Matrix A(n * n);
        Matrix A2(n * n);
        Matrix T(n * n);
        for (unsigned long p = 0; p < m; ++p) {
            add(A, E[p], power(p + 1));
            for (unsigned long q = 0; q < m; ++q) {
                const unsigned long pq = (p + 1) * b + q + 1;
                s2 += E[p] * E[q] * trace(pq);
                add(A2, E[p] * E[q], power(pq));
                for (unsigned long r = 0; r < m; ++r) {
                    s3 += E[p] * E[q] * E[r] * trace(pq * b + r + 1);
                    // The stride of the second component is m.
                    add(T, E[p] * E[q] * E[r], power((p + 1) * b * b + (q + 1) * m + r + 1));
                    for (unsigned long s = 0; s < m; ++s) {
                        s4 += E[p] * E[q] * E[r] * E[s] * trace((pq * b + r + 1) * b + s + 1);
                    }
                }
            }
        }
        const double d = 0.5 * c2 * s2;
        const Complex e = s3 * c3 / 3.0;
        const double f = 0.5 * d * d;
        const double g = c2 * c2 * s4;
        Matrix U(n * n);
        Matrix adjoint(n * n);
        for (unsigned long i = 0; i < n * n; ++i) {
            const double one = i % (n + 1) == 0 ? 1.0 : 0.0;
            if (n == 2) {
                U[i] = ((1.0 + d) * one - 2.0 * c * A[i]) / (1.0 - d);
            } else if (n == 3) {
                U[i] = ((1.0 - d - e) * one - 2.0 * c * A[i] + 2.0 * c2 * A2[i]) / (1.0 - d + e);
            } else if (n == 4) {
                U[i] = ((1.0 - d - e - f + g / 4.0) * one - c * (2.0 - 2.0 * d) * A[i]
                        + 2.0 * c2 * A2[i] + c3 * T[i])
                       / (1.0 - d + e + f - g / 4.0);
            }
            adjoint[i % n * n + i / n] = std::conj(U[i]);
        }
        return product(adjoint, product(rho, U, n), n);
    }

    Matrix afterRelaxation(const Matrix& rho) const
    {
        const bool isShifted = QV_Bloch::getRelaxationType() != 0;
        const auto equilibrium = [isShifted](unsigned long k) {
            return isShifted ? (*QV_Bloch::getEquilibriumDensity())[k] : 0.0;
        };
        const LA_RealMatrix& expA = *mBloch.getPopulationPropagator();
        Matrix result = rho;
        for (unsigned long a = 0; a < n; ++a) {
            double population = 0.0;
            for (unsigned long k = 0; k < n; ++k) {
                population += expA[a][k] * (rho[k * n + k].real() - equilibrium(k));
            }
            result[a * n + a] = population + equilibrium(a);
            for (unsigned long c = 0; c < a; ++c) {
                result[a * n + c] =
                    rho[a * n + c] * std::exp(-mTau * (*mBloch.getCoherenceRelaxation())[a][c]);
                result[c * n + a] = std::conj(result[a * n + c]);
            }
        }
        return result;
    }

    const QV_Bloch& mBloch;
    unsigned long n;
    unsigned long m;
    double mTau;
};

} // namespace

TEST_F(QV_BlochStepsTest, SplittingFollowsTheFormulasInEveryOrderAndRelaxation)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        for (unsigned long m = 1; m <= 3; ++m) {
            for (const int order : {0, 1, 2, 3, 4}) {
                for (const int relaxation : {0, 1, 2, 3}) {
                    start(n, m);
                    QV_Bloch::setSplitType(static_cast<unsigned char>(order));
                    QV_Bloch::setRelaxationType(static_cast<unsigned char>(relaxation));
                    initialize();
                    fill(n);
                    printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
                    const State before = state();
                    EXPECT_TRUE(bloch().solveBlochSplit(time0, step));
                    const State after = state();
                    EXPECT_EQ(after.mE, before.mE);
                    const Splitting splitting(bloch(), m, step);
                    for (unsigned long j = 0; j < nodes; ++j) {
                        const bool isActive = j >= first && j <= last;
                        const Matrix expected =
                            isActive ? splitting.advance(before.mRho[j], &before.mE[j * m])
                                     : before.mRho[j];
                        // Up to three products of matrices with entries near 1.
                        EXPECT_LT(distance(after.mRho[j], expected), isActive ? 1e-13 : 1e-300)
                            << n << " levels, " << m << " components, order " << order
                            << ", relaxation " << relaxation << ", node " << j;
                    }
                }
            }
        }
    }
}

TEST_F(QV_BlochStepsTest, ASecondPreparationForgetsADipoleThatIsGone)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        start(n, 2);
        printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
        bloch().solveBlochSplit(time0, step);
        QV_Bloch::removeFromPolarizations(1UL);
        initialize();
        fill(3);
        printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
        const COM_Array<LA_RealMatrix>& powers = *bloch().getPolarizationsPower();
        EXPECT_EQ(powers.get(2), nullptr);
        for (unsigned long index = 0; index < powers.size(); ++index) {
            EXPECT_TRUE(powers.get(index) != nullptr || bloch().getTracesPower()[index] == 0.0)
                << index;
        }
        const State before = state();
        bloch().solveBlochSplit(time0, step);
        const State after = state();
        const Splitting splitting(bloch(), 2, step);
        for (unsigned long j = first; j <= last; ++j) {
            EXPECT_LT(distance(after.mRho[j], splitting.advance(before.mRho[j], &before.mE[2 * j])),
                      1e-13)
                << n << " levels, node " << j;
        }
    }
}

TEST_F(QV_BlochStepsTest, FourLevelsTakeTheEmptyThirdOrderEntryForZero)
{
    start(4);
    printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
    EXPECT_EQ(bloch().getPolarizationsPower()->get(6), nullptr);
    const State before = state();
    EXPECT_TRUE(bloch().solveBlochSplit(time0, step));
    EXPECT_LT(distance(state().mRho[first],
                       Splitting(bloch(), 1, step).advance(before.mRho[first], &before.mE[first])),
              1e-13);
}

TEST_F(QV_BlochStepsTest, HalvingDiffersBetweenThePreparationAndTheStep)
{
    // Without field U is the identity: coherences show the length of the step, populations that
    // of the preparation.
    struct Lengths
    {
        unsigned char type;
        double coherence;
        double population;
    };
    for (const auto& [type, coherence, population] :
         {Lengths{0, 1.0, 1.0}, Lengths{1, 1.0, 1.0}, Lengths{2, 0.5, 1.0}, Lengths{3, 2.0, 1.0}}) {
        start(2);
        QV_Bloch::setSplitType(type);
        E().initValues(0.0);
        printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
        const State before = state();
        bloch().solveBlochSplit(time0, step);
        const Complex nu = (*bloch().getCoherenceRelaxation())[1][0];
        EXPECT_LT(
            std::abs(state().mRho[4][2] - before.mRho[4][2] * std::exp(-coherence * step * nu)),
            1e-15);
        // One whole or two half steps of the same relaxation, exact to the order of the method.
        const LA_RealMatrix& D = *bloch().getPopulationRelaxation();
        const double rate = -(D[0][0] + D[1][1]); // the trace is kept, so one rate remains
        const auto excess = [&](const Matrix& rho) {
            return D[1][0] * rho[0].real() + D[1][1] * rho[3].real();
        };
        EXPECT_NEAR(excess(state().mRho[4]),
                    excess(before.mRho[4]) * std::exp(-rate * population * step),
                    1e-7 * std::abs(excess(before.mRho[4])));
    }
}

TEST_F(QV_BlochStepsTest, SplittingKeepsTheTraceWhenNoPopulationIsLost)
{
    for (unsigned long n = 2; n <= 3; ++n) {
        start(n);
        QV_Bloch::setRelaxationType(QV_Bloch::PAULI_RELAXATION_TYPE);
        printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
        const State before = state();
        for (int i = 0; i < 20; ++i) {
            bloch().solveBlochSplit(time0, step);
        }
        Complex change;
        for (unsigned long a = 0; a < n; ++a) {
            change += state().mRho[4][a * n + a] - before.mRho[4][a * n + a];
        }
        EXPECT_LT(std::abs(change), 1e-13); // a few roundings near 1 for each of 20 steps
        EXPECT_GT(distance(state().mRho[4], before.mRho[4]), 1e-3);
    }
}

TEST_F(QV_BlochStepsTest, TheEquilibriumRestsInEveryRelaxationButPauli)
{
    for (const int type : {0, 1, 2, 3}) {
        start(2);
        QV_Bloch::setRelaxationType(static_cast<unsigned char>(type));
        initialize();
        E().initValues(0.0);
        for (unsigned long a = 0; a < 2; ++a) {
            (*bloch().getDensity(4))[a][a] = (*QV_Bloch::getEquilibriumDensity())[a];
        }
        printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
        const State before = state();
        bloch().solveBlochSplit(time0, step);
        const State after = state();
        const bool isAtRest =
            after.mRho[4][0] == before.mRho[4][0] && after.mRho[4][3] == before.mRho[4][3];
        EXPECT_EQ(isAtRest, type != 0) << type;
        EXPECT_NE(after.mRho[5][0], before.mRho[5][0]);
    }
}

TEST_F(QV_BlochStepsTest, OtherLevelCountsAreReportedForEachNodeAndLoseTheDensity)
{
    for (const unsigned long n : {1UL, 5UL}) {
        for (const int type : {0, 1, 2, 3}) {
            start(n);
            QV_Bloch::setSplitType(static_cast<unsigned char>(type));
            printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
            const State before = state();
            std::string expected;
            for (unsigned long j = first; j <= last; ++j) {
                expected += "FATAL ERROR: No more than 4 levels for the splitting !! "
                            + std::to_string(n) + " used.\n";
            }
            EXPECT_EQ(printedBy([&] { EXPECT_FALSE(bloch().solveBlochSplit(time0, step)); }),
                      expected);
            const State after = state();
            for (unsigned long j = 0; j < nodes; ++j) {
                EXPECT_EQ(after.mRho[j], j < first || j > last ? before.mRho[j] : Matrix(n * n));
            }
        }
    }
}

TEST_F(QV_BlochStepsTest, SplittingWithoutPreparationLeavesTheNodes)
{
    start(2);
    const State before = state();
    EXPECT_TRUE(bloch().solveBlochSplit(time0, step));
    expectState(before);
}

TEST_F(QV_BlochStepsTest, SplittingNeverWritesTheIterationNumber)
{
    start(2);
    advance(Scheme::CRANK);
    const unsigned long iterations = bloch().getIterationsNumber();
    EXPECT_GT(iterations, 0UL);
    printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
    bloch().solveBlochSplit(time0, step);
    EXPECT_EQ(bloch().getIterationsNumber(), iterations);
}

TEST_F(QV_BlochStepsTest, AnEquilibriumThatSomebodyHasShortenedCountsAsZeroInWhatItLacks)
{
    start(2);
    QV_Bloch::setRelaxationType(QV_Bloch::CASCADE_RELAXATION_TYPE);
    initialize();
    fill(2);
    printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
    const State before = state();
    QV_Bloch::getEquilibriumDensity()->setDimension(1);
    bloch().solveBlochSplit(time0, step);
    QV_Bloch::getEquilibriumDensity()->setDimension(2);
    EXPECT_LT(distance(state().mRho[4],
                       Splitting(bloch(), 1, step).advance(before.mRho[4], &before.mE[4])),
              1e-13);
}

// ---------------------------------------------------------------- polarization

namespace {

/// The source in Ampere's equation by its formula.
std::vector<double> polarizationTerm(const QV_Bloch& bloch, const Matrix& rho, unsigned long m)
{
    const unsigned long n = QV_Bloch::getLevelsNumber();
    const Matrix D = matrixOf(*bloch.getPopulationRelaxation());
    const Matrix Nu = matrixOf(*bloch.getCoherenceRelaxation());
    Matrix X(n * n);
    for (unsigned long a = 0; a < n; ++a) {
        for (unsigned long b = 0; b < n; ++b) {
            X[a * n + b] -= a == b ? 0.0 : Nu[a * n + b] * rho[a * n + b];
            X[a * n + a] += rho[a * n + b] * D[a * n + b];
        }
    }
    std::vector<double> term(m);
    for (unsigned long p = 0; p < m && p < bloch.getPolarizationsAdim()->size(); ++p) {
        const Matrix P = matrixOf((*bloch.getPolarizationsAdim())[p]);
        for (unsigned long b = 0; b < n; ++b) {
            for (unsigned long k = 0; k < n; ++k) {
                term[p] += std::real(X[k * n + b] * P[b * n + k]);
            }
        }
        term[p] *= bloch.getDzeta();
    }
    return term;
}

} // namespace

TEST_F(QV_BlochStepsTest, ThePolarizationTermFollowsItsFormula)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (unsigned long m = 1; m <= 3; ++m) {
            start(n, m);
            const COM_Scoped term(LA_RealVector::New(m));
            for (unsigned long j = 0; j < nodes; ++j) {
                LA_ComplexMatrix& rho = *bloch().getDensity(j);
                rho.setValue(0, n - 1, Complex(0.3, -0.7)); // no longer Hermitian
                const std::vector<double> expected = polarizationTerm(bloch(), matrixOf(rho), m);
                (*term)[0] = 99.0;
                bloch().computePolarizationTerm(rho, E().getValue(j), *term);
                for (unsigned long p = 0; p < m; ++p) {
                    EXPECT_NEAR((*term)[p], expected[p], 1e-14); // sums of a few terms near 1
                }
                EXPECT_EQ(bloch().computePolarizationTerm(rho), (*term)[0]);
                const COM_Scoped same(LA_RealVector::New(m));
                bloch().computePolarizationTermAtIndex(j, E().getValue(j), *same);
                EXPECT_EQ((*same)[m - 1], (*term)[m - 1]);
            }
        }
    }
}

TEST_F(QV_BlochStepsTest, ThePolarizationTermTakesARowOfTheDensityAndNotItsDiagonal)
{
    start(2);
    const COM_Scoped rho(LA_ComplexMatrix::New(2, 2));
    (*rho)[0][1] = 1.0;
    const LA_RealMatrix& D = *bloch().getPopulationRelaxation();
    const LA_RealMatrix& P = (*bloch().getPolarizationsAdim())[0];
    const Complex nu = (*bloch().getCoherenceRelaxation())[0][1];
    EXPECT_NEAR(bloch().computePolarizationTerm(*rho),
                bloch().getDzeta() * (D[0][1] * P[0][0] - nu.real() * P[1][0]), 1e-15);
}

TEST_F(QV_BlochStepsTest, ThePolarizationTermBeyondTheDensitiesIsZero)
{
    start(2, 2);
    const COM_Scoped term(LA_RealVector::New(2));
    for (const unsigned long index : {nodes, nodes + 1, ~0UL}) {
        (*term)[0] = 5.0;
        (*term)[1] = 5.0;
        bloch().computePolarizationTermAtIndex(index, E().getValues(), *term);
        EXPECT_EQ((*term)[0], 0.0);
        EXPECT_EQ((*term)[1], 0.0);
    }
}

TEST_F(QV_BlochStepsTest, ComponentsWithoutDipolesHaveNoPolarization)
{
    start(3, 2);
    QV_Bloch::removeFromPolarizations(1UL);
    initialize();
    fill(3);
    const COM_Scoped term(LA_RealVector::New(2));
    (*term)[1] = 5.0;
    bloch().computePolarizationTerm(*bloch().getDensity(4), E().getValue(4), *term);
    EXPECT_NE((*term)[0], 0.0);
    EXPECT_EQ((*term)[1], 0.0);
}

TEST_F(QV_BlochStepsTest, ThePolarizationTermOfUnscaledAtomsOrOfAForeignMatrixIsZero)
{
    start(2);
    const COM_Scoped foreign(LA_ComplexMatrix::New(3, 3));
    foreign->setValue(0, 1, 1.0);
    EXPECT_EQ(bloch().computePolarizationTerm(*foreign), 0.0);
    const COM_Scoped unscaled(QV_Bloch::New());
    EXPECT_EQ(unscaled->computePolarizationTerm(*unscaled->getDensity(0)), 0.0);
    const COM_Scoped none(LA_RealVector::New(0));
    bloch().computePolarizationTerm(*bloch().getDensity(0), nullptr, *none);
}

TEST_F(QV_BlochStepsTest, TermsOfManyNodesAreAddedWithTheirFactor)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (unsigned long m = 1; m <= 3; ++m) {
            start(n, m);
            const unsigned long count = last - first + 1;
            std::vector<double> terms((count + 1) * m, 0.25);
            bloch().addPolarizationTerms(first, last, m, 0.5, terms.data());
            const COM_Scoped term(LA_RealVector::New(m));
            for (unsigned long j = first; j <= last; ++j) {
                bloch().computePolarizationTermAtIndex(j, E().getValue(j), *term);
                for (unsigned long p = 0; p < m; ++p) {
                    EXPECT_EQ(terms[(j - first) * m + p], 0.25 + 0.5 * (*term)[p]);
                }
            }
            EXPECT_EQ(terms[count * m], 0.25);
        }
    }
}

TEST_F(QV_BlochStepsTest, NodesWithoutDensityAddNoTerm)
{
    start(2);
    std::vector<double> terms(6, 0.25);
    bloch().addPolarizationTerms(nodes - 2, nodes + 3, 1, 1.0, terms.data());
    EXPECT_NE(terms[0], 0.25);
    EXPECT_NE(terms[1], 0.25);
    EXPECT_EQ(std::vector<double>(terms.begin() + 2, terms.end()), std::vector<double>(4, 0.25));
    terms.assign(6, 0.25);
    bloch().addPolarizationTerms(-1, 3, 1, 1.0, terms.data());
    bloch().addPolarizationTerms(5, 4, 1, 1.0, terms.data());
    EXPECT_EQ(terms, std::vector<double>(6, 0.25));
}

// ---------------------------------------------------------------- runs

namespace {

/// What a run keeps from step to step.
class QV_BlochRun : public QV_BlochStepsTest
{
protected:
    /// The terms of these nodes, of `m` components, are those of the densities as they stand.
    void expectTerms(long from, long to, unsigned long m) const
    {
        std::vector<double> terms(static_cast<unsigned long>(to - from + 1) * m, 0.25);
        bloch().addPolarizationTerms(from, to, m, 0.5, terms.data());
        const COM_Scoped term(LA_RealVector::New(m));
        for (long j = from; j <= to; ++j) {
            bloch().computePolarizationTermAtIndex(static_cast<unsigned long>(j), nullptr, *term);
            for (unsigned long p = 0; p < m; ++p) {
                EXPECT_EQ(terms[static_cast<unsigned long>(j - from) * m + p],
                          0.25 + 0.5 * (*term)[p])
                    << "node " << j << ", component " << p;
            }
        }
    }
    void expectTerms(unsigned long m = 1) const
    {
        constexpr auto from = static_cast<long>(first);
        constexpr auto to = static_cast<long>(last);
        expectTerms(from, to, m);
        expectTerms(from + 1, to - 2, m); // some of them
        expectTerms(from - 1, to, m);     // and nodes that no step has advanced
        expectTerms(from, to + 1, m);
        expectTerms(from, to, m + 1); // and components
    }
};

} // namespace

TEST_F(QV_BlochRun, EveryStepLeavesTheTermsOfItsDensities)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (const Scheme scheme : schemes) {
            start(n);
            bloch().beginRun();
            for (int i = 0; i < 3; ++i) {
                EXPECT_TRUE(advance(scheme));
                expectTerms();
            }
            bloch().solveBlochRelaxExtraDiag(time0, step);
            expectTerms();
        }
        for (unsigned long m = 1; m <= 3; ++m) {
            start(n, m);
            bloch().beginRun();
            printedBy([&] {
                bloch().solveBlochSplitInit(0.0, step);
                bloch().solveBlochSplit(time0, step);
                bloch().solveBlochSplit(time0, step);
            });
            expectTerms(m);
        }
    }
}

TEST_F(QV_BlochRun, AStoredDensityIsSeenByItsTerm)
{
    start(2);
    bloch().beginRun();
    advance(Scheme::CRANK);
    const COM_Scoped rho(LA_ComplexMatrix::New(2, 2));
    TestNumbers numbers(78);
    fill(*rho, numbers);
    bloch().setDensity(*rho, 5);
    expectTerms();
    advance(Scheme::CRANK);
    bloch().initDensities();
    expectTerms();
}

TEST_F(QV_BlochRun, AfterTheRunTermsAreThoseOfTheDensitiesAtHand)
{
    start(2);
    bloch().beginRun();
    advance(Scheme::CRANK);
    bloch().endRun();
    fill(79);
    expectTerms();
    advance(Scheme::CRANK);
    fill(80);
    expectTerms();
}

TEST_F(QV_BlochRun, StepsAreThoseOutsideARun)
{
    for (const double dt : {step, 0.5 * step}) {
        for (const Scheme scheme : schemes) {
            start(3);
            advance(scheme);
            advance(scheme, dt);
            const State expected = state();
            start(3);
            bloch().beginRun();
            advance(scheme);
            advance(scheme, dt);
            expectState(expected);
        }
    }
}

TEST_F(QV_BlochRun, TheSplittingOfOtherStepsAndOrdersIsThatOutsideARun)
{
    const auto advanceAll = [this] {
        printedBy([this] {
            for (const double dt : {step, 0.5 * step, step}) {
                bloch().solveBlochSplitInit(0.0, dt);
                bloch().solveBlochSplit(time0, dt);
                bloch().solveBlochSplit(time0, 2.0 * dt);
                for (unsigned char order = 0; order < 4; ++order) {
                    QV_Bloch::setSplitType(order);
                    bloch().solveBlochSplit(time0, dt);
                }
                QV_Bloch::setRelaxationType(QV_Bloch::PAULI_RELAXATION_TYPE);
                bloch().solveBlochSplit(time0, dt);
                QV_Bloch::setRelaxationType(QV_Bloch::EQUILIBRE_RELAXATION_TYPE);
                bloch().solveBlochSplit(time0, dt);
            }
        });
    };
    start(3);
    advanceAll();
    const State expected = state();
    start(3);
    bloch().beginRun();
    advanceAll();
    expectState(expected);
}

TEST_F(QV_BlochRun, ANewLimitOfIterationsHoldsFromTheNextStep)
{
    start(2);
    bloch().beginRun();
    advance(Scheme::CRANK);
    EXPECT_GT(bloch().getIterationsNumber(), 1UL);
    QV_Bloch::setIterationsMaxNumber(1);
    printedBy([this] { advance(Scheme::CRANK); });
    EXPECT_EQ(bloch().getIterationsNumber(), 1UL);
}

// ---------------------------------------------------------------- densities from outside

namespace {

/// Ways in which somebody else can change the densities between two steps.
class QV_BlochDensities : public QV_BlochStepsTest
{
protected:
    /// Every kind of step sees the densities as they are now.
    void expectSeen(const std::function<void()>& change)
    {
        for (const Scheme scheme : schemes) {
            start(2);
            advance(scheme);
            change();
            expectKernelStep(scheme);
            expectKernelStep(scheme);
        }
        start(2);
        printedBy([&] { bloch().solveBlochSplitInit(0.0, step); });
        bloch().solveBlochSplit(time0, step);
        change();
        const State before = state();
        bloch().solveBlochSplit(time0, step);
        for (unsigned long j = first; j <= last; ++j) {
            EXPECT_LT(distance(state().mRho[j],
                               Splitting(bloch(), 1, step).advance(before.mRho[j], &before.mE[j])),
                      1e-13);
        }
        start(2);
        bloch().solveBlochRelaxExtraDiag(time0, step);
        change();
        State expected = state();
        std::vector<double> work;
        QV_RelaxKernel::advanceCoherences(atoms(), step, expected.mE[first],
                                          reinterpret_cast<double*>(expected.mRho[first].data()),
                                          work);
        bloch().solveBlochRelaxExtraDiag(time0, step);
        expectState(expected);
        std::vector<double> term(1, 0.0);
        change();
        bloch().addPolarizationTerms(5, 5, 1, 1.0, term.data());
        EXPECT_EQ(term[0], bloch().computePolarizationTerm(*bloch().getDensity(5)));
    }
};

} // namespace

TEST_F(QV_BlochDensities, AStoredDensityIsSeenByTheNextStep)
{
    expectSeen([this] {
        const COM_Scoped rho(LA_ComplexMatrix::New(2, 2));
        TestNumbers numbers(77);
        fill(*rho, numbers);
        bloch().setDensity(*rho, 5);
        bloch().setDensity(*rho, first);
    });
}

TEST_F(QV_BlochDensities, ADensityWrittenByItsHolderIsSeenByTheNextStep)
{
    expectSeen([this] {
        TestNumbers numbers(77);
        fill(*bloch().getDensity(5), numbers);
        fill(*bloch().getDensity(first), numbers);
    });
}

TEST_F(QV_BlochDensities, ADensityThatItsHolderResizesComesBackAndIsSeen)
{
    expectSeen([this] {
        for (const unsigned long j : {first, 5UL}) {
            LA_ComplexMatrix& rho = *bloch().getDensity(j);
            rho.setDimensions(3, 3);
            rho.setDimensions(2, 2);
            TestNumbers numbers(77);
            fill(rho, numbers);
        }
    });
}

TEST_F(QV_BlochDensities, ADensityOfAnotherSizeIsForcedToTheLevelsByTheNextStep)
{
    for (const Scheme scheme : schemes) {
        start(2);
        advance(scheme);
        bloch().getDensity(5)->setDimensions(3, 3);
        bloch().getDensity(6)->setDimensions(1, 1);
        const COM_Scoped five(LA_ComplexMatrix::New(*bloch().getDensity(5)));
        const COM_Scoped six(LA_ComplexMatrix::New(*bloch().getDensity(6)));
        State expected = state();
        five->setDimensions(2, 2);
        six->setDimensions(2, 2);
        QV_Bloch& system = bloch();
        const COM_Scoped copies(COM_Array<LA_ComplexMatrix>::New());
        for (unsigned long j = 0; j < nodes; ++j) {
            copies->add(*COM_Scoped(LA_ComplexMatrix::New(*system.getDensity(j))));
        }
        advance(scheme);
        const State found = state();
        // The same again, from densities that had the right size beforehand.
        E().setValues(expected.mE.data(), nodes, 1);
        for (unsigned long j = 0; j < nodes; ++j) {
            system.setDensity(j == 5 ? *five : j == 6 ? *six : (*copies)[j], j);
        }
        advance(scheme);
        expectState(found);
    }
}

TEST_F(QV_BlochDensities, ADensityMovedIntoAForeignBlockIsSeenByTheNextStep)
{
    const COM_Scoped foreign(LA_Block<Complex>::New(8));
    expectSeen([this, &foreign] {
        TestNumbers numbers(77);
        bloch().getDensity(5)->moveTo(*foreign, 4);
        fill(*bloch().getDensity(5), numbers);
    });
}

TEST_F(QV_BlochDensities, AGapAmongTheDensitiesCountsAsZeros)
{
    start(2);
    bloch().setDensity(*bloch().getDensity(0), nodes + 2);
    EXPECT_EQ(bloch().getDensity(nodes), nullptr);
    advance(Scheme::CRANK);
    ASSERT_NE(bloch().getDensity(nodes), nullptr);
    EXPECT_EQ(matrixOf(*bloch().getDensity(nodes)), Matrix(4));
    expectKernelStep(Scheme::CRANK);
}

TEST_F(QV_BlochDensities, LoadedDensitiesAreSeenThoughSomebodyHoldsTheOldOnes)
{
    for (const Scheme scheme : schemes) {
        start(2);
        advance(scheme);
        const COM_Scoped held(COM_Array<LA_ComplexMatrix>::New(*bloch().getDensities()));
        const Matrix old = matrixOf((*held)[5]);
        const COM_Scoped factory(QV_ClassFactory::New());
        const COM_Scoped node(MM_Class::New());
        node->setId("b");
        factory->addToMetaClasses(*node);
        node->addAssociationToMetaFields("mDensities", *held);
        printedBy([&] { bloch().loadFromMetaClass(*node); });
        ASSERT_EQ(bloch().getDensities()->size(), nodes);
        ASSERT_NE(bloch().getDensity(5), held->get(5));
        fill(9);
        expectKernelStep(scheme);
        EXPECT_EQ(matrixOf((*held)[5]), old);
    }
}

TEST_F(QV_BlochDensities, HeldDensitiesOutliveTheSystem)
{
    start(2);
    advance(Scheme::CRANK);
    LA_ComplexMatrix* const held = bloch().getDensity(5);
    held->addReference(nullptr);
    const Matrix before = matrixOf(*held);
    mProblem = nullptr;
    EXPECT_EQ(matrixOf(*held), before);
    held->setDimensions(1, 1);
    held->Delete();
}
