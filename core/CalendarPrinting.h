// How a control prints. The printing subsystem lies above the controls, so it registers here what makes their printers.
#pragma once

#include <memory>

class CCalendarCtrl;
class CDC;
struct CPrintInfo;

namespace dayvane {

// Prints what one control shows. It may be asked for pages without Begin; between Begin and End the pages are laid out
// only once.
class CalendarPrinting
{
public:
    virtual ~CalendarPrinting() = default;
    // Lays the pages out for the device and sets the first and last page of the information. Returns how many there
    // are, 0 without a device context.
    virtual int Begin(CDC* pDC, CPrintInfo* pInfo) = 0;
    // Draws the page m_nCurPage (no information: the first). 1 when it did; 0 without a device context or when there is
    // no such page.
    virtual int Print(CDC* pDC, CPrintInfo* pInfo) = 0;
    virtual void End() = 0;
};

// The printer that suits a control; nullptr: it has none.
using CalendarPrintingFactory = std::unique_ptr<CalendarPrinting> (*)(CCalendarCtrl& ctrl);
void SetCalendarPrinting(CalendarPrintingFactory factory);
std::unique_ptr<CalendarPrinting> MakeCalendarPrinting(CCalendarCtrl& ctrl);

} // namespace dayvane
