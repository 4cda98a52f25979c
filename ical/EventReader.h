#pragma once

#include "ComponentText.h"
#include "Event.h"
#include "Messages.h"
#include "TimeZone.h"

#include <memory>
#include <set>
#include <string>

namespace dayvane::ical {

// Reads VEVENT components. What it cannot read it tells and leaves out; a zone that nobody defines is told once, and
// times in it are taken as they stand.
class EventReader
{
public:
    // A repeated event that lasts longer is shown as long as this.
    static constexpr std::int64_t kMaxRepeatedDuration = 366 * kDaySeconds;

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
    void ReadRecurrence();
    void ReadRule();
    void ReadFurtherDates(const Line& line);
    void ReadExceptions(const Line& line);
    void Tell(const Line& line, const std::string& text);

    const ZoneTable& m_zones;
    MessageLog& m_log;
    std::set<std::string> m_toldZones;
    std::int64_t m_countingSteps = kCountingSteps;

    // Of the event that is being read.
    std::shared_ptr<Event> m_event;
    const Line* m_start = nullptr;
    const Line* m_end = nullptr;
    const Line* m_duration = nullptr;
    const Line* m_rule = nullptr;
    const Line* m_replaces = nullptr;
    std::vector<const Line*> m_dateLists; // RDATE and EXDATE
};

} // namespace dayvane::ical
