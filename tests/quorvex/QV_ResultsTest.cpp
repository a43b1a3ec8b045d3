#include "quorvex/QV_Results.h"

#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "support/CaseName.h"
#include "support/ChildProcess.h"
#include "support/Locales.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <limits>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

using Values = std::vector<double>;
using Names = std::vector<std::string>;
using Captor = QV_Results::Captor;
using Table = QV_Results::Table;

constexpr double infinity = std::numeric_limits<double>::infinity();

/// A text by printf's rules.
template <typename... Arguments>
std::string printed(const char* format, Arguments... arguments)
{
    char text[1000];
    const int size = std::snprintf(text, sizeof text, format, arguments...);
    EXPECT_LT(size, static_cast<int>(sizeof text));
    return text;
}

/// The values as they stand in memory: not-a-numbers and signed zeros differ from one another.
std::vector<std::uint64_t> bits(const Values& values)
{
    std::vector<std::uint64_t> result(values.size());
    if (!values.empty()) {
        std::memcpy(result.data(), values.data(), values.size() * sizeof(double));
    }
    return result;
}

/// A captor at node 7 with the sizes given.
Captor captorOf(unsigned long dimension, unsigned long systems, unsigned long levels)
{
    Captor captor;
    captor.mLocation = 7;
    captor.mEDimension = dimension;
    captor.mBlochEquationsNumber = systems;
    captor.mRhoSize = levels;
    return captor;
}

/// The results of a directory, whether there is a captors.res or not.
QV_Results resultsOf(const TestDirectory& directory)
{
    QV_Results results;
    results.readCaptors(directory.slashed());
    return results;
}

/// The captors that a text describes.
std::vector<Captor> captorsOf(const std::string& text)
{
    const TestDirectory directory;
    directory.write("captors.res", text);
    QV_Results results;
    EXPECT_TRUE(results.readCaptors(directory.slashed()));
    return results.getCaptors();
}

/// All that is known of a captor as a text.
std::string textOf(const Captor& captor)
{
    std::string text = printed("%lu %a (", captor.mLocation, captor.mRelativePosition);
    for (const double x : captor.mPosition) {
        text += printed(" %a", x);
    }
    return text
           + printed(" ) %lu %lu %lu", captor.mRhoSize, captor.mBlochEquationsNumber,
                     captor.mEDimension);
}

Names textsOf(const std::vector<Captor>& captors)
{
    Names texts;
    for (const Captor& captor : captors) {
        texts.push_back(textOf(captor));
    }
    return texts;
}

/// The times that a text as tps.res holds.
QV_Results::Times timesOf(const std::string& text)
{
    const TestDirectory directory;
    directory.write("tps.res", text);
    QV_Results results = resultsOf(directory);
    EXPECT_TRUE(results.readTimes());
    return results.getTimes();
}

/// The field of one component that a text holds.
Values fieldOf(const std::string& text)
{
    const TestDirectory directory;
    directory.write("E_at_7.res", text);
    return resultsOf(directory).readField(captorOf(1, 0, 0), 0).mValues;
}

/// The iterations that a text holds beside matrices of one element.
Values iterationsOf(const std::string& text)
{
    const TestDirectory directory;
    directory.write("Rho_Bloch0_at_7.res", text);
    return resultsOf(directory).readIterations(captorOf(1, 1, 1), 0).mValues;
}

/// The column of a table.
Values columnOf(const Table& table, unsigned long column)
{
    Values values;
    for (unsigned long row = 0; row < table.getRowsNumber(); ++row) {
        values.push_back(table.getValue(row, column));
    }
    return values;
}

Names columnNamesOf(const Table& table)
{
    Names names;
    for (unsigned long k = 0; k < table.getColumnsNumber(); ++k) {
        names.push_back(table.getColumnName(k));
    }
    return names;
}

// Each line as a run writes it.

std::string timesLine(double t, double rabiFrequency)
{
    return printed("%7.6e %7.6e %7.6e \n", t, rabiFrequency, t / rabiFrequency);
}

std::string captorLine(int location, double relative, const std::string& position, int levels,
                       int systems, int dimension)
{
    return printed("captors Location: %i RelPosition: %lf Position: %s RhoSize: %i "
                   "BlochEquationsNumber: %i EDim: %i\n",
                   location, relative, position.c_str(), levels, systems, dimension);
}

std::string fieldLine(double t, const Values& E)
{
    std::string line = printed("%7.6e ", t);
    for (const double value : E) {
        line += printed("%7.6e \t ", value);
    }
    return line + "\n";
}

std::string densityLine(double t, int iterations, const Values& rho)
{
    std::string line = printed("%7.6e %i ", t, iterations);
    for (const double value : rho) {
        line += printed("%7.6e \t ", value);
    }
    return line + "\n";
}

/// What a value of a run is after it was written with seven digits and read.
double written(double value)
{
    return COM_Real::parseReal(printed("%7.6e", value));
}

/// A small run of four steps: captors at the nodes 12 and 3, of two components, two systems and two
/// levels.
class Run
{
public:
    static constexpr int STEPS = 4;
    static constexpr double RABI = 3.7e12;

    static double t(int step) { return 0.125 * (step + 1); }
    static Values field(int location, int step)
    {
        return {1.0e8 * std::sin(location + step), -2.5e-3 / (step + location)};
    }
    static Values density(int location, int system, int step)
    {
        return {1.0 - 1e-3 * step, 0.1 * location, -1e-300 * (system + 1), 1e-3 * step};
    }
    static int iterations(int location, int system, int step)
    {
        return location + 10 * system + step;
    }

    static std::string captorsText()
    {
        return captorLine(12, 0.48, "(1.250000e+00)", 2, 2, 2)
               + captorLine(3, 0.12, "(3.125000e-01,0.000000e+00)", 2, 2, 2);
    }
    static std::string timesText()
    {
        std::string text;
        for (int step = 0; step < STEPS; ++step) {
            text += timesLine(t(step), RABI);
        }
        return text;
    }
    static std::string fieldText(int location)
    {
        std::string text;
        for (int step = 0; step < STEPS; ++step) {
            text += fieldLine(t(step), field(location, step));
        }
        return text;
    }
    static std::string densityText(int location, int system)
    {
        std::string text;
        for (int step = 0; step < STEPS; ++step) {
            text += densityLine(t(step), iterations(location, system, step),
                                density(location, system, step));
        }
        return text;
    }
    static void write(const TestDirectory& directory)
    {
        directory.write("captors.res", captorsText());
        directory.write("level_Frequencies.res",
                        "Rho_Bloch0:\n\t omega[0]=0.000000\n\t omega[1]=3.0\n");
        directory.write("tps.res", timesText());
        for (const int location : {3, 12}) {
            directory.write(printed("E_at_%i.res", location), fieldText(location));
            for (const int system : {0, 1}) {
                directory.write(printed("Rho_Bloch%i_at_%i.res", system, location),
                                densityText(location, system));
            }
        }
    }

    static Values readTimes()
    {
        Values values;
        for (int step = 0; step < STEPS; ++step) {
            values.push_back(written(t(step)));
        }
        return values;
    }
    static Values readSeconds()
    {
        Values values;
        for (int step = 0; step < STEPS; ++step) {
            values.push_back(written(t(step) / RABI));
        }
        return values;
    }
    static Values readField(int location, unsigned long component)
    {
        Values values;
        for (int step = 0; step < STEPS; ++step) {
            values.push_back(written(field(location, step)[component]));
        }
        return values;
    }
    static Values readDensity(int location, int system, unsigned long i, unsigned long j)
    {
        Values values;
        for (int step = 0; step < STEPS; ++step) {
            values.push_back(written(density(location, system, step)[2 * i + j]));
        }
        return values;
    }
    static Values readIterations(int location, int system)
    {
        Values values;
        for (int step = 0; step < STEPS; ++step) {
            values.push_back(iterations(location, system, step));
        }
        return values;
    }
};

Values firstOf(const Values& values, std::size_t size)
{
    return {values.begin(), values.begin() + static_cast<std::ptrdiff_t>(size)};
}

/// Lines of `text` whose last number is followed by a blank within its first `length` letters.
std::size_t wholeLines(const std::string& text, std::size_t length)
{
    std::size_t lines = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos;
         end = text.find('\n', end + 1)) {
        const std::size_t last = text.find_last_not_of(" \t\n", end);
        lines += last + 2 <= length ? 1 : 0;
    }
    return lines;
}

/// The captors of a text as the library's streams read them, word after word.
std::vector<Captor> captorsByStream(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<Captor> captors;
    std::string word;
    const auto read = [&stream](auto& value) {
        std::remove_reference_t<decltype(value)> found{};
        if (stream >> found) {
            value = found;
        }
    };
    while (stream >> word) {
        if (word == "captors") {
            captors.emplace_back();
        } else if (captors.empty()) {
            continue;
        } else if (word == "Location:") {
            read(captors.back().mLocation);
        } else if (word == "RelPosition:") {
            read(captors.back().mRelativePosition);
        } else if (word == "RhoSize:") {
            read(captors.back().mRhoSize);
        } else if (word == "BlochEquationsNumber:") {
            read(captors.back().mBlochEquationsNumber);
        } else if (word == "EDim:") {
            read(captors.back().mEDimension);
        } else if (word == "Position:") {
            word.clear();
            stream >> word;
            std::istringstream pieces(word.size() < 2 ? "" : word.substr(1, word.size() - 2));
            captors.back().mPosition.clear();
            for (std::string piece; std::getline(pieces, piece, ',');) {
                captors.back().mPosition.push_back(COM_Real::parseReal(piece));
            }
        }
    }
    std::stable_sort(captors.begin(), captors.end(),
                     [](const Captor& a, const Captor& b) { return a.mLocation < b.mLocation; });
    return captors;
}

/// Writes a file anew. Some file systems wait for the disk when a file is written over.
void rewrite(const TestDirectory& directory, const std::string& name, const std::string& text)
{
    std::filesystem::remove(directory.file(name));
    directory.write(name, text);
}

/// Bytes that the process has held at its peak.
long peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss * 1024;
}

} // namespace

// ---------------------------------------------------------------- captors

TEST(QV_Results, ACaptorHoldsEveryValueOfItsLine)
{
    const auto captors = captorsOf("captors Location: 25 RelPosition: 0.250000 Position: "
                                   "(1.500000e+00) RhoSize: 3 BlochEquationsNumber: 2 EDim: 1\n");
    ASSERT_EQ(captors.size(), 1U);
    EXPECT_EQ(captors[0].mLocation, 25U);
    EXPECT_EQ(captors[0].mRelativePosition, 0.25);
    EXPECT_EQ(captors[0].mPosition, Values{1.5});
    EXPECT_EQ(captors[0].mRhoSize, 3U);
    EXPECT_EQ(captors[0].mBlochEquationsNumber, 2U);
    EXPECT_EQ(captors[0].mEDimension, 1U);
}

TEST(QV_Results, CaptorsComeByAscendingLocationAndThoseOfOneLocationAsInTheFile)
{
    const auto captors = captorsOf("captors Location: 9 EDim: 1\ncaptors Location: 4 EDim: 2\n"
                                   "captors Location: 9 EDim: 3\ncaptors Location: 1\n");
    ASSERT_EQ(captors.size(), 4U);
    EXPECT_EQ(captors[0].mLocation, 1U);
    EXPECT_EQ(captors[1].mLocation, 4U);
    EXPECT_EQ(captors[2].mLocation, 9U);
    EXPECT_EQ(captors[2].mEDimension, 1U);
    EXPECT_EQ(captors[3].mLocation, 9U);
    EXPECT_EQ(captors[3].mEDimension, 3U);
}

TEST(QV_Results, ACaptorWithoutDescriptionHasOneComponentOneSystemAndOneLevel)
{
    const auto captors = captorsOf("captors");
    ASSERT_EQ(captors.size(), 1U);
    EXPECT_EQ(textOf(captors[0]), "0 0x0p+0 ( 0x0p+0 ) 1 1 1");
}

TEST(QV_Results, TheWordsOfACaptorStandInAnyOrderAndLayout)
{
    EXPECT_EQ(textsOf(captorsOf("\r\n captors\n\n\tEDim:\t2\r\nBlochEquationsNumber:\v5 RhoSize:\f"
                                "4\nPosition:\n(2,3)\nRelPosition:\n0.5 Location:\n 8")),
              Names{"8 0x1p-1 ( 0x1p+1 0x1.8p+1 ) 4 5 2"});
}

TEST(QV_Results, WordsBeforeTheFirstCaptorAndUnknownOnesArePassedOver)
{
    EXPECT_EQ(textsOf(captorsOf("Location: 3 Position: (5) # captor captors: x captors Location: 2 "
                                "Colour: 9 Location 7 location: 6 EDim: 2 Captors")),
              Names{"2 0x0p+0 ( 0x0p+0 ) 1 1 2"});
}

TEST(QV_Results, TheLaterOfTwoValuesCounts)
{
    EXPECT_EQ(captorsOf("captors Location: 3 Location: 5")[0].mLocation, 5U);
}

TEST(QV_Results, AnEmptyCaptorsFileHasNoCaptors)
{
    EXPECT_TRUE(captorsOf("").empty());
}

struct PositionCase
{
    std::string mWord;
    Values mCoordinates;

    friend std::ostream& operator<<(std::ostream& out, const PositionCase& tested)
    {
        return out << caseName(tested.mWord);
    }
};

class QV_ResultsPosition : public testing::TestWithParam<PositionCase>
{};

TEST_P(QV_ResultsPosition, LosesItsFirstAndLastLetterAndIsCutAtCommas)
{
    const auto captors = captorsOf("captors Position: " + GetParam().mWord + " EDim: 2");
    ASSERT_EQ(captors.size(), 1U);
    EXPECT_EQ(captors[0].mPosition, GetParam().mCoordinates);
    EXPECT_EQ(captors[0].mEDimension, 2U);
}

INSTANTIATE_TEST_SUITE_P(
    Words, QV_ResultsPosition,
    testing::Values(PositionCase{"(1.5,-2.0,3e1)", {1.5, -2.0, 30.0}},
                    PositionCase{"(1,2)", {1.0, 2.0}}, PositionCase{"(1,2,3,4,5)", {1.0, 2.0, 3.0}},
                    PositionCase{"(,,1,,2,)", {1.0, 2.0}}, PositionCase{"()", {}},
                    PositionCase{"(", {}}, PositionCase{"(,)", {}}, PositionCase{"", {}},
                    PositionCase{"(abc)", {0.0}}, PositionCase{"(1.5abc,x)", {1.5, 0.0}},
                    PositionCase{"[1.5D1;", {15.0}},
                    PositionCase{"(inf,-inf)", {infinity, -infinity}},
                    PositionCase{"1234", {23.0}}),
    [](const testing::TestParamInfo<PositionCase>& tested) {
        return caseName(tested.param.mWord);
    });

TEST(QV_Results, AMissingPositionAtTheEndIsEmpty)
{
    EXPECT_TRUE(captorsOf("captors Position:")[0].mPosition.empty());
    EXPECT_TRUE(captorsOf("captors Position: (1) Position: \n")[0].mPosition.empty());
}

struct DamagedWord
{
    std::string mWord;
    std::string mValue;

    friend std::ostream& operator<<(std::ostream& out, const DamagedWord& tested)
    {
        return out << caseName(tested.mWord + tested.mValue);
    }
};

class QV_ResultsDamagedWord : public testing::TestWithParam<DamagedWord>
{};

TEST_P(QV_ResultsDamagedWord, LeavesTheFormerValueAndWhatFollows)
{
    const std::string good = "captors Location: 6 RelPosition: 0.5 Position: (2) RhoSize: 3 "
                             "BlochEquationsNumber: 4 EDim: 2 ";
    const auto captors =
        captorsOf(good + GetParam().mWord + " " + GetParam().mValue + " captors Location: 7");
    EXPECT_EQ(textsOf(captors), (Names{"6 0x1p-1 ( 0x1p+1 ) 3 4 2", "7 0x0p+0 ( 0x0p+0 ) 1 1 1"}));
}

INSTANTIATE_TEST_SUITE_P(
    Values, QV_ResultsDamagedWord,
    testing::Values(DamagedWord{"Location:", "-1"}, DamagedWord{"Location:", "x"},
                    DamagedWord{"Location:", "2147483648"},
                    DamagedWord{"Location:", "99999999999999999999999"},
                    DamagedWord{"Location:", ""}, DamagedWord{"RelPosition:", "x1"},
                    DamagedWord{"RelPosition:", ""}, DamagedWord{"RelPosition:", ",5"},
                    DamagedWord{"RhoSize:", "-3"}, DamagedWord{"RhoSize:", "1001"},
                    DamagedWord{"RhoSize:", "-99999999999999999999"},
                    DamagedWord{"RhoSize:", "+-1"}, DamagedWord{"BlochEquationsNumber:", "-1"},
                    DamagedWord{"BlochEquationsNumber:", "100001"},
                    DamagedWord{"BlochEquationsNumber:", "99999999999999999999"},
                    DamagedWord{"EDim:", "-1"}, DamagedWord{"EDim:", "4"},
                    DamagedWord{"EDim:", "18446744073709551616"}, DamagedWord{"EDim:", "two"}),
    [](const testing::TestParamInfo<DamagedWord>& tested) {
        return caseName(tested.param.mWord + tested.param.mValue);
    });

TEST(QV_Results, TheLargestAllowedNumbersOfACaptorAreTaken)
{
    EXPECT_EQ(textsOf(captorsOf("captors Location: 2147483647 RelPosition: 1e308 RhoSize: 1000 "
                                "BlochEquationsNumber: 100000 EDim: 3")),
              Names{printed("2147483647 %a ( 0x0p+0 ) 1000 100000 3", 1e308)});
    EXPECT_EQ(textsOf(captorsOf("captors RhoSize: 0 BlochEquationsNumber: 0 EDim: 0")),
              Names{"0 0x0p+0 ( 0x0p+0 ) 0 0 0"});
}

TEST(QV_Results, ANumberInACaptorEndsAtTheFirstForeignLetter)
{
    EXPECT_EQ(
        textsOf(captorsOf("captors Location: 12abc RelPosition: 0.5x RhoSize: 3.9 EDim: +2,")),
        Names{"12 0x1p-1 ( 0x0p+0 ) 3 1 2"});
    EXPECT_EQ(textsOf(captorsOf("captors Location: 12captors Location: 13")),
              (Names{"12 0x0p+0 ( 0x0p+0 ) 1 1 1", "13 0x0p+0 ( 0x0p+0 ) 1 1 1"}));
}

TEST(QV_Results, InfiniteAndUndefinedRelativePositionsAreReadAsSuch)
{
    EXPECT_EQ(captorsOf("captors RelPosition: -inf")[0].mRelativePosition, -infinity);
    EXPECT_TRUE(std::isnan(captorsOf("captors RelPosition: -nan")[0].mRelativePosition));
}

TEST(QV_Results, AZeroByteEndsAWordAsAnyForeignLetterDoes)
{
    EXPECT_EQ(
        textsOf(captorsOf(std::string("captors Location: 5\0009 EDim: 2\0 RhoSize:\0 4", 42))),
        Names{"5 0x0p+0 ( 0x0p+0 ) 1 1 2"});
}

TEST(QV_Results, AMissingCaptorsFileGivesAMessageAndPrintsNothing)
{
    const TestDirectory directory;
    QV_Results results;
    testing::internal::CaptureStderr();
    EXPECT_EQ(printedBy([&] { EXPECT_FALSE(results.readCaptors(directory.slashed())); }), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(results.getMessage(),
              "The file " + directory.file("captors.res") + " could not be read.");
    EXPECT_TRUE(results.getCaptors().empty());
}

TEST(QV_Results, ReadingAnotherDirectoryForgetsTheFormerOne)
{
    const TestDirectory full;
    const TestDirectory empty;
    Run::write(full);
    QV_Results results;
    ASSERT_TRUE(results.readCaptors(full.slashed()));
    ASSERT_TRUE(results.readTimes());
    EXPECT_EQ(results.getMessage(), "");
    EXPECT_FALSE(results.readCaptors(empty.slashed()));
    EXPECT_TRUE(results.getCaptors().empty());
    EXPECT_TRUE(results.getTimes().mT.empty());
    ASSERT_TRUE(results.readCaptors(full.slashed()));
    EXPECT_EQ(results.getMessage(), "");
    EXPECT_EQ(results.getCaptors().size(), 2U);
}

TEST(QV_Results, TheDirectoryStandsInFrontOfTheFileNamesAsItIs)
{
    const TestDirectory directory;
    directory.write("runcaptors.res", "captors Location: 7 RhoSize: 1 EDim: 1");
    directory.write("runtps.res", "1 2 3\n");
    directory.write("runE_at_7.res", "1 5\n");
    directory.write("runRho_Bloch0_at_7.res", "1 2 6\n");
    QV_Results results;
    EXPECT_FALSE(results.readCaptors(directory.path().string()));
    ASSERT_TRUE(results.readCaptors(directory.slashed() + "run"));
    ASSERT_TRUE(results.readTimes());
    const Table table = results.readTable(results.getCaptors()[0]);
    ASSERT_EQ(table.getColumnsNumber(), 5U);
    EXPECT_EQ(table.getValue(0, 2), 5.0);
    EXPECT_EQ(table.getValue(0, 4), 6.0);
}

TEST(QV_Results, AnEmptyDirectoryIsTheWorkingDirectory)
{
    const TestDirectory directory;
    Run::write(directory);
    EXPECT_EQ(runInChild([&directory] {
                  QV_Results results;
                  return chdir(directory.path().c_str()) == 0 && results.readCaptors("")
                                 && results.readTimes()
                                 && results.readTable(results.getCaptors()[0]).getColumnsNumber()
                                        == 14
                                 && QV_Results::removeResultFiles("").mRemoved == 9
                             ? 0
                             : 1;
              }),
              0);
    EXPECT_TRUE(namesIn(directory.path()).empty());
}

TEST(QV_Results, ACopyIsIndependent)
{
    const TestDirectory directory;
    Run::write(directory);
    QV_Results results;
    ASSERT_TRUE(results.readCaptors(directory.slashed()));
    const QV_Results copy = results;
    EXPECT_FALSE(results.readCaptors(directory.slashed() + "nowhere/"));
    ASSERT_EQ(copy.getCaptors().size(), 2U);
    EXPECT_EQ(copy.readField(copy.getCaptors()[0], 1).mValues, Run::readField(3, 1));
}

// ---------------------------------------------------------------- times

TEST(QV_Results, TheTimesAreTheThreeColumnsOfTheirFile)
{
    const auto times = timesOf("1.000000e+00 2.000000e+12 5.000000e-13 \n"
                               "2.000000e+00 2.000000e+12 1.000000e-12 \n");
    EXPECT_EQ(times.mT, (Values{1.0, 2.0}));
    EXPECT_EQ(times.mRabiFrequencies, (Values{2e12, 2e12}));
    EXPECT_EQ(times.mSeconds, (Values{5e-13, 1e-12}));
}

TEST(QV_Results, ARunWithoutStepsHasNoTimes)
{
    EXPECT_TRUE(timesOf("").mT.empty());
}

TEST(QV_Results, AMissingTimesFileGivesAMessageAndNoTimes)
{
    const TestDirectory directory;
    Run::write(directory);
    QV_Results results;
    ASSERT_TRUE(results.readCaptors(directory.slashed()));
    ASSERT_TRUE(results.readTimes());
    std::filesystem::remove(directory.file("tps.res"));
    EXPECT_FALSE(results.readTimes());
    EXPECT_EQ(results.getMessage(),
              "The file " + directory.file("tps.res") + " could not be read.");
    EXPECT_TRUE(results.getTimes().mT.empty());
    EXPECT_TRUE(results.getTimes().mRabiFrequencies.empty());
    EXPECT_TRUE(results.getTimes().mSeconds.empty());
}

struct TextCase
{
    std::string mName;
    std::string mText;
    Values mSeconds;

    friend std::ostream& operator<<(std::ostream& out, const TextCase& tested)
    {
        return out << tested.mName;
    }
};

class QV_ResultsLines : public testing::TestWithParam<TextCase>
{};

TEST_P(QV_ResultsLines, AreReadUpToTheFirstDamagedOne)
{
    const auto times = timesOf(GetParam().mText);
    EXPECT_EQ(times.mSeconds, GetParam().mSeconds);
    EXPECT_EQ(times.mT.size(), GetParam().mSeconds.size());
    EXPECT_EQ(times.mRabiFrequencies.size(), GetParam().mSeconds.size());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, QV_ResultsLines,
    testing::Values(
        TextCase{"WithSystemsOfOtherLineEnds", "1 2 3\r\n4 5 6\r7 8 9\n", {3.0, 6.0, 9.0}},
        TextCase{"WithBlankLines", "\n\n1 2 3\n \t \n\r\n4 5 6\n\n", {3.0, 6.0}},
        TextCase{"WithAnyWhiteSpace", " \t1\v2\f3 \n4\t\t5   6\n", {3.0, 6.0}},
        TextCase{"WithABlankAfterTheLastNumber", "1 2 3 \n4 5 6 ", {3.0, 6.0}},
        TextCase{"CutAfterTheLastNumber", "1 2 3 \n4 5 6", {3.0}},
        TextCase{"CutInALine", "1 2 3 \n4 5 \n", {3.0}},
        TextCase{"OfWhichOneIsParted", "1 2 3\n4 5\n6\n7 8 9\n", {3.0}},
        TextCase{"WithAShortLineWithin", "1 2 3\n4 5\n7 8 9\n", {3.0}},
        TextCase{"WithALongLineWithin", "1 2 3\n4 5 6 7\n7 8 9\n", {3.0}},
        TextCase{"OfWhichTwoAreJoined", "1 2 3\n4 5 6 7 8 9\n1 2 3\n", {3.0}},
        TextCase{"WithALetter", "1 2 3\n4 x 6\n7 8 9\n", {3.0}},
        TextCase{"WithAForeignTail", "1 2 3\n4 5 6x\n7 8 9\n", {3.0}},
        TextCase{"WithADecimalComma", "1 2 3\n4 5 6,5\n7 8 9\n", {3.0}},
        TextCase{"WithAZeroByte", std::string("1 2 3\n4 5 6\0\n7 8 9\n", 19), {3.0}},
        TextCase{"WithZeroBytesAtTheEnd", std::string("1 2 3\n4 5 6\n\0\0\0\0", 16), {3.0, 6.0}},
        TextCase{"WithZeroBytesInsteadOfALineEnd", std::string("1 2 3\n4 5 6 \0\0\0", 15), {3.0}},
        TextCase{"OfBinaryData", "\177ELF\2\1\1\n\377\376 1 2 3\n", {}},
        TextCase{"OfWords", "Rho_Bloch0:\n", {}}, TextCase{"OfWhiteSpace", " \n\t\r\n ", {}},
        TextCase{
            "OfHugeNumbers", "1e999 -1e999 1e99999999999999999999\n0 0 1e-999\n", {infinity, 0.0}},
        TextCase{"OfManyDigits",
                 "1 2 " + std::string(5000, '0') + "4." + std::string(5000, '0') + "\n1 2 1"
                     + std::string(400, '0') + "\n",
                 {4.0, infinity}}),
    [](const testing::TestParamInfo<TextCase>& tested) { return tested.param.mName; });

// ---------------------------------------------------------------- numbers

class QV_ResultsNumber : public testing::TestWithParam<std::string>
{};

TEST_P(QV_ResultsNumber, IsReadToTheBitAsTheLibraryOfNumbersReadsIt)
{
    const std::string text = GetParam();
    const double expected = COM_Real::parseReal(text);
    EXPECT_EQ(bits(timesOf("1 2 " + text + "\n").mSeconds), bits({expected}));
    EXPECT_EQ(bits({captorsOf("captors RelPosition: " + text + "~")[0].mRelativePosition}),
              bits({expected}));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, QV_ResultsNumber,
    testing::Values("0", "-0", "+0.0", "1", "+1.5", "-1.5", ".5", "5.", "-.5e1", "1e5", "1E5",
                    "1d5", "1D5", "-1.25D-3", "+1.25d+3", "1.000000e-310", "4.9e-324", "2.4e-324",
                    "2.5e-324", "2.2250738585072011e-308", "2.2250738585072014e-308",
                    "1.7976931348623157e308", "1.7976931348623158e308", "1.7976931348623159e308",
                    "1e308", "1e309", "-1e309", "1e-400", "-1e-400", "inf", "-inf", "+inf", "INF",
                    "infinity", "-Infinity", "nan", "-nan", "+NaN", "nan(123)", "nan(dD)", "0x10",
                    "0x1D", "-0x1.8p3", "0x.8P-2", "9007199254740993", "0.1", "0.3", "1e23",
                    "8.5e22", "123456789012345678901234567890",
                    "1.00000000000000011102230246251565404", "3.141592653589793238462643383279"),
    [](const testing::TestParamInfo<std::string>& tested) { return caseName(tested.param); });

class QV_ResultsForeignNumber : public testing::TestWithParam<std::string>
{};

TEST_P(QV_ResultsForeignNumber, DamagesItsLine)
{
    EXPECT_TRUE(timesOf("1 2 " + GetParam() + "\n").mSeconds.empty());
    EXPECT_TRUE(timesOf(GetParam() + " 2 3\n").mSeconds.empty());
}

INSTANTIATE_TEST_SUITE_P(Texts, QV_ResultsForeignNumber,
                         testing::Values("x", "-", "+", ".", "e5", "1e", "1e+", "1.5f", "1,5",
                                         "+-1", "--1", "0x", "0xg", "1.2.3", "infin", "nane",
                                         "nan(", "1_000", "\2401", "1'000", "i", "D5"),
                         [](const testing::TestParamInfo<std::string>& tested) {
                             return caseName(tested.param);
                         });

TEST(QV_Results, ValuesOfARunWithSevenDigitsAreReadAsTheLibraryOfNumbersReadsThem)
{
    std::string text;
    Values expected;
    std::uint64_t state = 1;
    for (int k = 0; k < 20000; ++k) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        double value = 0.0;
        std::memcpy(&value, &state, sizeof value);
        const std::string number = printed("%7.6e", value);
        text += "0 0 " + number + "\n";
        expected.push_back(COM_Real::parseReal(number));
    }
    EXPECT_EQ(bits(timesOf(text).mSeconds), bits(expected));
}

class QV_ResultsCount : public testing::TestWithParam<std::string>
{};

TEST_P(QV_ResultsCount, IsReadAsTheLibraryOfIntegersReadsIt)
{
    EXPECT_EQ(iterationsOf("1 " + GetParam() + " 3\n"),
              Values{static_cast<double>(COM_Integer::parseInt(GetParam()))});
}

INSTANTIATE_TEST_SUITE_P(Texts, QV_ResultsCount,
                         testing::Values("0", "-0", "7", "+7", "007", "2147483648",
                                         "9223372036854775807", "9223372036854775808",
                                         "99999999999999999999999999"),
                         [](const testing::TestParamInfo<std::string>& tested) {
                             return caseName(tested.param);
                         });

TEST(QV_Results, ACountThatIsNoneDamagesItsLine)
{
    for (const char* text : {"1.0", "-1", "x", "+", "+-1", "+-0", "1e3", "0x1", "nan", "1,"}) {
        EXPECT_EQ(iterationsOf("1 4 3\n1 " + std::string(text) + " 3\n1 5 3\n"), Values{4.0})
            << text;
    }
}

TEST(QV_Results, NumbersDoNotDependOnTheLocale)
{
    const TestDirectory directory;
    Run::write(directory);
    directory.write("E_at_7.res", "1.5 2.5D0\n1.5 0x1.8\n");
    const CommaLocale locale;
    QV_Results results;
    ASSERT_TRUE(results.readCaptors(directory.slashed()));
    ASSERT_TRUE(results.readTimes());
    EXPECT_EQ(results.getCaptors()[0].mRelativePosition, 0.12);
    EXPECT_EQ(results.getCaptors()[0].mPosition, (Values{0.3125, 0.0}));
    EXPECT_EQ(results.getTimes().mSeconds, Run::readSeconds());
    EXPECT_EQ(results.readField(captorOf(1, 0, 0), 0).mValues, (Values{2.5, 1.5}));
    EXPECT_EQ(QV_Results::fieldFileName(1234567), "E_at_1234567.res");
}

TEST(QV_Results, InfiniteAndUndefinedValuesAreReadAsSuch)
{
    const std::string text = fieldLine(1.0, {infinity}) + fieldLine(2.0, {-infinity})
                             + fieldLine(3.0, {std::nan("")}) + fieldLine(4.0, {-std::nan("")})
                             + fieldLine(5.0, {6.0});
    const Values values = fieldOf(text);
    ASSERT_EQ(values.size(), 5U);
    EXPECT_EQ(values[0], infinity);
    EXPECT_EQ(values[1], -infinity);
    EXPECT_TRUE(std::isnan(values[2]) && !std::signbit(values[2]));
    EXPECT_TRUE(std::isnan(values[3]) && std::signbit(values[3]));
    EXPECT_EQ(values[4], 6.0);
}

// ---------------------------------------------------------------- field and densities

TEST(QV_Results, EachComponentOfTheFieldComesWithTheTimesOfItsFile)
{
    const TestDirectory directory;
    directory.write("E_at_7.res", "0.5 1 2 3\n1.5 4 5 6\n");
    const QV_Results results = resultsOf(directory);
    const Captor captor = captorOf(3, 0, 0);
    for (unsigned long k = 0; k < 3; ++k) {
        const auto samples = results.readField(captor, k);
        const auto first = static_cast<double>(k + 1);
        EXPECT_EQ(samples.mT, (Values{0.5, 1.5}));
        EXPECT_EQ(samples.mValues, (Values{first, first + 3.0}));
    }
    EXPECT_EQ(results.readFields(captor),
              (std::vector<Values>{{1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}}));
}

TEST(QV_Results, AComponentThatDoesNotExistIsEmpty)
{
    const TestDirectory directory;
    directory.write("E_at_7.res", "0.5 1\n1.5 4\n");
    const QV_Results results = resultsOf(directory);
    EXPECT_EQ(results.readField(captorOf(1, 0, 0), 0).mValues.size(), 2U);
    EXPECT_TRUE(results.readField(captorOf(1, 0, 0), 1).mValues.empty());
    EXPECT_TRUE(results.readField(captorOf(1, 0, 0), 1).mT.empty());
    EXPECT_TRUE(results.readField(captorOf(0, 0, 0), 0).mValues.empty());
    EXPECT_TRUE(results.readField(captorOf(1, 0, 0), ~0UL).mValues.empty());
    EXPECT_TRUE(results.readFields(captorOf(0, 0, 0)).empty());
}

TEST(QV_Results, AMissingFileGivesEmptyVectorsOfTheNumberAskedFor)
{
    const TestDirectory directory;
    const QV_Results results = resultsOf(directory);
    const Captor captor = captorOf(2, 1, 2);
    EXPECT_TRUE(results.readField(captor, 0).mValues.empty());
    EXPECT_EQ(results.readFields(captor), std::vector<Values>(2));
    EXPECT_TRUE(results.readDensity(captor, 0, 1, 1).mValues.empty());
    EXPECT_EQ(results.readDensities(captor, 0, {{0, 0}, {0, 1}, {1, 1}}), std::vector<Values>(3));
    EXPECT_TRUE(results.readIterations(captor, 0).mValues.empty());
}

TEST(QV_Results, AFileOfOtherSizesThanPromisedGivesNothing)
{
    const TestDirectory directory;
    directory.write("E_at_7.res", "0.5 1 2\n1.5 4 5\n");
    directory.write("Rho_Bloch0_at_7.res", "0.5 3 1 2 3 4\n");
    const QV_Results results = resultsOf(directory);
    EXPECT_EQ(results.readField(captorOf(2, 1, 2), 0).mValues, (Values{1.0, 4.0}));
    EXPECT_TRUE(results.readField(captorOf(1, 1, 2), 0).mValues.empty());
    EXPECT_TRUE(results.readField(captorOf(3, 1, 2), 0).mValues.empty());
    EXPECT_EQ(results.readDensity(captorOf(2, 1, 2), 0, 1, 0).mValues, Values{3.0});
    EXPECT_TRUE(results.readDensity(captorOf(2, 1, 1), 0, 0, 0).mValues.empty());
    EXPECT_TRUE(results.readDensity(captorOf(2, 1, 3), 0, 1, 0).mValues.empty());
}

TEST(QV_Results, TheElementsOfADensityStandRowAfterRow)
{
    const TestDirectory directory;
    directory.write("Rho_Bloch4_at_7.res", "0.5 10 11 12 13 21 22 23 31 32 33\n"
                                           "1.5 20 -11 -12 -13 -21 -22 -23 -31 -32 -33\n");
    const QV_Results results = resultsOf(directory);
    const Captor captor = captorOf(1, 5, 3);
    for (unsigned long i = 0; i < 3; ++i) {
        for (unsigned long j = 0; j < 3; ++j) {
            const auto value = static_cast<double>(10 * (i + 1) + j + 1);
            EXPECT_EQ(results.readDensity(captor, 4, i, j).mValues, (Values{value, -value}));
            EXPECT_EQ(results.readDensity(captor, 4, i, j).mT, (Values{0.5, 1.5}));
        }
    }
    EXPECT_EQ(results.readIterations(captor, 4).mValues, (Values{10.0, 20.0}));
    EXPECT_EQ(results.readIterations(captor, 4).mT, (Values{0.5, 1.5}));
}

TEST(QV_Results, SeveralElementsAreReadAtOnceAndThoseThatDoNotExistAreEmpty)
{
    const TestDirectory directory;
    directory.write("Rho_Bloch0_at_7.res", "0.5 1 11 12 21 22\n1.5 1 111 112 121 122\n");
    const QV_Results results = resultsOf(directory);
    EXPECT_EQ(results.readDensities(captorOf(1, 1, 2), 0,
                                    {{1, 0}, {0, 2}, {2, 0}, {0, 1}, {1, 0}, {~0UL, ~0UL}}),
              (std::vector<Values>{{21.0, 121.0}, {}, {}, {12.0, 112.0}, {21.0, 121.0}, {}}));
    EXPECT_TRUE(results.readDensities(captorOf(1, 1, 2), 0, {}).empty());
}

TEST(QV_Results, AnElementOrASystemThatDoesNotExistIsEmpty)
{
    const TestDirectory directory;
    directory.write("Rho_Bloch0_at_7.res", "0.5 1 11 12 21 22\n");
    directory.write("Rho_Bloch1_at_7.res", "0.5 1 11 12 21 22\n");
    const QV_Results results = resultsOf(directory);
    const Captor captor = captorOf(1, 1, 2);
    EXPECT_EQ(results.readDensity(captor, 0, 1, 1).mValues, Values{22.0});
    EXPECT_TRUE(results.readDensity(captor, 0, 2, 0).mValues.empty());
    EXPECT_TRUE(results.readDensity(captor, 0, 0, 2).mValues.empty());
    EXPECT_TRUE(results.readDensity(captor, 1, 0, 0).mValues.empty());
    EXPECT_TRUE(results.readIterations(captor, 1).mValues.empty());
    EXPECT_EQ(results.readDensities(captor, 1, {{0, 0}}), std::vector<Values>(1));
}

TEST(QV_Results, CaptorsOfImpossibleSizesHaveNothing)
{
    const TestDirectory directory;
    directory.write("E_at_7.res", "0.5 1\n");
    directory.write("Rho_Bloch0_at_7.res", "0.5 1\n");
    QV_Results results = resultsOf(directory);
    // 2^32 squared is 0 in 64 bits: the file would seem to hold matrices without elements.
    const Captor captor = captorOf(~0UL, ~0UL, 1UL << 32);
    EXPECT_TRUE(results.readField(captor, 0).mValues.empty());
    EXPECT_TRUE(results.readFields(captor).empty());
    EXPECT_TRUE(results.readDensity(captor, 0, 0, 0).mValues.empty());
    EXPECT_TRUE(results.readIterations(captor, 0).mValues.empty());
    EXPECT_EQ(results.readTable(captor).getColumnsNumber(), 2U);
}

TEST(QV_Results, MatricesWithoutElementsStillHaveIterations)
{
    const TestDirectory directory;
    directory.write("Rho_Bloch0_at_7.res", "0.5 3\n1.5 4\n");
    EXPECT_EQ(resultsOf(directory).readIterations(captorOf(1, 1, 0), 0).mValues,
              (Values{3.0, 4.0}));
}

TEST(QV_Results, DamageInAnyColumnEndsAllOfThem)
{
    const TestDirectory directory;
    directory.write("E_at_7.res", "0.5 1 2\n1.5 4 x\n2.5 7 8\n");
    directory.write("Rho_Bloch0_at_7.res", "0.5 1 11 12 21 22\n1.5 x 11 12 21 22\n");
    const QV_Results results = resultsOf(directory);
    const Captor captor = captorOf(2, 1, 2);
    EXPECT_EQ(results.readField(captor, 0).mValues, Values{1.0});
    EXPECT_EQ(results.readFields(captor), (std::vector<Values>{{1.0}, {2.0}}));
    EXPECT_EQ(results.readDensity(captor, 0, 0, 0).mValues, Values{11.0});
}

// ---------------------------------------------------------------- curves

TEST(QV_Results, ACurveHasAsManyPointsAsTheShorterOfTimesAndValues)
{
    const TestDirectory directory;
    directory.write("tps.res", "1 2 0.5\n2 2 1\n3 2 1.5\n");
    directory.write("E_at_7.res", "1 10\n2 20\n");
    directory.write("Rho_Bloch0_at_7.res", "1 4 0.1\n2 5 0.2\n3 6 0.3\n4 7 0.4\n");
    QV_Results results = resultsOf(directory);
    ASSERT_TRUE(results.readTimes());
    const Captor captor = captorOf(1, 1, 1);
    EXPECT_EQ(results.fieldCurve(captor, 0).mX, (Values{0.5, 1.0}));
    EXPECT_EQ(results.fieldCurve(captor, 0).mY, (Values{10.0, 20.0}));
    EXPECT_EQ(results.densityCurve(captor, 0, 0, 0).mX, (Values{0.5, 1.0, 1.5}));
    EXPECT_EQ(results.densityCurve(captor, 0, 0, 0).mY, (Values{0.1, 0.2, 0.3}));
    EXPECT_EQ(results.iterationsCurve(captor, 0).mX, (Values{0.5, 1.0, 1.5}));
    EXPECT_EQ(results.iterationsCurve(captor, 0).mY, (Values{4.0, 5.0, 6.0}));
    EXPECT_EQ(results.curveOf({7.0}).mX, Values{0.5});
    EXPECT_EQ(results.curveOf({7.0}).mY, Values{7.0});
}

TEST(QV_Results, ACurveOfWhatDoesNotExistIsEmpty)
{
    const TestDirectory directory;
    directory.write("tps.res", "1 2 0.5\n");
    directory.write("E_at_7.res", "1 10\n");
    QV_Results results = resultsOf(directory);
    EXPECT_TRUE(results.fieldCurve(captorOf(1, 1, 1), 0).mY.empty()) << "no times were read";
    ASSERT_TRUE(results.readTimes());
    EXPECT_EQ(results.fieldCurve(captorOf(1, 1, 1), 0).mY, Values{10.0});
    EXPECT_TRUE(results.fieldCurve(captorOf(1, 1, 1), 1).mX.empty());
    EXPECT_TRUE(results.densityCurve(captorOf(1, 1, 1), 0, 0, 0).mX.empty());
    EXPECT_TRUE(results.iterationsCurve(captorOf(1, 1, 1), 1).mX.empty());
}

// ---------------------------------------------------------------- table

TEST(QV_Results, ATableHoldsAllColumnsOfACaptorUnderTheirNames)
{
    const TestDirectory directory;
    Run::write(directory);
    QV_Results results;
    ASSERT_TRUE(results.readCaptors(directory.slashed()));
    ASSERT_TRUE(results.readTimes());
    const Table table = results.readTable(results.getCaptors()[1]);
    EXPECT_EQ(
        columnNamesOf(table),
        (Names{"t", "t (s)", "E0 (V/m)", "E1 (V/m)", "Rho_Bloch0 iterations", "Rho_Bloch0[0][0]",
               "Rho_Bloch0[0][1]", "Rho_Bloch0[1][0]", "Rho_Bloch0[1][1]", "Rho_Bloch1 iterations",
               "Rho_Bloch1[0][0]", "Rho_Bloch1[0][1]", "Rho_Bloch1[1][0]", "Rho_Bloch1[1][1]"}));
    ASSERT_EQ(table.getRowsNumber(), 4U);
    EXPECT_EQ(columnOf(table, 0), Run::readTimes());
    EXPECT_EQ(columnOf(table, 1), Run::readSeconds());
    EXPECT_EQ(columnOf(table, 2), Run::readField(12, 0));
    EXPECT_EQ(columnOf(table, 3), Run::readField(12, 1));
    for (int b = 0; b < 2; ++b) {
        const auto first = 4 + 5 * static_cast<unsigned long>(b);
        EXPECT_EQ(columnOf(table, first), Run::readIterations(12, b));
        for (unsigned long k = 0; k < 4; ++k) {
            EXPECT_EQ(columnOf(table, first + 1 + k), Run::readDensity(12, b, k / 2, k % 2));
        }
    }
}

TEST(QV_Results, ATableHasNoCellsBeyondItsEnds)
{
    const TestDirectory directory;
    directory.write("tps.res", "1 2 0.5\n2 2 1\n");
    directory.write("E_at_7.res", "1 10\n");
    QV_Results results = resultsOf(directory);
    ASSERT_TRUE(results.readTimes());
    const Table table = results.readTable(captorOf(1, 1, 1));
    ASSERT_EQ(table.getColumnsNumber(), 3U);
    EXPECT_EQ(table.getValue(0, 2), 10.0);
    EXPECT_TRUE(std::isnan(table.getValue(1, 2))) << "the field's file is shorter";
    EXPECT_TRUE(std::isnan(table.getValue(2, 0)));
    EXPECT_TRUE(std::isnan(table.getValue(0, 3)));
    EXPECT_EQ(table.getColumnName(3), "");
    const Table none;
    EXPECT_EQ(none.getRowsNumber(), 0U);
    EXPECT_EQ(columnNamesOf(none), (Names{"t", "t (s)"}));
    EXPECT_EQ(none.getColumnName(2), "");
    EXPECT_TRUE(std::isnan(none.getValue(0, 0)));
}

TEST(QV_Results, RowsBeyondTheTimesAreNotInATable)
{
    const TestDirectory directory;
    directory.write("tps.res", "1 2 0.5\n");
    directory.write("E_at_7.res", "1 10\n2 20\n");
    QV_Results results = resultsOf(directory);
    ASSERT_TRUE(results.readTimes());
    const Table table = results.readTable(captorOf(1, 0, 0));
    EXPECT_EQ(table.getRowsNumber(), 1U);
    EXPECT_TRUE(std::isnan(table.getValue(1, 2)));
}

TEST(QV_Results, AFileThatIsMissingHasNoColumnsInATable)
{
    const TestDirectory directory;
    directory.write("tps.res", "1 2 0.5\n");
    directory.write("Rho_Bloch11_at_7.res", "1 4 0.25\n");
    directory.write("Rho_Bloch2_at_7.res", "1 5 0.5\n");
    directory.write("Rho_Bloch02_at_7.res", "1 6 0.5\n");
    directory.write("Rho_Bloch12_at_7.res", "1 6 0.5\n");
    directory.write("Rho_Bloch-1_at_7.res", "1 6 0.5\n");
    directory.write("Rho_Bloch_at_7.res", "1 6 0.5\n");
    directory.write("Rho_Bloch1_at_77.res", "1 6 0.5\n");
    directory.write("Rho_Bloch1_at_7.res~", "1 6 0.5\n");
    QV_Results results = resultsOf(directory);
    ASSERT_TRUE(results.readTimes());
    const Table table = results.readTable(captorOf(2, 12, 1));
    EXPECT_EQ(columnNamesOf(table),
              (Names{"t", "t (s)", "Rho_Bloch2 iterations", "Rho_Bloch2[0][0]",
                     "Rho_Bloch11 iterations", "Rho_Bloch11[0][0]"}));
    EXPECT_EQ(table.getValue(0, 3), 0.5);
    EXPECT_EQ(table.getValue(0, 4), 4.0);
    EXPECT_EQ(table.getValue(0, 5), 0.25);
}

TEST(QV_Results, ARunWithoutStepsHasATableOfNamesAlone)
{
    const TestDirectory directory;
    directory.write("tps.res", "");
    directory.write("E_at_7.res", "");
    directory.write("Rho_Bloch0_at_7.res", "");
    QV_Results results = resultsOf(directory);
    ASSERT_TRUE(results.readTimes());
    const Table table = results.readTable(captorOf(1, 1, 1));
    EXPECT_EQ(table.getRowsNumber(), 0U);
    EXPECT_EQ(columnNamesOf(table),
              (Names{"t", "t (s)", "E0 (V/m)", "Rho_Bloch0 iterations", "Rho_Bloch0[0][0]"}));
}

// ---------------------------------------------------------------- rows

namespace {

/// All that the rows of a directory give: a text for each part, and below it a text for each step.
Names rowsOf(const TestDirectory& directory)
{
    QV_Results results = resultsOf(directory);
    QV_Results::Rows rows(results);
    Names texts;
    for (const auto& part : rows.getParts()) {
        texts.push_back(printed("%s of %lu at %lu: %lu", part.mIsField ? "E" : "rho", part.mSystem,
                                part.mLocation, part.mWidth));
    }
    while (rows.next()) {
        std::string text = printed("%g:", rows.getSeconds());
        for (const auto& part : rows.getParts()) {
            for (const double value : part.mValues) {
                text += printed(" %g", value);
            }
            text += ";";
        }
        texts.push_back(text);
    }
    return texts;
}

std::string messageOfRows(const TestDirectory& directory)
{
    QV_Results results = resultsOf(directory);
    QV_Results::Rows rows(results);
    EXPECT_FALSE(rows.next() && !rows.getMessage().empty());
    std::string message = rows.getMessage();
    const std::size_t place = message.find(directory.slashed());
    return place == std::string::npos ? message
                                      : message.replace(place, directory.slashed().size(), "@");
}

/// A captor at node 7.
std::string captorText(int levels, int systems, int dimension)
{
    return captorLine(7, 0.5, "(1.0)", levels, systems, dimension);
}

} // namespace

TEST(QV_Results, RowsHoldWhatTheTablesOfAllCaptorsHold)
{
    const TestDirectory directory;
    Run::write(directory);
    QV_Results results = resultsOf(directory);
    ASSERT_TRUE(results.readTimes());
    QV_Results::Rows rows(results);
    for (unsigned long step = 0; step < Run::STEPS; ++step) {
        ASSERT_TRUE(rows.next());
        EXPECT_EQ(rows.getSeconds(), results.getTimes().mSeconds[step]);
        Values expected;
        for (const Captor& captor : results.getCaptors()) {
            const Table table = results.readTable(captor);
            for (unsigned long column = 2; column < table.getColumnsNumber(); ++column) {
                expected.push_back(table.getValue(step, column));
            }
        }
        Values values;
        for (const auto& part : rows.getParts()) {
            EXPECT_EQ(part.mValues.size(), part.mWidth);
            values.insert(values.end(), part.mValues.begin(), part.mValues.end());
        }
        EXPECT_EQ(bits(values), bits(expected)) << step;
    }
    EXPECT_FALSE(rows.next());
    EXPECT_FALSE(rows.next());
    EXPECT_EQ(rows.getMessage(), "");
}

TEST(QV_Results, ThePartsOfRowsTellWhoseTheyAre)
{
    const TestDirectory directory;
    Run::write(directory);
    const Names rows = rowsOf(directory);
    EXPECT_EQ(Names(rows.begin(), rows.begin() + 6),
              (Names{"E of 0 at 3: 2", "rho of 0 at 3: 5", "rho of 1 at 3: 5", "E of 0 at 12: 2",
                     "rho of 0 at 12: 5", "rho of 1 at 12: 5"}));
}

TEST(QV_Results, AShortFileLeavesItsPartOfARowEmptyAndALongOneIsCut)
{
    const TestDirectory directory;
    directory.write("captors.res", captorText(1, 1, 1));
    directory.write("tps.res", "1 2 0.5\n2 2 1\n3 2 1.5\n");
    directory.write("E_at_7.res", "1 10\n2 20\n3 30\n4 40\n");
    directory.write("Rho_Bloch0_at_7.res", "1 4 0.25\n");
    EXPECT_EQ(rowsOf(directory), (Names{"E of 0 at 7: 1", "rho of 0 at 7: 2", "0.5: 10; 4 0.25;",
                                        "1: 20;;", "1.5: 30;;"}));
}

TEST(QV_Results, BehindADamagedLineAPartOfARowStaysEmpty)
{
    const TestDirectory directory;
    directory.write("captors.res", captorText(1, 0, 1));
    directory.write("tps.res", "1 2 1\n2 2 2\n3 2 3\n4 2 x\n5 2 5\n");
    for (const char* damaged : {"1 10\n2 x\n3 30\n", "1 10\n2\n3 30\n", "1 10\n2 20 5\n3 30\n"}) {
        directory.write("E_at_7.res", damaged);
        EXPECT_EQ(rowsOf(directory), (Names{"E of 0 at 7: 1", "1: 10;", "2:;", "3:;"})) << damaged;
    }
    directory.write("E_at_7.res", "1 10\n2 20\n3 30");
    EXPECT_EQ(rowsOf(directory), (Names{"E of 0 at 7: 1", "1: 10;", "2: 20;", "3:;"}));
}

TEST(QV_Results, AMissingFileHasNoPartInARow)
{
    const TestDirectory directory;
    directory.write("captors.res", captorText(1, 3, 1));
    directory.write("tps.res", "1 2 0.5\n");
    EXPECT_EQ(rowsOf(directory), Names{"0.5:"});
    directory.write("Rho_Bloch2_at_7.res", "1 4 0.25\n");
    EXPECT_EQ(rowsOf(directory), (Names{"rho of 2 at 7: 2", "0.5: 4 0.25;"}));
    EXPECT_EQ(messageOfRows(directory), "");
}

TEST(QV_Results, WithoutTimesThereAreNoRowsAndAMessage)
{
    const TestDirectory directory;
    directory.write("captors.res", captorText(1, 0, 1));
    directory.write("E_at_7.res", "1 10\n");
    EXPECT_EQ(messageOfRows(directory), "The file @tps.res could not be read.");
    directory.write("tps.res", "");
    EXPECT_EQ(rowsOf(directory), Names{"E of 0 at 7: 1"});
    EXPECT_EQ(messageOfRows(directory), "");
}

TEST(QV_Results, AFileThatIsThereAndCannotBeReadLeavesNoRows)
{
    const TestDirectory directory;
    directory.write("captors.res", captorText(1, 1, 1));
    directory.write("tps.res", "1 2 0.5\n");
    std::filesystem::create_directory(directory.file("E_at_7.res"));
    EXPECT_EQ(messageOfRows(directory), "The file @E_at_7.res could not be read.");
    std::filesystem::remove(directory.file("E_at_7.res"));
    ASSERT_EQ(mkfifo(directory.file("Rho_Bloch0_at_7.res").c_str(), 0600), 0);
    EXPECT_EQ(messageOfRows(directory), "The file @Rho_Bloch0_at_7.res could not be read.");
}

TEST(QV_Results, MoreFilesThanAProcessMayOpenLeaveNoRowsRatherThanFewer)
{
    const TestDirectory directory;
    std::string captors;
    for (int location = 100; location < 200; ++location) {
        captors += captorLine(location, 0.5, "(1.0)", 1, 0, 1);
        directory.write(printed("E_at_%i.res", location), "1 10\n");
    }
    directory.write("captors.res", captors);
    directory.write("tps.res", "1 2 0.5\n");
    EXPECT_EQ(messageOfRows(directory), "");
    EXPECT_EQ(runInChild([&directory] {
                  const rlimit few{64, 64};
                  setrlimit(RLIMIT_NOFILE, &few);
                  QV_Results results = resultsOf(directory);
                  QV_Results::Rows rows(results);
                  return !rows.getMessage().empty() && !rows.next() ? 0 : 1;
              }),
              0);
}

// ---------------------------------------------------------------- a whole run

TEST(QV_Results, ARunComesBackToTheLastDigitWritten)
{
    const TestDirectory directory;
    Run::write(directory);
    QV_Results results;
    ASSERT_TRUE(results.readCaptors(directory.slashed()));
    ASSERT_TRUE(results.readTimes());
    EXPECT_EQ(textsOf(results.getCaptors()),
              (Names{printed("3 %a ( %a %a ) 2 2 2", 0.12, 0.3125, 0.0),
                     printed("12 %a ( %a ) 2 2 2", 0.48, 1.25)}));
    EXPECT_EQ(results.getTimes().mT, Run::readTimes());
    EXPECT_EQ(results.getTimes().mRabiFrequencies, Values(Run::STEPS, 3.7e12));
    EXPECT_EQ(results.getTimes().mSeconds, Run::readSeconds());
    for (const Captor& captor : results.getCaptors()) {
        const auto location = static_cast<int>(captor.mLocation);
        for (unsigned long k = 0; k < 2; ++k) {
            EXPECT_EQ(results.readField(captor, k).mValues, Run::readField(location, k));
        }
        for (int b = 0; b < 2; ++b) {
            const auto system = static_cast<unsigned long>(b);
            EXPECT_EQ(results.readIterations(captor, system).mValues,
                      Run::readIterations(location, b));
            for (unsigned long k = 0; k < 4; ++k) {
                EXPECT_EQ(results.readDensity(captor, system, k / 2, k % 2).mValues,
                          Run::readDensity(location, b, k / 2, k % 2));
            }
        }
    }
}

TEST(QV_Results, TimesCutAtAnyByteGiveTheWholeLinesBeforeTheCut)
{
    const TestDirectory directory;
    const std::string text = Run::timesText();
    QV_Results results = resultsOf(directory);
    for (std::size_t length = 0; length <= text.size(); ++length) {
        rewrite(directory, "tps.res", text.substr(0, length));
        ASSERT_TRUE(results.readTimes());
        const std::size_t lines = wholeLines(text, length);
        EXPECT_EQ(results.getTimes().mT, firstOf(Run::readTimes(), lines)) << length;
        EXPECT_EQ(results.getTimes().mSeconds, firstOf(Run::readSeconds(), lines)) << length;
    }
}

TEST(QV_Results, AFieldCutAtAnyByteGivesTheWholeLinesBeforeTheCut)
{
    const TestDirectory directory;
    const std::string text = Run::fieldText(7);
    const QV_Results results = resultsOf(directory);
    const Captor captor = captorOf(2, 2, 2);
    for (std::size_t length = 0; length <= text.size(); ++length) {
        rewrite(directory, "E_at_7.res", text.substr(0, length));
        const std::size_t lines = wholeLines(text, length);
        EXPECT_EQ(results.readField(captor, 0).mT, firstOf(Run::readTimes(), lines)) << length;
        EXPECT_EQ(results.readField(captor, 0).mValues, firstOf(Run::readField(7, 0), lines))
            << length;
        EXPECT_EQ(results.readField(captor, 1).mValues, firstOf(Run::readField(7, 1), lines))
            << length;
    }
}

TEST(QV_Results, ADensityCutAtAnyByteGivesTheWholeLinesBeforeTheCut)
{
    const TestDirectory directory;
    const std::string text = Run::densityText(7, 1);
    const QV_Results results = resultsOf(directory);
    const Captor captor = captorOf(2, 2, 2);
    for (std::size_t length = 0; length <= text.size(); ++length) {
        rewrite(directory, "Rho_Bloch1_at_7.res", text.substr(0, length));
        const std::size_t lines = wholeLines(text, length);
        EXPECT_EQ(results.readIterations(captor, 1).mValues,
                  firstOf(Run::readIterations(7, 1), lines))
            << length;
        EXPECT_EQ(results.readDensity(captor, 1, 1, 1).mValues,
                  firstOf(Run::readDensity(7, 1, 1, 1), lines))
            << length;
    }
}

TEST(QV_Results, CaptorsCutAtAnyByteAreThoseThatTheWordsBeforeTheCutDescribe)
{
    const std::string text = Run::captorsText();
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const std::string cut = text.substr(0, length);
        EXPECT_EQ(textsOf(captorsOf(cut)), textsOf(captorsByStream(cut))) << cut;
    }
}

TEST(QV_Results, AnyByteOfARunMayChangeAndTheLinesBeforeItStay)
{
    const TestDirectory directory;
    const std::string text = Run::densityText(7, 0);
    const QV_Results results = resultsOf(directory);
    const Captor captor = captorOf(2, 2, 2);
    const Values whole = Run::readDensity(7, 0, 1, 1);
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (const char letter : {'\0', ' ', '\n', '9', '-', 'e', 'x', '\xff'}) {
            std::string changed = text;
            changed[place] = letter;
            rewrite(directory, "Rho_Bloch0_at_7.res", changed);
            const auto samples = results.readDensity(captor, 0, 1, 1);
            const auto lines = static_cast<std::size_t>(
                std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
            ASSERT_EQ(samples.mT.size(), samples.mValues.size());
            ASSERT_GE(samples.mValues.size(), lines) << place;
            ASSERT_LE(samples.mValues.size(), whole.size()) << place;
            EXPECT_EQ(firstOf(samples.mValues, lines), firstOf(whole, lines)) << place;
        }
    }
}

// ---------------------------------------------------------------- size

TEST(QV_Results, AMillionLinesAreReadInOneGo)
{
    constexpr int lines = 1000000;
    const TestDirectory directory;
    std::string times;
    std::string field;
    for (int k = 1; k <= lines; ++k) {
        times += timesLine(k, 8.0);
        field += fieldLine(k, {-0.5 * k});
    }
    directory.write("tps.res", times);
    directory.write("E_at_7.res", field);
    QV_Results results = resultsOf(directory);
    ASSERT_TRUE(results.readTimes());
    const auto curve = results.fieldCurve(captorOf(1, 0, 0), 0);
    ASSERT_EQ(curve.mX.size(), static_cast<std::size_t>(lines));
    ASSERT_EQ(curve.mY.size(), static_cast<std::size_t>(lines));
    int wrong = 0;
    for (int k = 1; k <= lines; ++k) {
        const auto place = static_cast<std::size_t>(k - 1);
        // Up to a million every k has at most seven digits; k / 8 has more and is rounded.
        const bool isRight = results.getTimes().mT[place] == k
                             && curve.mX[place] == written(k / 8.0)
                             && curve.mY[place] == written(-0.5 * k);
        wrong += isRight ? 0 : 1;
    }
    EXPECT_EQ(wrong, 0);
}

TEST(QV_Results, WordsAcrossTheBlocksOfAFileAreWhole)
{
    // Blocks are powers of two long; lines of 37 bytes put every place of a line on their borders.
    const std::string line = "1.000000e+00 2.000000e+00 3.250000e+00\n";
    std::string text;
    std::size_t lines = 0;
    for (; text.size() < (5U << 20); ++lines) {
        text += std::string(lines % 3, ' ') + line;
    }
    EXPECT_EQ(timesOf(text).mSeconds, Values(lines, 3.25));
}

TEST(QV_Results, AWordMayBeLongerThanABlock)
{
    const std::string zeros(3U << 20, '0');
    EXPECT_EQ(timesOf("1 2 3\n" + zeros + "1 2 0." + zeros + "1e3145729\n4 5 6\n").mSeconds,
              (Values{3.0, 1.0, 6.0}));
    EXPECT_EQ(timesOf("1 2 3\n" + zeros + "x 2 3\n").mSeconds, Values{3.0});
    EXPECT_EQ(captorsOf("captors Position: (1," + zeros + "2) EDim: 2")[0].mPosition,
              (Values{1.0, 2.0}));
}

TEST(QV_Results, ALineMayBeLongerThanABlock)
{
    constexpr unsigned long levels = 1000;
    const TestDirectory directory;
    std::string text;
    for (int step = 0; step < 2; ++step) {
        text += printed("%i 5", step);
        for (unsigned long k = 0; k < levels * levels; ++k) {
            text += " " + std::to_string(k + static_cast<unsigned long>(step));
        }
        text += "\n";
    }
    directory.write("Rho_Bloch0_at_7.res", text);
    EXPECT_EQ(resultsOf(directory).readDensity(captorOf(1, 1, levels), 0, 999, 998).mValues,
              (Values{999998.0, 999999.0}));
}

TEST(QV_Results, NumbersInAFileDoNotTakeMemory)
{
    // All columns of these captors would be 10^11, and the names of all files 10^8.
    constexpr long allowed = 256L << 20;
    const TestDirectory directory;
    std::string captors;
    for (int k = 0; k < 1000; ++k) {
        captors += "captors Location: 7 RhoSize: 1000 BlochEquationsNumber: 100000 EDim: 3\n";
    }
    directory.write("captors.res", captors);
    directory.write("tps.res", "1 2 3\n");
    directory.write("E_at_7.res", "1 2\n");
    directory.write("Rho_Bloch0_at_7.res", "1 2 3\n");
    directory.write("Rho_Bloch99999_at_7.res", "");
    EXPECT_EQ(runInChild([&directory] {
                  const long before = peakMemory();
                  QV_Results results;
                  if (!results.readCaptors(directory.slashed()) || !results.readTimes()
                      || results.getCaptors().size() != 1000) {
                      return 1;
                  }
                  for (const Captor& captor : results.getCaptors()) {
                      const Table table = results.readTable(captor);
                      if (table.getColumnsNumber() != 2 + 3 + 2 * 1000001
                          || table.getColumnName(2000006) != "Rho_Bloch99999[999][999]"
                          || !std::isnan(table.getValue(0, 2000006))) {
                          return 2;
                      }
                  }
                  if (results.expectedFileNames().size() != QV_Results::MAX_FILES) {
                      return 3;
                  }
                  return peakMemory() - before < allowed ? 0 : 4;
              }),
              0);
}

TEST(QV_Results, WhatIsNoPlainFileIsNotRead)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.file("captors.res"));
    ASSERT_EQ(mkfifo(directory.file("tps.res").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", directory.file("E_at_7.res"));
    EXPECT_EQ(runInChild([&directory] {
                  QV_Results results;
                  return !results.readCaptors(directory.slashed()) && !results.readTimes()
                                 && results.readField(captorOf(1, 0, 0), 0).mValues.empty()
                             ? 0
                             : 1;
              }),
              0);
}

TEST(QV_Results, AFileThatMayNotBeReadIsAsMissing)
{
    const TestDirectory directory;
    Run::write(directory);
    std::filesystem::permissions(directory.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(directory.file("tps.res"), std::filesystem::perms::none);
    EXPECT_EQ(runInChild([&directory] {
                  becomeOrdinaryUser();
                  QV_Results results;
                  return results.readCaptors(directory.slashed()) && !results.readTimes() ? 0 : 1;
              }),
              0);
}

// ---------------------------------------------------------------- the files themselves

TEST(QV_Results, TwoSystemsAndFiveNodesGiveEighteenFiles)
{
    const TestDirectory directory;
    std::string text;
    for (int k = 1; k <= 5; ++k) {
        text += captorLine(10 * k, 0.1 * k, "(1.0)", 2, 2, 1);
    }
    directory.write("captors.res", text);
    const QV_Results results = resultsOf(directory);
    EXPECT_EQ(results.expectedFilesNumber(), 18U);
    EXPECT_EQ(results.expectedFileNames().size(), 18U);
}

TEST(QV_Results, TheFilesOfARunAreNamedByTheirCaptorsAndSystems)
{
    const TestDirectory directory;
    Run::write(directory);
    const QV_Results results = resultsOf(directory);
    Names names = results.expectedFileNames();
    EXPECT_EQ(names, (Names{"captors.res", "level_Frequencies.res", "tps.res", "E_at_3.res",
                            "Rho_Bloch0_at_3.res", "Rho_Bloch1_at_3.res", "E_at_12.res",
                            "Rho_Bloch0_at_12.res", "Rho_Bloch1_at_12.res"}));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, namesIn(directory.path()));
}

TEST(QV_Results, ARunWithoutCaptorsMakesThreeFiles)
{
    const QV_Results results;
    EXPECT_EQ(results.expectedFilesNumber(), 3U);
    EXPECT_EQ(results.expectedFileNames(),
              (Names{"captors.res", "level_Frequencies.res", "tps.res"}));
}

TEST(QV_Results, TheListOfFilesIsCutWhereItsNumberIsNot)
{
    const TestDirectory directory;
    std::string text;
    for (int k = 0; k < 20; ++k) {
        text += captorLine(k, 0.0, "(0)", 1, 100000, 1);
    }
    directory.write("captors.res", text);
    const QV_Results results = resultsOf(directory);
    EXPECT_EQ(results.expectedFilesNumber(), 3U + 20U * 100001U);
    const Names names = results.expectedFileNames();
    ASSERT_EQ(names.size(), QV_Results::MAX_FILES);
    EXPECT_EQ(names.back(), "Rho_Bloch48561_at_10.res");
}

TEST(QV_Results, TheFilesOfARunAreRemovedAndForeignOnesStay)
{
    const TestDirectory directory;
    Run::write(directory);
    const Names foreign{".res",
                        "CAPTORS.RES",
                        "E_at_.res",
                        "E_at_-1.res",
                        "E_at_1",
                        "E_at_1.res.bak",
                        "E_at_1 .res",
                        "E_at_1x.res",
                        "Rho_Bloch1_at_.res",
                        "Rho_Bloch1_at_2_at_3.res",
                        "Rho_Bloch1at_2.res",
                        "Rho_Bloch1_at_2.res~",
                        "Rho_Bloch_at_1.res",
                        "Rho_Blochx_at_1.res",
                        "captors.res~",
                        "my.res",
                        "my_E_at_1.res",
                        "paramBeforeSolving.xml",
                        "tps.resx"};
    for (const std::string& name : foreign) {
        directory.write(name, "mine");
        EXPECT_FALSE(QV_Results::isResultFileName(name)) << name;
    }
    std::filesystem::create_directory(directory.file("sub"));
    directory.write("sub/tps.res", "mine");
    directory.write("Rho_Bloch123456789012345678901_at_98765432109876543210.res", "");
    const auto removal = QV_Results::removeResultFiles(directory.slashed());
    EXPECT_EQ(removal.mRemoved, 10U);
    EXPECT_TRUE(removal.mIsComplete);
    Names left = foreign;
    left.emplace_back("sub");
    std::sort(left.begin(), left.end());
    EXPECT_EQ(namesIn(directory.path()), left);
    EXPECT_EQ(directory.read("sub/tps.res"), "mine");
}

TEST(QV_Results, ADirectoryIsClearedWithOrWithoutASlashAtItsEnd)
{
    const TestDirectory directory;
    directory.write("tps.res", "");
    EXPECT_EQ(QV_Results::removeResultFiles(directory.path().string()).mRemoved, 1U);
    directory.write("E_at_0.res", "");
    EXPECT_EQ(QV_Results::removeResultFiles(directory.slashed()).mRemoved, 1U);
    EXPECT_EQ(QV_Results::removeResultFiles(directory.slashed()).mRemoved, 0U);
}

TEST(QV_Results, RemovingALinkLeavesWhatItLeadsTo)
{
    const TestDirectory directory;
    directory.write("kept", "mine");
    std::filesystem::create_symlink("kept", directory.file("tps.res"));
    std::filesystem::create_symlink("nowhere", directory.file("E_at_5.res"));
    const auto removal = QV_Results::removeResultFiles(directory.slashed());
    EXPECT_EQ(removal.mRemoved, 2U);
    EXPECT_TRUE(removal.mIsComplete);
    EXPECT_EQ(namesIn(directory.path()), Names{"kept"});
    EXPECT_EQ(directory.read("kept"), "mine");
}

TEST(QV_Results, WhatCannotBeRemovedIsTold)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.file("tps.res"));
    directory.write("captors.res", "");
    directory.write("E_at_1.res", "");
    const auto removal = QV_Results::removeResultFiles(directory.slashed());
    EXPECT_EQ(removal.mRemoved, 2U);
    EXPECT_FALSE(removal.mIsComplete);
    EXPECT_EQ(namesIn(directory.path()), Names{"tps.res"});
}

TEST(QV_Results, ADirectoryThatMayNotBeChangedKeepsItsFiles)
{
    const TestDirectory directory;
    Run::write(directory);
    std::filesystem::permissions(directory.path(), std::filesystem::perms(0555));
    EXPECT_EQ(runInChild([&directory] {
                  becomeOrdinaryUser();
                  const auto removal = QV_Results::removeResultFiles(directory.slashed());
                  return removal.mRemoved == 0 && !removal.mIsComplete ? 0 : 1;
              }),
              0);
    EXPECT_EQ(namesIn(directory.path()).size(), 9U);
}

TEST(QV_Results, OnlyADirectoryThatCouldBeLookedThroughIsCleared)
{
    const TestDirectory directory;
    const auto missing = QV_Results::removeResultFiles(directory.slashed() + "nowhere/");
    EXPECT_EQ(missing.mRemoved, 0U);
    EXPECT_TRUE(missing.mIsComplete);
    const auto file = QV_Results::removeResultFiles(directory.write("plain", ""));
    EXPECT_EQ(file.mRemoved, 0U);
    EXPECT_FALSE(file.mIsComplete);
}
