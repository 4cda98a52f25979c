// A control whose items come from a source: when it asks, when it takes the answer.
#include "PlainCalendar.h"

#include "core/ItemSource.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <thread>

using namespace coretest;
using namespace testsupport;

namespace {

class KeepingSource : public dayvane::ItemSource
{
public:
    void AskItems(const dayvane::ItemRequest& request) override
    {
        asked.push_back(request);
        if (onAsk) {
            onAsk();
        }
    }

    std::vector<dayvane::ItemRequest> asked;
    std::function<void()> onAsk;
};

tagCC_ITEM ItemAt(int hour, LPARAM data)
{
    tagCC_ITEM item;
    item.dtStart = At(hour);
    item.dtEnd = At(hour + 2);
    item.lParam = data;
    return item;
}

// What the items carry, in their order.
std::vector<LPARAM> DataOf(CCalendarCtrl& calendar)
{
    std::vector<LPARAM> data;
    for (int i = 0; i < calendar.GetItemCount(); ++i) {
        data.push_back(calendar.GetItemData(i));
    }
    return data;
}

using Data = std::vector<LPARAM>;

} // namespace

TEST(ItemSourceOfAControl, ItsAnswersReplaceTheItemsAndKeepTheCurrentOne)
{
    CalendarScene scene;
    KeepingSource source;
    scene.calendar->SetCurSel(1); // 71
    scene.calendar->SetItemSource(&source);
    EXPECT_TRUE(source.asked.empty()); // not in the middle of a call
    PumpMessages();
    ASSERT_EQ(source.asked.size(), 1u);
    EXPECT_TRUE(scene.calendar->IsLoadingItems());
    EXPECT_EQ(DataOf(*scene.calendar), (Data{70, 71})); // what there was stays until then
    std::thread([&] { source.asked[0].Answer({ItemAt(1, 90), ItemAt(4, 91), ItemAt(8, 71)}); }).join();
    PumpMessages();
    EXPECT_FALSE(scene.calendar->IsLoadingItems());
    EXPECT_EQ(DataOf(*scene.calendar), (Data{90, 91, 71}));
    EXPECT_EQ(scene.calendar->GetScreenItems().GetSize(), 3);
    EXPECT_EQ(scene.calendar->GetCurSel(), 2);

    scene.calendar->Refresh();
    PumpMessages();
    EXPECT_EQ(source.asked.size(), 1u);
    scene.calendar->ReloadItems();
    PumpMessages();
    ASSERT_EQ(source.asked.size(), 2u);
    source.asked[1].Answer({ItemAt(1, 90)});
    PumpMessages();
    EXPECT_EQ(scene.calendar->GetCurSel(), -1);
    scene.calendar->SetCurrentDate(At(0) + COleDateTimeSpan(300.0));
    scene.calendar->Refresh();
    PumpMessages();
    EXPECT_EQ(source.asked.size(), 3u);
}

TEST(ItemSourceOfAControl, AnAnswerWaitsWhileAnItemIsHeld)
{
    CalendarScene scene;
    KeepingSource source;
    scene.calendar->SetItemSource(&source);
    PumpMessages();
    messages::LeftDown(scene.window, PointAt(3));
    source.asked[0].Answer({});
    PumpMessages();
    EXPECT_EQ(scene.calendar->GetItemCount(), 2);
    messages::LeftUp(scene.window, PointAt(3));
    PumpMessages();
    EXPECT_EQ(scene.calendar->GetItemCount(), 0);
}

TEST(ItemSourceOfAControl, MayEndTheControlOrItselfWhenAsked)
{
    for (int act = 0; act < 3; ++act) {
        CalendarScene scene;
        KeepingSource source;
        source.onAsk = [&] {
            if (act == 0) {
                delete std::exchange(scene.calendar, nullptr);
            } else if (act == 1) {
                scene.calendar->SetItemSource(nullptr);
            } else {
                scene.calendar->DestroyWindow();
            }
        };
        scene.calendar->SetItemSource(&source);
        PumpMessages();
        ASSERT_EQ(source.asked.size(), 1u);
        EXPECT_EQ(source.asked[0].Answer({}), act == 2); // a control without a window may get another one
        PumpMessages();
    }
}
