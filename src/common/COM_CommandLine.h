#pragma once
#include <optional>
#include <span>
#include <string>
#include <vector>

/// The command line of a program: its options one after the other, then the words that are none. Long options may
/// be cut as long as they are clear, and "--" ends them.
///
/// One at a time: the reading goes through the state of the C library.
class COM_CommandLine
{
public:
    enum Value {
        NO_VALUE,
        ANY_VALUE,
        SOME_VALUE ///< Not an empty one, which a script has lost.
    };

    struct Option
    {
        const char* mName; ///< Without its dashes.
        int mId;           ///< A letter is the short form too; above 255 there is none.
        Value mValue;
    };

    static constexpr int END = -1;
    static constexpr int WRONG = '?';

    /// Everything is borrowed; the words of `argv` may be put in another order.
    COM_CommandLine(const char* program, std::span<const Option> options, int argc, char** argv);

    /// The id of the next option, or `END`, or `WRONG` with an error.
    int next();
    /// Of the last option; empty without one.
    const std::string& value() const { return mValue; }
    /// What is wrong with the last option, and where help is.
    const std::string& error() const { return mError; }
    /// The words that are no options. Requires: `next` has given `END`.
    std::vector<std::string> operands() const;

    /// The number that the text is to the last character, written in digits alone.
    static std::optional<unsigned long> numberOf(const std::string& text);

private:
    const Option* find(int id) const;
    int fail(const std::string& reason);
    /// `result` is that of the C library for a wrong option.
    std::string reasonFor(int result) const;

    const char* mProgram;
    std::span<const Option> mOptions;
    int mArgc;
    char** mArgv;
    std::string mValue;
    std::string mError;
};
