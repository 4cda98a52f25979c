#include "pickers/PeriodSelCtrl.h"

#include "core/DrawingHelpers.h"
#include "pickers/PeriodRunPainter.h"
#include "pickers/PickerShell.h"

using namespace dayvane;

namespace {
constexpr UINT kPopupClassStyle = CS_BYTEALIGNCLIENT | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
constexpr DWORD kPopupExStyle = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TOPMOST;
} // namespace

IMPLEMENT_DYNAMIC(CPeriodSelCtrl, CWnd)
IMPLEMENT_DYNAMIC(CMonthSelCtrl, CPeriodSelCtrl)
IMPLEMENT_DYNAMIC(CYearSelCtrl, CPeriodSelCtrl)

BEGIN_MESSAGE_MAP(CPeriodSelCtrl, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_MOUSEACTIVATE()
END_MESSAGE_MAP()

CPeriodSelCtrl::CPeriodSelCtrl(const PeriodPolicy& policy, int nPeriod) : m_policy(policy), m_run(policy, nPeriod, 0)
{
}

CPeriodSelCtrl::~CPeriodSelCtrl()
{
    DestroyWindow();
}

BOOL CPeriodSelCtrl::Open(CWnd* pOwner, const CRect& rcTitle)
{
    const PopupPlace place = PlacePeriodRun(rcTitle, WorkAreaAt(rcTitle));
    const int width = place.window.Width() - 2 * kPeriodRunMetrics.border;
    m_run = PeriodRun(m_policy, m_run.Given(), width, place.rowsAbove);
    const LPCTSTR lpszClass = AfxRegisterWndClass(kPopupClassStyle, ::LoadCursor(nullptr, IDC_ARROW),
                                                  reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
    if (!CreateEx(kPopupExStyle, lpszClass, "", WS_POPUP | WS_BORDER, place.window, pOwner, 0)) {
        return FALSE;
    }
    ShowPopup(m_hWnd);
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

void CPeriodSelCtrl::OnPaint()
{
    CPaintDC dc(this);
    CMemDC memory(&dc);
    PeriodRunPainter(&memory, m_policy, m_run, m_fonts).Draw();
}

BOOL CPeriodSelCtrl::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

int CPeriodSelCtrl::OnMouseActivate(CWnd*, UINT, UINT)
{
    return MA_NOACTIVATE;
}

CMonthSelCtrl::CMonthSelCtrl(int nYear, int nMonth) : CPeriodSelCtrl(kMonthPolicy, nYear * kMonthsPerYear + nMonth - 1)
{
}

CYearSelCtrl::CYearSelCtrl(int nYear) : CPeriodSelCtrl(kYearPolicy, nYear)
{
}
