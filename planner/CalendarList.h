// The open calendars in the side pane, each with a tick box, its colour and its name: Space or a click on the box shows
// and hides it, Enter or a double click makes it the one that new items go to, the menu key offers the rest.
#pragma once

#include <afxwin.h>

#include "core/ViewScale.h"
#include "planner/CalendarSet.h"
#include "planner/PlannerTheme.h"

// Sent to the frame: what is to be done (a CalendarAction) with which calendar.
constexpr UINT WM_PLANNER_CALENDAR = WM_APP + 3;

enum class CalendarAction : WPARAM
{
    Toggle,
    Target,
    Close,
    Menu // lParam of the message: the index; the menu opens at the pointer, or at the line
};

class CCalendarList : public CListBox
{
public:
    BOOL Create(CWnd* pParent, UINT nID);
    void Show(const planner::CalendarSet& calendars);
    void SetTheme(const CalendarTheme& theme);
    void SetScale(int dpi);
    int Height() const; // of all lines

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnContextMenu(CWnd* pWnd, CPoint point);
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor);
    DECLARE_MESSAGE_MAP()

private:
    int LineAt(CPoint point) const; // -1: none
    CRect BoxOf(const CRect& line) const;
    void Request(CalendarAction action, int index);
    int LineHeight() const;

    std::vector<planner::CalendarSet::Member> m_members;
    std::size_t m_target = 0;
    CalendarTheme m_theme;
    CBrush m_ground;
    planner::ScaledFont m_font;
    dayvane::ViewScale m_scale;
};
