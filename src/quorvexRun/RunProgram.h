#pragma once
#include "quorvex/QV_ProblemCheck.h"
#include "quorvexRun/RunOptions.h"

#include <filesystem>
#include <vector>

class QV_1DProblem;
class RunInput;

/// The batch program: reads a problem, changes it as asked, checks it, and runs or saves it.
class RunProgram
{
public:
    /// Does all that the command line asks for and returns the exit status.
    static int main(int argc, char** argv);

private:
    explicit RunProgram(RunOptions options)
        : mOptions(std::move(options))
    {}

    int perform() const;
    void change(QV_1DProblem& problem) const;
    /// Tells the findings; throws RunError when they forbid the run.
    void check(const QV_1DProblem& problem, const std::filesystem::path& output) const;
    void tell(const std::vector<QV_ProblemCheck::Finding>& findings) const;
    int save(QV_1DProblem& problem) const;
    int run(QV_1DProblem& problem, const std::filesystem::path& output) const;
    /// Writes the results of a former run as comma separated values.
    int exportResults() const;
    /// The same after a run, in its directory. False, with a message, when that has failed.
    static bool exportRun(const std::string& fileName);
    int finish(const QV_1DProblem& problem, int result, bool isInterrupted) const;
    /// Makes the directory if need be, and sees that files can be made there; throws RunError.
    static void prepare(const std::filesystem::path& output);

    RunOptions mOptions;
};
