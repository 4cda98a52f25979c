#include "ical/AlarmText.h"

#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

// One VALARM: the indices of its BEGIN and END lines.
struct Block
{
    std::size_t begin = 0, end = 0;
};

std::vector<Block> BlocksOf(const ComponentText& event)
{
    std::vector<Block> blocks;
    const auto& lines = event.Lines();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto& property = lines[i].property;
        if (lines[i].depth != ComponentText::kOwnDepth || !property || property->name != "BEGIN" ||
            !SameWord(TrimBlanks(property->Value()), "VALARM")) {
            continue;
        }
        std::size_t end = i + 1;
        while (end < lines.size() && lines[end].depth > ComponentText::kOwnDepth) {
            ++end;
        }
        const bool isClosed = end < lines.size() && lines[end].property && lines[end].property->name == "END";
        if (isClosed && lines[end].depth == ComponentText::kOwnDepth) {
            blocks.push_back({i, end});
        }
    }
    return blocks;
}

// The index of the alarm's own line of that name; kNone if it has none.
std::size_t FindIn(const ComponentText& event, const Block& block, std::string_view name)
{
    for (std::size_t i = block.begin + 1; i < block.end; ++i) {
        const auto& line = event.Lines()[i];
        if (line.depth == ComponentText::kOwnDepth + 1 && line.property && line.property->name == name) {
            return i;
        }
    }
    return ComponentText::kNone;
}

// Whether it shows or sounds something.
bool IsShown(const ComponentText& event, const Block& block)
{
    const std::size_t action = FindIn(event, block, "ACTION");
    if (action == ComponentText::kNone) {
        return true;
    }
    const std::string_view value = TrimBlanks(event.Lines()[action].property->Value());
    return SameWord(value, "DISPLAY") || SameWord(value, "AUDIO");
}

bool IsReminder(const Alarm& alarm)
{
    return alarm.isShown && !alarm.at && !alarm.isRelatedToEnd && alarm.offset <= 0;
}

std::optional<Alarm> ReadAlarm(const ComponentText& event, const Block& block)
{
    const std::size_t trigger = FindIn(event, block, "TRIGGER");
    if (trigger == ComponentText::kNone) {
        return std::nullopt;
    }
    const Property& property = *event.Lines()[trigger].property;
    Alarm alarm;
    alarm.isShown = IsShown(event, block);
    const std::string* related = property.Find("RELATED");
    alarm.isRelatedToEnd = related && SameWord(*related, "END");
    const auto time = ParseTime(TrimBlanks(property.Value()));
    const auto offset = ParseDuration(TrimBlanks(property.Value()));
    if (time && time->isUtc) {
        alarm.at = time->wall;
    } else if (offset) {
        alarm.offset = offset->Total();
    } else {
        return std::nullopt;
    }
    const std::size_t acknowledged = FindIn(event, block, "ACKNOWLEDGED");
    if (acknowledged != ComponentText::kNone) {
        const auto when = ParseTime(TrimBlanks(event.Lines()[acknowledged].property->Value()));
        alarm.acknowledged = when && when->isUtc ? std::optional(when->wall) : std::nullopt;
    }
    return alarm;
}

std::string TriggerText(std::int64_t secondsBefore)
{
    const Duration duration =
        secondsBefore % kDaySeconds == 0 ? Duration{secondsBefore / kDaySeconds, 0} : Duration{0, secondsBefore};
    return (secondsBefore > 0 ? "-" : "") + (secondsBefore == 0 ? std::string("PT0S") : FormatDuration(duration));
}

void AddReminder(ComponentText& event, std::int64_t secondsBefore)
{
    std::size_t last = event.Lines().size() - 1;
    if (last > 0 && event.Lines()[last].depth == 0) { // END:VEVENT
        --last;
    }
    for (const std::string& line :
         {std::string("BEGIN:VALARM"), std::string("ACTION:DISPLAY"), std::string("DESCRIPTION:Reminder"),
          "TRIGGER:" + TriggerText(secondsBefore), std::string("END:VALARM")}) {
        event.InsertAfter(last++, line);
    }
}

} // namespace

std::vector<Alarm> ReadAlarms(const ComponentText& event)
{
    std::vector<Alarm> alarms;
    for (const Block& block : BlocksOf(event)) {
        if (const auto alarm = ReadAlarm(event, block)) {
            alarms.push_back(*alarm);
        }
    }
    return alarms;
}

std::vector<std::int64_t> RemindersOf(const Event& event)
{
    std::vector<std::int64_t> reminders;
    for (const Alarm& alarm : event.alarms) {
        if (IsReminder(alarm)) {
            reminders.push_back(-alarm.offset);
        }
    }
    std::sort(reminders.rbegin(), reminders.rend());
    reminders.erase(std::unique(reminders.begin(), reminders.end()), reminders.end());
    return reminders;
}

void SetReminders(ComponentText& event, const std::vector<std::int64_t>& secondsBefore)
{
    std::vector<std::int64_t> missing = secondsBefore;
    std::sort(missing.rbegin(), missing.rend());
    missing.erase(std::unique(missing.begin(), missing.end()), missing.end());
    const std::vector<Block> blocks = BlocksOf(event);
    for (auto block = blocks.rbegin(); block != blocks.rend(); ++block) {
        const auto alarm = ReadAlarm(event, *block);
        if (!alarm || !IsReminder(*alarm)) {
            continue;
        }
        const auto isWanted = [&](const std::vector<std::int64_t>& list) {
            return std::find(list.begin(), list.end(), -alarm->offset) != list.end();
        };
        if (isWanted(missing)) {
            missing.erase(std::find(missing.begin(), missing.end(), -alarm->offset));
        } else if (!isWanted(secondsBefore)) {
            for (std::size_t line = block->end + 1; line-- > block->begin;) {
                event.Remove(line);
            }
        }
    }
    for (const std::int64_t seconds : missing) {
        AddReminder(event, seconds);
    }
}

void SetAcknowledged(ComponentText& event, LocalTime utc)
{
    const std::string line = "ACKNOWLEDGED:" + FormatTime({utc, false, true});
    const std::vector<Block> blocks = BlocksOf(event);
    for (auto block = blocks.rbegin(); block != blocks.rend(); ++block) {
        const std::size_t present = FindIn(event, *block, "ACKNOWLEDGED");
        if (present != ComponentText::kNone) {
            event.Replace(present, line);
        } else {
            event.InsertAfter(block->end - 1, line);
        }
    }
}

} // namespace dayvane::ical
