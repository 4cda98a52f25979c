#include "core/InPlaceEdit.h"

#include "core/CalendarCtrl.h"
#include "core/TextCodec.h"
#include "core/WideText.h"
#include "core/WindowHelpers.h"

#include <imm.h>

#include <algorithm>
#include <iterator>

using namespace dayvane;

namespace {

constexpr WPARAM kCtrlV = 0x16; // the character that Ctrl+V makes
constexpr WPARAM kLastAscii = 0x7F;

// Keys that mean something to an edit box. The others, as F5 and Ctrl+S, stay commands of the host.
bool IsEditKey(UINT key)
{
    const bool isAltGr = ::GetKeyState(VK_MENU) < 0; // types characters, with Ctrl
    if (::GetKeyState(VK_CONTROL) >= 0 || isAltGr) {
        return key < VK_F1 || key >= VK_OEM_1 || key == VK_NUMLOCK;
    }
    constexpr UINT kWithCtrl[] = {'A',       'C',     'V',    'X',     'Y',   'Z',      VK_BACK, VK_DELETE,
                                  VK_INSERT, VK_HOME, VK_END, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN};
    return std::find(std::begin(kWithCtrl), std::end(kWithCtrl), key) != std::end(kWithCtrl);
}

// A narrow message loop would take the waiting characters from the queue in the system's code page, and lose those that
// it lacks.
void TakeWaitingCharacters(HWND hWnd)
{
    MSG waiting;
    while (::IsWindow(hWnd) && ::PeekMessageW(&waiting, hWnd, WM_CHAR, WM_CHAR, PM_NOREMOVE) &&
           waiting.wParam > kLastAscii && ::PeekMessageW(&waiting, hWnd, WM_CHAR, WM_CHAR, PM_REMOVE)) {
        ::SendMessageW(hWnd, WM_CHAR, waiting.wParam, waiting.lParam);
    }
}

} // namespace

BEGIN_MESSAGE_MAP(CInPlaceEdit, CEdit)
ON_WM_KILLFOCUS()
ON_WM_GETDLGCODE()
ON_WM_KEYDOWN()
ON_MESSAGE(WM_IME_STARTCOMPOSITION, &CInPlaceEdit::OnImeStartComposition)
ON_MESSAGE(WM_IME_ENDCOMPOSITION, &CInPlaceEdit::OnImeEndComposition)
ON_CONTROL_REFLECT_EX(EN_CHANGE, &CInPlaceEdit::OnChange)
END_MESSAGE_MAP()

CInPlaceEdit::CInPlaceEdit(CCalendarCtrl* pOwner, const char* lpszText, UINT nCodePage, int nMode)
    : m_pOwner(pOwner), m_strText(lpszText), m_nCodePage(nCodePage), m_nMode(nMode)
{
}

// ---- Lifetime

BOOL CInPlaceEdit::Open(const RECT& rect, UINT nID)
{
    const HWND hWnd =
        ::CreateWindowExW(0, L"EDIT", nullptr, WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, rect.left, rect.top,
                          rect.right - rect.left, rect.bottom - rect.top, m_pOwner->m_hWnd,
                          reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), AfxGetInstanceHandle(), nullptr);
    if (!hWnd) {
        delete this;
        return FALSE;
    }
    m_pfnEdit = reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC));
    SubclassWindow(hWnd);
    m_pfnHandlers = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CInPlaceEdit::WideProc)));
    const std::u16string text = DecodeText(m_strText, m_nCodePage);
    ::SetWindowTextW(hWnd, reinterpret_cast<LPCWSTR>(text.c_str()));
    return TRUE;
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
        const std::string_view before(m_strText.GetString(), static_cast<size_t>(m_strText.GetLength()));
        const std::string edited = EncodeEdited(before, TextOfWindow(m_hWnd), m_nCodePage);
        owner->EndEditItem(edited.c_str(), m_nMode);
    }
    // The host may have destroyed the control, and this box with it.
    if (::IsWindow(hWnd)) {
        ::DestroyWindow(hWnd);
    }
}

// ---- What may enter

// On top of the handlers, which are narrow as their class is: characters and texts pass them by.
LRESULT CALLBACK CInPlaceEdit::WideProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    CInPlaceEdit* edit = static_cast<CInPlaceEdit*>(CWnd::FromHandlePermanent(hWnd));
    if (!edit) {
        return ::DefWindowProcW(hWnd, message, wParam, lParam);
    }
    switch (message) {
    case WM_SETTEXT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
    case EM_REPLACESEL:
    case EM_GETLINE:
        return ::CallWindowProcW(edit->m_pfnEdit, hWnd, message, wParam, lParam);
    case WM_SETFONT:
        ::CallWindowProcW(edit->m_pfnEdit, hWnd, message, wParam, lParam);
        edit->m_hFont = reinterpret_cast<HFONT>(wParam);
        edit->m_font.Reset();
        edit->ShowFont();
        return 0;
    case WM_CHAR:
    case WM_IME_CHAR:
        edit->TakeUnit(wParam, lParam);
        return 0;
    case WM_KEYDOWN: {
        const LRESULT result = ::CallWindowProcW(edit->m_pfnHandlers, hWnd, message, wParam, lParam);
        TakeWaitingCharacters(hWnd);
        return result;
    }
    }
    return ::CallWindowProcW(edit->m_pfnHandlers, hWnd, message, wParam, lParam);
}

// Not while an input method converts: it shows its own text, with the font that it knows.
void CInPlaceEdit::ShowFont()
{
    if (!m_bComposing) {
        m_font.Show(m_hWnd, m_hFont, m_pfnEdit);
    }
}

// Half a character waits for its other half.
void CInPlaceEdit::TakeUnit(WPARAM wParam, LPARAM lParam)
{
    const wchar_t unit = static_cast<wchar_t>(wParam);
    const wchar_t lead = m_chLead;
    m_chLead = L'\0';
    if (IS_HIGH_SURROGATE(unit)) {
        m_chLead = unit;
        return;
    }
    std::wstring character(1, unit);
    if (lead && IS_LOW_SURROGATE(unit)) {
        character.insert(0, 1, lead);
    }
    if ((wParam == kCtrlV && !ClipboardFits()) || !HoldsText(ViewOf(character), m_nCodePage)) {
        ::MessageBeep(MB_OK);
        return;
    }
    for (const wchar_t each : character) {
        ::CallWindowProcW(m_pfnEdit, m_hWnd, WM_CHAR, each, lParam);
    }
}

LRESULT CInPlaceEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (IsRefused(message, wParam, lParam)) {
        ::MessageBeep(MB_OK);
        return 0;
    }
    return CEdit::WindowProc(message, wParam, lParam);
}

BOOL CInPlaceEdit::IsRefused(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PASTE:
        return !ClipboardFits();
    case WM_KEYDOWN:
        return wParam == VK_INSERT && ::GetKeyState(VK_SHIFT) < 0 && !ClipboardFits();
    case WM_IME_COMPOSITION:
        return (lParam & GCS_RESULTSTR) && !ConversionFits();
    }
    return FALSE;
}

BOOL CInPlaceEdit::ClipboardFits()
{
    if (!::OpenClipboard(m_hWnd)) {
        return TRUE; // then nothing is pasted either
    }
    BOOL fits = TRUE;
    if (const HANDLE data = ::GetClipboardData(CF_UNICODETEXT)) {
        if (const wchar_t* text = static_cast<const wchar_t*>(::GlobalLock(data))) {
            const size_t room = ::GlobalSize(data) / sizeof(wchar_t);
            fits = HoldsText(ViewOf(std::wstring(text, wcsnlen(text, room))), m_nCodePage);
            ::GlobalUnlock(data);
        }
    }
    ::CloseClipboard();
    return fits;
}

BOOL CInPlaceEdit::ConversionFits()
{
    const HIMC context = ::ImmGetContext(m_hWnd);
    if (!context) {
        return TRUE;
    }
    const LONG bytes = ::ImmGetCompositionStringW(context, GCS_RESULTSTR, nullptr, 0);
    std::wstring result(bytes > 0 ? bytes / sizeof(wchar_t) : 0, L'\0');
    if (bytes > 0) {
        ::ImmGetCompositionStringW(context, GCS_RESULTSTR, &result[0], bytes);
    }
    ::ImmReleaseContext(m_hWnd, context);
    return HoldsText(ViewOf(result), m_nCodePage);
}

// ---- Keys

BOOL CInPlaceEdit::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN && HandleKey(static_cast<UINT>(pMsg->wParam))) {
        return TRUE;
    }
    // The windows around the box are asked after it: a key that types or edits must not be one of their commands.
    const bool isKey = pMsg->message == WM_KEYDOWN && IsEditKey(static_cast<UINT>(pMsg->wParam));
    if (pMsg->hwnd == m_hWnd && (isKey || pMsg->message == WM_CHAR)) {
        ::TranslateMessage(pMsg);
        ::DispatchMessage(pMsg);
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
    const LRESULT result = Default();
    ShowFont();
    return result;
}

BOOL CInPlaceEdit::OnChange()
{
    ShowFont();
    return FALSE; // the control gets it, too
}
