// The week and the year view as windows: dates, scrolling and its notifications, keys, items, combo box, painting.
#include "DayGridScene.h"

using namespace testsupport;

namespace {
constexpr COLORREF kWeekBandLine = 0x39964A; // below the title band

// Gives its first box the room of the second one too, and hides the marks of all.
class MergedWeek : public CWeekViewCtrl
{
protected:
    void CalcLayout(const CRect& rcClient, CRect& rcCaption, CRect& rcUnused, CRect& rcHeader,
                    CRect& rcCalendar) override
    {
        CWeekViewCtrl::CalcLayout(rcClient, rcCaption, rcUnused, rcHeader, rcCalendar);
        m_rcDay[0].right = m_rcDay[1].right;
        m_rcDay[1].SetRectEmpty();
    }
    void CalcItemRect(CRect rcCalendar, CItemArray& screenItems) override
    {
        CWeekViewCtrl::CalcItemRect(rcCalendar, screenItems);
        m_bMore[0] = 0;
    }
};
} // namespace

TEST(WeekView, ShowsEightDaysFromTheFirstDayOfTheWeek)
{
    Week scene(Day(2017, 4, 26)); // a Wednesday
    EXPECT_EQ(scene.Range(), "2017-04-23 2017-04-30");
    scene.view->SetFirstDayOfWeek(2);
    EXPECT_EQ(scene.Range(), "2017-04-24 2017-05-01");
    scene.view->SetFirstDayOfWeek(4);
    EXPECT_EQ(scene.Range(), "2017-04-26 2017-05-03");
    EXPECT_EQ(Text(scene.view->GetDayRect(7)), "(528, 338, 706, 646)");
    EXPECT_EQ(Text(scene.view->GetCurrentDate()), "2017-04-26");
    scene.view->SetRange(Day(2017, 6, 1));
    EXPECT_EQ(scene.Range(), "2017-05-31 2017-06-07");
    EXPECT_EQ(Text(scene.view->GetCurrentDate()), "2017-04-26") << "the selection stays";
}

TEST(WeekView, ScrollingNotifiesBeforeAndAfter)
{
    Week scene(Day(2017, 4, 26));
    EXPECT_EQ(scene.Scroll(SB_LINEDOWN),
              (Lines{"CCN_SELDATECHANGE item=-1 lParam=-1 time=2017-05-03 00:00:00 hit=4 sub=0",
                     "CCN_VIEWRANGECHANGE date=2017-05-03 00:00:00 first=2017-04-30 00:00:00 last=2017-05-07 23:59:59 "
                     "value=4100"}));
    EXPECT_EQ(scene.Selection(), "2017-05-03 2017-05-03");
    scene.parent.SetHook([&scene](const Notification& sent) {
        if (sent.Code() == CCN_SELDATECHANGE) {
            EXPECT_EQ(scene.Range(), "2017-04-30 2017-05-07") << "sent before the change";
        }
        return 0;
    });
    scene.Scroll(SB_PAGEUP);
    EXPECT_EQ(scene.Range(), "2017-04-02 2017-04-09");
    EXPECT_EQ(scene.Scroll(SB_ENDSCROLL), Lines());
    ExpectAfterDrop<CWeekViewCtrl>(Day(2017, 4, 26), 10, "2017-06-04 2017-06-11", 17);
}

TEST(WeekView, KeysMoveTheSelectionAndTurnTheWeek)
{
    Week scene(Day(2017, 4, 26));
    ExpectAfterKeys(scene, {{{VK_RIGHT}, "2017-04-27 2017-04-27", "2017-04-23 2017-04-30"},
                            {{VK_UP}, "2017-04-23 2017-04-23", "2017-04-23 2017-04-30"},
                            {{VK_DOWN}, "2017-04-27 2017-04-27", "2017-04-23 2017-04-30"},
                            {{VK_DOWN}, "2017-05-01 2017-05-01", "2017-04-30 2017-05-07"}, // kept by the scrolling
                            {{VK_LEFT, VK_LEFT}, "2017-04-29 2017-04-29", "2017-04-23 2017-04-30"}});
    {
        const KeyState shift({VK_SHIFT});
        scene.view->SendMessage(WM_KEYDOWN, VK_DOWN);
        EXPECT_EQ(scene.Range(), "2017-04-23 2017-04-30") << "the scroll message is posted";
        ExpectAfterKeys(scene, {{{}, "2017-04-29 2017-05-03", "2017-04-30 2017-05-07"}});
    }
    ExpectAfterKeys(scene, {{{VK_NEXT}, "2017-05-27 2017-05-31", "2017-05-28 2017-06-04"}}); // both ends go along
}

TEST(WeekView, PiecesMarksAndHits)
{
    Week scene(Day(2017, 4, 26));
    scene.Add(Day(2017, 4, 25), COleDateTime(2017, 4, 27, 23, 59, 59));
    const CCalendarCtrl::CItemArray& pieces = scene.view->GetScreenItems();
    ASSERT_EQ(pieces.GetSize(), 2);
    EXPECT_EQ(Text(pieces[0].rcItem), "(354, 57, 702, 79)") << "two boxes of the upper row";
    EXPECT_EQ(Text(pieces[1].rcItem), "(2, 365, 174, 387)") << "the first of the lower row";
    EXPECT_EQ(scene.HitAt(400, 60), "2017-04-25 hit=2 item=0");
    EXPECT_EQ(scene.HitAt(400, 49), "2017-04-25 hit=8 item=-1");
    EXPECT_EQ(scene.HitAt(400, 50), "2017-04-25 hit=4 item=-1");
    EXPECT_EQ(scene.HitAt(705, 645), "2017-04-30 hit=4 item=-1");
    EXPECT_EQ(scene.HitAt(400, 10), "none hit=1 item=-1");
    scene.view->m_nVertScroll = 11;
    scene.view->m_nHorzScroll = -300;
    EXPECT_EQ(scene.HitAt(700, 49), "2017-04-25 hit=2 item=0");
    scene.Add(Day(2017, 4, 23), Day(2017, 4, 23), 13);
    scene.Add(Day(2017, 4, 30), Day(2017, 4, 30), 13);
    for (int day = 0; day < 8; ++day) {
        EXPECT_EQ(scene.view->IsMore(day), day == 0 || day == 7) << day;
    }
    EXPECT_TRUE(RaisesInvalidArgument([&scene] { scene.view->IsMore(8); }));
    int found = -1;
    CRect rect;
    scene.view->GetCurCellRect(rect, found);
    EXPECT_EQ(found, 1);
    EXPECT_TRUE(rect == scene.view->GetDayRect(3));
}

TEST(WeekView, ItemOperationsFollowTheirOwnIndexRules)
{
    Week scene(Day(2017, 4, 26));
    scene.Add(Day(2017, 4, 25), Day(2017, 4, 25));
    scene.Add(Day(2017, 4, 26), Day(2017, 4, 26));
    tagCC_ITEM item;
    item.dtStart = item.dtEnd = Day(2017, 4, 28);
    EXPECT_EQ(scene.view->SetItem(3, &item), 0);
    EXPECT_TRUE(RaisesInvalidArgument([&] { scene.view->SetItem(2, &item); }));
    EXPECT_EQ(scene.view->SetItem(0, &item), 1);
    EXPECT_EQ(Text(scene.view->GetScreenItems()[0].dtStart), "2017-04-28");
    EXPECT_EQ(scene.view->DeleteItem(2), 0);
    scene.view->ValidateRect(nullptr);
    EXPECT_EQ(scene.view->DeleteItem(0, FALSE, TRUE), 1);
    EXPECT_FALSE(::GetUpdateRect(scene.view->m_hWnd, nullptr, FALSE)) << "deleting does not repaint";
    ASSERT_EQ(scene.view->GetScreenItems().GetSize(), 1);
    EXPECT_EQ(scene.view->GetScreenItems()[0].nSource, 0) << "renumbered";
    EXPECT_EQ(Text(scene.view->GetScreenItems()[0].dtStart), "2017-04-26");
}

TEST(WeekView, DayPropertiesBelongToTheShownDays)
{
    Week scene(Day(2017, 4, 26));
    scene.view->SetDayColor(Day(2017, 4, 24), 5);
    scene.view->SetDayColor(Day(2017, 5, 1), 5); // not shown
    EXPECT_EQ(scene.view->GetDayColor(1), 5);
    scene.Paint();
    EXPECT_EQ(scene.picture.Pixel(300, 200), CCalendarCtrl::m_arDayColors[4].crColor[0]);
    scene.view->ClearDayProperty();
    EXPECT_EQ(scene.view->GetDayColor(1), 0);
}

TEST(YearView, ShowsPiecesOfTheYear)
{
    Year scene(COleDateTime(2026, 3, 5, 9, 0, 0));
    EXPECT_EQ(scene.Range(), "2026-01-01 2026-12-31");
    EXPECT_EQ(Text(scene.view->GetMonthRect(5)), "(585, 30, 706, 338)");
    scene.Add(Day(2026, 5, 20), Day(2026, 8, 10));
    const CCalendarCtrl::CItemArray& pieces = scene.view->GetScreenItems();
    ASSERT_EQ(pieces.GetSize(), 2);
    EXPECT_EQ(Text(pieces[0].rcItem), "(470, 57, 700, 79)") << "two boxes, without what the last one has more";
    EXPECT_EQ(Text(pieces[1].rcItem), "(2, 365, 232, 387)");
    EXPECT_EQ(scene.HitAt(600, 60), "2026-06-01 hit=2 item=0");
    EXPECT_EQ(scene.HitAt(140, 343), "2026-08-01 hit=8 item=-1");
    scene.Add(Day(2026, 12, 24), Day(2026, 12, 24), 13);
    EXPECT_TRUE(scene.view->IsMore(11));
    EXPECT_FALSE(scene.view->IsMore(10));
    scene.view->DeleteAllItems();
    EXPECT_FALSE(scene.view->IsMore(11));
}

TEST(YearView, ScrollingKeepsTheDayOfTheYear)
{
    ExpectAfterDrop<CYearViewCtrl>(Day(2003, 2, 28), 2, "2003-01-01 2003-12-31", 2);
    Year late(Day(2003, 2, 28));
    EXPECT_EQ(late.view->GetScrollPos(SB_VERT), 3);
    late.Scroll(SB_PAGEDOWN);
    EXPECT_EQ(late.Range(), "2005-01-01 2005-12-31");
    EXPECT_EQ(late.view->GetScrollPos(SB_VERT), 4) << "the bar itself ends at 4";
    Year leap(Day(2024, 2, 29));
    EXPECT_EQ(leap.Scroll(SB_LINEDOWN),
              (Lines{"CCN_SELDATECHANGE item=-1 lParam=-1 time=2025-02-28 00:00:00 hit=4 sub=0",
                     "CCN_VIEWRANGECHANGE date=2025-02-28 00:00:00 first=2025-01-01 00:00:00 last=2025-12-31 23:59:59 "
                     "value=4100"}));
    EXPECT_EQ(leap.Selection(), "2025-02-28 2025-02-28");
}

TEST(YearView, KeysSelectMonthsAndTurnTheYear)
{
    Year scene(Day(2026, 11, 30));
    ExpectAfterKeys(scene, {{{VK_RIGHT}, "2026-12-01 2026-12-01", "2026-01-01 2026-12-31"},
                            {{VK_RIGHT}, "2027-01-01 2027-01-01", "2027-01-01 2027-12-31"},
                            {{VK_UP}, "2026-01-01 2026-01-01", "2026-01-01 2026-12-31"}});
    const KeyState shift({VK_SHIFT});
    scene.view->SendMessage(WM_KEYDOWN, VK_RIGHT);
    EXPECT_EQ(scene.Selection(), "2026-01-01 2026-02-01");
}

TEST(YearView, ComboBoxOfTheHost)
{
    Year scene(Day(2026, 3, 5));
    CComboBox combo;
    EXPECT_EQ(scene.view->CreateComboBox(&combo, 9, 150, WS_VISIBLE | CBS_DROPDOWNLIST, nullptr), 1);
    EXPECT_EQ(combo.GetParent(), scene.view);
    EXPECT_EQ(combo.GetDlgCtrlID(), 1);
    EXPECT_EQ(combo.GetFont()->GetSafeHandle(), scene.view->GetFont(0)->GetSafeHandle());
    combo.AddString("a");
    combo.AddString("b");
    scene.parent.ClearLog();
    combo.SetCurSel(1);
    const auto reportChange = [&scene, window = combo.m_hWnd] {
        scene.view->SendMessage(WM_COMMAND, MAKEWPARAM(1, CBN_SELCHANGE), reinterpret_cast<LPARAM>(window));
        return scene.parent.Lines();
    };
    const Lines reported{"CCN_COMBOSELCHANGE item=1 lParam=0 time=2026-03-05 00:00:00 hit=1 sub=1"};
    EXPECT_EQ(reportChange(), reported);
    scene.view->MoveWindow(0, 0, 700 + ::GetSystemMetrics(SM_CXVSCROLL), 400);
    CRect rect;
    combo.GetWindowRect(&rect);
    scene.view->ScreenToClient(&rect);
    EXPECT_TRUE(rect.TopLeft() == CPoint(700 - 205, 5));
    EXPECT_EQ(rect.Width(), 200);

    // The host takes the combo box away, then its object.
    {
        CComboBox second;
        combo.DestroyWindow();
        EXPECT_EQ(scene.view->CreateComboBox(&second, 9, 150, CBS_DROPDOWNLIST, nullptr), 1);
    }
    scene.view->MoveWindow(0, 0, 600, 300);
    EXPECT_EQ(reportChange(), reported) << "nothing new";
    CYearViewCtrl windowless;
    EXPECT_EQ(windowless.CreateComboBox(&combo, 0, 100, CBS_DROPDOWNLIST, nullptr), 0);
}

TEST(BoxViews, PaintBarsFramesAndMarks)
{
    Week week(Day(4, 23));
    week.Add(Day(4, 21), Day(4, 21), 1, kItemBack);
    week.Add(Day(4, 20), Day(4, 20), 14);
    week.Add(Day(4, 26), Day(4, 26), 14);
    week.Paint();
    const CRect bar = week.view->GetScreenItems()[0].rcItem;
    EXPECT_EQ(week.picture.Pixel(bar.right - 6, bar.top + 6), kItemBack);
    EXPECT_EQ(week.picture.Pixel(1, 29), kWeekBandLine);
    EXPECT_GT(week.picture.Count(week.view->GetDayRect(3), kTodayOutline), 100) << "today";
    EXPECT_GT(week.picture.Count(week.view->GetDayRect(4), kSelectedOutline), 100) << "selected";
    EXPECT_EQ(week.picture.Count(week.view->GetDayRect(5), kSelectedOutline), 0);
    const auto pixelsOfMark = [&week](int day) {
        const CRect& box = week.view->GetDayRect(day);
        const COLORREF ground = week.picture.Pixel(box.right - 100, box.bottom - 5);
        return week.picture.CountOther(CRect(box.right - 20, box.bottom - 5, box.right - 2, box.bottom - 2), ground);
    };
    EXPECT_GT(pixelsOfMark(1), 0);
    EXPECT_TRUE(week.view->IsMore(7));
    EXPECT_EQ(pixelsOfMark(7), 0) << "the eighth box has its flag, but no mark";

    Year year(Day(8, 1));
    year.Add(Day(3, 1), Day(3, 1), 14);
    year.Paint();
    const CRect march = year.view->GetMonthRect(2);
    const CRect mark(march.right - 20, march.bottom - 8, march.right, march.bottom);
    EXPECT_GT(year.picture.CountOther(mark, kWhite), 60);
    EXPECT_GT(year.picture.Count(year.view->GetMonthRect(3), kTodayOutline), 100) << "today's month";
    EXPECT_GT(year.picture.Count(year.view->GetMonthRect(7), kSelectedOutline), 100);
}

TEST(BoxViews, DerivedViewsMayChangeBoxesAndMarks)
{
    Scene<MergedWeek> scene(Day(4, 23)); // from the 19th on
    scene.Add(Day(4, 19), Day(4, 19), 14);
    EXPECT_EQ(Text(scene.view->GetScreenItems()[0].rcItem), "(2, 57, 350, 79)");
    EXPECT_EQ(scene.HitAt(340, 60), "2026-04-19 hit=2 item=0");
    EXPECT_FALSE(scene.view->IsMore(0));
    EXPECT_FALSE(scene.view->HasMoreMark(0));
}

template <class View>
void ExpectNoCutTitle(int narrowest, int widest)
{
    Scene<View> scene(Day(8, 1));
    const int inset = 5;
    for (int width = narrowest; width < widest; width += 3) {
        scene.view->Layout(width, kHeight);
        scene.Paint();
        const auto whiteIn = [&](int left, int right) {
            return scene.picture.Count(CRect(left, 6, right, 17), kWhite);
        };
        EXPECT_GT(whiteIn(inset, width / 2), 0) << width;
        EXPECT_EQ(whiteIn(width - inset - 1, width), 0)
            << width << ": above the dots a letter that is cut would reach the edge";
    }
}

TEST(BoxViews, TitlesThatAreTooLongEndInDots)
{
    ExpectNoCutTitle<CWeekViewCtrl>(60, 420);
    ExpectNoCutTitle<CYearViewCtrl>(60, 300);
}

// The host's text of a day, far too long for its box: what it adds to the picture ends low, as dots do.
template <class View>
void ExpectDotsAfterAnnotation(const COleDateTime& date, CRect (*boxOf)(const Open<View>&))
{
    Scene<View> scene(date);
    scene.Paint();
    MemoryDc before(kWidth, kHeight);
    before.Dc().BitBlt(0, 0, kWidth, kHeight, &scene.picture.Dc(), 0, 0, SRCCOPY);
    tagCALENDAR_DAY_PROPERTY property;
    property.strText = CString('W', 100);
    scene.view->SetDayProperty(date, property);
    scene.Paint();
    std::vector<CPoint> text;
    const CRect box = boxOf(*scene.view);
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x) {
            if (before.Pixel(x, y) != scene.picture.Pixel(x, y)) {
                text.emplace_back(x, y);
            }
        }
    }
    ASSERT_GT(text.size(), 50u);
    constexpr int kDotHeight = 3;
    int end = 0;
    int letters = 0;
    for (const CPoint& pixel : text) {
        end = std::max<int>(end, pixel.x);
        letters = std::max<int>(letters, pixel.y <= text.back().y - kDotHeight ? pixel.x : 0);
    }
    EXPECT_GT(end - letters, 4);
}

TEST(BoxViews, AnnotationsThatAreTooLongEndInDots)
{
    ExpectDotsAfterAnnotation<CMonthViewCtrl>(Day(4, 15), [](const Open<CMonthViewCtrl>& view) {
        return CRect(view.GetCell(17).m_rect); // weeks from Sunday, the first one of March
    });
    ExpectDotsAfterAnnotation<CWeekViewCtrl>(Day(4, 15),
                                             [](const Open<CWeekViewCtrl>& view) { return view.GetDayRect(3); });
}

TEST(BoxViews, TextsOfNarrowStripsAreWholeOrLeftOut)
{
    const auto blackOf = [](auto& scene, const CRect& box, int from, int to) {
        return scene.picture.Count(CRect(box.left + from, box.top + 3, box.left + to, box.top + 19), kBlack);
    };
    Week week(Day(4, 23));
    week.view->Layout(4 * 50, kHeight);
    week.Paint();
    EXPECT_GT(blackOf(week, week.view->GetDayRect(5), 5, 36), 20) << "4/24";
    EXPECT_EQ(blackOf(week, week.view->GetDayRect(5), 37, 50), 0) << "no room for the weekday";
    week.view->Layout(4 * 30, kHeight);
    week.Paint();
    EXPECT_GT(blackOf(week, week.view->GetDayRect(5), 5, 30), 20);
    EXPECT_EQ(blackOf(week, week.view->GetDayRect(5), 0, 5), 0) << "24, for 4/24 is too wide";

    Year year(Day(8, 1));
    year.view->Layout(6 * 21, kHeight);
    year.Paint();
    EXPECT_GT(blackOf(year, year.view->GetMonthRect(9), 0, 5), 5) << "10 takes the inset rather than lose its end";
}
