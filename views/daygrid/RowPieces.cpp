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

std::vector<int> PiecesOf(const ItemArray& pieces, int item)
{
    const tagCALENDAR_ITEM* begin = pieces.GetData();
    const tagCALENDAR_ITEM* end = begin + pieces.GetSize();
    const tagCALENDAR_ITEM* piece = std::lower_bound(
        begin, end, item, [](const tagCALENDAR_ITEM& each, int source) { return each.nSource < source; });
    std::vector<int> positions;
    for (; piece != end && piece->nSource == item; ++piece) {
        positions.push_back(static_cast<int>(piece - begin));
    }
    return positions;
}

bool RemakeRowPieces(const ItemArray& items, int item, const DayRows& rows, ItemArray& pieces,
                     std::vector<int>& positions)
{
    ItemArray made;
    const std::vector<int> only = {item};
    MakeRowPieces(items, rows, made, &only);
    const std::vector<int> there = PiecesOf(pieces, item);
    if (made.IsEmpty() || made.GetSize() != static_cast<INT_PTR>(there.size())) {
        return false;
    }
    for (size_t n = 0; n < there.size(); ++n) {
        tagCALENDAR_ITEM& piece = pieces[there[n]];
        const CRect box = piece.rcItem;
        const short hidden = piece.bNoFocus;
        piece = made[n];
        piece.rcItem = box; // until the layout, which finds what has moved by comparing
        piece.bNoFocus = hidden;
    }
    positions.insert(positions.end(), there.begin(), there.end());
    return true;
}

} // namespace dayvane
