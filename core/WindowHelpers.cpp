#include "core/WindowHelpers.h"

namespace dayvane {

void RegisterControlClass(LPCTSTR lpszClass, HBRUSH hBackground)
{
    WNDCLASS wc = {};
    if (::GetClassInfo(AfxGetInstanceHandle(), lpszClass, &wc)) {
        return;
    }
    wc.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
    wc.lpfnWndProc = ::DefWindowProc;
    wc.hInstance = AfxGetInstanceHandle();
    wc.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
    wc.hbrBackground = hBackground;
    wc.lpszClassName = lpszClass;
    if (!AfxRegisterClass(&wc)) {
        AfxThrowResourceException();
    }
}

void SetVertScrollBar(CWnd& window, int minimum, int maximum, int position)
{
    SCROLLINFO info = {};
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = minimum;
    info.nMax = maximum;
    info.nPage = 1;
    info.nPos = position;
    window.SetScrollInfo(SB_VERT, &info, TRUE);
}

NMHDR NotifyHeader(const CWnd& window, int code)
{
    NMHDR header = {};
    header.hwndFrom = window.m_hWnd;
    header.idFrom = window.m_hWnd ? window.GetDlgCtrlID() : 0;
    header.code = static_cast<UINT>(code);
    return header;
}

LRESULT NotifyParent(const CWnd& window, const NMHDR& header)
{
    const HWND hParent = window.m_hWnd ? ::GetParent(window.m_hWnd) : nullptr;
    return hParent ? ::SendMessage(hParent, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header)) : 0;
}

} // namespace dayvane
