// A question or message with its buttons, in the planner's language, theme and scale; planner::Ask shows it.
#pragma once

#include "planner/PlannerDialog.h"

#include <string>

class CAskDialog : public CPlannerDialog
{
public:
    // `type` is that of MessageBox; `utf8` is in the user's language.
    CAskDialog(const std::string& utf8, UINT type, CWnd* pParent);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    afx_msg void OnPaint();
    afx_msg void OnYesOrNo(UINT nID);
    DECLARE_MESSAGE_MAP()

private:
    CRect PlaceOf(int nID) const;
    void Arrange();

    const std::string m_text;
    const UINT m_type;
    CRect m_iconPlace;
};
