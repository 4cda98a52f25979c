#include "pickers/PeriodSelCtrl.h"

#include "pickers/PeriodGridCtrl.h"
#include "pickers/PeriodGridPainter.h"

using namespace dayvane;

namespace {
constexpr UINT kPopupClassStyle = CS_BYTEALIGNCLIENT | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
} // namespace

IMPLEMENT_DYNAMIC(CPeriodSelCtrl, CPopupWnd)
IMPLEMENT_DYNAMIC(CMonthSelCtrl, CPeriodSelCtrl)
IMPLEMENT_DYNAMIC(CYearSelCtrl, CPeriodSelCtrl)

CPeriodSelCtrl::CPeriodSelCtrl(const PeriodPolicy& policy, int nPeriod) : m_policy(policy), m_run(policy, nPeriod, 0)
{
}

BOOL CPeriodSelCtrl::Open(CPeriodGridCtrl* pOwner, const CRect& rcTitle)
{
    const PeriodRunMetrics metrics = kPeriodRunMetrics.At(pOwner->GetViewScale());
    const PopupPlace place = PlacePeriodRun(rcTitle, WorkAreaAt(rcTitle), metrics);
    const int width = place.window.Width() - 2 * metrics.border;
    m_run = PeriodRun(m_policy, m_run.Given(), width, place.rowsAbove, metrics);
    m_fonts.Show(pOwner->GetViewScale(), pOwner->GetTextFont());
    const LPCTSTR lpszClass = AfxRegisterWndClass(kPopupClassStyle, ::LoadCursor(nullptr, IDC_ARROW),
                                                  reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
    m_pOwner = pOwner;
    m_theme = pOwner->GetTheme();
    if (!CreatePopup(lpszClass, WS_BORDER, place.window, pOwner)) {
        return FALSE;
    }
    UpdateWindow();
    return TRUE;
}

void CPeriodSelCtrl::PointAt(CPoint ptScreen)
{
    if (m_hWnd) {
        ScreenToClient(&ptScreen);
        if (m_run.PointAt(ptScreen)) {
            Invalidate(FALSE);
        }
    }
}

void CPeriodSelCtrl::Tick()
{
    if (m_run.Tick() && m_hWnd) {
        Invalidate(FALSE);
        UpdateWindow();
    }
}

CRect CPeriodSelCtrl::GetPeriodRect(int nPeriod) const
{
    const int row = nPeriod - m_run.PeriodOfRow(0);
    CRect rect(0, 0, 0, 0);
    if (m_hWnd && m_run.HasPeriod(row)) {
        rect = m_run.RowRect(row);
        ClientToScreen(&rect);
    }
    return rect;
}

void CPeriodSelCtrl::DrawPopup(CDC* pDC)
{
    const CalendarTexts& texts = m_pOwner ? m_pOwner->GetTexts() : *RequiredTexts();
    const bool eras = m_pOwner && m_pOwner->IsShowEraTitles();
    PeriodRunPainter(pDC, {m_policy, m_run, m_fonts, m_theme, texts, eras}).Draw();
}

void CPeriodSelCtrl::OnGone()
{
    if (m_pOwner) {
        m_pOwner->OnPopupGone(this);
    }
}

CMonthSelCtrl::CMonthSelCtrl(int nYear, int nMonth) : CPeriodSelCtrl(kMonthPolicy, nYear * kMonthsPerYear + nMonth - 1)
{
}

CYearSelCtrl::CYearSelCtrl(int nYear) : CPeriodSelCtrl(kYearPolicy, nYear)
{
}
