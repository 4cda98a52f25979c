/* clang-format off */
/* The C interface of DayvaneCtl.dll: calendar and schedule controls for every language and compiler.
 *
 * C89, and C++. Made from dayvane_ctl.iface by ./dev generate: change that file.
 * Each message and record is described on the page "The C interface" of the documents.
 */
#ifndef DAYVANE_CTL_H
#define DAYVANE_CTL_H

#include <windows.h>
#include <commctrl.h>

#ifdef __cplusplus
extern "C" {
#endif

/* 1.0.0, as DayvaneVersion() answers it */
#define DAYVANE_CTL_VERSION 0x010000

#define DVM_FIRST (WM_USER + 0x100)
#define DVM_LAST (DVM_FIRST + 0xFF)
#define DV_FAILED(result) ((result) <= -100)
#define DV_INLINE static __inline

/* ---- Controls */
#define DAYVANE_DAY L"DayvaneDay" /* One day over a time ruler, with a band for all-day items. */
#define DAYVANE_MULTIDAY L"DayvaneMultiDay" /* 2 to 14 days, a working week or a week over one time ruler. */
#define DAYVANE_WEEK L"DayvaneWeek" /* Eight boxes in two rows, like a desk diary. */
#define DAYVANE_MONTH L"DayvaneMonth" /* Six weeks of days with item bars; with the style `DVS_BLOCKS` one block a day. */
#define DAYVANE_YEAR L"DayvaneYear" /* Twelve month boxes. */
#define DAYVANE_MINICALENDAR L"DayvaneMiniCalendar" /* A grid of small months in which a day or a range of days is picked. */
#define DAYVANE_MINIYEAR L"DayvaneMiniYear" /* A grid of small years in which a month or a range of months is picked. */
#define DAYVANE_YEARMONTHPICKER L"DayvaneYearMonthPicker" /* A button that drops down a chooser of year and month. It sets its own height. */
#define DVS_BLOCKS 0x0001 /* Window style of DayvaneMonth: one block a day instead of bars. */

/* ---- Answers */
#define DVE_POINTER (-101) /* A pointer is needed and was not given. */
#define DVE_SIZE (-102) /* The record does not begin with a size that this version of the library knows. */
#define DVE_UNKNOWN (-103) /* A message between DVM_FIRST and DVM_LAST that this version of the library does not know. */
#define DVE_KIND (-104) /* The message exists, but not for this kind of control. */
#define DVE_INDEX (-105) /* There is no item of that index. */
#define DVE_DATE (-106) /* Not a date, or not within the years 100 to 9999. */
#define DVE_VALUE (-107) /* A number outside of its range, or a flag that this version of the library does not know. */
#define DVE_MEMORY (-108) /* Not enough memory. */
#define DVE_FAILED (-109) /* Something else went wrong inside the library. */
#define DVE_VERSION (-110) /* DayvaneInit: the program was made for another version of the library. */
#define DVE_THREAD (-111) /* DayvaneInit: another thread of the process has called it before. */

/* ---- Items */
#define DVIF_TIMES 0x0001 /* stStart and stEnd count. */
#define DVIF_TEXT 0x0002 /* pszText and cchText count. */
#define DVIF_FLAGS 0x0004 /* uFlags counts. */
#define DVIF_COLORS 0x0008 /* The five colours count. */
#define DVIF_IMAGE 0x0010 /* nImage counts. */
#define DVIF_PARAM 0x0020 /* lParam counts. */
#define DVIF_ALL 0x003F /* All of the above. */
#define DVI_ALLDAY 0x0001 /* An all-day item; it ends on its last day. */
#define DVI_ALARM 0x0002 /* Shows the alarm mark. */
#define DVI_RECURRENT 0x0004 /* Shows the recurrence mark. */
#define DVI_FIXED 0x0008 /* Cannot be dragged. */
#define DVI_BOLD 0x0010 /* Bold text. */
#define DVI_ITALIC 0x0020 /* Italic text, struck out. */
#define DVU_LATER 0x0001 /* Neither lays out nor repaints now: send DVM_REFRESH after the last of many. */

/* An item. */
typedef struct DV_ITEM
{
    UINT cbSize; /* sizeof(DV_ITEM) */
    UINT uMask; /* which fields count: DVIF_... Others keep what the item has, or the default of a new one */
    SYSTEMTIME stStart; /* the first moment; milliseconds and the day of the week do not count */
    SYSTEMTIME stEnd; /* the last moment */
    LPWSTR pszText; /* the text, at most 32767 characters. DVM_GETITEM: where the text goes, or null */
    int cchText; /* DVM_GETITEM: before, how many characters there is room for; after, how long the text is, its end not counted. Else not used */
    int nImage; /* index into the image list, -1 none */
    UINT uFlags; /* DVI_... */
    COLORREF crText; /* black in a new item */
    COLORREF crBackground; /* white: not filled */
    COLORREF crBorder; /* the outline */
    COLORREF crShade; /* the shaded part of a bar or box */
    COLORREF crMarks; /* the alarm and recurrence marks */
    LPARAM lParam; /* the program's own; comes back in every notification */
} DV_ITEM;


#define DVM_ADDITEM (DVM_FIRST + 0) /* Adds a copy of the item. DVIF_TIMES is needed. */
DV_INLINE LRESULT DvAddItem(HWND control, UINT uFlags, const DV_ITEM* item)
{
    return SendMessageW(control, DVM_ADDITEM, (WPARAM)uFlags, (LPARAM)item);
}

#define DVM_SETITEM (DVM_FIRST + 1) /* Changes the fields that the mask names. */
DV_INLINE LRESULT DvSetItem(HWND control, int nIndex, const DV_ITEM* item)
{
    return SendMessageW(control, DVM_SETITEM, (WPARAM)nIndex, (LPARAM)item);
}

#define DVM_GETITEM (DVM_FIRST + 2) /* Fills in the fields that the mask names. A text that has no room is cut and still ends with a zero. */
DV_INLINE LRESULT DvGetItem(HWND control, int nIndex, DV_ITEM* item)
{
    return SendMessageW(control, DVM_GETITEM, (WPARAM)nIndex, (LPARAM)item);
}

#define DVM_DELETEITEM (DVM_FIRST + 3) /* Deletes the item; those after it move up. The current item stays the same one; when it is the deleted one, none is current. */
DV_INLINE LRESULT DvDeleteItem(HWND control, int nIndex, UINT uFlags)
{
    return SendMessageW(control, DVM_DELETEITEM, (WPARAM)nIndex, (LPARAM)uFlags);
}

#define DVM_DELETEALLITEMS (DVM_FIRST + 4) /* Deletes all items and all that DVM_SETDAY has set. */
DV_INLINE LRESULT DvDeleteAllItems(HWND control)
{
    return SendMessageW(control, DVM_DELETEALLITEMS, 0, 0);
}

#define DVM_GETCOUNT (DVM_FIRST + 5) /* Counts the items. */
DV_INLINE LRESULT DvGetCount(HWND control)
{
    return SendMessageW(control, DVM_GETCOUNT, 0, 0);
}

#define DVM_REFRESH (DVM_FIRST + 6) /* Lays out and repaints. Needed after DVU_LATER only; everything else shows at once. */
DV_INLINE LRESULT DvRefresh(HWND control)
{
    return SendMessageW(control, DVM_REFRESH, 0, 0);
}

#define DVM_GETITEMRECT (DVM_FIRST + 7) /* Client pixels of the first shown piece of the item, as last laid out. */
DV_INLINE LRESULT DvGetItemRect(HWND control, int nIndex, RECT* rect)
{
    return SendMessageW(control, DVM_GETITEMRECT, (WPARAM)nIndex, (LPARAM)rect);
}

#define DVM_ENSUREVISIBLE (DVM_FIRST + 8) /* Scrolls to the item. */
DV_INLINE LRESULT DvEnsureVisible(HWND control, int nIndex)
{
    return SendMessageW(control, DVM_ENSUREVISIBLE, (WPARAM)nIndex, 0);
}

#define DVM_SETIMAGELIST (DVM_FIRST + 9) /* The pictures that nImage selects. The control keeps a copy. */
DV_INLINE LRESULT DvSetImageList(HWND control, HIMAGELIST images)
{
    return SendMessageW(control, DVM_SETIMAGELIST, 0, (LPARAM)images);
}

/* ---- Dates and selection */
#define DVR_WHOLEDAYS 0x0001 /* The range stands for whole days. */

/* A range of time. */
typedef struct DV_RANGE
{
    UINT cbSize; /* sizeof(DV_RANGE) */
    UINT uFlags; /* DVR_... */
    SYSTEMTIME stFirst; /* the first moment */
    SYSTEMTIME stLast; /* the last moment */
} DV_RANGE;


#define DVM_SETDATE (DVM_FIRST + 16) /* The control shows this date: its day, week, month or year. The views select it too. */
DV_INLINE LRESULT DvSetDate(HWND control, const SYSTEMTIME* date)
{
    return SendMessageW(control, DVM_SETDATE, 0, (LPARAM)date);
}

#define DVM_GETDATE (DVM_FIRST + 17) /* The current date; of a mini calendar the first day of the first month or year shown. */
DV_INLINE LRESULT DvGetDate(HWND control, SYSTEMTIME* date)
{
    return SendMessageW(control, DVM_GETDATE, 0, (LPARAM)date);
}

#define DVM_GETRANGE (DVM_FIRST + 18) /* The first and last moment shown. */
DV_INLINE LRESULT DvGetRange(HWND control, DV_RANGE* range)
{
    return SendMessageW(control, DVM_GETRANGE, 0, (LPARAM)range);
}

#define DVM_GETSEL (DVM_FIRST + 19) /* The current item. */
DV_INLINE LRESULT DvGetSel(HWND control)
{
    return SendMessageW(control, DVM_GETSEL, 0, 0);
}

#define DVM_SETSEL (DVM_FIRST + 20) /* Makes the item current; -1: none. Nothing is notified. */
DV_INLINE LRESULT DvSetSel(HWND control, int nIndex)
{
    return SendMessageW(control, DVM_SETSEL, (WPARAM)nIndex, 0);
}

#define DVM_GETSELRANGE (DVM_FIRST + 21) /* The selected time. */
DV_INLINE LRESULT DvGetSelRange(HWND control, DV_RANGE* range)
{
    return SendMessageW(control, DVM_GETSELRANGE, 0, (LPARAM)range);
}

#define DVM_SETSELRANGE (DVM_FIRST + 22) /* Selects a range of time. Nothing is notified. */
DV_INLINE LRESULT DvSetSelRange(HWND control, const DV_RANGE* range)
{
    return SendMessageW(control, DVM_SETSELRANGE, 0, (LPARAM)range);
}

/* ---- Appearance and behaviour */
#define DVO_TIDYCOLUMNS 0x00000001 /* Items that overlap share the width of their day. */
#define DVO_LIMITEDBAND 0x00000002 /* The band of all-day items takes at most 40 % of the height. */
#define DVO_VISIBLESHORTITEMS 0x00000004 /* Short items are a row high and can be hit. */
#define DVO_HITWHATISSEEN 0x00000008 /* Of items over each other the one that is seen is hit. */
#define DVO_WHOLEDAYBYDRAG 0x00000010 /* Dragging into the band makes an item an all-day one, and back. */
#define DVO_KEYSLEAVEWHOLEDAY 0x00000020 /* Up and Down turn a selection of whole days into rows. */
#define DVO_NOWLINE 0x00000040 /* A line at the present time. */
#define DVO_EXTENDEDMOVE 0x00000080 /* A dragged item keeps its distance from the pointer; edges can be pulled. */
#define DVO_MORELIST 0x00000100 /* A more-items mark opens the list of its items. */
#define DVO_TOOLTIPS 0x00000200 /* The full text of an item, or of what is said of a day, where it is cut; mini calendars: the names of a day. */
#define DVO_CAREFULDROPS 0x00000400 /* A drop outside takes the move back; one that changes nothing is not reported. */
#define DVO_SELECTIONEVENTS 0x00000800 /* A change of the selection is reported: CCN_SELCHANGED. */
#define DVO_DIALOGKEYS 0x00001000 /* Tab leaves the control after its last item; Escape reaches the dialog. */
#define DVO_WHEELBYDELTA 0x00002000 /* Wheel deltas add up; with Ctrl they change the time scale. */
#define DVO_KEYBOARDMOVES 0x00004000 /* Ctrl with an arrow moves the current item, Ctrl+Shift its end, Alt+Shift its start; copying and others are asked for. */
#define DVO_TYPETOEDIT 0x00008000 /* Typing over an item or a selection opens the edit box with what is typed. */
#define DVO_FOLLOWDPI 0x00010000 /* Sizes follow the resolution of the screen. */
#define DVO_FOLLOWSYSTEMTHEME 0x00020000 /* Colours follow the system's. */
#define DVO_ALL 0x0003FFFF /* All of them: what we recommend. */
#define DVSH_CAPTION 0x0001 /* Views: the title band. */
#define DVSH_HOLIDAYS 0x0002 /* Views: names of holidays and named days. */
#define DVSH_TERMS 0x0004 /* Views: the 24 solar terms. */
#define DVSH_HOVER 0x0008 /* Views: CCN_MOUSEHOVER is sent. */
#define DVSH_RANGES 0x0010 /* Mini calendars: a range can be selected. */
#define DVSH_WEEKNUMBERS 0x0020 /* DayvaneMiniCalendar: a column of week numbers. */
#define DVY_NAMES 0x0001 /* Day lines: names of holidays and other days, under the number. */
#define DVY_TERMS 0x0002 /* Day lines: the 24 solar terms. */
#define DVY_SEASONALDAYS 0x0004 /* Day lines: the days of the farmer's year. */
#define DVY_ROKUYO 0x0008 /* Day lines: the six days. */
#define DVY_LUNARDATE 0x0010 /* Day lines: the date of the lunisolar calendar. */
#define DVY_MOON 0x0020 /* Day lines: the moon. */
#define DVY_WEEKNUMBERS 0x0040 /* A column of week numbers, or a note in the title. */
#define DVY_ERATITLES 0x0080 /* The year of the Japanese era in titles. */
#define DVY_INENGLISH 0x0100 /* All of these in English. */
#define DVC_CAPTION 0 /* Title band of DayvaneYear and DayvaneMultiDay. */
#define DVC_CAPTIONTEXT 1 /* Its text. */
#define DVC_RULER 2 /* Time ruler. */
#define DVC_RULERTEXT 3 /* Their text. */
#define DVC_CONTENT 4 /* Ordinary days; band of all-day items; boxes of months. */
#define DVC_GRID 5 /* Lines. */
#define DVC_BORDER 6 /* Stored: shows nowhere yet. */
#define DVC_HIGHLIGHT 7 /* Frame of the current item, selection. */
#define DVC_HIGHLIGHTTEXT 8 /* Selected text. */
#define DVD_WORKWEEK 0x100 /* DVM_SETDAYS: five days from the first day of the week. */
#define DVD_WEEK 0x101 /* DVM_SETDAYS: seven days from the first day of the week. */

#define DVM_SETOPTIONS (DVM_FIRST + 32) /* Switches the options in uMask on or off as uFlags has them: DVO_... */
DV_INLINE LRESULT DvSetOptions(HWND control, UINT uMask, UINT uFlags)
{
    return SendMessageW(control, DVM_SETOPTIONS, (WPARAM)uMask, (LPARAM)uFlags);
}

#define DVM_GETOPTIONS (DVM_FIRST + 33) /* All are off at first, but for DVO_EXTENDEDMOVE in the time grids. */
DV_INLINE LRESULT DvGetOptions(HWND control)
{
    return SendMessageW(control, DVM_GETOPTIONS, 0, 0);
}

#define DVM_SETSHOW (DVM_FIRST + 34) /* Shows or hides what uMask names as uFlags has it: DVSH_... A bit of another kind of control answers DVE_KIND. */
DV_INLINE LRESULT DvSetShow(HWND control, UINT uMask, UINT uFlags)
{
    return SendMessageW(control, DVM_SETSHOW, (WPARAM)uMask, (LPARAM)uFlags);
}

#define DVM_SETCOLOR (DVM_FIRST + 36) /* Sets one colour: DVC_... */
DV_INLINE LRESULT DvSetColor(HWND control, int nColor, COLORREF color)
{
    return SendMessageW(control, DVM_SETCOLOR, (WPARAM)nColor, (LPARAM)color);
}
#define DVT_CLASSIC 0 /* DVM_SETTHEME: the colours that the controls begin with. */
#define DVT_CALM 1 /* DVM_SETTHEME: light and quiet. */
#define DVT_DARK 2 /* DVM_SETTHEME: dark. */
#define DVT_HIGHCONTRAST 3 /* DVM_SETTHEME: the system's colours for high contrast. */

#define DVM_SETTHEME (DVM_FIRST + 45) /* All colours at once: DVT_... With DVO_FOLLOWSYSTEMTHEME it holds until the system changes its own. */
DV_INLINE LRESULT DvSetTheme(HWND control, int nTheme)
{
    return SendMessageW(control, DVM_SETTHEME, (WPARAM)nTheme, 0);
}

#define DVM_SETSCALE (DVM_FIRST + 46) /* The resolution that the control is drawn for, 48 to 768; 96 at first. Ends what DVO_FOLLOWDPI does. */
DV_INLINE LRESULT DvSetScale(HWND control, int nDpi)
{
    return SendMessageW(control, DVM_SETSCALE, (WPARAM)nDpi, 0);
}

#define DVM_GETSCALE (DVM_FIRST + 47)
DV_INLINE LRESULT DvGetScale(HWND control)
{
    return SendMessageW(control, DVM_GETSCALE, 0, 0);
}
#define DVX_REQUIRED 0 /* DVM_SETTEXTS: the texts that the controls begin with. */
#define DVX_JAPANESE 1 /* DVM_SETTEXTS: Japanese. */
#define DVX_ENGLISH 2 /* DVM_SETTEXTS: English. */
#define DVX_USER 3 /* DVM_SETTEXTS: as the user's language has them. */

#define DVM_SETTEXTS (DVM_FIRST + 50) /* The control's own words, such as the names of months: DVX_... */
DV_INLINE LRESULT DvSetTexts(HWND control, int nTexts)
{
    return SendMessageW(control, DVM_SETTEXTS, (WPARAM)nTexts, 0);
}

#define DVM_SETFIRSTDAY (DVM_FIRST + 37) /* The first day of the week: 1 Sunday to 7 Saturday. */
DV_INLINE LRESULT DvSetFirstDay(HWND control, int nDay)
{
    return SendMessageW(control, DVM_SETFIRSTDAY, (WPARAM)nDay, 0);
}

#define DVM_GETFIRSTDAY (DVM_FIRST + 38)
DV_INLINE LRESULT DvGetFirstDay(HWND control)
{
    return SendMessageW(control, DVM_GETFIRSTDAY, 0, 0);
}

#define DVM_SETDAYLINES (DVM_FIRST + 51) /* Switches what is said of days in uMask on or off as uFlags has it: DVY_... */
DV_INLINE LRESULT DvSetDayLines(HWND control, UINT uMask, UINT uFlags)
{
    return SendMessageW(control, DVM_SETDAYLINES, (WPARAM)uMask, (LPARAM)uFlags);
}

#define DVM_GETDAYLINES (DVM_FIRST + 52) /* All are off at first. */
DV_INLINE LRESULT DvGetDayLines(HWND control)
{
    return SendMessageW(control, DVM_GETDAYLINES, 0, 0);
}

#define DVM_SETTIMESCALE (DVM_FIRST + 39) /* Rows an hour, 1 to 60. */
DV_INLINE LRESULT DvSetTimeScale(HWND control, int nRows)
{
    return SendMessageW(control, DVM_SETTIMESCALE, (WPARAM)nRows, 0);
}

#define DVM_SETWORKTIME (DVM_FIRST + 40) /* The hours of work, in minutes from midnight, 0 to 1439, nFrom first. Those outside are shaded. */
DV_INLINE LRESULT DvSetWorkTime(HWND control, int nFrom, int nTo)
{
    return SendMessageW(control, DVM_SETWORKTIME, (WPARAM)nFrom, (LPARAM)nTo);
}

#define DVM_SETDAYS (DVM_FIRST + 41) /* How many days are shown: 2 to 14, DVD_WORKWEEK or DVD_WEEK. */
DV_INLINE LRESULT DvSetDays(HWND control, int nDays)
{
    return SendMessageW(control, DVM_SETDAYS, (WPARAM)nDays, 0);
}

#define DVM_SCROLLTOTIME (DVM_FIRST + 42) /* Scrolls to a time of day, in minutes from midnight. */
DV_INLINE LRESULT DvScrollToTime(HWND control, int nMinute)
{
    return SendMessageW(control, DVM_SCROLLTOTIME, (WPARAM)nMinute, 0);
}

#define DVM_SETGRID (DVM_FIRST + 43) /* How many months or years are shown, 1 to 20 either way. */
DV_INLINE LRESULT DvSetGrid(HWND control, int nRows, int nColumns)
{
    return SendMessageW(control, DVM_SETGRID, (WPARAM)nRows, (LPARAM)nColumns);
}

#define DVM_GETIDEALSIZE (DVM_FIRST + 44) /* The client area that the rows and columns take, pixels. */
DV_INLINE LRESULT DvGetIdealSize(HWND control, SIZE* size)
{
    return SendMessageW(control, DVM_GETIDEALSIZE, 0, (LPARAM)size);
}

/* ---- Days */

/* What a program sets for one day. */
typedef struct DV_DAY
{
    UINT cbSize; /* sizeof(DV_DAY) */
    int nColor; /* row of the table of day colours, 0 none, 1 ordinary, 2 holiday, 3 Saturday, 4 to 7 for programs */
    SYSTEMTIME stDate; /* the day */
    LPCWSTR pszText; /* a text beside the date, or null */
    int nWorkFrom; /* time grids: the day's own hours of work, minutes from midnight; -1 none */
    int nWorkTo; /* their end */
} DV_DAY;


#define DVM_SETDAY (DVM_FIRST + 48) /* Marks a day. The views keep it while the day is shown: set it again on CCN_VIEWRANGECHANGE. */
DV_INLINE LRESULT DvSetDay(HWND control, const DV_DAY* day)
{
    return SendMessageW(control, DVM_SETDAY, 0, (LPARAM)day);
}

#define DVM_CLEARDAYS (DVM_FIRST + 49) /* Takes all that DVM_SETDAY has set away. */
DV_INLINE LRESULT DvClearDays(HWND control)
{
    return SendMessageW(control, DVM_CLEARDAYS, 0, 0);
}

/* A cell of a mini calendar. */
typedef struct DV_CELL
{
    UINT cbSize; /* sizeof(DV_CELL) */
    SYSTEMTIME stDate; /* the day, or any day of the month */
    int bBold; /* 1: its number is bold */
    COLORREF crDot; /* a dot under it; 0xFFFFFFFF: none */
} DV_CELL;


#define DVM_SETCELL (DVM_FIRST + 53) /* Marks a cell, shown now or not. uFlags: 0 or DVU_LATER. */
DV_INLINE LRESULT DvSetCell(HWND control, UINT uFlags, const DV_CELL* cell)
{
    return SendMessageW(control, DVM_SETCELL, (WPARAM)uFlags, (LPARAM)cell);
}

#define DVM_CLEARCELLS (DVM_FIRST + 54) /* Takes all that DVM_SETCELL has set away. */
DV_INLINE LRESULT DvClearCells(HWND control)
{
    return SendMessageW(control, DVM_CLEARCELLS, 0, 0);
}

/* ---- Pointer, editing, printing */
#define DVH_NOWHERE 1 /* Nothing. */
#define DVH_ITEM 2 /* An item. */
#define DVH_CELL 4 /* A date or time without an item. */
#define DVH_DAYCAPTION 8 /* The head of a day or month. */
#define DVH_BAND 16 /* The band of all-day items. */
#define DVH_BANDITEM 32 /* An item in that band. */
#define DVH_RULER 128 /* The time ruler. */

/* What lies under a point. */
typedef struct DV_HIT
{
    UINT cbSize; /* sizeof(DV_HIT) */
    UINT uHit; /* out: DVH_... */
    POINT pt; /* in: client pixels */
    int nItem; /* out: index of the item, -1 none */
    SYSTEMTIME stTime; /* out: the date and time there; all zero when there is none */
} DV_HIT;


/* A page to print. */
typedef struct DV_PRINT
{
    UINT cbSize; /* sizeof(DV_PRINT) */
    UINT uFlags; /* DVP_... */
    HDC hdc; /* a printer's device context, or any other */
    int nPage; /* the page to draw, from 1; 0: only count */
    int nPages; /* out: how many pages there are */
} DV_PRINT;

#define DVP_LIST 0x0001 /* An agenda instead of the view's own page. */

#define DVM_HITTEST (DVM_FIRST + 56) /* Reports what lies under a point. */
DV_INLINE LRESULT DvHitTest(HWND control, DV_HIT* hit)
{
    return SendMessageW(control, DVM_HITTEST, 0, (LPARAM)hit);
}

#define DVM_BEGINEDIT (DVM_FIRST + 57) /* Opens an edit box with the text over the current item or cell; CCN_IPE_ENDEDITITEM brings the new one. */
DV_INLINE LRESULT DvBeginEdit(HWND control, LPCWSTR text)
{
    return SendMessageW(control, DVM_BEGINEDIT, 0, (LPARAM)text);
}

#define DVM_PRINT (DVM_FIRST + 58) /* Draws a page between StartPage and EndPage of the program. */
DV_INLINE LRESULT DvPrint(HWND control, DV_PRINT* print)
{
    return SendMessageW(control, DVM_PRINT, 0, (LPARAM)print);
}

/* ---- Notifications */

/* An item, or a place without one. */
typedef struct DVN_ITEM
{
    NMHDR hdr;
    POINT pt; /* client pixels; (-1, -1) when a key was the cause */
    int nSubValue; /* mouse or key flags (MK_...); with CCN_RENAME the character that was typed */
    int nItem; /* index, -1 none */
    LPARAM lParam; /* the item's lParam */
    SYSTEMTIME stTime; /* the date and time under the point, or the item's start */
    UINT uHit; /* DVH_... */
} DVN_ITEM;


/* A range of dates. */
typedef struct DVN_DATES
{
    NMHDR hdr;
    SYSTEMTIME stDate; /* the current date; all zero when there is none, as the two below */
    SYSTEMTIME stFirst; /* first shown day */
    SYSTEMTIME stLast; /* last shown day */
    int nValue; /* month 4104, week and year 4100, time grids 0x801 */
} DVN_DATES;


/* The text of an edit box. */
typedef struct DVN_EDIT
{
    NMHDR hdr;
    int nReserved; /* 0 */
    LPCWSTR pszText; /* the new text, UTF-16; copy it */
    int cchText; /* its length */
    SYSTEMTIME stFirst; /* the selected time; all zero when there is none */
    SYSTEMTIME stLast;
    int nMode; /* not 0 when the text is an item's */
    int nItem; /* index of the item that was current when the edit began; -1: none was, or the items have changed since */
    LPARAM lParam; /* that item's lParam, also where its index is not known any more */
} DVN_EDIT;

#define DVSEL_KEY 1 /* DVN_SELECTION: a key. */
#define DVSEL_PRESS 2 /* DVN_SELECTION: the left button went down; a sweep may follow. */
#define DVSEL_SWEEP 3 /* DVN_SELECTION: the button went up after a sweep. */
#define DVSEL_DROP 4 /* DVN_SELECTION: it went up after an item was dragged. */
#define DVSEL_SCROLL 5 /* DVN_SELECTION: scrolling took the selection along. */

/* The selection. */
typedef struct DVN_SELECTION
{
    NMHDR hdr;
    SYSTEMTIME stFirst; /* the selected time; all zero when there is none */
    SYSTEMTIME stLast;
    int bWholeDays; /* 1: selected in the band of all-day items */
    int nCause; /* DVSEL_... */
} DVN_SELECTION;

#define CCN_ITEMCLICK (-2080) /* DVN_ITEM: The left button was pressed, or Tab or Space made an item current. */
#define CCN_ITEMDBLCLICK (-2081) /* DVN_ITEM: A double click, or Enter. */
#define CCN_ITEMRCLICK (-2082) /* DVN_ITEM: The right button was pressed. */
#define CCN_CONTEXTMENU (-2083) /* DVN_ITEM: A context menu is asked for. */
#define CCN_SELDATECHANGE (-2084) /* DVN_ITEM: Scrolling is about to move the selected date. */
#define CCN_VIEWRANGECHANGE (-2085) /* DVN_DATES: The shown range has moved. */
#define CCN_ITEMMOVED (-2086) /* DVN_ITEM: An item was dropped. With MK_CONTROL in nSubValue the user wants a copy. */
#define CCN_IPE_ENDEDITITEM (-2087) /* DVN_EDIT: An edit box was closed with a text. */
#define CCN_MOUSEHOVER (-2089) /* DVN_ITEM: The mouse rested over the control. */
#define CCN_SELCHANGED (-2090) /* DVN_SELECTION: The selection has changed; with DVO_SELECTIONEVENTS. */
#define CCN_COPY (-2100) /* DVN_ITEM: Ctrl+C. This and the next ones: with DVO_KEYBOARDMOVES or DVO_TYPETOEDIT a key asks for it; nothing is done by itself. */
#define CCN_CUT (-2101) /* DVN_ITEM: Ctrl+X. */
#define CCN_PASTE (-2102) /* DVN_ITEM: Ctrl+V. */
#define CCN_DUPLICATE (-2103) /* DVN_ITEM: Ctrl+D. */
#define CCN_RENAME (-2104) /* DVN_ITEM: F2, or text is typed (nSubValue: the character): the edit box opens then, unless the answer is not 0. */
#define CCN_DELETE (-2105) /* DVN_ITEM: Delete, with a current item. */
#define CCN_GOTODATE (-2106) /* DVN_ITEM: Ctrl+G. */
#define CCN_BEGINMOVE (-2107) /* DVN_ITEM: Before the first key moves the current item: it stays when the answer is not 0. */
#define DVP_DATECHANGE 6025 /* DayvaneYearMonthPicker: another date is being stored. wParam: year x 100 + month */
#define DVP_DROPDOWN 6026 /* DayvaneYearMonthPicker: the chooser has opened. wParam: year x 100 + month */
#define DVP_CLOSEUP 6027 /* DayvaneYearMonthPicker: the chooser is closing. wParam: year x 100 + month, or 0 */
#define DVP_SELENDOK 6028 /* DayvaneYearMonthPicker: a month was picked. wParam: year x 100 + month */
#define DVP_SELENDCANCEL 6029 /* DayvaneYearMonthPicker: nothing was picked. wParam: 0 */

/* ---- Functions */
#define DVL_JAPANESE 0 /* Names in Japanese. */
#define DVL_ENGLISH 1 /* Names in English. */
#define DVN_FORMULAS 0 /* Days by the formulas that are the default of the controls. */
#define DVN_LAW 1 /* Holidays by the law in force on each day, solar terms of the exact sky. */

/* A date of the lunisolar calendar of Japan. */
typedef struct DV_LUNAR
{
    UINT cbSize; /* sizeof(DV_LUNAR) */
    int nYear; /* the civil year in which its first month begins */
    int nMonth; /* 1 to 12; a leap month has the number of the month before it */
    int nDay; /* 1 to 30 */
    int bLeapMonth; /* 1 in a leap month */
    int bUncertain; /* 1 when a moment lies so near to midnight that the date may be another */
    int nRokuyo; /* 0 taian, 1 shakko, 2 sensho, 3 tomobiki, 4 senbu, 5 butsumetsu */
} DV_LUNAR;


/* Makes the window classes; version is DAYVANE_CTL_VERSION of the header. 1, or DVE_VERSION, DVE_THREAD, DVE_FAILED. May be called again. */
int __stdcall DayvaneInit(UINT version);

/* The version of the library: major x 65536 + minor x 256 + patch. */
UINT __stdcall DayvaneVersion(void);

/* 1 on a day off by the law in force on that day, with its name in Japanese (name may be null); 0 on other days; DVE_DATE. */
int __stdcall DayvaneIsHoliday(int year, int month, int day, LPWSTR name, int cchName);

/* All names of a day in DVL_..., by law and sky, with a space between; answers how long the text is, 0 for a day without a name, DVE_DATE, DVE_VALUE. What has no room is cut. */
int __stdcall DayvaneDayNames(int year, int month, int day, int language, LPWSTR names, int cchNames);

/* The sun's longitude 0, 15, ... 345 that it reaches on that day, -1 for none, DVE_DATE outside of 1600 to 2400. */
int __stdcall DayvaneSolarTerm(int year, int month, int day);

/* 1; DVE_POINTER, DVE_SIZE, DVE_DATE outside of 1600 to 2400. */
int __stdcall DayvaneLunarDate(int year, int month, int day, DV_LUNAR* date);

/* Which days all controls show after their next DVM_REFRESH: DVN_... in DVL_... 1, or DVE_VALUE. */
int __stdcall DayvaneSetDays(int days, int language);

#ifdef __cplusplus
}
#endif

#endif
