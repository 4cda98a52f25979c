// Measures and draws the lines under the number of a day, in the text font of days' annotations.
#pragma once

#include "DayLineLayout.h"
#include "CalendarTheme.h"
#include "Fonts.h"

namespace dayvane {

struct DayLineColors
{
    COLORREF dayOff = 0x0000B0;
    COLORREF name = 0x000000;
    COLORREF term = 0x006000;
    COLORREF sky = 0x5A5A5A;
    COLORREF moonDark = 0x6A5A50;
    COLORREF moonLit = 0xB0F0FF;

    static DayLineColors Of(const CalendarTheme& theme);
};

void MeasurePieces(CDC& dc, CFont* pFont, std::vector<DayPiece>& pieces);
void DrawPieces(CDC& dc, CFont* pFont, const std::vector<DayPiece>& pieces, const std::vector<PlacedPiece>& placed,
                const DayLineMetrics& metrics, const DayLineColors& colors);

} // namespace dayvane
