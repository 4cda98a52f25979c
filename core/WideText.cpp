#include "core/WideText.h"

#include "core/MixedText.h"

namespace dayvane {
namespace {

const std::u16string kEllipsis = u"...";

// The text cut so that it fits with an ellipsis after it.
std::u16string CutText(HDC hDC, const std::u16string& text, const std::vector<int>& ends, int room)
{
    SIZE ellipsis = {};
    ::GetTextExtentPoint32W(hDC, WideOf(kEllipsis), static_cast<int>(kEllipsis.size()), &ellipsis);
    size_t fitting = text.size();
    while (fitting > 0 && (ends[fitting - 1] + ellipsis.cx > room || IS_HIGH_SURROGATE(text[fitting - 1]))) {
        --fitting;
    }
    return text.substr(0, fitting) + kEllipsis;
}

int DrawMixedLine(HDC hDC, const std::u16string& text, const CRect& rect, UINT format)
{
    const MixedText mixed(hDC, text);
    if ((format & DT_END_ELLIPSIS) && mixed.Width() > rect.Width()) {
        return DrawMixedLine(hDC, CutText(hDC, text, mixed.Ends(), rect.Width()), rect, format & ~DT_END_ELLIPSIS);
    }
    int x = rect.left;
    if (format & DT_CENTER) {
        x += (rect.Width() - mixed.Width()) / 2;
    } else if (format & DT_RIGHT) {
        x += rect.Width() - mixed.Width();
    }
    int y = rect.top;
    if (format & DT_VCENTER) {
        y += (rect.Height() - mixed.Height()) / 2;
    } else if (format & DT_BOTTOM) {
        y += rect.Height() - mixed.Height();
    }
    CRect clip = rect;
    if (format & DT_NOCLIP) {
        ::GetClipBox(hDC, &clip);
    }
    mixed.Draw(x, y, clip, 0, text.size());
    return mixed.Height();
}

// As DT_EDITCONTROL has it, a line that does not fit whole is not drawn.
int DrawMixedLines(HDC hDC, const std::u16string& text, const CRect& rect)
{
    const MixedText mixed(hDC, text);
    int y = rect.top;
    for (const MixedLine& line : BreakLines(text, mixed.Ends(), rect.Width())) {
        if (y + mixed.Height() > rect.bottom) {
            break;
        }
        mixed.Draw(rect.left, y, rect, line.from, line.to);
        y += mixed.Height();
    }
    return y - rect.top;
}

} // namespace

int DrawWideText(CDC& dc, const std::u16string& text, CRect rect, UINT format)
{
    if (IsMixedText(dc.m_hDC, text)) {
        return (format & DT_SINGLELINE) ? DrawMixedLine(dc.m_hDC, text, rect, format)
                                        : DrawMixedLines(dc.m_hDC, text, rect);
    }
    return ::DrawTextW(dc.m_hDC, WideOf(text), static_cast<int>(text.size()), &rect, format);
}

CSize WideTextExtent(CDC& dc, const std::u16string& text)
{
    if (IsMixedText(dc.m_hAttribDC, text)) {
        const MixedText mixed(dc.m_hAttribDC, text);
        return CSize(mixed.Width(), mixed.Height());
    }
    CSize size(0, 0);
    ::GetTextExtentPoint32W(dc.m_hAttribDC, WideOf(text), static_cast<int>(text.size()), &size);
    return size;
}

} // namespace dayvane
