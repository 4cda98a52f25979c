// Where the texts of a time grid stand, in a font whose characters are all seven pixels wide.
#include "GridItems.h"

#include "views/timegrid/GridTexts.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {
int WidthOf(const std::u16string& text)
{
    return 7 * static_cast<int>(text.size());
}
} // namespace

TEST(GridTexts, AHeaderKeepsTheDayAndThenTheNote)
{
    const HeaderTexts texts = {u"4/26 (Wed)", u"26 (Wed)", u"26W", u"26", u"named day"};
    std::size_t before = 0;
    for (int width = 0; width < 240; ++width) {
        const CRect box(61, 30, 61 + width, 50);
        const int form = FittingHeaderForm(box, texts, WidthOf);
        EXPECT_EQ(form, width >= 76 ? 0 : width >= 62 ? 1 : width >= 27 ? 2 : 3) << width; // 10, 8, 3 characters and 6
        const HeaderPlaces places = PlaceHeaderTexts(box, texts, form, WidthOf);
        EXPECT_GE(places.date.size(), before) << "more room never says less";
        before = places.date.size();
        const int end = places.dateRect.left + WidthOf(places.date);
        EXPECT_TRUE(places.date == texts.shortDate || (places.dateRect.left >= box.left && end <= box.right)) << width;
        if (!places.note.IsRectEmpty()) {
            EXPECT_LT(end, places.note.left) << width;
            EXPECT_LE(places.note.right, box.right) << width;
        }
        EXPECT_EQ(places.isWhole, width >= 10 * 7 + 6 + 9 * 7 + 2 * 3) << width;
    }
    HeaderTexts plain = texts;
    plain.note.clear();
    EXPECT_TRUE(PlaceHeaderTexts(CRect(0, 0, 76, 20), plain, 0, WidthOf).isWhole);
    EXPECT_FALSE(PlaceHeaderTexts(CRect(0, 0, 76, 20), plain, 1, WidthOf).isWhole) << "another column is narrower";
    EXPECT_EQ(PlaceHeaderTexts(CRect(0, 0, 20, 20), plain, 3, WidthOf).dateRect, CRect(3, 0, 17, 20)) << "it just fits";
}

TEST(GridTexts, HoursFollowTheRows)
{
    for (const int dpi : {96, 144}) {
        TimeScale scale;
        scale.metrics = TimeGridMetrics::For(ViewScale{dpi});
        const CRect ruler(0, 60, scale.metrics.rulerRight, 400);
        const std::vector<RulerHour> hours = PlaceRulerHours(ruler, 130, scale);
        ASSERT_EQ(hours.size(), 25u) << "the end of the day has a line";
        for (int hour = 0; hour < 25; ++hour) {
            const RulerHour& place = hours[hour];
            EXPECT_EQ(place.line.top, 60 - 130 + scale.TopOfRow(hour * scale.rowsPerHour));
            EXPECT_EQ(place.number.right, place.rest.left);
            EXPECT_LT(place.rest.right, ruler.right);
        }
        EXPECT_EQ(hours[3].box.bottom, hours[4].box.top);
    }
}

TEST(GridTexts, HoursOfTwoZonesKeepToTheirColumns)
{
    TimeScale scale;
    const ZoneColumns columns = SplitRuler(CRect(3, 60, 119, 400), 56);
    EXPECT_EQ(columns.other, CRect(3, 60, 59, 400));
    EXPECT_EQ(columns.own, CRect(59, 60, 119, 400));
    const std::vector<ZoneHourPlaces> hours = PlaceZoneHours(columns, 13, 130, scale);
    ASSERT_EQ(hours.size(), 24u);
    for (int hour = 0; hour < 24; ++hour) {
        const int top = 60 - 130 + hour * 40;
        EXPECT_EQ(hours[hour].box, CRect(3, top, 119, top + 40));
        EXPECT_EQ(hours[hour].line, CRect(5, top, 57, top + 1));
        EXPECT_EQ(hours[hour].clock, CRect(3, top, 57, top + 40));
        EXPECT_EQ(hours[hour].date, CRect(5, top + 2, 59, top + 14)) << "below the line, beside the clock";
        EXPECT_EQ(hours[hour].change, CRect(59, top + 27, 119, top + 40)) << "at the hour's end";
    }
    EXPECT_TRUE(SplitRuler(CRect(3, 60, 119, 400), 0).other.IsRectEmpty());
}

TEST(GridTexts, TheTitleSaysWhereItEnds)
{
    const GridCaption places = PlaceCaptionTexts(CRect(0, 0, 300, 30), {60, 30, 150, 0, 20});
    EXPECT_EQ(places.date, CRect(5, 0, 300, 29));
    EXPECT_EQ(places.weekday, CRect(65, 0, 300, 25)) << "small letters share the baseline of the large ones";
    EXPECT_EQ(places.longDate, CRect(95, 0, 300, 25));
    EXPECT_EQ(places.solarTerm, CRect(245, 0, 300, 25)) << "on a day without a name";
    EXPECT_EQ(places.end, 265);
}
