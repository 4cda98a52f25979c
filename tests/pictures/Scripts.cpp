#include "Scripts.h"

#include "core/DateMath.h"
#include "pickers/MiniCalendarCtrl.h"
#include "pickers/MiniCalendarCtrl2.h"
#include "pickers/PeriodSelCtrl.h"
#include "support/Input.h"
#include "support/MemoryDc.h"
#include "support/OnlyWhatIsSent.h"
#include "support/RecordingParent.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <cstdint>
#include <cstdio>
#include <iterator>
#include <random>
#include <type_traits>

using namespace dayvane;

namespace testsupport {
namespace {

constexpr unsigned kScripts = 10; // of each control
constexpr int kSteps = 16;
constexpr UINT kId = 77;
constexpr SIZE kSizes[] = {{420, 330}, {330, 260}, {520, 200}, {150, 300}, {61, 47}};

// What all scripts share: chance, the control's window, and the sum of what came of it.
template <class Control>
class Script
{
public:
    explicit Script(unsigned seed) : m_random(seed)
    {
        parent.Create(560, 420);
        control.SetTheme(RandomTheme());
    }
    ~Script()
    {
        ::ReleaseCapture();
        control.DestroyWindow();
    }

    RecordingParent parent;
    Control control;

    int Roll(int sides) { return static_cast<int>(m_random() % static_cast<unsigned>(sides)); }
    bool Chance(int of) { return Roll(of) == 0; }
    CPoint RandomPoint()
    {
        CRect client;
        control.GetClientRect(&client);
        return CPoint(Roll(client.Width() + 1), Roll(client.Height() + 1));
    }

    // Moves, presses and releases; what is held stays held over other steps.
    void Point()
    {
        const HWND window = control.m_hWnd;
        const LPARAM at = MAKELPARAM(m_at.x, m_at.y);
        if (m_isHeld && Chance(3)) {
            m_isHeld = false;
            ::SendMessage(window, WM_LBUTTONUP, 0, at);
            return;
        }
        m_at = m_isHeld && Roll(2) ? m_at + CPoint(Roll(60) - 30, Roll(60) - 30) : RandomPoint();
        const LPARAM to = MAKELPARAM(m_at.x, m_at.y);
        const int button = Roll(8);
        if (button == 0) {
            ::SendMessage(window, WM_RBUTTONDOWN, MK_RBUTTON, to);
        } else if (button == 1) {
            ::SendMessage(window, WM_MOUSEHOVER, 0, to);
        } else if (m_isHeld || button < 4) {
            ::SendMessage(window, WM_MOUSEMOVE, m_isHeld ? MK_LBUTTON : 0, to);
        } else {
            m_isHeld = true;
            ::SendMessage(window, WM_LBUTTONDOWN, MK_LBUTTON, to);
        }
    }
    void PressKey()
    {
        static constexpr int kKeys[] = {VK_LEFT, VK_UP,    VK_RIGHT, VK_DOWN, VK_HOME,   VK_END,  VK_PRIOR,
                                        VK_NEXT, VK_SPACE, VK_TAB,   VK_F10,  VK_ESCAPE, VK_DOWN, VK_RIGHT};
        const int held = Roll(6);
        const KeyState keys(held == 1   ? std::initializer_list<int>{VK_SHIFT}
                            : held == 2 ? std::initializer_list<int>{VK_CONTROL}
                            : held == 3 ? std::initializer_list<int>{VK_CONTROL, VK_SHIFT}
                                        : std::initializer_list<int>{});
        control.SendMessage(WM_KEYDOWN, kKeys[Roll(static_cast<int>(std::size(kKeys)))]);
    }
    // The cursor for a place where nothing is held.
    void AskForTheCursor()
    {
        CPoint at = RandomPoint();
        control.ClientToScreen(&at);
        ::SetCursorPos(at.x, at.y);
        control.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(control.m_hWnd), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    }

    // After a step, before waiting messages are served.
    void AddCursor()
    {
        int kind = 0;
        for (const LPCTSTR name : {IDC_ARROW, IDC_SIZENS, IDC_SIZEWE, IDC_SIZEALL, IDC_HAND}) {
            ++kind;
            if (::GetCursor() == ::LoadCursor(nullptr, name)) {
                Add(kind);
            }
        }
    }
    void AddWhatIsSeen(CWnd& window)
    {
        window.UpdateWindow();
        CRect client;
        window.GetClientRect(&client);
        MemoryDc picture(std::max(client.Width(), 1), std::max(client.Height(), 1));
        CClientDC dc(&window);
        picture.Dc().BitBlt(0, 0, client.Width(), client.Height(), &dc, 0, 0, SRCCOPY);
        Add(picture.Sum());
    }
    void AddReports()
    {
        for (const std::string& line : parent.Lines()) {
            for (const char each : line) {
                Add(static_cast<unsigned char>(each));
            }
        }
        parent.ClearLog();
    }
    std::uint32_t Sum() const { return m_sum; }

private:
    CalendarTheme RandomTheme()
    {
        const int kind = Roll(4);
        return kind == 0 ? CalendarTheme::Dark() : kind == 1 ? CalendarTheme::Calm() : CalendarTheme::Classic();
    }
    void Add(std::uint32_t value) { m_sum = (m_sum ^ value) * 16777619u; } // as in FNV-1a

    OnlyWhatIsSent m_hook;
    std::mt19937 m_random;
    std::uint32_t m_sum = 2166136261u;
    CPoint m_at;
    bool m_isHeld = false;
};

template <class View>
class ViewScript : public Script<View>
{
    using Base = Script<View>;
    using Base::Chance;
    using Base::Roll;

public:
    using Base::control;

    explicit ViewScript(unsigned seed) : Base(seed), m_now(2026, 11, 20, 10, 20, 0)
    {
        control.ShowFulldaySection(Roll(3) != 0);
        control.SetFirstDayOfWeek(1 + Roll(7));
        control.SetCurrentDate(m_now);
        const SIZE size = kSizes[Roll(static_cast<int>(std::size(kSizes)))];
        control.Create(WS_CHILD | WS_VISIBLE | (Roll(2) ? WS_VSCROLL : 0), CRect(CPoint(0, 0), size), &this->parent,
                       kId);
        CalendarOptions options = Roll(2) ? CalendarOptions::Modern() : control.GetOptions();
        options.followSystemTheme = options.followDpi = options.toolTips = false;
        options.nowLine = options.nowLine || Chance(2);
        control.SetOptions(options);
        control.SetScale(96 + 24 * Roll(5));
        DayLines lines;
        lines.names = Chance(3);
        lines.rokuyo = Chance(3);
        lines.moonPhase = Chance(3);
        lines.weekNumbers = Chance(3);
        lines.eraTitles = Chance(3);
        control.SetDayLines(lines);
        if constexpr (std::is_base_of<CTimeGridCtrl, View>::value) {
            control.SetTimeScale(1 + Roll(4));
        }
        if constexpr (std::is_base_of<CWeekDayViewCtrl, View>::value) {
            control.SetViewOption(1 + Roll(8), Roll(8));
        }
        for (int i = 5 + Roll(20); i > 0; --i) {
            tagCC_ITEM item = RandomItem();
            control.AddItem(&item);
        }
        control.Refresh();
        PumpMessages();
    }

    void Step()
    {
        switch (Roll(12)) {
        case 0:
        case 1:
        case 2:
        case 3:
            this->Point();
            break;
        case 4:
        case 5:
            this->PressKey();
            break;
        case 6:
            control.SendMessage(WM_VSCROLL, MAKEWPARAM(Roll(9), Roll(40)));
            break;
        case 7:
            control.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(Chance(4) ? MK_CONTROL : 0, (Roll(3) - 1) * WHEEL_DELTA), 0);
            break;
        case 8:
            control.SetCurSel(Roll(control.GetItemCount() + 1) - 1);
            break;
        case 9:
            ChangeItems();
            break;
        case 10:
            Roll(3) ? control.SetFocus() : this->parent.SetFocus();
            break;
        default:
            this->AskForTheCursor();
        }
        this->AddCursor();
        PumpMessages();
    }

private:
    tagCC_ITEM RandomItem()
    {
        tagCC_ITEM item;
        const int days = Roll(3) ? Roll(8) - 4 : Roll(60) - 30; // most in the shown week
        item.dtStart = AddMinutes(m_now, days * kMinutesPerDay + Roll(48) * 30 - 500);
        item.dtEnd = AddMinutes(item.dtStart, Roll(5) ? Roll(8) * 30 : Roll(9) * kMinutesPerDay);
        item.nFullday = Chance(5);
        item.strText.Format("item %d", Roll(100));
        item.crColor2 = Roll(3) ? RGB(Roll(256), Roll(256), Roll(256)) : RGB(255, 255, 255);
        item.crColor3 = RGB(Roll(256), Roll(256), Roll(256));
        item.bAlarm = Chance(4);
        item.bRecurrent = Chance(4);
        item.bMovable = Roll(8) != 0;
        return item;
    }
    void ChangeItems()
    {
        tagCC_ITEM item = RandomItem();
        const int count = control.GetItemCount();
        if (count > 0 && Chance(3)) {
            control.DeleteItem(Roll(count));
        } else if (count > 0 && Chance(2)) {
            control.SetItem(Roll(count), &item);
        } else if (Chance(2)) {
            control.AddItem(&item);
        } else {
            control.SetDayColor(item.dtStart, Roll(5));
        }
        control.Refresh();
    }

    static constexpr int kMinutesPerDay = 24 * 60;
    COleDateTime m_now;
};

template <class Calendar>
class CalendarScript : public Script<Calendar>
{
    using Base = Script<Calendar>;
    using Base::Chance;
    using Base::Roll;

public:
    using Base::control;

    explicit CalendarScript(unsigned seed) : Base(seed)
    {
        control.SetScale(96 + 24 * Roll(5));
        control.SetRowAndCol(1 + Roll(2), 1 + Roll(2));
        control.SetRangeSelect(Roll(2));
        control.ShowEraTitles(Roll(2));
        control.Create(WS_CHILD | WS_VISIBLE, CRect(CPoint(10, 10), control.GetGridSize()), &this->parent, kId);
        control.SetFirstDayOfWeek(1 + Roll(7));
        if constexpr (std::is_base_of<CMiniCalendarCtrl, Calendar>::value) {
            control.ShowWeekNumbers(Roll(2));
        }
        control.SetDotCallback([](const COleDateTime& day, LPARAM) {
            return IsValid(day) && day.GetDay() % 5 == 0 ? RGB(90, 143, 203) : CLR_NONE;
        });
        control.Refresh();
        PumpMessages();
    }

    void Step()
    {
        switch (Roll(8)) {
        case 0:
            this->PressKey();
            break;
        case 1:
            control.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, (Roll(3) - 1) * WHEEL_DELTA), 0);
            break;
        case 2:
            Roll(3) ? control.SetFocus() : this->parent.SetFocus();
            break;
        case 3:
            control.SendMessage(WM_MOUSELEAVE);
            break;
        default:
            this->Point();
        }
        PumpMessages();
        if (control.GetPopup()) {
            this->AddWhatIsSeen(*control.GetPopup());
        }
    }
};

template <class AnyScript>
void Write(FILE* file, const char* name)
{
    for (unsigned seed = 1; seed <= kScripts; ++seed) {
        AnyScript script(seed);
        for (int step = 0; step < kSteps; ++step) {
            script.Step();
            script.AddWhatIsSeen(script.control);
            script.AddReports();
        }
        std::fprintf(file, "%s %u %08x\n", name, seed, static_cast<unsigned>(script.Sum()));
    }
}

} // namespace

bool WriteScripts(const std::string& folder)
{
    FILE* file = std::fopen((folder + "\\scripts.txt").c_str(), "wb");
    if (!file) {
        return false;
    }
    Write<ViewScript<CMonthViewCtrl>>(file, "month");
    Write<ViewScript<CMonthViewCtrl2>>(file, "month2");
    Write<ViewScript<CWeekViewCtrl>>(file, "diary");
    Write<ViewScript<CYearViewCtrl>>(file, "year");
    Write<ViewScript<CDayViewCtrl>>(file, "day");
    Write<ViewScript<CWeekDayViewCtrl>>(file, "week");
    Write<CalendarScript<CMiniCalendarCtrl>>(file, "months");
    Write<CalendarScript<CMiniCalendarCtrl2>>(file, "years");
    return std::fclose(file) == 0;
}

} // namespace testsupport
