#pragma once
#include "common/COM_Object.h"

#include <string>

/// A date and time of day, local time, taken from the system when the object is made.
class COM_Time : public COM_Object
{
    COM_CLASS(COM_Time)
public:
    static constexpr unsigned long YEAR = 0;
    static constexpr unsigned long MONTH = 1;
    static constexpr unsigned long WEEK = 2;
    static constexpr unsigned long DAY = 3;
    static constexpr unsigned long WEEK_DAY = 4;
    static constexpr unsigned long HOUR = 5;
    static constexpr unsigned long MINUTE = 6;
    static constexpr unsigned long SECUND = 7;
    static constexpr unsigned long MILLI_SECUNDS = 8;

    /// French names, accents in Latin-1. `DAYS` begins with Monday, but `mWeekDay` counts from Sunday:
    /// texts show each day under the name of the next one, as they always have in old logs.
    static constexpr const char* DAYS[7] = {"Lundi",    "Mardi",  "Mercredi", "Jeudi",
                                            "Vendredi", "Samedi", "Dimanche"};
    static constexpr const char* MONTHS[12] = {
        "Janvier", "F\351vrier", "Mars",      "Avril",   "Mai",      "Juin",
        "Juillet", "Ao\373t",    "Septembre", "Octobre", "Novembre", "D\351cembre"};

    /// Years with their century, months from 0, days from 1. Values outside their ranges carry over, as
    /// the 32nd of a month does.
    void setDate(unsigned long year, unsigned long month, unsigned long day, unsigned long hours,
                 unsigned long minutes, unsigned long seconds);
    void setDate(unsigned long year, unsigned long month, unsigned long day);
    void setTime(unsigned long hours, unsigned long minutes, unsigned long seconds);
    /// "year-month-day" and "hours:minutes:seconds".
    void setDate(const std::string& text);
    void setTime(const std::string& text);

    /// `a` minus `b`, in seconds.
    static double subTimes(const COM_Time& a, const COM_Time& b);
    /// This minus `other`, in seconds.
    double sub(const COM_Time& other) const { return subTimes(*this, other); }

    unsigned long getYear() const { return mYear; }
    unsigned long getMonth() const { return mMonth; }
    unsigned long getWeek() const { return mWeek; }
    unsigned long getWeekDay() const { return mWeekDay; }
    unsigned long getDay() const { return mDay; }
    unsigned long getHours() const { return mHours; }
    unsigned long getMinutes() const { return mMinutes; }
    unsigned long getSeconds() const { return mSeconds; }
    unsigned long getMilliSeconds() const { return mMilliSeconds; }
    /// Ticks of processor time, user and system, of this process when the object was made.
    unsigned long getCPUTime() const { return mCPUTime; }
    /// The system's clock, in seconds.
    unsigned long getTime() const { return mSecondsSince1900; }

    /// Day name, day, month name, year, "hours:minutes:seconds" with two digits each.
    std::string toString() const override;

protected:
    COM_Time();
    ~COM_Time() override = default;

private:
    unsigned long mYear = 0;    ///< With its century.
    unsigned long mMonth = 0;   ///< 0 is January.
    unsigned long mWeek = 0;    ///< Not filled.
    unsigned long mWeekDay = 0; ///< 0 is Sunday.
    unsigned long mDay = 0;     ///< Of the month, from 1.
    unsigned long mHours = 0;
    unsigned long mMinutes = 0;
    unsigned long mSeconds = 0;
    unsigned long mMilliSeconds = 0;
    unsigned long mCPUTime = 0;
    unsigned long mSecondsSince1900 =
        0; ///< The raw value of the system's clock, whatever the name says.
};
