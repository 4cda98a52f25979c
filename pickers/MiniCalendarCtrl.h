// CMiniCalendarCtrl: a grid of small month calendars that selects a day or a range of days. What it shares with the
// calendar of months, such as notifications and keys, is described in PeriodGridCtrl.h.
//
// A month takes 130 x 130 pixels, the line that names today 20 pixels below all months. Ranges are on at first.
#pragma once

#include "../calc/WeekNumbers.h"
#include "PeriodGridCtrl.h"

namespace dayvane {
constexpr int kMiniMonthCells = 42; // six weeks

// A month of the grid. Its days run from the first day of the week on, those of the neighbour months included.
struct MonthRecord
{
    CRect rcTitle; // opens the popup
    int nYear;
    int nMonth;    // 1 .. 12
    int nRow;      // from 1
    int nCol;      // from 1
    CRect rcCells; // all days
    CPeriodGridCell arCells[kMiniMonthCells];
};
void SetPeriod(MonthRecord& record, int period);
} // namespace dayvane

extern template class CPeriodGridOf<dayvane::MonthRecord>;

class CMiniCalendarCtrl : public CPeriodGridOf<dayvane::MonthRecord>
{
    DECLARE_DYNCREATE(CMiniCalendarCtrl)

public:
    typedef CPeriodGridCell CDayCell;
    typedef dayvane::MonthRecord CMonthCell;

    // Registers the window class "MFCMiniCalendarCtrl" once per process; raises CResourceException when that fails.
    CMiniCalendarCtrl();
    // The same without a control, for dialog templates that name the class.
    static void RegisterWindowClass();

    // The first month shown. A month that does not exist changes nothing.
    void SetCurrentDate(int nYear, int nMonth);
    // One per shown month, row by row, as last laid out; fewer than rows x columns at the end of the year 9999.
    const CRecordArray& GetMonthCells() const { return m_arRecords; }
    // A column of week numbers left of the days; a month then takes 149 x 130 pixels, also in RecalcRowAndCol. Weeks
    // begin on the first day of the week; with Monday and the default rule they are those of ISO 8601.
    void ShowWeekNumbers(BOOL bShow, dayvane::WeekRule rule = dayvane::WeekRule::FirstFourDayWeek);
    BOOL TodayHitTest(CPoint point) const;

protected:
    CPeriodSelCtrl* MakePopup(int nPeriod) override;
    void DrawCtrl(CDC* pDC) override;
    virtual void DrawDayOfWeek(CDC* pDC); // the lines of weekday names
    virtual void DrawDays(CDC* pDC);
    virtual void DrawToday(CDC* pDC); // the line below
};
