// The colours of a calendar control, as one value that painters take.
#pragma once

#include <atltypes.h>

namespace dayvane {

struct CalendarColors
{
    COLORREF caption = 0x9CCFCE;
    COLORREF captionText = 0x330000;
    COLORREF ruler = 0x9CCFCE;
    COLORREF rulerText = 0xFFFFFF;
    COLORREF content = 0xFFFFFF;
    COLORREF grid = 0xBDBDBD;
    COLORREF border = 0xBCEFEE;
    COLORREF highlight = 0xD77800; // the control's constructor takes the system's
    COLORREF itemBorder = 0xCF9365;
    COLORREF highlightText = 0xFFFFFF; // likewise
    COLORREF noFocus = 0xF0F0F0;       // likewise
};

} // namespace dayvane
