// The rulers of two zones, and the days on which a clock is changed.
#include "core/DateMath.h"
#include "core/TextCodec.h"
#include "views/timegrid/ZoneRuler.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {

constexpr int kHour = 3600;

ClockSeconds Utc(int year, int month, int day, int hour)
{
    return (civil::DayNumber(year, month, day) - civil::DayNumber(1970, 1, 1)) * kSecondsPerDay + hour * kHour;
}

// 2026: forward on 8 March, back on 1 November, each at 2:00 of its own clock (Energy Policy Act of 2005).
ZoneClock NewYork()
{
    return ZoneClock(-5 * kHour, {{Utc(2026, 3, 8, 7), -4 * kHour}, {Utc(2026, 11, 1, 6), -5 * kHour}});
}

ZoneRuler Ruler(const ZoneClock& own, const ZoneClock& other)
{
    ZoneRuler ruler;
    ruler.own = own;
    ruler.other = other;
    ruler.otherLabel = "other";
    return ruler;
}

std::string Hours(const COleDateTime& day, const ZoneRuler& ruler)
{
    std::string text;
    for (const ZoneHour& hour : ZoneHoursOf(day, ruler)) {
        text += std::string(text.empty() ? "" : " ") + hour.other.GetString();
        text += hour.otherDate.IsEmpty() ? "" : "(" + std::string(hour.otherDate.GetString()) + ")";
        text += hour.change.IsEmpty() ? "" : "[" + std::string(hour.change.GetString()) + "]";
    }
    return text;
}

std::string Pieces(const COleDateTime& day, const ZoneRuler& ruler)
{
    std::string text;
    for (const DayPiece& piece : ZonePiecesOf(day, ruler)) {
        text += "|" + EncodeText(piece.text, kOwnCodePage);
    }
    return text;
}

COleDateTime Day(int month, int day)
{
    return COleDateTime(2026, month, day, 9, 30, 0);
}

} // namespace

TEST(ZoneRuler, ShowsTheOtherClockWithItsDates)
{
    const ZoneRuler tokyo = Ruler(ZoneClock(9 * kHour), NewYork());
    EXPECT_EQ(Hours(Day(11, 20), tokyo).substr(0, 33), "10:00(11/19) 11:00 12:00 13:00 14");
    EXPECT_NE(Hours(Day(11, 20), tokyo).find(" 23:00 0:00(11/20) 1:00"), std::string::npos);
    EXPECT_EQ(Pieces(Day(11, 20), tokyo), "");
    EXPECT_EQ(Pieces(Day(11, 2), tokyo), "|other -14:00") << "the first day whose noon is an hour further away";
    const std::string half = Hours(Day(11, 20), Ruler(ZoneClock(9 * kHour), ZoneClock(5 * kHour + kHour / 2)));
    EXPECT_NE(half.find(" 23:30(11/20) 0:30"), std::string::npos) << half;
    EXPECT_EQ(Hours(COleDateTime(1e9), tokyo), "");
}

TEST(ZoneRuler, ShowsTheHoursThatAreSkippedAndThoseThatRepeat)
{
    const ZoneRuler own = Ruler(NewYork(), ZoneClock(9 * kHour));
    // 1:00 is 15:00 in Tokyo, 3:00 is 16:00: an hour that does not happen is not shown.
    EXPECT_EQ(Hours(Day(3, 8), own).substr(0, 53), "14:00(3/8) 15:00 [2:00>3:00] 16:00 17:00 18:00 19:00 ");
    EXPECT_EQ(Pieces(Day(3, 8), own), "|2:00>3:00|other +13:00");
    EXPECT_EQ(Hours(Day(11, 1), own).substr(0, 51), "13:00(11/1) 14:00[2:00>1:00] 16:00 17:00 18:00 19:0");
    EXPECT_EQ(Pieces(Day(3, 9), own), "");
}
