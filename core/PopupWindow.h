// CPopupWnd: the base of the small windows that the controls open over themselves. A popup never takes the activation
// or the focus, paints off screen, and lives from its construction on the heap to the end of its window, whoever ends
// it: then it calls OnGone, by which its owner forgets it, and deletes itself.
#pragma once

#include "CalendarAccess.h"
#include "WindowAlive.h"

#include <afxwin.h>

class CPopupWnd : public CWnd
{
    DECLARE_DYNAMIC(CPopupWnd)

public:
    // Ends the window, if there is one. The object is gone afterwards.
    void Close();

protected:
    CPopupWnd() = default;

    // Makes the window of a registered class and shows it above all others. dwStyle: what it has besides WS_POPUP.
    // FALSE: there is no window, or it was destroyed while it came up; the object is gone.
    BOOL CreatePopup(LPCTSTR lpszClass, DWORD dwStyle, const CRect& rcScreen, CWnd* pOwner);

    // Paints the whole client area.
    virtual void DrawPopup(CDC* pDC) = 0;
    // The window is gone, or could not be made; the object is deleted next.
    virtual void OnGone() {}

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PostNcDestroy() override;
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);
    afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
    DECLARE_MESSAGE_MAP()

    dayvane::WindowLife m_life;
    dayvane::AccessHook m_access;
};

namespace dayvane {

// The work area of the monitor nearest to a rectangle, screen pixels.
CRect WorkAreaAt(const CRect& screenRect);

} // namespace dayvane
