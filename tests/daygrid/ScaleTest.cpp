// Layouts at every scale: what is true at 96 dpi stays true, sizes follow, and a line of text has its room.
#include "DayGridTesting.h"
#include "views/daygrid/BoxParts.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/BoxViewLayout.h"
#include "views/daygrid/MonthLayout.h"

#include <gtest/gtest.h>

#include <vector>

using namespace dayvane;

namespace {

constexpr int kPercents[] = {100, 125, 150, 200, 300};

std::vector<ViewScale> Scales()
{
    std::vector<ViewScale> scales;
    for (int percent : kPercents) {
        for (int growth : {0, 1, 7, 30}) {
            scales.push_back({kBaseDpi * percent / 100, growth});
        }
    }
    return scales;
}

// The height of a line of the text font.
int TextLine(const ViewScale& scale)
{
    return scale.Line(12);
}

} // namespace

TEST(Scale, NothingChangesAt96Dpi)
{
    const MonthMetrics month = MonthMetrics::For({});
    EXPECT_EQ(month.captionHeight, kMonthMetrics.captionHeight);
    EXPECT_EQ(month.stripHeight, kMonthMetrics.stripHeight);
    EXPECT_EQ(month.dayCaptionHeight, kMonthMetrics.dayCaptionHeight);
    for (const BarMetrics& bars : {kMonthMetrics.bars.metrics, kBoxBars.metrics}) {
        const BarMetrics same = bars.At({});
        EXPECT_EQ(same.topOffset, bars.topOffset);
        EXPECT_EQ(same.height, bars.height);
        EXPECT_EQ(same.inset, bars.inset);
        EXPECT_EQ(same.laneStep, bars.laneStep);
    }
}

TEST(Scale, BarsOfNeighbouringLanesNeverMeetAndHoldTheirText)
{
    for (const ViewScale& scale : Scales()) {
        SCOPED_TRACE(testing::Message() << scale.dpi << " dpi, " << scale.textGrowth);
        for (const BarMetrics& own : {kMonthMetrics.bars.metrics, kBoxBars.metrics}) {
            const BarMetrics bars = own.At(scale);
            EXPECT_LE(bars.BarHeight(), bars.laneStep);
            EXPECT_GE(bars.BarHeight(), bars.laneStep - scale.Of(1));
            tagCALENDAR_ITEM item;
            item.rcItem.SetRect(0, 0, scale.Of(100), bars.BarHeight());
            EXPECT_GE(PartsOfBar(item, scale).content.Height(), TextLine(scale));
        }
        const MonthMetrics month = MonthMetrics::For(scale);
        EXPECT_GE(month.headerHeight - 2 * month.headerInset, TextLine(scale));
        EXPECT_GE(month.bars.metrics.topOffset + month.bars.metrics.inset, month.stripHeight - scale.Of(2))
            << "bars begin below the day numbers";
    }
}

// A month in a window that is as much larger as its scale has as many lanes, and its cells tile it.
TEST(Scale, AScaledMonthIsTheSameMonthLarger)
{
    BoxDayArray days;
    const BoxRange range(RangeKind::Month, Day(2026, 4, 1), 1);
    FillDays(range, Day(2026, 4, 1), Day(2026, 4, 22), nullptr, days);
    const auto hiddenAt = [&](const ViewScale& scale) {
        const MonthMetrics metrics = MonthMetrics::For(scale);
        const CRect client(0, 0, scale.Of(706), scale.Of(646));
        const MonthBands bands = CalcMonthBands(client, true, metrics);
        EXPECT_EQ(bands.calendar.bottom, client.bottom);
        EXPECT_EQ(bands.header.top, bands.caption.bottom);
        MonthCellArray header;
        MonthCellArray cells;
        FillMonthCells(bands.header, bands.calendar, CalcMonthCellSize(bands.calendar), header, cells, metrics);
        for (int i = 0; i + 1 < kMonthCells; ++i) {
            EXPECT_TRUE(i % kMonthColumns == kMonthColumns - 1 || cells[i].m_rect.right == cells[i + 1].m_rect.left);
        }
        ItemArray items;
        for (int i = 0; i < 8; ++i) {
            tagCALENDAR_ITEM item;
            item.dtStart = item.dtEnd = Day(2026, 4, 15);
            items.Add(item);
        }
        CalcMonthBars(days, cells, items, metrics);
        int hidden = 0;
        for (INT_PTR i = 0; i < items.GetSize(); ++i) {
            hidden += items[i].bNoFocus != FALSE;
        }
        return hidden;
    };
    const int hidden = hiddenAt({});
    EXPECT_GT(hidden, 0);
    for (int percent : kPercents) {
        EXPECT_EQ(hiddenAt({kBaseDpi * percent / 100, 0}), hidden) << percent << " %";
    }
    EXPECT_GT(hiddenAt({kBaseDpi, 12}), hidden) << "higher text, fewer lanes";
}

TEST(Scale, BoxesOfWeekAndYearFollow)
{
    for (const ViewScale& scale : Scales()) {
        for (const BoxViewMetrics& own : {kWeekMetrics, kYearMetrics}) {
            const BoxViewMetrics metrics = own.At(scale);
            BoxViewLayout layout(metrics);
            LayOutBoxView(CRect(0, 0, scale.Of(800), scale.Of(600)), true, metrics, layout);
            EXPECT_EQ(layout.caption.Height(), scale.Of(own.captionHeight));
            EXPECT_EQ(layout.strips[0].Height(), scale.Line(own.stripHeight));
            EXPECT_GE(metrics.bars.metrics.topOffset + metrics.bars.metrics.inset, metrics.stripHeight)
                << "bars begin below the strip";
        }
    }
}
