#include "pickers/PeriodGridModel.h"

#include <algorithm>
#include <initializer_list>

namespace dayvane {
namespace {
constexpr int kDefaultYear = 2000;

// An event that has been handled, with these effects.
GridEffects Handled(std::initializer_list<bool GridEffects::*> all = {})
{
    GridEffects effects;
    effects.handled = true;
    for (bool GridEffects::*effect : all) {
        effects.*effect = true;
    }
    return effects;
}
} // namespace

PeriodGridModel::PeriodGridModel(const PeriodPolicy& policy, const COleDateTime& now)
    : m_policy(&policy), m_sweeps(policy.sweepsByDefault)
{
    SetFirstPeriod(PeriodOf(policy, IsValid(now) ? now : COleDateTime(kDefaultYear, 1, 1, 0, 0, 0)));
    Unselect();
    m_beforeSweep = m_selection;
    m_anchor = NoDate();
}

void PeriodGridModel::SetGrid(int rows, int columns)
{
    m_rows = rows;
    m_columns = columns;
}

void PeriodGridModel::Select(const COleDateTime& start, const COleDateTime& end)
{
    m_selection = {start, end};
    m_anchor = CellDateOf(m_policy->unit, start);
    if (IsValid(start)) {
        SetFirstPeriod(PeriodOf(*m_policy, start));
    }
}

bool PeriodGridModel::IsSelected(const COleDateTime& date) const
{
    return HasSelection() && IsValid(date) && m_selection.start <= date && date <= m_selection.end;
}

bool PeriodGridModel::IsCellSelected(const COleDateTime& cellDate) const
{
    return HasSelection() && IsValid(cellDate) && m_selection.start <= m_selection.end &&
           CellDateOf(m_policy->unit, m_selection.start) <= cellDate &&
           cellDate <= CellDateOf(m_policy->unit, m_selection.end);
}

COleDateTime PeriodGridModel::Caret(const COleDateTime& now) const
{
    if (HasSelection()) {
        const COleDateTime start = CellDateOf(m_policy->unit, m_selection.start);
        const COleDateTime end = CellDateOf(m_policy->unit, m_selection.end);
        return IsValid(m_anchor) && m_anchor == end ? start : end;
    }
    if (IsValid(now)) {
        const int period = PeriodOf(*m_policy, now);
        if (period >= m_firstPeriod && period <= LastShownPeriod()) {
            return CellDateOf(m_policy->unit, now);
        }
    }
    return DateOfPeriod(*m_policy, m_firstPeriod);
}

GridEffects PeriodGridModel::Press(const GridHit& hit, const COleDateTime& cellDate, const COleDateTime& now)
{
    m_pressed = hit;
    switch (hit.part) {
    case GridPart::LeftArrow:
        return Page(-1);
    case GridPart::RightArrow:
        return Page(1);
    case GridPart::Title:
        m_mode = Mode::Choosing;
        m_clickedBlock = hit.block;
        return Handled({&GridEffects::openPopup, &GridEffects::capture, &GridEffects::redraw});
    case GridPart::Footer:
        return SelectNow(now);
    case GridPart::Cell:
        break;
    default:
        return {};
    }
    if (!IsValid(cellDate)) {
        return {};
    }
    m_beforeSweep = m_selection;
    SelectOnly(cellDate);
    if (!m_sweeps) {
        return Handled({&GridEffects::redraw, &GridEffects::notifyClick});
    }
    m_mode = Mode::Sweeping;
    return Handled({&GridEffects::capture, &GridEffects::redraw});
}

void PeriodGridModel::SelectOnly(const COleDateTime& cellDate)
{
    m_anchor = cellDate;
    m_selection = {cellDate, cellDate};
}

void PeriodGridModel::Sweep(const COleDateTime& from, const COleDateTime& to)
{
    m_selection = from <= to ? PeriodSelection{from, to} : PeriodSelection{to, from};
}

GridEffects PeriodGridModel::PointAt(const COleDateTime& cellDate)
{
    if (m_mode != Mode::Sweeping || !IsValid(cellDate)) {
        return {};
    }
    const PeriodSelection before = m_selection;
    Sweep(m_anchor, cellDate);
    GridEffects effects = Handled();
    effects.redraw = before.start != m_selection.start || before.end != m_selection.end;
    return effects;
}

GridEffects PeriodGridModel::Release(int chosenPeriod)
{
    const Mode mode = m_mode;
    m_mode = Mode::Idle;
    if (mode == Mode::Idle) {
        return {};
    }
    if (mode == Mode::Sweeping) {
        return Handled({&GridEffects::releaseCapture, &GridEffects::redraw, &GridEffects::notifyClick});
    }
    const int offset = m_policy->chosenPeriodStays ? std::max(m_clickedBlock, 0) : 0;
    SetFirstPeriod(chosenPeriod - offset);
    m_clickedBlock = -1;
    return Handled(
        {&GridEffects::closePopup, &GridEffects::releaseCapture, &GridEffects::layout, &GridEffects::redraw});
}

GridEffects PeriodGridModel::DoubleClick(const COleDateTime& cellDate)
{
    if (!IsValid(cellDate)) {
        return {};
    }
    SelectOnly(cellDate);
    return Handled({&GridEffects::redraw, &GridEffects::notifyDoubleClick});
}

GridEffects PeriodGridModel::Cancel()
{
    const Mode mode = m_mode;
    m_mode = Mode::Idle;
    m_pressed = {};
    if (mode == Mode::Idle) {
        return {};
    }
    if (mode == Mode::Sweeping) {
        m_selection = m_beforeSweep;
    }
    m_clickedBlock = -1;
    GridEffects effects = Handled({&GridEffects::releaseCapture, &GridEffects::redraw});
    effects.closePopup = mode == Mode::Choosing;
    return effects;
}

GridEffects PeriodGridModel::Page(int periods)
{
    SetFirstPeriod(m_firstPeriod + periods);
    return Handled({&GridEffects::layout, &GridEffects::redraw});
}

GridEffects PeriodGridModel::SweepBeyond(int side)
{
    if (m_mode != Mode::Sweeping || side == 0) {
        return {};
    }
    const GridEffects effects = Page(side);
    Sweep(m_anchor, side < 0 ? DateOfPeriod(*m_policy, m_firstPeriod) : LastCellOf(*m_policy, LastShownPeriod()));
    return effects;
}

GridEffects PeriodGridModel::SelectNow(const COleDateTime& now)
{
    if (!IsValid(now)) {
        return {};
    }
    Select(now, now);
    return Handled({&GridEffects::layout, &GridEffects::redraw, &GridEffects::notifyClick});
}

GridEffects PeriodGridModel::Key(PickerKey key, bool shift, bool control, const COleDateTime& now)
{
    if (key == PickerKey::None) {
        return {};
    }
    if (key == PickerKey::Escape) {
        return Cancel();
    }
    if (m_mode != Mode::Idle) {
        return Handled(); // ignored while the mouse is selecting
    }
    if (key == PickerKey::Today) {
        return SelectNow(now);
    }
    if (key != PickerKey::Enter) {
        return MoveCaret(key, shift && m_sweeps, control, now);
    }
    GridEffects effects = Handled();
    if (!HasSelection()) {
        effects = SelectCell(Caret(now), false);
        effects.notifyClick = false;
    }
    effects.redraw = effects.notifyDoubleClick = true;
    return effects;
}

GridEffects PeriodGridModel::MoveCaret(PickerKey key, bool extend, bool control, const COleDateTime& now)
{
    const COleDateTime caret = Caret(now);
    const CellUnit unit = m_policy->unit;
    const int period = PeriodOf(*m_policy, caret);
    const int page = control ? m_policy->periodsPerLongPage : 1;
    switch (key) {
    case PickerKey::Left:
        return SelectCell(AddCells(unit, caret, -1), extend);
    case PickerKey::Right:
        return SelectCell(AddCells(unit, caret, 1), extend);
    case PickerKey::Up:
        return SelectCell(AddCells(unit, caret, -m_policy->cellColumns), extend);
    case PickerKey::Down:
        return SelectCell(AddCells(unit, caret, m_policy->cellColumns), extend);
    case PickerKey::PageUp:
        return SelectCell(AddPeriods(*m_policy, caret, -page), extend);
    case PickerKey::PageDown:
        return SelectCell(AddPeriods(*m_policy, caret, page), extend);
    case PickerKey::Home:
        return SelectCell(DateOfPeriod(*m_policy, control ? m_firstPeriod : period), extend);
    case PickerKey::End:
        return SelectCell(LastCellOf(*m_policy, control ? LastShownPeriod() : period), extend);
    default:
        return {};
    }
}

GridEffects PeriodGridModel::SelectCell(const COleDateTime& cellDate, bool extend)
{
    if (extend && HasSelection() && IsValid(m_anchor)) {
        Sweep(m_anchor, cellDate);
    } else {
        SelectOnly(cellDate);
    }
    GridEffects effects = Handled({&GridEffects::redraw, &GridEffects::notifyClick});
    effects.layout = ShowCell(cellDate);
    return effects;
}

bool PeriodGridModel::ShowCell(const COleDateTime& cellDate)
{
    const int before = m_firstPeriod;
    const int period = PeriodOf(*m_policy, cellDate);
    if (period < m_firstPeriod) {
        SetFirstPeriod(period);
    } else if (period > LastShownPeriod()) {
        SetFirstPeriod(period - BlockCount() + 1);
    }
    return before != m_firstPeriod;
}

int PeriodGridModel::BlockCount() const
{
    // More blocks than there are periods never show.
    const long long count = static_cast<long long>(std::max(m_rows, 1)) * std::max(m_columns, 1);
    return static_cast<int>(std::min<long long>(count, m_policy->LastPeriod()));
}

int PeriodGridModel::LastShownPeriod() const
{
    return std::min(m_firstPeriod + BlockCount() - 1, m_policy->LastPeriod());
}

bool PeriodGridModel::Hover(const GridHit& hit)
{
    const bool changed = m_hot != hit;
    m_hot = hit;
    return changed;
}

} // namespace dayvane
