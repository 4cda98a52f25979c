// COleDateTime and COleDateTimeSpan: arithmetic and fields.
#include <afxdisp.h>
#include <civil.h>

#include <cmath>
#include <ctime>

namespace {
constexpr int kSecondsPerDay = 86400;
// A longer span joins no two dates, in either direction.
constexpr double kMaxSpanDays = civil::kLastDay - civil::kFirstDay + 1.0;

// False for what is not a number.
bool IsInRange(DATE date)
{
    return date > civil::kFirstDay - 1.0 && date < civil::kLastDay + 1.0;
}

// The inverse of Linear().
DATE DateFromLinear(double linear)
{
    if (linear >= 0) {
        return linear;
    }
    const double day = std::floor(linear);
    return day + (day - linear);
}

template <class Status>
Status Combined(Status first, Status second)
{
    if (first == Status::null || second == Status::null) {
        return Status::null;
    }
    return first == Status::valid && second == Status::valid ? Status::valid : Status::invalid;
}
} // namespace

double COleDateTime::LinearOfNegative(DATE date)
{
    const double day = std::ceil(date);
    return day - (date - day);
}

void COleDateTime::CheckRange()
{
    if (!IsInRange(m_dt)) {
        m_status = invalid;
    }
}

COleDateTime& COleDateTime::operator=(DATE date)
{
    m_dt = date;
    m_status = valid;
    CheckRange();
    return *this;
}

COleDateTime& COleDateTime::operator=(const SYSTEMTIME& time)
{
    SetDateTime(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond);
    return *this;
}

COleDateTime& COleDateTime::operator=(__time64_t time)
{
    std::tm fields = {};
#ifdef _WIN32
    const bool isKnown = _localtime64_s(&fields, &time) == 0;
#else
    const std::time_t seconds = time;
    const bool isKnown = localtime_r(&seconds, &fields) != nullptr;
#endif
    if (isKnown) {
        SetDateTime(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min,
                    fields.tm_sec < 60 ? fields.tm_sec : 59);
    } else {
        m_status = invalid;
    }
    return *this;
}

COleDateTime COleDateTime::GetCurrentTime()
{
    return COleDateTime(static_cast<__time64_t>(std::time(nullptr)));
}

int COleDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second)
{
    if (!civil::IsValid(year, month, day) || hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 ||
        second > 59) {
        m_status = invalid;
        return 1;
    }
    const int dayNumber = civil::DayNumber(year, month, day);
    const double timeOfDay = (hour * 3600 + minute * 60 + second) / static_cast<double>(kSecondsPerDay);
    m_dt = dayNumber >= 0 ? dayNumber + timeOfDay : dayNumber - timeOfDay;
    m_status = valid;
    return 0;
}

// The day and the second of the day, rounded to the nearest second; that may lead into the next day, but not beyond
// the last day of all, which ends at 23:59:59. The value is checked again, for it is open to everybody.
bool COleDateTime::Break(int& dayNumber, int& secondOfDay) const
{
    if (m_status != valid || !IsInRange(m_dt)) {
        return false;
    }
    dayNumber = static_cast<int>(m_dt);
    secondOfDay = static_cast<int>(std::fabs(m_dt - dayNumber) * kSecondsPerDay + 0.5);
    if (secondOfDay >= kSecondsPerDay) {
        secondOfDay = dayNumber < civil::kLastDay ? 0 : kSecondsPerDay - 1;
        dayNumber += dayNumber < civil::kLastDay ? 1 : 0;
    }
    return true;
}

bool COleDateTime::BreakDate(int& year, int& month, int& day) const
{
    int dayNumber = 0;
    int secondOfDay = 0;
    if (!Break(dayNumber, secondOfDay)) {
        return false;
    }
    civil::FromDayNumber(dayNumber, year, month, day);
    return true;
}

int COleDateTime::GetYear() const
{
    int year = 0, month = 0, day = 0;
    return BreakDate(year, month, day) ? year : error;
}

int COleDateTime::GetMonth() const
{
    int year = 0, month = 0, day = 0;
    return BreakDate(year, month, day) ? month : error;
}

int COleDateTime::GetDay() const
{
    int year = 0, month = 0, day = 0;
    return BreakDate(year, month, day) ? day : error;
}

int COleDateTime::GetHour() const
{
    int dayNumber = 0, secondOfDay = 0;
    return Break(dayNumber, secondOfDay) ? secondOfDay / 3600 : error;
}

int COleDateTime::GetMinute() const
{
    int dayNumber = 0, secondOfDay = 0;
    return Break(dayNumber, secondOfDay) ? secondOfDay / 60 % 60 : error;
}

int COleDateTime::GetSecond() const
{
    int dayNumber = 0, secondOfDay = 0;
    return Break(dayNumber, secondOfDay) ? secondOfDay % 60 : error;
}

int COleDateTime::GetDayOfWeek() const
{
    int dayNumber = 0, secondOfDay = 0;
    return Break(dayNumber, secondOfDay) ? civil::DayOfWeek(dayNumber) : error;
}

int COleDateTime::GetDayOfYear() const
{
    int year = 0, month = 0, day = 0;
    if (!BreakDate(year, month, day)) {
        return error;
    }
    return civil::DayNumber(year, month, day) - civil::DayNumber(year, 1, 1) + 1;
}

bool COleDateTime::GetAsSystemTime(SYSTEMTIME& time) const
{
    int dayNumber = 0, secondOfDay = 0;
    if (!Break(dayNumber, secondOfDay)) {
        return false;
    }
    int year = 0, month = 0, day = 0;
    civil::FromDayNumber(dayNumber, year, month, day);
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDayOfWeek = static_cast<WORD>(civil::DayOfWeek(dayNumber) - 1);
    time.wDay = static_cast<WORD>(day);
    time.wHour = static_cast<WORD>(secondOfDay / 3600);
    time.wMinute = static_cast<WORD>(secondOfDay / 60 % 60);
    time.wSecond = static_cast<WORD>(secondOfDay % 60);
    time.wMilliseconds = 0;
    return true;
}

COleDateTime COleDateTime::operator+(const COleDateTimeSpan& span) const
{
    COleDateTime sum;
    sum.m_status = Combined(m_status, static_cast<DateTimeStatus>(span.GetStatus()));
    if (sum.m_status == valid) {
        sum.m_dt = DateFromLinear(Linear() + span.m_span);
        sum.CheckRange();
    }
    return sum;
}

COleDateTimeSpan COleDateTime::operator-(const COleDateTime& date) const
{
    COleDateTimeSpan span;
    switch (Combined(m_status, date.m_status)) {
    case valid:
        span = COleDateTimeSpan(Linear() - date.Linear());
        break;
    case null:
        span.SetStatus(COleDateTimeSpan::null);
        break;
    default:
        span.SetStatus(COleDateTimeSpan::invalid);
        break;
    }
    return span;
}

void COleDateTimeSpan::CheckRange()
{
    if (!(std::fabs(m_span) <= kMaxSpanDays)) { // not a number fails too
        m_status = invalid;
    }
}

void COleDateTimeSpan::SetDateTimeSpan(LONG days, int hours, int minutes, int seconds)
{
    const LONGLONG ofDay = static_cast<LONGLONG>(hours) * 3600 + static_cast<LONGLONG>(minutes) * 60 + seconds;
    m_span = days + static_cast<double>(ofDay) / kSecondsPerDay;
    m_status = valid;
    CheckRange();
}

// Rounded to the nearest second; 0 when the span is not valid.
LONGLONG COleDateTimeSpan::TotalSeconds() const
{
    return m_status == valid ? std::llround(m_span * kSecondsPerDay) : 0;
}

COleDateTimeSpan COleDateTimeSpan::operator+(const COleDateTimeSpan& span) const
{
    COleDateTimeSpan sum;
    sum.m_status = Combined(m_status, span.m_status);
    if (sum.m_status == valid) {
        sum.m_span = m_span + span.m_span;
        sum.CheckRange();
    }
    return sum;
}

COleDateTimeSpan COleDateTimeSpan::operator-(const COleDateTimeSpan& span) const
{
    return *this + -span;
}

COleDateTimeSpan COleDateTimeSpan::operator-() const
{
    COleDateTimeSpan negated(*this);
    negated.m_span = -m_span;
    return negated;
}

CArchive& operator<<(CArchive& ar, const COleDateTime& date)
{
    return ar << static_cast<int>(date.m_status) << date.m_dt;
}

CArchive& operator>>(CArchive& ar, COleDateTime& date)
{
    int status = 0;
    double value = 0;
    ar >> status >> value;
    date = value;
    if (status != COleDateTime::valid) {
        date.m_status = status == COleDateTime::null ? COleDateTime::null : COleDateTime::invalid;
    }
    return ar;
}

CArchive& operator<<(CArchive& ar, const COleDateTimeSpan& span)
{
    return ar << static_cast<int>(span.m_status) << span.m_span;
}

CArchive& operator>>(CArchive& ar, COleDateTimeSpan& span)
{
    int status = 0;
    double value = 0;
    ar >> status >> value;
    span = COleDateTimeSpan(value);
    if (status != COleDateTimeSpan::valid) {
        span.m_status = status == COleDateTimeSpan::null ? COleDateTimeSpan::null : COleDateTimeSpan::invalid;
    }
    return ar;
}
