#include "views/docview/CalendarViews.h"

#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

namespace {
constexpr DWORD kCtrlStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP;
}

IMPLEMENT_DYNCREATE(CDayView, CCalendarView)
IMPLEMENT_DYNCREATE(CWeekDayView, CCalendarView)
IMPLEMENT_DYNCREATE(CWeekView, CCalendarView)
IMPLEMENT_DYNCREATE(CMonthView, CCalendarView)
IMPLEMENT_DYNCREATE(CMonthView2, CCalendarView)
IMPLEMENT_DYNCREATE(CYearView, CCalendarView)

CDayView::CDayView() : CCalendarView(RUNTIME_CLASS(CDayViewCtrl), kCtrlStyle)
{
}

CWeekDayView::CWeekDayView() : CCalendarView(RUNTIME_CLASS(CWeekDayViewCtrl), kCtrlStyle)
{
}

CWeekView::CWeekView() : CCalendarView(RUNTIME_CLASS(CWeekViewCtrl), kCtrlStyle)
{
}

CMonthView::CMonthView() : CCalendarView(RUNTIME_CLASS(CMonthViewCtrl), kCtrlStyle)
{
}

CMonthView2::CMonthView2() : CCalendarView(RUNTIME_CLASS(CMonthViewCtrl2), kCtrlStyle)
{
}

CYearView::CYearView() : CCalendarView(RUNTIME_CLASS(CYearViewCtrl), kCtrlStyle)
{
}
