#include "BenchProblem.h"
#include "common/COM_Scoped.h"
#include "ProcessorTime.h"
#include "QuietDirectory.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_Maxwell.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

// How the cost of a node-step grows with the problem, for a scheme that iterates and for the splitting: processor time
// in the time loop, result files included, from the end of the first step to that of the last. All atoms radiate from the
// start.

namespace {

/// Whether the run has stayed finite: numbers that are none are quickly worked out.
bool isFinite(const QV_1DProblem& problem)
{
    QV_Field& field = *problem.getMaxwellSystem()->getField(QV_Maxwell::E_FIELD);
    return std::all_of(field.getValues(), field.getValues() + field.getSize(),
                       [](double x) { return std::isfinite(x); });
}

/// Nanoseconds a node-step, the best of three runs.
double cost(const BenchProblem& properties)
{
    double best = 0.0;
    for (int turn = 0; turn < 3; ++turn) {
        const QuietDirectory directory;
        const COM_Scoped problem(properties.create());
        problem->setSavingPath(directory.slashed());
        double first = 0.0;
        double last = 0.0;
        problem->setWatcher([&first, &last] {
            last = processorTime();
            first = first == 0.0 ? last : first;
        });
        const COM_Scoped out(COM_Out::New());
        if (problem->run(*out) != 0 || !isFinite(*problem)) {
            std::fputs("the run failed\n", stderr);
            std::exit(1);
        }
        const auto nodeSteps =
            static_cast<double>(properties.mNodes) * static_cast<double>(properties.mSteps - 1);
        const double time = 1e9 * (last - first) / nodeSteps;
        best = turn == 0 || time < best ? time : best;
    }
    return best;
}

/// A row for each value of one property, the others being those of `usual`, with its scheme and with the splitting.
void printRows(const char* name, unsigned long BenchProblem::*property,
               const std::vector<unsigned long>& values, const BenchProblem& usual)
{
    for (const unsigned long value : values) {
        std::printf("| %s | %lu | %s |", name, value, QV_Problem::mMethodsName[usual.mMethod]);
        for (const unsigned char method : {usual.mMethod, QV_Problem::SPLIT_METHOD}) {
            BenchProblem problem = usual;
            problem.mMethod = method;
            problem.*property = value;
            if (property == &BenchProblem::mNodes) {
                problem.mSteps = usual.mNodes * usual.mSteps / value; // of the same work
            }
            if (method == QV_Problem::SPLIT_METHOD && problem.mLevels > 4) {
                std::printf(" |"); // the splitting treats no more
            } else {
                std::printf(" %.1f |", cost(problem));
            }
            std::fflush(stdout);
        }
        std::printf("\n");
    }
}

} // namespace

int main()
{
    BenchProblem usual;
    usual.mMethod = QV_Problem::CN_P_METHOD;
    usual.mSteps = 2000;
    usual.mIsExcited = true;
    std::printf("| of | number | scheme | ns a node-step | Split |\n|---|---|---|---|---|\n");
    printRows("nodes", &BenchProblem::mNodes, {100, 1000, 5000, 10000, 100000, 1000000}, usual);
    printRows("steps", &BenchProblem::mSteps, {100, 1000, 10000, 20000}, usual);
    printRows("levels", &BenchProblem::mLevels, {2, 3, 4, 5, 6}, usual);
    // CN_P advances the field with each system anew, and is for one.
    usual.mMethod = QV_Problem::CN_dtP_METHOD;
    printRows("systems", &BenchProblem::mSystems, {1, 2, 4, 8, 16}, usual);
    usual.mMethod = QV_Problem::CN_P_METHOD;
    printRows("captors", &BenchProblem::mCaptors, {1, 3, 10, 30, 100, 300}, usual);
    usual.mLevels = 4;
    printRows("captors at four levels", &BenchProblem::mCaptors, {1, 20}, usual);
    return 0;
}
