#include "BenchProblem.h"
#include "common/COM_Scoped.h"
#include "ProcessorTime.h"
#include "QuietDirectory.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

// Memory of a run of a million nodes with two levels and one system, and the processor time that its parts take:
//   quorvex_memory_bench [NODES]

namespace {

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

} // namespace

int main(int argc, char** argv)
{
    BenchProblem size;
    size.mNodes = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 1000000;
    const auto nodes = static_cast<double>(size.mNodes);
    const QuietDirectory directory;
    const COM_Scoped problem(QV_1DProblem::New());
    auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem->getMilieu());
    milieu.setLength(size.length());
    const double before = statusValue("VmRSS:");
    double begin = processorTime();
    milieu.create();
    std::printf("mesh of %.0f nodes: %.2f s, %.0f bytes a node\n", nodes, processorTime() - begin,
                (statusValue("VmRSS:") - before) * 1024.0 / nodes);

    problem->setMaxTimeStepsNumber(10);
    problem->setSavingPath(directory.slashed());
    double firstStep = 0.0;
    begin = processorTime();
    problem->setWatcher([&] {
        if (firstStep == 0.0) {
            firstStep = processorTime();
            std::printf(
                "to the end of the first step: %.2f s, peak %.0f bytes a node (the record's own)\n",
                firstStep - begin, (statusValue("VmHWM:") - before) * 1024.0 / nodes);
            std::printf("in the time loop: %.0f bytes a node\n",
                        (statusValue("VmRSS:") - before) * 1024.0 / nodes);
        }
    });
    problem->run();
    std::printf("nine steps more: %.2f s\n", processorTime() - firstStep);
    return 0;
}
