// The tool bar: commands as words, and the year-month picker among them.
#pragma once

#include <afxext.h>
#include <afxwin.h>

#include "pickers/YearMonthPickerCtrl.h"
#include "planner/PlannerTheme.h"

#include <vector>

class CPlannerToolBar : public CToolBar
{
public:
    BOOL Create(CWnd* pParent);
    void SetTexts(const CalendarTexts& texts) { m_picker.SetTexts(texts); } // of the picker
    void ShowEraTitles(BOOL bShow);                                         // likewise
    void ShowTexts();                                                       // in the user's language
    // Shows the month in the picker.
    void Follow(const COleDateTime& day);
    void SetTheme(planner::ThemeChoice choice);
    void SetScale(int dpi);

protected:
    CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz) override;
    afx_msg LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnCustomDraw(NMHDR* pHeader, LRESULT* pResult);
    // The picker's messages go on to the frame.
    afx_msg LRESULT OnPickerMessage(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void MakePicker();
    void Measure();
    bool ShowRows(const std::vector<BYTE>& states);
    void PlacePicker();
    void DrawTool(const NMCUSTOMDRAW& draw);

    CYearMonthPickerCtrl m_picker;
    planner::ScaledFont m_font;
    dayvane::ViewScale m_scale;
    std::vector<int> m_widths; // of all tools
    int m_rows = 1;
};
