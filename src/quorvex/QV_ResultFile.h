#pragma once
#include <cstdio>
#include <string>

/// One open result file, written line by line through a large buffer.
///
/// Lines reach the disk when the buffer is full, at `close`, or when the process ends through `exit`. A
/// failure to write shows at `close`.
class QV_ResultFile
{
public:
    QV_ResultFile() = default;
    ~QV_ResultFile() { close(); }
    QV_ResultFile(QV_ResultFile&& file) noexcept
        : mFile(file.mFile)
        , mName(std::move(file.mName))
    {
        file.mFile = nullptr;
    }
    QV_ResultFile& operator=(QV_ResultFile&&) = delete;
    QV_ResultFile(const QV_ResultFile&) = delete;
    QV_ResultFile& operator=(const QV_ResultFile&) = delete;

    /// Empties or makes the file. When it cannot be made the process ends with status 0, after a line on
    /// standard output that names it.
    void openOrExit(const std::string& name);
    /// The same without an end: false when it cannot be made.
    bool open(const std::string& name);
    bool isOpen() const { return mFile != nullptr; }
    void write(const std::string& line)
    {
        if (mFile != nullptr) {
            fwrite_unlocked(line.data(), 1, line.size(), mFile); // a file is one thread's
        }
    }
    /// False, after a line on standard error, when not everything could be written. A closed file is
    /// left alone.
    bool close();

    /// Text of printf's "%lf": fixed point with six decimals, whatever the locale.
    static std::string fixedText(double x);
    /// Allows the process as many open files as the system permits it.
    static void raiseOpenFilesLimit();

private:
    std::FILE* mFile = nullptr; ///< Owned.
    std::string mName;
};
