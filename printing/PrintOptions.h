// What a user may choose of printed pages. The defaults make a good page on A3, A4, B5 and Letter, either way up.
#pragma once

#include <string>

namespace dayvane {

enum class PageKind
{
    Day,
    Days, // several days in columns
    Week, // desk diary
    Month,
    Year,
    List
};

enum class PrintLanguage
{
    OfControl, // the control's own words: CCalendarCtrl::SetTexts
    Japanese,
    English
};

struct PrintOptions
{
    enum class OtherDays // of the months before and after, on the month's page
    {
        Greyed,
        LeftOut // their items too
    };
    enum class YearForm
    {
        Calendar, // twelve small months and a legend
        Boxes     // twelve boxes with their items
    };

    // Millimetres; what the printer cannot reach is added to them.
    int marginLeft = 12;
    int marginTop = 12;
    int marginRight = 12;
    int marginBottom = 10;

    bool showTitle = true;
    int headerMonths = 3; // small months beside the title, 0 to 3, where there is room
    std::u16string footerText;
    bool pageNumbers = true;
    bool datePrinted = true;

    bool inColor = true; // else black, white and greys
    bool shadeWeekends = true;
    int fontSize = 90; // tenths of a point on A4, 50 to 160; other papers scale it

    // Day and days: the hours of the grid, 0 to 24. Items outside are listed; with `widenHours` the grid first grows
    // to hold them, but not into the night (before 6 or after 22 o'clock).
    int hoursFrom = 8;
    int hoursTo = 18;
    bool widenHours = true;
    bool noteLines = true; // day: ruled lines to write on

    OtherDays otherDays = OtherDays::Greyed;
    YearForm yearForm = YearForm::Calendar;
    bool emptyDays = false; // list: days without items too

    bool showHolidays = true;
    bool showSolarTerms = true;
    bool showLunarDates = true;

    PrintLanguage language = PrintLanguage::OfControl;
};

// Which way up the sheet suits the page.
constexpr bool SuitsLandscape(PageKind kind)
{
    return kind == PageKind::Days || kind == PageKind::Month;
}

} // namespace dayvane
