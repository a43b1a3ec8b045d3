#include "common/COM_CommandLine.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <getopt.h>

namespace {

constexpr int lastLetter = 255;

} // namespace

COM_CommandLine::COM_CommandLine(const char* program, std::span<const Option> options, int argc,
                                 char** argv)
    : mProgram(program)
    , mOptions(options)
    , mArgc(argc)
    , mArgv(argv)
{
    optind = 0; // a fresh start, should one process read several
    opterr = 0;
}

int COM_CommandLine::next()
{
    std::string letters = ":";
    std::vector<option> names;
    for (const Option& known : mOptions) {
        const bool hasValue = known.mValue != NO_VALUE;
        names.push_back(
            {known.mName, hasValue ? required_argument : no_argument, nullptr, known.mId});
        if (known.mId <= lastLetter) {
            letters += static_cast<char>(known.mId);
            letters += hasValue ? ":" : "";
        }
    }
    names.push_back({nullptr, 0, nullptr, 0});
    const int result = getopt_long(mArgc, mArgv, letters.c_str(), names.data(), nullptr);
    mValue = result != END && optarg != nullptr ? optarg : "";
    if (result == END) {
        return END;
    }
    if (result == ':' || result == '?') {
        return fail(reasonFor(result));
    }
    const Option* const found = find(result);
    return found->mValue == SOME_VALUE && mValue.empty()
               ? fail(std::string("the option --") + found->mName + " needs a value")
               : result;
}

const COM_CommandLine::Option* COM_CommandLine::find(int id) const
{
    const auto found = std::find_if(mOptions.begin(), mOptions.end(),
                                    [id](const Option& known) { return known.mId == id; });
    return found == mOptions.end() ? nullptr : &*found;
}

int COM_CommandLine::fail(const std::string& reason)
{
    mError = reason + "; " + mProgram + " --help lists the options";
    return WRONG;
}

std::string COM_CommandLine::reasonFor(int result) const
{
    const Option* const known = find(optopt);
    const std::string typed = mArgv[optind - 1];
    const std::string name = known != nullptr && typed.starts_with("--")
                                 ? std::string("--") + known->mName
                                 : std::string("-") + static_cast<char>(optopt);
    if (result == ':') {
        return "the option " + name + " needs a value";
    }
    if (known != nullptr) {
        return "the option " + name + " takes no value";
    }
    return "unknown or ambiguous option " + (optopt != 0 ? name : typed);
}

std::vector<std::string> COM_CommandLine::operands() const
{
    return {mArgv + optind, mArgv + mArgc};
}

std::optional<unsigned long> COM_CommandLine::numberOf(const std::string& text)
{
    const bool isNumber = !text.empty()
                          && std::all_of(text.begin(), text.end(),
                                         [](unsigned char c) { return std::isdigit(c) != 0; });
    errno = 0;
    const unsigned long number = std::strtoul(text.c_str(), nullptr, 10);
    return isNumber && errno != ERANGE ? std::optional(number) : std::nullopt;
}
