// The texts of dates and spans.
#include <afxdisp.h>
#include <civil.h>

#include <cstring>
#include <ctime>

namespace {
// A name of the C runtime's locale. Only the fields that names depend on are set, so that no runtime finds the year
// out of its range.
CString NameOf(const SYSTEMTIME& time, char flag)
{
    std::tm fields = {};
    fields.tm_year = 100;
    fields.tm_mon = time.wMonth - 1;
    fields.tm_mday = 1;
    fields.tm_wday = time.wDayOfWeek;
    fields.tm_hour = time.wHour;
    const char format[] = {'%', flag, 0};
    char name[128];
    return CString(name, static_cast<int>(std::strftime(name, sizeof name, format, &fields)));
}

struct Number
{
    int value;
    int digits; // with leading zeros; 0: the flag is no number
};

Number NumberOf(const SYSTEMTIME& time, char flag)
{
    switch (flag) {
    case 'd':
        return {time.wDay, 2};
    case 'H':
        return {time.wHour, 2};
    case 'I':
        return {(time.wHour + 11) % 12 + 1, 2};
    case 'j':
        return {civil::DayNumber(time.wYear, time.wMonth, time.wDay) - civil::DayNumber(time.wYear, 1, 1) + 1, 3};
    case 'm':
        return {time.wMonth, 2};
    case 'M':
        return {time.wMinute, 2};
    case 'S':
        return {time.wSecond, 2};
    case 'w':
        return {time.wDayOfWeek, 1};
    case 'y':
        return {time.wYear % 100, 2};
    case 'Y':
        return {time.wYear, 4};
    default:
        return {0, 0};
    }
}
} // namespace

CString COleDateTime::Format(LPCTSTR format) const
{
    CString text;
    SYSTEMTIME time = {};
    if (!format || m_status == null) {
        return text;
    }
    if (!GetAsSystemTime(time)) {
        return "Invalid DateTime";
    }
    for (const char* p = format; *p != 0;) {
        const bool isBare = p[0] == '%' && p[1] == '#';
        const char flag = p[0] == '%' ? p[isBare ? 2 : 1] : 0;
        const Number number = NumberOf(time, flag);
        if (number.digits != 0) {
            text.AppendFormat("%0*d", isBare ? 1 : number.digits, number.value);
        } else if (flag != 0 && std::strchr("aAbBp", flag)) {
            text += NameOf(time, flag);
        } else if (flag == '%') {
            text.AppendChar('%');
        } else { // no flag; a percent sign is never the second byte of a character
            text.AppendChar(*p++);
            continue;
        }
        p += isBare ? 3 : 2;
    }
    return text;
}

CString COleDateTimeSpan::Format(LPCTSTR format) const
{
    CString text;
    if (!format || m_status != valid) {
        return text;
    }
    for (const char* p = format; *p != 0; ++p) {
        if (*p != '%' || p[1] == 0) {
            text.AppendChar(*p);
            continue;
        }
        switch (*++p) {
        case 'D':
            text.AppendFormat("%d", static_cast<int>(GetDays()));
            break;
        case 'H':
            text.AppendFormat("%02d", static_cast<int>(GetHours()));
            break;
        case 'M':
            text.AppendFormat("%02d", static_cast<int>(GetMinutes()));
            break;
        case 'S':
            text.AppendFormat("%02d", static_cast<int>(GetSeconds()));
            break;
        case '%':
            text.AppendChar('%');
            break;
        default:
            text.Append(p - 1, 2);
            break;
        }
    }
    return text;
}
