#include "views/daygrid/BoxLines.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kShareOfBox = 3;  // one part in so many is for lines
constexpr int kLinesMargin = 2; // between the lines and the items, pixels

} // namespace

std::vector<DayPiece> PiecesOfBox(const BoxRange& range, int box, const DayProvider* provider, const DayLines& lines)
{
    const COleDateTime date = range.DateOfBox(box);
    return range.Kind() == RangeKind::Year ? DaysOffOfMonth(date, provider, lines) : PiecesOfDay(date, provider, lines);
}

int LinesOfBoxes(const std::vector<std::vector<DayPiece>>& pieces, CSize room, const DayLineMetrics& metrics)
{
    const int most = std::min<int>(kMostDayLines, room.cy / kShareOfBox / metrics.lineHeight);
    int lines = 0;
    for (const std::vector<DayPiece>& ofBox : pieces) {
        lines = std::max(lines, most > 0 ? LinesFor(ofBox, room.cx, most, metrics) : 0);
    }
    return lines;
}

int HeightOfLines(int lines, const DayLineMetrics& metrics)
{
    return lines > 0 ? lines * metrics.lineHeight + kLinesMargin : 0;
}

int WeekOfRow(const BoxRange& range, int row, int firstDayOfWeek, WeekRule rule)
{
    const int first = row * kMonthColumns;
    for (int box = first; box < first + kMonthColumns; ++box) {
        const COleDateTime date = range.DateOfBox(box);
        if (IsValid(date)) {
            return WeekOf(CivilDateOf(date), firstDayOfWeek, rule).week;
        }
    }
    return -1;
}

} // namespace dayvane
