#include "core/DayLinePainter.h"

#include "core/DrawingHelpers.h"
#include "core/TextCodec.h"
#include "core/ThemeColors.h"
#include "core/WideText.h"

namespace dayvane {
namespace {

COLORREF ColorOf(DayPiece::Kind kind, const DayLineColors& colors)
{
    switch (kind) {
    case DayPiece::Kind::DayOff:
        return colors.dayOff;
    case DayPiece::Kind::Term:
        return colors.term;
    case DayPiece::Kind::Sky:
        return colors.sky;
    default:
        return colors.name;
    }
}

void FillColumns(CDC& dc, int left, int right, int y, COLORREF color)
{
    if (right > left) {
        dc.FillSolidRect(left, y, right - left, 1, color);
    }
}

// The lit part is one pixel smaller than the disc, so that a full moon shows on a white ground.
void DrawMoon(CDC& dc, const CPoint& corner, int size, double elongation, const DayLineColors& colors)
{
    int y = corner.y;
    for (const MoonRow& row : MoonPicture(size, elongation)) {
        FillColumns(dc, corner.x + row.begin, corner.x + row.end, y++, colors.moonDark);
    }
    y = corner.y + 1;
    for (const MoonRow& row : MoonPicture(size - 2, elongation)) {
        FillColumns(dc, corner.x + 1 + row.litBegin, corner.x + 1 + row.litEnd, y++, colors.moonLit);
    }
}

} // namespace

DayLineColors DayLineColors::Of(const CalendarTheme& theme)
{
    DayLineColors colors;
    colors.dayOff = ThemeOr(theme.holiday.text, colors.dayOff);
    colors.name = ThemeOr(theme.ordinary.text, colors.name);
    colors.term = ThemeOr(theme.ordinary.text, colors.term);
    colors.sky = ThemeOr(theme.otherMonthText, colors.sky);
    return colors;
}

void MeasurePieces(CDC& dc, CFont* pFont, std::vector<DayPiece>& pieces)
{
    const SelectGdi selectFont(&dc, pFont);
    for (DayPiece& piece : pieces) {
        piece.textWidth = piece.text.empty() ? 0 : WideTextExtent(dc, piece.text).cx;
    }
}

void DrawPieces(CDC& dc, CFont* pFont, const std::vector<DayPiece>& pieces, const std::vector<PlacedPiece>& placed,
                const DayLineMetrics& metrics, const DayLineColors& colors)
{
    const SelectGdi selectFont(&dc, pFont);
    for (const PlacedPiece& place : placed) {
        const DayPiece& piece = pieces[place.piece];
        CRect rest = place.rect;
        if (piece.moon >= 0) {
            const int top = rest.top + (rest.Height() - metrics.moonSize) / 2;
            DrawMoon(dc, CPoint(rest.left, top), metrics.moonSize, piece.moon, colors);
            rest.left += metrics.moonSize + metrics.moonGap;
        }
        dc.SetTextColor(ColorOf(piece.kind, colors));
        DrawWideText(dc, piece.text, rest, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
}

} // namespace dayvane
