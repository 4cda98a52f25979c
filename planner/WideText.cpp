#include "planner/WideText.h"

#include "ical/Text.h"
#include "planner/Calendar.h"
#include "planner/Words.h"

#include <commctrl.h>

#include <vector>

namespace planner {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the system's wide characters are UTF-16");

namespace {

constexpr int kMaxClassName = 32;

bool IsClass(HWND window, const wchar_t* name)
{
    wchar_t actual[kMaxClassName] = L"";
    ::GetClassNameW(window, actual, kMaxClassName);
    return ::lstrcmpiW(actual, name) == 0;
}

// What of a menu item stands before its key.
void TranslateItem(HMENU menu, UINT position)
{
    constexpr UINT longest = 256;
    wchar_t buffer[longest] = L"";
    MENUITEMINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_STRING | MIIM_FTYPE;
    info.dwTypeData = buffer;
    info.cch = longest;
    if (!::GetMenuItemInfoW(menu, position, TRUE, &info) || (info.fType & MFT_SEPARATOR) != 0) {
        return;
    }
    const std::string text = Utf8Of(buffer);
    const std::size_t tab = std::min(text.find('\t'), text.size());
    std::wstring translated = Wide(Tr(text.substr(0, tab)) + text.substr(tab));
    info.fMask = MIIM_STRING;
    info.dwTypeData = &translated[0];
    ::SetMenuItemInfoW(menu, position, TRUE, &info);
}

constexpr wchar_t kTitleProperty[] = L"DayvanePlannerTitle";

// Answers for the title itself; everything else goes on to the procedure that was there before.
LRESULT CALLBACK TitleProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WNDPROC before = reinterpret_cast<WNDPROC>(::GetPropW(window, kTitleProperty));
    if (message == WM_SETTEXT || message == WM_GETTEXT || message == WM_GETTEXTLENGTH || !before) {
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        ::RemovePropW(window, kTitleProperty);
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before));
    }
    return ::CallWindowProcW(before, window, message, wParam, lParam);
}

Answerer& TheAnswerer()
{
    static Answerer answerer;
    return answerer;
}

} // namespace

std::wstring Wide(std::string_view utf8)
{
    const std::u16string text = Utf16FromUtf8(utf8);
    return std::wstring(reinterpret_cast<const wchar_t*>(text.data()), text.size());
}

std::string Utf8Of(std::wstring_view text)
{
    return Utf8FromUtf16(std::u16string_view(reinterpret_cast<const char16_t*>(text.data()), text.size()));
}

std::string Utf8OfSystem(const CString& text)
{
    std::wstring wide(static_cast<std::size_t>(text.GetLength()) + 1, L'\0');
    const int length =
        ::MultiByteToWideChar(CP_ACP, 0, text, text.GetLength(), &wide[0], static_cast<int>(wide.size()));
    return Utf8Of(std::wstring_view(wide).substr(0, static_cast<std::size_t>(length)));
}

CString SystemOf(std::string_view utf8)
{
    constexpr std::size_t mostBytes = 4; // of a character in a code page
    const std::wstring wide = Wide(utf8);
    std::string text(wide.size() * mostBytes + 1, '\0');
    ::WideCharToMultiByte(CP_ACP, 0, wide.c_str(), static_cast<int>(wide.size()), &text[0],
                          static_cast<int>(text.size()) - 1, nullptr, nullptr);
    return CString(text.c_str());
}

void SetWindowUtf8(HWND window, std::string_view utf8)
{
    std::wstring text;
    for (const wchar_t c : Wide(utf8)) {
        text += c == L'\n' ? L"\r\n" : std::wstring(1, c);
    }
    if (::IsWindowUnicode(window)) {
        ::SetWindowTextW(window, text.c_str());
    } else { // its own procedure would get the text in the system's code page
        ::DefWindowProcW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
}

std::string WindowUtf8(HWND window)
{
    constexpr std::size_t longestTitle = 512;
    const bool isWide = ::IsWindowUnicode(window) != FALSE;
    std::wstring text(isWide ? static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1 : longestTitle, L'\0');
    const int room = static_cast<int>(text.size());
    const int length = isWide ? ::GetWindowTextW(window, &text[0], room)
                              : ::InternalGetWindowText(window, &text[0], room); // past its own narrow procedure
    std::string utf8;
    for (const char c : Utf8Of(std::wstring_view(text).substr(0, static_cast<std::size_t>(length)))) {
        if (c != '\r') {
            utf8 += c;
        }
    }
    return utf8;
}

void KeepWideTitle(HWND window)
{
    const LONG_PTR before = ::GetWindowLongPtrW(window, GWLP_WNDPROC);
    ::SetPropW(window, kTitleProperty, reinterpret_cast<HANDLE>(before));
    ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TitleProc));
}

void SetItemUtf8(const CWnd& dialog, int control, std::string_view utf8)
{
    SetWindowUtf8(::GetDlgItem(dialog.m_hWnd, control), utf8);
}

std::string ItemUtf8(const CWnd& dialog, int control)
{
    return WindowUtf8(::GetDlgItem(dialog.m_hWnd, control));
}

int AddListText(const CWnd& dialog, int control, std::string_view utf8, LPARAM data)
{
    const HWND window = ::GetDlgItem(dialog.m_hWnd, control);
    const bool isCombo = IsClass(window, WC_COMBOBOXW);
    const std::wstring text = Wide(utf8);
    const LRESULT index =
        ::SendMessageW(window, isCombo ? CB_ADDSTRING : LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    ::SendMessageW(window, isCombo ? CB_SETITEMDATA : LB_SETITEMDATA, static_cast<WPARAM>(index), data);
    return static_cast<int>(index);
}

void TranslateWindow(HWND dialog)
{
    SetWindowUtf8(dialog, Tr(WindowUtf8(dialog)));
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (IsClass(child, WC_BUTTONW) || IsClass(child, WC_STATICW)) {
            const std::string text = WindowUtf8(child);
            if (!text.empty()) {
                SetWindowUtf8(child, Tr(text));
            }
        }
    }
}

void TranslateMenu(HMENU menu)
{
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
        TranslateItem(menu, static_cast<UINT>(i));
        if (const HMENU inner = ::GetSubMenu(menu, i)) {
            TranslateMenu(inner);
        }
    }
}

void SetAnswerer(Answerer answerer)
{
    TheAnswerer() = std::move(answerer);
}

const Answerer& CurrentAnswerer()
{
    return TheAnswerer();
}

} // namespace planner
