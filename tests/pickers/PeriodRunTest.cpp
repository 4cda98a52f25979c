#include "pickers/PeriodRun.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {
constexpr int kWidth = 94;
constexpr int kHeight = 140; // seven rows of 20 pixels
const int kMay2010 = 2010 * 12 + 4;

PeriodRun MakeRun(int period = kMay2010, const PeriodPolicy& policy = kMonthPolicy)
{
    return PeriodRun(policy, period, kWidth);
}

// Rows that the list runs in three seconds with the pointer held at y.
int RowsRun(int y)
{
    PeriodRun run = MakeRun();
    run.PointAt(CPoint(10, y));
    const int before = run.PeriodOfRow(0);
    for (int i = 0; i < 100; ++i) {
        run.Tick();
    }
    return run.PeriodOfRow(0) - before;
}
} // namespace

TEST(PeriodRunTest, OnlyTheRowUnderThePointerIsChosen)
{
    PeriodRun run = MakeRun();
    EXPECT_FALSE(run.HasChoice()) << "before the pointer is known";
    for (int y = -50; y < kHeight + 50; ++y) {
        for (int x : {-1, 0, 40, kWidth - 1, kWidth}) {
            run.PointAt(CPoint(x, y));
            const bool inside = x >= 0 && x < kWidth && y >= 0 && y < kHeight;
            ASSERT_EQ(inside, run.HasChoice()) << x << "," << y;
            ASSERT_EQ(inside ? kMay2010 - 3 + y / 20 : kMay2010, run.Chosen()) << x << "," << y;
            ASSERT_TRUE(!inside || run.RowRect(run.HotRow()).PtInRect(CPoint(x, y)));
        }
    }
}

TEST(PeriodRunTest, RunsFasterTheFartherAwayThePointerIs)
{
    EXPECT_EQ(0, RowsRun(0));
    EXPECT_EQ(0, RowsRun(kHeight - 1));
    int before = 0;
    for (int distance : {1, 10, 40, 90, 200}) {
        const int down = RowsRun(kHeight - 1 + distance);
        EXPECT_EQ(-down, RowsRun(-distance)) << "up as fast as down";
        EXPECT_GT(down, before) << distance;
        before = down;
    }
    EXPECT_EQ(before, RowsRun(5000)) << "with a limit";
    EXPECT_EQ(12, RowsRun(kHeight)) << "four rows a second just below the edge";
}

TEST(PeriodRunTest, WhatHasRunUnderThePointerCanBeChosen)
{
    PeriodRun run = MakeRun();
    run.PointAt(CPoint(10, kHeight + 20));
    for (int i = 0; i < 100 && run.PeriodOfRow(0) < kMay2010; ++i) {
        run.Tick();
    }
    EXPECT_FALSE(run.HasChoice()) << "released below the list, the old month stays";
    run.PointAt(CPoint(10, kHeight - 1));
    EXPECT_EQ(kMay2010 + 6, run.Chosen());
    EXPECT_FALSE(run.Tick()) << "the list stands while the pointer is in it";
}

TEST(PeriodRunTest, StopsAtTheEndsOfTheCalendar)
{
    for (const PeriodPolicy* policy : {&kMonthPolicy, &kYearPolicy}) {
        for (const bool up : {true, false}) {
            const int end = up ? policy->FirstPeriod() : policy->LastPeriod();
            PeriodRun run = MakeRun(up ? end + 20 : end - 20, *policy);
            run.PointAt(CPoint(10, up ? -500 : kHeight + 500));
            for (int i = 0; i < 200; ++i) {
                run.Tick();
            }
            EXPECT_FALSE(run.Tick());
            run.PointAt(CPoint(10, 70)); // where the given period stood
            EXPECT_EQ(end, run.Chosen());
            run.PointAt(CPoint(10, up ? 10 : kHeight - 10));
            EXPECT_FALSE(run.HasChoice()) << "an empty row chooses nothing";
        }
    }
}

TEST(PlacePeriodRunTest, TheGivenRowLiesOverTheTitleAndAllOnTheWorkArea)
{
    const CRect workArea(0, 0, 800, 600);
    for (int y = 0; y <= 580; ++y) {
        const PopupPlace place = PlacePeriodRun(CRect(200, y, 294, y + 20), workArea);
        ASSERT_EQ(142, place.window.Height());
        ASSERT_TRUE(place.window.top >= workArea.top && place.window.bottom <= workArea.bottom) << y;
        const int rowTop = place.window.top + 1 + place.rowsAbove * 20;
        ASSERT_LE(std::abs(rowTop - y), 1) << y << ": at the very edge by the frame's pixel";
        ASSERT_TRUE(place.rowsAbove >= 0 && place.rowsAbove < 7);
        ASSERT_TRUE(y < 61 || y > 519 || place.rowsAbove == 3) << y;
    }
    EXPECT_EQ(706, PlacePeriodRun(CRect(780, 100, 874, 120), workArea).window.left);
    EXPECT_EQ(0, PlacePeriodRun(CRect(-30, 100, 64, 120), workArea).window.left);
    EXPECT_EQ(-500, PlacePeriodRun(CRect(-700, 100, -606, 120), CRect(-500, 0, 0, 600)).window.left);
    EXPECT_EQ(0, PlacePeriodRun(CRect(0, 0, 94, 20), CRect(0, 0, 50, 50)).window.top);
}
