// A remembered layout of timed items: after each change of few of them the boxes, flags and marks are those of a whole
// layout, and whatever has moved is reported with its old place.
#include "timegrid/GridItems.h"
#include "timegrid/RandomItems.h"
#include "views/timegrid/TimeBoard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

using namespace dayvane;
using namespace gridtest;

namespace {

std::string TextOf(const std::vector<MoreMark>& marks)
{
    std::ostringstream text;
    for (const MoreMark& mark : marks) {
        text << mark.column << mark.box << ':';
        for (const int item : mark.items) {
            text << item << ' ';
        }
    }
    return text.str();
}

CalendarOptions OptionsOf(const TimedPlaces& places)
{
    CalendarOptions options;
    options.visibleShortItems = places.visibleShortItems;
    options.tidyColumns = places.tidyColumns;
    return options;
}

struct Counts
{
    int again = 0;
    int whole = 0;
};

// One random store, changed item by item.
void Compare(unsigned seed, Counts& counts)
{
    RandomItems random(seed);
    const DayRange range{kDay, random.Below(3) ? 7 : 1};
    TimedPlaces places = {{}, range, TimeScale{1 + random.Below(4)}, seed % 2 == 0, seed % 3 == 0};
    for (int i = 0; i < range.days; ++i) {
        places.columns.emplace_back(61 + i * 90, 40, 61 + (i + 1) * 90, 500);
    }
    ItemArray store;
    random.Fill(store, 120, kDay, range.days);
    ItemArray items;
    MakeRangeItems(store, range, items);
    TimeBoard board;
    board.LayOut(items, places);
    for (int step = 0; step < 15 && !store.IsEmpty(); ++step) {
        ItemArray other;
        while (other.IsEmpty()) {
            random.Fill(other, 1, kDay, range.days);
        }
        const int source = random.Below(static_cast<int>(store.GetSize()));
        store[source] = other[0];
        ItemArray whole;
        MakeRangeItems(store, range, whole);
        const std::string marks =
            TextOf(PlaceTimedItems(whole, places.columns, range, places.scale, OptionsOf(places)));
        std::vector<CRect> before;
        for (INT_PTR i = 0; i < items.GetSize(); ++i) {
            before.push_back(items[i].rcItem);
        }
        std::vector<PieceMove> moved;
        const int position = RemakeTimedItem(store, source, range, items);
        if (position != -1 && board.Knows(places, static_cast<int>(items.GetSize())) &&
            board.LayOutAgain({position}, items, moved)) {
            ++counts.again;
        } else {
            ++counts.whole;
            MakeRangeItems(store, range, items);
            board.LayOut(items, places);
            before.clear();
        }
        ASSERT_EQ(items.GetSize(), whole.GetSize());
        for (int i = 0; i < static_cast<int>(whole.GetSize()); ++i) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << " step " << step << " item " << i);
            ASSERT_EQ(items[i].rcItem, whole[i].rcItem);
            ASSERT_EQ(items[i].bNoFocus, whole[i].bNoFocus);
            ASSERT_EQ(items[i].nParallel, whole[i].nParallel);
            ASSERT_EQ(items[i].dtStart, whole[i].dtStart);
            const auto reported =
                std::find_if(moved.begin(), moved.end(), [i](const PieceMove& piece) { return piece.position == i; });
            ASSERT_TRUE(before.empty() || before[i] == (reported != moved.end() ? reported->box : whole[i].rcItem));
        }
        ASSERT_EQ(TextOf(board.Marks()), marks);
    }
}

} // namespace

TEST(TimeBoard, ChangedColumnsComeOutAsInAWholeLayout)
{
    Counts counts;
    for (unsigned seed = 1; seed <= 100 && !HasFatalFailure(); ++seed) {
        Compare(seed, counts);
    }
    EXPECT_GT(counts.again, 300);
    EXPECT_GT(counts.whole, 30);
}
