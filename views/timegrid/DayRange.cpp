#include "views/timegrid/DayRange.h"

#include "mfc/base/civil.h"
#include "views/timegrid/TimeScale.h"

#include <iterator>

namespace dayvane {
namespace {

constexpr DateScale kDateScales[] = {
    // days, from the first day of the week, caption text
    {2, false, "2 Days Calendar"},   {3, false, "3 Days Calendar"},   {4, false, "4 Days Calendar"},
    {5, false, "5 Days Calendar"},   {6, false, "6 Days Calendar"},   {7, false, "7 Days Calendar"},
    {8, false, "8 Days Calendar"},   {9, false, "9 Days Calendar"},   {10, false, "10 Days Calendar"},
    {11, false, "11 Days Calendar"}, {12, false, "11 Days Calendar"}, // twelve days have no text of their own
    {13, false, "13 Days Calendar"}, {14, false, "14 Days Calendar"}, {5, true, "Weekday Calendar"},
    {7, true, "Weekly Calendar"},
};

} // namespace

DayRange DayRange::From(const COleDateTime& date, int days, int firstDayOfWeek)
{
    DayRange range{StartOfDay(date), days, firstDayOfWeek != 0};
    if (range.keepsToWeeks && IsValid(range.first)) {
        range.first = DateOfDayNumber(std::max(WeekStartOf(range.FirstDay(), firstDayOfWeek), civil::kFirstDay));
    }
    return range;
}

int DayRange::FirstDay() const
{
    return ClockTimeOf(first).day;
}

COleDateTime DayRange::LastMoment() const
{
    return EndOfDay(IsValid(first) ? DateOfDayNumber(std::min(FirstDay() + days - 1, civil::kLastDay)) : first);
}

int DayRange::ColumnOf(const COleDateTime& date) const
{
    const ClockTime time = ClockTimeOf(date);
    const int column = time.day - FirstDay();
    return IsValid(first) && time.isValid && column >= 0 && column < days ? column : -1;
}

int DayRange::ViewsToShow(int day) const
{
    const int length = LengthOfView();
    const int fromFirst = day - FirstDay();
    if (fromFirst < 0) {
        return -((length - 1 - fromFirst) / length);
    }
    return fromFirst < days ? 0 : (fromFirst - days) / length + 1;
}

DayRange DayRange::Showing(const COleDateTime& date) const
{
    DayRange turned = *this;
    turned.first = DayOf(ViewsToShow(ClockTimeOf(date).day) * LengthOfView());
    return turned.Holds(date) ? turned : *this;
}

GridSelection MovedByColumn(const GridSelection& selection, const DayRange& range, int step, bool extend)
{
    const int day = ClockTimeOf(selection.current).day + step;
    const int first = range.FirstDay() + range.ViewsToShow(day) * range.LengthOfView();
    const int last = first + range.days - 1;
    const int target = day >= first && day <= last ? day : step > 0 ? first : last;
    GridSelection moved = selection;
    moved.current = AddDays(selection.current, step + target - day);
    moved.end = AddDays(selection.end, step + target - day);
    if (!extend) {
        moved.begin = moved.end;
    }
    return moved;
}

const DateScale* FindDateScale(int number)
{
    const int count = static_cast<int>(std::size(kDateScales));
    return number >= 1 && number <= count ? &kDateScales[number - 1] : nullptr;
}

} // namespace dayvane
