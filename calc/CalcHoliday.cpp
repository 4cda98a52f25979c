#include "calc/CalcHoliday.h"

#include "calc/CivilDate.h"
#include "calc/NamedDays.h"

using namespace dayvane;

namespace {
constexpr int kFirstYearOfShowaDay = 2007;
constexpr int kFirstYearOfSummerMondays = 2003; // Marine Day, Respect for the Aged Day
constexpr int kFirstYearOfMondays = 2000;       // Coming of Age Day, Sports Day

NamedDayTable g_namedDays = kNamedDays;

// The numbers of the rows of each month, ascending. No row ever changes its month.
struct RowsOfMonths
{
    std::array<unsigned char, kNamedDays.size()> rows;
    std::array<unsigned char, 14> begin; // rows of month m: rows[begin[m]] up to, not including, rows[begin[m + 1]]
};

constexpr RowsOfMonths IndexRowsByMonth()
{
    RowsOfMonths index = {};
    unsigned char count = 0;
    for (int month = 0; month <= 12; ++month) {
        index.begin[month] = count;
        for (std::size_t row = 0; row < kNamedDays.size(); ++row) {
            if (kNamedDays[row].nMonth == month) {
                index.rows[count++] = static_cast<unsigned char>(row);
            }
        }
    }
    index.begin[13] = count;
    return index;
}
constexpr RowsOfMonths kRowsOfMonths = IndexRowsByMonth();
static_assert(kRowsOfMonths.begin[13] == kNamedDays.size(), "every row has a month of 1 to 12");

void SetMondayRule(int row, bool movesToMonday, NamedDayRule rule, int fixedDay)
{
    g_namedDays[row].nRule = movesToMonday ? rule : kFixedDay;
    g_namedDays[row].nDay = movesToMonday ? 0 : fixedDay;
}

// Gives the changing rows the form of a year; -1, the year of a date that is not valid, counts as early.
void RewriteTableFor(int year)
{
    const bool hasShowaDay = year >= kFirstYearOfShowaDay;
    g_namedDays[kShowaDayRow] = hasShowaDay ? kShowaDay : kGreenDayOfApril;
    g_namedDays[kFourthOfMayRow] = hasShowaDay ? kGreenDayOfMay : kCitizensHoliday;
    SetMondayRule(kMarineDayRow, year >= kFirstYearOfSummerMondays, kThirdMonday, 20);
    SetMondayRule(kAgedDayRow, year >= kFirstYearOfSummerMondays, kThirdMonday, 15);
    SetMondayRule(kComingOfAgeRow, year >= kFirstYearOfMondays, kSecondMonday, 15);
    SetMondayRule(kSportsDayRow, year >= kFirstYearOfMondays, kSecondMonday, 10);
}

// The nth Monday lies in the nth week of days counted from the 1st, so no walk through the month is needed.
bool IsNthMonday(const CivilDate& date, int nth)
{
    return date.IsValid() && (date.day + 6) / 7 == nth && WeekdayOf(date) == kMonday;
}

void SetNthWeekday(int year, int ofMonth, int weekday, int nth, int& month, int& day)
{
    month = ofMonth;
    day = civil::IsValid(year, ofMonth, 1) ? NthWeekday(year, ofMonth, weekday, nth) : -1;
}

// Whether a function that computes month and day of a year gives this date.
bool IsDayOfRule(const CivilDate& date, void (*computeDay)(int year, int& month, int& day))
{
    if (!date.IsValid()) {
        return false;
    }
    int month = 0;
    int day = 0;
    computeDay(date.year, month, day);
    return date.month == month && date.day == day;
}

const tagHOLIDAY* FindMovableDay(const CivilDate& date)
{
    switch (date.month) {
    case 3:
        if (IsDayOfRule(date, CCalcHoliday::GetEasterSunday)) {
            return &kEaster;
        }
        return IsDayOfRule(date, CCalcHoliday::GetVernalEquinox) ? &kVernalEquinox : nullptr;
    case 4:
        return IsDayOfRule(date, CCalcHoliday::GetEasterSunday) ? &kEaster : nullptr;
    case 5:
        return IsDayOfRule(date, CCalcHoliday::GetMothersDay) ? &kMothersDay : nullptr;
    case 6:
        return IsDayOfRule(date, CCalcHoliday::GetFathersDay) ? &kFathersDay : nullptr;
    case 9:
        return IsDayOfRule(date, CCalcHoliday::GetAutumnalEquinox) ? &kAutumnalEquinox : nullptr;
    case 11:
        return IsDayOfRule(date, CCalcHoliday::GetThanksgivingDay) ? &kThanksgiving : nullptr;
    default:
        return nullptr;
    }
}

bool MatchesRow(const CivilDate& date, const tagHOLIDAY& row)
{
    switch (row.nRule) {
    case kSecondMonday:
        return IsNthMonday(date, 2);
    case kThirdMonday:
        return IsNthMonday(date, 3);
    default:
        return row.nDay == date.day;
    }
}

bool FindNamedDay(const CivilDate& date, tagHOLIDAY& holiday)
{
    RewriteTableFor(date.year);
    if (!date.IsValid()) {
        return false;
    }
    if (const tagHOLIDAY* movable = FindMovableDay(date)) {
        holiday = *movable;
        holiday.nMonth = date.month;
        holiday.nDay = date.day;
        return true;
    }
    for (int i = kRowsOfMonths.begin[date.month]; i < kRowsOfMonths.begin[date.month + 1]; ++i) {
        const tagHOLIDAY& row = g_namedDays[kRowsOfMonths.rows[i]];
        if (MatchesRow(date, row)) {
            holiday = row;
            return true;
        }
    }
    return false;
}
} // namespace

int CCalcHoliday::IsHoliday(const COleDateTime& date, tagHOLIDAY& holiday)
{
    const CivilDate today = CivilDateOf(date);
    if (!today.IsValid()) {
        return 0;
    }
    const CivilDate yesterday = AddDays(today, -1);
    tagHOLIDAY holidayBefore;
    const bool namedBefore = FindNamedDay(yesterday, holidayBefore);
    bool named = FindNamedDay(today, holiday);
    if (!namedBefore) {
        return named;
    }
    const bool offBefore = holidayBefore.bObservance == kDayOff;
    tagHOLIDAY holidayAfter;
    if (!named && FindNamedDay(AddDays(today, 1), holidayAfter) && offBefore && holidayAfter.bObservance == kDayOff) {
        holiday = kSandwichedDay;
        holiday.nMonth = today.month;
        named = true;
    }
    if (!offBefore || WeekdayOf(yesterday) != kSunday) {
        return named;
    }
    // The day after a holiday on a Sunday is a day off; a name of its own stays.
    if (named) {
        holiday.bObservance = kDayOff;
        return 1;
    }
    holiday = kSubstituteHoliday;
    holiday.nMonth = today.month;
    holiday.nDay = today.day;
    return 1;
}

int CCalcHoliday::_IsHoliday(const COleDateTime& date, tagHOLIDAY& holiday)
{
    return FindNamedDay(CivilDateOf(date), holiday);
}

int CCalcHoliday::IsHappyMonday(const COleDateTime& date)
{
    return IsNthMonday(CivilDateOf(date), 2);
}

int CCalcHoliday::IsHappyMonday2(const COleDateTime& date)
{
    return IsNthMonday(CivilDateOf(date), 3);
}

void CCalcHoliday::GetEasterSunday(int year, int& month, int& day)
{
    struct CenturyNumber
    {
        int endYear; // the number holds for years before it
        int number;
    };
    static constexpr CenturyNumber kCenturyNumbers[] = {{1700, 4}, {1800, 5}, {1900, 6}, {2100, 0},
                                                        {2200, 1}, {2300, 2}, {2500, 3}};
    int n = 0;
    for (const CenturyNumber& century : kCenturyNumbers) {
        if (year < century.endYear) {
            n = century.number;
            break;
        }
    }
    const int a = year % 19;
    const int b = year % 4;
    const int c = year % 7;
    const int d = (19 * a + 24) % 30;
    const int e = (n + 2 * (3 * d + 2 * c + b) + 5) % 7;
    day = d + e + 22;
    month = 3;
    if (day > 31) {
        month = 4;
        day -= 31;
    }
}

void CCalcHoliday::GetVernalEquinox(int year, int& month, int& day)
{
    month = 3;
    day = static_cast<int>(0.24242 * year - year / 4 + 35.84);
}

void CCalcHoliday::GetAutumnalEquinox(int year, int& month, int& day)
{
    month = 9;
    day = static_cast<int>(0.24204 * year - year / 4 + 39.01);
}

void CCalcHoliday::GetMothersDay(int year, int& month, int& day)
{
    SetNthWeekday(year, 5, kSunday, 2, month, day);
}

void CCalcHoliday::GetFathersDay(int year, int& month, int& day)
{
    SetNthWeekday(year, 6, kSunday, 3, month, day);
}

void CCalcHoliday::GetThanksgivingDay(int year, int& month, int& day)
{
    SetNthWeekday(year, 11, kThursday, 4, month, day);
}

int CCalcHoliday::IsEasterSunday(const COleDateTime& date)
{
    return IsDayOfRule(CivilDateOf(date), GetEasterSunday);
}

int CCalcHoliday::IsVernalEquinox(const COleDateTime& date)
{
    return IsDayOfRule(CivilDateOf(date), GetVernalEquinox);
}

int CCalcHoliday::IsAutumnalEquinox(const COleDateTime& date)
{
    return IsDayOfRule(CivilDateOf(date), GetAutumnalEquinox);
}

int CCalcHoliday::IsMothersDay(const COleDateTime& date)
{
    return IsDayOfRule(CivilDateOf(date), GetMothersDay);
}

int CCalcHoliday::IsFathersDay(const COleDateTime& date)
{
    return IsDayOfRule(CivilDateOf(date), GetFathersDay);
}

int CCalcHoliday::IsThanksgivingDay(const COleDateTime& date)
{
    return IsDayOfRule(CivilDateOf(date), GetThanksgivingDay);
}
