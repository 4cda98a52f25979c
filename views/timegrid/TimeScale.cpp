#include "views/timegrid/TimeScale.h"

#include <cmath>
#include <initializer_list>

#include <algorithm>
#include <iterator>

namespace dayvane {

TimeGridMetrics TimeGridMetrics::For(const ViewScale& scale)
{
    TimeGridMetrics metrics;
    if (scale == ViewScale()) {
        return metrics;
    }
    metrics.scale = scale;
    for (int* length : {&metrics.captionHeight, &metrics.rulerRight, &metrics.bandPadding, &metrics.laneInset,
                        &metrics.boxInset, &metrics.textInset, &metrics.textLeft, &metrics.tidyWidth,
                        &metrics.moreWidth, &metrics.freeBesideOneDay, &metrics.freeBesideManyDays}) {
        *length = scale.Of(*length);
    }
    for (int* line :
         {&metrics.headerHeight, &metrics.rowHeight, &metrics.laneStep, &metrics.barHeight, &metrics.moreHeight}) {
        *line = scale.Line(*line);
    }
    metrics.gridLeft = metrics.rulerRight + 1;
    return metrics;
}

ClockTime ClockTimeOf(const COleDateTime& time)
{
    ClockTime clock;
    if (!IsValid(time)) {
        return clock;
    }
    constexpr int kSecondsPerHour = 60 * kMinutesPerHour;
    clock.isValid = true;
    // The fraction's size is the time of day, before the epoch too.
    clock.day = static_cast<int>(time.m_dt);
    int second = static_cast<int>(std::fabs(time.m_dt - clock.day) * kSecondsPerDay + 0.5);
    if (second >= kSecondsPerDay) {
        ++clock.day;
        second = 0;
    }
    clock.hour = second / kSecondsPerHour;
    clock.minute = second / 60 % kMinutesPerHour;
    return clock;
}

COleDateTime TimeScale::TimeOfRow(const COleDateTime& day, int row) const
{
    const CivilDate date = CivilDateOf(day);
    return COleDateTime(date.year, date.month, date.day, row / rowsPerHour, MinutesPerRow() * (row % rowsPerHour), 0);
}

int TimeScale::BottomOfTime(const ClockTime& time) const
{
    const int row = RowOfTime(time);
    return TopOfRow(time.minute % MinutesPerRow() > 0 ? row + 1 : row);
}

COleDateTime TimeScale::RowStart(const COleDateTime& time) const
{
    const CivilDate date = CivilDateOf(time);
    const int minute = time.GetMinute() / MinutesPerRow() * MinutesPerRow();
    return COleDateTime(date.year, date.month, date.day, time.GetHour(), minute, 0);
}

int ScaleBeside(int rowsPerHour, int steps)
{
    static constexpr int kScales[] = {1, 2, 3, 4, 5, 6, 10, 12, 15, 20, 30, 60};
    const int count = static_cast<int>(std::size(kScales));
    int place = 0;
    while (place < count - 1 && kScales[place] < rowsPerHour) {
        ++place;
    }
    return kScales[std::min(std::max(place + steps, 0), count - 1)];
}

} // namespace dayvane
