// Draws every view and every date selector, without texts, at several scales: master_pictures FOLDER leaves
// NAME-SCALE.bmp there. tests/outside/master_pictures.sh compares them with the pictures beside this file.
#include "TextVeil.h"

#include "core/CalendarClock.h"
#include "pickers/MiniCalendarCtrl.h"
#include "pickers/MiniCalendarCtrl2.h"
#include "pickers/PeriodGridLayout.h"
#include "pickers/YearMonthPickerCtrl.h"
#include "pickers/YearMonthPopup.h"
#include "support/Input.h"
#include "support/MemoryDc.h"
#include "support/RecordingParent.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"
#include "views/timegrid/ZoneRuler.h"

#include <cstdio>
#include <string>
#include <type_traits>

using namespace testsupport;
using namespace dayvane;

namespace {

constexpr int kScales[] = {100, 150, 200}; // per cent
constexpr int kBusyScales[] = {100, 150};
constexpr SIZE kViewSize = {640, 480}; // at 100 %
constexpr int kItems = 9;
constexpr UINT kId = 77;

COleDateTime Moment(int day, int hour, int minute = 0)
{
    return COleDateTime(2026, 11, day, hour, minute, 0);
}

// The client area as it is on the screen.
bool Save(CWnd& window, const std::string& folder, const std::string& name, int scale)
{
    PumpMessages();
    window.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    CRect client;
    window.GetClientRect(&client);
    MemoryDc picture(client.Width(), client.Height());
    CClientDC dc(&window);
    picture.Dc().BitBlt(0, 0, client.Width(), client.Height(), &dc, 0, 0, SRCCOPY);
    const std::string file = folder + "\\" + name + "-" + std::to_string(scale) + ".bmp";
    const bool isSaved = picture.Save(file.c_str());
    std::printf("%s %s\n", isSaved ? "drawn" : "NOT SAVED:", file.c_str());
    return isSaved;
}

// Items of every kind: over midnight, whole days, with marks, overlapping, and more than there is room for on the 20th.
void AddItems(CCalendarCtrl& ctrl)
{
    for (int i = 0; i < kItems; ++i) {
        tagCC_ITEM item;
        item.dtStart = Moment(16 + i % 5, 9 + i, i % 2 * 30);
        item.dtEnd = Moment(16 + i % 5 + (i == 4 ? 1 : 0), 11 + i, 0);
        item.nFullday = i % 3 == 2;
        item.bAlarm = i % 2;
        item.bRecurrent = i % 4 == 1;
        item.strText = "some words";
        item.crColor1 = RGB(30 * i, 90, 200 - 20 * i);
        item.crColor2 = i % 2 ? RGB(230, 240, 255) : RGB(255, 240, 220);
        ctrl.AddItem(&item, FALSE, FALSE);
        item.dtStart = Moment(20, 8 + i / 2);
        item.dtEnd = Moment(20, 10 + i / 2);
        ctrl.AddItem(&item, FALSE, FALSE);
    }
}

// prepare(view): once it has its window and its scale.
template <class View, class Scales, class Prepare>
bool SaveAtScales(const Scales& scales, const std::string& folder, const char* name, Prepare prepare)
{
    bool isSaved = true;
    for (const int scale : scales) {
        const CSize size(kViewSize.cx * scale / 100, kViewSize.cy * scale / 100);
        RecordingParent parent;
        parent.Create(size.cx, size.cy);
        View view;
        view.ShowFulldaySection(TRUE);
        view.Create(WS_CHILD | WS_VISIBLE, CRect(CPoint(0, 0), size), &parent, kId);
        view.SetScale(96 * scale / 100);
        prepare(view);
        isSaved = Save(view, folder, name, scale) && isSaved;
        view.DestroyWindow();
    }
    return isSaved;
}

template <class View>
bool SaveView(const std::string& folder, const char* name)
{
    return SaveAtScales<View>(kScales, folder, name, [](View& view) {
        view.SetCurrentDate(Moment(20, 9));
        view.SetSelRange(Moment(18, 0), Moment(18, 0));
        AddItems(view);
        view.Refresh();
    });
}

// With every option, in the dark theme: what goes on over weeks, is current, hidden, selected or focused.
template <class View>
bool SaveBusyView(const std::string& folder, const char* name)
{
    return SaveAtScales<View>(kBusyScales, folder, name, [](View& view) {
        CalendarOptions options = CalendarOptions::Modern();
        options.followSystemTheme = options.followDpi = false;
        view.SetOptions(options);
        view.SetTheme(CalendarTheme::Dark());
        DayLines lines;
        lines.names = lines.moonPhase = lines.weekNumbers = true;
        view.SetDayLines(lines);
        view.SetCurrentDate(Moment(20, 9));
        view.SetDayColor(Moment(10, 0), 3);
        AddItems(view);
        tagCC_ITEM item;
        item.dtStart = Moment(5, 9);
        item.dtEnd = Moment(25, 10);
        item.crColor1 = item.crColor3 = RGB(200, 60, 60);
        view.AddItem(&item);
        view.SetCurSel(0);
        view.SetSelRange(Moment(17, 0), Moment(19, 0), TRUE);
        if constexpr (std::is_base_of<CTimeGridCtrl, View>::value) {
            ZoneRuler ruler;
            ruler.own = ZoneClock(9 * 3600);
            ruler.other = ZoneClock(-5 * 3600);
            view.SetZoneRuler(ruler);
        }
        view.Refresh();
        view.SendMessage(WM_KEYDOWN, VK_TAB);
        view.SetFocus();
    });
}

template <class Calendar>
bool SaveCalendar(const std::string& folder, const char* name)
{
    bool isSaved = true;
    for (const int scale : kScales) {
        RecordingParent parent;
        parent.Create(kViewSize.cx, kViewSize.cy);
        Calendar calendar;
        calendar.SetScale(96 * scale / 100);
        calendar.SetRowAndCol(1, 2);
        calendar.Create(WS_CHILD | WS_VISIBLE, CRect(CPoint(0, 0), calendar.GetGridSize()), &parent, kId);
        calendar.SetDotCallback([](const COleDateTime& day, LPARAM) {
            return day.GetStatus() == COleDateTime::valid && day.GetDay() % 5 == 0 ? RGB(90, 143, 203) : CLR_NONE;
        });
        calendar.SetSel(Moment(12, 0), Moment(14, 0));
        calendar.Refresh();
        isSaved = Save(calendar, folder, name, scale) && isSaved;
        // The focus, a hot part, another theme.
        calendar.SetTheme(CalendarTheme::Calm());
        calendar.SendMessage(WM_KEYDOWN, VK_LEFT);
        calendar.SetFocus();
        const CRect title = calendar.GetGridLayout().blocks[1].title;
        messages::Move(calendar, title.CenterPoint());
        isSaved = Save(calendar, folder, (std::string(name) + "-hot").c_str(), scale) && isSaved;
        messages::LeftDown(calendar, calendar.GetGridLayout().rightArrow.CenterPoint());
        isSaved = Save(calendar, folder, (std::string(name) + "-pressed").c_str(), scale) && isSaved;
        messages::LeftUp(calendar, CPoint(0, 0));
        calendar.DestroyWindow();
    }
    return isSaved;
}

bool SavePicker(const std::string& folder)
{
    bool isSaved = true;
    for (const int scale : kScales) {
        RecordingParent parent;
        parent.Create(kViewSize.cx, kViewSize.cy);
        CYearMonthPickerCtrl picker;
        picker.SetTheme(CalendarTheme::Calm()); // its arrow is then ours, and not the system's
        picker.Create("", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(0, 0, scale, scale), &parent, kId);
        picker.SetScale(96 * scale / 100);
        isSaved = Save(picker, folder, "picker", scale) && isSaved;
        picker.OnClicked();
        CYearMonthPopup* popup = picker.GetPopup();
        isSaved = popup && Save(*popup, folder, "picker-popup", scale) && isSaved;
        picker.DestroyWindow();
    }
    return isSaved;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2 || !VeilTexts() ||
        !AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), SW_SHOWNORMAL)) {
        std::printf("master_pictures FOLDER\n");
        return 2;
    }
    const std::string folder = arguments[1];
    SetCalendarClock([] { return Moment(20, 10, 20); });
    ::SetCursorPos(2000, 2000);
    const bool isSaved =
        SaveView<CMonthViewCtrl>(folder, "month") & SaveView<CMonthViewCtrl2>(folder, "month2") &
        SaveView<CWeekViewCtrl>(folder, "diary") & SaveView<CYearViewCtrl>(folder, "year") &
        SaveView<CDayViewCtrl>(folder, "day") & SaveView<CWeekDayViewCtrl>(folder, "week") &
        SaveBusyView<CMonthViewCtrl>(folder, "busy-month") & SaveBusyView<CMonthViewCtrl2>(folder, "busy-month2") &
        SaveBusyView<CWeekViewCtrl>(folder, "busy-diary") & SaveBusyView<CYearViewCtrl>(folder, "busy-year") &
        SaveBusyView<CDayViewCtrl>(folder, "busy-day") & SaveBusyView<CWeekDayViewCtrl>(folder, "busy-week") &
        SaveCalendar<CMiniCalendarCtrl>(folder, "months") & SaveCalendar<CMiniCalendarCtrl2>(folder, "years") &
        SavePicker(folder);
    SetCalendarClock(nullptr);
    return isSaved ? 0 : 1;
}
