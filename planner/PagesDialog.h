// File > Page Setup: what can be chosen of printed pages, with a picture of the first page that follows every change.
#pragma once

#include <afxwin.h>

#include "planner/PlannerDialog.h"
#include "planner/PrintedPages.h"

#include <vector>

class CPagesDialog : public CPlannerDialog
{
public:
    // The settings become the chosen ones when DoModal answers IDOK.
    CPagesDialog(CCalendarCtrl& ctrl, planner::PageSettings& settings, CWnd* pParent);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;

    afx_msg void OnPaint();
    afx_msg void OnChanged(UINT nID);
    afx_msg void OnPrinter();
    DECLARE_MESSAGE_MAP()

private:
    void Fill();
    planner::PageSettings Chosen() const;
    int NumberIn(int nID, int nFallback) const;
    void MakePage();

    CCalendarCtrl& m_ctrl;
    planner::PageSettings& m_settings;
    bool m_isFilled = false;
    std::vector<dayvane::Page> m_pages; // with the settings as they stand
    CRect m_room = CRect(0, 0, 0, 0);   // for the picture, client pixels
};
