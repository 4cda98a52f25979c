#include "ical/EventWriter.h"

#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr std::string_view kRecurrenceProperties[] = {"RRULE", "RDATE", "EXDATE", "EXRULE", "RECURRENCE-ID"};

// The form of a time property as it stands; a date-time for values that are not readable.
TimeForm FormOf(const Property& property, const WritingContext* context)
{
    TimeForm form;
    const auto written = ParseTime(property.Value());
    if (written) {
        form.isDate = written->isDate;
        form.isUtc = written->isUtc;
    }
    const std::string* tzid = property.Find("TZID");
    if (form.isUtc) {
        form.zone = TimeZone::Utc();
    } else if (tzid && !form.isDate) {
        form.tzid = *tzid;
        form.zone = context ? context->zones->Find(context->calendar, *tzid) : nullptr;
    }
    return form;
}

std::string FormParameters(const TimeForm& form)
{
    if (form.isDate) {
        return ";VALUE=DATE";
    }
    if (form.tzid.empty()) {
        return "";
    }
    const bool needsQuotes = form.tzid.find_first_of(",;:") != std::string::npos;
    return needsQuotes ? ";TZID=\"" + form.tzid + '"' : ";TZID=" + form.tzid;
}

std::string FormattedTime(const TimeForm& form, LocalTime wall)
{
    return FormatTime({wall, form.isDate, form.isUtc});
}

std::string NewTimeLine(std::string_view name, const TimeForm& form, LocalTime wall)
{
    return std::string(name) + FormParameters(form) + ':' + FormattedTime(form, wall);
}

// Replaces the time of line `index`, which stays untouched when it already says so.
void ReplaceTime(ComponentText& event, std::size_t index, const TimeForm& form, LocalTime wall)
{
    const Property& property = *event.Lines()[index].property;
    const TimeForm before = FormOf(property, nullptr);
    const std::string value = FormattedTime(form, wall);
    const bool keepsForm = before.isDate == form.isDate && before.isUtc == form.isUtc && before.tzid == form.tzid &&
                           ParseTime(property.Value()).has_value();
    if (!keepsForm) {
        event.Replace(index, WithValue(property, {"VALUE", "TZID"}, FormParameters(form), value));
    } else if (TrimBlanks(property.Value()) != value) {
        event.Replace(index, WithValue(property, {}, "", value));
    }
}

void SetEnd(ComponentText& event, const EventTimes& times, const TimeForm& startForm, bool formChanged,
            const ZonePtr& clock, const WritingContext& context)
{
    const std::size_t endLine = event.Find("DTEND");
    const std::size_t durationLine = event.Find("DURATION");
    const std::int64_t duration = times.end - times.start;
    if (endLine != ComponentText::kNone) {
        const Property& property = *event.Lines()[endLine].property;
        TimeForm form = FormOf(property, &context);
        form = form.isDate == startForm.isDate && ParseTime(property.Value()) ? form : startForm;
        ReplaceTime(event, endLine, form, ConvertWall(times.end, clock, form.zone));
    } else if (durationLine != ComponentText::kNone) {
        const Property& property = *event.Lines()[durationLine].property;
        if (formChanged || ParseDuration(property.Value()) != duration) {
            event.Replace(durationLine, WithValue(property, {}, "", FormatDuration(duration)));
        }
    } else if (duration != (times.isAllDay ? kDaySeconds : 0)) {
        const LocalTime end = ConvertWall(times.end, clock, startForm.zone);
        event.InsertAfter(event.Find("DTSTART"), NewTimeLine("DTEND", startForm, end));
    }
}

} // namespace

void SetTextProperty(ComponentText& event, std::string_view name, const std::string& text)
{
    const std::size_t line = event.FindLast(name);
    const std::string value = EscapeText(text);
    if (line == ComponentText::kNone) {
        const std::size_t start = event.Find("DTSTART");
        event.InsertAfter(start == ComponentText::kNone ? 0 : start, std::string(name) + ':' + value);
    } else {
        event.Replace(line, WithValue(*event.Lines()[line].property, {"ENCODING", "CHARSET"}, "", value));
    }
}

void SetTimes(ComponentText& event, const EventTimes& times, const WritingContext& context)
{
    const std::size_t startLine = event.Find("DTSTART");
    const TimeForm before = FormOf(*event.Lines()[startLine].property, &context);
    TimeForm form = before.isDate ? context.newForm : before;
    if (times.isAllDay) {
        form = {};
        form.isDate = true;
    }
    const ZonePtr clock = context.displayZone ? context.displayZone : form.zone;
    ReplaceTime(event, startLine, form, ConvertWall(times.start, clock, form.zone));
    SetEnd(event, times, form, before.isDate != form.isDate, clock, context);
}

void AddException(ComponentText& event, LocalTime original)
{
    const std::size_t start = event.Find("DTSTART");
    const TimeForm form = FormOf(*event.Lines()[start].property, nullptr);
    std::size_t after = event.FindLast("EXDATE");
    after = after == ComponentText::kNone ? event.FindLast("RRULE") : after;
    after = after == ComponentText::kNone ? start : after;
    event.InsertAfter(after, NewTimeLine("EXDATE", form, original));
}

void MakeReplacement(ComponentText& event, LocalTime original)
{
    for (const std::string_view name : kRecurrenceProperties) {
        event.RemoveAll(name);
    }
    const std::size_t start = event.Find("DTSTART");
    const TimeForm form = FormOf(*event.Lines()[start].property, nullptr);
    event.InsertAfter(start, NewTimeLine("RECURRENCE-ID", form, original));
}

void MakeSingle(ComponentText& event, const std::string& uid, LocalTime utcNow)
{
    for (const std::string_view name : kRecurrenceProperties) {
        event.RemoveAll(name);
    }
    event.RemoveAll("UID");
    event.RemoveAll("DTSTAMP");
    event.RemoveAll("SEQUENCE");
    event.InsertAfter(0, "UID:" + EscapeText(uid));
    event.InsertAfter(1, "DTSTAMP:" + FormatTime({utcNow, false, true}));
}

std::string NewEventText(const std::string& uid, LocalTime utcNow, const EventTimes& times, const std::string& summary,
                         const WritingContext& context, std::string_view ending)
{
    TimeForm form = context.newForm;
    if (times.isAllDay) {
        form = {};
        form.isDate = true;
    }
    const ZonePtr clock = context.displayZone ? context.displayZone : form.zone;
    const std::string lines[] = {
        "BEGIN:VEVENT",
        "UID:" + EscapeText(uid),
        "DTSTAMP:" + FormatTime({utcNow, false, true}),
        NewTimeLine("DTSTART", form, ConvertWall(times.start, clock, form.zone)),
        NewTimeLine("DTEND", form, ConvertWall(times.end, clock, form.zone)),
        "SUMMARY:" + EscapeText(summary),
        "END:VEVENT",
    };
    std::string text;
    for (const std::string& line : lines) {
        text += Fold(line, ending);
    }
    return text;
}

} // namespace dayvane::ical
