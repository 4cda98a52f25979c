#include "core/TodayWatch.h"

#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "core/WatchWindow.h"

#include <algorithm>
#include <utility>

namespace dayvane {
namespace {
constexpr char kWindowName[] = "DayvaneTodayWatch";
constexpr UINT_PTR kMidnightTimer = 1;
// Timers may stand still while the machine sleeps, so midnight is not awaited in one step.
constexpr int kLongestWait = 600'000; // milliseconds

WatchWindow* g_window = nullptr;

class TodayWindow : public WatchWindow
{
public:
    TodayWindow() : WatchWindow(kWindowName, g_window) { AwaitMidnight(); }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const bool isTimer = message == WM_TIMER && wParam == kMidnightTimer;
        const LRESULT result = isTimer ? 0 : CWnd::WindowProc(message, wParam, lParam);
        if (isTimer || message == WM_TIMECHANGE || message == WM_POWERBROADCAST) {
            Look();
        }
        return result;
    }

private:
    void AwaitMidnight() { SetTimer(kMidnightTimer, std::min(MillisecondsToMidnight(Now()), kLongestWait), nullptr); }

    // Looks at the clock. The window may be gone afterwards.
    void Look()
    {
        AwaitMidnight();
        const COleDateTime now = Now();
        if (!IsCalling() && !IsSameDay(now, m_today)) {
            m_today = now;
            CallAll();
        }
    }

    COleDateTime m_today = Now();
};

} // namespace

TodayWatch::TodayWatch(std::function<void()> onChange) : m_onChange(std::move(onChange))
{
}

TodayWatch::~TodayWatch()
{
    Stop();
}

void TodayWatch::Start()
{
    if (!g_window) {
        new TodayWindow; // is g_window
    }
    g_window->Add(m_onChange);
}

void TodayWatch::Stop()
{
    if (g_window) {
        g_window->Remove(m_onChange);
    }
}

} // namespace dayvane
