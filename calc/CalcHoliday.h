// Named days of a date: Japanese holidays, and observances that are shown by name only.
#pragma once

#include <afxdisp.h>

// One named day. A holiday of the result points into the library's own texts (code page 932), which live as long as
// the library and are never freed by the caller.
struct tagHOLIDAY
{
    const char* lpszName = nullptr;
    int nMonth = 0;      // 1 to 12
    int nDay = 0;        // day of the month; 0 for days that a Monday rule gives and for the day between two holidays
    int bObservance = 0; // 0: a day off; 1: an observance or memorial day, shown by name only
    int nRule = 0;       // 0: fixed month and day; 1: second Monday of nMonth; 2: third Monday of nMonth
};

// Answers for any date whether it is a named day, which, and whether it is a day off.
//
// Dates count by their calendar day, the time of day is ignored; valid dates lie in the years 100 to 9999. Holidays are
// given for every year, also for years before their law: only the moves and renamings of 2000, 2003 and 2007 depend on
// the year. A date that is not valid is no named day. The class holds no data; its table of named days is shared by
// all callers and rewritten for the year of each date asked, so only one thread (the user interface's) may use it.
class CCalcHoliday
{
public:
    CCalcHoliday() = default;
    ~CCalcHoliday() = default;

    // 1 and the named day when the date is one; else 0, and the record must not be read.
    //
    // Besides the days of _IsHoliday it covers the day after a holiday on a Sunday ("振替休日", or the name that the
    // day has anyway, as a day off; only that one day, also where further holidays follow) and the day between two
    // holidays ("国民の祝日", nDay 0). Beyond either end of the valid years no neighbour is a named day.
    static int IsHoliday(const COleDateTime& date, tagHOLIDAY& holiday);

    // The same without the neighbours: movable days first (Mother's and Father's Day, Easter, the equinox days,
    // Thanksgiving), which hide a fixed day on the same date, then the table, where the first match wins.
    static int _IsHoliday(const COleDateTime& date, tagHOLIDAY& holiday);

    // 1 when the date is the second (third) Monday of its month.
    static int IsHappyMonday(const COleDateTime& date);
    static int IsHappyMonday2(const COleDateTime& date);

    // Easter Sunday by Gauss's rule for any year, without its exceptions for 25 and 26 April: the century's number M is
    // always 24, N follows the Gregorian calendar from 1500 to 2499.
    static void GetEasterSunday(int year, int& month, int& day);

    // Equinox days, by linear formulas with every fourth year a leap year: right in 1980 to 2099 or so. Months 3 and 9.
    static void GetVernalEquinox(int year, int& month, int& day);
    static void GetAutumnalEquinox(int year, int& month, int& day);

    // Second Sunday of May, third Sunday of June, fourth Thursday of November. Day -1 when the year is not in 100 to
    // 9999; the month is set all the same.
    static void GetMothersDay(int year, int& month, int& day);
    static void GetFathersDay(int year, int& month, int& day);
    static void GetThanksgivingDay(int year, int& month, int& day);

    // 1 when the date is that day of its year.
    static int IsEasterSunday(const COleDateTime& date);
    static int IsVernalEquinox(const COleDateTime& date);
    static int IsAutumnalEquinox(const COleDateTime& date);
    static int IsMothersDay(const COleDateTime& date);
    static int IsFathersDay(const COleDateTime& date);
    static int IsThanksgivingDay(const COleDateTime& date);
};
