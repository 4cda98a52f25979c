#include "views/daygrid/RowPieces.h"

#include "core/DateMath.h"

#include <algorithm>

namespace dayvane {
namespace {

int KindOfPiece(bool before, bool after)
{
    return before && after ? PIECE_MIDDLE : after ? PIECE_HEAD : before ? PIECE_TAIL : PIECE_WHOLE;
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

// Writes pieces over the records that are there already, which saves freeing and allocating their memory.
class PieceWriter
{
public:
    explicit PieceWriter(ItemArray& pieces) : m_pieces(pieces) {}

    tagCALENDAR_ITEM& Next()
    {
        if (m_count == m_pieces.GetSize()) {
            m_pieces.SetSize(m_count + m_count / 2 + kLeastGrowth);
        }
        return m_pieces.GetData()[m_count++];
    }
    void Finish() { m_pieces.SetSize(m_count); }

private:
    static constexpr INT_PTR kLeastGrowth = 16;

    ItemArray& m_pieces;
    INT_PTR m_count = 0;
};

void CutItem(const tagCALENDAR_ITEM& item, int source, const DayRows& rows, const DayEdges& edges, PieceWriter& pieces)
{
    const int startDay = DayNumberOf(item.dtStart);
    if (startDay >= rows.back()) {
        return;
    }
    const int endDay = DayNumberOf(item.dtEnd);
    const int clippedEnd = std::min(endDay, rows.back() - 1);
    int day = std::max(startDay, rows.front());
    while (day <= clippedEnd) {
        const int nextRow = *std::upper_bound(rows.begin(), rows.end(), day);
        const int last = std::min(nextRow - 1, clippedEnd);
        tagCALENDAR_ITEM& piece = pieces.Next();
        piece = item;
        piece.nSource = source;
        piece.nPiece = KindOfPiece(startDay<day, endDay> last);
        piece.bNoFocus = FALSE;
        piece.rcItem.NormalizeRect();
        if (day != startDay) {
            piece.dtStart = edges.StartOf(day);
        }
        if (last != endDay) {
            piece.dtEnd = edges.EndOf(last);
        }
        day = last + 1;
    }
}

} // namespace

void MakeRowPieces(const ItemArray& items, const DayRows& rows, ItemArray& pieces, const std::vector<int>* which)
{
    if (rows.size() < 2) {
        pieces.RemoveAll();
        return;
    }
    const DayEdges edges(rows.front(), rows.back() - 1);
    PieceWriter writer(pieces);
    const int count = static_cast<int>(which ? which->size() : items.GetSize());
    const tagCALENDAR_ITEM* data = items.GetData();
    for (int n = 0; n < count; ++n) {
        const int i = which ? (*which)[n] : n;
        if (IsValid(data[i].dtStart) && IsValid(data[i].dtEnd)) {
            CutItem(data[i], i, rows, edges, writer);
        }
    }
    writer.Finish();
}

bool RemakeRowPieces(const ItemArray& items, int item, const DayRows& rows, ItemArray& pieces,
                     std::vector<int>& positions)
{
    ItemArray made;
    const std::vector<int> only = {item};
    MakeRowPieces(items, rows, made, &only);
    tagCALENDAR_ITEM* begin = pieces.GetData();
    tagCALENDAR_ITEM* end = begin + pieces.GetSize();
    tagCALENDAR_ITEM* first = std::lower_bound(
        begin, end, item, [](const tagCALENDAR_ITEM& piece, int source) { return piece.nSource < source; });
    for (INT_PTR n = 0; n < made.GetSize(); ++n) {
        if (first + n >= end || first[n].nSource != item) {
            return false;
        }
    }
    const INT_PTR after = first - begin + made.GetSize();
    if (made.IsEmpty() || (after < pieces.GetSize() && begin[after].nSource == item)) {
        return false;
    }
    for (INT_PTR n = 0; n < made.GetSize(); ++n) {
        const CRect box = first[n].rcItem;
        const short hidden = first[n].bNoFocus;
        first[n] = made[n];
        first[n].rcItem = box; // until the layout: it tells what has moved by comparing
        first[n].bNoFocus = hidden;
        positions.push_back(static_cast<int>(first + n - begin));
    }
    return true;
}

} // namespace dayvane
