#include "printing/PrintTexts.h"

#include "calc/CivilDate.h"
#include "mfc/base/civil.h"

namespace dayvane {
namespace {

constexpr const char16_t* kMonths[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                       u"July",    u"August",   u"September", u"October", u"November", u"December"};
constexpr const char16_t* kWeekdays[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                         u"Thursday", u"Friday", u"Saturday"};
constexpr const char16_t* kJapaneseWeekdays[] = {u"日", u"月", u"火", u"水", u"木", u"金", u"土"};
constexpr std::size_t kShortNameLength = 3;

struct Civil
{
    explicit Civil(int dayNumber) { civil::FromDayNumber(dayNumber, year, month, day); }
    int year = 0;
    int month = 0;
    int day = 0;
};

std::u16string ShortMonth(int month)
{
    return std::u16string(kMonths[month - 1], kShortNameLength);
}

} // namespace

std::u16string PrintTexts::Number(int n)
{
    const std::string digits = std::to_string(n);
    return std::u16string(digits.begin(), digits.end());
}

std::u16string PrintTexts::DayOfMonth(int day) const
{
    return Number(Civil(day).day);
}

std::u16string PrintTexts::ShortDates(int first, int last) const
{
    return first == last ? ShortDate(first) : ShortDate(first) + u"–" + ShortDate(last);
}

std::u16string PrintTexts::Year(int year) const
{
    return m_japanese ? Number(year) + u"年" : Number(year);
}

std::u16string PrintTexts::Month(int year, int month) const
{
    return m_japanese ? Year(year) + MonthName(month) : MonthName(month) + u" " + Number(year);
}

std::u16string PrintTexts::MonthOf(int day) const
{
    const Civil date(day);
    return Month(date.year, date.month);
}

std::u16string PrintTexts::MonthName(int month) const
{
    return m_japanese ? Number(month) + u"月" : kMonths[month - 1];
}

std::u16string PrintTexts::Date(int day) const
{
    const Civil date(day);
    return m_japanese ? Month(date.year, date.month) + Number(date.day) + u"日"
                      : Number(date.day) + u" " + Month(date.year, date.month);
}

std::u16string PrintTexts::DateSpan(int first, int last) const
{
    const Civil from(first);
    const Civil to(last);
    if (first == last) {
        return Date(first);
    }
    if (m_japanese) {
        std::u16string end = Number(to.day) + u"日";
        if (from.year != to.year) {
            end = Date(last);
        } else if (from.month != to.month) {
            end = MonthName(to.month) + end;
        }
        return Date(first) + u" – " + end;
    }
    std::u16string start = Number(from.day);
    if (from.year != to.year) {
        start = Date(first);
    } else if (from.month != to.month) {
        start += u" " + MonthName(from.month);
    }
    return start + u" – " + Date(last);
}

std::u16string PrintTexts::ShortDate(int day) const
{
    const Civil date(day);
    return m_japanese ? Number(date.month) + u"/" + Number(date.day) : Number(date.day) + u" " + ShortMonth(date.month);
}

std::u16string PrintTexts::DayHeading(int day) const
{
    const Civil date(day);
    const int weekday = civil::DayOfWeek(day);
    if (m_japanese) {
        return MonthName(date.month) + Number(date.day) + u"日（" + ShortWeekday(weekday) + u"）";
    }
    return Weekday(weekday) + u", " + Number(date.day) + u" " + MonthName(date.month);
}

std::u16string PrintTexts::Weekday(int dayOfWeek) const
{
    return m_japanese ? ShortWeekday(dayOfWeek) + u"曜日" : kWeekdays[dayOfWeek - 1];
}

std::u16string PrintTexts::ShortWeekday(int dayOfWeek) const
{
    return m_japanese ? kJapaneseWeekdays[dayOfWeek - 1] : std::u16string(kWeekdays[dayOfWeek - 1], kShortNameLength);
}

std::u16string PrintTexts::TinyWeekday(int dayOfWeek) const
{
    return m_japanese ? ShortWeekday(dayOfWeek) : std::u16string(kWeekdays[dayOfWeek - 1], 1);
}

std::u16string PrintTexts::Time(int minute)
{
    const int rest = minute % kMinutesPerHour;
    return Number(minute / kMinutesPerHour) + (rest < 10 ? u":0" : u":") + Number(rest);
}

std::u16string PrintTexts::TimeSpan(int start, int end)
{
    return end > start ? Time(start) + u"–" + Time(end) : Time(start);
}

std::u16string PrintTexts::LunarDate(int month, int day) const
{
    return (m_japanese ? u"旧暦 " : u"lunar ") + Number(month) + u"/" + Number(day);
}

std::u16string PrintTexts::DayOfDays(int day, int days) const
{
    return u"(" + Number(day) + u"/" + Number(days) + u")";
}

std::u16string PrintTexts::ContinuedOn(int page) const
{
    return m_japanese ? u"続きは " + Number(page) + u" ページ" : u"continued, p. " + Number(page);
}

std::u16string PrintTexts::PageOf(int page, int pages) const
{
    return m_japanese ? Number(page) + u" / " + Number(pages) + u" ページ"
                      : u"Page " + Number(page) + u" of " + Number(pages);
}

std::u16string PrintTexts::Printed(int day) const
{
    return (m_japanese ? u"印刷日 " : u"Printed ") + Date(day);
}

} // namespace dayvane
