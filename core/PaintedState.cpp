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

} // namespace

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
