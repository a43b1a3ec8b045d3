#include "quorvexRun/RunSummary.h"

#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace {

/// Results of three steps at two captors: one system of two levels, one component.
class RunSummaryTest : public testing::Test
{
protected:
    RunSummaryTest()
    {
        const auto captor = [](const char* location, const char* place) {
            return std::string("captors Location: ") + location + " RelPosition: " + place
                   + " Position: (1.000000e+00) RhoSize: 2 BlochEquationsNumber: 1 EDim: 1\n";
        };
        mDirectory.write("captors.res", captor("1", "0.025000") + captor("19", "0.475000"));
        mDirectory.write("level_Frequencies.res", "Rho_Bloch0:\n");
        mDirectory.write("tps.res", "1.0e-01 8.0e+14 1.25e-16 \n"
                                    "2.0e-01 8.0e+14 2.50e-16 \n"
                                    "3.0e-01 8.0e+14 3.75e-16 \n");
        mDirectory.write("E_at_1.res", "1.0e-01 0.0 \n2.0e-01 -4.0e+06 \n3.0e-01 2.0e+06 \n");
        mDirectory.write("E_at_19.res", "1.0e-01 0.0 \n2.0e-01 0.0 \n3.0e-01 1.0e+06 \n");
        mDirectory.write("Rho_Bloch0_at_1.res", "1.0e-01 3 1.0 0.0 0.0 0.0 \n"
                                                "2.0e-01 4 0.5 0.1 -0.1 0.5 \n"
                                                "3.0e-01 5 0.0 0.0 0.0 1.0 \n");
        mDirectory.write("Rho_Bloch0_at_19.res", "1.0e-01 0 1.0 0.0 0.0 0.0 \n"
                                                 "2.0e-01 0 1.0 0.0 0.0 0.0 \n"
                                                 "3.0e-01 0 1.0 0.0 0.0 0.0 \n");
    }

    static std::string files(const std::string& directory)
    {
        std::ostringstream out;
        RunSummary().writeFiles(out, directory);
        return out.str();
    }
    static std::string plot()
    {
        std::ostringstream out;
        RunSummary().writePlot(out);
        return out.str();
    }

    TestDirectory mDirectory;
    WorkingDirectory mWorkingDirectory{mDirectory.path()};
};

std::string repeated(unsigned long number, const char* text)
{
    std::string result;
    for (unsigned long i = 0; i < number; ++i) {
        result += text;
    }
    return result;
}

} // namespace

TEST_F(RunSummaryTest, TheFilesAreCountedAndNamedInShortLines)
{
    EXPECT_EQ(files("some/where"),
              "7 result files with 3 lines in some/where:\n"
              "  captors.res level_Frequencies.res tps.res E_at_1.res Rho_Bloch0_at_1.res "
              "E_at_19.res\n"
              "  Rho_Bloch0_at_19.res\n");
}

TEST_F(RunSummaryTest, FilesThatAreNotThereAreNotNamed)
{
    std::filesystem::remove("E_at_19.res");
    std::filesystem::remove("tps.res");
    EXPECT_EQ(files("x"), "5 result files with 0 lines in x:\n"
                          "  captors.res level_Frequencies.res E_at_1.res Rho_Bloch0_at_1.res "
                          "Rho_Bloch0_at_19.res\n");
}

TEST_F(RunSummaryTest, ThePictureSetsTheFieldsSideBySideAndThePopulationOfTheHighestLevel)
{
    const std::string full = "\u2588";
    const std::string half = "\u2584";
    const std::string quarter = "\u2582";
    const auto third = [](const std::string& letter) { return repeated(20, letter.c_str()); };
    EXPECT_EQ(plot(), "field, and population of the highest level, from 0 to 3.75e-16 s:\n"
                      "  2.5 % E   |"
                          + third(" ") + third(full) + third(half)
                          + "| 4e+06 V/m\n"
                            "        rho |"
                          + third(" ") + third(half) + third(full)
                          + "| 1\n"
                            " 47.5 % E   |"
                          + third(" ") + third(" ") + third(quarter)
                          + "| 1e+06 V/m\n"
                            "        rho |"
                          + third(" ") + third(" ") + third(" ") + "| 0\n");
}

TEST_F(RunSummaryTest, WithoutAStepThereIsNoPicture)
{
    mDirectory.write("tps.res", "");
    EXPECT_EQ(plot(), "");
}

TEST_F(RunSummaryTest, ThePictureShowsValuesThatAreNoNumbersAsNothing)
{
    mDirectory.write("E_at_1.res", "1.0e-01 nan \n2.0e-01 inf \n3.0e-01 -inf \n");
    const std::string text = plot();
    EXPECT_NE(text.find("  2.5 % E   |" + std::string(60, ' ') + "| 0 V/m\n"), std::string::npos)
        << text;
}

TEST_F(RunSummaryTest, TheTableHasARowForEachStepAndTheColumnsOfAllCaptors)
{
    EXPECT_TRUE(RunSummary().writeTable("t.tsv"));
    const std::string zero = "\t0.000000e+00";
    const std::string one = "\t1.000000e+00";
    EXPECT_EQ(mDirectory.read("t.tsv"),
              "t\tt (s)"
              "\tE0 (V/m) at 1\tRho_Bloch0 iterations at 1\tRho_Bloch0[0][0] at 1"
              "\tRho_Bloch0[0][1] at 1\tRho_Bloch0[1][0] at 1\tRho_Bloch0[1][1] at 1"
              "\tE0 (V/m) at 19\tRho_Bloch0 iterations at 19\tRho_Bloch0[0][0] at 19"
              "\tRho_Bloch0[0][1] at 19\tRho_Bloch0[1][0] at 19\tRho_Bloch0[1][1] at 19\n"
              "1.000000e-01\t1.250000e-16"
                  + zero + "\t3.000000e+00" + one + zero + zero + zero // at 1
                  + zero + zero + one + zero + zero + zero             // at 19
                  + "\n2.000000e-01\t2.500000e-16"
                    "\t-4.000000e+06\t4.000000e+00\t5.000000e-01\t1.000000e-01\t-1.000000e-01"
                    "\t5.000000e-01"
                  + zero + zero + one + zero + zero + zero
                  + "\n3.000000e-01\t3.750000e-16"
                    "\t2.000000e+06\t5.000000e+00"
                  + zero + zero + zero + one + "\t1.000000e+06" + zero + one + zero + zero + zero
                  + "\n");
}

TEST_F(RunSummaryTest, CellsBeyondTheEndOfAShortFileAreNoNumbers)
{
    mDirectory.write("E_at_1.res", "1.0e-01 0.5 \n");
    std::filesystem::remove("E_at_19.res");
    std::filesystem::remove("Rho_Bloch0_at_1.res");
    std::filesystem::remove("Rho_Bloch0_at_19.res");
    EXPECT_TRUE(RunSummary().writeTable("t.tsv"));
    EXPECT_EQ(mDirectory.read("t.tsv"), "t\tt (s)\tE0 (V/m) at 1\n"
                                        "1.000000e-01\t1.250000e-16\t5.000000e-01\n"
                                        "2.000000e-01\t2.500000e-16\tnan\n"
                                        "3.000000e-01\t3.750000e-16\tnan\n");
}

TEST_F(RunSummaryTest, ATableThatCannotBeWrittenIsTold)
{
    EXPECT_FALSE(RunSummary().writeTable("missing/t.tsv"));
    EXPECT_FALSE(RunSummary().writeTable("/dev/full"));
    EXPECT_FALSE(std::filesystem::exists("missing"));
}

TEST_F(RunSummaryTest, WithoutResultsThereIsOnlyTheHead)
{
    const TestDirectory empty;
    const WorkingDirectory there(empty.path());
    EXPECT_EQ(plot(), "");
    EXPECT_TRUE(RunSummary().writeTable("t.tsv"));
    EXPECT_EQ(empty.read("t.tsv"), "t\tt (s)\n");
}

TEST(RunSummary, ARowOfBlocksGoesFromBlankToFullInEightSteps)
{
    std::vector<double> values;
    for (int i = 0; i <= 8; ++i) {
        values.push_back(i);
    }
    EXPECT_EQ(RunSummary::sparkline(values, 9, 8.0),
              " \u2581\u2582\u2583\u2584\u2585\u2586\u2587\u2588");
}

TEST(RunSummary, EachBlockStandsForTheLargestMagnitudeOfItsShare)
{
    EXPECT_EQ(RunSummary::sparkline({0.0, -8.0, 1.0, 0.0, 4.0, 4.0}, 3, 8.0), "\u2588\u2581\u2584");
}

TEST(RunSummary, FewValuesFillTheRowByRepetition)
{
    EXPECT_EQ(RunSummary::sparkline({1.0, 0.0}, 4, 1.0), "\u2588\u2588  ");
}

TEST(RunSummary, ValuesAboveTheTopAreFullAndATopOfZeroIsBlank)
{
    EXPECT_EQ(RunSummary::sparkline({5.0, 1.0}, 2, 1.0), "\u2588\u2588");
    EXPECT_EQ(RunSummary::sparkline({5.0, 1.0}, 2, 0.0), "  ");
    EXPECT_EQ(RunSummary::sparkline({}, 3, 1.0), "   ");
}

TEST(RunSummary, InfinitiesAndNotANumbersAreBlank)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(RunSummary::sparkline({infinity, -infinity, nan, 1.0}, 4, 1.0), "   \u2588");
}
