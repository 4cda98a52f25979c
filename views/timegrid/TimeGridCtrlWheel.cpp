// The time grids' wheel, option wheelByDelta: rows, with Ctrl the time scale, sideways whole views.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/DateMath.h"
#include "core/Interaction.h"
#include "views/timegrid/DayRange.h"
#include "views/timegrid/TimeGridMoves.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

namespace {
// Rows that a notch of the wheel scrolls, by the user's setting.
int RowsOfNotch(const GridWindow& window)
{
    UINT lines = 0;
    if (!::SystemParametersInfo(SPI_GETWHEELSCROLLLINES, 0, &lines, 0)) {
        lines = 1;
    }
    const int page = std::max(window.height / window.scale.metrics.rowHeight - 1, 1);
    return lines == WHEEL_PAGESCROLL ? page : std::min(static_cast<int>(lines), page);
}
} // namespace

BOOL CTimeGridCtrl::OnMouseWheel(UINT nFlags, short zDelta, CPoint point)
{
    if (!m_options.wheelByDelta) {
        return CMoreListCtrl::OnMouseWheel(nFlags, zDelta, point);
    }
    if (nFlags & MK_CONTROL) {
        ScreenToClient(&point);
        if (const int steps = m_interaction->scaleWheel.Add(zDelta, WHEEL_DELTA)) {
            ChangeScale(steps, point.y);
        }
        return TRUE;
    }
    const int rowsOfNotch = RowsOfNotch(RowWindow());
    const int rows = rowsOfNotch > 0 ? m_interaction->wheel.Add(zDelta * rowsOfNotch, WHEEL_DELTA) : 0;
    if (rows != 0) {
        SetVertScrollOffset(m_nVertScroll - rows * Scale().metrics.rowHeight);
    }
    return TRUE;
}

LRESULT CTimeGridCtrl::OnMouseHWheel(WPARAM wParam, LPARAM lParam)
{
    if (!m_options.wheelByDelta) {
        return CMoreListCtrl::OnMouseHWheel(wParam, lParam);
    }
    if (const int pages = m_interaction->pageWheel.Add(static_cast<short>(HIWORD(wParam)), WHEEL_DELTA)) {
        TurnPages(pages);
    }
    return 0;
}

// The time at that height stays there.
void CTimeGridCtrl::ChangeScale(int nSteps, int y)
{
    const int scale = ScaleBeside(m_nTimeScale, nSteps);
    if (scale == m_nTimeScale || !EndEdit()) {
        return;
    }
    const int fromTop = std::min(std::max(y - static_cast<int>(m_rcContent.top), 0), m_rcContent.Height());
    const int place = MulDiv(m_nVertScroll + fromTop, scale, m_nTimeScale);
    SetTimeScale(scale);
    Refresh();
    SetVertScrollOffset(place - fromTop);
}

void CTimeGridCtrl::TurnPages(int nPages)
{
    const DayRange range = GetShownRange();
    const int days = range.keepsToWeeks ? std::max(range.days, kDaysPerWeek) : range.days;
    const COleDateTime date = AddDays(m_dtCurrentDate, nPages * days);
    if (!IsValid(date) || !EndEdit()) {
        return;
    }
    SetCurrentDate(date);
    Rebuild();
    const DayRange shown = GetShownRange();
    Notify(CCN_VIEWRANGECHANGE, m_dtCurrentDate, shown.first, shown.LastMoment(), kRangeChangeValue);
}
