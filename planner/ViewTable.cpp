#include "planner/ViewTable.h"

#include "core/DateMath.h"
#include "planner/AgendaView.h"
#include "planner/ItemBridge.h"
#include "planner/resource.h"
#include "views/docview/CalendarViews.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <algorithm>
#include <cstdlib>

namespace planner {

namespace {

constexpr int kSunday = 1;
constexpr int kMonday = 2;
constexpr int kWorkingWeekScale = 14;
constexpr int kWeekScale = 15;
constexpr int kFirstChoice = 4; // days

struct Rows
{
    const ViewRow rows[9];
};

const Rows& Table()
{
    static const Rows table = {{
        // name      command               view class                  scale           Monday  times  step unit, step
        {"day", ID_VIEW_DAY, RUNTIME_CLASS(CDayView), kNoScale, false, true, ViewRow::Days, 1},
        {"workweek", ID_VIEW_WORKING_WEEK, RUNTIME_CLASS(CWeekDayView), kWorkingWeekScale, true, true, ViewRow::Days,
         7},
        {"week", ID_VIEW_WEEK, RUNTIME_CLASS(CWeekDayView), kWeekScale, false, true, ViewRow::Days, 7},
        {"days", ID_VIEW_DAYS, RUNTIME_CLASS(CWeekDayView), kVariableScale, false, true, ViewRow::Days, 0},
        {"diary", ID_VIEW_DIARY, RUNTIME_CLASS(CWeekView), kNoScale, false, false, ViewRow::Days, 7},
        {"month", ID_VIEW_MONTH, RUNTIME_CLASS(CMonthView), kNoScale, false, false, ViewRow::Months, 1},
        {"month2", ID_VIEW_MONTH2, RUNTIME_CLASS(CMonthView2), kNoScale, false, false, ViewRow::Months, 1},
        {"year", ID_VIEW_YEAR, RUNTIME_CLASS(CYearView), kNoScale, false, false, ViewRow::Months, 12},
        {"agenda", ID_VIEW_AGENDA, RUNTIME_CLASS(CAgendaView), kNoScale, false, false, ViewRow::Months, 1},
    }};
    return table;
}

} // namespace

const ViewRow* FindView(UINT command)
{
    for (const ViewRow& row : Table().rows) {
        if (row.command == command) {
            return &row;
        }
    }
    return nullptr;
}

ChosenView FindView(const std::string& name)
{
    char* rest = nullptr;
    const long days = std::strtol(name.c_str(), &rest, 10);
    const bool hasNumber = rest != name.c_str();
    for (const ViewRow& row : Table().rows) {
        const bool fits = !hasNumber || (row.dateScale == kVariableScale && days >= kFewestDays && days <= kMostDays);
        if (fits && row.name == std::string(rest)) {
            return {&row, hasNumber ? static_cast<int>(days) : kFirstChoice};
        }
    }
    return {nullptr, kFirstChoice};
}

ChosenView DefaultView()
{
    return FindView("month");
}

std::string ViewNames()
{
    std::string names;
    for (const ViewRow& row : Table().rows) {
        names +=
            (names.empty() ? "" : ", ") + std::string(row.dateScale == kVariableScale ? "2days to 14days" : row.name);
    }
    return names;
}

void SetUpControl(const ChosenView& view, CCalendarCtrl& ctrl, bool weeksStartMonday)
{
    CalendarOptions options = CalendarOptions::Modern();
    options.carefulDrops = false; // a drop on a small calendar is one of the planner's own
    options.toolTips = false;     // its tips say more
    ctrl.SetOptions(options);
    ctrl.SetTextCodePage(CP_UTF8);
    ctrl.SetFirstDayOfWeek(view.row->startsMonday || weeksStartMonday ? kMonday : kSunday);
    if (CWeekDayViewCtrl* columns = DYNAMIC_DOWNCAST(CWeekDayViewCtrl, &ctrl)) {
        columns->SetDateScale(view.row->dateScale == kVariableScale ? view.days - 1 : view.row->dateScale);
    }
}

COleDateTime DateAfterSteps(const ChosenView& view, const COleDateTime& date, int steps)
{
    const LocalTime time = LocalOfDate(date);
    LocalTime moved = 0;
    if (view.row->stepUnit == ViewRow::Days) {
        moved = time + steps * (view.row->step != 0 ? view.row->step : view.days) * kDaySeconds;
    } else {
        const CivilDate day = DateOfDay(DayOfTime(time));
        const int months = day.year * kYearMonths + day.month - 1 + steps * view.row->step;
        const int year = months / kYearMonths;
        const int month = months % kYearMonths + 1;
        if (year < kFirstYear || year > kLastYear) {
            return date;
        }
        moved = DayOfDate(year, month, std::min(day.day, DaysInMonth(year, month))) * kDaySeconds;
    }
    const COleDateTime result = DateOfLocal(moved);
    return dayvane::IsValid(result) ? result : date;
}

} // namespace planner
