#include "core/MoreListWnd.h"

#include "core/PopupPlace.h"
#include "core/MoreListCtrl.h"
#include "core/ThemeColors.h"
#include "core/WindowHelpers.h"

#include <utility>

using namespace dayvane;

namespace {

constexpr char kWindowClass[] = "DayvaneMoreList";
constexpr COLORREF kGround = 0xFFFFFF;
constexpr int kRowFrame = 2; // pixels of the current row's frame

} // namespace

BEGIN_MESSAGE_MAP(CMoreListWnd, CPopupWnd)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_RBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_CAPTURECHANGED()
END_MESSAGE_MAP()

CMoreListWnd::CMoreListWnd(CMoreListCtrl* pOwner, std::vector<int> items, unsigned nItemVersion,
                           const COleDateTime& dtFirst)
    : m_pOwner(pOwner), m_model(std::move(items), MoreListMetrics::For(pOwner->GetViewScale())),
      m_nItemVersion(nItemVersion), m_dtFirst(dtFirst)
{
}

CMoreListWnd* CMoreListWnd::Open(CMoreListCtrl* pOwner, const CRect& mark, std::vector<int> items,
                                 unsigned nItemVersion, const COleDateTime& dtFirst)
{
    if (items.empty()) {
        return nullptr;
    }
    RegisterControlClass(kWindowClass);
    CMoreListWnd* list = new CMoreListWnd(pOwner, std::move(items), nItemVersion, dtFirst);
    list->m_model.SetCurrent(0);
    CRect frame(CPoint(0, 0), list->m_model.Size());
    ::AdjustWindowRectEx(&frame, WS_POPUP | WS_BORDER, FALSE, WS_EX_TOOLWINDOW);
    const CRect place = PlaceDropDown(mark, frame.Size(), WorkAreaAt(mark));
    if (!list->CreatePopup(kWindowClass, WS_BORDER, place, pOwner)) {
        return nullptr;
    }
    list->SetCapture();
    return list;
}

void CMoreListWnd::OnGone()
{
    m_pOwner->OnMoreListGone(this);
}

// ---- Choosing

void CMoreListWnd::Choose(int nRow)
{
    CMoreListCtrl* owner = m_pOwner;
    const int item = m_model.Item(nRow);
    const unsigned version = m_nItemVersion;
    Close();
    owner->ChooseListedItem(item, version);
}

void CMoreListWnd::DragOut(CPoint point)
{
    CMoreListCtrl* owner = m_pOwner;
    const int item = m_model.Item(m_nPressed);
    const unsigned version = m_nItemVersion;
    const COleDateTime first = m_dtFirst;
    ClientToScreen(&point);
    Close();
    owner->DragListedItem(item, version, first, point);
}

void CMoreListWnd::SetCurrentRow(int nRow)
{
    m_model.SetCurrent(nRow);
    Invalidate(FALSE);
}

BOOL CMoreListWnd::OnKey(UINT nKey)
{
    const int current = m_model.Current();
    switch (nKey) {
    case VK_UP:
    case VK_DOWN:
        SetCurrentRow(current + (nKey == VK_UP ? -1 : 1));
        return TRUE;
    case VK_PRIOR:
    case VK_NEXT:
        SetCurrentRow(current + (nKey == VK_PRIOR ? -1 : 1) * m_model.RowsInSight());
        return TRUE;
    case VK_HOME:
    case VK_END:
        SetCurrentRow(nKey == VK_HOME ? 0 : m_model.Count() - 1);
        return TRUE;
    case VK_RETURN:
    case VK_SPACE:
        Choose(current);
        return TRUE;
    case VK_ESCAPE:
    case VK_F4:
    case VK_TAB:
        Close();
        return TRUE;
    }
    return FALSE;
}

// ---- Mouse

void CMoreListWnd::OnLButtonDown(UINT, CPoint point)
{
    const CRect client = ClientRectOf(*this);
    m_nPressed = m_model.RowAt(point);
    if (!client.PtInRect(point)) {
        Close();
    } else if (m_nPressed != -1) {
        SetCurrentRow(m_nPressed);
    }
}

void CMoreListWnd::OnRButtonDown(UINT, CPoint)
{
    Close();
}

void CMoreListWnd::OnMouseMove(UINT nFlags, CPoint point)
{
    const CRect client = ClientRectOf(*this);
    if (m_nPressed != -1 && (nFlags & MK_LBUTTON)) {
        if (!client.PtInRect(point)) {
            DragOut(point);
        }
        return;
    }
    const int row = m_model.RowAt(point);
    if (row != -1 && row != m_model.Current()) {
        SetCurrentRow(row);
    }
}

void CMoreListWnd::OnLButtonUp(UINT, CPoint point)
{
    const int row = m_model.RowAt(point);
    const bool isChosen = row != -1 && row == m_nPressed;
    m_nPressed = -1;
    if (isChosen) {
        Choose(row);
    }
}

BOOL CMoreListWnd::OnMouseWheel(UINT, short zDelta, CPoint)
{
    m_model.Scroll(zDelta > 0 ? -1 : 1);
    Invalidate(FALSE);
    return TRUE;
}

void CMoreListWnd::OnCaptureChanged(CWnd* pWnd)
{
    if (pWnd != this) {
        PostMessage(WM_CLOSE); // DefWindowProc destroys the window; not in the midst of what took the mouse
    }
}

// ---- Paint

void CMoreListWnd::DrawPopup(CDC* pDC)
{
    const CRect client = ClientRectOf(*this);
    const CalendarTheme& theme = m_pOwner->GetTheme();
    const COLORREF ground = ThemeOr(theme.page, kGround);
    pDC->FillSolidRect(&client, ground);
    for (int row = m_model.Top(); row < m_model.Top() + m_model.RowsInSight(); ++row) {
        CRect rect = m_model.RowRect(row);
        if (row == m_model.Current()) {
            pDC->FillSolidRect(&rect, ThemeOr(theme.focus, m_pOwner->GetColors().highlight));
        }
        rect.DeflateRect(kRowFrame, kRowFrame);
        pDC->FillSolidRect(&rect, ground);
        m_pOwner->DrawListedItem(pDC, m_model.Item(row), m_nItemVersion, rect);
    }
    if (m_model.Top() + m_model.RowsInSight() < m_model.Count()) {
        m_pOwner->DrawListEnd(pDC, client);
    }
}
