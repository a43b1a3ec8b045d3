#include "common/COM_CommandLine.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Words = std::vector<std::string>;

constexpr COM_CommandLine::Option known[] = {{"output", 'o', COM_CommandLine::SOME_VALUE},
                                             {"title", 256, COM_CommandLine::ANY_VALUE},
                                             {"quiet", 'q', COM_CommandLine::NO_VALUE},
                                             {"quick", 257, COM_CommandLine::NO_VALUE}};

/// What a command line was read as: ids with their values, the words left over, and the error that ended it.
struct Reading
{
    std::vector<std::pair<int, std::string>> mOptions;
    Words mOperands;
    std::string mError;
};

Reading read(Words words)
{
    words.insert(words.begin(), "program");
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    COM_CommandLine line("program", known, static_cast<int>(words.size()), arguments.data());
    Reading reading;
    for (int id = 0; (id = line.next()) != COM_CommandLine::END;) {
        if (id == COM_CommandLine::WRONG) {
            reading.mError = line.error();
            return reading;
        }
        reading.mOptions.emplace_back(id, line.value());
    }
    reading.mOperands = line.operands();
    return reading;
}

using Options = std::vector<std::pair<int, std::string>>;

constexpr const char* hint = "; program --help lists the options";

} // namespace

TEST(COM_CommandLine, OptionsComeInTheirOrderAndTheOtherWordsAfterThem)
{
    const Reading reading = read({"a", "--title", "T", "-q", "b", "--output=c"});
    EXPECT_EQ(reading.mOptions, (Options{{256, "T"}, {'q', ""}, {'o', "c"}}));
    EXPECT_EQ(reading.mOperands, (Words{"a", "b"}));
    EXPECT_EQ(reading.mError, "");
}

TEST(COM_CommandLine, WithoutWordsThereIsNothing)
{
    const Reading reading = read({});
    EXPECT_TRUE(reading.mOptions.empty());
    EXPECT_TRUE(reading.mOperands.empty());
}

TEST(COM_CommandLine, LettersStandTogetherAndWithTheirValues)
{
    EXPECT_EQ(read({"-qofile"}).mOptions, (Options{{'q', ""}, {'o', "file"}}));
}

TEST(COM_CommandLine, LongOptionsMayBeCutAsLongAsTheyAreClear)
{
    EXPECT_EQ(read({"--ti=T", "--quie"}).mOptions, (Options{{256, "T"}, {'q', ""}}));
    EXPECT_EQ(read({"--qui"}).mError, std::string("unknown or ambiguous option --qui") + hint);
}

TEST(COM_CommandLine, TwoDashesEndTheOptions)
{
    const Reading reading = read({"-q", "--", "-q", "--title"});
    EXPECT_EQ(reading.mOptions, (Options{{'q', ""}}));
    EXPECT_EQ(reading.mOperands, (Words{"-q", "--title"}));
}

TEST(COM_CommandLine, UnknownOptionsAreNamed)
{
    EXPECT_EQ(read({"--other"}).mError, std::string("unknown or ambiguous option --other") + hint);
    EXPECT_EQ(read({"-x"}).mError, std::string("unknown or ambiguous option -x") + hint);
}

TEST(COM_CommandLine, AValueIsThereOrNotAsTheOptionSays)
{
    EXPECT_EQ(read({"--title"}).mError, std::string("the option --title needs a value") + hint);
    EXPECT_EQ(read({"-o"}).mError, std::string("the option -o needs a value") + hint);
    EXPECT_EQ(read({"--quiet=1"}).mError, std::string("the option --quiet takes no value") + hint);
}

TEST(COM_CommandLine, AnEmptyValueIsOneOnlyWhereTheOptionSaysSo)
{
    EXPECT_EQ(read({"--title", ""}).mOptions, (Options{{256, ""}}));
    EXPECT_EQ(read({"--output="}).mError, std::string("the option --output needs a value") + hint);
    EXPECT_EQ(read({"-o", ""}).mError, std::string("the option --output needs a value") + hint);
}

TEST(COM_CommandLine, ASecondOneBeginsAtItsOwnFirstWord)
{
    EXPECT_EQ(read({"-q", "a", "--title=T"}).mOptions.size(), 2UL);
    EXPECT_EQ(read({"--title=U"}).mOptions, (Options{{256, "U"}}));
}

TEST(COM_CommandLine, NumbersAreDigitsThatFit)
{
    EXPECT_EQ(COM_CommandLine::numberOf("0"), 0UL);
    EXPECT_EQ(COM_CommandLine::numberOf("007"), 7UL);
    EXPECT_EQ(COM_CommandLine::numberOf("18446744073709551615"), 18446744073709551615UL);
    for (const char* text : {"", "-1", "+1", " 1", "1 ", "1e3", "0x10", "18446744073709551616"}) {
        EXPECT_FALSE(COM_CommandLine::numberOf(text).has_value()) << text;
    }
}
