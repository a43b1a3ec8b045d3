#include "quorvex/QV_ResultFile.h"

#include "support/CaseName.h"
#include "support/ChildProcess.h"
#include "support/Locales.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <string>
#include <sys/resource.h>
#include <utility>

namespace {

constexpr const char* FULL_DEVICE = "/dev/full"; ///< Takes nothing.

class QV_ResultFileTest : public testing::Test
{
protected:
    /// Writes to the full device, gives what `close` says and what it prints to standard error.
    static std::pair<bool, std::string> closeAfter(const std::string& text)
    {
        QV_ResultFile file;
        EXPECT_TRUE(file.open(FULL_DEVICE));
        file.write(text);
        testing::internal::CaptureStderr();
        const bool result = file.close();
        return {result, testing::internal::GetCapturedStderr()};
    }

    TestDirectory mDirectory;
};

} // namespace

TEST_F(QV_ResultFileTest, ANewFileIsClosedAndClosingItIsNoFailure)
{
    QV_ResultFile file;
    EXPECT_FALSE(file.isOpen());
    EXPECT_TRUE(file.close());
}

TEST_F(QV_ResultFileTest, LinesAreWrittenAsTheyAre)
{
    QV_ResultFile file;
    ASSERT_TRUE(file.open(mDirectory.file("a.res")));
    EXPECT_TRUE(file.isOpen());
    const std::string binary("zero \0 and \xe9\r\n", 14);
    file.write("one \t line\n");
    file.write("");
    file.write(binary);
    EXPECT_TRUE(file.close());
    EXPECT_FALSE(file.isOpen());
    EXPECT_TRUE(file.close());
    EXPECT_EQ(mDirectory.read("a.res"), "one \t line\n" + binary);
}

TEST_F(QV_ResultFileTest, AFileOfThatNameIsEmptied)
{
    mDirectory.write("a.res", "much older text");
    QV_ResultFile file;
    ASSERT_TRUE(file.open(mDirectory.file("a.res")));
    EXPECT_EQ(mDirectory.read("a.res"), "");
    EXPECT_TRUE(file.close());
    EXPECT_EQ(mDirectory.read("a.res"), "");
}

TEST_F(QV_ResultFileTest, OpeningAnotherFileClosesTheFirst)
{
    QV_ResultFile file;
    ASSERT_TRUE(file.open(mDirectory.file("a.res")));
    file.write("first\n");
    ASSERT_TRUE(file.open(mDirectory.file("b.res")));
    EXPECT_EQ(mDirectory.read("a.res"), "first\n");
    file.write("second\n");
    EXPECT_TRUE(file.close());
    EXPECT_EQ(mDirectory.read("a.res"), "first\n");
    EXPECT_EQ(mDirectory.read("b.res"), "second\n");
}

TEST_F(QV_ResultFileTest, TheEndOfItsScopeClosesAFile)
{
    {
        QV_ResultFile file;
        file.openOrExit(mDirectory.file("a.res"));
        file.write("line\n");
    }
    EXPECT_EQ(mDirectory.read("a.res"), "line\n");
}

TEST_F(QV_ResultFileTest, AMovedFileGoesOnWhereItWas)
{
    QV_ResultFile first;
    ASSERT_TRUE(first.open(mDirectory.file("a.res")));
    first.write("one\n");
    QV_ResultFile second(std::move(first));
    EXPECT_FALSE(first.isOpen()); // NOLINT(bugprone-use-after-move): a moved file is a closed one
    EXPECT_TRUE(first.close());
    second.write("two\n");
    EXPECT_TRUE(second.close());
    EXPECT_EQ(mDirectory.read("a.res"), "one\ntwo\n");
}

TEST_F(QV_ResultFileTest, AFileThatCannotBeMadeIsToldByOpen)
{
    QV_ResultFile file;
    EXPECT_FALSE(file.open(mDirectory.file("missing/a.res")));
    EXPECT_FALSE(file.isOpen());
    EXPECT_TRUE(file.close());
}

TEST_F(QV_ResultFileTest, AFileThatMustBeMadeEndsTheProcessWithStatusZeroAndItsName)
{
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            QV_ResultFile().openOrExit("/missing/a.res");
        },
        testing::ExitedWithCode(0),
        testing::Matcher<const std::string&>(
            testing::Eq(std::string("FATAL ERROR: Problem of creation of file /missing/a.res\n"))));
}

TEST_F(QV_ResultFileTest, AFullDiskIsToldAtTheEndByALineOnStandardError)
{
    const std::string expected = "The file /dev/full could not be written completely.\n";
    EXPECT_EQ(closeAfter("line\n"), std::make_pair(false, expected));
    EXPECT_EQ(closeAfter(std::string(1000000, 'x')), std::make_pair(false, expected));
}

TEST_F(QV_ResultFileTest, AFullDiskDoesNotMatterWhenNothingIsWritten)
{
    EXPECT_EQ(closeAfter(""), std::make_pair(true, std::string()));
}

TEST_F(QV_ResultFileTest, AProcessThatEndsLeavesCompleteLines)
{
    const int end = runInChild([this] {
        QV_ResultFile file;
        file.openOrExit(mDirectory.file("a.res"));
        for (int i = 0; i < 20000; ++i) {
            file.write("a line of some length\n");
        }
        std::exit(3);
        return 0;
    });
    EXPECT_EQ(end, 3);
    std::string expected;
    for (int i = 0; i < 20000; ++i) {
        expected += "a line of some length\n";
    }
    EXPECT_EQ(mDirectory.read("a.res"), expected);
}

TEST_F(QV_ResultFileTest, TheLimitOfOpenFilesIsRaisedToWhatTheSystemPermits)
{
    const int end = runInChild([] {
        rlimit limit{};
        getrlimit(RLIMIT_NOFILE, &limit);
        const rlim_t most = limit.rlim_max;
        limit.rlim_cur = 20;
        setrlimit(RLIMIT_NOFILE, &limit);
        QV_ResultFile::raiseOpenFilesLimit();
        getrlimit(RLIMIT_NOFILE, &limit);
        return limit.rlim_cur == most && limit.rlim_max == most ? 0 : 1;
    });
    EXPECT_EQ(end, 0);
}

// ---------------------------------------------------------------- fixed point

namespace {

class QV_ResultFileTextTest : public testing::TestWithParam<double>
{
protected:
    static std::string printed(double x)
    {
        char text[400];
        std::snprintf(text, sizeof text, "%lf", x);
        return text;
    }
};

std::string nameOf(double x)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", x);
    return caseName(text);
}

} // namespace

TEST_P(QV_ResultFileTextTest, IsWhatTheCLibraryPrintsInItsOwnLocale)
{
    EXPECT_EQ(QV_ResultFile::fixedText(GetParam()), printed(GetParam()));
}

TEST_P(QV_ResultFileTextTest, DoesNotDependOnTheLocale)
{
    const std::string expected = printed(GetParam());
    const CommaLocale comma;
    EXPECT_EQ(QV_ResultFile::fixedText(GetParam()), expected);
}

INSTANTIATE_TEST_SUITE_P(Numbers, QV_ResultFileTextTest,
                         testing::Values(0.0, -0.0, 1.0, -1.5, 0.05, 398.0 / 1333.0, 0.0000005,
                                         0.0000015, -0.00000049, 999999.9999995, 1.256e15,
                                         1255380424374481.3, 1e22, 1e23,
                                         std::numeric_limits<double>::max(),
                                         -std::numeric_limits<double>::max(),
                                         std::numeric_limits<double>::denorm_min(),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity(),
                                         std::numeric_limits<double>::quiet_NaN()),
                         [](const auto& number) { return nameOf(number.param); });
