// Fonts, colours and distances of printed pages: thin lines, black text, fills pale enough for a printer without
// colours.
#pragma once

#include "Page.h"
#include "PrintOptions.h"

namespace dayvane {

struct PageStyle
{
    PageFont title;
    PageFont subtitle;
    PageFont columnHeading;
    PageFont dayNumber;
    PageFont dayNote;
    PageFont dayHeading; // of lists and diary boxes
    PageFont body;
    PageFont bodyTime;
    PageFont small;
    PageFont mini; // numbers of the small months beside the title
    PageFont hour;
    PageFont footer;

    int pad = 0;         // between a border and what it holds
    int gap = 0;         // between parts of a page
    int edgeStrip = 0;   // width of the coloured strip at an item's left
    int noteSpacing = 0; // between ruled lines to write on

    // Lines, hundredths of a millimetre
    int hairline = 8;
    int thinLine = 15;
    int strongLine = 40;

    COLORREF text = 0x000000;
    COLORREF muted = 0x505050;
    COLORREF faded = 0x969696; // days of other months
    COLORREF line = 0x9A9A9A;
    COLORREF fineLine = 0xCCCCCC;
    COLORREF rule = 0x303030; // strong lines
    COLORREF sunday = 0x2020B4;
    COLORREF saturday = 0x9C4A16;
    COLORREF weekendFill = 0xF2F5F7;
    COLORREF headingFill = 0xEBEBEB;

    COLORREF DayColor(int dayOfWeek, bool isDayOff) const
    {
        return dayOfWeek == 1 || isDayOff ? sunday : dayOfWeek == 7 ? saturday : text;
    }
};

// paper: units of a page.
PageStyle StyleFor(const PrintOptions& options, CSize paper);

// The item's own colour made so pale that black text stands on it and that it stays a light grey without colours.
COLORREF PaleFill(COLORREF color);
// Dark enough to be seen on paper.
COLORREF InkOf(COLORREF color);
COLORREF GreyOf(COLORREF color);

} // namespace dayvane
