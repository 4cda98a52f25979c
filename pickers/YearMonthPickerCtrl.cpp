#include "pickers/YearMonthPickerCtrl.h"

#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "core/DrawingHelpers.h"
#include "core/EraTitles.h"
#include "core/WindowHelpers.h"
#include "pickers/PickerPaint.h"
#include "pickers/PickerShell.h"
#include "pickers/YearMonthGrid.h"
#include "pickers/YearMonthPainter.h"
#include "pickers/YearMonthPopup.h"

using namespace dayvane;

namespace {
constexpr LRESULT kHandled = 1;

// The system's sizes are those of its own resolution, which is the control's unless the host says otherwise.
int SystemSize(int index, const ViewScale& scale)
{
    const int size = ::GetSystemMetrics(index);
    return scale.dpi == kBaseDpi ? size : MulDiv(size, scale.dpi, ScreenDpi());
}

PickerButtonMetrics ButtonMetrics(const ViewScale& scale)
{
    PickerButtonMetrics metrics = CalcPickerButton({SystemSize(SM_CXEDGE, scale), SystemSize(SM_CYEDGE, scale),
                                                    SystemSize(SM_CXHTHUMB, scale), SystemSize(SM_CYVTHUMB, scale)});
    metrics.height += scale.textGrowth;
    return metrics;
}
} // namespace

IMPLEMENT_DYNAMIC(CYearMonthPickerCtrl, CButton)

BEGIN_MESSAGE_MAP(CYearMonthPickerCtrl, CButton)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_MOUSEMOVE()
ON_WM_MOUSELEAVE()
ON_WM_KEYDOWN()
ON_WM_SYSKEYDOWN()
ON_WM_GETDLGCODE()
ON_WM_KILLFOCUS()
ON_CONTROL_REFLECT_EX(BN_CLICKED, &CYearMonthPickerCtrl::OnClicked)
ON_CONTROL_REFLECT_EX(BN_DOUBLECLICKED, &CYearMonthPickerCtrl::OnClicked)
ON_MESSAGE(WM_UPDATEUISTATE, &CYearMonthPickerCtrl::OnUpdateUIState)
ON_MESSAGE(WM_PRINTCLIENT, &CYearMonthPickerCtrl::OnPrintClient)
ON_MESSAGE(YMN_SELENDOK, &CYearMonthPickerCtrl::OnSelEndOK)
ON_MESSAGE(YMN_SELENDCANCEL, &CYearMonthPickerCtrl::OnSelEndCancel)
END_MESSAGE_MAP()

// ---- Lifetime

CYearMonthPickerCtrl::CYearMonthPickerCtrl()
    : m_dtCurrent(Now()), m_rcArrow(0, 0, 0, 0), m_pFonts(std::make_unique<PickerFonts>(kTextFont))
{
}

CYearMonthPickerCtrl::~CYearMonthPickerCtrl()
{
    DestroyWindow();
    if (m_pPopup) {
        m_pPopup->Abandon();
    }
}

void CYearMonthPickerCtrl::PreSubclassWindow()
{
    ModifyStyle(0, BS_OWNERDRAW);
    CButton::PreSubclassWindow();
    SetWindowSize();
}

int CYearMonthPickerCtrl::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CButton::OnCreate(lpCreateStruct) == -1) {
        return -1;
    }
    SetWindowSize();
    return 0;
}

void CYearMonthPickerCtrl::OnDestroy()
{
    if (m_pPopup) {
        m_pPopup->Abandon();
    }
    m_pPopup = nullptr;
    m_bDropped = FALSE;
    m_hWndParent = nullptr;
    CButton::OnDestroy();
}

void CYearMonthPickerCtrl::ApplyScale(int dpi)
{
    const WindowAlive alive(this, m_life);
    if (m_pPopup) {
        m_pPopup->Cancel();
    }
    if (!alive) {
        return;
    }
    StoreScale(dpi);
    m_pFonts->Show(m_scale, m_hostFont);
    if (m_hWnd) {
        SetWindowSize();
        Invalidate(FALSE);
    }
}

void CYearMonthPickerCtrl::SetWindowSize()
{
    m_hWndParent = ::GetParent(m_hWnd);
    const PickerButtonMetrics metrics = ButtonMetrics(m_scale);
    CRect rect;
    GetWindowRect(&rect);
    if (m_hWndParent) {
        ::MapWindowPoints(nullptr, m_hWndParent, reinterpret_cast<POINT*>(&rect), 2);
    }
    MoveWindow(rect.left, rect.top, std::max<int>(rect.Width(), metrics.minWidth), metrics.height, TRUE);
    const CRect client = ClientRectOf(*this);
    m_rcArrow = PickerArrowRect(metrics, client);
}

void CYearMonthPickerCtrl::OnSize(UINT nType, int cx, int cy)
{
    CButton::OnSize(nType, cx, cy);
    m_rcArrow = PickerArrowRect(ButtonMetrics(m_scale), CRect(0, 0, cx, cy));
    Invalidate(FALSE);
}

// ---- The popup

BOOL CYearMonthPickerCtrl::OnClicked()
{
    if (m_pPopup) {
        return TRUE;
    }
    const WindowAlive alive(this, m_life);
    m_bDropped = TRUE;
    const CivilDate fields = CivilDateOf(m_dtCurrent);
    OpenPopup();
    if (alive) {
        Invalidate(FALSE);
        Report(YMN_DROPDOWN, static_cast<WPARAM>(fields.year * kPackedPerYear + fields.month));
    }
    return TRUE;
}

void CYearMonthPickerCtrl::OpenPopup()
{
    CRect rect;
    GetWindowRect(&rect);
    const CivilDate fields = CivilDateOf(m_dtCurrent);
    try {
        m_pPopup = new CYearMonthPopup(fields.year, fields.month, this);
        m_pPopup->Open(CPoint(rect.right - kYearMonthMetrics.At(m_scale).popup.cx, rect.bottom));
    } catch (CException* e) {
        e->Delete(); // as when the system makes no window
        delete m_pPopup;
        m_pPopup = nullptr;
    }
}

void CYearMonthPickerCtrl::OnPopupGone(CYearMonthPopup* pPopup, BOOL bOpened)
{
    if (m_pPopup == pPopup) {
        m_pPopup = nullptr;
        // A popup that could not be made leaves the picker marked as dropped.
        m_bDropped = m_bDropped && !bOpened;
        Invalidate(FALSE);
    }
}

LRESULT CYearMonthPickerCtrl::OnSelEndOK(WPARAM wParam, LPARAM)
{
    const WindowAlive alive(this, m_life);
    m_bDropped = FALSE;
    Report(YMN_CLOSEUP, wParam);
    if (alive) {
        Report(YMN_SELENDOK, wParam);
    }
    const COleDateTime picked = DateOfPacked(static_cast<int>(wParam));
    if (alive && IsDateChange(m_dtCurrent, picked)) {
        Report(YMN_DATECHANGE, wParam);
    }
    if (alive) {
        m_dtCurrent = picked;
        Invalidate(FALSE);
    }
    return kHandled;
}

LRESULT CYearMonthPickerCtrl::OnSelEndCancel(WPARAM wParam, LPARAM)
{
    const WindowAlive alive(this, m_life);
    m_bDropped = FALSE;
    Invalidate(FALSE);
    Report(YMN_CLOSEUP, wParam);
    if (alive) {
        Report(YMN_SELENDCANCEL, wParam);
    }
    return kHandled;
}

void CYearMonthPickerCtrl::Report(UINT nMessage, WPARAM wParam)
{
    if (m_hWndParent) {
        ::SendMessage(m_hWndParent, nMessage, wParam, GetDlgCtrlID());
    }
}

// ---- Painting

void CYearMonthPickerCtrl::OnPaint()
{
    CPaintDC dc(this);
    CMemDC memory(&dc);
    DrawButton(&memory);
}

LRESULT CYearMonthPickerCtrl::OnPrintClient(WPARAM wParam, LPARAM)
{
    DrawButton(CDC::FromHandle(reinterpret_cast<HDC>(wParam)));
    return 0;
}

void CYearMonthPickerCtrl::DrawButton(CDC* pDC)
{
    const CRect client = ClientRectOf(*this);
    pDC->FillSolidRect(&client, PickerPaletteOf(m_theme).window);
    // The system's button painting sends WM_DRAWITEM to the parent, which reflects it to DrawItem.
    DefWindowProc(WM_PAINT, reinterpret_cast<WPARAM>(pDC->m_hDC), 0);
}

void CYearMonthPickerCtrl::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    CDC* pDC = CDC::FromHandle(lpDrawItemStruct->hDC);
    const SaveDcScope saved(pDC);
    CRect arrow = m_rcArrow;
    arrow.left = std::max<int>(arrow.left, arrow.right - SystemSize(SM_CXHTHUMB, m_scale));
    const UINT state = lpDrawItemStruct->itemState;
    const CString era = m_bEraTitles ? EraTitle(m_dtCurrent, m_dtCurrent, TitleUnit::Month) : CString();
    const std::u16string text = era.IsEmpty() ? DateText(*m_texts, m_texts->pickerMonth, m_dtCurrent) : OwnText(era);
    PickerFacePainter(pDC, {CRect(lpDrawItemStruct->rcItem), arrow, text, m_bDropped != FALSE, m_bHot != FALSE,
                            (state & ODS_DISABLED) != 0, ShowsFocus(m_hWnd), *m_pFonts, m_theme})
        .Draw();
}

void CYearMonthPickerCtrl::SetTexts(const CalendarTexts& texts)
{
    m_texts = std::make_shared<const CalendarTexts>(texts);
    if (m_hWnd) {
        Invalidate(FALSE);
    }
}

// ---- Mouse

void CYearMonthPickerCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    if (!m_bHot) {
        m_bHot = TRUE;
        TrackMouseLeave(m_hWnd);
        Invalidate(FALSE);
    }
    CButton::OnMouseMove(nFlags, point);
}

void CYearMonthPickerCtrl::OnMouseLeave()
{
    m_bHot = FALSE;
    Invalidate(FALSE);
    CButton::OnMouseLeave();
}

// ---- Keyboard and focus

void CYearMonthPickerCtrl::ToggleDrop()
{
    if (m_pPopup) {
        m_pPopup->Cancel();
    } else {
        OnClicked();
    }
}

void CYearMonthPickerCtrl::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    const WindowAlive alive(this, m_life);
    ShowFocusCues(m_hWnd); // reaches the host's windows, too
    if (!alive || (m_pPopup && m_pPopup->HandleKey(nChar))) {
        return;
    }
    if (nChar == VK_F4) {
        ToggleDrop();
    } else {
        CButton::OnKeyDown(nChar, nRepCnt, nFlags);
    }
}

void CYearMonthPickerCtrl::OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (nChar == VK_DOWN || nChar == VK_UP) {
        ToggleDrop();
    } else {
        CButton::OnSysKeyDown(nChar, nRepCnt, nFlags);
    }
}

UINT CYearMonthPickerCtrl::OnGetDlgCode()
{
    const UINT code = CButton::OnGetDlgCode();
    return m_pPopup ? code | DLGC_WANTALLKEYS : code;
}

void CYearMonthPickerCtrl::OnKillFocus(CWnd* pNewWnd)
{
    const WindowAlive alive(this, m_life);
    CButton::OnKillFocus(pNewWnd);
    if (alive && m_pPopup) {
        m_pPopup->Cancel();
    }
}

LRESULT CYearMonthPickerCtrl::OnUpdateUIState(WPARAM, LPARAM)
{
    Invalidate(FALSE);
    return Default();
}
