// The month view's scrolling by weeks: what stays in sight moves along, only what looks different is painted.
#include "views/daygrid/MonthViewCtrl.h"

#include "core/ClipArea.h"
#include "core/DateMath.h"
#include "core/Interaction.h"
#include "core/PaintedState.h"
#include "core/WindowHelpers.h"
#include "views/daygrid/BoxLines.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/DayLook.h"

#include <algorithm>
#include <cstdlib>

using namespace dayvane;

namespace dayvane {

// What a month view's window shows. What a cell looks like besides this follows from its date.
struct MonthPicture
{
    struct Cell
    {
        CRect rect;
        unsigned flags; // DayFlags
        int color;      // the host's
        CString text;   // the host's
        bool isSelected;
        bool isFirst; // its number has the month beside it

        // But for where it ends below: the last row is a little higher or lower than the others.
        bool LooksLike(const Cell& other) const
        {
            return rect.TopLeft() == other.rect.TopLeft() && rect.right == other.rect.right && flags == other.flags &&
                   color == other.color && text == other.text && isSelected == other.isSelected &&
                   isFirst == other.isFirst;
        }
    };
    bool isKnown = false; // else it may be anything
    int firstDay = 0;     // number of the day
    int lines = 0;        // under the numbers of the days
    std::vector<Cell> cells;
    PaintedState items;
};

} // namespace dayvane

namespace {

constexpr int kRangeChangeValue = 4104; // nValue of CCN_VIEWRANGECHANGE
constexpr int kCellMargin = 2;          // pixels around a cell that its frame may touch
constexpr int kMostWeeks = 3;           // of a longer way most is painted anew

// The part of a picture that is still seen when it has moved down.
void Move(PaintedState& state, const CRect& area, int down)
{
    const auto moveOut = [&](auto& parts) {
        for (auto& part : parts) {
            part.box.OffsetRect(0, down);
        }
        parts.erase(std::remove_if(parts.begin(), parts.end(),
                                   [&area](const auto& part) {
                                       return part.box.CenterPoint().y < area.top ||
                                              part.box.CenterPoint().y >= area.bottom;
                                   }),
                    parts.end());
    };
    moveOut(state.pieces);
    moveOut(state.marks);
    for (PaintedState::Piece& piece : state.pieces) {
        piece.item.rcItem.OffsetRect(0, down);
    }
}

} // namespace

MonthPicture CMonthViewCtrl::TakePicture()
{
    MonthPicture picture;
    if (!m_hWnd || !UpdatesByParts() || IsLoadingItems()) {
        return picture;
    }
    const DayLookInput input = LookInput();
    picture.firstDay = DayNumberOf(m_arCellDate[0].m_date);
    for (int i = 0; i < kMonthCells; ++i) {
        if (!HasColorRow(m_arCellDate[i], GetDayColor(i), m_arDayColors)) {
            return picture;
        }
        const int day = picture.firstDay + i;
        picture.cells.push_back(
            {m_arCell[i].m_rect, m_arCellDate[i].m_nFlags, GetDayColor(i), m_arCellDate[i].m_dayProperty.strText,
             input.showSelection && input.firstSelected <= day && day <= input.lastSelected, i == 0});
    }
    picture.lines = GetBoxLines().lines;
    GetPaintedState(picture.items);
    picture.isKnown = true;
    return picture;
}

void CMonthViewCtrl::RepaintMoved(MonthPicture& before, int nWeeks)
{
    const MonthPicture after = before.isKnown && nWeeks != 0 ? TakePicture() : MonthPicture();
    if (!after.isKnown || before.lines != after.lines || before.firstDay + nWeeks * kMonthColumns != after.firstDay) {
        InvalidateClient();
        return;
    }
    const int down = -nWeeks * (after.cells[kMonthColumns].rect.top - after.cells[0].rect.top);
    Move(before.items, m_rcContent, down);
    std::vector<CRect> changed;
    if (!FindDifferences(before.items, after.items, changed)) {
        InvalidateClient();
        return;
    }
    for (MonthPicture::Cell& cell : before.cells) {
        cell.rect.OffsetRect(0, down);
    }
    for (int i = 0; i < kMonthCells; ++i) {
        const int old = i + nWeeks * kMonthColumns;
        CRect part = after.cells[i].rect;
        if (old >= 0 && old < kMonthCells && before.cells[old].LooksLike(after.cells[i])) {
            const int bottom = before.cells[old].rect.bottom;
            if (bottom == part.bottom) {
                continue;
            }
            part.top = std::min<int>(bottom, part.bottom);
            part.bottom = std::max<int>(bottom, part.bottom);
        }
        part.InflateRect(m_scale.Of(kCellMargin), m_scale.Of(kCellMargin));
        changed.push_back(part);
    }
    const CRect client = ClientRectOf(*this);
    changed.push_back(CRect(client.left, client.top, client.right, m_rcContent.top));
    changed.push_back(CRect(client.left, m_rcContent.top, m_rcContent.left, client.bottom)); // numbers of weeks
    const CRect& focus = m_interaction->paintedFocus;
    changed.push_back(focus);
    changed.push_back(focus + CPoint(0, down));
    ScrollWindowEx(0, down, &m_rcContent, &m_rcContent, nullptr, nullptr, SW_INVALIDATE);
    CRgn region; // each call asks the system once
    if (MakeRegion(JoinParts(changed, client), region)) {
        InvalidateRgn(&region, FALSE);
    } else {
        InvalidateClient();
    }
}

void CMonthViewCtrl::MoveCalendar(int nWeeks)
{
    MonthPicture unknown;
    MoveCalendarFrom(unknown, nWeeks);
}

void CMonthViewCtrl::MoveCalendarFrom(MonthPicture& before, int nWeeks)
{
    const BoxRange range = Range().Moved(static_cast<long long>(nWeeks) * kMonthColumns);
    if (!range.HasDates()) {
        return;
    }
    ShowRange(range);
    UpdateScreenItems();
    RepaintMoved(before, nWeeks);
    NotifyViewRangeChange(m_dtCurrent, kRangeChangeValue);
}

void CMonthViewCtrl::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    const ScrollStep scroll = Range().Scroll(nSBCode, GetScrollPos(SB_VERT), static_cast<int>(nPos), m_dtCurrent);
    COleDateTime date = AddDays(m_dtCurrent, scroll.step);
    if (!scroll.moves || !IsValid(date)) {
        return;
    }
    const WindowAlive alive(this, m_life);
    const int weeks = scroll.step / kMonthColumns;
    MonthPicture before = std::abs(weeks) <= kMostWeeks ? TakePicture() : MonthPicture();
    const bool isSelected = IsSameDay(m_dtSelBegin, date) && IsSameDay(m_dtSelEnd, date);
    if (scroll.step != 0 || !isSelected) {
        NotifySelDateChange(date);
    }
    if (!alive) {
        return;
    }
    // The host may have set another date meanwhile.
    date = AddDays(m_dtCurrent, scroll.step);
    if (!IsValid(date)) {
        return;
    }
    m_dtCurrent = m_dtScroll = date;
    m_dtCurrentDate = m_dtViewDate = m_dtSelBegin = m_dtSelEnd = date;
    MoveCalendarFrom(before, weeks);
    if (!alive) {
        return;
    }
    m_dtSelBegin = m_dtSelEnd = m_dtCurrent;
    SetScrollPos(SB_VERT, scroll.position, TRUE);
    CDayGridCtrl::OnVScroll(nSBCode, nPos, pScrollBar);
}
