// What is said of the parts of a view, in both languages.
#include "access/ViewSpeech.h"
#include "core/DateMath.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {

const COleDateTime kFriday(2026, 11, 20, 0, 0, 0);

tagCALENDAR_ITEM Item(const COleDateTime& start, const COleDateTime& end, const char* text, int fullday = 0)
{
    tagCALENDAR_ITEM item;
    item.dtStart = start;
    item.dtEnd = end;
    item.strText = text;
    item.nFullday = fullday;
    return item;
}

COleDateTime At(int day, int hour, int minute = 0)
{
    return COleDateTime(2026, 11, day, hour, minute, 0);
}

// A day of a month view with some items, the last two without room.
struct Scene
{
    explicit Scene(const AccessTexts& texts) : texts(texts)
    {
        parts.client = CRect(0, 0, 700, 600);
        parts.titleDate = kFriday;
        parts.cells.resize(2);
        for (int i = 0; i < 2; ++i) {
            parts.cells[i].box = CRect(i * 100, 0, i * 100 + 100, 100);
            parts.cells[i].first = AddDays(kFriday, i);
            parts.cells[i].last = EndOfDay(parts.cells[i].first);
        }
        parts.columns = 2;
        items.Add(Item(At(19, 10), At(20, 11, 30), "Weekly meeting"));
        items[0].bRecurrent = items[0].bAlarm = TRUE;
        items.Add(Item(At(20, 9), At(20, 9), ""));
        items.Add(Item(At(20, 0), At(30, 0), "Conference", 1));
        items.Add(Item(At(20, 14), At(20, 15), "Call"));
        items.Add(Item(At(20, 14), At(20, 15), "Call"));
        items[4].bMovable = items[3].bMovable = FALSE;
        for (int i = 0; i < 5; ++i) {
            const int top = 20 + 10 * i;
            parts.pieces.push_back(
                {i, i < 3 ? CRect(0, top, 100, top + 8) : CRect(0, 0, 0, 0), items[i].dtStart, items[i].dtEnd});
        }
        parts.marks.push_back({0, CRect(80, 92, 100, 100)});
    }

    std::string Name(AccessPart part, int index = 0)
    {
        const AccessTree tree = MakeViewTree(parts);
        ItemNames names;
        const ViewSpeech speech{texts,
                                parts,
                                tree,
                                items,
                                names,
                                AddMinutes(kFriday, 600),
                                [](const CString& text) { return std::string(text.GetString()); },
                                [](const COleDateTime&) { return std::string("a holiday"); },
                                "said"};
        const bool isPlain = part == AccessPart::Root || part == AccessPart::Title;
        const int node = tree.Find({part, isPlain ? 0 : DayNumberOf(kFriday), index});
        moved = speech.Moved(At(24, 14), At(24, 15), false, true);
        stretched = speech.Moved(At(24, 14), At(24, 15, 30), false, false);
        return node == kNoNode ? "nothing" : speech.NameOf(node);
    }

    const AccessTexts& texts;
    ViewParts parts;
    ItemArray items;
    std::string moved;
    std::string stretched;
};

} // namespace

TEST(Speech, English)
{
    Scene scene(EnglishAccessTexts());
    EXPECT_EQ("Month calendar, November 2026", scene.Name(AccessPart::Root));
    EXPECT_EQ("Friday 20 November 2026, today, 5 items", scene.Name(AccessPart::Cell));
    EXPECT_EQ("10:00 to 11:30 Weekly meeting, repeats, reminder, starts on Thursday", scene.Name(AccessPart::Item, 0));
    EXPECT_EQ("9:00 no title", scene.Name(AccessPart::Item, 1));
    EXPECT_EQ("All day Conference, ends on Monday 30 November", scene.Name(AccessPart::Item, 2));
    EXPECT_EQ("Thursday 19 November 10:00 to 11:30 Weekly meeting, repeats, reminder, ends on Friday",
              SpokenItem(EnglishAccessTexts(), scene.items[0], "Weekly meeting", At(1, 0), At(30, 23), true))
        << "in the cell of a month";
    EXPECT_EQ("14:00 to 15:00 Call, cannot be moved", scene.Name(AccessPart::Item, 3));
    EXPECT_EQ("14:00 to 15:00 Call, cannot be moved, number 2", scene.Name(AccessPart::Item, 4));
    EXPECT_EQ("2 more items", scene.Name(AccessPart::Mark));
    EXPECT_EQ("Moved to Tuesday 24 November, 14:00", scene.moved);
    EXPECT_EQ("From Tuesday 24 November, 14:00 to Tuesday 24 November, 15:30", scene.stretched);
}

TEST(Speech, Japanese)
{
    Scene scene(JapaneseAccessTexts());
    EXPECT_EQ(u8"月間予定表、2026年11月", scene.Name(AccessPart::Root));
    EXPECT_EQ(u8"2026年11月20日 金曜日、今日、予定5件", scene.Name(AccessPart::Cell));
    EXPECT_EQ(u8"10:00から11:30 Weekly meeting、繰り返し、通知あり、木曜日から", scene.Name(AccessPart::Item, 0));
    EXPECT_EQ(u8"終日 Conference、11月30日 月曜日まで", scene.Name(AccessPart::Item, 2));
    EXPECT_EQ(u8"ほか2件", scene.Name(AccessPart::Mark));
    EXPECT_EQ(u8"11月24日 火曜日 14:00へ移動しました", scene.moved);
}

TEST(Speech, GoesWithTheWordsOfTheControl)
{
    EXPECT_EQ("today", AccessTextsFor(CalendarTexts::Required(), false).today);
    EXPECT_EQ(u8"今日", AccessTextsFor(CalendarTexts::Required(), true).today);
    EXPECT_EQ(u8"今日", AccessTextsFor(CalendarTexts::Japanese(), false).today);
    CalendarTexts words = CalendarTexts::English();
    words.weekdays[5] = u"Freitag";
    const AccessTexts texts = AccessTextsFor(words, true);
    EXPECT_EQ("Freitag 20 November 2026", SpokenDate(texts, kFriday));
}

TEST(Speech, PatternsFillInWhatTheyName)
{
    EXPECT_EQ("b a {3} {x}", FillIn("{2} {1} {3} {x}", {"a", "b"}));
    EXPECT_EQ("a, c", Joined({"", "a", "", "c"}, ", "));
}
