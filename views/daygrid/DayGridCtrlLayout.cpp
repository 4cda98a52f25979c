// The month, week and year view's layout of their items: all of them, or after a change of few items their rows.
#include "views/daygrid/DayGridCtrl.h"

#include "core/PaintedState.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/DayGridParts.h"

#include <algorithm>

using namespace dayvane;

void CDayGridCtrl::MakeScreenItem(CItemArray& items, CItemArray& screenItems)
{
    const DayRows rows = Range().Rows();
    const bool isOwn = &items == &m_arItem && &screenItems == &m_arScreenItem;
    ItemsWanted();
    if (isOwn && RemakePieces(rows)) {
        CloseMoreList();
        return;
    }
    if (&screenItems == &m_arScreenItem) {
        AllPiecesChange();
    }
    const bool hasDays = rows.size() > 1;
    MakeRowPieces(items, rows, screenItems, hasDays ? FindItems(items, rows.front(), rows.back() - 1) : nullptr);
    if (&screenItems == &m_arScreenItem) {
        m_parts->board.Clear();
        m_parts->remade.clear();
    }
    if (isOwn) {
        m_parts->rows = rows;
        ScreenItemsMade();
    }
    ScreenItemsChanged();
}

bool CDayGridCtrl::RemakePieces(const std::vector<int>& rows)
{
    DayGridParts& parts = *m_parts;
    const std::vector<int>* set = ItemsSetSinceMade();
    if (!UpdatesByParts() || !set || parts.board.IsEmpty() || rows != parts.rows) {
        return false;
    }
    for (const int item : *set) {
        for (const int position : PiecesOf(m_arScreenItem, item)) {
            PieceChanges(position);
        }
        if (!RemakeRowPieces(m_arItem, item, rows, m_arScreenItem, parts.remade)) {
            return false;
        }
    }
    ScreenItemsMade();
    return true;
}

std::vector<BoxLoad> CDayGridCtrl::LayOutPieces(const BoxGrid& grid, const BarRules& rules, CItemArray& screenItems)
{
    DayGridParts& parts = *m_parts;
    if (&screenItems != &m_arScreenItem || !UpdatesByParts()) {
        ScreenItemsChanged();
        return LayOutBars(grid, rules, Range().Spans(screenItems), screenItems);
    }
    if (parts.board.Knows(grid, rules, static_cast<int>(screenItems.GetSize()))) {
        CItemArray remade;
        for (const int position : parts.remade) {
            remade.Add(screenItems[position]);
        }
        const std::vector<BoxSpan> spans = Range().Spans(remade);
        std::vector<BarBoard::Change> changes;
        for (size_t i = 0; i < spans.size(); ++i) {
            changes.push_back({parts.remade[i], spans[i]});
        }
        std::vector<PieceMove> moved;
        if (parts.board.LayOutAgain(changes, screenItems, moved)) {
            UpdateShown(moved);
            PiecesMoved(moved);
            parts.remade.clear();
            return parts.board.Loads();
        }
    }
    parts.remade.clear();
    AllPiecesChange();
    ScreenItemsChanged();
    return parts.board.LayOut(grid, rules, Range().Spans(screenItems), screenItems);
}

void CDayGridCtrl::UpdateShown(const std::vector<PieceMove>& moved)
{
    if (!m_bShownValid || m_nShownOf != m_arScreenItem.GetSize()) {
        return;
    }
    for (const PieceMove& piece : moved) {
        const int position = piece.position;
        const auto place = std::lower_bound(m_shown.begin(), m_shown.end(), position);
        const bool isListed = place != m_shown.end() && *place == position;
        const bool isShown = IsShown(m_arScreenItem[position]);
        if (isShown && !isListed) {
            m_shown.insert(place, position);
        } else if (!isShown && isListed) {
            m_shown.erase(place);
        }
    }
}
