#include "planner/EventForm.h"

#include "planner/TypedDate.h"
#include "planner/Words.h"

#include <algorithm>

namespace planner {

namespace {

void PutTimes(EventForm& form, const EventTimes& times)
{
    form.isAllDay = times.isAllDay;
    form.aboutDay = DayOfTime(times.start);
    form.startDate = DateText(DayOfTime(times.start));
    form.endDate = DateText(DayOfTime(times.isAllDay ? std::max(times.end - 1, times.start) : times.end));
    form.startTime = times.isAllDay ? "9:00" : ClockText(times.start);
    form.endTime = times.isAllDay ? "10:00" : ClockText(times.end);
}

std::optional<DayNumber> DayIn(const std::string& text, DayNumber shown)
{
    return ParseTypedDate(text, {shown, shown, 1});
}

// What stands in the other fields helps to read a date that is short.
DayNumber AnyDay(const EventForm& form)
{
    return DayIn(form.startDate, form.aboutDay).value_or(DayIn(form.endDate, form.aboutDay).value_or(form.aboutDay));
}

template <class T>
void PutChange(std::optional<T>& change, const T& before, const T& after)
{
    if (before != after) {
        change = after;
    }
}

} // namespace

EventForm FormOf(const Occurrence& occurrence)
{
    const Event& event = *occurrence.event;
    EventForm form;
    form.title = event.summary;
    form.place = event.location;
    form.notes = event.description;
    for (const std::string& category : event.categories) {
        form.category += (form.category.empty() ? "" : ", ") + category;
    }
    PutTimes(form, occurrence.times);
    form.zone = event.start.zone && event.start.zone == TimeZone::Utc() ? event.start.zone->Id() : event.startZoneId;
    form.rule = RuleFormOf(event.replaces ? std::string() : event.ruleText,
                           event.IsRecurrent() ? event.start.wall : occurrence.times.start, event.start.zone);
    form.reminders = RemindersOf(event);
    form.isBusy = !event.isTransparent;
    form.isPrivate = event.isPrivate;
    return form;
}

EventForm NewForm(const EventTimes& times, const std::string& zone)
{
    EventForm form;
    PutTimes(form, times);
    form.zone = zone;
    form.rule = RuleFormOf("", times.start, nullptr);
    return form;
}

EventTimes TimesOf(const EventForm& form, std::vector<FormProblem>& problems)
{
    const DayNumber about = AnyDay(form);
    const auto startDay = DayIn(form.startDate, about);
    const auto endDay = DayIn(form.endDate, startDay.value_or(about));
    const std::string noDate = Tr("This is no date: 2026-11-24, 24.11 or next friday are");
    if (!startDay) {
        problems.push_back({FormField::StartDate, noDate});
    }
    if (!endDay) {
        problems.push_back({FormField::EndDate, noDate});
    }
    EventTimes times;
    times.isAllDay = form.isAllDay;
    LocalTime startClock = 0, endClock = kDaySeconds;
    if (!form.isAllDay) {
        const std::string noTime = Tr("This is no time of day: 9:30 or 17:00 are");
        const auto from = ParseTypedClock(form.startTime), to = ParseTypedClock(form.endTime);
        if (!from) {
            problems.push_back({FormField::StartTime, noTime});
        }
        if (!to) {
            problems.push_back({FormField::EndTime, noTime});
        }
        startClock = from.value_or(0);
        endClock = to.value_or(startClock);
    }
    times.start = startDay.value_or(about) * kDaySeconds + startClock;
    times.end = endDay.value_or(about) * kDaySeconds + endClock;
    if (problems.empty() && times.end < times.start) {
        const bool isSameDay = !form.isAllDay && startDay == endDay;
        problems.push_back({isSameDay ? FormField::EndTime : FormField::EndDate, Tr("It ends before it begins")});
    }
    return times;
}

std::vector<FormProblem> ProblemsOf(const EventForm& form)
{
    constexpr int most = 999;
    std::vector<FormProblem> problems;
    const EventTimes times = TimesOf(form, problems);
    const RuleForm& rule = form.rule;
    const bool repeats = rule.kind != RuleForm::Kind::None && rule.kind != RuleForm::Kind::Other;
    if (repeats && (rule.interval < 1 || rule.interval > most)) {
        problems.push_back({FormField::Rule, Tr("The interval is a number from 1 to 999")});
    } else if (repeats && rule.end == RuleForm::End::Count && (rule.count < 1 || rule.count > most)) {
        problems.push_back({FormField::Rule, Tr("The number of times is from 1 to 999")});
    } else if (repeats && rule.end == RuleForm::End::Until && rule.until < DayOfTime(times.start)) {
        problems.push_back({FormField::Rule, Tr("The repetition ends before it begins")});
    }
    return problems;
}

EventChanges ChangesOf(const EventForm& before, const EventForm& after, const ZonePtr& zone)
{
    EventChanges changes;
    PutChange(changes.summary, before.title, after.title);
    PutChange(changes.location, before.place, after.place);
    PutChange(changes.description, before.notes, after.notes);
    PutChange(changes.reminders, before.reminders, after.reminders);
    PutChange(changes.isPrivate, before.isPrivate, after.isPrivate);
    PutChange(changes.zone, before.zone, after.zone);
    if (before.isBusy != after.isBusy) {
        changes.isTransparent = !after.isBusy;
    }
    if (before.category != after.category) {
        std::vector<std::string> categories;
        for (std::size_t at = 0; at <= after.category.size();) {
            const std::size_t end = std::min(after.category.find(',', at), after.category.size());
            const std::size_t from = std::min(after.category.find_first_not_of(' ', at), end);
            const std::string name = after.category.substr(from, end - from);
            if (!name.empty()) {
                categories.push_back(name);
            }
            at = end + 1;
        }
        changes.categories = categories;
    }
    std::vector<FormProblem> none;
    const EventTimes was = TimesOf(before, none), now = TimesOf(after, none);
    if (!(was == now)) {
        changes.times = now;
    }
    if (before.rule != after.rule) {
        changes.rule = RuleTextOf(after.rule, now, zone);
    }
    return changes;
}

bool IsEmpty(const EventChanges& changes)
{
    return !changes.times && !changes.summary && !changes.location && !changes.description && !changes.categories &&
           !changes.isTransparent && !changes.isPrivate && !changes.rule && !changes.reminders && !changes.zone;
}

void KeepLength(const EventForm& before, EventForm& form)
{
    std::vector<FormProblem> problems;
    const EventTimes was = TimesOf(before, problems);
    EventForm moved = form;
    moved.endDate = moved.startDate;
    moved.endTime = moved.startTime;
    const EventTimes start = TimesOf(moved, problems);
    if (!problems.empty()) {
        return;
    }
    const LocalTime length = was.end - was.start;
    const LocalTime end = start.start + length;
    form.endDate = DateText(DayOfTime(form.isAllDay ? std::max(end - 1, start.start) : end));
    if (!form.isAllDay) {
        form.endTime = ClockText(end);
    }
}

std::string ReminderText(std::int64_t seconds)
{
    const auto text = [](std::int64_t count, const char* one, const char* many) {
        return count == 1 ? Tr(one) : Tr(many, std::to_string(count));
    };
    if (seconds == 0) {
        return Tr("at the start");
    }
    if (seconds % (kWeekDays * kDaySeconds) == 0) {
        return text(seconds / (kWeekDays * kDaySeconds), "1 week before", "%1 weeks before");
    }
    if (seconds % kDaySeconds == 0) {
        return text(seconds / kDaySeconds, "1 day before", "%1 days before");
    }
    if (seconds % kHourSeconds == 0) {
        return text(seconds / kHourSeconds, "1 hour before", "%1 hours before");
    }
    return text(seconds / kMinuteSeconds, "1 minute before", "%1 minutes before");
}

const std::vector<std::int64_t>& OfferedReminders()
{
    static const std::vector<std::int64_t> offered = {0,
                                                      5 * kMinuteSeconds,
                                                      10 * kMinuteSeconds,
                                                      15 * kMinuteSeconds,
                                                      30 * kMinuteSeconds,
                                                      kHourSeconds,
                                                      2 * kHourSeconds,
                                                      kDaySeconds,
                                                      2 * kDaySeconds,
                                                      kWeekDays * kDaySeconds};
    return offered;
}

} // namespace planner
