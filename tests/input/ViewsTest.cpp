// What all views do alike: pictures for others, today, the focus that is seen, dialogs, the options of input.
#include "support/MemoryDc.h"
#include "support/ViewScene.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

using namespace testsupport;

namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 420;
constexpr COLORREF kNothing = RGB(1, 2, 3);

COleDateTime g_now;

COleDateTime At(int month, int day, int hour = 0, int minute = 0)
{
    return COleDateTime(2026, month, day, hour, minute, 0);
}

template <class View>
class Open : public OpenView<View>
{
public:
    std::vector<std::string> painted; // the items whose painting went through the hook
    bool hidesFocus = false;          // the state of the top-level window, which not every system keeps

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return message == WM_QUERYUISTATE && hidesFocus ? UISF_HIDEFOCUS : View::WindowProc(message, wParam, lParam);
    }
    void DrawItemBox(CDC& dc, const dayvane::ItemBox& box) override
    {
        painted.push_back(box.item.strText.GetString());
        View::DrawItemBox(dc, box);
    }
};

template <class View>
class Views : public testing::Test
{
protected:
    RecordingParent parent;
    Open<View>* view = nullptr;

    Views()
    {
        g_now = At(4, 30, 8);
        SetCalendarClock([] { return g_now; });
        parent.Create(kWidth, kHeight);
        view = Made(&parent);
    }
    ~Views() override
    {
        delete view;
        SetCalendarClock(nullptr);
    }

    static Open<View>* Made(CWnd* parent)
    {
        auto* made = new Open<View>;
        made->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, kWidth, kHeight), parent, 7);
        made->SetCurrentDate(At(4, 30, 9));
        made->Refresh();
        PumpMessages();
        return made;
    }
    void Add(const char* text, const COleDateTime& start, const COleDateTime& end)
    {
        tagCC_ITEM item;
        item.dtStart = start;
        item.dtEnd = end;
        item.strText = text;
        item.lParam = 70 + view->GetItemCount();
        const tagCC_ITEM& record = item; // of a host that keeps its records
        view->AddItem(&record);
        view->Refresh();
    }
    void SetOption(bool CalendarOptions::*option)
    {
        CalendarOptions options = view->GetOptions();
        options.*option = true;
        view->SetOptions(options);
    }
    // As PrintWindow asks for it.
    static void Print(CWnd& window, MemoryDc& picture)
    {
        picture.Fill(kNothing);
        window.SendMessage(WM_PRINT, reinterpret_cast<WPARAM>(picture.Dc().m_hDC), PRF_CLIENT);
    }
    CRect Client()
    {
        CRect client;
        view->GetClientRect(&client);
        return client;
    }
    std::string Selected()
    {
        return (view->m_dtSelBegin.Format("%m-%d %H:%M - ") + view->m_dtSelEnd.Format("%m-%d %H:%M")).GetString();
    }
};
using AllViews =
    testing::Types<CMonthViewCtrl, CMonthViewCtrl2, CWeekViewCtrl, CYearViewCtrl, CDayViewCtrl, CWeekDayViewCtrl>;
TYPED_TEST_SUITE(Views, AllViews);

TYPED_TEST(Views, GiveTheirPictureToOthers)
{
    this->Add("talk", At(4, 30, 10), At(4, 30, 12));
    MemoryDc drawn(kWidth, kHeight, kNothing);
    this->view->DrawCtrl(&drawn.Dc());
    MemoryDc printed(kWidth, kHeight);
    this->Print(*this->view, printed);
    const CRect client = this->Client();
    EXPECT_EQ(printed.CountOther(CRect(client.right, 0, kWidth, kHeight), kNothing), 0) << "nothing beside the window";
    EXPECT_EQ(printed.Count(client, kNothing), 0);
    MemoryDc again(kWidth, kHeight);
    this->Print(*this->view, again);
    EXPECT_TRUE(printed.SameAs(again));

    this->view->EnableWindow(FALSE);
    MemoryDc disabled(kWidth, kHeight);
    this->Print(*this->view, disabled);
    EXPECT_FALSE(disabled.SameAs(printed)) << "a disabled view looks so";
    this->view->EnableWindow(TRUE);
    this->Print(*this->view, again);
    EXPECT_TRUE(printed.SameAs(again));
    EXPECT_FALSE(this->view->painted.empty()) << "the hook paints the item";
}

TYPED_TEST(Views, TodayFollowsTheClock)
{
    MemoryDc before(kWidth, kHeight), after(kWidth, kHeight), fresh(kWidth, kHeight);
    this->Print(*this->view, before);
    g_now = At(5, 1, 8);
    ::SendMessage(::FindWindow(nullptr, "DayvaneTodayWatch"), WM_TIMECHANGE, 0, 0);
    CRect unpainted;
    EXPECT_TRUE(this->view->GetUpdateRect(&unpainted));
    this->Print(*this->view, after);
    const auto other = std::unique_ptr<Open<TypeParam>>(this->Made(&this->parent));
    this->Print(*other, fresh);
    EXPECT_TRUE(after.SameAs(fresh));
    EXPECT_EQ(before.SameAs(after), (std::is_same<TypeParam, CDayViewCtrl>::value)) << "a day has no mark of today";
    g_now = At(5, 2, 8); // of a clock that reports nothing
    this->view->Refresh();
    other->Refresh();
    this->Print(*this->view, after);
    const auto next = std::unique_ptr<Open<TypeParam>>(this->Made(&this->parent));
    this->Print(*next, fresh);
    EXPECT_TRUE(after.SameAs(fresh));
}

TYPED_TEST(Views, ShowTheFocusOnceTheKeyboardIsUsed)
{
    ASSERT_TRUE(hardware::Focus(*this->view));
    const auto differs = [&] {
        MemoryDc drawn(kWidth, kHeight, kNothing), printed(kWidth, kHeight);
        this->view->DrawCtrl(&drawn.Dc());
        this->Print(*this->view, printed);
        CRect box = this->view->GetFocusBox();
        int others = 0;
        const CRect client = this->Client();
        for (int y = 0; y < client.bottom; ++y) {
            for (int x = 0; x < client.right; ++x) {
                if (drawn.Pixel(x, y) != printed.Pixel(x, y)) {
                    ++others;
                    EXPECT_TRUE(box.PtInRect(CPoint(x, y))) << x << ',' << y;
                }
            }
        }
        return others > 0;
    };
    EXPECT_FALSE(differs());
    hardware::Key(VK_RIGHT);
    EXPECT_TRUE(differs());
    hardware::Click(*this->view, this->view->m_rcContent.CenterPoint());
    EXPECT_FALSE(differs()) << "the mouse needs no cue";
    hardware::Key(VK_ESCAPE);
    EXPECT_FALSE(differs()) << "that takes a drag back: the hand stays at the mouse";
    hardware::Key(VK_LEFT, {VK_SHIFT});
    EXPECT_TRUE(differs());
    this->view->hidesFocus = true;
    EXPECT_FALSE(differs()) << "the system's rule";
}

// The controls of a dialog template are windows before they are objects.
template <class View>
const wchar_t* ClassName();
template <>
const wchar_t* ClassName<CMonthViewCtrl>()
{
    return L"MFCMonthViewCtrl";
}
template <>
const wchar_t* ClassName<CMonthViewCtrl2>()
{
    return L"MFCMonthViewCtrl";
}
template <>
const wchar_t* ClassName<CWeekViewCtrl>()
{
    return L"MFCWeekViewCtrl";
}
template <>
const wchar_t* ClassName<CYearViewCtrl>()
{
    return L"MFCYearViewCtrl";
}
template <>
const wchar_t* ClassName<CDayViewCtrl>()
{
    return L"MFCDayViewCtrl";
}
template <>
const wchar_t* ClassName<CWeekDayViewCtrl>()
{
    return L"MFCWeekDayViewCtrl";
}

TYPED_TEST(Views, BelongToWindowsThatWereThereBefore)
{
    const std::wstring name = ClassName<TypeParam>();
    const HWND window =
        ::CreateWindowExW(0, name.c_str(), L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL, 0, 0, kWidth, kHeight, this->parent,
                          reinterpret_cast<HMENU>(8), ::GetModuleHandle(nullptr), nullptr);
    Open<TypeParam> attached;
    ASSERT_TRUE(window && attached.SubclassWindow(window));
    EXPECT_TRUE(attached.m_rcContent == this->view->m_rcContent) << "before anything else is done";
    for (Open<TypeParam>* view : {this->view, &attached}) {
        for (int i = 0; i < 30; ++i) {
            tagCC_ITEM item;
            item.dtStart = At(4, 30, 9, i);
            item.dtEnd = At(4, 30, 12);
            item.strText = "talk";
            view->AddItem(&item);
        }
        view->SetCurrentDate(At(4, 30, 9));
        view->Refresh();
    }
    PumpMessages();
    EXPECT_EQ(attached.GetScreenItems().GetSize(), this->view->GetScreenItems().GetSize());
    EXPECT_EQ(attached.GetVertScrollOffset(), this->view->GetVertScrollOffset()) << "at the present time";
    EXPECT_EQ(attached.GetScrollLimit(SB_VERT), this->view->GetScrollLimit(SB_VERT));
    MemoryDc made(kWidth, kHeight), found(kWidth, kHeight);
    this->Print(*this->view, made);
    this->Print(attached, found);
    EXPECT_TRUE(made.SameAs(found));
    attached.UnsubclassWindow();
    ::DestroyWindow(window);
}

std::vector<UINT> g_heard;

LRESULT CALLBACK HearMouse(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
        g_heard.push_back(message);
    }
    return ::DefWindowProc(window, message, wParam, lParam);
}

TYPED_TEST(Views, LeaveTheMouseToTheProcedureThatWasThereBefore)
{
    WNDCLASS windowClass = {};
    windowClass.lpfnWndProc = HearMouse;
    windowClass.hInstance = ::GetModuleHandle(nullptr);
    windowClass.lpszClassName = "HearsTheMouse";
    ::RegisterClass(&windowClass); // once for all views
    const HWND window = ::CreateWindow(windowClass.lpszClassName, "", WS_CHILD, 0, 0, kWidth, kHeight, this->parent,
                                       nullptr, windowClass.hInstance, nullptr);
    TypeParam attached;
    ASSERT_TRUE(window && attached.SubclassWindow(window));
    g_heard.clear();
    const std::vector<UINT> sent = {WM_MOUSEMOVE, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN};
    for (const UINT message : sent) {
        attached.SendMessage(message, 0, MAKELPARAM(kWidth / 2, kHeight / 2));
    }
    EXPECT_EQ(g_heard, sent);
    attached.UnsubclassWindow();
    ::DestroyWindow(window);
}

TYPED_TEST(Views, GetAScrollBarAlsoWithoutItsStyle)
{
    TypeParam bare;
    bare.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, kWidth, kHeight), &this->parent, 9);
    EXPECT_TRUE(bare.GetStyle() & WS_VSCROLL) << "as its header says";
}

TYPED_TEST(Views, KeepTheirTitleWithoutAColourRow)
{
    this->view->SetDayColor(At(4, 30), 99);
    MemoryDc picture(kWidth, kHeight);
    this->Print(*this->view, picture);
    const CRect title = this->view->m_rcCaption;
    EXPECT_GT(title.Height(), 0);
    EXPECT_EQ(picture.Count(title, kNothing), 0);
}

// What the header and the guide say of the single colours.
template <class View>
std::string ColoursOf()
{
    const std::string all = "captionText grid highlight ";
    if (std::is_base_of<CTimeGridCtrl, View>::value) {
        return all + "content ruler rulerText " + (std::is_same<View, CWeekDayViewCtrl>::value ? "caption " : "");
    }
    return all + "highlightText " +
           (std::is_base_of<CMonthViewCtrl, View>::value ? "ruler rulerText "
            : std::is_same<View, CYearViewCtrl>::value   ? "content caption "
                                                         : "content ");
}

TYPED_TEST(Views, ShowTheirColoursWhereItIsSaid)
{
    using C = CCalendarCtrl;
    using Colors = dayvane::CalendarColors;
    const struct
    {
        const char* name;
        void (C::*set)(COLORREF);
        COLORREF Colors::*value;
    } setters[] = {{"captionText", &C::SetCaptionTextColor, &Colors::captionText},
                   {"grid", &C::SetGridColor, &Colors::grid},
                   {"highlight", &C::SetHighLightColor, &Colors::highlight},
                   {"highlightText", &C::SetHighLightTextColor, &Colors::highlightText},
                   {"content", &C::SetContentColor, &Colors::content},
                   {"ruler", &C::SetRulerColor, &Colors::ruler},
                   {"rulerText", &C::SetRulerTextColor, &Colors::rulerText},
                   {"caption", &C::SetCaptionColor, &Colors::caption},
                   {"border", &C::SetBorderColor, &Colors::border},
                   {"itemBorder", &C::SetItemBorderColor, &Colors::itemBorder},
                   {"noFocus", &C::SetNoFocusColor, &Colors::noFocus}};
    constexpr COLORREF kProbe = RGB(9, 200, 77);
    this->Add("talk", At(4, 30, 10), At(4, 30, 12)); // current, beside a selection; and weeks have their numbers
    dayvane::DayLines lines;
    lines.weekNumbers = true;
    this->view->SetDayLines(lines);
    this->view->ShowSelectionWithItem(TRUE);
    this->view->SetCurSel(0);
    MemoryDc before(kWidth, kHeight), after(kWidth, kHeight);
    this->Print(*this->view, before);
    std::string shown;
    for (const auto& setter : setters) {
        const COLORREF own = this->view->GetColors().*setter.value;
        (this->view->*setter.set)(kProbe);
        this->Print(*this->view, after);
        shown += after.SameAs(before) ? "" : setter.name + std::string(" ");
        (this->view->*setter.set)(own);
    }
    this->Print(*this->view, after);
    EXPECT_TRUE(after.SameAs(before));
    EXPECT_EQ(shown, ColoursOf<TypeParam>());
}

// ---- Options

TYPED_TEST(Views, ReportTheSelection)
{
    this->SetOption(&CalendarOptions::selectionEvents);
    ASSERT_TRUE(hardware::Focus(*this->view));
    const auto causes = [&] {
        std::string text;
        for (const Notification& sent : this->parent.Log()) {
            if (sent.Code() == CCN_SELCHANGED) {
                COleDateTime begin, end;
                this->view->GetSelRange(begin, end);
                EXPECT_EQ(TimeText(sent.range.stBegin), std::string(begin.Format("%Y-%m-%d %H:%M:%S")));
                EXPECT_EQ(TimeText(sent.range.stEnd), std::string(end.Format("%Y-%m-%d %H:%M:%S")));
                text += std::to_string(sent.range.nCause) + " ";
            }
        }
        this->parent.ClearLog();
        return text;
    };
    const std::string key = std::to_string(CCSEL_KEY) + " ";
    causes();
    hardware::Key(VK_RIGHT);
    EXPECT_EQ(causes(), key);
    const CPoint from(this->view->m_rcContent.left + 30, this->view->m_rcContent.top + 60);
    hardware::Move(*this->view, from);
    hardware::LeftDown();
    EXPECT_EQ(causes(), std::to_string(CCSEL_PRESS) + " ");
    hardware::Move(*this->view, CPoint(from.x + 200, from.y + 100));
    EXPECT_EQ(causes(), "") << "a sweep is reported at its end";
    hardware::LeftUp();
    EXPECT_EQ(causes(), std::to_string(CCSEL_SWEEP) + " ");
    hardware::Key(VK_F7);
    EXPECT_EQ(causes(), "") << "nothing has changed";
    this->parent.SetHook([&](const Notification& sent) {
        if (sent.Code() == CCN_SELCHANGED) {
            this->view->DestroyWindow();
        }
        return 0;
    });
    hardware::Key(VK_LEFT);
    EXPECT_FALSE(this->view->m_hWnd);
}

TYPED_TEST(Views, LeaveKeysToTheDialog)
{
    CEdit before, after;
    before.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(0, kHeight - 40, 50, kHeight), &this->parent, 20);
    after.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(60, kHeight - 40, 99, kHeight), &this->parent, 21);
    this->view->ModifyStyle(0, WS_TABSTOP);
    this->view->SetWindowPos(&before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    this->Add("one", At(4, 30, 9), At(4, 30, 10));
    this->Add("two", At(4, 30, 13), At(4, 30, 14));
    this->parent.ActAsDialog();
    const auto tab = [&](std::initializer_list<int> held = {}) {
        hardware::Key(VK_TAB, held);
        const HWND focus = ::GetFocus();
        return (focus == after ? "after" : focus == before ? "before" : std::to_string(this->view->GetCurSel()));
    };
    ASSERT_TRUE(hardware::Focus(*this->view));
    this->view->SetCurSel(1);
    EXPECT_EQ(tab(), "0") << "without the option Tab goes round";
    this->view->SetCurSel(-1);
    this->SetOption(&CalendarOptions::dialogKeys);
    EXPECT_EQ(tab(), "0");
    EXPECT_EQ(tab(), "1");
    EXPECT_EQ(tab({VK_SHIFT}), "0");
    EXPECT_EQ(tab(), "1");
    EXPECT_EQ(tab(), "after");
    this->view->SetFocus();
    this->view->SetCurSel(0);
    EXPECT_EQ(tab({VK_SHIFT}), "before");
    this->view->SetFocus();
    const auto wants = [&](int virtualKey) {
        MSG message = {*this->view, WM_KEYDOWN, static_cast<WPARAM>(virtualKey), 1, 0, {}};
        return (this->view->SendMessage(WM_GETDLGCODE, virtualKey, reinterpret_cast<LPARAM>(&message)) &
                DLGC_WANTMESSAGE) != 0;
    };
    EXPECT_FALSE(wants(VK_ESCAPE));
    hardware::Move(*this->view, this->view->m_rcContent.CenterPoint());
    hardware::LeftDown();
    EXPECT_TRUE(wants(VK_ESCAPE)) << "there is something to take back";
    hardware::LeftUp();
}

TYPED_TEST(Views, AddUpTheWheel)
{
    this->SetOption(&CalendarOptions::wheelByDelta);
    ASSERT_TRUE(hardware::Focus(*this->view));
    const CPoint point = this->view->m_rcContent.CenterPoint();
    const auto turn = [&](int delta) { hardware::TurnWheel(*this->view, point, delta); };
    const auto push = [&](int delta) { hardware::PushWheel(*this->view, point, delta); };
    const auto scale = [&](int delta) {
        hardware::KeyDown(VK_CONTROL);
        turn(delta);
        hardware::KeyUp(VK_CONTROL);
    };
    const auto place = [&] {
        COleDateTime first, last;
        this->view->GetViewRange(first, last);
        return std::string(first.Format("%Y-%m-%d")) + "/" + std::to_string(this->view->GetVertScrollOffset()) + "/" +
               std::to_string(this->view->GetTimeScale());
    };
    turn(-120); // off the end of the day
    const std::string start = place();
    turn(10);
    EXPECT_EQ(place(), start) << "too little";
    for (int i = 0; i < 11; ++i) {
        turn(10);
    }
    const std::string up = place();
    EXPECT_NE(up, start);
    turn(-120);
    EXPECT_EQ(place(), start);
    push(120);
    const std::string right = place();
    EXPECT_GT(right, start) << "later";
    push(-120);
    EXPECT_EQ(place(), start);
    scale(120);
    const bool isGrid = this->view->IsKindOf(RUNTIME_CLASS(CTimeGridCtrl)) != FALSE;
    EXPECT_EQ(this->view->GetTimeScale(), isGrid ? 3 : 2);
    scale(-120);
    EXPECT_EQ(place(), start);
}

TYPED_TEST(Views, TakeCarelessDropsBack)
{
    this->Add("talk", At(4, 30, 9), At(4, 30, 10));
    ASSERT_TRUE(hardware::Focus(*this->view));
    this->view->SetCurSel(0);
    const CPoint item = this->view->GetFocusBox().CenterPoint();
    this->view->SetCurSel(-1);
    const CRect content = this->view->m_rcContent;
    const CPoint elsewhere(content.left + 40, content.top + content.Height() / 4);
    const CPoint outside(content.CenterPoint().x, kHeight + 60);
    const std::string selected = this->Selected();
    const int offset = this->view->m_nVertScroll;
    int drags = 0;
    const auto drag = [&](std::initializer_list<CPoint> way) {
        this->parent.ClearLog();
        hardware::Move(*this->view, item + CSize(8 * drags++, 0)); // two presses at one point are a double click
        hardware::LeftDown();
        for (const CPoint& point : way) {
            hardware::Move(*this->view, point);
            hardware::Move(*this->view, CPoint(point.x + 1, point.y));
        }
        COleDateTime start, end;
        EXPECT_TRUE(this->view->GetDragOrigin(start, end)) << "it is a drag";
    };
    const auto times = [&] {
        tagCC_ITEM record;
        this->view->GetItem(0, record);
        return std::string(record.dtStart.Format("%m-%d %H:%M"));
    };
    drag({elsewhere});
    EXPECT_NE(times(), "04-30 09:00");
    EXPECT_FALSE(AfxGetApp());
    const HCURSOR cursor = ::GetCursor();
    EXPECT_TRUE(cursor != ::LoadCursor(nullptr, IDC_SIZEALL) && cursor != ::LoadCursor(nullptr, IDC_ARROW))
        << "the library's own, in a program without an application object, too";
    hardware::Key(VK_ESCAPE);
    EXPECT_EQ(times(), "04-30 09:00");
    EXPECT_EQ(this->Selected(), selected) << "Escape restores the selection";
    hardware::LeftUp();

    this->SetOption(&CalendarOptions::carefulDrops);
    this->SetOption(&CalendarOptions::extendedMove);
    drag({elsewhere, outside});
    hardware::LeftUp();
    EXPECT_EQ(times(), "04-30 09:00");
    EXPECT_EQ(this->parent.Count(CCN_ITEMMOVED), 0) << "dropped outside";
    this->view->SetCurrentDate(At(4, 30, 9)); // it may have scrolled on the way
    this->view->m_nVertScroll = offset;
    this->view->Refresh();
    drag({elsewhere, item});
    hardware::LeftUp();
    EXPECT_EQ(times(), "04-30 09:00");
    EXPECT_EQ(this->parent.Count(CCN_ITEMMOVED), 0) << "nothing has changed";
}

} // namespace
