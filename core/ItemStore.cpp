#include "core/ItemStore.h"

#include "core/DateMath.h"

#include <algorithm>
#include <numeric>
#include <unordered_set>
#include <vector>

namespace dayvane {
namespace {
constexpr INT_PTR kLeastGrowth = 16;
constexpr INT_PTR kGrowthStep = 256; // items between two looks at how much the store should grow by

// The fields that the records of a host and of the store share.
template <class To, class From>
void CopyPublicFields(To& to, const From& from)
{
    to.nReserved = from.nReserved;
    to.nImage = from.nImage;
    to.dtStart = from.dtStart;
    to.dtEnd = from.dtEnd;
    to.nFullday = from.nFullday;
    to.strText = from.strText;
    to.crColor1 = from.crColor1;
    to.crColor2 = from.crColor2;
    to.crColor3 = from.crColor3;
    to.crColor4 = from.crColor4;
    to.lParam = from.lParam;
    to.crColor5 = from.crColor5;
    to.bAlarm = from.bAlarm;
    to.bRecurrent = from.bRecurrent;
    to.bMovable = from.bMovable;
}
} // namespace

void FillStored(tagCALENDAR_ITEM& stored, const tagCC_ITEM& item)
{
    stored.nPiece = PIECE_WHOLE;
    stored.bNoFocus = FALSE;
    CopyPublicFields(stored, item);
    stored.bStored = TRUE;
}

tagCC_ITEM PublicItem(const tagCALENDAR_ITEM& stored)
{
    tagCC_ITEM item;
    CopyPublicFields(item, stored);
    return item;
}

void StoreReserve(ItemArray& items, int more)
{
    const INT_PTR count = items.GetSize();
    if (count > 0) {
        items.SetSize(count, std::max<INT_PTR>({more, count / 2, kLeastGrowth}));
    } else if (more > 0) {
        items.SetSize(0, std::max<INT_PTR>(more, kLeastGrowth));
    }
}

int StoreAdd(ItemArray& items, const tagCC_ITEM& item)
{
    if (items.GetSize() % kGrowthStep == 0) {
        StoreReserve(items, 0);
    }
    tagCALENDAR_ITEM stored;
    FillStored(stored, item);
    items.Add(stored);
    return 1;
}

int StoreInsert(ItemArray& items, int index, const tagCC_ITEM& item)
{
    if (index < 0) {
        AfxThrowInvalidArgException();
    }
    const int count = static_cast<int>(items.GetSize());
    tagCALENDAR_ITEM stored;
    FillStored(stored, item);
    items.SetAtGrow(index, stored);
    for (int gap = count; gap < index; ++gap) {
        FillStored(items[gap], tagCC_ITEM());
    }
    return 1;
}

int StoreSet(ItemArray& items, int index, const tagCC_ITEM& item)
{
    if (index > items.GetSize()) {
        return 0;
    }
    FillStored(items[index], item);
    return 1;
}

int StoreDelete(ItemArray& items, int index)
{
    if (index > items.GetSize()) {
        return 0;
    }
    if (index < 0 || index == items.GetSize()) {
        AfxThrowInvalidArgException();
    }
    items.RemoveAt(index);
    if (items.GetSize() % kGrowthStep == 0 || items.GetSize() < kGrowthStep) {
        items.FreeExtra(); // of a large store not at each item: it copies all of them
    }
    return 1;
}

int StoreGet(const ItemArray& items, int index, tagCC_ITEM& item)
{
    if (index > items.GetSize()) {
        return 0;
    }
    item = PublicItem(items[index]);
    return 1;
}

std::vector<int> OrderByStart(const ItemArray& items)
{
    const int count = static_cast<int>(items.GetSize());
    std::vector<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    std::vector<int> valid;
    valid.reserve(count);
    for (int i = 0; i < count; ++i) {
        if (IsValid(items[i].dtStart)) {
            valid.push_back(i);
        }
    }
    std::vector<int> sorted = valid;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&items](int a, int b) { return items[a].dtStart < items[b].dtStart; });
    for (size_t k = 0; k < valid.size(); ++k) {
        order[valid[k]] = sorted[k];
    }
    return order;
}

void SortByStart(ItemArray& items)
{
    const std::vector<int> order = OrderByStart(items);
    ItemArray sorted;
    sorted.SetSize(items.GetSize());
    for (int i = 0; i < static_cast<int>(order.size()); ++i) {
        sorted[i] = std::move(items[order[i]]);
    }
    for (int i = 0; i < static_cast<int>(order.size()); ++i) {
        items[i] = std::move(sorted[i]);
    }
    items.FreeExtra();
}

BOOL IsFulldayItem(const tagCALENDAR_ITEM& item)
{
    if (item.nFullday == 1) {
        return TRUE;
    }
    const CivilDate start = CivilDateOf(item.dtStart);
    const CivilDate end = CivilDateOf(item.dtEnd);
    // All three must differ: only then does the item certainly reach over a whole day without being cut into pieces.
    if (start.year != end.year && start.month != end.month && start.day != end.day) {
        return TRUE;
    }
    return item.nPiece != PIECE_WHOLE;
}

tagCALENDAR_ITEM ScreenItemOf(const tagCALENDAR_ITEM& stored, int index)
{
    tagCALENDAR_ITEM item = stored;
    item.nSource = index;
    item.rcItem.NormalizeRect();
    return item;
}

void ClipToDay(tagCALENDAR_ITEM& item, const COleDateTime& day)
{
    const CivilDate fields = CivilDateOf(day);
    if (fields == CivilDateOf(item.dtStart)) {
        item.dtEnd = EndOfDay(day);
        item.nPiece = PIECE_HEAD;
    } else if (fields == CivilDateOf(item.dtEnd)) {
        item.dtStart = StartOfDay(day);
        item.nPiece = PIECE_TAIL;
    } else {
        item.dtStart = StartOfDay(day);
        item.dtEnd = EndOfDay(day);
        item.nPiece = PIECE_MIDDLE;
    }
}

void MakeDayScreenItems(const ItemArray& items, const COleDateTime& day, ItemArray& screenItems)
{
    screenItems.RemoveAll();
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        const tagCALENDAR_ITEM& stored = items[i];
        if (!IsValid(stored.dtStart) || !IsValid(stored.dtEnd)) {
            continue;
        }
        tagCALENDAR_ITEM item = ScreenItemOf(stored, i);
        if (!IsSameDay(stored.dtStart, stored.dtEnd)) {
            ClipToDay(item, day);
        }
        screenItems.Add(item);
    }
}

int NextFocusPosition(const ItemArray& sorted, int currentSource)
{
    const int count = static_cast<int>(sorted.GetSize());
    int position = -1;
    if (currentSource != -1) {
        for (int i = 0; i < count && position == -1; ++i) {
            if (sorted[i].nSource == currentSource) {
                position = i;
            }
        }
    }
    int next = position + 1;
    if (next >= count) {
        next = 0;
    }
    for (; next < count; ++next) {
        if (!sorted[next].bNoFocus && sorted[next].nSource != currentSource) {
            return next;
        }
    }
    return -1;
}

int FocusNeighbour(const ItemArray& sorted, int currentSource, bool back)
{
    std::vector<int> stops; // the first piece of each item
    std::unordered_set<LPARAM> seen;
    int current = -1; // in the stops
    for (int i = 0; i < static_cast<int>(sorted.GetSize()); ++i) {
        if (!sorted[i].bNoFocus && seen.insert(sorted[i].nSource).second) {
            if (sorted[i].nSource == currentSource) {
                current = static_cast<int>(stops.size());
            }
            stops.push_back(i);
        }
    }
    const int count = static_cast<int>(stops.size());
    const int next = current == -1 ? (back ? count - 1 : 0) : current + (back ? -1 : 1);
    return next >= 0 && next < count ? stops[next] : -1;
}

} // namespace dayvane
