// quorvex-reference [--margins] SCENARIO_FILE OUTPUT_DIR
//
// Runs a scenario by the plain formulas and leaves its result files and its log, "log.txt", in the
// directory. With --margins it also says how close the run's convergence tests came to the opposite
// outcome. Exit status: 0 done, 1 the run ended early or a file can't be written, 2 bad input.
#include "Reference.h"
#include "ReferenceInput.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

int run(const ReferenceProblem& problem, const std::string& directory, bool showMargins)
{
    std::filesystem::create_directories(directory);
    std::ofstream log(std::filesystem::path(directory) / "log.txt");
    ReferenceMargins margins;
    const int status = runReference(problem, directory, log, &margins);
    log.close();
    if (!log) {
        std::cerr << "quorvex-reference: can't write log.txt in " << directory << "\n";
        return 1;
    }
    if (showMargins) {
        std::cout << "tests " << margins.mTests << ", nodes skipped " << margins.mSkipped
                  << ", smallest margin ";
        if (margins.mTests == 0) {
            std::cout << "none\n";
        } else {
            std::cout << margins.mSmallest << "\n";
        }
    }
    if (status < 0) {
        std::cerr << "quorvex-reference: the run ended with " << status << ", see log.txt in "
                  << directory << "\n";
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool showMargins = !arguments.empty() && arguments.front() == "--margins";
    if (showMargins) {
        arguments.erase(arguments.begin());
    }
    if (arguments.size() != 2) {
        std::cerr << "usage: quorvex-reference [--margins] SCENARIO_FILE OUTPUT_DIR\n";
        return 2;
    }

    ReferenceProblem problem;
    try {
        std::ifstream input(arguments[0]);
        if (!input) {
            std::cerr << "quorvex-reference: can't read " << arguments[0] << "\n";
            return 2;
        }
        problem = readScenario(input);
    } catch (const std::exception& error) {
        std::cerr << "quorvex-reference: " << arguments[0] << ": " << error.what() << "\n";
        return 2;
    }

    try {
        return run(problem, arguments[1], showMargins);
    } catch (const std::exception& error) {
        std::cerr << "quorvex-reference: " << error.what() << "\n";
        return 1;
    }
}
