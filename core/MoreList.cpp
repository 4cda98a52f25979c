#include "core/MoreList.h"

#include "core/DateMath.h"

#include <algorithm>

namespace dayvane {

std::vector<int> ItemsOfDays(const ItemArray& items, const COleDateTime& first, const COleDateTime& last,
                             const std::vector<int>* which)
{
    std::vector<int> found;
    const int firstDay = DayNumberOf(first);
    const int lastDay = DayNumberOf(last);
    const int count = static_cast<int>(which ? which->size() : items.GetSize());
    for (int n = 0; n < count; ++n) {
        const int i = which ? (*which)[n] : n;
        const tagCALENDAR_ITEM& item = items[i];
        if (!IsValid(item.dtStart) || !IsValid(item.dtEnd)) {
            continue;
        }
        const int start = DayNumberOf(item.dtStart);
        const int end = DayNumberOf(item.dtEnd);
        if (start <= end && start <= lastDay && end >= firstDay) {
            found.push_back(i);
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [&items](int a, int b) { return items[a].dtStart < items[b].dtStart; });
    return found;
}

MoreListMetrics MoreListMetrics::For(const ViewScale& scale)
{
    MoreListMetrics metrics;
    metrics.rowHeight = scale.Line(metrics.rowHeight);
    metrics.width = scale.Of(metrics.width);
    metrics.inset = scale.Of(metrics.inset);
    return metrics;
}

CSize MoreListModel::Size() const
{
    return CSize(m_metrics.width, RowsInSight() * m_metrics.rowHeight + 2 * m_metrics.inset);
}

CRect MoreListModel::RowRect(int row) const
{
    const int top = m_metrics.inset + (row - m_top) * m_metrics.rowHeight;
    return CRect(m_metrics.inset, top, m_metrics.width - m_metrics.inset, top + m_metrics.rowHeight);
}

int MoreListModel::RowAt(CPoint point) const
{
    for (int row = m_top; row < m_top + RowsInSight(); ++row) {
        if (RowRect(row).PtInRect(point)) {
            return row;
        }
    }
    return -1;
}

void MoreListModel::SetCurrent(int row)
{
    m_current = std::max(std::min(row, Count() - 1), 0);
    if (m_current < m_top) {
        m_top = m_current;
    } else if (m_current >= m_top + RowsInSight()) {
        m_top = m_current - RowsInSight() + 1;
    }
}

void MoreListModel::Scroll(int rows)
{
    m_top = std::max(std::min(m_top + rows, Count() - RowsInSight()), 0);
}

} // namespace dayvane
