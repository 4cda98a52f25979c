#include "core/InPlaceEdit.h"

#include "core/CalendarCtrl.h"

#include <imm.h>

#include <string>

namespace {

constexpr WPARAM kCtrlV = 0x16; // the character that Ctrl+V makes

// Whether the system's code page has every character. Look-alikes do not count.
bool FitsCodePage(const wchar_t* text, int length)
{
    BOOL replaced = FALSE;
    return length == 0 ||
           (::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text, length, nullptr, 0, nullptr, &replaced) > 0 &&
            !replaced);
}

bool ClipboardFits(HWND window)
{
    if (!::OpenClipboard(window)) {
        return true; // then nothing is pasted either
    }
    bool fits = true;
    if (const HANDLE data = ::GetClipboardData(CF_UNICODETEXT)) {
        if (const wchar_t* text = static_cast<const wchar_t*>(::GlobalLock(data))) {
            const size_t room = ::GlobalSize(data) / sizeof(wchar_t);
            fits = FitsCodePage(text, static_cast<int>(wcsnlen(text, room)));
            ::GlobalUnlock(data);
        }
    }
    ::CloseClipboard();
    return fits;
}

bool ConversionFits(HWND window)
{
    const HIMC context = ::ImmGetContext(window);
    if (!context) {
        return true;
    }
    const LONG bytes = ::ImmGetCompositionStringW(context, GCS_RESULTSTR, nullptr, 0);
    std::wstring result(bytes > 0 ? bytes / sizeof(wchar_t) : 0, L'\0');
    if (bytes > 0) {
        ::ImmGetCompositionStringW(context, GCS_RESULTSTR, &result[0], bytes);
    }
    ::ImmReleaseContext(window, context);
    return FitsCodePage(result.c_str(), static_cast<int>(result.size()));
}

// A narrow message loop delivers '?' for a key whose character the code page lacks: look at the key itself.
bool IsManglingKey(LPARAM lParam)
{
    const UINT key = ::MapVirtualKeyW((lParam >> 16) & 0xFF, MAPVK_VSC_TO_VK);
    const wchar_t character = static_cast<wchar_t>(::MapVirtualKeyW(key, MAPVK_VK_TO_CHAR) & 0xFFFF);
    return character > 0x7F && !FitsCodePage(&character, 1);
}

} // namespace

BEGIN_MESSAGE_MAP(CInPlaceEdit, CEdit)
ON_WM_CREATE()
ON_WM_KILLFOCUS()
ON_WM_GETDLGCODE()
ON_WM_KEYDOWN()
ON_MESSAGE(WM_IME_STARTCOMPOSITION, &CInPlaceEdit::OnImeStartComposition)
ON_MESSAGE(WM_IME_ENDCOMPOSITION, &CInPlaceEdit::OnImeEndComposition)
END_MESSAGE_MAP()

CInPlaceEdit::CInPlaceEdit(CCalendarCtrl* pOwner, const char* lpszText, int nMode)
    : m_pOwner(pOwner), m_strText(lpszText), m_nMode(nMode)
{
}

// ---- Lifetime

int CInPlaceEdit::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CEdit::OnCreate(lpCreateStruct) == -1) {
        return -1;
    }
    SetWindowText(m_strText);
    return 0;
}

void CInPlaceEdit::PostNcDestroy()
{
    if (m_pOwner) {
        m_pOwner->EditBoxGone(this);
    }
    delete this;
}

void CInPlaceEdit::Finish(BOOL bCommit)
{
    CCalendarCtrl* owner = m_pOwner;
    if (!owner) {
        return; // closing already
    }
    m_pOwner = nullptr;
    owner->EditBoxGone(this);
    const HWND hWnd = m_hWnd;
    if (bCommit) {
        CString text;
        GetWindowText(text);
        owner->EndEditItem(text, m_nMode);
    }
    // The host may have destroyed the control, and this box with it.
    if (::IsWindow(hWnd)) {
        ::DestroyWindow(hWnd);
    }
}

// ---- What may enter

LRESULT CInPlaceEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (IsRefused(message, wParam, lParam)) {
        ::MessageBeep(MB_OK);
        return 0;
    }
    if (TakeDoubleByte(message, wParam)) {
        return 0;
    }
    return CEdit::WindowProc(message, wParam, lParam);
}

// A character of two bytes comes as two messages, or as one from an input method. It is inserted whole, because one
// byte alone is another character.
BOOL CInPlaceEdit::TakeDoubleByte(UINT message, WPARAM wParam)
{
    char character[] = {m_chLead, static_cast<char>(wParam), '\0'};
    if (message == WM_IME_CHAR) {
        character[0] = static_cast<char>(HIBYTE(wParam));
    } else if (message != WM_CHAR) {
        return FALSE;
    }
    m_chLead = '\0';
    if (::IsDBCSLeadByte(static_cast<BYTE>(character[0])) && static_cast<BYTE>(character[1]) >= ' ') {
        ReplaceSel(character, TRUE);
        return TRUE;
    }
    if (message == WM_CHAR && ::IsDBCSLeadByte(static_cast<BYTE>(wParam))) {
        m_chLead = static_cast<char>(wParam);
        return TRUE;
    }
    return FALSE;
}

BOOL CInPlaceEdit::IsRefused(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PASTE:
        return !ClipboardFits(m_hWnd);
    case WM_CHAR: {
        const BOOL lostPacket = m_bPacketLost;
        m_bPacketLost = FALSE;
        return (wParam == kCtrlV && !ClipboardFits(m_hWnd)) || (wParam == '?' && (lostPacket || IsManglingKey(lParam)));
    }
    case WM_KEYDOWN:
        if (wParam == VK_PACKET) {
            const wchar_t character = static_cast<wchar_t>(HIWORD(lParam));
            m_bPacketLost = !FitsCodePage(&character, 1);
        }
        return wParam == VK_INSERT && ::GetKeyState(VK_SHIFT) < 0 && !ClipboardFits(m_hWnd);
    case WM_IME_COMPOSITION:
        return (lParam & GCS_RESULTSTR) && !ConversionFits(m_hWnd);
    }
    return FALSE;
}

// ---- Keys

BOOL CInPlaceEdit::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN && HandleKey(static_cast<UINT>(pMsg->wParam))) {
        return TRUE;
    }
    return CEdit::PreTranslateMessage(pMsg);
}

BOOL CInPlaceEdit::HandleKey(UINT nChar)
{
    if (m_bComposing || (nChar != VK_TAB && nChar != VK_RETURN && nChar != VK_ESCAPE)) {
        return FALSE;
    }
    m_bCancelled = nChar == VK_ESCAPE;
    MSG character; // the one that belongs to the key must not reach the control
    ::PeekMessage(&character, m_hWnd, WM_CHAR, WM_CHAR, PM_REMOVE);
    if (CWnd* parent = GetParent()) {
        parent->SetFocus(); // the box closes as it loses the focus, and this object is gone
    }
    return TRUE;
}

void CInPlaceEdit::OnKillFocus(CWnd* pNewWnd)
{
    CEdit::OnKillFocus(pNewWnd);
    Finish(!m_bCancelled);
}

// Dialogs and hosts whose message loop does not ask PreTranslateMessage get the same keys.
UINT CInPlaceEdit::OnGetDlgCode()
{
    return CEdit::OnGetDlgCode() | DLGC_WANTALLKEYS;
}

void CInPlaceEdit::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (!HandleKey(nChar)) {
        CEdit::OnKeyDown(nChar, nRepCnt, nFlags);
    }
}

LRESULT CInPlaceEdit::OnImeStartComposition(WPARAM, LPARAM)
{
    m_bComposing = TRUE;
    return Default();
}

LRESULT CInPlaceEdit::OnImeEndComposition(WPARAM, LPARAM)
{
    m_bComposing = FALSE;
    return Default();
}
