// The views of the planner. Another view is another row.
#pragma once

#include "core/CalendarView.h"

#include <string>

namespace planner {

struct ViewRow
{
    enum Unit
    {
        Days,
        Months
    };

    const char* name; // on the command line
    UINT command;
    CRuntimeClass* viewClass;
    int dateScale;     // CWeekDayViewCtrl::SetDateScale; kVariableScale: the chosen number of days
    bool startsMonday; // whatever the first day of the week is
    bool hasTimes;     // a time grid: selections are times
    Unit stepUnit;     // what Previous and Next go by
    int step;          // 0: the chosen number of days
};

constexpr int kNoScale = 0;
constexpr int kVariableScale = -1;
constexpr int kFewestDays = 2;
constexpr int kMostDays = 14;

// What is shown: a view, and how many days where they can be chosen.
struct ChosenView
{
    const ViewRow* row;
    int days;
};

const ViewRow* FindView(UINT command); // nullptr: none has this command
// By name; "4days" is the view of several days. nullptr row: there is none.
ChosenView FindView(const std::string& name);
ChosenView DefaultView();
std::string ViewNames(); // for a message

// Gives a new control of the view what does not depend on the date.
void SetUpControl(const ChosenView& view, CCalendarCtrl& ctrl, bool weeksStartMonday);
// The date so many steps on; the same one where that leaves the years 100 to 9999.
COleDateTime DateAfterSteps(const ChosenView& view, const COleDateTime& date, int steps);

} // namespace planner
