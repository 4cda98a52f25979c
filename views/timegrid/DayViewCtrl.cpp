#include "views/timegrid/DayViewCtrl.h"

#include "core/DateMath.h"
#include "core/WindowHelpers.h"
#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridMoves.h"
#include "views/timegrid/TimeGridParts.h"

using namespace dayvane;

namespace {
constexpr char kWindowClass[] = "MFCDayViewCtrl";
constexpr int kRowsPerHour = 2;

constexpr CalendarColors kDayColors = {
    // caption, caption text, ruler, ruler text, content, grid, border
    0x10B6F7, 0xFFFFFF, 0xFFEFE3, 0xCF9365, 0xFFFFFF, 0xE1BFA5, 0x2299EE};
} // namespace

IMPLEMENT_DYNCREATE(CDayViewCtrl, CTimeGridCtrl)

// ---- Lifetime

CDayViewCtrl::CDayViewCtrl()
{
    m_pOwnType = &typeid(CDayViewCtrl);
    RegisterControlClass(kWindowClass);
    SetOwnColors(kDayColors);
    m_dtCurrentDate = m_dtSelBegin = m_dtSelEnd = Now();
    ShowCaption(TRUE);
    SetCaptionText("Daily Calendar");
    SetTimeScale(kRowsPerHour);
}

CDayViewCtrl::~CDayViewCtrl()
{
    DestroyWindow();
}

BOOL CDayViewCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext)
{
    return CWnd::Create(kWindowClass, nullptr, dwStyle, rect, pParent, nID, pContext);
}

// ---- Layout

DayRange CDayViewCtrl::GetShownRange() const
{
    return DayRange::OneDay(m_dtCurrentDate);
}

void CDayViewCtrl::CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcRuler, CRect& rcGrid)
{
    CalcGridLayout(rcClient, m_bShowCaption == 1, CalcLinesHeight(rcClient), rcCaption, rcRuler, rcGrid);
}

void CDayViewCtrl::MakeScreenItem(CItemArray& items, CItemArray& screenItems)
{
    m_nItemDay = GetShownRange().FirstDay();
    CTimeGridCtrl::MakeScreenItem(items, screenItems);
}

void CDayViewCtrl::_CalcItemRect(CRect rcGrid, tagCALENDAR_ITEM& item)
{
    item.rcItem = BoxInColumn(item, rcGrid, GetCurrentDate(), Scale());
}

void CDayViewCtrl::CalcFulldayItemRect(CRect rcBand, CItemArray& screenItems)
{
    if (GetFulldayItemCount() != 0) {
        LayOneDayLanes(screenItems, rcBand, Scale().metrics);
        LimitBand(rcBand, screenItems);
    }
}

int CDayViewCtrl::HitTest(tagCCHITTESTINFO& info)
{
    return FillHit(info, HitOneDay(State(), m_arScreenItem, info.pt, m_options));
}

// ---- Selection

int CDayViewCtrl::GetSelRange(COleDateTime& begin, COleDateTime& end)
{
    const int result = CTimeGridCtrl::GetSelRange(begin, end);
    const bool atEndOfDay = IsValid(end) && end.GetHour() == 23 && end.GetMinute() == 59 && end.GetSecond() == 59;
    if (!atEndOfDay) {
        end = Scale().MoveRows(end, 1);
    }
    if (m_bFulldaySelection) {
        end = EndOfDay(begin);
        begin = StartOfDay(begin);
    }
    return result;
}

// ---- Work time and the day's property

void CDayViewCtrl::ClearDayProperty()
{
    m_dayProperty.strText.Empty();
    m_dayProperty.nDayColor = 0;
    m_dayProperty.nReserved = 0;
    m_dayProperty.bUseMyWorkTime = 0;
}

int CDayViewCtrl::IsWorkTime(int nRow) const
{
    if (m_dayProperty.bUseMyWorkTime) {
        return _IsWorkTime(nRow, m_dayProperty.dtWorkStart, m_dayProperty.dtWorkEnd);
    }
    return CTimeGridCtrl::IsWorkTime(nRow);
}

// ---- Paint

void CDayViewCtrl::DrawGrid(CDC* pDC, CRect rcGrid)
{
    Painter(pDC).DrawGridBackground(rcGrid);
    DrawRows(pDC, 0);
}

void CDayViewCtrl::DrawItem(CDC* pDC, CRect rcGrid, CItemArray& screenItems)
{
    const TimeGridPainter painter = Painter(pDC);
    if (!painter.IsVisible(rcGrid)) {
        return;
    }
    for (INT_PTR i = 0; i < screenItems.GetSize(); ++i) {
        const tagCALENDAR_ITEM& item = screenItems[i];
        if (painter.ShowsTimedItem(item, GetMarksHeight(item))) {
            DrawTimedItem(pDC, painter.State(), item, item.rcItem.right);
        }
    }
}

GridCaptionTexts CDayViewCtrl::GetCaptionTexts()
{
    const ShownDay& day = GetShownDays()[0];
    const bool namesBeside = m_bShowHoliday && !m_dayLines.names;
    const bool termsBeside = m_bShow24Setuki && !m_dayLines.terms && !m_dayLines.seasonalDays;
    GridCaptionTexts texts = CaptionOfDay(day, namesBeside, termsBeside, m_texts);
    texts.longDate += OwnText(TitleNote(day.date, day.date, TitleUnit::Day, m_nFirstDayOfWeek, m_dayLines));
    return texts;
}

void CDayViewCtrl::DrawCaption(CDC* pDC, CRect rcCaption)
{
    Painter(pDC).DrawDayCaption(rcCaption, GetCaptionTexts(), GetShownDays()[0].dayOfWeek,
                                m_pParts->fonts.Caption(m_lfFonts[FONT_LARGE_CAPTION]));
}

std::u16string CDayViewCtrl::FindCutDayText(const tagCCHITTESTINFO& hit, CRect& rcPart)
{
    if (!m_rcCaption.PtInRect(hit.pt)) {
        return {};
    }
    rcPart = m_rcCaption;
    CClientDC dc(this);
    const GridCaptionTexts texts = GetCaptionTexts();
    const CaptionFonts fonts = m_pParts->fonts.Caption(m_lfFonts[FONT_LARGE_CAPTION]);
    const bool fits = Painter(&dc).PlaceCaption(m_rcCaption, texts, fonts).end <= m_rcCaption.right;
    const std::u16string text = texts.longDate + texts.holiday + texts.solarTerm;
    const size_t begin = text.find_first_not_of(u' ');
    return fits || begin == std::u16string::npos ? std::u16string() : text.substr(begin);
}

void CDayViewCtrl::InvalidateCellRect(COleDateTime)
{
    const CRect rect(m_rcContent.left, m_rcFulldayContent.top, m_rcContent.right, m_rcContent.bottom);
    if (m_hWnd) {
        InvalidateRect(&rect, FALSE);
    }
}

// ---- Keyboard

void CDayViewCtrl::MoveLeftward(UINT nFlags)
{
    MoveToDay(&MoveDayEarlier, nFlags);
}

void CDayViewCtrl::MoveRightward(UINT nFlags)
{
    MoveToDay(&MoveDayLater, nFlags);
}

void CDayViewCtrl::MoveToDay(void (*move)(GridSelection&, bool), UINT nFlags)
{
    if (!EndEdit()) {
        return;
    }
    GridSelection selection = Selection();
    move(selection, (nFlags & kExtendSelection) != 0);
    if (!IsValid(selection.current)) {
        return; // beyond the years that there are
    }
    SetSelection(selection);
    Rebuild();
    KeepCursorInSight();
    Notify(CCN_VIEWRANGECHANGE, m_dtCurrentDate, m_dtCurrentDate, m_dtCurrentDate, kRangeChangeValue);
}

// Extended over midnight, a selection takes the current date along, and so does an item that keys move to another day.
void CDayViewCtrl::CurrentDateMoved()
{
    if (GetShownRange().FirstDay() != m_nItemDay) {
        Rebuild();
        if (IsCarrying()) {
            Notify(CCN_VIEWRANGECHANGE, m_dtCurrentDate, m_dtCurrentDate, m_dtCurrentDate, kRangeChangeValue);
        }
    }
}
