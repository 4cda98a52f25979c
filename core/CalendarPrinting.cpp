#include "core/CalendarPrinting.h"

namespace dayvane {
namespace {

CalendarPrintingFactory s_factory = nullptr;

} // namespace

void SetCalendarPrinting(CalendarPrintingFactory factory)
{
    s_factory = factory;
}

std::unique_ptr<CalendarPrinting> MakeCalendarPrinting(CCalendarCtrl& ctrl)
{
    return s_factory ? s_factory(ctrl) : nullptr;
}

} // namespace dayvane
