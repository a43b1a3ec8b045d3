#pragma once
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

/// Seconds: only what hangs takes that long, however busy the machine is.
constexpr unsigned childPatience = 100;

/// Starts `action` in a process of its own, which ends with what it returns, or by the alarm after `patience`
/// seconds. For what would change this process for good, or might never end.
template <typename Action>
pid_t startInChild(Action action, unsigned patience = childPatience)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(patience);
        _exit(action());
    }
    return child;
}

/// The value that the process ended with, or minus the number of the signal that ended it.
inline int endOfChild(pid_t child)
{
    int status = 0;
    if (waitpid(child, &status, 0) != child) {
        return -1000;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

template <typename Action>
int runInChild(Action action, unsigned patience = childPatience)
{
    return endOfChild(startInChild(action, patience));
}

/// Makes the process one that may not write everywhere, if it is the superuser's. For child processes.
inline void becomeOrdinaryUser()
{
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && setuid(nobody) != 0) {
        _exit(99);
    }
}
