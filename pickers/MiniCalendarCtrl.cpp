#include "pickers/MiniCalendarCtrl.h"

#include "core/DateMath.h"
#include "core/WindowHelpers.h"
#include "pickers/PeriodGridRecords.h"
#include "pickers/PeriodSelCtrl.h"

using namespace dayvane;

namespace {
const char kClassName[] = "MFCMiniCalendarCtrl";
} // namespace

void dayvane::SetPeriod(MonthRecord& record, int period)
{
    record.nYear = YearOfMonthNumber(period);
    record.nMonth = MonthOfMonthNumber(period);
}

template class CPeriodGridOf<MonthRecord>;

IMPLEMENT_DYNCREATE(CMiniCalendarCtrl, CPeriodGridCtrl)

CMiniCalendarCtrl::CMiniCalendarCtrl() : CPeriodGridOf(kMonthPolicy, kClassName)
{
    CMiniCalendarCtrl::Layout(0, 0);
}

void CMiniCalendarCtrl::RegisterWindowClass()
{
    RegisterControlClass(kClassName);
}

void CMiniCalendarCtrl::SetCurrentDate(int nYear, int nMonth)
{
    const COleDateTime first(nYear, nMonth, 1, 0, 0, 0);
    if (IsValid(first)) {
        m_state->model.SetFirstPeriod(PeriodOf(kMonthPolicy, first));
    }
}

CPeriodSelCtrl* CMiniCalendarCtrl::MakePopup(int nPeriod)
{
    return new CMonthSelCtrl(YearOfMonthNumber(nPeriod), MonthOfMonthNumber(nPeriod));
}

void CMiniCalendarCtrl::ShowWeekNumbers(BOOL bShow, WeekRule rule)
{
    ShowPolicy(bShow ? kNumberedMonthPolicy : kMonthPolicy);
    m_state->weekRule = rule;
}

BOOL CMiniCalendarCtrl::TodayHitTest(CPoint point) const
{
    return m_state->layout.footer.PtInRect(point);
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
    Painter(pDC).DrawWeekdays();
    Painter(pDC).DrawWeekNumbers();
}

void CMiniCalendarCtrl::DrawDays(CDC* pDC)
{
    Painter(pDC).DrawCells();
}

void CMiniCalendarCtrl::DrawToday(CDC* pDC)
{
    Painter(pDC).DrawFooter();
}
