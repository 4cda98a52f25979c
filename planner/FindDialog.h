// Edit > Find: a list of what has the words, beside the window; a line that is chosen is shown in the view.
#pragma once

#include "planner/Calendar.h"
#include "planner/PlannerDialog.h"

#include <functional>
#include <vector>

class CFindDialog : public CPlannerDialog
{
public:
    using Source = std::function<std::vector<planner::Occurrence>(const std::string& words)>;
    using Jump = std::function<void(const planner::OccurrenceId& id)>;
    CFindDialog(Source source, Jump jump) : CPlannerDialog(IDD_FIND_RESOURCE, nullptr), m_source(source), m_jump(jump)
    {
    }
    BOOL Open(CWnd* pParent); // or to the front
    void Refresh();           // the calendar has changed

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;     // shows the chosen line; the dialog stays
    void OnCancel() override; // hides it
    afx_msg void OnTyped();
    afx_msg void OnChosen();
    DECLARE_MESSAGE_MAP()

private:
    static const UINT IDD_FIND_RESOURCE;
    Source m_source;
    Jump m_jump;
    std::vector<planner::OccurrenceId> m_found;
};
