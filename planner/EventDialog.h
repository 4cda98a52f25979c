// The dialog of one event. What it says is checked as it is typed, and what is wrong stands beside the field.
#pragma once

#include "pickers/MiniCalendarCtrl.h"
#include "planner/EventForm.h"
#include "planner/PlannerDialog.h"

#include <map>
#include <string>
#include <vector>

class CEventDialog : public CPlannerDialog
{
public:
    struct Choices
    {
        std::vector<std::string> zones;
        std::vector<std::string> categories;
        bool canRepeat = true; // not a moved occurrence of a series
        bool canChangeZone = true;
        bool isMondayFirst = false;
        std::string clock; // a zone: on its clock all times are shown; empty: each on that of its own
    };
    CEventDialog(const planner::EventForm& form, const Choices& choices, CWnd* pParent);
    // What was said when DoModal answered IDOK.
    const planner::EventForm& Form() const { return m_form; }

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg void OnPaint();
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg void OnChanged(UINT nID);
    afx_msg void OnPicked(UINT nID); // of a list: its text comes after the notification
    afx_msg void OnDateFocus(UINT nID);
    afx_msg void OnDateLeft(UINT nID);
    afx_msg void OnAddReminder();
    afx_msg void OnRemoveReminder();
    afx_msg LRESULT OnUpdateAll(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void MakeCalendar();
    void FillLists();
    void Put();  // the form into the controls
    void Take(); // and back
    void PutReminders();
    void Update(); // states, sentence and problems, by what the controls say
    void UpdateRule(bool repeats);
    void UpdateZone();
    void ShowProblems();
    void FollowDate();
    bool IsChecked(int nID) const;

    const planner::EventForm m_before;
    planner::EventForm m_form;
    planner::EventForm m_shown; // as the controls were when the start was last read
    Choices m_choices;
    CMiniCalendarCtrl m_calendar;
    std::map<planner::FormField, std::string> m_problems;
    UINT m_dateField;
    bool m_isFilling = true;
};
