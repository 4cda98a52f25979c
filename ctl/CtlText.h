// Texts at the border of the library: UTF-16 outside, UTF-8 inside.
#pragma once

#include <afxwin.h>

#include <string>
#include <string_view>

namespace dayvane::ctl {

// The longest text that is taken, in UTF-16 units.
constexpr int kMostText = 32767;
// The code page in which the controls take the bytes of their texts.
constexpr UINT kStoreCodePage = CP_UTF8;

// nullptr is an empty text.
CString StoreText(const WCHAR* text);
std::wstring WideOfStore(std::string_view text);

// Cuts the text to `room` units with its end, which is written when there is room at all. Returns the whole length.
int CopyText(const std::wstring& text, WCHAR* target, int room);

} // namespace dayvane::ctl
