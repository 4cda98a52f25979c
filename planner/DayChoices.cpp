#include "planner/DayChoices.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <sstream>

#include "calc/Eras.h"
#include "calc/SexagenaryCycle.h"
#include "calc/SkyDay.h"
#include "core/EraTitles.h"
#include "planner/Words.h"

namespace planner {

namespace {

using dayvane::ical::kDaySeconds;
using dayvane::ical::LocalTime;

// By the order of dayvane::CsvFault
constexpr const char* kFaults[] = {"this is not a date and a name", "there is no such day",
                                   "the name is empty or too long", "this is neither UTF-8 nor Shift-JIS",
                                   "the day stands in an earlier line"};

// By the order of DayChoices::At
constexpr const char* kWords[] = {"names", "terms", "seasonal", "rokuyo", "lunar", "moon", "weeks", "eras", "lunch"};

constexpr int kMonday = 2;
constexpr int kFriday = 6;
constexpr dayvane::WorkPeriod kOffice = {9 * 60, 18 * 60}; // minutes
constexpr dayvane::WorkPeriod kLunch = {12 * 60, 13 * 60};

// No zone changes its clock twice within these days.
constexpr LocalTime kProbeStep = 14 * kDaySeconds;
constexpr LocalTime kLastProbe = 84000LL * kDaySeconds; // in the year 2199

void Append(std::string& text, const std::string& word)
{
    if (!word.empty()) {
        text += (text.empty() ? "" : "  ") + word;
    }
}

std::string Formatted(const char* format, int number)
{
    char text[40];
    std::snprintf(text, sizeof(text), format, number);
    return text;
}

std::string MoonText(const dayvane::MoonOfDay& moon, bool isEnglish)
{
    if (moon.age < 0) {
        return std::string();
    }
    char age[40];
    std::snprintf(age, sizeof(age), isEnglish ? "moon %.1f days" : u8"月齢 %.1f", moon.age);
    const dayvane::SkyName name = dayvane::MoonQuarterName(moon.quarter);
    const char* quarter = isEnglish ? name.english : name.japanese;
    return quarter ? std::string(quarter) + " (" + age + ")" : age;
}

std::string LunarText(const dayvane::SkyDay& sky, bool isEnglish)
{
    if (!sky.lunar.IsValid()) {
        return std::string();
    }
    const dayvane::SkyName rokuyo = dayvane::RokuyoName(sky.rokuyo);
    const std::string leap = !sky.lunar.isLeapMonth ? "" : isEnglish ? "leap " : u8"閏";
    const std::string date = leap + std::to_string(sky.lunar.month) + "/" + std::to_string(sky.lunar.day);
    return isEnglish ? "lunar " + date + " " + rokuyo.english : u8"旧" + date + " " + rokuyo.japanese;
}

std::string EraText(const dayvane::CivilDate& day, bool isEnglish)
{
    const dayvane::EraYear era = dayvane::TitleEras().YearOf(day);
    if (!era.era) {
        return std::string();
    }
    return isEnglish ? era.era->english + " " + std::to_string(era.year)
                     : dayvane::TitleEras().Format(day, dayvane::EraStyle::LongYear);
}

} // namespace

std::string DayStatus(const dayvane::CivilDate& day, const dayvane::DayCalendar& names, int firstDayOfWeek,
                      const dayvane::DayLines& lines)
{
    std::string text;
    if (!day.IsValid()) {
        return text;
    }
    const bool isEnglish = lines.language == dayvane::DayLanguage::English;
    for (const dayvane::DayName& name : names.InfoOf(day).names) {
        Append(text, name.text);
    }
    const dayvane::SkyDay sky = dayvane::SkyDayOf(day.year, day.month, day.day, lines.zoneMinutes);
    Append(text, LunarText(sky, isEnglish));
    Append(text, MoonText(sky.moon, isEnglish));
    Append(text,
           Formatted(isEnglish ? "week %d" : u8"第%d週", dayvane::WeekOf(day, firstDayOfWeek, lines.weekRule).week));
    Append(text, EraText(day, isEnglish));
    const dayvane::SkyName cycle = dayvane::SexagenaryName(dayvane::SexagenaryDay(dayvane::SerialDayOf(day)));
    Append(text, isEnglish ? cycle.english : cycle.japanese);
    return text;
}

dayvane::DayCalendar& TheDays()
{
    static dayvane::DayCalendar days;
    return days;
}

HolidayListReport LoadHolidays(dayvane::DayCalendar& days, const std::string& csv)
{
    HolidayListReport report;
    const dayvane::HolidayList list = dayvane::ReadHolidayCsv(csv);
    report.days = static_cast<int>(list.holidays.size());
    for (const dayvane::CsvProblem& problem : list.problems) {
        report.problems.push_back(
            {problem.line, Tr("List of holidays: ") + Tr(kFaults[static_cast<int>(problem.fault)])});
    }
    if (report.days > 0) {
        days.ClearLoadedHolidays();
        days.LoadHolidays(csv);
    }
    return report;
}

dayvane::ZoneClock ClockOf(const dayvane::ical::TimeZone& zone)
{
    const auto offsetAt = [&zone](LocalTime utc) { return static_cast<int>(zone.WallOfUtc(utc) - utc); };
    const int first = offsetAt(0);
    std::vector<dayvane::ZoneTransition> transitions;
    int offset = first;
    for (LocalTime probe = kProbeStep; probe < kLastProbe; probe += kProbeStep) {
        const int next = offsetAt(probe);
        if (next == offset) {
            continue;
        }
        LocalTime before = probe - kProbeStep; // still the old offset
        LocalTime after = probe;
        while (after - before > 1) {
            const LocalTime middle = before + (after - before) / 2;
            (offsetAt(middle) == offset ? before : after) = middle;
        }
        transitions.push_back({after, next});
        offset = next;
    }
    return dayvane::ZoneClock(first, std::move(transitions));
}

DayChoices::DayChoices()
{
    lines.eraTitles = true;
    lines.rokuyo = true;
    lines.moonPhase = true;
}

bool* DayChoices::Find(const std::string& word)
{
    const auto found = std::find(std::begin(kWords), std::end(kWords), word);
    return found == std::end(kWords) ? nullptr : At(static_cast<int>(found - std::begin(kWords)));
}

bool* DayChoices::At(int index)
{
    bool* const choices[] = {&lines.names,     &lines.terms,       &lines.seasonalDays, &lines.rokuyo, &lines.lunarDate,
                             &lines.moonPhase, &lines.weekNumbers, &lines.eraTitles,    &lunchBreak};
    static_assert(std::size(choices) == std::size(kWords), "a word for each choice");
    return choices[index];
}

std::string DayChoices::Words() const
{
    DayChoices copy = *this;
    std::string list = "none";
    for (const char* word : kWords) {
        list += *copy.Find(word) ? "," + std::string(word) : "";
    }
    return list;
}

bool DayChoices::Take(const std::string& list)
{
    DayChoices taken = *this;
    std::istringstream words(list);
    for (std::string word; std::getline(words, word, ',');) {
        if (word == "none") {
            const dayvane::DayLanguage language = taken.lines.language;
            taken.lines = dayvane::DayLines();
            taken.lines.language = language;
            taken.lunchBreak = false;
        } else if (bool* choice = taken.Find(word)) {
            *choice = true;
        } else {
            return false;
        }
    }
    taken.isChosen = isChosen || !list.empty();
    *this = taken;
    return true;
}

dayvane::WorkHours DayChoices::OfficeHours(bool lunchBreak)
{
    dayvane::WorkHours hours;
    const dayvane::WorkPeriods whole = {kOffice};
    const dayvane::WorkPeriods parts = {{kOffice.begin, kLunch.begin}, {kLunch.end, kOffice.end}};
    for (int weekday = kMonday; weekday <= kFriday; ++weekday) {
        hours.SetWeekday(weekday, lunchBreak ? parts : whole);
    }
    return hours;
}

} // namespace planner
