#include "pickers/MiniCalendarCtrl2.h"

using namespace dayvane;

namespace
{
const char kClassName[] = "MFCMiniCalendarCtrl2";
} // namespace

IMPLEMENT_DYNCREATE(CMiniCalendarCtrl2, CPeriodGridCtrl)

CMiniCalendarCtrl2::CMiniCalendarCtrl2() : CPeriodGridCtrl(kYearPolicy, kClassName)
{
    CMiniCalendarCtrl2::Layout(0, 0);
}

void CMiniCalendarCtrl2::RegisterWindowClass()
{
    CPeriodGridCtrl::RegisterWindowClass(kClassName);
}

void CMiniCalendarCtrl2::SetCurrentDate(int nYear)
{
    if (nYear == ClampPeriod(kYearPolicy, nYear)) {
        m_model.SetFirstPeriod(nYear);
    }
}

void CMiniCalendarCtrl2::Layout(int cx, int cy)
{
    CPeriodGridCtrl::Layout(cx, cy);
    m_arYearCells.SetSize(static_cast<INT_PTR>(m_layout.blocks.size()));
    for (size_t i = 0; i < m_layout.blocks.size(); ++i) {
        const PeriodBlock& block = m_layout.blocks[i];
        CYearCell& year = m_arYearCells[i];
        year.rcTitle = block.title;
        year.nYear = block.period;
        year.nRow = block.row;
        year.nCol = block.column;
        year.rcMonths = block.cellArea;
        for (size_t k = 0; k < block.cells.size(); ++k) {
            year.arMonths[k] = {block.cells[k].rect, block.cells[k].date};
        }
    }
}

BOOL CMiniCalendarCtrl2::HitTest(CPoint point, CMonthCell& cell) const
{
    const GridHit hit = CellAt(m_layout, point);
    if (hit.part != GridPart::Cell) {
        return FALSE;
    }
    cell = m_arYearCells[hit.block].arMonths[hit.cell];
    return TRUE;
}

const CMiniCalendarCtrl2::CYearCell* CMiniCalendarCtrl2::HeaderHitTest(CPoint point) const
{
    const int block = TitleAt(m_layout, point);
    return block < 0 ? nullptr : &m_arYearCells[block];
}

BOOL CMiniCalendarCtrl2::ThisMonthHitTest(CPoint point) const
{
    return m_layout.footer.PtInRect(point);
}

CPeriodSelCtrl* CMiniCalendarCtrl2::MakePopup(int nPeriod)
{
    return new CYearSelCtrl(nPeriod);
}

void CMiniCalendarCtrl2::DrawCtrl(CDC* pDC)
{
    DrawBackground(pDC);
    DrawHeader(pDC);
    DrawMonths(pDC);
    DrawThisMonth(pDC);
}

void CMiniCalendarCtrl2::DrawHeader(CDC* pDC)
{
    Paint(pDC, &PeriodGridPainter::DrawHeader);
}

void CMiniCalendarCtrl2::DrawMonths(CDC* pDC)
{
    Paint(pDC, &PeriodGridPainter::DrawCells);
}

void CMiniCalendarCtrl2::DrawThisMonth(CDC* pDC)
{
    Paint(pDC, &PeriodGridPainter::DrawFooter);
}
