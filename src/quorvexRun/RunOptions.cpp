#include "quorvexRun/RunOptions.h"

#include "common/COM_CommandLine.h"
#include "quorvex/QV_Results.h"
#include "quorvexRun/RunError.h"
#include "quorvexRun/RunSettings.h"

#include <filesystem>

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
    EXPORT,
    RESULTS,
    PLOT,
    PROGRESS,
    VERSION,
    HELP
};

using Line = COM_CommandLine;

constexpr Line::Option known[] = {{"output", OUTPUT, Line::SOME_VALUE},
                                  {"steps", STEPS, Line::ANY_VALUE},
                                  {"method", METHOD, Line::SOME_VALUE},
                                  {"set", SET, Line::ANY_VALUE},
                                  {"default", DEFAULT, Line::NO_VALUE},
                                  {"check", CHECK, Line::NO_VALUE},
                                  {"force", FORCE, Line::NO_VALUE},
                                  {"write-xml", WRITE_XML, Line::SOME_VALUE},
                                  {"write-project", WRITE_PROJECT, Line::SOME_VALUE},
                                  {"table", TABLE, Line::SOME_VALUE},
                                  {"export", EXPORT, Line::SOME_VALUE},
                                  {"results", RESULTS, Line::SOME_VALUE},
                                  {"plot", PLOT, Line::NO_VALUE},
                                  {"quiet", QUIET, Line::NO_VALUE},
                                  {"progress", PROGRESS, Line::ANY_VALUE},
                                  {"version", VERSION, Line::NO_VALUE},
                                  {"help", HELP, Line::NO_VALUE}};

unsigned long stepsOf(const std::string& text)
{
    const std::optional<unsigned long> steps = Line::numberOf(text);
    if (!steps) {
        throw RunError("--steps takes a whole number from 0 on, not \"" + text + "\"");
    }
    return *steps;
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

/// Results must not be replaced by the table that is made of them.
std::string exportFileOf(const std::string& file)
{
    if (QV_Results::isResultFileName(std::filesystem::path(file).filename().string())) {
        throw RunError("--export takes another name than that of a result file, not \"" + file
                       + "\"");
    }
    return file;
}

} // namespace

bool RunOptions::isAboutARun() const
{
    return mIsDefault || mSteps || mIsCheckOnly || mIsForced || mIsPlotted || isSavedOnly()
           || !mOutput.empty() || !mMethod.empty() || !mSettings.empty() || !mTableFile.empty();
}

RunOptions RunOptions::parse(int argc, char** argv)
{
    RunOptions options;
    COM_CommandLine line("quorvex-run", known, argc, argv);
    for (int result = 0; (result = line.next()) != COM_CommandLine::END;) {
        const std::string& value = line.value();
        switch (result) {
        case OUTPUT:
            options.mOutput = value;
            break;
        case STEPS:
            options.mSteps = stepsOf(value);
            break;
        case QUIET:
            options.mIsQuiet = true;
            break;
        case METHOD:
            options.mMethod = value;
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
            options.mXmlFile = value;
            break;
        case WRITE_PROJECT:
            options.mProjectDirectory = value;
            break;
        case TABLE:
            options.mTableFile = value;
            break;
        case EXPORT:
            options.mExportFile = exportFileOf(value);
            break;
        case RESULTS:
            options.mResults = value;
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
            throw RunError(line.error());
        }
    }
    if (options.mIsHelp || options.mIsVersion) {
        return options;
    }
    const std::vector<std::string> inputs = line.operands();
    if (!options.mResults.empty()) {
        if (options.mExportFile.empty()) {
            throw RunError("--results needs --export FILE, which says where to write them");
        }
        if (!inputs.empty() || options.isAboutARun()) {
            throw RunError(
                "--results runs nothing: besides it only --export and --quiet are taken");
        }
        return options;
    }
    if (options.mIsDefault && !inputs.empty()) {
        throw RunError("--default starts from the default problem and takes no input");
    }
    if (!options.mIsDefault && inputs.size() != 1) {
        throw RunError(
            std::string(inputs.empty() ? "no input is given" : "more than one input is given")
            + "; it takes one: a project directory, a parameters file (.xml), or a directory with "
              "qv1.dat");
    }
    options.mInput = options.mIsDefault ? "" : inputs.front();
    return options;
}

std::string RunOptions::helpText()
{
    return "usage: quorvex-run [OPTIONS] INPUT\n"
           "       quorvex-run --export FILE --results DIR\n"
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
           "      --export FILE    after the run, writes the same as comma separated values "
           "(.csv)\n"
           "      --results DIR    takes the results in DIR in place of running: --export alone "
           "goes "
           "with it\n"
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
