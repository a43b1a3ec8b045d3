#include "quorvexRun/OlderFiles.h"
#include "quorvexRun/SavedProblem.h"
#include "support/ChildProcess.h"
#include "support/RunCall.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace {

using Words = std::vector<std::string>;
using End = RunCall::End;

Words operator+(Words words, const Words& more)
{
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

/// 40 nodes, of which 1, 11, 19, 27 and 38 are saved, and 20 steps by splitting, from nothing but options.
/// The length ends in the midst of a cell, so that no rounding changes the number of nodes.
const Words SMALL = {"--default", "--method=Split", "--set=mLength=3.0375e-6", "--steps=20"};

const Words SMALL_FILES = {"captors.res",          "level_Frequencies.res", "tps.res",
                           "E_at_1.res",           "Rho_Bloch0_at_1.res",   "E_at_11.res",
                           "Rho_Bloch0_at_11.res", "E_at_19.res",           "Rho_Bloch0_at_19.res",
                           "E_at_27.res",          "Rho_Bloch0_at_27.res",  "E_at_38.res",
                           "Rho_Bloch0_at_38.res"};

/// Names and contents of all that is in a directory. Links and pipes stand for themselves.
std::map<std::string, std::string> contentsOf(const std::filesystem::path& directory)
{
    std::map<std::string, std::string> contents;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) {
        std::string& text = contents[entry.path().lexically_relative(directory).string()];
        if (entry.is_symlink()) {
            text = "link to " + std::filesystem::read_symlink(entry.path()).string();
        } else if (entry.is_regular_file()) {
            std::ifstream stream(entry.path(), std::ios::binary);
            text.assign(std::istreambuf_iterator<char>(stream), {});
        } else {
            text = entry.is_directory() ? "directory" : "other";
        }
    }
    return contents;
}

Words sorted(Words words)
{
    std::sort(words.begin(), words.end());
    return words;
}

Words linesOf(const std::string& text)
{
    Words lines;
    std::istringstream stream(text);
    std::string line;
    while (std::getline(stream, line)) {
        lines.push_back(line);
    }
    return lines;
}

long count(const std::string& text, char letter)
{
    return std::count(text.begin(), text.end(), letter);
}

/// Lines of each file that has one for every step; -1 for a file whose last line is cut.
std::map<std::string, long> linesOfSteps(const std::filesystem::path& directory)
{
    std::map<std::string, long> lines;
    for (const auto& [name, text] : contentsOf(directory)) {
        if (name == "tps.res" || name.starts_with("E_at_") || name.starts_with("Rho_Bloch")) {
            lines[name] = text.empty() || text.back() == '\n' ? count(text, '\n') : -1;
        }
    }
    return lines;
}

/// The result files of a directory, to compare runs.
std::map<std::string, std::string> resultsIn(const std::filesystem::path& directory)
{
    std::map<std::string, std::string> results = contentsOf(directory);
    std::erase_if(results, [](const auto& file) { return !file.first.ends_with(".res"); });
    return results;
}

/// A text that may hold any byte.
template <std::size_t SIZE>
std::string bytes(const char (&literal)[SIZE])
{
    return {literal, SIZE - 1};
}

/// Leaves a directory "former" with what a run, and its user, have written there.
void writeFormerRun(const TestDirectory& directory)
{
    std::filesystem::create_directory(directory.path() / "former");
    for (const char* name :
         {"captors.res", "tps.res", "level_Frequencies.res", "E_at_1.res", "E_at_77.res",
          "Rho_Bloch0_at_1.res", "paramBeforeSolving.xml", "notes.txt", "own.res"}) {
        directory.write(std::string("former/") + name, std::string("former ") + name + "\n");
    }
}

} // namespace

// ---------------------------------------------------------------- usage

TEST(RunProgram, TheVersionIsOneLineOnStandardOutput)
{
    expectVersion(QUORVEX_VERSION);
}

TEST(RunProgram, TheHelpNamesEveryOptionAndGoesToStandardOutput)
{
    expectHelp("usage: quorvex-run [OPTIONS] INPUT\n",
               {"-o, --output DIR", "-n, --steps N", "--method NAME", "--set KEY=VALUE",
                "--default", "--check", "--force", "--write-xml FILE", "--write-project DIR",
                "--table FILE", "--export FILE", "--results DIR", "--plot", "-q, --quiet",
                "--progress=auto|always|never", "--version", "--help"});
}

TEST(RunProgram, AskingForHelpWritesNothing)
{
    const TestDirectory directory;
    writeFormerRun(directory);
    const auto before = contentsOf(directory.path());
    EXPECT_EQ(call(directory, {"-o", "former", "--help", "nowhere.xml"}).mStatus, 0);
    EXPECT_EQ(call(directory, {"-o", "former", "--version", "nowhere.xml"}).mStatus, 0);
    EXPECT_EQ(contentsOf(directory.path()), before);
}

// ---------------------------------------------------------------- bad usage and bad input

namespace {

struct BadCall
{
    const char* mName;
    Words mArguments;
    std::string mComplaint; ///< "@" is the test's directory.

    friend std::ostream& operator<<(std::ostream& out, const BadCall& bad)
    {
        return out << bad.mName;
    }
};

const std::string USAGE = "; quorvex-run --help lists the options";
const std::string INPUTS =
    "a project directory, a parameters file (.xml), or a directory with qv1.dat";
const std::string METHODS = "CN_Z, CN_P, CN_dtP, Relax, Split, pc";
const std::string FORCE = " (--force runs all the same)";
const std::string UNKNOWN_WORD =
    " holds a word that is not known; the lines above name it and what there is to choose from";
const std::string LONG_NAME(300, 'a');

const BadCall BAD_CALLS[] = {
    // Usage.
    {"UnknownOption", {"p.xml", "--fast"}, "unknown or ambiguous option --fast" + USAGE},
    {"UnknownLetter", {"p.xml", "-x"}, "unknown or ambiguous option -x" + USAGE},
    {"UnknownLetterAmongOthers", {"p.xml", "-qx"}, "unknown or ambiguous option -x" + USAGE},
    {"AmbiguousOption", {"p.xml", "--write", "x"}, "unknown or ambiguous option --write" + USAGE},
    {"ValueNotTaken", {"p.xml", "--check=yes"}, "the option --check takes no value" + USAGE},
    {"ValueNotTakenByALetter", {"p.xml", "--quiet=1"}, "the option --quiet takes no value" + USAGE},
    {"MissingValueOfALetter", {"p.xml", "-n"}, "the option -n needs a value" + USAGE},
    {"MissingOutput", {"p.xml", "--output"}, "the option --output needs a value" + USAGE},
    {"MissingKey", {"p.xml", "--set"}, "the option --set needs a value" + USAGE},
    {"EmptyOutput", {"p.xml", "-o", ""}, "the option --output needs a value" + USAGE},
    {"EmptyMethod", {"p.xml", "--method="}, "the option --method needs a value" + USAGE},
    {"EmptyXmlFile", {"p.xml", "--write-xml="}, "the option --write-xml needs a value" + USAGE},
    {"EmptyProject",
     {"p.xml", "--write-project", ""},
     "the option --write-project needs a value" + USAGE},
    {"EmptyTable", {"p.xml", "--table="}, "the option --table needs a value" + USAGE},
    {"EmptyExport", {"p.xml", "--export", ""}, "the option --export needs a value" + USAGE},
    {"EmptyResults", {"--results=", "--export=e"}, "the option --results needs a value" + USAGE},
    {"ResultsWithoutExport",
     {"--results", "former"},
     "--results needs --export FILE, which says where to write them"},
    {"ResultsWithOutput", // as all calls here have it
     {"--results", "former", "--export", "e.csv"},
     "--results runs nothing: besides it only --export and --quiet are taken"},
    {"ExportOverAResult",
     {"p.xml", "--export", "former/tps.res"},
     "--export takes another name than that of a result file, not \"former/tps.res\""},
    {"StepsInWords", {"p.xml", "-n", "ten"}, "--steps takes a whole number from 0 on, not \"ten\""},
    {"NegativeSteps", {"p.xml", "-n", "-5"}, "--steps takes a whole number from 0 on, not \"-5\""},
    {"StepsWithAPoint",
     {"p.xml", "-n", "20.0"},
     "--steps takes a whole number from 0 on, not \"20.0\""},
    {"StepsBeyondAllNumbers",
     {"p.xml", "-n", "18446744073709551616"},
     "--steps takes a whole number from 0 on, not \"18446744073709551616\""},
    {"ProgressNow",
     {"p.xml", "--progress=often"},
     "--progress takes auto, always or never, not \"often\""},
    {"SettingWithoutValue",
     {"p.xml", "--set", "mLength"},
     "--set takes KEY=VALUE, for instance mFieldMaxValue=4.2e9, not \"mLength\""},
    {"SettingWithoutKey",
     {"p.xml", "--set", "=1"},
     "--set takes KEY=VALUE, for instance mFieldMaxValue=4.2e9, not \"=1\""},
    {"NoInput", {}, "no input is given; it takes one: " + INPUTS},
    {"TwoInputs",
     {"p.xml", "-q", "p.xml"},
     "more than one input is given; it takes one: " + INPUTS},
    {"InputBesideTheDefault",
     {"--default", "p.xml"},
     "--default starts from the default problem and takes no input"},
    // Inputs.
    {"MissingFile", {"nowhere.xml"}, "there is no nowhere.xml; the input is " + INPUTS},
    {"FileUnderAFile", {"p.xml/p.xml"}, "there is no p.xml/p.xml; the input is " + INPUTS},
    {"InputWithTooLongAName", {LONG_NAME}, "there is no " + LONG_NAME + "; the input is " + INPUTS},
    {"EmptyInput", {""}, "there is no ; the input is " + INPUTS},
    {"EmptyFile",
     {"empty.xml"},
     "the file empty.xml is no parameters file: it does not begin with <MM_PACKAGE> and its "
     "classes"},
    {"BinaryFile",
     {"binary.xml"},
     "the file binary.xml is no parameters file: it does not begin with <MM_PACKAGE> and its "
     "classes"},
    {"Text",
     {"text.xml"},
     "the file text.xml is no parameters file: it does not begin with <MM_PACKAGE> and its "
     "classes"},
    {"FileOfAnotherClass",
     {"vector.xml"},
     "the file vector.xml holds no problem but an object of class 13LA_RealVector"},
    {"FileWithoutRoot",
     {"rootless.xml"},
     "the file rootless.xml holds no problem but parts without a whole"},
    {"CutFile",
     {"cut.xml"},
     "the parameters file cut.xml is cut off: it does not end with </MM_PACKAGE>"},
    {"Pipe", {"pipe"}, "the file pipe cannot be read"},
    {"Device", {"/dev/zero"}, "the file /dev/zero cannot be read"},
    {"EmptyDirectory",
     {"nothing"},
     "the directory nothing holds neither a project (project.dpj, parameters.xml) nor qv1.dat"},
    {"TwoProjectsInADirectory",
     {"two"},
     "two holds several project files and none is project.dpj; give the parameters file itself"},
    {"ForeignProjectFile",
     {"foreign"},
     "foreign/project.dpj is no project file: it does not name the parameters file"},
    {"ProjectWithoutItsFile", {"hollow"}, "the file hollow/lost.xml cannot be read"},
    // Older files.
    {"EmptyKeywordFile",
     {"old-empty"},
     "the file old-empty/qv1.dat has no group of keywords, such as \"&champ lambda=1.5e-6 /\""},
    {"BinaryKeywordFile", {"old-binary"}, "the file old-binary/qv1.dat is not a text"},
    {"CutKeywordFile",
     {"old-cut"},
     "the file old-cut/qv1.dat is cut off: its last group does not end with /"},
    {"UnknownMethodInAKeywordFile", {"old-method"}, "old-method" + UNKNOWN_WORD},
    {"UnknownMethodInAKeywordFileByName", {"old-method/qv1.dat"}, "old-method" + UNKNOWN_WORD},
    {"UnknownPulseInAKeywordFile", {"old-pulse"}, "old-pulse" + UNKNOWN_WORD},
    {"UnknownLawInAKeywordFile", {"old-law"}, "old-law" + UNKNOWN_WORD},
    {"MissingMatrixFile",
     {"old-alone"},
     "the directory old-alone/ lacks qv2p.dat, which holds the atoms' frequencies and matrices"},
    {"ShortMatrixFile",
     {"old-short"},
     "the file old-short/qv2p.dat is cut off: 3 numbers are missing at its end"},
    // Words and values.
    {"UnknownMethod",
     {"p.xml", "--method", "Splitt"},
     "--method takes one of " + METHODS + ", not \"Splitt\""},
    {"MethodInOtherLetters",
     {"p.xml", "--method=split"},
     "--method takes one of " + METHODS + ", not \"split\""},
    {"UnknownMethodAsASetting",
     {"p.xml", "--set", "mMethod=Splitt"},
     "mMethod takes a number or one of " + METHODS + ", not \"Splitt\""},
    {"UnknownKey",
     {"p.xml", "--set", "mColour=1"},
     "unknown parameter mColour; quorvex-run --help lists the keys"},
    {"KeyOfAnotherClass",
     {"p.xml", "--set", "QV_Bloch.mLength=1"},
     "unknown parameter QV_Bloch.mLength; quorvex-run --help lists the keys"},
    {"ComputedKey",
     {"p.xml", "--set", "mTimeStep=1e-16"},
     "mTimeStep is computed by the run and cannot be set"},
    {"ValueThatIsNoNumber",
     {"p.xml", "--set", "mLength=long"},
     "mLength takes a number, not \"long\""},
    // Places.
    {"OutputUnderAFile",
     {"p.xml", "-o", "p.xml/results"},
     "Project Directory = @/p.xml: the result files cannot be made there: no such directory, or no "
     "right to write."
         + FORCE},
    {"OutputUnderAProgram",
     {"p.xml", "-o", "program/results"},
     "the directory program/results cannot be made: Not a directory"},
    {"OutputIsAProgram",
     {"p.xml", "-o", "program"},
     "the directory program cannot be made: Not a directory"},
    {"ForcedOutputUnderAFile",
     {"p.xml", "--force", "-o", "p.xml/results"},
     "the directory p.xml/results cannot be made: Not a directory"},
    {"OutputWithTooLongAName",
     {"p.xml", "-o", LONG_NAME},
     "the directory " + LONG_NAME + " cannot be made: File name too long"},
    {"OutputThroughLinksInACircle",
     {"p.xml", "-o", "circle/results"},
     "the directory circle/results cannot be made: Too many levels of symbolic links"},
    {"XmlFileInAMissingDirectory",
     {"p.xml", "--write-xml", "missing/q.xml"},
     "the file missing/q.xml cannot be written"},
    {"XmlFileThatIsADirectory",
     {"p.xml", "--write-xml", "nothing"},
     "the file nothing cannot be written"},
    {"XmlFileOnAFullDevice",
     {"p.xml", "--write-xml", "/dev/full"},
     "the file /dev/full cannot be written"},
    {"ProjectUnderAFile",
     {"p.xml", "--write-project", "p.xml/project"},
     "the directory p.xml/project cannot be made: Not a directory"},
    {"ProjectOverAProject",
     {"p.xml", "--write-project", "hollow"},
     "hollow holds a project already; give a new directory"},
    // What would stop or spoil the run.
    {"OneStep",
     {"p.xml", "-n", "1"},
     "Time Steps Number = 1: a run of this method needs 10 steps at least, or none, or it ends "
     "with an arithmetic trap."
         + FORCE},
    {"NineSteps",
     {"p.xml", "--set", "mMaxTimeStepsNumber=9"},
     "Time Steps Number = 9: a run of this method needs 10 steps at least, or none, or it ends "
     "with an arithmetic trap."
         + FORCE},
    {"NineteenStepsOfTheTwentyStepsMethod",
     {"p.xml", "--method", "CN_dtP", "-n", "19"},
     "Time Steps Number = 19: a run of this method needs 20 steps at least, or none, or it ends "
     "with an arithmetic trap."
         + FORCE},
    {"NoMesh",
     {"p.xml", "--set", "mLength=1e-8"},
     "Domain Length = 1e-08: the mesh has 0 nodes and needs 3 at least; a cell is 7.5e-08 m long."},
    {"ForcedRunWithoutMesh",
     {"p.xml", "--force", "--set", "mLength=1e-8"},
     "Domain Length = 1e-08: the mesh has 0 nodes and needs 3 at least; a cell is 7.5e-08 m long."},
    {"SeveralFaults",
     {"p.xml", "-n", "1", "--set", "mCFL=0"},
     "Time Steps Number = 1: a run of this method needs 10 steps at least, or none, or it ends "
     "with an arithmetic trap."
         + FORCE + " And 1 more; --check lists them."},
};

class RunProgramBadCall : public testing::TestWithParam<BadCall>
{
protected:
    RunProgramBadCall()
    {
        SavedProblem::write(mDirectory.file("p.xml"));
        const std::string whole = mDirectory.read("p.xml");
        writeFormerRun(mDirectory);
        mDirectory.write("empty.xml", "");
        mDirectory.write("binary.xml", bytes("\177ELF\2\1\1\0\0<MM_PACKAGE\0\xff"));
        mDirectory.write("text.xml", "Dear reader,\n");
        mDirectory.write("cut.xml", whole.substr(0, whole.size() / 2));
        mDirectory.write("vector.xml",
                         "<MM_PACKAGE mRootMetaClassId=\"13LA_RealVector@1\">\n"
                         "<MM_CLASS mId=\"13LA_RealVector@1\" mName=\"13LA_RealVector\">\n"
                         "<MM_FIELD mName=\"mValues\"><MM_VALUE>1.0</MM_VALUE></MM_FIELD>\n"
                         "</MM_CLASS>\n</MM_PACKAGE>\n");
        mDirectory.write("rootless.xml",
                         "<MM_PACKAGE mRootMetaClassId=\"13LA_RealVector@2\">\n"
                         "<MM_CLASS mId=\"13LA_RealVector@1\" mName=\"13LA_RealVector\">\n"
                         "</MM_CLASS>\n</MM_PACKAGE>\n");
        mDirectory.write("program", "#!/bin/sh\n");
        std::filesystem::permissions(mDirectory.path() / "program", std::filesystem::perms::all);
        EXPECT_EQ(mkfifo(mDirectory.file("pipe").c_str(), 0600), 0);
        std::filesystem::create_symlink("circle", mDirectory.path() / "circle");
        for (const char* name : {"nothing", "two", "foreign", "hollow"}) {
            std::filesystem::create_directory(mDirectory.path() / name);
        }
        mDirectory.write("two/a.dpj", "");
        mDirectory.write("two/b.dpj", "");
        mDirectory.write("foreign/project.dpj", whole);
        mDirectory.write("hollow/project.dpj",
                         "<MM_PACKAGE mRootMetaClassId=\"14QVG_MainWindow@1\">\n"
                         "<MM_CLASS mId=\"14QVG_MainWindow@1\" mName=\"14QVG_MainWindow\">\n"
                         "<MM_FIELD mName=\"mSavingModelFile\"><MM_VALUE>lost.xml</MM_VALUE>"
                         "</MM_FIELD>\n</MM_CLASS>\n</MM_PACKAGE>\n");
        writeOlderFiles();
    }

    void writeOlderFiles() const
    {
        OlderFiles::write(mDirectory, "old-empty", "");
        OlderFiles::write(mDirectory, "old-binary", bytes("&dim n=2 /\0\1\2"));
        const std::string whole = OlderFiles::keywords();
        OlderFiles::write(mDirectory, "old-cut", whole.substr(0, whole.find(" z3")));
        OlderFiles::write(mDirectory, "old-method",
                          OlderFiles::keywordsWith("methode='Split'", "methode='Splitt'"));
        OlderFiles::write(mDirectory, "old-pulse",
                          OlderFiles::keywordsWith("Einc='SIT'", "Einc='sit'"));
        OlderFiles::write(mDirectory, "old-law",
                          OlderFiles::keywords() + "&freq_dist method=GAUSS delta=1e10 n=2 /\n");
        OlderFiles::write(mDirectory, "old-alone");
        std::filesystem::remove(mDirectory.path() / "old-alone" / OlderFiles::MATRIX_FILE);
        OlderFiles::write(mDirectory, "old-short");
        const std::string matrices = OlderFiles::matrices();
        mDirectory.write(std::string("old-short/") + OlderFiles::MATRIX_FILE,
                         matrices.substr(0, matrices.find("1.0e8 0.0")));
    }

    TestDirectory mDirectory;
};

} // namespace

TEST_P(RunProgramBadCall, IsRefusedInOneLineAndNothingIsWrittenOrLost)
{
    const BadCall& bad = GetParam();
    const auto before = contentsOf(mDirectory.path());
    const End end = call(mDirectory, Words{"-o", "former"} + bad.mArguments);
    EXPECT_EQ(end.mStatus, 2);
    std::string complaint = end.mComplaint;
    const std::string path = mDirectory.path().string();
    if (const std::size_t place = complaint.find(path); place != std::string::npos) {
        complaint.replace(place, path.size(), "@");
    }
    EXPECT_EQ(complaint, bad.mComplaint) << end.mError;
    EXPECT_EQ(contentsOf(mDirectory.path()), before);
}

INSTANTIATE_TEST_SUITE_P(Calls, RunProgramBadCall, testing::ValuesIn(BAD_CALLS),
                         [](const auto& tested) { return std::string(tested.param.mName); });

TEST(RunProgram, AnOutputThatNobodyCanMakeIsRefusedToTheSuperuserToo)
{
    const TestDirectory directory;
    SavedProblem::write(directory.file("p.xml"));
    const auto before = contentsOf(directory.path());
    const End end = call(directory, {"p.xml", "-o", "/proc/results"});
    EXPECT_EQ(end.mStatus, 2);
    // The superuser is told by the system, others by the check.
    EXPECT_NE(end.mComplaint.find("/proc"), std::string::npos) << end.mError;
    EXPECT_EQ(contentsOf(directory.path()), before);
}

TEST(RunProgram, AWordOfAnOlderFileThatNobodyKnowsIsNamedWithTheChoiceOnStandardOutput)
{
    const TestDirectory directory;
    OlderFiles::write(directory, "old",
                      OlderFiles::keywordsWith("methode='Split'", "methode='Splitt'"));
    const End end = call(directory, {"old"});
    EXPECT_EQ(end.mStatus, 2);
    EXPECT_TRUE(end.mOut.ends_with("warning numerical method Splitt unknown !!\n"
                                   "choose between:\n"
                                   "\tCN_Z\n\tCN_P\n\tCN_dtP\n\tRelax\n\tSplit\n\tpc\n"))
        << end.mOut;
}

TEST(RunProgram, AParametersFileCutAtAnyPlaceIsRefused)
{
    const TestDirectory directory;
    SavedProblem::write(directory.file("p.xml"));
    const std::string whole = directory.read("p.xml");
    constexpr std::size_t places = 12;
    for (std::size_t i = 1; i <= places; ++i) {
        // The last place is before the last character of the end tag.
        const std::size_t size = (whole.size() - 2) * i / places;
        directory.write("cut.xml", whole.substr(0, size));
        const End end = call(directory, {"cut.xml"});
        EXPECT_EQ(end.mStatus, 2) << size;
        EXPECT_TRUE(end.mComplaint.starts_with("the parameters file cut.xml is cut off")
                    || end.mComplaint.starts_with("the file cut.xml is no parameters file"))
            << size << ": " << end.mError;
    }
    EXPECT_EQ(namesIn(directory.path()), (Words{"cut.xml", "p.xml"}));
}

TEST(RunProgram, AKeywordFileCutInsideAGroupIsRefused)
{
    const TestDirectory directory;
    const std::string whole = OlderFiles::keywords();
    for (const char* word : {"dim", "n=2", "lambda", "Einc", "na=", "relaxation", "parlambda",
                             "debut", "long", "z1", "z3"}) {
        OlderFiles::write(directory, "old", whole.substr(0, whole.find(word)));
        const End end = call(directory, {"old"});
        EXPECT_EQ(end.mStatus, 2) << word;
        EXPECT_EQ(end.mComplaint,
                  "the file old/qv1.dat is cut off: its last group does not end with /")
            << word << ": " << end.mError;
    }
    EXPECT_EQ(namesIn(directory.path()), Words{"old"});
}

TEST(RunProgram, AnOrdinaryUserIsToldOfWhatMayNotBeReadOrWritten)
{
    const TestDirectory directory;
    SavedProblem::write(directory.file("p.xml"));
    SavedProblem::write(directory.file("secret.xml"));
    for (const char* name : {"closed", "locked"}) {
        std::filesystem::create_directory(directory.path() / name);
    }
    const auto only = [&directory](const char* name, unsigned mode) {
        std::filesystem::permissions(directory.path() / name,
                                     static_cast<std::filesystem::perms>(mode));
    };
    only("", 0755);
    only("secret.xml", 0);
    only("closed", 0444); // may be listed, but nothing in it looked at
    only("locked", 0555);
    const auto callAsUser = [&directory](const Words& arguments) {
        return call(directory, arguments, becomeOrdinaryUser);
    };
    const End unreadable = callAsUser({"secret.xml"});
    EXPECT_EQ(unreadable.mStatus, 2);
    EXPECT_EQ(unreadable.mComplaint, "the file secret.xml cannot be read");
    const End closed = callAsUser({"closed"});
    EXPECT_EQ(closed.mStatus, 2);
    EXPECT_NE(closed.mComplaint.find("closed"), std::string::npos) << closed.mError;
    const End locked = callAsUser({"p.xml", "-o", "locked"});
    EXPECT_EQ(locked.mStatus, 2);
    EXPECT_NE(locked.mComplaint.find("no right to write"), std::string::npos) << locked.mError;
    const End below = callAsUser({"p.xml", "-o", "closed/results"});
    EXPECT_EQ(below.mStatus, 2);
    EXPECT_NE(below.mComplaint.find("closed"), std::string::npos) << below.mError;
    only("closed", 0755);
    only("locked", 0755);
}

// ---------------------------------------------------------------- a run and its files

TEST(RunProgram, ARunLeavesItsFilesAndTheRecordOfItsParameters)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL);
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(namesIn(directory.path()), Words{"resultats"});
    EXPECT_EQ(namesIn(directory.path() / "resultats"),
              sorted(SMALL_FILES + Words{"paramBeforeSolving.xml"}));
    for (const auto& [name, lines] : linesOfSteps(directory.path() / "resultats")) {
        EXPECT_EQ(lines, 20) << name;
    }
    const SavedProblem record(directory.file("resultats/paramBeforeSolving.xml"));
    EXPECT_EQ(record.text("QV_1DProblem", "mMethod"), "4");
}

TEST(RunProgram, TheLogGoesToStandardOutputAndAllElseToStandardError)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL);
    EXPECT_TRUE(end.mOut.starts_with("40 pas d'espace de longueur 7.5e-08\n")) << end.mOut;
    EXPECT_NE(end.mOut.find("solve..\n init Saving \n init Saving done\n \t split method \n"),
              std::string::npos);
    const Words log = linesOf(end.mOut);
    ASSERT_FALSE(log.empty());
    EXPECT_TRUE(log.back().starts_with("execution time:")) << log.back();
    EXPECT_EQ(end.mOut.find("step "), std::string::npos);
    const Words lines = linesOf(end.mError);
    ASSERT_EQ(lines.size(), 16U) << end.mError;
    EXPECT_TRUE(lines[0].starts_with("note: Time Steps Number = 20: ")) << lines[0];
    EXPECT_TRUE(lines[1].starts_with("step 2 of 20, 10 %")) << lines[1];
    EXPECT_TRUE(lines[11].starts_with("20 steps in 0.")) << lines[11];
    EXPECT_TRUE(lines[11].ends_with(" s")) << lines[11];
    EXPECT_EQ(lines[12], "13 result files with 20 lines in resultats:");
    std::istringstream named(lines[13] + lines[14] + lines[15]);
    EXPECT_EQ(Words(std::istream_iterator<std::string>(named), {}), SMALL_FILES);
}

TEST(RunProgram, TheOutputDirectoryIsMadeWithAllThatLeadsToIt)
{
    const TestDirectory directory;
    EXPECT_EQ(call(directory, SMALL + Words{"-o", "a/b/c"}).mStatus, 0);
    EXPECT_EQ(namesIn(directory.path()), Words{"a"});
    EXPECT_EQ(namesIn(directory.path() / "a/b/c").size(), SMALL_FILES.size() + 1);
}

TEST(RunProgram, AnAbsoluteOutputIsTakenAsItIs)
{
    const TestDirectory directory;
    const TestDirectory other;
    EXPECT_EQ(call(directory, SMALL + Words{"--output=" + other.file("results")}).mStatus, 0);
    EXPECT_EQ(namesIn(directory.path()), Words{});
    EXPECT_EQ(namesIn(other.path() / "results").size(), SMALL_FILES.size() + 1);
}

TEST(RunProgram, ARunTakesTheResultsOfAFormerOneAwayAndNothingElse)
{
    const TestDirectory directory;
    writeFormerRun(directory);
    EXPECT_EQ(call(directory, SMALL + Words{"-o", "former"}).mStatus, 0);
    EXPECT_EQ(namesIn(directory.path() / "former"),
              sorted(SMALL_FILES + Words{"paramBeforeSolving.xml", "notes.txt", "own.res"}));
    EXPECT_EQ(directory.read("former/notes.txt"), "former notes.txt\n");
    EXPECT_EQ(directory.read("former/own.res"), "former own.res\n");
    EXPECT_EQ(linesOfSteps(directory.path() / "former").at("E_at_1.res"), 20);
}

TEST(RunProgram, TwoRunsOfTheSameProblemGiveTheSameFiles)
{
    const TestDirectory directory;
    EXPECT_EQ(call(directory, SMALL + Words{"-o", "a"}).mStatus, 0);
    EXPECT_EQ(call(directory, SMALL + Words{"-o", "b", "-q"}).mStatus, 0);
    EXPECT_EQ(resultsIn(directory.path() / "a").size(), SMALL_FILES.size());
    EXPECT_EQ(resultsIn(directory.path() / "a"), resultsIn(directory.path() / "b"));
}

TEST(RunProgram, ARunOfNoStepLeavesEmptyFilesAndSaysSo)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"-n", "0", "--plot", "--table", "t.tsv"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_NE(end.mError.find("note: Time Steps Number = 0: no step will be made, and the result "
                              "files stay empty.\n"),
              std::string::npos);
    EXPECT_NE(end.mError.find("0 steps in "), std::string::npos);
    for (const auto& [name, lines] : linesOfSteps(directory.path() / "resultats")) {
        EXPECT_EQ(lines, 0) << name;
    }
    EXPECT_EQ(count(directory.read("resultats/captors.res"), '\n'), 5);
    EXPECT_EQ(linesOf(directory.read("t.tsv")).size(), 1U);
}

TEST(RunProgram, TheFewestStepsOfAMethodAreEnough)
{
    const TestDirectory directory;
    EXPECT_EQ(call(directory, SMALL + Words{"-n", "10", "-o", "a"}).mStatus, 0);
    EXPECT_EQ(linesOfSteps(directory.path() / "a").at("tps.res"), 10);
    EXPECT_EQ(call(directory, SMALL + Words{"-n", "20", "--method=CN_dtP", "-o", "b"}).mStatus, 0);
    EXPECT_EQ(linesOfSteps(directory.path() / "b").at("tps.res"), 20);
}

TEST(RunProgram, EveryMethodRunsToItsEnd)
{
    const TestDirectory directory;
    for (const char* method : {"CN_Z", "CN_P", "CN_dtP", "Relax", "Split", "pc"}) {
        const End end =
            call(directory, SMALL + Words{"--method", method, "-o", method, "-n", "20"});
        EXPECT_EQ(end.mStatus, 0) << method << ": " << end.mError;
        EXPECT_EQ(linesOfSteps(directory.path() / method).at("tps.res"), 20) << method;
    }
}

// ---------------------------------------------------------------- projects and older files

namespace {

/// The line that names the place of the results.
std::string placeOfResults(const End& end)
{
    for (const std::string& line : linesOf(end.mError)) {
        const std::size_t place = line.find(" lines in ");
        if (place != std::string::npos) {
            return line.substr(place + 10);
        }
    }
    return "no line that names the place in: " + end.mError;
}

/// A project file that names the parameters file.
std::string projectText(const std::string& parametersFile)
{
    return "<MM_PACKAGE mRootMetaClassId=\"14QVG_MainWindow@1\">\n"
           "<MM_CLASS mId=\"14QVG_MainWindow@1\" mName=\"14QVG_MainWindow\">\n"
           "<MM_FIELD mName=\"mSavingModelFile\"><MM_VALUE>"
           + parametersFile + "</MM_VALUE></MM_FIELD>\n</MM_CLASS>\n</MM_PACKAGE>\n";
}

} // namespace

TEST(RunProgram, AParametersFileRunsIntoTheUsualDirectory)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.path() / "sub");
    SavedProblem::write(directory.file("sub/p.xml"));
    const End end = call(directory, {"sub/p.xml", "-n20"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(placeOfResults(end), "resultats:");
    EXPECT_EQ(namesIn(directory.path()), (Words{"resultats", "sub"}));
    EXPECT_EQ(namesIn(directory.path() / "sub"), Words{"p.xml"});
}

TEST(RunProgram, AProjectRunsInItsOwnDirectory)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.path() / "project");
    SavedProblem::write(directory.file("project/parameters.xml"));
    const std::string parameters = directory.read("project/parameters.xml");
    const End end = call(directory, {"project", "-n20"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(placeOfResults(end), "project:");
    EXPECT_EQ(namesIn(directory.path()), Words{"project"});
    EXPECT_EQ(namesIn(directory.path() / "project"),
              sorted(SMALL_FILES + Words{"paramBeforeSolving.xml", "parameters.xml"}));
    EXPECT_EQ(directory.read("project/parameters.xml"), parameters);
}

TEST(RunProgram, AProjectInTheWorkingDirectoryIsAPoint)
{
    const TestDirectory directory;
    SavedProblem::write(directory.file("parameters.xml"));
    EXPECT_EQ(call(directory, {".", "-n20"}).mStatus, 0);
    EXPECT_EQ(namesIn(directory.path()),
              sorted(SMALL_FILES + Words{"paramBeforeSolving.xml", "parameters.xml"}));
}

TEST(RunProgram, TheProjectFileNamesTheParametersFile)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.path() / "project");
    directory.write("project/parameters.xml", "not this one");
    SavedProblem::write(directory.file("project/other.xml"));
    directory.write("project/project.dpj", projectText("other.xml"));
    directory.write("project/another.dpj", "neither");
    EXPECT_EQ(call(directory, {"project", "-n20"}).mStatus, 0);
    EXPECT_EQ(linesOfSteps(directory.path() / "project").at("tps.res"), 20);
}

TEST(RunProgram, TheOnlyProjectFileMayHaveAnyName)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.path() / "project");
    SavedProblem::write(directory.file("project/other.xml"));
    directory.write("project/pulse.dpj", projectText("other.xml"));
    EXPECT_EQ(call(directory, {"project", "-n20"}).mStatus, 0);
    EXPECT_EQ(linesOfSteps(directory.path() / "project").at("tps.res"), 20);
}

TEST(RunProgram, AProjectIsTakenBeforeOlderFiles)
{
    const TestDirectory directory;
    OlderFiles::write(directory, "both");
    SavedProblem::write(directory.file("both/parameters.xml"));
    const End end = call(directory, {"both", "-n20"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(end.mOut.find("reading qv1.dat"), std::string::npos);
    EXPECT_EQ(placeOfResults(end), "both:");
}

TEST(RunProgram, OlderFilesRunIntoTheUsualDirectory)
{
    const TestDirectory directory;
    OlderFiles::write(directory, "old");
    const End end = call(directory, {"old"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_TRUE(end.mOut.starts_with("\t reading qv1.dat ...\ndim\n\tn:2\n")) << end.mOut;
    EXPECT_EQ(placeOfResults(end), "resultats:");
    EXPECT_EQ(namesIn(directory.path() / "old"), (Words{"qv1.dat", "qv2p.dat"}));
    EXPECT_EQ(namesIn(directory.path() / "resultats"),
              sorted(SMALL_FILES + Words{"paramBeforeSolving.xml"}));
    EXPECT_EQ(linesOfSteps(directory.path() / "resultats").at("tps.res"), 20);
}

TEST(RunProgram, TheKeywordFileItselfMayBeGiven)
{
    const TestDirectory directory;
    OlderFiles::write(directory, "old");
    EXPECT_EQ(call(directory, {"old", "-o", "a"}).mStatus, 0);
    EXPECT_EQ(call(directory, {"old/qv1.dat", "-o", "b"}).mStatus, 0);
    std::filesystem::copy_file(directory.path() / "old/qv1.dat", directory.path() / "qv1.dat");
    std::filesystem::copy_file(directory.path() / "old/qv2p.dat", directory.path() / "qv2p.dat");
    EXPECT_EQ(call(directory, {"qv1.dat", "-o", "c"}).mStatus, 0);
    EXPECT_EQ(resultsIn(directory.path() / "a").size(), SMALL_FILES.size());
    EXPECT_EQ(resultsIn(directory.path() / "a"), resultsIn(directory.path() / "b"));
    EXPECT_EQ(resultsIn(directory.path() / "a"), resultsIn(directory.path() / "c"));
}

TEST(RunProgram, AttributesThatAnOlderFileLacksAreNamed)
{
    const TestDirectory directory;
    OlderFiles::write(directory, "old", OlderFiles::keywordsWith("na=1.0e24 ", ""));
    const End end = call(directory, {"old"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_TRUE(end.mError.starts_with("note: qv1.dat does not give autres na; 0 is taken\n"))
        << end.mError;
    const End quiet = call(directory, {"old", "-q"});
    EXPECT_EQ(quiet.mStatus, 0);
    EXPECT_EQ(quiet.mError, "");
}

TEST(RunProgram, EachAttributeWithoutDefaultIsNamedEvenWhenTheRunIsRefused)
{
    const TestDirectory directory;
    OlderFiles::write(directory, "old", "&numerique methode='Split' /\n&champ Einc='SIT' /\n");
    directory.write("old/qv2p.dat", "no level has a frequency\n1.0e12\n");
    const End end = call(directory, {"old"});
    EXPECT_EQ(end.mStatus, 2);
    for (const char* attribute :
         {"champ Emax", "champ lambda", "champ t_on", "autres na", "autres temper", "numerique CFL",
          "numerique conv", "geom debut", "geom fin", "geom long", "geom maxt"}) {
        EXPECT_NE(end.mError.find(std::string("note: qv1.dat does not give ") + attribute
                                  + "; 0 is taken\n"),
                  std::string::npos)
            << attribute;
    }
    EXPECT_EQ(std::count(end.mError.begin(), end.mError.end(), '\n'), 12) << end.mError;
}

TEST(RunProgram, TheLastGroupOfAnOlderFileThatSpeaksOfTheMethodDecides)
{
    const TestDirectory directory;
    const std::string split = "type_split='hrn' methode='CN_P' ";
    const std::string method = "methode='CN_P' type_split='hrn' ";
    OlderFiles::write(directory, "old",
                      OlderFiles::keywordsWith("type_split='hrn' methode='Split' ", split));
    std::filesystem::copy_file(directory.path() / "old/qv2p.dat", directory.path() / "old/qv2.dat");
    EXPECT_EQ(call(directory, {"old", "--write-xml", "a.xml"}).mStatus, 0);
    EXPECT_EQ(SavedProblem(directory.file("a.xml")).text("QV_1DProblem", "mMethod"), "1");
    OlderFiles::write(directory, "old",
                      OlderFiles::keywordsWith("type_split='hrn' methode='Split' ", method));
    EXPECT_EQ(call(directory, {"old", "--write-xml", "b.xml"}).mStatus, 0);
    EXPECT_EQ(SavedProblem(directory.file("b.xml")).text("QV_1DProblem", "mMethod"), "4");
}

TEST(RunProgram, AMatrixFileCutBeforeAnyNumberIsRefused)
{
    const TestDirectory directory;
    OlderFiles::write(directory, "old");
    const std::string matrices = OlderFiles::matrices();
    int missing = 0;
    for (const char* number : {"1.0e12", "1.0e8 0.0", "0.0 1.0e8", "1.0e-29 0.0", "0.0 1.0e-29"}) {
        directory.write("old/qv2p.dat", matrices.substr(0, matrices.find(number)));
        missing += missing == 0 ? 1 : 2;
        const End end = call(directory, {"old"});
        EXPECT_EQ(end.mStatus, 2) << number;
        EXPECT_EQ(end.mComplaint, "the file old/qv2p.dat is cut off: " + std::to_string(missing)
                                      + " numbers are missing at its end")
            << end.mError;
    }
    EXPECT_EQ(namesIn(directory.path()), Words{"old"});
}

// ---------------------------------------------------------------- the check

TEST(RunProgram, ACheckOfASoundProblemSaysSoAndRunsNothing)
{
    const TestDirectory directory;
    const End end =
        call(directory, SMALL + Words{"--set=mWavePackageDuration=4e-15", "-n", "100", "--check"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(end.mOut, "");
    EXPECT_EQ(end.mError, "nothing stops or spoils this run\n");
    EXPECT_EQ(namesIn(directory.path()), Words{});
}

TEST(RunProgram, ACheckThatFindsNotesAloneSucceeds)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--method=Relax", "-n", "100", "--check"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(end.mError, "note: Numerical Method = Relax: advances the coherences of the first "
                          "active node alone.\n");
}

TEST(RunProgram, ACheckListsEverythingFromTheWorstOn)
{
    const TestDirectory directory;
    writeFormerRun(directory);
    const auto before = contentsOf(directory.path());
    const End end = call(directory, SMALL
                                        + Words{"--check", "-o", "former", "--method=Relax", "-n",
                                                "1", "--set=mLength=1e-8", "--set=mCFL=0"});
    EXPECT_EQ(end.mStatus, 2);
    EXPECT_EQ(end.mOut, "");
    const Words lines = linesOf(end.mError);
    ASSERT_GE(lines.size(), 5U) << end.mError;
    EXPECT_TRUE(lines[0].starts_with("stops the run: Domain Length = ")) << lines[0];
    EXPECT_TRUE(lines[1].starts_with("would spoil the run: Time Steps Number = 1: ")) << lines[1];
    EXPECT_TRUE(lines[2].starts_with("would spoil the run: C.F.L. = 0: ")) << lines[2];
    EXPECT_TRUE(lines[3].starts_with("note: Numerical Method = Relax: ")) << lines[3];
    EXPECT_TRUE(end.mComplaint.starts_with("Domain Length = ")) << end.mError;
    EXPECT_EQ(contentsOf(directory.path()), before);
}

TEST(RunProgram, AQuietCheckAnswersByItsStatus)
{
    const TestDirectory directory;
    const End sound = call(directory, SMALL + Words{"--check", "-q", "--method=CN_Z"});
    EXPECT_EQ(sound.mStatus, 0);
    EXPECT_EQ(sound.mError, "");
    const End bad = call(directory, SMALL + Words{"--check", "-q", "-n1"});
    EXPECT_EQ(bad.mStatus, 2);
    EXPECT_EQ(linesOf(bad.mError).size(), 1U) << bad.mError;
}

TEST(RunProgram, ACheckMakesNoDirectory)
{
    const TestDirectory directory;
    EXPECT_EQ(call(directory, SMALL + Words{"--check", "-o", "a/b"}).mStatus, 0);
    EXPECT_EQ(namesIn(directory.path()), Words{});
}

// ---------------------------------------------------------------- force, and ends from inside

TEST(RunProgram, AForcedRunOfTooFewStepsEndsByTheArithmeticTrap)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"-n", "5", "--force"});
    EXPECT_EQ(end.mStatus, -SIGFPE);
    EXPECT_TRUE(end.mOut.ends_with(" \t split method \nInit Bloch Splitting \ncompute TrPPower "
                                   "\ncomputePolarizationsPower \n"))
        << end.mOut;
    EXPECT_NE(end.mError.find("would spoil the run: Time Steps Number = 5: "), std::string::npos);
    for (const auto& [name, lines] : linesOfSteps(directory.path() / "resultats")) {
        EXPECT_EQ(lines, 0) << name;
    }
}

TEST(RunProgram, AForcedRunTakesWhatWouldOnlySpoilIt)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--force", "--set=mCFL=0"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_NE(end.mError.find("would spoil the run: C.F.L. = 0: "), std::string::npos);
    EXPECT_EQ(linesOfSteps(directory.path() / "resultats").at("tps.res"), 20);
}

TEST(RunProgram, AnEndFromInsideTheRunIsAFailure)
{
    const TestDirectory directory;
    const End end =
        call(directory,
             SMALL + Words{"--force", "--method=CN_Z", "--set=mDimension=2", "--progress=never"});
    EXPECT_EQ(end.mStatus, 1);
    EXPECT_NE(end.mOut.find("not implemented for a field dimension superior to 1"),
              std::string::npos)
        << end.mOut;
    EXPECT_EQ(end.mComplaint, "the run ended before its last step; the lines above say why");
}

TEST(RunProgram, AnEndFromInsideStandsOnALineOfItsOwnBehindALiveOne)
{
    const TestDirectory directory;
    // The field comes to the atoms after some steps, and two iterations are too few for them.
    const End end =
        call(directory, SMALL
                            + Words{"--method=pc", "--set=mIterationsMaxNumber=2", "-n", "100",
                                    "--set=mConvergenceRate=1e-30", "--progress=always"});
    EXPECT_EQ(end.mStatus, 1);
    EXPECT_NE(end.mOut.find("Le predicteur-correcteur ne converge plus"), std::string::npos);
    EXPECT_NE(end.mError.find('\r'), std::string::npos);
    EXPECT_EQ(end.mComplaint, "the run ended before its last step; the lines above say why")
        << end.mError;
}

TEST(RunProgram, AResultFileThatCannotBeMadeIsAFailure)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--force", "-q", "-o", "results"}, [] {
        const rlimit few{13, 13};
        setrlimit(RLIMIT_NOFILE, &few);
    });
    EXPECT_EQ(end.mStatus, 1);
    EXPECT_NE(end.mOut.find("FATAL ERROR: Problem of creation of file ./"), std::string::npos)
        << end.mOut;
    EXPECT_EQ(end.mError,
              "quorvex-run: the run ended before its last step; the lines above say why\n");
}

TEST(RunProgram, MoreResultFilesThanMayBeOpenAreRefusedBeforehand)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL, [] {
        const rlimit few{16, 16};
        setrlimit(RLIMIT_NOFILE, &few);
    });
    EXPECT_EQ(end.mStatus, 2);
    EXPECT_EQ(end.mComplaint, "Captors = 5: a run holds 11 result files open, and this system "
                              "allows 16; take fewer captors or systems."
                                  + FORCE);
}

TEST(RunProgram, ADirectoryInThePlaceOfAResultFileIsRefusedAndTheFormerRunStays)
{
    const TestDirectory directory;
    writeFormerRun(directory);
    std::filesystem::create_directory(directory.path() / "former/Rho_Bloch0_at_11.res");
    directory.write("former/Rho_Bloch0_at_11.res/mine.txt", "mine");
    const auto before = contentsOf(directory.path());
    const End end = call(directory, SMALL + Words{"-o", "former"});
    EXPECT_EQ(end.mStatus, 2);
    EXPECT_EQ(end.mComplaint, "former/Rho_Bloch0_at_11.res is a directory and has the name of a "
                              "result file; -o chooses another place");
    EXPECT_EQ(contentsOf(directory.path()), before);
}

TEST(RunProgram, ALinkInThePlaceOfAResultFileIsReplacedAndNotFollowed)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.path() / "former");
    directory.write("precious.txt", "precious");
    std::filesystem::create_symlink("../precious.txt", directory.path() / "former/tps.res");
    EXPECT_EQ(call(directory, SMALL + Words{"-o", "former"}).mStatus, 0);
    EXPECT_EQ(directory.read("precious.txt"), "precious");
    EXPECT_FALSE(std::filesystem::is_symlink(directory.path() / "former/tps.res"));
    EXPECT_EQ(linesOfSteps(directory.path() / "former").at("tps.res"), 20);
}

TEST(RunProgram, AZeroDipoleIsAFailedRun)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--set=mPs=0,0,0,0"});
    EXPECT_EQ(end.mStatus, 1);
    EXPECT_NE(end.mOut.find("FATAL ERROR: Rabi frequency is null \n"), std::string::npos);
    EXPECT_EQ(end.mComplaint,
              "the run failed: the largest dipole is 0, so there is no Rabi frequency");
    EXPECT_EQ(namesIn(directory.path() / "resultats"), Words{});
}

// ---------------------------------------------------------------- full disks

TEST(RunProgram, ResultFilesThatBecomeTooLargeFailTheRunAndAreNamed)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"-n", "3000", "-q"}, [] {
        constexpr rlim_t room = 100000; // above the record of the parameters
        const rlimit little{room, room};
        setrlimit(RLIMIT_FSIZE, &little);
    });
    EXPECT_EQ(end.mStatus, 1);
    EXPECT_EQ(end.mComplaint, "the result files are incomplete");
    EXPECT_NE(end.mError.find("The file ./tps.res could not be written completely.\n"),
              std::string::npos)
        << end.mError;
}

TEST(RunProgram, ATableOnAFullDeviceFailsButTheResultsAreThere)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--table", "/dev/full"});
    EXPECT_EQ(end.mStatus, 1);
    EXPECT_EQ(end.mComplaint, "the table /dev/full cannot be written");
    EXPECT_EQ(linesOfSteps(directory.path() / "resultats").at("tps.res"), 20);
}

TEST(RunProgram, ATableInAMissingDirectoryFailsButTheResultsAreThere)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--table", "missing/t.tsv"});
    EXPECT_EQ(end.mStatus, 1);
    EXPECT_EQ(end.mComplaint,
              "the table " + directory.file("missing/t.tsv") + " cannot be written");
    EXPECT_EQ(linesOfSteps(directory.path() / "resultats").at("tps.res"), 20);
}

TEST(RunProgram, AnExportOnAFullDeviceFailsButTheResultsAreThere)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--export", "/dev/full"});
    EXPECT_EQ(end.mStatus, 1);
    EXPECT_EQ(end.mComplaint, "the file /dev/full cannot be written");
    EXPECT_EQ(linesOfSteps(directory.path() / "resultats").at("tps.res"), 20);
}

TEST(RunProgram, AnExportOfFormerResultsThatCannotBeWrittenIsRefused)
{
    const TestDirectory directory;
    ASSERT_EQ(call(directory, SMALL + Words{"-q", "-o", "r"}).mStatus, 0);
    const auto before = contentsOf(directory.path());
    for (const char* file : {"missing/e.csv", "/dev/full", "r"}) {
        const End end = call(directory, {"--results", "r", "--export", file});
        EXPECT_EQ(end.mStatus, 2);
        EXPECT_EQ(end.mComplaint, std::string("the file ") + file + " cannot be written");
    }
    EXPECT_EQ(contentsOf(directory.path()), before);
}

TEST(RunProgram, ResultsThatAreNotThereAreRefusedAndAFormerExportStays)
{
    const TestDirectory directory;
    directory.write("e.csv", "former");
    std::filesystem::create_directory(directory.path() / "r");
    const auto refusal = [&directory](const char* results) {
        const End end = call(directory, {"--results", results, "--export", "e.csv"});
        EXPECT_EQ(end.mStatus, 2);
        return end.mComplaint;
    };
    EXPECT_EQ(refusal("r"), "nothing is exported: The file r/captors.res could not be read.");
    EXPECT_EQ(refusal("x/"), "nothing is exported: The file x/captors.res could not be read.");
    directory.write("r/captors.res", "");
    EXPECT_EQ(refusal("r/"), "nothing is exported: The file r/tps.res could not be read.");
    EXPECT_EQ(directory.read("e.csv"), "former");
    EXPECT_EQ(namesIn(directory.path()), (Words{"e.csv", "r"}));
}

// ---------------------------------------------------------------- interrupts

namespace {

/// A run that takes as long as it is let.
const Words ENDLESS = SMALL + Words{"-n", "1000000000", "-o", "results"};

/// Waits until the files hold lines on the disk, the last of them cut by the writer's buffer.
void waitForLines(const TestDirectory& directory)
{
    const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    std::error_code error;
    while (std::filesystem::file_size(directory.path() / "results/tps.res", error) < 65536
           || error) {
        ASSERT_LT(std::chrono::steady_clock::now(), latest);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

class RunProgramInterrupt : public testing::TestWithParam<int>
{};

/// One that says, for each node and step, that the atoms have not converged, and stands still as
/// soon as nobody reads that.
const Words TALKING = {"--default",          "--set=mLength=3.0375e-6",
                       "--method=CN_P",      "--set=mIterationsMaxNumber=1",
                       "--steps=1000000000", "--quiet"};

} // namespace

TEST_P(RunProgramInterrupt, TheRunEndsBetweenTwoStepsWithWholeFiles)
{
    const TestDirectory directory;
    RunCall run(ENDLESS, directory.path());
    run.start();
    waitForLines(directory);
    const auto begin = std::chrono::steady_clock::now();
    run.kill(GetParam());
    EXPECT_EQ(run.finish(), 130);
    // A step takes well below a millisecond; the rest is for a machine that does much else.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    const auto lines = linesOfSteps(directory.path() / "results");
    ASSERT_EQ(lines.size(), SMALL_FILES.size() - 2);
    const long steps = lines.at("tps.res");
    EXPECT_GT(steps, 1000);
    for (const auto& [name, number] : lines) {
        EXPECT_EQ(number, steps) << name;
    }
    EXPECT_EQ(run.complaint(), "interrupted after step " + std::to_string(steps)) << run.error();
    EXPECT_NE(run.out().find("\nexecution time:"), std::string::npos);
}

TEST_P(RunProgramInterrupt, ASecondOneOfTheSameKindEndsTheProcessAtOnce)
{
    const TestDirectory directory;
    RunCall run(TALKING, directory.path());
    run.start();
    ASSERT_TRUE(run.waitUntilOutIsFull());
    run.kill(GetParam());
    ASSERT_TRUE(run.waitUntilDefault(GetParam()));
    EXPECT_TRUE(run.isRunning());
    run.kill(GetParam());
    EXPECT_EQ(run.finish(), -GetParam());
}

TEST_P(RunProgramInterrupt, ASecondOneOfTheOtherKindEndsTheProcessAtOnce)
{
    const TestDirectory directory;
    RunCall run(TALKING, directory.path());
    run.start();
    ASSERT_TRUE(run.waitUntilOutIsFull());
    run.kill(GetParam());
    ASSERT_TRUE(run.waitUntilDefault(GetParam()));
    EXPECT_TRUE(run.isRunning());
    const int other = GetParam() == SIGINT ? SIGTERM : SIGINT;
    run.kill(other);
    EXPECT_EQ(run.finish(), -other);
}

INSTANTIATE_TEST_SUITE_P(Signals, RunProgramInterrupt, testing::Values(SIGINT, SIGTERM),
                         [](const auto& tested) {
                             return std::string(tested.param == SIGINT ? "Interrupt" : "Terminate");
                         });

TEST(RunProgram, AnInterruptEndsTheLiveLineBeforeItIsTold)
{
    const TestDirectory directory;
    RunCall run(ENDLESS + Words{"--progress=always"}, directory.path());
    run.start();
    ASSERT_TRUE(run.readErrorUntil("\rstep "));
    run.kill(SIGINT);
    EXPECT_EQ(run.finish(), 130);
    EXPECT_TRUE(run.complaint().starts_with("interrupted after step ")) << run.error();
}

TEST(RunProgram, AnInterruptedRunStillWritesItsTableAndIsExported)
{
    for (const char* option : {"--table", "--export"}) {
        const TestDirectory directory;
        RunCall run(ENDLESS + Words{option, "all.txt", "--progress=always"}, directory.path());
        run.start();
        ASSERT_TRUE(run.readErrorUntil("\rstep "));
        run.kill(SIGTERM);
        EXPECT_EQ(run.finish(), 130);
        EXPECT_EQ(count(directory.read("all.txt"), '\n'),
                  1 + linesOfSteps(directory.path() / "results").at("tps.res"))
            << option;
    }
}

TEST(RunProgram, AnInterruptEndsAnExportOfFormerResults)
{
    constexpr int steps = 100000; // more than a pipe holds
    const TestDirectory directory;
    std::string times;
    for (int k = 0; k < steps; ++k) {
        times += "1 2 3.25\n";
    }
    directory.write("captors.res", "");
    directory.write("tps.res", times);
    ASSERT_EQ(mkfifo(directory.file("pipe").c_str(), 0600), 0);
    RunCall run({"--results", ".", "--export", "pipe"}, directory.path());
    run.start();
    std::ifstream pipe(directory.file("pipe"));
    std::string line;
    ASSERT_TRUE(std::getline(pipe, line));
    EXPECT_EQ(line, "time (s)");
    run.kill(SIGINT);
    ASSERT_TRUE(run.waitUntilDefault(SIGINT));
    int lines = 0;
    while (std::getline(pipe, line)) {
        ++lines;
    }
    EXPECT_LT(lines, steps);
    EXPECT_EQ(run.finish(), 130);
    EXPECT_EQ(run.complaint(), "interrupted; nothing is exported");
}

// ---------------------------------------------------------------- progress

TEST(RunProgram, ProgressToAPipeIsALineForEachTenthOfTheRun)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"-n", "203"});
    const Words lines = linesOf(end.mError);
    ASSERT_GE(lines.size(), 10U) << end.mError;
    for (long tenth = 1; tenth <= 10; ++tenth) {
        // The first step at which the tenth is full.
        const long step = (203 * tenth + 9) / 10;
        const std::string begin =
            "step " + std::to_string(step) + " of 203, " + std::to_string(step * 100 / 203) + " %";
        EXPECT_TRUE(lines[static_cast<std::size_t>(tenth - 1)].starts_with(begin))
            << lines[static_cast<std::size_t>(tenth - 1)] << " and not " << begin;
    }
    EXPECT_EQ(lines[9], "step 203 of 203, 100 %");
    EXPECT_TRUE(lines[10].starts_with("203 steps in ")) << lines[10];
}

TEST(RunProgram, ALiveLineIsRewrittenAndEndsWithTheRun)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--progress=always", "-n", "400"});
    EXPECT_EQ(end.mStatus, 0);
    const std::size_t lineEnd = end.mError.find('\n');
    ASSERT_NE(lineEnd, std::string::npos);
    const std::string live = end.mError.substr(0, lineEnd);
    EXPECT_TRUE(live.starts_with("\rstep ")) << live;
    const std::string last = live.substr(live.rfind('\r'));
    EXPECT_TRUE(last.starts_with("\rstep 400 of 400, 100 %")) << last;
    EXPECT_EQ(last.find_last_not_of(' '), last.find('%')) << last;
    EXPECT_TRUE(end.mError.substr(lineEnd + 1).starts_with("400 steps in "))
        << end.mError.substr(lineEnd + 1);
    EXPECT_EQ(end.mError.find('\r', lineEnd), std::string::npos);
}

TEST(RunProgram, WithoutProgressThereAreTheNotesAndTheSummaryAlone)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--progress=never"});
    EXPECT_EQ(end.mStatus, 0);
    const Words lines = linesOf(end.mError);
    ASSERT_EQ(lines.size(), 6U) << end.mError;
    EXPECT_TRUE(lines[0].starts_with("note: ")) << lines[0];
    EXPECT_TRUE(lines[1].starts_with("20 steps in ")) << lines[1];
}

TEST(RunProgram, AQuietRunSaysNothingOnStandardErrorAndLogsAllTheSame)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--quiet", "--plot", "--method=CN_Z"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(end.mError, "");
    EXPECT_NE(end.mOut.find("execution time:"), std::string::npos);
}

TEST(RunProgram, OnATerminalTheProgressIsOneLiveLine)
{
    const TestDirectory directory;
    RunCall run(SMALL + Words{"-n", "400"}, directory.path());
    run.useTerminal();
    EXPECT_EQ(run.finish(), 0);
    const Words lines = linesOf(run.error());
    ASSERT_GE(lines.size(), 2U) << run.error();
    EXPECT_TRUE(lines[0].starts_with("\rstep ")) << lines[0];
    EXPECT_NE(lines[0].find("\rstep 400 of 400, 100 %"), std::string::npos) << lines[0];
    EXPECT_TRUE(lines[1].starts_with("400 steps in ")) << lines[1];
}

TEST(RunProgram, OnATerminalAQuietRunIsQuiet)
{
    const TestDirectory directory;
    RunCall run(SMALL + Words{"-q"}, directory.path());
    run.useTerminal();
    EXPECT_EQ(run.finish(), 0);
    EXPECT_EQ(run.error(), "");
}

// ---------------------------------------------------------------- saving in place of running

TEST(RunProgram, ASavedProblemRunsAsTheOneThatWasSaved)
{
    const TestDirectory directory;
    const Words changes = {"--method=Split", "--set=mLength=3.0375e-6", "--set=mLevelsNumber=3",
                           "--set=mOmega=0,1.1e15,1.9e15"};
    const End end = call(directory, Words{"--default"} + changes + Words{"--write-xml", "a.xml"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(end.mOut, "");
    EXPECT_EQ(end.mError, "");
    EXPECT_EQ(namesIn(directory.path()), Words{"a.xml"});
    EXPECT_EQ(call(directory, {"a.xml", "--write-xml", "b.xml"}).mStatus, 0);
    EXPECT_EQ(call(directory, {"a.xml", "-n20", "-o", "a"}).mStatus, 0);
    EXPECT_EQ(call(directory, {"b.xml", "-n20", "-o", "b"}).mStatus, 0);
    EXPECT_EQ(resultsIn(directory.path() / "a").size(), SMALL_FILES.size());
    EXPECT_EQ(resultsIn(directory.path() / "a"), resultsIn(directory.path() / "b"));
}

TEST(RunProgram, AParametersFileMayBeSavedOverItself)
{
    const TestDirectory directory;
    SavedProblem::write(directory.file("p.xml"));
    EXPECT_EQ(call(directory, {"p.xml", "--set=mAtomsNumber=2e24", "--write-xml=p.xml"}).mStatus,
              0);
    EXPECT_EQ(namesIn(directory.path()), Words{"p.xml"});
    EXPECT_EQ(SavedProblem(directory.file("p.xml")).text("QV_Bloch", "mAtomsNumber"),
              "2.000000e+24");
}

TEST(RunProgram, ASavedProjectIsAProject)
{
    const TestDirectory directory;
    EXPECT_EQ(call(directory, SMALL + Words{"--write-xml", "p.xml"}).mStatus, 0);
    const End end = call(directory, {"p.xml", "--write-project", "new/project"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(end.mError, "");
    EXPECT_EQ(namesIn(directory.path() / "new/project"),
              (Words{"parameters.xml", "project.dpj", "savingPlotterWindows.txt"}));
    EXPECT_EQ(directory.read("new/project/savingPlotterWindows.txt"), "");
    EXPECT_EQ(call(directory, {"new/project", "-n20"}).mStatus, 0);
    EXPECT_EQ(call(directory, {"p.xml", "-n20"}).mStatus, 0);
    EXPECT_EQ(resultsIn(directory.path() / "new/project").size(), SMALL_FILES.size());
    EXPECT_EQ(resultsIn(directory.path() / "new/project"),
              resultsIn(directory.path() / "resultats"));
    const auto before = contentsOf(directory.path());
    const End again = call(directory, {"p.xml", "--write-project", "new/project"});
    EXPECT_EQ(again.mStatus, 2);
    EXPECT_EQ(again.mComplaint, "new/project holds a project already; give a new directory");
    EXPECT_EQ(contentsOf(directory.path()), before);
}

TEST(RunProgram, BothFormsMayBeSavedAtOnce)
{
    const TestDirectory directory;
    EXPECT_EQ(
        call(directory, SMALL + Words{"--write-project", "p", "--write-xml", "p.xml"}).mStatus, 0);
    EXPECT_EQ(namesIn(directory.path()), (Words{"p", "p.xml"}));
    EXPECT_EQ(SavedProblem(directory.file("p.xml")).text("QV_1DMilieu", "mLength"),
              SavedProblem(directory.file("p/parameters.xml")).text("QV_1DMilieu", "mLength"));
}

// ---------------------------------------------------------------- the table and the picture

TEST(RunProgram, TheTableHoldsTheColumnsAndValuesOfTheFiles)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL
                                        + Words{"--set=mBlochEquations=2", "--set=mDimension=2",
                                                "--table", "t.tsv", "-o", "results", "-q"});
    ASSERT_EQ(end.mStatus, 0) << end.mError;
    std::string header = "t\tt (s)";
    std::vector<Words> columnsOfFiles;
    const auto addFile = [&](const std::string& name, std::size_t first) {
        // The numbers of the file from column `first` on, step by step.
        const Words lines = linesOf(directory.read("results/" + name));
        columnsOfFiles.resize(lines.size());
        for (std::size_t row = 0; row < lines.size(); ++row) {
            std::istringstream stream(lines[row]);
            Words words(std::istream_iterator<std::string>(stream), {});
            words.erase(words.begin(), words.begin() + static_cast<long>(first));
            columnsOfFiles[row] = columnsOfFiles[row] + words;
        }
    };
    addFile("tps.res", 0);
    for (Words& row : columnsOfFiles) {
        row.erase(row.begin() + 1); // the Rabi frequency
    }
    for (const char* location : {"1", "11", "19", "27", "38"}) {
        const std::string at = std::string(" at ") + location;
        header += "\tE0 (V/m)" + at + "\tE1 (V/m)" + at;
        addFile(std::string("E_at_") + location + ".res", 1);
        for (const char* system : {"Rho_Bloch0", "Rho_Bloch1"}) {
            header += std::string("\t") + system + " iterations" + at;
            for (const char* element : {"[0][0]", "[0][1]", "[1][0]", "[1][1]"}) {
                header += std::string("\t") + system + element + at;
            }
            addFile(std::string(system) + "_at_" + location + ".res", 1);
        }
    }
    const Words table = linesOf(directory.read("t.tsv"));
    ASSERT_EQ(table.size(), 21U);
    EXPECT_EQ(table[0], header);
    for (std::size_t row = 0; row < 20; ++row) {
        std::istringstream stream(table[row + 1]);
        const Words words(std::istream_iterator<std::string>(stream), {});
        ASSERT_EQ(words.size(), columnsOfFiles[row].size());
        for (std::size_t column = 0; column < words.size(); ++column) {
            EXPECT_EQ(std::stod(words[column]), std::stod(columnsOfFiles[row][column]))
                << "row " << row << ", column " << column;
        }
        EXPECT_EQ(count(table[row + 1], '\t'), static_cast<long>(words.size()) - 1);
    }
}

TEST(RunProgram, ATableReplacesAFormerOneAndStandsWhereItWasAskedFor)
{
    const TestDirectory directory;
    directory.write("t.tsv", "former");
    EXPECT_EQ(call(directory, SMALL + Words{"-o", "deep/results", "--table", "t.tsv"}).mStatus, 0);
    EXPECT_EQ(namesIn(directory.path()), (Words{"deep", "t.tsv"}));
    EXPECT_TRUE(directory.read("t.tsv").starts_with("t\tt (s)\t"));
}

TEST(RunProgram, AnExportHoldsTheColumnsAndValuesOfTheFiles)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL
                                        + Words{"--set=mBlochEquations=2", "--set=mDimension=2",
                                                "--export", "e.csv", "-o", "results", "-q"});
    ASSERT_EQ(end.mStatus, 0) << end.mError;
    std::vector<Words> expected(20);
    const auto addFile = [&](const std::string& name, std::size_t first) {
        const Words lines = linesOf(directory.read("results/" + name));
        ASSERT_EQ(lines.size(), expected.size());
        for (std::size_t row = 0; row < lines.size(); ++row) {
            std::istringstream stream(lines[row]);
            Words words(std::istream_iterator<std::string>(stream), {});
            words.erase(words.begin(), words.begin() + static_cast<long>(first));
            expected[row] = expected[row] + words;
        }
    };
    std::string header = "time (s)";
    addFile("tps.res", 2);
    int number = 0;
    for (const char* location : {"1", "11", "19", "27", "38"}) {
        const std::string captor =
            ",captor " + std::to_string(++number) + " node " + location + " ";
        header += captor + "Ex (V/m)" + captor + "Ey (V/m)";
        addFile(std::string("E_at_") + location + ".res", 1);
        for (const char* system : {"0", "1"}) {
            const std::string name = captor + "system " + system;
            header += name + " iterations (1)";
            for (const char* element : {"0 0", "0 1", "1 0", "1 1"}) {
                header += name + " Re rho " + element + " (1)";
            }
            addFile(std::string("Rho_Bloch") + system + "_at_" + location + ".res", 1);
        }
    }
    const Words lines = linesOf(directory.read("e.csv"));
    ASSERT_EQ(lines.size(), 21U);
    EXPECT_EQ(lines[0], header);
    for (std::size_t row = 0; row < 20; ++row) {
        std::istringstream stream(lines[row + 1]);
        Words cells;
        std::string cell;
        while (std::getline(stream, cell, ',')) {
            cells.push_back(cell);
        }
        ASSERT_EQ(cells.size(), expected[row].size());
        for (std::size_t column = 0; column < cells.size(); ++column) {
            EXPECT_EQ(std::stod(cells[column]), std::stod(expected[row][column]))
                << "row " << row << ", column " << column;
        }
    }
}

TEST(RunProgram, FormerResultsAreExportedAsAfterTheirRunAndStayAsTheyAre)
{
    const TestDirectory directory;
    directory.write("e.csv", "former");
    ASSERT_EQ(
        call(directory, SMALL + Words{"-q", "-o", "deep/results", "--export", "e.csv"}).mStatus, 0);
    const auto before = contentsOf(directory.path());
    for (const char* results : {"deep/results", "deep/results/"}) {
        const End end = call(directory, {"--export", "again.csv", "--results", results});
        EXPECT_EQ(end.mStatus, 0);
        EXPECT_EQ(end.mOut + end.mError, "");
        EXPECT_EQ(directory.read("again.csv"), directory.read("e.csv"));
        std::filesystem::remove(directory.file("again.csv"));
    }
    EXPECT_EQ(contentsOf(directory.path()), before);
    EXPECT_TRUE(directory.read("e.csv").starts_with("time (s),captor 1 node 1 Ex (V/m),"));
}

TEST(RunProgram, ThePictureHasTwoRowsForEachCaptorAndTheLargestFields)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL
                                        + Words{"--plot", "-n", "60", "--progress=never",
                                                "--set=mWavePackageDuration=4e-15"});
    ASSERT_EQ(end.mStatus, 0);
    const Words lines = linesOf(end.mError);
    ASSERT_EQ(lines.size(), 16U) << end.mError;
    EXPECT_TRUE(lines[5].starts_with("field, and population of the highest level, from 0 to "))
        << lines[5];
    const char* const locations[] = {"1", "11", "19", "27", "38"};
    const char* const places[] = {"  2.5 %", " 27.5 %", " 47.5 %", " 67.5 %", " 95.0 %"};
    for (std::size_t i = 0; i < 5; ++i) {
        const std::string& field = lines[6 + 2 * i];
        EXPECT_TRUE(field.starts_with(std::string(places[i]) + " E   |")) << field;
        EXPECT_TRUE(lines[7 + 2 * i].starts_with("        rho |")) << lines[7 + 2 * i];
        double largest = 0.0;
        for (const std::string& line :
             linesOf(directory.read(std::string("resultats/E_at_") + locations[i] + ".res"))) {
            std::istringstream stream(line);
            double t = 0.0;
            double value = 0.0;
            stream >> t >> value;
            largest = std::max(largest, std::fabs(value));
        }
        char text[40];
        std::snprintf(text, sizeof text, "| %.3g V/m", largest);
        EXPECT_TRUE(field.ends_with(text)) << field << " and not " << text;
    }
}

TEST(RunProgram, APictureOfARunWithoutAtomsShowsTheField)
{
    const TestDirectory directory;
    const End end =
        call(directory, SMALL + Words{"--set=mBlochEquations=0", "--plot", "--table", "t.tsv"});
    EXPECT_EQ(end.mStatus, 0) << end.mError;
    EXPECT_NE(end.mError.find("8 result files with 20 lines"), std::string::npos) << end.mError;
    EXPECT_EQ(linesOf(directory.read("t.tsv"))[0],
              "t\tt (s)\tE0 (V/m) at 1\tE0 (V/m) at 11\tE0 (V/m) at 19\tE0 (V/m) at 27\tE0 (V/m) "
              "at 38");
}

// ---------------------------------------------------------------- settings

namespace {

struct SavedSetting
{
    const char* mClass; ///< As it may stand before the key.
    const char* mKey;
    const char* mValue;
    const char* mSaved; ///< The values in the parameters file, joined by blanks.

    friend std::ostream& operator<<(std::ostream& out, const SavedSetting& setting)
    {
        return out << setting.mKey << "=" << setting.mValue;
    }
};

const SavedSetting SAVED_SETTINGS[] = {
    {"QV_1DProblem", "mMethod", "2", "2"},
    {"QV_1DProblem", "mMethod", "pc", "5"},
    {"QV_1DProblem", "mDelta", "1.5e10", "1.500000e+10"},
    {"QV_1DProblem", "mMean", "-2.5e9", "-2.500000e+09"},
    {"QV_1DMaxwell", "mIsLaserType", "1", "1"},
    {"QV_1DMaxwell", "mR", "0.25", "2.500000e-01"},
    {"QV_1DMaxwell", "mDimension", "2", "2"},
    {"QV_1DMaxwell", "mFactors", "0.25,0.75", "2.500000e-01 7.500000e-01"},
    {"QV_IncidentFields", "mFieldMaxValue", "4.2e9", "4.200000e+09"},
    {"QV_IncidentFields", "mWaveLength", "8e-7", "8.000000e-07"},
    {"QV_IncidentFields", "mWavePackageDuration", "2e-14", "2.000000e-14"},
    {"QV_IncidentFields", "mCFL", "0.5", "5.000000e-01"},
    {"QV_IncidentFields", "mType", "6", "6"},
    {"QV_IncidentFields", "mType", "PACKAGE", "2"},
    {"QV_1DMilieu", "mIndice", "1.25", "1.250000e+00"},
    {"QV_1DMilieu", "mLength", "0x1p-10", "9.765625e-04"},
    {"QV_1DMilieu", "mStartingPosition", "25", "2.500000e+01"},
    {"QV_1DMilieu", "mEndingPosition", "75.5", "7.550000e+01"},
    {"QV_1DMilieu", "mDiscretizationNumber", "32", "32"},
    {"QV_1DMilieu", "mCaracteristicLength", "1e-6", "1.000000e-06"},
    {"QV_1DMilieu", "mCaptors", "10,60", "1.000000e+01 6.000000e+01"},
    {"QV_Bloch", "mLevelsNumber", "3", "3"},
    {"QV_Bloch", "mAtomsNumber", "3e23", "3.000000e+23"},
    {"QV_Bloch", "mTemperature", "77", "7.700000e+01"},
    {"QV_Bloch", "mTransversalRelaxation", "2e11", "2.000000e+11"},
    {"QV_Bloch", "mIterationsMaxNumber", "99", "99"},
    {"QV_Bloch", "mConvergenceRate", "1e-9", "1.000000e-09"},
    {"QV_Bloch", "mSplitType", "3", "3"},
    {"QV_Bloch", "mSplitType", "rnh", "1"},
    {"QV_Bloch", "mRelaxationType", "2", "2"},
    {"QV_Bloch", "mRelaxationType", "Cascade", "1"},
    {"QV_Bloch", "mOmega", "1e14,2e15", "1.000000e+14 2.000000e+15"},
    {"QV_Bloch", "mPs", "0,2e-29,3e-29,0", "0.000000e+00 2.000000e-29 3.000000e-29 0.000000e+00"},
    {"QV_Bloch", "mW", "1,2e8,3e8,4", "1.000000e+00 2.000000e+08 3.000000e+08 4.000000e+00"},
    {"QV_Bloch", "mRhoE", "0.75,0.25", "7.500000e-01 2.500000e-01"},
    {"QV_Bloch", "mInitialDensity", "0.5,(0.1,-0.2),(0.1,0.2),0.5",
     "(5.000000e-01,0.000000e+00) (1.000000e-01,-2.000000e-01) (1.000000e-01,2.000000e-01) "
     "(5.000000e-01,0.000000e+00)"},
};

class RunProgramSetting : public testing::TestWithParam<SavedSetting>
{};

} // namespace

TEST_P(RunProgramSetting, ArrivesInTheParametersFileWithAndWithoutItsClass)
{
    const SavedSetting& setting = GetParam();
    const TestDirectory directory;
    const std::string assignment = std::string(setting.mKey) + "=" + setting.mValue;
    EXPECT_NE(SavedProblem((SavedProblem::write(directory.file("p.xml")), directory.file("p.xml")))
                  .text(setting.mClass, setting.mKey),
              setting.mSaved)
        << "the value is there before";
    for (const std::string& text : {assignment, setting.mClass + ("." + assignment)}) {
        const End end = call(directory, {"p.xml", "--set", text, "--write-xml", "q.xml"});
        EXPECT_EQ(end.mStatus, 0) << text << ": " << end.mError;
        EXPECT_EQ(SavedProblem(directory.file("q.xml")).text(setting.mClass, setting.mKey),
                  setting.mSaved)
            << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Keys, RunProgramSetting, testing::ValuesIn(SAVED_SETTINGS),
                         [](const auto& tested) {
                             return tested.param.mKey + std::string("_")
                                    + std::to_string(tested.index);
                         });

TEST(RunProgram, SettingsCarryAlongWhatFollowsFromThem)
{
    const TestDirectory directory;
    EXPECT_EQ(call(directory, {"--default", "--set=mWaveLength=8e-7", "--set=mTemperature=150",
                               "--set=mDimension=2", "--set=mLevelsNumber=3",
                               "--set=mBlochEquations=3", "--write-xml=p.xml"})
                  .mStatus,
              0);
    const SavedProblem saved(directory.file("p.xml"));
    EXPECT_EQ(saved.text("QV_IncidentFields", "mOmega0"), "2.353838e+15");
    EXPECT_EQ(saved.text("QV_1DMilieu", "mCaracteristicLength"), "8.000000e-07");
    EXPECT_EQ(saved.text("QV_Bloch", "mBeta"), "5.090997e-14");
    EXPECT_EQ(saved.count("QV_Bloch", "mPs"), 2U);
    EXPECT_EQ(saved.count("QV_1DProblem", "mBlochEquations"), 3U);
    const std::string zero = "0.000000e+00";
    EXPECT_EQ(saved.text("QV_Bloch", "mRhoE"), "1.303080e-06 1.000000e+08 " + zero);
}

TEST(RunProgram, ANumberInBracketsChoosesTheSystemOrTheComponent)
{
    const TestDirectory directory;
    EXPECT_EQ(call(directory,
                   {"--default", "--set=mBlochEquations=3", "--set=mOmega[0]=1,2",
                    "--set=QV_Bloch.mOmega[2]=3,4", "--set=mDimension=2", "--set=mPs[1]=0,5,6,0",
                    "--set=QV_Bloch.mPs[0]=0,7,8,0", "--write-xml=p.xml"})
                  .mStatus,
              0);
    const SavedProblem saved(directory.file("p.xml"));
    const auto omega = [&saved](unsigned long system) {
        return saved.text("QV_1DProblem", "mBlochEquations", system, "mOmega");
    };
    EXPECT_EQ(omega(0), "1.000000e+00 2.000000e+00");
    EXPECT_EQ(omega(1), "0.000000e+00 1.256000e+15");
    EXPECT_EQ(omega(2), "3.000000e+00 4.000000e+00");
    EXPECT_EQ(saved.text("QV_Bloch", "mPs"), "0.000000e+00 7.000000e+00 8.000000e+00 0.000000e+00 "
                                             "0.000000e+00 5.000000e+00 6.000000e+00 0.000000e+00");
}

TEST(RunProgram, SettingsTakeEffectInTheirOrderAndOwnOptionsAfterThem)
{
    const TestDirectory directory;
    EXPECT_EQ(
        call(directory, {"--method=Split", "--set=mLevelsNumber=3", "--set=mRhoE=0.5,0.25,0",
                         "--default", "--set=mRhoE=1,0,0", "--set=mMethod=pc", "--write-xml=p.xml"})
            .mStatus,
        0);
    const SavedProblem saved(directory.file("p.xml"));
    EXPECT_EQ(saved.text("QV_Bloch", "mRhoE"), "1.000000e+00 0.000000e+00 0.000000e+00");
    EXPECT_EQ(saved.text("QV_1DProblem", "mMethod"), "4");
    const End early = call(directory, {"--default", "--set=mRhoE=1,0,0", "--set=mLevelsNumber=3",
                                       "--write-xml=q.xml"});
    EXPECT_EQ(early.mStatus, 2);
    EXPECT_EQ(early.mComplaint, "mRhoE takes 2 numbers joined by commas, not \"1,0,0\"");
}

TEST(RunProgram, TheNumberOfStepsMayBeASettingAndItsOptionWins)
{
    const TestDirectory directory;
    SavedProblem::write(directory.file("p.xml"));
    const End set = call(directory, {"p.xml", "--set", "mMaxTimeStepsNumber=30"});
    EXPECT_NE(set.mError.find("\n30 steps in "), std::string::npos) << set.mError;
    const End option = call(directory, {"-n40", "p.xml", "--set=mMaxTimeStepsNumber=30"});
    EXPECT_NE(option.mError.find("\n40 steps in "), std::string::npos) << option.mError;
}

TEST(RunProgram, OptionsMayStandBehindTheInputAndTwoDashesEndThem)
{
    const TestDirectory directory;
    SavedProblem::write(directory.file("-p.xml"));
    EXPECT_EQ(call(directory, {"./-p.xml", "-n20", "-o", "a"}).mStatus, 0);
    EXPECT_EQ(call(directory, {"-n20", "-o", "b", "--", "-p.xml"}).mStatus, 0);
    EXPECT_EQ(resultsIn(directory.path() / "a").size(), SMALL_FILES.size());
    EXPECT_EQ(resultsIn(directory.path() / "a"), resultsIn(directory.path() / "b"));
}

TEST(RunProgram, TheLaserWithTwoReflectingEndsArrivesInTheRun)
{
    const TestDirectory directory;
    const End end = call(directory, SMALL + Words{"--set=mIsRLaserType=1", "--check"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_NE(end.mError.find("note: Reflexive Coef: = 1: both ends of a cavity reflect"),
              std::string::npos)
        << end.mError;
}
