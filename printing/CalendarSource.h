// What a control shows as the source of printed pages: the one place that turns its records into plain values.
#pragma once

#include "PrintSource.h"

#include "../core/CalendarCtrl.h"

#include <functional>

namespace dayvane {

// Texts of the host, in the code page that the control reads them in.
std::u16string WideText(CCalendarCtrl& ctrl, const CString& text);

// The items that touch the days, and what calendar and host say of days. The source asks the control and the calendar
// for days while pages are made; so it lives no longer than the control. placeOf: the place of an item of the store,
// none: items have no places.
PrintSource SourceOf(CCalendarCtrl& ctrl, int firstDay, int lastDay, const std::function<CString(int)>& placeOf);

} // namespace dayvane
