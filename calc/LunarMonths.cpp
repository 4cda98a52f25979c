#include "calc/LunarMonths.h"

#include "calc/SkyPlaces.h"

#include <algorithm>
#include <cmath>

namespace dayvane
{
namespace
{
constexpr double kQuarterAngle = 90;
constexpr double kTermAngle = 30;
constexpr int kTerms = 4; // of the quarter: its own beginning and the three principal terms after it

// What one working out of a quarter went through, to compare it with another from a neighbouring moment.
struct QuarterPaths
{
    // The terms after the first, five new moons with a second try for four of them, and one for the correction.
    static constexpr int kMaxSearches = (kTerms - 1) + LunarQuarter::kMonths + (LunarQuarter::kMonths - 1) + 1;

    SearchPath searches[kMaxSearches];
    int count = 0;

    SearchPath* Next() { return &searches[count++]; }
};

struct Quarter
{
    double begin = 0; // moment of the solstice or equinox
    LunarQuarter months;
    QuarterPaths paths;
};

int MonthNumberAfter(int number)
{
    return number == 12 ? 1 : number + 1;
}

// New moons, the first at or before the beginning of the quarter.
void FindNewMoons(double begin, double (&newMoons)[LunarQuarter::kMonths], QuarterPaths& paths)
{
    constexpr double kNextMoon = 30;       // days ahead, from which the search goes back to the next new moon
    constexpr double kFartherNextMoon = 35; // where the former leads back to the same one
    constexpr double kMoonBefore = -27;
    constexpr double kShortestMonth = 26;
    constexpr int last = LunarQuarter::kMonths - 1;

    newMoons[0] = FindNewMoon(begin, paths.Next());
    for (int i = 1; i <= last; ++i) {
        newMoons[i] = FindNewMoon(newMoons[i - 1] + kNextMoon, paths.Next());
        if (std::abs(std::floor(newMoons[i - 1]) - std::floor(newMoons[i])) <= kShortestMonth) {
            newMoons[i] = FindNewMoon(newMoons[i - 1] + kFartherNextMoon, paths.Next());
        }
    }
    if (std::floor(newMoons[1]) <= std::floor(begin)) { // went back too far
        std::copy(newMoons + 1, newMoons + LunarQuarter::kMonths, newMoons);
        newMoons[last] = FindNewMoon(newMoons[last - 1] + kFartherNextMoon, paths.Next());
    } else if (std::floor(newMoons[0]) > std::floor(begin)) { // not far enough
        std::copy_backward(newMoons, newMoons + last, newMoons + LunarQuarter::kMonths);
        newMoons[0] = FindNewMoon(newMoons[0] + kMoonBefore, paths.Next());
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

// The months that follow from the moment of a solstice or equinox and its longitude.
Quarter WorkOut(double begin, double longitude)
{
    Quarter quarter;
    quarter.begin = begin;
    double terms[kTerms] = {begin};
    for (int i = 1; i < kTerms; ++i) {
        double termLongitude = 0;
        terms[i] = FindSolarLongitude(terms[i - 1] + 32, kTermAngle, termLongitude, quarter.paths.Next());
    }
    double newMoons[LunarQuarter::kMonths];
    FindNewMoons(begin, newMoons, quarter.paths);
    int firstNumber = static_cast<int>(std::floor(longitude / kTermAngle)) + 2;
    if (firstNumber > 12) {
        firstNumber -= 12;
    }
    NumberMonths(terms, newMoons, firstNumber, quarter.months);
    return quarter;
}

// --- When two beginnings, a fraction of a second apart, have the same months ---
//
// Sun, moon and elongation gain longitude all the time, so every comparison of a search changes its outcome at most
// once between two starts so near to each other, and an outcome that changes the course of the search changes the angle
// of that round by far more than the starts do (by 200 degrees and more). Where the angles of all rounds agree at both
// ends, every start between takes the same course. The searches draw starts together: a round keeps at most 1/5 of a
// new moon's distance, 1/25 of a solar term's (the greatest departures of the true from the mean motions), and the last
// step is at most a second, so all ends of such a bundle lie within 0.3 seconds of one moment. They fall on one day when
// that moment is farther from midnight.

constexpr double kSameCourse = 0.01;     // degrees
constexpr double kMidnightMargin = 1e-5; // days

bool IsClearOfMidnight(double moment)
{
    const double time = moment - std::floor(moment);
    return time > kMidnightMargin && time < 1.0 - kMidnightMargin;
}

bool TakeSameCourse(const SearchPath& one, const SearchPath& other)
{
    if (!one.settled || !other.settled || std::floor(one.result) != std::floor(other.result) ||
        !IsClearOfMidnight(one.result) || !IsClearOfMidnight(other.result)) {
        return false;
    }
    const int rounds = std::min(one.rounds, other.rounds); // one may take a last round of less than a second more
    for (int i = 0; i < rounds; ++i) {
        if (!(std::abs(one.angle[i] - other.angle[i]) < kSameCourse)) {
            return false;
        }
    }
    return std::abs(one.rounds - other.rounds) <= 1;
}

bool TakeSameCourse(const Quarter& one, const Quarter& other)
{
    if (one.paths.count != other.paths.count || std::floor(one.begin) != std::floor(other.begin) ||
        !IsClearOfMidnight(one.begin) || !IsClearOfMidnight(other.begin)) {
        return false;
    }
    for (int i = 0; i < one.paths.count; ++i) {
        if (!TakeSameCourse(one.paths.searches[i], other.paths.searches[i])) {
            return false;
        }
    }
    return true;
}

// The beginnings that the days of one quarter find lie closer together than this: each is within 4.5e-7 days of the
// true moment, 1/25 of a second being what the last round leaves of the second that it may miss.
constexpr double kReach = 2e-6;

// A range of beginnings that all have the same months.
struct KnownRange
{
    double longitude = -1; // of the sun, at the beginning; -1: nothing known
    Quarter low;
    Quarter high;
    // Days that are sure to find a beginning of this range (none while the first is after the last).
    double firstSureDay = 1;
    double lastSureDay = 0;

    bool IsAt(double beginning, double atLongitude) const
    {
        return longitude == atLongitude && std::abs(low.begin - beginning) < 4 * kReach;
    }
    bool Holds(double beginning, double atLongitude) const
    {
        return longitude == atLongitude && low.begin <= beginning && beginning <= high.begin;
    }
    bool HoldsDay(double day) const { return firstSureDay <= day && day <= lastSureDay; }

    // Takes in a beginning that has the same months.
    bool Join(const Quarter& quarter)
    {
        if (!TakeSameCourse(quarter, low)) {
            return false;
        }
        (quarter.begin < low.begin ? low : high) = quarter;
        return true;
    }
};

// The ranges used last. It lives in thread-local storage, so it has nothing to destroy.
class KnownRanges
{
public:
    const LunarQuarter& MonthsOf(double day)
    {
        for (const KnownRange& range : m_ranges) {
            if (range.HoldsDay(day)) {
                return range.low.months;
            }
        }
        double longitude = 0;
        const double begin = FindSolarLongitude(day, kQuarterAngle, longitude);
        for (const KnownRange& range : m_ranges) {
            if (range.Holds(begin, longitude)) {
                return range.low.months;
            }
        }
        return Learn(begin, longitude);
    }

private:
    const LunarQuarter& Learn(double begin, double longitude)
    {
        const bool isNewQuarter = std::none_of(m_ranges, m_ranges + kRanges, [&](const KnownRange& range) {
            return range.IsAt(begin, longitude);
        });
        if (isNewQuarter) {
            KnownRange& range = Add(WorkOut(begin - kReach, longitude), longitude);
            const Quarter high = WorkOut(begin + kReach, longitude);
            if (range.Join(high)) {
                SetSureDays(range, begin);
                return range.low.months;
            }
            Add(high, longitude);
        }
        const Quarter quarter = WorkOut(begin, longitude);
        for (KnownRange& range : m_ranges) {
            if (range.IsAt(begin, longitude) && range.Join(quarter)) {
                return range.low.months;
            }
        }
        return Add(quarter, longitude).low.months;
    }

    // The sun gains at most 1.0222 degrees a day: the mean 0.9856 and the greatest rates of the waves. So 88 days
    // after the beginning it has not reached the next quarter.
    static void SetSureDays(KnownRange& range, double begin)
    {
        range.firstSureDay = std::ceil(begin + 0.01);
        range.lastSureDay = std::floor(begin + 88);
    }

    KnownRange& Add(const Quarter& quarter, double longitude)
    {
        KnownRange& range = m_ranges[m_next];
        m_next = (m_next + 1) % kRanges;
        range = {longitude, quarter, quarter, 1, 0};
        return range;
    }

    static constexpr int kRanges = 8;
    KnownRange m_ranges[kRanges];
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
    int next = 0;
    while (next < kMonths && months[next].firstDay <= day) {
        ++next;
    }
    return months[std::max(next - 1, 0)];
}

const LunarQuarter& LunarQuarterOf(double day)
{
    thread_local KnownRanges ranges;
    return ranges.MonthsOf(day);
}
} // namespace dayvane
