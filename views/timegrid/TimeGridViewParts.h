// The day view and the multi-day view as a value of their parts.
#pragma once

#include "../../core/ViewParts.h"
#include "TimeGridHit.h"

namespace dayvane {

// Sets all but kind and client area. screenItems: as laid out, with their marks.
void FillTimeGridParts(const TimeGridState& state, const ItemArray& screenItems, const std::vector<MoreMark>& marks,
                       ViewParts& parts);

} // namespace dayvane
