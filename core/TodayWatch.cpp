#include "core/TodayWatch.h"

#include "core/CalendarClock.h"
#include "core/DateMath.h"

#include <afxwin.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace dayvane {
namespace {
constexpr char kWindowName[] = "DayvaneTodayWatch";
constexpr UINT_PTR kMidnightTimer = 1;
// Timers may stand still while the machine sleeps, so midnight is not awaited in one step.
constexpr int kLongestWait = 600'000; // milliseconds
} // namespace

// A top-level window, because WM_TIMECHANGE is sent to those only.
class TodayWindow : public CWnd
{
public:
    static void Add(TodayWatch* watch)
    {
        if (!s_window) {
            s_window = new TodayWindow;
            s_window->CreateEx(0, AfxRegisterWndClass(0), kWindowName, WS_POPUP, CRect(0, 0, 0, 0), nullptr, 0);
            s_window->AwaitMidnight();
        }
        if (!s_window->Has(watch)) {
            s_window->m_watches.push_back(watch);
        }
    }
    static void Remove(TodayWatch* watch)
    {
        if (s_window) {
            std::vector<TodayWatch*>& watches = s_window->m_watches;
            watches.erase(std::remove(watches.begin(), watches.end(), watch), watches.end());
            if (!s_window->m_notifying) {
                EndIfUnwatched();
            }
        }
    }

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
    bool Has(const TodayWatch* watch) const
    {
        return std::find(m_watches.begin(), m_watches.end(), watch) != m_watches.end();
    }

    static void EndIfUnwatched()
    {
        if (s_window->m_watches.empty()) {
            delete std::exchange(s_window, nullptr);
        }
    }

    void AwaitMidnight() { SetTimer(kMidnightTimer, std::min(MillisecondsToMidnight(Now()), kLongestWait), nullptr); }

    // Looks at the clock. The window may be gone afterwards.
    void Look()
    {
        AwaitMidnight();
        const COleDateTime now = Now();
        if (!m_notifying && !IsSameDay(now, m_today)) {
            m_today = now;
            Notify();
        }
    }

    void Notify()
    {
        m_notifying = true;
        const std::vector<TodayWatch*> watches = m_watches; // each may end others
        for (TodayWatch* watch : watches) {
            if (Has(watch)) {
                const std::function<void()> onChange = watch->m_onChange; // it may end its own watch
                onChange();
            }
        }
        m_notifying = false;
        EndIfUnwatched();
    }

    static TodayWindow* s_window;
    std::vector<TodayWatch*> m_watches;
    COleDateTime m_today = Now();
    bool m_notifying = false;
};

TodayWindow* TodayWindow::s_window = nullptr;

TodayWatch::TodayWatch(std::function<void()> onChange) : m_onChange(std::move(onChange))
{
}

TodayWatch::~TodayWatch()
{
    Stop();
}

void TodayWatch::Start()
{
    TodayWindow::Add(this);
}

void TodayWatch::Stop()
{
    TodayWindow::Remove(this);
}

} // namespace dayvane
