#include "ical/EventWriter.h"

#include "ical/EventReader.h"
#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

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

namespace {

constexpr std::string_view kRecurrenceProperties[] = {"RRULE", "RDATE", "EXDATE", "EXRULE", "RECURRENCE-ID"};

std::string NewTimeLine(std::string_view name, const TimeForm& form, LocalTime wall)
{
    return std::string(name) + FormParameters(form) + ':' + FormattedTime(form, wall);
}

// The second time of an hour that comes twice can only be written in UTC.
TimeForm FormFor(LocalTime instant, const TimeForm& form)
{
    if (!form.zone || InstantOf(WallOf(instant, form.zone), form.zone) == instant) {
        return form;
    }
    TimeForm utc;
    utc.isUtc = true;
    utc.zone = TimeZone::Utc();
    return utc;
}

// Replaces the time of line `index`, which stays untouched when it already means that instant.
void ReplaceTime(ComponentText& event, std::size_t index, const TimeForm& wanted, LocalTime instant)
{
    const Property& property = *event.Lines()[index].property;
    const TimeForm before = FormOf(property, nullptr);
    const auto written = ParseTime(property.Value());
    const bool keepsForm =
        written && before.isDate == wanted.isDate && before.isUtc == wanted.isUtc && before.tzid == wanted.tzid;
    if (keepsForm && InstantOf(written->wall, wanted.zone) == instant) {
        return;
    }
    const TimeForm form = FormFor(instant, wanted);
    const std::string value = FormattedTime(form, WallOf(instant, form.zone));
    if (keepsForm && form.isUtc == wanted.isUtc) {
        event.Replace(index, WithValue(property, {}, "", value));
    } else {
        event.Replace(index, WithValue(property, {"VALUE", "TZID"}, FormParameters(form), value));
    }
}

// What SetTimes makes of the times it is given.
struct NewTimes
{
    LocalTime start = 0; // instants
    LocalTime end = 0;
    bool keepsLength = false;
};

NewTimes Resolve(const EventTimes& times, const Occurrence* before, const ZonePtr& clock)
{
    const bool isMove = before && before->times.isAllDay == times.isAllDay;
    NewTimes resolved;
    resolved.start =
        isMove && times.start == before->times.start ? before->startInstant : InstantOf(times.start, clock);
    resolved.keepsLength = isMove && times.end - times.start == before->times.end - before->times.start;
    if (resolved.keepsLength) {
        resolved.end = resolved.start + before->elapsed;
    } else if (isMove && times.end == before->times.end) {
        resolved.end = before->EndInstant();
    } else {
        resolved.end = InstantOf(times.end, clock);
        if (resolved.end < resolved.start && clock) {
            resolved.end = clock->LaterUtcOfWall(times.end);
        }
    }
    resolved.end = std::max(resolved.end, resolved.start);
    return resolved;
}

void SetDuration(ComponentText& event, std::size_t index, const NewTimes& times, const TimeForm& startForm,
                 bool formChanged)
{
    const Property& property = *event.Lines()[index].property;
    const auto written = ParseDuration(property.Value());
    const LocalTime wall = WallOf(times.start, startForm.zone);
    const bool fits = written && (times.keepsLength || EndInstant(wall, startForm.zone, *written) == times.end);
    if (formChanged || !fits) {
        const Duration duration = DurationBetween(times.start, times.end, startForm.zone);
        event.Replace(index, WithValue(property, {}, "", FormatDuration(duration)));
    }
}

void SetEnd(ComponentText& event, const NewTimes& times, const TimeForm& startForm, bool formChanged,
            const WritingContext& context)
{
    const std::size_t endLine = event.Find("DTEND");
    const std::size_t durationLine = event.Find("DURATION");
    if (endLine != ComponentText::kNone) {
        const Property& property = *event.Lines()[endLine].property;
        TimeForm form = FormOf(property, &context);
        form = form.isDate == startForm.isDate && ParseTime(property.Value()) ? form : startForm;
        if (!form.zone || !startForm.zone) { // what one of them lacks is taken from the other
            form.zone = startForm.zone;
        }
        ReplaceTime(event, endLine, form, times.end);
    } else if (durationLine != ComponentText::kNone) {
        SetDuration(event, durationLine, times, startForm, formChanged);
    } else if (times.end - times.start != (startForm.isDate ? kDaySeconds : 0)) {
        const TimeForm form = FormFor(times.end, startForm);
        event.InsertAfter(event.Find("DTSTART"), NewTimeLine("DTEND", form, WallOf(times.end, form.zone)));
    }
}

// The clock on which an event of this form is shown.
const ZonePtr& ClockOf(const TimeForm& form, const WritingContext& context)
{
    return form.zone && context.displayZone ? context.displayZone : form.zone;
}

} // namespace

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

std::string FormattedTime(const TimeForm& form, LocalTime wall)
{
    return FormatTime({wall, form.isDate, form.isUtc});
}

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

void SetValue(ComponentText& event, std::string_view name, const std::string& value)
{
    const std::size_t line = event.FindLast(name);
    if (value.empty()) {
        event.RemoveAll(name);
    } else if (line == ComponentText::kNone) {
        event.InsertAfter(event.Find("DTSTART"), std::string(name) + ':' + value);
    } else if (TrimBlanks(event.Lines()[line].property->Value()) != value) {
        event.Replace(line, WithValue(*event.Lines()[line].property, {}, "", value));
    }
}

void SetCategories(ComponentText& event, const std::vector<std::string>& categories)
{
    std::string value;
    for (const std::string& category : categories) {
        value += (value.empty() ? "" : ",") + EscapeText(category);
    }
    while (event.Find("CATEGORIES") != event.FindLast("CATEGORIES")) {
        event.Remove(event.FindLast("CATEGORIES"));
    }
    SetValue(event, "CATEGORIES", value);
}

void SetTimes(ComponentText& event, const EventTimes& times, const Occurrence* before, const WritingContext& context)
{
    const std::size_t startLine = event.Find("DTSTART");
    const TimeForm formBefore = FormOf(*event.Lines()[startLine].property, &context);
    TimeForm form = formBefore.isDate ? context.newForm : formBefore;
    if (times.isAllDay) {
        form = {};
        form.isDate = true;
    }
    const NewTimes resolved = Resolve(times, before, ClockOf(form, context));
    ReplaceTime(event, startLine, form, resolved.start);
    SetEnd(event, resolved, form, formBefore.isDate != form.isDate, context);
}

void SetTimesInZone(ComponentText& event, const EventTimes& times, const TimeForm& form, const WritingContext& context)
{
    const TimeForm before = FormOf(*event.Lines()[event.Find("DTSTART")].property, &context);
    const NewTimes resolved = Resolve(times, nullptr, ClockOf(form, context));
    ReplaceTime(event, event.Find("DTSTART"), form, resolved.start);
    const std::size_t end = event.Find("DTEND");
    if (end != ComponentText::kNone) {
        ReplaceTime(event, end, form, resolved.end);
    } else {
        SetEnd(event, resolved, form, before.isDate != form.isDate, context);
    }
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

void MakeReplacement(ComponentText& event, const TimeForm& seriesForm, LocalTime original)
{
    for (const std::string_view name : kRecurrenceProperties) {
        event.RemoveAll(name);
    }
    event.InsertAfter(event.Find("DTSTART"), NewTimeLine("RECURRENCE-ID", seriesForm, original));
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

void MarkEdited(ComponentText& event, LocalTime utcNow)
{
    const std::size_t sequence = event.FindLast("SEQUENCE");
    if (sequence != ComponentText::kNone) {
        if (const auto number = ParseSequence(event.Lines()[sequence].property->Value())) {
            SetValue(event, "SEQUENCE", std::to_string(*number + 1));
        }
    }
    for (const std::string_view name : {"DTSTAMP", "LAST-MODIFIED"}) {
        if (event.FindLast(name) != ComponentText::kNone) {
            SetValue(event, name, FormatTime({utcNow, false, true}));
        }
    }
}

std::string NewEventText(const std::string& uid, LocalTime utcNow, const EventTimes& times, const std::string& summary,
                         const WritingContext& context, std::string_view ending)
{
    TimeForm form = context.newForm;
    if (times.isAllDay) {
        form = {};
        form.isDate = true;
    }
    const NewTimes resolved = Resolve(times, nullptr, ClockOf(form, context));
    const TimeForm startForm = FormFor(resolved.start, form), endForm = FormFor(resolved.end, form);
    const std::string lines[] = {
        "BEGIN:VEVENT",
        "UID:" + EscapeText(uid),
        "DTSTAMP:" + FormatTime({utcNow, false, true}),
        NewTimeLine("DTSTART", startForm, WallOf(resolved.start, startForm.zone)),
        NewTimeLine("DTEND", endForm, WallOf(resolved.end, endForm.zone)),
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
