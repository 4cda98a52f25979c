// Declarations of DayvaneCtl.dll for Delphi. Made from dayvane_ctl.iface by ./dev generate: change that file.
// Not compiled by the tests of Dayvane.
unit DayvaneCtl;

interface

uses
  Winapi.Windows, Winapi.Messages;

{$ALIGN 8}

const
  DAYVANE_CTL_VERSION = $010000;
  DVM_FIRST = WM_USER + $100;

// ---- Controls

const
  DAYVANE_DAY = 'DayvaneDay';
  DAYVANE_MULTIDAY = 'DayvaneMultiDay';
  DAYVANE_WEEK = 'DayvaneWeek';
  DAYVANE_MONTH = 'DayvaneMonth';
  DAYVANE_YEAR = 'DayvaneYear';
  DAYVANE_MINICALENDAR = 'DayvaneMiniCalendar';
  DAYVANE_MINIYEAR = 'DayvaneMiniYear';
  DAYVANE_YEARMONTHPICKER = 'DayvaneYearMonthPicker';
  DVS_BLOCKS = $0001; // Window style of DayvaneMonth: one block a day instead of bars.

// ---- Answers

const
  DVE_POINTER = -101; // A pointer is needed and was not given.
  DVE_SIZE = -102; // The record does not begin with a size that this version of the library knows.
  DVE_UNKNOWN = -103; // A message between DVM_FIRST and DVM_LAST that this version of the library does not know.
  DVE_KIND = -104; // The message exists, but not for this kind of control.
  DVE_INDEX = -105; // There is no item of that index.
  DVE_DATE = -106; // Not a date, or not within the years 100 to 9999.
  DVE_VALUE = -107; // A number outside of its range, or a flag that this version of the library does not know.
  DVE_MEMORY = -108; // Not enough memory.
  DVE_FAILED = -109; // Something else went wrong inside the library.
  DVE_VERSION = -110; // DayvaneInit: the program was made for another version of the library.
  DVE_THREAD = -111; // DayvaneInit: another thread of the process has called it before.

// ---- Items

const
  DVIF_TIMES = $0001; // stStart and stEnd count.
  DVIF_TEXT = $0002; // pszText and cchText count.
  DVIF_FLAGS = $0004; // uFlags counts.
  DVIF_COLORS = $0008; // The five colours count.
  DVIF_IMAGE = $0010; // nImage counts.
  DVIF_PARAM = $0020; // lParam counts.
  DVIF_ALL = $003F; // All of the above.
  DVI_ALLDAY = $0001; // An all-day item; it ends on its last day.
  DVI_ALARM = $0002; // Shows the alarm mark.
  DVI_RECURRENT = $0004; // Shows the recurrence mark.
  DVI_FIXED = $0008; // Cannot be dragged.
  DVI_BOLD = $0010; // Bold text.
  DVI_ITALIC = $0020; // Italic text, struck out.
  DVU_LATER = $0001; // Neither lays out nor repaints now: send DVM_REFRESH after the last of many.

type
  // An item.
  PDV_ITEM = ^DV_ITEM;
  DV_ITEM = record
    cbSize: UINT;
    uMask: UINT;
    stStart: TSystemTime;
    stEnd: TSystemTime;
    pszText: PWideChar;
    cchText: Integer;
    nImage: Integer;
    uFlags: UINT;
    crText: COLORREF;
    crBackground: COLORREF;
    crBorder: COLORREF;
    crShade: COLORREF;
    crMarks: COLORREF;
    lParam: LPARAM;
  end;


const
  DVM_ADDITEM = DVM_FIRST + 0; // wParam: UINT uFlags; lParam: in DV_ITEM item; the new item's index
  DVM_SETITEM = DVM_FIRST + 1; // wParam: int nIndex; lParam: in DV_ITEM item; 1
  DVM_GETITEM = DVM_FIRST + 2; // wParam: int nIndex; lParam: both DV_ITEM item; 1
  DVM_DELETEITEM = DVM_FIRST + 3; // wParam: int nIndex; lParam: UINT uFlags; 1
  DVM_DELETEALLITEMS = DVM_FIRST + 4; // wParam: -; lParam: -; 1
  DVM_GETCOUNT = DVM_FIRST + 5; // wParam: -; lParam: -; how many items there are
  DVM_REFRESH = DVM_FIRST + 6; // wParam: -; lParam: -; 1
  DVM_GETITEMRECT = DVM_FIRST + 7; // wParam: int nIndex; lParam: out RECT rect; 1, 0 when no piece of the item is shown
  DVM_ENSUREVISIBLE = DVM_FIRST + 8; // wParam: int nIndex; lParam: -; 1, 0 when the item's day is not shown
  DVM_SETIMAGELIST = DVM_FIRST + 9; // wParam: -; lParam: HIMAGELIST images; 1

// ---- Dates and selection

const
  DVR_WHOLEDAYS = $0001; // The range stands for whole days.

type
  // A range of time.
  PDV_RANGE = ^DV_RANGE;
  DV_RANGE = record
    cbSize: UINT;
    uFlags: UINT;
    stFirst: TSystemTime;
    stLast: TSystemTime;
  end;


const
  DVM_SETDATE = DVM_FIRST + 16; // wParam: -; lParam: in SYSTEMTIME date; 1
  DVM_GETDATE = DVM_FIRST + 17; // wParam: -; lParam: out SYSTEMTIME date; 1
  DVM_GETRANGE = DVM_FIRST + 18; // wParam: -; lParam: both DV_RANGE range; 1
  DVM_GETSEL = DVM_FIRST + 19; // wParam: -; lParam: -; the index, -1 none
  DVM_SETSEL = DVM_FIRST + 20; // wParam: int nIndex; lParam: -; 1
  DVM_GETSELRANGE = DVM_FIRST + 21; // wParam: -; lParam: both DV_RANGE range; 1, 0 when nothing is selected
  DVM_SETSELRANGE = DVM_FIRST + 22; // wParam: -; lParam: in DV_RANGE range; 1

// ---- Appearance and behaviour

const
  DVO_TIDYCOLUMNS = $00000001; // Items that overlap share the width of their day.
  DVO_LIMITEDBAND = $00000002; // The band of all-day items takes at most 40 % of the height.
  DVO_VISIBLESHORTITEMS = $00000004; // Short items are a row high and can be hit.
  DVO_HITWHATISSEEN = $00000008; // Of items over each other the one that is seen is hit.
  DVO_WHOLEDAYBYDRAG = $00000010; // Dragging into the band makes an item an all-day one, and back.
  DVO_KEYSLEAVEWHOLEDAY = $00000020; // Up and Down turn a selection of whole days into rows.
  DVO_NOWLINE = $00000040; // A line at the present time.
  DVO_EXTENDEDMOVE = $00000080; // A dragged item keeps its distance from the pointer; edges can be pulled.
  DVO_MORELIST = $00000100; // A more-items mark opens the list of its items.
  DVO_TOOLTIPS = $00000200; // The full text of an item, or of what is said of a day, where it is cut; mini calendars: the names of a day.
  DVO_CAREFULDROPS = $00000400; // A drop outside takes the move back; one that changes nothing is not reported.
  DVO_SELECTIONEVENTS = $00000800; // A change of the selection is reported: CCN_SELCHANGED.
  DVO_DIALOGKEYS = $00001000; // Tab leaves the control after its last item; Escape reaches the dialog.
  DVO_WHEELBYDELTA = $00002000; // Wheel deltas add up; with Ctrl they change the time scale.
  DVO_KEYBOARDMOVES = $00004000; // Ctrl with an arrow moves the current item, Ctrl+Shift its end, Alt+Shift its start; copying and others are asked for.
  DVO_TYPETOEDIT = $00008000; // Typing over an item or a selection opens the edit box with what is typed.
  DVO_FOLLOWDPI = $00010000; // Sizes follow the resolution of the screen.
  DVO_FOLLOWSYSTEMTHEME = $00020000; // Colours follow the system's.
  DVO_ALL = $0003FFFF; // All of them: what we recommend.
  DVSH_CAPTION = $0001; // Views: the title band.
  DVSH_HOLIDAYS = $0002; // Views: names of holidays and named days.
  DVSH_TERMS = $0004; // Views: the 24 solar terms.
  DVSH_HOVER = $0008; // Views: CCN_MOUSEHOVER is sent.
  DVSH_RANGES = $0010; // Mini calendars: a range can be selected.
  DVSH_WEEKNUMBERS = $0020; // DayvaneMiniCalendar: a column of week numbers.
  DVY_NAMES = $0001; // Day lines: names of holidays and other days, under the number.
  DVY_TERMS = $0002; // Day lines: the 24 solar terms.
  DVY_SEASONALDAYS = $0004; // Day lines: the days of the farmer's year.
  DVY_ROKUYO = $0008; // Day lines: the six days.
  DVY_LUNARDATE = $0010; // Day lines: the date of the lunisolar calendar.
  DVY_MOON = $0020; // Day lines: the moon.
  DVY_WEEKNUMBERS = $0040; // A column of week numbers, or a note in the title.
  DVY_ERATITLES = $0080; // The year of the Japanese era in titles.
  DVY_INENGLISH = $0100; // All of these in English.
  DVC_CAPTION = 0; // Title band of DayvaneYear and DayvaneMultiDay.
  DVC_CAPTIONTEXT = 1; // Its text.
  DVC_RULER = 2; // Time ruler.
  DVC_RULERTEXT = 3; // Their text.
  DVC_CONTENT = 4; // Ordinary days; band of all-day items; boxes of months.
  DVC_GRID = 5; // Lines.
  DVC_BORDER = 6; // Stored: shows nowhere yet.
  DVC_HIGHLIGHT = 7; // Frame of the current item, selection.
  DVC_HIGHLIGHTTEXT = 8; // Selected text.
  DVD_WORKWEEK = $100; // DVM_SETDAYS: five days from the first day of the week.
  DVD_WEEK = $101; // DVM_SETDAYS: seven days from the first day of the week.
  DVM_SETOPTIONS = DVM_FIRST + 32; // wParam: UINT uMask; lParam: UINT uFlags; 1
  DVM_GETOPTIONS = DVM_FIRST + 33; // wParam: -; lParam: -; the options that are on: DVO_...
  DVM_SETSHOW = DVM_FIRST + 34; // wParam: UINT uMask; lParam: UINT uFlags; 1
  DVM_SETCOLOR = DVM_FIRST + 36; // wParam: int nColor; lParam: COLORREF color; 1
  DVT_CLASSIC = 0; // DVM_SETTHEME: the colours that the controls begin with.
  DVT_CALM = 1; // DVM_SETTHEME: light and quiet.
  DVT_DARK = 2; // DVM_SETTHEME: dark.
  DVT_HIGHCONTRAST = 3; // DVM_SETTHEME: the system's colours for high contrast.
  DVM_SETTHEME = DVM_FIRST + 45; // wParam: int nTheme; lParam: -; 1
  DVM_SETSCALE = DVM_FIRST + 46; // wParam: int nDpi; lParam: -; 1
  DVM_GETSCALE = DVM_FIRST + 47; // wParam: -; lParam: -; the resolution
  DVX_REQUIRED = 0; // DVM_SETTEXTS: the texts that the controls begin with.
  DVX_JAPANESE = 1; // DVM_SETTEXTS: Japanese.
  DVX_ENGLISH = 2; // DVM_SETTEXTS: English.
  DVX_USER = 3; // DVM_SETTEXTS: as the user's language has them.
  DVM_SETTEXTS = DVM_FIRST + 50; // wParam: int nTexts; lParam: -; 1
  DVM_SETFIRSTDAY = DVM_FIRST + 37; // wParam: int nDay; lParam: -; 1
  DVM_GETFIRSTDAY = DVM_FIRST + 38; // wParam: -; lParam: -; 1 to 7
  DVM_SETDAYLINES = DVM_FIRST + 51; // wParam: UINT uMask; lParam: UINT uFlags; 1
  DVM_GETDAYLINES = DVM_FIRST + 52; // wParam: -; lParam: -; what is on: DVY_...
  DVM_SETTIMESCALE = DVM_FIRST + 39; // wParam: int nRows; lParam: -; 1
  DVM_SETWORKTIME = DVM_FIRST + 40; // wParam: int nFrom; lParam: int nTo; 1
  DVM_SETDAYS = DVM_FIRST + 41; // wParam: int nDays; lParam: -; 1
  DVM_SCROLLTOTIME = DVM_FIRST + 42; // wParam: int nMinute; lParam: -; 1
  DVM_SETGRID = DVM_FIRST + 43; // wParam: int nRows; lParam: int nColumns; 1
  DVM_GETIDEALSIZE = DVM_FIRST + 44; // wParam: -; lParam: out SIZE size; 1

// ---- Days

type
  // What a program sets for one day.
  PDV_DAY = ^DV_DAY;
  DV_DAY = record
    cbSize: UINT;
    nColor: Integer;
    stDate: TSystemTime;
    pszText: PWideChar;
    nWorkFrom: Integer;
    nWorkTo: Integer;
  end;


const
  DVM_SETDAY = DVM_FIRST + 48; // wParam: -; lParam: in DV_DAY day; 1
  DVM_CLEARDAYS = DVM_FIRST + 49; // wParam: -; lParam: -; 1

type
  // A cell of a mini calendar.
  PDV_CELL = ^DV_CELL;
  DV_CELL = record
    cbSize: UINT;
    stDate: TSystemTime;
    bBold: Integer;
    crDot: COLORREF;
  end;


const
  DVM_SETCELL = DVM_FIRST + 53; // wParam: UINT uFlags; lParam: in DV_CELL cell; 1
  DVM_CLEARCELLS = DVM_FIRST + 54; // wParam: -; lParam: -; 1

// ---- Pointer, editing, printing

const
  DVH_NOWHERE = 1; // Nothing.
  DVH_ITEM = 2; // An item.
  DVH_CELL = 4; // A date or time without an item.
  DVH_DAYCAPTION = 8; // The head of a day or month.
  DVH_BAND = 16; // The band of all-day items.
  DVH_BANDITEM = 32; // An item in that band.
  DVH_RULER = 128; // The time ruler.

type
  // What lies under a point.
  PDV_HIT = ^DV_HIT;
  DV_HIT = record
    cbSize: UINT;
    uHit: UINT;
    pt: TPoint;
    nItem: Integer;
    stTime: TSystemTime;
  end;


type
  // A page to print.
  PDV_PRINT = ^DV_PRINT;
  DV_PRINT = record
    cbSize: UINT;
    uFlags: UINT;
    hdc: HDC;
    nPage: Integer;
    nPages: Integer;
  end;


const
  DVP_LIST = $0001; // An agenda instead of the view's own page.
  DVM_HITTEST = DVM_FIRST + 56; // wParam: -; lParam: both DV_HIT hit; uHit
  DVM_BEGINEDIT = DVM_FIRST + 57; // wParam: -; lParam: LPCWSTR text; 1, 0 when no edit box could be opened
  DVM_PRINT = DVM_FIRST + 58; // wParam: -; lParam: both DV_PRINT print; 1, 0 when there is no such page

// ---- Notifications

type
  // An item, or a place without one.
  PDVN_ITEM = ^DVN_ITEM;
  DVN_ITEM = record
    hdr: TNMHdr;
    pt: TPoint;
    nSubValue: Integer;
    nItem: Integer;
    lParam: LPARAM;
    stTime: TSystemTime;
    uHit: UINT;
  end;


type
  // A range of dates.
  PDVN_DATES = ^DVN_DATES;
  DVN_DATES = record
    hdr: TNMHdr;
    stDate: TSystemTime;
    stFirst: TSystemTime;
    stLast: TSystemTime;
    nValue: Integer;
  end;


type
  // The text of an edit box.
  PDVN_EDIT = ^DVN_EDIT;
  DVN_EDIT = record
    hdr: TNMHdr;
    nReserved: Integer;
    pszText: PWideChar;
    cchText: Integer;
    stFirst: TSystemTime;
    stLast: TSystemTime;
    nMode: Integer;
    nItem: Integer;
    lParam: LPARAM;
  end;


const
  DVSEL_KEY = 1; // DVN_SELECTION: a key.
  DVSEL_PRESS = 2; // DVN_SELECTION: the left button went down; a sweep may follow.
  DVSEL_SWEEP = 3; // DVN_SELECTION: the button went up after a sweep.
  DVSEL_DROP = 4; // DVN_SELECTION: it went up after an item was dragged.
  DVSEL_SCROLL = 5; // DVN_SELECTION: scrolling took the selection along.

type
  // The selection.
  PDVN_SELECTION = ^DVN_SELECTION;
  DVN_SELECTION = record
    hdr: TNMHdr;
    stFirst: TSystemTime;
    stLast: TSystemTime;
    bWholeDays: Integer;
    nCause: Integer;
  end;


const
  CCN_ITEMCLICK = -2080; // DVN_ITEM: The left button was pressed, or Tab or Space made an item current.
  CCN_ITEMDBLCLICK = -2081; // DVN_ITEM: A double click, or Enter.
  CCN_ITEMRCLICK = -2082; // DVN_ITEM: The right button was pressed.
  CCN_CONTEXTMENU = -2083; // DVN_ITEM: A context menu is asked for.
  CCN_SELDATECHANGE = -2084; // DVN_ITEM: Scrolling is about to move the selected date.
  CCN_VIEWRANGECHANGE = -2085; // DVN_DATES: The shown range has moved.
  CCN_ITEMMOVED = -2086; // DVN_ITEM: An item was dropped. With MK_CONTROL in nSubValue the user wants a copy.
  CCN_IPE_ENDEDITITEM = -2087; // DVN_EDIT: An edit box was closed with a text.
  CCN_MOUSEHOVER = -2089; // DVN_ITEM: The mouse rested over the control.
  CCN_SELCHANGED = -2090; // DVN_SELECTION: The selection has changed; with DVO_SELECTIONEVENTS.
  CCN_COPY = -2100; // DVN_ITEM: Ctrl+C. This and the next ones: with DVO_KEYBOARDMOVES or DVO_TYPETOEDIT a key asks for it; nothing is done by itself.
  CCN_CUT = -2101; // DVN_ITEM: Ctrl+X.
  CCN_PASTE = -2102; // DVN_ITEM: Ctrl+V.
  CCN_DUPLICATE = -2103; // DVN_ITEM: Ctrl+D.
  CCN_RENAME = -2104; // DVN_ITEM: F2, or text is typed (nSubValue: the character): the edit box opens then, unless the answer is not 0.
  CCN_DELETE = -2105; // DVN_ITEM: Delete, with a current item.
  CCN_GOTODATE = -2106; // DVN_ITEM: Ctrl+G.
  CCN_BEGINMOVE = -2107; // DVN_ITEM: Before the first key moves the current item: it stays when the answer is not 0.
  DVP_DATECHANGE = 6025; // DayvaneYearMonthPicker: another date is being stored. wParam: year x 100 + month
  DVP_DROPDOWN = 6026; // DayvaneYearMonthPicker: the chooser has opened. wParam: year x 100 + month
  DVP_CLOSEUP = 6027; // DayvaneYearMonthPicker: the chooser is closing. wParam: year x 100 + month, or 0
  DVP_SELENDOK = 6028; // DayvaneYearMonthPicker: a month was picked. wParam: year x 100 + month
  DVP_SELENDCANCEL = 6029; // DayvaneYearMonthPicker: nothing was picked. wParam: 0

// ---- Functions

const
  DVL_JAPANESE = 0; // Names in Japanese.
  DVL_ENGLISH = 1; // Names in English.
  DVN_FORMULAS = 0; // Days by the formulas that are the default of the controls.
  DVN_LAW = 1; // Holidays by the law in force on each day, solar terms of the exact sky.

type
  // A date of the lunisolar calendar of Japan.
  PDV_LUNAR = ^DV_LUNAR;
  DV_LUNAR = record
    cbSize: UINT;
    nYear: Integer;
    nMonth: Integer;
    nDay: Integer;
    bLeapMonth: Integer;
    bUncertain: Integer;
    nRokuyo: Integer;
  end;


// Makes the window classes; version is DAYVANE_CTL_VERSION of the header. 1, or DVE_VERSION, DVE_THREAD, DVE_FAILED. May be called again.
function DayvaneInit(version: UINT): Integer; stdcall;

// The version of the library: major x 65536 + minor x 256 + patch.
function DayvaneVersion: UINT; stdcall;

// 1 on a day off by the law in force on that day, with its name in Japanese (name may be null); 0 on other days; DVE_DATE.
function DayvaneIsHoliday(year: Integer; month: Integer; day: Integer; name: PWideChar; cchName: Integer): Integer; stdcall;

// All names of a day in DVL_..., by law and sky, with a space between; answers how long the text is, 0 for a day without a name, DVE_DATE, DVE_VALUE. What has no room is cut.
function DayvaneDayNames(year: Integer; month: Integer; day: Integer; language: Integer; names: PWideChar; cchNames: Integer): Integer; stdcall;

// The sun's longitude 0, 15, ... 345 that it reaches on that day, -1 for none, DVE_DATE outside of 1600 to 2400.
function DayvaneSolarTerm(year: Integer; month: Integer; day: Integer): Integer; stdcall;

// 1; DVE_POINTER, DVE_SIZE, DVE_DATE outside of 1600 to 2400.
function DayvaneLunarDate(year: Integer; month: Integer; day: Integer; date: PDV_LUNAR): Integer; stdcall;

// Which days all controls show after their next DVM_REFRESH: DVN_... in DVL_... 1, or DVE_VALUE.
function DayvaneSetDays(days: Integer; language: Integer): Integer; stdcall;

implementation

function DayvaneInit(version: UINT): Integer; stdcall; external 'DayvaneCtl.dll';
function DayvaneVersion: UINT; stdcall; external 'DayvaneCtl.dll';
function DayvaneIsHoliday(year: Integer; month: Integer; day: Integer; name: PWideChar; cchName: Integer): Integer; stdcall; external 'DayvaneCtl.dll';
function DayvaneDayNames(year: Integer; month: Integer; day: Integer; language: Integer; names: PWideChar; cchNames: Integer): Integer; stdcall; external 'DayvaneCtl.dll';
function DayvaneSolarTerm(year: Integer; month: Integer; day: Integer): Integer; stdcall; external 'DayvaneCtl.dll';
function DayvaneLunarDate(year: Integer; month: Integer; day: Integer; date: PDV_LUNAR): Integer; stdcall; external 'DayvaneCtl.dll';
function DayvaneSetDays(days: Integer; language: Integer): Integer; stdcall; external 'DayvaneCtl.dll';
end.
