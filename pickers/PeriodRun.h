// The list that opens over a title while the button is held: rows of periods around the given one. The row under the
// pointer is the choice; above and below the rows the list runs, the faster the farther the pointer is; beside them
// and while it runs nothing is chosen.
#pragma once

#include "PeriodPolicy.h"

namespace dayvane {

struct PeriodRunMetrics // pixels
{
    int rowHeight;
    int rowsAround; // above and below the given period
    int border;     // of the popup's frame, on each side

    int RowCount() const { return 2 * rowsAround + 1; }
    PeriodRunMetrics At(const ViewScale& scale) const { return {scale.Line(rowHeight), rowsAround, border}; }
};
constexpr PeriodRunMetrics kPeriodRunMetrics{20, 3, 1};

// The list's timer. The speed is in rows per second: slow at the edge, one more for every few pixels, up to a limit.
constexpr unsigned kRunTimerId = 1001;
constexpr int kRunInterval = 30; // milliseconds
struct PeriodRunSpeed
{
    int slowest;       // rows per second
    int pixelsPerStep; // of distance, for one row per second more
    int fastest;       // rows per second
};
constexpr PeriodRunSpeed kPeriodRunSpeed{4, 2, 60};

// Rows per second when the pointer is `distance` pixels beyond the list.
int RunSpeed(int distance);

class PeriodRun
{
public:
    // `width`: of the rows, pixels. `rowsAbove`: how many rows stand above the given period at first.
    PeriodRun(const PeriodPolicy& policy, int period, int width, int rowsAbove = kPeriodRunMetrics.rowsAround,
              const PeriodRunMetrics& metrics = kPeriodRunMetrics);

    CSize Size() const { return CSize(m_width, m_metrics.RowCount() * m_metrics.rowHeight); } // of all rows, pixels
    CRect RowRect(int row) const;                                                             // client pixels
    int PeriodOfRow(int row) const { return m_top + row; }
    bool HasPeriod(int row) const; // rows beyond the years 100 to 9999 are empty
    int Given() const { return m_given; }
    int HotRow() const; // -1: none
    bool HasChoice() const { return HotRow() >= 0; }
    int Chosen() const; // the hot row's period, else the given one
    // The pointer in client pixels; returns whether the picture changed.
    bool PointAt(CPoint point);
    // One interval of the timer has passed; returns whether the list moved.
    bool Tick();

private:
    int Distance() const; // pixels above (negative) or below (positive) the rows, 0 beside and among them
    bool Shift(int rows);

    const PeriodPolicy* m_policy;
    PeriodRunMetrics m_metrics;
    int m_given;
    int m_width;
    int m_rowsAbove;
    int m_top;
    CPoint m_pointer;
    bool m_hasPointer = false;
    int m_progress = 0; // thousandths of a row
};

// Where a popup list goes: its rowsAbove-th row lies over the title, both in screen pixels. What would leave the work
// area moves back by whole rows, so that a row still lies over the title and it is the given period's.
struct PopupPlace
{
    CRect window;
    int rowsAbove;
};
PopupPlace PlacePeriodRun(const CRect& title, const CRect& workArea,
                          const PeriodRunMetrics& metrics = kPeriodRunMetrics);

} // namespace dayvane
