#include "ical/EventReader.h"

#include "ical/AlarmText.h"
#include "ical/Occurrences.h"
#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr char kNotADate[] = "%1 is not a date or time";
const Phrase kWithinADay = {"whole days cannot repeat within a day", ""};
const Phrase kTooFar = {"COUNT leads too far to be counted", ""};
const Phrase kRule = {"%1", "RRULE"};
const Phrase kExceptionRule = {"%1", "EXRULE"};
constexpr std::size_t kMaxSequenceDigits = 9;

std::string Named(const ComponentText::Line& line)
{
    return line.property->name + " " + Quoted(line.property->Value());
}

} // namespace

std::optional<std::int64_t> ParseSequence(std::string_view text)
{
    text = TrimBlanks(text);
    if (text.empty() || text.size() > kMaxSequenceDigits ||
        text.find_first_not_of("0123456789") != std::string_view::npos) {
        return std::nullopt;
    }
    return std::stoll(std::string(text));
}

std::shared_ptr<Event> EventReader::Read(const ComponentText& text, int calendar)
{
    m_event = std::make_shared<Event>();
    m_event->calendar = calendar;
    m_start = m_end = m_duration = m_rule = m_replaces = nullptr;
    m_dateLists.clear();
    m_exceptionRules.clear();
    for (const Line& line : text.Lines()) {
        ReadLine(line);
    }
    if (m_event->hasAlarm) {
        m_event->alarms = ReadAlarms(text);
    }
    const Line& first = text.Lines().front();
    if (!m_start) {
        Report(first, {{"an event without DTSTART is not shown", ""}});
        return nullptr;
    }
    const auto start = ReadTime(*m_start, m_start->property->Value());
    if (!start) {
        Report(*m_start, {{kNotADate, Named(*m_start)}, {"the event is not shown", ""}});
        return nullptr;
    }
    m_event->start = *start;
    const std::string* zoneId = m_start->property->Find("TZID");
    m_event->startZoneId = zoneId && !start->isDate ? *zoneId : "";
    ReadEnd();
    ReadRecurrence();
    return std::move(m_event);
}

void EventReader::Report(const Line& line, std::initializer_list<Phrase> phrases)
{
    m_log.Add(line.number, phrases);
}

void EventReader::ReadLine(const Line& line)
{
    if (!line.property) {
        if (!TrimBlanks(Unfold(line.raw)).empty()) {
            Report(line, {{"%1 is not a calendar line", Quoted(Unfold(line.raw))}});
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
    if (property.hasEmptyParameter) {
        Report(line, {{"%1 has an empty parameter", property.name}});
    }
    if (property.isBroken) {
        Report(line, {{"%1 has a quotation mark that is not closed", property.name}});
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
                Report(line, {{"a second %1 is not read", property.name}});
            } else {
                this->*single.kept = &line;
            }
            return true;
        }
    }
    if (property.name == "RDATE" || property.name == "EXDATE") {
        m_dateLists.push_back(&line);
    } else if (property.name == "EXRULE") {
        m_exceptionRules.push_back(&line);
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
    } else if (name == "SEQUENCE") {
        m_event->sequence = ParseSequence(line.property->Value()).value_or(0);
    } else if (name == "CLASS") {
        const std::string_view value = TrimBlanks(line.property->Value());
        m_event->isPrivate = SameWord(value, "PRIVATE") || SameWord(value, "CONFIDENTIAL");
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
    if (IsPlainText(value)) {
        return isList ? std::string(value) : UnescapeText(value); // may have line breaks now, and nothing worse
    }
    if (!IsUtf8(value)) {
        Report(line, {{"%1 is not valid UTF-8", line.property->name},
                      {"its broken bytes are shown as replacement marks", ""}});
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
        if (!time.zone && m_reportedZones.insert(*id).second) {
            Report(line, {{"the time zone %1 is not defined", Quoted(*id)}, {"its times are taken as they stand", ""}});
        }
    }
    return time;
}

void EventReader::ReadEnd()
{
    Event& event = *m_event;
    event.duration.days = event.IsAllDay() ? 1 : 0;
    const Line* line = m_end ? m_end : m_duration;
    if (!line) {
        return;
    }
    const std::string what = Named(*line);
    if (m_end) {
        const auto end = ParseTime(line->property->Value());
        if (end && end->isDate != event.IsAllDay()) {
            Report(*line, {{"%1 does not fit the form of DTSTART", what}});
            return;
        }
    }
    const auto duration = m_end ? DurationToEnd() : ParseDuration(line->property->Value());
    if (!duration) {
        Report(*line, {{m_end ? kNotADate : "%1 is not a duration", what}});
    } else if (duration->Total() < 0) {
        Report(*line, {{m_end ? "%1 lies before DTSTART and is not used" : "%1 is negative", what}});
    } else if (event.IsAllDay()) {
        // A date that ends where it begins is written by many for one day.
        event.duration.days = std::max((duration->Total() + kDaySeconds - 1) / kDaySeconds, std::int64_t(1));
    } else {
        event.duration = *duration;
    }
    const std::int64_t longest = kEndOfTime - event.start.wall;
    event.duration.days = std::min(event.duration.days, longest / kDaySeconds);
    event.duration.seconds = std::min(event.duration.seconds, longest - event.duration.days * kDaySeconds);
}

// DTEND gives an exact length.
std::optional<Duration> EventReader::DurationToEnd()
{
    auto end = ReadTime(*m_end, m_end->property->Value());
    if (!end) {
        return std::nullopt;
    }
    const EventTime& start = m_event->start;
    if (!start.zone || !end->zone) { // what one of them lacks is taken from the other
        end->zone = start.zone;
    }
    const LocalTime begin = start.Instant();
    if (end->Instant() < begin && end->zone) { // in an hour that comes twice the second one may be meant
        return Duration{0, end->zone->LaterUtcOfWall(end->wall) - begin};
    }
    return Duration{0, end->Instant() - begin};
}

void EventReader::ReadReplaced()
{
    const Property& property = *m_replaces->property;
    Event& event = *m_event;
    event.replaces = ReadTime(*m_replaces, property.Value());
    const std::string* range = property.Find("RANGE");
    if (!event.replaces) {
        Report(*m_replaces, {{kNotADate, Named(*m_replaces)}});
    } else if (range && SameWord(*range, "THISANDFUTURE")) {
        event.changesFollowing = true;
    } else if (range) {
        Report(*m_replaces,
               {{"%1 is not understood", "RANGE=" + Quoted(*range)}, {"only this one occurrence is changed", ""}});
    }
}

void EventReader::ReadRecurrence()
{
    Event& event = *m_event;
    if (m_replaces) {
        ReadReplaced();
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
    for (const Line* line : m_exceptionRules) {
        ReadExceptionRule(*line);
    }
    if (event.IsRecurrent() && event.duration.Total() > kMaxRepeatedDays * kDaySeconds) {
        Report(*m_start, {{"a repeated event of more than a year is shown as one year long", ""}});
        event.duration = {kMaxRepeatedDays, 0};
    }
}

bool EventReader::FitToEvent(RecurrenceRule& rule) const
{
    if (m_event->IsAllDay()) { // parts of the clock mean nothing to days
        rule.byHour.clear();
        rule.byMinute.clear();
        rule.bySecond.clear();
    }
    return !m_event->IsAllDay() || rule.frequency >= Frequency::Daily;
}

void EventReader::ReadUntil(RecurrenceRule& rule) const
{
    const Event& event = *m_event;
    if (rule.until) {
        const LocalTime wall =
            ConvertWall(rule.until->wall, rule.until->isUtc ? TimeZone::Utc() : event.start.zone, event.start.zone);
        // A date lasts to its end, and for all-day events only the day counts.
        rule.lastStart = rule.until->isDate || event.IsAllDay() ? (DayOfTime(wall) + 1) * kDaySeconds - 1 : wall;
    }
}

void EventReader::ReadRule()
{
    Event& event = *m_event;
    event.ruleText = TrimBlanks(m_rule->property->Value());
    RuleReading reading = ParseRule(event.ruleText);
    if (reading.rule && !FitToEvent(*reading.rule)) {
        reading = {std::nullopt, kWithinADay};
    }
    if (!reading.rule) {
        Report(*m_rule, {kRule, reading.problem, {"the event is shown once", ""}});
        event.hasUnreadRule = true;
        return;
    }
    if (!reading.problem.IsEmpty()) {
        Report(*m_rule, {kRule, reading.problem});
    }
    RecurrenceRule& rule = *reading.rule;
    ReadUntil(rule);
    if (!LimitByCount(rule, event.start.wall, m_countingSteps)) {
        Report(*m_rule, {kRule, kTooFar, {"the event is taken to repeat without end", ""}});
    }
    if (RepeatsWithinDays(rule)) {
        std::size_t inFirstYear = 0;
        const LocalTime start = event.start.wall;
        const auto count = [&](LocalTime) { return ++inFirstYear < kMaxOccurrencesOfEvent; };
        m_countingSteps -= ExpandRule(rule, start, start, start + kMaxRepeatedDays * kDaySeconds, count,
                                      std::max<std::int64_t>(m_countingSteps, 0));
        if (inFirstYear == kMaxOccurrencesOfEvent) {
            Report(*m_rule, {kRule,
                             {"the event repeats so often that of a range only the first %1 occurrences are shown",
                              std::to_string(kMaxOccurrencesOfEvent)}});
        }
    }
    event.rule = std::move(rule);
}

void EventReader::ReadExceptionRule(const Line& line)
{
    RuleReading reading = ParseRule(line.property->Value());
    if (reading.rule && !FitToEvent(*reading.rule)) {
        reading = {std::nullopt, kWithinADay};
    }
    if (!reading.rule) {
        Report(line, {kExceptionRule, reading.problem, {"what it excludes is shown", ""}});
        return;
    }
    reading.rule->givesStart = false;
    ReadUntil(*reading.rule);
    if (!LimitByCount(*reading.rule, m_event->start.wall, m_countingSteps)) {
        Report(line, {kExceptionRule, kTooFar, {"it is taken to exclude without end", ""}});
    }
    m_event->exceptionRules.push_back(std::move(*reading.rule));
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
            Report(line, {{kNotADate, "RDATE " + Quoted(piece)}});
            continue;
        }
        FurtherDate further;
        further.wall = ConvertWall(start->wall, start->zone, event.start.zone);
        if (slash < piece.size() && !event.IsAllDay()) {
            further.duration = PeriodLength(line, *start, piece.substr(slash + 1));
            if (!further.duration) {
                Report(line, {{"%1 has no readable end", "RDATE " + Quoted(piece)}});
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

// The length of a PERIOD whose end is a time or a duration.
std::optional<Duration> EventReader::PeriodLength(const Line& line, const EventTime& start, std::string_view endText)
{
    const auto end = ReadTime(line, endText);
    const auto duration = end ? std::optional<Duration>({0, end->Instant() - start.Instant()}) : ParseDuration(endText);
    const bool fits = duration && duration->Total() >= 0 && duration->Total() <= kMaxRepeatedDays * kDaySeconds;
    return fits ? duration : std::nullopt;
}

void EventReader::ReadExceptions(const Line& line)
{
    for (const std::string_view piece : SplitAt(line.property->Value(), ',')) {
        const auto time = ReadTime(line, piece);
        if (!time) {
            Report(line, {{kNotADate, "EXDATE " + Quoted(piece)}});
        } else if (time->isDate || m_event->IsAllDay()) {
            m_event->exceptionDays.push_back(DayOfTime(time->wall));
        } else {
            m_event->exceptions.push_back(ConvertWall(time->wall, time->zone, m_event->start.zone));
        }
    }
}

} // namespace dayvane::ical
