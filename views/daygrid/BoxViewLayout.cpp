#include "views/daygrid/BoxViewLayout.h"

namespace dayvane {

BoxViewLayout::BoxViewLayout(const BoxViewMetrics& metrics)
    : grid{std::vector<CRect>(metrics.BoxCount(), CRect(0, 0, 0, 0)), metrics.columns}, strips(grid.boxes)
{
}

BoxViewMetrics BoxViewMetrics::At(const ViewScale& scale) const
{
    BoxViewMetrics scaled = *this;
    scaled.captionHeight = scale.Of(captionHeight);
    scaled.stripHeight = scale.Line(stripHeight);
    scaled.hitStripHeight = scale.Line(hitStripHeight);
    scaled.bars.metrics = bars.metrics.At(scale);
    return scaled;
}

void LayOutBoxView(const CRect& client, bool showCaption, const BoxViewMetrics& metrics, BoxViewLayout& layout)
{
    layout.caption = client;
    layout.caption.bottom = showCaption ? metrics.captionHeight : 0;
    layout.calendar = client;
    layout.calendar.top = layout.caption.bottom;

    const CRect& calendar = layout.calendar;
    const int width = calendar.Width() / metrics.columns;
    const int height = calendar.Height() / kBoxRows;
    for (int i = 0; i < metrics.BoxCount(); ++i) {
        const int column = i % metrics.columns;
        const int left = calendar.left + column * width;
        const int top = calendar.top + i / metrics.columns * height;
        CRect box(left, top, left + width, top + height);
        if (column == metrics.columns - 1) {
            box.right += calendar.Width() - metrics.columns * width;
        }
        layout.grid.boxes[i] = box;
        layout.strips[i] = CRect(box.left, box.top, box.right, box.top + metrics.stripHeight);
    }
}

} // namespace dayvane
