// The list that a more-items mark opens, without its window: which items, which of them are in sight, which is current,
// where the list stands. Rectangles are pixels.
#pragma once

#include "CalendarRecords.h"
#include "ViewScale.h"

#include <vector>

namespace dayvane {

// Pixels, but for the rows.
struct MoreListMetrics
{
    int rowHeight = 26;
    int width = 280;
    int inset = 2;    // around the rows
    int maxRows = 12; // in sight at once

    static MoreListMetrics For(const ViewScale& scale);
};
constexpr MoreListMetrics kMoreListMetrics;

// Store indices of the items that touch the days from the first to the last date, earliest first. which: those that
// may, nullptr: all.
std::vector<int> ItemsOfDays(const ItemArray& items, const COleDateTime& first, const COleDateTime& last,
                             const std::vector<int>* which = nullptr);

class MoreListModel
{
public:
    explicit MoreListModel(std::vector<int> items, const MoreListMetrics& metrics = kMoreListMetrics)
        : m_items(std::move(items)), m_metrics(metrics)
    {
    }

    int Count() const { return static_cast<int>(m_items.size()); }
    int RowsInSight() const { return Count() < m_metrics.maxRows ? Count() : m_metrics.maxRows; }
    CSize Size() const;
    int Item(int row) const { return m_items[row]; } // store index
    int Current() const { return m_current; }        // row, -1 none
    int Top() const { return m_top; }                // first row in sight

    CRect RowRect(int row) const;  // also of rows out of sight
    int RowAt(CPoint point) const; // -1: none in sight there

    // Makes the row current and brings it in sight; rows beyond the ends are cut to them.
    void SetCurrent(int row);
    // Rows that come into sight from below; negative: from above.
    void Scroll(int rows);

private:
    std::vector<int> m_items;
    MoreListMetrics m_metrics;
    int m_current = -1;
    int m_top = 0;
};

} // namespace dayvane
