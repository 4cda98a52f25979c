// The time grids' side of the keys that move items, and their parts as a value.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/KeyMoves.h"
#include "views/timegrid/TimeGridMoves.h"
#include "views/timegrid/TimeGridParts.h"
#include "views/timegrid/TimeGridViewParts.h"

using namespace dayvane;

KeyStep CTimeGridCtrl::GetKeyStep(KeyArrow arrow, bool bWholeDays)
{
    switch (arrow) {
    case KeyArrow::Left:
        return {KeyStep::DAYS, -1};
    case KeyArrow::Right:
        return {KeyStep::DAYS, 1};
    case KeyArrow::Up:
        return bWholeDays ? KeyStep() : KeyStep{KeyStep::MINUTES, -GetMoveStepMinutes()};
    default:
        return bWholeDays ? KeyStep() : KeyStep{KeyStep::MINUTES, GetMoveStepMinutes()};
    }
}

// The days have followed the marked date; the row comes into sight.
void CTimeGridCtrl::ShowMoved(const COleDateTime& when, BOOL bWholeDays)
{
    if (!bWholeDays) {
        ScrollTo(OffsetToShow(RowWindow(), when, when));
    }
}

void CTimeGridCtrl::DescribeParts(ViewParts& parts)
{
    FillTimeGridParts(State(), m_arScreenItem, m_pParts->more, parts);
    parts.kind = GetShownRange().days == 1 ? ViewKind::Day : ViewKind::SeveralDays;
    for (int column = 0; column < static_cast<int>(parts.cells.size()); ++column) {
        const tagCALENDAR_DAY_PROPERTY* day = GetDayProperty(parts.cells[column].first);
        parts.cells[column].hostText = day ? m_texts.HostText(day->strText) : std::u16string();
        for (int row = 0; row < parts.rows; ++row) {
            parts.cells[column].workRows.push_back(IsWorkRow(column, row) != FALSE);
        }
    }
}
