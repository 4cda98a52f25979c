#include "core/PopupPlace.h"

#include <algorithm>

namespace dayvane {

int FitInto(int start, int length, int low, int high)
{
    return std::max(std::min(start, high - length), low);
}

CRect PlaceDropDown(const CRect& anchor, CSize size, const CRect& workArea)
{
    const int left = FitInto(anchor.right - size.cx, size.cx, workArea.left, workArea.right);
    int top = anchor.bottom;
    if (top + size.cy > workArea.bottom && anchor.top - size.cy >= workArea.top) {
        top = anchor.top - size.cy;
    }
    top = FitInto(top, size.cy, workArea.top, workArea.bottom);
    return CRect(left, top, left + size.cx, top + size.cy);
}

} // namespace dayvane
