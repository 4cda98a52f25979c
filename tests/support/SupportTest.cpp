// The tools of the other tests: a leak check that sees nothing, or input that reaches no window, would let them all
// pass.
#include "tests/support/GuiCounts.h"
#include "tests/support/Input.h"
#include "tests/support/MemoryDc.h"
#include "tests/support/RecordingParent.h"

#include <gtest/gtest.h>
#include <windowsx.h>

using namespace testsupport;

namespace {

void FreeGdi(HANDLE object)
{
    ::DeleteObject(object);
}

TEST(GuiCountsTest, SeesEveryKindOfObject)
{
    const struct
    {
        const char* what;
        HANDLE (*make)();
        void (*free)(HANDLE);
        int GuiCounts::*count;
    } kinds[] = {
        {"pen", [] { return HANDLE(::CreatePen(PS_SOLID, 1, 77)); }, FreeGdi, &GuiCounts::gdiObjects},
        {"brush", [] { return HANDLE(::CreateSolidBrush(77)); }, FreeGdi, &GuiCounts::gdiObjects},
        {"font", [] { return HANDLE(::CreateFont(9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Arial")); }, FreeGdi,
         &GuiCounts::gdiObjects},
        {"memory DC", [] { return HANDLE(::CreateCompatibleDC(nullptr)); },
         [](HANDLE dc) { ::DeleteDC(static_cast<HDC>(dc)); }, &GuiCounts::gdiObjects},
        {"menu", [] { return HANDLE(::CreatePopupMenu()); },
         [](HANDLE menu) { ::DestroyMenu(static_cast<HMENU>(menu)); }, &GuiCounts::userObjects},
        {"message window",
         [] { return HANDLE(::CreateWindow("static", "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr)); },
         [](HANDLE window) { ::DestroyWindow(static_cast<HWND>(window)); }, &GuiCounts::userObjects},
        {"cursor", [] { return HANDLE(CopyCursor(::LoadCursor(nullptr, IDC_ARROW))); },
         [](HANDLE cursor) { ::DestroyCursor(static_cast<HCURSOR>(cursor)); }, &GuiCounts::userObjects},
    };
    for (const auto& kind : kinds) {
        kind.free(kind.make()); // fills the system's caches
        const GuiCounts before = GuiCounts::Now();
        const HANDLE held = kind.make();
        EXPECT_GT(GuiCounts::Now().*kind.count, before.*kind.count) << kind.what;
        kind.free(held);
        EXPECT_EQ(GuiCounts::Now().Text(), before.Text()) << kind.what;
    }
}

TEST(MemoryDcTest, FindsColoursAndPlaces)
{
    MemoryDc surface(20, 10, RGB(1, 2, 3));
    surface.Dc().FillSolidRect(CRect(4, 5, 8, 7), RGB(255, 128, 0));
    EXPECT_EQ(surface.Pixel(4, 5), static_cast<COLORREF>(RGB(255, 128, 0)));
    EXPECT_EQ(surface.Pixel(8, 7), static_cast<COLORREF>(RGB(1, 2, 3)));
    EXPECT_EQ(surface.Count(CRect(0, 0, 20, 10), RGB(255, 128, 0)), 8);
    EXPECT_EQ(surface.CountOther(CRect(0, 0, 20, 10), RGB(1, 2, 3)), 8);
    EXPECT_EQ(surface.Pixel(20, 0), static_cast<COLORREF>(CLR_INVALID));
}

// A window that writes down the input it gets.
class InputLog : public CWnd
{
public:
    std::vector<std::string> lines;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const std::string point = std::to_string(GET_X_LPARAM(lParam)) + "," + std::to_string(GET_Y_LPARAM(lParam));
        const bool shift = ::GetKeyState(VK_SHIFT) < 0;
        switch (message) {
        case WM_LBUTTONDOWN:
            lines.push_back("down " + point);
            break;
        case WM_LBUTTONUP:
            lines.push_back("up " + point);
            break;
        case WM_LBUTTONDBLCLK:
            lines.push_back("double " + point);
            break;
        case WM_MOUSEWHEEL:
            lines.push_back("wheel " + std::to_string(GET_WHEEL_DELTA_WPARAM(wParam)));
            break;
        case WM_CHAR:
            lines.push_back(std::string("char ") + static_cast<char>(wParam));
            break;
        case WM_KEYDOWN:
            if (wParam != VK_SHIFT) {
                lines.push_back("key " + std::to_string(wParam) + (shift ? " shift" : ""));
            }
            break;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST(InputTest, ReachesTheWindowEitherWay)
{
    RecordingParent parent;
    ASSERT_TRUE(parent.Create(300, 200));
    InputLog window;
    const LPCTSTR windowClass = AfxRegisterWndClass(CS_DBLCLKS);
    ASSERT_TRUE(window.Create(windowClass, "", WS_CHILD | WS_VISIBLE, CRect(10, 10, 290, 190), &parent, 1));
    const std::vector<std::string> expected = {"down 30,40", "up 30,40",     "double 30,40", "up 30,40",
                                               "wheel -120", "key 39 shift", "key 65",       "char a"};

    messages::DoubleClick(window, CPoint(30, 40));
    messages::Wheel(window, CPoint(30, 40), -1);
    {
        KeyState shift({VK_SHIFT});
        messages::Key(window, VK_RIGHT);
    }
    messages::Key(window, 'A');
    EXPECT_EQ(window.lines, expected);

    window.lines.clear();
    ASSERT_TRUE(hardware::Focus(window));
    hardware::DoubleClick(window, CPoint(30, 40));
    hardware::Wheel(window, CPoint(30, 40), -1);
    hardware::Key(VK_RIGHT, {VK_SHIFT});
    hardware::Type("a");
    EXPECT_EQ(window.lines, expected);
}

TEST(RecordingParentTest, CopiesRecordsAndRunsTheHook)
{
    RecordingParent parent;
    ASSERT_TRUE(parent.Create(100, 100));
    parent.Ignore(CCN_MOUSEHOVER);
    NMCALENDAREDIT edit = {};
    edit.hdr = {parent.m_hWnd, 7, static_cast<UINT>(CCN_IPE_ENDEDITITEM)};
    char text[] = "new";
    edit.lpszText = text;
    edit.nLength = 3;
    edit.stStart = {2017, 4, 2, 25, 10, 30, 0, 0};
    NMHDR hover = {parent.m_hWnd, 7, static_cast<UINT>(CCN_MOUSEHOVER)};
    parent.SetHook([&](const Notification&) {
        text[0] = 'X';
        return LRESULT{5};
    });
    EXPECT_EQ(parent.SendMessage(WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&edit)), 5);
    parent.SendMessage(WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&hover));
    parent.SendMessage(6026, 201704, 9);
    const std::vector<std::string> expected = {
        "CCN_IPE_ENDEDITITEM text=\"new\" length=3 start=2017-04-25 10:30:00 end=none mode=0",
        "YMN_DROPDOWN wParam=201704 lParam=9"};
    EXPECT_EQ(parent.Lines(), expected);
}

} // namespace
