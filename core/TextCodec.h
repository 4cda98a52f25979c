// Between the bytes of narrow texts, in whatever code page, and UTF-16. All texts that are drawn, measured or edited go
// through here once.
#pragma once

#include <afx.h>

#include <string>
#include <string_view>

namespace dayvane {

constexpr unsigned kSystemCodePage = 0;   // CP_ACP
constexpr unsigned kOwnCodePage = 932;    // of the library's own narrow texts
constexpr unsigned kUtf8CodePage = 65001; // CP_UTF8

// UTF-8: each longest beginning of a character that stays incomplete, and each byte that begins none, becomes U+FFFD.
// Other pages: as the system converts them; a page that it does not know counts as the system's own. Without Windows
// every page but UTF-8 is 932. Never fails, and never gives half a surrogate pair for UTF-8.
std::u16string DecodeText(std::string_view bytes, unsigned codePage);

// The reverse. What the page lacks becomes the system's mark for it ('?'), half a surrogate pair in UTF-8 U+FFFD.
std::string EncodeText(std::u16string_view text, unsigned codePage);

// Whether the page has every character of the text; look-alikes do not count.
bool HoldsText(std::u16string_view text, unsigned codePage);

// The bytes of a text that was shown as DecodeText(before) and was then edited. What is unchanged at both ends keeps
// its bytes, also those that are no characters.
std::string EncodeEdited(std::string_view before, std::u16string_view edited, unsigned codePage);

inline std::u16string DecodeText(const CString& text, unsigned codePage)
{
    return DecodeText(std::string_view(text.GetString(), static_cast<std::size_t>(text.GetLength())), codePage);
}
// A narrow text of the library itself.
inline std::u16string OwnText(const CString& text)
{
    return DecodeText(text, kOwnCodePage);
}

#ifdef _WIN32
// A host's UTF-16 text as the bytes that records take: TextOf(L"Café", ctrl.GetTextCodePage()).
inline CString TextOf(const wchar_t* text, unsigned codePage)
{
    const std::u16string_view wide(reinterpret_cast<const char16_t*>(text ? text : L""));
    return CString(EncodeText(wide, codePage).c_str());
}
// And back: what notifications and GetItem give.
inline std::wstring WideTextOf(const CString& text, unsigned codePage)
{
    const std::u16string wide = DecodeText(text, codePage);
    return std::wstring(wide.begin(), wide.end());
}
#endif

} // namespace dayvane
