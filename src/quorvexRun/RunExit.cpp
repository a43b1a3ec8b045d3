#include "quorvexRun/RunExit.h"

#include "quorvexRun/RunProgress.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <unistd.h>

namespace {

RunExit::Phase currentPhase = RunExit::USUAL;
std::string currentInput;
volatile std::sig_atomic_t interrupts = 0;

void endFromInside()
{
    if (currentPhase == RunExit::USUAL) {
        return;
    }
    std::cout.flush();
    std::fflush(nullptr);
    RunProgress::endLine();
    const bool isReading = currentPhase == RunExit::READING;
    if (isReading) {
        std::cerr << "quorvex-run: " << currentInput
                  << " holds a word that is not known; the lines above name it and what there is "
                     "to choose from\n";
    } else {
        std::cerr << "quorvex-run: the run ended before its last step; the lines above say why\n";
    }
    _exit(isReading ? RunExit::BAD_INPUT : RunExit::FAILED);
}

void countInterrupt(int /*signal*/)
{
    interrupts = 1;
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

} // namespace

void RunExit::enter(Phase phase, const std::string& input)
{
    static const bool isRegistered = std::atexit(endFromInside) == 0;
    currentPhase = isRegistered ? phase : USUAL;
    currentInput = input;
}

void RunExit::catchInterrupts()
{
    struct sigaction action
    {};
    action.sa_handler = countInterrupt;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

void RunExit::outliveFullDisks()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

bool RunExit::isInterrupted()
{
    return interrupts != 0;
}
