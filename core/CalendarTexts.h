// The words that views and pickers write themselves: names of months and weekdays, labels, patterns of dates and times.
#pragma once

#include "TextCodec.h"

#include <afxdisp.h>

#include <array>
#include <string>

namespace dayvane {

// Change the fields of a preset, or of what GetTexts returns, and hand the record to SetTexts.
//
// Patterns have the flags of COleDateTime::Format: %Y %y %m %d %H %I %M %p, %A and %a weekday, %B and %b month; # after
// the percent sign leaves out leading zeros; %% is a percent sign. All other characters stand for themselves.
struct CalendarTexts
{
    using Weekdays = std::array<std::u16string, 7>; // Sunday first
    using Months = std::array<std::u16string, 12>;

    // ---- Names. An empty one is that of the C runtime's locale, as COleDateTime::Format gives it.

    Weekdays weekdays;       // %A
    Weekdays shortWeekdays;  // %a
    Weekdays columnWeekdays; // over the columns of the month view; where they do not fit, the short ones
    Weekdays cellWeekdays;   // over those of the mini calendars; where they are empty, what fits of the short ones
    Months months;           // %B
    Months shortMonths;      // %b
    std::u16string am;       // %p
    std::u16string pm;

    // ---- Words.

    std::u16string wholeDay;  // beside the full-day band
    std::u16string more;      // a mark for hidden items; %n is their number
    std::u16string yearTitle; // of the year view; empty: its SetTitle
    // Holidays, observances, solar terms and seasonal days in English, as far as they have an English name.
    bool englishDayNames = false;

    // ---- Times.

    std::u16string time;     // of items
    std::u16string hour;     // on the ruler: the large part
    std::u16string hourRest; // and the small one

    // ---- Dates.

    std::u16string day;        // a day of a month
    std::u16string monthDay;   // a day and its month
    std::u16string shortDate;  // the first day of a month among others
    std::u16string headerDay;  // header of a column
    std::u16string captionDay; // title band, large
    std::u16string captionWeekday;
    std::u16string longDate;     // title band of one day
    std::u16string spanDate;     // title band of several days, multi-day view
    std::u16string spanYearDate; // the same when the year must be said
    std::u16string weekDate;     // title band of the week view
    std::u16string stripWeekday; // beside the date of a week view's box
    std::u16string month;        // title band of the month view
    std::u16string monthNumber;  // title band and year view, large
    std::u16string monthSuffix;  // year view, beside the number
    std::u16string monthName;    // year view
    std::u16string year;         // title band of the year view
    std::u16string gridMonth;    // titles of the mini calendars: a month
    std::u16string gridYear;     // a year
    std::u16string cellMonth;    // a cell for a month
    std::u16string pickerMonth;  // the button of the year-month picker
    std::u16string today;        // line below a mini calendar of days
    std::u16string thisMonth;    // and of months

    // ---- Printed pages. %n and %m are numbers.

    std::u16string pageDate;    // title of a day; the parts that two days share are said once
    std::u16string pageDay;     // heading of a day among others
    std::u16string pageMonth;   // title of a month
    std::u16string pageYear;    // title of a year
    std::u16string pageNotes;   // heading of lines to write on
    std::u16string pageOther;   // heading of what lies outside the hours
    std::u16string pageNothing; // where there are no items
    std::u16string pageAgain;   // after a heading that goes on from an earlier sheet
    std::u16string pageLater;   // where something goes on: on sheet %n
    std::u16string pageNumber;  // sheet %n of %m
    std::u16string pagePrinted; // before the date of printing
    std::u16string pageLunar;   // before the month and day of the lunisolar calendar
    std::u16string pageLeap;    // before a leap month
    std::u16string pageTimed;   // beside the dot of days with items at certain hours

    // 1 Sunday .. 7 Saturday: what SetTexts sets as the first day of the week; 0: it leaves that alone.
    int firstDayOfWeek = 0;

    // The mixture that the controls begin with: Japanese names and words, title bands with the names of the C runtime.
    static CalendarTexts Required();
    static CalendarTexts Japanese();
    static CalendarTexts English();
    // Names, order of dates, hours (12 or 24) and the first day of the week of a locale of the system
    // (GetUserDefaultLCID()); words are Japanese for Japanese, else English. Without Windows: by the language alone.
    static CalendarTexts FromLocale(unsigned long lcid);
};

// The date's text; empty for a date that is not valid.
std::u16string DateText(const CalendarTexts& texts, const std::u16string& pattern, const COleDateTime& date);

// The mark of so many hidden items: "+3".
std::u16string MoreText(const CalendarTexts& texts, int items);

// The names of a day, several with blanks between, in the language of the texts.
std::u16string DayNamesText(const CalendarTexts& texts, const std::u16string& names);

// A pattern from a date picture of the system: d dd ddd dddd M MM MMM MMMM y yy yyyy, texts in apostrophes.
std::u16string PatternOfPicture(const std::u16string& picture);
// The same for times: h hh H HH m mm s ss t tt; seconds are left out.
std::u16string PatternOfTimePicture(const std::u16string& picture);

} // namespace dayvane

using dayvane::CalendarTexts;
