// Where the texts of boxes stand, in a font whose characters are all seven pixels wide.
#include "DayGridTesting.h"

#include "views/daygrid/BoxTexts.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {

int WidthOf(const std::u16string& text)
{
    return 7 * static_cast<int>(text.size());
}

// Both lie in the outer one, and the first ends before the second begins.
void ExpectInLine(const CRect& outer, const CRect& first, int firstWidth, const CRect& second)
{
    if (second.IsRectEmpty()) {
        return;
    }
    EXPECT_LE(first.left + firstWidth, second.left) << outer.Width();
    EXPECT_LE(second.right, outer.right) << outer.Width();
}

} // namespace

TEST(BoxTexts, ADayKeepsItsNumberBeforeAnythingElse)
{
    DayLook look = {};
    look.dayNumber = u"26/11/20";
    look.dayAlone = u"20";
    look.annotation = u"named day";
    std::size_t before = 0;
    for (int width = 0; width < 200; ++width) {
        const CRect box(100, 50, 100 + width, 100);
        const DayTextPlaces places = PlaceDayTexts(box, look, WidthOf);
        EXPECT_EQ(look.dayNumber.substr(look.dayNumber.size() - places.number.size()), places.number);
        EXPECT_GE(places.number.size(), look.dayAlone.size()) << width;
        EXPECT_GE(places.number.size(), before) << "more room never says less";
        before = places.number.size();
        EXPECT_TRUE(places.number == look.dayAlone || WidthOf(places.number) <= places.numberRect.Width()) << width;
        const bool hasRoom = !places.annotation.IsRectEmpty();
        if (hasRoom) {
            EXPECT_LT(places.annotation.right, places.numberRect.right - WidthOf(places.number)) << width;
            EXPECT_GE(places.annotation.left, box.left);
        }
        EXPECT_EQ(IsCut(look.annotation, places.annotation, WidthOf),
                  places.annotation.Width() < WidthOf(look.annotation));
        EXPECT_EQ(hasRoom, width >= 5 + 8 * 7 + 4 + 4 + 20) << width;
    }
    const DayTextPlaces wide = PlaceDayTexts(CRect(100, 50, 240, 150), look, WidthOf);
    EXPECT_EQ(wide.numberRect, CRect(100, 51, 235, 150));
    EXPECT_EQ(wide.annotation, CRect(104, 53, 175, 66));
    const TitlePlaces title = PlaceTitle(CRect(0, 0, 300, 24), 40);
    EXPECT_EQ(title.number, CRect(5, 5, 295, 19));
    EXPECT_EQ(title.text, CRect(45, 5, 295, 19));
    look.dayNumber = u"20. 11.";
    EXPECT_EQ(PlaceDayTexts(CRect(0, 0, 40, 50), look, WidthOf).number, u"20") << "cut at its end it is another date";
}

TEST(BoxTexts, AStripLeavesOutWhatHasNoRoomFromItsEnd)
{
    const StripTexts texts = {u"11/20", u"(Fri)", 0, u"named day", 0, u"20"};
    for (int width = 0; width < 240; ++width) {
        const CRect strip(30, 5, 30 + width, 27);
        const StripTextPlaces places = PlaceStripTexts(strip, texts, WidthOf, WidthOf);
        EXPECT_EQ(places.number == texts.number, width >= 5 * 7 + 2 * 5) << width;
        ExpectInLine(strip, places.numberRect, WidthOf(places.number), places.suffix);
        ExpectInLine(strip, places.suffix, WidthOf(texts.suffix), places.annotation);
        EXPECT_TRUE(places.annotation.IsRectEmpty() || !places.suffix.IsRectEmpty()) << width;
        EXPECT_EQ(places.suffix.IsRectEmpty(), width < 5 + 35 + 2 + 35 + 5) << width;
        EXPECT_EQ(places.annotation.IsRectEmpty(), width < 5 + 35 + 2 + 35 + 4 + 20 + 5) << width;
    }
    const StripTextPlaces wide = PlaceStripTexts(CRect(30, 5, 230, 27), texts, WidthOf, WidthOf);
    EXPECT_EQ(wide.numberRect, CRect(35, 5, 225, 27));
    EXPECT_EQ(wide.suffix, CRect(72, 5, 225, 27));
    EXPECT_EQ(wide.annotation, CRect(111, 5, 225, 27));
    EXPECT_EQ(PlaceStripTexts(CRect(0, 0, 16, 22), texts, WidthOf, WidthOf).numberRect.Width(), 16)
        << "the number takes the insets rather than lose a digit";
}
