#include "views/timegrid/TimeGridMoves.h"

#include "core/DateMath.h"

#include <algorithm>
#include <cstdlib>

namespace dayvane {
namespace {

// Moves the selection by rows; false when its begin would come to another day.
bool MoveRows(GridSelection& selection, const TimeScale& scale, int rows, bool extend)
{
    if (scale.MoveRows(selection.begin, rows).GetDay() != selection.begin.GetDay()) {
        return false;
    }
    selection.current = scale.MoveRows(selection.current, rows);
    selection.end = scale.MoveRows(selection.end, rows);
    if (!extend) {
        selection.begin = selection.end;
    }
    return true;
}

int FirstShownRow(const GridWindow& window)
{
    return std::abs(window.scroll / window.scale.metrics.rowHeight);
}

// The time of day at which a row begins; rows before the first belong to the day before, rows after the last to the
// next.
ClockTime TimeOfRow(const TimeScale& scale, int row)
{
    const int minute = (row * scale.MinutesPerRow() % kMinutesPerDay + kMinutesPerDay) % kMinutesPerDay;
    ClockTime time;
    time.hour = minute / kMinutesPerHour;
    time.minute = minute % kMinutesPerHour;
    return time;
}
} // namespace

AfterMove MoveRowEarlier(GridSelection& selection, const GridWindow& window, bool extend)
{
    if (!MoveRows(selection, window.scale, -1, extend)) {
        return AfterMove::NOTHING;
    }
    const ClockTime shown = TimeOfRow(window.scale, FirstShownRow(window));
    const ClockTime begin = ClockTimeOf(selection.begin);
    return shown.hour >= begin.hour && shown.minute >= begin.minute ? AfterMove::SCROLL_UP : AfterMove::REPAINT;
}

AfterMove MoveRowLater(GridSelection& selection, const GridWindow& window, bool extend)
{
    if (!MoveRows(selection, window.scale, 1, extend)) {
        return AfterMove::NOTHING;
    }
    int whole = window.height / window.scale.metrics.rowHeight;
    if (window.height % window.scale.metrics.rowHeight != 0) {
        --whole;
    }
    const ClockTime shown = TimeOfRow(window.scale, FirstShownRow(window) + whole);
    const ClockTime begin = ClockTimeOf(selection.begin);
    return shown.hour <= begin.hour && shown.minute <= begin.minute ? AfterMove::SCROLL_DOWN : AfterMove::REPAINT;
}

void MoveDayEarlier(GridSelection& selection, bool extend)
{
    selection.current = AddDays(selection.current, -1);
    selection.end = AddDays(selection.end, -1);
    if (!extend) {
        selection.begin = selection.end;
    }
}

void MoveDayLater(GridSelection& selection, bool extend)
{
    selection.current = AddDays(selection.current, 1);
    selection.end = AddDays(selection.end, 1);
    selection.begin = AddDays(extend ? selection.begin : selection.end, 1);
}

COleDateTime LastRow(const DayRange& range, const TimeScale& scale)
{
    return scale.TimeOfRow(range.DayOf(range.days - 1), scale.RowsPerDay() - 1);
}

int OffsetToShow(const GridWindow& window, int top, int bottom)
{
    return std::min(std::max(window.scroll, bottom - window.height), top);
}

int OffsetToShow(const GridWindow& window, const COleDateTime& begin, const COleDateTime& end)
{
    const ClockTime one = ClockTimeOf(begin);
    const ClockTime other = ClockTimeOf(end);
    if (!one.isValid || !other.isValid) {
        return window.scroll;
    }
    const int top = window.scale.TopOfTime(one);
    const int bottom = window.scale.TopOfTime(other);
    return OffsetToShow(window, std::min(top, bottom), std::max(top, bottom) + window.scale.metrics.rowHeight);
}

GridWindow WindowAfter(AfterMove move, const GridWindow& window)
{
    const bool scrolls = move == AfterMove::SCROLL_UP || move == AfterMove::SCROLL_DOWN;
    const ScrollCode code = move == AfterMove::SCROLL_UP ? SCROLL_LINEUP : SCROLL_LINEDOWN;
    GridWindow moved = window;
    moved.scroll = scrolls ? Scrolled({window.scroll, 0, 0}, code, 0, window).offset : window.scroll;
    return moved;
}

GridScroll Scrolled(const GridScroll& scroll, int code, int thumb, const GridWindow& window)
{
    const int lowest = window.scale.DayHeight() - window.height;
    GridScroll moved = scroll;
    int rows = 0;
    switch (code) {
    case SCROLL_LINEUP:
        rows = -kScrollLine;
        break;
    case SCROLL_LINEDOWN:
        rows = kScrollLine;
        break;
    case SCROLL_PAGEUP:
        rows = -kScrollPage;
        break;
    case SCROLL_PAGEDOWN:
        rows = kScrollPage;
        break;
    case SCROLL_THUMBPOSITION:
    case SCROLL_THUMBTRACK:
        moved.offset = thumb * window.scale.metrics.rowHeight;
        moved.position = thumb;
        break;
    case SCROLL_TOP:
        moved.offset = moved.position = 0;
        break;
    case SCROLL_BOTTOM:
        moved.offset = lowest;
        moved.position = scroll.maximum;
        break;
    }
    moved.position += rows;
    moved.offset = std::min(std::max(moved.offset + rows * window.scale.metrics.rowHeight, 0), lowest);
    return moved;
}

GridScroll ScrolledTo(const GridScroll& scroll, int offset, const GridWindow& window)
{
    GridScroll moved = scroll;
    moved.offset = std::clamp(offset, 0, std::max(window.scale.DayHeight() - window.height, 0));
    moved.position = (moved.offset + window.scale.metrics.rowHeight - 1) / window.scale.metrics.rowHeight;
    return moved;
}

GridScroll ScaledTo(const GridScroll& scroll, const GridWindow& window)
{
    GridScroll scaled;
    scaled.maximum = std::max((window.scale.DayHeight() - window.height) / window.scale.metrics.rowHeight + 1, 0);
    scaled.position = (scroll.position + 1) * scaled.maximum / std::max(scroll.maximum + 1, 1);
    scaled.offset = scaled.position * window.scale.metrics.rowHeight;
    return scaled;
}

} // namespace dayvane
