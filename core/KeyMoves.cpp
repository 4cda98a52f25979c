#include "core/KeyMoves.h"

#include "core/DateMath.h"

#include <algorithm>
#include <set>

namespace dayvane {
namespace {

COleDateTime AddMonths(const COleDateTime& date, int months)
{
    const int number = MonthNumberOf(date) + months;
    const int year = YearOfMonthNumber(number);
    const int month = MonthOfMonthNumber(number);
    const int day = std::min(date.GetDay(), civil::DaysInMonth(year, month));
    return COleDateTime(year, month, day, date.GetHour(), date.GetMinute(), date.GetSecond());
}

COleDateTime Stepped(const COleDateTime& date, const KeyStep& step)
{
    switch (step.unit) {
    case KeyStep::MINUTES:
        return AddMinutes(date, step.count);
    case KeyStep::DAYS:
        return AddDays(date, step.count);
    case KeyStep::MONTHS:
        return AddMonths(date, step.count);
    default:
        return date;
    }
}

// An end that is stated as the last second of a day stands for the midnight after it.
COleDateTime SteppedEnd(const COleDateTime& end, const KeyStep& step)
{
    if (step.unit != KeyStep::MINUTES) {
        return Stepped(end, step);
    }
    const COleDateTime last = EndOfDay(end);
    const COleDateTime stepped = Stepped(end == last ? AddSeconds(end, 1) : end, step);
    return std::min(stepped, last);
}

COleDateTime SteppedStart(const COleDateTime& start, const KeyStep& step)
{
    const COleDateTime stepped = Stepped(start, step);
    return step.unit == KeyStep::MINUTES ? std::max(stepped, StartOfDay(start)) : stepped;
}

bool IsLongEnough(const ItemTimes& times, int leastMinutes)
{
    if (times.fullday == 1) {
        return StartOfDay(times.end) >= StartOfDay(times.start);
    }
    const long long least = static_cast<long long>(leastMinutes) * kSecondsPerMinute;
    return SecondsBetween(times.start, times.end) + (times.end == EndOfDay(times.end)) >= least;
}

} // namespace

bool MoveByKey(const ItemTimes& from, const KeyStep& step, KeyEdge edge, int leastMinutes, ItemTimes& to)
{
    if (step.unit == KeyStep::NONE || !IsValid(from.start) || !IsValid(from.end)) {
        return false;
    }
    ItemTimes moved = from;
    if (edge == KeyEdge::Whole) {
        moved.start = Stepped(from.start, step);
        if (IsValid(moved.start)) {
            moved.end = AddSeconds(moved.start, SecondsBetween(from.start, from.end));
        }
    } else if (edge == KeyEdge::Start) {
        moved.start = SteppedStart(from.start, step);
    } else {
        moved.end = SteppedEnd(from.end, step);
    }
    if (!IsValid(moved.start) || !IsValid(moved.end) || (moved.start == from.start && moved.end == from.end) ||
        (edge != KeyEdge::Whole && !IsLongEnough(moved, leastMinutes))) {
        return false;
    }
    to = moved;
    return true;
}

int StepInTime(const ItemArray& sorted, int currentSource, const COleDateTime& from, bool back)
{
    std::set<int> seen;
    int before = -1; // the last item that comes before
    bool passed = false;
    for (int i = 0; i < static_cast<int>(sorted.GetSize()); ++i) {
        const tagCALENDAR_ITEM& item = sorted[i];
        if (item.bNoFocus || !seen.insert(static_cast<int>(item.nSource)).second) {
            continue;
        }
        const bool isHere = currentSource != -1 ? item.nSource == currentSource : !(item.dtStart < from);
        if (isHere && (back || currentSource == -1)) {
            return back ? before : i;
        }
        if (passed) {
            return i;
        }
        passed = isHere;
        before = i;
    }
    return back && currentSource == -1 ? before : -1;
}

} // namespace dayvane
