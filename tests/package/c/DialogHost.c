/* A host whose controls stand in a dialog template: the dialog makes them, gives them the focus, and hears from them. */
#include <dayvane_ctl.h>

static int g_faults;
static int g_selected;
static int g_dropped;

static void Check(int isRight)
{
    g_faults += !isRight;
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
