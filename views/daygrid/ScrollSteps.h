// The codes of WM_VSCROLL (SB_...), which the pure layer has no header for, and what each of them does to a view.
#pragma once

#include <cstddef>

namespace dayvane {

enum ScrollCode
{
    SCROLL_LINEUP = 0,
    SCROLL_LINEDOWN = 1,
    SCROLL_PAGEUP = 2,
    SCROLL_PAGEDOWN = 3,
    SCROLL_THUMBPOSITION = 4,
    SCROLL_THUMBTRACK = 5,
    SCROLL_TOP = 6,
    SCROLL_BOTTOM = 7,
};

struct ScrollBarRange
{
    int min;
    int max;
    int position; // where the thumb stands after a change of size or date
};

struct ScrollStep
{
    bool moves = false; // false: a code that does nothing
    int position = 0;   // new position of the thumb
    int step = 0;       // by which the view moves, in its own unit
};

// A row of a view's table.
struct ScrollRow
{
    int code;
    int position;
    int step;
};

template <std::size_t Count>
ScrollStep FindScrollStep(const ScrollRow (&rows)[Count], int code)
{
    for (const ScrollRow& row : rows) {
        if (row.code == code) {
            return {true, row.position, row.step};
        }
    }
    return {};
}

} // namespace dayvane
