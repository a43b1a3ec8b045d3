#include "common/COM_Time.h"

#include "common/COM_Integer.h"
#include "common/COM_Scoped.h"
#include "common/COM_String.h"

#include <array>
#include <chrono>
#include <ctime>
#include <sys/times.h>

namespace {

/// Three integers out of a text that is cut at `separator`; missing ones are 0.
std::array<unsigned long, 3> threeIntegers(const std::string& text, const std::string& separator)
{
    const COM_Scoped tokens(COM_String::New(text));
    tokens->tokenize(separator);
    std::array<unsigned long, 3> values{};
    for (unsigned long& value : values) {
        value = static_cast<unsigned long>(COM_Integer::parseInt(tokens->nextToken()));
    }
    return values;
}

} // namespace

COM_Time::COM_Time()
{
    COM_TYPE(COM_Time);
    const auto now = std::chrono::system_clock::now();
    const auto sinceEpoch = now.time_since_epoch();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const std::tm* const local = std::localtime(&seconds);
    if (local != nullptr) {
        mYear = static_cast<unsigned long>(local->tm_year) + 1900;
        mMonth = static_cast<unsigned long>(local->tm_mon);
        mWeekDay = static_cast<unsigned long>(local->tm_wday);
        mDay = static_cast<unsigned long>(local->tm_mday);
        mHours = static_cast<unsigned long>(local->tm_hour);
        mMinutes = static_cast<unsigned long>(local->tm_min);
        mSeconds = static_cast<unsigned long>(local->tm_sec);
    }
    mMilliSeconds = static_cast<unsigned long>(
        std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count() % 1000);
    mSecondsSince1900 = static_cast<unsigned long>(seconds);
    tms ticks{};
    times(&ticks);
    mCPUTime = static_cast<unsigned long>(ticks.tms_utime + ticks.tms_stime);
}

void COM_Time::setDate(unsigned long year, unsigned long month, unsigned long day,
                       unsigned long hours, unsigned long minutes, unsigned long seconds)
{
    std::tm local{};
    local.tm_year = static_cast<int>(year - 1900);
    local.tm_mon = static_cast<int>(month);
    local.tm_mday = static_cast<int>(day);
    local.tm_hour = static_cast<int>(hours);
    local.tm_min = static_cast<int>(minutes);
    local.tm_sec = static_cast<int>(seconds);
    local.tm_isdst = -1;
    mSecondsSince1900 = static_cast<unsigned long>(std::mktime(&local));
    mYear = static_cast<unsigned long>(local.tm_year) + 1900;
    mMonth = static_cast<unsigned long>(local.tm_mon);
    mWeekDay = static_cast<unsigned long>(local.tm_wday);
    mDay = static_cast<unsigned long>(local.tm_mday);
    mHours = static_cast<unsigned long>(local.tm_hour);
    mMinutes = static_cast<unsigned long>(local.tm_min);
    mSeconds = static_cast<unsigned long>(local.tm_sec);
}

void COM_Time::setDate(unsigned long year, unsigned long month, unsigned long day)
{
    setDate(year, month, day, mHours, mMinutes, mSeconds);
}

void COM_Time::setTime(unsigned long hours, unsigned long minutes, unsigned long seconds)
{
    setDate(mYear, mMonth, mDay, hours, minutes, seconds);
}

void COM_Time::setDate(const std::string& text)
{
    const auto [year, month, day] = threeIntegers(text, "-");
    setDate(year, month, day);
}

void COM_Time::setTime(const std::string& text)
{
    const auto [hours, minutes, seconds] = threeIntegers(text, ":");
    setTime(hours, minutes, seconds);
}

double COM_Time::subTimes(const COM_Time& a, const COM_Time& b)
{
    // Clocks before 1970 are negative; as unsigned numbers their difference is still exact.
    return static_cast<double>(static_cast<long>(a.mSecondsSince1900 - b.mSecondsSince1900));
}

std::string COM_Time::toString() const
{
    const auto twoDigits = [](unsigned long value) {
        return COM_Integer::toString(2, static_cast<long>(value));
    };
    return std::string(DAYS[mWeekDay % 7]) + " " + std::to_string(mDay) + " " + MONTHS[mMonth % 12]
           + " " + std::to_string(mYear) + " " + twoDigits(mHours) + ":" + twoDigits(mMinutes) + ":"
           + twoDigits(mSeconds);
}
