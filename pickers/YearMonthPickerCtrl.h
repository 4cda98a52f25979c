// CYearMonthPickerCtrl: a push button that shows a year and a month and drops a popup in which another is picked. It
// is an owner-drawn button of any dialog or window; YearMonthMessages.h lists the messages to its parent.
//
// Click, Space, F4, Alt+Down and Alt+Up drop the popup; while it is open F4, Alt+Down, Alt+Up and Escape close it,
// arrows, Page Up and Down, Home and End move in it, Enter and Space pick, T picks the present month. The picker keeps
// the focus; losing it cancels. A missing parent suppresses the messages, not the changes. The parent may do anything
// while it handles a message: drop the picker again, destroy its window, delete the object.
#pragma once

#include "PickerWindow.h"
#include "YearMonthMessages.h"

#include <afxwin.h>
#include <afxdisp.h>

#include <memory>

class CYearMonthPopup;

namespace dayvane {
class PickerFonts;
}

class CYearMonthPickerCtrl : public CPickerOf<CButton>
{
    DECLARE_DYNAMIC(CYearMonthPickerCtrl)

public:
    // The current date is the present moment.
    CYearMonthPickerCtrl();
    ~CYearMonthPickerCtrl() override;

    // Stored as it is, without repainting. A pick stores the first of its month, 00:00.
    void SetCurrentDate(COleDateTime date) { m_dtCurrent = date; }
    COleDateTime GetCurrentDate() const { return m_dtCurrent; }
    // TRUE from the click to the popup's finishing message. When the popup could not be made it stays TRUE, and the
    // next click tries again.
    BOOL IsDropped() const { return m_bDropped; }
    CYearMonthPopup* GetPopup() const { return m_pPopup; } // nullptr while none is open

    // Words and patterns of dates; repaints.
    void SetTexts(const CalendarTexts& texts);

    // Takes the parent, to which messages go, and sizes the button: the width it has, but at least twice its arrow;
    // the height that the system's arrows and edges ask for.
    void SetWindowSize();
    // Drops the popup, or does nothing while it is open. Answers TRUE.
    BOOL OnClicked();

    // The popup's messages (wParam: year x 100 + month, or 0). Both answer 1.
    LRESULT OnSelEndOK(WPARAM wParam, LPARAM lParam);
    LRESULT OnSelEndCancel(WPARAM wParam, LPARAM lParam);

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    friend class CYearMonthPopup;
    void OnPopupGone(CYearMonthPopup* pPopup, BOOL bOpened);
    // The picker may be gone afterwards.
    void Report(UINT nMessage, WPARAM wParam);
    void OpenPopup();
    // Has the system's button painting, which calls DrawItem, draw into a device context.
    void DrawButton(CDC* pDC);
    // F4, and up and down with Alt, drop the popup and take it back.
    void ToggleDrop();

    void ApplyScale(int dpi) override; // sizes the button anew
    void PreSubclassWindow() override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC*) { return TRUE; } // the whole client area is painted off screen
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnMouseLeave();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg LRESULT OnUpdateUIState(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    COleDateTime m_dtCurrent;
    BOOL m_bDropped = FALSE;
    CRect m_rcArrow;             // client pixels
    HWND m_hWndParent = nullptr; // messages go to it
    CYearMonthPopup* m_pPopup = nullptr;
    BOOL m_bHot = FALSE;
    std::unique_ptr<dayvane::PickerFonts> m_pFonts;
};
