// CYearMonthPopup: the popup of a CYearMonthPickerCtrl. A header with the year between two arrows, the twelve months,
// and a line that names the present month and picks it.
//
// It lives from the click that drops it to its finishing message: it holds the mouse capture, a click on a month or the
// line below picks, a click elsewhere (but on the arrows) cancels. The picker keeps the keyboard focus and hands keys
// on. Losing the capture, the picker losing the focus, or leaving the application cancels, too. When its window is
// destroyed from outside no message is sent.
#pragma once

#include "../core/PopupWindow.h"
#include "../core/TodayWatch.h"
#include "YearMonthGrid.h"
#include "YearMonthPainter.h"

class CYearMonthPickerCtrl;
namespace dayvane {
class YearMonthPopupAccess;
}

class CYearMonthPopup : public CPopupWnd
{
    DECLARE_DYNAMIC(CYearMonthPopup)

public:
    // A year or month (1 .. 12) of -1 is the present one.
    CYearMonthPopup(int nYear, int nMonth, CYearMonthPickerCtrl* pPicker);
    // Makes the window, its top left corner at ptTopLeft (screen pixels) as long as it stays on the monitor's work area
    // with the picker in view; takes the mouse and paints. When no window can be made, FALSE, and the object is gone.
    BOOL Open(CPoint ptTopLeft);

    int GetYear() const { return m_selected.year; }
    int GetMonthIndex() const { return m_selected.month; } // 0 .. 11
    const dayvane::YearMonthLayout& GetLayout() const { return m_layout; }

    // Arrows, Page Up and Down, Home and End move the month, Enter and Space pick it, T picks the present one, Escape
    // and F4 cancel. May end the popup. FALSE: another key.
    BOOL HandleKey(UINT nChar);
    void Cancel();
    // The picker ends: the popup closes without a message.
    void Abandon();

protected:
    friend class dayvane::YearMonthPopupAccess;
    void Finish(UINT nMessage, WPARAM wParam);
    void Pick(const dayvane::YearMonth& month);
    void MoveYear(int nYears);
    void Hover(const dayvane::YearMonthHit& hit);

    void DrawPopup(CDC* pDC) override;
    void OnGone() override;
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnActivateApp(BOOL bActive, DWORD dwThreadID);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    DECLARE_MESSAGE_MAP()

    dayvane::YearMonth m_selected;
    CYearMonthPickerCtrl* m_pPicker; // nullptr once it must not be notified any more
    dayvane::YearMonthLayout m_layout;
    dayvane::YearMonthHit m_hot;
    BOOL m_bPressed = FALSE;
    BOOL m_bOpened = FALSE;   // the window has come up
    BOOL m_bFinished = FALSE; // the picker has been notified, or must not be
    dayvane::YearMonthFonts m_fonts;
    CalendarTheme m_theme;       // the picker's when it opened
    dayvane::TodayWatch m_today; // for the footer
};
