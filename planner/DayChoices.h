// What the views and the status bar say of days, as the user has chosen it under View > Days.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "calc/DayCalendar.h"
#include "calc/WorkHours.h"
#include "calc/ZoneClock.h"
#include "core/DayLines.h"
#include "ical/Messages.h"
#include "ical/TimeZone.h"

namespace planner {

// One line of UTF-8 that says all of a day: its names, terms, lunar date, moon, week, era and place in the cycle of
// sixty. Empty for a date that is not valid. lines: language and rules; what it switches on or off does not matter.
std::string DayStatus(const dayvane::CivilDate& day, const dayvane::DayCalendar& names, int firstDayOfWeek,
                      const dayvane::DayLines& lines);

// Holidays and named days of all that the planner shows: the law's, or those of lists that the user has loaded.
dayvane::DayCalendar& TheDays();

// What has come of a list of holidays as CSV.
struct HolidayListReport
{
    int days = 0;
    std::vector<dayvane::ical::Message> problems; // lines that were left out, with the reason; in the user's language
};
// The list stands in place of the law, and of a list before it, in its years. A list without a day changes nothing.
HolidayListReport LoadHolidays(dayvane::DayCalendar& days, const std::string& csv);

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
    // The list that Take makes these of again, but for the second clock.
    std::string Words() const;
    // The switch of that word; nullptr: there is none.
    bool* Find(const std::string& word);
    // By the order of the menu: names, terms, seasonal days, rokuyo, lunar date, moon, week numbers, eras, lunch break.
    bool* At(int index);

    static dayvane::WorkHours OfficeHours(bool lunchBreak);
};

} // namespace planner
