#include "core/ItemStore.h"

#include "core/DateMath.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <tuple>

using namespace dayvane;

namespace {

COleDateTime Invalid()
{
    COleDateTime date;
    date.SetStatus(COleDateTime::invalid);
    return date;
}

tagCC_ITEM Item(const char* text, const COleDateTime& start, const COleDateTime& end)
{
    tagCC_ITEM item;
    item.strText = text;
    item.dtStart = start;
    item.dtEnd = end;
    return item;
}

COleDateTime March(int day, int hour = 0, int minute = 0, int second = 0)
{
    return COleDateTime(2010, 3, day, hour, minute, second);
}

// The rule as it is stated: exchange every pair that is out of order.
void ExchangeSort(ItemArray& items)
{
    for (int i = 0; i + 1 < items.GetSize(); ++i) {
        for (int j = i + 1; j < items.GetSize(); ++j) {
            if (items[i].dtStart > items[j].dtStart) {
                std::swap(items[i], items[j]);
            }
        }
    }
}

TEST(ItemStore, IndexRules)
{
    ItemArray items;
    StoreAdd(items, Item("a", March(1), March(1)));
    StoreAdd(items, Item("b", March(2), March(2)));
    // 'x': the call throws.
    const auto answer = [](auto call) {
        try {
            return static_cast<char>('0' + call());
        } catch (CInvalidArgException* error) {
            error->Delete();
            return 'x';
        }
    };
    const tagCC_ITEM item = Item("s", March(3), March(3));
    tagCC_ITEM out;
    std::string set, get, remove;
    for (int index : {-1, 1, 2, 3}) {
        set += answer([&] { return StoreSet(items, index, item); });
        get += answer([&] { return StoreGet(items, index, out); });
    }
    EXPECT_EQ(set, "x1x0");
    EXPECT_EQ(get, "x1x0");
    EXPECT_STREQ(out.strText, "s");
    for (int index : {-1, 2, 3, 1}) {
        remove += answer([&] { return StoreDelete(items, index); });
    }
    EXPECT_EQ(remove, "xx01");
    ASSERT_EQ(items.GetSize(), 1);
    EXPECT_STREQ(items[0].strText, "a");
    EXPECT_EQ(answer([&] { return StoreInsert(items, -1, item); }), 'x');
}

// Every field, in the order of the record, separated.
auto FieldsOfItem(const tagCC_ITEM& item)
{
    return std::make_tuple(item.nReserved, item.nImage, item.dtStart.m_dt, item.dtEnd.m_dt, item.nFullday,
                           std::string(item.strText), item.crColor1, item.crColor2, item.crColor3, item.crColor4,
                           item.lParam, item.crColor5, item.bAlarm, item.bRecurrent, item.bMovable);
}

TEST(ItemStore, InsertFillsTheGapWithDefaultsAndShiftsNothing)
{
    ItemArray items;
    const tagCC_ITEM item = Item("far", March(1), March(2));
    StoreInsert(items, 5, item);
    ASSERT_EQ(items.GetSize(), 6);
    const tagCC_ITEM blank{0, -1, 0.0, 0.0, 0, "", 0, 0xFFFFFF, 0xCCCCCC, 0xCF9365, 0, 0, 0, 0, 1};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(FieldsOfItem(PublicItem(items[i])), FieldsOfItem(blank)) << i;
        EXPECT_TRUE(items[i].bStored);
    }
    StoreInsert(items, 4, item);
    ASSERT_EQ(items.GetSize(), 6);
    EXPECT_STREQ(items[4].strText, "far");
}

TEST(ItemStore, PublicItemIsTheReverseOfStoring)
{
    const tagCC_ITEM item{3, 4, March(1, 9), March(2, 10), 5, "text", 11, 12, 13, 14, -6, 15, 7, 8, 9};
    tagCALENDAR_ITEM stored;
    stored.nPiece = PIECE_TAIL;
    stored.bNoFocus = TRUE;
    stored.rcItem = CRect(1, 2, 3, 4);
    FillStored(stored, item);
    EXPECT_EQ(stored.nPiece, PIECE_WHOLE);
    EXPECT_FALSE(stored.bNoFocus);
    EXPECT_EQ(stored.rcItem, CRect(1, 2, 3, 4)) << "the rectangle belongs to the layout";
    EXPECT_EQ(FieldsOfItem(PublicItem(stored)), FieldsOfItem(item));
}

TEST(ItemStore, SortEqualsTheExchangeSort)
{
    std::mt19937 random(7);
    for (int round = 0; round < 400; ++round) {
        ItemArray items, expected;
        const int count = static_cast<int>(random() % 12);
        const bool distinct = round % 2 == 0;
        for (int i = 0; i < count; ++i) {
            const int minute = distinct ? i * 37 % 53 : static_cast<int>(random() % 5);
            COleDateTime start = random() % 4 == 0 ? Invalid() : March(1, 0, minute);
            tagCALENDAR_ITEM stored;
            FillStored(stored, Item("", start, start));
            stored.lParam = i;
            items.Add(stored);
            expected.Add(stored);
        }
        SortByStart(items);
        ExchangeSort(expected);
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(items[i].dtStart.GetStatus() == expected[i].dtStart.GetStatus() &&
                        items[i].dtStart.m_dt == expected[i].dtStart.m_dt);
            if (distinct || items[i].dtStart.GetStatus() != COleDateTime::valid) {
                ASSERT_EQ(items[i].lParam, expected[i].lParam);
            } else if (i > 0 && items[i - 1].dtStart == items[i].dtStart) {
                ASSERT_LT(items[i - 1].lParam, items[i].lParam) << "equal starts keep their order";
            }
        }
    }
}

TEST(ItemStore, FulldayRule)
{
    const COleDateTime newYearsEve(2010, 12, 31, 9, 0, 0);
    const struct
    {
        const char* what;
        COleDateTime start, end;
        int fullday, piece;
        BOOL expected;
    } rows[] = {
        {"timed", March(1, 9), March(1, 10), 0, PIECE_WHOLE, FALSE},
        {"marked", March(1, 9), March(1, 10), 1, PIECE_WHOLE, TRUE},
        {"another non-zero mark", March(1, 9), March(1, 10), 2, PIECE_WHOLE, FALSE},
        {"three days of one month", March(10), March(12), 0, PIECE_WHOLE, FALSE},
        {"over New Year", newYearsEve, COleDateTime(2011, 1, 1, 9, 0, 0), 0, PIECE_WHOLE, TRUE},
        {"same day a year on", newYearsEve, COleDateTime(2011, 12, 31, 9, 0, 0), 0, PIECE_WHOLE, FALSE},
        {"an invalid end differs in all three", March(1), Invalid(), 0, PIECE_WHOLE, TRUE},
        {"a piece", March(1, 9), March(1, 10), 0, PIECE_HEAD, TRUE},
    };
    for (const auto& row : rows) {
        tagCALENDAR_ITEM item;
        FillStored(item, Item("", row.start, row.end));
        item.nFullday = row.fullday;
        item.nPiece = row.piece;
        EXPECT_EQ(IsFulldayItem(item), row.expected) << row.what;
    }
}

TEST(ItemStore, ScreenItemsOfOneDay)
{
    ItemArray items;
    StoreAdd(items, Item("long", March(10, 9), March(12, 10)));
    StoreAdd(items, Item("no end", March(11), Invalid()));
    StoreAdd(items, Item("short, another day", March(20, 9), March(20, 10)));
    const struct
    {
        int day;
        COleDateTime start, end;
        int piece;
    } rows[] = {
        {10, March(10, 9), March(10, 23, 59, 59), PIECE_HEAD},
        {11, March(11), March(11, 23, 59, 59), PIECE_MIDDLE},
        {12, March(12), March(12, 10), PIECE_TAIL},
        {25, March(25), March(25, 23, 59, 59), PIECE_MIDDLE}, // the day need not lie in the item
    };
    for (const auto& row : rows) {
        ItemArray screen;
        MakeDayScreenItems(items, March(row.day, 15), screen);
        ASSERT_EQ(screen.GetSize(), 2);
        EXPECT_TRUE(screen[0].dtStart == row.start && screen[0].dtEnd == row.end) << row.day;
        EXPECT_EQ(screen[0].nPiece, row.piece) << row.day;
        EXPECT_EQ(screen[1].nSource, 2);
        EXPECT_EQ(screen[1].nPiece, PIECE_WHOLE);
    }
    ItemArray screen;
    MakeDayScreenItems(items, Invalid(), screen);
    EXPECT_EQ(screen[0].nPiece, PIECE_MIDDLE);
    EXPECT_NE(screen[0].dtStart.GetStatus(), COleDateTime::valid);
}

TEST(ItemStore, FocusWalksForwardOnceAndPassesOverHidden)
{
    ItemArray sorted;
    sorted.SetSize(5);
    for (int i = 0; i < 5; ++i) {
        sorted[i].nSource = std::array{4, 4, 1, 3, 0}[i];
    }
    sorted[2].bNoFocus = TRUE;
    EXPECT_EQ(NextFocusPosition(sorted, -1), 0);
    EXPECT_EQ(NextFocusPosition(sorted, 4), 3) << "past its own second piece and the hidden one";
    EXPECT_EQ(NextFocusPosition(sorted, 0), 0) << "after the last position the walk begins at the first";
    sorted[4].bNoFocus = TRUE;
    EXPECT_EQ(NextFocusPosition(sorted, 3), -1) << "but it does not go round";
    EXPECT_EQ(NextFocusPosition(ItemArray(), 2), -1);
    const struct
    {
        int current;
        bool back;
        int position;
    } neighbours[] = {{4, false, 3}, {3, true, 0}, {3, false, -1}, {4, true, -1}, {-1, true, 3}, {-1, false, 0}};
    for (const auto& row : neighbours) {
        EXPECT_EQ(FocusNeighbour(sorted, row.current, row.back), row.position) << row.current << " " << row.back;
    }
}

} // namespace
