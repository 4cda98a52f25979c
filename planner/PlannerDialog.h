// A dialog box in the user's language.
#pragma once

#include <afxwin.h>

#include "planner/WideText.h"

class CPlannerDialog : public CDialog
{
public:
    CPlannerDialog(UINT nIDTemplate, CWnd* pParent) : CDialog(nIDTemplate, pParent) {}

protected:
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        planner::KeepWideTitle(m_hWnd);
        planner::TranslateWindow(m_hWnd);
        return TRUE;
    }
};
