#include "calc/ZoneClock.h"

#include <algorithm>
#include <iterator>

namespace dayvane {
namespace {
constexpr int kLargestOffset = 26 * 3600;
constexpr ClockSeconds kLatestMoment = 1'000'000'000'000; // beyond the valid years by far
constexpr int kUsualRowMinutes = 60;
constexpr int kEpoch = civil::DayNumber(1970, 1, 1);

// Whole days since the epoch, rounded down.
ClockSeconds DayOf(ClockSeconds local)
{
    return local / kSecondsPerDay - (local % kSecondsPerDay < 0 ? 1 : 0);
}

CivilDate DateOf(ClockSeconds local)
{
    return AddDays({1970, 1, 1}, static_cast<int>(DayOf(local)));
}

// Minutes of the overlap of two stretches of time.
int MinutesWithin(const ZoneClock::Change& change, ClockSeconds begin, ClockSeconds end)
{
    const ClockSeconds seconds = std::min(change.end, end) - std::max(change.begin, begin);
    return static_cast<int>(std::max<ClockSeconds>(seconds, 0) / kSecondsPerMinute);
}

// The second zone's part of a row that lasts from row.moment up to, not including, end.
void ReadOtherClock(const ZoneClock& other, ClockSeconds end, ZoneRulerRow& row)
{
    const ClockSeconds local = other.LocalOf(row.moment);
    row.otherDate = DateOf(local);
    row.otherMinute = static_cast<int>((local - DayOf(local) * kSecondsPerDay) / kSecondsPerMinute);
    // Minute by minute, for a clock that is set back over midnight changes its date more than once.
    ClockSeconds dayBefore = DayOf(other.LocalOf(row.moment - 1));
    for (ClockSeconds moment = row.moment; moment < end && row.otherDateBegins < 0; moment += kSecondsPerMinute) {
        const ClockSeconds day = DayOf(other.LocalOf(moment));
        if (day != dayBefore) {
            row.otherDateBegins = static_cast<int>((moment - row.moment) / kSecondsPerMinute);
        }
        dayBefore = day;
    }
    const int offsetChange = other.OffsetAt(end - 1) - other.OffsetAt(row.moment - 1);
    row.otherClockChanges = offsetChange / kSecondsPerMinute;
}
} // namespace

ZoneClock::ZoneClock(int offset, std::vector<ZoneTransition> transitions)
    : m_firstOffset(std::clamp(offset, -kLargestOffset, kLargestOffset))
{
    std::stable_sort(transitions.begin(), transitions.end(),
                     [](const ZoneTransition& a, const ZoneTransition& b) { return a.utc < b.utc; });
    for (size_t i = 0; i < transitions.size(); ++i) {
        if (transitions[i].utc < -kLatestMoment || transitions[i].utc > kLatestMoment) {
            continue;
        }
        const int next = std::clamp(transitions[i].offset, -kLargestOffset, kLargestOffset);
        const bool isReplaced = i + 1 < transitions.size() && transitions[i + 1].utc == transitions[i].utc;
        if (!isReplaced && next != OffsetBefore(m_transitions.size())) {
            m_transitions.push_back({transitions[i].utc, next});
        }
    }
}

int ZoneClock::OffsetBefore(size_t transition) const
{
    return transition == 0 ? m_firstOffset : m_transitions[transition - 1].offset;
}

size_t ZoneClock::FirstAfter(ClockSeconds utc) const
{
    const auto found = std::upper_bound(m_transitions.begin(), m_transitions.end(), utc,
                                        [](ClockSeconds value, const ZoneTransition& t) { return value < t.utc; });
    return static_cast<size_t>(std::distance(m_transitions.begin(), found));
}

int ZoneClock::OffsetAt(ClockSeconds utc) const
{
    return OffsetBefore(FirstAfter(utc));
}

LocalMoments ZoneClock::MomentsOf(ClockSeconds local) const
{
    LocalMoments moments;
    moments.count = LocalMoments::Count::Skipped;
    bool hasEnded = false; // the stretch before this one, when the clock would have shown the time
    for (size_t i = FirstAfter(local - kLargestOffset - 1); i <= m_transitions.size(); ++i) {
        // The clock keeps one offset from the change before this one to this one.
        if (i > 0 && m_transitions[i - 1].utc - kLargestOffset > local) {
            break;
        }
        const ClockSeconds moment = local - OffsetBefore(i);
        const bool hasBegun = i == 0 || moment >= m_transitions[i - 1].utc;
        const bool goesOn = i == m_transitions.size() || moment < m_transitions[i].utc;
        if (hasBegun && goesOn) {
            const bool isFirst = moments.count == LocalMoments::Count::Skipped;
            moments.count = isFirst ? LocalMoments::Count::Once : LocalMoments::Count::Twice;
            moments.first = isFirst ? moment : moments.first;
            moments.last = moment;
        } else if (hasEnded && !hasBegun && moments.count == LocalMoments::Count::Skipped) {
            moments.first = moments.last = m_transitions[i - 1].utc;
        }
        hasEnded = hasBegun;
    }
    return moments;
}

std::vector<ZoneClock::Change> ZoneClock::ChangesWithin(ClockSeconds begin, ClockSeconds end) const
{
    std::vector<Change> changes;
    for (size_t i = FirstAfter(begin - kLargestOffset - 1); i < m_transitions.size(); ++i) {
        const ClockSeconds before = m_transitions[i].utc + OffsetBefore(i);
        const ClockSeconds after = m_transitions[i].utc + m_transitions[i].offset;
        const Change change = {std::min(before, after), std::max(before, after), after > before};
        if (m_transitions[i].utc - kLargestOffset >= end) {
            break;
        }
        if (change.begin < end && change.end > begin) {
            changes.push_back(change);
        }
    }
    return changes;
}

std::vector<ZoneRulerRow> CalcZoneRuler(const CivilDate& day, int rowMinutes, const ZoneClock& own,
                                        const ZoneClock& other)
{
    std::vector<ZoneRulerRow> rows;
    if (!day.IsValid()) {
        return rows;
    }
    if (rowMinutes <= 0 || kMinutesPerDay % rowMinutes != 0) {
        rowMinutes = kUsualRowMinutes;
    }
    const ClockSeconds midnight = (SerialDayOf(day) - kEpoch) * kSecondsPerDay;
    const std::vector<ZoneClock::Change> changes = own.ChangesWithin(midnight, midnight + kSecondsPerDay);
    for (int minute = 0; minute < kMinutesPerDay; minute += rowMinutes) {
        const ClockSeconds begin = midnight + ClockSeconds{minute} * kSecondsPerMinute;
        const ClockSeconds end = begin + ClockSeconds{rowMinutes} * kSecondsPerMinute;
        ZoneRulerRow row;
        row.begin = minute;
        for (const ZoneClock::Change& change : changes) {
            (change.isSkipped ? row.skippedMinutes : row.repeatedMinutes) += MinutesWithin(change, begin, end);
        }
        row.moment = own.MomentsOf(begin).first;
        ReadOtherClock(other, own.MomentsOf(end).first, row);
        rows.push_back(row);
    }
    return rows;
}
} // namespace dayvane
