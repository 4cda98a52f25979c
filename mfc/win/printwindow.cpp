// The window of a print job, and the language in which the framework speaks of printing.
#include "afximpl.h"

#include <afxext.h>
#include <afxpriv.h>

#include <algorithm>
#include <cwchar>
#include <iterator>

namespace {

constexpr int kScaleDpi = 96; // of the sizes below, pixels
constexpr int kWidth = 300;
constexpr int kHeight = 112;
constexpr int kMargin = 14;
constexpr int kLineHeight = 18;
constexpr int kButtonWidth = 84;
constexpr int kButtonHeight = 24;
constexpr int kFirstLabel = 100; // identifiers of the three lines
constexpr int kLabels = 3;
constexpr int kLongestLine = 128;
constexpr UINT kUnknownLastPage = 0xFFFF;

AFX_TRANSLATOR g_translator = nullptr;

} // namespace

// ---- Language

void AfxSetTranslator(AFX_TRANSLATOR pTranslator)
{
    g_translator = pTranslator;
}

std::wstring AfxTranslate(LPCTSTR lpszEnglish)
{
    if (g_translator) {
        return g_translator(lpszEnglish);
    }
    const std::string english = lpszEnglish;
    return std::wstring(english.begin(), english.end());
}

CString AfxTranslated(LPCTSTR lpszEnglish)
{
    const std::wstring wide = AfxTranslate(lpszEnglish);
    std::string narrow(wide.size() * 2 + 1, '\0'); // no code page of the system takes more
    const int length = ::WideCharToMultiByte(CP_ACP, 0, wide.c_str(), static_cast<int>(wide.size()), &narrow[0],
                                             static_cast<int>(narrow.size()), nullptr, nullptr);
    return CString(narrow.c_str(), length);
}

// A window's own procedure is narrow and would lose what its code page lacks.
void AfxSetWideText(HWND hWnd, const std::wstring& text)
{
    ::DefWindowProcW(hWnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    ::InvalidateRect(hWnd, nullptr, TRUE);
}

// ---- The window

BEGIN_MESSAGE_MAP(CPrintingDialog, CWnd)
ON_COMMAND(IDCANCEL, &CPrintingDialog::OnCancel)
ON_WM_CLOSE()
END_MESSAGE_MAP()

CPrintingDialog::~CPrintingDialog()
{
    Close();
}

BOOL CPrintingDialog::Open(CWnd* pView, LPCTSTR lpszDocument, LPCTSTR lpszPrinter)
{
    m_hView = pView->m_hWnd;
    m_hOwner = ::GetAncestor(m_hView, GA_ROOT);
    const int dpi = CClientDC(pView).GetDeviceCaps(LOGPIXELSX);
    const auto scaled = [&](int size) { return ::MulDiv(size, dpi, kScaleDpi); };
    CRect place(0, 0, scaled(kWidth), scaled(kHeight));
    ::AdjustWindowRectEx(&place, WS_POPUP | WS_CAPTION, FALSE, WS_EX_DLGMODALFRAME);
    CRect owner;
    ::GetWindowRect(m_hOwner, &owner);
    place += owner.CenterPoint() - place.CenterPoint();
    m_isDisabling = ::IsWindowEnabled(m_hOwner) != FALSE;
    if (!CreateEx(WS_EX_DLGMODALFRAME, AfxRegisterWndClass(0, nullptr, ::GetSysColorBrush(COLOR_BTNFACE)), "",
                  WS_POPUP | WS_CAPTION | WS_SYSMENU, place.left, place.top, place.Width(), place.Height(), m_hOwner,
                  nullptr)) {
        return FALSE;
    }
    CRect client;
    GetClientRect(&client);
    const HFONT font = static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
    const auto addChild = [&](LPCTSTR lpszClass, DWORD style, const CRect& rect, int id) {
        const HWND child = ::CreateWindowEx(0, lpszClass, "", WS_CHILD | WS_VISIBLE | style, rect.left, rect.top,
                                            rect.Width(), rect.Height(), m_hWnd,
                                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
        ::SendMessage(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    };
    for (int i = 0; i < kLabels; ++i) {
        const int top = scaled(kMargin + i * kLineHeight);
        addChild("Static", SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_ENDELLIPSIS,
                 CRect(scaled(kMargin), top, client.right - scaled(kMargin), top + scaled(kLineHeight)),
                 kFirstLabel + i);
    }
    const int left = (client.right - scaled(kButtonWidth)) / 2;
    const int bottom = client.bottom - scaled(kMargin) / 2;
    addChild("Button", BS_DEFPUSHBUTTON | WS_TABSTOP,
             CRect(left, bottom - scaled(kButtonHeight), left + scaled(kButtonWidth), bottom), IDCANCEL);
    AfxSetWideText(m_hWnd, AfxTranslate("Printing"));
    AfxSetWideText(::GetDlgItem(m_hWnd, IDCANCEL), AfxTranslate("Cancel"));
    SetDlgItemText(kFirstLabel, lpszDocument);
    SetDlgItemText(kFirstLabel + 1, lpszPrinter);
    if (m_isDisabling) {
        ::EnableWindow(m_hOwner, FALSE);
    }
    ShowWindow(SW_SHOW);
    ::SetFocus(::GetDlgItem(m_hWnd, IDCANCEL));
    UpdateWindow();
    return TRUE;
}

void CPrintingDialog::Close()
{
    if (!m_hWnd) {
        return;
    }
    if (m_isDisabling && ::IsWindow(m_hOwner)) {
        ::EnableWindow(m_hOwner, TRUE); // first: else another program's window comes to the front
    }
    DestroyWindow();
}

BOOL CPrintingDialog::ShowPage(UINT nPage, UINT nLast)
{
    if (m_hWnd) {
        const std::wstring format = AfxTranslate(nLast == kUnknownLastPage ? "Page %u" : "Page %u of %u");
        wchar_t text[kLongestLine] = L"";
        _snwprintf(text, kLongestLine - 1, format.c_str(), nPage, nLast);
        AfxSetWideText(::GetDlgItem(m_hWnd, kFirstLabel + kLabels - 1), text);
        UpdateWindow();
    }
    return Pump();
}

// The owner is disabled and gets no keys from here, so that no second job begins.
BOOL CPrintingDialog::Pump()
{
    MSG message;
    while (!m_isCancelled && ::PeekMessage(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            m_isCancelled = true;
        } else if (!m_hWnd || !::IsDialogMessage(m_hWnd, &message)) {
            ::TranslateMessage(&message);
            ::DispatchMessage(&message);
        }
    }
    m_isCancelled = m_isCancelled || IsViewGone();
    return !m_isCancelled;
}

void CPrintingDialog::OnCancel()
{
    m_isCancelled = true;
}

void CPrintingDialog::OnClose()
{
    m_isCancelled = true;
}
