// The layout rules of the time grids written down word for word, pair by pair and row by row: slow, and the measure of
// what the library computes.
#pragma once

#include "core/CalendarRecords.h"
#include "views/timegrid/OverlapColumns.h"

#include <vector>

namespace literal {

// onlyOn: of several days' items, those that begin on that day.
void ListRows(dayvane::ItemArray& screen, int scale, dayvane::RowLayoutArray& layout,
              const COleDateTime* onlyOn = nullptr);
CRect ItemBox(const dayvane::tagCALENDAR_ITEM& item, const CRect& grid, const COleDateTime& day, int scale);
void DayItemRects(dayvane::ItemArray& screen, const CRect& grid, const COleDateTime& day, int scale);
void ManyDayItemRects(dayvane::ItemArray& screen, const std::vector<CRect>& columns, const COleDateTime& firstDay,
                      int scale);
void DayLanes(dayvane::ItemArray& screen, const CRect& band);
void ManyDayLanes(dayvane::ItemArray& screen, const CRect& band, const std::vector<CRect>& columns,
                  const COleDateTime& firstDay);
// Both return how many full-day lanes there are.
int DayScreenItems(const dayvane::ItemArray& store, const COleDateTime& day, dayvane::ItemArray& screen);
int ManyDayScreenItems(const dayvane::ItemArray& store, const COleDateTime& firstDay, int days,
                       dayvane::ItemArray& screen);

} // namespace literal
