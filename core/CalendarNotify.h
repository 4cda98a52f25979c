// What a calendar control reports to its parent: WM_NOTIFY codes and their records. wParam is the control's dialog
// identifier. A record is valid only while the notification is being handled; the handler may do anything to the
// control, even destroy it.
#pragma once

#include <afxwin.h>

#define CCN_ITEMCLICK (-2080)       // NMCALENDARITEM: left button pressed, or an item made current by key
#define CCN_ITEMDBLCLICK (-2081)    // NMCALENDARITEM: double click, or a key that opens an item
#define CCN_ITEMRCLICK (-2082)      // NMCALENDARITEM: right button pressed
#define CCN_CONTEXTMENU (-2083)     // NMCALENDARITEM: a context menu is asked for
#define CCN_SELDATECHANGE (-2084)   // NMCALENDARITEM, nItem -1: scrolling moved the selected date
#define CCN_VIEWRANGECHANGE (-2085) // NMCALENDARDATES: the shown range moved
#define CCN_ITEMMOVED (-2086)       // NMCALENDARITEM: an item was dragged and the button released
#define CCN_IPE_ENDEDITITEM (-2087) // NMCALENDAREDIT: in-place editing ended with a text
#define CCN_COMBOSELCHANGE (-2088)  // NMCALENDARITEM, lParam not fetched: the year view's combo box changed
#define CCN_MOUSEHOVER (-2089)      // NMCALENDARITEM: the mouse rested over the control
#define CCN_SELCHANGED (-2090)      // NMCALENDARSELECTION, option selectionEvents: the selection has changed

// NMCALENDARDATES::nValue of CCN_VIEWRANGECHANGE: which kind of view has moved.
enum CalendarRangeValue
{
    CRV_TIMEGRID = 0x801, // day and multi-day view
    CRV_BOXES = 4100,     // week and year view
    CRV_MONTH = 4104,
};

// NMCALENDARSELECTION::nCause.
enum CalendarSelectionCause
{
    CCSEL_KEY = 1,
    CCSEL_PRESS,  // the left button went down: a sweep may follow
    CCSEL_SWEEP,  // the button went up after a sweep
    CCSEL_DROP,   // it went up after an item was dragged
    CCSEL_SCROLL, // scrolling took the selection along
};

// With the option keyboardMoves or typeToEdit: what a key asks of the host; nothing is done by itself. NMCALENDARITEM,
// nItem the current item, or -1 and time the begin of the selection; pt where a menu belongs.
#define CCN_COPY (-2100)      // Ctrl+C, Ctrl+Insert
#define CCN_CUT (-2101)       // Ctrl+X, Shift+Delete
#define CCN_PASTE (-2102)     // Ctrl+V, Shift+Insert
#define CCN_DUPLICATE (-2103) // Ctrl+D
// F2; and before the edit box opens for typed text, which it does unless the host opens one or answers non-zero:
// nSubValue is the character then, or VK_PROCESSKEY for an input method.
#define CCN_RENAME (-2104)
#define CCN_DELETE (-2105)    // Delete, with a current item
#define CCN_GOTODATE (-2106)  // Ctrl+G
#define CCN_BEGINMOVE (-2107) // before the first key moves the item; a non-zero answer leaves it where it is

struct NMCALENDARITEM
{
    NMHDR hdr;
    POINT pt;        // client pixels; (-1, -1) when a key or the combo box was the cause
    int nSubValue;   // mouse or key flags; with CCN_COMBOSELCHANGE the selected index, -1 none
    int nItem;       // index in the store, -1 none; with CCN_COMBOSELCHANGE as nSubValue
    LPARAM lParam;   // the item's lParam
    SYSTEMTIME time; // the date and time under the point, or the item's start
    UINT nFlags;     // the hit code (CCHT_...)
};

struct NMCALENDARDATES
{
    NMHDR hdr;
    SYSTEMTIME stDate;  // the current date; all zero when there is none (as the two below)
    SYSTEMTIME stFirst; // first shown day
    SYSTEMTIME stLast;  // last shown day
    int nValue;         // CalendarRangeValue
};

struct NMCALENDAREDIT
{
    NMHDR hdr;
    int nReserved;      // 0
    LPCTSTR lpszText;   // the committed text; copy it
    int nLength;        // bytes
    SYSTEMTIME stStart; // the selected range; 30 December 1899 when there is none, all zero when not a valid date
    SYSTEMTIME stEnd;
    int nMode; // the value that GetCurCellRect gave when the edit began
};

// What a control sends with CCN_IPE_ENDEDITITEM: the record above, and the item that was current when the edit began.
struct NMCALENDARITEMEDIT
{
    NMCALENDAREDIT edit;
    int nItem;     // index in the store; -1: none was current, or the items have changed since
    LPARAM lParam; // the item's lParam, also where its index is not known any more; 0: none was current
};

struct NMCALENDARSELECTION
{
    NMHDR hdr;
    SYSTEMTIME stBegin; // the range as GetSelRange gives it
    SYSTEMTIME stEnd;
    BOOL bWholeDays; // selected in the full-day band
    int nCause;      // CalendarSelectionCause
};
