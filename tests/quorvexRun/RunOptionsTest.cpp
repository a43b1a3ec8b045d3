#include "quorvexRun/RunOptions.h"

#include "quorvexRun/RunError.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

RunOptions parse(std::vector<std::string> words)
{
    words.insert(words.begin(), "quorvex-run");
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    return RunOptions::parse(static_cast<int>(words.size()), arguments.data());
}

/// Why the words are refused; empty when they are not.
std::string refusal(const std::vector<std::string>& words)
{
    try {
        parse(words);
    } catch (const RunError& error) {
        return error.what();
    }
    return "";
}

} // namespace

TEST(RunOptions, AnInputAloneLeavesEverythingElseToItself)
{
    const RunOptions options = parse({"p.xml"});
    EXPECT_EQ(options.mInput, "p.xml");
    EXPECT_EQ(options.mOutput, "");
    EXPECT_FALSE(options.mSteps.has_value());
    EXPECT_EQ(options.mMethod, "");
    EXPECT_TRUE(options.mSettings.empty());
    EXPECT_EQ(options.mXmlFile, "");
    EXPECT_EQ(options.mProjectDirectory, "");
    EXPECT_EQ(options.mTableFile, "");
    EXPECT_EQ(options.mExportFile, "");
    EXPECT_EQ(options.mResults, "");
    EXPECT_FALSE(options.mIsDefault);
    EXPECT_FALSE(options.mIsCheckOnly);
    EXPECT_FALSE(options.mIsForced);
    EXPECT_FALSE(options.mIsQuiet);
    EXPECT_FALSE(options.mIsPlotted);
    EXPECT_FALSE(options.mIsHelp);
    EXPECT_FALSE(options.mIsVersion);
    EXPECT_FALSE(options.isSavedOnly());
    EXPECT_EQ(options.mProgress, RunOptions::AUTO);
}

TEST(RunOptions, LongOptionsTakeTheirValuesInBothForms)
{
    for (const auto& words :
         {std::vector<std::string>{"--output=o", "--steps=30", "--method=pc", "--set=a=1",
                                   "--table=t", "--export=e", "p.xml"},
          {"--output", "o", "--steps", "30", "--method", "pc", "--set", "a=1", "--table", "t",
           "--export", "e", "p.xml"}}) {
        const RunOptions options = parse(words);
        EXPECT_EQ(options.mOutput, "o");
        EXPECT_EQ(options.mSteps, 30UL);
        EXPECT_EQ(options.mMethod, "pc");
        ASSERT_EQ(options.mSettings.size(), 1U);
        EXPECT_EQ(options.mSettings[0], std::pair(std::string("a"), std::string("1")));
        EXPECT_EQ(options.mTableFile, "t");
        EXPECT_EQ(options.mExportFile, "e");
        EXPECT_EQ(options.mInput, "p.xml");
    }
}

TEST(RunOptions, LettersTakeTheirValuesInBothFormsAndStandTogether)
{
    const RunOptions options = parse({"-qn30", "-o", "o", "p.xml"});
    EXPECT_TRUE(options.mIsQuiet);
    EXPECT_EQ(options.mSteps, 30UL);
    EXPECT_EQ(options.mOutput, "o");
    EXPECT_EQ(options.mInput, "p.xml");
}

TEST(RunOptions, LongOptionsMayBeCutAsLongAsTheyAreClear)
{
    const RunOptions options = parse({"--out=o", "--def", "--q", "--plo"});
    EXPECT_EQ(options.mOutput, "o");
    EXPECT_TRUE(options.mIsDefault);
    EXPECT_TRUE(options.mIsQuiet);
    EXPECT_TRUE(options.mIsPlotted);
}

TEST(RunOptions, FlagsSetWhatTheyName)
{
    EXPECT_TRUE(parse({"p", "--check"}).mIsCheckOnly);
    EXPECT_TRUE(parse({"p", "--force"}).mIsForced);
    EXPECT_TRUE(parse({"p", "--quiet"}).mIsQuiet);
    EXPECT_TRUE(parse({"p", "--plot"}).mIsPlotted);
    EXPECT_TRUE(parse({"--default"}).mIsDefault);
}

TEST(RunOptions, ProgressIsOneOfThreeWords)
{
    EXPECT_EQ(parse({"p", "--progress=auto"}).mProgress, RunOptions::AUTO);
    EXPECT_EQ(parse({"p", "--progress=always"}).mProgress, RunOptions::ALWAYS);
    EXPECT_EQ(parse({"p", "--progress", "never"}).mProgress, RunOptions::NEVER);
    for (const char* word : {"Always", "al", "always "}) {
        EXPECT_EQ(refusal({"p", "--progress", word}),
                  "--progress takes auto, always or never, not \"" + std::string(word) + "\"");
    }
}

TEST(RunOptions, TheLastOfSeveralEqualOptionsHolds)
{
    const RunOptions options = parse({"-n10", "-o", "a", "p", "-n", "20", "-o", "b"});
    EXPECT_EQ(options.mSteps, 20UL);
    EXPECT_EQ(options.mOutput, "b");
}

TEST(RunOptions, SettingsAreKeptInTheirOrder)
{
    const RunOptions options = parse({"--set=b=2", "p", "--set", "a=1", "--set=b=3"});
    ASSERT_EQ(options.mSettings.size(), 3U);
    EXPECT_EQ(options.mSettings[0], std::pair(std::string("b"), std::string("2")));
    EXPECT_EQ(options.mSettings[1], std::pair(std::string("a"), std::string("1")));
    EXPECT_EQ(options.mSettings[2], std::pair(std::string("b"), std::string("3")));
}

TEST(RunOptions, ASettingIsCutAtItsFirstEqualSign)
{
    EXPECT_EQ(parse({"p", "--set=a=b=c"}).mSettings[0],
              std::pair(std::string("a"), std::string("b=c")));
    EXPECT_EQ(parse({"p", "--set=a="}).mSettings[0], std::pair(std::string("a"), std::string()));
    for (const char* text : {"a", "=", "=1"}) {
        EXPECT_EQ(refusal({"p", "--set", text}),
                  "--set takes KEY=VALUE, for instance mFieldMaxValue=4.2e9, not \""
                      + std::string(text) + "\"");
    }
}

TEST(RunOptions, StepsAreAWholeNumberThatFits)
{
    EXPECT_EQ(parse({"p", "-n", "0"}).mSteps, 0UL);
    EXPECT_EQ(parse({"p", "-n", "007"}).mSteps, 7UL);
    EXPECT_EQ(parse({"p", "-n", "18446744073709551615"}).mSteps, 18446744073709551615UL);
    for (const char* text : {"-1", "+1", " 1", "1 ", "1e3", "0x10", "x", "18446744073709551616",
                             "99999999999999999999999999"}) {
        EXPECT_EQ(refusal({"p", "-n", text}),
                  "--steps takes a whole number from 0 on, not \"" + std::string(text) + "\"");
    }
}

TEST(RunOptions, SavingInPlaceOfRunningIsAskedForByEitherForm)
{
    EXPECT_TRUE(parse({"p", "--write-xml", "x"}).isSavedOnly());
    EXPECT_EQ(parse({"p", "--write-xml", "x"}).mXmlFile, "x");
    EXPECT_TRUE(parse({"p", "--write-project", "d"}).isSavedOnly());
    EXPECT_EQ(parse({"p", "--write-project", "d"}).mProjectDirectory, "d");
}

TEST(RunOptions, HelpAndVersionNeedNoInputAndAskForNothingElse)
{
    EXPECT_TRUE(parse({"--help"}).mIsHelp);
    EXPECT_TRUE(parse({"--version"}).mIsVersion);
    EXPECT_TRUE(parse({"--help", "a", "b", "c"}).mIsHelp);
}

TEST(RunOptions, ExactlyOneInputIsTakenOrTheDefault)
{
    const std::string inputs =
        "; it takes one: a project directory, a parameters file (.xml), or a directory with "
        "qv1.dat";
    EXPECT_EQ(refusal({}), "no input is given" + inputs);
    EXPECT_EQ(refusal({"-q"}), "no input is given" + inputs);
    EXPECT_EQ(refusal({"a", "b"}), "more than one input is given" + inputs);
    EXPECT_EQ(refusal({"a", "-q", "b"}), "more than one input is given" + inputs);
    EXPECT_EQ(refusal({"--default", "a"}),
              "--default starts from the default problem and takes no input");
    EXPECT_EQ(parse({"--default"}).mInput, "");
}

TEST(RunOptions, ResultsAreExportedWithoutAnInput)
{
    const RunOptions options = parse({"--results", "d", "--export=e.csv", "-q"});
    EXPECT_EQ(options.mResults, "d");
    EXPECT_EQ(options.mExportFile, "e.csv");
    EXPECT_EQ(options.mInput, "");
    EXPECT_TRUE(options.mIsQuiet);
}

TEST(RunOptions, ResultsNeedAFileToGoTo)
{
    const std::string text = "--results needs --export FILE, which says where to write them";
    EXPECT_EQ(refusal({"--results", "d"}), text);
    EXPECT_EQ(refusal({"--results", "d", "--table", "t"}), text);
    EXPECT_EQ(refusal({"--results", "d", "p.xml"}), text);
}

TEST(RunOptions, ResultsAndWhatBelongsToARunDoNotGoTogether)
{
    for (const auto& words : {std::vector<std::string>{"p.xml"},
                              {"--default"},
                              {"-o", "o"},
                              {"-n", "0"},
                              {"--method=pc"},
                              {"--set=a=1"},
                              {"--check"},
                              {"--force"},
                              {"--write-xml=x"},
                              {"--write-project=d"},
                              {"--table=t"},
                              {"--plot"}}) {
        std::vector<std::string> all{"--results", "d", "--export=e.csv"};
        all.insert(all.end(), words.begin(), words.end());
        EXPECT_EQ(refusal(all),
                  "--results runs nothing: besides it only --export and --quiet are taken")
            << words[0];
    }
}

TEST(RunOptions, AnExportDoesNotReplaceAResultFile)
{
    for (const char* file : {"tps.res", "d/captors.res", "/d/E_at_1.res", "Rho_Bloch0_at_1.res"}) {
        EXPECT_EQ(refusal({"p.xml", "--export", file}),
                  "--export takes another name than that of a result file, not \""
                      + std::string(file) + "\"");
    }
    EXPECT_EQ(parse({"p.xml", "--export", "d/E_at_1.res.csv"}).mExportFile, "d/E_at_1.res.csv");
}

TEST(RunOptions, TwoDashesEndTheOptions)
{
    EXPECT_EQ(parse({"-q", "--", "--check"}).mInput, "--check");
    EXPECT_FALSE(parse({"-q", "--", "--check"}).mIsCheckOnly);
}

TEST(RunOptions, AFaultyOptionIsNamedAsItWasTyped)
{
    const std::string hint = "; quorvex-run --help lists the options";
    EXPECT_EQ(refusal({"p", "--fast"}), "unknown or ambiguous option --fast" + hint);
    EXPECT_EQ(refusal({"p", "--fast=1"}), "unknown or ambiguous option --fast=1" + hint);
    EXPECT_EQ(refusal({"p", "--s", "1"}), "unknown or ambiguous option --s" + hint);
    EXPECT_EQ(refusal({"p", "-z"}), "unknown or ambiguous option -z" + hint);
    EXPECT_EQ(refusal({"--set=a=1", "-zq", "p"}), "unknown or ambiguous option -z" + hint);
    EXPECT_EQ(refusal({"p", "-o"}), "the option -o needs a value" + hint);
    EXPECT_EQ(refusal({"p", "-qo"}), "the option -o needs a value" + hint);
    EXPECT_EQ(refusal({"p", "--steps"}), "the option --steps needs a value" + hint);
    EXPECT_EQ(refusal({"p", "--method"}), "the option --method needs a value" + hint);
    EXPECT_EQ(refusal({"p", "--plot=big"}), "the option --plot takes no value" + hint);
    EXPECT_EQ(refusal({"p", "--quiet=1"}), "the option --quiet takes no value" + hint);
}

TEST(RunOptions, AnEmptyValueCountsAsMissing)
{
    // A script with an empty variable would otherwise run where it wanted to save.
    const std::string hint = "; quorvex-run --help lists the options";
    for (const char* name : {"--output", "--method", "--write-xml", "--write-project", "--table",
                             "--export", "--results"}) {
        const std::string text = std::string("the option ") + name + " needs a value" + hint;
        EXPECT_EQ(refusal({"p", name, ""}), text);
        EXPECT_EQ(refusal({"p", name + std::string("=")}), text);
    }
}

TEST(RunOptions, TheHelpFitsItsColumnsAndListsTheKeys)
{
    const std::string help = RunOptions::helpText();
    EXPECT_TRUE(help.ends_with("matrices row after row.\n"));
    std::size_t begin = 0;
    for (std::size_t end = help.find('\n'); end != std::string::npos;
         begin = end + 1, end = help.find('\n', begin)) {
        EXPECT_LE(end - begin, 100U) << help.substr(begin, end - begin);
    }
    EXPECT_EQ(begin, help.size());
    EXPECT_NE(help.find("\n  QV_1DMilieu\n    mIndice"), std::string::npos);
}
