#include "calc/LunarMonths.h"

#include "calc/SkyPlaces.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace dayvane {
namespace {
constexpr double kQuarterAngle = 90;
constexpr double kTermAngle = 30;
constexpr int kTerms = 4; // of the quarter: its own beginning and the three principal terms after it

int MonthNumberAfter(int number)
{
    return number == 12 ? 1 : number + 1;
}

// New moons, the first at or before the beginning of the quarter.
void FindNewMoons(double begin, double (&newMoons)[LunarQuarter::kMonths])
{
    constexpr double kNextMoon = 30;        // days ahead, from which the search goes back to the next new moon
    constexpr double kFartherNextMoon = 35; // where the former leads back to the same one
    constexpr double kMoonBefore = -27;
    constexpr double kShortestMonth = 26;
    constexpr int last = LunarQuarter::kMonths - 1;

    newMoons[0] = FindNewMoon(begin);
    for (int i = 1; i <= last; ++i) {
        newMoons[i] = FindNewMoon(newMoons[i - 1] + kNextMoon);
        if (std::abs(std::floor(newMoons[i - 1]) - std::floor(newMoons[i])) <= kShortestMonth) {
            newMoons[i] = FindNewMoon(newMoons[i - 1] + kFartherNextMoon);
        }
    }
    if (std::floor(newMoons[1]) <= std::floor(begin)) { // went back too far
        std::copy(newMoons + 1, newMoons + LunarQuarter::kMonths, newMoons);
        newMoons[last] = FindNewMoon(newMoons[last - 1] + kFartherNextMoon);
    } else if (std::floor(newMoons[0]) > std::floor(begin)) { // not far enough
        std::copy_backward(newMoons, newMoons + last, newMoons + LunarQuarter::kMonths);
        newMoons[0] = FindNewMoon(newMoons[0] + kMoonBefore);
    }
}

void NumberMonths(const double (&terms)[kTerms], const double (&newMoons)[LunarQuarter::kMonths], int firstNumber,
                  LunarQuarter& quarter)
{
    // Five new moons within three terms: one month has no term.
    bool leapMissing = std::floor(newMoons[LunarQuarter::kMonths - 1]) <= std::floor(terms[kTerms - 1]);
    quarter.months[0] = {firstNumber, false, std::floor(newMoons[0])};
    for (int i = 1; i < LunarQuarter::kMonths; ++i) {
        LunarMonth& before = quarter.months[i - 1];
        const double term = std::floor(terms[i - 1]);
        const bool holdsTerm = before.firstDay < term && term < std::floor(newMoons[i]);
        if (leapMissing && i != 1 && !holdsTerm) {
            before.number = quarter.months[i - 2].number;
            before.leap = true;
            leapMissing = false;
        }
        quarter.months[i] = {MonthNumberAfter(before.number), false, std::floor(newMoons[i])};
    }
}

// Whether a moment is farther from midnight than two searches for it from neighbouring starts can differ.
bool IsClearOfMidnight(double moment)
{
    constexpr double kOneSecond = 1.0 / 86400.0;
    const double time = moment - std::floor(moment);
    return time > kOneSecond && time < 1.0 - kOneSecond;
}

// A quarter that was worked out, from the solstice or equinox that one of its days found.
//
// The other days of the quarter have the same months. Each search takes its start nearer: a round keeps at most 1/25 of
// a solar longitude's distance and 1/5 of a new moon's (the greatest departures of the true from the mean motions), and
// the last step is at most a second. So the days find beginnings within 4.5e-7 days of the true one, and what is
// searched from there ends within 0.3 seconds of the same moments, which fall on the same days unless one is that close
// to midnight. A new moon just after the vernal equinox may be searched along another course from another beginning;
// the months come out the same, as a walk over all days of the years 100 to 9999 shows (dayvane-calc-bench --verify).
struct KnownQuarter
{
    static constexpr double kNothingKnown = -1;

    double begin = 0;
    double longitude = kNothingKnown; // of the sun at the beginning
    LunarQuarter months;

    // The months that follow from the moment of a solstice or equinox and its longitude.
    void WorkOut(double quarterBegin, double quarterLongitude)
    {
        double terms[kTerms] = {quarterBegin};
        double newMoons[LunarQuarter::kMonths];
        for (int i = 1; i < kTerms; ++i) {
            double termLongitude = 0;
            terms[i] = FindSolarLongitude(terms[i - 1] + 32, kTermAngle, termLongitude);
        }
        FindNewMoons(quarterBegin, newMoons);
        int firstNumber = static_cast<int>(std::floor(quarterLongitude / kTermAngle)) + 2;
        if (firstNumber > 12) {
            firstNumber -= 12;
        }
        NumberMonths(terms, newMoons, firstNumber, months);
        begin = quarterBegin;
        const bool isSteady = std::all_of(std::begin(terms), std::end(terms), IsClearOfMidnight) &&
                              std::all_of(std::begin(newMoons), std::end(newMoons), IsClearOfMidnight);
        longitude = isSteady ? quarterLongitude : kNothingKnown;
    }

    // Whether a day is sure to find this beginning. The sun gains at most 1.0222 degrees a day (the mean 0.9856 and the
    // greatest rates of the waves), so 88 days later it has not reached the next quarter.
    bool HoldsDay(double day) const { return longitude != kNothingKnown && begin + 0.01 <= day && day <= begin + 88; }

    bool BeginsAt(double quarterBegin, double quarterLongitude) const
    {
        constexpr double kReach = 2e-6; // days
        return longitude == quarterLongitude && std::abs(begin - quarterBegin) < kReach;
    }
};

// The quarters asked last. They live in thread-local storage, so they have nothing to destroy.
class KnownQuarters
{
public:
    const LunarQuarter& MonthsOf(double day)
    {
        for (const KnownQuarter& quarter : m_quarters) {
            if (quarter.HoldsDay(day)) {
                return quarter.months;
            }
        }
        double longitude = 0;
        const double begin = FindSolarLongitude(day, kQuarterAngle, longitude);
        for (const KnownQuarter& quarter : m_quarters) {
            if (quarter.BeginsAt(begin, longitude)) {
                return quarter.months;
            }
        }
        KnownQuarter& quarter = m_quarters[m_next];
        m_next = (m_next + 1) % kQuarters;
        quarter.WorkOut(begin, longitude);
        return quarter.months;
    }

private:
    static constexpr int kQuarters = 8;
    KnownQuarter m_quarters[kQuarters];
    int m_next = 0;
};
} // namespace

const LunarMonth& LunarQuarter::MonthOf(double day) const
{
    for (const LunarMonth& month : months) {
        if (month.firstDay == day) {
            return month;
        }
    }
    int next = 1;
    while (next < kMonths && months[next].firstDay <= day) {
        ++next;
    }
    return months[next - 1];
}

const LunarQuarter& LunarQuarterOf(double day)
{
    thread_local KnownQuarters quarters;
    return quarters.MonthsOf(day);
}
} // namespace dayvane
