#include "core/CalendarClock.h"

#include <gtest/gtest.h>

TEST(CalendarClock, CountsToMidnight)
{
    EXPECT_EQ(86'400'000, dayvane::MillisecondsToMidnight(COleDateTime(2026, 11, 22, 0, 0, 0)));
    EXPECT_EQ(1000, dayvane::MillisecondsToMidnight(COleDateTime(2026, 11, 22, 23, 59, 59)));
    EXPECT_EQ(43'200'000, dayvane::MillisecondsToMidnight(COleDateTime(1890, 1, 1, 12, 0, 0)));
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    EXPECT_EQ(86'400'000, dayvane::MillisecondsToMidnight(none));
}
