// Random actions by real keys and a real pointer over a file, in both languages; then everything is undone, and the
// file must have its bytes again. PLANNER_RANDOM_ACTIONS says how many in place of a few, PLANNER_RANDOM_SEED which
// ones.
#include "PlannerTesting.h"

#include "planner/Words.h"

#include <cstdlib>
#include <random>

namespace {

using namespace plannertesting;

int NumberFrom(const char* variable, int fallback)
{
    const char* text = std::getenv(variable);
    return text ? std::atoi(text) : fallback;
}

class PlannerRandom : public PlannerWindow
{
protected:
    std::string FileText() override
    {
        return planner::Joined({"BEGIN:VCALENDAR",
                                "X-FIRST: kept",
                                "BEGIN:VEVENT",
                                "UID:s",
                                "DTSTART:20260406T090000",
                                "DTEND:20260406T093000",
                                "RRULE:FREQ=WEEKLY;BYDAY=MO,WE,FR",
                                "SUMMARY:Daily",
                                "END:VEVENT",
                                "BEGIN:VEVENT",
                                "UID:m",
                                "DTSTART:20260415T093000",
                                "DURATION:PT1H",
                                "SUMMARY:Meeting",
                                "X-ALSO;A=\"b;c\":kept",
                                "END:VEVENT",
                                "BEGIN:VTODO",
                                "UID:t",
                                "END:VTODO",
                                "BEGIN:VEVENT",
                                "UID:d",
                                "DTSTART;VALUE=DATE:20260421",
                                "DTEND;VALUE=DATE:20260424",
                                "SUMMARY:Trip",
                                "SEQUENCE:4",
                                "END:VEVENT",
                                "BEGIN:VEVENT",
                                "UID:y",
                                "DTSTART;VALUE=DATE:20200410",
                                "RRULE:FREQ=YEARLY",
                                "SUMMARY:Birthday",
                                "BEGIN:VALARM",
                                "TRIGGER:-P1D",
                                "END:VALARM",
                                "END:VEVENT",
                                "END:VCALENDAR"});
    }
    int Below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    CPoint AnyPoint()
    {
        CRect client;
        Ctrl().GetClientRect(&client);
        return CPoint(Below(client.Width()), Below(client.Height()));
    }
    // On an item as often as not.
    CPoint AnyTarget()
    {
        const auto& pieces = Ctrl().GetScreenItems();
        if (pieces.GetSize() == 0 || Below(2) == 0) {
            return AnyPoint();
        }
        const CRect box = pieces[Below(static_cast<int>(pieces.GetSize()))].rcItem;
        CRect client;
        Ctrl().GetClientRect(&client);
        const CPoint point(box.CenterPoint().x, box.CenterPoint().y - Ctrl().GetVertScrollOffset());
        return client.PtInRect(point) ? point : AnyPoint();
    }
    // A dialog or menu that an action has opened is closed: the loop of such a window serves timers.
    static void CALLBACK CloseDialogs(HWND, UINT, UINT_PTR, DWORD)
    {
        ::EnumThreadWindows(::GetCurrentThreadId(), &PlannerRandom::CloseDialog, 0);
    }
    static BOOL CALLBACK CloseDialog(HWND window, LPARAM)
    {
        char name[16] = "";
        ::GetClassName(window, name, sizeof(name));
        if (::IsWindowVisible(window) && ::lstrcmp(name, "#32770") == 0) {
            ::PostMessage(window, WM_COMMAND, IDCANCEL, 0);
        } else if (::lstrcmp(name, "#32768") == 0) {
            ::EndMenu();
        }
        return TRUE;
    }
    void AnyAction()
    {
        static constexpr int arrows[] = {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN};
        static constexpr WORD commands[] = {'Z', 'Y', 'C', 'X', 'V', 'T'};
        switch (Below(10)) {
        case 0:
            hardware::Drag(Ctrl(), AnyTarget(), AnyPoint());
            break;
        case 1:
            hardware::Click(Ctrl(), AnyTarget());
            break;
        case 2:
            hardware::Key(VK_INSERT);
            hardware::Type("new");
            hardware::Key(Below(4) == 0 ? VK_ESCAPE : VK_RETURN);
            break;
        case 3:
            hardware::Key(VK_F2, Below(4) == 0 ? std::initializer_list<int>{VK_SHIFT} : std::initializer_list<int>{});
            hardware::Type("x y");
            hardware::Key(VK_RETURN);
            break;
        case 4:
            hardware::Key(VK_DELETE);
            break;
        case 5:
        case 6:
            hardware::Key(arrows[Below(4)],
                          Below(3) == 0 ? std::initializer_list<int>{VK_SHIFT} : std::initializer_list<int>{});
            break;
        case 7:
            hardware::Key('1' + Below(8), {VK_CONTROL});
            break;
        default:
            hardware::Key(commands[Below(6)], {VK_CONTROL});
            break;
        }
        PumpMessages();
        m_frame->Idle();
    }

    std::mt19937 m_random;
};

TEST_F(PlannerRandom, EverythingIsUndoneToTheByte)
{
    const int actions = NumberFrom("PLANNER_RANDOM_ACTIONS", 60);
    m_random.seed(static_cast<unsigned>(NumberFrom("PLANNER_RANDOM_SEED", 20261122)));
    const int answers[] = {IDC_SCOPE_THIS, IDC_SCOPE_FOLLOWING, IDC_SCOPE_SERIES, IDCANCEL};
    planner::SetAnswerer([&](const std::string&, UINT) { return answers[Below(4)]; });
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 50, &PlannerRandom::CloseDialogs);
    std::size_t edits = 0;
    for (int i = 0; i < actions; ++i) {
        if (i % (actions / 2) == 0) {
            m_frame->SpeakLanguage(i == 0 ? planner::Language::Japanese : planner::Language::English);
            m_frame->GoTo(COleDateTime(2026, 4, 15, 0, 0, 0));
        }
        if (::GetFocus() != Ctrl().m_hWnd && !::IsChild(Ctrl(), ::GetFocus())) {
            ASSERT_TRUE(hardware::Focus(Ctrl()));
        }
        const std::string before = Bytes();
        AnyAction();
        edits += Bytes() != before ? 1 : 0;
    }
    EXPECT_GT(edits, static_cast<std::size_t>(actions / 10)) << "the actions must do something";
    ::KillTimer(nullptr, timer);
    m_frame->ShowView(planner::FindView("month")); // ends an edit
    while (m_document->Calendar().CanUndo()) {
        m_document->Calendar().Undo();
    }
    EXPECT_EQ(Bytes(), FileText());
    planner::SetLanguage(planner::Language::English);
}

} // namespace
