#include "planner/TypedDate.h"

#include "ical/Text.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace planner {

namespace {

constexpr int kShortYears = 100; // two digits mean 20xx
constexpr int kCentury = 2000;
constexpr std::size_t kMaxDigits = 8;

struct Word
{
    std::string_view text;
    int value;
};

constexpr Word kDays[] = {
    {"today", 0},    {"tomorrow", 1}, {"yesterday", -1}, {u8"今日", 0},     {u8"本日", 0},    {u8"明日", 1},
    {u8"あした", 1}, {u8"昨日", -1},  {u8"明後日", 2},   {u8"あさって", 2}, {u8"一昨日", -2},
};
constexpr Word kWeekdays[] = {
    {"sunday", 0}, {"monday", 1}, {"tuesday", 2}, {"wednesday", 3}, {"thursday", 4}, {"friday", 5}, {"saturday", 6},
    {u8"日曜", 0}, {u8"月曜", 1}, {u8"火曜", 2},  {u8"水曜", 3},    {u8"木曜", 4},   {u8"金曜", 5}, {u8"土曜", 6},
};
constexpr Word kMonths[] = {
    {"january", 1}, {"february", 2}, {"march", 3},     {"april", 4},    {"may", 5},       {"june", 6},
    {"july", 7},    {"august", 8},   {"september", 9}, {"october", 10}, {"november", 11}, {"december", 12},
};
// Weeks from the present one.
constexpr Word kWeeks[] = {
    {"this", 0}, {"next", 1}, {"last", -1}, {u8"今週", 0}, {u8"来週", 1}, {u8"再来週", 2}, {u8"先週", -1}, {u8"次", 1},
};
// The year before the first one of an era.
constexpr Word kEras[] = {
    {u8"令和", 2018}, {u8"平成", 1988}, {u8"昭和", 1925}, {u8"大正", 1911}, {u8"明治", 1867},
    {"r", 2018},      {"h", 1988},      {"s", 1925},      {"t", 1911},      {"m", 1867},
};
constexpr std::size_t kLeastLetters = 3; // of an English name

// ASCII in small letters; full-width digits, letters and signs and the wide blank as their ASCII forms.
std::string Plain(std::string_view utf8)
{
    std::string plain;
    for (const char16_t c : Utf16FromUtf8(utf8)) {
        constexpr char16_t wideFirst = 0xFF01, wideLast = 0xFF5E, wideBlank = 0x3000, toAscii = 0xFEE0;
        const char16_t narrow = c >= wideFirst && c <= wideLast ? static_cast<char16_t>(c - toAscii)
                                : c == wideBlank                ? u' '
                                                                : c;
        if (narrow < 0x80) {
            const char letter = static_cast<char>(narrow);
            plain += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
        } else {
            plain += Utf8FromUtf16(std::u16string_view(&c, 1));
        }
    }
    const std::string_view trimmed = TrimBlanks(plain);
    return std::string(trimmed);
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsLetter(char c)
{
    return c >= 'a' && c <= 'z';
}

// What is left to be read of a text.
class Rest
{
public:
    explicit Rest(std::string_view text) : m_text(text) {}

    bool IsEmpty() const { return m_text.empty(); }
    void SkipBlanks() { m_text = m_text.substr(std::min(m_text.find_first_not_of(" ,"), m_text.size())); }
    bool Take(std::string_view word)
    {
        const bool isNext = m_text.substr(0, word.size()) == word;
        m_text.remove_prefix(isNext ? word.size() : 0);
        return isNext;
    }
    bool TakeAny(std::initializer_list<std::string_view> words)
    {
        return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return Take(word); });
    }
    std::optional<int> TakeNumber(std::size_t* digits = nullptr)
    {
        std::size_t length = 0;
        while (length < m_text.size() && IsDigit(m_text[length])) {
            ++length;
        }
        if (length == 0 || length > kMaxDigits) {
            return std::nullopt;
        }
        const int number = std::atoi(std::string(m_text.substr(0, length)).c_str());
        m_text.remove_prefix(length);
        if (digits) {
            *digits = length;
        }
        return number;
    }
    // An English name of at least three letters, or a Japanese one in full.
    template <std::size_t N>
    std::optional<int> TakeName(const Word (&words)[N])
    {
        std::size_t letters = 0;
        while (letters < m_text.size() && IsLetter(m_text[letters])) {
            ++letters;
        }
        for (const Word& word : words) {
            const bool isEnglish = IsLetter(word.text[0]);
            const std::string_view typed = m_text.substr(0, letters);
            const bool fits = isEnglish ? letters >= std::min(kLeastLetters, word.text.size()) &&
                                              word.text.substr(0, letters) == typed
                                        : m_text.substr(0, word.text.size()) == word.text;
            if (fits) {
                m_text.remove_prefix(isEnglish ? letters : word.text.size());
                return word.value;
            }
        }
        return std::nullopt;
    }

private:
    std::string_view m_text;
};

// The whole of one way to say a date; nothing when the text is something else.
using Reader = std::optional<DayNumber> (*)(Rest rest, const DateContext& context);

std::optional<DayNumber> DayOf(int year, int month, int day)
{
    const int full = year < kShortYears ? year + kCentury : year;
    if (full < kFirstYear || full > kLastYear || month < 1 || month > kYearMonths || day < 1 ||
        day > DaysInMonth(full, month)) {
        return std::nullopt;
    }
    return DayOfDate(full, month, day);
}

// In the year that puts the date nearest to the shown day.
std::optional<DayNumber> NearestDay(int month, int day, const DateContext& context)
{
    const int year = DateOfDay(context.shown).year;
    std::optional<DayNumber> nearest;
    for (const int candidate : {year, year + 1, year - 1}) {
        const auto found = DayOf(candidate, month, day);
        if (found && (!nearest || std::abs(*found - context.shown) < std::abs(*nearest - context.shown))) {
            nearest = found;
        }
    }
    return nearest;
}

std::optional<DayNumber> ReadNamedDay(Rest rest, const DateContext& context)
{
    const auto days = rest.TakeName(kDays);
    return days && rest.IsEmpty() ? std::optional(context.today + *days) : std::nullopt;
}

DayNumber WeekdayOfWeek(int weeks, int weekday, const DateContext& context)
{
    const int passed = (WeekdayOfDay(context.today) - context.firstWeekday + kWeekDays) % kWeekDays;
    const DayNumber first = context.today - passed + weeks * kWeekDays;
    return first + (weekday - context.firstWeekday + kWeekDays) % kWeekDays;
}

DayNumber InMonths(int months, const DateContext& context)
{
    const CivilDate date = DateOfDay(context.today);
    const int index = date.year * kYearMonths + date.month - 1 + months;
    const int year = index / kYearMonths, month = index % kYearMonths + 1;
    return DayOfDate(year, month, std::min(date.day, DaysInMonth(year, month)));
}

// "friday", "next friday", "next week", "来週の金曜日", "来月"
std::optional<DayNumber> ReadWeekday(Rest rest, const DateContext& context)
{
    if (rest.Take(u8"来月")) {
        return rest.IsEmpty() ? std::optional(InMonths(1, context)) : std::nullopt;
    }
    if (rest.Take(u8"先月")) {
        return rest.IsEmpty() ? std::optional(InMonths(-1, context)) : std::nullopt;
    }
    const auto weeks = rest.TakeName(kWeeks);
    rest.Take(u8"の");
    rest.SkipBlanks();
    const auto weekday = rest.TakeName(kWeekdays);
    rest.TakeAny({u8"日"});
    if (weeks && !weekday) {
        const bool isMonth = rest.Take("month");
        const bool isWeek = !isMonth && (rest.Take("week") || rest.IsEmpty());
        const DayNumber day = isMonth ? InMonths(*weeks, context) : context.today + *weeks * kWeekDays;
        return (isWeek || isMonth) && rest.IsEmpty() ? std::optional(day) : std::nullopt;
    }
    if (!weekday || !rest.IsEmpty()) {
        return std::nullopt;
    }
    if (weeks) {
        return WeekdayOfWeek(*weeks, *weekday, context);
    }
    const int ahead = (*weekday - WeekdayOfDay(context.today) + kWeekDays) % kWeekDays;
    return context.today + ahead;
}

// "+3", "in 2 weeks", "3 days ago", "3日後", "2週間前"
std::optional<DayNumber> ReadOffset(Rest rest, const DateContext& context)
{
    const bool isBack = rest.Take("-");
    const bool isSigned = isBack || rest.Take("+");
    const bool isIn = !isSigned && rest.Take("in ");
    const auto number = rest.TakeNumber();
    if (!number || *number > kLastYear) {
        return std::nullopt;
    }
    rest.SkipBlanks();
    const bool isWeek = rest.TakeAny({"weeks", "week", "w", u8"週間", u8"週"});
    const bool isMonth = !isWeek && rest.TakeAny({"months", "month", u8"か月", u8"ヶ月"});
    const bool hasUnit = isWeek || isMonth || rest.TakeAny({"days", "day", "d", u8"日"});
    rest.SkipBlanks();
    const bool isAfter = rest.Take(u8"後");
    const bool isAgo = !isAfter && rest.TakeAny({u8"前", "ago"});
    const bool isSaid = isSigned || (hasUnit && (isIn || isAfter || isAgo));
    if (!isSaid || !rest.IsEmpty()) {
        return std::nullopt;
    }
    const int count = isBack || isAgo ? -*number : *number;
    return isMonth ? InMonths(count, context) : context.today + count * (isWeek ? kWeekDays : 1);
}

// "2026年11月24日", "令和8年11月24日", "11月24日", "24日"
std::optional<DayNumber> ReadJapanese(Rest rest, const DateContext& context)
{
    std::optional<int> before;
    for (const Word& era : kEras) {
        if (!before && !IsLetter(era.text[0]) && rest.Take(era.text)) {
            before = era.value;
        }
    }
    std::optional<int> year;
    auto number = before && rest.Take(u8"元") ? std::optional(1) : rest.TakeNumber();
    if (number && rest.Take(u8"年")) {
        year = *number + before.value_or(0);
        rest.SkipBlanks();
        number = rest.TakeNumber();
    } else if (before) {
        return std::nullopt;
    }
    int month = DateOfDay(context.shown).month;
    const bool hasMonth = number && rest.Take(u8"月");
    if (hasMonth) {
        month = *number;
        rest.SkipBlanks();
        number = rest.IsEmpty() ? std::optional(1) : rest.TakeNumber();
    }
    const bool hasDay = rest.Take(u8"日");
    if (!number || !rest.IsEmpty() || (!hasMonth && !hasDay) || (year && !hasMonth)) {
        return std::nullopt;
    }
    if (year) {
        return DayOf(*year, month, *number);
    }
    return hasMonth ? NearestDay(month, *number, context) : DayOf(DateOfDay(context.shown).year, month, *number);
}

// "24 nov 2026", "nov 24", "24. november"
std::optional<DayNumber> ReadNamedMonth(Rest rest, const DateContext& context)
{
    auto day = rest.TakeNumber();
    rest.TakeAny({".", "th", "st", "nd", "rd"});
    rest.SkipBlanks();
    const auto month = rest.TakeName(kMonths);
    if (!month) {
        return std::nullopt;
    }
    rest.Take(".");
    rest.SkipBlanks();
    std::size_t digits = 0;
    auto year = rest.TakeNumber(&digits);
    if (!day && digits <= 2) {
        day = year;
        rest.TakeAny({"th", "st", "nd", "rd"});
        rest.SkipBlanks();
        year = rest.TakeNumber();
    }
    if (!rest.IsEmpty()) {
        return std::nullopt;
    }
    return year ? DayOf(*year, *month, day.value_or(1)) : NearestDay(*month, day.value_or(1), context);
}

// Numbers alone: "2026-11-24", "20261124", "24.11", "11/24", "24", "r8.11.24"
std::optional<DayNumber> ReadNumbers(Rest rest, const DateContext& context)
{
    std::optional<int> before;
    for (const Word& era : kEras) {
        if (!before && IsLetter(era.text[0]) && rest.Take(era.text)) {
            before = era.value;
        }
    }
    constexpr std::size_t compactDigits = 8, yearDigits = 4;
    constexpr int yearPart = 10000, monthPart = 100;
    std::size_t digits = 0;
    const auto first = rest.TakeNumber(&digits);
    if (!first) {
        return std::nullopt;
    }
    if (rest.IsEmpty() && !before) {
        const CivilDate shown = DateOfDay(context.shown);
        return digits == compactDigits ? DayOf(*first / yearPart, *first / monthPart % monthPart, *first % monthPart)
                                       : DayOf(shown.year, shown.month, *first);
    }
    const bool isDotted = rest.Take(".");
    if (!isDotted && !rest.TakeAny({"-", "/", " "})) {
        return std::nullopt;
    }
    const auto second = rest.TakeNumber();
    const bool hasThird = second && rest.TakeAny({".", "-", "/", " "}) && !rest.IsEmpty();
    const auto third = hasThird ? rest.TakeNumber() : std::nullopt;
    if (!second || !rest.IsEmpty() || hasThird != third.has_value()) {
        return std::nullopt;
    }
    if (before || digits == yearDigits) {
        return third ? DayOf(*first + before.value_or(0), *second, *third) : DayOf(*first, *second, 1);
    }
    const bool isDayFirst = isDotted || *first > kYearMonths;
    const int day = isDayFirst ? *first : *second;
    const int month = isDayFirst ? *second : *first;
    return third ? DayOf(*third, month, day) : NearestDay(month, day, context);
}

constexpr Reader kReaders[] = {&ReadNamedDay, &ReadWeekday, &ReadOffset, &ReadJapanese, &ReadNamedMonth, &ReadNumbers};

} // namespace

std::optional<DayNumber> ParseTypedDate(std::string_view utf8, const DateContext& context)
{
    const std::string text = Plain(utf8);
    for (const Reader reader : kReaders) {
        const auto day = text.empty() ? std::nullopt : reader(Rest(text), context);
        if (day && *day >= DayOfTime(kEarliestTime) && *day < DayOfTime(kEndOfTime)) {
            return day;
        }
    }
    return std::nullopt;
}

std::optional<LocalTime> ParseTypedClock(std::string_view utf8)
{
    constexpr int noon = 12, dayHours = 24, hourMinutes = 60, compactHour = 100;
    const std::string text = Plain(utf8);
    Rest rest(text);
    const bool isMorning = rest.Take(u8"午前");
    bool isAfternoon = !isMorning && rest.Take(u8"午後");
    std::size_t digits = 0;
    auto hour = rest.TakeNumber(&digits);
    int minute = 0;
    if (!hour) {
        return std::nullopt;
    }
    if (digits > 2) { // "930"
        minute = *hour % compactHour;
        hour = *hour / compactHour;
    } else if (rest.TakeAny({":", ".", "h", u8"時"})) {
        if (rest.Take(u8"半")) {
            minute = hourMinutes / 2;
        } else {
            minute = rest.TakeNumber().value_or(0);
            rest.Take(u8"分");
        }
    }
    rest.SkipBlanks();
    const bool isPm = rest.TakeAny({"pm", "p.m.", "p"});
    const bool isAm = !isPm && rest.TakeAny({"am", "a.m.", "a"});
    isAfternoon = isAfternoon || isPm;
    const bool isHalfDay = isMorning || isAfternoon || isAm;
    if (!rest.IsEmpty() || minute >= hourMinutes || (isHalfDay && *hour > noon)) {
        return std::nullopt;
    }
    const int full = isHalfDay ? *hour % noon + (isAfternoon ? noon : 0) : *hour;
    const LocalTime time = full * kHourSeconds + minute * kMinuteSeconds;
    return full > dayHours || time > kDaySeconds ? std::nullopt : std::optional(time);
}

TypedTitle ParseTypedTitle(const std::string& utf8)
{
    constexpr std::string_view marks[] = {":", u8"：", u8"時"}; // a number alone is no time: "5 apples"
    constexpr std::string_view wideBlank = u8"　";
    const std::size_t end = std::min(utf8.find(' '), utf8.find(wideBlank));
    const std::string_view whole = utf8, word = whole.substr(0, end);
    const bool isTime = std::any_of(std::begin(marks), std::end(marks),
                                    [&](std::string_view mark) { return word.find(mark) != std::string_view::npos; });
    TypedTitle plain;
    plain.title = utf8;
    if (end == std::string::npos || !isTime) {
        return plain;
    }
    const std::size_t dash = word.find('-');
    const auto from = ParseTypedClock(word.substr(0, dash));
    const auto to = dash == std::string_view::npos ? from : ParseTypedClock(word.substr(dash + 1));
    if (!from || !to || *from >= kDaySeconds || *to < *from) {
        return plain;
    }
    TypedTitle timed;
    timed.title = whole.substr(end + (utf8[end] == ' ' ? 1 : wideBlank.size()));
    timed.start = from;
    timed.end = dash == std::string_view::npos ? std::min(*from + kHourSeconds, kDaySeconds) : *to;
    return timed.title.empty() ? plain : timed;
}

std::string DateText(DayNumber day)
{
    const CivilDate date = DateOfDay(day);
    char text[64];
    std::snprintf(text, sizeof(text), "%d-%02d-%02d", date.year, date.month, date.day);
    return text;
}

std::string ClockText(LocalTime time)
{
    const LocalTime ofDay = time - DayOfTime(time) * kDaySeconds;
    char text[64];
    std::snprintf(text, sizeof(text), "%d:%02d", static_cast<int>(ofDay / kHourSeconds),
                  static_cast<int>(ofDay / kMinuteSeconds % 60));
    return text;
}

} // namespace planner
