// What the views and the status bar say of days, as the user has chosen it under View > Days.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "calc/DayCalendar.h"
#include "calc/WorkHours.h"
#include "calc/ZoneClock.h"
#include "core/DayLines.h"
#include "ical/TimeZone.h"

namespace planner {

// One line of UTF-8 that says all of a day: its names, terms, lunar date, moon, week, era and place in the cycle of
// sixty. Empty for a date that is not valid. lines: language and rules; what it switches on or off does not matter.
std::string DayStatus(const dayvane::CivilDate& day, const dayvane::DayCalendar& names, int firstDayOfWeek,
                      const dayvane::DayLines& lines);

// The zone's clock from 1970 to 2200.
dayvane::ZoneClock ClockOf(const dayvane::ical::TimeZone& zone);

struct DayChoices
{
    dayvane::DayLines lines;
    bool lunchBreak = true;  // in the office hours
    std::string secondClock; // the name of a zone; empty: none
    bool isChosen = false;   // by words; else by the language

    DayChoices();
    // Takes a list of words such as "rokuyo,moon,weeks"; "none" switches everything off. False for an unknown word,
    // which changes nothing.
    bool Take(const std::string& list);
    // The switch of that word; nullptr: there is none.
    bool* Find(const std::string& word);

    static dayvane::WorkHours OfficeHours(bool lunchBreak);
};

} // namespace planner
