#include "planner/WindowsCodePage.h"

#include "ical/Text.h"
#include "planner/Calendar.h"

namespace planner {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the system's wide characters are UTF-16");

namespace {
constexpr UINT kJapanesePage = 932;
}

std::string WindowsCodePage::FromUtf8(std::string_view text) const
{
    const std::u16string utf16 = Utf16FromUtf8(text);
    const wchar_t* wide = reinterpret_cast<const wchar_t*>(utf16.data());
    const int length = static_cast<int>(utf16.size());
    std::string result(length ? ::WideCharToMultiByte(m_codePage, 0, wide, length, nullptr, 0, nullptr, nullptr) : 0,
                       0);
    ::WideCharToMultiByte(m_codePage, 0, wide, length, &result[0], static_cast<int>(result.size()), nullptr, nullptr);
    return result;
}

std::string WindowsCodePage::ToUtf8(std::string_view text) const
{
    const int length = static_cast<int>(text.size());
    std::u16string utf16(length ? ::MultiByteToWideChar(m_codePage, 0, text.data(), length, nullptr, 0) : 0, 0);
    ::MultiByteToWideChar(m_codePage, 0, text.data(), length, reinterpret_cast<wchar_t*>(&utf16[0]),
                          static_cast<int>(utf16.size()));
    return Utf8FromUtf16(utf16);
}

const WindowsCodePage& FontPage()
{
    static const WindowsCodePage page(kJapanesePage);
    return page;
}

const WindowsCodePage& SystemPage()
{
    static const WindowsCodePage page(CP_ACP);
    return page;
}

} // namespace planner
