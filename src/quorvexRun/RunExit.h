#pragma once
#include <string>

/// What the program says and answers when the solver ends the process from inside, and what it does with an
/// interrupt.
///
/// Deep in the solver bad words and files that cannot be made end the process with status 0. For a script that
/// would look like success, so the end is turned into the status that belongs to the present phase.
class RunExit
{
public:
    enum Phase {
        USUAL,   ///< The process ends with the status it was given.
        READING, ///< An end from inside is bad input.
        RUNNING  ///< An end from inside is a failed run.
    };

    static constexpr int FAILED = 1;
    static constexpr int BAD_INPUT = 2;
    static constexpr int INTERRUPTED = 130;

    /// Enters a phase; `input` is named in the message of `READING`.
    static void enter(Phase phase, const std::string& input = {});
    /// From now on an interrupt is remembered; a second one ends the process at once.
    static void catchInterrupts();
    /// A file that becomes larger than the user may write is a failed write, not the end of the process.
    static void outliveFullDisks();
    static bool isInterrupted();
};
