// What a user does to items, carried over into the document. Windows of the control open and close here, but nothing is
// shown anew: that is the caller's, who gets the result.
#pragma once

#include "planner/ShownItems.h"

namespace planner {

// The times that a new item takes: those of the selection as it is seen.
EventTimes SelectedTimes(CCalendarCtrl& ctrl, bool wholeDays);

class ItemEditor
{
public:
    explicit ItemEditor(ShownItems& items) : m_items(items) {}

    // Open the edit box for the text of the current item, or over the selection for a new item.
    void BeginRename(Scope scope);
    void BeginCreate(bool wholeDays);

    // Ends an open edit as Enter does.
    void Commit();

    // The edit box was closed with this text. Done without an id: there was nothing to do.
    EditResult EndEdit(CalendarSet& calendars, const NMCALENDAREDIT& ended);
    // The times that an item which was dragged has now.
    EventTimes TimesAfter(int item) const;

private:
    // What the open edit box is for.
    struct Edit
    {
        OccurrenceId id; // kNoEvent: a new item
        Scope scope = Scope::ThisOccurrence;
        EventTimes times;   // of a new item
        std::string before; // UTF-8
        bool isOpen = false;
    };
    void Open(const Edit& edit);
    HWND OpenBox() const; // the edit box; nullptr: none is open
    void PlaceBox(HWND box) const;

    ShownItems& m_items;
    Edit m_edit;
};

} // namespace planner
