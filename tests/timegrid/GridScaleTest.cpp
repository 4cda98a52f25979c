// Time grids at every scale: sizes follow, lanes and rows hold a line of text, rows and times agree.
#include "GridItems.h"
#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/TimeGridLayout.h"

#include <gtest/gtest.h>

using namespace dayvane;

TEST(GridScale, NothingChangesAt96Dpi)
{
    const TimeGridMetrics metrics = TimeGridMetrics::For({});
    EXPECT_EQ(metrics.rowHeight, kTimeGrid.rowHeight);
    EXPECT_EQ(metrics.gridLeft, kTimeGrid.gridLeft);
    EXPECT_EQ(metrics.laneStep, kTimeGrid.laneStep);
    EXPECT_EQ(metrics.barHeight, kTimeGrid.barHeight);
    EXPECT_EQ(metrics.moreHeight, kTimeGrid.moreHeight);
    EXPECT_EQ(metrics.captionHeight, kTimeGrid.captionHeight);
}

TEST(GridScale, FrameLanesAndRowsFollow)
{
    for (int percent : {100, 125, 150, 200, 300}) {
        for (int growth : {0, 5, 20}) {
            const ViewScale scale{kBaseDpi * percent / 100, growth};
            SCOPED_TRACE(testing::Message() << percent << " %, " << growth);
            const TimeGridMetrics metrics = TimeGridMetrics::For(scale);
            const int line = scale.Line(12);
            EXPECT_GE(metrics.rowHeight - 2 * metrics.textInset, line);
            EXPECT_GE(metrics.barHeight - 2 * metrics.textInset, line);
            EXPECT_LE(metrics.barHeight, metrics.laneStep) << "bars of two lanes never overlap";
            EXPECT_GE(metrics.moreHeight, line);

            const CRect client(0, 0, scale.Of(800), scale.Of(600));
            const TimeGridFrame frame = CalcTimeGridFrame(client, true, metrics.headerHeight, 3, 7, metrics);
            EXPECT_EQ(frame.grid.left, frame.ruler.right + 1);
            EXPECT_EQ(frame.columns.back().right, client.right);
            EXPECT_EQ(frame.fulldayContent.Height(), 3 * metrics.laneStep + metrics.bandPadding);

            const TimeScale rows{2, metrics};
            for (int row = 0; row < rows.RowsPerDay(); ++row) {
                const COleDateTime time = rows.TimeOfRow(gridtest::kDay, row);
                EXPECT_EQ(rows.RowOfTime(time), row);
                EXPECT_EQ(rows.TopOfTime(ClockTimeOf(time)), row * metrics.rowHeight);
            }
            tagCALENDAR_ITEM item;
            item.dtStart = gridtest::At(9, 0);
            item.dtEnd = gridtest::At(10, 30);
            const CRect box = BoxInColumn(item, frame.columns[0], gridtest::kDay, rows);
            EXPECT_EQ(box.Height(), 3 * metrics.rowHeight);
        }
    }
}

TEST(TimeScale, TheOneBesideStaysWithinTheHour)
{
    const struct
    {
        int rowsPerHour, steps, beside;
    } rows[] = {{2, 1, 3},   {2, -1, 1},  {1, -1, 1},   {6, 1, 10}, {10, 1, 12}, {12, 2, 20},
                {30, 1, 60}, {60, 1, 60}, {60, -1, 30}, {7, 0, 10}, {4, 99, 60}};
    for (const auto& row : rows) {
        EXPECT_EQ(ScaleBeside(row.rowsPerHour, row.steps), row.beside) << row.rowsPerHour << " and " << row.steps;
    }
}
