#include "pickers/MiniCalendarCtrl.h"

using namespace dayvane;

namespace {
const char kClassName[] = "MFCMiniCalendarCtrl";
} // namespace

void dayvane::SetPeriod(MonthRecord& record, int period)
{
    record.nYear = YearOfMonthNumber(period);
    record.nMonth = MonthOfMonthNumber(period);
}

IMPLEMENT_DYNCREATE(CMiniCalendarCtrl, CPeriodGridCtrl)

CMiniCalendarCtrl::CMiniCalendarCtrl() : CPeriodGridOf(kMonthPolicy, kClassName)
{
    CMiniCalendarCtrl::Layout(0, 0);
}

void CMiniCalendarCtrl::RegisterWindowClass()
{
    CPeriodGridCtrl::RegisterWindowClass(kClassName);
}

void CMiniCalendarCtrl::SetCurrentDate(int nYear, int nMonth)
{
    const COleDateTime first(nYear, nMonth, 1, 0, 0, 0);
    if (first.GetStatus() == COleDateTime::valid) {
        m_model.SetFirstPeriod(PeriodOf(kMonthPolicy, first));
    }
}

CPeriodSelCtrl* CMiniCalendarCtrl::MakePopup(int nPeriod)
{
    return new CMonthSelCtrl(YearOfMonthNumber(nPeriod), MonthOfMonthNumber(nPeriod));
}

void CMiniCalendarCtrl::DrawCtrl(CDC* pDC)
{
    DrawBackground(pDC);
    DrawHeader(pDC);
    DrawDayOfWeek(pDC);
    DrawDays(pDC);
    DrawToday(pDC);
}

void CMiniCalendarCtrl::DrawDayOfWeek(CDC* pDC)
{
    Paint(pDC, &PeriodGridPainter::DrawWeekdays);
}

void CMiniCalendarCtrl::DrawDays(CDC* pDC)
{
    Paint(pDC, &PeriodGridPainter::DrawCells);
}

void CMiniCalendarCtrl::DrawToday(CDC* pDC)
{
    Paint(pDC, &PeriodGridPainter::DrawFooter);
}
