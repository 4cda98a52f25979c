#include "calc/SeasonalDays.h"

#include "calc/SexagenaryCycle.h"
#include "calc/SkyMoments.h"

#include <array>
#include <cstdlib>

namespace dayvane {
namespace {
// The longitudes from which the seasonal days of a civil year are counted.
enum Anchor
{
    kSpring,
    kSpringEquinox,
    kAutumnEquinox,
    kNyubaiAnchor,
    kHangeshoAnchor,
    kFirstDoyo, // beginning and end of four doyo; the last ends at the beginning of spring
    kAnchors = kFirstDoyo + 7
};
constexpr std::array<int, kAnchors> kAnchorLongitudes = {315, 0, 180, 80, 100, 27, 45, 117, 135, 207, 225, 297};
constexpr int kDoyoOfYear = 4;

// The days of the anchors, and which equinoxes come before noon.
struct AnchorDays
{
    std::array<int, kAnchors> days;
    std::array<bool, kAnchors> isBeforeNoon;
};

int ShanichiOf(int equinoxDay, bool isBeforeNoon)
{
    const int sinceFifthStem = (SexagenaryDay(equinoxDay) % kStems - kFifthStem + kStems) % kStems;
    const bool isEarlierNearer = sinceFifthStem < kStems / 2 || (sinceFifthStem == kStems / 2 && isBeforeNoon);
    return equinoxDay - sinceFifthStem + (isEarlierNearer ? 0 : kStems);
}

unsigned EquinoxDays(int serialDay, int equinoxDay, bool isBeforeNoon)
{
    constexpr int kHiganReach = 3; // days before and after the equinox day
    const auto bit = [](SeasonalDay day, bool isSet) { return isSet ? 1U << static_cast<int>(day) : 0U; };
    const int fromEquinox = serialDay - equinoxDay;
    return bit(SeasonalDay::Higan, std::abs(fromEquinox) <= kHiganReach) |
           bit(SeasonalDay::HiganBegin, fromEquinox == -kHiganReach) | bit(SeasonalDay::HiganMiddle, fromEquinox == 0) |
           bit(SeasonalDay::HiganEnd, fromEquinox == kHiganReach) |
           bit(SeasonalDay::Shanichi, serialDay == ShanichiOf(equinoxDay, isBeforeNoon));
}

unsigned BitsOf(int serialDay, const AnchorDays& anchors)
{
    const auto bit = [](SeasonalDay day, bool isSet) { return isSet ? 1U << static_cast<int>(day) : 0U; };
    const int dayOfSpring = serialDay - anchors.days[kSpring] + 1; // 1 on the first day of spring
    unsigned bits = bit(SeasonalDay::Setsubun, dayOfSpring == 0) | bit(SeasonalDay::Hachijuhachiya, dayOfSpring == 88) |
                    bit(SeasonalDay::Nihyakutoka, dayOfSpring == 210) |
                    bit(SeasonalDay::Nihyakuhatsuka, dayOfSpring == 220) |
                    bit(SeasonalDay::Nyubai, serialDay == anchors.days[kNyubaiAnchor]) |
                    bit(SeasonalDay::Hangesho, serialDay == anchors.days[kHangeshoAnchor]);
    for (int equinox : {kSpringEquinox, kAutumnEquinox}) {
        bits |= EquinoxDays(serialDay, anchors.days[equinox], anchors.isBeforeNoon[equinox]);
    }
    for (int i = 0; i < kDoyoOfYear; ++i) {
        const int begin = kFirstDoyo + 2 * i;
        const int end = begin + 1 < kAnchors ? begin + 1 : static_cast<int>(kSpring);
        const bool isDoyo = serialDay >= anchors.days[begin] && serialDay < anchors.days[end];
        bits |= bit(SeasonalDay::Doyo, isDoyo) | bit(SeasonalDay::DoyoBegin, serialDay == anchors.days[begin]) |
                bit(SeasonalDay::DoyoOx, isDoyo && SexagenaryDay(serialDay) % kBranches == kOxBranch);
    }
    return bits;
}
} // namespace

SeasonalDays SeasonalDaysOf(int year, int month, int day, int zoneMinutes)
{
    if (!IsSkyDate(year, month, day, zoneMinutes)) {
        return {};
    }
    const int serialDay = civil::DayNumber(year, month, day);
    AnchorDays anchors;
    std::array<int, kAnchors> otherDays;
    for (int i = 0; i < kAnchors; ++i) {
        const SkyMoment moment = SolarLongitudeMoment(year, kAnchorLongitudes[i]);
        const ZoneMoment zoneMoment = InZone(moment, zoneMinutes);
        anchors.days[i] = zoneMoment.serialDay;
        anchors.isBeforeNoon[i] = zoneMoment.minute < kMinutesPerDay / 2;
        otherDays[i] = OtherDayOf(moment, zoneMinutes);
    }
    SeasonalDays result;
    result.bits = BitsOf(serialDay, anchors);
    for (int i = 0; i < kAnchors; ++i) {
        if (otherDays[i] != anchors.days[i]) {
            AnchorDays otherwise = anchors;
            otherwise.days[i] = otherDays[i];
            result.isUncertain = result.isUncertain || BitsOf(serialDay, otherwise) != result.bits;
        }
    }
    return result;
}
} // namespace dayvane
