#pragma once
#include "quorvex/QV_Results.h"

#include <functional>
#include <ostream>
#include <string>
#include <utility>

/// The results of a run as one file of comma separated values, for spreadsheets and numerical languages.
///
/// The first line names the columns, each with its captor and unit; then comes a line for each step. Decimal
/// marks are points in every locale. A cell beyond the end of its result file is empty. Results are read and
/// written step by step, so that their length takes no memory.
class RunExport
{
public:
    enum Result {
        WRITTEN,
        UNREADABLE, ///< Results are not there, or not to be read; `getMessage` says which.
        UNWRITABLE,
        STOPPED
    };

    /// `directory` holds the results. It stands in front of their names as it is, so it ends in a slash; empty,
    /// it is the working directory.
    explicit RunExport(std::string directory)
        : mDirectory(std::move(directory))
    {}

    /// Writes the file whole or, unless the result is `WRITTEN`, not at all. `isStopped` is asked now and then.
    Result write(const std::string& fileName, const std::function<bool()>& isStopped);
    /// Why the results are unreadable, as a sentence without line end.
    const std::string& getMessage() const { return mMessage; }

private:
    /// No name holds a comma, a quote or a line end, so that none needs quoting.
    static void writeHeader(std::ostream& out, const QV_Results::Rows& rows);
    /// `text` is working space, kept from row to row.
    static void writeRow(std::ostream& out, const QV_Results::Rows& rows, std::string& text);

    std::string mDirectory;
    std::string mMessage;
};
