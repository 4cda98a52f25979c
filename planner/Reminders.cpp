#include "planner/Reminders.h"

#include <algorithm>
#include <optional>

namespace planner {

namespace {

constexpr LocalTime kLookBack = kDaySeconds;
// So long before their start events are looked through for alarms, and so far a zone's clock may be from UTC.
constexpr LocalTime kLongestLead = 15 * kDaySeconds;

// The last alarm that has gone off by now.
std::optional<LocalTime> LastAlarm(const Occurrence& occurrence, LocalTime now)
{
    std::optional<LocalTime> last;
    for (const Alarm& alarm : occurrence.event->alarms) {
        const LocalTime anchor = alarm.isRelatedToEnd ? occurrence.EndInstant() : occurrence.startInstant;
        const LocalTime time = alarm.at ? *alarm.at : anchor + alarm.offset;
        const bool isDismissed = alarm.acknowledged && *alarm.acknowledged >= time;
        if (alarm.isShown && !isDismissed && time <= now && time > now - kLookBack) {
            last = std::max(last.value_or(time), time);
        }
    }
    return last;
}

} // namespace

std::vector<DueReminder> Reminders::DueAt(const CalendarSet& calendars, const PresentTime& now) const
{
    std::vector<DueReminder> due;
    const LocalTime from = now.utc - 2 * kLookBack, to = now.utc + kLongestLead;
    for (const Occurrence& each : calendars.AllOccurrencesIn(from, to)) {
        if (each.event->alarms.empty() || each.event->IsCancelled()) {
            continue;
        }
        const auto alarm = LastAlarm(each, each.event->start.zone ? now.utc : now.local);
        const auto sleeping = m_sleeping.find(each.id);
        if (alarm && (sleeping == m_sleeping.end() || sleeping->second <= now.utc)) {
            due.push_back({each, *alarm});
        }
    }
    std::stable_sort(due.begin(), due.end(),
                     [](const DueReminder& a, const DueReminder& b) { return a.alarm < b.alarm; });
    return due;
}

} // namespace planner
