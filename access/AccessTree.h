// What a control consists of for a program that reads it aloud: a tree of parts with their places, and the ways through
// it. A value without texts: what a part is called is worked out when somebody asks (ViewSpeech.h, PickerSpeech.h).
#pragma once

#include <atltypes.h>

#include <map>
#include <vector>

namespace dayvane {

// What a part is; its role follows.
enum class AccessPart
{
    Root,
    Title,        // the title band
    Announcement, // what has just happened, in words
    Child,        // a window inside, such as a combo box
    ColumnHeader, // the name of a column of days
    Cell,         // a day, a month
    WholeDay,     // a day's part of the full-day band
    Row,          // a row of hours of a day
    Item,         // an item in a cell
    Mark,         // the mark that counts hidden items of a cell
    Previous,     // a button that pages back
    Next,
    Period,      // a month or year of a small calendar
    PeriodTitle, // its title
    Now,         // the line that names the present cell
    Entry,       // a line of a list
};

// Names a part by what it stands for, so that it stays the same while the control scrolls or gets other items.
struct AccessId
{
    AccessPart part = AccessPart::Root; // what it is
    int key = 0;   // of the cell: its day number; periods: their number; entries and headers: their position
    int index = 0; // within the cell: the item's index in the store, the row, the mark's position

    friend bool operator==(const AccessId& a, const AccessId& b)
    {
        return a.part == b.part && a.key == b.key && a.index == b.index;
    }
    friend bool operator!=(const AccessId& a, const AccessId& b) { return !(a == b); }
    friend bool operator<(const AccessId& a, const AccessId& b)
    {
        return a.part != b.part ? a.part < b.part : a.key != b.key ? a.key < b.key : a.index < b.index;
    }
};

struct AccessNode
{
    AccessId id;                   // by which it is found again
    CRect box = CRect(0, 0, 0, 0); // client pixels; never beyond the parent's
    bool isHidden = false;         // scrolled away, or without room; its box may be empty
    int layer = 0;                 // of siblings that lie over each other the highest is seen, then the last
    int grid = 0;                  // of those of the window the one that it is a cell of; 0: none
    int gridRow = 0;               // its row there
    int gridColumn = 0;            // its column there
    // Filled in by the tree.
    int parent = -1;
    int position = 0;          // among its siblings
    std::vector<int> children; // their numbers
};

// Where navigation leads from a part.
enum class AccessWay
{
    First, // child
    Last,  // child
    Next,  // sibling
    Previous,
    Up, // neighbours in a grid
    Down,
    Left,
    Right,
};

constexpr int kNoNode = -1; // there is none

class AccessTree
{
public:
    // The root.
    explicit AccessTree(const CRect& box);

    void Reserve(int nodes); // room for so many
    // Adds a child, its box cut to the parent's; returns its number. A box that is empty then makes it hidden.
    int Add(int parent, const AccessNode& node);

    int Count() const { return static_cast<int>(m_nodes.size()); } // with the root, number 0
    const AccessNode& At(int node) const { return m_nodes[node]; } // the part of that number
    int Find(const AccessId& id) const;                            // kNoNode: there is none

    int Walk(int from, AccessWay way) const; // kNoNode: no way
    // The deepest part that is seen at the point; kNoNode outside the root.
    int HitTest(CPoint point) const;

private:
    struct GridPlace
    {
        int grid;
        int row;
        int column;
        friend bool operator<(const GridPlace& a, const GridPlace& b)
        {
            return a.grid != b.grid ? a.grid < b.grid : a.row != b.row ? a.row < b.row : a.column < b.column;
        }
    };

    // Where the id's number is in m_slots, or the free place where it would be.
    size_t SlotOf(const AccessId& id) const;
    void MakeSlots(size_t count);

    std::vector<AccessNode> m_nodes; // the root first, parents before their children
    std::vector<int> m_slots;        // numbers by the hash of their ids, a power of two; at most half of it is in use
    std::map<GridPlace, int> m_byPlace;
};

} // namespace dayvane
