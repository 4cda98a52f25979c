// The multi-day view: lifetime, range, layout, selection, keyboard. Painting is in WeekDayViewCtrlPaint.cpp.
#include "views/timegrid/WeekDayViewCtrl.h"

#include "core/DateMath.h"
#include "core/Fonts.h"
#include "core/WindowHelpers.h"
#include "views/timegrid/DayRange.h"
#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridParts.h"

using namespace dayvane;

namespace {
constexpr char kWindowClass[] = "MFCWeekDayViewCtrl";
constexpr int kRowsPerHour = 2;
constexpr int kMinDays = 2;
constexpr int kMaxDays = 14;

constexpr CalendarColors kDaysColors = {
    // caption, caption text, ruler, ruler text, content, grid, border
    0x996633, 0x330000, 0xFFEFE3, 0xCF9365, 0xFFFFFF, 0xE1BFA5, 0xE1BFA5};
} // namespace

IMPLEMENT_DYNCREATE(CWeekDayViewCtrl, CTimeGridCtrl)

// ---- Lifetime

CWeekDayViewCtrl::CWeekDayViewCtrl() : m_crToday(::GetSysColor(COLOR_BTNFACE))
{
    m_pOwnType = &typeid(CWeekDayViewCtrl);
    RegisterControlClass(kWindowClass);
    SetViewOption(5, 2);
    SetOwnColors(kDaysColors);
    m_lfFonts[FONT_CAPTION] = LogFontOf({25, FW_DONTCARE, ANSI_CHARSET, "MS Sans Serif"});
    SetCaptionText("Weekday Calendar");
    ShowCaption(TRUE);
    SetTimeScale(kRowsPerHour);
    SetRange(Now());
    SetDateScale(kWorkingWeekScale);
    SetRange(Scale().RowStart(Now()));
}

CWeekDayViewCtrl::~CWeekDayViewCtrl()
{
    DestroyWindow();
}

BOOL CWeekDayViewCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext)
{
    return CWnd::Create(kWindowClass, nullptr, dwStyle, rect, pParent, nID, pContext);
}

// ---- Range

void CWeekDayViewCtrl::SetViewOption(int nDays, int nBeginDayOfWeek)
{
    m_nDays = nDays >= kMinDays && nDays <= kMaxDays ? nDays : kMinDays;
    m_nBeginDayOption = nBeginDayOfWeek >= 1 && nBeginDayOfWeek <= kDaysPerWeek ? nBeginDayOfWeek : 0;
    m_pParts->frame.columns.resize(m_nDays);
}

void CWeekDayViewCtrl::SetDateScale(int nScale)
{
    m_nDateScale = nScale;
    const DateScale* scale = FindDateScale(nScale);
    if (!scale || !EndEdit()) {
        return;
    }
    SetViewOption(scale->days, scale->fromFirstDayOfWeek ? GetFirstDayOfWeek() : 0);
    SetCaptionText(scale->caption);
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
    const DayRange before = GetShownRange();
    m_dtViewBegin = DayRange::From(date, m_nDays, GetBeginDayOfWeek()).first;
    const DayRange range = GetShownRange();
    if (IsValid(range.first) && IsValid(before.first)) {
        ShiftProperties(range.FirstDay() - before.FirstDay());
    }
    if (!range.Holds(m_dtCurrentDate)) {
        m_dtCurrentDate = m_dtViewDate = date;
    }
}

void CWeekDayViewCtrl::GetViewRange(COleDateTime& begin, COleDateTime& end)
{
    begin = m_dtViewBegin;
    end = GetShownRange().LastMoment();
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

DayRange CWeekDayViewCtrl::GetShownRange() const
{
    return DayRange{m_dtViewBegin, m_nDays, m_nBeginDayOption != 0};
}

// ---- Layout

void CWeekDayViewCtrl::CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcRuler, CRect& rcGrid)
{
    CalcLayout(rcClient, rcCaption, m_pParts->frame.header, rcRuler, rcGrid);
}

void CWeekDayViewCtrl::CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcRuler, CRect& rcGrid)
{
    CalcGridLayout(rcClient, m_bShowCaption != FALSE, Scale().metrics.headerHeight + CalcLinesHeight(rcClient),
                   rcCaption, rcRuler, rcGrid);
    rcHeader = m_pParts->frame.header;
}

void CWeekDayViewCtrl::_CalcItemRect(CRect rcColumn, tagCALENDAR_ITEM& item, COleDateTime day)
{
    item.rcItem = BoxInColumn(item, rcColumn, day, Scale());
}

void CWeekDayViewCtrl::CalcFulldayItemRect(CRect rcBand, CItemArray& screenItems)
{
    if (GetFulldayItemCount() != 0) {
        LayManyDayLanes(screenItems, rcBand, m_pParts->frame.columns, m_dtViewBegin, Scale().metrics);
        LimitBand(rcBand, screenItems);
    }
}

CRect CWeekDayViewCtrl::GetColumnRect(int nColumn) const
{
    if (nColumn < 0 || nColumn >= m_nDays) {
        AfxThrowInvalidArgException();
    }
    return m_pParts->frame.columns[nColumn];
}

int CWeekDayViewCtrl::HitTest(tagCCHITTESTINFO& info)
{
    return FillHit(info, HitManyDays(State(), m_arScreenItem, info.pt, m_options));
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
    const int column = GetShownRange().ColumnOf(date);
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
    const int column = GetShownRange().ColumnOf(date);
    return column != -1 && column < m_arDayProperty.GetSize() ? &m_arDayProperty[column] : nullptr;
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

void CWeekDayViewCtrl::MoveColumn(int nDays, UINT nFlags)
{
    if (!EndEdit()) {
        return;
    }
    const GridSelection moved = MovedByColumn(Selection(), GetShownRange(), nDays, (nFlags & kExtendSelection) != 0);
    if (!IsValid(moved.current)) {
        return; // beyond the years that there are
    }
    SetSelection(moved);
    KeepCursorInSight();
    CurrentDateMoved();
}

// Turns the view when the current date has left it.
void CWeekDayViewCtrl::CurrentDateMoved()
{
    InvalidateHeader(); // it marks the current day
    const DayRange range = GetShownRange();
    const DayRange next = range.Showing(m_dtCurrentDate);
    if (next.FirstDay() == range.FirstDay()) {
        return;
    }
    SetRange(next.first);
    Rebuild();
    Notify(CCN_VIEWRANGECHANGE, m_dtCurrentDate, m_dtViewBegin, GetShownRange().LastMoment(), kRangeChangeValue);
}
