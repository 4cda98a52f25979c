// The base control's layout and paint pipeline.
#include "core/CalendarCtrl.h"

#include "core/DrawingHelpers.h"
#include "core/Fonts.h"
#include "core/PaintedState.h"

#include <algorithm>
#include <cstdlib>

using namespace dayvane;

namespace {
constexpr int kImageGap = 2;    // pixels between an item's icon and what follows
constexpr int kMarkLines = 2;   // lines of the marks' font that a mark certainly stays in
constexpr int kBorderRings = 3; // one-pixel rings of a graded border
} // namespace

void CCalendarCtrl::Layout()
{
    if (!m_hWnd) {
        return;
    }
    CRect client;
    GetClientRect(&client);
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
    PaintedState before;
    PaintedState after;
    std::vector<CRect> changed;
    CRect client;
    GetClientRect(&client);
    GetPaintedState(before);
    Layout(client.Width(), client.Height());
    GetPaintedState(after);
    if (!FindDifferences(before, after, changed)) {
        InvalidateClient();
        return;
    }
    for (const CRect& rect : changed) {
        InvalidateRect(&rect, FALSE);
    }
}

void CCalendarCtrl::GetPaintedState(PaintedState& state)
{
    CRect client;
    GetClientRect(&client);
    state.frame = {m_rcCaption, m_rcRuler, m_rcContent};
    const tagCALENDAR_ITEM* item = m_arScreenItem.GetData();
    for (INT_PTR i = 0; i < m_arScreenItem.GetSize(); ++i, ++item) {
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
