// The colours of a calendar control, as one value that painters take.
#pragma once

#include <atltypes.h>

namespace dayvane {

// A view has only some of these areas, and title bands, days and items have colours of their own besides.
struct CalendarColors
{
    // Title band of the year and multi-day view, as the middle of its gradient; the other views' bands are fixed.
    COLORREF caption = 0x9CCFCE;
    COLORREF captionText = 0x330000; // texts of all title bands
    // Hours of the time grids and the marks of their hidden items; the month views' column of week numbers.
    COLORREF ruler = 0x9CCFCE;
    COLORREF rulerText = 0xFFFFFF; // texts and lines there
    // Band of full-day items, month boxes of the year view, ordinary days of the week view, and the placeholder while
    // items load. Other days have the colours of CCalendarCtrl::m_arDayColors.
    COLORREF content = 0xFFFFFF;
    COLORREF grid = 0xBDBDBD;      // lines between days, boxes and columns; around band and placeholder
    COLORREF border = 0xBCEFEE;    // dots of the placeholder: no view has a border
    COLORREF highlight = 0xD77800; // current items' frames, selected rows; the control's constructor takes the system's
    COLORREF itemBorder = 0xCF9365;    // nowhere: items have crColor4
    COLORREF highlightText = 0xFFFFFF; // texts of selected days and months; the system's, as highlight
    COLORREF noFocus = 0xF0F0F0;       // nowhere: a selection looks the same without the focus; the system's
};

} // namespace dayvane
