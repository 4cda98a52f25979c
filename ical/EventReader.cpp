#include "ical/EventReader.h"

#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr char kNotADate[] = " is not a date or time";

} // namespace

std::shared_ptr<Event> EventReader::Read(const ComponentText& text, int calendar)
{
    m_event = std::make_shared<Event>();
    m_event->calendar = calendar;
    m_start = m_end = m_duration = m_rule = m_replaces = nullptr;
    m_dateLists.clear();
    for (const Line& line : text.Lines()) {
        ReadLine(line);
    }
    const Line& first = text.Lines().front();
    if (!m_start) {
        Tell(first, "an event without DTSTART is not shown");
        return nullptr;
    }
    const auto start = ReadTime(*m_start, m_start->property->Value());
    if (!start) {
        Tell(*m_start, "DTSTART " + Quoted(m_start->property->Value()) + kNotADate + ": the event is not shown");
        return nullptr;
    }
    m_event->start = *start;
    ReadEnd();
    ReadRecurrence();
    return std::move(m_event);
}

void EventReader::Tell(const Line& line, const std::string& text)
{
    m_log.Add(line.number, text);
}

void EventReader::ReadLine(const Line& line)
{
    if (!line.property) {
        if (!TrimBlanks(Unfold(line.raw)).empty()) {
            Tell(line, Quoted(Unfold(line.raw)) + " is not a calendar line");
        }
        return;
    }
    const Property& property = *line.property;
    if (line.depth == ComponentText::kOwnDepth && property.name == "BEGIN" && SameWord(property.Value(), "VALARM")) {
        m_event->hasAlarm = true;
    }
    if (line.depth != ComponentText::kOwnDepth) {
        return;
    }
    if (property.isBroken) {
        Tell(line, property.name + " has a quotation mark that is not closed");
    }
    if (!KeepForLater(line)) {
        ReadTexts(line);
    }
}

// Keeps the lines whose meaning depends on others. False for other lines.
bool EventReader::KeepForLater(const Line& line)
{
    const Property& property = *line.property;
    struct SingleLine
    {
        std::string_view name;
        const Line* EventReader::*kept;
    };
    static constexpr SingleLine singleLines[] = {
        {"DTSTART", &EventReader::m_start},          {"DTEND", &EventReader::m_end},
        {"DURATION", &EventReader::m_duration},      {"RRULE", &EventReader::m_rule},
        {"RECURRENCE-ID", &EventReader::m_replaces},
    };
    for (const SingleLine& single : singleLines) {
        if (single.name == property.name) {
            if (this->*single.kept) {
                Tell(line, "a second " + property.name + " is not read");
            } else {
                this->*single.kept = &line;
            }
            return true;
        }
    }
    if (property.name == "RDATE" || property.name == "EXDATE") {
        m_dateLists.push_back(&line);
    } else if (property.name == "EXRULE") {
        Tell(line, "EXRULE is not understood: what it excludes is shown");
    } else {
        return false;
    }
    return true;
}

void EventReader::ReadTexts(const Line& line)
{
    const std::string& name = line.property->name;
    if (name == "SUMMARY") {
        m_event->summary = TextOf(line);
    } else if (name == "LOCATION") {
        m_event->location = TextOf(line);
    } else if (name == "DESCRIPTION") {
        m_event->description = TextOf(line);
    } else if (name == "UID") {
        m_event->uid = TextOf(line);
    } else if (name == "STATUS") {
        m_event->status = UpperText(TrimBlanks(TextOf(line)));
    } else if (name == "TRANSP") {
        m_event->isTransparent = SameWord(TrimBlanks(line.property->Value()), "TRANSPARENT");
    } else if (name == "CATEGORIES") {
        for (std::string& category : SplitTextList(TextOf(line, true))) {
            const std::string_view trimmed = TrimBlanks(category);
            if (!trimmed.empty()) {
                m_event->categories.emplace_back(trimmed);
            }
        }
    }
}

std::string EventReader::TextOf(const Line& line, bool isList)
{
    const std::string_view value = line.property->Value();
    if (!IsUtf8(value)) {
        Tell(line, line.property->name + " is not valid UTF-8: its broken bytes are shown as replacement marks");
    }
    return isList ? RepairUtf8(value) : RepairUtf8(UnescapeText(value));
}

std::optional<EventTime> EventReader::ReadTime(const Line& line, std::string_view value)
{
    const auto written = ParseTime(value);
    if (!written) {
        return std::nullopt;
    }
    EventTime time;
    time.wall = written->wall;
    time.isDate = written->isDate;
    if (written->isDate) {
        return time;
    }
    if (written->isUtc) {
        time.zone = TimeZone::Utc();
    } else if (const std::string* id = line.property->Find("TZID")) {
        time.zone = m_zones.Find(m_event->calendar, *id);
        if (!time.zone && m_toldZones.insert(*id).second) {
            Tell(line, "the time zone " + Quoted(*id) + " is not defined: its times are taken as they stand");
        }
    }
    return time;
}

void EventReader::ReadEnd()
{
    Event& event = *m_event;
    event.duration = event.IsAllDay() ? kDaySeconds : 0;
    std::optional<std::int64_t> duration;
    const Line* line = m_end ? m_end : m_duration;
    if (!line) {
        return;
    }
    const std::string_view value = line->property->Value();
    const std::string what = line->property->name + " " + Quoted(value);
    if (m_end) {
        const auto end = ReadTime(*m_end, value);
        if (end && end->isDate != event.IsAllDay()) {
            Tell(*line, what + " does not fit the form of DTSTART");
            return;
        }
        if (end) {
            duration = ConvertWall(end->wall, end->zone, event.start.zone) - event.start.wall;
        }
    } else {
        duration = ParseDuration(value);
    }
    if (!duration) {
        Tell(*line, what + (m_end ? kNotADate : " is not a duration"));
    } else if (*duration < 0) {
        Tell(*line, what + (m_end ? " lies before DTSTART and is not used" : " is negative"));
    } else if (event.IsAllDay()) {
        // A date that ends where it begins is written by many for one day.
        event.duration = std::max((*duration + kDaySeconds - 1) / kDaySeconds, std::int64_t(1)) * kDaySeconds;
    } else {
        event.duration = *duration;
    }
    event.duration = std::min(event.duration, kEndOfTime - event.start.wall);
}

void EventReader::ReadRecurrence()
{
    Event& event = *m_event;
    if (m_replaces) {
        const Property& property = *m_replaces->property;
        event.replaces = ReadTime(*m_replaces, property.Value());
        if (!event.replaces) {
            Tell(*m_replaces, "RECURRENCE-ID " + Quoted(property.Value()) + kNotADate);
        } else if (const std::string* range = property.Find("RANGE")) {
            Tell(*m_replaces, "RANGE=" + Quoted(*range) + " is not understood: only this one occurrence is changed");
        }
    }
    for (const Line* line : m_dateLists) {
        if (line->property->name == "RDATE") {
            ReadFurtherDates(*line);
        } else {
            ReadExceptions(*line);
        }
    }
    std::stable_sort(event.furtherDates.begin(), event.furtherDates.end(),
                     [](const FurtherDate& a, const FurtherDate& b) { return a.wall < b.wall; });
    std::sort(event.exceptions.begin(), event.exceptions.end());
    std::sort(event.exceptionDays.begin(), event.exceptionDays.end());
    if (m_rule) {
        ReadRule();
    }
    if (event.IsRecurrent() && event.duration > kMaxRepeatedDuration) {
        Tell(*m_start, "a repeated event of more than a year is shown as one year long");
        event.duration = kMaxRepeatedDuration;
    }
}

void EventReader::ReadRule()
{
    Event& event = *m_event;
    RuleReading reading = ParseRule(m_rule->property->Value(), event.start.wall);
    if (!reading.rule) {
        Tell(*m_rule, "RRULE: " + reading.problem + ": the event is shown once");
        event.hasUnreadRule = true;
        return;
    }
    if (!reading.problem.empty()) {
        Tell(*m_rule, "RRULE: " + reading.problem);
    }
    if (reading.rule->until) {
        const WrittenTime& until = *reading.rule->until;
        const LocalTime wall =
            ConvertWall(until.wall, until.isUtc ? TimeZone::Utc() : event.start.zone, event.start.zone);
        // A date lasts to its end, and for all-day events only the day counts.
        reading.rule->lastStart = until.isDate || event.IsAllDay() ? (DayOfTime(wall) + 1) * kDaySeconds - 1 : wall;
    }
    if (!LimitByCount(*reading.rule, event.start.wall, m_countingSteps)) {
        Tell(*m_rule, "RRULE: COUNT leads too far to be counted: the event is taken to repeat without end");
    }
    event.rule = std::move(reading.rule);
}

void EventReader::ReadFurtherDates(const Line& line)
{
    Event& event = *m_event;
    const std::string* form = line.property->Find("VALUE");
    const bool isClockOnly = form && SameWord(*form, "TIME");
    for (const std::string_view piece : SplitAt(line.property->Value(), ',')) {
        const std::size_t slash = std::min(piece.find('/'), piece.size());
        const auto start = isClockOnly ? std::nullopt : ReadTime(line, piece.substr(0, slash));
        if (!start) {
            Tell(line, "RDATE " + Quoted(piece) + kNotADate);
            continue;
        }
        FurtherDate further;
        further.wall = ConvertWall(start->wall, start->zone, event.start.zone);
        if (slash < piece.size() && !event.IsAllDay()) {
            const std::string_view endText = piece.substr(slash + 1);
            const auto end = ReadTime(line, endText);
            further.duration = end ? end->wall - start->wall : ParseDuration(endText);
            if (!further.duration || *further.duration < 0 || *further.duration > kMaxRepeatedDuration) {
                Tell(line, "RDATE " + Quoted(piece) + " has no readable end");
                further.duration.reset();
            }
        }
        if (start->isDate && !event.IsAllDay()) { // a date: at the event's usual time
            further.wall += event.start.wall - DayOfTime(event.start.wall) * kDaySeconds;
        } else if (event.IsAllDay()) {
            further.wall = DayOfTime(further.wall) * kDaySeconds;
        }
        event.furtherDates.push_back(further);
    }
}

void EventReader::ReadExceptions(const Line& line)
{
    for (const std::string_view piece : SplitAt(line.property->Value(), ',')) {
        const auto time = ReadTime(line, piece);
        if (!time) {
            Tell(line, "EXDATE " + Quoted(piece) + kNotADate);
        } else if (time->isDate || m_event->IsAllDay()) {
            m_event->exceptionDays.push_back(DayOfTime(time->wall));
        } else {
            m_event->exceptions.push_back(ConvertWall(time->wall, time->zone, m_event->start.zone));
        }
    }
}

} // namespace dayvane::ical
