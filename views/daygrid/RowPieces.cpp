#include "views/daygrid/RowPieces.h"

#include "core/DateMath.h"

#include <algorithm>

namespace dayvane
{
namespace
{

struct Piece
{
    int source;
    int firstDay;
    int lastDay;
    int kind;        // of nPiece
    bool ownStart;   // begins when the item does
    bool ownEnd;     // ends when the item does
};

int KindOf(bool before, bool after)
{
    return before && after ? PIECE_MIDDLE : after ? PIECE_HEAD : before ? PIECE_TAIL : PIECE_WHOLE;
}

void CutItem(int source, int startDay, int endDay, const DayRows& rows, std::vector<Piece>& pieces)
{
    const int viewFirst = rows.front();
    const int viewLast = rows.back() - 1;
    int day = std::max(startDay, viewFirst);
    const int clippedEnd = std::min(endDay, viewLast);
    while (day <= clippedEnd) {
        const int nextRow = *std::upper_bound(rows.begin(), rows.end(), day);
        const int last = std::min(nextRow - 1, clippedEnd);
        pieces.push_back({source, day, last, KindOf(startDay < day, endDay > last), day == startDay, last == endDay});
        day = last + 1;
    }
}

// 00:00 and 23:59:59 of the days of a view, made once for each day.
class DayEdges
{
public:
    DayEdges(int firstDay, int lastDay) : m_firstDay(firstDay)
    {
        for (int day = firstDay; day <= lastDay; ++day) {
            const COleDateTime start = DateOfDayNumber(day);
            m_edges.push_back({start, EndOfDay(start)});
        }
    }
    const COleDateTime& StartOf(int day) const { return m_edges[day - m_firstDay].start; }
    const COleDateTime& EndOf(int day) const { return m_edges[day - m_firstDay].end; }

private:
    struct Edges
    {
        COleDateTime start;
        COleDateTime end;
    };
    int m_firstDay;
    std::vector<Edges> m_edges;
};

} // namespace

DayRows EvenRows(int firstDay, int rows, int daysPerRow)
{
    DayRows starts(rows + 1);
    for (int row = 0; row <= rows; ++row)
        starts[row] = firstDay + row * daysPerRow;
    return starts;
}

void MakeRowPieces(const ItemArray& items, const DayRows& rows, ItemArray& pieces)
{
    if (rows.size() < 2) {
        pieces.RemoveAll();
        return;
    }
    std::vector<Piece> cuts;
    const int count = static_cast<int>(items.GetSize());
    const tagCALENDAR_ITEM* item = items.GetData();
    for (int i = 0; i < count; ++i, ++item) {
        if (item->dtStart.GetStatus() != COleDateTime::valid || item->dtEnd.GetStatus() != COleDateTime::valid)
            continue;
        const int startDay = DayNumberOf(item->dtStart);
        if (startDay < rows.back())
            CutItem(i, startDay, DayNumberOf(item->dtEnd), rows, cuts);
    }

    // Records that are there already are written over: their memory is not given back and asked for again.
    pieces.SetSize(static_cast<INT_PTR>(cuts.size()));
    const DayEdges edges(rows.front(), rows.back() - 1);
    tagCALENDAR_ITEM* piece = pieces.GetData();
    for (const Piece& cut : cuts) {
        *piece = items[cut.source];
        piece->nSource = cut.source;
        piece->nPiece = cut.kind;
        piece->bNoFocus = FALSE;
        piece->rcItem.NormalizeRect();
        if (!cut.ownStart)
            piece->dtStart = edges.StartOf(cut.firstDay);
        if (!cut.ownEnd)
            piece->dtEnd = edges.EndOf(cut.lastDay);
        ++piece;
    }
}

} // namespace dayvane
