// Drags of items from one program to another, by OLE: the items as text/calendar and as plain text, files of calendars
// as files.
#pragma once

#include "planner/ItemClipboard.h"

#include <afxwin.h>

#include <functional>
#include <ole2.h>
#include <string>
#include <vector>

namespace planner {

struct DroppedData
{
    std::vector<std::string> files; // UTF-8 paths; else
    PastedText text;
    bool IsEmpty() const { return files.empty() && text.text.empty(); }
};

// What of the data a calendar can take.
bool IsDroppable(IDataObject& data);
DroppedData TakeDropped(IDataObject& data);

// A data object of items; the caller releases it.
IDataObject* NewItemData(const std::string& calendar, const std::string& text);

// Lets the user drop the items anywhere, from a press on. True: somebody has taken them.
bool DragItems(const std::string& calendar, const std::string& text);

// While it lives, a window and those in it take drops.
class DropPlace
{
public:
    // Whether the point of the screen takes something; then, on the drop, what is to be done with it.
    using Test = std::function<bool(CPoint screen)>;
    using Take = std::function<void(const DroppedData& data, CPoint screen)>;

    DropPlace(HWND window, Test test, Take take);
    ~DropPlace();
    DropPlace(const DropPlace&) = delete;
    DropPlace& operator=(const DropPlace&) = delete;
    IDropTarget* Target() const { return m_target; }

private:
    HWND m_window;
    IDropTarget* m_target;
};

} // namespace planner
