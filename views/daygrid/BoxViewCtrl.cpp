// The week and year view's common part: lifetime, range, layout, hit test, scrolling. Painting is in
// BoxViewCtrlPaint.cpp.
#include "views/daygrid/BoxViewCtrl.h"

#include "core/DateMath.h"
#include "core/Fonts.h"
#include "core/ItemStore.h"
#include "core/WindowHelpers.h"
#include "views/daygrid/BoxViewState.h"

#include <algorithm>

using namespace dayvane;

namespace {

constexpr int kRangeChangeValue = 4100; // nValue of CCN_VIEWRANGECHANGE

// Milliseconds.
constexpr int kWeekScrollInterval = 400;
constexpr int kYearScrollInterval = 1000;

} // namespace

IMPLEMENT_DYNAMIC(CBoxViewCtrl, CDayGridCtrl)

BEGIN_MESSAGE_MAP(CBoxViewCtrl, CDayGridCtrl)
ON_WM_VSCROLL()
END_MESSAGE_MAP()

// ---- Lifetime

CBoxViewCtrl::CBoxViewCtrl(const BoxViewKind& kind)
    : m_strTitle(kind.title), m_state(std::make_unique<BoxViewState>(kind))
{
    RegisterControlClass(kind.windowClass);
    m_nAutoScrollInterval = kind.range == RangeKind::Year ? kYearScrollInterval : kWeekScrollInterval;
    SetOwnColors(kind.colors);
    m_lfFonts[FONT_CAPTION] = LogFontOf({16, FW_BOLD, ANSI_CHARSET, "Arial"});
}

CBoxViewCtrl::~CBoxViewCtrl()
{
    DestroyWindow();
}

BOOL CBoxViewCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext)
{
    return CWnd::Create(m_state->kind.windowClass, nullptr, dwStyle, rect, pParent, nID, pContext);
}

const CRect& CBoxViewCtrl::GetBox(int nBox) const
{
    if (nBox < 0 || nBox >= GetBoxCount()) {
        AfxThrowInvalidArgException();
    }
    return m_state->layout.grid.boxes[nBox];
}

BOOL CBoxViewCtrl::IsMore(int nBox) const
{
    GetBox(nBox); // throws
    return m_state->more[nBox];
}

// ---- Range

BoxRange CBoxViewCtrl::Range() const
{
    return m_state->range;
}

BOOL CBoxViewCtrl::IsToday(int nBox) const
{
    return nBox == m_state->todayBox;
}

void CBoxViewCtrl::SetRange(COleDateTime date)
{
    ShowRange(BoxRange(m_state->kind.range, date, m_nFirstDayOfWeek));
}

void CBoxViewCtrl::ShowRange(const BoxRange& range)
{
    m_state->range = range;
    m_dtRangeStart = range.FirstDate();
    m_dtRangeEnd = range.LastDate();
    TodayChanged();
    RangeChanged();
    UpdateScreenItems();
}

void CBoxViewCtrl::TodayChanged()
{
    m_state->todayBox = m_state->range.BoxOf(Now());
}

void CBoxViewCtrl::BringInSight(const COleDateTime& date)
{
    SetRange(date);
    m_dtCurrentDate = m_dtViewDate = date;
    ResetScrollBar();
    InvalidateClient();
    NotifyViewRangeChange(GetCurrentDate(), kRangeChangeValue);
}

void CBoxViewCtrl::SetCurrentDate(const COleDateTime& date)
{
    if (!EndEdit()) {
        return;
    }
    CDayGridCtrl::SetCurrentDate(date);
    SetRange(date);
    ResetScrollBar();
    InvalidateClient();
}

void CBoxViewCtrl::GetViewRange(COleDateTime& first, COleDateTime& last)
{
    first = StartOfDay(m_dtRangeStart);
    last = EndOfDay(m_dtRangeEnd);
}

// ---- Items

int CBoxViewCtrl::SetItem(int nIndex, tagCC_ITEM* pItem, int bUpdate, int bRedraw)
{
    if (!StoreSet(m_arItem, nIndex, *pItem)) {
        return 0;
    }
    ItemStored(nIndex);
    ItemsChanged(bUpdate == 1, FALSE);
    if (bRedraw && m_hWnd) {
        InvalidateRect(&m_rcContent, TRUE);
    }
    return 1;
}

int CBoxViewCtrl::DeleteItem(int nIndex, int, int)
{
    if (nIndex > GetItemCount() - 1) {
        return 0;
    }
    StoreDelete(m_arItem, nIndex);
    ItemRemoved(nIndex);
    ItemsChanged(TRUE, FALSE);
    return 1;
}

// ---- Layout

void CBoxViewCtrl::Layout(int cx, int cy)
{
    CalcLayout(CRect(0, 0, cx, cy), m_rcCaption, m_rcUnused, m_rcRuler, m_rcContent);
    UpdateScreenItems();
}

void CBoxViewCtrl::CalcLayout(const CRect& rcClient, CRect& rcCaption, CRect&, CRect&, CRect& rcCalendar)
{
    BoxViewLayout& layout = m_state->layout;
    LayOutBoxView(rcClient, m_bShowCaption == TRUE, m_state->kind.metrics.At(m_scale), layout);
    rcCaption = layout.caption;
    rcCalendar = layout.calendar;
}

void CBoxViewCtrl::CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcCalendar)
{
    CalcLayout(rcClient, rcCaption, m_rcUnused, rcHeader, rcCalendar);
}

void CBoxViewCtrl::CalcItemRect(CRect, CItemArray& screenItems)
{
    const BoxViewState& state = *m_state;
    BarRules rules = state.kind.metrics.At(m_scale).bars;
    rules.metrics.topOffset += GetLinesHeight();
    const std::vector<BoxLoad> loads = LayOutPieces(state.layout.grid, rules, screenItems);
    std::transform(loads.begin(), loads.end(), m_state->more.begin(), [](const BoxLoad& load) { return load.more; });
}

void CBoxViewCtrl::ClearMoreMarks()
{
    std::fill(m_state->more.begin(), m_state->more.end(), 0);
}

BOOL CBoxViewCtrl::HasMoreMark(int nBox)
{
    return m_state->more[nBox] == 1;
}

// ---- Hit test

CRect CBoxViewCtrl::GetBoxRect(int nBox)
{
    return m_state->layout.grid.boxes[nBox];
}

int CBoxViewCtrl::GetHitStripHeight()
{
    return m_state->kind.metrics.At(m_scale).hitStripHeight;
}

int CBoxViewCtrl::GetStripHeight()
{
    return m_state->kind.metrics.At(m_scale).stripHeight;
}

int CBoxViewCtrl::HitTest(tagCCHITTESTINFO& info)
{
    return HitBoxes(info, CPoint(info.pt.x + m_nHorzScroll, info.pt.y + m_nVertScroll));
}

int CBoxViewCtrl::BoxOfStrip(const CRect& rcStrip) const
{
    const std::vector<CRect>& strips = m_state->layout.strips;
    const auto found = std::find(strips.begin(), strips.end(), rcStrip);
    return found != strips.end() ? static_cast<int>(found - strips.begin()) : -1;
}

// The selection's boxes follow each other, so its ends decide.
BOOL CBoxViewCtrl::IsBoxSelected(int nBox)
{
    COleDateTime begin;
    COleDateTime end;
    return IsSelectionShown() && m_state->range.HasDates() && GetSelRange(begin, end) &&
           m_state->range.PositionOf(begin) <= nBox && nBox <= m_state->range.PositionOf(end);
}

// ---- Keyboard moves

void CBoxViewCtrl::MoveSelection(int nBoxes, UINT nFlags)
{
    if (MoveSelectionEnd(nBoxes, nFlags)) {
        PostMessage(WM_VSCROLL, nBoxes < 0 ? SB_LINEUP : SB_LINEDOWN);
    }
}

// ---- Scroll

BoxRange CBoxViewCtrl::RangeAfter(int nBoxes) const
{
    return BoxRange(m_state->kind.range, m_state->range.DateAfter(nBoxes), m_nFirstDayOfWeek);
}

void CBoxViewCtrl::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    const ScrollStep scroll =
        m_state->range.Scroll(nSBCode, GetScrollPos(SB_VERT), static_cast<int>(nPos), GetCurrentDate());
    BoxRange target = RangeAfter(scroll.step);
    if (!scroll.moves || !target.HasDates()) {
        return;
    }
    const WindowAlive alive(this, m_life);
    COleDateTime begin;
    COleDateTime end;
    const BOOL keeps = GetSelRange(begin, end) && target.Holds(m_dtSelEnd);
    NotifySelDateChange(keeps ? m_dtSelEnd : m_state->range.MoveAlong(GetCurrentDate(), target));
    if (!alive) {
        return;
    }
    // The host may have set another date meanwhile.
    target = RangeAfter(scroll.step);
    if (!target.HasDates()) {
        return;
    }
    ScrollTo(target);
    SetScrollPos(SB_VERT, scroll.position, TRUE);
    CDayGridCtrl::OnVScroll(nSBCode, nPos, pScrollBar);
    if (alive) {
        NotifyViewRangeChange(GetCurrentDate(), kRangeChangeValue);
    }
}

// A selection whose moving end lies in the new range stays where it is: a key has put it there, or the step was small.
void CBoxViewCtrl::ScrollTo(const BoxRange& range)
{
    COleDateTime begin;
    COleDateTime end;
    const BOOL isSelected = GetSelRange(begin, end);
    if (isSelected && range.Holds(m_dtSelEnd)) {
        m_dtCurrentDate = m_dtSelEnd;
    } else {
        m_dtCurrentDate = m_state->range.MoveAlong(m_dtCurrentDate, range);
        if (isSelected) {
            m_dtSelBegin = m_state->range.MoveAlong(m_dtSelBegin, range);
            m_dtSelEnd = m_state->range.MoveAlong(m_dtSelEnd, range);
        }
    }
    m_dtViewDate = m_dtCurrentDate;
    ShowRange(range);
    InvalidateClient();
}
