// Text in UTF-16 on a device context.
#pragma once

#include <afxwin.h>

#include <string>
#include <string_view>

namespace dayvane {

// The units as the system's calls take them, and back.
inline const wchar_t* WideOf(const std::u16string& text)
{
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline std::u16string_view ViewOf(std::wstring_view text)
{
    return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
}

// As the system's DrawText: draws in the selected font and returns the height. Characters that its face lacks come from
// a face that has them.
int DrawWideText(CDC& dc, const std::u16string& text, CRect rect, UINT format);

// The size of the text in one line in the selected font, pixels.
CSize WideTextExtent(CDC& dc, const std::u16string& text);

} // namespace dayvane
