// What a host may switch on beyond the behaviour that a control begins with.
#pragma once

// All are off at first; only the time grids begin with extendedMove. SetOptions takes the whole record: change the
// fields of what GetOptions returns, or begin with Modern().
struct CalendarOptions
{
    // ---- Items in the time grids.

    // Items that overlap share the width of their day and neither hide each other nor leave it: each takes the leftmost
    // free part and widens over what is free to its right. Items that would become narrower than 12 pixels are counted
    // in a mark, "+3", that opens the list of them.
    bool tidyColumns = false;
    // The full-day band takes at most 40 % of the window's height; bars without a lane in it are counted in a mark for
    // each day that opens the list of them.
    bool limitedBand = false;
    // Items without length, or shorter than a row, have the height of a row, and can be hit. In the variant of the
    // month view the text of a low block is not cut above and below.
    bool visibleShortItems = false;
    // Of items that lie over each other the pointer hits the one that is seen. In the time grids nothing that is
    // scrolled under caption or band is hit; in the month, week and year view a tip says how many lie there, "1 of 3".
    bool hitWhatIsSeen = false;
    // Dragging an item from the hours into the full-day band makes it a full-day item, and back.
    bool wholeDayByDrag = false;
    // The first row move and SetCurrentDate turn a selection of whole days into one of rows.
    bool keysLeaveWholeDay = false;
    bool nowLine = false; // a line at the present time: ShowNowLine

    // ---- Items in all views.

    bool extendedMove = false; // a dragged item keeps its distance from the pointer: EnableExtendedMove
    bool moreList = false;     // a more-items mark opens the list of its items: EnableMoreList
    // The full text of an item that is cut, and of what a view says of a day or month that is; in the mini calendars
    // the names of a day.
    bool toolTips = false;
    // A dragged item that is let go outside the view goes back, as with Escape; one that is let go where it was is not
    // reported.
    bool carefulDrops = false;
    // CCN_SELCHANGED is sent after a key, a press, the end of a sweep or a drop, or scrolling has changed the
    // selection.
    bool selectionEvents = false;

    // ---- Keyboard and wheel in all views.

    // In a dialog Tab leaves the control after its last item, Shift+Tab (which goes back) before its first one; Escape
    // that has nothing to take back is the dialog's.
    bool dialogKeys = false;
    // Deltas of the wheel add up to steps. In the time grids a notch scrolls as many rows as the system says, with Ctrl
    // it changes the time scale around the pointer. The horizontal wheel turns pages.
    bool wheelByDelta = false;

    // Keys move items: Ctrl with an arrow the current item by a row, a day, a week or a month of the view, over the
    // edge of the range to the next page; Ctrl+Shift its end, Alt+Shift its start. Ctrl+Enter, 800 ms without a key or
    // any other key reports one CCN_ITEMMOVED as a drag does; Escape takes it back. Tab and Shift+Tab go through the
    // items in the order of time. Copying, renaming, deleting and going to a date are asked of the host: CCN_COPY and
    // others.
    bool keyboardMoves = false;
    // Typing, or the begin of an input method's conversion, over an item or a selection opens the edit box with it.
    bool typeToEdit = false;

    // ---- Look.

    // Colours follow the system's: light (Calm), dark or high contrast, at once and whenever they change; see SetTheme.
    bool followSystemTheme = false;
    bool followDpi = false; // sizes follow the resolution of the window, until SetScale is called

    // What we recommend: all of them.
    static CalendarOptions Modern();
};

inline CalendarOptions CalendarOptions::Modern()
{
    CalendarOptions all;
    all.tidyColumns = all.limitedBand = all.visibleShortItems = all.hitWhatIsSeen = true;
    all.wholeDayByDrag = all.keysLeaveWholeDay = all.nowLine = true;
    all.extendedMove = all.moreList = all.toolTips = all.carefulDrops = true;
    all.selectionEvents = all.dialogKeys = all.wheelByDelta = all.keyboardMoves = all.typeToEdit = true;
    all.followDpi = all.followSystemTheme = true;
    return all;
}

namespace dayvane {
using ::CalendarOptions;
}
