// What is said of a part of a window, and how dates, times and items are said. All texts are UTF-8.
#pragma once

#include "../core/CalendarRecords.h"
#include "AccessTexts.h"

#include <set>
#include <string>

namespace dayvane {

// What is said of a part, as far as it is known.
struct AccessWords
{
    std::string name;        // differs from those of its siblings
    std::string value;       // such as the text of an item
    std::string description; // what else is known
    std::string shortcut;    // the key that does the action
    std::string action;      // what happens by default; empty: nothing
};

// "10:00 to 11:30 Weekly meeting, repeats, starts on Thursday": an item among those of the days from first to last.
// withDay: also the day on which it starts. `text` is its text in UTF-8.
std::string SpokenItem(const AccessTexts& texts, const tagCALENDAR_ITEM& item, const std::string& text,
                       const COleDateTime& first, const COleDateTime& last, bool withDay);
// The same of an item as a host has it.
std::string SpokenItem(const AccessTexts& texts, const tagCC_ITEM& item, const std::string& text,
                       const COleDateTime& first, const COleDateTime& last, bool withDay);

// "Friday 20 November 2026, today, 3 items": a day or month with what is said of the present one, or nothing.
std::string SpokenCell(const AccessTexts& texts, const std::string& date, const std::string& present, int items);

// The name, with a number behind where a sibling has it already; joins those that are taken.
std::string TakeName(const AccessTexts& texts, std::set<std::string>& taken, const std::string& name);

std::string SpokenDate(const AccessTexts& texts, const COleDateTime& date);  // "Friday 20 November 2026"
std::string SpokenDay(const AccessTexts& texts, const COleDateTime& date);   // "Friday 20 November"
std::string SpokenMonth(const AccessTexts& texts, const COleDateTime& date); // "November 2026"
std::string SpokenTime(const COleDateTime& time);                            // "14:30"

} // namespace dayvane
