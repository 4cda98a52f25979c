#include "views/daygrid/BoxViewLayout.h"

namespace dayvane {

BoxViewLayout LayOutBoxView(const CRect& client, bool showCaption, const BoxViewMetrics& metrics)
{
    BoxViewLayout layout;
    layout.caption = client;
    layout.caption.bottom = showCaption ? metrics.captionHeight : 0;
    layout.calendar = client;
    layout.calendar.top = layout.caption.bottom;

    const CRect& calendar = layout.calendar;
    const int width = calendar.Width() / metrics.columns;
    const int height = calendar.Height() / kBoxRows;
    for (int row = 0; row < kBoxRows; ++row) {
        for (int column = 0; column < metrics.columns; ++column) {
            const int left = calendar.left + column * width;
            const int top = calendar.top + row * height;
            CRect box(left, top, left + width, top + height);
            if (column == metrics.columns - 1) {
                box.right += calendar.Width() - metrics.columns * width;
            }
            layout.boxes.push_back(box);
            layout.strips.push_back(CRect(box.left, box.top, box.right, box.top + metrics.stripHeight));
        }
    }
    return layout;
}

} // namespace dayvane
