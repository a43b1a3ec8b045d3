#include "quorvexRun/RunOptions.h"

#include "quorvexRun/RunError.h"
#include "quorvexRun/RunSettings.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <getopt.h>
#include <iterator>

namespace {

enum Option {
    OUTPUT = 'o',
    STEPS = 'n',
    QUIET = 'q',
    METHOD = 256,
    SET,
    DEFAULT,
    CHECK,
    FORCE,
    WRITE_XML,
    WRITE_PROJECT,
    TABLE,
    PLOT,
    PROGRESS,
    VERSION,
    HELP
};

constexpr option longOptions[] = {{"output", required_argument, nullptr, OUTPUT},
                                  {"steps", required_argument, nullptr, STEPS},
                                  {"method", required_argument, nullptr, METHOD},
                                  {"set", required_argument, nullptr, SET},
                                  {"default", no_argument, nullptr, DEFAULT},
                                  {"check", no_argument, nullptr, CHECK},
                                  {"force", no_argument, nullptr, FORCE},
                                  {"write-xml", required_argument, nullptr, WRITE_XML},
                                  {"write-project", required_argument, nullptr, WRITE_PROJECT},
                                  {"table", required_argument, nullptr, TABLE},
                                  {"plot", no_argument, nullptr, PLOT},
                                  {"quiet", no_argument, nullptr, QUIET},
                                  {"progress", required_argument, nullptr, PROGRESS},
                                  {"version", no_argument, nullptr, VERSION},
                                  {"help", no_argument, nullptr, HELP},
                                  {nullptr, 0, nullptr, 0}};

unsigned long stepsOf(const std::string& text)
{
    const bool isNumber = !text.empty()
                          && std::all_of(text.begin(), text.end(),
                                         [](unsigned char c) { return std::isdigit(c) != 0; });
    errno = 0;
    const unsigned long steps = std::strtoul(text.c_str(), nullptr, 10);
    if (!isNumber || errno == ERANGE) {
        throw RunError("--steps takes a whole number from 0 on, not \"" + text + "\"");
    }
    return steps;
}

RunOptions::Progress progressOf(const std::string& text)
{
    if (text == "auto") {
        return RunOptions::AUTO;
    }
    if (text == "always") {
        return RunOptions::ALWAYS;
    }
    if (text == "never") {
        return RunOptions::NEVER;
    }
    throw RunError("--progress takes auto, always or never, not \"" + text + "\"");
}

std::pair<std::string, std::string> settingOf(const std::string& text)
{
    const std::size_t equal = text.find('=');
    if (equal == std::string::npos || equal == 0) {
        throw RunError("--set takes KEY=VALUE, for instance mFieldMaxValue=4.2e9, not \"" + text
                       + "\"");
    }
    return {text.substr(0, equal), text.substr(equal + 1)};
}

constexpr const char* hint = "; quorvex-run --help lists the options";

/// What is wrong with the word that getopt stopped at.
std::string usageError(int result, char** argv)
{
    const option* const known =
        std::find_if(std::begin(longOptions), std::end(longOptions) - 1,
                     [](const option& candidate) { return candidate.val == optopt; });
    const std::string typed = argv[optind - 1];
    const bool isLong = typed.starts_with("--");
    const std::string name = isLong && known->name != nullptr
                                 ? std::string("--") + known->name
                                 : std::string("-") + static_cast<char>(optopt);
    if (result == ':') {
        return "the option " + name + " needs a value" + hint;
    }
    if (known->name != nullptr) {
        return "the option " + name + " takes no value" + hint;
    }
    return "unknown or ambiguous option " + (optopt != 0 ? name : typed) + hint;
}

/// An empty value is one that a script has lost: without it the program would run where it was to save.
std::string valueOf(const char* name, const std::string& value)
{
    if (value.empty()) {
        throw RunError(std::string("the option ") + name + " needs a value" + hint);
    }
    return value;
}

} // namespace

RunOptions RunOptions::parse(int argc, char** argv)
{
    RunOptions options;
    optind = 0; // a fresh start, should the program's own tests call twice
    opterr = 0;
    for (int result = 0;
         (result = getopt_long(argc, argv, ":o:n:q", longOptions, nullptr)) != -1;) {
        const std::string value = optarg != nullptr ? optarg : "";
        switch (result) {
        case OUTPUT:
            options.mOutput = valueOf("--output", value);
            break;
        case STEPS:
            options.mSteps = stepsOf(value);
            break;
        case QUIET:
            options.mIsQuiet = true;
            break;
        case METHOD:
            options.mMethod = valueOf("--method", value);
            break;
        case SET:
            options.mSettings.push_back(settingOf(value));
            break;
        case DEFAULT:
            options.mIsDefault = true;
            break;
        case CHECK:
            options.mIsCheckOnly = true;
            break;
        case FORCE:
            options.mIsForced = true;
            break;
        case WRITE_XML:
            options.mXmlFile = valueOf("--write-xml", value);
            break;
        case WRITE_PROJECT:
            options.mProjectDirectory = valueOf("--write-project", value);
            break;
        case TABLE:
            options.mTableFile = valueOf("--table", value);
            break;
        case PLOT:
            options.mIsPlotted = true;
            break;
        case PROGRESS:
            options.mProgress = progressOf(value);
            break;
        case VERSION:
            options.mIsVersion = true;
            break;
        case HELP:
            options.mIsHelp = true;
            break;
        default:
            throw RunError(usageError(result, argv));
        }
    }
    if (options.mIsHelp || options.mIsVersion) {
        return options;
    }
    const int inputs = argc - optind;
    if (options.mIsDefault && inputs > 0) {
        throw RunError("--default starts from the default problem and takes no input");
    }
    if (!options.mIsDefault && inputs != 1) {
        throw RunError(
            std::string(inputs == 0 ? "no input is given" : "more than one input is given")
            + "; it takes one: a project directory, a parameters file (.xml), or a directory with "
              "qv1.dat");
    }
    options.mInput = options.mIsDefault ? "" : argv[optind];
    return options;
}

std::string RunOptions::helpText()
{
    return "usage: quorvex-run [OPTIONS] INPUT\n"
           "\n"
           "Sends a light pulse through a resonant medium and writes what the captors see.\n"
           "\n"
           "  INPUT                a project directory, a parameters file (.xml), or a directory "
           "with\n"
           "                       qv1.dat\n"
           "  -o, --output DIR     result files go here (default: the project directory, else\n"
           "                       ./resultats/); made if it is missing\n"
           "  -n, --steps N        number of time steps (a saved project does not carry it; 2000)\n"
           "      --method NAME    CN_Z, CN_P, CN_dtP, Relax, Split or pc\n"
           "      --set KEY=VALUE  overrides a parameter by its key in the parameters file, or by "
           "CLASS.KEY;\n"
           "                       may be given again and again; the keys are listed below\n"
           "      --default        takes the default problem in place of an INPUT\n"
           "      --check          only says what would stop or spoil the run, or is worth "
           "knowing\n"
           "      --force          runs in spite of what would spoil the run\n"
           "      --write-xml FILE     saves the problem in place of running it\n"
           "      --write-project DIR  saves it as a project in place of running it\n"
           "      --table FILE     after the run, writes what all captors saw as one table\n"
           "      --plot           after the run, draws what the captors saw\n"
           "  -q, --quiet          no progress, notes or summary\n"
           "      --progress=auto|always|never\n"
           "                       a live line on a terminal, else a line for each tenth of the "
           "run\n"
           "      --version\n"
           "      --help\n"
           "\n"
           "The log of the run goes to standard output, everything else to standard error.\n"
           "Exit status: 0 done, 1 the run failed, 2 bad usage or input (nothing was written),\n"
           "130 interrupted (the result files end with whole lines).\n"
           "\n"
           "Keys of --set:\n"
           + RunSettings::helpText();
}
