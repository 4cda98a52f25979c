// The words of views and small calendars in the language of the planner's user.
#pragma once

#include "core/CalendarTexts.h"

namespace planner {

// For every control that is made, and again when the language changes. Names, order of dates and hours are those of the
// system's locale when it speaks that language. Leaves the first day of the week alone: that is a setting of its own.
CalendarTexts CalendarTextsOf(bool isJapanese);

} // namespace planner
