#include "pickers/PeriodGridCtrl.h"

#include "core/WindowHelpers.h"
#include "calc/CalcHoliday.h"
#include "calc/DayProvider.h"
#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "core/DrawingHelpers.h"
#include "pickers/PeriodGridState.h"
#include "pickers/PeriodSelCtrl.h"
#include "pickers/PickerShell.h"

#include <utility>

using namespace dayvane;

IMPLEMENT_DYNAMIC(CPeriodGridCtrl, CWnd)

BEGIN_MESSAGE_MAP(CPeriodGridCtrl, CWnd)
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_ENABLE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SYSCOLORCHANGE()
ON_WM_MOUSEMOVE()
ON_WM_MOUSELEAVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEWHEEL()
ON_WM_KEYDOWN()
ON_WM_GETDLGCODE()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_CAPTURECHANGED()
ON_WM_CANCELMODE()
ON_WM_TIMER()
ON_MESSAGE(WM_UPDATEUISTATE, &CPeriodGridCtrl::OnUpdateUIState)
ON_MESSAGE(WM_PRINTCLIENT, &CPeriodGridCtrl::OnPrintClient)
END_MESSAGE_MAP()

// ---- Lifetime

CPeriodGridCtrl::CPeriodGridCtrl(const PeriodPolicy& policy, LPCTSTR lpszClassName)
    : m_strClassName(lpszClassName), m_state(std::make_unique<PeriodGridState>(policy, Now())),
      m_today([this] { Redraw(); })
{
    RegisterControlClass(lpszClassName);
}

CPeriodGridCtrl::~CPeriodGridCtrl()
{
    DestroyWindow();
}

BOOL CPeriodGridCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext)
{
    return CWnd::Create(m_strClassName, "", dwStyle, rect, pParent, nID, pContext);
}

// ---- What is shown

void CPeriodGridCtrl::SetRowAndCol(int nRows, int nCols)
{
    m_state->model.SetGrid(nRows, nCols);
}

void CPeriodGridCtrl::GetRowAndCol(int& nRows, int& nCols) const
{
    nRows = m_state->model.Rows();
    nCols = m_state->model.Columns();
}

void CPeriodGridCtrl::RecalcRowAndCol(int cx, int cy)
{
    int rows = 1;
    int columns = 1;
    FitPeriodGrid(m_state->model.Policy(), cx, cy, rows, columns);
    m_state->model.SetGrid(rows, columns);
}

CSize CPeriodGridCtrl::GetGridSize() const
{
    return PeriodGridSize(m_state->model.Policy(), std::max(m_state->model.Rows(), 1),
                          std::max(m_state->model.Columns(), 1));
}

COleDateTime CPeriodGridCtrl::GetCurrentDate() const
{
    return DateOfPeriod(m_state->model.Policy(), m_state->model.FirstPeriod());
}

void CPeriodGridCtrl::MoveLeft(int)
{
    Apply(m_state->model.Page(-1));
}

void CPeriodGridCtrl::MoveRight(int)
{
    Apply(m_state->model.Page(1));
}

void CPeriodGridCtrl::SetFirstDayOfWeek(int nDay)
{
    if (nDay < 1 || nDay > kDaysPerWeek) {
        AfxThrowInvalidArgException();
    }
    m_state->model.SetFirstDayOfWeek(nDay);
}

int CPeriodGridCtrl::GetFirstDayOfWeek() const
{
    return m_state->model.FirstDayOfWeek();
}

void CPeriodGridCtrl::SetBoldCallback(PFNISBOLD pfnIsBold, LPARAM lParam)
{
    m_pfnIsBold = pfnIsBold;
    m_lBoldParam = lParam;
}

const DayProvider* CPeriodGridCtrl::GetDayProvider() const
{
    return m_pDayProvider ? m_pDayProvider : DefaultDayProvider();
}

bool CPeriodGridCtrl::IsDayOff(const COleDateTime& day) const
{
    if (const DayProvider* days = GetDayProvider()) {
        return days->InfoOf(CivilDateOf(day)).isDayOff;
    }
    // The standard provider would look for solar terms, too.
    tagHOLIDAY holiday = {};
    return CCalcHoliday::IsHoliday(day, holiday) && !holiday.bObservance;
}

void CPeriodGridCtrl::ApplyScale(int dpi)
{
    StoreScale(dpi);
    ShowPolicy(*m_state->base);
    Refresh();
}

void CPeriodGridCtrl::OptionsChanged()
{
    ShowTip({});
}

void CPeriodGridCtrl::ShowPolicy(const PeriodPolicy& policy)
{
    Cancel(); // a popup has the old size
    m_state->Show(policy, m_scale, m_hostFont);
}

void CPeriodGridCtrl::SetTexts(const CalendarTexts& texts)
{
    m_texts = std::make_shared<const CalendarTexts>(texts);
    if (texts.firstDayOfWeek != 0) {
        SetFirstDayOfWeek(texts.firstDayOfWeek);
    }
    Refresh();
}

void CPeriodGridCtrl::SetDotCallback(PFNDOTCOLOR pfnDotColor, LPARAM lParam)
{
    m_pfnDotColor = pfnDotColor;
    m_lDotParam = lParam;
}

void CPeriodGridCtrl::Layout(int cx, int cy)
{
    CRect client(0, 0, 0, 0);
    if ((cx < 0 || cy < 0) && m_hWnd) {
        GetClientRect(&client);
        cx = client.Width();
        cy = client.Height();
    }
    const PeriodGridModel& model = m_state->model;
    const PeriodPolicy& policy = model.Policy();
    const PeriodGridInput input{CSize(cx, cy),       model.Rows(),           model.Columns(),
                                model.FirstPeriod(), model.FirstDayOfWeek(), m_state->weekRule};
    m_state->layout = CalcPeriodGrid(policy, input);
    const std::vector<PeriodBlock>& blocks = m_state->layout.blocks;
    CellMarks& marks = m_state->marks;
    marks.assign(blocks.size(), std::vector<CellMark>(policy.CellCount()));
    for (size_t i = 0; i < blocks.size(); ++i) {
        for (size_t k = 0; k < marks[i].size(); ++k) {
            const PeriodCell& cell = blocks[i].cells[k];
            marks[i][k].isHoliday = policy.unit == CellUnit::Day && IsDayOff(cell.date);
            marks[i][k].isBold = cell.inPeriod && m_pfnIsBold && m_pfnIsBold(cell.date, m_lBoldParam);
            marks[i][k].dot = cell.inPeriod && m_pfnDotColor ? m_pfnDotColor(cell.date, m_lDotParam) : CLR_NONE;
        }
    }
}

const PeriodGridLayout& CPeriodGridCtrl::GetGridLayout() const
{
    return m_state->layout;
}

void CPeriodGridCtrl::Refresh()
{
    Layout(-1, -1);
    Redraw();
}

void CPeriodGridCtrl::Redraw()
{
    if (m_hWnd) {
        RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    }
}

// ---- Selection

void CPeriodGridCtrl::GetSel(COleDateTime& start, COleDateTime& end) const
{
    start = m_state->model.Selection().start;
    end = m_state->model.Selection().end;
}

void CPeriodGridCtrl::SetSel(const COleDateTime& start, const COleDateTime& end)
{
    m_state->model.Select(start, end);
    Refresh();
}

void CPeriodGridCtrl::Unselect()
{
    m_state->model.Unselect();
}

int CPeriodGridCtrl::IsSelected(const COleDateTime& date) const
{
    return m_state->model.IsSelected(date) ? 1 : 0;
}

void CPeriodGridCtrl::SetRangeSelect(BOOL bRange)
{
    m_state->model.SetSweeps(bRange != FALSE);
}

BOOL CPeriodGridCtrl::IsRangeSelect() const
{
    return m_state->model.Sweeps();
}

// ---- Notifications

void CPeriodGridCtrl::FireNotifyClick()
{
    if (!m_hWnd) {
        return;
    }
    NMSELCHANGE record = {};
    record.nmhdr = NotifyHeader(*this, MCN_SELECT);
    ToSystemTime(m_state->model.Selection().start, record.stSelStart);
    ToSystemTime(m_state->model.Selection().end, record.stSelEnd);
    NotifyParent(*this, record.nmhdr);
}

void CPeriodGridCtrl::FireNotifyDblClick()
{
    if (!m_hWnd) {
        return;
    }
    NotifyParent(*this, NotifyHeader(*this, NM_DBLCLK));
}

// ---- Effects

void CPeriodGridCtrl::Apply(const GridEffects& effects)
{
    const WindowAlive alive(this, m_life);
    if (effects.closePopup) {
        ClosePopup();
    }
    if (alive && effects.releaseCapture) {
        ReleaseCaptureOf(m_hWnd);
    }
    if (alive && effects.layout) {
        Layout(-1, -1);
    }
    if (alive && effects.capture && m_hWnd) {
        SetCapture();
    }
    if (alive && effects.openPopup) {
        OpenPopup();
    }
    if (alive && effects.redraw) {
        Redraw();
    }
    if (alive && effects.notifyClick) {
        FireNotifyClick();
    }
    if (alive && effects.notifyDoubleClick) {
        FireNotifyDblClick();
    }
}

void CPeriodGridCtrl::Cancel()
{
    Apply(m_state->model.Cancel());
}

void CPeriodGridCtrl::OpenPopup()
{
    ClosePopup();
    const size_t index = static_cast<size_t>(m_state->model.ClickedBlock());
    if (index >= m_state->layout.blocks.size()) {
        Cancel(); // the window that lost the capture has laid this control out again
        return;
    }
    const PeriodBlock& block = m_state->layout.blocks[index];
    CRect title = block.title;
    ClientToScreen(&title);
    try {
        m_pPopup = MakePopup(block.period);
        if (m_pPopup->Open(this, title)) {
            m_nPopupTimer = SetTimer(kRunTimerId, kRunInterval, nullptr);
            return;
        }
    } catch (const std::bad_alloc&) {
        Cancel();
        AfxThrowMemoryException();
    } catch (...) {
        Cancel();
        throw;
    }
    Cancel();
}

void CPeriodGridCtrl::ClosePopup()
{
    if (m_nPopupTimer != 0 && m_hWnd) {
        KillTimer(m_nPopupTimer);
    }
    m_nPopupTimer = 0;
    if (m_pPopup) {
        std::exchange(m_pPopup, nullptr)->Close();
    }
}

// Closed by somebody else, the popup has made no choice.
void CPeriodGridCtrl::OnPopupGone(CPeriodSelCtrl* pPopup)
{
    if (m_pPopup == pPopup) {
        m_pPopup = nullptr;
        Cancel();
    }
}

// ---- Messages

void CPeriodGridCtrl::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
    m_today.Start();
    Layout(-1, -1);
}

void CPeriodGridCtrl::OnDestroy()
{
    m_today.Stop();
    m_tip.Destroy();
    m_state->model.Cancel();
    ClosePopup();
    ReleaseCaptureOf(m_hWnd);
    CWnd::OnDestroy();
}

void CPeriodGridCtrl::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    Layout(cx, cy);
    Invalidate(FALSE);
}

void CPeriodGridCtrl::OnEnable(BOOL)
{
    Cancel();
    Invalidate(FALSE);
}

void CPeriodGridCtrl::OnPaint()
{
    CPaintDC dc(this);
    CMemDC memory(&dc);
    const SaveDcScope saved(&memory);
    DrawCtrl(&memory);
}

LRESULT CPeriodGridCtrl::OnPrintClient(WPARAM wParam, LPARAM)
{
    CDC* pDC = CDC::FromHandle(reinterpret_cast<HDC>(wParam));
    const SaveDcScope saved(pDC);
    DrawCtrl(pDC);
    return 0;
}

void CPeriodGridCtrl::OnSysColorChange()
{
    CWnd::OnSysColorChange();
    Invalidate(FALSE);
}

void CPeriodGridCtrl::DrawBackground(CDC* pDC)
{
    const CRect client = ClientRectOf(*this);
    pDC->FillSolidRect(&client, PickerPaletteOf(m_theme).window);
}

PeriodGridPainter CPeriodGridCtrl::Painter(CDC* pDC) const
{
    PeriodGridState& state = *m_state;
    return PeriodGridPainter(pDC, {state.model, state.layout, state.marks, Now(), ShowsFocus(m_hWnd),
                                   IsWindowEnabled() != FALSE, state.textFonts, state.numberFonts, m_theme, m_scale,
                                   *m_texts, m_bEraTitles != FALSE});
}

void CPeriodGridCtrl::DrawHeader(CDC* pDC)
{
    Painter(pDC).DrawHeader();
}
