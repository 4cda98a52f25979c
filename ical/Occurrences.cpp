#include "ical/Occurrences.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

// Clocks of two zones are never further apart; one day more for windows that begin inside a day.
constexpr std::int64_t kMaxClockDistance = 3 * kDaySeconds;

class Expander
{
public:
    Expander(const EventPtr& event, const ReplacedTimes& replaced, const ZonePtr& displayZone)
        : m_event(event), m_displayZone(displayZone)
    {
        const auto found =
            event->uid.empty() || event->replaces ? replaced.end() : replaced.find({event->calendar, event->uid});
        if (found != replaced.end()) {
            for (const EventTime& time : found->second) {
                const bool byDay = time.isDate || event->IsAllDay();
                const LocalTime wall = ConvertWall(time.wall, time.zone, event->start.zone);
                byDay ? m_replacedDays.push_back(DayOfTime(time.wall)) : m_replacedWalls.push_back(wall);
            }
            std::sort(m_replacedDays.begin(), m_replacedDays.end());
            std::sort(m_replacedWalls.begin(), m_replacedWalls.end());
        }
    }

    Occurrence At(LocalTime wall, std::int64_t duration) const
    {
        Occurrence occurrence;
        occurrence.event = m_event;
        occurrence.id.event = m_event->id;
        occurrence.id.original = m_event->IsRecurrent() ? wall : OccurrenceId::kNotRepeated;
        occurrence.times.start = ClampTime(ConvertWall(wall, m_event->start.zone, m_displayZone));
        occurrence.times.end = ClampTime(ConvertWall(wall + duration, m_event->start.zone, m_displayZone));
        occurrence.times.end = std::max(occurrence.times.end, occurrence.times.start);
        occurrence.times.isAllDay = m_event->IsAllDay();
        return occurrence;
    }

    // Calls use(wall, duration) for the occurrences that begin in [from, to) on the event's clock.
    template <typename Use>
    void ForEach(LocalTime from, LocalTime to, Use use) const
    {
        std::vector<LocalTime> walls; // ascending
        const auto add = [&](LocalTime wall) {
            walls.push_back(wall);
            return walls.size() < kMaxOccurrencesOfEvent;
        };
        if (m_event->rule) {
            ExpandRule(*m_event->rule, m_event->start.wall, from, to, add);
        } else if (m_event->start.wall >= from && m_event->start.wall < to) {
            add(m_event->start.wall);
        }
        for (const LocalTime wall : walls) {
            if (!IsLeftOut(wall)) {
                use(wall, m_event->duration);
            }
        }
        LocalTime before = OccurrenceId::kNotRepeated;
        for (const FurtherDate& further : m_event->furtherDates) {
            const bool isNew = further.wall != before && !std::binary_search(walls.begin(), walls.end(), further.wall);
            if (isNew && further.wall >= from && further.wall < to && !IsLeftOut(further.wall)) {
                use(further.wall, further.duration.value_or(m_event->duration));
            }
            before = further.wall;
        }
    }

private:
    bool IsLeftOut(LocalTime wall) const
    {
        const auto has = [](const auto& sorted, auto value) {
            return std::binary_search(sorted.begin(), sorted.end(), value);
        };
        const DayNumber day = DayOfTime(wall);
        return m_event->IsRecurrent() && (has(m_event->exceptions, wall) || has(m_event->exceptionDays, day) ||
                                          has(m_replacedWalls, wall) || has(m_replacedDays, day));
    }

    const EventPtr& m_event;
    ZonePtr m_displayZone;
    std::vector<LocalTime> m_replacedWalls;
    std::vector<DayNumber> m_replacedDays;
};

std::int64_t LongestDuration(const Event& event)
{
    std::int64_t longest = event.duration;
    for (const FurtherDate& further : event.furtherDates) {
        longest = std::max(longest, further.duration.value_or(0));
    }
    return longest;
}

} // namespace

DayNumber Occurrence::LastDay() const
{
    return DayOfTime(std::max(times.start, times.end - 1));
}

void AppendOccurrences(const EventPtr& event, const ReplacedTimes& replaced, const ZonePtr& displayZone, LocalTime from,
                       LocalTime to, std::vector<Occurrence>& occurrences)
{
    const Expander expander(event, replaced, displayZone);
    const LocalTime firstWall = ClampTime(from) - LongestDuration(*event) - kMaxClockDistance;
    const LocalTime lastWall = ClampTime(to) + kMaxClockDistance;
    expander.ForEach(firstWall, lastWall, [&](LocalTime wall, std::int64_t duration) {
        Occurrence occurrence = expander.At(wall, duration);
        const EventTimes& times = occurrence.times;
        if (times.start < to && (times.end > from || times.start >= from) && occurrences.size() < kMaxOccurrences) {
            occurrences.push_back(std::move(occurrence));
        }
    });
}

std::optional<Occurrence> FindOccurrence(const EventPtr& event, const ReplacedTimes& replaced,
                                         const ZonePtr& displayZone, LocalTime original)
{
    std::optional<Occurrence> found;
    if (event->IsRecurrent() == (original != OccurrenceId::kNotRepeated)) {
        const LocalTime wall = event->IsRecurrent() ? original : event->start.wall;
        const Expander expander(event, replaced, displayZone);
        expander.ForEach(wall, wall + 1,
                         [&](LocalTime at, std::int64_t duration) { found = expander.At(at, duration); });
    }
    return found;
}

} // namespace dayvane::ical
