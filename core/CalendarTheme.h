// The colours of all views and date selectors as one record of roles, and four of them to begin with.
//
// SetTheme takes the whole record. A role that is kOwn is left to the control: the colour that it begins with or that
// one of its single setters gave it. A single setter called after SetTheme changes its colour until the next SetTheme.
// Colours are 0x00BBGGRR.
#pragma once

#include <atltypes.h>

// How the colours that a host gave its items are shown.
enum class ItemFill
{
    AsGiven,
    ForDarkPage, // hue kept; ground darkened, text lightened until it has a contrast of 4.5 to what it stands on
    Plain        // no colours but those of page, page text and outline
};

// The system's colours that a theme for high contrast is made of.
struct SystemColors
{
    COLORREF window;
    COLORREF windowText;
    COLORREF face;
    COLORREF faceText;
    COLORREF highlight;
    COLORREF highlightText;
    COLORREF grayText;
};

struct CalendarTheme
{
    static constexpr COLORREF kOwn = 0xFF000000;

    // A day: its ground in the boxes and in its work hours, the hours off, and the lines of rows within an hour and on
    // the hour. The text is that of its number and names.
    struct Day
    {
        COLORREF work = kOwn;
        COLORREF workLine = kOwn;
        COLORREF workHourLine = kOwn;
        COLORREF off = kOwn;
        COLORREF offLine = kOwn;
        COLORREF offHourLine = kOwn;
        COLORREF text = kOwn;
    };

    // ---- Bands
    COLORREF title = kOwn; // title bands, also of the mini calendars
    COLORREF titleLine = kOwn;
    COLORREF titleText = kOwn;
    COLORREF header = kOwn;      // weekday names, strips on top of day and month boxes, buttons
    COLORREF headerOther = kOwn; // the strip of the day after the week
    COLORREF headerText = kOwn;
    COLORREF headerHoliday = kOwn; // Sundays and days off, also in title bands
    COLORREF headerSaturday = kOwn;
    COLORREF ruler = kOwn; // hours beside a time grid
    COLORREF rulerText = kOwn;

    // ---- Pages
    COLORREF page = kOwn; // what is no day: band of full-day items, boxes of months, lists, mini calendars, edit boxes
    COLORREF pageText = kOwn;
    COLORREF otherMonthText = kOwn; // days of neighbour months, week numbers
    COLORREF grid = kOwn;
    COLORREF border = kOwn;
    Day ordinary;
    Day holiday; // Sundays and days off
    Day saturday;

    // ---- What stands out
    COLORREF today = kOwn; // frame of the present day
    COLORREF todayGround = kOwn;
    COLORREF selection = kOwn; // selected rows, days, months
    COLORREF selectionText = kOwn;
    COLORREF selectionFrame = kOwn;
    COLORREF focus = kOwn; // frame of the current item
    COLORREF hot = kOwn;   // ground of what is under the pointer
    COLORREF nowLine = kOwn;

    // ---- Items
    ItemFill itemFill = ItemFill::AsGiven;
    COLORREF itemOutline = kOwn; // of blocks, and of all items that are plain
    COLORREF itemArrow = kOwn;   // where an item goes on in another row
    COLORREF mark = kOwn;        // more-items marks
    COLORREF markText = kOwn;

    // ---- Beside colours
    bool redFirsts = true;   // the number of the 1st of a month is in a holiday's colour, whatever day it is
    bool dayOffMark = false; // in the mini calendars, which have no room for names, days off have a filled corner

    // The controls' own colours, which they begin with.
    static CalendarTheme Classic() { return CalendarTheme(); }
    // Light: weekends, holidays and bands are tinted so little that items and the present time speak louder.
    static CalendarTheme Calm();
    static CalendarTheme Dark();
    // The system's colours and no others; without an argument the present ones (Windows only).
    static CalendarTheme HighContrast(const SystemColors& system);
    static CalendarTheme HighContrast();
};

bool operator==(const CalendarTheme& a, const CalendarTheme& b);
inline bool operator!=(const CalendarTheme& a, const CalendarTheme& b)
{
    return !(a == b);
}

namespace dayvane {
using ::CalendarTheme;
inline const CalendarTheme kClassicTheme;
} // namespace dayvane
