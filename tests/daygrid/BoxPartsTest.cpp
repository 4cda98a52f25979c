// The parts of painted boxes and bars.
#include "DayGridTesting.h"

#include "views/daygrid/BoxParts.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {

BarParts PartsOf(const CRect& rect, int piece)
{
    tagCALENDAR_ITEM item;
    item.rcItem = rect;
    item.nPiece = piece;
    return PartsOfBar(item);
}

bool Contains(const CRect& outer, const CRect& inner)
{
    CRect common;
    return inner.IsRectEmpty() || (common.IntersectRect(outer, inner) && common == inner);
}

} // namespace

TEST(BoxParts, OfABar)
{
    struct Case
    {
        const char* name;
        int piece, width;
        const char* stripe;
        const char* content;
        int arrowBefore, arrowAfter;
    };
    const Case cases[] = {
        {"whole", PIECE_WHOLE, 100, "(12, 22, 15, 38)", "(16, 23, 107, 37)", kNoArrow, kNoArrow},
        {"goes on", PIECE_HEAD, 100, "(12, 22, 15, 38)", "(16, 23, 101, 37)", kNoArrow, 106},
        {"began earlier", PIECE_TAIL, 100, "(0, 0, 0, 0)", "(19, 23, 107, 37)", 13, kNoArrow},
        {"both", PIECE_MIDDLE, 100, "(0, 0, 0, 0)", "(19, 23, 101, 37)", 13, 106},
        {"no room for the stripe", PIECE_WHOLE, 9, "(0, 0, 0, 0)", "(13, 23, 16, 37)", kNoArrow, kNoArrow},
        {"no room for an arrow", PIECE_TAIL, 10, "(0, 0, 0, 0)", "(13, 23, 17, 37)", kNoArrow, kNoArrow},
        {"no room at all", PIECE_WHOLE, 2, "(0, 0, 0, 0)", "(0, 0, 0, 0)", kNoArrow, kNoArrow},
    };
    for (const Case& c : cases) {
        const BarParts parts = PartsOf(CRect(10, 20, 10 + c.width, 40), c.piece);
        EXPECT_EQ(Text(parts.stripe), c.stripe) << c.name;
        EXPECT_EQ(Text(parts.content), c.content) << c.name;
        EXPECT_EQ(parts.arrowBefore, c.arrowBefore) << c.name;
        EXPECT_EQ(parts.arrowAfter, c.arrowAfter) << c.name;
    }
    for (int width = 0; width < 40; ++width) {
        for (int piece : {PIECE_WHOLE, PIECE_HEAD, PIECE_MIDDLE, PIECE_TAIL}) {
            const BarParts parts = PartsOf(CRect(10, 20, 10 + width, 40), piece);
            CRect common;
            EXPECT_TRUE(Contains(parts.bar, parts.stripe) && Contains(parts.bar, parts.content)) << width;
            EXPECT_FALSE(common.IntersectRect(parts.stripe, parts.content)) << width;
        }
    }
}

TEST(BoxParts, OfAMarkedBox)
{
    struct Case
    {
        int stripHeight;
        const char* upper;
        const char* lower;
    };
    const Case cases[] = {
        {17, "(102, 202, 299, 207)", "(102, 207, 299, 216)"}, // a month's cell: 5 and 9 pixels
        {22, "(102, 202, 299, 208)", "(102, 208, 299, 221)"}, // a week's day
        {20, "(102, 202, 299, 208)", "(102, 208, 299, 219)"}, // a year's month
    };
    for (const Case& c : cases) {
        const DayFrameParts parts = PartsOfDayFrame(CRect(100, 200, 300, 400), c.stripHeight, ViewScale());
        EXPECT_EQ(Text(parts.frame), "(101, 201, 299, 399)");
        EXPECT_EQ(Text(parts.upper), c.upper);
        EXPECT_EQ(Text(parts.lower), c.lower);
        EXPECT_EQ(parts.bottomLine, 200 + c.stripHeight - 1);
    }
    for (int size = 0; size < 30; ++size) {
        const DayFrameParts parts = PartsOfDayFrame(CRect(0, 0, size, size), 17, ViewScale());
        EXPECT_TRUE(Contains(parts.frame, parts.upper) && Contains(parts.frame, parts.lower)) << size;
    }
    // An outline 8 pixels wide keeps within its box.
    EXPECT_EQ(Text(PartsOfDayFrame(CRect(0, 0, 99, 99), 68, ViewScale{4 * 96}).frame), "(3, 3, 96, 96)");
}

TEST(BoxParts, LeaveTheBorderOfTheCalendar)
{
    const CRect calendar(0, 30, 706, 647);
    EXPECT_EQ(Text(PaintedPart(CRect(528, 338, 706, 646), calendar)), "(528, 338, 705, 646)");
    EXPECT_EQ(Text(PaintedPart(CRect(0, 339, 176, 647), calendar)), "(0, 339, 176, 646)");
    EXPECT_EQ(Text(PaintedPart(CRect(0, 30, 176, 338), calendar)), "(0, 30, 176, 338)");
}
