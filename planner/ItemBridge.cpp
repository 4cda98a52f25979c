#include "planner/ItemBridge.h"

#include "ical/Text.h"
#include "planner/Words.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>

namespace planner {

namespace {

constexpr int kFontItalicStruck = 2; // tagCC_ITEM::nReserved
constexpr std::size_t kNearlyAllPercent = 80;
constexpr char kNoTitle[] = "(no title)";
constexpr std::size_t kLongestNotes = 400; // bytes, of a tip

constexpr COLORREF Rgb(unsigned rgb)
{
    return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

constexpr ItemColors kPalette[] = {
    // back         shade          outline        text
    {Rgb(0xDCEAFB), Rgb(0xB4D1F3), Rgb(0x5A8FCB), Rgb(0x17365C)}, // blue
    {Rgb(0xDDF2E0), Rgb(0xB2DDB9), Rgb(0x5BA56B), Rgb(0x1C4527)}, // green
    {Rgb(0xFDEBD3), Rgb(0xF8CE98), Rgb(0xD4923F), Rgb(0x5E3A0A)}, // orange
    {Rgb(0xF9DFE4), Rgb(0xEFB4C0), Rgb(0xC96A80), Rgb(0x611A2C)}, // rose
    {Rgb(0xE8E1F6), Rgb(0xCBBCEA), Rgb(0x8A72C2), Rgb(0x37245F)}, // violet
    {Rgb(0xD9F1F1), Rgb(0xA9DADB), Rgb(0x4A9FA2), Rgb(0x0F4547)}, // teal
    {Rgb(0xF7F2CF), Rgb(0xE6DA8C), Rgb(0xB3A142), Rgb(0x4C430C)}, // yellow
    {Rgb(0xE9EAEE), Rgb(0xC9CDD6), Rgb(0x868E9E), Rgb(0x2E3440)}, // grey
};
constexpr const char* kPaletteNames[] = {"Blue", "Green", "Orange", "Rose", "Violet", "Teal", "Yellow", "Grey"};
constexpr std::size_t kPaletteSize = sizeof(kPalette) / sizeof(kPalette[0]);
static_assert(kPaletteSize == kPaletteColors && std::size(kPaletteNames) == kPaletteSize);

// FNV-1a with 32 bits
std::uint32_t HashOf(const std::string& text)
{
    std::uint32_t hash = 2166136261u;
    for (const char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    }
    return hash;
}

// The last moment that an item with these exclusive bounds has.
LocalTime LastMoment(const EventTimes& times)
{
    if (times.end <= times.start) {
        return times.start;
    }
    if (times.isAllDay) {
        return DayOfTime(times.end - 1) * kDaySeconds;
    }
    return times.end % kDaySeconds == 0 ? times.end - 1 : times.end;
}

// The reverse, for a bound that a user has set.
LocalTime ExclusiveEnd(LocalTime last, bool isAllDay)
{
    if (isAllDay) {
        return (DayOfTime(last) + 1) * kDaySeconds;
    }
    return (last + 1) % kDaySeconds == 0 ? last + 1 : last;
}

std::string DayText(LocalTime time)
{
    const CivilTime civil = CivilOfTime(time);
    char text[64];
    std::snprintf(text, sizeof(text), "%d-%02d-%02d", civil.year, civil.month, civil.day);
    return text;
}

std::string ClockText(LocalTime time)
{
    const CivilTime civil = CivilOfTime(time);
    char text[64];
    std::snprintf(text, sizeof(text), "%d:%02d", civil.hour, civil.minute);
    return text;
}

std::string OneLine(const std::string& text)
{
    std::string line = text;
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    return line;
}

} // namespace

COleDateTime DateOfLocal(LocalTime time)
{
    if (time < kEarliestTime || time >= kEndOfTime) {
        COleDateTime none;
        none.SetStatus(COleDateTime::invalid);
        return none;
    }
    const CivilTime civil = CivilOfTime(time);
    return COleDateTime(civil.year, civil.month, civil.day, civil.hour, civil.minute, civil.second);
}

LocalTime LocalOfDate(const COleDateTime& date)
{
    return TimeOfCivil(
        {date.GetYear(), date.GetMonth(), date.GetDay(), date.GetHour(), date.GetMinute(), date.GetSecond()});
}

tagCC_ITEM ItemOf(const Occurrence& occurrence, int color)
{
    const Event& event = *occurrence.event;
    const ItemColors& colors = ColorsOf(event, color);
    tagCC_ITEM item;
    item.nReserved = event.IsCancelled() ? kFontItalicStruck : 0;
    item.dtStart = DateOfLocal(occurrence.times.start);
    item.dtEnd = DateOfLocal(LastMoment(occurrence.times));
    item.nFullday = occurrence.times.isAllDay ? 1 : 0;
    item.strText = ShownSummary(event).c_str();
    item.crColor1 = colors.outline;
    item.crColor2 = colors.back;
    item.crColor3 = colors.shade;
    item.crColor4 = colors.outline;
    item.crColor5 = colors.text;
    item.bAlarm = event.hasAlarm;
    item.bRecurrent = event.IsRecurrent() || event.replaces.has_value();
    item.bMovable = !event.hasUnreadRule;
    return item;
}

EventTimes TimesAfterMove(const EventTimes& before, const tagCC_ITEM& moved)
{
    const LocalTime start = LocalOfDate(moved.dtStart);
    const LocalTime last = LocalOfDate(moved.dtEnd);
    const LocalTime lastBefore = LastMoment(before);
    EventTimes times = before;
    if (start - before.start == last - lastBefore) {
        times.start += start - before.start;
        times.end += start - before.start;
        return times;
    }
    times.start = start;
    if (last != lastBefore) {
        times.end = ExclusiveEnd(last, before.isAllDay);
    }
    return times;
}

EventTimes TimesOfSelection(const COleDateTime& begin, const COleDateTime& end, bool wholeDays)
{
    const LocalTime first = LocalOfDate(begin);
    const LocalTime last = LocalOfDate(end);
    EventTimes times;
    times.isAllDay = wholeDays || (first % kDaySeconds == 0 && (last + 1) % kDaySeconds == 0);
    if (times.isAllDay) {
        times.start = DayOfTime(first) * kDaySeconds;
        times.end = (DayOfTime(last) + 1) * kDaySeconds;
        return times;
    }
    times.start = first;
    const bool isLastSecond = (last + 1) % kMinuteSeconds == 0; // of the last row
    times.end = isLastSecond ? last + 1 : last;
    return times;
}

EventTimes TimesOnDay(const EventTimes& selection, DayNumber day)
{
    const LocalTime from = day * kDaySeconds, to = from + kDaySeconds;
    if (selection.isAllDay || (selection.start >= from && selection.end <= to)) {
        return selection;
    }
    EventTimes times = selection;
    const LocalTime length = std::max<LocalTime>((times.end - times.start) % kDaySeconds, kMinuteSeconds);
    times.start = from + (times.start - DayOfTime(times.start) * kDaySeconds);
    times.end = std::min(times.start + length, to);
    return times;
}

int FittingTimeScale(const std::vector<Occurrence>& occurrences, LocalTime from, LocalTime to,
                     const std::vector<int>& offered)
{
    std::size_t bounds = 0;
    std::vector<std::size_t> aligned(offered.size(), 0);
    for (const Occurrence& occurrence : occurrences) {
        const EventTimes& times = occurrence.times;
        if (times.isAllDay || times.start < from || times.start >= to) {
            continue;
        }
        for (const LocalTime bound : {times.start, times.end}) {
            ++bounds;
            for (std::size_t i = 0; i < offered.size(); ++i) {
                aligned[i] += bound % (kHourSeconds / offered[i]) == 0 ? 1 : 0;
            }
        }
    }
    for (std::size_t i = 0; i < offered.size(); ++i) {
        if (aligned[i] * 100 >= bounds * kNearlyAllPercent) {
            return offered[i];
        }
    }
    return offered.back();
}

namespace {

std::string TimesText(const Occurrence& occurrence)
{
    const EventTimes& times = occurrence.times;
    const bool isOneDay = DayOfTime(times.start) == occurrence.LastDay();
    std::string text = DayText(times.start);
    if (times.isAllDay) {
        return text + (isOneDay ? "" : " - " + DayText(occurrence.LastDay() * kDaySeconds));
    }
    text += " " + ClockText(times.start) + " - ";
    return text + (isOneDay ? "" : DayText(times.end) + " ") + ClockText(times.end);
}

} // namespace

std::string DetailsOf(const Occurrence& occurrence)
{
    const std::string text = TimesText(occurrence) + "   " + ShownSummary(*occurrence.event);
    const std::string& place = occurrence.event->location;
    return text + (place.empty() ? "" : "   @ " + OneLine(place));
}

std::string TipOf(const Occurrence& occurrence)
{
    const Event& event = *occurrence.event;
    std::string text = ShownSummary(event) + "\n" + TimesText(occurrence);
    if (!event.location.empty()) {
        text += "\n@ " + OneLine(event.location);
    }
    if (!event.description.empty()) {
        const bool isCut = event.description.size() > kLongestNotes;
        text += "\n" + RepairUtf8(std::string_view(event.description).substr(0, kLongestNotes)) + (isCut ? "..." : "");
    }
    return text;
}

std::string ShownSummary(const Event& event)
{
    return event.summary.empty() ? Tr(kNoTitle) : OneLine(event.summary);
}

const ItemColors& ColorsOf(const Event& event, int color)
{
    if (color >= 0 && color < kPaletteColors) {
        return kPalette[color];
    }
    const std::string& kind = event.categories.empty() ? event.location : event.categories.front();
    const std::size_t number = kind.empty() ? static_cast<std::size_t>(std::max(event.calendar, 1) - 1) : HashOf(kind);
    return kPalette[number % kPaletteSize];
}

const ItemColors& PaletteColors(int color)
{
    return kPalette[color >= 0 && color < kPaletteColors ? color : kPaletteColors - 1];
}

const char* PaletteName(int color)
{
    return kPaletteNames[color];
}

} // namespace planner
