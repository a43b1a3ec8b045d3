#include "common/COM_Time.h"

#include "common/COM_Scoped.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <optional>
#include <string>
#include <sys/times.h>
#include <thread>
#include <vector>

namespace {

/// Puts the process into a time zone of its own for each test.
class COM_TimeTest : public testing::Test
{
protected:
    COM_TimeTest()
    {
        if (const char* const zone = std::getenv("TZ")) {
            mZoneBefore = zone;
        }
        setZone("UTC0");
    }
    ~COM_TimeTest() override
    {
        if (mZoneBefore) {
            setZone(mZoneBefore->c_str());
        } else {
            unsetenv("TZ");
            tzset();
        }
    }
    static void setZone(const char* zone)
    {
        setenv("TZ", zone, 1);
        tzset();
    }

private:
    std::optional<std::string> mZoneBefore;
};

using Fields = std::vector<unsigned long>;

/// Year, month, day, hours, minutes, seconds.
Fields fieldsOf(const COM_Time& time)
{
    return {time.getYear(),  time.getMonth(),   time.getDay(),
            time.getHours(), time.getMinutes(), time.getSeconds()};
}

} // namespace

TEST_F(COM_TimeTest, ANewTimeIsThePresent)
{
    // The clock that the time is read from; the C library's own may lag behind it by some milliseconds.
    using Clock = std::chrono::system_clock;
    const std::time_t before = Clock::to_time_t(Clock::now());
    const COM_Scoped time(COM_Time::New());
    const std::time_t after = Clock::to_time_t(Clock::now());
    EXPECT_EQ(time->getReferenceCount(), 1);
    EXPECT_GE(time->getTime(), static_cast<unsigned long>(before));
    EXPECT_LE(time->getTime(), static_cast<unsigned long>(after));
    const auto seconds = static_cast<std::time_t>(time->getTime());
    const std::tm now = *std::gmtime(&seconds);
    EXPECT_EQ(
        fieldsOf(*time),
        (Fields{static_cast<unsigned long>(now.tm_year + 1900),
                static_cast<unsigned long>(now.tm_mon), static_cast<unsigned long>(now.tm_mday),
                static_cast<unsigned long>(now.tm_hour), static_cast<unsigned long>(now.tm_min),
                static_cast<unsigned long>(now.tm_sec)}));
    EXPECT_EQ(time->getWeekDay(), static_cast<unsigned long>(now.tm_wday));
    EXPECT_EQ(time->getWeek(), 0UL);
    EXPECT_LT(time->getMilliSeconds(), 1000UL);
    EXPECT_EQ(time->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Time"}));
}

TEST_F(COM_TimeTest, ThePresentIsShownInLocalTime)
{
    setZone("EAST-5:30");
    const COM_Scoped time(COM_Time::New());
    const auto shifted = static_cast<std::time_t>(time->getTime()) + 5L * 3600L + 1800L;
    const std::tm local = *std::gmtime(&shifted);
    EXPECT_EQ(time->getHours(), static_cast<unsigned long>(local.tm_hour));
    EXPECT_EQ(time->getMinutes(), static_cast<unsigned long>(local.tm_min));
    EXPECT_EQ(time->getDay(), static_cast<unsigned long>(local.tm_mday));
}

TEST_F(COM_TimeTest, TheMillisecondsAreThoseOfTheSameClock)
{
    const auto clockNow = [] {
        const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
        return static_cast<unsigned long>(
            std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count());
    };
    // More than once: a second may just have begun.
    for (int i = 0; i < 3; ++i) {
        const unsigned long before = clockNow();
        const COM_Scoped time(COM_Time::New());
        const unsigned long after = clockNow();
        const unsigned long now = time->getTime() * 1000 + time->getMilliSeconds();
        EXPECT_GE(now, before);
        EXPECT_LE(now, after);
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
    }
}

TEST_F(COM_TimeTest, TheProcessorsTimeCountsTicksOfUserAndSystem)
{
    // Work of both kinds, until each has its ticks.
    tms ticks{};
    volatile double sum = 0.0;
    while (ticks.tms_utime == 0 || ticks.tms_stime == 0) {
        for (int i = 0; i < 100000; ++i) {
            sum = sum + 1.0;
        }
        for (int i = 0; i < 100; ++i) {
            std::ifstream("/proc/self/stat").get();
        }
        times(&ticks);
    }
    const auto before = static_cast<unsigned long>(ticks.tms_utime + ticks.tms_stime);
    const COM_Scoped time(COM_Time::New());
    times(&ticks);
    EXPECT_GE(time->getCPUTime(), before);
    EXPECT_LE(time->getCPUTime(), static_cast<unsigned long>(ticks.tms_utime + ticks.tms_stime));
}

TEST_F(COM_TimeTest, MonthsHaveTheirFrenchNamesInLatin1)
{
    const std::vector<std::string> months(COM_Time::MONTHS, COM_Time::MONTHS + 12);
    EXPECT_EQ(months, (std::vector<std::string>{"Janvier", "F\351vrier", "Mars", "Avril", "Mai",
                                                "Juin", "Juillet", "Ao\373t", "Septembre",
                                                "Octobre", "Novembre", "D\351cembre"}));
}

TEST_F(COM_TimeTest, DaysHaveTheirFrenchNamesBeginningWithMonday)
{
    const std::vector<std::string> days(COM_Time::DAYS, COM_Time::DAYS + 7);
    EXPECT_EQ(days, (std::vector<std::string>{"Lundi", "Mardi", "Mercredi", "Jeudi", "Vendredi",
                                              "Samedi", "Dimanche"}));
}

TEST_F(COM_TimeTest, TheNamesOfTheFieldsAreDifferentNumbers)
{
    const std::vector<unsigned long> names{
        COM_Time::YEAR,   COM_Time::MONTH,    COM_Time::WEEK,
        COM_Time::DAY,    COM_Time::WEEK_DAY, COM_Time::HOUR,
        COM_Time::MINUTE, COM_Time::SECUND,   COM_Time::MILLI_SECUNDS};
    for (std::size_t i = 0; i < names.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_NE(names[i], names[j]);
        }
    }
}

TEST_F(COM_TimeTest, TheTextShowsEachDayUnderTheNameOfTheNextOne)
{
    const COM_Scoped time(COM_Time::New());
    // The 7th of January 2024 was a Sunday.
    const char* const names[] = {"Lundi",    "Mardi",  "Mercredi", "Jeudi",
                                 "Vendredi", "Samedi", "Dimanche"};
    for (unsigned long i = 0; i < 7; ++i) {
        time->setDate(2024, 0, 7 + i, 1, 2, 3);
        EXPECT_EQ(time->getWeekDay(), i);
        EXPECT_EQ(time->toString(),
                  std::string(names[i]) + " " + std::to_string(7 + i) + " Janvier 2024 01:02:03");
    }
}

TEST_F(COM_TimeTest, TheTextShowsEveryMonth)
{
    const COM_Scoped time(COM_Time::New());
    for (unsigned long i = 0; i < 12; ++i) {
        time->setDate(2024, i, 1, 23, 59, 59);
        const std::string text = time->toString();
        EXPECT_EQ(text.substr(text.find(' ')),
                  std::string(" 1 ") + COM_Time::MONTHS[i] + " 2024 23:59:59");
    }
    time->setDate(2024, 11, 25, 0, 0, 0);
    EXPECT_EQ(time->toString(), "Jeudi 25 D\351cembre 2024 00:00:00");
}

TEST_F(COM_TimeTest, ADateSetsAllFieldsAndTheClock)
{
    const COM_Scoped time(COM_Time::New());
    time->setDate(2001, 8, 9, 1, 46, 40);
    EXPECT_EQ(fieldsOf(*time), (Fields{2001, 8, 9, 1, 46, 40}));
    EXPECT_EQ(time->getWeekDay(), 0UL);
    EXPECT_EQ(time->getTime(), 1000000000UL);
}

TEST_F(COM_TimeTest, ADateWithoutTimeKeepsTheTimeOfDayAndTheReverse)
{
    const COM_Scoped time(COM_Time::New());
    time->setDate(2001, 8, 9, 1, 46, 40);
    time->setDate(1999, 11, 31);
    EXPECT_EQ(fieldsOf(*time), (Fields{1999, 11, 31, 1, 46, 40}));
    time->setTime(13, 14, 15);
    EXPECT_EQ(fieldsOf(*time), (Fields{1999, 11, 31, 13, 14, 15}));
    EXPECT_EQ(time->getWeekDay(), 5UL);
}

TEST_F(COM_TimeTest, ValuesOutsideTheirRangesCarryOver)
{
    const COM_Scoped time(COM_Time::New());
    time->setDate(2023, 1, 29, 0, 0, 0);
    EXPECT_EQ(fieldsOf(*time), (Fields{2023, 2, 1, 0, 0, 0}));
    time->setDate(2024, 1, 30, 0, 0, 0);
    EXPECT_EQ(fieldsOf(*time), (Fields{2024, 2, 1, 0, 0, 0}));
    time->setDate(2023, 12, 1, 0, 0, 0);
    EXPECT_EQ(fieldsOf(*time), (Fields{2024, 0, 1, 0, 0, 0}));
    time->setDate(2023, 11, 31, 23, 59, 60);
    EXPECT_EQ(fieldsOf(*time), (Fields{2024, 0, 1, 0, 0, 0}));
    time->setDate(2024, 2, 0, 0, 0, 0);
    EXPECT_EQ(fieldsOf(*time), (Fields{2024, 1, 29, 0, 0, 0}));
    time->setTime(25, 61, 61);
    EXPECT_EQ(fieldsOf(*time), (Fields{2024, 2, 1, 2, 2, 1}));
}

TEST_F(COM_TimeTest, TextsAreCutAtDashesAndColons)
{
    const COM_Scoped time(COM_Time::New());
    time->setDate(2000, 0, 1, 0, 0, 0);
    time->setTime("7:08:59");
    time->setDate("2024-2-15");
    EXPECT_EQ(fieldsOf(*time), (Fields{2024, 2, 15, 7, 8, 59}));
    time->setTime("10:20");
    EXPECT_EQ(fieldsOf(*time), (Fields{2024, 2, 15, 10, 20, 0}));
    time->setTime("");
    EXPECT_EQ(fieldsOf(*time), (Fields{2024, 2, 15, 0, 0, 0}));
}

TEST_F(COM_TimeTest, ADifferenceIsTheFirstTimeMinusTheSecondInSeconds)
{
    const COM_Scoped a(COM_Time::New());
    const COM_Scoped b(COM_Time::New());
    a->setDate(2024, 2, 1, 0, 0, 0);
    b->setDate(2024, 1, 28, 23, 59, 59);
    EXPECT_EQ(COM_Time::subTimes(*a, *b), 86401.0);
    EXPECT_EQ(COM_Time::subTimes(*b, *a), -86401.0);
    EXPECT_EQ(a->sub(*b), 86401.0);
    EXPECT_EQ(a->sub(*a), 0.0);
}

TEST_F(COM_TimeTest, DifferencesWithDatesBefore1970AreExactToo)
{
    const COM_Scoped a(COM_Time::New());
    const COM_Scoped b(COM_Time::New());
    a->setDate(1969, 11, 31, 23, 59, 59);
    b->setDate(1960, 0, 1, 0, 0, 0);
    EXPECT_EQ(fieldsOf(*a), (Fields{1969, 11, 31, 23, 59, 59}));
    EXPECT_EQ(a->sub(*b), 3653.0 * 86400.0 - 1.0);
    b->setDate(1970, 0, 1, 0, 0, 1);
    EXPECT_EQ(b->sub(*a), 2.0);
    EXPECT_EQ(a->sub(*b), -2.0);
}

TEST_F(COM_TimeTest, SummerTimeIsTakenIntoAccount)
{
    setZone("CET-1CEST,M3.5.0,M10.5.0/3");
    const COM_Scoped before(COM_Time::New());
    const COM_Scoped after(COM_Time::New());
    // The night in which the clock goes from 2 to 3.
    before->setDate(2024, 2, 31, 1, 0, 0);
    after->setDate(2024, 2, 31, 4, 0, 0);
    EXPECT_EQ(after->sub(*before), 2.0 * 3600.0);
    EXPECT_EQ(after->getHours(), 4UL);
    before->setDate(2024, 6, 1, 12, 0, 0);
    EXPECT_EQ(before->getHours(), 12UL);
}
