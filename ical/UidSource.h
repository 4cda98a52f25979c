#pragma once

#include "CivilTime.h"

#include <functional>
#include <string>

namespace dayvane::ical {

// Gives a UID for a new event at each call; the document asks again when the UID is in use.
using UidSource = std::function<std::string()>;
// Worldwide unique, by 122 random bits.
UidSource RandomUids();
// "prefix1", "prefix2" and so on: the same in every run.
UidSource CountedUids(const std::string& prefix);

// The present time, in seconds of UTC.
using UtcClock = std::function<LocalTime()>;
UtcClock SystemClock();

} // namespace dayvane::ical
