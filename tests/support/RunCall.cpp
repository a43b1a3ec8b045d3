#include "support/RunCall.h"

#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <pty.h>
#include <sstream>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr std::chrono::seconds patience(60);
constexpr std::chrono::milliseconds breath(5);
/// As its file is called.
const std::string programName = std::filesystem::path(QUORVEX_CALLED_PROGRAM).filename().string();

void closeHandle(int& handle)
{
    if (handle >= 0) {
        ::close(handle);
        handle = -1;
    }
}

} // namespace

RunCall::RunCall(std::vector<std::string> arguments, std::filesystem::path directory)
    : mArguments(std::move(arguments))
    , mDirectory(std::move(directory))
{
    mArguments.insert(mArguments.begin(), programName);
}

RunCall::~RunCall()
{
    closeHandle(mOutHandle);
    closeHandle(mErrorHandle);
    if (mProcess > 0) {
        ::kill(mProcess, SIGKILL);
        waitpid(mProcess, nullptr, 0);
    }
}

void RunCall::setPreparation(std::function<void()> preparation)
{
    mPreparation = std::move(preparation);
}

void RunCall::start()
{
    // Opened beforehand: the preparation may take the right to look into the program's directory.
    const int program = open(QUORVEX_CALLED_PROGRAM, O_RDONLY | O_CLOEXEC);
    ASSERT_GE(program, 0) << QUORVEX_CALLED_PROGRAM;
    int out[2] = {-1, -1};
    int error[2] = {-1, -1};
    ASSERT_EQ(pipe2(out, O_CLOEXEC), 0);
    if (mIsTerminal) {
        termios settings{};
        cfmakeraw(&settings); // no carriage return in front of a line's end
        ASSERT_EQ(openpty(&error[0], &error[1], nullptr, &settings, nullptr), 0);
        fcntl(error[0], F_SETFD, FD_CLOEXEC);
        fcntl(error[1], F_SETFD, FD_CLOEXEC);
    } else {
        ASSERT_EQ(pipe2(error, O_CLOEXEC), 0);
    }
    mOutHandle = out[0];
    mErrorHandle = error[0];
    mLatest = Clock::now() + patience;
    mProcess = fork();
    if (mProcess == 0) {
        become(program, out[1], error[1]);
    }
    ::close(out[1]);
    ::close(error[1]);
    ::close(program);
    ASSERT_GT(mProcess, 0);
}

void RunCall::become(int program, int out, int error)
{
    alarm(static_cast<unsigned>(patience.count()));
    const int nothing = open("/dev/null", O_RDONLY);
    if (dup2(nothing, STDIN_FILENO) < 0 || dup2(out, STDOUT_FILENO) < 0
        || dup2(error, STDERR_FILENO) < 0 || chdir(mDirectory.c_str()) != 0) {
        _exit(98);
    }
    // The arithmetic trap stays a signal under AddressSanitizer, also where ctest has not said so.
    setenv("ASAN_OPTIONS", "handle_sigfpe=0", 0);
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"}) {
        unsetenv(name);
    }
    if (mPreparation) {
        mPreparation();
    }
    std::vector<char*> words;
    for (std::string& argument : mArguments) {
        words.push_back(argument.data());
    }
    words.push_back(nullptr);
    fexecve(program, words.data(), environ);
    _exit(97);
}

bool RunCall::waitFor(const std::function<bool()>& condition)
{
    const Clock::time_point latest = Clock::now() + patience;
    while (!condition()) {
        if (Clock::now() > latest) {
            return false;
        }
        std::this_thread::sleep_for(breath);
    }
    return true;
}

bool RunCall::read()
{
    // A negative handle is passed over.
    pollfd handles[] = {{mOutHandle, POLLIN, 0}, {mErrorHandle, POLLIN, 0}};
    if (mOutHandle < 0 && mErrorHandle < 0) {
        return false;
    }
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(mLatest - Clock::now());
    if (poll(handles, 2, static_cast<int>(std::max<long>(left.count(), 0))) <= 0) {
        ADD_FAILURE() << "the program has not ended in time";
        kill(SIGKILL);
        closeHandle(mOutHandle);
        closeHandle(mErrorHandle);
        return false;
    }
    if (handles[0].revents != 0) {
        readFrom(mOutHandle, mOut);
    }
    if (handles[1].revents != 0) {
        readFrom(mErrorHandle, mError);
    }
    return true;
}

void RunCall::readFrom(int& handle, std::string& text)
{
    char piece[65536];
    const ssize_t size = ::read(handle, piece, sizeof piece);
    if (size > 0) {
        text.append(piece, static_cast<std::size_t>(size));
    } else if (size == 0 || errno != EINTR) { // a terminal that nobody holds gives an error
        closeHandle(handle);
    }
}

bool RunCall::readErrorUntil(const std::string& text)
{
    while (mError.find(text) == std::string::npos) {
        if (mErrorHandle < 0 || !read()) {
            return false;
        }
    }
    return true;
}

bool RunCall::waitUntilOutIsFull() const
{
    const int capacity = fcntl(mOutHandle, F_GETPIPE_SZ);
    return waitFor([this, capacity] {
        int waiting = 0;
        return ioctl(mOutHandle, FIONREAD, &waiting) == 0 && waiting > capacity - 4096;
    });
}

bool RunCall::waitUntilDefault(int signal) const
{
    return waitFor([this, signal] {
        std::ifstream status("/proc/" + std::to_string(mProcess) + "/status");
        std::string word;
        while (status >> word && word != "SigCgt:") {
        }
        status >> word;
        return ((std::stoull("0" + word, nullptr, 16) >> (signal - 1)) & 1U) == 0;
    });
}

bool RunCall::isRunning() const
{
    siginfo_t information{};
    return mProcess > 0
           && waitid(P_PID, static_cast<id_t>(mProcess), &information, WEXITED | WNOHANG | WNOWAIT)
                  == 0
           && information.si_pid == 0;
}

void RunCall::kill(int signal) const
{
    if (mProcess > 0) {
        ::kill(mProcess, signal);
    }
}

int RunCall::finish()
{
    constexpr int lost = -1000;
    if (mProcess < 0) {
        start();
    }
    while (read()) {
    }
    int status = 0;
    if (mProcess < 0 || waitpid(mProcess, &status, 0) != mProcess) {
        return lost;
    }
    mProcess = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

RunCall::End RunCall::end()
{
    const int status = finish();
    return {status, mOut, mError, complaint()};
}

std::string RunCall::complaint() const
{
    const std::string begin = programName + ": ";
    std::istringstream lines(mError);
    std::string line;
    std::string last;
    int complaints = 0;
    while (std::getline(lines, line)) {
        complaints += line.find(begin) != std::string::npos ? 1 : 0;
        last = line;
    }
    const bool isClear = complaints == 1 && last.starts_with(begin) && mError.ends_with('\n');
    return isClear ? last.substr(begin.size()) : "";
}

RunCall::End call(const TestDirectory& directory, const std::vector<std::string>& arguments,
                  const std::function<void()>& preparation)
{
    RunCall run(arguments, directory.path());
    run.setPreparation(preparation);
    return run.end();
}

void expectVersion(const std::string& version)
{
    const TestDirectory directory;
    const RunCall::End end = call(directory, {"--version"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(end.mOut, programName + " " + version + "\n");
    EXPECT_EQ(end.mError, "");
}

void expectHelp(const std::string& usage, const std::vector<std::string>& options)
{
    const TestDirectory directory;
    const RunCall::End end = call(directory, {"--help"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(end.mError, "");
    EXPECT_TRUE(end.mOut.starts_with(usage)) << end.mOut;
    for (const std::string& option : options) {
        EXPECT_NE(end.mOut.find(" " + option), std::string::npos) << option;
    }
}
