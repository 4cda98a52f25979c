// The month, week and year view's side of the list of a box's items.
#include "views/daygrid/DayGridCtrl.h"

#include "core/DateMath.h"
#include "views/daygrid/BoxPainter.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/MoreListWnd.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr UINT kOpenKey = VK_F4;
} // namespace

void CDayGridCtrl::EnableMoreList(BOOL bEnable)
{
    m_options.moreList = bEnable != FALSE;
    if (!bEnable) {
        CloseMoreList();
    }
}

void CDayGridCtrl::OptionsChanged(const CalendarOptions& before)
{
    CloseMoreList();
    CCalendarCtrl::OptionsChanged(before);
}

BOOL CDayGridCtrl::GetMoreBox(int nBox, MoreBox& box)
{
    box = {MoreMarkOf(GetBoxRect(nBox)), Range().DateOfBox(nBox), Range().LastDateOfBox(nBox)};
    return HasMoreMark(nBox) && IsValid(box.first) && IsValid(box.last);
}

void CDayGridCtrl::CloseMoreList()
{
    if (m_pMoreList) {
        m_pMoreList->Close();
    }
}

void CDayGridCtrl::OnMoreListGone(CMoreListWnd* pList)
{
    if (m_pMoreList == pList) {
        m_pMoreList = nullptr;
    }
}

LRESULT CDayGridCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
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
    if (m_options.moreList) {
        if (message == WM_LBUTTONDOWN &&
            OpenMoreListAt(CPoint(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))))) {
            return 0;
        }
        if (message == WM_KEYDOWN && wParam == kOpenKey && OpenMoreListOf(m_dtSelBegin)) {
            return 0;
        }
    }
    return CCalendarCtrl::WindowProc(message, wParam, lParam);
}

BOOL CDayGridCtrl::OpenMoreListAt(CPoint point)
{
    for (int i = 0; i < GetBoxCount(); ++i) {
        MoreBox box;
        if (GetMoreBox(i, box) && box.mark.PtInRect(point)) {
            return OpenMoreList(box);
        }
    }
    return FALSE;
}

BOOL CDayGridCtrl::OpenMoreListOf(const COleDateTime& date)
{
    for (int i = 0; i < GetBoxCount(); ++i) {
        MoreBox box;
        if (GetMoreBox(i, box) && date >= box.first && date <= box.last) {
            return OpenMoreList(box);
        }
    }
    return FALSE;
}

BOOL CDayGridCtrl::OpenMoreList(const MoreBox& box)
{
    Alive alive(this);
    SetFocus(); // may end an edit, and so run the host's code
    if (!alive || m_pMoreList) {
        return TRUE;
    }
    CRect mark = box.mark;
    ClientToScreen(&mark);
    m_pMoreList = CMoreListWnd::Open(this, mark, ItemsOfDays(m_arItem, box.first, box.last), m_nItemVersion, box.first);
    return TRUE;
}

// ---- What the list asks for. An item list that has changed since answers nothing.

void CDayGridCtrl::ChooseListedItem(int nItem, unsigned nItemVersion)
{
    if (nItemVersion != m_nItemVersion) {
        return;
    }
    SetCurSel(nItem);
    NotifyItemByKey(CCN_ITEMCLICK, nItem, 0);
}

// The list was pressed and left with the button down: what follows is a press on the item in the view.
void CDayGridCtrl::DragListedItem(int nItem, unsigned nItemVersion, const COleDateTime& dtFirst, CPoint screen)
{
    if (nItemVersion != m_nItemVersion) {
        return;
    }
    tagCCHITTESTINFO hit;
    ScreenToClient(&screen);
    hit.pt = screen;
    hit.nItem = nItem;
    hit.nHitCode = CCHT_ONITEM;
    ToSystemTime(StartOfDay(std::max(m_arItem[nItem].dtStart, dtFirst)), hit.time);
    Alive alive(this);
    const unsigned cancelsBefore = m_nCancelCount;
    Notify(CCN_ITEMCLICK, nItem, MK_LBUTTON, screen, hit.time, hit.nHitCode);
    if (!alive || nItemVersion != m_nItemVersion || m_nCancelCount != cancelsBefore) {
        return;
    }
    PressedItem pressed;
    pressed.movable = IsItemMovable(nItem) == 1;
    pressed.times = {m_arItem[nItem].dtStart, m_arItem[nItem].dtEnd};
    Apply(m_pointer.Press(PointerHitOf(hit), pressed), MK_LBUTTON, hit);
}

void CDayGridCtrl::DrawListedItem(CDC* pDC, int nItem, unsigned nItemVersion, const CRect& rect)
{
    if (nItemVersion != m_nItemVersion) {
        return;
    }
    const int saved = pDC->SetBkMode(TRANSPARENT);
    tagCALENDAR_ITEM item = m_arItem[nItem];
    item.nSource = nItem;
    item.rcItem = rect;
    DrawBar(pDC, PainterOn(pDC), item);
    pDC->SetBkMode(saved);
}
