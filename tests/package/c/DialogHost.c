/* A host whose controls stand in a dialog template: the dialog makes them, gives them the focus, and hears from them. Its
 * functions are also code of the documents. */
#include <dayvane_ctl.h>

static int g_faults;
static int g_selected;
static int g_dropped;

static void Check(int isRight)
{
    g_faults += !isRight;
}

/* snippet setup */
static void SetUp(HWND control)
{
    UINT options = DVO_ALL & ~(DVO_FOLLOWSYSTEMTHEME | DVO_FOLLOWDPI); /* theme and resolution are chosen here */
    DvSetOptions(control, DVO_ALL, options);
    DvSetTheme(control, DVT_DARK);
    DvSetScale(control, 192); /* 200 %; of the screen: GetDpiForWindow, or DVO_FOLLOWDPI */
    DvSetTexts(control, DVX_JAPANESE);
}

static int Add(HWND month, WORD day, LPWSTR text, UINT flags)
{
    DV_ITEM item = {0};
    SYSTEMTIME noon = {2026, 11, 0, 0, 12, 0, 0, 0};
    item.cbSize = sizeof(item);
    item.uMask = DVIF_TIMES | DVIF_TEXT | DVIF_FLAGS; /* the other fields take what a new item has */
    item.stStart = item.stEnd = noon;
    item.stStart.wDay = item.stEnd.wDay = day;
    item.pszText = text;
    item.uFlags = flags;
    return (int)DvAddItem(month, 0, &item); /* its index */
}
/* end of snippet */

/* snippet deletion */
/* The control deletes nothing by itself: with DVO_KEYBOARDMOVES the Delete key only asks. */
static void OnDeleteKey(HWND dialog, const DVN_ITEM* asked)
{
    HWND month = asked->hdr.hwndFrom;
    DV_ITEM item = {0};
    item.cbSize = sizeof(item);
    item.uMask = DVIF_FLAGS;
    DvGetItem(month, asked->nItem, &item);
    if (item.uFlags & DVI_FIXED) {
        SetDlgItemTextW(dialog, 13, L"This item stays.");
    } else {
        DvDeleteItem(month, asked->nItem, 0);
    }
}
/* end of snippet */

/* snippet print */
/* What the control shows, on a printer's device context (PrintDlgW, CreateDCW); returns how many pages. */
static int Print(HWND control, HDC printer)
{
    DOCINFOW job = {0};
    DV_PRINT print = {0};
    job.cbSize = sizeof(job);
    job.lpszDocName = L"Schedule";
    print.cbSize = sizeof(print);
    print.hdc = printer;
    DvPrint(control, &print); /* page 0: only counts */
    StartDocW(printer, &job);
    for (print.nPage = 1; print.nPage <= print.nPages; ++print.nPage) {
        StartPage(printer);
        DvPrint(control, &print);
        EndPage(printer);
    }
    EndDoc(printer);
    return print.nPages;
}
/* end of snippet */

static void UseItems(HWND dialog, HWND month)
{
    HDC page = CreateEnhMetaFileW(NULL, NULL, NULL, NULL);
    ENHMETAHEADER header;
    HENHMETAFILE drawn;
    SetUp(month);
    Check(DvGetScale(month) == 192);
    Check(Add(month, 19, L"打合せ", DVI_FIXED) == 0 && Add(month, 20, L"締切", 0) == 1);
    DvSetSel(month, 0);
    SendMessageW(month, WM_KEYDOWN, VK_DELETE, 0);
    Check(DvGetCount(month) == 2 && GetWindowTextLengthW(GetDlgItem(dialog, 13)) > 0);
    DvSetSel(month, 1);
    SendMessageW(month, WM_KEYDOWN, VK_DELETE, 0);
    Check(DvGetCount(month) == 1);
    Check(Print(month, page) == 1);
    drawn = CloseEnhMetaFile(page);
    Check(GetEnhMetaFileHeader(drawn, sizeof(header), &header) != 0 && header.nRecords > 100);
    DeleteEnhMetaFile(drawn);
}

static void UseControls(HWND dialog)
{
    HWND month = GetDlgItem(dialog, 10);
    HWND small = GetDlgItem(dialog, 11);
    HWND picker = GetDlgItem(dialog, 12);
    SYSTEMTIME date = {2026, 11, 0, 18, 0, 0, 0, 0};
    Check(month != NULL && small != NULL && picker != NULL);
    Check(DvSetDate(month, &date) == 1 && DvSetDate(small, &date) == 1 && DvSetDate(picker, &date) == 1);
    Check(GetNextDlgTabItem(dialog, month, FALSE) == small);
    SetFocus(small);
    SendMessageW(small, WM_KEYDOWN, VK_RIGHT, 0);
    Check(g_selected == 1);
    /* The picker hands the focus to its button; F4 there drops the chooser. */
    SetFocus(picker);
    Check(GetParent(GetFocus()) == picker);
    SendMessageW(GetFocus(), WM_KEYDOWN, VK_F4, 0);
    Check(g_dropped == 202611);
    UseItems(dialog, month);
}

static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        PostMessageW(dialog, WM_APP, 0, 0);
        return TRUE;
    case WM_APP:
        UseControls(dialog);
        EndDialog(dialog, g_faults);
        return TRUE;
    case WM_NOTIFY:
        g_selected += wParam == 11 && ((const NMHDR*)lParam)->code == MCN_SELECT;
        if (wParam == 10 && ((const NMHDR*)lParam)->code == (UINT)CCN_DELETE) {
            OnDeleteKey(dialog, (const DVN_ITEM*)lParam);
        }
        return TRUE;
    case DVP_DROPDOWN:
        g_dropped = lParam == 12 ? (int)wParam : 0;
        return TRUE;
    }
    return FALSE;
}

void HostEntry(void)
{
    INT_PTR result;
    if (DayvaneInit(DAYVANE_CTL_VERSION) != 1) {
        ExitProcess(99);
    }
    result = DialogBoxParamW(GetModuleHandleW(NULL), MAKEINTRESOURCEW(1), NULL, DialogProc, 0);
    ExitProcess((UINT)result);
}
