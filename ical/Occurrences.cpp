#include "ical/Occurrences.h"

#include <algorithm>
#include <tuple>

namespace dayvane::ical {

namespace {

// Clocks of two zones are never further apart; one day more for windows that begin inside a day.
constexpr std::int64_t kMaxClockDistance = 3 * kDaySeconds;
// Nor is a clock ever set back by more at once.
constexpr std::int64_t kMaxSetBack = 3 * kHourSeconds;

// How the occurrences from `from` on differ from what the series says: RANGE=THISANDFUTURE.
struct Shape
{
    LocalTime from = 0; // on the series' clock
    EventTime start;    // of the event that says so
    EventTime original; // and the start that it had by the series
    Duration duration;
    EventPtr look; // that event, repeating as the series does
};

class Expander
{
public:
    Expander(const EventPtr& event, const Replacements& replacements, const ZonePtr& displayZone)
        : m_event(event), m_displayZone(displayZone)
    {
        const std::vector<EventPtr>* others = event->replaces ? nullptr : replacements.Of(*event);
        if (!others) {
            return;
        }
        for (const EventPtr& other : *others) {
            const EventTime& time = *other->replaces;
            if (time.isDate || event->IsAllDay()) {
                m_replacedDays.push_back(DayOfTime(time.wall));
            } else {
                m_replacedWalls.push_back(ConvertWall(time.wall, time.zone, event->start.zone));
            }
            if (other->changesFollowing && !replacements.IsSuperseded(other->id)) {
                AddShape(*other);
            }
        }
        std::sort(m_replacedDays.begin(), m_replacedDays.end());
        std::sort(m_replacedWalls.begin(), m_replacedWalls.end());
        std::stable_sort(m_shapes.begin(), m_shapes.end(),
                         [](const Shape& a, const Shape& b) { return a.from < b.from; });
    }

    Occurrence At(LocalTime wall, const Duration& duration) const
    {
        const Shape* shape = ShapeAt(wall);
        EventTime start = m_event->start;
        start.wall = wall;
        Duration length = duration;
        if (shape) {
            const LocalTime onItsClock = ConvertWall(wall, m_event->start.zone, shape->start.zone);
            const LocalTime before = ConvertWall(shape->original.wall, shape->original.zone, shape->start.zone);
            start = shape->start;
            start.wall += onItsClock - before;
            start.wall = start.isDate ? DayOfTime(start.wall) * kDaySeconds : start.wall;
            length = shape->duration;
        }
        const ZonePtr& clock = start.zone && m_displayZone ? m_displayZone : start.zone;
        Occurrence occurrence;
        occurrence.event = shape ? shape->look : m_event;
        occurrence.id.event = m_event->id;
        occurrence.id.original = m_event->IsRecurrent() ? wall : OccurrenceId::kNotRepeated;
        occurrence.startInstant = start.Instant();
        occurrence.elapsed = EndInstant(start.wall, start.zone, length) - occurrence.startInstant;
        occurrence.times.start = ClampTime(WallOf(occurrence.startInstant, clock));
        occurrence.times.end = ClampTime(WallOf(occurrence.EndInstant(), clock));
        occurrence.times.end = std::max(occurrence.times.end, occurrence.times.start);
        occurrence.times.isAllDay = start.isDate;
        return occurrence;
    }

    // Calls use(wall, duration) for the occurrences that begin in [from, to) on the event's clock: those of the rule
    // until it returns false, then those of the further dates. False when it did, and when the rule was given up.
    template <typename Use>
    bool ForEach(LocalTime from, LocalTime to, Use use) const
    {
        bool isWhole = true;
        const auto useRule = [&](LocalTime wall) {
            isWhole = IsLeftOut(wall) || use(wall, m_event->duration);
            return isWhole;
        };
        if (m_event->rule) {
            const std::int64_t steps = ExpandRule(*m_event->rule, m_event->start.wall, from, to, useRule);
            isWhole = isWhole && steps < kExpansionSteps;
        } else if (m_event->start.wall >= from && m_event->start.wall < to) {
            useRule(m_event->start.wall);
        }
        LocalTime before = OccurrenceId::kNotRepeated;
        for (const FurtherDate& further : m_event->furtherDates) {
            const LocalTime wall = further.wall;
            if (wall != before && wall >= from && wall < to && !IsGivenByRule(wall) && !IsLeftOut(wall)) {
                isWhole = use(wall, further.duration.value_or(m_event->duration)) && isWhole;
            }
            before = wall;
        }
        return isWhole;
    }

    // How long an occurrence lasts at most, seconds.
    std::int64_t LongestDuration() const
    {
        std::int64_t longest = m_event->duration.Total();
        for (const FurtherDate& further : m_event->furtherDates) {
            longest = std::max(longest, further.duration ? further.duration->Total() : 0);
        }
        for (const Shape& shape : m_shapes) {
            longest = std::max(longest, shape.duration.Total());
        }
        return longest;
    }

    // How far from where the series has it an occurrence begins at most, seconds.
    std::int64_t LongestShift() const
    {
        std::int64_t longest = 0;
        for (const Shape& shape : m_shapes) {
            longest = std::max(longest, std::abs(shape.start.wall - shape.original.wall) + kMaxClockDistance);
        }
        return longest;
    }

private:
    void AddShape(const Event& other)
    {
        Shape shape;
        shape.from = OriginalStart(*other.replaces, m_event->start);
        shape.start = other.start;
        shape.original = {shape.from, m_event->start.zone, m_event->start.isDate};
        shape.duration = other.duration;
        auto look = std::make_shared<Event>(other);
        look->rule = m_event->rule;
        look->furtherDates = m_event->furtherDates;
        look->replaces.reset();
        shape.look = std::move(look);
        m_shapes.push_back(std::move(shape));
    }

    const Shape* ShapeAt(LocalTime wall) const
    {
        const auto after = std::upper_bound(m_shapes.begin(), m_shapes.end(), wall,
                                            [](LocalTime time, const Shape& shape) { return time < shape.from; });
        return after == m_shapes.begin() ? nullptr : &*std::prev(after);
    }

    bool IsGivenByRule(LocalTime wall) const
    {
        const LocalTime start = m_event->start.wall;
        return m_event->rule ? IsStartOf(*m_event->rule, start, wall) : wall == start;
    }

    bool IsLeftOut(LocalTime wall) const
    {
        if (m_event->replaces) {
            return false;
        }
        const auto has = [](const auto& sorted, auto value) {
            return std::binary_search(sorted.begin(), sorted.end(), value);
        };
        const DayNumber day = DayOfTime(wall);
        return has(m_event->exceptions, wall) || has(m_event->exceptionDays, day) || has(m_replacedWalls, wall) ||
               has(m_replacedDays, day) ||
               std::any_of(m_event->exceptionRules.begin(), m_event->exceptionRules.end(),
                           [&](const RecurrenceRule& rule) { return IsStartOf(rule, m_event->start.wall, wall); });
    }

    const EventPtr& m_event;
    ZonePtr m_displayZone;
    std::vector<LocalTime> m_replacedWalls;
    std::vector<DayNumber> m_replacedDays;
    std::vector<Shape> m_shapes; // ascending
};

// Far from the window; so much is known of single events without any zone.
bool IsFarFrom(const Event& event, LocalTime from, LocalTime to)
{
    return !event.IsRecurrent() && (event.start.wall >= to + kMaxClockDistance ||
                                    event.start.wall + event.duration.Total() < from - kMaxClockDistance);
}

} // namespace

DayNumber Occurrence::LastDay() const
{
    return DayOfTime(std::max(times.start, times.end - 1));
}

void Replacements::Add(const EventPtr& event)
{
    if (event->replaces && !event->uid.empty()) {
        m_bySeries[{event->calendar, event->uid}].push_back(event);
    }
}

void Replacements::Settle()
{
    for (auto& [series, events] : m_bySeries) {
        const auto key = [](const EventPtr& event) {
            return std::make_tuple(event->replaces->isDate, event->replaces->Instant());
        };
        std::vector<EventPtr> ordered = events;
        std::stable_sort(ordered.begin(), ordered.end(), [&](const EventPtr& a, const EventPtr& b) {
            return key(a) != key(b) ? key(a) < key(b) : a->sequence < b->sequence;
        });
        for (std::size_t i = 0; i + 1 < ordered.size(); ++i) {
            if (key(ordered[i]) == key(ordered[i + 1])) {
                m_superseded.insert(ordered[i]->id);
            }
        }
    }
}

const std::vector<EventPtr>* Replacements::Of(const Event& series) const
{
    if (m_bySeries.empty() || series.uid.empty()) {
        return nullptr;
    }
    const auto found = m_bySeries.find({series.calendar, series.uid});
    return found == m_bySeries.end() ? nullptr : &found->second;
}

bool AppendOccurrences(const EventPtr& event, const Replacements& replacements, const ZonePtr& displayZone,
                       LocalTime from, LocalTime to, std::vector<Occurrence>& occurrences)
{
    if (replacements.IsSuperseded(event->id) || IsFarFrom(*event, from, to)) {
        return true;
    }
    const Expander expander(event, replacements, displayZone);
    const ZonePtr& zone = event->start.zone;
    const ZonePtr& clock = zone && displayZone ? displayZone : zone;
    const std::int64_t margin = kMaxSetBack + expander.LongestShift();
    const LocalTime first = WallOf(InstantOf(ClampTime(from), clock), zone) - expander.LongestDuration() - margin;
    const LocalTime last = WallOf(InstantOf(ClampTime(to), clock), zone) + margin;
    std::size_t ofEvent = 0;
    return expander.ForEach(first, last, [&](LocalTime wall, const Duration& duration) {
        Occurrence occurrence = expander.At(wall, duration);
        const EventTimes& times = occurrence.times;
        if (times.start >= to || (times.end <= from && times.start < from)) {
            return true;
        }
        if (ofEvent == kMaxOccurrencesOfEvent || occurrences.size() == kMaxOccurrences) {
            return false;
        }
        ++ofEvent;
        occurrences.push_back(std::move(occurrence));
        return true;
    });
}

std::optional<Occurrence> FindOccurrence(const EventPtr& event, const Replacements& replacements,
                                         const ZonePtr& displayZone, LocalTime original)
{
    std::optional<Occurrence> found;
    const bool namesOccurrence = event->IsRecurrent() == (original != OccurrenceId::kNotRepeated);
    if (namesOccurrence && !replacements.IsSuperseded(event->id)) {
        const LocalTime wall = event->IsRecurrent() ? original : event->start.wall;
        const Expander expander(event, replacements, displayZone);
        expander.ForEach(wall, wall + 1, [&](LocalTime at, const Duration& duration) {
            found = expander.At(at, duration);
            return true;
        });
    }
    return found;
}

Occurrence OccurrenceAt(const EventPtr& event, const ZonePtr& displayZone, LocalTime original)
{
    return Expander(event, Replacements(), displayZone).At(original, event->duration);
}

std::optional<LocalTime> NextStart(const EventPtr& event, const Replacements& replacements, LocalTime from)
{
    std::optional<LocalTime> next;
    Expander(event, replacements, nullptr).ForEach(from, kEndOfTime, [&](LocalTime wall, const Duration&) {
        next = std::min(next.value_or(wall), wall);
        return false;
    });
    return next;
}

LocalTime OriginalStart(const EventTime& replaced, const EventTime& seriesStart)
{
    if (replaced.isDate && !seriesStart.isDate) { // a bare date names the occurrence of that day
        return replaced.wall + seriesStart.wall - DayOfTime(seriesStart.wall) * kDaySeconds;
    }
    const LocalTime wall = ConvertWall(replaced.wall, replaced.zone, seriesStart.zone);
    return seriesStart.isDate ? DayOfTime(wall) * kDaySeconds : wall;
}

} // namespace dayvane::ical
