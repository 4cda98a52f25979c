#include "LiteralMonth.h"

#include "core/DateMath.h"

#include <cstdlib>
#include <vector>

using namespace dayvane;

namespace literal
{
namespace
{

bool IsValid(const COleDateTime& date)
{
    return date.GetStatus() == COleDateTime::valid;
}

// The days of an item, from the first moment of its first to the last second of its last.
struct DayRange
{
    explicit DayRange(const tagCALENDAR_ITEM& item) : start(StartOfDay(item.dtStart)), end(EndOfDay(item.dtEnd)) {}
    bool Meets(const DayRange& other) const { return start <= other.end && other.start <= end; }
    bool Covers(const COleDateTime& day) const { return start <= day && day <= end; }

    COleDateTime start;
    COleDateTime end;
};

} // namespace

void MakePieces(const ItemArray& items, const COleDateTime& viewStart, ItemArray& pieces)
{
    pieces.RemoveAll();
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        const COleDateTime start = items[i].dtStart;
        const COleDateTime end = items[i].dtEnd;
        if (!IsValid(start) || !IsValid(end) || StartOfDay(end) < StartOfDay(start))
            continue;
        for (int row = 0; row < kMonthRows; ++row) {
            const COleDateTime rowStart = AddDays(viewStart, row * kMonthColumns);
            const COleDateTime rowEnd = EndOfDay(AddDays(rowStart, kMonthColumns - 1));
            if (end < rowStart || start > rowEnd)
                continue;
            tagCALENDAR_ITEM piece = items[i];
            piece.nSource = i;
            if (start < rowStart)
                piece.dtStart = rowStart;
            if (end > rowEnd)
                piece.dtEnd = rowEnd;
            const bool before = start < rowStart;
            const bool after = end > rowEnd;
            piece.nPiece = before && after ? 2 : after ? 1 : before ? 4 : 0;
            pieces.Add(piece);
        }
    }
}

void Place(const MonthCellDateArray& dates, const MonthCellArray& cells, int firstDayOfWeek, ItemArray& items)
{
    const BarMetrics& metrics = kMonthMetrics.bars.metrics;
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        tagCALENDAR_ITEM& item = items[i];
        item.rcItem = CRect(-1, -1, -1, -1);
        for (int cell = 0; cell < kMonthCells; ++cell) {
            if (!IsValid(item.dtStart) || !IsSameDay(dates[cell].m_date, item.dtStart))
                continue;
            CRect rect = cells[cell].m_rect;
            rect.top += metrics.topOffset;
            rect.bottom = rect.top + metrics.height;
            if (IsValid(item.dtEnd) && (item.dtEnd - item.dtStart).GetDays() + 1 > 0) {
                int column = item.dtEnd.GetDayOfWeek() - firstDayOfWeek;
                if (column < 0)
                    column += kMonthColumns;
                rect.right = cells[column].m_rect.right;
            }
            rect.InflateRect(-metrics.inset, -metrics.inset);
            rect.NormalizeRect();
            item.rcItem = rect;
            break;
        }
    }
}

void Stack(ItemArray& items, int laneStep)
{
    const int count = static_cast<int>(items.GetSize());
    std::vector<DayRange> days;
    for (int i = 0; i < count; ++i)
        days.emplace_back(items[i]);
    tagCALENDAR_ITEM* item = items.GetData();
    for (int sweep = 0; sweep < 2; ++sweep) {
        for (int i = 0; i < count; ++i) {
            for (int j = i + 1; j < count; ++j) {
                CRect common;
                if (days[i].Meets(days[j]) && common.IntersectRect(item[i].rcItem, item[j].rcItem))
                    item[j].rcItem.OffsetRect(0, laneStep);
            }
        }
    }
}

void Overflow(const MonthCellDateArray& dates, MonthCellArray& cells, ItemArray& items)
{
    for (int cell = 0; cell < kMonthCells; ++cell) {
        cells[cell].m_nItemCount = cells[cell].m_bMore = 0;
        for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
            if (!DayRange(items[i]).Covers(dates[cell].m_date))
                continue;
            ++cells[cell].m_nItemCount;
            items[i].bNoFocus = std::abs(items[i].rcItem.bottom) >= std::abs(cells[cell].m_rect.bottom);
            if (items[i].bNoFocus)
                cells[cell].m_bMore = 1;
        }
    }
}

} // namespace literal
