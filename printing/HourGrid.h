// The hours of one day on paper: which items they show, and their boxes side by side.
#pragma once

#include "../views/timegrid/TidyColumns.h"
#include "ItemEntry.h"

#include <vector>

namespace dayvane {

struct HourRange
{
    int from = 8; // hours
    int to = 18;  // exclusive

    int Minutes() const { return (to - from) * 60; }
    // Whether any moment of the item lies in the hours. Of the items of one day.
    bool Shows(const PrintItem& item) const;
};

class HourGrid
{
public:
    // The hours that suit the items (positions in the source), by the options.
    static HourRange HoursFor(const PageContext& context, const std::vector<int>& items);
    static int RulerWidth(const PageContext& context);
    // Lines and numbers of the hours over the whole width; the days begin at `columnsLeft`.
    static void DrawRuler(PageWriter& writer, const PageContext& context, const HourRange& hours, const CRect& area,
                          int columnsLeft);

    HourGrid(const PageContext& context, const HourRange& hours, std::vector<ItemPiece> pieces)
        : m_context(context), m_hours(hours), m_pieces(std::move(pieces))
    {
    }

    // Sets the boxes side by side in a column of that size; the height may become less before Draw, but not so much
    // that an hour gets lower than a line. Returns the pieces for which it is too narrow.
    std::vector<ItemPiece> Place(const CRect& area);
    void Draw(PageWriter& writer, const CRect& area) const;

private:
    int MinutesOfLine(int height) const;
    Entry EntryIn(const ItemPiece& piece, const CRect& box, int fontPercent) const;
    void DrawBox(PageWriter& writer, const ItemPiece& piece, const CRect& box) const;

    const PageContext& m_context;
    HourRange m_hours;
    std::vector<ItemPiece> m_pieces;
    std::vector<TimeSpan> m_spans; // minutes from the first hour; as long as a line of text at least
    std::vector<TidyBox> m_boxes;
};

} // namespace dayvane
