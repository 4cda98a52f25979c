// The year-month picker and its popup as windows: messages in, messages to the parent out.
#include "pickers/YearMonthPickerCtrl.h"
#include "pickers/YearMonthPopup.h"
#include "tests/pickers/picker_fixture.h"

using namespace dayvane;

namespace
{
// Hosts have these numbers in their own sources.
static_assert(YMN_DATECHANGE == 6025 && YMN_DROPDOWN == 6026 && YMN_CLOSEUP == 6027 && YMN_SELENDOK == 6028 &&
                  YMN_SELENDCANCEL == 6029 && MCN_SELECT == static_cast<UINT>(-746) &&
                  NM_DBLCLK == static_cast<UINT>(-3),
              "message numbers");

struct Picker
{
    explicit Picker(CRect place = CRect(10, 10, 160, 40)) : control(std::make_unique<CYearMonthPickerCtrl>())
    {
        control->Create("", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, place, &parent, kSelectorId);
        control->SetCurrentDate(Day(2010, 5, 1));
        PumpMessages();
    }
    CYearMonthPopup& Drop()
    {
        control->SetFocus();
        control->OnClicked();
        return *control->GetPopup();
    }
    // A click into the popup; months from 1.
    void ClickMonth(int month) { ClickPopup(control->GetPopup()->GetLayout().months[month - 1].CenterPoint()); }
    void ClickPopup(CPoint point) { messages::Click(control->GetPopup()->m_hWnd, point); }
    std::string Date() const
    {
        const DateFields fields = FieldsOf(control->GetCurrentDate());
        return std::to_string(fields.year) + "/" + std::to_string(fields.month) + "/" + std::to_string(fields.day);
    }

    PickerParent parent;
    std::unique_ptr<CYearMonthPickerCtrl> control;
};
} // namespace

TEST(YearMonthPickerWindow, SizesItselfAndBecomesOwnerDrawn)
{
    const int ex = ::GetSystemMetrics(SM_CXEDGE);
    const int ey = ::GetSystemMetrics(SM_CYEDGE);
    const int arrow = std::max({::GetSystemMetrics(SM_CXHTHUMB), ::GetSystemMetrics(SM_CYVTHUMB), 5 * ex, 5 * ey});
    for (const int width : {150, 3}) {
        Picker p(CRect(10, 20, 10 + width, 90));
        CRect rect;
        p.control->GetWindowRect(&rect);
        p.parent.ScreenToClient(&rect);
        EXPECT_TRUE(rect == CRect(CPoint(10, 20), CSize(std::max(width, 2 * (arrow + ex)), arrow + 2 * ey)));
        EXPECT_EQ(static_cast<DWORD>(BS_OWNERDRAW), p.control->GetStyle() & 0xF);
    }
    PickerParent parent;
    const HWND button = ::CreateWindow("BUTTON", "", WS_CHILD | WS_VISIBLE, 5, 6, 100, 70, parent.m_hWnd,
                                       reinterpret_cast<HMENU>(9), AfxGetInstanceHandle(), nullptr);
    CYearMonthPickerCtrl subclassed;
    ASSERT_TRUE(subclassed.SubclassDlgItem(9, &parent));
    CRect rect;
    ::GetWindowRect(button, &rect);
    EXPECT_EQ(arrow + 2 * ey, rect.Height());
    EXPECT_EQ(static_cast<DWORD>(BS_OWNERDRAW), subclassed.GetStyle() & 0xF);
}

TEST(YearMonthPickerWindow, ThePopupHasItsStyleSizeAndPlaceAndTheMouse)
{
    Picker p;
    CYearMonthPopup& popup = p.Drop();
    EXPECT_EQ(Told{"YMN_DROPDOWN 201005"}, p.parent.Take());
    EXPECT_TRUE(p.control->IsDropped());
    CRect rect, button;
    popup.GetWindowRect(&rect);
    p.control->GetWindowRect(&button);
    EXPECT_TRUE(rect == CRect(CPoint(button.right - 120, button.bottom), CSize(120, 120)));
    EXPECT_EQ(0x90000000u, popup.GetStyle() & ~WS_CLIPSIBLINGS);
    EXPECT_EQ(0x843u, ::GetClassLong(popup.m_hWnd, GCL_STYLE));
    EXPECT_EQ(0u, ::GetClassLongPtr(popup.m_hWnd, GCLP_HCURSOR));
    EXPECT_EQ(static_cast<ULONG_PTR>(COLOR_BTNFACE + 1), ::GetClassLongPtr(popup.m_hWnd, GCLP_HBRBACKGROUND));
    EXPECT_EQ(popup.m_hWnd, ::GetCapture());
    EXPECT_EQ(p.control->m_hWnd, ::GetFocus()) << "keys still come to the picker";
    EXPECT_EQ(p.parent.m_hWnd, ::GetActiveWindow());
    EXPECT_TRUE(p.control->OnClicked()) << "a second click while it is open";
    EXPECT_EQ(&popup, p.control->GetPopup());
    EXPECT_EQ(Told{}, p.parent.Take());
}

TEST(YearMonthPickerWindow, TellsEachWayToFinishInOrder)
{
    typedef std::function<void(Picker&)> Act;
    const struct
    {
        const char* what;
        Act act;
        Told log;
        const char* date;
    } table[] = {
        {"another month",
         [](Picker& p) { p.ClickMonth(7); },
         {"YMN_CLOSEUP 201007", "YMN_SELENDOK 201007", "YMN_DATECHANGE 201007"},
         "2010/7/1"},
        {"the same month",
         [](Picker& p) { p.ClickMonth(5); },
         {"YMN_CLOSEUP 201005", "YMN_SELENDOK 201005"},
         "2010/5/1"},
        {"another year's",
         [](Picker& p) {
             const YearMonthLayout layout = p.control->GetPopup()->GetLayout();
             p.ClickPopup(layout.previousYear.CenterPoint());
             p.ClickPopup(layout.nextYear.CenterPoint());
             p.ClickPopup(layout.nextYear.CenterPoint());
             EXPECT_EQ(2011, p.control->GetPopup()->GetYear());
             EXPECT_EQ(Told{}, p.parent.Take()) << "the arrows tell nothing";
             p.ClickMonth(5);
         },
         {"YMN_CLOSEUP 201105", "YMN_SELENDOK 201105", "YMN_DATECHANGE 201105"},
         "2011/5/1"},
        {"the overhang below the grid",
         [](Picker& p) { p.ClickPopup(CPoint(60, 92)); },
         {"YMN_CLOSEUP 201011", "YMN_SELENDOK 201011", "YMN_DATECHANGE 201011"},
         "2010/11/1"},
        {"the footer",
         [](Picker& p) {
             p.ClickPopup(p.control->GetPopup()->GetLayout().previousYear.CenterPoint());
             p.ClickPopup(p.control->GetPopup()->GetLayout().footer.CenterPoint());
         },
         {"YMN_CLOSEUP 201001", "YMN_SELENDOK 201001", "YMN_DATECHANGE 201001"},
         "2010/1/1"},
        {"outside",
         [](Picker& p) { p.ClickPopup(CPoint(-5, 50)); },
         {"YMN_CLOSEUP 0", "YMN_SELENDCANCEL 0"},
         "2010/5/1"},
        {"the header's middle",
         [](Picker& p) { p.ClickPopup(CPoint(60, 10)); },
         {"YMN_CLOSEUP 0", "YMN_SELENDCANCEL 0"},
         "2010/5/1"},
        {"lost capture",
         [](Picker& p) { ::SetCapture(p.parent.m_hWnd); },
         {"YMN_CLOSEUP 0", "YMN_SELENDCANCEL 0"},
         "2010/5/1"},
        {"lost focus", [](Picker& p) { p.parent.SetFocus(); }, {"YMN_CLOSEUP 0", "YMN_SELENDCANCEL 0"}, "2010/5/1"},
        {"the application left",
         [](Picker& p) { p.control->GetPopup()->SendMessage(WM_ACTIVATEAPP, FALSE); },
         {"YMN_CLOSEUP 0", "YMN_SELENDCANCEL 0"},
         "2010/5/1"},
        {"keys",
         [](Picker& p) {
             for (UINT key : {VK_RIGHT, VK_DOWN, VK_NEXT, VK_RETURN}) {
                 ::SendMessage(p.control->m_hWnd, WM_KEYDOWN, key, 0);
             }
         },
         {"YMN_CLOSEUP 201109", "YMN_SELENDOK 201109", "YMN_DATECHANGE 201109"},
         "2011/9/1"},
        {"Escape",
         [](Picker& p) { ::SendMessage(p.control->m_hWnd, WM_KEYDOWN, VK_ESCAPE, 0); },
         {"YMN_CLOSEUP 0", "YMN_SELENDCANCEL 0"},
         "2010/5/1"},
        {"the picker's window destroyed",
         [](Picker& p) { p.control->DestroyWindow(); },
         {"YMN_CLOSEUP 0", "YMN_SELENDCANCEL 0"},
         "2010/5/1"}, // hidden, it loses the focus
        {"the parent destroyed", [](Picker& p) { p.parent.DestroyWindow(); }, {}, "2010/5/1"},
        {"the popup's window destroyed", [](Picker& p) { p.control->GetPopup()->DestroyWindow(); }, {}, "2010/5/1"},
    };
    for (const auto& row : table) {
        Picker p;
        const HWND popup = p.Drop().m_hWnd;
        p.parent.Take();
        row.act(p);
        EXPECT_EQ(row.log, p.parent.Take()) << row.what;
        EXPECT_EQ(row.date, p.Date()) << row.what;
        EXPECT_FALSE(p.control->IsDropped()) << row.what;
        EXPECT_EQ(nullptr, p.control->GetPopup()) << row.what;
        EXPECT_FALSE(::IsWindow(popup)) << row.what;
        EXPECT_NE(popup, ::GetCapture()) << row.what;
        ::ReleaseCapture();
    }
}

TEST(YearMonthPickerWindow, EndedWithoutTheFocusThePopupGoesWithoutAWord)
{
    typedef std::function<void(Picker&)> Act;
    const Act ends[] = {
        [](Picker& p) { p.control->DestroyWindow(); },
        [](Picker& p) { p.control.reset(); },
        [](Picker& p) { p.parent.DestroyWindow(); },
    };
    for (const Act& end : ends) {
        Picker p;
        p.parent.SetFocus();
        p.control->OnClicked();
        const HWND popup = p.control->GetPopup()->m_hWnd;
        end(p);
        EXPECT_FALSE(::IsWindow(popup));
        EXPECT_EQ(Told{"YMN_DROPDOWN 201005"}, p.parent.Take());
    }
}

TEST(YearMonthPickerWindow, KeepsATimeOfDayUntilTheNextPick)
{
    Picker p;
    p.control->SetCurrentDate(COleDateTime(2010, 5, 17, 8, 30, 0));
    p.Drop();
    p.ClickMonth(5);
    EXPECT_EQ((Told{"YMN_DROPDOWN 201005", "YMN_CLOSEUP 201005", "YMN_SELENDOK 201005", "YMN_DATECHANGE 201005"}),
              p.parent.Take());
    EXPECT_TRUE(p.control->GetCurrentDate() == Day(2010, 5, 1));

    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    p.control->SetCurrentDate(none);
    EXPECT_EQ(2010, p.Drop().GetYear()) << "without a date, the present month";
    EXPECT_EQ(0, p.control->GetPopup()->GetMonthIndex());
}

TEST(YearMonthPickerWindow, TheHostMayDoAnythingInAMessage)
{
    for (int message = 1; message <= 4; ++message) { // DROPDOWN, CLOSEUP, SELENDOK, DATECHANGE
        for (const bool deletes : {false, true}) {
            Picker p;
            p.parent.ActAt(message, [&] { deletes ? p.control.reset() : (void)p.control->DestroyWindow(); });
            p.control->SetFocus();
            p.control->OnClicked();
            if (message > 1) {
                p.ClickMonth(8);
            }
            // Losing the focus in the first one, the picker tells that its popup closes; then, and later, no word more.
            EXPECT_EQ(message == 1 ? 3u : static_cast<size_t>(message), p.parent.Take().size());
            EXPECT_EQ(nullptr, ::GetCapture());
        }
    }
    Picker p;
    p.Drop();
    p.parent.ActAt(2, [&] { p.Drop(); }); // drops again while the first popup is closing
    p.ClickMonth(8);
    ASSERT_NE(nullptr, p.control->GetPopup());
    EXPECT_TRUE(p.control->IsDropped());
    EXPECT_EQ(p.control->GetPopup()->m_hWnd, ::GetCapture());
    p.ClickMonth(9);
    EXPECT_EQ("2010/9/1", p.Date());
    EXPECT_FALSE(p.control->IsDropped());
}

TEST(YearMonthPickerWindow, ThePopupStaysOnTheMonitor)
{
    const CRect screen(0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
    for (const CPoint corner : {CPoint(0, 0), CPoint(screen.right - 160, 0), CPoint(-40, screen.bottom - 60),
                                CPoint(screen.right - 60, screen.bottom - 60)}) {
        Picker p(CRect(0, 0, 60, 20));
        p.parent.MoveWindow(corner.x, corner.y, 200, 60);
        CRect rect;
        p.Drop().GetWindowRect(&rect);
        EXPECT_TRUE((rect & screen) == rect) << corner.x << "," << corner.y;
        CRect button;
        p.control->GetWindowRect(&button);
        EXPECT_TRUE((rect & button).IsRectEmpty()) << "the button stays in view";
        p.control->GetPopup()->Cancel();
    }
}

TEST(YearMonthPickerWindow, RealClicksAndKeysDropAndPick)
{
    Picker p;
    const CPoint face(40, 10);
    hardware::Click(p.control->m_hWnd, face);
    ASSERT_TRUE(PumpUntil([&] { return p.control->GetPopup() != nullptr; }));
    PumpMessages();
    ASSERT_NE(nullptr, p.control->GetPopup()) << "the button's own release of the mouse does not close it";
    hardware::Click(p.control->GetPopup()->m_hWnd, p.control->GetPopup()->GetLayout().months[10].CenterPoint());
    EXPECT_TRUE(PumpUntil([&] { return !p.control->IsDropped(); }));
    EXPECT_EQ("2010/11/1", p.Date());

    hardware::Click(p.control->m_hWnd, face);
    ASSERT_TRUE(PumpUntil([&] { return p.control->GetPopup() != nullptr; }));
    hardware::Click(p.control->m_hWnd, face);
    EXPECT_TRUE(PumpUntil([&] { return !p.control->IsDropped(); })) << "a click on the button closes it";
    EXPECT_EQ(nullptr, p.control->GetPopup());

    for (const int opener : {VK_SPACE, VK_F4, VK_DOWN}) {
        ASSERT_TRUE(hardware::Focus(p.control->m_hWnd));
        opener == VK_DOWN ? hardware::Key(opener, {VK_MENU}) : hardware::Key(opener);
        ASSERT_TRUE(PumpUntil([&] { return p.control->GetPopup() != nullptr; })) << opener;
        EXPECT_TRUE((::SendMessage(p.control->m_hWnd, WM_GETDLGCODE, 0, 0) & DLGC_WANTALLKEYS) != 0);
        hardware::Key(VK_LEFT);
        hardware::Key(VK_SPACE);
        EXPECT_TRUE(PumpUntil([&] { return !p.control->IsDropped(); }));
    }
    EXPECT_EQ("2010/8/1", p.Date());
}

TEST(YearMonthPickerWindow, DroppingAndPaintingLeaveNoObjectsBehind)
{
    Picker p;
    const auto use = [&](int month) {
        p.Drop();
        p.ClickMonth(month);
        p.control->UpdateWindow();
    };
    testsupport::ExpectNothingLeftBy([&] {
        for (int month = 1; month <= 12; ++month) {
            use(month);
        }
    });
}
