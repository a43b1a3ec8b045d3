#pragma once
#include <filesystem>
#include <string>
#include <vector>

class QV_1DProblem;

/// Finds what the user means by INPUT, and reads it.
class RunInput
{
public:
    /// The default problem.
    RunInput();
    /// Where `input` leads. Throws RunError when it is nothing that can be run.
    explicit RunInput(const std::string& input);

    /// Reads the problem; the caller releases it. Throws RunError for a file that cannot be read, is cut off,
    /// binary, or holds something else. Words in older files that nobody knows end the process: see
    /// RunExit.
    QV_1DProblem* read();

    /// Where results go unless the user says otherwise.
    std::filesystem::path usualOutput() const { return mUsualOutput; }
    /// The file that holds the parameters, or the directory of the older files.
    std::filesystem::path file() const { return mFile; }
    /// What the user should know about the reading, a sentence each.
    const std::vector<std::string>& remarks() const { return mRemarks; }

private:
    QV_1DProblem* readXml();
    QV_1DProblem* readOlder();

    enum Kind { DEFAULT, XML, OLDER };

    Kind mKind = XML; ///< OLDER is a directory with qv1.dat.
    std::filesystem::path mFile;
    std::filesystem::path mUsualOutput;
    std::vector<std::string> mRemarks;
};
