// CMiniCalendarCtrl: a grid of small month calendars that selects a day or a range of days. What it shares with the
// calendar of months, notifications and keys among it, is told in pickers/PeriodGridCtrl.h.
//
// A month takes 130 x 130 pixels, the line that names today 20 pixels below all months. Ranges are on at first.
#pragma once

#include "pickers/PeriodGridCtrl.h"

class CMiniCalendarCtrl : public CPeriodGridCtrl
{
    DECLARE_DYNCREATE(CMiniCalendarCtrl)

public:
    // A day; its date is invalid in the cells beyond the years 100 to 9999, which select nothing.
    struct CDayCell
    {
        CRect rcCell;
        COleDateTime dtDate;
    };
    // A month. Its days run from the first day of the week on, those of the neighbour months included.
    struct CMonthCell
    {
        CRect rcTitle; // opens the popup
        int nYear;
        int nMonth;    // 1 .. 12
        int nRow;      // from 1
        int nCol;      // from 1
        CRect rcDays;
        CDayCell arDays[dayvane::kMaxPeriodCells];
    };
    typedef CArray<CMonthCell, const CMonthCell&> CMonthCellArray;

    // Registers the window class "MFCMiniCalendarCtrl" once per process; raises CResourceException when that fails.
    CMiniCalendarCtrl();
    // The same without a control, for dialog templates that name the class.
    static void RegisterWindowClass();

    // The first month shown. A month that does not exist changes nothing.
    void SetCurrentDate(int nYear, int nMonth);
    // One per shown month, row by row, as last laid out; fewer than rows x columns at the end of the year 9999.
    const CMonthCellArray& GetMonthCells() const { return m_arMonthCells; }
    void Layout(int cx, int cy) override;

    BOOL HitTest(CPoint point, CDayCell& cell) const;
    const CMonthCell* HeaderHitTest(CPoint point) const; // into GetMonthCells(); nullptr: no title there
    BOOL TodayHitTest(CPoint point) const;

protected:
    CPeriodSelCtrl* MakePopup(int nPeriod) override;
    void DrawCtrl(CDC* pDC) override;
    virtual void DrawHeader(CDC* pDC);    // titles and arrows
    virtual void DrawDayOfWeek(CDC* pDC); // the lines of weekday names
    virtual void DrawDays(CDC* pDC);
    virtual void DrawToday(CDC* pDC);     // the line below

    CMonthCellArray m_arMonthCells;
};
