#include "planner/RuleForm.h"

#include "planner/TypedDate.h"
#include "planner/Words.h"

#include <algorithm>
#include <vector>

namespace planner {

namespace {

constexpr std::string_view kDayCodes[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
constexpr const char* kDayNames[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr const char* kMonthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                       "July",    "August",   "September", "October", "November", "December"};
constexpr const char* kOrdinals[] = {"", "first", "second", "third", "fourth", "fifth"};
constexpr int kLastOrdinal = -1;

int WeekdayOf(LocalTime start)
{
    return WeekdayOfDay(DayOfTime(start));
}

int OrdinalOf(LocalTime start)
{
    return (DateOfDay(DayOfTime(start)).day - 1) / kWeekDays + 1;
}

bool HasUnusualParts(const RecurrenceRule& rule)
{
    return !rule.byYearDay.empty() || !rule.byWeekNo.empty() || !rule.bySetPos.empty() || !rule.byHour.empty() ||
           !rule.byMinute.empty() || !rule.bySecond.empty();
}

// Whether the rule names at most the month and day that its start has.
bool IsOnStartDay(const RecurrenceRule& rule, LocalTime start)
{
    const CivilDate date = DateOfDay(DayOfTime(start));
    return (rule.byMonth.empty() || rule.byMonth == std::vector<int>{date.month}) &&
           (rule.byMonthDay.empty() || rule.byMonthDay == std::vector<int>{date.day});
}

RuleForm::Kind KindOf(const RecurrenceRule& rule, LocalTime start, std::array<bool, 7>& weekdays)
{
    using Kind = RuleForm::Kind;
    constexpr int monday = 1;
    const bool isPlain = rule.byDay.empty() && rule.byMonth.empty() && rule.byMonthDay.empty();
    if (HasUnusualParts(rule)) {
        return Kind::Other;
    }
    switch (rule.frequency) {
    case Frequency::Daily:
        return isPlain ? Kind::Daily : Kind::Other;
    case Frequency::Weekly:
        for (const RuleWeekday& day : rule.byDay) {
            weekdays[static_cast<std::size_t>(day.weekday)] = true;
        }
        weekdays[static_cast<std::size_t>(WeekdayOf(start))] = weekdays[WeekdayOf(start)] || rule.byDay.empty();
        return rule.byMonth.empty() && rule.byMonthDay.empty() && weekdays[WeekdayOf(start)] &&
                       (rule.interval == 1 || rule.weekStart == monday)
                   ? Kind::Weekly
                   : Kind::Other;
    case Frequency::Monthly:
        if (rule.byDay.empty()) {
            return rule.byMonth.empty() && IsOnStartDay(rule, start) ? Kind::MonthlyByDay : Kind::Other;
        }
        if (rule.byDay.size() == 1 && rule.byMonth.empty() && rule.byMonthDay.empty() &&
            rule.byDay[0].weekday == WeekdayOf(start)) {
            return rule.byDay[0].ordinal == OrdinalOf(start) ? Kind::MonthlyByWeekday
                   : rule.byDay[0].ordinal == kLastOrdinal   ? Kind::MonthlyByLast
                                                             : Kind::Other;
        }
        return Kind::Other;
    case Frequency::Yearly:
        return rule.byDay.empty() && IsOnStartDay(rule, start) && (rule.byMonthDay.empty() || !rule.byMonth.empty())
                   ? Kind::Yearly
                   : Kind::Other;
    default:
        return Kind::Other;
    }
}

std::string Unit(RuleForm::Kind kind, int interval)
{
    const char* const one = kind == RuleForm::Kind::Daily    ? "Every day"
                            : kind == RuleForm::Kind::Weekly ? "Every week"
                            : kind == RuleForm::Kind::Yearly ? "Every year"
                                                             : "Every month";
    const char* const many = kind == RuleForm::Kind::Daily    ? "Every %1 days"
                             : kind == RuleForm::Kind::Weekly ? "Every %1 weeks"
                             : kind == RuleForm::Kind::Yearly ? "Every %1 years"
                                                              : "Every %1 months";
    return interval == 1 ? Tr(one) : Tr(many, std::to_string(interval));
}

std::string WeekdaysText(const std::array<bool, 7>& weekdays)
{
    std::vector<std::string> names;
    for (int i = 1; i <= kWeekDays; ++i) { // from Monday
        if (weekdays[static_cast<std::size_t>(i % kWeekDays)]) {
            names.push_back(Tr(kDayNames[i % kWeekDays]));
        }
    }
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += (i == 0 ? "" : i + 1 == names.size() ? Tr(" and ") : Tr(", ")) + names[i];
    }
    return text;
}

std::string WhenText(const RuleForm& form, LocalTime start)
{
    const CivilDate date = DateOfDay(DayOfTime(start));
    switch (form.kind) {
    case RuleForm::Kind::Weekly:
        return Tr(" on %1", WeekdaysText(form.weekdays));
    case RuleForm::Kind::MonthlyByDay:
        return Tr(" on day %1", std::to_string(date.day));
    case RuleForm::Kind::MonthlyByWeekday:
        return Tr(" on the %1 %2", Tr(kOrdinals[OrdinalOf(start)]), Tr(kDayNames[WeekdayOf(start)]));
    case RuleForm::Kind::MonthlyByLast:
        return Tr(" on the %1 %2", Tr("last"), Tr(kDayNames[WeekdayOf(start)]));
    case RuleForm::Kind::Yearly:
        return Tr(" on %1 %2", Tr(kMonthNames[date.month - 1]), std::to_string(date.day));
    default:
        return "";
    }
}

} // namespace

bool RuleForm::operator==(const RuleForm& rhs) const
{
    const bool sameEnd =
        end == rhs.end && (end != End::Count || count == rhs.count) && (end != End::Until || until == rhs.until);
    if (kind != rhs.kind || kind == Kind::None || kind == Kind::Other) {
        return kind == rhs.kind && other == rhs.other;
    }
    return interval == rhs.interval && sameEnd && (kind != Kind::Weekly || weekdays == rhs.weekdays);
}

RuleForm RuleFormOf(std::string_view rule, LocalTime start, const ZonePtr& zone)
{
    RuleForm form;
    if (rule.empty()) {
        form.weekdays[static_cast<std::size_t>(WeekdayOf(start))] = true;
        form.until = DayOfTime(start);
        return form;
    }
    const auto read = ParseRule(rule).rule;
    constexpr std::int64_t most = 999;
    form.kind = read && read->interval <= most && read->count.value_or(1) <= most ? KindOf(*read, start, form.weekdays)
                                                                                  : RuleForm::Kind::Other;
    if (form.kind == RuleForm::Kind::Other) {
        form.other = rule;
        return form;
    }
    form.interval = static_cast<int>(read->interval);
    form.weekdays[static_cast<std::size_t>(WeekdayOf(start))] = true;
    form.until = DayOfTime(start);
    if (read->count) {
        form.end = RuleForm::End::Count;
        form.count = static_cast<int>(*read->count);
    } else if (read->until) {
        form.end = RuleForm::End::Until;
        form.until = DayOfTime(read->until->isUtc ? WallOf(read->until->wall, zone) : read->until->wall);
    }
    return form;
}

std::string RuleTextOf(const RuleForm& form, const EventTimes& times, const ZonePtr& zone)
{
    std::string text;
    switch (form.kind) {
    case RuleForm::Kind::None:
        return "";
    case RuleForm::Kind::Other:
        return form.other;
    case RuleForm::Kind::Daily:
        text = "FREQ=DAILY";
        break;
    case RuleForm::Kind::Weekly:
        text = "FREQ=WEEKLY";
        break;
    case RuleForm::Kind::Yearly:
        text = "FREQ=YEARLY";
        break;
    default:
        text = "FREQ=MONTHLY";
        break;
    }
    text += form.interval == 1 ? "" : ";INTERVAL=" + std::to_string(form.interval);
    const std::string weekday(kDayCodes[WeekdayOf(times.start)]);
    if (form.kind == RuleForm::Kind::Weekly) {
        std::string days;
        for (int i = 1; i <= kWeekDays; ++i) {
            if (form.weekdays[static_cast<std::size_t>(i % kWeekDays)]) {
                days += (days.empty() ? "" : ",") + std::string(kDayCodes[i % kWeekDays]);
            }
        }
        text += days.empty() ? "" : ";BYDAY=" + days;
    } else if (form.kind == RuleForm::Kind::MonthlyByWeekday) {
        text += ";BYDAY=" + std::to_string(OrdinalOf(times.start)) + weekday;
    } else if (form.kind == RuleForm::Kind::MonthlyByLast) {
        text += ";BYDAY=-1" + weekday;
    } else if (form.kind == RuleForm::Kind::MonthlyByDay) {
        text += ";BYMONTHDAY=" + std::to_string(DateOfDay(DayOfTime(times.start)).day);
    }
    if (form.end == RuleForm::End::Count) {
        text += ";COUNT=" + std::to_string(form.count);
    } else if (form.end == RuleForm::End::Until) {
        const LocalTime last = (form.until + 1) * kDaySeconds - 1;
        const WrittenTime until = times.isAllDay ? WrittenTime{form.until * kDaySeconds, true, false}
                                  : zone         ? WrittenTime{InstantOf(last, zone), false, true}
                                                 : WrittenTime{last, false, false};
        text += ";UNTIL=" + FormatTime(until);
    }
    return text;
}

std::string RuleSentence(const RuleForm& form, LocalTime start)
{
    if (form.kind == RuleForm::Kind::None) {
        return Tr("Does not repeat");
    }
    if (form.kind == RuleForm::Kind::Other) {
        return Tr("Repeats by a rule of its own, which is kept: %1", form.other);
    }
    std::string text = Unit(form.kind, form.interval) + WhenText(form, start);
    if (form.end == RuleForm::End::Count) {
        text += form.count == 1 ? Tr(", once") : Tr(", %1 times", std::to_string(form.count));
    } else if (form.end == RuleForm::End::Until) {
        text += Tr(", until %1", DateText(form.until));
    }
    return text;
}

} // namespace planner
