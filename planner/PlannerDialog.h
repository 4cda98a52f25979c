// A dialog box in the user's language, at the resolution and in the colours of the planner's window.
#pragma once

#include <afxwin.h>

#include "core/EditFont.h"
#include "planner/PlannerTheme.h"
#include "planner/ThemedControl.h"
#include "planner/WideText.h"

#include <map>
#include <memory>
#include <vector>

namespace planner {

// How the dialogs that open next look; the frame says it.
struct DialogLook
{
    int dpi = 0; // 0: the system's, for which the templates are laid out
    CalendarTheme theme;
};
DialogLook& TheDialogLook();

} // namespace planner

class CPlannerDialog : public CDialog
{
public:
    CPlannerDialog(UINT nIDTemplate, CWnd* pParent) : CDialog(nIDTemplate, pParent) {}

protected:
    BOOL OnInitDialog() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    const CalendarTheme& Theme() const { return m_theme; }
    dayvane::ViewScale Scale() const; // pixels of 96 dpi
    void SizeClient(CSize size);      // around the middle of the owner
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg LRESULT OnShowFonts(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void TakeScale(int dpi);
    int LargestDpi(int base) const;
    void TakeTheme();
    void TakeTheme(HWND control);
    void ShowFont(HWND edit);
    static BOOL CALLBACK ShowFontOf(HWND child, LPARAM lDialog);

    int m_dpi = 0;
    CalendarTheme m_theme;
    CFont m_font;                                  // of all controls, at the scale
    std::map<HWND, dayvane::EditFont> m_editFonts; // for texts of fields that it lacks
    CBrush m_ground, m_listGround;
    std::vector<std::unique_ptr<planner::ThemedControl>> m_controls;
};
