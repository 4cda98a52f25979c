// CMiniCalendarCtrl2: a grid of small year calendars that selects a month, or a range of months when asked to. What it
// shares with the calendar of days, such as notifications and keys, is described in PeriodGridCtrl.h.
//
// A year takes 120 x 100 pixels, the line that names the present month 20 pixels below all years. Ranges are off at
// first. A year chosen in the popup becomes the first year shown, whichever title opened it.
#pragma once

#include "PeriodGridCtrl.h"

namespace dayvane {
constexpr int kMiniYearCells = 12;

// A year of the grid.
struct YearRecord
{
    CRect rcTitle; // opens the popup
    int nYear;
    int nRow;      // from 1
    int nCol;      // from 1
    CRect rcCells; // all months
    CPeriodGridCell arCells[kMiniYearCells];
};
void SetPeriod(YearRecord& record, int period);
} // namespace dayvane

extern template class CPeriodGridOf<dayvane::YearRecord>;

class CMiniCalendarCtrl2 : public CPeriodGridOf<dayvane::YearRecord>
{
    DECLARE_DYNCREATE(CMiniCalendarCtrl2)

public:
    typedef CPeriodGridCell CMonthCell;
    typedef dayvane::YearRecord CYearCell;

    // Registers the window class "MFCMiniCalendarCtrl2" once per process; raises CResourceException when that fails.
    CMiniCalendarCtrl2();
    // The same without a control, for dialog templates that name the class.
    static void RegisterWindowClass();

    // The first year shown. A year outside 100 to 9999 changes nothing.
    void SetCurrentDate(int nYear);
    // One per shown year, row by row, as last laid out; fewer than rows x columns after the year 9999.
    const CRecordArray& GetYearCells() const { return m_arRecords; }
    BOOL ThisMonthHitTest(CPoint point) const;

protected:
    CPeriodSelCtrl* MakePopup(int nPeriod) override;
    void DrawCtrl(CDC* pDC) override;
    virtual void DrawMonths(CDC* pDC);
    virtual void DrawThisMonth(CDC* pDC); // the line below
};
