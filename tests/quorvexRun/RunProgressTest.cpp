#include "quorvexRun/RunProgress.h"

#include "common/COM_Scoped.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <thread>

namespace {

/// What `action` writes to standard error, which is no terminal meanwhile.
template <typename Action>
std::string errorOf(Action action)
{
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
}

long count(const std::string& text, char letter)
{
    return std::count(text.begin(), text.end(), letter);
}

struct LineCase
{
    unsigned long mStep;
    unsigned long mSteps;
    double mSeconds;
    const char* mLine;

    friend std::ostream& operator<<(std::ostream& out, const LineCase& tested)
    {
        return out << tested.mLine;
    }
};

const LineCase LINES[] = {
    {500, 2000, 1.0, "step 500 of 2000, 25 %, 3 s left"},
    {1, 3, 0.1, "step 1 of 3, 33 %, 1 s left"},
    {999, 1000, 0.0, "step 999 of 1000, 99 %, 0 s left"},
    {1, 2, 59.0, "step 1 of 2, 50 %, 59 s left"},
    {1, 2, 60.0, "step 1 of 2, 50 %, 1 min left"},
    {1, 2, 61.0, "step 1 of 2, 50 %, 2 min left"},
    {1, 2, 3540.0, "step 1 of 2, 50 %, 59 min left"},
    {1, 2, 3600.0, "step 1 of 2, 50 %, 1 h 0 min left"},
    {1, 2, 9001.0, "step 1 of 2, 50 %, 2 h 31 min left"},
    {1, 11, 86400.0, "step 1 of 11, 9 %, 240 h 0 min left"},
    {0, 10, 5.0, "step 0 of 10, 0 %"}, // no speed is known yet
    {10, 10, 5.0, "step 10 of 10, 100 %"},
    {0, 0, 5.0, "step 0 of 0, 100 %"},
};

class RunProgressLine : public testing::TestWithParam<LineCase>
{};

} // namespace

TEST_P(RunProgressLine, TellsStepShareAndTimeLeft)
{
    const LineCase& line = GetParam();
    EXPECT_EQ(RunProgress::line(line.mStep, line.mSteps, line.mSeconds), line.mLine);
}

INSTANTIATE_TEST_SUITE_P(Lines, RunProgressLine, testing::ValuesIn(LINES),
                         [](const auto& tested) { return std::to_string(tested.index); });

TEST(RunProgress, WithoutATerminalEachTenthHasItsLine)
{
    const std::string error = errorOf([] {
        const COM_Scoped progress(RunProgress::New(RunOptions::AUTO, false, 25UL));
        for (unsigned long step = 1; step <= 25; ++step) {
            progress->tell(step);
        }
        progress->endLine();
    });
    std::string steps;
    for (std::size_t place = 0; (place = error.find("step ", place)) != std::string::npos;
         place += 5) {
        steps += error.substr(place + 5, error.find(' ', place + 5) - place - 5) + " ";
    }
    EXPECT_EQ(steps, "3 5 8 10 13 15 18 20 23 25 ");
    EXPECT_EQ(count(error, '\n'), 10);
    EXPECT_EQ(count(error, '\r'), 0);
}

TEST(RunProgress, FewerThanTenStepsHaveALineEach)
{
    const std::string error = errorOf([] {
        const COM_Scoped progress(RunProgress::New(RunOptions::AUTO, false, 3UL));
        for (unsigned long step = 1; step <= 3; ++step) {
            progress->tell(step);
        }
    });
    EXPECT_EQ(count(error, '\n'), 3);
    EXPECT_TRUE(error.ends_with("step 3 of 3, 100 %\n")) << error;
}

TEST(RunProgress, ALiveLineIsRewrittenInPlaceAndNotMoreThanTenTimesASecond)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    const std::string error = errorOf([begin] {
        const COM_Scoped progress(RunProgress::New(RunOptions::ALWAYS, false, 1000000000UL));
        unsigned long step = 0;
        while (Clock::now() - begin < std::chrono::milliseconds(350)) {
            progress->tell(++step);
        }
        progress->endLine();
    });
    const auto tenths = (Clock::now() - begin) / std::chrono::milliseconds(100);
    EXPECT_GE(count(error, '\r'), 2);
    EXPECT_LE(count(error, '\r'), tenths + 1);
    EXPECT_TRUE(error.starts_with("\rstep 1 of 1000000000, 0 %")) << error;
    EXPECT_EQ(count(error, '\n'), 1);
    EXPECT_TRUE(error.ends_with("\n"));
}

TEST(RunProgress, TheLastStepIsShownAtOnceAndCoversALongerLine)
{
    const std::string error = errorOf([] {
        const COM_Scoped progress(RunProgress::New(RunOptions::ALWAYS, false, 100UL));
        progress->tell(1);
        progress->tell(100);
        progress->endLine();
    });
    const std::string first = error.substr(1, error.find('\r', 1) - 1);
    EXPECT_TRUE(first.starts_with("step 1 of 100, 1 %, ")) << error;
    std::string last = "step 100 of 100, 100 %";
    last.resize(std::max(last.size(), first.size()), ' ');
    EXPECT_EQ(error, "\r" + first + "\r" + last + "\n");
}

TEST(RunProgress, ALineThatNeverBeganIsNotEnded)
{
    EXPECT_EQ(errorOf([] {
                  const COM_Scoped progress(RunProgress::New(RunOptions::ALWAYS, false, 100UL));
                  progress->endLine();
              }),
              "");
}

TEST(RunProgress, ALineIsEndedOnce)
{
    const std::string error = errorOf([] {
        const COM_Scoped progress(RunProgress::New(RunOptions::ALWAYS, false, 100UL));
        progress->tell(1);
        progress->endLine();
        progress->endLine();
    });
    EXPECT_EQ(count(error, '\n'), 1);
}

TEST(RunProgress, NeverAndQuietAreSilentAndAlwaysIsStrongerThanQuiet)
{
    const auto told = [](RunOptions::Progress mode, bool isQuiet) {
        return errorOf([mode, isQuiet] {
            const COM_Scoped progress(RunProgress::New(mode, isQuiet, 10UL));
            progress->tell(1);
            progress->tell(10);
            progress->endLine();
        });
    };
    EXPECT_EQ(told(RunOptions::NEVER, false), "");
    EXPECT_EQ(told(RunOptions::NEVER, true), "");
    EXPECT_EQ(told(RunOptions::AUTO, true), "");
    EXPECT_NE(told(RunOptions::ALWAYS, true).find("\rstep 10 of 10, 100 %"), std::string::npos);
}

TEST(RunProgress, TheSolversOwnNumbersAreDropped)
{
    testing::internal::CaptureStdout();
    const std::string error = errorOf([] {
        const COM_Scoped progress(RunProgress::New(RunOptions::ALWAYS, false, 10UL));
        progress->printInt(5);
    });
    EXPECT_EQ(error, "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(RunProgress, SecondsAreCountedFromItsBeginning)
{
    const auto begin = std::chrono::steady_clock::now();
    const COM_Scoped progress(RunProgress::New(RunOptions::NEVER, false, 10UL));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const double seconds = progress->seconds();
    EXPECT_GE(seconds, 0.02);
    EXPECT_LE(seconds,
              std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
}
