// The rulers of a time grid that shows another time zone beside its own, and says when a clock is changed.
#pragma once

#include "../../calc/ZoneClock.h"
#include "../../core/DayLines.h"

#include <afx.h>
#include <afxdisp.h>

#include <vector>

namespace dayvane {

// The clocks of a time grid. Its items are in the times of `own`.
struct ZoneRuler
{
    ZoneClock own;
    ZoneClock other;
    CString ownLabel; // over the rulers, in the code page of the library's own texts
    CString otherLabel;
    bool showOther = true; // false: only the changes of the own clock are shown
};

constexpr int kZoneRulerWidth = 56; // pixels, of the second ruler

// What stands in the rulers beside an hour.
struct ZoneHour
{
    CString other;     // the other clock when the hour begins: "3:00", "14:30"
    CString otherDate; // "11/21" where the other date begins in the hour, and at the top
    CString change;    // of the own clock: "2:00>3:00"; empty: none
};
std::vector<ZoneHour> ZoneHoursOf(const COleDateTime& day, const ZoneRuler& ruler);

// What the header of a day says: the changes of the own clock, and of the difference between the two since the day
// before ("-13:00").
std::vector<DayPiece> ZonePiecesOf(const COleDateTime& day, const ZoneRuler& ruler);

} // namespace dayvane
