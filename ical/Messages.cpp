#include "ical/Messages.h"

namespace dayvane::ical {

std::string FillPhrase(std::string_view form, std::string_view value)
{
    constexpr std::string_view mark = "%1";
    std::string text(form);
    const std::size_t at = form.find(mark);
    return at == std::string_view::npos ? text : text.replace(at, mark.size(), value);
}

// The readers name them where they report; a test asks that none is missing here.
const std::vector<std::string_view>& MessageForms()
{
    static const std::vector<std::string_view> forms = {
        "%1",
        "%1 has a quotation mark that is not closed",
        "%1 has an empty parameter",
        "%1 has no BEGIN",
        "%1 has no END",
        "%1 has no readable end",
        "%1 has no readable offsets",
        "%1 in the file, the first one here",
        "%1 is kept but not shown",
        "%1 is negative",
        "%1 is not a calendar line",
        "%1 is not a date or time",
        "%1 is not a duration",
        "%1 is not understood",
        "%1 is not valid UTF-8",
        "%1 is taken as 1",
        "%1 lies before DTSTART and is not used",
        "%1 does not fit the form of DTSTART",
        "COUNT leads too far to be counted",
        "RRULE of a VTIMEZONE",
        "a VTIMEZONE without TZID is not used",
        "a part of a VTIMEZONE lacks a readable DTSTART or TZOFFSETTO",
        "a repeated event of more than a year is shown as one year long",
        "a second %1 is not read",
        "an event without DTSTART is not shown",
        "and %1 more",
        "it is taken to exclude without end",
        "its broken bytes are shown as replacement marks",
        "its times are taken as they stand",
        "only this one occurrence is changed",
        "the calendar's time zone %1 is not defined",
        "the event is not shown",
        "the event is shown once",
        "the event is taken to repeat without end",
        "the event repeats so often that of a range only the first %1 occurrences are shown",
        "the file is in UTF-16, which calendar files never are",
        "it is not read",
        "the time zone %1 is not defined",
        "there is no FREQ",
        "times are shown as written",
        "what it excludes is shown",
        "whole days cannot repeat within a day",
    };
    return forms;
}

Message MakeMessage(int line, std::initializer_list<Phrase> phrases)
{
    Message message;
    message.line = line;
    for (const Phrase& phrase : phrases) {
        if (!phrase.IsEmpty()) {
            message.text += (message.text.empty() ? "" : ": ") + FillPhrase(phrase.form, phrase.value);
            message.phrases.push_back(phrase);
        }
    }
    return message;
}

void MessageLog::Add(int line, std::initializer_list<Phrase> phrases)
{
    if (m_messages.size() < kMaxMessages) {
        m_messages.push_back(MakeMessage(line, phrases));
    } else {
        ++m_unkept;
    }
}

} // namespace dayvane::ical
