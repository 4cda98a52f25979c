// Sources that answer at once, late, twice, from other threads, wrongly and never.
#include "core/DateMath.h"
#include "core/ItemFeed.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

using namespace dayvane;

namespace {

constexpr int kDayShown = 42849; // 24 April 2017

std::vector<tagCC_ITEM> ItemsOn(std::initializer_list<int> days)
{
    std::vector<tagCC_ITEM> items;
    for (const int day : days) {
        tagCC_ITEM item;
        item.dtStart = DateOfDayNumber(day);
        item.dtEnd = EndOfDay(item.dtStart);
        item.lParam = day;
        items.push_back(item);
    }
    return items;
}

class KeepingSource : public ItemSource
{
public:
    void AskItems(const ItemRequest& request) override { asked.push_back(request); }
    void CancelItems(const ItemRequest& request) override { cancelled.push_back(request.Number()); }

    std::vector<ItemRequest> asked;
    std::vector<unsigned> cancelled;
};

struct Fed
{
    KeepingSource source;
    std::atomic<int> woken{0};
    std::unique_ptr<ItemFeed> feed = std::make_unique<ItemFeed>(source, [this] { ++woken; });

    std::vector<int> Take()
    {
        std::vector<tagCC_ITEM> items;
        std::vector<int> days;
        taken = feed->Take(items);
        for (const tagCC_ITEM& item : items) {
            days.push_back(static_cast<int>(item.lParam));
        }
        return days;
    }
    bool taken = false;
};

} // namespace

TEST(ItemFeed, AsksOnceForTheShownDaysWithAMargin)
{
    Fed fed;
    fed.feed->Show(kDayShown, kDayShown + 13);
    ASSERT_EQ(fed.source.asked.size(), 1u);
    EXPECT_EQ(DayNumberOf(fed.source.asked[0].First()), kDayShown - 14);
    EXPECT_EQ(DayNumberOf(fed.source.asked[0].Last()), kDayShown + 27);
    fed.feed->Show(kDayShown + 14, kDayShown + 27); // still within
    EXPECT_EQ(fed.source.asked.size(), 1u);
    EXPECT_TRUE(fed.feed->IsLoading());
    fed.feed->Show(kDayShown + 15, kDayShown + 28);
    EXPECT_EQ(fed.source.asked.size(), 2u);
    EXPECT_EQ(fed.source.cancelled, std::vector<unsigned>{1});
    fed.source.asked[1].Answer({});
    fed.feed->Show(kDayShown + 200, kDayShown + 200); // nothing waits: nothing to cancel
    EXPECT_EQ(fed.source.cancelled.size(), 1u);
    EXPECT_EQ(DayNumberOf(fed.source.asked[2].First()), kDayShown + 193);
    fed.feed->Show(kDayShown, kDayShown + 365); // of a year's neighbours only weeks
    EXPECT_EQ(DayNumberOf(fed.source.asked[3].Last()), kDayShown + 365 + 42);
    const int lastOfAll = DayNumberOf(COleDateTime(9999, 12, 31, 0, 0, 0));
    for (const int last : {lastOfAll, ItemFeed::kAfterDates}) { // once
        fed.feed->Show(lastOfAll - 3, last);
        EXPECT_EQ(DayNumberOf(fed.source.asked.back().First()), lastOfAll - 10);
        EXPECT_EQ(DayNumberOf(fed.source.asked.back().Last()), lastOfAll);
    }
    EXPECT_EQ(fed.source.asked.size(), 5u);
}

TEST(ItemFeed, OnlyTheFirstAnswerToTheLastQuestionCounts)
{
    Fed fed;
    fed.feed->Show(kDayShown, kDayShown);
    fed.feed->Show(kDayShown + 50, kDayShown + 50);
    EXPECT_FALSE(fed.source.asked[0].Answer(ItemsOn({kDayShown}))); // too late
    EXPECT_EQ(fed.woken, 0);
    fed.Take();
    EXPECT_FALSE(fed.taken);
    // Items of other days, or of no day, are no answer.
    std::vector<tagCC_ITEM> answer =
        ItemsOn({kDayShown + 50, kDayShown, kDayShown + 44, kDayShown + 57, kDayShown + 58});
    answer[0].dtEnd.SetStatus(COleDateTime::invalid);
    EXPECT_TRUE(fed.source.asked[1].Answer(answer));
    EXPECT_FALSE(fed.source.asked[1].Answer(ItemsOn({kDayShown + 51}))); // again
    EXPECT_EQ(fed.woken, 1);
    EXPECT_FALSE(fed.feed->IsLoading());
    EXPECT_EQ(fed.Take(), (std::vector<int>{kDayShown + 44, kDayShown + 57}));
    fed.Take();
    EXPECT_FALSE(fed.taken);
    fed.feed->AskAgain();
    fed.feed->Show(kDayShown + 50, kDayShown + 50);
    EXPECT_EQ(fed.source.asked.size(), 3u);
    fed.feed.reset();
    EXPECT_FALSE(fed.source.asked[2].Answer(ItemsOn({kDayShown + 50}))); // the control has gone
    EXPECT_FALSE(ItemRequest().Answer({}));
}

TEST(ItemFeed, ThreadsMayAnswerWhileTheFeedMovesOnAndEnds)
{
    for (int round = 0; round < 30; ++round) {
        Fed fed;
        std::vector<std::thread> threads;
        std::atomic<int> accepted{0};
        for (int i = 0; i < 4; ++i) {
            fed.feed->Show(kDayShown + 100 * i, kDayShown + 100 * i);
            const ItemRequest request = fed.source.asked.back();
            for (int n = 0; n < 2; ++n) {
                threads.emplace_back([request, &accepted] { accepted += request.Answer(ItemsOn({kDayShown})); });
            }
            fed.Take();
        }
        if (round % 2) {
            fed.feed.reset();
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_LE(accepted, 4);
        EXPECT_EQ(accepted, fed.woken);
    }
}
