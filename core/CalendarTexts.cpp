#include "core/CalendarTexts.h"

#include "calc/EnglishDayNames.h"
#include "core/DateMath.h"
#include "core/TextSettings.h"

#include <algorithm>
#include <iterator>

#ifdef _WIN32
#include <windows.h>
#endif

namespace dayvane {
namespace {

constexpr unsigned kLanguageMask = 0x3FF; // of a locale
constexpr unsigned kJapaneseLanguage = 0x11;
constexpr int kHoursOfHalf = 12;
constexpr int kYearsPerCentury = 100;

const CalendarTexts::Weekdays kJapaneseWeekdays = {u"日曜日", u"月曜日", u"火曜日", u"水曜日",
                                                   u"木曜日", u"金曜日", u"土曜日"};
const CalendarTexts::Weekdays kJapaneseShortWeekdays = {u"日", u"月", u"火", u"水", u"木", u"金", u"土"};
const CalendarTexts::Weekdays kEnglishWeekdays = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                                  u"Thursday", u"Friday", u"Saturday"};
const CalendarTexts::Months kEnglishMonths = {u"January",   u"February", u"March",    u"April",
                                              u"May",       u"June",     u"July",     u"August",
                                              u"September", u"October",  u"November", u"December"};

// The words and patterns of the presets.
struct PresetText
{
    std::u16string CalendarTexts::*text;
    const char16_t* required;
    const char16_t* japanese; // nullptr: the required one
    const char16_t* english;
};
constexpr PresetText kPresetTexts[] = {
    {&CalendarTexts::wholeDay, u"終日", nullptr, u"all day"},
    {&CalendarTexts::more, u"+%n", nullptr, nullptr},
    {&CalendarTexts::time, u"%#H:%M", nullptr, nullptr},
    {&CalendarTexts::hour, u"%#H", nullptr, nullptr},
    {&CalendarTexts::hourRest, u":00", nullptr, nullptr},
    {&CalendarTexts::day, u"%#d", nullptr, nullptr},
    {&CalendarTexts::monthDay, u"%#m/%#d", nullptr, u"%#d %b"},
    {&CalendarTexts::shortDate, u"%y/%#m/%#d", nullptr, u"%#d %b %y"},
    {&CalendarTexts::headerDay, u"%#m/%#d (%a)", nullptr, u"%a %#d %b"},
    {&CalendarTexts::captionDay, u"%#m.%#d", u"%#m/%#d", u"%#d %b"},
    {&CalendarTexts::captionWeekday, u" (%a)", nullptr, nullptr},
    {&CalendarTexts::longDate, u"%A, %d %B, %Y", u"%Y年%#m月%#d日", u"%#d %B %Y"},
    {&CalendarTexts::spanDate, u"%#d %B", u"%#m月%#d日", nullptr},
    {&CalendarTexts::spanYearDate, u"%#d %B, %Y", u"%Y年%#m月%#d日", u"%#d %B %Y"},
    {&CalendarTexts::weekDate, u"%d %B, %Y", u"%Y年%#m月%#d日", u"%#d %B %Y"},
    {&CalendarTexts::stripWeekday, u"(%a)", nullptr, u"%a"},
    {&CalendarTexts::month, u"%B, %Y", u"%Y年%#m月", u"%B %Y"},
    {&CalendarTexts::monthNumber, u"%#m", nullptr, nullptr},
    {&CalendarTexts::monthSuffix, u"月", nullptr, u""},
    {&CalendarTexts::monthName, u"%B", u"", nullptr},
    {&CalendarTexts::year, u"%#Y", nullptr, nullptr},
    {&CalendarTexts::gridMonth, u"%#Y年 %#m月", nullptr, u"%B %#Y"},
    {&CalendarTexts::gridYear, u"%#Y年", nullptr, u"%#Y"},
    {&CalendarTexts::cellMonth, u"%#m月", nullptr, u"%b"},
    {&CalendarTexts::pickerMonth, u"%Y年 %#m月", nullptr, u"%B %Y"},
    {&CalendarTexts::today, u"今日: %Y/%#m/%#d", nullptr, u"Today: %#d %b %Y"},
    {&CalendarTexts::thisMonth, u"今月: %Y年 %#m月", nullptr, u"This month: %b %Y"},
    {&CalendarTexts::pageDate, u"%#Y年%#m月%#d日", nullptr, u"%#d %B %#Y"},
    {&CalendarTexts::pageDay, u"%#m月%#d日（%a）", nullptr, u"%A, %#d %B"},
    {&CalendarTexts::pageMonth, u"%#Y年%#m月", nullptr, u"%B %#Y"},
    {&CalendarTexts::pageYear, u"%#Y年", nullptr, u"%#Y"},
    {&CalendarTexts::pageNotes, u"メモ", nullptr, u"Notes"},
    {&CalendarTexts::pageOther, u"そのほかの予定", nullptr, u"Also on this day"},
    {&CalendarTexts::pageNothing, u"予定はありません", nullptr, u"No items"},
    {&CalendarTexts::pageAgain, u"（続き）", nullptr, u" (continued)"},
    {&CalendarTexts::pageLater, u"続きは %n ページ", nullptr, u"continued, p. %n"},
    {&CalendarTexts::pageNumber, u"%n / %m ページ", nullptr, u"Page %n of %m"},
    {&CalendarTexts::pagePrinted, u"印刷日 ", nullptr, u"Printed "},
    {&CalendarTexts::pageLunar, u"旧暦 ", nullptr, u"lunar "},
    {&CalendarTexts::pageLeap, u"閏", nullptr, u"leap "},
    {&CalendarTexts::pageTimed, u"時刻のある予定", nullptr, u"items at certain hours"},
    {&CalendarTexts::am, u"", u"午前", u"AM"},
    {&CalendarTexts::pm, u"", u"午後", u"PM"},
    {&CalendarTexts::yearTitle, u"", u"年間予定表", u"Yearly Calendar"},
};

CalendarTexts PresetOf(const char16_t* PresetText::*language)
{
    CalendarTexts texts;
    for (const PresetText& row : kPresetTexts) {
        texts.*row.text = row.*language ? row.*language : row.required;
    }
    return texts;
}

template <class Names>
Names FirstLetters(const Names& names, std::size_t letters)
{
    Names shortened;
    for (std::size_t i = 0; i < names.size(); ++i) {
        shortened[i] = names[i].substr(0, letters);
    }
    return shortened;
}

void Pad(std::u16string& text, int number, int digits)
{
    const std::string plain = std::to_string(number);
    text.append(std::max<std::size_t>(static_cast<std::size_t>(digits), plain.size()) - plain.size(), u'0');
    text.append(plain.begin(), plain.end());
}

// A name, or what the C runtime has in its place.
std::u16string NameOr(const std::u16string& name, const COleDateTime& date, const char* format)
{
    return name.empty() ? DecodeText(date.Format(format), kSystemCodePage) : name;
}

int NumberOf(char16_t letter, const COleDateTime& date)
{
    switch (letter) {
    case u'Y':
        return date.GetYear();
    case u'y':
        return date.GetYear() % kYearsPerCentury;
    case u'm':
        return date.GetMonth();
    case u'd':
        return date.GetDay();
    case u'H':
        return date.GetHour();
    case u'I':
        return (date.GetHour() + kHoursOfHalf - 1) % kHoursOfHalf + 1;
    default:
        return date.GetMinute();
    }
}

std::u16string NameOf(const CalendarTexts& texts, char16_t letter, const COleDateTime& date)
{
    const std::size_t weekday = static_cast<std::size_t>(date.GetDayOfWeek() - 1);
    const std::size_t month = static_cast<std::size_t>(date.GetMonth() - 1);
    switch (letter) {
    case u'A':
        return NameOr(texts.weekdays[weekday], date, "%A");
    case u'a':
        return NameOr(texts.shortWeekdays[weekday], date, "%a");
    case u'B':
        return NameOr(texts.months[month], date, "%B");
    case u'b':
        return NameOr(texts.shortMonths[month], date, "%b");
    default:
        return NameOr(date.GetHour() < kHoursOfHalf ? texts.am : texts.pm, date, "%p");
    }
}

// ---- Pictures of the system

// What one, two, three and more of a letter in a row stand for.
struct PictureLetter
{
    char16_t letter;
    const char16_t* patterns[4];
};
constexpr PictureLetter kDateLetters[] = {
    {u'd', {u"%#d", u"%d", u"%a", u"%A"}},
    {u'M', {u"%#m", u"%m", u"%b", u"%B"}},
    {u'y', {u"%y", u"%y", u"%Y", u"%Y"}},
};
constexpr PictureLetter kTimeLetters[] = {
    {u'h', {u"%#I", u"%I", u"%I", u"%I"}},
    {u'H', {u"%#H", u"%H", u"%H", u"%H"}},
    {u'm', {u"%M", u"%M", u"%M", u"%M"}},
    {u't', {u"%p", u"%p", u"%p", u"%p"}},
};

template <std::size_t Count>
std::u16string PatternOf(const std::u16string& picture, const PictureLetter (&letters)[Count])
{
    std::u16string pattern;
    for (std::size_t at = 0; at < picture.size();) {
        const char16_t letter = picture[at];
        if (letter == u'\'') {
            const std::size_t end = std::min(picture.find(u'\'', at + 1), picture.size());
            pattern += picture.substr(at + 1, end - at - 1);
            at = end + 1;
            continue;
        }
        const auto known = std::find_if(std::begin(letters), std::end(letters),
                                        [letter](const PictureLetter& row) { return row.letter == letter; });
        if (known != std::end(letters)) {
            const std::size_t end = std::min(picture.find_first_not_of(letter, at), picture.size());
            pattern += known->patterns[std::min(end - at, std::size(known->patterns)) - 1];
            at = end;
        } else {
            pattern += letter == u'%' ? std::u16string(u"%%") : std::u16string(1, letter);
            ++at;
        }
    }
    return pattern;
}

#ifdef _WIN32
// The pattern without its years, and without what stood between them and the rest.
std::u16string WithoutYear(const std::u16string& pattern)
{
    std::u16string rest = pattern;
    for (const char16_t* year : {u"%Y", u"%y"}) {
        const std::size_t at = rest.find(year);
        if (at != std::u16string::npos) {
            rest.erase(at, 2);
            const std::size_t next = std::min(rest.find(u'%', at), rest.size());
            rest.erase(at, next - at); // "年", "/" after the year
            const bool wasLast = at == rest.size();
            while (wasLast && !rest.empty() &&
                   std::u16string_view(u" ,./-").find(rest.back()) != std::u16string_view::npos) {
                rest.pop_back();
            }
        }
    }
    return rest;
}

std::u16string WithoutWeekday(const std::u16string& pattern)
{
    std::u16string rest = pattern;
    const std::size_t at = rest.find(u"%A");
    if (at != std::u16string::npos) {
        const std::size_t next = std::min(rest.find(u'%', at + 1), rest.size());
        rest.erase(at, next - at);
        while (!rest.empty() && std::u16string_view(u" ,").find(rest.back()) != std::u16string_view::npos) {
            rest.pop_back();
        }
    }
    return rest;
}

std::u16string LocaleText(LCID lcid, LCTYPE type)
{
    wchar_t text[128] = L"";
    ::GetLocaleInfoW(lcid, type, text, static_cast<int>(std::size(text)));
    const std::wstring_view view(text);
    return std::u16string(view.begin(), view.end());
}

void TakeNames(CalendarTexts& texts, LCID lcid)
{
    for (unsigned i = 0; i < texts.weekdays.size(); ++i) { // the system counts from Monday
        const LCTYPE day = (i + kDaysPerWeek - 1) % kDaysPerWeek;
        texts.weekdays[i] = texts.columnWeekdays[i] = LocaleText(lcid, LOCALE_SDAYNAME1 + day);
        texts.shortWeekdays[i] = LocaleText(lcid, LOCALE_SABBREVDAYNAME1 + day);
        texts.cellWeekdays[i] = LocaleText(lcid, LOCALE_SSHORTESTDAYNAME1 + day);
    }
    for (unsigned i = 0; i < texts.months.size(); ++i) {
        texts.months[i] = LocaleText(lcid, LOCALE_SMONTHNAME1 + i);
        texts.shortMonths[i] = LocaleText(lcid, LOCALE_SABBREVMONTHNAME1 + i);
    }
    texts.am = LocaleText(lcid, LOCALE_S1159);
    texts.pm = LocaleText(lcid, LOCALE_S2359);
}

// The pattern with the short names of months, after the words that the text begins with.
std::u16string ShortAfterWords(const std::u16string& text, const std::u16string& pattern)
{
    std::u16string shorter = text.substr(0, text.find(u'%')) + pattern;
    for (std::size_t at = shorter.find(u"%B"); at != std::u16string::npos; at = shorter.find(u"%B")) {
        shorter[at + 1] = u'b';
    }
    return shorter;
}

void TakePatterns(CalendarTexts& texts, LCID lcid)
{
    texts.longDate = PatternOfPicture(LocaleText(lcid, LOCALE_SLONGDATE));
    texts.spanYearDate = texts.weekDate = WithoutWeekday(texts.longDate);
    texts.spanDate = WithoutYear(texts.spanYearDate);
    texts.shortDate = PatternOfPicture(LocaleText(lcid, LOCALE_SSHORTDATE));
    texts.monthDay = WithoutYear(texts.shortDate);
    // "26.10." where a point makes ordinal numbers: the one before the year belongs to the month.
    const bool hasOrdinals = PatternOfPicture(LocaleText(lcid, LOCALE_SMONTHDAY)).find(u"d.") != std::u16string::npos;
    if (hasOrdinals && texts.monthDay.find(u'.') != std::u16string::npos && texts.monthDay.back() != u'.') {
        texts.monthDay += u'.';
    }
    texts.pageDate = texts.spanYearDate;
    texts.pageDay =
        WithoutYear(texts.longDate.find(u"%A") != std::u16string::npos ? texts.longDate : u"%A, " + texts.longDate);
    texts.month = texts.gridMonth = texts.pickerMonth = texts.pageMonth =
        PatternOfPicture(LocaleText(lcid, LOCALE_SYEARMONTH));
    texts.headerDay = texts.monthDay + u" (%a)";
    texts.captionDay = texts.monthDay;
    texts.time = PatternOfTimePicture(LocaleText(lcid, LOCALE_STIMEFORMAT));
    if (texts.time.find(u"%p") != std::u16string::npos) {
        texts.hour = u"%#I";
        texts.hourRest = u" %p";
    }
    constexpr int kDigitZero = u'0';
    const std::u16string first = LocaleText(lcid, LOCALE_IFIRSTDAYOFWEEK); // 0 Monday .. 6 Sunday
    texts.firstDayOfWeek = first.empty() ? 0 : (first[0] - kDigitZero + 1) % kDaysPerWeek + 1;
}
#endif

} // namespace

// ---- Presets

std::shared_ptr<const CalendarTexts> RequiredTexts()
{
    static const std::shared_ptr<const CalendarTexts> texts =
        std::make_shared<const CalendarTexts>(CalendarTexts::Required());
    return texts;
}

CalendarTexts CalendarTexts::Required()
{
    CalendarTexts texts = PresetOf(&PresetText::required);
    texts.shortWeekdays = kJapaneseShortWeekdays;
    texts.columnWeekdays = kJapaneseWeekdays;
    return texts;
}

CalendarTexts CalendarTexts::Japanese()
{
    CalendarTexts texts = PresetOf(&PresetText::japanese);
    texts.weekdays = texts.columnWeekdays = kJapaneseWeekdays;
    texts.shortWeekdays = kJapaneseShortWeekdays;
    for (int month = 1; month <= kMonthsPerYear; ++month) {
        std::u16string& name = texts.months[static_cast<std::size_t>(month - 1)];
        Pad(name, month, 1);
        name += u"月";
    }
    texts.shortMonths = texts.months;
    return texts;
}

CalendarTexts CalendarTexts::English()
{
    CalendarTexts texts = PresetOf(&PresetText::english);
    texts.weekdays = texts.columnWeekdays = kEnglishWeekdays;
    texts.shortWeekdays = FirstLetters(kEnglishWeekdays, 3);
    texts.months = kEnglishMonths;
    texts.shortMonths = FirstLetters(kEnglishMonths, 3);
    texts.englishDayNames = true;
    return texts;
}

CalendarTexts CalendarTexts::FromLocale(unsigned long lcid)
{
    const bool isJapanese = (lcid & kLanguageMask) == kJapaneseLanguage;
    CalendarTexts texts = isJapanese ? Japanese() : English();
#ifdef _WIN32
    TakeNames(texts, lcid);
    TakePatterns(texts, lcid);
    if (!isJapanese) {
        texts.today = ShortAfterWords(texts.today, texts.spanYearDate);
        texts.thisMonth = ShortAfterWords(texts.thisMonth, texts.month);
    }
#endif
    return texts;
}

// ---- Texts

std::u16string DateText(const CalendarTexts& texts, const std::u16string& pattern, const COleDateTime& date)
{
    std::u16string text;
    if (!IsValid(date)) {
        return text;
    }
    constexpr std::u16string_view kNumbers = u"YymdHIM";
    constexpr std::u16string_view kNames = u"AaBbp";
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const bool isBare = pattern[at] == u'%' && at + 1 < pattern.size() && pattern[at + 1] == u'#';
        const std::size_t flagAt = at + (isBare ? 2 : 1);
        const char16_t letter = pattern[at] == u'%' && flagAt < pattern.size() ? pattern[flagAt] : u'\0';
        if (letter != u'\0' && kNumbers.find(letter) != std::u16string_view::npos) {
            Pad(text, NumberOf(letter, date), isBare ? 1 : letter == u'Y' ? 4 : 2);
        } else if (letter != u'\0' && kNames.find(letter) != std::u16string_view::npos) {
            text += NameOf(texts, letter, date);
        } else if (letter == u'%') {
            text += u'%';
        } else {
            text += pattern[at];
            continue;
        }
        at = flagAt;
    }
    return text;
}

std::u16string MoreText(const CalendarTexts& texts, int items)
{
    std::u16string number;
    Pad(number, items, 1);
    std::u16string text = texts.more;
    const std::size_t at = text.find(u"%n");
    return at == std::u16string::npos ? text : text.replace(at, 2, number);
}

std::u16string DayNamesText(const CalendarTexts& texts, const std::u16string& names)
{
    if (!texts.englishDayNames) {
        return names;
    }
    std::u16string text;
    for (std::size_t at = 0; at <= names.size();) {
        const std::size_t end = std::min(names.find(u' ', at), names.size());
        const std::u16string name = names.substr(at, end - at);
        const char* english = EnglishDayName(EncodeText(name, kUtf8CodePage));
        text += (at > 0 ? u" " : u"") + (english ? DecodeText(std::string_view(english), kUtf8CodePage) : name);
        at = end + 1;
    }
    return text;
}

std::u16string PatternOfPicture(const std::u16string& picture)
{
    return PatternOf(picture, kDateLetters);
}

std::u16string PatternOfTimePicture(const std::u16string& picture)
{
    std::u16string minutes = picture;
    for (std::size_t at = minutes.find(u's'); at != std::u16string::npos; at = minutes.find(u's')) {
        minutes.erase(at, 1);
        if (at > 0 && std::u16string_view(u":. ").find(minutes[at - 1]) != std::u16string_view::npos) {
            minutes.erase(at - 1, 1); // what stood between minutes and seconds
        }
    }
    return PatternOf(minutes, kTimeLetters);
}

} // namespace dayvane
