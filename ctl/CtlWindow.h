// A control as the C interface sees it: the object of a window that the host's CreateWindow or a dialog made.
#pragma once

#include "pickers/MiniCalendarCtrl.h"
#include "pickers/MiniCalendarCtrl2.h"
#include "pickers/YearMonthPickerCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <map>
#include <memory>

namespace dayvane::ctl {

// The kinds of controls, as bits, and the sets that messages are for; their names are those of dayvane_ctl.iface.
namespace kinds {
constexpr unsigned kDay = 0x01, kMultiDay = 0x02, kWeek = 0x04, kMonth = 0x08, kYear = 0x10, kMiniCalendar = 0x20,
                   kMiniYear = 0x40, kPicker = 0x80;
enum Set : unsigned
{
    timegrids = kDay | kMultiDay,
    multiday = kMultiDay,
    views = timegrids | kWeek | kMonth | kYear,
    minicalendar = kMiniCalendar,
    minis = kMiniCalendar | kMiniYear,
    dates = views | minis,
    picker = kPicker,
    all = dates | picker
};
} // namespace kinds

// What a host has said of a cell of a mini calendar.
struct MarkedCell
{
    bool isBold;
    COLORREF dot; // CLR_NONE: none
};

// Which of the pointers are set follows from the kind.
struct CtlWindow
{
    unsigned kind = 0;
    CWnd* window = nullptr; // takes the window over, and deletes itself with it
    CCalendarCtrl* view = nullptr;
    CTimeGridCtrl* timeGrid = nullptr;
    CWeekDayViewCtrl* multiDay = nullptr;
    CPeriodGridCtrl* grid = nullptr;
    CMiniCalendarCtrl* miniCalendar = nullptr;
    CMiniCalendarCtrl2* miniYear = nullptr;
    CYearMonthPickerCtrl* picker = nullptr;
    std::map<int, MarkedCell> cells;            // by the number of the day, or of the first day of the month
    void (*prepare)(CtlWindow& self) = nullptr; // what is to be done once the window has its size and styles
};

// The object for one of the window classes; nullptr for another name. Throws when there is no memory.
std::unique_ptr<CtlWindow> MakeCtlWindow(const WCHAR* className, DWORD style);
// The names of all window classes, nullptr after the last.
const WCHAR* const* CtlClassNames();

// The edit box of the view.
HWND EditBoxOf(const CtlWindow& control);

} // namespace dayvane::ctl
