#include "core/CalendarClock.h"

#include "calc/CivilDate.h"

using namespace dayvane;

namespace {
constexpr int kMillisecondsPerSecond = 1000;

COleDateTime (*g_pfnNow)() = nullptr;
} // namespace

void SetCalendarClock(COleDateTime (*pfnNow)())
{
    g_pfnNow = pfnNow;
}

COleDateTime dayvane::Now()
{
    return g_pfnNow ? g_pfnNow() : COleDateTime::GetCurrentTime();
}

int dayvane::MillisecondsToMidnight(const COleDateTime& now)
{
    SYSTEMTIME time = {};
    now.GetAsSystemTime(time); // stays zero when there is no moment
    const int seconds = (time.wHour * kMinutesPerHour + time.wMinute) * kSecondsPerMinute + time.wSecond;
    return (kMinutesPerDay * kSecondsPerMinute - seconds) * kMillisecondsPerSecond;
}
