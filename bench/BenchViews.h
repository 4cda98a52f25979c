// The views that can be measured: one row of a table each.
#pragma once

#include "BenchEvents.h"
#include "core/CalendarCtrl.h"

#include <memory>

namespace bench {

// What the phases need of a view beyond its public side.
class BenchView
{
public:
    virtual ~BenchView() {}
    virtual CCalendarCtrl& Control() = 0;
    virtual void Paint(CDC* pDC) = 0;
    virtual void ByParts(bool parts) = 0; // whether changes are laid out and painted in part, as in the view itself
    // Lays the screen items out by the rules taken literally.
    virtual void LayOutLiterally(int cx, int cy) = 0;
};

struct BenchViewEntry
{
    const char* name; // of --view
    std::unique_ptr<BenchView> (*make)();
    EventSpread spread; // of made-up items
};

const BenchViewEntry* FindView(const char* name); // nullptr: there is none
void PrintViewNames();

} // namespace bench
