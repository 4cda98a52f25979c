#include "views/daygrid/BoxParts.h"

#include <algorithm>

namespace dayvane {
namespace {

// Pixels.
constexpr int kFrameLines = 3;   // a frame's inset, its outline and its bottom line: the rest of the strip is shaded
constexpr int kBarInset = 1;     // from the item's rectangle to the bar
constexpr int kContentInset = 2; // from there to marks and text
constexpr int kStripeWidth = 3;
constexpr int kArrowGap = 2; // between an arrow and the text

// The upper strip of a frame has 5 of 14 parts.
constexpr int kUpperShare = 5;
constexpr int kStripShares = 14;

} // namespace

CRect PaintedPart(const CRect& box, const CRect& calendar)
{
    return CRect(box.left, box.top, std::min(box.right, calendar.right - 1), std::min(box.bottom, calendar.bottom - 1));
}

DayFrameParts PartsOfDayFrame(const CRect& box, int stripHeight, const ViewScale& scale)
{
    const int inset = std::max((scale.Of(kFrameWidth) - 1) / 2, 1); // the outline lies around its line
    const int shaded = stripHeight - kFrameLines;
    const int upperHeight = shaded * kUpperShare / kStripShares;
    DayFrameParts parts;
    parts.frame = box;
    parts.frame.DeflateRect(inset, inset);
    const CRect& frame = parts.frame;
    const int top = frame.top + 1;
    parts.bottomLine = top + shaded;
    parts.upper.IntersectRect(CRect(frame.left + 1, top, frame.right, top + upperHeight), frame);
    parts.lower.IntersectRect(CRect(frame.left + 1, top + upperHeight, frame.right, parts.bottomLine), frame);
    return parts;
}

BarParts PartsOfBar(const tagCALENDAR_ITEM& item, const ViewScale& scale)
{
    const int contentInset = scale.Of(kContentInset);
    const int stripeWidth = scale.Of(kStripeWidth);
    const int arrowWidth = ArrowReach(scale) + 1;
    const int arrowGap = scale.Of(kArrowGap);
    BarParts parts;
    parts.bar = item.rcItem;
    parts.bar.DeflateRect(kBarInset, kBarInset);
    const CRect& bar = parts.bar;
    if (bar.IsRectEmpty()) {
        return parts;
    }
    CRect& content = parts.content;
    content = bar;
    content.DeflateRect(contentInset, contentInset);
    if (!BeganEarlier(item) && content.Width() > stripeWidth) {
        parts.stripe.SetRect(bar.left + 1, bar.top + 1, bar.left + 1 + stripeWidth, bar.bottom - 1);
        content.left += stripeWidth;
    }
    if (BeganEarlier(item) && content.Width() > arrowWidth) {
        parts.arrowBefore = content.left;
        content.left += arrowWidth + arrowGap;
    }
    if (GoesOn(item) && content.Width() > arrowWidth) {
        parts.arrowAfter = content.right - 1;
        content.right -= arrowWidth + arrowGap;
    }
    return parts;
}

} // namespace dayvane
