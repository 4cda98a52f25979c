// The week view: dates of the boxes, navigation, painting.
#include "views/daygrid/WeekViewCtrl.h"

#include "core/DateMath.h"
#include "core/DrawingHelpers.h"

#include "mfc/base/civil.h"

#include <algorithm>
#include <clocale>

using namespace dayvane;

namespace {

constexpr char kWindowClass[] = "MFCWeekViewCtrl";
constexpr int kLastShown = kWeekBoxes - 1; // days from the first to the last
constexpr int kTextFont = 2;               // template in m_lfFonts

constexpr CalendarColors kWeekColors = {
    // caption, caption text, ruler, ruler text, content, grid, border
    0x8F9300, 0xFFFFFF, 0xCE9A63, 0xCF9365, 0xFFFFFF, 0xE1BFA5, 0x2299EE};
constexpr TitleBandColors kWeekBand = {0x7BDFBD, 0x24B26B, 0x39964A};
constexpr HeaderBandColors kNextWeekStrip = {0xF4E8DC, 0xF0DED1, 0xECD5C4, 0xEFDDCE}; // the eighth day

constexpr COLORREF kDayText = 0x000000;
constexpr COLORREF kSaturdayText = 0xFF0000;
constexpr COLORREF kDayOffText = 0x0000FF; // Sundays and holidays

// "(%a)" in Japanese, whatever the host's locale of times; it is left at "C".
CString JapaneseWeekday(const COleDateTime& date)
{
    std::setlocale(LC_TIME, "jpn");
    const CString text = date.Format("(%a)");
    std::setlocale(LC_TIME, "C");
    return text;
}

} // namespace

IMPLEMENT_DYNCREATE(CWeekViewCtrl, CBoxViewCtrl)

// ---- Lifetime

CWeekViewCtrl::CWeekViewCtrl()
    : CBoxViewCtrl({kWindowClass, "Weekly Calendar", kWeekMetrics, kWeekColors}, {m_rcDay, m_rcDayCaption, m_bMore})
{
    Start();
}

CWeekViewCtrl::~CWeekViewCtrl()
{
    DestroyWindow();
}

// ---- Dates

COleDateTime CWeekViewCtrl::GetCurrentDate()
{
    return m_dtSelBegin.m_dt != 0.0 ? COleDateTime(m_dtSelBegin.m_dt) : m_dtCurrentDate;
}

void CWeekViewCtrl::SetCurrentDate(const COleDateTime& date)
{
    CBoxViewCtrl::SetCurrentDate(StartOfDay(date));
}

// Near the ends of the valid dates one end of the range may not be a date.
int CWeekViewCtrl::FirstDay() const
{
    if (IsValid(m_dtRangeStart)) {
        return DayNumberOf(m_dtRangeStart);
    }
    if (IsValid(m_dtRangeEnd)) {
        return DayNumberOf(m_dtRangeEnd) - kLastShown;
    }
    return kNoDay;
}

int CWeekViewCtrl::FirstDayOfWeekOf(const COleDateTime& date) const
{
    return WeekStartOf(DayNumberOf(date), m_nFirstDayOfWeek);
}

void CWeekViewCtrl::CalcRange(const COleDateTime& date)
{
    const int firstDay = IsValid(date) ? FirstDayOfWeekOf(date) : kNoDay;
    m_dtRangeStart = DateOfDayNumber(firstDay);
    m_dtRangeEnd = EndOfDay(DateOfDayNumber(firstDay + kLastShown));
    FillCellDates(firstDay, kWeekBoxes, date, Now(), m_arDayDate);
    for (int i = 0; i < kWeekBoxes; ++i) {
        m_arDayDate[i].m_nFlags |= MONTHCELL_INMONTH; // a week looks the same in every month
    }
}

int CWeekViewCtrl::PositionOf(const COleDateTime& date)
{
    const int firstDay = FirstDay();
    if (!IsValid(date) || firstDay == kNoDay) {
        return -1;
    }
    return DayNumberOf(date) - firstDay;
}

COleDateTime CWeekViewCtrl::DateOfBox(int nBox)
{
    return m_arDayDate[nBox].m_date;
}

BOOL CWeekViewCtrl::HasMoreMark(int nBox)
{
    return nBox != kLastShown && CBoxViewCtrl::HasMoreMark(nBox);
}

DayRows CWeekViewCtrl::GetRows()
{
    return WeekRows(FirstDay());
}

std::vector<BoxSpan> CWeekViewCtrl::GetSpans(const CItemArray& screenItems)
{
    return DaySpans(screenItems, FirstDay());
}

void CWeekViewCtrl::SetDayProperty(COleDateTime date, const tagCALENDAR_DAY_PROPERTY& property)
{
    const int box = BoxOfDate(date);
    if (box != -1) {
        m_arDayDate[box].m_dayProperty = property;
    }
}

void CWeekViewCtrl::ClearDayProperty()
{
    ClearDayProperties(m_arDayDate);
}

int CWeekViewCtrl::GetDayColor(int nDay)
{
    return m_arDayDate[nDay].m_dayProperty.nDayColor;
}

// ---- Navigation

void CWeekViewCtrl::MoveForward(UINT nFlags)
{
    MoveSelection(-kWeekMetrics.columns, nFlags);
}

void CWeekViewCtrl::MoveBackward(UINT nFlags)
{
    MoveSelection(kWeekMetrics.columns, nFlags);
}

void CWeekViewCtrl::MoveLeftward(UINT nFlags)
{
    MoveSelection(-1, nFlags);
}

void CWeekViewCtrl::MoveRightward(UINT nFlags)
{
    MoveSelection(1, nFlags);
}

void CWeekViewCtrl::MoveSelection(int nDays, UINT nFlags)
{
    SelectByKey(AddDays(m_dtSelEnd, nDays), nDays < 0, nFlags);
}

ScrollStep CWeekViewCtrl::CalcScroll(int nCode, int nPos, int nThumb)
{
    return CalcWeekScroll(nCode, nPos, nThumb, m_dtRangeStart.GetDayOfYear());
}

SCROLLINFO CWeekViewCtrl::GetScrollRange()
{
    SCROLLINFO info = {};
    info.nMax = kWeekScrollMax;
    info.nPos = WeekScrollPosition(std::max(m_dtRangeStart.GetDayOfYear(), 0));
    return info;
}

COleDateTime CWeekViewCtrl::DateInRangeAfter(int nStep)
{
    // The first day may not be a date itself where dates begin; then the first date stands for its week.
    const int day = FirstDay() + nStep;
    if (day > civil::kFirstDay - kLastShown && day < civil::kFirstDay) {
        return DateOfDayNumber(civil::kFirstDay);
    }
    return DateOfDayNumber(day);
}

COleDateTime CWeekViewCtrl::CarryAlong(const COleDateTime& date, const COleDateTime& dtTarget)
{
    const COleDateTime moved = AddDays(date, FirstDayOfWeekOf(dtTarget) - FirstDay());
    return IsValid(moved) ? moved : date;
}

BOOL CWeekViewCtrl::IsInRangeOf(const COleDateTime& dtTarget, const COleDateTime& date)
{
    const int position = DayNumberOf(date) - FirstDayOfWeekOf(dtTarget);
    return position >= 0 && position < kWeekBoxes;
}

// ---- Painting

CString CWeekViewCtrl::GetBarText(const tagCALENDAR_ITEM& item, BOOL bFullday)
{
    return WeekBarText(item, bFullday != FALSE);
}

void CWeekViewCtrl::DrawCaption(CDC* pDC, CRect rcCaption)
{
    CaptionTexts texts = {"", "", DT_VCENTER};
    const CivilDate first = CivilDateOf(m_dtRangeStart);
    const CivilDate last = CivilDateOf(m_dtRangeEnd);
    if (first.year != -1 && last.year != -1) {
        texts.number.Format("%d.%d - %d.%d", first.month, first.day, last.month, last.day);
        texts.text = "  " + m_dtRangeStart.Format("%d %B, %Y") + " - " + m_dtRangeEnd.Format("%d %B, %Y");
    }
    DrawCaptionBand(pDC, rcCaption, texts, kWeekBand, m_colors.captionText, m_lfFonts[kTextFont], m_fonts);
}

MonthCellLook CWeekViewCtrl::LookOf(int nDay)
{
    const MonthLookInput input = {m_arDayColors,
                                  m_colors.highlightText,
                                  m_bShowHoliday != FALSE,
                                  m_bShow24Setuki != FALSE,
                                  IsBoxSelected(nDay) != FALSE,
                                  INT_MIN,
                                  INT_MAX};
    return CalcCellLook(m_arDayDate[nDay], false, GetDayColor(nDay), input);
}

COLORREF CWeekViewCtrl::GetBoxColor(int nBox)
{
    return LookOf(nBox).background;
}

BOOL CWeekViewCtrl::IsToday(int nBox)
{
    return (m_arDayDate[nBox].m_nFlags & MONTHCELL_TODAY) != 0;
}

void CWeekViewCtrl::DrawBoxStrip(CDC* pDC, int nBox)
{
    DrawDayCaption(pDC, m_rcDayCaption[nBox]);
}

void CWeekViewCtrl::DrawDayCaption(CDC* pDC, const CRect& rcCaption)
{
    const int day = BoxOfStrip(rcCaption);
    const bool isNextWeek = day == kLastShown;
    if (day == -1 || (!IsToday(day) && !IsBoxSelected(day))) {
        DrawHeaderBand(pDC, rcCaption, isNextWeek ? kNextWeekStrip : kHeaderBand);
    }
    if (day == -1 || !IsValid(m_arDayDate[day].m_date)) {
        return;
    }
    const COleDateTime& date = m_arDayDate[day].m_date;
    const MonthCellLook look = LookOf(day);
    const bool isDayOff = m_arDayDate[day].m_bHoliday == 1 && m_arDayDate[day].m_nHolidayType == 0;
    const int dayOfWeek = date.GetDayOfWeek();
    COLORREF color = dayOfWeek == kSunday || isDayOff ? kDayOffText : dayOfWeek == kSaturday ? kSaturdayText : kDayText;
    if (look.selected) {
        color = m_colors.highlightText;
    }
    CString number;
    number.Format("%d/%d", date.GetMonth(), date.GetDay());
    DrawStripTexts(pDC, rcCaption, {number, JapaneseWeekday(date), color, look.annotation, look.annotationColor},
                   m_fonts);
}

void CWeekViewCtrl::DrawBoxMark(CDC* pDC, int nBox)
{
    DrawMoreMark(pDC, m_rcDay[nBox]);
}
