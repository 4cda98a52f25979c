// The time grids' layout of their items: all of them, or after a change of few items their columns.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/PaintedState.h"
#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/TimeGridParts.h"

#include <utility>

using namespace dayvane;

void CTimeGridCtrl::MakeScreenItem(CItemArray& items, CItemArray& screenItems)
{
    TimeGridParts& parts = *m_pParts;
    const DayRange range = GetShownRange();
    const int first = range.FirstDay();
    const bool isShown = &screenItems == &m_arScreenItem;
    const bool isOwn = isShown && &items == &m_arItem;
    if (isShown) {
        CloseMoreList();
        ItemsWanted();
    }
    if (isOwn && RemakeShownItems(range)) {
        SetFulldayItemCount(parts.bars);
    } else {
        if (isShown) {
            AllPiecesChange();
            parts.board.Clear();
            parts.remade.clear();
            parts.isRemade = false;
            parts.madeFor.reset();
        }
        const int bars = MakeRangeItems(items, range, screenItems, FindItems(items, first, first + range.days - 1));
        // The band has a lane for each bar; a limited one only as many as the bars stack in.
        SetFulldayItemCount(m_options.limitedBand && range.days > 1 ? StackedLanes(screenItems, range, Scale().metrics)
                                                                    : bars);
    }
    if (isOwn) {
        parts.madeFor = first;
        parts.bars = GetFulldayItemCount();
        ScreenItemsMade();
    }
    if (isShown && parts.laidOut != CSize(0, 0) && parts.lanesLaidOut != GetFulldayItemCount()) {
        CalcFrame();
        UpdateScrollRange();
    }
}

bool CTimeGridCtrl::RemakeShownItems(const DayRange& range)
{
    TimeGridParts& parts = *m_pParts;
    const std::vector<int>* set = ItemsSetSinceMade();
    if (!UpdatesByParts() || !set || parts.board.IsEmpty() || parts.madeFor != range.FirstDay()) {
        return false;
    }
    for (const int source : *set) {
        const int position = FindSource(m_arScreenItem, source);
        if (position != -1) {
            PieceChanges(position);
        }
        if (RemakeTimedItem(m_arItem, source, range, m_arScreenItem) == -1) {
            return false;
        }
        parts.remade.push_back(position);
    }
    parts.isRemade = true;
    return true;
}

void CTimeGridCtrl::CalcItemRect(CRect rcGrid, CItemArray& screenItems)
{
    TimeGridParts& parts = *m_pParts;
    const DayRange range = GetShownRange();
    const TimedPlaces places = {range.days == 1 ? std::vector<CRect>{rcGrid} : parts.frame.columns, range, Scale(),
                                m_options.visibleShortItems, m_options.tidyColumns};
    if (&screenItems != &m_arScreenItem || !UpdatesByParts()) {
        KeepTimedMarks(TimeBoard().LayOut(screenItems, places));
        CalcFulldayItemRect(m_rcFulldayContent, screenItems);
        return;
    }
    const std::vector<int> remade = std::move(parts.remade);
    parts.remade.clear();
    std::vector<PieceMove> moved;
    if (parts.isRemade && parts.bandLaidOut == m_rcFulldayContent &&
        parts.board.Knows(places, static_cast<int>(screenItems.GetSize())) &&
        parts.board.LayOutAgain(remade, screenItems, moved)) {
        KeepTimedMarks(parts.board.Marks());
        PiecesMoved(moved);
        return;
    }
    AllPiecesChange();
    for (INT_PTR i = 0; parts.isRemade && i < screenItems.GetSize(); ++i) {
        screenItems[i].nParallel = 0; // as new ones
        screenItems[i].bNoFocus = FALSE;
    }
    parts.isRemade = true; // until they are made anew
    parts.bandLaidOut = m_rcFulldayContent;
    KeepTimedMarks(parts.board.LayOut(screenItems, places));
    CalcFulldayItemRect(m_rcFulldayContent, screenItems);
}
