// Declarations of DayvaneCtl.dll for C#. Made from dayvane_ctl.iface by ./dev generate: change that file.
// Not compiled by the tests of Dayvane.
using System;
using System.Runtime.InteropServices;

public static class Dayvane
{
    public const uint DAYVANE_CTL_VERSION = 0x010000;
    public const int DVM_FIRST = 0x500;

    [DllImport("user32.dll", CharSet = CharSet.Unicode)]
    public static extern IntPtr SendMessageW(IntPtr control, int message, IntPtr wParam, IntPtr lParam);

    [StructLayout(LayoutKind.Sequential)]
    public struct SystemTime
    {
        public ushort Year, Month, DayOfWeek, Day, Hour, Minute, Second, Milliseconds;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct Point
    {
        public int X, Y;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct NotifyHeader
    {
        public IntPtr Control;
        public UIntPtr Id;
        public int Code;
    }

    // ---- Controls
    public const string DAYVANE_DAY = "DayvaneDay";
    public const string DAYVANE_MULTIDAY = "DayvaneMultiDay";
    public const string DAYVANE_WEEK = "DayvaneWeek";
    public const string DAYVANE_MONTH = "DayvaneMonth";
    public const string DAYVANE_YEAR = "DayvaneYear";
    public const string DAYVANE_MINICALENDAR = "DayvaneMiniCalendar";
    public const string DAYVANE_MINIYEAR = "DayvaneMiniYear";
    public const string DAYVANE_YEARMONTHPICKER = "DayvaneYearMonthPicker";
    public const int DVS_BLOCKS = 0x0001; // Window style of DayvaneMonth: one block a day instead of bars.

    // ---- Answers
    public const int DVE_POINTER = -101; // A pointer is needed and was not given.
    public const int DVE_SIZE = -102; // The record does not begin with a size that this version of the library knows.
    public const int DVE_UNKNOWN = -103; // A message between DVM_FIRST and DVM_LAST that this version of the library does not know.
    public const int DVE_KIND = -104; // The message exists, but not for this kind of control.
    public const int DVE_INDEX = -105; // There is no item of that index.
    public const int DVE_DATE = -106; // Not a date, or not within the years 100 to 9999.
    public const int DVE_VALUE = -107; // A number outside of its range, or a flag that this version of the library does not know.
    public const int DVE_MEMORY = -108; // Not enough memory.
    public const int DVE_FAILED = -109; // Something else went wrong inside the library.
    public const int DVE_VERSION = -110; // DayvaneInit: the program was made for another version of the library.
    public const int DVE_THREAD = -111; // DayvaneInit: another thread of the process has called it before.

    // ---- Items
    public const int DVIF_TIMES = 0x0001; // stStart and stEnd count.
    public const int DVIF_TEXT = 0x0002; // pszText and cchText count.
    public const int DVIF_FLAGS = 0x0004; // uFlags counts.
    public const int DVIF_COLORS = 0x0008; // The five colours count.
    public const int DVIF_IMAGE = 0x0010; // nImage counts.
    public const int DVIF_PARAM = 0x0020; // lParam counts.
    public const int DVIF_ALL = 0x003F; // All of the above.
    public const int DVI_ALLDAY = 0x0001; // An all-day item; it ends on its last day.
    public const int DVI_ALARM = 0x0002; // Shows the alarm mark.
    public const int DVI_RECURRENT = 0x0004; // Shows the recurrence mark.
    public const int DVI_FIXED = 0x0008; // Cannot be dragged.
    public const int DVI_BOLD = 0x0010; // Bold text.
    public const int DVI_ITALIC = 0x0020; // Italic text, struck out.
    public const int DVU_LATER = 0x0001; // Neither lays out nor repaints now: send DVM_REFRESH after the last of many.

    // An item.
    [StructLayout(LayoutKind.Sequential)]
    public struct DV_ITEM
    {
        public uint cbSize;
        public uint uMask;
        public SystemTime stStart;
        public SystemTime stEnd;
        public IntPtr pszText;
        public int cchText;
        public int nImage;
        public uint uFlags;
        public uint crText;
        public uint crBackground;
        public uint crBorder;
        public uint crShade;
        public uint crMarks;
        public IntPtr lParam;
    }

    public const int DVM_ADDITEM = DVM_FIRST + 0; // wParam: UINT uFlags; lParam: in DV_ITEM item; the new item's index
    public const int DVM_SETITEM = DVM_FIRST + 1; // wParam: int nIndex; lParam: in DV_ITEM item; 1
    public const int DVM_GETITEM = DVM_FIRST + 2; // wParam: int nIndex; lParam: both DV_ITEM item; 1
    public const int DVM_DELETEITEM = DVM_FIRST + 3; // wParam: int nIndex; lParam: UINT uFlags; 1
    public const int DVM_DELETEALLITEMS = DVM_FIRST + 4; // wParam: -; lParam: -; 1
    public const int DVM_GETCOUNT = DVM_FIRST + 5; // wParam: -; lParam: -; how many items there are
    public const int DVM_REFRESH = DVM_FIRST + 6; // wParam: -; lParam: -; 1
    public const int DVM_GETITEMRECT = DVM_FIRST + 7; // wParam: int nIndex; lParam: out RECT rect; 1, 0 when no piece of the item is shown
    public const int DVM_ENSUREVISIBLE = DVM_FIRST + 8; // wParam: int nIndex; lParam: -; 1, 0 when the item's day is not shown
    public const int DVM_SETIMAGELIST = DVM_FIRST + 9; // wParam: -; lParam: HIMAGELIST images; 1

    // ---- Dates and selection
    public const int DVR_WHOLEDAYS = 0x0001; // The range stands for whole days.

    // A range of time.
    [StructLayout(LayoutKind.Sequential)]
    public struct DV_RANGE
    {
        public uint cbSize;
        public uint uFlags;
        public SystemTime stFirst;
        public SystemTime stLast;
    }

    public const int DVM_SETDATE = DVM_FIRST + 16; // wParam: -; lParam: in SYSTEMTIME date; 1
    public const int DVM_GETDATE = DVM_FIRST + 17; // wParam: -; lParam: out SYSTEMTIME date; 1
    public const int DVM_GETRANGE = DVM_FIRST + 18; // wParam: -; lParam: both DV_RANGE range; 1
    public const int DVM_GETSEL = DVM_FIRST + 19; // wParam: -; lParam: -; the index, -1 none
    public const int DVM_SETSEL = DVM_FIRST + 20; // wParam: int nIndex; lParam: -; 1
    public const int DVM_GETSELRANGE = DVM_FIRST + 21; // wParam: -; lParam: both DV_RANGE range; 1, 0 when nothing is selected
    public const int DVM_SETSELRANGE = DVM_FIRST + 22; // wParam: -; lParam: in DV_RANGE range; 1

    // ---- Appearance and behaviour
    public const int DVO_TIDYCOLUMNS = 0x00000001; // Items that overlap share the width of their day.
    public const int DVO_LIMITEDBAND = 0x00000002; // The band of all-day items takes at most 40 % of the height.
    public const int DVO_VISIBLESHORTITEMS = 0x00000004; // Short items are a row high and can be hit.
    public const int DVO_HITWHATISSEEN = 0x00000008; // Of items over each other the one that is seen is hit.
    public const int DVO_WHOLEDAYBYDRAG = 0x00000010; // Dragging into the band makes an item an all-day one, and back.
    public const int DVO_KEYSLEAVEWHOLEDAY = 0x00000020; // Up and Down turn a selection of whole days into rows.
    public const int DVO_NOWLINE = 0x00000040; // A line at the present time.
    public const int DVO_EXTENDEDMOVE = 0x00000080; // A dragged item keeps its distance from the pointer; edges can be pulled.
    public const int DVO_MORELIST = 0x00000100; // A more-items mark opens the list of its items.
    public const int DVO_TOOLTIPS = 0x00000200; // The full text of an item, or of what is said of a day, where it is cut; mini calendars: the names of a day.
    public const int DVO_CAREFULDROPS = 0x00000400; // A drop outside takes the move back; one that changes nothing is not reported.
    public const int DVO_SELECTIONEVENTS = 0x00000800; // A change of the selection is reported: CCN_SELCHANGED.
    public const int DVO_DIALOGKEYS = 0x00001000; // Tab leaves the control after its last item; Escape reaches the dialog.
    public const int DVO_WHEELBYDELTA = 0x00002000; // Wheel deltas add up; with Ctrl they change the time scale.
    public const int DVO_KEYBOARDMOVES = 0x00004000; // Ctrl with an arrow moves the current item, Ctrl+Shift its end, Alt+Shift its start; copying and others are asked for.
    public const int DVO_TYPETOEDIT = 0x00008000; // Typing over an item or a selection opens the edit box with what is typed.
    public const int DVO_FOLLOWDPI = 0x00010000; // Sizes follow the resolution of the screen.
    public const int DVO_FOLLOWSYSTEMTHEME = 0x00020000; // Colours follow the system's.
    public const int DVO_ALL = 0x0003FFFF; // All of them: what we recommend.
    public const int DVSH_CAPTION = 0x0001; // Views: the title band.
    public const int DVSH_HOLIDAYS = 0x0002; // Views: names of holidays and named days.
    public const int DVSH_TERMS = 0x0004; // Views: the 24 solar terms.
    public const int DVSH_HOVER = 0x0008; // Views: CCN_MOUSEHOVER is sent.
    public const int DVSH_RANGES = 0x0010; // Mini calendars: a range can be selected.
    public const int DVSH_WEEKNUMBERS = 0x0020; // DayvaneMiniCalendar: a column of week numbers.
    public const int DVY_NAMES = 0x0001; // Day lines: names of holidays and other days, under the number.
    public const int DVY_TERMS = 0x0002; // Day lines: the 24 solar terms.
    public const int DVY_SEASONALDAYS = 0x0004; // Day lines: the days of the farmer's year.
    public const int DVY_ROKUYO = 0x0008; // Day lines: the six days.
    public const int DVY_LUNARDATE = 0x0010; // Day lines: the date of the lunisolar calendar.
    public const int DVY_MOON = 0x0020; // Day lines: the moon.
    public const int DVY_WEEKNUMBERS = 0x0040; // A column of week numbers, or a note in the title.
    public const int DVY_ERATITLES = 0x0080; // The year of the Japanese era in titles.
    public const int DVY_INENGLISH = 0x0100; // All of these in English.
    public const int DVC_CAPTION = 0; // Title band of DayvaneYear and DayvaneMultiDay.
    public const int DVC_CAPTIONTEXT = 1; // Its text.
    public const int DVC_RULER = 2; // Time ruler.
    public const int DVC_RULERTEXT = 3; // Their text.
    public const int DVC_CONTENT = 4; // Ordinary days; band of all-day items; boxes of months.
    public const int DVC_GRID = 5; // Lines.
    public const int DVC_BORDER = 6; // Stored: shows nowhere yet.
    public const int DVC_HIGHLIGHT = 7; // Frame of the current item, selection.
    public const int DVC_HIGHLIGHTTEXT = 8; // Selected text.
    public const int DVD_WORKWEEK = 0x100; // DVM_SETDAYS: five days from the first day of the week.
    public const int DVD_WEEK = 0x101; // DVM_SETDAYS: seven days from the first day of the week.
    public const int DVM_SETOPTIONS = DVM_FIRST + 32; // wParam: UINT uMask; lParam: UINT uFlags; 1
    public const int DVM_GETOPTIONS = DVM_FIRST + 33; // wParam: -; lParam: -; the options that are on: DVO_...
    public const int DVM_SETSHOW = DVM_FIRST + 34; // wParam: UINT uMask; lParam: UINT uFlags; 1
    public const int DVM_SETCOLOR = DVM_FIRST + 36; // wParam: int nColor; lParam: COLORREF color; 1
    public const int DVT_CLASSIC = 0; // DVM_SETTHEME: the colours that the controls begin with.
    public const int DVT_CALM = 1; // DVM_SETTHEME: light and quiet.
    public const int DVT_DARK = 2; // DVM_SETTHEME: dark.
    public const int DVT_HIGHCONTRAST = 3; // DVM_SETTHEME: the system's colours for high contrast.
    public const int DVM_SETTHEME = DVM_FIRST + 45; // wParam: int nTheme; lParam: -; 1
    public const int DVM_SETSCALE = DVM_FIRST + 46; // wParam: int nDpi; lParam: -; 1
    public const int DVM_GETSCALE = DVM_FIRST + 47; // wParam: -; lParam: -; the resolution
    public const int DVX_REQUIRED = 0; // DVM_SETTEXTS: the texts that the controls begin with.
    public const int DVX_JAPANESE = 1; // DVM_SETTEXTS: Japanese.
    public const int DVX_ENGLISH = 2; // DVM_SETTEXTS: English.
    public const int DVX_USER = 3; // DVM_SETTEXTS: as the user's language has them.
    public const int DVM_SETTEXTS = DVM_FIRST + 50; // wParam: int nTexts; lParam: -; 1
    public const int DVM_SETFIRSTDAY = DVM_FIRST + 37; // wParam: int nDay; lParam: -; 1
    public const int DVM_GETFIRSTDAY = DVM_FIRST + 38; // wParam: -; lParam: -; 1 to 7
    public const int DVM_SETDAYLINES = DVM_FIRST + 51; // wParam: UINT uMask; lParam: UINT uFlags; 1
    public const int DVM_GETDAYLINES = DVM_FIRST + 52; // wParam: -; lParam: -; what is on: DVY_...
    public const int DVM_SETTIMESCALE = DVM_FIRST + 39; // wParam: int nRows; lParam: -; 1
    public const int DVM_SETWORKTIME = DVM_FIRST + 40; // wParam: int nFrom; lParam: int nTo; 1
    public const int DVM_SETDAYS = DVM_FIRST + 41; // wParam: int nDays; lParam: -; 1
    public const int DVM_SCROLLTOTIME = DVM_FIRST + 42; // wParam: int nMinute; lParam: -; 1
    public const int DVM_SETGRID = DVM_FIRST + 43; // wParam: int nRows; lParam: int nColumns; 1
    public const int DVM_GETIDEALSIZE = DVM_FIRST + 44; // wParam: -; lParam: out SIZE size; 1

    // ---- Days

    // What a program sets for one day.
    [StructLayout(LayoutKind.Sequential)]
    public struct DV_DAY
    {
        public uint cbSize;
        public int nColor;
        public SystemTime stDate;
        public IntPtr pszText;
        public int nWorkFrom;
        public int nWorkTo;
    }

    public const int DVM_SETDAY = DVM_FIRST + 48; // wParam: -; lParam: in DV_DAY day; 1
    public const int DVM_CLEARDAYS = DVM_FIRST + 49; // wParam: -; lParam: -; 1

    // A cell of a mini calendar.
    [StructLayout(LayoutKind.Sequential)]
    public struct DV_CELL
    {
        public uint cbSize;
        public SystemTime stDate;
        public int bBold;
        public uint crDot;
    }

    public const int DVM_SETCELL = DVM_FIRST + 53; // wParam: UINT uFlags; lParam: in DV_CELL cell; 1
    public const int DVM_CLEARCELLS = DVM_FIRST + 54; // wParam: -; lParam: -; 1

    // ---- Pointer, editing, printing
    public const int DVH_NOWHERE = 1; // Nothing.
    public const int DVH_ITEM = 2; // An item.
    public const int DVH_CELL = 4; // A date or time without an item.
    public const int DVH_DAYCAPTION = 8; // The head of a day or month.
    public const int DVH_BAND = 16; // The band of all-day items.
    public const int DVH_BANDITEM = 32; // An item in that band.
    public const int DVH_RULER = 128; // The time ruler.

    // What lies under a point.
    [StructLayout(LayoutKind.Sequential)]
    public struct DV_HIT
    {
        public uint cbSize;
        public uint uHit;
        public Point pt;
        public int nItem;
        public SystemTime stTime;
    }


    // A page to print.
    [StructLayout(LayoutKind.Sequential)]
    public struct DV_PRINT
    {
        public uint cbSize;
        public uint uFlags;
        public IntPtr hdc;
        public int nPage;
        public int nPages;
    }

    public const int DVP_LIST = 0x0001; // An agenda instead of the view's own page.
    public const int DVM_HITTEST = DVM_FIRST + 56; // wParam: -; lParam: both DV_HIT hit; uHit
    public const int DVM_BEGINEDIT = DVM_FIRST + 57; // wParam: -; lParam: LPCWSTR text; 1, 0 when no edit box could be opened
    public const int DVM_PRINT = DVM_FIRST + 58; // wParam: -; lParam: both DV_PRINT print; 1, 0 when there is no such page

    // ---- Notifications

    // An item, or a place without one.
    [StructLayout(LayoutKind.Sequential)]
    public struct DVN_ITEM
    {
        public NotifyHeader hdr;
        public Point pt;
        public int nSubValue;
        public int nItem;
        public IntPtr lParam;
        public SystemTime stTime;
        public uint uHit;
    }


    // A range of dates.
    [StructLayout(LayoutKind.Sequential)]
    public struct DVN_DATES
    {
        public NotifyHeader hdr;
        public SystemTime stDate;
        public SystemTime stFirst;
        public SystemTime stLast;
        public int nValue;
    }


    // The text of an edit box.
    [StructLayout(LayoutKind.Sequential)]
    public struct DVN_EDIT
    {
        public NotifyHeader hdr;
        public int nReserved;
        public IntPtr pszText;
        public int cchText;
        public SystemTime stFirst;
        public SystemTime stLast;
        public int nMode;
        public int nItem;
        public IntPtr lParam;
    }

    public const int DVSEL_KEY = 1; // DVN_SELECTION: a key.
    public const int DVSEL_PRESS = 2; // DVN_SELECTION: the left button went down; a sweep may follow.
    public const int DVSEL_SWEEP = 3; // DVN_SELECTION: the button went up after a sweep.
    public const int DVSEL_DROP = 4; // DVN_SELECTION: it went up after an item was dragged.
    public const int DVSEL_SCROLL = 5; // DVN_SELECTION: scrolling took the selection along.

    // The selection.
    [StructLayout(LayoutKind.Sequential)]
    public struct DVN_SELECTION
    {
        public NotifyHeader hdr;
        public SystemTime stFirst;
        public SystemTime stLast;
        public int bWholeDays;
        public int nCause;
    }

    public const int CCN_ITEMCLICK = -2080; // DVN_ITEM: The left button was pressed, or Tab or Space made an item current.
    public const int CCN_ITEMDBLCLICK = -2081; // DVN_ITEM: A double click, or Enter.
    public const int CCN_ITEMRCLICK = -2082; // DVN_ITEM: The right button was pressed.
    public const int CCN_CONTEXTMENU = -2083; // DVN_ITEM: A context menu is asked for.
    public const int CCN_SELDATECHANGE = -2084; // DVN_ITEM: Scrolling is about to move the selected date.
    public const int CCN_VIEWRANGECHANGE = -2085; // DVN_DATES: The shown range has moved.
    public const int CCN_ITEMMOVED = -2086; // DVN_ITEM: An item was dropped. With MK_CONTROL in nSubValue the user wants a copy.
    public const int CCN_IPE_ENDEDITITEM = -2087; // DVN_EDIT: An edit box was closed with a text.
    public const int CCN_MOUSEHOVER = -2089; // DVN_ITEM: The mouse rested over the control.
    public const int CCN_SELCHANGED = -2090; // DVN_SELECTION: The selection has changed; with DVO_SELECTIONEVENTS.
    public const int CCN_COPY = -2100; // DVN_ITEM: Ctrl+C. This and the next ones: with DVO_KEYBOARDMOVES or DVO_TYPETOEDIT a key asks for it; nothing is done by itself.
    public const int CCN_CUT = -2101; // DVN_ITEM: Ctrl+X.
    public const int CCN_PASTE = -2102; // DVN_ITEM: Ctrl+V.
    public const int CCN_DUPLICATE = -2103; // DVN_ITEM: Ctrl+D.
    public const int CCN_RENAME = -2104; // DVN_ITEM: F2, or text is typed (nSubValue: the character): the edit box opens then, unless the answer is not 0.
    public const int CCN_DELETE = -2105; // DVN_ITEM: Delete, with a current item.
    public const int CCN_GOTODATE = -2106; // DVN_ITEM: Ctrl+G.
    public const int CCN_BEGINMOVE = -2107; // DVN_ITEM: Before the first key moves the current item: it stays when the answer is not 0.
    public const int DVP_DATECHANGE = 6025; // DayvaneYearMonthPicker: another date is being stored. wParam: year x 100 + month
    public const int DVP_DROPDOWN = 6026; // DayvaneYearMonthPicker: the chooser has opened. wParam: year x 100 + month
    public const int DVP_CLOSEUP = 6027; // DayvaneYearMonthPicker: the chooser is closing. wParam: year x 100 + month, or 0
    public const int DVP_SELENDOK = 6028; // DayvaneYearMonthPicker: a month was picked. wParam: year x 100 + month
    public const int DVP_SELENDCANCEL = 6029; // DayvaneYearMonthPicker: nothing was picked. wParam: 0

    // ---- Functions
    public const int DVL_JAPANESE = 0; // Names in Japanese.
    public const int DVL_ENGLISH = 1; // Names in English.
    public const int DVN_FORMULAS = 0; // Days by the formulas that are the default of the controls.
    public const int DVN_LAW = 1; // Holidays by the law in force on each day, solar terms of the exact sky.

    // A date of the lunisolar calendar of Japan.
    [StructLayout(LayoutKind.Sequential)]
    public struct DV_LUNAR
    {
        public uint cbSize;
        public int nYear;
        public int nMonth;
        public int nDay;
        public int bLeapMonth;
        public int bUncertain;
        public int nRokuyo;
    }


    // Makes the window classes; version is DAYVANE_CTL_VERSION of the header. 1, or DVE_VERSION, DVE_THREAD, DVE_FAILED. May be called again.
    [DllImport("DayvaneCtl.dll", CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int DayvaneInit(uint version);

    // The version of the library: major x 65536 + minor x 256 + patch.
    [DllImport("DayvaneCtl.dll", CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern uint DayvaneVersion();

    // 1 on a day off by the law in force on that day, with its name in Japanese (name may be null); 0 on other days; DVE_DATE.
    [DllImport("DayvaneCtl.dll", CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int DayvaneIsHoliday(int year, int month, int day, [Out] char[] name, int cchName);

    // All names of a day in DVL_..., by law and sky, with a space between; answers how long the text is, 0 for a day without a name, DVE_DATE, DVE_VALUE. What has no room is cut.
    [DllImport("DayvaneCtl.dll", CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int DayvaneDayNames(int year, int month, int day, int language, [Out] char[] names, int cchNames);

    // The sun's longitude 0, 15, ... 345 that it reaches on that day, -1 for none, DVE_DATE outside of 1600 to 2400.
    [DllImport("DayvaneCtl.dll", CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int DayvaneSolarTerm(int year, int month, int day);

    // 1; DVE_POINTER, DVE_SIZE, DVE_DATE outside of 1600 to 2400.
    [DllImport("DayvaneCtl.dll", CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int DayvaneLunarDate(int year, int month, int day, ref DV_LUNAR date);

    // Which days all controls show after their next DVM_REFRESH: DVN_... in DVL_... 1, or DVE_VALUE.
    [DllImport("DayvaneCtl.dll", CharSet = CharSet.Unicode, ExactSpelling = true)]
    public static extern int DayvaneSetDays(int days, int language);
}
