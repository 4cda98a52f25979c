// The shared part of the time grids: lifetime, layout, what needs repainting, timer. Scrolling, keys and painting are
// in files of their own.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/DateMath.h"
#include "core/PaintedState.h"
#include "core/WindowHelpers.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr UINT_PTR kNowTimer = 0x4E4F;
constexpr UINT kMillisecondsPerSecond = 1000;
constexpr int kItemFocusMargin = 2; // pixels around an item that its selection frame may touch
} // namespace

IMPLEMENT_DYNAMIC(CTimeGridCtrl, CMoreListCtrl)

BEGIN_MESSAGE_MAP(CTimeGridCtrl, CMoreListCtrl)
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_VSCROLL()
ON_WM_TIMER()
ON_WM_MOUSEWHEEL()
ON_MESSAGE(WM_MOUSEHWHEEL, &CTimeGridCtrl::OnMouseHWheel)
END_MESSAGE_MAP()

// ---- Lifetime

CTimeGridCtrl::CTimeGridCtrl() : m_pParts(std::make_unique<TimeGridParts>())
{
    m_options.extendedMove = true;
}

CTimeGridCtrl::~CTimeGridCtrl() = default;

// Every window that becomes one of a time grid is scrolled to the present time.
void CTimeGridCtrl::PreSubclassWindow()
{
    CMoreListCtrl::PreSubclassWindow();
    RestartNowTimer();
    const CSize size = ClientRectOf(*this).Size(); // of a window that was there before the object
    if (size != CSize(0, 0)) {
        SizeTo(size.cx, size.cy);
    }
    SyncToPresent(nullptr);
}

void CTimeGridCtrl::OnDestroy()
{
    KillTimer(kNowTimer);
    CCalendarCtrl::OnDestroy();
    m_pParts->fonts.Clear();
    m_pParts->tools.Clear();
}

void CTimeGridCtrl::SetCurrentDate(const COleDateTime& date)
{
    const COleDateTime newDate = date; // the host's own may go while the edit ends
    if (EndEdit()) {
        LeaveWholeDay();
        CCalendarCtrl::SetCurrentDate(newDate);
    }
}

// ---- Layout

TimeScale CTimeGridCtrl::Scale() const
{
    return TimeScale{m_nTimeScale, TimeGridMetrics::For(m_scale)};
}

TimeGridState CTimeGridCtrl::State() const
{
    return TimeGridState{m_pParts->frame, Scale(), GetShownRange(), m_nVertScroll};
}

TimeGridPainter CTimeGridCtrl::Painter(CDC* pDC) const
{
    return TimeGridPainter(*pDC, m_pParts->tools, State(), m_colors, m_theme);
}

void CTimeGridCtrl::CalcGridLayout(const CRect& rcClient, bool isCaptionShown, int nHeaderHeight, CRect& rcCaption,
                                   CRect& rcRuler, CRect& rcGrid)
{
    TimeGridFrame& frame = m_pParts->frame;
    frame = CalcTimeGridFrame(rcClient, isCaptionShown, nHeaderHeight, LanesIn(rcClient), GetShownRange().days,
                              FrameMetrics());
    m_rcFulldayRuler = frame.fulldayRuler;
    m_rcFulldayContent = frame.fulldayContent;
    rcCaption = frame.caption;
    rcRuler = frame.ruler;
    rcGrid = frame.grid;
}

// A derived class may have moved what its hook was given: what it left is what holds.
void CTimeGridCtrl::CalcFrame()
{
    TimeGridParts& parts = *m_pParts;
    parts.lanesLaidOut = GetFulldayItemCount();
    CalcLayout(CRect(CPoint(0, 0), parts.laidOut), m_rcCaption, m_rcRuler, m_rcContent);
    parts.frame.caption = m_rcCaption;
    parts.frame.fulldayRuler = m_rcFulldayRuler;
    parts.frame.fulldayContent = m_rcFulldayContent;
    parts.frame.ruler = m_rcRuler;
    parts.frame.grid = m_rcContent;
    if (parts.frame.columns.size() == 1) {
        parts.frame.columns[0] = m_rcContent;
    }
}

void CTimeGridCtrl::Layout(int cx, int cy)
{
    m_pParts->laidOut = CSize(cx, cy);
    MakeScreenItem(m_arItem, m_arScreenItem);
    CalcFrame();
    CalcItemRect(m_rcContent, m_arScreenItem);
    ++m_nLayoutVersion;
    UpdateScrollRange();
}

void CTimeGridCtrl::GetMaxParalelCalendarItems(CItemArray& screenItems, CRowLayoutArray& layout)
{
    std::vector<RowSpan> spans;
    for (int i = 0; i < static_cast<int>(screenItems.GetSize()); ++i) {
        const tagCALENDAR_ITEM& item = screenItems[i];
        if (!IsBandItem(item)) {
            AddRowSpan(spans, i, ClockTimeOf(item.dtStart), ClockTimeOf(item.dtEnd), Scale());
        }
    }
    ListRows(screenItems, spans, Scale(), layout);
}

int CTimeGridCtrl::CalcOverlayedNumber(const CItemArray& screenItems)
{
    return CountOverlayed(screenItems);
}

void CTimeGridCtrl::Rebuild()
{
    Layout();
    InvalidateClient();
}

int CTimeGridCtrl::FillHit(tagCCHITTESTINFO& info, const TimeGridHit& hit) const
{
    info.nScreenItem = hit.screenItem;
    info.nItem = hit.screenItem != -1 ? static_cast<int>(m_arScreenItem[hit.screenItem].nSource) : -1;
    info.nHitCode = hit.code;
    ToSystemTime(hit.time, info.time);
    return info.nItem;
}

// Timed items are pulled by the edge of their end; bars of several days by their last day, where it is shown.
int CTimeGridCtrl::GetPullableEdges(const tagCALENDAR_ITEM& screenItem)
{
    if (!IsBandItem(screenItem)) {
        return EDGE_BOTTOM;
    }
    return !GoesOn(screenItem) && GetShownRange().days > 1 ? EDGE_RIGHT : EDGE_NONE;
}

// The row that is first in sight stays so.
void CTimeGridCtrl::ScaleChanged(const ViewScale& before)
{
    m_pParts->fonts.Clear();
    m_pParts->tools.Clear();
    m_pParts->fonts.SetScale(m_scale);
    m_pParts->fonts.SetText(GetTextFont());
    m_nVertScroll = m_nVertScroll / TimeGridMetrics::For(before).rowHeight * Scale().metrics.rowHeight;
    CMoreListCtrl::ScaleChanged(before);
}

void CTimeGridCtrl::ForgetDrawn()
{
    m_pParts->tools.drawn.Clear();
}

// ---- What needs repainting

void CTimeGridCtrl::InvalidateGrid()
{
    if (m_hWnd) {
        InvalidateRect(&m_rcContent, FALSE);
    }
}

CRect CTimeGridCtrl::GetPaintedBox(const tagCALENDAR_ITEM& screenItem)
{
    CRect rect = VisibleItemBox(State(), screenItem);
    rect.NormalizeRect();
    rect.bottom = std::max<int>(rect.bottom, rect.top + GetMarksHeight(screenItem));
    rect.InflateRect(m_scale.Of(kItemFocusMargin), m_scale.Of(kItemFocusMargin));
    return rect;
}

void CTimeGridCtrl::GetPaintedState(PaintedState& state)
{
    CMoreListCtrl::GetPaintedState(state);
    const TimeGridState shown = State();
    state.frame.push_back(shown.frame.header);
    state.frame.push_back(shown.frame.fulldayRuler);
    state.frame.push_back(shown.frame.fulldayContent);
    for (const MoreMark& mark : m_pParts->more) {
        state.marks.push_back({VisibleMarkBox(shown, mark), static_cast<int>(mark.items.size())});
    }
}

// The rows of the selection as it is, and as it was before its end moved.
void CTimeGridCtrl::InvalidateCellRectRange()
{
    if (!m_hWnd) {
        return;
    }
    const TimeGridState state = State();
    bool hasFocusBox = m_bFulldaySelection != FALSE;
    for (int column = 0; column < state.range.days; ++column) {
        for (const COleDateTime* end : {&m_dtSelEnd, &m_dtPrevSelEnd}) {
            if (!IsBound(*end)) {
                continue;
            }
            const CRect box = BoxOfRows(state, column, SelectedRows(state, column, m_dtSelBegin, *end));
            if (!box.IsRectEmpty()) {
                InvalidateRect(&box, FALSE);
                hasFocusBox = hasFocusBox || end == &m_dtSelEnd;
            }
        }
    }
    if (m_bFulldaySelection) {
        InvalidateRect(&m_rcFulldayContent, FALSE);
    }
    if (!hasFocusBox) { // in a day view the bounds of other days may span no rows
        const CRect place = GetFocusBox();
        InvalidateRect(&place, FALSE);
    }
}

// ---- Now line

void CTimeGridCtrl::ShowNowLine(BOOL bShow)
{
    m_options.nowLine = bShow != FALSE;
    RestartNowTimer();
    InvalidateGrid();
}

void CTimeGridCtrl::OptionsChanged(const CalendarOptions& before)
{
    RestartNowTimer();
    m_pParts->board.Clear();
    CMoreListCtrl::OptionsChanged(before);
}

// Runs until the minute that the clock shows is over.
void CTimeGridCtrl::RestartNowTimer()
{
    if (!m_hWnd) {
        return;
    }
    KillTimer(kNowTimer);
    if (m_options.nowLine) {
        SetTimer(kNowTimer, (kSecondsPerMinute - std::max(Now().GetSecond(), 0)) * kMillisecondsPerSecond, nullptr);
    }
}

void CTimeGridCtrl::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent != kNowTimer) {
        CCalendarCtrl::OnTimer(nIDEvent);
        return;
    }
    InvalidateGrid();
    RestartNowTimer();
}
