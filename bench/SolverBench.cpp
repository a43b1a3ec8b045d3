#include "BenchDirectory.h"
#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Maxwell.h"
#include "Reference.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <ostream>
#include <string>

// Whole runs, result files included, of the solver and of the plain writing of the same formulas that the
// golden tests use: 5000 nodes, 80 % of them with atoms, and a continuous wave, which has filled the mesh after 6250 of
// 8000 steps. A node-step is one node of the mesh in one time step. QUORVEX_INSTRUCTIONS chooses the solver's variant.

namespace {

constexpr unsigned long nodes = 5000;
constexpr unsigned long steps = 8000;
constexpr double cell = 1.5e-6 / 20.0;          // m
constexpr double length = (nodes + 0.5) * cell; // m; half a cell so that rounding drops no node
constexpr double peakField = 4.2186e9;          // V/m: a Rabi frequency of 4e14 1/s
constexpr double dipole = 1e-29;                // C m
constexpr double carrier = 1883070636.561722 / 1.5e-6; // rad/s

/// Dipole between neighbouring levels, which all stand one carrier apart.
double dipoleAt(unsigned long a, unsigned long b)
{
    return a + 1 == b || b + 1 == a ? dipole : 0.0;
}

/// A directory of its own for the files of a run, and nothing on standard output meanwhile.
class QuietDirectory
{
public:
    QuietDirectory()
        : mFormer(std::filesystem::current_path())
        , mBuffer(std::cout.rdbuf(nullptr))
    {
        std::filesystem::current_path(mDirectory.path());
    }
    ~QuietDirectory()
    {
        std::cout.rdbuf(mBuffer);
        std::cout.clear();
        std::filesystem::current_path(mFormer);
    }
    QuietDirectory(const QuietDirectory&) = delete;
    QuietDirectory& operator=(const QuietDirectory&) = delete;

    std::string slashed() const { return mDirectory.slashed(); }

private:
    std::filesystem::path mFormer;
    BenchDirectory mDirectory;
    std::streambuf* mBuffer;
};

QV_1DProblem* newProblem(unsigned char method, unsigned long levels)
{
    QV_Bloch::resetShared();
    QV_Bloch::setLevelsNumber(levels);
    auto* const problem = QV_1DProblem::New();
    problem->setMethod(method);
    problem->setMaxTimeStepsNumber(steps);
    auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem->getMilieu());
    milieu.setLength(length);
    QV_IncidentFields& fields = *problem->getMaxwellSystem()->getIncidentFields();
    fields.setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    fields.setFieldMaxValue(peakField);

    const COM_Scoped dipoles(LA_RealMatrix::New(levels, levels));
    const COM_Scoped omega(LA_RealVector::New(levels));
    for (unsigned long a = 0; a < levels; ++a) {
        (*omega)[a] = static_cast<double>(a) * carrier;
        for (unsigned long b = 0; b < levels; ++b) {
            (*dipoles)[a][b] = dipoleAt(a, b);
        }
    }
    QV_Bloch::setPolarization(*dipoles, 0);
    (*problem->getBlochEquations())[0].setLevelsFrequency(*omega);
    const COM_Scoped ground(LA_ComplexMatrix::New(levels, levels));
    (*ground)[0][0] = 1.0;
    QV_Bloch::setInitialDensity(*ground);
    return problem;
}

ReferenceProblem newReference(unsigned char method, unsigned long levels)
{
    ReferenceProblem problem;
    problem.mMethod = static_cast<ReferenceMethod>(method);
    problem.mMaxTimeStepsNumber = steps;
    problem.mLength = length;
    problem.mShape = ReferenceShape::Sinus;
    problem.mFieldMaxValue = peakField;
    problem.setLevelsNumber(levels);
    ReferenceRealMatrix dipoles(levels);
    problem.mInitialDensity = ReferenceComplexMatrix(levels);
    problem.mInitialDensity(0, 0) = 1.0;
    for (unsigned long a = 0; a < levels; ++a) {
        problem.mOmegas[0][a] = static_cast<double>(a) * carrier;
        for (unsigned long b = 0; b < levels; ++b) {
            dipoles(a, b) = dipoleAt(a, b);
        }
    }
    problem.setPolarization(0, dipoles);
    return problem;
}

void countNodeSteps(benchmark::State& state)
{
    state.counters["node_steps"] = benchmark::Counter(
        static_cast<double>(state.iterations() * nodes * steps), benchmark::Counter::kIsRate);
}

void runSolver(benchmark::State& state, unsigned char method, unsigned long levels)
{
    for ([[maybe_unused]] auto turn : state) {
        const QuietDirectory directory;
        const COM_Scoped problem(newProblem(method, levels));
        problem->setSavingPath(directory.slashed());
        const COM_Scoped out(COM_Out::New());
        if (problem->run(*out) != 0) {
            state.SkipWithError("the run failed");
        }
    }
    countNodeSteps(state);
}

void runPlain(benchmark::State& state, unsigned char method, unsigned long levels)
{
    for ([[maybe_unused]] auto turn : state) {
        const QuietDirectory directory;
        std::ostream log(nullptr);
        if (runReference(newReference(method, levels), directory.slashed(), log) != 0) {
            state.SkipWithError("the run failed");
        }
    }
    countNodeSteps(state);
}

} // namespace

int main(int argc, char** argv)
{
    for (const unsigned long levels : {2UL, 3UL, 4UL}) {
        for (unsigned char method = 0; method < QV_Problem::mMethodsNameLength; ++method) {
            const std::string name = std::string("/") + QV_Problem::mMethodsName[method]
                                     + "/levels:" + std::to_string(levels);
            for (const bool isSolver : {true, false}) {
                benchmark::RegisterBenchmark(((isSolver ? "solver" : "plain") + name).c_str(),
                                             isSolver ? runSolver : runPlain, method, levels)
                    ->Unit(benchmark::kSecond)
                    ->UseRealTime();
            }
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
