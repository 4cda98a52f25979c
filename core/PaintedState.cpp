#include "core/PaintedState.h"

#include <algorithm>

namespace dayvane {
namespace {

bool LooksTheSame(const tagCALENDAR_ITEM& a, const tagCALENDAR_ITEM& b)
{
    return a.rcItem == b.rcItem && a.nPiece == b.nPiece && a.nFullday == b.nFullday && a.dtStart == b.dtStart &&
           a.dtEnd == b.dtEnd && a.strText == b.strText && a.crColor1 == b.crColor1 && a.crColor2 == b.crColor2 &&
           a.crColor3 == b.crColor3 && a.crColor4 == b.crColor4 && a.crColor5 == b.crColor5 && a.nImage == b.nImage &&
           a.nReserved == b.nReserved && !a.bAlarm == !b.bAlarm && !a.bRecurrent == !b.bRecurrent &&
           !a.bNoFocus == !b.bNoFocus;
}

bool IsInStoreOrder(const std::vector<PaintedState::Piece>& pieces)
{
    return std::is_sorted(pieces.begin(), pieces.end(), [](const PaintedState::Piece& a, const PaintedState::Piece& b) {
        return a.item.nSource < b.item.nSource;
    });
}

void ComparePieces(const std::vector<PaintedState::Piece>& before, const std::vector<PaintedState::Piece>& after,
                   std::vector<CRect>& rects)
{
    auto old = before.begin();
    auto now = after.begin();
    while (old != before.end() || now != after.end()) {
        const bool oldFirst = now == after.end() || (old != before.end() && old->item.nSource < now->item.nSource);
        const bool nowFirst = old == before.end() || (now != after.end() && now->item.nSource < old->item.nSource);
        if (oldFirst) {
            rects.push_back((old++)->box);
        } else if (nowFirst) {
            rects.push_back((now++)->box);
        } else {
            if (old->box != now->box || !LooksTheSame(old->item, now->item)) {
                rects.push_back(old->box);
                rects.push_back(now->box);
            }
            ++old;
            ++now;
        }
    }
}

void CompareMarks(const std::vector<PaintedState::Mark>& before, const std::vector<PaintedState::Mark>& after,
                  std::vector<CRect>& rects)
{
    const auto addMissing = [&rects](const std::vector<PaintedState::Mark>& of,
                                     const std::vector<PaintedState::Mark>& in) {
        for (const PaintedState::Mark& mark : of) {
            if (std::find(in.begin(), in.end(), mark) == in.end()) {
                rects.push_back(mark.box);
            }
        }
    };
    addMissing(before, after);
    addMissing(after, before);
}

constexpr size_t kMostParts = 128; // that are repainted as they are
constexpr int kTile = 32;          // pixels

} // namespace

std::vector<CRect> JoinParts(const std::vector<CRect>& parts, const CRect& area)
{
    if (parts.size() <= kMostParts) {
        return parts;
    }
    const int columns = (area.Width() + kTile - 1) / kTile;
    const int rows = (area.Height() + kTile - 1) / kTile;
    std::vector<char> isMet(static_cast<size_t>(std::max(columns, 0)) * std::max(rows, 0), 0);
    for (const CRect& part : parts) {
        CRect seen;
        if (!seen.IntersectRect(&part, &area)) {
            continue;
        }
        seen.OffsetRect(-area.left, -area.top);
        const int end = (seen.right + kTile - 1) / kTile;
        for (int row = seen.top / kTile; row * kTile < seen.bottom; ++row) {
            char* line = isMet.data() + static_cast<size_t>(row) * columns;
            std::fill(line + seen.left / kTile, line + end, 1);
        }
    }
    // The tiles that follow each other in a row are one part.
    std::vector<CRect> joined;
    for (int row = 0; row < rows; ++row) {
        const char* line = isMet.data() + static_cast<size_t>(row) * columns;
        for (int column = 0; column < columns; ++column) {
            const int top = area.top + row * kTile;
            const int left = area.left + column * kTile;
            if (line[column] && (column == 0 || !line[column - 1])) {
                joined.push_back(CRect(left, top, left + kTile, top + kTile));
            } else if (line[column]) {
                joined.back().right = left + kTile;
            }
        }
    }
    return joined;
}

bool FindDifferences(const PaintedState& before, const PaintedState& after, std::vector<CRect>& rects)
{
    if (before.frame != after.frame || !IsInStoreOrder(before.pieces) || !IsInStoreOrder(after.pieces)) {
        return false;
    }
    ComparePieces(before.pieces, after.pieces, rects);
    CompareMarks(before.marks, after.marks, rects);
    return true;
}

} // namespace dayvane
