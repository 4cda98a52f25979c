// The planner's window on a real file: input goes into its controls, the saved bytes show the result.
#include "PlannerTesting.h"

namespace {

using namespace plannertesting;

TEST_F(PlannerWindow, MovesRenamesUndoesAndSavesNothingElse)
{
    EXPECT_EQ(Bytes(), kFile);
    messages::Drag(Ctrl(), PointOf("Meeting"), CellOf(17));
    const std::string moved =
        Replaced(Replaced(kFile, "20260415T093000", "20260417T093000"), "20260415T103000", "20260417T103000");
    EXPECT_EQ(Bytes(), moved);

    Key(VK_F2); // the moved item has stayed the current one
    TypeAndEnter("Talk");
    const std::string renamed = Replaced(moved, "SUMMARY:Meeting", "SUMMARY:Talk");
    EXPECT_EQ(Bytes(), renamed);

    CString title;
    m_frame->GetWindowText(title);
    EXPECT_EQ(title.GetAt(0), '*');
    Key('S', true);
    std::ifstream file(m_path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), renamed);
    m_frame->GetWindowText(title);
    EXPECT_NE(title.GetAt(0), '*');

    Key('Z', true);
    EXPECT_EQ(Bytes(), moved);
    Key('Z', true);
    EXPECT_EQ(Bytes(), kFile);
    Key('Y', true);
    EXPECT_EQ(Bytes(), moved);
}

TEST_F(PlannerWindow, CtrlMakesACopyAndLeavesTheItemWhereItWas)
{
    messages::Drag(Ctrl(), PointOf("Meeting"), CellOf(17), MK_CONTROL);
    EXPECT_EQ(m_document->Calendar().EventCount(), 3u);
    const auto shown = m_document->Calendar().OccurrencesIn(At("20260415"), At("20260418"));
    EXPECT_EQ(planner::Shown(shown), "20260415T0930/20260415T1030 20260417T0930/20260417T1030");
    PointOf("Meeting"); // shown again
}

TEST_F(PlannerWindow, EnterMakesAnItemOverTheSelectionAndDeleteTakesItAway)
{
    messages::Drag(Ctrl(), CellOf(7), CellOf(8));
    Key(VK_RETURN);
    TypeAndEnter("New");
    ASSERT_EQ(planner::Shown(m_document->Calendar().OccurrencesIn(At("20260401"), At("20260414"))),
              "20260407/20260409*");
    ASSERT_TRUE(m_frame->Items().Current());
    EXPECT_EQ(m_frame->Items().Current()->event->summary, "New");
    Key(VK_DELETE);
    EXPECT_EQ(Bytes(), kFile);

    Key(VK_INSERT);
    Key(VK_ESCAPE);
    EXPECT_EQ(Bytes(), kFile);
}

TEST_F(PlannerWindow, DateAndCurrentItemStayInEveryView)
{
    messages::Click(Ctrl(), PointOf("Trip"));
    const planner::OccurrenceId id = m_frame->Items().Current()->id;
    const COleDateTime day(2026, 4, 22, 0, 0, 0);
    const char* const names[] = {"day", "workweek", "week", "3days", "diary", "month2", "year", "month"};
    m_frame->GoTo(day);
    ASSERT_TRUE(m_frame->Items().Select(id));
    for (const char* name : names) {
        SCOPED_TRACE(name);
        m_frame->ShowView(planner::FindView(name));
        PumpMessages();
        COleDateTime first, last;
        Ctrl().GetViewRange(first, last);
        EXPECT_TRUE(dayvane::StartOfDay(first) <= day && last >= day);
        ASSERT_TRUE(m_frame->Items().Current());
        EXPECT_TRUE(m_frame->Items().Current()->id == id);
    }
    EXPECT_FALSE(planner::FindView("fortnight").row);
    EXPECT_FALSE(planner::FindView("15days").row);
}

// A view change ends the edit that is open, and with it nothing is lost.
TEST_F(PlannerWindow, CommandsMeetWhatWasTyped)
{
    messages::Click(Ctrl(), PointOf("Trip"));
    Key(VK_F2);
    messages::Type(::GetFocus(), "Journey");
    m_frame->SendMessage(WM_COMMAND, ID_VIEW_YEAR);
    EXPECT_EQ(Bytes(), Replaced(kFile, "SUMMARY:Trip", "SUMMARY:Journey"));
}

TEST_F(PlannerWindow, FollowsTheViewIntoOtherMonths)
{
    const auto scroll = [&](WPARAM code, int weeks) { // by the control's own means
        for (int week = 0; week < weeks; ++week) {
            Ctrl().SendMessage(WM_VSCROLL, code);
        }
        m_frame->Idle();
    };
    messages::Click(Ctrl(), PointOf("Trip"));
    m_frame->Idle();
    EXPECT_EQ(StatusText(), "2026-04-21 - 2026-04-23   Trip");
    m_frame->SetWindowPos(nullptr, 0, 0, 900, 640, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(StatusText(), "2026-04-21 - 2026-04-23   Trip") << "in another size, too";
    scroll(SB_LINEDOWN, 4);
    EXPECT_FALSE(m_frame->Items().Current()) << "the Delete key must not delete what is out of sight";
    EXPECT_EQ(StatusText(), "");
    scroll(SB_LINEUP, 4);
    for (int month = 0; month < 4; ++month) {
        m_frame->SendMessage(WM_COMMAND, ID_VIEW_PREVIOUS);
    }
    EXPECT_EQ(m_frame->Items().CountInView(), 0);
    scroll(SB_LINEDOWN, 16);
    EXPECT_EQ(m_frame->Items().CountInView(), 2);
}

TEST_F(PlannerWindow, EveryToolIsInReachInANarrowWindow)
{
    CWnd* bar = m_frame->GetDlgItem(AFX_IDW_TOOLBAR);
    const auto isWhole = [&](UINT command) {
        CRect all, tool(0, 0, 0, 0);
        bar->GetClientRect(&all);
        bar->SendMessage(TB_GETRECT, command, reinterpret_cast<LPARAM>(static_cast<RECT*>(&tool)));
        return tool.left >= 0 && tool.Width() > 0 && tool.right <= all.right && tool.bottom <= all.bottom;
    };
    int rowHeight = 0;
    for (const int width : {1200, 500, 300, 1200}) {
        m_frame->SetWindowPos(nullptr, 0, 0, width, 500, SWP_NOMOVE | SWP_NOZORDER);
        for (const UINT command : {ID_FILE_OPEN, ID_EDIT_NEW_ITEM, IDC_PICKER, ID_VIEW_DAY, ID_VIEW_YEAR}) {
            EXPECT_TRUE(isWhole(command)) << command << " at " << width;
        }
        CRect all;
        bar->GetClientRect(&all);
        rowHeight = rowHeight == 0 ? all.Height() : rowHeight;
        EXPECT_EQ(all.Height() > rowHeight, width < 1200) << "further rows only where they must be";
    }
    // Large letters in a small window: what has no room is not there, rather than cut; the side pane stands back.
    constexpr UINT dpiChanged = 0x02E0;
    m_frame->SendMessage(dpiChanged, MAKEWPARAM(192, 192));
    m_frame->SetWindowPos(nullptr, 0, 0, 500, 400, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_TRUE(isWhole(ID_VIEW_NEXT) && isWhole(IDC_PICKER) && isWhole(ID_VIEW_DAY));
    CRect window, view;
    m_frame->GetClientRect(&window);
    Ctrl().GetWindowRect(&view);
    EXPECT_GT(view.Width(), window.Width() * 9 / 10);
    m_frame->SendMessage(WM_COMMAND, ID_VIEW_NEXT_PANE);
    EXPECT_TRUE(::GetFocus() == Ctrl().m_hWnd) << "not into a pane that is not seen";
}

// Letting Alt go before the other key of a command would open the menu bar.
TEST_F(PlannerWindow, AltOfACommandOpensNoMenu)
{
    ASSERT_TRUE(hardware::Focus(Ctrl()));
    const struct
    {
        WORD key;
        DWORD flags;
    } strokes[] = {{VK_MENU, 0},
                   {VK_LEFT, 0},
                   {VK_MENU, KEYEVENTF_KEYUP},
                   {VK_LEFT, KEYEVENTF_KEYUP},
                   {VK_RIGHT, 0},
                   {VK_RIGHT, KEYEVENTF_KEYUP},
                   {VK_ESCAPE, 0}, // would close the menu
                   {VK_ESCAPE, KEYEVENTF_KEYUP}};
    std::vector<INPUT> inputs;
    for (const auto& stroke : strokes) { // all at once: an open menu would have a message loop of its own
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = stroke.key;
        input.ki.dwFlags = stroke.flags | (stroke.key == VK_LEFT || stroke.key == VK_RIGHT ? KEYEVENTF_EXTENDEDKEY : 0);
        inputs.push_back(input);
    }
    ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    PumpMessages();
    COleDateTime begin, end;
    Ctrl().GetSelRange(begin, end);
    EXPECT_EQ(begin, COleDateTime(2026, 3, 16, 0, 0, 0)) << "one month back, then one day on";
}

TEST_F(PlannerWindow, ANewCalendarIsSavedAsACalendar)
{
    m_document->OnNewDocument();
    EXPECT_EQ(Bytes().substr(0, 15), "BEGIN:VCALENDAR");
    EXPECT_EQ(m_document->Calendar().EventCount(), 0u);
}

TEST_F(PlannerWindow, ThemeReachesViewPanesAndTheNextView)
{
    m_frame->SendMessage(WM_COMMAND, ID_THEME_FIRST + 3);
    CWnd* side = m_frame->GetDlgItem(IDW_SIDE_PANE);
    const auto groundOf = [](CWnd* window) {
        CRect all;
        window->GetClientRect(&all);
        window->RedrawWindow();
        CClientDC dc(window);
        return dc.GetPixel(all.left + 2, all.bottom - 2);
    };
    EXPECT_EQ(m_frame->Items().Ctrl()->GetTheme(), CalendarTheme::Dark());
    EXPECT_EQ(groundOf(side), CalendarTheme::Dark().page);
    m_frame->SendMessage(WM_COMMAND, ID_VIEW_WEEK);
    EXPECT_EQ(m_frame->Items().Ctrl()->GetTheme(), CalendarTheme::Dark());
    m_frame->SendMessage(WM_COMMAND, ID_THEME_FIRST + 2);
    EXPECT_EQ(m_frame->Items().Ctrl()->GetTheme(), CalendarTheme::Classic());
    EXPECT_EQ(groundOf(side), ::GetSysColor(COLOR_WINDOW));
}

TEST_F(PlannerWindow, ZoomIsTheViewsAndResolutionEveryones)
{
    constexpr UINT dpiChanged = 0x02E0;
    const auto scale = [&] { return m_frame->Items().Ctrl()->GetScale(); };
    CWnd* side = m_frame->GetDlgItem(IDW_SIDE_PANE);
    CRect narrow;
    side->GetWindowRect(&narrow);
    const int own = scale();
    m_frame->SendMessage(WM_COMMAND, ID_ZOOM_IN);
    EXPECT_EQ(scale(), own * 110 / 100);
    m_frame->SendMessage(WM_COMMAND, ID_VIEW_WEEK);
    EXPECT_EQ(scale(), own * 110 / 100) << "the next view too";
    CRect same;
    side->GetWindowRect(&same);
    EXPECT_EQ(same.Width(), narrow.Width());
    m_frame->SendMessage(WM_COMMAND, ID_ZOOM_RESET);
    m_frame->SendMessage(dpiChanged, MAKEWPARAM(192, 192));
    EXPECT_EQ(scale(), 192);
    CRect wide;
    side->GetWindowRect(&wide);
    EXPECT_GT(wide.Width(), narrow.Width() * 3 / 2);
}

} // namespace
