// The change of the day, as controls learn of it.
#include "core/TodayWatch.h"

#include "core/CalendarClock.h"
#include "tests/support/Input.h"

#include <gtest/gtest.h>

#include <memory>

using namespace dayvane;

namespace {
COleDateTime g_now;

HWND Window()
{
    return ::FindWindow(nullptr, "DayvaneTodayWatch");
}

class TodayWatchTest : public testing::Test
{
protected:
    TodayWatchTest()
    {
        g_now = COleDateTime(2026, 11, 22, 23, 59, 59);
        SetCalendarClock([] { return g_now; });
    }
    ~TodayWatchTest() override { SetCalendarClock(nullptr); }

    void TimeIsSet(const COleDateTime& now)
    {
        g_now = now;
        ::SendMessage(Window(), WM_TIMECHANGE, 0, 0);
    }
    int changes = 0;
    std::unique_ptr<TodayWatch> watch = std::make_unique<TodayWatch>([this] { ++changes; });
};
} // namespace

TEST_F(TodayWatchTest, ReportsEachChangeOfTheDayOnce)
{
    EXPECT_EQ(nullptr, Window());
    watch->Start();
    watch->Start();
    TimeIsSet(COleDateTime(2026, 11, 22, 1, 0, 0));
    EXPECT_EQ(0, changes) << "the same day";
    TimeIsSet(COleDateTime(2026, 11, 21, 23, 59, 58));
    EXPECT_EQ(1, changes);
    watch->Stop();
    EXPECT_EQ(nullptr, Window()) << "nobody watches";
}

TEST_F(TodayWatchTest, MidnightComesByItself)
{
    watch->Start(); // one second before it
    g_now = COleDateTime(2026, 11, 23, 0, 0, 0);
    EXPECT_TRUE(testsupport::PumpUntil([&] { return changes == 1; }));
}

TEST_F(TodayWatchTest, AClockThatThrowsLeavesNothingBehind)
{
    SetCalendarClock([]() -> COleDateTime { throw 1; });
    EXPECT_ANY_THROW(watch->Start());
    EXPECT_EQ(nullptr, Window());
    SetCalendarClock([] { return g_now; });
    watch->Start();
    TimeIsSet(COleDateTime(2026, 11, 25, 0, 0, 0));
    EXPECT_EQ(1, changes);
}

TEST_F(TodayWatchTest, AWatchMayEndItselfAndOthers)
{
    int other = 0;
    TodayWatch second([&] { ++other; });
    watch = std::make_unique<TodayWatch>([&] {
        ++changes;
        second.Stop();
        watch.reset();
    });
    watch->Start();
    second.Start();
    TimeIsSet(COleDateTime(2026, 11, 25, 0, 0, 0));
    EXPECT_EQ(1, changes);
    EXPECT_EQ(0, other);
    EXPECT_EQ(nullptr, Window());
}
