#include "pickers/YearMonthPopup.h"

#include "core/CalendarClock.h"
#include "core/PopupPlace.h"
#include "pickers/PickerShell.h"
#include "pickers/YearMonthMessages.h"
#include "pickers/YearMonthPickerCtrl.h"

using namespace dayvane;

namespace {
constexpr UINT kPopupClassStyle = CS_SAVEBITS | CS_CLASSDC | CS_HREDRAW | CS_VREDRAW;
} // namespace

IMPLEMENT_DYNAMIC(CYearMonthPopup, CPopupWnd)

BEGIN_MESSAGE_MAP(CYearMonthPopup, CPopupWnd)
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_KEYDOWN()
ON_WM_ACTIVATEAPP()
ON_WM_CAPTURECHANGED()
END_MESSAGE_MAP()

CYearMonthPopup::CYearMonthPopup(int nYear, int nMonth, CYearMonthPickerCtrl* pPicker)
    : m_selected(MakeYearMonth(nYear, nMonth, Now())), m_pPicker(pPicker), m_today([this] { Invalidate(FALSE); })
{
}

BOOL CYearMonthPopup::Open(CPoint ptTopLeft)
{
    m_theme = m_pPicker->GetTheme();
    const ViewScale scale = m_pPicker->GetViewScale();
    const YearMonthMetrics metrics = kYearMonthMetrics.At(scale);
    m_fonts.text.Show(scale, m_pPicker->GetTextFont());
    m_fonts.year.Show(scale, m_pPicker->GetTextFont());
    const CSize size(metrics.popup);
    CRect picker;
    m_pPicker->GetWindowRect(&picker);
    const CRect anchor(ptTopLeft.x, std::min(picker.top, ptTopLeft.y), ptTopLeft.x + size.cx, ptTopLeft.y);
    const CRect place = PlaceDropDown(anchor, size, WorkAreaAt(anchor));
    m_layout = CalcYearMonthLayout(CRect(CPoint(0, 0), size), metrics);
    const LPCTSTR lpszClass =
        AfxRegisterWndClass(kPopupClassStyle, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    if (!CreatePopup(lpszClass, 0, place, m_pPicker)) {
        return FALSE;
    }
    m_bOpened = TRUE;
    m_today.Start();
    const WindowAlive alive(this, m_life);
    SetCapture();
    if (alive) {
        Invalidate(FALSE);
        UpdateWindow();
    }
    return TRUE;
}

void CYearMonthPopup::OnGone()
{
    if (m_pPicker) {
        m_pPicker->OnPopupGone(this, m_bOpened);
    }
}

// ---- The end

void CYearMonthPopup::Finish(UINT nMessage, WPARAM wParam)
{
    if (m_bFinished) {
        return;
    }
    m_bFinished = TRUE;
    const WindowAlive alive(this, m_life);
    ReleaseCaptureOf(m_hWnd);
    if (!alive) {
        return;
    }
    // From here on popup and picker are separate: the parent may end or drop the picker in its handler.
    CYearMonthPickerCtrl* pPicker = m_pPicker;
    m_pPicker = nullptr;
    if (pPicker) {
        pPicker->OnPopupGone(this, TRUE);
        pPicker->SendMessage(nMessage, wParam, 0);
    }
    if (alive) {
        DestroyWindow();
    }
}

void CYearMonthPopup::Pick(const YearMonth& month)
{
    Finish(YMN_SELENDOK, static_cast<WPARAM>(month.Packed()));
}

void CYearMonthPopup::Cancel()
{
    Finish(YMN_SELENDCANCEL, 0);
}

void CYearMonthPopup::Abandon()
{
    m_pPicker = nullptr;
    Cancel();
}

void CYearMonthPopup::OnActivateApp(BOOL bActive, DWORD dwThreadID)
{
    const WindowAlive alive(this, m_life);
    CPopupWnd::OnActivateApp(bActive, dwThreadID);
    if (alive && !bActive) {
        Cancel();
    }
}

void CYearMonthPopup::OnCaptureChanged(CWnd* pWnd)
{
    if (pWnd != this) {
        Cancel();
    }
}

// ---- Painting

void CYearMonthPopup::DrawPopup(CDC* pDC)
{
    const CalendarTexts& texts = m_pPicker ? m_pPicker->GetTexts() : *RequiredTexts();
    YearMonthPainter(pDC, {m_layout, m_selected, m_hot, m_bPressed != FALSE, Now(), m_fonts, m_theme, texts,
                           m_pPicker && m_pPicker->IsShowEraTitles()})
        .Draw();
}

void CYearMonthPopup::MoveYear(int nYears)
{
    m_selected = m_selected.WithYearMoved(nYears);
    InvalidateRect(&m_layout.header, FALSE);
    UpdateWindow();
}

// ---- Mouse

void CYearMonthPopup::Hover(const YearMonthHit& hit)
{
    if (hit != m_hot) {
        InvalidateRect(RectOfHit(m_layout, m_hot), FALSE);
        InvalidateRect(RectOfHit(m_layout, hit), FALSE);
        m_hot = hit;
    }
}

void CYearMonthPopup::OnMouseMove(UINT, CPoint point)
{
    // The class has no cursor, and none is asked for while the mouse is captured.
    ::SetCursor(::LoadCursor(nullptr, IDC_ARROW));
    Hover(HitTestYearMonth(m_layout, point));
}

void CYearMonthPopup::OnLButtonDown(UINT, CPoint point)
{
    m_bPressed = TRUE;
    Hover(HitTestYearMonth(m_layout, point));
    InvalidateRect(RectOfHit(m_layout, m_hot), FALSE);
}

void CYearMonthPopup::OnLButtonUp(UINT nFlags, CPoint point)
{
    CPopupWnd::OnLButtonUp(nFlags, point);
    m_bPressed = FALSE;
    InvalidateRect(RectOfHit(m_layout, m_hot), FALSE);
    const YearMonthHit hit = HitTestYearMonth(m_layout, point);
    switch (hit.code) {
    case YearMonthCode::PreviousYear:
        MoveYear(-1);
        break;
    case YearMonthCode::NextYear:
        MoveYear(1);
        break;
    case YearMonthCode::Footer:
        Pick(MakeYearMonth(-1, -1, Now()));
        break;
    default:
        if (hit.month < 0) {
            Cancel();
        } else {
            Pick({m_selected.year, hit.month});
        }
    }
}

// ---- Keyboard

BOOL CYearMonthPopup::HandleKey(UINT nChar)
{
    const PickerKey key = nChar == VK_SPACE ? PickerKey::Enter
                          : nChar == VK_F4  ? PickerKey::Escape
                                            : PickerKeyOf(nChar);
    switch (key) {
    case PickerKey::None:
        return FALSE;
    case PickerKey::Today:
        Pick(MakeYearMonth(-1, -1, Now()));
        return TRUE;
    case PickerKey::Enter:
        Pick(m_selected);
        return TRUE;
    case PickerKey::Escape:
        Cancel();
        return TRUE;
    default:
        m_selected = MoveYearMonth(m_selected, key);
        Invalidate(FALSE);
        UpdateWindow();
        return TRUE;
    }
}

void CYearMonthPopup::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (!HandleKey(nChar)) {
        CPopupWnd::OnKeyDown(nChar, nRepCnt, nFlags);
    }
}
