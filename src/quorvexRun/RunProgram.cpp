#include "quorvexRun/RunProgram.h"

#include "common/COM_Scoped.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvex/QV_ProblemCheck.h"
#include "quorvex/QV_Results.h"
#include "quorvexRun/RunError.h"
#include "quorvexRun/RunExit.h"
#include "quorvexRun/RunExport.h"
#include "quorvexRun/RunInput.h"
#include "quorvexRun/RunProgress.h"
#include "quorvexRun/RunProject.h"
#include "quorvexRun/RunSettings.h"
#include "quorvexRun/RunSummary.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace {

constexpr const char* gradeNames[] = {"stops the run", "would spoil the run", "note"};

/// The nearest directory on the way to `path` that exists.
std::filesystem::path existingPart(std::filesystem::path path)
{
    std::error_code ignored;
    path = std::filesystem::absolute(path);
    while (!std::filesystem::exists(path, ignored) && path.has_parent_path()
           && path != path.parent_path()) {
        path = path.parent_path();
    }
    return path;
}

std::string secondsText(double seconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.2f s", seconds);
    return text;
}

} // namespace

int RunProgram::main(int argc, char** argv)
{
    RunExit::outliveFullDisks();
    try {
        const RunOptions options = RunOptions::parse(argc, argv);
        if (options.mIsHelp) {
            std::cout << RunOptions::helpText();
            return EXIT_SUCCESS;
        }
        if (options.mIsVersion) {
            std::cout << "quorvex-run " << QUORVEX_VERSION << "\n";
            return EXIT_SUCCESS;
        }
        const RunProgram program(options);
        return options.mResults.empty() ? program.perform() : program.exportResults();
    } catch (const RunError& error) {
        std::cout.flush();
        std::cerr << "quorvex-run: " << error.what() << "\n";
        RunExit::enter(RunExit::USUAL);
        return RunExit::BAD_INPUT;
    }
}

int RunProgram::perform() const
{
    RunInput input = mOptions.mIsDefault ? RunInput() : RunInput(mOptions.mInput);
    RunExit::enter(RunExit::READING, input.file().string());
    const COM_Scoped problem(input.read());
    RunExit::enter(RunExit::USUAL);
    change(*problem);
    if (!mOptions.mIsQuiet) {
        for (const std::string& remark : input.remarks()) {
            std::cerr << "note: " << remark << "\n";
        }
    }
    if (mOptions.isSavedOnly()) {
        return save(*problem);
    }
    const std::filesystem::path output(mOptions.mOutput.empty() ? input.usualOutput().string()
                                                                : mOptions.mOutput);
    check(*problem, output);
    return mOptions.mIsCheckOnly ? EXIT_SUCCESS : run(*problem, output);
}

void RunProgram::change(QV_1DProblem& problem) const
{
    for (const auto& [key, value] : mOptions.mSettings) {
        RunSettings::apply(problem, key, value);
    }
    if (!mOptions.mMethod.empty()) {
        RunSettings::setMethod(problem, mOptions.mMethod);
    }
    if (mOptions.mSteps) {
        problem.setMaxTimeStepsNumber(*mOptions.mSteps);
    }
}

void RunProgram::check(const QV_1DProblem& problem, const std::filesystem::path& output) const
{
    const std::vector<QV_ProblemCheck::Finding> findings =
        QV_ProblemCheck::check(problem, existingPart(output).string());
    if (mOptions.mIsCheckOnly) {
        tell(findings);
    }
    const bool isStopped = QV_ProblemCheck::has(findings, QV_ProblemCheck::STOPS);
    const bool isHarmed = QV_ProblemCheck::has(findings, QV_ProblemCheck::HARMS);
    if (!isStopped && (!isHarmed || mOptions.mIsForced)) {
        if (!mOptions.mIsCheckOnly) {
            tell(findings);
        }
        return;
    }
    // The findings come in the order of their grades: the first one is the worst.
    const auto others =
        std::count_if(findings.begin() + 1, findings.end(),
                      [](const auto& finding) { return finding.mGrade != QV_ProblemCheck::NOTE; });
    throw RunError(findings.front().text() + (isStopped ? "" : " (--force runs all the same)")
                   + (others > 0 && !mOptions.mIsCheckOnly
                          ? " And " + std::to_string(others) + " more; --check lists them."
                          : ""));
}

void RunProgram::tell(const std::vector<QV_ProblemCheck::Finding>& findings) const
{
    if (mOptions.mIsQuiet) {
        return;
    }
    for (const QV_ProblemCheck::Finding& finding : findings) {
        std::cerr << gradeNames[finding.mGrade] << ": " << finding.text() << "\n";
    }
    if (mOptions.mIsCheckOnly && findings.empty()) {
        std::cerr << "nothing stops or spoils this run\n";
    }
}

int RunProgram::save(QV_1DProblem& problem) const
{
    if (!mOptions.mProjectDirectory.empty()) {
        RunProject::write(mOptions.mProjectDirectory, problem);
    }
    if (!mOptions.mXmlFile.empty()) {
        const COM_Scoped writer(QV_LoaderWriter::New());
        writer->setProblem(problem);
        if (!writer->save(mOptions.mXmlFile)) {
            throw RunError("the file " + mOptions.mXmlFile + " cannot be written");
        }
    }
    return EXIT_SUCCESS;
}

void RunProgram::prepare(const std::filesystem::path& output)
{
    std::error_code error;
    std::filesystem::create_directories(output, error);
    if (error || !std::filesystem::is_directory(output, error)) {
        throw RunError("the directory " + output.string() + " cannot be made: "
                       + (error ? error.message() : std::string("there is a file of that name")));
    }
    const std::string probe = (output / (".quorvex-run." + std::to_string(getpid()))).string();
    const int handle = open(probe.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
    if (handle < 0) {
        throw RunError("no file can be made in the directory " + output.string()
                       + "; -o chooses another one");
    }
    close(handle);
    unlink(probe.c_str());
    for (const auto& entry : std::filesystem::directory_iterator(output, error)) {
        if (entry.is_directory(error) && !entry.is_symlink(error)
            && QV_Results::isResultFileName(entry.path().filename().string())) {
            throw RunError(
                entry.path().string()
                + " is a directory and has the name of a result file; -o chooses another "
                  "place");
        }
    }
}

int RunProgram::run(QV_1DProblem& problem, const std::filesystem::path& output) const
{
    prepare(output);
    const std::string table =
        mOptions.mTableFile.empty() ? "" : std::filesystem::absolute(mOptions.mTableFile).string();
    const std::string exported = mOptions.mExportFile.empty()
                                     ? ""
                                     : std::filesystem::absolute(mOptions.mExportFile).string();
    const QV_Results::Removal removal = QV_Results::removeResultFiles(output.string());
    if (!removal.mIsComplete) {
        throw RunError("result files of a former run in " + output.string() + " cannot be removed");
    }
    std::filesystem::current_path(output);
    problem.setSavingPath("./");

    const COM_Scoped progress(
        RunProgress::New(mOptions.mProgress, mOptions.mIsQuiet, problem.getMaxTimeStepsNumber()));
    RunExit::catchInterrupts();
    bool isInterrupted = false;
    problem.setWatcher([&problem, &progress, &isInterrupted] {
        progress->tell(problem.getTimeStepNumber() - 1);
        if (RunExit::isInterrupted() && !isInterrupted) {
            isInterrupted = true;
            problem.setMaxTimeStepsNumber(problem.getTimeStepNumber() - 1);
        }
    });
    RunExit::enter(RunExit::RUNNING);
    const int result = problem.run(*progress);
    RunExit::enter(RunExit::USUAL);
    problem.setWatcher({});
    RunProgress::endLine();
    std::cout.flush();
    const double seconds = progress->seconds();
    if (result == 0 && !mOptions.mIsQuiet) {
        const auto steps = static_cast<double>(problem.getTimeStepNumber() - 1);
        std::cerr << steps << " steps in " << secondsText(seconds) << "\n";
        const RunSummary summary;
        summary.writeFiles(std::cerr, output.string());
        if (mOptions.mIsPlotted) {
            summary.writePlot(std::cerr);
        }
    }
    if (result == 0 && !table.empty() && !RunSummary().writeTable(table)) {
        std::cerr << "quorvex-run: the table " << table << " cannot be written\n";
        return RunExit::FAILED;
    }
    if (result == 0 && !exported.empty() && !exportRun(exported)) {
        return RunExit::FAILED;
    }
    return finish(problem, result, isInterrupted);
}

bool RunProgram::exportRun(const std::string& fileName)
{
    RunExport results("");
    switch (results.write(fileName, [] { return false; })) {
    case RunExport::WRITTEN:
        return true;
    case RunExport::UNREADABLE:
        std::cerr << "quorvex-run: nothing is exported: " << results.getMessage() << "\n";
        return false;
    default:
        std::cerr << "quorvex-run: the file " << fileName << " cannot be written\n";
        return false;
    }
}

int RunProgram::exportResults() const
{
    RunExit::catchInterrupts();
    RunExport results((std::filesystem::path(mOptions.mResults) / "").string());
    switch (results.write(mOptions.mExportFile, [] { return RunExit::isInterrupted(); })) {
    case RunExport::WRITTEN:
        return EXIT_SUCCESS;
    case RunExport::UNREADABLE:
        throw RunError("nothing is exported: " + results.getMessage());
    case RunExport::STOPPED:
        std::cerr << "quorvex-run: interrupted; nothing is exported\n";
        return RunExit::INTERRUPTED;
    default:
        throw RunError("the file " + mOptions.mExportFile + " cannot be written");
    }
}

int RunProgram::finish(const QV_1DProblem& problem, int result, bool isInterrupted) const
{
    if (result < 0) {
        std::cerr << "quorvex-run: the run failed: "
                  << (result == QV_Problem::RABBI_FREQUENCY_ERROR
                          ? "the largest dipole is 0, so there is no Rabi frequency"
                          : "the lines above say why")
                  << "\n";
        return RunExit::FAILED;
    }
    if (!problem.isSavingComplete()) {
        std::cerr << "quorvex-run: the result files are incomplete\n";
        return RunExit::FAILED;
    }
    if (isInterrupted) {
        std::cerr << "quorvex-run: interrupted after step " << problem.getTimeStepNumber() - 1
                  << "\n";
        return RunExit::INTERRUPTED;
    }
    return EXIT_SUCCESS;
}
