#include "core/CalendarClock.h"

using namespace dayvane;

namespace {
COleDateTime (*g_pfnNow)() = nullptr;
}

void SetCalendarClock(COleDateTime (*pfnNow)())
{
    g_pfnNow = pfnNow;
}

COleDateTime dayvane::Now()
{
    return g_pfnNow ? g_pfnNow() : COleDateTime::GetCurrentTime();
}
