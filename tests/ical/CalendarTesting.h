#pragma once

#include "ical/CivilTime.h"
#include "ical/Document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

namespace dayvane::ical {

// "20261121T0930" or "20261121" as a wall time.
inline LocalTime At(std::string_view text)
{
    const auto time = ParseTime(text);
    EXPECT_TRUE(time) << text;
    return time ? time->wall : 0;
}

inline std::string Shown(LocalTime time)
{
    const bool isMidnight = time == DayOfTime(time) * kDaySeconds;
    const std::string text = FormatTime({time, isMidnight, false});
    constexpr std::size_t toMinutes = 13;
    return text.substr(0, toMinutes);
}

// "start/end" with the occurrences separated by blanks; all-day ones end in a *.
inline std::string Shown(const std::vector<Occurrence>& occurrences)
{
    std::string text;
    for (const Occurrence& occurrence : occurrences) {
        text += (text.empty() ? "" : " ") + Shown(occurrence.times.start) + "/" + Shown(occurrence.times.end) +
                (occurrence.times.isAllDay ? "*" : "");
    }
    return text;
}

inline std::string Joined(std::initializer_list<std::string_view> lines)
{
    std::string text;
    for (const std::string_view line : lines) {
        text.append(line).append("\r\n");
    }
    return text;
}

// A calendar with one event of these lines.
inline std::string CalendarWith(std::initializer_list<std::string_view> lines)
{
    return "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\n" + Joined(lines) + "END:VEVENT\r\nEND:VCALENDAR\r\n";
}

inline std::string AllMessages(const Document& document)
{
    std::string text;
    for (const Message& message : document.Messages()) {
        for (const Phrase& phrase : message.phrases) {
            const auto& forms = MessageForms();
            EXPECT_TRUE(std::count(forms.begin(), forms.end(), phrase.form) == 1) << phrase.form << " is not listed";
        }
        text += std::to_string(message.line) + ": " + message.text + "\n";
    }
    return text;
}

} // namespace dayvane::ical
