// What a calendar view shows, as a value: the places of its parts in the window and what they stand for. For whoever
// speaks of the view instead of painting it. Client pixels, as scrolled; right and bottom edges do not count.
#pragma once

#include "CalendarRecords.h"

#include <string>
#include <vector>

namespace dayvane {

enum class ViewKind
{
    Month,
    Week,
    Year,
    Day,
    SeveralDays,
};

// A box that stands for a day or a month; in a time grid a day's column from its header to the lower edge.
struct ViewCell
{
    CRect box = CRect(0, 0, 0, 0);
    CRect header = CRect(0, 0, 0, 0); // the top that names it; empty: none
    CRect band = CRect(0, 0, 0, 0);   // time grids: its part of the full-day band; empty: none
    COleDateTime first;               // 00:00 of its first day; not valid: the cell stands for no date
    COleDateTime last;                // 23:59:59 of its last day
    std::u16string hostText;          // what the host says of it
    std::vector<bool> workRows;       // time grids: which rows are working hours; empty: unknown
};

// A piece of an item, as the screen list has it.
struct ViewPiece
{
    int item = -1;                 // index in the store
    CRect box = CRect(0, 0, 0, 0); // what can be seen of it; empty: nothing
    COleDateTime first;            // of the piece
    COleDateTime last;
};

// A mark that counts the items without room in a cell.
struct ViewMark
{
    int cell = -1;
    CRect box = CRect(0, 0, 0, 0); // empty: scrolled away
};

struct ViewParts
{
    ViewKind kind = ViewKind::Month;
    CRect client = CRect(0, 0, 0, 0);
    CRect title = CRect(0, 0, 0, 0);  // empty: none
    COleDateTime titleDate;           // month: a day of the month that the title names
    std::vector<CRect> columnHeaders; // names of weekdays, the first for the first cell
    std::vector<ViewCell> cells;      // in the order of time
    int columns = 1;                  // cells in a row
    std::vector<ViewPiece> pieces;    // in the order of the screen list
    std::vector<ViewMark> marks;      // in the order of cells
    int rows = 0;                     // time grids: rows of a day; else 0
    int minutesPerRow = 0;            // time grids
    int rowTop = 0;                   // time grids: top of the first row, scrolled, in the window
    int rowHeight = 0;                // time grids
    CRect grid = CRect(0, 0, 0, 0);   // time grids: where the rows are seen

    // The pieces of screen items as laid out. boxOf: what can be seen of an item that has a place.
    template <class BoxOf>
    void AddPieces(const ItemArray& screenItems, BoxOf boxOf)
    {
        constexpr int kNoTop = -1; // of an item without a rectangle
        pieces.reserve(static_cast<size_t>(screenItems.GetSize()));
        for (INT_PTR i = 0; i < screenItems.GetSize(); ++i) {
            const tagCALENDAR_ITEM& item = screenItems[i];
            const bool isSeen = !item.bNoFocus && item.rcItem.top != kNoTop;
            pieces.push_back(
                {static_cast<int>(item.nSource), isSeen ? boxOf(item) : CRect(0, 0, 0, 0), item.dtStart, item.dtEnd});
        }
    }
};

} // namespace dayvane
