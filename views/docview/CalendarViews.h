// The six calendar controls as document views. Each can be created dynamically, as a document template wants it.
#pragma once

#include "../../core/CalendarView.h"

class CDayView : public CCalendarView
{
    DECLARE_DYNCREATE(CDayView)
public:
    CDayView();
};

class CWeekDayView : public CCalendarView
{
    DECLARE_DYNCREATE(CWeekDayView)
public:
    CWeekDayView();
};

class CWeekView : public CCalendarView
{
    DECLARE_DYNCREATE(CWeekView)
public:
    CWeekView();
};

class CMonthView : public CCalendarView
{
    DECLARE_DYNCREATE(CMonthView)
public:
    CMonthView();
};

class CMonthView2 : public CCalendarView
{
    DECLARE_DYNCREATE(CMonthView2)
public:
    CMonthView2();
};

class CYearView : public CCalendarView
{
    DECLARE_DYNCREATE(CYearView)
public:
    CYearView();
};
