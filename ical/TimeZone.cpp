#include "ical/TimeZone.h"

#include "ical/ComponentText.h"
#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr LocalTime kLastFollowedOnset = DayOfDate(2200, 1, 1) * kDaySeconds;
// For hostile rules, per observance; a yearly onset since 1601 needs 600 onsets and 1200 steps.
constexpr int kMaxOnsets = 2000;
constexpr std::int64_t kMaxSteps = 4000;

// Builds the observances of a VTIMEZONE from its lines.
class ZoneReader
{
public:
    explicit ZoneReader(MessageLog& log) : m_log(log) {}

    ZonePtr Read(std::string_view raw, int firstLine)
    {
        const ComponentText text(raw, firstLine);
        for (const ComponentText::Line& line : text.Lines()) {
            if (line.property) {
                ReadLine(*line.property, line);
            }
        }
        if (m_id.empty() || m_observances.empty()) {
            m_log.Add(firstLine, {m_id.empty() ? Phrase{"a VTIMEZONE without TZID is not used", ""}
                                               : Phrase{"%1 has no readable offsets", "VTIMEZONE " + Quoted(m_id)}});
            return nullptr;
        }
        return std::make_shared<TimeZone>(m_id, std::move(m_observances));
    }

private:
    struct Draft
    {
        std::optional<LocalTime> onset;
        std::optional<int> from, to;
        std::vector<LocalTime> further;
        std::string rule;
        int ruleLine = 0;
        int line = 0;
    };

    void ReadLine(const Property& property, const ComponentText::Line& line)
    {
        const std::string_view value = TrimBlanks(property.Value());
        if (line.depth == ComponentText::kOwnDepth && property.name == "TZID") {
            m_id = value;
        } else if (line.depth == ComponentText::kOwnDepth && property.name == "BEGIN") {
            m_draft = Draft{};
            m_draft->line = line.number;
        } else if (line.depth == ComponentText::kOwnDepth && property.name == "END") {
            Finish();
        } else if (line.depth == ComponentText::kOwnDepth + 1 && m_draft) {
            ReadObservanceLine(property.name, value, line.number);
        }
    }

    void ReadObservanceLine(const std::string& name, std::string_view value, int number)
    {
        if (name == "DTSTART") {
            const auto time = ParseTime(value);
            m_draft->onset = time ? std::optional<LocalTime>(time->wall) : std::nullopt;
        } else if (name == "TZOFFSETFROM") {
            m_draft->from = ParseUtcOffset(value);
        } else if (name == "TZOFFSETTO") {
            m_draft->to = ParseUtcOffset(value);
        } else if (name == "RRULE") {
            m_draft->rule = value;
            m_draft->ruleLine = number;
        } else if (name == "RDATE") {
            for (const std::string_view piece : SplitAt(value, ',')) {
                if (const auto time = ParseTime(piece)) {
                    m_draft->further.push_back(time->wall);
                } else {
                    m_log.Add(number, {{"%1 is not a date or time", "RDATE " + Quoted(piece)}});
                }
            }
        }
    }

    void Finish()
    {
        if (!m_draft) { // an END alone
            return;
        }
        if (!m_draft->onset || !m_draft->to) {
            m_log.Add(m_draft->line, {{"a part of a VTIMEZONE lacks a readable DTSTART or TZOFFSETTO", ""}});
            return;
        }
        Observance observance;
        observance.onset = *m_draft->onset;
        observance.offsetTo = *m_draft->to;
        observance.offsetFrom = m_draft->from.value_or(*m_draft->to);
        observance.furtherOnsets = std::move(m_draft->further);
        if (!m_draft->rule.empty()) {
            ReadRule(observance);
        }
        m_observances.push_back(std::move(observance));
        m_draft.reset();
    }

    void ReadRule(Observance& observance)
    {
        RuleReading reading = ParseRule(m_draft->rule);
        if (!reading.problem.IsEmpty()) {
            m_log.Add(m_draft->ruleLine, {{"RRULE of a VTIMEZONE", ""}, reading.problem});
        }
        if (reading.rule && reading.rule->until) {
            const WrittenTime& until = *reading.rule->until;
            reading.rule->lastStart =
                until.wall + (until.isUtc ? observance.offsetFrom : 0) + (until.isDate ? kDaySeconds - 1 : 0);
        }
        std::int64_t steps = kMaxSteps;
        if (reading.rule) {
            LimitByCount(*reading.rule, observance.onset, steps);
        }
        observance.rule = std::move(reading.rule);
    }

    MessageLog& m_log;
    std::string m_id;
    std::vector<Observance> m_observances;
    std::optional<Draft> m_draft; // the part that is open
};

} // namespace

TimeZone::TimeZone(std::string id, std::vector<Observance> observances)
    : m_id(std::move(id)), m_observances(std::move(observances))
{
}

const ZonePtr& TimeZone::Utc()
{
    static const ZonePtr utc = std::make_shared<TimeZone>("UTC", std::vector<Observance>());
    return utc;
}

const std::vector<TimeZone::Transition>& TimeZone::Transitions() const
{
    if (m_transitions) {
        return *m_transitions;
    }
    std::vector<Transition> transitions;
    for (const Observance& observance : m_observances) {
        int onsets = 0;
        const auto add = [&](LocalTime onset) {
            transitions.push_back({onset - observance.offsetFrom, observance.offsetFrom, observance.offsetTo});
            return ++onsets < kMaxOnsets;
        };
        if (observance.rule) {
            ExpandRule(*observance.rule, observance.onset, observance.onset, kLastFollowedOnset, add, kMaxSteps);
        } else {
            add(observance.onset);
        }
        for (const LocalTime onset : observance.furtherOnsets) {
            if (onset != observance.onset) {
                add(onset);
            }
        }
    }
    std::stable_sort(transitions.begin(), transitions.end(),
                     [](const Transition& a, const Transition& b) { return a.utc < b.utc; });
    m_transitions = std::move(transitions);
    return *m_transitions;
}

int TimeZone::FirstOffset() const
{
    const std::vector<Transition>& transitions = Transitions();
    return transitions.empty() ? 0 : transitions.front().offsetFrom;
}

LocalTime TimeZone::WallOfUtc(LocalTime utc) const
{
    const std::vector<Transition>& transitions = Transitions();
    const auto after = std::upper_bound(transitions.begin(), transitions.end(), utc,
                                        [](LocalTime time, const Transition& t) { return time < t.utc; });
    return utc + (after == transitions.begin() ? FirstOffset() : std::prev(after)->offsetTo);
}

LocalTime TimeZone::UtcOfWall(LocalTime wall) const
{
    const std::vector<Transition>& transitions = Transitions();
    // The new offset holds on the wall clock from the moment that both clocks have passed.
    auto after =
        std::upper_bound(transitions.begin(), transitions.end(), wall, [](LocalTime time, const Transition& t) {
            return time < t.utc + std::max(t.offsetFrom, t.offsetTo);
        });
    return wall - (after == transitions.begin() ? FirstOffset() : std::prev(after)->offsetTo);
}

LocalTime TimeZone::LaterUtcOfWall(LocalTime wall) const
{
    const LocalTime first = UtcOfWall(wall);
    const std::vector<Transition>& transitions = Transitions();
    const auto next = std::upper_bound(transitions.begin(), transitions.end(), first,
                                       [](LocalTime time, const Transition& t) { return time < t.utc; });
    const bool comesAgain = next != transitions.end() && wall >= next->utc + next->offsetTo;
    return comesAgain ? wall - next->offsetTo : first;
}

LocalTime InstantOf(LocalTime wall, const ZonePtr& zone)
{
    return zone ? zone->UtcOfWall(wall) : wall;
}

LocalTime WallOf(LocalTime instant, const ZonePtr& zone)
{
    return zone ? zone->WallOfUtc(instant) : instant;
}

LocalTime EndInstant(LocalTime wall, const ZonePtr& zone, const Duration& duration)
{
    return InstantOf(wall + duration.days * kDaySeconds, zone) + duration.seconds;
}

Duration DurationBetween(LocalTime start, LocalTime end, const ZonePtr& zone)
{
    const LocalTime wall = WallOf(start, zone);
    Duration duration;
    duration.days = std::max<std::int64_t>(0, (WallOf(end, zone) - wall) / kDaySeconds);
    while (duration.days > 0 && EndInstant(wall, zone, duration) > end) {
        --duration.days;
    }
    // A start that comes twice and means the second time is counted from itself.
    duration.seconds = end - (duration.days > 0 ? EndInstant(wall, zone, duration) : start);
    return duration;
}

LocalTime ConvertWall(LocalTime wall, const ZonePtr& from, const ZonePtr& to)
{
    return !from || !to || from == to ? wall : to->WallOfUtc(from->UtcOfWall(wall));
}

std::optional<int> ParseUtcOffset(std::string_view text)
{
    constexpr std::size_t shortLength = 5;
    constexpr std::size_t fullLength = 7;
    constexpr std::string_view digits = "0123456789";
    text = TrimBlanks(text);
    if ((text.size() != shortLength && text.size() != fullLength) || (text[0] != '+' && text[0] != '-') ||
        text.find_first_not_of(digits, 1) != std::string_view::npos) {
        return std::nullopt;
    }
    const auto pair = [&](std::size_t at) {
        return at + 1 < text.size() ? (text[at] - '0') * 10 + (text[at + 1] - '0') : 0;
    };
    if (pair(1) >= 24 || pair(3) >= 60 || pair(5) >= 60) {
        return std::nullopt;
    }
    const int seconds = static_cast<int>(pair(1) * kHourSeconds + pair(3) * kMinuteSeconds) + pair(5);
    return text[0] == '-' ? -seconds : seconds;
}

ZonePtr ReadTimeZone(std::string_view raw, int firstLine, MessageLog& log)
{
    return ZoneReader(log).Read(raw, firstLine);
}

void ZoneTable::Add(int calendar, ZonePtr zone)
{
    std::string id = zone->Id();
    m_zones.emplace(std::make_pair(std::move(id), calendar), std::move(zone));
}

ZonePtr ZoneTable::Find(int calendar, std::string_view id) const
{
    const std::string name(id);
    const auto exact = m_zones.find({name, calendar});
    if (exact != m_zones.end()) {
        return exact->second;
    }
    const auto other = m_zones.lower_bound({name, 0});
    return other != m_zones.end() && other->first.first == name ? other->second : FindCommonZone(id);
}

std::string ZoneTable::OnlyId() const
{
    const bool isOnly = !m_zones.empty() && m_zones.begin()->first.first == m_zones.rbegin()->first.first;
    return isOnly ? m_zones.begin()->first.first : std::string();
}

std::vector<std::string> ZoneTable::Ids() const
{
    std::vector<std::string> ids;
    for (const auto& [key, zone] : m_zones) {
        if (ids.empty() || ids.back() != key.first) {
            ids.push_back(key.first);
        }
    }
    return ids;
}

bool ZoneTable::Defines(std::string_view id) const
{
    const std::string name(id);
    const auto found = m_zones.lower_bound({name, 0});
    return found != m_zones.end() && found->first.first == name;
}

} // namespace dayvane::ical
