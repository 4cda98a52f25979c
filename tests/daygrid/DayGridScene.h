// A day grid in a real window, with a parent that records its notifications. It is 22 April 2026, a Wednesday.
#pragma once

#include "DayGridTesting.h"
#include "support/GuiCounts.h"
#include "support/MemoryDc.h"
#include "support/ViewScene.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"

#include <gtest/gtest.h>

constexpr int kWidth = 706; // cells of 100 x 100 in the month, boxes of 176 x 308 in the week, of 117 x 308 in the year
constexpr int kHeight = 647;

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kBlack = 0x000000;
constexpr COLORREF kUnpainted = RGB(1, 2, 3);
constexpr COLORREF kItemBack = 0x60F060;
constexpr COLORREF kTodayOutline = 0x216FF1;
constexpr COLORREF kSelectedOutline = 0xFF7700;

inline COleDateTime FixedNow()
{
    return COleDateTime(2026, 4, 22, 15, 30, 0);
}

inline COleDateTime Day(int month, int day)
{
    return Day(2026, month, day);
}

inline tagCC_ITEM ItemOf(const COleDateTime& start, const COleDateTime& end)
{
    tagCC_ITEM item;
    item.dtStart = start;
    item.dtEnd = end;
    item.strText = "item";
    return item;
}

template <class View>
class Open : public testsupport::OpenView<View>
{
public:
    using typename View::MoreBox;
    using View::GetBoxCount;
    using View::GetMoreBox;
    using View::HasMoreMark;
};

using Lines = std::vector<std::string>;

template <class View>
class Scene : public testsupport::ViewScene<Open<View>>
{
    using Base = testsupport::ViewScene<Open<View>>;

public:
    using Base::parent;
    using Base::view;
    testsupport::MemoryDc picture{kWidth, kHeight};

    explicit Scene(const COleDateTime& date = Day(4, 15))
        : Base(FixedNow, CSize(kWidth + ::GetSystemMetrics(SM_CXVSCROLL), kHeight), WS_VSCROLL,
               [&](Open<View>& made) { made.SetCurrentDate(date); })
    {
    }

    void Add(const COleDateTime& start, const COleDateTime& end, int count = 1, COLORREF background = kWhite)
    {
        tagCC_ITEM item = ItemOf(start, end);
        item.crColor2 = background;
        for (int i = 0; i < count; ++i) {
            view->AddItem(&item);
        }
    }

    // The notifications of a scroll code, a line each.
    Lines Scroll(UINT code, int thumb = 0)
    {
        parent.ClearLog();
        Base::Scroll(code, thumb);
        return parent.Lines();
    }

    std::string Selection() const { return Text(view->m_dtSelBegin) + " " + Text(view->m_dtSelEnd); }
    // First and last day.
    std::string Range() const
    {
        COleDateTime first;
        COleDateTime last;
        view->GetViewRange(first, last);
        EXPECT_TRUE(last == dayvane::EndOfDay(last) || !dayvane::IsValid(last));
        return Text(first) + " " + Text(dayvane::StartOfDay(last));
    }
    std::string HitAt(int x, int y) const
    {
        tagCCHITTESTINFO info;
        info.pt = CPoint(x, y);
        EXPECT_EQ(view->HitTest(info), info.nItem);
        EXPECT_EQ(info.nScreenItem == -1, info.nItem == -1);
        return testsupport::TimeText(info.time).substr(0, 10) + " hit=" + std::to_string(info.nHitCode) +
               " item=" + std::to_string(info.nItem);
    }
    void Paint()
    {
        picture.Fill(kUnpainted);
        view->DrawCtrl(&picture.Dc());
    }
};
using Month = Scene<CMonthViewCtrl>;
using Week = Scene<CWeekViewCtrl>;
using Year = Scene<CYearViewCtrl>;

// What is shown after a drop of the thumb, and where the thumb stands then. BoxRangeTest has all codes.
template <class View>
void ExpectAfterDrop(const COleDateTime& from, int thumb, const char* range, int position)
{
    Scene<View> scene(from);
    scene.Scroll(SB_THUMBPOSITION, thumb);
    EXPECT_EQ(scene.Range(), range);
    EXPECT_EQ(scene.view->GetScrollPos(SB_VERT), position);
    EXPECT_EQ(scene.parent.Names(), (Lines{"CCN_SELDATECHANGE", "CCN_VIEWRANGECHANGE"}));
}

struct KeyCase
{
    std::initializer_list<int> keys;
    const char* selection;
    const char* range;
};

// Keys one after the other; what is selected and shown after each case.
template <class View>
void ExpectAfterKeys(Scene<View>& scene, std::initializer_list<KeyCase> cases)
{
    for (const KeyCase& c : cases) {
        for (int key : c.keys) {
            testsupport::messages::Key(scene.view->m_hWnd, key);
        }
        testsupport::PumpMessages();
        EXPECT_EQ(scene.Selection(), c.selection);
        EXPECT_EQ(scene.Range(), c.range) << "with " << c.selection;
    }
}
