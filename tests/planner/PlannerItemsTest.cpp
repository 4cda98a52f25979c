// What happens to items under the pointer and in the edit box, seen in the bytes of the file.
#include "PlannerTesting.h"

#include "views/timegrid/TimeGridCtrl.h"

namespace {

using namespace plannertesting;

class PlannerItems : public PlannerWindow
{
protected:
    std::string Summaries(const char* from, const char* to)
    {
        return planner::Shown(m_document->Calendar().OccurrencesIn(At(from), At(to)));
    }
    // Without the release, which would open the menu.
    void RightPress(CPoint point) { Ctrl().SendMessage(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(point.x, point.y)); }
    CRect EditBox() // in the control
    {
        CRect box;
        ::GetWindowRect(::GetFocus(), &box);
        Ctrl().ScreenToClient(&box);
        return box;
    }
};

TEST_F(PlannerItems, ARightPressSelectsWhatLiesUnderIt)
{
    messages::Click(Ctrl(), PointOf("Meeting"));
    RightPress(CellOf(8));
    EXPECT_FALSE(m_frame->Items().Current()) << "the menu's Delete must not delete an item elsewhere";
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_CLEAR);
    EXPECT_EQ(Bytes(), kFile);
    Key(VK_INSERT);
    TypeAndEnter("There");
    EXPECT_EQ(Summaries("20260401", "20260414"), "20260408/20260409*");

    messages::Drag(Ctrl(), CellOf(9), CellOf(10));
    RightPress(CellOf(10));
    COleDateTime begin, end;
    Ctrl().GetSelRange(begin, end);
    EXPECT_EQ(begin.GetDay(), 9) << "a press in the selected range leaves it";
    RightPress(PointOf("Trip"));
    ASSERT_TRUE(m_frame->Items().Current());
    EXPECT_EQ(m_frame->Items().Current()->event->summary, "Trip");
}

TEST_F(PlannerItems, ADropOutsideTakesTheMoveBackAndOneOnASmallDayMovesThere)
{
    CRect view;
    Ctrl().GetClientRect(&view);
    messages::Drag(Ctrl(), PointOf("Meeting"), CPoint(view.CenterPoint().x, view.bottom + 20)); // the status bar
    EXPECT_EQ(Bytes(), kFile);
    PointOf("Meeting");

    CSidePane& pane = static_cast<CSidePane&>(*m_frame->GetDlgItem(IDW_SIDE_PANE));
    CPoint day;
    for (int x = 0; x < 130; ++x) {
        for (int y = 0; y < 130; ++y) {
            CPeriodGridCell cell;
            if (pane.Calendar().HitTest(CPoint(x, y), cell) && cell.dtDate == COleDateTime(2026, 4, 29, 0, 0, 0)) {
                day = CPoint(x, y);
            }
        }
    }
    ASSERT_NE(day, CPoint(0, 0));
    pane.Calendar().ClientToScreen(&day);
    Ctrl().ScreenToClient(&day);
    messages::Drag(Ctrl(), PointOf("Trip"), day);
    EXPECT_EQ(Bytes(), Replaced(Replaced(kFile, ":20260421", ":20260429"), ":20260424", ":20260502"));
}

TEST_F(PlannerItems, ANewItemOfTheDayViewLastsAsLongAsItsSelection)
{
    m_frame->ShowView(planner::FindView("day"));
    PumpMessages();
    Key(VK_RIGHT);
    PumpMessages();
    Key(VK_INSERT);
    TypeAndEnter("Short");
    const auto shown = m_document->Calendar().OccurrencesIn(At("20260416"), At("20260418"));
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_LE(shown[0].elapsed, planner::kHourSeconds);
    EXPECT_EQ(planner::DayOfTime(shown[0].times.start), planner::DayOfTime(At("20260416")));
}

TEST_F(PlannerItems, SavingEndsAnEditFirst)
{
    messages::Click(Ctrl(), PointOf("Trip"));
    Key(VK_F2);
    messages::Type(::GetFocus(), "Journey");
    Key('S', true);
    std::ifstream file(m_path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              Replaced(kFile, "SUMMARY:Trip", "SUMMARY:Journey"));
}

TEST_F(PlannerItems, KeysOfATextAreNoCommands)
{
    messages::Click(Ctrl(), PointOf("Trip"));
    Key(VK_F2);
    const HWND box = ::GetFocus();
    ::SendMessage(box, EM_SETSEL, 0, 1);
    Key(VK_DELETE);
    Key('V', true);
    Key('Z', true);
    EXPECT_EQ(::GetFocus(), box);
    EXPECT_EQ(m_document->Calendar().EventCount(), 2u);
    Key(VK_ESCAPE);
    EXPECT_EQ(Bytes(), kFile);
}

TEST_F(PlannerItems, AnItemIsEditedOnItsBarAndANewOneUnderTheBarsOfItsDay)
{
    const CPoint bar = PointOf("Meeting");
    messages::Click(Ctrl(), bar);
    Key(VK_F2);
    EXPECT_TRUE(EditBox().PtInRect(bar));
    EXPECT_LT(EditBox().Height(), 30);
    Key(VK_ESCAPE);
    messages::Click(Ctrl(), CellOf(15));
    Key(VK_INSERT);
    EXPECT_GT(EditBox().top, bar.y) << "the item of that day stays in sight";
    Key(VK_ESCAPE);
}

class PlannerSeries : public PlannerItems
{
protected:
    std::string FileText() override
    {
        return planner::CalendarWith(
            {"UID:s", "DTSTART:20260413T090000", "DTEND:20260413T100000", "RRULE:FREQ=DAILY;COUNT=5", "SUMMARY:Daily"});
    }
    void AnswerWith(int answer)
    {
        planner::SetAnswerer([this, answer](const std::string& question, UINT) {
            m_questions.push_back(question);
            return answer;
        });
    }
    std::vector<std::string> m_questions;
};

TEST_F(PlannerSeries, ADragOrDeletionAsksHowFarItGoes)
{
    const std::string all = "20260413T0900/20260413T1000 20260414T0900/20260414T1000 20260415T0900/20260415T1000 "
                            "20260416T0900/20260416T1000 20260417T0900/20260417T1000";
    const auto shown = [&] { return Summaries("20260401", "20260501"); };
    const auto select = [&](const char* time) {
        m_frame->Items().Select(m_document->Calendar().OccurrencesIn(At(time), At(time) + 1).front().id);
    };
    ASSERT_EQ(shown(), all);
    AnswerWith(IDCANCEL);
    messages::Drag(Ctrl(), PointOf("Daily"), CellOf(20));
    EXPECT_EQ(shown(), all);
    AnswerWith(IDC_SCOPE_FOLLOWING);
    select("20260416T0900");
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_CLEAR);
    EXPECT_EQ(shown(), all.substr(0, all.find(" 20260416")));
    EXPECT_NE(Bytes().find("UNTIL="), std::string::npos);
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_UNDO);
    AnswerWith(IDC_SCOPE_THIS);
    select("20260413T0900");
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_CLEAR);
    EXPECT_EQ(shown(), all.substr(all.find(" 20260414") + 1));
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_UNDO);
    AnswerWith(IDC_SCOPE_SERIES);
    messages::Drag(Ctrl(), PointOf("Daily"), CellOf(20));
    EXPECT_EQ(shown().substr(0, 27), "20260420T0900/20260420T1000");
    EXPECT_EQ(m_document->Calendar().EventCount(), 1u);
    m_frame->SendMessage(WM_COMMAND, ID_EDIT_UNDO);
    EXPECT_EQ(Bytes(), FileText());
    EXPECT_EQ(m_questions.size(), 4u);
}

// A series without an end: the control asks for what it shows and for the weeks around that.
class PlannerEndless : public PlannerItems
{
protected:
    static constexpr int kShown = 42; // cells of a month
    std::string FileText() override
    {
        return planner::CalendarWith({"UID:e", "DTSTART:20000101T090000", "RRULE:FREQ=DAILY", "SUMMARY:Daily"});
    }
    void ExpectShown()
    {
        EXPECT_FALSE(Ctrl().IsLoadingItems());
        EXPECT_EQ(m_frame->Items().CountInView(), kShown);
        EXPECT_EQ(Ctrl().GetItemCount(), 3 * kShown);
        EXPECT_EQ(Ctrl().GetScreenItems().GetSize(), kShown);
    }
};

TEST_F(PlannerEndless, IsExpandedAroundTheViewOnly)
{
    ExpectShown();
    messages::Click(Ctrl(), PointOf("Daily"));
    const planner::OccurrenceId id = m_frame->Items().Current()->id;
    for (int page = 0; page < 5; ++page) {
        SCOPED_TRACE(page);
        Ctrl().SendMessage(WM_VSCROLL, page % 2 == 0 ? SB_PAGEDOWN : SB_LINEDOWN);
        PumpMessages();
        EXPECT_EQ(m_frame->Items().CountInView(), kShown);
        ASSERT_LE(Ctrl().GetItemCount(), 3 * kShown);
        const planner::Occurrence* current = m_frame->Items().Current();
        EXPECT_TRUE(!current || current->id == id);
    }
    for (const int year : {2060, 9999, 100}) {
        SCOPED_TRACE(year);
        m_frame->GoTo(COleDateTime(year, year == 100 ? 1 : 12, 20, 0, 0, 0));
        PumpMessages();
        EXPECT_EQ(m_frame->Items().CountInView() > 0, year > 2000);
        EXPECT_FALSE(Ctrl().IsLoadingItems());
    }
}

// The grid comes to the working hours although an item lies in the night, and a day fills a tall window.
class PlannerNight : public PlannerItems
{
protected:
    std::string FileText() override
    {
        return planner::CalendarWith({"UID:n", "DTSTART:20260415T000000", "DTEND:20260415T003000", "SUMMARY:Backup"});
    }
};

TEST_F(PlannerNight, AWeekOpensAtTheWorkingHours)
{
    m_frame->ShowView(planner::FindView("week"));
    PumpUntil([&] { return Ctrl().GetVertScrollOffset() > 0; });
    EXPECT_GT(Ctrl().GetVertScrollOffset(), 0);
    m_frame->SetWindowPos(nullptr, 0, 0, 900, 1500, SWP_NOMOVE | SWP_NOZORDER);
    m_frame->ShowView(planner::FindView("day"));
    PumpMessages();
    SCROLLINFO rows = {};
    rows.cbSize = sizeof(rows);
    rows.fMask = SIF_RANGE;
    EXPECT_TRUE(Ctrl().GetScrollInfo(SB_VERT, &rows) && rows.nMax > 0) << "no blank stripe";
}

} // namespace
