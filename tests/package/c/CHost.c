/* A host in plain C, without a C runtime: makes every control of DayvaneCtl.dll, uses it by messages, and looks at what
 * it answers, what it notifies and what it paints. It is compiled as C89 by MinGW, and in the binary interface of Visual
 * C++ by clang. Ends with the number of faults. */
#include <dayvane_ctl.h>

#define CONTROL_ID 100
#define LAST_DAY_OF_PAST 99

static int g_faults;
static int g_clicks;
static LPARAM g_clicked;
static WCHAR g_edited[64];
static int g_editedItem;
static int g_selectionDay;
static int g_selectionCause;

static void Say(const char* text)
{
    DWORD written;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text, (DWORD)lstrlenA(text), &written, NULL);
}

static void Check(int line, int isRight, LRESULT result)
{
    char text[80];
    if (!isRight) {
        wsprintfA(text, "line %d is not so: %d\n", line, (int)result);
        Say(text);
        ++g_faults;
    }
}

#define ANSWERS(call, expected)               \
    do {                                      \
        LRESULT answer = (call);              \
        Check(__LINE__, answer == (expected), answer); \
    } while (0)
#define HOLDS(condition) Check(__LINE__, (condition), 0)

static SYSTEMTIME At(int day, int hour)
{
    SYSTEMTIME time;
    time.wYear = 2026;
    time.wMonth = 11;
    time.wDayOfWeek = 0;
    time.wDay = (WORD)day;
    time.wHour = (WORD)hour;
    time.wMinute = time.wSecond = time.wMilliseconds = 0;
    return time;
}

static DV_ITEM NewItem(int firstDay, int lastDay, LPWSTR text)
{
    DV_ITEM item;
    item.cbSize = sizeof(item);
    item.uMask = DVIF_ALL;
    item.stStart = At(firstDay, 10);
    item.stEnd = At(lastDay, 12);
    item.pszText = text;
    item.cchText = 0;
    item.nImage = -1;
    item.uFlags = 0;
    item.crText = RGB(0, 0, 0);
    item.crBackground = RGB(12, 200, 34);
    item.crBorder = RGB(0, 0, 255);
    item.crShade = RGB(12, 200, 34);
    item.crMarks = RGB(0, 0, 0);
    item.lParam = 4711;
    return item;
}

static LRESULT CALLBACK HostProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NOTIFY && wParam == CONTROL_ID) {
        const NMHDR* header = (const NMHDR*)lParam;
        if ((int)header->code == CCN_ITEMCLICK) {
            ++g_clicks;
            g_clicked = ((const DVN_ITEM*)lParam)->lParam;
        } else if ((int)header->code == CCN_IPE_ENDEDITITEM) {
            lstrcpynW(g_edited, ((const DVN_EDIT*)lParam)->pszText, 64);
            g_editedItem = ((const DVN_EDIT*)lParam)->lParam == 4711 ? ((const DVN_EDIT*)lParam)->nItem : -1;
        } else if ((int)header->code == CCN_SELCHANGED) {
            g_selectionDay = ((const DVN_SELECTION*)lParam)->stFirst.wDay;
            g_selectionCause = ((const DVN_SELECTION*)lParam)->nCause;
        } else if ((int)header->code == CCN_CONTEXTMENU) {
            DestroyWindow(header->hwndFrom);
        }
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

static void DoPendingMessages(void)
{
    MSG message;
    while (PeekMessageW(&message, NULL, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

static HWND NewControl(HWND host, LPCWSTR name, DWORD style)
{
    HWND control = CreateWindowExW(0, name, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 700, 500, host,
                                   (HMENU)CONTROL_ID, GetModuleHandleW(NULL), NULL);
    HOLDS(control != NULL);
    return control;
}

/* Items of a view: what was added comes back, a click is told with its item, a bar has its colour. */
static void UseView(HWND host, LPCWSTR name, DWORD style, int hasBars)
{
    HWND view = NewControl(host, name, style);
    WCHAR text[] = {0x4F1A, 0x8B70, 0x20, 0xE9, 0x20, 0xD83D, 0xDE00, 0};
    WCHAR read[64];
    DV_ITEM item = NewItem(18, 18, text);
    SYSTEMTIME date = At(18, 0);
    RECT rect = {0, 0, 0, 0};
    DV_HIT hit;
    COLORREF color;
    HDC dc;
    ANSWERS(DvSetDate(view, &date), 1);
    ANSWERS(DvSetTimeScale(view, 2), hasBars ? DVE_KIND : 1);
    ANSWERS(DvAddItem(view, 0, &item), 0);
    ANSWERS(DvGetCount(view), 1);
    item.pszText = read;
    item.cchText = 64;
    item.lParam = 0;
    item.crBackground = 0;
    ANSWERS(DvGetItem(view, 0, &item), 1);
    HOLDS(lstrcmpW(read, text) == 0 && item.cchText == 7);
    HOLDS(item.lParam == 4711 && item.crBackground == RGB(12, 200, 34) && item.stStart.wHour == 10);
    item.cchText = 3;
    ANSWERS(DvGetItem(view, 0, &item), 1);
    HOLDS(lstrlenW(read) == 2 && item.cchText == 7);

    if (!hasBars) {
        ANSWERS(DvEnsureVisible(view, 0), 1);
    }
    UpdateWindow(view);
    ANSWERS(DvGetItemRect(view, 0, &rect), 1);
    HOLDS(rect.right > rect.left && rect.bottom > rect.top);
    hit.cbSize = sizeof(hit);
    hit.pt.x = (rect.left + rect.right) / 2;
    hit.pt.y = (rect.top + rect.bottom) / 2;
    ANSWERS(DvHitTest(view, &hit), DVH_ITEM);
    HOLDS(hit.nItem == 0);
    dc = GetDC(view);
    color = GetPixel(dc, rect.right - 8, hit.pt.y);
    ReleaseDC(view, dc);
    HOLDS(color == RGB(12, 200, 34));

    g_clicks = 0;
    SendMessageW(view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(hit.pt.x, hit.pt.y));
    SendMessageW(view, WM_LBUTTONUP, 0, MAKELPARAM(hit.pt.x, hit.pt.y));
    HOLDS(g_clicks == 1 && g_clicked == 4711);
    ANSWERS(DvGetSel(view), 0);
    ANSWERS(DvDeleteItem(view, 0, 0), 1);
    ANSWERS(DvGetSel(view), -1);
    ANSWERS(DvDeleteItem(view, 0, 0), DVE_INDEX);

    /* The parent ends the control while it is being told something. */
    SendMessageW(view, WM_CONTEXTMENU, (WPARAM)view, MAKELPARAM(-1, -1));
    HOLDS(!IsWindow(view));
}

/* What is wrong gets the answer that the documents name, and changes nothing. */
static void UseWrongly(HWND host)
{
    HWND month = NewControl(host, DAYVANE_MONTH, 0);
    HWND small = NewControl(host, DAYVANE_MINICALENDAR, 0);
    DV_ITEM item = NewItem(18, 18, NULL);
    SYSTEMTIME date = At(LAST_DAY_OF_PAST, 0);
    SYSTEMTIME kept;
    SYSTEMTIME read;
    DV_RANGE range;
    ANSWERS(SendMessageW(month, DVM_ADDITEM, 0, 0), DVE_POINTER);
    ANSWERS(SendMessageW(month, DVM_ADDITEM, 0, 17), DVE_POINTER);
    item.cbSize = sizeof(item) - 4;
    ANSWERS(DvAddItem(month, 0, &item), DVE_SIZE);
    item.cbSize = sizeof(item) + 8;
    ANSWERS(DvAddItem(month, 0, &item), DVE_SIZE);
    item.cbSize = sizeof(item);
    item.uMask = 0x80000000;
    ANSWERS(DvAddItem(month, 0, &item), DVE_DATE);
    item.uMask = DVIF_ALL | 0x80000000;
    ANSWERS(DvAddItem(month, 0, &item), DVE_VALUE);
    item.uMask = DVIF_ALL;
    item.stEnd.wMonth = 13;
    ANSWERS(DvAddItem(month, 0, &item), DVE_DATE);
    ANSWERS(DvAddItem(small, 0, &item), DVE_KIND);
    ANSWERS(DvGetCount(month), 0);
    ANSWERS(DvSetSel(month, 0), DVE_INDEX);
    ANSWERS(DvSetDays(month, 5), DVE_KIND);
    ANSWERS(DvSetFirstDay(month, 8), DVE_VALUE);
    ANSWERS(DvSetShow(month, DVSH_RANGES, DVSH_RANGES), DVE_KIND);
    ANSWERS(DvSetOptions(month, 0x80000000, 0), DVE_VALUE);
    ANSWERS(DvSetTheme(month, 4), DVE_VALUE);
    ANSWERS(DvSetScale(month, 47), DVE_VALUE);
    ANSWERS(SendMessageW(month, DVM_LAST, 0, 0), DVE_UNKNOWN);
    DvGetDate(month, &kept);
    ANSWERS(DvSetDate(month, &date), DVE_DATE);
    DvGetDate(month, &read);
    HOLDS(read.wDay == kept.wDay && read.wMonth == kept.wMonth);
    range.cbSize = sizeof(range);
    range.uFlags = 0;
    range.stFirst = At(20, 0);
    range.stLast = At(19, 0);
    ANSWERS(DvSetSelRange(month, &range), DVE_VALUE);
    DestroyWindow(month);
    DestroyWindow(small);
    HOLDS(DayvaneInit(DAYVANE_CTL_VERSION + 0x10000) == DVE_VERSION);
    HOLDS(DayvaneInit(DAYVANE_CTL_VERSION + 0x100) == DVE_VERSION);
    HOLDS(DayvaneInit(DAYVANE_CTL_VERSION + 1) == 1);
}

static void UseSettings(HWND host)
{
    HWND month = NewControl(host, DAYVANE_MONTH, WS_VSCROLL);
    SYSTEMTIME date = At(18, 0);
    DV_RANGE range;
    COLORREF light;
    COLORREF dark;
    HDC dc = GetDC(month);
    DvSetDate(month, &date);
    UpdateWindow(month);
    light = GetPixel(dc, 50, 180);
    ANSWERS(DvSetTheme(month, DVT_DARK), 1);
    UpdateWindow(month);
    dark = GetPixel(dc, 50, 180);
    HOLDS(GetRValue(dark) < 0x60 && GetRValue(light) > 0xA0);
    ReleaseDC(month, dc);
    ANSWERS(DvSetOptions(month, DVO_ALL, DVO_ALL & ~DVO_FOLLOWDPI & ~DVO_FOLLOWSYSTEMTHEME), 1);
    ANSWERS(DvSetOptions(month, DVO_MORELIST, 0), 1);
    ANSWERS(DvGetOptions(month), DVO_ALL & ~DVO_FOLLOWDPI & ~DVO_FOLLOWSYSTEMTHEME & ~DVO_MORELIST);
    ANSWERS(DvSetTexts(month, DVX_ENGLISH), 1);
    ANSWERS(DvSetTexts(month, 4), DVE_VALUE);
    ANSWERS(DvSetScale(month, 144), 1);
    ANSWERS(DvGetScale(month), 144);
    ANSWERS(DvSetFirstDay(month, 2), 1);
    ANSWERS(DvGetFirstDay(month), 2);
    range.cbSize = sizeof(range);
    ANSWERS(DvGetRange(month, &range), 1);
    HOLDS(range.stFirst.wDayOfWeek == 1);
    range.uFlags = DVR_WHOLEDAYS;
    range.stFirst = At(17, 0);
    range.stLast = At(19, 0);
    ANSWERS(DvSetSelRange(month, &range), 1);
    range.stFirst = At(1, 0);
    ANSWERS(DvGetSelRange(month, &range), 1);
    HOLDS(range.stFirst.wDay == 17);
    range.stFirst = range.stLast = At(17, 0);
    DvSetSelRange(month, &range);
    SendMessageW(month, WM_KEYDOWN, VK_RIGHT, 0);
    HOLDS(g_selectionDay == 18 && g_selectionCause == DVSEL_KEY);
    ANSWERS(DvSetDayLines(month, DVY_ROKUYO | DVY_INENGLISH, DVY_ROKUYO | DVY_INENGLISH), 1);
    ANSWERS(DvSetDayLines(month, DVY_INENGLISH, 0), 1);
    ANSWERS(DvGetDayLines(month), DVY_ROKUYO);
    ANSWERS(DvSetDayLines(month, 0x200, 0), DVE_VALUE);
    DestroyWindow(month);
}

/* An edit box brings its text in UTF-16. */
static void UseEditing(HWND host)
{
    HWND month = NewControl(host, DAYVANE_MONTH, 0);
    SYSTEMTIME date = At(18, 0);
    WCHAR text[] = {0x4F1A, 0x8B70, 0xE9, 0};
    DV_ITEM item = NewItem(18, 18, text);
    HWND edit;
    DvSetDate(month, &date);
    DvAddItem(month, 0, &item);
    DvAddItem(month, 0, &item);
    DvSetSel(month, 1);
    ANSWERS(DvBeginEdit(month, text), 1);
    edit = GetWindow(month, GW_CHILD);
    HOLDS(edit != NULL);
    g_edited[0] = 0;
    SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
    HOLDS(lstrcmpW(g_edited, text) == 0 && g_editedItem == 1);
    DestroyWindow(month);
}

static int PixelsOf(HWND control, COLORREF color)
{
    RECT client;
    HDC dc = GetDC(control);
    int count = 0;
    int x;
    int y;
    UpdateWindow(control);
    GetClientRect(control, &client);
    for (y = 0; y < client.bottom; ++y) {
        for (x = 0; x < client.right; ++x) {
            count += GetPixel(dc, x, y) == color;
        }
    }
    ReleaseDC(control, dc);
    return count;
}

/* A dot under one cell, before and after it is taken away. */
static void MarkCell(HWND small, WORD day)
{
    const COLORREF dot = RGB(11, 22, 33);
    DV_CELL cell;
    cell.cbSize = sizeof(cell);
    cell.stDate = At(day, 0);
    cell.bBold = 1;
    cell.crDot = dot;
    ANSWERS(DvSetCell(small, 2, &cell), DVE_VALUE);
    ANSWERS(DvSetCell(small, 0, &cell), 1);
    HOLDS(PixelsOf(small, dot) > 0);
    ANSWERS(DvClearCells(small), 1);
    HOLDS(PixelsOf(small, dot) == 0);
    cell.stDate.wDay = 31;
    ANSWERS(DvSetCell(small, 0, &cell), DVE_DATE);
}

static void UseSmallControls(HWND host)
{
    static const LPCWSTR names[] = {DAYVANE_MINICALENDAR, DAYVANE_MINIYEAR};
    SYSTEMTIME date = At(18, 0);
    SYSTEMTIME read;
    SIZE one;
    SIZE six;
    RECT rect;
    HWND picker;
    int i;
    for (i = 0; i < 2; ++i) {
        HWND small = NewControl(host, names[i], 0);
        ANSWERS(DvSetDate(small, &date), 1);
        ANSWERS(DvSetGrid(small, 1, 1), 1);
        ANSWERS(DvGetIdealSize(small, &one), 1);
        SetWindowPos(small, NULL, 0, 0, one.cx, one.cy, SWP_NOMOVE | SWP_NOZORDER);
        MarkCell(small, 18);
        ANSWERS(DvSetGrid(small, 2, 3), 1);
        ANSWERS(DvGetIdealSize(small, &six), 1);
        HOLDS(six.cx == 3 * one.cx && six.cy > one.cy);
        ANSWERS(DvGetDate(small, &read), 1);
        HOLDS(read.wYear == 2026 && read.wMonth == (i == 0 ? 11 : 1) && read.wDay == 1);
        DestroyWindow(small);
    }
    picker = NewControl(host, DAYVANE_YEARMONTHPICKER, WS_TABSTOP);
    GetWindowRect(picker, &rect);
    HOLDS(rect.bottom - rect.top < 60);
    ANSWERS(DvSetDate(picker, &date), 1);
    ANSWERS(DvGetDate(picker, &read), 1);
    HOLDS(read.wMonth == 11);
    DestroyWindow(picker);
}

static void UseDays(void)
{
    WCHAR name[32];
    WCHAR english[64];
    DV_LUNAR lunar;
    HOLDS(DayvaneVersion() == DAYVANE_CTL_VERSION);
    HOLDS(DayvaneIsHoliday(2026, 11, 23, name, 32) == 1 && lstrlenW(name) == 6 && name[0] == 0x52E4);
    HOLDS(DayvaneIsHoliday(2026, 11, 24, name, 32) == 0);
    HOLDS(DayvaneIsHoliday(2026, 2, 30, NULL, 0) == DVE_DATE);
    HOLDS(DayvaneDayNames(2026, 11, 23, DVL_ENGLISH, english, 64) > 0 && english[0] == 'L');
    HOLDS(DayvaneSolarTerm(2026, 3, 20) == 0 && DayvaneSolarTerm(2026, 3, 21) == -1);
    lunar.cbSize = sizeof(lunar);
    HOLDS(DayvaneLunarDate(2026, 2, 17, &lunar) == 1 && lunar.nMonth == 1 && lunar.nDay == 1);
    lunar.cbSize = 1;
    HOLDS(DayvaneLunarDate(2026, 2, 17, &lunar) == DVE_SIZE);
}

static DWORD WINAPI OtherThread(LPVOID host)
{
    HOLDS(CreateWindowExW(0, DAYVANE_DAY, L"", WS_POPUP, 0, 0, 9, 9, NULL, NULL, GetModuleHandleW(NULL), NULL) == NULL);
    HOLDS(DayvaneInit(DAYVANE_CTL_VERSION) == DVE_THREAD);
    return host == NULL;
}

static void Run(void)
{
    HWND host;
    HANDLE thread;
    WNDCLASSW description = {0, HostProc, 0, 0, NULL, NULL, NULL, NULL, NULL, L"Host"};
    description.hInstance = GetModuleHandleW(NULL);
    RegisterClassW(&description);
    host = CreateWindowExW(0, L"Host", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 720, 540, NULL, NULL,
                           description.hInstance, NULL);
    HOLDS(CreateWindowExW(0, DAYVANE_DAY, L"", WS_CHILD, 0, 0, 9, 9, host, NULL, description.hInstance, NULL) == NULL);
    HOLDS(DayvaneInit(DAYVANE_CTL_VERSION) == 1);
    thread = CreateThread(NULL, 0, OtherThread, host, 0, NULL);
    WaitForSingleObject(thread, INFINITE);
    UseDays();
    UseView(host, DAYVANE_DAY, WS_VSCROLL, 0);
    UseView(host, DAYVANE_MULTIDAY, WS_VSCROLL, 0);
    UseView(host, DAYVANE_WEEK, 0, 1);
    UseView(host, DAYVANE_MONTH, WS_VSCROLL, 1);
    UseWrongly(host);
    UseSettings(host);
    UseEditing(host);
    UseSmallControls(host);
    DestroyWindow(NewControl(host, DAYVANE_YEAR, 0));
    DestroyWindow(NewControl(host, DAYVANE_MONTH, DVS_BLOCKS));
    DestroyWindow(host);
    DoPendingMessages();
}

void HostEntry(void)
{
    Run();
    Say(g_faults == 0 ? "all is well\n" : "there are faults\n");
    ExitProcess((UINT)g_faults);
}
