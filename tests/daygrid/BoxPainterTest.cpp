// What the month view draws: probe pixels of every layer in a surface in memory.
#include "DayGridScene.h"
#include "core/DrawingHelpers.h"
#include "views/daygrid/DayGridParts.h"

using testsupport::MemoryDc;

namespace {

// Rows of the day colours and the fixed colours of the view.
constexpr COLORREF kPlainDay = kWhite;
constexpr COLORREF kSunday = 0xC9C8EF;
constexpr COLORREF kSaturday = 0xE6D8CF;
constexpr COLORREF kGrid = 0xE1BFA5;
constexpr COLORREF kFrameOfItem = 0x0000FE;
constexpr COLORREF kHiddenBlock = 0x0000AA;
constexpr COLORREF kHostDay = 0xBCECD5; // row 4
constexpr COLORREF kBandTop = 0x7BDBFF;
constexpr COLORREF kBandLine = 0x216DEF;
constexpr COLORREF kWeekdayRow = 0xFFEFE3;
constexpr COLORREF kVariantTop = 0x4A79E7;
constexpr COLORREF kVariantLine = 0x1522CD;
constexpr COLORREF kBlockOutline = 0xD8CDC1;
constexpr COLORREF kArrow = 0x888888;

// 29 March .. 9 May; the 15th is cell (300, 246).
template <class View>
class MonthPainted : public Scene<View>
{
public:
    MonthPainted()
    {
        this->view->SetHighLightColor(kFrameOfItem);
        this->view->SetSelRange(Day(1, 1), Day(1, 1));
    }
    COLORREF Pixel(int x, int y) { return this->picture.Pixel(x, y); }
};
class MonthWithHeader : public CMonthViewCtrl
{
public:
    using CMonthViewCtrl::DrawHeader;
    using CMonthViewCtrl::m_parts;
};
using Painted = MonthPainted<MonthWithHeader>;

} // namespace

TEST(MonthPaint, EveryLayerIsWhereItBelongs)
{
    Painted scene;
    scene.view->SetDayColor(Day(4, 17), 4);
    scene.view->SetSelRange(Day(4, 7), Day(4, 8));
    scene.Paint();
    struct Probe
    {
        const char* name;
        int x, y;
        COLORREF color;
    };
    const Probe probes[] = {
        {"title band, first row", 600, 0, kBandTop},
        {"title band, last row", 600, 29, kBandLine},
        {"weekday row, first row", 2, 30, kWeekdayRow},
        {"vertical grid line", 200, 300, kGrid},
        {"horizontal grid line", 250, 246, kGrid},
        {"border at the right", 705, 300, kGrid},
        {"border at the bottom", 350, 646, kGrid},
        {"plain day", 350, 300, kPlainDay},
        {"first pixel of a cell", 301, 247, kPlainDay},
        {"Sunday", 50, 300, kSunday},
        {"Saturday", 650, 300, kSaturday},
        {"Sunday of another month", 50, 100, kSunday},
        {"holiday on a weekday (29 April)", 350, 500, kSunday},
        {"colour set by the host", 550, 300, kHostDay},
        {"today: outline at the left", 301, 400, kTodayOutline},
        {"selection: outline at the left", 201, 200, kSelectedOutline},
        {"selection: outline of the second day at the bottom", 350, 245, kSelectedOutline},
        {"not selected: the day after", 401, 200, kPlainDay},
    };
    for (const Probe& probe : probes) {
        EXPECT_EQ(scene.Pixel(probe.x, probe.y), probe.color) << probe.name;
    }
    EXPECT_NE(scene.Pixel(350, 356), kPlainDay) << "today: strip under the number";
    EXPECT_EQ(scene.picture.Count(CRect(0, 0, kWidth, kHeight), kUnpainted), 0) << "every pixel is painted";

    scene.Add(Day(4, 15), Day(4, 15));
    scene.view->SetCurSel(0);
    for (const bool shown : {false, true}) {
        scene.view->ShowSelectionWithItem(shown);
        scene.Paint();
        EXPECT_EQ(scene.Pixel(201, 200), shown ? kSelectedOutline : kPlainDay) << "beside a current item";
    }
    scene.view->SetDayColor(Day(4, 15), 10000);
    EXPECT_FALSE(RaisesInvalidArgument([&scene] { scene.Paint(); })) << "an unknown colour ends the cells only";
    EXPECT_EQ(scene.picture.Count(CRect(0, 0, kWidth, 20), kUnpainted), 0) << "the title is there";
}

TEST(MonthPaint, TextsStandInTheirPlaces)
{
    Painted scene;
    scene.Paint();
    const CRect number(360, 247, 399, 262); // of 15 April
    const CRect annotation(301, 247, 360, 262);
    EXPECT_GT(scene.picture.CountOther(number, kPlainDay), 20);
    EXPECT_EQ(scene.picture.CountOther(annotation, kPlainDay), 0) << "a day without a name";
    const CRect solarTerm(104, 349, 160, 362); // 20 April
    EXPECT_GT(scene.picture.CountOther(solarTerm, kPlainDay), 10);
    scene.view->Show24Setuki(FALSE);
    scene.Paint();
    EXPECT_EQ(scene.picture.CountOther(solarTerm, kPlainDay), 0);

    scene.view->Layout(7 * 36, kHeight);
    scene.Paint();
    EXPECT_GT(scene.picture.CountOther(CRect(115, 47, 143, 62), kPlainDay), 20) << "1 April";
    EXPECT_EQ(scene.picture.CountOther(CRect(109, 47, 112, 62), kPlainDay), 0) << "not cut off at its front";
}

// Weekday names are narrow texts of code page 932; on any system they must give the same glyphs as the wide ones.
TEST(MonthPaint, JapaneseTextsDoNotDependOnTheSystem)
{
    Painted scene;
    MemoryDc expected(kWidth, kHeight);
    for (CDC* target : {&scene.picture.Dc(), &expected.Dc()}) {
        target->SetBkMode(TRANSPARENT);
        scene.view->DrawHeader(target, CRect(0, 30, kWidth, 46));
    }
    CRect box(102, 32, 198, 44);                 // Monday
    for (int x = box.left; x < box.right; ++x) { // the band without its text
        expected.Dc().BitBlt(x, 30, 1, 16, &expected.Dc(), 103, 30, SRCCOPY);
    }
    expected.Dc().SetTextColor(kBlack);
    const dayvane::SelectGdi selectFont(&expected.Dc(), scene.view->m_parts->fonts.Weekday());
    ::DrawTextW(expected.Dc().m_hDC, L"\x6708\x66DC\x65E5", 3, &box, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    EXPECT_TRUE(scene.picture.SameAs(expected));
}

TEST(MonthPaint, BarsAreFilledFramedAndHidden)
{
    Painted scene;
    scene.Add(COleDateTime(2026, 4, 15, 9, 0, 0), COleDateTime(2026, 4, 15, 10, 0, 0), 5, kItemBack);
    scene.Paint();
    const CRect third(301, 302, 399, 322);
    EXPECT_GT(scene.picture.Count(third, kItemBack), 1000);
    EXPECT_EQ(scene.picture.Count(CRect(301, 342, 399, 366), kItemBack), 0) << "the fifth is hidden";
    EXPECT_NE(scene.Pixel(390, 344), kPlainDay) << "and the mark says so";
    EXPECT_EQ(scene.Pixel(380, 345), kPlainDay) << "its corners are transparent";
    EXPECT_EQ(scene.picture.Count(third, kFrameOfItem), 0);
    scene.view->SetCurSel(2);
    scene.Paint();
    EXPECT_EQ(scene.Pixel(350, 303), kFrameOfItem);
    EXPECT_GT(scene.picture.Count(third, kFrameOfItem), 200);

    scene.view->DeleteAllItems();
    scene.view->SetCurSel(-1);
    scene.Add(Day(4, 15), Day(4, 16));
    scene.Paint();
    EXPECT_EQ(scene.Pixel(390, 272), kPlainDay) << "white means: not filled";
    EXPECT_EQ(scene.Pixel(400, 272), kGrid) << "so the grid shines through";
    scene.view->SetTheme(CalendarTheme::HighContrast({0xFFFFFF, kBlack, 0xFFFFFF, kBlack, 0x800000, 0xFFFFFF, kBlack}));
    scene.Paint();
    EXPECT_EQ(scene.Pixel(400, 272), 0xFFFFFFu) << "but not where it would be as black as the text";
}

TEST(MonthPaint, BarsThatGoOnHaveArrowsThatPointOutwards)
{
    Painted scene;
    scene.Add(Day(4, 1), Day(4, 20), 1, kItemBack);
    scene.Paint();
    // Of each piece: begin and end of the bar, from the left and from the right; 0 is no arrow.
    const struct
    {
        int top, left, right;
        int before, after;
    } pieces[] = {{67, 301, 704, 0, 1}, {167, 1, 704, 1, 1}, {267, 1, 704, 1, 1}, {367, 1, 200, 1, 0}};
    for (const auto& piece : pieces) {
        for (int column = 0; column < 4; ++column) {
            const auto arrowAt = [&](int x) {
                return scene.picture.Count(CRect(x, piece.top, x + 1, piece.top + 19), kArrow);
            };
            EXPECT_EQ(arrowAt(piece.left + 3 + column), piece.before * (2 * column + 1)) << piece.top << " " << column;
            EXPECT_EQ(arrowAt(piece.right - 4 - column), piece.after * (2 * column + 1)) << piece.top << " " << column;
        }
    }
}

TEST(MonthPaint, TheVariantShowsTheLastItemOfADayAsABlock)
{
    MonthPainted<CMonthViewCtrl2> scene;
    scene.Add(Day(4, 15), Day(4, 15), 1, kHiddenBlock);
    scene.Add(Day(4, 15), Day(4, 15), 1, kItemBack);
    scene.view->SetCurSel(0);
    scene.Paint();
    EXPECT_EQ(scene.Pixel(600, 0), kVariantTop);
    EXPECT_EQ(scene.Pixel(600, 29), kVariantLine);
    EXPECT_EQ(scene.Pixel(303, 269), kBlockOutline) << "outline: cell, 20 down, 2 and 1 in";
    const CRect block(304, 270, 396, 341);
    EXPECT_GT(scene.picture.Count(block, kItemBack), 5000);
    EXPECT_EQ(scene.picture.Count(block, kHiddenBlock), 0);
    EXPECT_GT(scene.picture.Count(block, kFrameOfItem), 100) << "the current item lies below the last one";

    scene.view->Layout(kWidth, 46 + 6 * 34);
    scene.Paint();
    EXPECT_EQ(scene.picture.CountOther(CRect(305, 139, 395, 143), kItemBack), 0) << "too low for a text";

    scene.view->SetCurSel(-1);
    scene.view->Layout(kWidth, 50 + 6 * 38);
    scene.Paint();
    const CRect low(305, 150, 395, 160);
    const int cut = scene.picture.CountOther(low, kItemBack);
    CalendarOptions options;
    options.visibleShortItems = true;
    scene.view->SetOptions(options);
    scene.Paint();
    EXPECT_GT(scene.picture.CountOther(low, kItemBack), cut) << "the text is not cut above and below";
}
