#include "BenchProblem.h"
#include "common/COM_Scoped.h"
#include "QuietDirectory.h"
#include "quorvex/QV_InstructionSet.h"
#include "quorvex/QV_Pack.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/ptrace.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

// The arithmetic of a time step: a child process solves a problem, and one step of it is gone through instruction by
// instruction. Additions, subtractions, multiplications and divisions count once for each number that they work on.
// Beside it what the core can do at its best: multiplications and additions of registers. QUORVEX_INSTRUCTIONS chooses
// the variant. Lines "operations SCHEME LEVELS NUMBER", a node-step, and "peak NUMBER", a second. It reads the
// instructions of x86-64 alone.

namespace {

constexpr unsigned long nodes = 1000;
constexpr unsigned long steps = 1500; // the wave has filled the mesh after 1250
constexpr unsigned long counted = 1400;

using Counts = std::map<unsigned long, unsigned long>; // by address

/// Solves, traced by the parent, and stops before and after the step that is counted.
[[noreturn]] void solve(const BenchProblem& properties, const std::string& path)
{
    const COM_Scoped problem(properties.create());
    problem->setSavingPath(path);
    unsigned long step = 0;
    problem->setWatcher([&step] {
        ++step;
        if (step + 1 == counted || step == counted) {
            std::raise(SIGSTOP);
        }
    });
    const COM_Scoped out(COM_Out::New());
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0) {
        problem->run(*out);
    }
    std::_Exit(0);
}

/// The signal that the child has come to a stop by; 0 when it has ended.
int nextStop(pid_t child)
{
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFSTOPPED(status) ? WSTOPSIG(status) : 0;
}

/// How often the counted step comes by each instruction.
Counts stepThrough(const BenchProblem& properties)
{
    const QuietDirectory directory; // the parent's, since the child ends by a signal
    const pid_t child = fork();
    if (child == 0) {
        solve(properties, directory.slashed());
    }
    Counts counts;
    if (nextStop(child) != SIGSTOP) {
        throw std::runtime_error("the run could not be traced to the step that is counted");
    }
    int stop = SIGTRAP;
    while (stop == SIGTRAP) {
        user_regs_struct registers{};
        ptrace(PTRACE_GETREGS, child, nullptr, &registers);
        ++counts[registers.rip];
        ptrace(PTRACE_SINGLESTEP, child, nullptr, nullptr);
        stop = nextStop(child);
    }
    if (stop != SIGSTOP) {
        throw std::runtime_error("the run did not come to the end of the step that is counted");
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return counts;
}

/// Where this program was loaded.
unsigned long loadAddress()
{
    std::ifstream maps("/proc/self/maps");
    unsigned long address = 0;
    maps >> std::hex >> address;
    return address;
}

/// Numbers that an instruction adds, subtracts, multiplies or divides, by its text: "vaddpd %zmm0,%zmm1,%zmm2".
unsigned long width(const std::string& mnemonic, const std::string& operands)
{
    const std::string name = mnemonic.substr(mnemonic[0] == 'v' ? 1 : 0);
    for (const char* operation : {"add", "sub", "mul", "div"}) {
        if (name == operation + std::string("sd")) {
            return 1;
        }
        if (name == operation + std::string("pd")) {
            return operands.find("zmm") != std::string::npos   ? 8
                   : operands.find("ymm") != std::string::npos ? 4
                                                               : 2;
        }
    }
    return 0;
}

/// The instructions of this program that are arithmetic, by address.
std::map<unsigned long, unsigned long> arithmetic()
{
    std::map<unsigned long, unsigned long> widths;
    std::FILE* const listing = popen("objdump -d --no-show-raw-insn /proc/$PPID/exe", "r");
    char line[1024];
    while (listing != nullptr && std::fgets(line, sizeof line, listing) != nullptr) {
        std::istringstream words(line);
        unsigned long address = 0;
        char colon = 0;
        std::string mnemonic;
        std::string operands;
        if (words >> std::hex >> address >> colon >> mnemonic && colon == ':') {
            std::getline(words, operands);
            if (const unsigned long w = width(mnemonic, operands)) {
                widths[address] = w;
            }
        }
    }
    if (listing == nullptr || pclose(listing) != 0 || widths.empty()) {
        throw std::runtime_error("objdump cannot be run");
    }
    return widths;
}

constexpr int chains = 12; // more than an instruction takes cycles, on two units

/// `count` operations with each of `chains` registers.
template <int W>
[[gnu::always_inline]] inline double turns(long count)
{
    using Real = typename QV_PackType<W>::Real;
    Real x[chains];
    for (int i = 0; i < chains; ++i) {
        x[i] = Real{} + (1.0 + i);
    }
    for (long turn = 0; turn < count; ++turn) {
#pragma GCC unroll 12
        for (int i = 0; i < chains; i += 2) {
            x[i] = x[i] * 0.999999;
            x[i + 1] = x[i + 1] + 1e-9;
        }
    }
    double sum = 0.0;
    for (int i = 0; i < chains; ++i) {
        sum += x[i][0];
    }
    return sum;
}

double turnsBaseline(long count)
{
    return turns<2>(count);
}
[[gnu::target("avx2")]] double turnsAvx2(long count)
{
    return turns<4>(count);
}
[[gnu::target("avx512f")]] double turnsAvx512(long count)
{
    return turns<8>(count);
}

/// Operations a second, the best of many short measurements.
double peak()
{
    const QV_InstructionSet::Level level = QV_InstructionSet::best();
    struct Loop
    {
        double (*mRun)(long count);
        double mWidth;
    };
    const Loop loop = level == QV_InstructionSet::AVX512 ? Loop{turnsAvx512, 8.0}
                      : level == QV_InstructionSet::AVX2 ? Loop{turnsAvx2, 4.0}
                                                         : Loop{turnsBaseline, 2.0};
    constexpr long count = 1000000;
    double best = 0.0;
    for (int i = 0; i < 300; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        const double result = loop.mRun(count);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        if (result == 0.0) {
            throw std::runtime_error("the loop of the peak was not run");
        }
        best = std::max(best, chains * loop.mWidth * count / time.count());
    }
    return best;
}

void printAll()
{
    std::printf("peak %.4g\n", peak());
    std::fflush(stdout);
    const auto widths = arithmetic();
    const unsigned long start = loadAddress();
    for (const unsigned long levels : {2UL, 3UL, 4UL}) {
        for (unsigned char method = 0; method < QV_Problem::mMethodsNameLength; ++method) {
            BenchProblem problem;
            problem.mMethod = method;
            problem.mLevels = levels;
            problem.mNodes = nodes;
            problem.mSteps = steps;
            unsigned long operations = 0;
            for (const auto& [address, times] : stepThrough(problem)) {
                const auto entry = widths.find(address - start);
                operations += entry != widths.end() ? times * entry->second : 0;
            }
            std::printf("operations %s %lu %.1f\n", QV_Problem::mMethodsName[method], levels,
                        static_cast<double>(operations) / nodes);
            std::fflush(stdout);
        }
    }
}

} // namespace

int main()
{
    try {
        printAll();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
