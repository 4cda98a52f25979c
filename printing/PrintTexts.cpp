#include "printing/PrintTexts.h"

#include "core/DateMath.h"
#include "mfc/base/civil.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kSomeSunday = 46327;                     // a day number
constexpr int kLateMorning = 11 * kMinutesPerHour - 2; // times with as many digits as there are
constexpr int kLateEvening = 24 * kMinutesPerHour - 2;

struct Civil
{
    explicit Civil(int dayNumber) { civil::FromDayNumber(dayNumber, year, month, day); }
    int year = 0;
    int month = 0;
    int day = 0;
};

std::u16string Replaced(std::u16string text, const std::u16string& mark, const std::u16string& by)
{
    const std::size_t at = text.find(mark);
    return at == std::u16string::npos ? text : text.replace(at, mark.size(), by);
}

// A flag of a date's pattern: "%#d".
struct Flag
{
    std::size_t at = std::u16string::npos;
    std::size_t end = std::u16string::npos;
};

Flag FlagOf(const std::u16string& pattern, const std::u16string& letters)
{
    for (std::size_t at = pattern.find(u'%'); at != std::u16string::npos; at = pattern.find(u'%', at + 1)) {
        const std::size_t letter = at + 1 < pattern.size() && pattern[at + 1] == u'#' ? at + 2 : at + 1;
        if (letter < pattern.size() && letters.find(pattern[letter]) != std::u16string::npos) {
            return {at, letter + 1};
        }
        at = letter;
    }
    return {};
}

// The pattern up to the flag, with the characters that belong to its number: "%#d." of "%#d. %B".
std::u16string UpTo(const std::u16string& pattern, const Flag& flag)
{
    std::size_t end = flag.end;
    while (end < pattern.size() && std::u16string_view(u" ,/-%").find(pattern[end]) == std::u16string_view::npos) {
        ++end;
    }
    return pattern.substr(0, end);
}

// What the first and the last of two days say: each part that they share is said once, on the side where it is read
// with both.
struct SpanPatterns
{
    std::u16string first;
    std::u16string last;
};

SpanPatterns PatternsOfSpan(const std::u16string& pattern, const Civil& from, const Civil& to)
{
    SpanPatterns span = {pattern, pattern};
    const Flag year = FlagOf(pattern, u"Yy");
    const Flag month = FlagOf(pattern, u"mBb");
    const Flag day = FlagOf(pattern, u"d");
    const bool isComplete = std::max({year.at, month.at, day.at}) != std::u16string::npos;
    if (!isComplete || from.year != to.year) {
        return span;
    }
    const bool isSameMonth = from.month == to.month;
    if (year.at < month.at) { // year, month, day
        span.last = pattern.substr(isSameMonth ? day.at : month.at);
    } else {
        span.first = UpTo(pattern, month.at < day.at || isSameMonth ? day : month);
        span.last = month.at < day.at && isSameMonth ? pattern.substr(day.at) : pattern;
    }
    return span;
}

} // namespace

PrintTexts TextsFor(const PrintOptions& options, std::shared_ptr<const CalendarTexts> ofControl)
{
    if (options.language == PrintLanguage::OfControl && ofControl) {
        return PrintTexts(std::move(ofControl));
    }
    return PrintTexts(std::make_shared<CalendarTexts>(
        options.language == PrintLanguage::English ? CalendarTexts::English() : CalendarTexts::Japanese()));
}

std::u16string PrintTexts::Text(std::u16string CalendarTexts::*pattern, int day) const
{
    return DateText(*m_words, (*m_words).*pattern, DateOfDayNumber(day));
}

std::u16string PrintTexts::Number(int n)
{
    const std::string digits = std::to_string(n);
    return std::u16string(digits.begin(), digits.end());
}

// ---- Dates

std::u16string PrintTexts::DayOfMonth(int day)
{
    return Number(Civil(day).day);
}

std::u16string PrintTexts::ShortDates(int first, int last) const
{
    return first == last ? ShortDate(first) : ShortDate(first) + u"–" + ShortDate(last);
}

std::u16string PrintTexts::MonthName(int day) const
{
    const std::u16string& name = m_words->months[static_cast<std::size_t>(Civil(day).month - 1)];
    return name.empty() ? Text(&CalendarTexts::cellMonth, day) : name;
}

std::u16string PrintTexts::DateSpan(int first, int last) const
{
    if (first == last) {
        return Date(first);
    }
    const SpanPatterns span = PatternsOfSpan(m_words->pageDate, Civil(first), Civil(last));
    return DateText(*m_words, span.first, DateOfDayNumber(first)) + u" – " +
           DateText(*m_words, span.last, DateOfDayNumber(last));
}

std::u16string PrintTexts::Weekday(int dayOfWeek) const
{
    const std::size_t row = static_cast<std::size_t>(dayOfWeek - 1);
    for (const std::u16string& name : {m_words->columnWeekdays[row], m_words->weekdays[row]}) {
        if (!name.empty()) {
            return name;
        }
    }
    return DateText(*m_words, u"%A", DateOfDayNumber(kSomeSunday + dayOfWeek - 1));
}

std::u16string PrintTexts::ShortWeekday(int dayOfWeek) const
{
    return DateText(*m_words, u"%a", DateOfDayNumber(kSomeSunday + dayOfWeek - 1));
}

// ---- Times

std::u16string PrintTexts::Time(int minute) const
{
    const bool isEnd = minute == kHoursPerDay * kMinutesPerHour;
    std::u16string pattern = m_words->time;
    if (isEnd) { // of a clock with 24 hours: not the day's first moment
        pattern = Replaced(Replaced(pattern, u"%#H", u"24"), u"%H", u"24");
    }
    const int moment = isEnd ? 0 : minute;
    return DateText(*m_words, pattern, AddMinutes(DateOfDayNumber(kSomeSunday), moment));
}

std::u16string PrintTexts::TimeSpan(int start, int end) const
{
    return end > start ? Time(start) + u"–" + Time(end) : Time(start);
}

std::u16string PrintTexts::WidestSpan() const
{
    return TimeSpan(kLateMorning, kLateEvening);
}

std::u16string PrintTexts::Hour(int hour) const
{
    return DateText(*m_words, m_words->hour, AddMinutes(DateOfDayNumber(kSomeSunday), hour * kMinutesPerHour));
}

std::u16string PrintTexts::HourRest(int hour) const
{
    std::u16string rest =
        DateText(*m_words, m_words->hourRest, AddMinutes(DateOfDayNumber(kSomeSunday), hour * kMinutesPerHour));
    rest.erase(0, std::min(rest.find_first_not_of(u" :."), rest.size()));
    return rest;
}

// ---- Other words

std::u16string PrintTexts::LunarDate(int month, int day, bool isLeapMonth) const
{
    return m_words->pageLunar + (isLeapMonth ? m_words->pageLeap : std::u16string()) + Number(month) + u"/" +
           Number(day);
}

std::u16string PrintTexts::DayOfDays(int day, int days)
{
    return u"(" + Number(day) + u"/" + Number(days) + u")";
}

std::u16string PrintTexts::ContinuedOn(int page) const
{
    return Replaced(m_words->pageLater, u"%n", Number(page));
}

std::u16string PrintTexts::PageOf(int page, int pages) const
{
    return Replaced(Replaced(m_words->pageNumber, u"%n", Number(page)), u"%m", Number(pages));
}

} // namespace dayvane
