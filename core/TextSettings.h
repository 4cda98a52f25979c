// How a control reads the texts of its host, and which words it writes itself.
#pragma once

#include "CalendarTexts.h"
#include "TextCodec.h"

#include <functional>
#include <memory>

namespace dayvane {

// The required texts, one record for all controls.
std::shared_ptr<const CalendarTexts> RequiredTexts();

// The width of a text in one line of a font, pixels.
using TextWidth = std::function<int(const std::u16string&)>;

struct TextSettings
{
    unsigned codePage = kSystemCodePage; // of items, days and titles
    std::shared_ptr<const CalendarTexts> words = RequiredTexts();

    std::u16string HostText(const CString& text) const { return DecodeText(text, codePage); }
    // The date by one of the patterns: Date(&CalendarTexts::monthDay, date).
    std::u16string Date(std::u16string CalendarTexts::*pattern, const COleDateTime& date) const
    {
        return DateText(*words, (*words).*pattern, date);
    }
    std::u16string Time(const COleDateTime& time) const { return Date(&CalendarTexts::time, time); }
    std::u16string DayNames(const std::u16string& names) const { return DayNamesText(*words, names); }
};

} // namespace dayvane
