// The month view's item rules taken at their word, pair by pair and cell by cell: slow, and plain enough to be read
// against the rules. Random tests compare the library with it; the benchmark measures against it.
#pragma once

#include "views/daygrid/MonthLayout.h"

namespace literal
{

void MakePieces(const dayvane::ItemArray& items, const COleDateTime& viewStart, dayvane::ItemArray& pieces);

void Place(const dayvane::MonthCellDateArray& dates, const dayvane::MonthCellArray& cells, int firstDayOfWeek,
           dayvane::ItemArray& items);
void Stack(dayvane::ItemArray& items, int laneStep);
void Overflow(const dayvane::MonthCellDateArray& dates, dayvane::MonthCellArray& cells, dayvane::ItemArray& items);

inline void CalcMonthBars(const dayvane::MonthCellDateArray& dates, dayvane::MonthCellArray& cells, int firstDayOfWeek,
                          dayvane::ItemArray& items)
{
    Place(dates, cells, firstDayOfWeek, items);
    Stack(items, dayvane::kMonthMetrics.bars.metrics.laneStep);
    Overflow(dates, cells, items);
}

} // namespace literal
