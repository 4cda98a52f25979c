// The month, week and year view's side of the keys that move items, and their parts as a value.
#include "views/daygrid/DayGridCtrl.h"

#include "core/KeyMoves.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/BoxViewParts.h"

using namespace dayvane;

namespace {

constexpr int kMostPages = 100; // turned by one key; a step of a key needs at most a few

} // namespace

KeyStep CDayGridCtrl::GetKeyStep(KeyArrow arrow, bool)
{
    const KeyStep::Unit unit = Range().Kind() == RangeKind::Year ? KeyStep::MONTHS : KeyStep::DAYS;
    const int row = Range().Columns();
    switch (arrow) {
    case KeyArrow::Left:
        return {unit, -1};
    case KeyArrow::Right:
        return {unit, 1};
    case KeyArrow::Up:
        return {unit, -row};
    default:
        return {unit, row};
    }
}

// The date is marked by its box, as while the mouse drags.
void CDayGridCtrl::ShowMoved(const COleDateTime& when, BOOL)
{
    const WindowAlive alive(this, m_life);
    for (int i = 0; i < kMostPages && !Range().Holds(when); ++i) {
        const COleDateTime before = Range().FirstDate();
        SendMessage(WM_VSCROLL, when < before ? SB_LINEUP : SB_LINEDOWN);
        if (!alive || Range().FirstDate() == before) {
            break;
        }
    }
    if (alive && Range().Holds(when)) {
        m_dtSelBegin = m_dtSelEnd = Range().DateOfBox(Range().BoxOf(when));
        InvalidateCellRectRange();
    }
}

void CDayGridCtrl::DescribeParts(ViewParts& parts)
{
    const BoxRange range = Range();
    parts.kind = range.Kind() == RangeKind::Month  ? ViewKind::Month
                 : range.Kind() == RangeKind::Week ? ViewKind::Week
                                                   : ViewKind::Year;
    parts.title = m_bShowCaption ? m_rcCaption : CRect(0, 0, 0, 0);
    std::vector<CRect> boxes;
    std::vector<CRect> marks;
    for (int i = 0; i < range.Count(); ++i) {
        boxes.push_back(GetBoxRect(i));
        marks.push_back(HasMoreMark(i) ? GetMarkBox(i) : CRect(0, 0, 0, 0));
    }
    FillBoxParts({range, range.Columns(), GetHitStripHeight(), boxes, marks, m_arScreenItem}, parts);
}
