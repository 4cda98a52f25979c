#include "ical/SeriesText.h"

#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr std::string_view kWeekdayNames[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

std::string_view PartName(std::string_view part)
{
    return TrimBlanks(part.substr(0, part.find('=')));
}

// The rule with one part's value replaced; the part must be there.
std::string WithPart(std::string_view rule, std::string_view name, const std::string& value)
{
    std::string text;
    for (const std::string_view part : SplitAt(rule, ';')) {
        text += text.empty() ? "" : ";";
        text += SameWord(PartName(part), name) ? std::string(name) + '=' + value : std::string(part);
    }
    return text;
}

// A written date on the series' clock, as its RDATE, EXDATE or RECURRENCE-ID means it.
std::optional<LocalTime> DateOnSeries(std::string_view written, const Property& property, const Event& series,
                                      const WritingContext& context)
{
    const auto time = ParseTime(written.substr(0, written.find('/')));
    if (!time) {
        return std::nullopt;
    }
    EventTime date;
    date.wall = time->wall;
    date.isDate = time->isDate;
    const std::string* tzid = property.Find("TZID");
    if (time->isUtc) {
        date.zone = TimeZone::Utc();
    } else if (tzid && !time->isDate) {
        date.zone = context.zones->Find(context.calendar, *tzid);
    }
    return OriginalStart(date, series.start);
}

std::string ShiftedDate(std::string_view written, const Property& property, const Event& series,
                        const WritingContext& context, LocalTime from, LocalTime to)
{
    const auto time = ParseTime(written);
    if (!time) {
        return std::string(written); // a duration, or nothing that is understood
    }
    WrittenTime shifted = *time;
    if (time->isDate) {
        shifted.wall += (DayOfTime(to) - DayOfTime(from)) * kDaySeconds;
        return FormatTime(shifted);
    }
    const std::string* tzid = property.Find("TZID");
    const ZonePtr zone = time->isUtc ? TimeZone::Utc() : tzid ? context.zones->Find(context.calendar, *tzid) : nullptr;
    shifted.wall = ConvertWall(ConvertWall(time->wall, zone, series.start.zone) + to - from, series.start.zone, zone);
    return FormatTime(shifted);
}

// Calls edit(property) for the lines of that name; it returns the new value, nothing for a line that goes.
template <typename Edit>
void EditLines(ComponentText& text, std::string_view name, Edit edit)
{
    for (std::size_t i = text.Lines().size(); i-- > 0;) {
        const ComponentText::Line& line = text.Lines()[i];
        if (line.depth != ComponentText::kOwnDepth || !line.property || line.property->name != name) {
            continue;
        }
        const std::optional<std::string> value = edit(*line.property);
        if (!value) {
            text.Remove(i);
        } else if (*value != line.property->Value()) {
            text.Replace(i, WithValue(*line.property, {}, "", *value));
        }
    }
}

int OrdinalInMonth(DayNumber day, bool fromEnd)
{
    const CivilDate date = DateOfDay(day);
    return fromEnd ? -(DaysInMonth(date.year, date.month) - date.day) / kWeekDays - 1 : (date.day - 1) / kWeekDays + 1;
}

// BYDAY of a weekly rule, each weekday `days` later; nothing if some days would change their week and others not.
std::optional<std::string> ShiftedWeekdays(const RecurrenceRule& rule, DayNumber days)
{
    std::string value;
    std::optional<DayNumber> weeks;
    for (const RuleWeekday& weekday : rule.byDay) {
        const DayNumber place = (weekday.weekday - rule.weekStart + kWeekDays) % kWeekDays + days;
        const DayNumber week = (place >= 0 ? place : place - kWeekDays + 1) / kWeekDays;
        if (rule.interval > 1 && week != weeks.value_or(week)) {
            return std::nullopt;
        }
        weeks = week;
        const DayNumber shifted = (place - week * kWeekDays + rule.weekStart) % kWeekDays;
        value += (value.empty() ? "" : ",") + std::string(kWeekdayNames[shifted]);
    }
    return value;
}

// A rule of months or years that names one day: by its number or by its weekday.
std::optional<std::string> ShiftMonthly(std::string_view text, const RecurrenceRule& rule, DayNumber from, DayNumber to)
{
    const CivilDate before = DateOfDay(from), after = DateOfDay(to);
    std::string shifted(text);
    if (rule.frequency == Frequency::Yearly && !rule.byMonth.empty()) {
        if (rule.byMonth.size() > 1 && before.month != after.month) {
            return std::nullopt;
        }
        if (rule.byMonth.size() == 1) {
            shifted = WithPart(shifted, "BYMONTH", std::to_string(after.month));
        }
    } else if (before.month != after.month || before.year != after.year) {
        return std::nullopt;
    }
    const bool onlyNumber = rule.byMonthDay.size() == 1 && rule.byDay.empty();
    const bool onlyWeekday = rule.byDay.size() == 1 && rule.byDay[0].ordinal != 0 && rule.byMonthDay.empty();
    const bool inMonths = rule.frequency == Frequency::Monthly || !rule.byMonth.empty();
    if (onlyNumber && inMonths) {
        const int fromEnd = after.day - DaysInMonth(after.year, after.month) - 1;
        return WithPart(shifted, "BYMONTHDAY", std::to_string(rule.byMonthDay[0] > 0 ? after.day : fromEnd));
    }
    if (onlyWeekday && inMonths) {
        const int ordinal = OrdinalInMonth(to, rule.byDay[0].ordinal < 0);
        return WithPart(shifted, "BYDAY", std::to_string(ordinal) + std::string(kWeekdayNames[WeekdayOfDay(to)]));
    }
    const bool onlyMonth = rule.byMonthDay.empty() && rule.byDay.empty();
    return onlyMonth ? std::optional<std::string>(shifted) : std::nullopt;
}

std::string ShiftedUntil(const RecurrenceRule& rule, const Event& series, LocalTime from, LocalTime to)
{
    WrittenTime until = *rule.until;
    const ZonePtr zone = until.isUtc ? TimeZone::Utc() : series.start.zone;
    if (until.isDate) {
        until.wall += (DayOfTime(to) - DayOfTime(from)) * kDaySeconds;
    } else {
        until.wall = ConvertWall(ConvertWall(until.wall, zone, series.start.zone) + to - from, series.start.zone, zone);
    }
    return FormatTime(until);
}

} // namespace

std::string WithLimit(std::string_view rule, std::string_view limit)
{
    std::string text;
    for (const std::string_view part : SplitAt(rule, ';')) {
        const std::string_view name = PartName(part);
        if (!SameWord(name, "UNTIL") && !SameWord(name, "COUNT") && !TrimBlanks(part).empty()) {
            text.append(text.empty() ? "" : ";").append(part);
        }
    }
    return limit.empty() ? text : text.append(";").append(limit);
}

std::string UntilBefore(const EventTime& start, LocalTime end)
{
    WrittenTime until;
    until.isDate = start.isDate;
    until.isUtc = start.zone != nullptr;
    until.wall = start.isDate ? end - kDaySeconds : InstantOf(end, start.zone) - 1;
    return "UNTIL=" + FormatTime(until);
}

void EndSeries(ComponentText& series, const Event& event, LocalTime end, const WritingContext& context)
{
    EditLines(series, "RRULE", [&](const Property& property) {
        return std::optional<std::string>(WithLimit(property.Value(), UntilBefore(event.start, end)));
    });
    FilterDates(series, event, "RDATE", context, [&](LocalTime date) { return date < end; });
}

void FilterDates(ComponentText& series, const Event& event, std::string_view name, const WritingContext& context,
                 const std::function<bool(LocalTime)>& keeps)
{
    EditLines(series, name, [&](const Property& property) {
        std::string kept;
        bool isEmpty = true;
        for (const std::string_view piece : SplitAt(property.Value(), ',')) {
            const auto date = DateOnSeries(piece, property, event, context);
            if (!date || keeps(*date)) {
                kept.append(isEmpty ? "" : ",").append(piece);
                isEmpty = false;
            }
        }
        return isEmpty ? std::nullopt : std::optional<std::string>(kept);
    });
}

void ShiftDates(ComponentText& text, const Event& series, std::string_view name, const WritingContext& context,
                LocalTime from, LocalTime to)
{
    EditLines(text, name, [&](const Property& property) {
        std::string shifted;
        for (const std::string_view piece : SplitAt(property.Value(), ',')) {
            shifted += shifted.empty() ? "" : ",";
            bool isEnd = false; // of a period
            for (const std::string_view bound : SplitAt(piece, '/')) {
                shifted += (isEnd ? "/" : "") + ShiftedDate(bound, property, series, context, from, to);
                isEnd = true;
            }
        }
        return std::optional<std::string>(shifted);
    });
}

bool RezoneDates(ComponentText& text, const Event& series, std::string_view name, const WritingContext& context,
                 LocalTime from, LocalTime to, const TimeForm& form)
{
    for (std::size_t i = 0; i < text.Lines().size(); ++i) {
        const ComponentText::Line& line = text.Lines()[i];
        const bool isMeant = line.depth == ComponentText::kOwnDepth && line.property && line.property->name == name;
        if (!isMeant || FormOf(*line.property, nullptr).isDate) { // a day is one on every clock
            continue;
        }
        std::string value;
        for (const std::string_view piece : SplitAt(line.property->Value(), ',')) {
            const auto date = DateOnSeries(piece, *line.property, series, context);
            if (!date || piece.find('/') != std::string_view::npos) {
                return false;
            }
            value.append(value.empty() ? "" : ",").append(FormattedTime(form, *date + to - from));
        }
        text.Replace(i, WithValue(*line.property, {"VALUE", "TZID"}, FormParameters(form), value));
    }
    return true;
}

std::optional<std::string> ShiftRule(std::string_view text, const Event& series, LocalTime from, LocalTime to)
{
    const RuleReading reading = ParseRule(text);
    if (!reading.rule) {
        return std::nullopt;
    }
    const RecurrenceRule& rule = *reading.rule;
    const DayNumber days = DayOfTime(to) - DayOfTime(from);
    const bool hasClockParts = !rule.byHour.empty() || !rule.byMinute.empty() || !rule.bySecond.empty();
    if (hasClockParts && to - from != days * kDaySeconds) {
        return std::nullopt;
    }
    std::optional<std::string> shifted = std::string(text);
    if (days != 0) {
        const bool hasOtherParts = !rule.byYearDay.empty() || !rule.byWeekNo.empty() || !rule.bySetPos.empty();
        const bool hasDayParts = !rule.byMonth.empty() || !rule.byMonthDay.empty() || !rule.byDay.empty();
        if (hasOtherParts || (rule.frequency <= Frequency::Daily && hasDayParts)) {
            return std::nullopt;
        }
        if (rule.frequency == Frequency::Weekly && hasDayParts) {
            const auto weekdays = ShiftedWeekdays(rule, days);
            if (!weekdays || !rule.byMonth.empty()) {
                return std::nullopt;
            }
            shifted = WithPart(text, "BYDAY", *weekdays);
        } else if (rule.frequency >= Frequency::Monthly && hasDayParts) {
            shifted = ShiftMonthly(text, rule, DayOfTime(from), DayOfTime(to));
        }
    }
    if (shifted && rule.until) {
        shifted = WithPart(*shifted, "UNTIL", ShiftedUntil(rule, series, from, to));
    }
    return shifted;
}

} // namespace dayvane::ical
