// The base control's layout and paint pipeline.
#include "core/CalendarCtrl.h"

#include "core/ClipArea.h"
#include "core/DrawingHelpers.h"
#include "core/Fonts.h"
#include "core/PaintedState.h"
#include "core/WindowHelpers.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

using namespace dayvane;

namespace {
constexpr int kImageGap = 2;    // pixels between an item's icon and what follows
constexpr int kMarkLines = 2;   // lines of the marks' font that a mark certainly stays in
constexpr int kBorderRings = 3; // one-pixel rings of a graded border

class WatchScope
{
public:
    WatchScope(LayoutWatch*& current, LayoutWatch& watch) : m_current(current) { m_current = &watch; }
    ~WatchScope() { m_current = nullptr; }
    WatchScope(const WatchScope&) = delete;
    WatchScope& operator=(const WatchScope&) = delete;

private:
    LayoutWatch*& m_current;
};
} // namespace

void CCalendarCtrl::Layout()
{
    if (!m_hWnd) {
        return;
    }
    const CRect client = ClientRectOf(*this);
    Layout(client.Width(), client.Height());
    ItemsWanted();
    InvalidateRect(&m_rcContent, FALSE);
}

void CCalendarCtrl::Layout(int cx, int cy)
{
    MakeScreenItem(m_arItem, m_arScreenItem);
    CalcLayout(CRect(0, 0, cx, cy), m_rcCaption, m_rcRuler, m_rcContent);
    CalcItemRect(m_rcContent, m_arScreenItem);
}

void CCalendarCtrl::Refresh()
{
    m_arThemedDays.RemoveAll(); // the host may have changed a row
    TodayChanged();
    Layout();
    InvalidateClient();
}

void CCalendarCtrl::RefreshChanged()
{
    if (!m_hWnd || !UpdatesByParts()) {
        Refresh();
        return;
    }
    const CRect client = ClientRectOf(*this);
    LayoutWatch watch;
    watch.before.wantsPieces = false;
    GetPaintedState(watch.before);
    {
        const WatchScope scope(m_pWatch, watch);
        Layout(client.Width(), client.Height());
        for (const int position : watch.changed) {
            AddPaintedBox(m_arScreenItem[position]);
        }
    }
    PaintedState after;
    after.wantsPieces = watch.isWhole;
    GetPaintedState(after);
    if (!watch.isReported || !FindDifferences(watch.before, after, watch.boxes)) {
        InvalidateClient();
        return;
    }
    InvalidateParts(watch.boxes);
}

void CCalendarCtrl::AllPiecesChange()
{
    if (m_pWatch && !m_pWatch->isWhole) {
        PaintedState state;
        GetPaintedState(state);
        m_pWatch->before.pieces = std::move(state.pieces);
        m_pWatch->changed.clear();
        m_pWatch->isReported = m_pWatch->isWhole = true;
    }
}

void CCalendarCtrl::PieceChanges(int nScreenItem)
{
    if (m_pWatch && !m_pWatch->isWhole) {
        m_pWatch->changed.push_back(nScreenItem);
        AddPaintedBox(m_arScreenItem[nScreenItem]);
    }
}

void CCalendarCtrl::PiecesMoved(const std::vector<PieceMove>& moved)
{
    if (!m_pWatch || m_pWatch->isWhole) {
        return;
    }
    m_pWatch->isReported = true;
    for (const PieceMove& piece : moved) {
        tagCALENDAR_ITEM item = m_arScreenItem[piece.position];
        AddPaintedBox(item);
        item.rcItem = piece.box;
        item.bNoFocus = piece.wasHidden;
        AddPaintedBox(item);
    }
}

void CCalendarCtrl::AddPaintedBox(const tagCALENDAR_ITEM& screenItem)
{
    if (!screenItem.bNoFocus && screenItem.rcItem.top != -1) {
        m_pWatch->boxes.push_back(GetPaintedBox(screenItem));
    }
}

// Each call of InvalidateRect asks the system once.
void CCalendarCtrl::InvalidateParts(const std::vector<CRect>& changed)
{
    CRect client;
    GetClientRect(&client);
    const std::vector<CRect> parts = JoinParts(changed, client);
    CRgn region;
    if (!MakeRegion(parts, region)) {
        InvalidateClient();
    } else if (!parts.empty()) {
        InvalidateRgn(&region, FALSE);
    }
}

void CCalendarCtrl::GetPaintedState(PaintedState& state)
{
    const CRect client = ClientRectOf(*this);
    state.frame = {m_rcCaption, m_rcRuler, m_rcContent};
    const tagCALENDAR_ITEM* item = m_arScreenItem.GetData();
    for (INT_PTR i = 0; state.wantsPieces && i < m_arScreenItem.GetSize(); ++i, ++item) {
        const CRect box = GetPaintedBox(*item);
        CRect seen;
        if (seen.IntersectRect(&box, &client)) {
            state.pieces.push_back({box, *item});
        }
    }
}

int CCalendarCtrl::DoPrint(CDC* pDC, CPrintInfo* pInfo)
{
    CalendarPrinting* printer = GetPrinter();
    return printer ? printer->Print(pDC, pInfo) : 0;
}

CalendarPrinting* CCalendarCtrl::GetPrinter()
{
    if (!m_pPrinter) {
        m_pPrinter = MakeCalendarPrinting(*this);
    }
    return m_pPrinter.get();
}

// The whole clip box is painted off screen: erasing first would flicker.
BOOL CCalendarCtrl::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

void CCalendarCtrl::DrawCtrl(CDC* pDC)
{
    // The grid comes twice: a ruler may reach over its edge, and items are drawn on a clean grid.
    DrawGrid(pDC, m_rcContent);
    DrawRuler(pDC, m_rcRuler);
    DrawGrid(pDC, m_rcContent);
    DrawItem(pDC, m_rcContent, m_arScreenItem);
    DrawCaption(pDC, m_rcCaption);
}

void CCalendarCtrl::DrawGradient(CDC* pDC, const CRect& rect, COLORREF crFrom, COLORREF crTo, BOOL bHorizontal,
                                 BOOL bStepped)
{
    dayvane::DrawGradient(pDC, rect, crFrom, crTo, bHorizontal, bStepped);
}

int CCalendarCtrl::DrawImageIcon(CDC* pDC, int nImage, CRect rect)
{
    const CSize size(m_scale.Of(m_cxIcon), m_scale.Of(m_cyIcon));
    if (!m_pImageList || nImage == -1 || rect.left + size.cx >= rect.right) {
        return 0;
    }
    if (m_scale.dpi == kBaseDpi) {
        m_pImageList->Draw(pDC, nImage, rect.TopLeft(), ILD_NORMAL);
    } else if (const HICON icon = m_pImageList->ExtractIcon(nImage)) {
        ::DrawIconEx(pDC->GetSafeHdc(), rect.left, rect.top, icon, size.cx, size.cy, 0, nullptr, DI_NORMAL);
        ::DestroyIcon(icon);
    }
    return size.cx + m_scale.Of(kImageGap);
}

int CCalendarCtrl::DrawAlarmMark(CDC* pDC, RECT rect, int nFulldayForm)
{
    return DrawAlarmGlyph(pDC, rect, Scaled(m_lfFonts[FONT_MARKS], m_scale), nFulldayForm != 0);
}

int CCalendarCtrl::DrawRecurrentMark(CDC* pDC, RECT rect, int nFulldayForm)
{
    return DrawRecurrenceGlyph(pDC, rect, Scaled(m_lfFonts[FONT_MARKS], m_scale), nFulldayForm != 0);
}

int CCalendarCtrl::DrawItemMarks(CDC* pDC, const tagCALENDAR_ITEM& item, CRect rect, int nFulldayForm, int nGap,
                                 BOOL bIcon)
{
    const int left = rect.left;
    pDC->SetTextColor(item.crColor1);
    if (item.bAlarm) {
        rect.left += DrawAlarmMark(pDC, rect, nFulldayForm) + nGap;
    }
    if (item.bRecurrent) {
        rect.left += DrawRecurrentMark(pDC, rect, nFulldayForm) + nGap;
    }
    if (bIcon && item.nImage != -1) {
        rect.left += DrawImageIcon(pDC, item.nImage, rect);
    }
    return rect.left - left;
}

int CCalendarCtrl::GetMarksHeight(const tagCALENDAR_ITEM& item) const
{
    const bool hasMarks = item.bAlarm || item.bRecurrent;
    const int marks = hasMarks ? std::abs(static_cast<int>(m_lfFonts[FONT_MARKS].lfHeight)) * kMarkLines : 0;
    return m_scale.Of(item.nImage != -1 && m_pImageList ? std::max(marks, m_cyIcon) : marks);
}

int CCalendarCtrl::GetItemMarksWidth(const tagCALENDAR_ITEM& item, CRect rect, int nFulldayForm, int nGap, BOOL bIcon)
{
    CDC nowhere;
    return nowhere.CreateCompatibleDC(nullptr) ? DrawItemMarks(&nowhere, item, rect, nFulldayForm, nGap, bIcon) : 0;
}

void CCalendarCtrl::DrawGradationBorder(CDC* pDC, COLORREF color, const CRect& rect)
{
    DrawShadedFrame(pDC, rect, color, kBorderRings);
}
