#pragma once
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// The command line of `quorvex-run`.
struct RunOptions
{
    enum Progress { AUTO, ALWAYS, NEVER };

    std::string mInput;  ///< Project directory, parameters file, or directory with qv1.dat.
    std::string mOutput; ///< Directory of the results; empty for the input's own.
    std::optional<unsigned long> mSteps;
    std::string mMethod; ///< Name of a method; empty for the input's own.
    std::vector<std::pair<std::string, std::string>> mSettings; ///< Keys and values, in order.
    std::string mXmlFile;          ///< Save the problem here in place of running it; empty: run.
    std::string mProjectDirectory; ///< The same as a project.
    std::string mTableFile;        ///< After the run, all captors as one table; empty: none.
    std::string mExportFile;       ///< The same as comma separated values.
    std::string mResults; ///< Directory of results that are exported in place of a run; empty: run.
    bool mIsDefault = false; ///< Start from the default problem; there is no input then.
    bool mIsCheckOnly = false;
    bool mIsForced = false;
    bool mIsQuiet = false;
    bool mIsPlotted = false; ///< After the run, a small picture of what the captors saw.
    bool mIsHelp = false;
    bool mIsVersion = false;
    Progress mProgress = AUTO;

    /// Reads the command line; throws RunError.
    static RunOptions parse(int argc, char** argv);
    static std::string helpText();

    /// Whether anything was asked for that only a run, or a problem, can give.
    bool isAboutARun() const;
    bool isSavedOnly() const { return !mXmlFile.empty() || !mProjectDirectory.empty(); }
};
