// The same text in different code pages looks the same in every view, and is edited and reported in its own.
#include "core/DateMath.h"
#include "core/TextCodec.h"
#include "support/Input.h"
#include "support/MemoryDc.h"
#include "support/RecordingParent.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <gtest/gtest.h>

#include <memory>

using namespace dayvane;
using namespace testsupport;

namespace {

const CSize kSize(700, 500);
const COleDateTime kDay(2026, 4, 15, 0, 0, 0);

// A view under a recording parent, and what it paints.
class ShownView
{
public:
    virtual ~ShownView() = default;
    virtual CCalendarCtrl& Ctrl() = 0;
    virtual void Paint(CDC* pDC) = 0;

    RecordingParent parent;

    void Add(const char* text, UINT codePage, int fullday)
    {
        tagCC_ITEM item;
        item.dtStart = COleDateTime(2026, 4, 15, 9, 0, 0);
        item.dtEnd = COleDateTime(2026, 4, 15, 10, 30, 0);
        item.nFullday = fullday;
        item.strText = text;
        Ctrl().SetTextCodePage(codePage);
        Ctrl().AddItem(&item);
    }
    void PaintOn(MemoryDc& surface)
    {
        Ctrl().Refresh();
        surface.Fill(RGB(255, 255, 255));
        Paint(&surface.Dc());
    }
};

template <class View>
class Shown : public ShownView
{
public:
    Shown()
    {
        parent.Create(kSize.cx, kSize.cy);
        m_view.SetFirstDayOfWeek(1);
        m_view.ShowFulldaySection(TRUE);
        m_view.Create(WS_CHILD | WS_VISIBLE, CRect(CPoint(0, 0), kSize), &parent, 7);
        m_view.SetCurrentDate(COleDateTime(2026, 4, 15, 8, 0, 0));
        PumpMessages();
    }
    ~Shown() override { m_view.DestroyWindow(); }
    CCalendarCtrl& Ctrl() override { return m_view; }
    void Paint(CDC* pDC) override { m_view.Draw(pDC); }

private:
    class Opened : public View
    {
    public:
        void Draw(CDC* pDC) { this->DrawCtrl(pDC); }
    };
    Opened m_view;
};

template <class View>
std::unique_ptr<ShownView> Make()
{
    return std::make_unique<Shown<View>>();
}

using MakeView = std::unique_ptr<ShownView> (*)();
const struct
{
    const char* name;
    MakeView make;
} kViews[] = {{"day", &Make<CDayViewCtrl>},     {"multi-day", &Make<CWeekDayViewCtrl>}, {"week", &Make<CWeekViewCtrl>},
              {"month", &Make<CMonthViewCtrl>}, {"month 2", &Make<CMonthViewCtrl2>},    {"year", &Make<CYearViewCtrl>}};

struct Text
{
    std::string bytes;
    UINT codePage;
};

// Each view with the items and the day's text, painted on the surface.
void PaintWith(MakeView make, const Text& text, MemoryDc& surface)
{
    const std::unique_ptr<ShownView> shown = make();
    shown->Add(text.bytes.c_str(), text.codePage, 0);
    shown->Add(text.bytes.c_str(), text.codePage, 1);
    tagCALENDAR_DAY_PROPERTY property;
    property.strText = text.bytes.c_str();
    shown->Ctrl().SetDayProperty(kDay, property);
    shown->PaintOn(surface);
}

} // namespace

TEST(CodePages, TheSameTextLooksTheSame)
{
    const bool isJapanese = ::GetACP() == 932;
    const struct
    {
        Text text, same, other;
    } rows[] = {
        {{"\x89\xEF\x8B\x63 A", 932}, {EncodeText(u"会議 A", kUtf8CodePage), CP_UTF8}, {"\x89\xEF\x8B\x63 A", 1252}},
        {{"M\xFCller caf\xE9", 1252}, {EncodeText(u"Müller café", kUtf8CodePage), CP_UTF8}, {"M\xFCller caf\xE9", 932}},
        // What the host says nothing about is the system's.
        {{isJapanese ? "\x89\xEF\x8B\x63" : "M\xFCller", CP_ACP},
         {EncodeText(isJapanese ? u"会議" : u"Müller", kUtf8CodePage), CP_UTF8},
         {isJapanese ? "\x89\xEF\x8B\x63" : "M\xFCller", static_cast<UINT>(isJapanese ? 1252 : 932)}},
    };
    MemoryDc picture(kSize.cx, kSize.cy);
    MemoryDc same(kSize.cx, kSize.cy);
    MemoryDc other(kSize.cx, kSize.cy);
    for (const auto& view : kViews) {
        for (const auto& row : rows) {
            PaintWith(view.make, row.text, picture);
            PaintWith(view.make, row.same, same);
            PaintWith(view.make, row.other, other);
            EXPECT_TRUE(picture.SameAs(same)) << view.name << " " << &row - rows;
            EXPECT_FALSE(picture.SameAs(other)) << view.name << " " << &row - rows;
        }
    }
}

TEST(CodePages, TheListOfMoreItemsShowsTheSame)
{
    const auto pictureOf = [](const Text& text) {
        const std::unique_ptr<ShownView> shown = Make<CMonthViewCtrl>();
        for (int i = 0; i < 20; ++i) {
            shown->Add(text.bytes.c_str(), text.codePage, 0);
        }
        static_cast<CMonthViewCtrl&>(shown->Ctrl()).EnableMoreList(TRUE);
        shown->Ctrl().SetSelRange(kDay, kDay);
        shown->Ctrl().Refresh();
        messages::Key(shown->Ctrl(), VK_F4);
        const HWND list = ::FindWindow("DayvaneMoreList", nullptr);
        auto picture = std::make_unique<MemoryDc>(kSize.cx, kSize.cy);
        EXPECT_NE(list, nullptr);
        ::RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        CClientDC dc(CWnd::FromHandle(list));
        picture->Dc().BitBlt(0, 0, kSize.cx, kSize.cy, &dc, 0, 0, SRCCOPY);
        return picture;
    };
    const auto own = pictureOf({"\x89\xEF\x8B\x63", 932});
    EXPECT_TRUE(own->SameAs(*pictureOf({EncodeText(u"会議", kUtf8CodePage), CP_UTF8})));
    EXPECT_FALSE(own->SameAs(*pictureOf({"\x89\xEF\x8B\x63", CP_UTF8})));
}

TEST(CalendarTexts, EveryViewSpeaksTheHostsLanguageAndBack)
{
    for (const auto& view : kViews) {
        const std::unique_ptr<ShownView> shown = view.make();
        MemoryDc pictures[4] = {{kSize.cx, kSize.cy}, {kSize.cx, kSize.cy}, {kSize.cx, kSize.cy}, {kSize.cx, kSize.cy}};
        shown->Add("x", CP_ACP, 0);
        shown->PaintOn(pictures[0]);
        shown->Ctrl().SetTexts(CalendarTexts::English());
        shown->PaintOn(pictures[1]);
        shown->Ctrl().SetTexts(CalendarTexts::Japanese());
        shown->PaintOn(pictures[2]);
        shown->Ctrl().SetTexts(CalendarTexts::Required());
        shown->PaintOn(pictures[3]);
        EXPECT_FALSE(pictures[0].SameAs(pictures[1])) << view.name;
        EXPECT_FALSE(pictures[1].SameAs(pictures[2])) << view.name;
        EXPECT_TRUE(pictures[0].SameAs(pictures[3])) << view.name;
        CalendarTexts mondays = CalendarTexts::English();
        mondays.firstDayOfWeek = 2;
        shown->Ctrl().SetTexts(mondays);
        EXPECT_EQ(shown->Ctrl().GetFirstDayOfWeek(), 2) << view.name;
        EXPECT_EQ(shown->Ctrl().GetTexts().wholeDay, u"all day");
    }
}

TEST(CodePages, TheStoreKeepsBytesThatAreNoCharacters)
{
    const std::unique_ptr<ShownView> shown = Make<CMonthViewCtrl>();
    shown->Add("a\xE3", CP_UTF8, 0);
    MemoryDc broken(kSize.cx, kSize.cy);
    shown->PaintOn(broken);
    tagCC_ITEM item;
    shown->Ctrl().GetItem(0, item);
    EXPECT_STREQ(item.strText, "a\xE3");
    item.strText = TextOf(L"a\xFFFD", CP_UTF8);
    EXPECT_STREQ(item.strText, "a\xEF\xBF\xBD");
    EXPECT_EQ(WideTextOf(item.strText, CP_UTF8), L"a\xFFFD");
    shown->Ctrl().SetItem(0, &item);
    MemoryDc marked(kSize.cx, kSize.cy);
    shown->PaintOn(marked);
    EXPECT_TRUE(broken.SameAs(marked));
}

TEST(CodePages, TypedTextComesOutInTheItemsPage)
{
    const auto send = [](WORD unit) {
        INPUT key = {};
        key.type = INPUT_KEYBOARD;
        key.ki.wScan = unit;
        key.ki.dwFlags = KEYEVENTF_UNICODE;
        ::SendInput(1, &key, sizeof(key));
        key.ki.dwFlags |= KEYEVENTF_KEYUP;
        ::SendInput(1, &key, sizeof(key));
        PumpMessages();
    };
    const struct
    {
        UINT codePage;
        std::string before, after;
    } rows[] = {
        // 한 is in UTF-8 only, é not in 932; the pair is one character; half a character in front survives the edit
        {CP_UTF8, "\xE3 ", "\xE3 " + EncodeText(u"한é会😀", kUtf8CodePage)},
        {932, "", "\x89\xEF"},
        {1252, "x", "x\xE9"},
    };
    for (const auto& row : rows) {
        const std::unique_ptr<ShownView> shown = Make<CMonthViewCtrl>();
        shown->Ctrl().SetTextCodePage(row.codePage);
        shown->Ctrl().SetSelRange(kDay, kDay);
        ASSERT_TRUE(hardware::Focus(shown->Ctrl().m_hWnd));
        shown->Ctrl().BeginEditItem(row.before.c_str());
        const HWND box = ::GetFocus();
        ::SendMessage(box, EM_SETSEL, 99, 99);
        for (const WORD unit : {0xD55C, 0xE9, 0x4F1A, 0xD83D, 0xDE00}) {
            send(unit);
        }
        PumpUntil([&] {
            return static_cast<size_t>(::GetWindowTextLengthW(box)) >= DecodeText(row.after, row.codePage).size();
        });
        messages::Key(box, VK_RETURN);
        ASSERT_FALSE(shown->parent.Log().empty());
        EXPECT_EQ(shown->parent.Log().back().editText, row.after) << row.codePage;
    }
}
