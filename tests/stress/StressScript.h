// Random input as a list of events. Event i of a seed is always the same, whatever came before it, so a failing run can
// be cut down to the events that matter.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace stress {

enum class EventKind
{
    Key,       // a: virtual key, b: 1 Shift held, 2 Ctrl, 3 both
    MouseMove, // a, b: client pixels; c: buttons
    LeftDown,
    LeftUp,
    DoubleClick,
    RightDown,
    Wheel,      // a: delta
    ScrollCode, // a: code, b: position
    Size,       // a, b: new size
    AddItem,    // a: item number (see ItemOf)
    InsertItem, // a: item number, b: index
    SetItem,    // a: item number, b: index
    DeleteItem, // b: index
    DeleteAll,
    SetCurSel, // b: index
    SetDate,   // a: date number (see DateOf)
    FirstDay,  // a: 0 .. 8, the ends are not valid
    Option,    // a: which, b: value
    BeginEdit,
    EndEdit, // a: key that ends it
    Type,    // a: character
    Hostile, // a: what the host does at its next notification
    LoseCapture,
    CancelMode,
    Focus, // a: 1 to the control, 0 away
    Timer,
    ContextMenu,
    Refresh,
    Paint,
    Sort, // SetFocusToItem by Tab over a sorted copy
    Recreate,
    Client, // a: what a program that reads aloud asks, b: of which part
    Count
};

struct Event
{
    std::int64_t index; // within its seed
    EventKind kind;
    int a, b, c;
};

Event EventOf(std::uint64_t seed, std::int64_t index);
std::string TextOf(const Event& event);

// The kept indices as text and back: "0-99,105,200-210".
std::string RangesOf(const std::vector<std::int64_t>& indices);
std::vector<std::int64_t> IndicesOf(const std::string& ranges);

} // namespace stress
