#include "quorvexRun/RunExport.h"

#include "support/ChildProcess.h"
#include "support/Locales.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

using Names = std::vector<std::string>;

std::string captorLine(int location, int levels, int systems, int dimension)
{
    std::ostringstream line;
    line << "captors Location: " << location
         << " RelPosition: 0.025000 Position: (1.000000e+00) RhoSize: " << levels
         << " BlochEquationsNumber: " << systems << " EDim: " << dimension << "\n";
    return line.str();
}

/// Results of three steps: two systems of two levels and two components at node 1, and a field alone at node 19.
class RunExportTest : public testing::Test
{
protected:
    RunExportTest()
    {
        mResults.write("captors.res", captorLine(19, 1, 0, 1) + captorLine(1, 2, 2, 2));
        mResults.write("tps.res", "1.000000e-01 8.000000e+14 1.250000e-16 \n"
                                  "2.000000e-01 8.000000e+14 2.500000e-16 \n"
                                  "3.000000e-01 8.000000e+14 3.750000e-16 \n");
        mResults.write("E_at_1.res", "1.000000e-01 0.000000e+00 \t 1.500000e+00 \t \n"
                                     "2.000000e-01 -4.000000e+06 \t 2.500000e+00 \t \n"
                                     "3.000000e-01 2.123456e+06 \t 3.500000e+00 \t \n");
        mResults.write("E_at_19.res", "1.000000e-01 1.000000e-07 \t \n"
                                      "2.000000e-01 2.000000e-07 \t \n"
                                      "3.000000e-01 3.000000e-07 \t \n");
        mResults.write("Rho_Bloch0_at_1.res", "1.0e-01 3 1.0 0.0 0.0 0.0 \n"
                                              "2.0e-01 4 0.5 0.1 -0.1 0.5 \n"
                                              "3.0e-01 5 0.0 0.0 0.0 1.0 \n");
        mResults.write("Rho_Bloch1_at_1.res", "1.0e-01 0 0.75 0.125 0.0625 0.25 \n"
                                              "2.0e-01 0 0.75 0.125 0.0625 0.25 \n"
                                              "3.0e-01 0 0.75 0.125 0.0625 0.25 \n");
    }

    RunExport::Result write(const std::string& fileName)
    {
        return mExport.write(fileName, [] { return false; });
    }
    std::string exported()
    {
        EXPECT_EQ(write(mOutput.file("r.csv")), RunExport::WRITTEN) << mExport.getMessage();
        return mOutput.read("r.csv");
    }
    /// Results of one captor at node 7 with a field of one component.
    void writeField(const std::string& times, const std::string& field) const
    {
        mResults.write("captors.res", captorLine(7, 1, 0, 1));
        mResults.write("tps.res", times);
        mResults.write("E_at_7.res", field);
    }

    TestDirectory mResults;
    TestDirectory mOutput;
    RunExport mExport{mResults.slashed()};
};

const std::string HEADER =
    "time (s),captor 1 node 1 Ex (V/m),captor 1 node 1 Ey (V/m)"
    ",captor 1 node 1 system 0 iterations (1),captor 1 node 1 system 0 Re rho 0 0 (1)"
    ",captor 1 node 1 system 0 Re rho 0 1 (1),captor 1 node 1 system 0 Re rho 1 0 (1)"
    ",captor 1 node 1 system 0 Re rho 1 1 (1)"
    ",captor 1 node 1 system 1 iterations (1),captor 1 node 1 system 1 Re rho 0 0 (1)"
    ",captor 1 node 1 system 1 Re rho 0 1 (1),captor 1 node 1 system 1 Re rho 1 0 (1)"
    ",captor 1 node 1 system 1 Re rho 1 1 (1)"
    ",captor 2 node 19 Ex (V/m)\n";

long peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss * 1024;
}

} // namespace

TEST_F(RunExportTest, ThereIsALineForEachStepWithTheColumnsOfAllCaptors)
{
    EXPECT_EQ(exported(), HEADER
                              + "1.25e-16,0,1.5,3,1,0,0,0,0,0.75,0.125,0.0625,0.25,1e-07\n"
                                "2.5e-16,-4e+06,2.5,4,0.5,0.1,-0.1,0.5,0,0.75,0.125,0.0625,0.25,"
                                "2e-07\n"
                                "3.75e-16,2123456,3.5,5,0,0,0,1,0,0.75,0.125,0.0625,0.25,3e-07\n");
}

TEST_F(RunExportTest, NothingNeedsQuotesAndAllLinesHaveTheSameNumberOfCells)
{
    const std::string text = exported();
    EXPECT_EQ(text.find_first_of("\"\r;"), std::string::npos);
    std::istringstream lines(text);
    std::string line;
    int number = 0;
    for (; std::getline(lines, line); ++number) {
        EXPECT_EQ(std::count(line.begin(), line.end(), ','), 13) << line;
    }
    EXPECT_EQ(number, 4);
}

TEST_F(RunExportTest, ThreeComponentsAreNamedByTheirAxes)
{
    mResults.write("captors.res", captorLine(7, 1, 0, 3));
    mResults.write("tps.res", "1 2 3\n");
    mResults.write("E_at_7.res", "1 4 5 6\n");
    EXPECT_EQ(
        exported(),
        "time (s),captor 1 node 7 Ex (V/m),captor 1 node 7 Ey (V/m),captor 1 node 7 Ez (V/m)\n"
        "3,4,5,6\n");
}

TEST_F(RunExportTest, IndicesOfManyLevelsStayApart)
{
    mResults.write("captors.res", captorLine(7, 12, 1, 1));
    mResults.write("tps.res", "");
    mResults.write("Rho_Bloch0_at_7.res", "");
    const std::string text = exported();
    EXPECT_EQ(std::count(text.begin(), text.end(), ','), 1 + 144);
    EXPECT_NE(text.find(",captor 1 node 7 system 0 Re rho 1 11 (1),"), std::string::npos);
    EXPECT_NE(text.find(",captor 1 node 7 system 0 Re rho 11 1 (1),"), std::string::npos);
    EXPECT_TRUE(text.ends_with(",captor 1 node 7 system 0 Re rho 11 11 (1)\n"));
}

TEST_F(RunExportTest, NumbersKeepAllDigitsThatTheFilesHave)
{
    const Names numbers = {"1.620623e-01",
                           "-9.999999e-310",
                           "0.12345678901234567",
                           "5e-324",
                           "-1.7976931348623157e308",
                           "1.000000e+22",
                           "-0",
                           "123456.7"};
    std::string times;
    std::string field;
    for (const std::string& number : numbers) {
        times += "1 2 " + number + "\n";
        field += "1 " + number + "\n";
    }
    writeField(times, field);
    std::istringstream lines(exported());
    std::string line;
    std::getline(lines, line);
    for (const std::string& number : numbers) {
        ASSERT_TRUE(std::getline(lines, line));
        const std::size_t comma = line.find(',');
        ASSERT_NE(comma, std::string::npos) << line;
        const double value = std::strtod(number.c_str(), nullptr);
        EXPECT_EQ(std::strtod(line.c_str(), nullptr), value) << line;
        EXPECT_EQ(std::strtod(line.c_str() + comma + 1, nullptr), value) << line;
        EXPECT_EQ(line[0] == '-', number[0] == '-') << line;
    }
    EXPECT_FALSE(std::getline(lines, line));
}

TEST_F(RunExportTest, ValuesThatAreNoNumbersAreNotTakenForMissingOnes)
{
    writeField("1 2 3\n2 2 4\n3 2 5\n", "1 nan\n2 inf\n3 -inf\n");
    EXPECT_EQ(exported(), "time (s),captor 1 node 7 Ex (V/m)\n3,nan\n4,inf\n5,-inf\n");
}

TEST_F(RunExportTest, TheDecimalMarkIsAPointInEveryLocale)
{
    const std::string before = exported();
    const CommaLocale locale;
    EXPECT_EQ(exported(), before);
}

TEST_F(RunExportTest, ADensityFileShorterThanTheTimesLeavesEmptyCells)
{
    mResults.write("Rho_Bloch0_at_1.res", "1.0e-01 3 1.0 0.0 0.0 0.0 \n");
    EXPECT_EQ(exported(), HEADER
                              + "1.25e-16,0,1.5,3,1,0,0,0,0,0.75,0.125,0.0625,0.25,1e-07\n"
                                "2.5e-16,-4e+06,2.5,,,,,,0,0.75,0.125,0.0625,0.25,2e-07\n"
                                "3.75e-16,2123456,3.5,,,,,,0,0.75,0.125,0.0625,0.25,3e-07\n");
}

TEST_F(RunExportTest, AFieldFileThatIsCutLeavesEmptyCells)
{
    mResults.write("E_at_19.res", "1.000000e-01 1.000000e-07 \t \n2.000000e-01 2.0000");
    const std::string text = exported();
    EXPECT_NE(text.find(",0.25,1e-07\n"), std::string::npos) << text;
    EXPECT_EQ(text.find(",2\n"), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with(",0.0625,0.25,\n")) << text;
}

TEST_F(RunExportTest, StepsWithoutATimeAreNotExported)
{
    writeField("1 2 3\n", "1 4\n2 5\n3 6\n");
    EXPECT_EQ(exported(), "time (s),captor 1 node 7 Ex (V/m)\n3,4\n");
}

TEST_F(RunExportTest, AFileThatIsMissingHasNoColumns)
{
    std::filesystem::remove(mResults.file("Rho_Bloch0_at_1.res"));
    std::filesystem::remove(mResults.file("Rho_Bloch1_at_1.res"));
    std::filesystem::remove(mResults.file("E_at_19.res"));
    EXPECT_EQ(exported(), "time (s),captor 1 node 1 Ex (V/m),captor 1 node 1 Ey (V/m)\n"
                          "1.25e-16,0,1.5\n2.5e-16,-4e+06,2.5\n3.75e-16,2123456,3.5\n");
}

TEST_F(RunExportTest, WithoutCaptorsThereAreTimesAlone)
{
    mResults.write("captors.res", "");
    EXPECT_EQ(exported(), "time (s)\n1.25e-16\n2.5e-16\n3.75e-16\n");
}

TEST_F(RunExportTest, WithoutStepsThereIsTheHeaderAlone)
{
    for (const char* name :
         {"tps.res", "E_at_1.res", "E_at_19.res", "Rho_Bloch0_at_1.res", "Rho_Bloch1_at_1.res"}) {
        mResults.write(name, "");
    }
    EXPECT_EQ(exported(), HEADER);
}

TEST_F(RunExportTest, MissingCaptorsOrTimesAreNamedAndAFormerExportStays)
{
    mOutput.write("r.csv", "former");
    std::filesystem::remove(mResults.file("tps.res"));
    EXPECT_EQ(write(mOutput.file("r.csv")), RunExport::UNREADABLE);
    EXPECT_EQ(mExport.getMessage(), "The file " + mResults.file("tps.res") + " could not be read.");
    std::filesystem::remove(mResults.file("captors.res"));
    EXPECT_EQ(write(mOutput.file("r.csv")), RunExport::UNREADABLE);
    EXPECT_EQ(mExport.getMessage(),
              "The file " + mResults.file("captors.res") + " could not be read.");
    EXPECT_EQ(mOutput.read("r.csv"), "former");
    EXPECT_EQ(namesIn(mOutput.path()), Names{"r.csv"});
}

TEST_F(RunExportTest, AFileThatIsNoneStopsTheExportRatherThanLosingColumns)
{
    std::filesystem::remove(mResults.file("E_at_19.res"));
    std::filesystem::create_directory(mResults.file("E_at_19.res"));
    EXPECT_EQ(write(mOutput.file("r.csv")), RunExport::UNREADABLE);
    EXPECT_EQ(mExport.getMessage(),
              "The file " + mResults.file("E_at_19.res") + " could not be read.");
    EXPECT_EQ(namesIn(mOutput.path()), Names{});
    std::filesystem::remove(mResults.file("E_at_19.res"));
    EXPECT_EQ(write(mOutput.file("r.csv")), RunExport::WRITTEN);
    EXPECT_EQ(mExport.getMessage(), "");
}

TEST_F(RunExportTest, AFileThatCannotBeWrittenIsTold)
{
    EXPECT_EQ(write(mOutput.file("missing/r.csv")), RunExport::UNWRITABLE);
    EXPECT_EQ(write(mOutput.path().string()), RunExport::UNWRITABLE);
    EXPECT_EQ(write("/dev/full"), RunExport::UNWRITABLE);
    EXPECT_EQ(namesIn(mOutput.path()), Names{});
}

TEST_F(RunExportTest, OnAFullDiskAFormerExportStays)
{
    mOutput.write("r.csv", "former");
    std::string times;
    std::string field;
    for (int k = 0; k < 5000; ++k) {
        times += "1 2 3\n";
        field += "1 4\n";
    }
    writeField(times, field);
    EXPECT_EQ(runInChild([this] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit little{10000, 10000};
                  setrlimit(RLIMIT_FSIZE, &little);
                  return write(mOutput.file("r.csv")) == RunExport::UNWRITABLE ? 0 : 1;
              }),
              0);
    EXPECT_EQ(mOutput.read("r.csv"), "former");
    EXPECT_EQ(namesIn(mOutput.path()), Names{"r.csv"});
}

TEST_F(RunExportTest, AnExportThatIsStoppedLeavesTheFormerOne)
{
    mOutput.write("r.csv", "former");
    EXPECT_EQ(mExport.write(mOutput.file("r.csv"), [] { return true; }), RunExport::STOPPED);
    EXPECT_EQ(mOutput.read("r.csv"), "former");
    EXPECT_EQ(namesIn(mOutput.path()), Names{"r.csv"});
}

TEST_F(RunExportTest, HalfAMillionStepsTakeNoMemory)
{
    // Held as numbers they would take 28 MB.
    constexpr int steps = 500000;
    constexpr long allowed = 16L << 20;
    std::string text;
    for (int k = 1; k <= steps; ++k) {
        text += std::to_string(k) + " 0.5 " + std::to_string(k) + "\n";
    }
    mResults.write("captors.res", captorLine(7, 1, 1, 2));
    mResults.write("tps.res", text);
    mResults.write("E_at_7.res", text);
    std::string().swap(text);
    EXPECT_EQ(runInChild([this] {
                  const long before = peakMemory();
                  if (write(mOutput.file("r.csv")) != RunExport::WRITTEN) {
                      return 1;
                  }
                  return peakMemory() - before < allowed ? 0 : 2;
              }),
              0);
    std::istringstream lines(mOutput.read("r.csv"));
    std::string line;
    ASSERT_TRUE(std::getline(lines, line));
    int wrong = 0;
    int number = 0;
    while (std::getline(lines, line)) {
        ++number;
        double seconds = 0.0;
        double last = 0.0;
        const int found = std::sscanf(line.c_str(), "%lf,0.5,%lf", &seconds, &last);
        wrong += found == 2 && seconds == number && last == number ? 0 : 1;
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(number, steps);
}

TEST_F(RunExportTest, NumbersInCaptorsTakeNoMemory)
{
    // The names of all columns are 36 MB of text.
    constexpr long allowed = 16L << 20;
    mResults.write("captors.res", captorLine(7, 1000, 100000, 3));
    mResults.write("tps.res", "1 2 3\n");
    mResults.write("Rho_Bloch0_at_7.res", "1 2 3\n");
    EXPECT_EQ(runInChild([this] {
                  const long before = peakMemory();
                  if (write(mOutput.file("r.csv")) != RunExport::WRITTEN) {
                      return 1;
                  }
                  return peakMemory() - before < allowed ? 0 : 2;
              }),
              0);
    const std::string text = mOutput.read("r.csv");
    EXPECT_EQ(std::count(text.begin(), text.end(), ','), 2 * 1000001);
}
