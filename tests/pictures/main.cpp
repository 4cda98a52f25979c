// Draws every view and every date selector, without texts, at several scales: master_pictures FOLDER leaves
// NAME-SCALE.bmp there. tests/outside/master_pictures.sh compares them with the pictures beside this file.
#include "TextVeil.h"

#include "core/CalendarClock.h"
#include "pickers/MiniCalendarCtrl.h"
#include "pickers/MiniCalendarCtrl2.h"
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

#include <cstdio>
#include <string>

using namespace testsupport;

namespace {

constexpr int kScales[] = {100, 150, 200}; // per cent
constexpr SIZE kViewSize = {640, 480};     // at 100 %
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

template <class View>
bool SaveView(const std::string& folder, const char* name)
{
    bool isSaved = true;
    for (const int scale : kScales) {
        const CSize size(kViewSize.cx * scale / 100, kViewSize.cy * scale / 100);
        RecordingParent parent;
        parent.Create(size.cx, size.cy);
        View view;
        view.ShowFulldaySection(TRUE);
        view.Create(WS_CHILD | WS_VISIBLE, CRect(CPoint(0, 0), size), &parent, kId);
        view.SetScale(96 * scale / 100);
        view.SetCurrentDate(Moment(20, 9));
        view.SetSelRange(Moment(18, 0), Moment(18, 0));
        AddItems(view);
        view.Refresh();
        isSaved = Save(view, folder, name, scale) && isSaved;
        view.DestroyWindow();
    }
    return isSaved;
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
    const bool isSaved = SaveView<CMonthViewCtrl>(folder, "month") & SaveView<CMonthViewCtrl2>(folder, "month2") &
                         SaveView<CWeekViewCtrl>(folder, "diary") & SaveView<CYearViewCtrl>(folder, "year") &
                         SaveView<CDayViewCtrl>(folder, "day") & SaveView<CWeekDayViewCtrl>(folder, "week") &
                         SaveCalendar<CMiniCalendarCtrl>(folder, "months") &
                         SaveCalendar<CMiniCalendarCtrl2>(folder, "years") & SavePicker(folder);
    SetCalendarClock(nullptr);
    return isSaved ? 0 : 1;
}
