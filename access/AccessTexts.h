// The words by which controls report to programs that read aloud what they show. UTF-8; {1}, {2}, ... stand for what is
// filled in.
#pragma once

#include "../core/CalendarTexts.h"

#include <string>
#include <vector>

namespace dayvane {

struct AccessTexts
{
    // ---- Dates
    std::string months[12];
    std::string weekdays[7]; // Sunday first
    std::string date;        // weekday, day, month, year
    std::string dayAndMonth; // weekday, day, month
    std::string month;       // month, year
    std::string year;        // year
    std::string noDate;
    std::string between; // between the parts of a name

    // ---- Cells
    std::string today;
    std::string thisMonth;
    std::string oneItem;
    std::string items; // count
    std::string wholeDay;
    std::string outsideWork; // of a row of hours
    std::string dayOff;      // without a name
    std::string marked;      // of a small calendar's day with a dot or in bold

    // ---- Items
    std::string fromTo; // two times of day
    std::string allDay;
    std::string noTitle;
    std::string repeats;
    std::string reminder;
    std::string startsOn; // day
    std::string endsOn;   // day
    std::string fixed;    // cannot be moved
    std::string another;  // how many of the same come before, plus one

    // ---- Marks, titles, buttons
    std::string oneMore;
    std::string more;             // count
    std::string calendarNames[5]; // by ViewKind; the shown days
    std::string smallCalendar;
    std::string previousMonth;
    std::string nextMonth;
    std::string previousYear;
    std::string nextYear;
    std::string todayIs;     // date
    std::string thisMonthIs; // month
    std::string hiddenItems;
    std::string chooseMonth;
    std::string yearAndMonth;

    // ---- Actions
    std::string open;
    std::string select;
    std::string press;

    // ---- Announcements
    std::string movedTo;  // day, time
    std::string movedDay; // day
    std::string lengthIs; // first moment, last moment
    std::string cannotMove;
};

// What all windows of the process say; nullptr, as at first: what follows from each control's own texts (SetTexts). The
// texts must live as long as they are set. For the thread of the user interface.
void SetAccessTexts(const AccessTexts* texts);
const AccessTexts* ChosenAccessTexts(); // nullptr: none was set

const AccessTexts& EnglishAccessTexts();
const AccessTexts& JapaneseAccessTexts();

// What a control with these words says: in Japanese or English as they are, with their names of months and weekdays. Of
// the words that controls begin with: in Japanese where the user's Windows is.
AccessTexts AccessTextsFor(const CalendarTexts& words, bool isJapaneseSystem);

// The pattern with {1} .. {9} filled in.
std::string FillIn(const std::string& pattern, const std::vector<std::string>& parts);
// The parts that are not empty, one after the other.
std::string Joined(const std::vector<std::string>& parts, const std::string& between);

} // namespace dayvane
