// COleDateTime and COleDateTimeSpan: a date with a time of day, and the time between two.
//
// Both hold a count of days as a double and a status. A DATE counts days from 30 December 1899; its whole part is the
// day and the size of its fraction the time of day, before that day too: -1.25 is 29 December 1899, 06:00. So DATEs
// below 0 run backwards within a day; comparisons and sums go through a count that does not ("linear").
// Valid dates are the days of the years 100 to 9999. Fields are taken after rounding to the nearest second.
#pragma once

#include <afx.h>

class COleDateTimeSpan
{
public:
    enum DateTimeSpanStatus
    {
        valid = 0,
        invalid = 1,
        null = 2
    };

    COleDateTimeSpan() = default; // no time, valid
    COleDateTimeSpan(double days) : m_span(days) { CheckRange(); }
    COleDateTimeSpan(LONG days, int hours, int minutes, int seconds) { SetDateTimeSpan(days, hours, minutes, seconds); }

    DateTimeSpanStatus GetStatus() const { return m_status; }
    void SetStatus(DateTimeSpanStatus status) { m_status = status; }
    void SetDateTimeSpan(LONG days, int hours, int minutes, int seconds);

    // The whole span in that unit: a whole number, what exceeds it is cut off.
    double GetTotalDays() const { return static_cast<double>(TotalSeconds() / 86400); }
    double GetTotalHours() const { return static_cast<double>(TotalSeconds() / 3600); }
    double GetTotalMinutes() const { return static_cast<double>(TotalSeconds() / 60); }
    double GetTotalSeconds() const { return static_cast<double>(TotalSeconds()); }
    // Its parts, all with the span's sign.
    LONG GetDays() const { return static_cast<LONG>(TotalSeconds() / 86400); }
    LONG GetHours() const { return static_cast<LONG>(TotalSeconds() / 3600 % 24); }
    LONG GetMinutes() const { return static_cast<LONG>(TotalSeconds() / 60 % 60); }
    LONG GetSeconds() const { return static_cast<LONG>(TotalSeconds() % 60); }
    operator double() const { return m_span; }

    // Equal: status and value. Ordered: false when either is not valid.
    bool operator==(const COleDateTimeSpan& span) const { return m_status == span.m_status && m_span == span.m_span; }
    bool operator!=(const COleDateTimeSpan& span) const { return !(*this == span); }
    bool operator<(const COleDateTimeSpan& span) const { return BothValid(span) && m_span < span.m_span; }
    bool operator>(const COleDateTimeSpan& span) const { return BothValid(span) && m_span > span.m_span; }
    bool operator<=(const COleDateTimeSpan& span) const { return BothValid(span) && m_span <= span.m_span; }
    bool operator>=(const COleDateTimeSpan& span) const { return BothValid(span) && m_span >= span.m_span; }

    COleDateTimeSpan operator+(const COleDateTimeSpan& span) const;
    COleDateTimeSpan operator-(const COleDateTimeSpan& span) const;
    COleDateTimeSpan operator-() const;
    COleDateTimeSpan& operator+=(const COleDateTimeSpan& span) { return *this = *this + span; }
    COleDateTimeSpan& operator-=(const COleDateTimeSpan& span) { return *this = *this - span; }

    // %D days in all, %H %M %S the rest with two digits, %%. A span that is not valid gives an empty text.
    CString Format(LPCTSTR format) const;

    double m_span = 0; // days
    DateTimeSpanStatus m_status = valid;

private:
    bool BothValid(const COleDateTimeSpan& span) const { return m_status == valid && span.m_status == valid; }
    LONGLONG TotalSeconds() const;
    void CheckRange();
};

class COleDateTime
{
public:
    enum DateTimeStatus
    {
        error = -1,
        valid = 0,
        invalid = 1,
        null = 2
    };

    COleDateTime() = default; // 30 December 1899, 00:00, valid
    COleDateTime(DATE date) : m_dt(date) { CheckRange(); }
    COleDateTime(const SYSTEMTIME& time) { *this = time; }
    COleDateTime(__time64_t time) { *this = time; } // seconds since 1970, shown as local time
#ifdef _WIN32
    COleDateTime(__time32_t time)
    {
        *this = static_cast<__time64_t>(time);
    } // what time() answers on 32-bit MinGW
#endif
    COleDateTime(int year, int month, int day, int hour, int minute, int second)
    {
        SetDateTime(year, month, day, hour, minute, second);
    }
    COleDateTime& operator=(DATE date);
    COleDateTime& operator=(const SYSTEMTIME& time); // milliseconds and the day of the week are ignored
    COleDateTime& operator=(__time64_t time);
#ifdef _WIN32
    COleDateTime& operator=(__time32_t time)
    {
        return *this = static_cast<__time64_t>(time);
    }
#endif

    // The local time, whole seconds.
    static COleDateTime GetCurrentTime();

    DateTimeStatus GetStatus() const
    {
        return m_status;
    }
    void SetStatus(DateTimeStatus status)
    {
        m_status = status;
    }
    // 0, or 1 with an invalid status and the value kept when there is no such day (years 100 to 9999) or time.
    int SetDateTime(int year, int month, int day, int hour, int minute, int second);
    int SetDate(int year, int month, int day)
    {
        return SetDateTime(year, month, day, 0, 0, 0);
    }
    int SetTime(int hour, int minute, int second)
    {
        return SetDateTime(1899, 12, 30, hour, minute, second);
    }

    // Fields; error (-1) when the status is not valid.
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetDayOfWeek() const; // 1 = Sunday to 7 = Saturday
    int GetDayOfYear() const; // 1 = 1 January
    // All fields at once, milliseconds 0; false, and the record untouched, when the status is not valid.
    bool GetAsSystemTime(SYSTEMTIME& time) const;
    operator DATE() const
    {
        return m_dt;
    }

    // Equal: status and value. Ordered: false when either is not valid.
    bool operator==(const COleDateTime& date) const
    {
        return m_status == date.m_status && m_dt == date.m_dt;
    }
    bool operator!=(const COleDateTime& date) const
    {
        return !(*this == date);
    }
    bool operator<(const COleDateTime& date) const
    {
        return BothValid(date) && Linear() < date.Linear();
    }
    bool operator>(const COleDateTime& date) const
    {
        return BothValid(date) && Linear() > date.Linear();
    }
    bool operator<=(const COleDateTime& date) const
    {
        return BothValid(date) && Linear() <= date.Linear();
    }
    bool operator>=(const COleDateTime& date) const
    {
        return BothValid(date) && Linear() >= date.Linear();
    }

    // A sum with a null operand is null, with an invalid one invalid, beyond the years 100 to 9999 invalid.
    COleDateTime operator+(const COleDateTimeSpan& span) const;
    COleDateTime operator-(const COleDateTimeSpan& span) const
    {
        return *this + -span;
    }
    COleDateTime& operator+=(const COleDateTimeSpan& span)
    {
        return *this = *this + span;
    }
    COleDateTime& operator-=(const COleDateTimeSpan& span)
    {
        return *this = *this - span;
    }
    COleDateTimeSpan operator-(const COleDateTime& date) const;

    // strftime's %a %A %b %B %d %H %I %j %m %M %p %S %w %y %Y %%, and with # (%#m) numbers without leading zeros. Names
    // are English, or those of the C runtime's LC_TIME locale when one is set. Any other flag stands for itself.
    // A date that is not valid gives "Invalid DateTime", a null one an empty text.
    CString Format(LPCTSTR format) const;

    DATE m_dt = 0;
    DateTimeStatus m_status = valid;

private:
    bool BothValid(const COleDateTime& date) const
    {
        return m_status == valid && date.m_status == valid;
    }
    double Linear() const
    {
        return m_dt >= 0 ? m_dt : LinearOfNegative(m_dt);
    }
    static double LinearOfNegative(DATE date);
    bool Break(int& dayNumber, int& secondOfDay) const;
    bool BreakDate(int& year, int& month, int& day) const;
    void CheckRange();
};

// The status as 32 bits and the value.
CArchive& operator<<(CArchive& ar, const COleDateTime& date);
CArchive& operator>>(CArchive& ar, COleDateTime& date);
CArchive& operator<<(CArchive& ar, const COleDateTimeSpan& span);
CArchive& operator>>(CArchive& ar, COleDateTimeSpan& span);
