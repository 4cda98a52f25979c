// What the week and the year view keep besides their windows; their public headers do without these types.
#pragma once

#include "../../core/CalendarColors.h"
#include "BoxRange.h"
#include "BoxViewLayout.h"

#include <vector>

namespace dayvane {

// The fixed properties of a view. The texts are literals.
struct BoxViewKind
{
    RangeKind range;
    const char* windowClass;
    const char* title;
    const BoxViewMetrics& metrics;
    const CalendarColors& colors;
};

struct BoxViewState
{
    explicit BoxViewState(const BoxViewKind& kind)
        : kind(kind), range(kind.range), layout(kind.metrics), more(kind.metrics.BoxCount())
    {
    }

    const BoxViewKind kind;
    BoxRange range;
    int todayBox = -1; // -1: not shown
    BoxViewLayout layout;
    std::vector<int> more; // of each box: 1: an item did not fit
};

} // namespace dayvane
