// The multi-day view: lifetime, range, layout, selection, keyboard. Painting is in WeekDayViewCtrlPaint.cpp.
#include "views/timegrid/WeekDayViewCtrl.h"

#include "core/DateMath.h"
#include "views/timegrid/FulldayLanes.h"

#include <algorithm>
#include <utility>

using namespace dayvane;

namespace {
constexpr char kWindowClass[] = "MFCWeekDayViewCtrl";
constexpr int kRowsPerHour = 2;
constexpr int kMinDays = 2;
constexpr int kMaxDays = 14;
constexpr int kDaysPerWeek = 7;

constexpr COLORREF kCaptionColor = 0x996633;
constexpr COLORREF kRulerColor = 0xFFEFE3;
constexpr COLORREF kRulerTextColor = 0xCF9365;
constexpr COLORREF kGridColor = 0xE1BFA5;

struct DateScaleRow
{
    int days;
    bool fromFirstDayOfWeek;
    const char* caption;
};
constexpr DateScaleRow kDateScales[] = {
    // days, from the first day of the week, caption text
    {2, false, "2 Days Calendar"},   {3, false, "3 Days Calendar"},   {4, false, "4 Days Calendar"},
    {5, false, "5 Days Calendar"},   {6, false, "6 Days Calendar"},   {7, false, "7 Days Calendar"},
    {8, false, "8 Days Calendar"},   {9, false, "9 Days Calendar"},   {10, false, "10 Days Calendar"},
    {11, false, "11 Days Calendar"}, {12, false, "11 Days Calendar"}, // twelve days have no text of their own
    {13, false, "13 Days Calendar"}, {14, false, "14 Days Calendar"}, {5, true, "Weekday Calendar"},
    {7, true, "Weekly Calendar"},
};
constexpr int kDateScaleCount = sizeof(kDateScales) / sizeof(kDateScales[0]);
constexpr int kWorkingWeek = 14; // number of its row, from 1 on

LOGFONT FontTemplate(int height, BYTE charSet, const char* face)
{
    LOGFONT lf = {};
    lf.lfHeight = height;
    lf.lfCharSet = charSet;
    lstrcpyn(lf.lfFaceName, face, LF_FACESIZE);
    return lf;
}
} // namespace

IMPLEMENT_DYNCREATE(CWeekDayViewCtrl, CTimeGridCtrl)

// ---- Lifetime

CWeekDayViewCtrl::CWeekDayViewCtrl() : m_crToday(::GetSysColor(COLOR_BTNFACE))
{
    RegisterViewClass(kWindowClass, nullptr);
    SetViewOption(5, 2);
    SetCaptionColor(kCaptionColor);
    SetRulerColor(kRulerColor);
    SetRulerTextColor(kRulerTextColor);
    SetBorderColor(kGridColor);
    SetGridColor(kGridColor);
    m_lfFonts[0] = FontTemplate(25, ANSI_CHARSET, "MS Sans Serif");
    m_lfFonts[1] = FontTemplate(30, ANSI_CHARSET, "Century Gothic");
    m_lfFonts[2] = FontTemplate(12, SHIFTJIS_CHARSET, "MS UI Gothic");
    SetCaptionText("Weekday Calendar");
    ShowCaption(TRUE);
    SetTimeScale(kRowsPerHour);
    SetRange(Now());
    SetDateScale(kWorkingWeek);
    SetRange(Scale().RowStart(Now()));
}

CWeekDayViewCtrl::~CWeekDayViewCtrl()
{
    DestroyWindow();
}

BOOL CWeekDayViewCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext)
{
    return CreateGrid(kWindowClass, dwStyle, rect, pParent, nID, pContext);
}

int CWeekDayViewCtrl::DoPrint(CDC* pDC, CPrintInfo* pInfo)
{
    return CTimeGridCtrl::DoPrint(pDC, pInfo);
}

// ---- Range

void CWeekDayViewCtrl::SetViewOption(int nDays, int nBeginDayOfWeek)
{
    m_nDays = nDays >= kMinDays && nDays <= kMaxDays ? nDays : kMinDays;
    m_nBeginDayOption = nBeginDayOfWeek >= 1 && nBeginDayOfWeek <= kDaysPerWeek ? nBeginDayOfWeek : 0;
    m_arColumn.SetSize(m_nDays);
}

int CWeekDayViewCtrl::GetBeginDayOfWeek() const
{
    return m_nBeginDayOption != 0 ? GetFirstDayOfWeek() : 0;
}

void CWeekDayViewCtrl::SetDateScale(int nScale)
{
    m_nDateScale = nScale;
    if (nScale < 1 || nScale > kDateScaleCount) {
        return;
    }
    if (!EndEdit()) {
        return;
    }
    const DateScaleRow& row = kDateScales[nScale - 1];
    SetViewOption(row.days, row.fromFirstDayOfWeek ? GetFirstDayOfWeek() : 0);
    SetCaptionText(row.caption);
    COleDateTime begin;
    COleDateTime end;
    GetViewRange(begin, end);
    SetRange(begin);
    ClearDayProperty();
}

void CWeekDayViewCtrl::SetRange(COleDateTime date)
{
    if (!EndEdit()) {
        return;
    }
    COleDateTime begin = StartOfDay(date);
    if (GetBeginDayOfWeek() != 0 && begin.GetStatus() == COleDateTime::valid) {
        begin = DateOfDayNumber(std::max(WeekStartOf(DayNumberOf(begin), GetBeginDayOfWeek()), civil::kFirstDay));
    }
    if (begin.GetStatus() == COleDateTime::valid && m_dtViewBegin.GetStatus() == COleDateTime::valid) {
        ShiftProperties(DayNumberOf(begin) - DayNumberOf(m_dtViewBegin));
    }
    m_dtViewBegin = begin;
    m_dtViewEnd = EndOfDay(AddDays(begin, m_nDays - 1));
    if (begin.GetStatus() == COleDateTime::valid && m_dtViewEnd.GetStatus() != COleDateTime::valid) {
        m_dtViewEnd = EndOfDay(DateOfDayNumber(civil::kLastDay));
    }
    if (!Shown().Holds(ClockTimeOf(m_dtCurrentDate).day)) {
        m_dtCurrentDate = m_dtViewDate = date;
    }
}

void CWeekDayViewCtrl::GetViewRange(COleDateTime& begin, COleDateTime& end)
{
    begin = m_dtViewBegin;
    end = m_dtViewEnd;
}

void CWeekDayViewCtrl::SetCurrentDate(const COleDateTime& date)
{
    const COleDateTime row = Scale().RowStart(date);
    if (!EndEdit()) {
        return;
    }
    SetRange(row);
    CTimeGridCtrl::SetCurrentDate(row);
}

ShownRange CWeekDayViewCtrl::Shown() const
{
    return ShownRange{ClockTimeOf(m_dtViewBegin).day, m_nDays, m_nBeginDayOption != 0};
}

// ---- Layout

void CWeekDayViewCtrl::CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcRuler, CRect& rcGrid)
{
    CalcLayout(rcClient, rcCaption, m_rcHeader, rcRuler, rcGrid);
}

void CWeekDayViewCtrl::CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcRuler, CRect& rcGrid)
{
    const TimeGridFrame frame =
        CalcTimeGridFrame(rcClient, m_bShowCaption != FALSE, kTimeGrid.headerHeight, GetFulldayItemCount(), m_nDays);
    m_rcFulldayRuler = frame.fulldayRuler;
    m_rcFulldayContent = frame.fulldayContent;
    m_nColumnWidth = frame.columnWidth;
    m_arColumn.SetSize(m_nDays);
    for (int i = 0; i < m_nDays; ++i) {
        m_arColumn[i] = frame.columns[i];
    }
    rcCaption = frame.caption;
    rcHeader = frame.header;
    rcRuler = frame.ruler;
    rcGrid = frame.grid;
}

void CWeekDayViewCtrl::MakeScreenItem(CItemArray& items, CItemArray& screenItems)
{
    MakeShownItems(items, screenItems, m_dtViewBegin, m_dtViewEnd);
}

void CWeekDayViewCtrl::CalcItemRect(CRect, CItemArray& screenItems)
{
    if (screenItems.IsEmpty()) {
        return;
    }
    PlaceTimedItems(screenItems, State().frame.columns, m_dtViewBegin, Scale(), kManyDaysOverlap);
    CalcFulldayItemRect(m_rcFulldayContent, screenItems);
}

void CWeekDayViewCtrl::_CalcItemRect(CRect rcColumn, tagCALENDAR_ITEM& item, COleDateTime day)
{
    item.rcItem = BoxInColumn(item, rcColumn, day, Scale());
}

void CWeekDayViewCtrl::CalcFulldayItemRect(CRect rcBand, CItemArray& screenItems)
{
    if (GetFulldayItemCount() != 0) {
        LayManyDayLanes(screenItems, rcBand, State().frame.columns, m_dtViewBegin);
    }
}

int CWeekDayViewCtrl::HitTest(tagCCHITTESTINFO& info)
{
    return FillHit(info, HitManyDays(State(), m_arScreenItem, info.pt));
}

// ---- Selection

int CWeekDayViewCtrl::GetSelRange(COleDateTime& begin, COleDateTime& end)
{
    const int result = CTimeGridCtrl::GetSelRange(begin, end);
    if (m_bFulldaySelection) {
        begin = StartOfDay(begin);
        end = EndOfDay(end);
        return result;
    }
    const bool isWholeDay =
        begin.GetHour() == 0 && begin.GetMinute() == 0 && end.GetHour() == 23 && end.GetMinute() == 59;
    if (!isWholeDay) {
        end = Scale().MoveRows(end, 1);
    }
    return result;
}

RowRange CWeekDayViewCtrl::GetSelectedRows(int nColumn, const COleDateTime& begin, const COleDateTime& end) const
{
    return SelectedRowsOfColumn(Scale(), begin, end, AddDays(m_dtViewBegin, nColumn));
}

// ---- Work time and day properties

int CWeekDayViewCtrl::IsUseMyWorkTime(int nColumn) const
{
    return nColumn < m_arDayProperty.GetSize() ? m_arDayProperty[nColumn].bUseMyWorkTime : 0;
}

int CWeekDayViewCtrl::IsWorkTime(int nColumn, int nRow) const
{
    if (IsUseMyWorkTime(nColumn)) {
        return _IsWorkTime(nRow, m_arDayProperty[nColumn].dtWorkStart, m_arDayProperty[nColumn].dtWorkEnd);
    }
    return CTimeGridCtrl::IsWorkTime(nRow);
}

void CWeekDayViewCtrl::SetDayProperty(COleDateTime date, const tagCALENDAR_DAY_PROPERTY& property)
{
    const int column = ColumnOfDay(State(), date);
    if (column == -1) {
        return;
    }
    if (m_arDayProperty.GetSize() < m_nDays) {
        m_arDayProperty.SetSize(m_nDays);
    }
    m_arDayProperty[column] = property;
}

tagCALENDAR_DAY_PROPERTY* CWeekDayViewCtrl::GetDayProperty(COleDateTime date)
{
    const int column = ColumnOfDay(State(), date);
    return column != -1 && column < m_arDayProperty.GetSize() ? &m_arDayProperty[column] : nullptr;
}

void CWeekDayViewCtrl::ClearDayProperty()
{
    m_arDayProperty.RemoveAll();
}

int CWeekDayViewCtrl::GetDayColor(int nColumn)
{
    return nColumn >= 0 && nColumn < m_arDayProperty.GetSize() ? m_arDayProperty[nColumn].nDayColor : 0;
}

// The columns have come to stand for days that many later.
void CWeekDayViewCtrl::ShiftProperties(int nDays)
{
    if (m_arDayProperty.IsEmpty() || nDays == 0) {
        return;
    }
    CArray<tagCALENDAR_DAY_PROPERTY, const tagCALENDAR_DAY_PROPERTY&> shifted;
    shifted.SetSize(m_nDays);
    for (int i = 0; i < m_nDays; ++i) {
        if (i + nDays >= 0 && i + nDays < m_arDayProperty.GetSize()) {
            shifted[i] = m_arDayProperty[i + nDays];
        }
    }
    m_arDayProperty.Copy(shifted);
}

// ---- Keyboard

void CWeekDayViewCtrl::MoveLeftward(UINT nFlags)
{
    MoveColumn(-1, nFlags);
}

void CWeekDayViewCtrl::MoveRightward(UINT nFlags)
{
    MoveColumn(1, nFlags);
}

void CWeekDayViewCtrl::MoveColumn(int nDays, UINT nFlags)
{
    if (!EndEdit()) {
        return;
    }
    GridSelection selection = Selection();
    const ShownRange shown = Shown();
    const int day = ClockTimeOf(selection.current).day + nDays;
    // The range after the move; a day that it does not show gives way to the nearest that it shows.
    ShownRange next = shown;
    next.first += ViewsToShow(shown, day) * shown.LengthOfView();
    const int target = next.Holds(day) ? day : nDays > 0 ? next.first : next.first + next.days - 1;
    MoveColumns(selection, nDays + target - day, (nFlags & kExtendSelection) != 0);
    if (selection.current.GetStatus() != COleDateTime::valid) {
        return; // beyond the years that there are
    }
    InvalidateCellRectRange();
    SetSelection(selection);
    InvalidateCellRectRange();
    CurrentDateMoved();
}

// Turns the view when the current date has left it.
void CWeekDayViewCtrl::CurrentDateMoved()
{
    InvalidateHeader(); // it marks the current day
    const ShownRange shown = Shown();
    const int day = ClockTimeOf(m_dtCurrentDate).day;
    ShownRange next = shown;
    next.first += ViewsToShow(shown, day) * shown.LengthOfView();
    // Between two working weeks, or beyond the years that there are, no view shows the day.
    const COleDateTime begin = DateOfDayNumber(next.first);
    if (next.first == shown.first || !next.Holds(day) || begin.GetStatus() != COleDateTime::valid) {
        return;
    }
    SetRange(begin);
    Rebuild();
    Notify(CCN_VIEWRANGECHANGE, m_dtCurrentDate, m_dtViewBegin, m_dtViewEnd, kRangeChangeValue);
}
