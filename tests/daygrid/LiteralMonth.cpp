#include "LiteralMonth.h"

#include "core/DateMath.h"

#include <cstdlib>
#include <vector>

using namespace dayvane;

namespace literal {
Range DaysOf(const tagCALENDAR_ITEM& item)
{
    return {StartOfDay(item.dtStart), EndOfDay(item.dtEnd)};
}

Range MonthsOf(const tagCALENDAR_ITEM& item)
{
    const COleDateTime first(item.dtStart.GetYear(), item.dtStart.GetMonth(), 1, 0, 0, 0);
    COleDateTime last = EndOfDay(item.dtEnd);
    while (IsValid(last) && AddDays(last, 1).GetMonth() == last.GetMonth()) {
        last = AddDays(last, 1);
    }
    return {first, last};
}

void MakePieces(const ItemArray& items, const std::vector<Range>& rows, ItemArray& pieces)
{
    pieces.RemoveAll();
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        const COleDateTime start = items[i].dtStart;
        const COleDateTime end = items[i].dtEnd;
        if (!IsValid(start) || !IsValid(end) || StartOfDay(end) < StartOfDay(start)) {
            continue;
        }
        for (const Range& row : rows) {
            if (end < row.start || start > row.end) {
                continue;
            }
            tagCALENDAR_ITEM piece = items[i];
            piece.nSource = i;
            const bool before = start < row.start;
            const bool after = end > row.end;
            if (before) {
                piece.dtStart = row.start;
            }
            if (after) {
                piece.dtEnd = row.end;
            }
            piece.nPiece = before && after ? 2 : after ? 1 : before ? 4 : 0;
            pieces.Add(piece);
        }
    }
}

void MakePieces(const ItemArray& items, const COleDateTime& viewStart, ItemArray& pieces)
{
    std::vector<Range> rows;
    for (int row = 0; row < kMonthRows; ++row) {
        const COleDateTime start = AddDays(viewStart, row * kMonthColumns);
        rows.push_back({start, EndOfDay(AddDays(start, kMonthColumns - 1))});
    }
    MakePieces(items, rows, pieces);
}

void Place(const BoxDayArray& dates, const MonthCellArray& cells, int firstDayOfWeek, ItemArray& items)
{
    const BarMetrics& metrics = kMonthMetrics.bars.metrics;
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        tagCALENDAR_ITEM& item = items[i];
        item.rcItem = CRect(-1, -1, -1, -1);
        for (int cell = 0; cell < kMonthCells; ++cell) {
            if (!IsValid(item.dtStart) || !IsSameDay(dates[cell].m_date, item.dtStart)) {
                continue;
            }
            CRect rect = cells[cell].m_rect;
            rect.top += metrics.topOffset;
            rect.bottom = rect.top + metrics.height;
            if (IsValid(item.dtEnd) && (item.dtEnd - item.dtStart).GetDays() + 1 > 0) {
                int column = item.dtEnd.GetDayOfWeek() - firstDayOfWeek;
                if (column < 0) {
                    column += kMonthColumns;
                }
                rect.right = cells[column].m_rect.right;
            }
            rect.InflateRect(-metrics.inset, -metrics.inset);
            rect.NormalizeRect();
            item.rcItem = rect;
            break;
        }
    }
}

void Stack(ItemArray& items, int laneStep, Range (*rangeOf)(const tagCALENDAR_ITEM&))
{
    const int count = static_cast<int>(items.GetSize());
    std::vector<Range> ranges;
    for (int i = 0; i < count; ++i) {
        ranges.push_back(rangeOf(items[i]));
    }
    tagCALENDAR_ITEM* item = items.GetData();
    for (int sweep = 0; sweep < 2; ++sweep) {
        for (int i = 0; i < count; ++i) {
            for (int j = i + 1; j < count; ++j) {
                CRect common;
                if (ranges[i].Overlaps(ranges[j]) && common.IntersectRect(item[i].rcItem, item[j].rcItem)) {
                    item[j].rcItem.OffsetRect(0, laneStep);
                }
            }
        }
    }
}

void Overflow(const BoxDayArray& dates, MonthCellArray& cells, ItemArray& items)
{
    for (int cell = 0; cell < kMonthCells; ++cell) {
        cells[cell].m_nItemCount = cells[cell].m_bMore = 0;
        for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
            if (!DaysOf(items[i]).Covers(dates[cell].m_date)) {
                continue;
            }
            ++cells[cell].m_nItemCount;
            items[i].bNoFocus = std::abs(items[i].rcItem.bottom) >= std::abs(cells[cell].m_rect.bottom);
            if (items[i].bNoFocus) {
                cells[cell].m_bMore = 1;
            }
        }
    }
}

namespace {

// How many boxes the rule makes the item's bar wide; 0 or less: it keeps the width of its own box.
int BoxesOf(const tagCALENDAR_ITEM& item, bool months)
{
    if (months) {
        return item.dtEnd.GetMonth() - item.dtStart.GetMonth() + 1;
    }
    return static_cast<int>(SecondsBetween(StartOfDay(item.dtStart), EndOfDay(item.dtEnd)) / 86400) + 1;
}

CRect BarInBox(const CRect& box, int boxes)
{
    CRect rect = box;
    rect.top += 25;
    rect.bottom = rect.top + 26;
    if (boxes > 0) {
        rect.right = rect.left + box.Width() * boxes;
    }
    rect.InflateRect(-2, -2);
    rect.NormalizeRect();
    return rect;
}

} // namespace

std::vector<bool> CalcBoxBars(const BoxView& view, ItemArray& items)
{
    const int count = static_cast<int>(items.GetSize());
    for (int i = 0; i < count; ++i) {
        items[i].rcItem = CRect(-1, -1, -1, -1);
        for (size_t box = 0; box < view.boxes.size(); ++box) {
            if (view.RangeOf(items[i]).start == view.dates[box]) {
                items[i].rcItem = BarInBox(view.boxes[box], BoxesOf(items[i], view.months));
                break;
            }
        }
    }
    Stack(items, 23, view.months ? MonthsOf : DaysOf);
    std::vector<bool> more(view.boxes.size());
    for (size_t box = 0; box < view.boxes.size(); ++box) {
        for (int i = 0; i < count; ++i) {
            if (!view.RangeOf(items[i]).Covers(view.dates[box])) {
                continue;
            }
            items[i].bNoFocus = items[i].rcItem.bottom >= view.boxes[box].bottom;
            if (items[i].bNoFocus) {
                more[box] = true;
            }
        }
    }
    return more;
}

} // namespace literal
