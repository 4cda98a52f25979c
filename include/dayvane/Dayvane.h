// The whole public API of Dayvane in one header.
//
// On Windows: the controls, their records and notifications, and the calendar arithmetic. Elsewhere: the part without
// windows, that is the records and the calendar arithmetic.
#pragma once

#include <dayvane/Version.h>

#include "access/AccessTexts.h"
#include "calc/CalcHoliday.h"
#include "calc/DayCalendar.h"
#include "calc/Eras.h"
#include "calc/ExactSky.h"
#include "calc/LunarDate.h"
#include "calc/SexagenaryCycle.h"
#include "calc/SkyDay.h"
#include "calc/WeekNumbers.h"
#include "calc/WorkHours.h"
#include "calc/ZoneClock.h"
#include "core/CalendarRecords.h"
#include "core/CalendarTheme.h"
#include "core/CalendarTexts.h"
#include "core/TextCodec.h"

#ifdef _WIN32
#include "core/CalendarClock.h"
#include "core/CalendarCtrl.h"
#include "core/CalendarFonts.h"
#include "core/CalendarNotify.h"
#include "core/CalendarPrinting.h"
#include "core/CalendarView.h"
#include "core/DrawingHelpers.h"
#include "core/InPlaceEdit.h"
#include "core/SystemTheme.h"
#include "pickers/MiniCalendarCtrl.h"
#include "pickers/MiniCalendarCtrl2.h"
#include "pickers/YearMonthMessages.h"
#include "pickers/YearMonthPickerCtrl.h"
#include "printing/CalendarPrinter.h"
#include "printing/PrintOptions.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/docview/CalendarViews.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"
#include "views/timegrid/ZoneRuler.h"
#endif
