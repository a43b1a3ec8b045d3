#include "common/COM_Scoped.h"
#include "QuietDirectory.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

// Memory of a run of a million nodes with two levels and one system, and the processor time that its parts take:
//   quorvex_memory_bench [NODES]

namespace {

constexpr double cell = 1.5e-6 / 20.0; // m

/// A value of the process's status, in kB: resident memory now ("VmRSS:") or at its largest ("VmHWM:").
double statusValue(const std::string& key)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    double value = 0.0;
    while (status >> word) {
        if (word == key && status >> value) {
            return value;
        }
    }
    return 0.0;
}

/// Processor time, so that other programs do not show.
double seconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

} // namespace

int main(int argc, char** argv)
{
    const double nodes = argc > 1 ? std::atof(argv[1]) : 1e6;
    const QuietDirectory directory;
    const COM_Scoped problem(QV_1DProblem::New());
    auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem->getMilieu());
    milieu.setLength((nodes + 0.5) * cell);
    const double before = statusValue("VmRSS:");
    double begin = seconds();
    milieu.create();
    std::printf("mesh of %.0f nodes: %.2f s, %.0f bytes a node\n", nodes, seconds() - begin,
                (statusValue("VmRSS:") - before) * 1024.0 / nodes);

    problem->setMaxTimeStepsNumber(10);
    problem->setSavingPath(directory.slashed());
    double firstStep = 0.0;
    begin = seconds();
    problem->setWatcher([&] {
        if (firstStep == 0.0) {
            firstStep = seconds();
            std::printf(
                "to the end of the first step: %.2f s, peak %.0f bytes a node (the record's own)\n",
                firstStep - begin, (statusValue("VmHWM:") - before) * 1024.0 / nodes);
            std::printf("in the time loop: %.0f bytes a node\n",
                        (statusValue("VmRSS:") - before) * 1024.0 / nodes);
        }
    });
    problem->run();
    std::printf("nine steps more: %.2f s\n", seconds() - firstStep);
    return 0;
}
