// The week and year view's common part: lifetime, range, layout, hit test, scrolling. Painting is in
// BoxViewCtrlPaint.cpp.
#include "views/daygrid/BoxViewCtrl.h"

#include "core/DateMath.h"
#include "core/ItemStore.h"

#include <algorithm>

namespace
{

constexpr int kRangeChangeValue = 4100; // nValue of CCN_VIEWRANGECHANGE
constexpr UINT kExtendSelection = 0x10; // flag of the keyboard moves
constexpr int kCellMargin = 2;          // pixels around a box that its frame may touch
constexpr int kCaptionFontHeight = 28;

LOGFONT LatinFont(int height, int weight, const char* face)
{
    LOGFONT lf = {};
    lf.lfHeight = height;
    lf.lfWeight = weight;
    lf.lfCharSet = ANSI_CHARSET;
    lstrcpyn(lf.lfFaceName, face, LF_FACESIZE);
    return lf;
}

bool IsValid(const COleDateTime& date)
{
    return date.GetStatus() == COleDateTime::valid;
}

} // namespace

IMPLEMENT_DYNAMIC(CBoxViewCtrl, CDayGridCtrl)

BEGIN_MESSAGE_MAP(CBoxViewCtrl, CDayGridCtrl)
    ON_WM_DESTROY()
    ON_WM_SIZE()
    ON_WM_VSCROLL()
END_MESSAGE_MAP()

// ---- Lifetime

CBoxViewCtrl::CBoxViewCtrl(const dayvane::BoxViewMetrics& metrics, const BoxArrays& arrays, LPCTSTR lpszClass,
                           const dayvane::CalendarColors& colors)
    : m_fonts(kCaptionFontHeight), m_metrics(metrics), m_arrays(arrays)
{
    RegisterViewClass(lpszClass, nullptr);
    m_colors.caption = colors.caption;
    m_colors.captionText = colors.captionText;
    m_colors.ruler = colors.ruler;
    m_colors.rulerText = colors.rulerText;
    m_colors.content = colors.content;
    m_colors.grid = colors.grid;
    m_colors.border = colors.border;
    m_lfFonts[0] = LatinFont(16, FW_BOLD, "Arial");
    m_lfFonts[1] = LatinFont(30, FW_DONTCARE, "Century Gothic");
}

CBoxViewCtrl::~CBoxViewCtrl()
{
    DestroyWindow();
}

BOOL CBoxViewCtrl::CreateBoxWindow(LPCTSTR lpszClass, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID,
                                   CCreateContext* pContext)
{
    if (!CWnd::Create(lpszClass, nullptr, dwStyle, rect, pParent, nID, pContext))
        return FALSE;
    m_fonts.Create();
    LoadMoreMark();
    return TRUE;
}

void CBoxViewCtrl::OnDestroy()
{
    CDayGridCtrl::OnDestroy();
    m_fonts.Delete();
}

// ---- Range

BOOL CBoxViewCtrl::HasRange() const
{
    return IsValid(m_dtRangeStart) || IsValid(m_dtRangeEnd);
}

void CBoxViewCtrl::SetRange(COleDateTime date)
{
    CalcRange(date);
    UpdateScreenItems();
}

void CBoxViewCtrl::SetCurrentDate(const COleDateTime& date)
{
    Alive alive(this);
    FinishEdit(TRUE);
    if (!alive)
        return;
    CDayGridCtrl::SetCurrentDate(date);
    SetRange(date);
    UpdateScrollBar();
    InvalidateClient();
}

void CBoxViewCtrl::GetViewRange(COleDateTime& first, COleDateTime& last)
{
    first = dayvane::StartOfDay(m_dtRangeStart);
    last = dayvane::EndOfDay(m_dtRangeEnd);
}

// ---- Items

int CBoxViewCtrl::SetItem(int nIndex, tagCC_ITEM* pItem, int bUpdate, int bRedraw)
{
    if (!dayvane::StoreSet(m_arItem, nIndex, *pItem))
        return 0;
    ItemsChanged(bUpdate == 1, FALSE);
    if (bRedraw && m_hWnd)
        InvalidateRect(&m_rcContent, TRUE);
    return 1;
}

int CBoxViewCtrl::DeleteItem(int nIndex, int, int)
{
    if (nIndex > GetItemCount() - 1)
        return 0;
    dayvane::StoreDelete(m_arItem, nIndex);
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
    const dayvane::BoxViewLayout layout = dayvane::LayOutBoxView(rcClient, m_bShowCaption == TRUE, m_metrics);
    rcCaption = layout.caption;
    rcCalendar = layout.calendar;
    std::copy(layout.boxes.begin(), layout.boxes.end(), m_arrays.boxes);
    std::copy(layout.strips.begin(), layout.strips.end(), m_arrays.strips);
}

void CBoxViewCtrl::CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcCalendar)
{
    CalcLayout(rcClient, rcCaption, m_rcUnused, rcHeader, rcCalendar);
}

void CBoxViewCtrl::MakeScreenItem(CItemArray& items, CItemArray& screenItems)
{
    dayvane::MakeRowPieces(items, HasRange() ? GetRows() : dayvane::DayRows(), screenItems);
    ScreenItemsChanged();
}

void CBoxViewCtrl::CalcItemRect(CRect, CItemArray& screenItems)
{
    dayvane::BoxGrid grid;
    grid.columns = m_metrics.columns;
    grid.boxes.assign(m_arrays.boxes, m_arrays.boxes + BoxCount());
    const std::vector<dayvane::BoxSpan> spans =
        HasRange() ? GetSpans(screenItems)
                   : std::vector<dayvane::BoxSpan>(screenItems.GetSize(), dayvane::NoBoxes());
    const std::vector<dayvane::BoxLoad> loads = dayvane::LayOutBars(grid, m_metrics.bars, spans, screenItems);
    for (int i = 0; i < BoxCount(); ++i)
        m_arrays.more[i] = loads[i].more ? 1 : 0;
    ScreenItemsChanged();
}

void CBoxViewCtrl::ClearMoreMarks()
{
    std::fill(m_arrays.more, m_arrays.more + BoxCount(), 0);
}

BOOL CBoxViewCtrl::GetMoreBox(int nBox, MoreBox& box)
{
    box = {MoreMarkOf(m_arrays.boxes[nBox]), DateOfBox(nBox), LastDateOfBox(nBox)};
    return m_arrays.more[nBox] == 1 && IsValid(box.first) && IsValid(box.last);
}

// ---- Hit test

int CBoxViewCtrl::HitTest(tagCCHITTESTINFO& info)
{
    info.nItem = info.nScreenItem = -1;
    info.nHitCode = CCHT_NOWHERE;
    const CPoint point(info.pt.x + m_nHorzScroll, info.pt.y + m_nVertScroll);
    const int box = dayvane::BoxOfPoint(m_arrays.boxes, BoxCount(), point);
    if (box == -1)
        return -1;
    dayvane::ToSystemTime(DateOfBox(box), info.time);
    info.nScreenItem = ScreenItemAt(point);
    if (info.nScreenItem != -1)
        info.nItem = static_cast<int>(m_arScreenItem[info.nScreenItem].nSource);
    if (point.y < m_arrays.boxes[box].top + m_metrics.hitStripHeight)
        info.nHitCode = CCHT_ONDAYCAPTION;
    else
        info.nHitCode = info.nItem != -1 ? CCHT_ONITEM : CCHT_ONCELL;
    return info.nItem;
}

int CBoxViewCtrl::BoxOfDate(const COleDateTime& date)
{
    const int position = PositionOf(date);
    return position < BoxCount() ? std::max(position, -1) : -1;
}

int CBoxViewCtrl::BoxOfStrip(const CRect& rcStrip) const
{
    const CRect* end = m_arrays.strips + BoxCount();
    const CRect* found = std::find(m_arrays.strips + 0, const_cast<CRect*>(end), rcStrip);
    return found != end ? static_cast<int>(found - m_arrays.strips) : -1;
}

void CBoxViewCtrl::InvalidateCellRect(COleDateTime date)
{
    const int box = BoxOfDate(date);
    if (box == -1 || !m_hWnd)
        return;
    CRect rect = m_arrays.boxes[box];
    rect.InflateRect(kCellMargin, kCellMargin);
    InvalidateRect(&rect, FALSE);
}

void CBoxViewCtrl::InvalidateCellRectRange()
{
    COleDateTime begin;
    COleDateTime end;
    if (!m_hWnd || !GetSelRange(begin, end))
        return;
    const int first = std::max(PositionOf(begin), 0);
    const int last = std::min(PositionOf(end), BoxCount() - 1);
    for (int i = first; i <= last; ++i)
        InvalidateRect(&m_arrays.boxes[i], FALSE);
}

void CBoxViewCtrl::GetCurCellRect(CRect& rect, int& bFound)
{
    const int box = BoxOfDate(m_dtSelBegin);
    bFound = box != -1 ? 1 : 0;
    rect = bFound ? m_arrays.boxes[box] : CRect(-1, -1, -1, -1);
}

// ---- Keyboard moves

void CBoxViewCtrl::MoveSelectionTo(const COleDateTime& end, BOOL bBack, UINT nFlags)
{
    if (!IsValid(end))
        return;
    m_dtPrevSelEnd = m_dtSelEnd;
    m_dtSelEnd = end;
    if (!(nFlags & kExtendSelection))
        m_dtSelBegin = end;
    if (!m_hWnd || !HasRange())
        return;
    const int position = PositionOf(end);
    const BOOL leavesView = bBack ? position < 0 : position >= BoxCount();
    if (leavesView)
        PostMessage(WM_VSCROLL, bBack ? SB_LINEUP : SB_LINEDOWN);
    else
        InvalidateRect(&m_rcContent, FALSE);
}

// ---- Size and scroll

void CBoxViewCtrl::UpdateScrollBar()
{
    if (!m_hWnd)
        return;
    SCROLLINFO info = GetScrollRange();
    info.cbSize = sizeof(info);
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nPage = 1;
    SetScrollInfo(SB_VERT, &info, TRUE);
}

void CBoxViewCtrl::OnSize(UINT nType, int cx, int cy)
{
    Alive alive(this);
    FinishEdit(TRUE);
    if (!alive)
        return;
    CDayGridCtrl::OnSize(nType, cx, cy);
    Layout(cx, cy);
    UpdateScrollBar();
}

void CBoxViewCtrl::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    const dayvane::BoxScroll scroll =
        CalcScroll(nSBCode, m_hWnd ? GetScrollPos(SB_VERT) : 0, static_cast<int>(nPos));
    if (!scroll.moves || !IsValid(DateInRangeAfter(scroll.step)))
        return;
    Alive alive(this);
    FinishEdit(TRUE);
    if (!alive)
        return;
    COleDateTime target = DateInRangeAfter(scroll.step);
    SYSTEMTIME time = {};
    COleDateTime begin;
    COleDateTime end;
    const BOOL keeps = GetSelRange(begin, end) && IsInRangeOf(target, m_dtSelEnd);
    dayvane::ToSystemTime(keeps ? GetCurrentDate() : CarryAlong(GetCurrentDate(), target), time);
    Notify(CCN_SELDATECHANGE, -1, 0, CPoint(-1, -1), time, CCHT_ONCELL);
    if (!alive)
        return;
    // The host may have set another date meanwhile.
    target = DateInRangeAfter(scroll.step);
    if (!IsValid(target))
        return;
    ScrollTo(target);
    SetScrollPos(SB_VERT, scroll.position, TRUE);
    CDayGridCtrl::OnVScroll(nSBCode, nPos, pScrollBar);
    if (!alive)
        return;
    COleDateTime first;
    COleDateTime last;
    GetViewRange(first, last);
    Notify(CCN_VIEWRANGECHANGE, GetCurrentDate(), first, last, kRangeChangeValue);
}

// A selection whose moving end lies in the new range stays where it is: a key has put it there, or the step was small.
void CBoxViewCtrl::ScrollTo(const COleDateTime& dtTarget)
{
    COleDateTime begin;
    COleDateTime end;
    const BOOL isSelected = GetSelRange(begin, end);
    if (isSelected && IsInRangeOf(dtTarget, m_dtSelEnd)) {
        m_dtCurrentDate = m_dtSelEnd;
    } else {
        m_dtCurrentDate = CarryAlong(m_dtCurrentDate, dtTarget);
        if (isSelected) {
            m_dtSelBegin = CarryAlong(m_dtSelBegin, dtTarget);
            m_dtSelEnd = CarryAlong(m_dtSelEnd, dtTarget);
        }
    }
    m_dtViewDate = m_dtCurrentDate;
    SetRange(dtTarget);
    InvalidateClient();
}
