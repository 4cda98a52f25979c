// The plain records of the calendar controls: what a host passes in and gets back, and what the controls keep.
//
// Everything here is a value: it can be made, copied and compared without a window. Dates are COleDateTime values; a
// date whose status is not valid stands for "no date" and reads as -1 for year, month and day. Colours are COLORREF
// values (0x00BBGGRR); rectangles are client pixels.
#pragma once

#include <afx.h>
#include <afxtempl.h>
#include <afxdisp.h>
#include <atltypes.h>

// A schedule item as the host passes it.
struct tagCC_ITEM
{
    int nReserved = 0; // carried unchanged; the views read it as font flags: bit 0 bold, bit 1 italic
    int nImage = -1;   // icon: index into the control's image list, -1 none
    COleDateTime dtStart;
    COleDateTime dtEnd;           // the last moment of the item; an all-day item ends on its last day
    int nFullday = 0;             // exactly 1: all day
    CString strText;              // in the code page of CCalendarCtrl::SetTextCodePage; at first the system's
    COLORREF crColor1 = 0x000000; // marks
    COLORREF crColor2 = 0xFFFFFF; // background; white: not filled
    COLORREF crColor3 = 0xCCCCCC; // the shaded part of a bar or box
    COLORREF crColor4 = 0xCF9365; // outline
    LPARAM lParam = 0;            // the host's own; comes back in notifications
    COLORREF crColor5 = 0x000000; // text
    BOOL bAlarm = FALSE;          // shows the alarm mark
    BOOL bRecurrent = FALSE;      // shows the recurrence mark
    BOOL bMovable = TRUE;         // may be dragged
};

namespace dayvane {

// What part of an item a screen item is (tagCALENDAR_ITEM::nPiece).
enum ItemPiece
{
    PIECE_WHOLE = 0,  // begins and ends here
    PIECE_HEAD = 1,   // goes on afterwards
    PIECE_MIDDLE = 2, // began before and goes on afterwards
    PIECE_TAIL = 4,   // began before
    PIECE_INSIDE = 8, // multi-day view: several days, all of them shown
};

// An item in the store, and a piece of an item on the screen: one record for both.
struct tagCALENDAR_ITEM
{
    // The widths and the order keep a record at 112 bytes on 32 bits: a store may hold a million.
    short nPiece = PIECE_WHOLE; // always 0 in the store
    short bNoFocus = FALSE;     // screen only: hidden, passed over by keyboard, mouse and painter
    int nReserved = 0;
    int nImage = -1;
    int nParallel = 0; // time grids: how many items share the busiest row that this one covers
    COleDateTime dtStart;
    COleDateTime dtEnd;
    int nFullday = 0;
    CRect rcItem = CRect(0, 0, 0, 0); // client pixels before scrolling; top -1: not shown
    CString strText;
    COLORREF crColor1 = 0x000000;
    COLORREF crColor2 = 0xFFFFFF;
    COLORREF crColor3 = 0xCCCCCC;
    COLORREF crColor4 = 0xCF9365;
    union
    {
        LPARAM lParam;      // in the store: the host's data
        LPARAM nSource = 0; // on the screen: index of the item in the store
    };
    COLORREF crColor5 = 0x000000;
    BOOL bAlarm = FALSE;
    BOOL bRecurrent = FALSE;
    BOOL bMovable = TRUE;
    BOOL bStored = FALSE; // made from a tagCC_ITEM
};
static_assert(sizeof(void*) > 4 || sizeof(tagCALENDAR_ITEM) <= 112, "see above");

// Whether the item of a piece began before it, or goes on after it.
inline bool BeganEarlier(const tagCALENDAR_ITEM& piece)
{
    return piece.nPiece == PIECE_TAIL || piece.nPiece == PIECE_MIDDLE;
}
inline bool GoesOn(const tagCALENDAR_ITEM& piece)
{
    return piece.nPiece == PIECE_HEAD || piece.nPiece == PIECE_MIDDLE;
}

// A piece of an item as it is painted: a bar in the day grids and the full-day band, a box in the rows of the time
// grids.
struct ItemBox
{
    const tagCALENDAR_ITEM& item; // the screen item
    CRect rect;                   // client pixels, as scrolled, within the area
    CRect area;                   // of its column, its band or its row of boxes: it is not painted beyond it
    bool isBar = false;
    bool isCurrent = false;
};

using ItemArray = CArray<tagCALENDAR_ITEM, const tagCALENDAR_ITEM&>;

// Time grids: the items that cover one row, in the order in which they were added. Points into the screen list.
struct tagCV_LAYOUT : public CPtrArray
{
    int nWeight = 1;

    tagCV_LAYOUT() = default;
    tagCV_LAYOUT(const tagCV_LAYOUT& other) : CPtrArray(), nWeight(other.nWeight) { Append(other); }
    tagCV_LAYOUT& operator=(const tagCV_LAYOUT& other)
    {
        if (this != &other) {
            Copy(other);
            nWeight = other.nWeight;
        }
        return *this;
    }
};

} // namespace dayvane

// What a host sets for one date.
struct tagCALENDAR_DAY_PROPERTY
{
    CString strText;
    int nDayColor = 0;      // 1-based row of CCalendarCtrl::m_arDayColors, 0: none
    int nReserved = 0;      // carried
    int bUseMyWorkTime = 0; // time grids: the two times below stand instead of the control's work time
    COleDateTime dtWorkStart = COleDateTime(1899, 12, 30, 6, 0, 0);
    COleDateTime dtWorkEnd = COleDateTime(1899, 12, 30, 18, 0, 0);
};

// One row of the table of day colours. Month view: [0] background, [5] text of a day of another month, [6] text.
// Time grids: work-time row fill, line within the hour, line on the hour, then the same three for off time.
struct tagCALENDAR_DAY_COLOR
{
    COLORREF crColor[7];
};

struct tagCALENDAR_WORK_DAY_OF_WEEK
{
    BOOL bWorkDay[7] = {FALSE, TRUE, TRUE, TRUE, TRUE, TRUE, FALSE}; // Sunday first
};

// Only the times of day are used.
struct tagCALENDAR_WORK_TIME
{
    COleDateTime dtStart = COleDateTime(1899, 12, 30, 6, 0, 0);
    COleDateTime dtEnd = COleDateTime(1899, 12, 30, 18, 0, 0);
};

// What a bar of the month view writes before an item's text (SetItemDisplayMode).
enum CalendarItemDisplay
{
    CID_START = 0, // the start time of a timed item, nothing of an all-day item
    CID_START_AND_END = 8,
};

// What lies under a point.
enum CalendarHitCode
{
    CCHT_NOWHERE = 1,
    CCHT_ONITEM = 2,
    CCHT_ONCELL = 4,         // a date or time cell without an item
    CCHT_ONDAYCAPTION = 8,   // the strip on top of a day or month box, a column's header
    CCHT_ONFULLDAY = 16,     // the full-day band of a time grid, no item
    CCHT_ONFULLDAYITEM = 32, // an item in the full-day band
    CCHT_ONRULER = 128,      // the time ruler
};

namespace dayvane {
// The edges of an item that the mouse may pull.
enum ItemEdge
{
    EDGE_NONE = 0,
    EDGE_BOTTOM = 1, // moves the time of the end
    EDGE_RIGHT = 2,  // moves the day of the end
};
} // namespace dayvane

struct tagCCHITTESTINFO
{
    POINT pt = {0, 0};    // in: client pixels
    int nItem = -1;       // out: index in the store, -1 none
    SYSTEMTIME time = {}; // out: the date and time under the point; left as it was when there is none
    int nHitCode = CCHT_NOWHERE;
    int nScreenItem = -1; // out: index in the screen list, -1 none
};
