// The year-month picker and its popup as windows: messages in, messages to the parent out.
#include "pickers/YearMonthPainter.h"
#include "pickers/YearMonthPickerCtrl.h"
#include "pickers/YearMonthPopup.h"
#include "tests/pickers/PickerFixture.h"
#include "tests/support/MemoryDc.h"

using namespace dayvane;

namespace {
// Hosts have these numbers in their own sources.
static_assert(YMN_DATECHANGE == 6025 && YMN_DROPDOWN == 6026 && YMN_CLOSEUP == 6027 && YMN_SELENDOK == 6028 &&
                  YMN_SELENDCANCEL == 6029,
              "message numbers");

struct Picker : Scene<CYearMonthPickerCtrl>
{
    explicit Picker(CRect place = CRect(10, 10, 160, 40), Maker make = Make<CYearMonthPickerCtrl>) : Scene(make)
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
    std::string Date() const { return Text(control->GetCurrentDate()); }
};

// While the hook stands, no window can be made: the window itself refuses, or the hook does.
LONG_PTR g_procedure;
bool g_hookRefuses;
LRESULT CALLBACK RefuseCreation(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == WM_NCCREATE
               ? FALSE
               : ::CallWindowProc(reinterpret_cast<WNDPROC>(g_procedure), hWnd, message, wParam, lParam);
}
LRESULT CALLBACK RefuseWindows(int code, WPARAM wParam, LPARAM)
{
    if (code == HCBT_CREATEWND) {
        g_procedure = ::SetWindowLongPtr(reinterpret_cast<HWND>(wParam), GWLP_WNDPROC,
                                         reinterpret_cast<LONG_PTR>(RefuseCreation));
        return g_hookRefuses;
    }
    return 0;
}
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

TEST(YearMonthPickerWindow, ThePopupHasItsSizeAndPlaceAndTheMouse)
{
    Picker p;
    CYearMonthPopup& popup = p.Drop();
    EXPECT_EQ(Reports{"YMN_DROPDOWN 201005"}, p.parent.Take());
    EXPECT_TRUE(p.control->IsDropped());
    CRect rect, button;
    popup.GetWindowRect(&rect);
    p.control->GetWindowRect(&button);
    EXPECT_TRUE(rect == CRect(CPoint(button.right - 120, button.bottom), CSize(120, 120)));
    EXPECT_EQ(popup.m_hWnd, ::GetCapture());
    EXPECT_EQ(p.control->m_hWnd, ::GetFocus()) << "keys still come to the picker";
    EXPECT_EQ(p.parent.m_hWnd, ::GetActiveWindow());
    EXPECT_TRUE(p.control->OnClicked()) << "a second click while it is open";
    EXPECT_EQ(&popup, p.control->GetPopup());
    EXPECT_EQ(Reports{}, p.parent.Take());
}

const YearMonthLayout& LayoutOf(Picker& p)
{
    return p.control->GetPopup()->GetLayout();
}

constexpr int kCancelled = 0;
constexpr int kSilent = -1;
typedef std::function<void(Picker&)> Act;
const struct
{
    const char* what;
    Act act;
    int picked; // year x 100 + month, or how it ends without one
} kEnds[] = {
    {"another month", [](Picker& p) { p.ClickMonth(7); }, 201007},
    {"the same month", [](Picker& p) { p.ClickMonth(5); }, 201005},
    {"another year's",
     [](Picker& p) {
         p.ClickPopup(LayoutOf(p).previousYear.CenterPoint());
         p.ClickPopup(LayoutOf(p).nextYear.CenterPoint());
         p.ClickPopup(LayoutOf(p).nextYear.CenterPoint());
         EXPECT_EQ(2011, p.control->GetPopup()->GetYear());
         EXPECT_EQ(Reports{}, p.parent.Take()) << "the arrows send nothing";
         p.ClickMonth(5);
     },
     201105},
    {"the overhang below the grid", [](Picker& p) { p.ClickPopup(CPoint(60, 92)); }, 201011},
    {"the footer",
     [](Picker& p) {
         p.ClickPopup(LayoutOf(p).previousYear.CenterPoint());
         p.ClickPopup(LayoutOf(p).footer.CenterPoint());
     },
     201001},
    {"keys",
     [](Picker& p) {
         for (UINT code : {VK_RIGHT, VK_DOWN, VK_NEXT, VK_RETURN}) {
             p.Key(code);
         }
     },
     201109},
    {"outside", [](Picker& p) { p.ClickPopup(CPoint(-5, 50)); }, kCancelled},
    {"the header's middle", [](Picker& p) { p.ClickPopup(CPoint(60, 10)); }, kCancelled},
    {"lost capture", [](Picker& p) { ::SetCapture(p.parent.m_hWnd); }, kCancelled},
    {"lost focus", [](Picker& p) { p.parent.SetFocus(); }, kCancelled},
    {"the application left", [](Picker& p) { p.control->GetPopup()->SendMessage(WM_ACTIVATEAPP, FALSE); }, kCancelled},
    {"Escape", [](Picker& p) { p.Key(VK_ESCAPE); }, kCancelled},
    // Hidden, it loses the focus.
    {"the picker's window destroyed", [](Picker& p) { p.control->DestroyWindow(); }, kCancelled},
    {"the parent destroyed", [](Picker& p) { p.parent.DestroyWindow(); }, kSilent},
    {"the popup's window destroyed", [](Picker& p) { p.control->GetPopup()->DestroyWindow(); }, kSilent},
};

TEST(YearMonthPickerWindow, ReportsEachWayToFinishInOrder)
{
    for (const auto& row : kEnds) {
        Picker p;
        const HWND popup = p.Drop().m_hWnd;
        p.parent.Take();
        row.act(p);
        const std::string month = " " + std::to_string(row.picked);
        Reports expected;
        if (row.picked != kSilent) {
            expected = {"YMN_CLOSEUP" + month, (row.picked > 0 ? "YMN_SELENDOK" : "YMN_SELENDCANCEL") + month};
        }
        if (row.picked > 0 && row.picked != 201005) {
            expected.push_back("YMN_DATECHANGE" + month);
        }
        EXPECT_EQ(expected, p.parent.Take()) << row.what;
        EXPECT_EQ(Text(DateOfPacked(row.picked > 0 ? row.picked : 201005)), p.Date()) << row.what;
        EXPECT_FALSE(p.control->IsDropped()) << row.what;
        EXPECT_EQ(nullptr, p.control->GetPopup()) << row.what;
        EXPECT_FALSE(::IsWindow(popup)) << row.what;
        EXPECT_NE(popup, ::GetCapture()) << row.what;
        ::ReleaseCapture();
    }
}

TEST(YearMonthPickerWindow, EndedWithoutTheFocusThePopupClosesWithoutAMessage)
{
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
        EXPECT_EQ(Reports{"YMN_DROPDOWN 201005"}, p.parent.Take());
    }
}

TEST(YearMonthPickerWindow, WithoutAPopupItStaysDroppedAndTheNextClickTriesAgain)
{
    for (const bool hookRefuses : {false, true}) {
        g_hookRefuses = hookRefuses;
        Picker p;
        const HHOOK refusal = ::SetWindowsHookEx(WH_CBT, RefuseWindows, nullptr, ::GetCurrentThreadId());
        p.control->OnClicked();
        ::UnhookWindowsHookEx(refusal);
        EXPECT_EQ(nullptr, p.control->GetPopup());
        EXPECT_TRUE(p.control->IsDropped());
        EXPECT_EQ(Reports{"YMN_DROPDOWN 201005"}, p.parent.Take());
        p.Drop();
        p.ClickMonth(5);
        EXPECT_FALSE(p.control->IsDropped());
    }
}

TEST(YearMonthPickerWindow, KeepsATimeOfDayUntilTheNextPick)
{
    Picker p;
    p.control->SetCurrentDate(Day(2010, 5, 17, 8));
    EXPECT_EQ("2010/5/17+8h", p.Date());
    p.Drop();
    p.ClickMonth(5);
    EXPECT_EQ((Reports{"YMN_DROPDOWN 201005", "YMN_CLOSEUP 201005", "YMN_SELENDOK 201005", "YMN_DATECHANGE 201005"}),
              p.parent.Take());
    EXPECT_EQ("2010/5/1", p.Date());
    p.control->SetCurrentDate(NoDate());
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
            // Losing the focus in the first one, the picker reports that its popup closes; nothing follows.
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

TEST(YearMonthPickerWindow, ArrowAndTextFollowTheSize)
{
    Picker wide(CRect(10, 10, 210, 40));
    const Pixels expected = wide.Seen(*wide.control);
    CRect size;
    wide.control->GetWindowRect(&size);
    Picker p(CRect(10, 10, 160, 40));
    p.control->SetWindowPos(nullptr, 0, 0, size.Width(), size.Height(), SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(expected, p.Seen(*p.control));
}

TEST(YearMonthPickerWindow, PrintsWhatItShowsAndShowsTheFocusForTheKeyboard)
{
    Picker p(CRect(10, 10, 160, 40), Make<CYearMonthPickerCtrl, Cued<CYearMonthPickerCtrl>>);
    const Pixels unfocused = p.Seen(*p.control);
    ASSERT_TRUE(hardware::Focus(p.control->m_hWnd));
    EXPECT_EQ(unfocused, p.Seen(*p.control));
    hardware::Key(VK_SHIFT);
    EXPECT_NE(unfocused, p.Seen(*p.control));
    EXPECT_EQ(p.Seen(*p.control), p.Printed(*p.control));
    p.control->EnableWindow(FALSE);
    EXPECT_EQ(p.Seen(*p.control), p.Printed(*p.control));
    p.control->EnableWindow(TRUE);
    CYearMonthPopup& popup = p.Drop();
    EXPECT_EQ(p.Seen(popup), p.Printed(popup));
}

TEST(YearMonthPickerWindow, ThePopupsMonthOfTodayFollowsTheClock)
{
    Picker p;
    CYearMonthPopup& popup = p.Drop();
    const Pixels before = p.Seen(popup);
    g_now = Day(2010, 2, 1);
    ::SendMessage(::FindWindow(nullptr, "DayvaneTodayWatch"), WM_TIMECHANGE, 0, 0);
    EXPECT_NE(before, p.Seen(popup));
}

TEST(YearMonthPickerWindow, PaintsItsColoursWhereTheyBelong)
{
    testsupport::MemoryDc popup(120, 120, kUnpainted);
    const YearMonthLayout layout = CalcYearMonthLayout(CRect(0, 0, 120, 120));
    YearMonthFonts fonts;
    YearMonthPainter(&popup.Dc(), {layout, {2010, 4}, {}, false, Day(2010, 1, 15), fonts}).Draw();
    testsupport::MemoryDc face(150, 21, kUnpainted);
    PickerFonts faceFonts(kTextFont);
    PickerFacePainter(&face.Dc(),
                      {CRect(0, 0, 150, 21), CRect(131, 2, 148, 19), u"", false, false, false, false, faceFonts})
        .Draw();
    const struct
    {
        const char* what;
        const testsupport::MemoryDc& dc;
        CRect area; // all of which has the colour
        COLORREF color;
    } table[] = {
        {"popup's left border", popup, CRect(0, 20, 1, 120), kFrameBlue},
        {"popup's right border", popup, CRect(119, 20, 120, 120), kFrameBlue},
        {"popup's lower border", popup, CRect(0, 119, 120, 120), kFrameBlue},
        {"ground", popup, CRect(3, 21, 119, 22), ::GetSysColor(COLOR_WINDOW)},
        {"header's first colour", popup, CRect(0, 0, 120, 1), kBandTop},
        {"previous year's arrow, tip", popup, CRect(6, 10, 7, 11), kFrameBlue},
        {"previous year's arrow, foot", popup, CRect(11, 5, 12, 16), kFrameBlue},
        {"next year's arrow, tip", popup, CRect(110, 10, 111, 11), kFrameBlue},
        {"next year's arrow, foot", popup, CRect(105, 5, 106, 16), kFrameBlue},
        {"outline of May's box", popup, CRect(44, 40, 76, 41), kSelectedOutline},
        {"May's box", popup, CRect(43, 41, 77, 43), kSelectedGround},
        {"beside May's box", popup, CRect(40, 39, 41, 57), ::GetSysColor(COLOR_WINDOW)},
        {"separator", popup, CRect(5, 95, 115, 96), kFrameBlue},
        {"left of the separator", popup, CRect(1, 95, 5, 96), ::GetSysColor(COLOR_WINDOW)},
        {"right of the separator", popup, CRect(115, 95, 119, 96), ::GetSysColor(COLOR_WINDOW)},
        {"button's frame", face, CRect(0, 0, 150, 1), kFrameBlue},
        {"button's face", face, CRect(2, 2, 131, 19), ::GetSysColor(COLOR_BTNFACE)},
    };
    for (const auto& row : table) {
        EXPECT_EQ(0, row.dc.CountOther(row.area, row.color)) << row.what;
    }
}

TEST(YearMonthPickerWindow, DroppingAndPaintingLeaveNoObjectsBehind)
{
    Picker p;
    testsupport::ExpectNothingLeftBy([&] {
        for (int month = 1; month <= 12; ++month) {
            p.Drop();
            p.ClickMonth(month);
            p.control->UpdateWindow();
        }
    });
}
