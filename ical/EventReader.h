#pragma once

#include "ComponentText.h"
#include "Event.h"
#include "Messages.h"
#include "TimeZone.h"

#include <memory>
#include <set>
#include <string>

namespace dayvane::ical {

// Reads VEVENT components. What it cannot read it reports and leaves out; a zone that nobody defines is reported once,
// and times in it are taken as they stand.
class EventReader
{
public:
    // A repeated event that lasts longer is shown as long as this.
    static constexpr std::int64_t kMaxRepeatedDays = 366;

    EventReader(const ZoneTable& zones, MessageLog& log) : m_zones(zones), m_log(log) {}

    // nullptr if the component has no readable DTSTART. The result's `id` is not set.
    std::shared_ptr<Event> Read(const ComponentText& text, int calendar);

private:
    using Line = ComponentText::Line;

    // Takes the value of a text property, repairing it.
    std::string TextOf(const Line& line, bool isList = false);
    std::optional<EventTime> ReadTime(const Line& line, std::string_view value);
    void ReadLine(const Line& line);
    bool KeepForLater(const Line& line);
    void ReadTexts(const Line& line);
    void ReadEnd();
    std::optional<Duration> DurationToEnd();
    void ReadRecurrence();
    void ReadReplaced();
    void ReadRule();
    void ReadExceptionRule(const Line& line);
    // False for a rule that events of this kind cannot have.
    bool FitToEvent(RecurrenceRule& rule) const;
    void ReadUntil(RecurrenceRule& rule) const;
    void ReadFurtherDates(const Line& line);
    std::optional<Duration> PeriodLength(const Line& line, const EventTime& start, std::string_view endText);
    void ReadExceptions(const Line& line);
    void Report(const Line& line, std::initializer_list<Phrase> phrases);

    const ZoneTable& m_zones;
    MessageLog& m_log;
    std::set<std::string> m_reportedZones;
    std::int64_t m_countingSteps = kCountingSteps;

    // Of the event that is being read.
    std::shared_ptr<Event> m_event;
    const Line* m_start = nullptr;
    const Line* m_end = nullptr;
    const Line* m_duration = nullptr;
    const Line* m_rule = nullptr;
    const Line* m_replaces = nullptr;
    std::vector<const Line*> m_dateLists; // RDATE and EXDATE
    std::vector<const Line*> m_exceptionRules;
};

// The value of SEQUENCE; nothing for anything but a plain number.
std::optional<std::int64_t> ParseSequence(std::string_view text);

} // namespace dayvane::ical
