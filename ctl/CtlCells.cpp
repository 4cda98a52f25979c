// Messages about the cells of mini calendars.
#include "CtlMessages.h"

#include "core/DateMath.h"

namespace dayvane::ctl {

namespace {

// The control asks for its cells while it lays itself out; no program is called then.
const MarkedCell* MarkOf(const COleDateTime& date, LPARAM control)
{
    const std::map<int, MarkedCell>& cells = reinterpret_cast<const CtlWindow*>(control)->cells;
    const auto found = cells.find(DayNumberOf(date));
    return found == cells.end() ? nullptr : &found->second;
}

BOOL IsBold(const COleDateTime& date, LPARAM control)
{
    const MarkedCell* mark = MarkOf(date, control);
    return mark && mark->isBold;
}

COLORREF DotColor(const COleDateTime& date, LPARAM control)
{
    const MarkedCell* mark = MarkOf(date, control);
    return mark ? mark->dot : CLR_NONE;
}

} // namespace

LRESULT OnSetCell(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const DV_CELL& cell = *reinterpret_cast<const DV_CELL*>(lParam);
    COleDateTime date;
    if ((wParam & ~static_cast<WPARAM>(DVU_LATER)) != 0) {
        return DVE_VALUE;
    }
    if (!ToDate(cell.stDate, date)) {
        return DVE_DATE;
    }
    if (control.miniYear) {
        date.SetDate(date.GetYear(), date.GetMonth(), 1);
    }
    control.cells[DayNumberOf(date)] = {cell.bBold != 0, cell.crDot};
    control.grid->SetBoldCallback(&IsBold, reinterpret_cast<LPARAM>(&control));
    control.grid->SetDotCallback(&DotColor, reinterpret_cast<LPARAM>(&control));
    if ((wParam & DVU_LATER) == 0) {
        Refresh(control);
    }
    return kDone;
}

LRESULT OnClearCells(CtlWindow& control, WPARAM, LPARAM)
{
    control.cells.clear();
    Refresh(control);
    return kDone;
}

} // namespace dayvane::ctl
