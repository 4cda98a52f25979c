// What keys do to items, without a window: the times that an arrow key gives an item, and the next item in time.
#pragma once

#include "PointerTracker.h"

namespace dayvane {

enum class KeyArrow // in the order of the keys' codes
{
    Left,
    Up,
    Right,
    Down,
};

// How far an arrow key moves an item in a view.
struct KeyStep
{
    enum Unit
    {
        NONE, // it has no meaning there
        MINUTES,
        DAYS,
        MONTHS,
    };
    Unit unit = NONE;
    int count = 0; // negative: earlier
};

enum class KeyEdge
{
    Whole,
    Start,
    End,
};

// The times of an item after a key. Whole: both ends move, the length stays; 31 March becomes 30 April. Else one end
// moves alone: by minutes it stays on its day, and a timed item keeps at least `leastMinutes`, an all-day item its day.
// False: that is not possible, and `to` is as it was.
bool MoveByKey(const ItemTimes& from, const KeyStep& step, KeyEdge edge, int leastMinutes, ItemTimes& to);

// In a screen list sorted by start: the position of the next item after the current one (back: before it), each item
// counted where it comes first; without a current item the first one from the date on (back: the last before it). -1:
// there is none. Items that cannot have the focus are passed over.
int StepInTime(const ItemArray& sorted, int currentSource, const COleDateTime& from, bool back);

} // namespace dayvane
