// The codes of WM_VSCROLL (SB_...), for which the pure layer has no header.
#pragma once

namespace dayvane {

enum ScrollCode
{
    SCROLL_LINEUP = 0,
    SCROLL_LINEDOWN = 1,
    SCROLL_PAGEUP = 2,
    SCROLL_PAGEDOWN = 3,
    SCROLL_THUMBPOSITION = 4,
    SCROLL_THUMBTRACK = 5,
    SCROLL_TOP = 6,
    SCROLL_BOTTOM = 7,
};

} // namespace dayvane
