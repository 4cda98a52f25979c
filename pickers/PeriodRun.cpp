#include "pickers/PeriodRun.h"

#include "core/PopupPlace.h"

#include <algorithm>

namespace dayvane {
namespace {
constexpr int kThousandths = 1000;
} // namespace

int RunSpeed(int distance)
{
    if (distance <= 0) {
        return 0;
    }
    return std::min(kPeriodRunSpeed.slowest + distance / kPeriodRunSpeed.pixelsPerStep, kPeriodRunSpeed.fastest);
}

PeriodRun::PeriodRun(const PeriodPolicy& policy, int period, int width, int rowsAbove, const PeriodRunMetrics& metrics)
    : m_policy(&policy), m_metrics(metrics), m_given(ClampPeriod(policy, period)), m_width(width),
      m_rowsAbove(rowsAbove), m_top(m_given - rowsAbove), m_pointer(0, 0)
{
}

CRect PeriodRun::RowRect(int row) const
{
    const int height = m_metrics.rowHeight;
    return CRect(0, row * height, m_width, (row + 1) * height);
}

bool PeriodRun::HasPeriod(int row) const
{
    const int period = PeriodOfRow(row);
    return row >= 0 && row < m_metrics.RowCount() && period >= m_policy->FirstPeriod() &&
           period <= m_policy->LastPeriod();
}

int PeriodRun::HotRow() const
{
    if (!m_hasPointer || !CRect(CPoint(0, 0), Size()).PtInRect(m_pointer)) {
        return -1;
    }
    const int row = m_pointer.y / m_metrics.rowHeight;
    return HasPeriod(row) ? row : -1;
}

int PeriodRun::Chosen() const
{
    const int row = HotRow();
    return row < 0 ? m_given : PeriodOfRow(row);
}

bool PeriodRun::PointAt(CPoint point)
{
    const int before = HotRow();
    m_pointer = point;
    m_hasPointer = true;
    if (Distance() == 0) {
        m_progress = 0;
    }
    return HotRow() != before;
}

int PeriodRun::Distance() const
{
    const int bottom = Size().cy;
    if (!m_hasPointer || (m_pointer.y >= 0 && m_pointer.y < bottom)) {
        return 0;
    }
    return m_pointer.y < 0 ? static_cast<int>(m_pointer.y) : static_cast<int>(m_pointer.y) - bottom + 1;
}

bool PeriodRun::Tick()
{
    const int distance = Distance();
    if (distance == 0) {
        return false;
    }
    m_progress += RunSpeed(std::abs(distance)) * kRunInterval;
    const int rows = m_progress / kThousandths;
    m_progress %= kThousandths;
    return rows > 0 && Shift(distance < 0 ? -rows : rows);
}

bool PeriodRun::Shift(int rows)
{
    // The place of the given period never goes empty.
    const int first = m_policy->FirstPeriod() - m_rowsAbove;
    const int last = m_policy->LastPeriod() - m_rowsAbove;
    const int top = std::clamp(m_top + rows, first, last);
    const bool moved = top != m_top;
    m_top = top;
    return moved;
}

PopupPlace PlacePeriodRun(const CRect& title, const CRect& workArea, const PeriodRunMetrics& metrics)
{
    const int height = metrics.RowCount() * metrics.rowHeight + 2 * metrics.border;
    int rowsAbove = metrics.rowsAround;
    const auto topFor = [&](int rows) { return title.top - metrics.border - rows * metrics.rowHeight; };
    while (rowsAbove > 0 && topFor(rowsAbove) < workArea.top) {
        --rowsAbove;
    }
    while (rowsAbove < metrics.RowCount() - 1 && topFor(rowsAbove) + height > workArea.bottom) {
        ++rowsAbove;
    }
    const int top = FitInto(topFor(rowsAbove), height, workArea.top, workArea.bottom);
    const int left = FitInto(title.left, title.Width(), workArea.left, workArea.right);
    return {CRect(left, top, left + title.Width(), top + height), rowsAbove};
}

} // namespace dayvane
