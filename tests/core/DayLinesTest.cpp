// The lines under the number of a day: their texts by known dates, their places by what must hold for any of them.
#include "calc/DayCalendar.h"
#include "core/DateMath.h"
#include "core/DayLineLayout.h"
#include "core/EraTitles.h"
#include "core/TextCodec.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace dayvane;

namespace {

COleDateTime Day(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

DayLines All()
{
    DayLines lines;
    lines.names = lines.terms = lines.seasonalDays = lines.rokuyo = lines.lunarDate = lines.moonPhase = true;
    return lines;
}

std::string Texts(const std::vector<DayPiece>& pieces)
{
    std::string text;
    for (const DayPiece& piece : pieces) {
        text +=
            (text.empty() ? "" : "|") + std::string(piece.moon >= 0 ? "*" : "") + EncodeText(piece.text, kOwnCodePage);
    }
    return text;
}

std::vector<DayPiece> RandomPieces(std::mt19937& random)
{
    const DayPiece::Kind kinds[] = {DayPiece::Kind::DayOff, DayPiece::Kind::Term, DayPiece::Kind::Sky};
    std::vector<DayPiece> pieces(random() % 6);
    for (DayPiece& piece : pieces) {
        piece.kind = kinds[random() % 3];
        piece.textWidth = static_cast<int>(10 + random() % 70);
        piece.moon = piece.kind == DayPiece::Kind::Sky && random() % 2 == 0 ? 90.0 : -1;
    }
    return pieces;
}

} // namespace

// Almanac of the National Astronomical Observatory of Japan for 2026 and 2033: new moon on 9 November 2026, full moon
// on 24 November at 23:53; the month after the eleventh of 2033 is the leap month.
TEST(DayLines, SaysOfADayWhatIsSwitchedOn)
{
    const DayCalendar days;
    EXPECT_EQ(Texts(PiecesOfDay(Day(2026, 11, 22), &days, All())), "小雪|大安|旧10/14|*");
    EXPECT_EQ(Texts(PiecesOfDay(Day(2026, 11, 23), &days, All())), "勤労感謝の日|赤口|旧10/15|*");
    EXPECT_EQ(Texts(PiecesOfDay(Day(2026, 11, 24), &days, All())), "先勝|旧10/16|*満月");
    EXPECT_EQ(Texts(PiecesOfDay(Day(2033, 12, 25), &days, All())), "クリスマス|友引|旧閏11/4|*");
    EXPECT_EQ(Texts(PiecesOfDay(COleDateTime(1e9), &days, All())), "");

    DayLines some;
    some.names = some.seasonalDays = true;
    EXPECT_EQ(Texts(PiecesOfDay(Day(2026, 2, 3), &days, some)), "節分");
    EXPECT_EQ(Texts(PiecesOfDay(Day(2026, 11, 22), &days, some)), "") << "a term is none of them";
    const std::vector<DayPiece> holiday = PiecesOfDay(Day(2026, 8, 11), &days, some);
    ASSERT_EQ(holiday.size(), 1u);
    EXPECT_EQ(holiday[0].kind, DayPiece::Kind::DayOff);

    DayLines english;
    english.rokuyo = english.lunarDate = english.moonPhase = true;
    english.language = DayLanguage::English;
    EXPECT_EQ(Texts(PiecesOfDay(Day(2026, 11, 24), &days, english)).substr(0, 14), "Sensho|10/16|*");
    DayLines names;
    names.names = names.terms = true;
    names.language = DayLanguage::English;
    EXPECT_EQ(Texts(PiecesOfDay(Day(2026, 11, 3), &days, names)), "Culture Day");
    EXPECT_EQ(Texts(PiecesOfDay(Day(2026, 11, 22), &days, names)), "Minor Snow");
    // The same evening in Beijing is 22:53, of the same day; the first minutes of the 25th further east.
    english.zoneMinutes = kJapanZone + 60;
    EXPECT_EQ(Texts(PiecesOfDay(Day(2026, 11, 24), &days, english)), "Sensho|10/16|*");
}

TEST(DayLines, ListsTheDaysOffOfAMonth)
{
    DayCalendar days;
    DayLines lines;
    lines.names = true;
    EXPECT_EQ(Texts(DaysOffOfMonth(Day(2026, 11, 1), &days, lines)), "3 文化の日|23 勤労感謝の日");
    for (const int day : {28, 29, 30, 31}) {
        days.AddHostDay({"", 2026, 12, day, HostDayEffect::DayOff, 0});
    }
    days.AddHostDay({u8"創立記念日", 2026, 12, 25, HostDayEffect::DayOff, 0});
    EXPECT_EQ(Texts(DaysOffOfMonth(Day(2026, 12, 1), &days, lines)), "25 創立記念日|28-30|31 大晦日")
        << "a day with a name of its own stands alone";
    EXPECT_EQ(Texts(DaysOffOfMonth(Day(2026, 12, 1), &days, DayLines())), "");
    lines.names = false;
    lines.rokuyo = true;
    EXPECT_EQ(Texts(DaysOffOfMonth(Day(2026, 12, 1), &days, lines)), "25|28-31") << "other lines, but no names";
}

TEST(DayLines, PlacesPiecesWithinTheirLines)
{
    std::mt19937 random(20261120);
    for (int round = 0; round < 3000; ++round) {
        const std::vector<DayPiece> pieces = RandomPieces(random);
        const int lines = static_cast<int>(random() % 4);
        const CRect area(7, 11, 7 + static_cast<int>(random() % 200), 11 + lines * kDayLine.lineHeight);
        const std::vector<PlacedPiece> placed = PlacePieces(pieces, area, lines);
        std::vector<bool> seen(pieces.size());
        for (size_t i = 0; i < placed.size(); ++i) {
            const CRect& rect = placed[i].rect;
            ASSERT_FALSE(seen[placed[i].piece]) << "once";
            seen[placed[i].piece] = true;
            ASSERT_TRUE(rect.left >= area.left && rect.right <= area.right && rect.top >= area.top &&
                        rect.bottom <= area.bottom);
            for (size_t k = 0; k < i; ++k) {
                ASSERT_FALSE(CRect().IntersectRect(&rect, &placed[k].rect));
            }
        }
        const int enough = LinesFor(pieces, 1000, kMostDayLines);
        ASSERT_EQ(PlacePieces(pieces, CRect(0, 0, 1000, 0), enough).size(), pieces.size());
        ASSERT_EQ(enough == 0, pieces.empty());
    }
}

TEST(DayLines, KeepsNamesWhereRoomIsShortAndOrderWhereItIsNot)
{
    std::vector<DayPiece> pieces(3);
    DayPiece moon;
    moon.moon = 90;
    EXPECT_EQ(WidthOfPiece(moon), 11);
    moon.textWidth = 24;
    EXPECT_EQ(WidthOfPiece(moon), 37) << "two pixels between them";
    pieces[0].textWidth = 70; // a name
    pieces[1].kind = pieces[2].kind = DayPiece::Kind::Sky;
    pieces[1].textWidth = pieces[2].textWidth = 24;
    const auto single = PlacePieces(pieces, CRect(0, 0, 90, 14), 1);
    ASSERT_EQ(single.size(), 1u);
    EXPECT_EQ(single[0].piece, 0);
    EXPECT_EQ(LinesFor(pieces, 90, kMostDayLines), 2);
    const auto cut = PlacePieces(pieces, CRect(0, 0, 50, 14), 1);
    ASSERT_EQ(cut.size(), 1u);
    EXPECT_EQ(cut[0].piece, 0);
    EXPECT_EQ(cut[0].rect.Width(), 50 - 2 * kDayLine.sideInset) << "as much of the name as there is room for";
    const auto two = PlacePieces(pieces, CRect(0, 0, 90, 28), 2);
    ASSERT_EQ(two.size(), 3u);
    EXPECT_EQ(two[0].rect.top, 0) << "what each day has stands in one line all over the month";
    EXPECT_EQ(two[2].piece, 0);
    EXPECT_EQ(two[2].rect.top, kDayLine.lineHeight);
}

TEST(DayLines, DrawsAsMuchOfTheMoonAsIsLit)
{
    constexpr int size = 101;
    for (int elongation = 0; elongation < 360; elongation += 15) {
        double disc = 0, lit = 0, right = 0;
        for (const MoonRow& row : MoonPicture(size, elongation)) {
            ASSERT_TRUE(row.begin <= row.litBegin && row.litBegin <= row.litEnd && row.litEnd <= row.end);
            ASSERT_TRUE(row.begin >= 0 && row.end <= size && row.begin + row.end == size);
            disc += row.end - row.begin;
            lit += row.litEnd - row.litBegin;
            right += std::max(row.litEnd - std::max(row.litBegin, size / 2), 0);
        }
        const double illuminated = (1 - std::cos(elongation * 3.14159265358979 / 180)) / 2;
        EXPECT_NEAR(disc, 3.14159265358979 * size * size / 4, size);
        EXPECT_NEAR(lit / disc, illuminated, 0.02) << elongation;
        if (elongation > 0 && elongation < 180) {
            EXPECT_GT(right, lit / 2) << "a waxing moon is lit at the right";
        } else if (elongation > 180) {
            EXPECT_LT(right, lit / 2 + 1);
        }
    }
}

TEST(DayLines, NamesErasAndWeeksOfATitle)
{
    const auto month = [](int y1, int m1, int d1, int y2, int m2, int d2) {
        return std::string(EraTitle(Day(y1, m1, d1), Day(y2, m2, d2), TitleUnit::Month));
    };
    EXPECT_EQ(month(2026, 11, 1, 2026, 11, 30), "令和8年11月");
    EXPECT_EQ(month(2026, 11, 29, 2026, 12, 5), "令和8年11月-12月");
    EXPECT_EQ(month(2026, 12, 27, 2027, 1, 2), "令和8年12月-令和9年1月");
    EXPECT_EQ(month(2019, 4, 28, 2019, 5, 4), "平成31年4月-令和元年5月");
    EXPECT_EQ(month(1600, 1, 1, 1600, 1, 31), "") << "before the eras of the table";
    EXPECT_EQ(std::string(EraTitle(Day(2019, 1, 1), Day(2019, 12, 31), TitleUnit::Year)), "平成31年-令和元年");

    DayLines lines;
    EXPECT_EQ(TitleNote(Day(2026, 11, 16), Day(2026, 11, 22), TitleUnit::Month, 2, lines), "");
    lines.eraTitles = lines.weekNumbers = true;
    EXPECT_EQ(TitleNote(Day(2026, 11, 16), Day(2026, 11, 22), TitleUnit::Month, 2, lines), "  令和8年11月  第47週");
    lines.language = DayLanguage::English;
    EXPECT_EQ(TitleNote(Day(2026, 11, 20), Day(2026, 11, 26), TitleUnit::Year, 2, lines), "  令和8年  weeks 47-48");

    const EraTable before = TitleEras();
    EraTable later = before;
    ASSERT_TRUE(later.Add({u8"新元", u8"新", "", "Shingen", 'X', {2040, 5, 1}}));
    SetTitleEras(later);
    EXPECT_EQ(month(2040, 4, 1, 2040, 5, 31), "令和22年4月-新元元年5月");
    SetTitleEras(before);
}
