// Where the pieces of a day's lines stand.
#pragma once

#include "DayLines.h"
#include "ViewScale.h"

#include <atltypes.h>

#include <vector>

namespace dayvane {

// Pixels.
struct DayLineMetrics
{
    int lineHeight = 14;
    int sideInset = 4; // left and right of the pieces
    int gap = 6;       // between two pieces of a line
    int moonSize = 11;
    int moonGap = 2;     // between the moon and its text
    int leastWidth = 20; // a text that is cut to less is left out

    static DayLineMetrics For(const ViewScale& scale);
};
constexpr DayLineMetrics kDayLine;

constexpr int kMostDayLines = 3; // under the number of a day

int WidthOfPiece(const DayPiece& piece, const DayLineMetrics& metrics = kDayLine);

struct PlacedPiece
{
    int piece; // index
    CRect rect;
};

// The pieces in so many lines from the top of the area on. Over several lines, what each day has stands in the first
// ones and the names below it; a single line has the names first. A piece goes to the first line with room; one that
// has none takes an empty line, cut, or is left out.
std::vector<PlacedPiece> PlacePieces(const std::vector<DayPiece>& pieces, const CRect& area, int lines,
                                     const DayLineMetrics& metrics = kDayLine);

// Whether some of the pieces are cut there, or left out.
bool LosesPieces(const std::vector<DayPiece>& pieces, const CRect& area, int lines,
                 const DayLineMetrics& metrics = kDayLine);
// Their texts, for a tip.
std::u16string TextOfPieces(const std::vector<DayPiece>& pieces);

// The fewest lines, up to `most`, that hold all pieces as well as `most` lines would; 0 for no pieces.
int LinesFor(const std::vector<DayPiece>& pieces, int width, int most, const DayLineMetrics& metrics = kDayLine);

// A moon of that size, row by row: the columns from `begin` up to `end` are the disc, those from `litBegin` up to
// `litEnd` its lit part. elongation: degrees from the sun; the northern sky, a waxing moon lit at the right.
struct MoonRow
{
    int begin;
    int end;
    int litBegin;
    int litEnd;
};
std::vector<MoonRow> MoonPicture(int size, double elongation);

} // namespace dayvane
