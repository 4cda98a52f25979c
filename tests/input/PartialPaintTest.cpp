// One random script for all views: after every step the pixels of the window are those of a full paint. So nothing that
// changes is forgotten, and what is painted in part, or moved by scrolling, looks as if painted whole.
#include "core/DateMath.h"
#include "support/Input.h"
#include "support/OnlyWhatIsSent.h"
#include "support/RecordingParent.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

using namespace testsupport;

namespace {

constexpr int kSteps = sizeof(void*) == 4 ? 250 : 60; // both builds paint by the same sources
constexpr int kItems = 40;
constexpr UINT_PTR kNowTimer = 0x4E4F;    // of the time grids
constexpr UINT_PTR kScrollTimer = 0x4441; // at the edge, while something is dragged
constexpr UINT_PTR kBufferTimer = 0x4B42; // while the paint buffer is kept

COleDateTime g_now;
COleDateTime Now()
{
    return g_now;
}

// The pixels of a window as they stand on the screen.
class WindowPixels
{
public:
    explicit WindowPixels(CWnd& window)
    {
        window.GetClientRect(&m_client);
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = m_client.Width();
        info.bmiHeader.biHeight = -m_client.Height(); // top row first
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        CClientDC source(&window);
        CDC memory;
        memory.CreateCompatibleDC(&source);
        const HBITMAP bitmap = ::CreateDIBSection(memory.m_hDC, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (!bitmap) {
            return;
        }
        const HGDIOBJ old = ::SelectObject(memory.m_hDC, bitmap);
        memory.BitBlt(0, 0, m_client.Width(), m_client.Height(), &source, 0, 0, SRCCOPY);
        ::GdiFlush();
        const std::uint32_t* first = static_cast<const std::uint32_t*>(bits);
        m_pixels.assign(first, first + m_client.Width() * m_client.Height());
        ::SelectObject(memory.m_hDC, old);
        ::DeleteObject(bitmap);
    }

    // "" or where the first differences lie.
    std::string Difference(const WindowPixels& other) const
    {
        CRect box(INT_MAX, INT_MAX, -1, -1);
        for (size_t i = 0; i < m_pixels.size() && m_client == other.m_client; ++i) {
            if ((m_pixels[i] ^ other.m_pixels[i]) & 0xFFFFFF) {
                const int x = static_cast<int>(i) % m_client.Width();
                const int y = static_cast<int>(i) / m_client.Width();
                box = CRect(std::min<int>(box.left, x), std::min<int>(box.top, y), std::max<int>(box.right, x + 1),
                            std::max<int>(box.bottom, y + 1));
            }
        }
        CString text;
        if (box.right > 0) {
            text.Format("pixels in (%ld, %ld, %ld, %ld) of %d x %d differ", box.left, box.top, box.right, box.bottom,
                        m_client.Width(), m_client.Height());
        }
        return text.GetString();
    }
    bool IsEmpty() const
    {
        return std::all_of(m_pixels.begin(), m_pixels.end(), [this](std::uint32_t p) { return p == m_pixels[0]; });
    }

private:
    CRect m_client = CRect(0, 0, 0, 0);
    std::vector<std::uint32_t> m_pixels;
};

template <class View>
class Script
{
public:
    explicit Script(unsigned seed, const CalendarOptions& options) : m_random(seed)
    {
        g_now = COleDateTime(2017, 4, 26, 13, 20, 0);
        SetCalendarClock(&Now);
        m_parent.Create(700, 560);
        m_view.SetFirstDayOfWeek(1 + Roll(7));
        m_view.SetCurrentDate(g_now);
        m_view.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 660, 520), &m_parent, 7);
        m_view.SetOptions(options);
        for (int i = 0; i < kItems; ++i) {
            tagCC_ITEM item = RandomItem();
            m_view.AddItem(&item);
        }
        PumpMessages();
    }
    ~Script()
    {
        m_view.DestroyWindow();
        SetCalendarClock(nullptr);
    }

    void Run(int steps)
    {
        std::string story;
        for (int i = 0; i < steps && !::testing::Test::HasFailure(); ++i) {
            story += std::string(" ") + Step();
            PumpMessages(); // posted scrolling
            m_view.UpdateWindow();
            const WindowPixels shown(m_view);
            LayOutAll();
            m_view.Invalidate(FALSE);
            m_view.UpdateWindow();
            const WindowPixels whole(m_view);
            ASSERT_FALSE(whole.IsEmpty());
            EXPECT_EQ(shown.Difference(whole), "")
                << "after step " << i << story.substr(story.size() > 200 ? story.size() - 200 : 0);
        }
    }

private:
    int Roll(int sides) { return static_cast<int>(m_random() % static_cast<unsigned>(sides)); }
    CPoint RandomPoint() { return CPoint(Roll(660), Roll(520)); }

    tagCC_ITEM RandomItem()
    {
        tagCC_ITEM item;
        // Most in the shown week, all within the year.
        const int minutes = (Roll(3) ? Roll(8) - 4 : Roll(60) - 30) * 24 * 60 + Roll(48) * 30 - 800;
        item.dtStart = dayvane::AddMinutes(g_now, minutes);
        item.dtEnd = dayvane::AddMinutes(item.dtStart, Roll(5) ? 30 + Roll(8) * 30 : Roll(6) * 24 * 60);
        item.nFullday = Roll(5) == 0;
        item.strText.Format("item %d with a text of some length", Roll(100));
        item.crColor2 = RGB(128 + Roll(128), 128 + Roll(128), 128 + Roll(128));
        item.bAlarm = Roll(4) == 0;
        item.bRecurrent = Roll(4) == 0;
        item.bMovable = Roll(8) != 0;
        item.nReserved = Roll(2);
        return item;
    }

    const char* Step()
    {
        if (m_held && Roll(2)) {
            return Pointer(); // so that sweeps and drags go on for a while
        }
        switch (Roll(16)) {
        case 0:
        case 1:
        case 2:
            return Pointer();
        case 3:
            m_view.SendMessage(WM_VSCROLL, MAKEWPARAM(Roll(9), Roll(40)));
            return "scroll";
        case 4:
            messages::Key(m_view, VK_LEFT + Roll(4));
            return "key";
        case 5: {
            const KeyState shift({VK_SHIFT});
            m_view.SendMessage(WM_KEYDOWN, VK_LEFT + Roll(4), 0);
            return "shift+key";
        }
        case 6:
            messages::Key(m_view, VK_TAB);
            return "tab";
        case 7:
        case 8:
            return ChangeItems();
        case 9:
            m_view.SetCurSel(Roll(m_view.GetItemCount() + 1) - 1);
            return "select";
        case 10:
            Roll(2) ? m_view.SetFocus() : m_parent.SetFocus();
            return "focus";
        case 11:
        case 12:
            return InvalidateParts();
        case 13:
            g_now = dayvane::AddMinutes(g_now, 7);
            m_view.SendMessage(WM_TIMER, kNowTimer);
            return "clock";
        case 14:
            return Timer();
        default:
            if (Roll(4) == 0) {
                m_view.MoveWindow(0, 0, 300 + Roll(380), 200 + Roll(340));
                return "size";
            }
            m_view.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, (Roll(3) - 1) * WHEEL_DELTA), 0);
            return "wheel";
        }
    }

    // The pointer is the system's here, for the timer at the edge asks where it is.
    const char* Timer()
    {
        CPoint at(Roll(680) - 20, Roll(540) - 20);
        m_view.ClientToScreen(&at);
        ::SetCursorPos(at.x, at.y);
        m_view.SendMessage(WM_TIMER, Roll(8) ? kScrollTimer : kBufferTimer);
        return "timer";
    }

    // A press on an item or beside it, moves, a release; what is held stays held over other steps.
    const char* Pointer()
    {
        if (!m_held) {
            messages::LeftDown(m_view, m_at = PointToPress());
            m_held = true;
            return "press";
        }
        if (Roll(5) == 0) {
            messages::LeftUp(m_view, m_at);
            m_held = false;
            return "release";
        }
        m_at = Roll(2) ? m_at + CPoint(Roll(60) - 30, Roll(60) - 30) : RandomPoint();
        messages::Move(m_view, m_at, MK_LBUTTON);
        return "move";
    }

    // Whatever the view remembers of its last layout, it has to forget: the last item is another one.
    void LayOutAll()
    {
        const int last = m_view.GetItemCount() - 1;
        if (last >= 0 && last != m_view.GetCurSel()) {
            tagCC_ITEM item;
            m_view.GetItem(last, item);
            m_view.BeginUpdate();
            m_view.DeleteItem(last);
            m_view.AddItem(&item);
            m_view.EndUpdate();
        }
    }

    CPoint PointToPress()
    {
        for (int tries = 0; tries < 20; ++tries) {
            tagCCHITTESTINFO hit;
            hit.pt = RandomPoint();
            if (Roll(2) || m_view.HitTest(hit) != -1) {
                return hit.pt;
            }
        }
        return RandomPoint();
    }

    const char* ChangeItems()
    {
        tagCC_ITEM item = RandomItem();
        const int count = m_view.GetItemCount();
        if (count > kItems + 10 || (count > 0 && Roll(5) == 0)) {
            m_view.DeleteItem(Roll(count));
            m_view.Invalidate(FALSE); // the week and year view leave that to the host
            return "delete";
        }
        if (count > 0 && Roll(2)) {
            m_view.SetItem(Roll(count), &item);
            return "set";
        }
        m_view.AddItem(&item);
        return "add";
    }

    const char* InvalidateParts()
    {
        for (int i = 0; i < 2; ++i) {
            const CPoint at = RandomPoint();
            const CRect part(at.x, at.y, at.x + 1 + Roll(80), at.y + 1 + Roll(80));
            m_view.InvalidateRect(&part, FALSE);
        }
        return "part";
    }

    OnlyWhatIsSent m_hook;
    RecordingParent m_parent;
    View m_view;
    std::mt19937 m_random;
    CPoint m_at;
    bool m_held = false;
};

template <class View>
class PartialPaint : public testing::Test
{
};
using Views =
    testing::Types<CMonthViewCtrl, CMonthViewCtrl2, CWeekViewCtrl, CYearViewCtrl, CDayViewCtrl, CWeekDayViewCtrl>;
TYPED_TEST_SUITE(PartialPaint, Views);

} // namespace

TYPED_TEST(PartialPaint, LooksLikeAFullPaintAfterEveryStep)
{
    CalendarOptions asCreated = TypeParam().GetOptions();
    asCreated.nowLine = true;
    Script<TypeParam>(1, asCreated).Run(kSteps);
    Script<TypeParam>(2, CalendarOptions::Modern()).Run(kSteps);
}

namespace {

// What a month view's caption is asked to paint while its first item is dragged by a day.
template <class View>
int CaptionsPaintedByDragStep()
{
    g_now = COleDateTime(2017, 4, 26, 13, 20, 0);
    SetCalendarClock(&Now);
    RecordingParent parent;
    parent.Create(700, 560);
    View view;
    view.SetCurrentDate(g_now);
    view.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 660, 520), &parent, 7);
    tagCC_ITEM item;
    item.dtStart = item.dtEnd = g_now;
    view.AddItem(&item);
    view.Refresh();
    const CPoint at = view.GetScreenItems()[0].rcItem.CenterPoint();
    messages::LeftDown(view, at);
    messages::Move(view, at + CPoint(10, 0), MK_LBUTTON); // now it is held
    view.UpdateWindow();
    view.captions = 0;
    messages::Move(view, at + CPoint(100, 0), MK_LBUTTON);
    view.UpdateWindow();
    messages::LeftUp(view, at);
    view.DestroyWindow();
    SetCalendarClock(nullptr);
    return view.captions;
}

class CaptionCounter : public CMonthViewCtrl
{
public:
    int captions = 0;

protected:
    void DrawCaption(CDC* pDC, CRect rcCaption) override
    {
        captions += pDC->RectVisible(&rcCaption) ? 1 : 0;
        CMonthViewCtrl::DrawCaption(pDC, rcCaption);
    }
};

class CaptionCounterByParts : public CaptionCounter
{
public:
    CaptionCounterByParts() { UpdateByParts(TRUE); }
};

} // namespace

TEST(PartialPaintOfDerivedViews, ADragStepRepaintsEverythingUnlessTheClassAgrees)
{
    EXPECT_EQ(CaptionsPaintedByDragStep<CaptionCounter>(), 1);
    EXPECT_EQ(CaptionsPaintedByDragStep<CaptionCounterByParts>(), 0);
}

namespace {

// How much of a window waits to be painted, in pixels.
int PixelsToPaint(CWnd& window)
{
    CRgn region;
    region.CreateRectRgn(0, 0, 0, 0);
    const HRGN handle = static_cast<HRGN>(region.GetSafeHandle());
    ::GetUpdateRgn(window.m_hWnd, handle, FALSE);
    std::vector<char> bytes(::GetRegionData(handle, 0, nullptr));
    ::GetRegionData(handle, static_cast<DWORD>(bytes.size()), reinterpret_cast<RGNDATA*>(bytes.data()));
    int pixels = 0;
    for (size_t at = sizeof(RGNDATAHEADER); at + sizeof(RECT) <= bytes.size(); at += sizeof(RECT)) {
        RECT part;
        std::memcpy(&part, &bytes[at], sizeof(part));
        pixels += (part.right - part.left) * (part.bottom - part.top);
    }
    return pixels;
}

} // namespace

TEST(PartialPaintOfTheMonth, AWeekOfScrollingMovesWhatStays)
{
    g_now = COleDateTime(2017, 4, 12, 13, 20, 0);
    SetCalendarClock(&Now);
    RecordingParent parent;
    parent.Create(700, 560);
    CMonthViewCtrl view;
    view.SetCurrentDate(g_now);
    view.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 660, 520), &parent, 7);
    view.UpdateWindow();
    view.SendMessage(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_GT(PixelsToPaint(view), 660 * 520 / 6);
    EXPECT_LT(PixelsToPaint(view), 660 * 520 / 2);
    view.DestroyWindow();
    SetCalendarClock(nullptr);
}

namespace {

template <class View>
class LooksAtAll : public View // a derived class may change the store unseen: no index, no part of a layout
{
};

// A view and the same one derived, side by side.
template <class View>
class TwoViews
{
public:
    TwoViews()
    {
        g_now = COleDateTime(2017, 4, 26, 13, 20, 0);
        SetCalendarClock(&Now);
        parent.Create(700, 560);
        ForEach([this](CCalendarCtrl& view) {
            view.SetCurrentDate(g_now);
            view.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 660, 520), &parent, 7);
        });
    }
    ~TwoViews()
    {
        ForEach([](CCalendarCtrl& view) { view.DestroyWindow(); });
        SetCalendarClock(nullptr);
    }

    template <class Action>
    void ForEach(Action action)
    {
        action(indexed);
        action(plain);
    }

    std::string Items(const CCalendarCtrl& view)
    {
        CString text;
        for (INT_PTR i = 0; i < view.GetScreenItems().GetSize(); ++i) {
            const CCalendarCtrl::tagCALENDAR_ITEM& item = view.GetScreenItems()[i];
            text.AppendFormat("%d: %ld %ld %ld %ld %d; ", static_cast<int>(item.nSource), item.rcItem.left,
                              item.rcItem.top, item.rcItem.right, item.rcItem.bottom, item.bNoFocus);
        }
        return text.GetString();
    }

    RecordingParent parent;
    View indexed;
    LooksAtAll<View> plain;
};

template <class View>
class LargeStore : public testing::Test
{
};
TYPED_TEST_SUITE(LargeStore, Views);

} // namespace

TYPED_TEST(LargeStore, ShowsWhatIsShownWhenAllItemsAreLookedAt)
{
    TwoViews<TypeParam> two;
    std::mt19937 random(3);
    const auto roll = [&random](int sides) { return static_cast<int>(random() % static_cast<unsigned>(sides)); };
    const auto randomItem = [&] {
        tagCC_ITEM item;
        item.dtStart = dayvane::AddMinutes(g_now, roll(4000) * 24 * 60 - 2000 * 24 * 60 + roll(48) * 30);
        item.dtEnd = dayvane::AddMinutes(item.dtStart, roll(9) ? 60 : roll(90) * 24 * 60);
        return item;
    };
    std::vector<tagCC_ITEM> items(6000);
    std::generate(items.begin(), items.end(), randomItem);
    two.ForEach([&](CCalendarCtrl& view) { view.AddItems(items.data(), static_cast<int>(items.size())); });
    for (int step = 0; step < 40; ++step) {
        tagCC_ITEM item = randomItem();
        const int at = roll(5900);
        const int kind = roll(5);
        const COleDateTime date = dayvane::AddDays(g_now, roll(600) - 300);
        two.ForEach([&](CCalendarCtrl& view) {
            if (kind == 0) {
                view.DeleteItem(at);
            } else if (kind == 1) {
                view.SetItem(at, &item);
            } else if (kind == 2) {
                view.AddItem(&item);
            } else if (kind == 3) {
                view.SetCurrentDate(date);
                view.Refresh();
            } else {
                view.SendMessage(WM_VSCROLL, at % 2 ? SB_LINEDOWN : SB_PAGEUP);
            }
        });
        ASSERT_EQ(two.Items(two.indexed), two.Items(two.plain)) << "after step " << step << ", kind " << kind;
    }
}
