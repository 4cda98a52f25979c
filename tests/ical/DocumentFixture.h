#pragma once

#include "CalendarTesting.h"

#include <algorithm>
#include <vector>

namespace dayvane::ical {

constexpr LocalTime kStamp = DayOfDate(2026, 11, 21) * kDaySeconds;

inline EventTimes Times(std::string_view start, std::string_view end, bool isAllDay = false)
{
    return {At(start), At(end), isAllDay};
}

// A document whose edits are shown as the lines that went (-) and came (+).
class DocumentFixture : public testing::Test
{
protected:
    void Open(std::initializer_list<std::string_view> lines) { OpenText(CalendarWith(lines)); }
    void OpenText(const std::string& text)
    {
        m_text = text;
        m_document.Load(text);
    }

    OccurrenceId IdAt(std::string_view time)
    {
        for (const Occurrence& occurrence : All()) {
            if (occurrence.times.start == At(time)) {
                return occurrence.id;
            }
        }
        ADD_FAILURE() << "nothing at " << time;
        return {};
    }

    std::vector<Occurrence> All() const { return m_document.OccurrencesIn(At("20260101"), At("20270101")); }

    // What differs between the opened text and the saved one, between their common beginning and end.
    std::string Difference() const
    {
        const std::vector<std::string> before = LinesOf(m_text), after = LinesOf(m_document.Save());
        std::size_t head = 0, tail = 0;
        while (head < before.size() && head < after.size() && before[head] == after[head]) {
            ++head;
        }
        while (tail < before.size() - head && tail < after.size() - head &&
               before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
            ++tail;
        }
        std::string text;
        for (std::size_t i = head; i < before.size() - tail; ++i) {
            text += "-" + before[i];
        }
        for (std::size_t i = head; i < after.size() - tail; ++i) {
            text += "+" + after[i];
        }
        return text;
    }

    static std::vector<std::string> LinesOf(const std::string& text)
    {
        std::vector<std::string> lines;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
            lines.push_back(text.substr(at, end - at));
            at = end;
        }
        return lines;
    }

    std::string m_text;
    Document m_document{CountedUids("new"), [] { return kStamp; }};
};

} // namespace dayvane::ical
