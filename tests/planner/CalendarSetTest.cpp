// Several calendars as one: what is shown, where edits go, in which order they are undone, and how a workspace keeps
// it.
#include "planner/CalendarSet.h"
#include "planner/ItemBridge.h"
#include "planner/Workspace.h"
#include "tests/ical/CalendarTesting.h"

#include <gtest/gtest.h>

namespace planner {
namespace {

std::string OneEvent(const std::string& uid, const std::string& day, const std::string& more)
{
    return Joined({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "UID:" + uid, "DTSTART:" + day + "T090000",
                   "DTEND:" + day + "T100000", more, "END:VEVENT", "END:VCALENDAR"});
}

class CalendarSetTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_team.Load(OneEvent("a", "20261124", "CATEGORIES:Work"));
        m_home.Load(OneEvent("a", "20261123", "CATEGORIES:Sport,Club"));
        m_plain.Load(OneEvent("a", "20261124", "SUMMARY:Plain"));
        m_set.Add(m_team, "team.ics");
        m_set.Add(m_home, "home.ics");
        m_set.Add(m_plain, "plain.ics");
    }
    std::vector<Occurrence> Items() const { return m_set.OccurrencesIn(At("20261101"), At("20261201")); }

    Document m_team, m_home, m_plain;
    CalendarSet m_set;
};

TEST_F(CalendarSetTest, EachItemKnowsItsCalendarAndTicksHide)
{
    const auto items = Items();
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(m_set.MemberOf(items[0].id)->name, "home.ics") << "by start over all calendars";
    EXPECT_EQ(m_set.MemberOf(items[1].id)->name, "team.ics");
    EXPECT_NE(m_set.ColorOf(items[0].id), m_set.ColorOf(items[1].id));
    EXPECT_EQ(m_set.Find(items[2].id)->event->summary, "Plain");
    m_set.Show(0, false);
    EXPECT_EQ(Items().size(), 2u);
    EXPECT_EQ(m_set.AllOccurrencesIn(At("20261101"), At("20261201")).size(), 3u) << "reminders come all the same";
    EXPECT_TRUE(m_set.IsFiltered());
    m_set.Remove(1);
    EXPECT_EQ(m_set.MemberOf(items[2].id)->name, "plain.ics") << "names of items outlive other calendars";
    EXPECT_FALSE(m_set.Find(items[0].id));
    EXPECT_EQ(m_set.Move(items[0].id, items[0].times).problem, "This item is no longer in the calendar.");
}

TEST_F(CalendarSetTest, TwoAreAlreadySeveral)
{
    CalendarSet two;
    two.Add(m_team, "team.ics");
    two.Add(m_home, "home.ics");
    const auto items = two.OccurrencesIn(At("20261101"), At("20261201"));
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(two.MemberOf(items[0].id)->name, "home.ics") << "by start";
    EXPECT_NE(two.ColorOf(items[0].id), two.ColorOf(items[1].id));
}

TEST_F(CalendarSetTest, CategoriesHideWhatHasNoOtherOne)
{
    EXPECT_EQ(m_set.CategoriesIn(At("20261101"), At("20261201")), (std::set<std::string>{"Club", "Sport", "Work"}));
    m_set.HideCategories({"Sport"});
    EXPECT_EQ(Items().size(), 3u) << "it is of the club, too";
    m_set.HideCategories({"Sport", "Club", ""});
    ASSERT_EQ(Items().size(), 1u);
    EXPECT_EQ(Items()[0].event->categories, std::vector<std::string>{"Work"});
}

TEST_F(CalendarSetTest, EditsAreUndoneInTheOrderInWhichTheyWereMade)
{
    const std::string team = m_team.Save(), home = m_home.Save(), plain = m_plain.Save();
    const auto items = Items();
    m_set.SetTarget(2);
    EXPECT_TRUE(m_set.SetText(items[1].id, TextField::Summary, "Team", Scope::ThisOccurrence).isDone);
    EXPECT_TRUE(m_set.SetText(items[0].id, TextField::Summary, "Home", Scope::ThisOccurrence).isDone);
    EXPECT_TRUE(m_set.SetText(items[1].id, TextField::Summary, "Team 2", Scope::ThisOccurrence).isDone);
    const EditResult created = m_set.Create({At("20261125"), At("20261126"), true}, "New");
    EXPECT_EQ(m_set.MemberOf(created.id)->name, "plain.ics") << "where new items go";
    EXPECT_NE(m_plain.Save(), plain);
    m_set.Undo();
    EXPECT_EQ(m_plain.Save(), plain);
    EXPECT_EQ(m_set.Undo().id, items[1].id);
    EXPECT_NE(m_team.Save().find("SUMMARY:Team"), std::string::npos);
    m_set.Undo();
    EXPECT_EQ(m_home.Save(), home);
    EXPECT_EQ(m_set.Redo().id, items[0].id);
    EXPECT_EQ(m_set.Undo().id, items[0].id) << "what was done last";
    m_set.Undo();
    EXPECT_EQ(m_team.Save(), team);
    EXPECT_FALSE(m_set.CanUndo() || m_set.IsModified());
    m_set.SetText(items[0].id, TextField::Summary, "Other", Scope::ThisOccurrence);
    EXPECT_FALSE(m_set.CanRedo()) << "what was taken back before a new change is gone";
    m_set.Remove(1);
    EXPECT_FALSE(m_set.CanUndo() || m_set.Undo().isDone) << "nor are changes of a calendar that left";
    const EditResult later = m_set.Create({At("20261127"), At("20261128"), true}, "Later");
    EXPECT_EQ(m_set.MemberOf(later.id)->name, "plain.ics") << "it has another place now";
}

TEST_F(CalendarSetTest, OneFileIsMadeOfItemsOfSeveral)
{
    std::vector<OccurrenceId> ids;
    for (const Occurrence& each : Items()) {
        ids.push_back(each.id);
    }
    Document excerpt;
    excerpt.Load(m_set.Excerpt({ids[0]}, ExcerptForm::WholeEvents));
    EXPECT_EQ(excerpt.EventCount(), 1u);
    m_home.Load(OneEvent("b", "20261123", "SUMMARY:Other"));
    excerpt.Load(m_set.Excerpt(ids, ExcerptForm::WholeEvents));
    EXPECT_EQ(excerpt.EventCount(), 2u) << "of one UID once";
}

TEST_F(CalendarSetTest, AllAreShownOnOneClock)
{
    m_team.Load(Joined({"BEGIN:VCALENDAR", "X-WR-TIMEZONE:Asia/Tokyo", "END:VCALENDAR"}));
    m_home.Load(Joined({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "UID:a", "DTSTART;TZID=Europe/Berlin:20261124T090000",
                        "DURATION:PT1H", "END:VEVENT", "END:VCALENDAR"}));
    m_home.ShowOn(m_set.DisplayZone());
    m_set.Remove(2);
    ASSERT_EQ(Shown(Items()), "20261124T1700/20261124T1800");
    m_set.Move(Items()[0].id, {At("20261124T1800"), At("20261124T1900"), false});
    EXPECT_NE(m_home.Save().find("DTSTART;TZID=Europe/Berlin:20261124T100000"), std::string::npos) << m_home.Save();
}

TEST(WorkspaceTest, KeepsFilesColoursTicksAndTheFilter)
{
    Workspace workspace;
    workspace.calendars = {{"C:\\cal\\team.ics", 3, true},
                           {"C:\\cal\\sub\\\xE5\x85\xAC.ics", CalendarSet::kByCategory, false},
                           {"D:\\other.ics", 0, true}};
    workspace.target = 2;
    workspace.hiddenCategories = {"", "Work"};
    const std::string text = WorkspaceText(workspace, "C:\\cal\\", "; mine\r\n[Other]\r\nkey=1\r\n");
    EXPECT_NE(text.find("; mine"), std::string::npos);
    EXPECT_NE(text.find("[Calendar 1]\r\nfile=team.ics\r\ncolor=3\r\nshown=1\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("file=sub\\\xE5\x85\xAC.ics"), std::string::npos) << text;
    const Workspace read = ParseWorkspace(text, "E:\\moved\\");
    ASSERT_EQ(read.calendars.size(), 3u);
    EXPECT_EQ(read.calendars[0].file, "E:\\moved\\team.ics");
    EXPECT_EQ(read.calendars[1].color, CalendarSet::kByCategory);
    EXPECT_FALSE(read.calendars[1].isShown);
    EXPECT_EQ(read.calendars[2].file, "D:\\other.ics");
    EXPECT_EQ(read.target, 2u);
    EXPECT_EQ(read.hiddenCategories, workspace.hiddenCategories);
    workspace.calendars.resize(1);
    EXPECT_EQ(ParseWorkspace(WorkspaceText(workspace, "C:\\cal\\", text), "").calendars.size(), 1u);
    EXPECT_TRUE(ParseWorkspace("BEGIN:VCALENDAR", "").calendars.empty());

    const Workspace least = ParseWorkspace("[Calendar 1]\nfile=a.ics\n[Calendar 2]\nfile=/b.ics\n", "D:\\");
    ASSERT_EQ(least.calendars.size(), 2u);
    EXPECT_EQ(least.calendars[0].file, "D:\\a.ics");
    EXPECT_EQ(least.calendars[1].file, "/b.ics");
    EXPECT_EQ(least.calendars[1].color, CalendarSet::kByCategory);
    EXPECT_TRUE(least.calendars[1].isShown && least.hiddenCategories.empty());
    EXPECT_EQ(least.target, 0u);
    EXPECT_EQ(ParseWorkspace("[Workspace]\nnewItems=3\n[Calendar 1]\nfile=a\n[Calendar 2]\nfile=b\n", "").target, 0u);
}

} // namespace
} // namespace planner
