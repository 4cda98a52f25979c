// Where popups open. Screen pixels.
#pragma once

#include <atltypes.h>

namespace dayvane {

// The start of an interval of a length, moved so that it lies in [low, high). One that is too long starts at low.
int FitInto(int start, int length, int low, int high);

// Where a drop-down of a size goes: below the anchor and flush with its right edge, above it when it does not fit
// below, and in any case on the work area as far as its top-left corner can be.
CRect PlaceDropDown(const CRect& anchor, CSize size, const CRect& workArea);

} // namespace dayvane
