#include "pickers/MiniCalendarCtrl2.h"

#include "core/WindowHelpers.h"
#include "pickers/PeriodGridRecords.h"
#include "pickers/PeriodSelCtrl.h"

using namespace dayvane;

namespace {
const char kClassName[] = "MFCMiniCalendarCtrl2";
} // namespace

void dayvane::SetPeriod(YearRecord& record, int period)
{
    record.nYear = period;
}

template class CPeriodGridOf<YearRecord>;

IMPLEMENT_DYNCREATE(CMiniCalendarCtrl2, CPeriodGridCtrl)

CMiniCalendarCtrl2::CMiniCalendarCtrl2() : CPeriodGridOf(kYearPolicy, kClassName)
{
    CMiniCalendarCtrl2::Layout(0, 0);
}

void CMiniCalendarCtrl2::RegisterWindowClass()
{
    RegisterControlClass(kClassName);
}

void CMiniCalendarCtrl2::SetCurrentDate(int nYear)
{
    if (nYear == ClampPeriod(kYearPolicy, nYear)) {
        m_state->model.SetFirstPeriod(nYear);
    }
}

CPeriodSelCtrl* CMiniCalendarCtrl2::MakePopup(int nPeriod)
{
    return new CYearSelCtrl(nPeriod);
}

BOOL CMiniCalendarCtrl2::ThisMonthHitTest(CPoint point) const
{
    return m_state->layout.footer.PtInRect(point);
}

void CMiniCalendarCtrl2::DrawCtrl(CDC* pDC)
{
    DrawBackground(pDC);
    DrawHeader(pDC);
    DrawMonths(pDC);
    DrawThisMonth(pDC);
}

void CMiniCalendarCtrl2::DrawMonths(CDC* pDC)
{
    Painter(pDC).DrawCells();
}

void CMiniCalendarCtrl2::DrawThisMonth(CDC* pDC)
{
    Painter(pDC).DrawFooter();
}
