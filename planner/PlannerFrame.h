// The planner's window: bars and panes around one view of the calendar, which is exchanged for another while the date
// and the current item stay.
#pragma once

#include <afxext.h>
#include <afxwin.h>

#include "planner/ItemEditor.h"
#include "planner/Panes.h"
#include "planner/PlannerDoc.h"
#include "planner/PlannerTheme.h"
#include "planner/PlannerToolBar.h"
#include "planner/PrintedPages.h"
#include "planner/ShownItems.h"
#include "planner/ViewTable.h"

class CPlannerFrame : public CFrameWnd
{
    DECLARE_DYNCREATE(CPlannerFrame)

public:
    // What the next frame begins with.
    struct Start
    {
        planner::ChosenView view = {nullptr, 0};
        COleDateTime day;              // not valid: today, or where the items are
        CSize size = CSize(1180, 860); // pixels
        bool asList = false;           // printed as a list of items
        planner::ThemeChoice theme = planner::ThemeChoice::System;
        int dpi = 0; // of bars, panes and views; 0: the screen's
    };
    static Start s_start;

    CPlannerFrame();

    // Commands that tests drive as well.
    void ShowView(const planner::ChosenView& view);
    void GoTo(const COleDateTime& day);
    void ShowProblem(const CString& problem);
    // Brings bars and panes up to date with what keys have changed without a notification.
    void Idle();
    planner::ShownItems& Items() { return m_items; }
    // Prints what the view shows into a file, on paper of that name (planner/PrintedPages.h). Returns the number of
    // pages; 0 and the problem when nothing was printed.
    int PrintTo(const char* file, const std::string& paper, CString& problem);
    CPlannerDoc* Document();

protected:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext* pContext) override;
    void OnUpdateFrameTitle(BOOL bAddToTitle) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg int OnCreate(LPCREATESTRUCT lpcs);
    afx_msg void OnClose();
    afx_msg LRESULT OnSetMessageString(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnLoaded(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnPicked(WPARAM wParam, LPARAM lParam);

    // Notifications of the view's control and of the small calendars
    afx_msg void OnItemOpen(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnItemMenu(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnItemMoved(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnEditEnded(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnRangeChanged(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnDaySelected(NMHDR* pHeader, LRESULT* pResult);

    // Commands
    afx_msg void OnUndo();
    afx_msg void OnRedo();
    afx_msg void OnNewItem();
    afx_msg void OnRename(UINT nID);
    afx_msg void OnDelete(UINT nID);
    afx_msg void OnView(UINT nID);
    afx_msg void OnDays(UINT nID);
    afx_msg void OnToday();
    afx_msg void OnStep(UINT nID);
    afx_msg void OnScale(UINT nID);
    afx_msg void OnSetting(UINT nID);
    afx_msg void OnPane(UINT nID);
    afx_msg void OnTheme(UINT nID);
    afx_msg void OnZoom(UINT nID);
    afx_msg LRESULT OnDpiChanged(WPARAM wParam, LPARAM lParam);
    afx_msg void OnNextPane();
    afx_msg void OnPageSetup();
    afx_msg void OnExportPages();
    afx_msg void OnAbout();
    afx_msg void OnUpdateUndo(CCmdUI* pCmdUI);
    afx_msg void OnUpdateRedo(CCmdUI* pCmdUI);
    afx_msg void OnUpdateOfItem(CCmdUI* pCmdUI);
    afx_msg void OnUpdateView(CCmdUI* pCmdUI);
    afx_msg void OnUpdateDays(CCmdUI* pCmdUI);
    afx_msg void OnUpdateScale(CCmdUI* pCmdUI);
    afx_msg void OnUpdateSetting(CCmdUI* pCmdUI);
    afx_msg void OnUpdatePane(CCmdUI* pCmdUI);
    afx_msg void OnUpdateTheme(CCmdUI* pCmdUI);
    DECLARE_MESSAGE_MAP()

private:
    COleDateTime ShownDay(); // the selected day when it is in view, else the view's own
    void SetUpView();
    void ShowFirstHours();
    void ApplyTimeScale();
    COleDateTime FirstDay(); // to show of a file
    void Follow();
    void Finish(const planner::EditResult& result);
    void Reveal(const planner::OccurrenceId& id);
    void ShowCurrent();
    void Tell(const CString& text); // in the status bar, until something else is to be told
    void ApplySettings(CCalendarCtrl& ctrl);
    void ApplyTheme(); // to the view, bars and panes
    void ApplyScale();
    void Zoom(int steps);          // 0: back to 100 %
    bool IsReadyToPrint(UINT nID); // before a command to print or to look at the pages
    void SetUpPrinter();           // of the control, by the page settings
    BOOL* SettingOf(UINT nID);
    CWnd* PaneOf(UINT nID);
    static planner::Document* CalendarOf(LPARAM lFrame);

    planner::ChosenView m_view;
    COleDateTime m_day;      // to show when there is a view; not valid at first: see FirstDay
    COleDateTime m_followed; // by the bars and panes
    CString m_told;
    planner::OccurrenceId m_toldItem; // the current item when something was told of it last
    bool m_altTaken = false;          // the key pressed with Alt was a command
    planner::ShownItems m_items;
    planner::ItemEditor m_editor;
    planner::PageSettings m_pages;

    CPlannerToolBar m_toolBar;
    CThemedStatusBar m_statusBar;
    CSidePane m_sidePane;
    CMessagePane m_messagePane;
    int m_rowsPerHour = 0; // of the time grids; 0: what suits the items
    BOOL m_mondayFirst = FALSE;
    BOOL m_holidays = TRUE;
    BOOL m_solarTerms = TRUE;
    planner::ThemeChoice m_theme;
    int m_dpi;        // of the screen that the window is on
    int m_zoom = 100; // of the view, per cent
    dayvane::SystemThemeWatch m_themeWatch;
};
