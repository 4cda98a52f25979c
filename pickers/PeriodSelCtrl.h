// The popups that a mini calendar opens from a title while the left button is held: a list of months or years that
// runs under the pointer. They take no focus and no mouse input themselves; the control that opens one hands them the
// pointer and the intervals of its timer, asks for the choice on release and closes them.
#pragma once

#include "../core/PopupWindow.h"
#include "PeriodRun.h"
#include "PickerPaint.h"

class CPeriodGridCtrl;
namespace dayvane {
class PeriodSelAccess;
}

class CPeriodSelCtrl : public CPopupWnd
{
    DECLARE_DYNAMIC(CPeriodSelCtrl)

public:
    // Opens the list over a title (screen pixels), kept on the monitor's work area. FALSE: no window could be made,
    // and the object is gone. The owner learns of the end by OnPopupGone.
    BOOL Open(CPeriodGridCtrl* pOwner, const CRect& rcTitle);
    // The pointer has moved to, or the button is held at, a screen point.
    void PointAt(CPoint ptScreen);
    // One interval of dayvane::kRunInterval milliseconds has passed.
    void Tick();
    // FALSE while the pointer is outside, on an empty row, or the window is gone: releasing the button then changes
    // nothing.
    BOOL HasChoice() const { return m_hWnd && m_run.HasChoice(); }
    // The period under the pointer; the given one while there is no choice.
    int GetPeriod() const { return m_run.Chosen(); }
    int GetGivenPeriod() const { return m_run.Given(); }
    // The screen rectangle of the row that shows a period; empty when none does.
    CRect GetPeriodRect(int nPeriod) const;

protected:
    friend class dayvane::PeriodSelAccess;
    CPeriodSelCtrl(const dayvane::PeriodPolicy& policy, int nPeriod);

    void DrawPopup(CDC* pDC) override;
    void OnGone() override;

    CPeriodGridCtrl* m_pOwner = nullptr; // nullptr until it is open
    const dayvane::PeriodPolicy& m_policy;
    dayvane::PeriodRun m_run;
    dayvane::PickerFonts m_fonts{dayvane::kTextFont};
    CalendarTheme m_theme; // the owner's when it opened
};

// Months around the given one.
class CMonthSelCtrl : public CPeriodSelCtrl
{
    DECLARE_DYNAMIC(CMonthSelCtrl)

public:
    CMonthSelCtrl(int nYear, int nMonth);
    int GetYear() const { return dayvane::YearOfMonthNumber(GetPeriod()); }
    int GetMonth() const { return dayvane::MonthOfMonthNumber(GetPeriod()); } // 1 .. 12
};

// Years around the given one.
class CYearSelCtrl : public CPeriodSelCtrl
{
    DECLARE_DYNAMIC(CYearSelCtrl)

public:
    explicit CYearSelCtrl(int nYear);
    int GetYear() const { return GetPeriod(); }
};
