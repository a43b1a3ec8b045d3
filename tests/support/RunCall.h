#pragma once
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

class TestDirectory;

/// A call of one of the programs without windows, in a process of its own, as on a machine without display, and with
/// what it prints read through pipes.
///
/// The process is ended with the object at the latest, and by its own alarm should the test be gone.
class RunCall
{
public:
    /// What a call has left behind.
    struct End
    {
        int mStatus; ///< See finish().
        std::string mOut;
        std::string mError;
        std::string mComplaint; ///< See complaint().
    };

    /// The command line without the program's name; the working directory of the process.
    RunCall(std::vector<std::string> arguments, std::filesystem::path directory);
    ~RunCall();
    RunCall(const RunCall&) = delete;
    RunCall& operator=(const RunCall&) = delete;

    /// Done in the new process before the program begins.
    void setPreparation(std::function<void()> preparation);
    /// Makes standard error a terminal.
    void useTerminal() { mIsTerminal = true; }

    void start();
    /// Reads until standard error holds `text`. False when the process closes it before.
    bool readErrorUntil(const std::string& text);
    /// Waits, without reading, until standard output takes no more.
    bool waitUntilOutIsFull() const;
    /// Waits until the process does not handle `signal` by itself any more, as after the first one.
    bool waitUntilDefault(int signal) const;
    bool isRunning() const;
    void kill(int signal) const;
    /// Starts the process if need be, and reads to its end. The value that it ended with, or minus
    /// the number of the signal that ended it.
    int finish();

    /// Reads to its end as finish() does.
    End end();

    /// Standard output and standard error, as far as they were read.
    const std::string& out() const { return mOut; }
    const std::string& error() const { return mError; }
    /// The line of standard error in which the program refuses, without the program's name. It is the last
    /// one and the only one of its kind, else this is empty.
    std::string complaint() const;

private:
    using Clock = std::chrono::steady_clock;

    /// Reads what is there, or waits for it. False when both ends are closed.
    bool read();
    void readFrom(int& handle, std::string& text);
    /// In the new process.
    [[noreturn]] void become(int program, int out, int error);
    static bool waitFor(const std::function<bool()>& condition);

    std::vector<std::string> mArguments;
    std::filesystem::path mDirectory;
    std::function<void()> mPreparation;
    bool mIsTerminal = false;
    pid_t mProcess = -1;   ///< Negative before the start and after the end.
    int mOutHandle = -1;   ///< Our end of standard output; negative when closed.
    int mErrorHandle = -1; ///< Our end of standard error, likewise.
    Clock::time_point mLatest;
    std::string mOut;
    std::string mError;
};

/// A whole call with the directory as working directory. See RunCall::setPreparation().
RunCall::End call(const TestDirectory& directory, const std::vector<std::string>& arguments,
                  const std::function<void()>& preparation = {});
// What `--version` and `--help` leave: the program's name with the version, and the usage with a line for each option.
void expectVersion(const std::string& version);
void expectHelp(const std::string& usage, const std::vector<std::string>& options);
