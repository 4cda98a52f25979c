#include "CtlText.h"

#include <algorithm>

namespace dayvane::ctl {

CString StoreText(const WCHAR* text)
{
    if (!text) {
        return CString();
    }
    int length = 0;
    while (length < kMostText && text[length] != L'\0') {
        ++length;
    }
    std::string narrow(::WideCharToMultiByte(kStoreCodePage, 0, text, length, nullptr, 0, nullptr, nullptr), '\0');
    ::WideCharToMultiByte(kStoreCodePage, 0, text, length, narrow.data(), static_cast<int>(narrow.size()), nullptr,
                          nullptr);
    return CString(narrow.data(), static_cast<int>(narrow.size()));
}

std::wstring WideOfStore(std::string_view text)
{
    const int length = static_cast<int>(text.size());
    std::wstring wide(::MultiByteToWideChar(kStoreCodePage, 0, text.data(), length, nullptr, 0), L'\0');
    ::MultiByteToWideChar(kStoreCodePage, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

int CopyText(const std::wstring& text, WCHAR* target, int room)
{
    const int length = static_cast<int>(text.size());
    if (target && room > 0) {
        const int copied = std::min(length, room - 1);
        std::copy_n(text.data(), copied, target);
        target[copied] = L'\0';
    }
    return length;
}

} // namespace dayvane::ctl
