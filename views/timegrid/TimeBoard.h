// The layout of the timed items of a grid, remembered, so that after a change of few items only the columns are laid
// out again that these leave and come to. Boxes and marks are those of a whole layout.
#pragma once

#include "../../core/PaintedState.h"
#include "TimeGridLayout.h"

#include <vector>

namespace dayvane {

// What a layout of timed items goes by, besides the items.
struct TimedPlaces
{
    std::vector<CRect> columns; // one for each day of the range
    DayRange range;
    TimeScale scale;
    bool visibleShortItems = false; // see CalendarOptions
    bool tidyColumns = false;
};

class TimeBoard
{
public:
    void Clear() { *this = TimeBoard(); }
    bool IsEmpty() const { return m_places.columns.empty(); } // nothing is remembered

    // PlaceTimedItems, remembered.
    std::vector<MoreMark> LayOut(ItemArray& items, const TimedPlaces& places);

    // Whether LayOutAgain can go on from the last layout: it was of the same places and of so many items, each of
    // another source.
    bool Knows(const TimedPlaces& places, int itemCount) const;
    // The items at these positions have other times. Appends those whose box or flag becomes another one, as they were.
    // False, and nothing is done: one of them is, or was, in no column.
    bool LayOutAgain(const std::vector<int>& changed, ItemArray& items, std::vector<PieceMove>& moved);

    std::vector<MoreMark> Marks() const;

private:
    int ColumnFor(const tagCALENDAR_ITEM& item) const;
    void PlaceColumn(int column, ItemArray& items, bool ownSources);
    void PlaceAgain(int column, ItemArray& items, std::vector<PieceMove>& moved);

    TimedPlaces m_places;
    std::vector<int> m_columnOf;           // of each item
    std::vector<std::vector<int>> m_timed; // positions of the items of each column, ascending
    std::vector<std::vector<MoreMark>> m_marks;
    bool m_isKnown = false; // the last layout has come to its end, and each item has a source of its own
};

} // namespace dayvane
