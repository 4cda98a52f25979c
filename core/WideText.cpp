#include "core/WideText.h"

namespace dayvane {
namespace {

const wchar_t* WideOf(const std::u16string& text)
{
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

} // namespace

int DrawWideText(CDC& dc, const std::u16string& text, CRect rect, UINT format)
{
    return ::DrawTextW(dc.m_hDC, WideOf(text), static_cast<int>(text.size()), &rect, format);
}

CSize WideTextExtent(CDC& dc, const std::u16string& text)
{
    CSize size(0, 0);
    ::GetTextExtentPoint32W(dc.m_hAttribDC, WideOf(text), static_cast<int>(text.size()), &size);
    return size;
}

} // namespace dayvane
