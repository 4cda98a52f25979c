#include "ical/Recurrence.h"

#include "ical/Text.h"

#include <algorithm>
#include <array>

namespace dayvane::ical {

namespace {

constexpr std::array<std::string_view, kWeekDays> kWeekdayNames = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
constexpr std::size_t kMaxDigits = 9; // so that no product overflows
constexpr int kLastSecond = 59;

struct FrequencyName
{
    std::string_view name;
    Frequency frequency;
};
constexpr FrequencyName kFrequencyNames[] = {
    {"SECONDLY", Frequency::Secondly}, {"MINUTELY", Frequency::Minutely}, {"HOURLY", Frequency::Hourly},
    {"DAILY", Frequency::Daily},       {"WEEKLY", Frequency::Weekly},     {"MONTHLY", Frequency::Monthly},
    {"YEARLY", Frequency::Yearly},
};

// The parts that are lists of numbers.
struct NumberListPart
{
    std::string_view name;
    std::vector<int> RecurrenceRule::*list;
    int smallest;       // 0 or 1
    int largest;        // a leap second counts as second 59
    bool mayBeNegative; // counted from the end
};
constexpr NumberListPart kNumberListParts[] = {
    // name        list                        smallest  largest  negative
    {"BYMONTH", &RecurrenceRule::byMonth, 1, kYearMonths, false},
    {"BYMONTHDAY", &RecurrenceRule::byMonthDay, 1, 31, true},
    {"BYYEARDAY", &RecurrenceRule::byYearDay, 1, 366, true},
    {"BYWEEKNO", &RecurrenceRule::byWeekNo, 1, 53, true},
    {"BYSETPOS", &RecurrenceRule::bySetPos, 1, 366, true},
    {"BYHOUR", &RecurrenceRule::byHour, 0, 23, false},
    {"BYMINUTE", &RecurrenceRule::byMinute, 0, 59, false},
    {"BYSECOND", &RecurrenceRule::bySecond, 0, 60, false},
};

// A signed decimal number; nothing if other letters or too many digits are there.
std::optional<std::int64_t> ReadNumber(std::string_view text)
{
    text = TrimBlanks(text);
    const bool negative = !text.empty() && text[0] == '-';
    if (negative || (!text.empty() && text[0] == '+')) {
        text.remove_prefix(1);
    }
    if (text.empty() || text.size() > kMaxDigits) {
        return std::nullopt;
    }
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return std::nullopt;
        }
        value = value * 10 + (c - '0');
    }
    return negative ? -value : value;
}

template <typename T>
void SortOut(std::vector<T>& list)
{
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
}

bool ReadNumberList(const NumberListPart& part, std::string_view value, std::vector<int>& list)
{
    for (const std::string_view piece : SplitAt(value, ',')) {
        const auto number = ReadNumber(piece);
        if (!number || *number > part.largest) {
            return false;
        }
        const bool fromEnd = part.mayBeNegative && *number <= -part.smallest && *number >= -part.largest;
        if (*number < part.smallest && !fromEnd) {
            return false;
        }
        list.push_back(static_cast<int>(*number));
    }
    SortOut(list);
    return true;
}

std::optional<int> ReadWeekday(std::string_view text)
{
    for (int weekday = 0; weekday < kWeekDays; ++weekday) {
        if (SameWord(text, kWeekdayNames[static_cast<std::size_t>(weekday)])) {
            return weekday;
        }
    }
    return std::nullopt;
}

bool ReadWeekdayList(std::string_view value, std::vector<RuleWeekday>& list)
{
    constexpr std::size_t nameLength = 2;
    constexpr std::int64_t mostWeeks = 53;
    for (const std::string_view piece : SplitAt(value, ',')) {
        const std::string_view written = TrimBlanks(piece);
        if (written.size() < nameLength) {
            return false;
        }
        const std::string_view ordinal = written.substr(0, written.size() - nameLength);
        const auto weekday = ReadWeekday(written.substr(ordinal.size()));
        const auto number = ordinal.empty() ? std::optional<std::int64_t>(0) : ReadNumber(ordinal);
        if (!weekday || !number || *number < -mostWeeks || *number > mostWeeks || (!ordinal.empty() && *number == 0)) {
            return false;
        }
        list.push_back({static_cast<int>(*number), *weekday});
    }
    SortOut(list);
    return true;
}

class RuleReader
{
public:
    RuleReading Read(std::string_view value)
    {
        for (const std::string_view part : SplitAt(value, ';')) {
            if (!TrimBlanks(part).empty() && !ReadPart(part)) {
                return {std::nullopt, {"%1 is not understood", Quoted(part)}};
            }
        }
        if (!m_hasFrequency) {
            return {std::nullopt, {"there is no FREQ", ""}};
        }
        for (int& second : m_rule.bySecond) {
            second = std::min(second, kLastSecond);
        }
        SortOut(m_rule.bySecond);
        return {m_rule, m_note};
    }

private:
    bool ReadPart(std::string_view part)
    {
        const std::size_t equals = std::min(part.find('='), part.size());
        const std::string name = UpperText(TrimBlanks(part.substr(0, equals)));
        const std::string_view value = TrimBlanks(part.substr(std::min(equals + 1, part.size())));
        for (const NumberListPart& list : kNumberListParts) {
            if (list.name == name) {
                return ReadNumberList(list, value, m_rule.*list.list);
            }
        }
        if (name == "FREQ") {
            return ReadFrequency(value);
        }
        if (name == "INTERVAL" || name == "COUNT") {
            return ReadAmount(name, value);
        }
        if (name == "UNTIL") {
            m_rule.until = ParseTime(value);
            return m_rule.until.has_value();
        }
        if (name == "WKST") {
            const auto weekday = ReadWeekday(value);
            m_rule.weekStart = weekday.value_or(m_rule.weekStart);
            return weekday.has_value();
        }
        if (name == "BYDAY") {
            return ReadWeekdayList(value, m_rule.byDay);
        }
        // The calendar that is meant anyway, and what becomes of days that a month lacks.
        return (name == "RSCALE" && SameWord(value, "GREGORIAN")) || (name == "SKIP" && SameWord(value, "OMIT"));
    }

    bool ReadFrequency(std::string_view value)
    {
        for (const FrequencyName& row : kFrequencyNames) {
            if (SameWord(row.name, value)) {
                m_rule.frequency = row.frequency;
                m_hasFrequency = true;
                return true;
            }
        }
        return false;
    }

    bool ReadAmount(const std::string& name, std::string_view value)
    {
        auto amount = ReadNumber(value);
        if (!amount || *amount < 0) {
            return false;
        }
        if (*amount == 0) {
            m_note = {"%1 is taken as 1", name + "=0"};
            amount = 1;
        }
        if (name == "COUNT") {
            m_rule.count = amount;
        } else {
            m_rule.interval = *amount;
        }
        return true;
    }

    RecurrenceRule m_rule;
    Phrase m_note;
    bool m_hasFrequency = false;
};

} // namespace

RuleReading ParseRule(std::string_view value)
{
    return RuleReader().Read(value);
}

} // namespace dayvane::ical
