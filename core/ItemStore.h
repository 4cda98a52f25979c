// The item store without a window: making records, the store operations, ordering, the full-day rule, and the base
// rule for building the screen list of one day. Errors as CCalendarCtrl states them.
#pragma once

#include "CalendarRecords.h"

#include <vector>

namespace dayvane {

// Makes a stored record from a host's item; its rectangle stays as it was.
void FillStored(tagCALENDAR_ITEM& stored, const tagCC_ITEM& item);
tagCC_ITEM PublicItem(const tagCALENDAR_ITEM& stored);

// Prepares for so many more items to be added. A store grows by half of its size at least.
void StoreReserve(ItemArray& items, int more);
int StoreAdd(ItemArray& items, const tagCC_ITEM& item);
int StoreInsert(ItemArray& items, int index, const tagCC_ITEM& item);
int StoreSet(ItemArray& items, int index, const tagCC_ITEM& item);
int StoreDelete(ItemArray& items, int index);
int StoreGet(const ItemArray& items, int index, tagCC_ITEM& item);

// The positions in the order of the starts, earliest first; equal starts keep their order. A record without a valid
// start keeps its position: the same result as an exchange sort that skips these records.
std::vector<int> OrderByStart(const ItemArray& items);
void SortByStart(ItemArray& items);

// All day: marked so; or start and end differ in year, month and day, all three; or a piece of a longer item.
BOOL IsFulldayItem(const tagCALENDAR_ITEM& item);

// The screen item of a stored record: a copy that names its source and has a normalised rectangle.
tagCALENDAR_ITEM ScreenItemOf(const tagCALENDAR_ITEM& stored, int index);

// Cuts an item of several days to the one day shown: head, tail or middle piece. The day need not lie in the item.
void ClipToDay(tagCALENDAR_ITEM& item, const COleDateTime& day);

// Every valid record of the store as a screen item of the given day.
void MakeDayScreenItems(const ItemArray& items, const COleDateTime& day, ItemArray& screenItems);

// In a screen list sorted by start: the position of the first item after the current one (of any piece of it) that
// can have the focus; -1 when there is none.
int NextFocusPosition(const ItemArray& sorted, int currentSource);
// The same for a way that has ends: each item counts once, where its first piece stands; from no item the first one, or
// with `back` the last; -1 beyond the ends.
int FocusNeighbour(const ItemArray& sorted, int currentSource, bool back);

} // namespace dayvane
