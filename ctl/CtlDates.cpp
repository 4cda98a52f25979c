// Messages about dates, ranges of time and the selection.
#include "CtlMessages.h"
#include "core/DateMath.h"
#include "CtlText.h"

namespace dayvane::ctl {

namespace {

DV_RANGE& RangeOf(LPARAM lParam)
{
    return *reinterpret_cast<DV_RANGE*>(lParam);
}

void Fill(DV_RANGE& range, const COleDateTime& first, const COleDateTime& last, bool isWholeDays)
{
    range.uFlags = isWholeDays ? DVR_WHOLEDAYS : 0;
    range.stFirst = FromDate(first);
    range.stLast = FromDate(last);
}

// Minutes from midnight, or -1 for none.
bool IsMinuteOrNone(int minute)
{
    return minute >= -1 && minute < 24 * 60;
}

} // namespace

LRESULT OnRefresh(CtlWindow& control, WPARAM, LPARAM)
{
    Refresh(control);
    return kDone;
}

LRESULT OnSetDate(CtlWindow& control, WPARAM, LPARAM lParam)
{
    COleDateTime date;
    if (!ToDate(*reinterpret_cast<const SYSTEMTIME*>(lParam), date)) {
        return DVE_DATE;
    }
    if (control.view) {
        control.view->SetCurrentDate(date);
    } else if (control.miniCalendar) {
        control.miniCalendar->SetCurrentDate(date.GetYear(), date.GetMonth());
    } else if (control.miniYear) {
        control.miniYear->SetCurrentDate(date.GetYear());
    } else {
        control.picker->SetCurrentDate(date);
    }
    Refresh(control);
    return kDone;
}

LRESULT OnGetDate(CtlWindow& control, WPARAM, LPARAM lParam)
{
    const COleDateTime date = control.view   ? control.view->GetCurrentDate()
                              : control.grid ? control.grid->GetCurrentDate()
                                             : control.picker->GetCurrentDate();
    *reinterpret_cast<SYSTEMTIME*>(lParam) = FromDate(date);
    return kDone;
}

LRESULT OnGetRange(CtlWindow& control, WPARAM, LPARAM lParam)
{
    COleDateTime first;
    COleDateTime last;
    control.view->GetViewRange(first, last);
    Fill(RangeOf(lParam), first, last, true);
    return kDone;
}

LRESULT OnGetSel(CtlWindow& control, WPARAM, LPARAM)
{
    return control.view->GetCurSel();
}

LRESULT OnSetSel(CtlWindow& control, WPARAM wParam, LPARAM)
{
    const int index = static_cast<int>(wParam);
    if (index != -1 && !IsItem(control, index)) {
        return DVE_INDEX;
    }
    CCalendarCtrl& view = *control.view;
    int shown = -1;
    for (int i = 0; index != -1 && shown == -1 && i < view.GetScreenItems().GetSize(); ++i) {
        shown = view.GetScreenItems()[i].nSource == index ? i : -1;
    }
    view.SetCurSel(index);
    view.SetSelScreenItem(shown);
    view.Invalidate(FALSE);
    return kDone;
}

LRESULT OnGetSelRange(CtlWindow& control, WPARAM, LPARAM lParam)
{
    COleDateTime first;
    COleDateTime last;
    bool isSelected;
    bool isWholeDays = true;
    if (control.view) {
        isSelected = control.view->GetSelRange(first, last) != 0;
        isWholeDays = control.view->IsWholeDaySelection() != FALSE;
    } else {
        control.grid->GetSel(first, last);
        isSelected = dayvane::IsValid(first) && dayvane::IsValid(last);
    }
    if (!isSelected) {
        return kNone;
    }
    Fill(RangeOf(lParam), first, last, isWholeDays);
    return kDone;
}

LRESULT OnSetSelRange(CtlWindow& control, WPARAM, LPARAM lParam)
{
    const DV_RANGE& range = RangeOf(lParam);
    COleDateTime first;
    COleDateTime last;
    if (!ToDate(range.stFirst, first) || !ToDate(range.stLast, last)) {
        return DVE_DATE;
    }
    if ((range.uFlags & ~DVR_WHOLEDAYS) != 0 || last < first) {
        return DVE_VALUE;
    }
    if (control.view) {
        control.view->SetSelRange(first, last, (range.uFlags & DVR_WHOLEDAYS) != 0);
        control.view->Refresh();
    } else {
        control.grid->SetSel(first, last);
    }
    return kDone;
}

LRESULT OnSetDay(CtlWindow& control, WPARAM, LPARAM lParam)
{
    const DV_DAY& day = *reinterpret_cast<const DV_DAY*>(lParam);
    COleDateTime date;
    if (!ToDate(day.stDate, date)) {
        return DVE_DATE;
    }
    const bool hasHours = day.nWorkFrom != -1 && day.nWorkTo != -1;
    if (day.nColor < 0 || day.nColor > CCalendarCtrl::m_arDayColors.GetSize() || !IsMinuteOrNone(day.nWorkFrom) ||
        !IsMinuteOrNone(day.nWorkTo) || (hasHours && day.nWorkTo < day.nWorkFrom)) {
        return DVE_VALUE;
    }
    tagCALENDAR_DAY_PROPERTY property;
    property.strText = StoreText(day.pszText);
    property.nDayColor = day.nColor;
    if (hasHours) {
        property.bUseMyWorkTime = TRUE;
        property.dtWorkStart = COleDateTime(1899, 12, 30, day.nWorkFrom / 60, day.nWorkFrom % 60, 0);
        property.dtWorkEnd = COleDateTime(1899, 12, 30, day.nWorkTo / 60, day.nWorkTo % 60, 0);
    }
    control.view->SetDayProperty(date, property);
    control.view->Refresh();
    return kDone;
}

LRESULT OnClearDays(CtlWindow& control, WPARAM, LPARAM)
{
    control.view->ClearDayProperty();
    control.view->Refresh();
    return kDone;
}

} // namespace dayvane::ctl
