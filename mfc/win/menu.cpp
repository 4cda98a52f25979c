// Menus and the wait cursor.
#include "afximpl.h"

IMPLEMENT_DYNCREATE(CMenu, CObject)

CMenu* PASCAL CMenu::FromHandle(HMENU hMenu)
{
    auto& menus = AfxState().menus;
    if (!hMenu) {
        return nullptr;
    }
    if (CMenu* pMenu = menus.Permanent(hMenu)) {
        return pMenu;
    }
    if (CMenu* pMenu = menus.Temporary(hMenu)) {
        return pMenu;
    }
    auto pMenu = std::make_unique<CMenu>();
    pMenu->m_hMenu = hMenu;
    return menus.SetTemporary(hMenu, std::move(pMenu));
}

BOOL CMenu::Attach(HMENU hMenu)
{
    ASSERT(!m_hMenu);
    if (!hMenu) {
        return FALSE;
    }
    m_hMenu = hMenu;
    AfxState().menus.SetPermanent(hMenu, this);
    return TRUE;
}

HMENU CMenu::Detach()
{
    const HMENU hMenu = m_hMenu;
    if (hMenu) {
        AfxState().menus.RemovePermanent(hMenu, this);
    }
    m_hMenu = nullptr;
    return hMenu;
}

BOOL CMenu::LoadMenu(LPCTSTR lpszResourceName)
{
    return Attach(::LoadMenu(AfxFindResourceHandle(lpszResourceName, RT_MENU), lpszResourceName));
}

BOOL CMenu::DestroyMenu()
{
    return m_hMenu && ::DestroyMenu(Detach());
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const
{
    const int length = ::GetMenuString(m_hMenu, nIDItem, nullptr, 0, nFlags);
    ::GetMenuString(m_hMenu, nIDItem, rString.GetBuffer(length + 1), length + 1, nFlags);
    rString.ReleaseBuffer();
    return rString.GetLength();
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect)
{
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, CWnd::SafeHwnd(pWnd), lpRect);
}

// The wait cursor

void CCmdTarget::BeginWaitCursor()
{
    AFX_STATE& state = AfxState();
    const HCURSOR before = ::SetCursor(::LoadCursor(nullptr, IDC_WAIT));
    if (state.waitCursorDepth++ == 0) {
        state.hcurWaitRestore = before;
    }
}

void CCmdTarget::EndWaitCursor()
{
    AFX_STATE& state = AfxState();
    if (state.waitCursorDepth > 0 && --state.waitCursorDepth == 0) {
        ::SetCursor(state.hcurWaitRestore);
    }
}

void CCmdTarget::RestoreWaitCursor()
{
    if (AfxState().waitCursorDepth > 0) {
        ::SetCursor(::LoadCursor(nullptr, IDC_WAIT));
    }
}

CWaitCursor::CWaitCursor()
{
    CCmdTarget().BeginWaitCursor();
}

CWaitCursor::~CWaitCursor()
{
    CCmdTarget().EndWaitCursor();
}

void CWaitCursor::Restore()
{
    CCmdTarget().RestoreWaitCursor();
}
