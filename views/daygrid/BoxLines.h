// The lines under the numbers of a view's boxes, and the column of its week numbers.
#pragma once

#include "../../core/DateMath.h"
#include "../../core/DayLineLayout.h"
#include "BoxRange.h"

#include <vector>

namespace dayvane {

// Worked out when other days are shown, not on every paint.
struct BoxLines
{
    COleDateTime first = NoDate(); // of the range that the rest was made for; not valid: for none
    CSize room = CSize(0, 0);
    std::vector<std::vector<DayPiece>> pieces; // of each box
    int lines = 0;                             // in every box, so that its items begin at one height

    void Forget() { first = NoDate(); }
};

// What the lines of a box hold: those of its day, or the days off of its month.
std::vector<DayPiece> PiecesOfBox(const BoxRange& range, int box, const DayProvider* provider, const DayLines& lines);

// How many lines the boxes get: as many as the fullest takes, but no more than a third of the room under the strip.
int LinesOfBoxes(const std::vector<std::vector<DayPiece>>& pieces, CSize room,
                 const DayLineMetrics& metrics = kDayLine);

// By how many pixels the items of a box begin lower.
int HeightOfLines(int lines, const DayLineMetrics& metrics = kDayLine);

constexpr int kWeekColumnWidth = 24; // pixels at 96 dpi, left of the month views' boxes

// The week that a row of boxes is numbered by; -1 where it has no date.
int WeekOfRow(const BoxRange& range, int row, int firstDayOfWeek, WeekRule rule);

} // namespace dayvane
