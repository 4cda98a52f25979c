#include <dayvane_ctl.h>

static LRESULT CALLBACK HelloProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        MoveWindow(GetDlgItem(window, 100), 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        return 0;
    case WM_NOTIFY:
        if ((int)((NMHDR*)lParam)->code == CCN_ITEMDBLCLICK && ((DVN_ITEM*)lParam)->nItem != -1) {
            MessageBoxW(window, L"The item was opened.", L"Hello", MB_OK);
        }
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR arguments, int show)
{
    static WNDCLASSW description;
    static DV_ITEM item;
    SYSTEMTIME today;
    HWND window, month;
    MSG message;

    DayvaneInit(DAYVANE_CTL_VERSION);
    description.lpfnWndProc = HelloProc;
    description.lpszClassName = L"Hello";
    description.hInstance = GetModuleHandleW(NULL);
    RegisterClassW(&description);
    window = CreateWindowExW(0, L"Hello", L"Hello", WS_OVERLAPPEDWINDOW, 20, 20, 820, 640, NULL, NULL,
                             description.hInstance, NULL);
    month = CreateWindowExW(0, DAYVANE_MONTH, L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL, 0, 0, 0, 0, window, (HMENU)100,
                            description.hInstance, NULL);
    DvSetOptions(month, DVO_ALL, DVO_ALL); /* what we recommend; also follows the system's light or dark theme */
    DvSetTexts(month, DVX_USER);

    GetLocalTime(&today);
    item.cbSize = sizeof(item);
    item.uMask = DVIF_TIMES | DVIF_TEXT;
    item.stStart = item.stEnd = today;
    item.pszText = L"My first item";
    DvAddItem(month, 0, &item);
    ShowWindow(window, SW_SHOW);
    while (GetMessageW(&message, NULL, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    ExitProcess(0);
}
