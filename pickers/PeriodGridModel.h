// The state of a mini calendar and what each act of the user does to it, without a window: events go in, effects come
// out. The control applies the effects in the order in which GridEffects lists them.
#pragma once

#include "PeriodGridLayout.h"
#include "PickerKey.h"

namespace dayvane {

struct GridEffects
{
    bool handled = false; // FALSE for a key that means nothing here and may be passed on
    bool closePopup = false;
    bool releaseCapture = false;
    bool layout = false;
    bool capture = false;
    bool openPopup = false; // at the clicked block
    bool redraw = false;
    bool notifyClick = false;
    bool notifyDoubleClick = false;
};

// Both bounds as given; empty when both are invalid.
struct PeriodSelection
{
    COleDateTime start;
    COleDateTime end;
};

class PeriodGridModel
{
public:
    enum class Mode
    {
        Idle,
        Sweeping, // the left button is held and sweeps a range
        Choosing  // the left button is held and runs through the popup
    };

    // Shows the period of `now`; January or the year 2000 when there is no valid now.
    PeriodGridModel(const PeriodPolicy& policy, const COleDateTime& now);

    const PeriodPolicy& Policy() const { return *m_policy; }
    Mode GetMode() const { return m_mode; }

    // ---- What is shown. Rows and columns are kept as given; what is less than 1 shows as 1.
    void SetGrid(int rows, int columns);
    int Rows() const { return m_rows; }
    int Columns() const { return m_columns; }
    int FirstPeriod() const { return m_firstPeriod; }
    // Kept within the years 100 to 9999.
    void SetFirstPeriod(int period) { m_firstPeriod = ClampPeriod(*m_policy, period); }
    int FirstDayOfWeek() const { return m_firstDayOfWeek; }
    void SetFirstDayOfWeek(int weekday) { m_firstDayOfWeek = weekday; }

    // ---- Selection.
    const PeriodSelection& Selection() const { return m_selection; }
    void Select(const COleDateTime& start, const COleDateTime& end); // shows the start's period
    void Unselect() { m_selection = {NoDate(), NoDate()}; }
    // Both bounds are valid and start <= date <= end, compared with their times of day.
    bool IsSelected(const COleDateTime& date) const;
    // The same for a whole cell: some part of it lies between the bounds' cells. What is painted as selected.
    bool IsCellSelected(const COleDateTime& cellDate) const;
    bool Sweeps() const { return m_sweeps; }
    void SetSweeps(bool sweeps) { m_sweeps = sweeps; }
    // The cell that the keyboard moves from: the end of the selection that moved last; without a selection the present
    // cell when it is shown, else the first one shown.
    COleDateTime Caret(const COleDateTime& now) const;

    // ---- Acts of the user. A date is the cell's under the pointer, invalid when there is none.
    GridEffects Press(const GridHit& hit, const COleDateTime& cellDate, const COleDateTime& now);
    GridEffects PointAt(const COleDateTime& cellDate);
    // The button was released; chosenPeriod is the popup's choice and counts while it is open.
    GridEffects Release(int chosenPeriod);
    GridEffects DoubleClick(const COleDateTime& cellDate);
    GridEffects Key(PickerKey key, bool shift, bool control, const COleDateTime& now);
    // Ends a sweep or the popup and restores what was before: lost capture or focus, Escape, the window's end.
    GridEffects Cancel();
    // Moves what is shown by a number of periods.
    GridEffects Page(int periods);
    // A sweep is held before the first cell (-1) or after the last (1): pages, and selects up to the first or last cell
    // shown then.
    GridEffects SweepBeyond(int side);
    int ClickedBlock() const { return m_clickedBlock; } // whose title opened the popup; -1: none

    // ---- Hot and pressed parts
    bool Hover(const GridHit& hit);  // returns whether something changed
    void LetGo() { m_pressed = {}; } // no part is pressed any more
    const GridHit& Hot() const { return m_hot; }
    const GridHit& Pressed() const { return m_pressed; }

private:
    bool HasSelection() const { return IsValid(m_selection.start) && IsValid(m_selection.end); }
    void SelectOnly(const COleDateTime& cellDate);
    GridEffects SelectNow(const COleDateTime& now);
    GridEffects SelectCell(const COleDateTime& cellDate, bool extend);
    GridEffects MoveCaret(PickerKey key, bool extend, bool control, const COleDateTime& now);
    void Sweep(const COleDateTime& from, const COleDateTime& to);
    bool ShowCell(const COleDateTime& cellDate); // returns whether the shown periods moved
    int BlockCount() const;
    int LastShownPeriod() const;

    const PeriodPolicy* m_policy;
    int m_rows = 1;
    int m_columns = 1;
    int m_firstPeriod = 0;
    int m_firstDayOfWeek = 1;
    Mode m_mode = Mode::Idle;
    bool m_sweeps;
    PeriodSelection m_selection;
    PeriodSelection m_beforeSweep;
    COleDateTime m_anchor;
    int m_clickedBlock = -1;
    GridHit m_hot;
    GridHit m_pressed;
};

} // namespace dayvane
