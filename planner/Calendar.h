// The types of the calendar library by their short names; the planner speaks of no other calendar.
#pragma once

#include "ical/ICal.h"

namespace planner {
using namespace dayvane::ical;
} // namespace planner
