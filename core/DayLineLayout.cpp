#include "core/DayLineLayout.h"

#include <algorithm>
#include <cmath>

namespace dayvane {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kHalfTurn = 180.0; // degrees

bool IsSky(const DayPiece& piece)
{
    return piece.kind == DayPiece::Kind::Sky;
}

// Indices of the pieces, in the order in which they take their places.
std::vector<int> PlacingOrder(const std::vector<DayPiece>& pieces, bool skyFirst)
{
    std::vector<int> order;
    for (const bool sky : {skyFirst, !skyFirst}) {
        for (int i = 0; i < static_cast<int>(pieces.size()); ++i) {
            if (IsSky(pieces[i]) == sky) {
                order.push_back(i);
            }
        }
    }
    return order;
}

class LineFiller
{
public:
    LineFiller(const CRect& area, int lines, const DayLineMetrics& metrics)
        : m_area(area), m_metrics(metrics), m_filled(lines, 0)
    {
    }

    // Lines from `first` on; false when no line had room.
    bool Put(int piece, int width, int first, std::vector<PlacedPiece>& placed)
    {
        for (int line = first; line < Count(); ++line) {
            const int left = m_filled[line] == 0 ? 0 : m_filled[line] + m_metrics.gap;
            if (left + width <= Room()) {
                Take(line, left, width, piece, placed);
                return true;
            }
        }
        for (int line = first; line < Count(); ++line) {
            if (m_filled[line] == 0 && Room() >= m_metrics.leastWidth) {
                Take(line, 0, Room(), piece, placed);
                return true;
            }
        }
        return false;
    }

private:
    int Count() const { return static_cast<int>(m_filled.size()); }
    int Room() const { return m_area.Width() - 2 * m_metrics.sideInset; }

    void Take(int line, int left, int width, int piece, std::vector<PlacedPiece>& placed)
    {
        m_filled[line] = left + width;
        const CPoint corner(m_area.left + m_metrics.sideInset + left, m_area.top + line * m_metrics.lineHeight);
        placed.push_back({piece, CRect(corner, CSize(width, m_metrics.lineHeight))});
    }

    CRect m_area;
    DayLineMetrics m_metrics;
    std::vector<int> m_filled; // of each line, pixels; 0: empty
};

// How well pieces are placed: fewer left out or cut is better.
int Losses(const std::vector<DayPiece>& pieces, const std::vector<PlacedPiece>& placed, const DayLineMetrics& metrics)
{
    int losses = static_cast<int>(pieces.size() - placed.size()) * 2;
    for (const PlacedPiece& place : placed) {
        losses += place.rect.Width() < WidthOfPiece(pieces[place.piece], metrics) ? 1 : 0;
    }
    return losses;
}

} // namespace

DayLineMetrics DayLineMetrics::For(const ViewScale& scale)
{
    DayLineMetrics metrics;
    metrics.lineHeight = scale.Line(metrics.lineHeight);
    for (int* length : {&metrics.sideInset, &metrics.gap, &metrics.moonSize, &metrics.moonGap, &metrics.leastWidth}) {
        *length = scale.Of(*length);
    }
    return metrics;
}

int WidthOfPiece(const DayPiece& piece, const DayLineMetrics& metrics)
{
    const bool hasMoon = piece.moon >= 0;
    const int moon = hasMoon ? metrics.moonSize + (piece.textWidth > 0 ? metrics.moonGap : 0) : 0;
    return moon + piece.textWidth;
}

std::vector<PlacedPiece> PlacePieces(const std::vector<DayPiece>& pieces, const CRect& area, int lines,
                                     const DayLineMetrics& metrics)
{
    std::vector<PlacedPiece> placed;
    if (lines <= 0) {
        return placed;
    }
    const bool hasSky = std::any_of(pieces.begin(), pieces.end(), IsSky);
    const bool skyFirst = lines > 1;
    LineFiller filler(area, lines, metrics);
    for (const int i : PlacingOrder(pieces, skyFirst)) {
        const int width = WidthOfPiece(pieces[i], metrics);
        const int first = skyFirst && hasSky && !IsSky(pieces[i]) ? 1 : 0;
        if (!filler.Put(i, width, first, placed) && first > 0) {
            filler.Put(i, width, 0, placed);
        }
    }
    return placed;
}

bool LosesPieces(const std::vector<DayPiece>& pieces, const CRect& area, int lines, const DayLineMetrics& metrics)
{
    return Losses(pieces, PlacePieces(pieces, area, lines, metrics), metrics) > 0;
}

std::u16string TextOfPieces(const std::vector<DayPiece>& pieces)
{
    std::u16string text;
    for (const DayPiece& piece : pieces) {
        text += text.empty() || piece.text.empty() ? u"" : u"  ";
        text += piece.text;
    }
    return text;
}

int LinesFor(const std::vector<DayPiece>& pieces, int width, int most, const DayLineMetrics& metrics)
{
    if (pieces.empty()) {
        return 0;
    }
    const CRect area(0, 0, width, 0);
    const int least = Losses(pieces, PlacePieces(pieces, area, most, metrics), metrics);
    int lines = 1;
    while (lines < most && Losses(pieces, PlacePieces(pieces, area, lines, metrics), metrics) > least) {
        ++lines;
    }
    return lines;
}

std::vector<MoonRow> MoonPicture(int size, double elongation)
{
    std::vector<MoonRow> rows;
    const double radius = size / 2.0;
    const double terminator = std::cos(elongation * kPi / kHalfTurn);
    const bool waxes = elongation <= kHalfTurn;
    for (int y = 0; y < size; ++y) {
        const double height = y + 0.5 - radius; // of the middle of the row over the disc's middle
        const double half = std::sqrt(std::max(radius * radius - height * height, 0.0));
        const auto column = [&](double x) { return static_cast<int>(std::lround(radius + x)); };
        MoonRow row = {column(-half), column(half), 0, 0};
        row.litBegin = waxes ? column(half * terminator) : row.begin;
        row.litEnd = waxes ? row.end : column(-half * terminator);
        rows.push_back(row);
    }
    return rows;
}

} // namespace dayvane
