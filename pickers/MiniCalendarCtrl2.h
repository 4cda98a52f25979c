// CMiniCalendarCtrl2: a grid of small year calendars that selects a month, or a range of months when asked to. What it
// shares with the calendar of days, notifications and keys among it, is told in pickers/PeriodGridCtrl.h.
//
// A year takes 120 x 100 pixels, the line that names the present month 20 pixels below all years. Ranges are off at
// first. A year chosen in the popup becomes the first year shown, whichever title opened it.
#pragma once

#include "pickers/PeriodGridCtrl.h"

class CMiniCalendarCtrl2 : public CPeriodGridCtrl
{
    DECLARE_DYNCREATE(CMiniCalendarCtrl2)

public:
    struct CMonthCell
    {
        CRect rcCell;
        COleDateTime dtDate; // the month's first day, 00:00
    };
    struct CYearCell
    {
        CRect rcTitle; // opens the popup
        int nYear;
        int nRow;      // from 1
        int nCol;      // from 1
        CRect rcMonths;
        CMonthCell arMonths[dayvane::kMonthsPerYear];
    };
    typedef CArray<CYearCell, const CYearCell&> CYearCellArray;

    // Registers the window class "MFCMiniCalendarCtrl2" once per process; raises CResourceException when that fails.
    CMiniCalendarCtrl2();
    // The same without a control, for dialog templates that name the class.
    static void RegisterWindowClass();

    // The first year shown. A year outside 100 to 9999 changes nothing.
    void SetCurrentDate(int nYear);
    // One per shown year, row by row, as last laid out; fewer than rows x columns after the year 9999.
    const CYearCellArray& GetYearCells() const { return m_arYearCells; }
    void Layout(int cx, int cy) override;

    BOOL HitTest(CPoint point, CMonthCell& cell) const;
    const CYearCell* HeaderHitTest(CPoint point) const; // into GetYearCells(); nullptr: no title there
    BOOL ThisMonthHitTest(CPoint point) const;

protected:
    CPeriodSelCtrl* MakePopup(int nPeriod) override;
    void DrawCtrl(CDC* pDC) override;
    virtual void DrawHeader(CDC* pDC); // titles and arrows
    virtual void DrawMonths(CDC* pDC);
    virtual void DrawThisMonth(CDC* pDC); // the line below

    CYearCellArray m_arYearCells;
};
