#include "BenchProblem.h"
#include "common/COM_Scoped.h"
#include "QuietDirectory.h"
#include "Reference.h"

#include <benchmark/benchmark.h>
#include <ostream>
#include <string>

// Whole runs, result files included, of the solver and of the plain writing of the same formulas that the
// golden tests use: 5000 nodes, 80 % of them with atoms, and a continuous wave, which has filled the mesh after 6250 of
// 8000 steps. A node-step is one node of the mesh in one time step. QUORVEX_INSTRUCTIONS chooses the solver's variant.

namespace {

BenchProblem problemOf(unsigned char method, unsigned long levels)
{
    BenchProblem problem;
    problem.mMethod = method;
    problem.mLevels = levels;
    return problem;
}

ReferenceProblem referenceOf(const BenchProblem& like)
{
    const unsigned long levels = like.mLevels;
    ReferenceProblem problem;
    problem.mMethod = static_cast<ReferenceMethod>(like.mMethod);
    problem.mMaxTimeStepsNumber = like.mSteps;
    problem.mLength = like.length();
    problem.mCaptors = like.captors();
    problem.mShape = ReferenceShape::Sinus;
    problem.mFieldMaxValue = BenchProblem::PEAK_FIELD;
    problem.setLevelsNumber(levels);
    ReferenceRealMatrix dipoles(levels);
    problem.mInitialDensity = ReferenceComplexMatrix(levels);
    problem.mInitialDensity(0, 0) = 1.0;
    for (unsigned long a = 0; a < levels; ++a) {
        problem.mOmegas[0][a] = static_cast<double>(a) * BenchProblem::CARRIER;
        for (unsigned long b = 0; b < levels; ++b) {
            dipoles(a, b) = BenchProblem::dipole(a, b);
        }
    }
    problem.setPolarization(0, dipoles);
    return problem;
}

void countNodeSteps(benchmark::State& state, const BenchProblem& problem)
{
    const auto runs = static_cast<double>(state.iterations());
    const auto nodeSteps = static_cast<double>(problem.mNodes * problem.mSteps);
    state.counters["node_steps"] =
        benchmark::Counter(runs * nodeSteps, benchmark::Counter::kIsRate);
}

void runSolver(benchmark::State& state, unsigned char method, unsigned long levels)
{
    const BenchProblem properties = problemOf(method, levels);
    for ([[maybe_unused]] auto turn : state) {
        const QuietDirectory directory;
        const COM_Scoped problem(properties.create());
        problem->setSavingPath(directory.slashed());
        const COM_Scoped out(COM_Out::New());
        if (problem->run(*out) != 0) {
            state.SkipWithError("the run failed");
        }
    }
    countNodeSteps(state, properties);
}

void runPlain(benchmark::State& state, unsigned char method, unsigned long levels)
{
    const BenchProblem properties = problemOf(method, levels);
    for ([[maybe_unused]] auto turn : state) {
        const QuietDirectory directory;
        std::ostream log(nullptr);
        if (runReference(referenceOf(properties), directory.slashed(), log) != 0) {
            state.SkipWithError("the run failed");
        }
    }
    countNodeSteps(state, properties);
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
