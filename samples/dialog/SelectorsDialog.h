// A dialog with the three compact date selectors that shows every message they send.
#pragma once

#include <dayvane/Dayvane.h>

class CSelectorsDialog : public CDialog
{
public:
    CSelectorsDialog();

protected:
    BOOL OnInitDialog() override;
    // Gives a calendar the size of its grid.
    void FitToGrid(CPeriodGridCtrl& calendar);
    void Show(const CString& text);

    afx_msg void OnSelect(UINT nID, NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnDoubleClick(UINT nID, NMHDR* pHeader, LRESULT* pResult);
    afx_msg LRESULT OnDateChange(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnDropDown(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnCloseUp(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSelEndOK(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSelEndCancel(WPARAM wParam, LPARAM lParam);
    afx_msg void OnOptions();
    afx_msg void OnClear();
    DECLARE_MESSAGE_MAP()

    LRESULT ShowPickerMessage(LPCTSTR name, WPARAM wParam, LPARAM lParam);

    CMiniCalendarCtrl m_days;
    CMiniCalendarCtrl2 m_months;
    CYearMonthPickerCtrl m_picker;
};
