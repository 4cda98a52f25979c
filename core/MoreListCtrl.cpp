#include "core/MoreListCtrl.h"

#include "core/DateMath.h"
#include "core/MoreListWnd.h"

#include <algorithm>
#include <utility>

using namespace dayvane;

namespace {
constexpr UINT kOpenKey = VK_F4;
} // namespace

IMPLEMENT_DYNAMIC(CMoreListCtrl, CCalendarCtrl)

BEGIN_MESSAGE_MAP(CMoreListCtrl, CCalendarCtrl)
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

void CMoreListCtrl::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    const WindowAlive alive(this, m_life);
    if (nChar == VK_HOME || nChar == VK_END) {
        ArrowKey(static_cast<void (CCalendarCtrl::*)(UINT)>(nChar == VK_HOME ? &CMoreListCtrl::MoveToFirst
                                                                             : &CMoreListCtrl::MoveToLast));
    }
    if (alive) {
        CCalendarCtrl::OnKeyDown(nChar, nRepCnt, nFlags);
    }
}

void CMoreListCtrl::CloseMoreList()
{
    if (m_pMoreList) {
        m_pMoreList->Close();
    }
}

void CMoreListCtrl::OnMoreListGone(CMoreListWnd* pList)
{
    if (m_pMoreList == pList) {
        m_pMoreList = nullptr;
    }
}

LRESULT CMoreListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_pMoreList) {
        switch (message) {
        case WM_KEYDOWN:
            if (m_pMoreList->OnKey(static_cast<UINT>(wParam))) {
                return 0;
            }
            break;
        case WM_CHAR:
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS; // the list's, until it closes
        case WM_MOUSEWHEEL:
            m_pMoreList->SendMessage(message, wParam, lParam);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_SIZE:
        case WM_MOVE:
        case WM_VSCROLL:
        case WM_HSCROLL:
        case WM_KILLFOCUS:
        case WM_CANCELMODE:
        case WM_ENABLE:
        case WM_SHOWWINDOW:
        case WM_DESTROY:
            CloseMoreList();
            break;
        }
    }
    if (message == WM_LBUTTONDOWN &&
        OpenMoreListAt(CPoint(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))))) {
        return 0;
    }
    if (message == WM_KEYDOWN && wParam == kOpenKey && OpenMoreListOf(m_dtSelBegin)) {
        return 0;
    }
    return CCalendarCtrl::WindowProc(message, wParam, lParam);
}

BOOL CMoreListCtrl::OpenMoreList(CRect rcMark, std::vector<int> items, const COleDateTime& dtFirst)
{
    const WindowAlive alive(this, m_life);
    const unsigned version = m_nItemVersion;
    SetFocus(); // may end an edit, and so run the host's code
    if (alive && !m_pMoreList && version == m_nItemVersion) {
        ClientToScreen(&rcMark);
        m_pMoreList = CMoreListWnd::Open(this, rcMark, std::move(items), version, dtFirst);
    }
    return TRUE;
}

void CMoreListCtrl::OptionsChanged(const CalendarOptions& before)
{
    CloseMoreList();
    CCalendarCtrl::OptionsChanged(before);
}

// ---- What the list asks for. An item list that has changed since answers nothing.

void CMoreListCtrl::ChooseListedItem(int nItem, unsigned nItemVersion)
{
    if (nItemVersion != m_nItemVersion) {
        return;
    }
    SetCurSel(nItem);
    NotifyItemByKey(CCN_ITEMCLICK, nItem, 0);
}

// The list was pressed and left with the button down: what follows is a press on the item in the view.
void CMoreListCtrl::DragListedItem(int nItem, unsigned nItemVersion, const COleDateTime& dtFirst, CPoint screen)
{
    if (nItemVersion != m_nItemVersion) {
        return;
    }
    tagCCHITTESTINFO hit;
    ScreenToClient(&screen);
    hit.pt = screen;
    hit.nItem = nItem;
    HitListedItem(m_arItem[nItem], dtFirst, hit);
    const WindowAlive alive(this, m_life);
    const unsigned cancelsBefore = m_nCancelCount;
    Notify(CCN_ITEMCLICK, nItem, MK_LBUTTON, screen, hit.time, hit.nHitCode);
    if (alive && nItemVersion == m_nItemVersion && m_nCancelCount == cancelsBefore) {
        Press(hit, MK_LBUTTON);
    }
}

void CMoreListCtrl::HitListedItem(const tagCALENDAR_ITEM& item, const COleDateTime& dtFirst, tagCCHITTESTINFO& hit)
{
    hit.nHitCode = CCHT_ONITEM;
    ToSystemTime(StartOfDay(std::max(item.dtStart, dtFirst)), hit.time);
}

void CMoreListCtrl::DrawListedItem(CDC* pDC, int nItem, unsigned nItemVersion, const CRect& rect)
{
    if (nItemVersion != m_nItemVersion) {
        return;
    }
    const int saved = pDC->SetBkMode(TRANSPARENT);
    tagCALENDAR_ITEM item = m_arItem[nItem];
    item.nSource = nItem;
    item.rcItem = rect;
    DrawListRow(pDC, item);
    pDC->SetBkMode(saved);
}
