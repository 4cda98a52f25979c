#include "pickers/MiniCalendarCtrl.h"

using namespace dayvane;

namespace
{
const char kClassName[] = "MFCMiniCalendarCtrl";
} // namespace

IMPLEMENT_DYNCREATE(CMiniCalendarCtrl, CPeriodGridCtrl)

CMiniCalendarCtrl::CMiniCalendarCtrl() : CPeriodGridCtrl(kMonthPolicy, kClassName)
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

void CMiniCalendarCtrl::Layout(int cx, int cy)
{
    CPeriodGridCtrl::Layout(cx, cy);
    m_arMonthCells.SetSize(static_cast<INT_PTR>(m_layout.blocks.size()));
    for (size_t i = 0; i < m_layout.blocks.size(); ++i) {
        const PeriodBlock& block = m_layout.blocks[i];
        CMonthCell& month = m_arMonthCells[i];
        month.rcTitle = block.title;
        month.nYear = YearOfMonthNumber(block.period);
        month.nMonth = MonthOfMonthNumber(block.period);
        month.nRow = block.row;
        month.nCol = block.column;
        month.rcDays = block.cellArea;
        for (size_t k = 0; k < block.cells.size(); ++k) {
            month.arDays[k] = {block.cells[k].rect, block.cells[k].date};
        }
    }
}

BOOL CMiniCalendarCtrl::HitTest(CPoint point, CDayCell& cell) const
{
    const GridHit hit = CellAt(m_layout, point);
    if (hit.part != GridPart::Cell) {
        return FALSE;
    }
    cell = m_arMonthCells[hit.block].arDays[hit.cell];
    return TRUE;
}

const CMiniCalendarCtrl::CMonthCell* CMiniCalendarCtrl::HeaderHitTest(CPoint point) const
{
    const int block = TitleAt(m_layout, point);
    return block < 0 ? nullptr : &m_arMonthCells[block];
}

BOOL CMiniCalendarCtrl::TodayHitTest(CPoint point) const
{
    return m_layout.footer.PtInRect(point);
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

void CMiniCalendarCtrl::DrawHeader(CDC* pDC)
{
    Paint(pDC, &PeriodGridPainter::DrawHeader);
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
