// View > Agenda: the items as a list by days that goes on at both ends as one scrolls.
#pragma once

#include <afxext.h>
#include <afxwin.h>

#include "core/CalendarTheme.h"
#include "core/TodayWatch.h"
#include "planner/AgendaTree.h"
#include "planner/CalendarSet.h"
#include "planner/ShownItems.h"
#include "views/daygrid/MonthViewCtrl.h"

#include <memory>
#include <optional>
#include <vector>

// Sent to the frame: another line is chosen, or a line is to be opened (wParam 1).
constexpr UINT WM_PLANNER_CHOSEN = WM_APP + 2;

namespace planner {
class AgendaAccess;
}

class CAgendaView : public CView
{
    DECLARE_DYNCREATE(CAgendaView)

public:
    // Brings the day to the top; what is shown is read again.
    void GoTo(planner::DayNumber day);
    planner::DayNumber TopDay() const;
    // Reads again and stays where it is.
    void Reload();
    bool Choose(const planner::OccurrenceId& id);
    std::optional<planner::Occurrence> Chosen() const;
    // The day of the chosen line, else the one that was gone to, else the one on top.
    planner::DayNumber ChosenDay() const;
    // What is shown now, for who speaks of it. Refers to the view: for the length of one question.
    planner::AgendaPage Page();
    int Version() const { return m_version; }  // another one after each reading
    int ChosenRow() const { return m_chosen; } // -1: none
    void ChooseRow(int row);                   // as the arrow keys do
    void SetTheme(const CalendarTheme& theme);
    void SetScale(int dpi);
    // The month of the topmost day, read anew into a control that is not seen and prints it as a list.
    planner::ShownItems& Paper();

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDraw(CDC* pDC) override;
    BOOL OnPreparePrinting(CPrintInfo* pInfo) override;
    void OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo) override;
    void OnPrint(CDC* pDC, CPrintInfo* pInfo) override;
    void OnEndPrinting(CDC* pDC, CPrintInfo* pInfo) override;
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint point);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg UINT OnGetDlgCode();
    DECLARE_MESSAGE_MAP()

private:
    planner::CalendarSet* Calendars();
    void Read(planner::DayNumber from, planner::DayNumber to);
    void Grow(); // at the end that is near
    void ScrollTo(int row);
    void ScrollByHand(int row);
    void ChooseItem(bool isBack);
    void PlaceBar();
    int RowHeight();
    int PageRows();
    void DrawRow(CDC& dc, const planner::AgendaRow& row, const CRect& place, bool isChosen);

    std::unique_ptr<CMonthViewCtrl> m_paperCtrl;
    planner::ShownItems m_paper;
    std::vector<planner::Occurrence> m_occurrences;
    std::vector<planner::AgendaRow> m_rows;
    int m_version = 0;
    planner::DayNumber m_from = 0, m_to = 0; // read
    planner::DayNumber m_today = 0;
    CalendarTheme m_theme;
    CFont m_font;                               // the system's, at the resolution of the screen
    int m_top = 0;                              // row
    int m_chosen = -1;                          // row
    std::optional<planner::DayNumber> m_wanted; // gone to; it may have no line. Until something is scrolled or chosen
    int m_wheel = 0;                            // left over of the last turn
    dayvane::TodayWatch m_todayWatch{[this] { Reload(); }};
    std::shared_ptr<planner::AgendaAccess> m_access; // nullptr: nobody has asked
};
