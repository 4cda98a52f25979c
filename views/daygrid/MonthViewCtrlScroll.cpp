// The month view's scrolling by weeks: what stays in sight moves along, only what looks different is painted.
#include "views/daygrid/MonthViewCtrl.h"

#include "core/DateMath.h"
#include "core/Interaction.h"
#include "core/PaintedState.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/DayLook.h"
#include "views/daygrid/DayGridParts.h"

#include <algorithm>
#include <cstdlib>

using namespace dayvane;

namespace dayvane {

// What a month view's window shows.
struct MonthPicture
{
    bool isKnown = false; // else it may be anything
    int firstDay = 0;     // number of the day
    std::vector<CRect> cells;
    std::vector<DayLook> looks; // of the cells
    int lines = 0;              // under the numbers
    PaintedState items;
};

} // namespace dayvane

namespace {

constexpr int kRangeChangeValue = 4104; // nValue of CCN_VIEWRANGECHANGE
constexpr int kCellMargin = 2;          // pixels around a cell that its frame may touch

bool LooksTheSame(const DayLook& a, const DayLook& b)
{
    return a.background == b.background && a.today == b.today && a.selected == b.selected &&
           a.annotation == b.annotation && a.annotationColor == b.annotationColor && a.dayAlone == b.dayAlone &&
           a.dayNumber == b.dayNumber && a.dayNumberColor == b.dayNumberColor;
}

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
    for (int i = 0; i < kMonthCells; ++i) {
        if (!HasColorRow(m_arCellDate[i], GetDayColor(i), m_arDayColors)) {
            return picture;
        }
        picture.cells.push_back(m_arCell[i].m_rect);
        picture.looks.push_back(CalcDayLook(m_arCellDate[i], i == 0, GetDayColor(i), input));
    }
    picture.firstDay = DayNumberOf(m_arCellDate[0].m_date);
    picture.lines = GetBoxLines().lines;
    GetPaintedState(picture.items);
    picture.isKnown = true;
    return picture;
}

void CMonthViewCtrl::RepaintMoved(MonthPicture& before, int nWeeks)
{
    const MonthPicture after = TakePicture();
    if (!before.isKnown || !after.isKnown || nWeeks == 0 || std::abs(nWeeks) >= kMonthRows ||
        before.firstDay + nWeeks * kMonthColumns != after.firstDay || before.cells != after.cells ||
        before.lines != after.lines) {
        InvalidateClient();
        return;
    }
    const int down = -nWeeks * (after.cells[kMonthColumns].top - after.cells[0].top);
    Move(before.items, m_rcContent, down);
    std::vector<CRect> changed;
    if (!FindDifferences(before.items, after.items, changed)) {
        InvalidateClient();
        return;
    }
    for (int i = 0; i < kMonthCells; ++i) {
        const int old = i + nWeeks * kMonthColumns;
        const bool isThere = old >= 0 && old < kMonthCells && LooksTheSame(before.looks[old], after.looks[i]) &&
                             before.cells[old] + CPoint(0, down) == after.cells[i];
        if (!isThere) {
            changed.push_back(after.cells[i]);
            changed.back().InflateRect(m_scale.Of(kCellMargin), m_scale.Of(kCellMargin));
        }
    }
    CRect client;
    GetClientRect(&client);
    changed.push_back(CRect(client.left, client.top, client.right, m_rcContent.top));
    changed.push_back(CRect(client.left, m_rcContent.top, m_rcContent.left, client.bottom)); // numbers of weeks
    const CRect& focus = m_interaction->paintedFocus;
    changed.push_back(focus);
    changed.push_back(focus + CPoint(0, down));
    ScrollWindowEx(0, down, &m_rcContent, &m_rcContent, nullptr, nullptr, SW_INVALIDATE);
    for (const CRect& part : changed) {
        InvalidateRect(&part, FALSE);
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
    MonthPicture before = TakePicture();
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
    MoveCalendarFrom(before, scroll.step / kMonthColumns);
    if (!alive) {
        return;
    }
    m_dtSelBegin = m_dtSelEnd = m_dtCurrent;
    SetScrollPos(SB_VERT, scroll.position, TRUE);
    CDayGridCtrl::OnVScroll(nSBCode, nPos, pScrollBar);
}
