// What keys make of the times of items.
#include "core/DateMath.h"
#include "core/KeyMoves.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace dayvane;

namespace {

COleDateTime At(int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return COleDateTime(2026, month, day, hour, minute, second);
}

std::string Text(const ItemTimes& times)
{
    return (times.start.Format("%m-%d %H:%M..") + times.end.Format("%m-%d %H:%M:%S")).GetString();
}

// What a month's step takes to the last day of February.
ItemTimes ToFebruary(int year)
{
    return {COleDateTime(year, 1, 31, 10, 0, 0), COleDateTime(year, 1, 31, 11, 0, 0), 0};
}

constexpr KeyStep kRow = {KeyStep::MINUTES, 30};
constexpr KeyStep kRowUp = {KeyStep::MINUTES, -30};
constexpr KeyStep kDay = {KeyStep::DAYS, 1};
constexpr KeyStep kDayBack = {KeyStep::DAYS, -1};
constexpr KeyStep kMonth = {KeyStep::MONTHS, 1};

} // namespace

TEST(KeyMoves, MovesAndEndsOfItems)
{
    const ItemTimes meeting = {At(3, 31, 10), At(3, 31, 11), 0};
    const ItemTimes late = {At(3, 31, 23), At(3, 31, 23, 59, 59), 0};
    const ItemTimes days = {At(3, 30), At(3, 31, 23, 59, 59), 1};
    const struct
    {
        const char* what;
        ItemTimes from;
        KeyStep step;
        KeyEdge edge;
        const char* to; // "" it stays
    } table[] = {
        {"a row", meeting, kRow, KeyEdge::Whole, "03-31 10:30..03-31 11:30:00"},
        {"a day, over the month", meeting, kDay, KeyEdge::Whole, "04-01 10:00..04-01 11:00:00"},
        {"a month, cut to its days", meeting, kMonth, KeyEdge::Whole, "04-30 10:00..04-30 11:00:00"},
        {"to a leap day", ToFebruary(2028), kMonth, KeyEdge::Whole, "02-29 10:00..02-29 11:00:00"},
        {"of a hundredth year", ToFebruary(2000), kMonth, KeyEdge::Whole, "02-29 10:00..02-29 11:00:00"},
        {"which others have not", ToFebruary(2100), kMonth, KeyEdge::Whole, "02-28 10:00..02-28 11:00:00"},
        {"nor a common year", ToFebruary(2026), kMonth, KeyEdge::Whole, "02-28 10:00..02-28 11:00:00"},
        {"over midnight", late, kRow, KeyEdge::Whole, "03-31 23:30..04-01 00:29:59"},
        {"longer", meeting, kRow, KeyEdge::End, "03-31 10:00..03-31 11:30:00"},
        {"shorter", meeting, kRowUp, KeyEdge::End, "03-31 10:00..03-31 10:30:00"},
        {"not shorter than a row", {At(3, 31, 10), At(3, 31, 10, 30), 0}, kRowUp, KeyEdge::End, ""},
        {"the end of the day is midnight", late, kRowUp, KeyEdge::End, "03-31 23:00..03-31 23:30:00"},
        {"to the end of its day",
         {At(3, 31, 22), At(3, 31, 23, 40), 0},
         kRow,
         KeyEdge::End,
         "03-31 22:00..03-31 23:59:59"},
        {"and not beyond", late, kRow, KeyEdge::End, ""},
        {"a day longer", meeting, kDay, KeyEdge::End, "03-31 10:00..04-01 11:00:00"},
        {"no day shorter", meeting, kDayBack, KeyEdge::End, ""},
        {"earlier start", meeting, kRowUp, KeyEdge::Start, "03-31 09:30..03-31 11:00:00"},
        {"from the begin of its day",
         {At(3, 31, 0, 10), At(3, 31, 2), 0},
         kRowUp,
         KeyEdge::Start,
         "03-31 00:00..03-31 02:00:00"},
        {"no start after the end", meeting, kDay, KeyEdge::Start, ""},
        {"days shorter", days, kDayBack, KeyEdge::End, "03-30 00:00..03-30 23:59:59"},
        {"start a day later", days, kDay, KeyEdge::Start, "03-31 00:00..03-31 23:59:59"},
        {"no meaning", days, {}, KeyEdge::Whole, ""},
        {"beyond the years",
         {COleDateTime(9999, 12, 31, 1, 0, 0), COleDateTime(9999, 12, 31, 2, 0, 0), 0},
         kDay,
         KeyEdge::Whole,
         ""},
    };
    for (const auto& row : table) {
        ItemTimes to;
        const bool moved = MoveByKey(row.from, row.step, row.edge, 30, to);
        EXPECT_EQ(row.to, moved ? Text(to) : "") << row.what;
    }
}

// Forth and back over all items of a list, whatever pieces they have, comes by each item once in the order of starts.
TEST(KeyMoves, TabGoesThroughTheItemsInTimeAndBack)
{
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        ItemArray items;
        std::vector<int> order;
        COleDateTime start = At(3, 1);
        for (int i = 0, count = static_cast<int>(random() % 8); i < count; ++i) {
            tagCALENDAR_ITEM item;
            start = AddMinutes(start, static_cast<int>(random() % 3) * 30);
            item.dtStart = start;
            item.nSource = random() % 3 == 0 && !order.empty() ? order.back() : 10 + i;
            item.bNoFocus = random() % 6 == 0;
            if (!item.bNoFocus && (order.empty() || order.back() != item.nSource)) {
                order.push_back(static_cast<int>(item.nSource));
            }
            items.Add(item);
        }
        const auto walk = [&](bool back) {
            std::vector<int> seen;
            const COleDateTime from = back ? At(4, 1) : At(2, 1);
            for (int at = StepInTime(items, -1, from, back); at != -1 && seen.size() < 20;
                 at = StepInTime(items, seen.back(), from, back)) {
                seen.push_back(static_cast<int>(items[at].nSource));
            }
            return seen;
        };
        EXPECT_EQ(order, walk(false)) << round;
        EXPECT_EQ(std::vector<int>(order.rbegin(), order.rend()), walk(true)) << round;
    }
}

TEST(KeyMoves, TabBeginsAtTheSelection)
{
    ItemArray items;
    for (int i = 0; i < 4; ++i) {
        tagCALENDAR_ITEM item;
        item.dtStart = At(3, 1 + i);
        item.nSource = i;
        items.Add(item);
    }
    EXPECT_EQ(2, StepInTime(items, -1, At(3, 3), false));
    EXPECT_EQ(1, StepInTime(items, -1, At(3, 3), true));
    EXPECT_EQ(-1, StepInTime(items, -1, At(3, 9), false));
    EXPECT_EQ(-1, StepInTime(items, -1, At(3, 1), true));
}
