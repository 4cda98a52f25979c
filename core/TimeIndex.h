// Which items of a large store touch some days, without looking at all of them.
//
// The items stand in the order of their first days, as a balanced tree whose nodes know the last day below them, so a
// question costs by its answer. It is made when first asked, 17 bytes an item, and kept in step by what the store
// reports it: items that have changed since stand aside until there are too many of them. A small store has no index.
#pragma once

#include "CalendarRecords.h"

#include <vector>

namespace dayvane {

class TimeIndex
{
public:
    static constexpr int kLeastItems = 4096; // of fewer one looks at all

    void Clear(); // the store has become another one
    // The item at the index is new, at the end, or has changed.
    void Set(const ItemArray& items, int index);
    // The item is gone, those after it have moved up.
    void Remove(int index);

    // The items between whose start and end, in any order and both included, lies one of the days, by their positions,
    // ascending; of an item with an invalid end the start counts, one with an invalid start is none. Days are day
    // numbers. False: look at all items, for they are few, or most of them are meant.
    bool Find(const ItemArray& items, int firstDay, int lastDay, std::vector<int>& found);

private:
    struct Entry
    {
        int first; // days
        int last;
        int latest; // last day of all entries in the node's part of the tree
        int item;   // -1: none any more
    };
    struct Question;

    static bool DaysOf(const tagCALENDAR_ITEM& item, Entry& entry);
    void Build(const ItemArray& items);
    int FillLatest(int begin, int end);
    void Ask(const Question& question, int begin, int end) const;

    std::vector<Entry> m_entries; // by first day
    std::vector<Entry> m_aside;   // items that have changed since
    std::vector<char> m_isAside;  // of each item of the store
    bool m_built = false;
};

} // namespace dayvane
