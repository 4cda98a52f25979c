// The planner's window: bars and panes around one view of the calendar, which is exchanged for another while the date
// and the current item stay.
#pragma once

#include <afxext.h>
#include <afxwin.h>

#include "core/PartTip.h"
#include "planner/DayChoices.h"
#include "planner/DragDrop.h"
#include "planner/ItemEditor.h"
#include "planner/Panes.h"
#include "planner/Reminders.h"
#include "planner/Words.h"
#include "planner/PlannerDoc.h"
#include "planner/PlannerTheme.h"
#include "planner/PlannerToolBar.h"
#include "planner/PrintedPages.h"
#include "planner/ShownItems.h"
#include "planner/TrayIcon.h"
#include "planner/ViewTable.h"

#include <functional>
#include <string>

class CAgendaView;
class CFindDialog;
class CReminderDialog;
class CTimeGridCtrl;

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
        planner::DayChoices days;
        UINT copySeconds = 120; // between the copies that are kept of changes
    };
    static Start s_start;

    CPlannerFrame();
    ~CPlannerFrame() override;

    // Commands that tests drive as well.
    void ShowView(const planner::ChosenView& view);
    void GoTo(const COleDateTime& day);
    void ShowProblem(const std::string& problem); // in the user's language
    // Brings bars and panes up to date with what keys have changed without a notification.
    void Idle();
    planner::ShownItems& Items() { return m_items; }
    // Prints what the view shows into a file, on paper of that name (planner/PrintedPages.h). Returns the number of
    // pages; 0 and the problem when nothing was printed.
    int PrintTo(const char* file, const std::string& paper, CString& problem);
    CPlannerDoc* Document();
    planner::CalendarSet& Calendars();
    // Shows the reminders that are due.
    void CheckReminders(const planner::PresentTime& now);
    void SpeakLanguage(planner::Language language);
    // Shows the holidays of that file (CSV) instead of the law's in its years; empty: the law's again.
    void ShowHolidaysOf(const std::string& path);
    // What another program has dropped at a point of the screen.
    void TakeDrop(const planner::DroppedData& data, CPoint screen);
    IDropTarget* DropTarget() const { return m_drops->Target(); }
    void Import(const std::string& path); // UTF-8
    // For pictures and trials: item, new, series, changed, find, date, reminders, pages, question or progress. False:
    // there is no such.
    bool OpenDialog(const std::string& name);

protected:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext* pContext) override;
    void OnUpdateFrameTitle(BOOL bAddToTitle) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg int OnCreate(LPCREATESTRUCT lpcs);
    afx_msg void OnClose();
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg BOOL OnQueryEndSession();
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg LRESULT OnTrayMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnTaskBarMade(WPARAM wParam, LPARAM lParam);
    afx_msg void OnTray();
    afx_msg void OnUpdateTray(CCmdUI* pCmdUI);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnDropFiles(HDROP hDropInfo);
    afx_msg LRESULT OnSetMessageString(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnAgendaChosen(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnLoaded(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnCalendarAction(WPARAM wParam, LPARAM lParam);
    afx_msg void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
    afx_msg LRESULT OnPicked(WPARAM wParam, LPARAM lParam);

    // Notifications of the view's control and of the small calendars
    afx_msg void OnRightPress(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnItemOpen(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnTextAsked(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnItemMenu(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnItemMoved(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnEditEnded(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnRangeChanged(NMHDR* pHeader, LRESULT* pResult);
    afx_msg void OnDaySelected(NMHDR* pHeader, LRESULT* pResult);

    // Commands
    afx_msg void OnUndo();
    afx_msg void OnRedo();
    afx_msg void OnNewItem();
    afx_msg void OnDetails();
    afx_msg void OnNewDetails();
    afx_msg void OnFind();
    afx_msg void OnGoTo();
    afx_msg void OnCopy(UINT nID);
    afx_msg void OnPaste();
    afx_msg void OnImport();
    afx_msg void OnExportItems();
    afx_msg void OnOpenFurther();
    afx_msg void OnSaveWorkspace();
    afx_msg void OnCategory(UINT nID);
    afx_msg void OnUpdateCategory(CCmdUI* pCmdUI);
    afx_msg void OnReminders();
    afx_msg void OnLanguage(UINT nID);
    afx_msg void OnRecentFile(UINT nID);
    afx_msg void OnUpdateDetails(CCmdUI* pCmdUI);
    afx_msg void OnUpdatePaste(CCmdUI* pCmdUI);
    afx_msg void OnUpdateExport(CCmdUI* pCmdUI);
    afx_msg void OnUpdateReminders(CCmdUI* pCmdUI);
    afx_msg void OnUpdateLanguage(CCmdUI* pCmdUI);
    afx_msg void OnUpdateRecent(CCmdUI* pCmdUI);
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
    afx_msg void OnDayChoice(UINT nID);
    afx_msg void OnZone(UINT nID);
    afx_msg void OnLoadHolidays();
    afx_msg void OnHolidaysByLaw();
    afx_msg void OnUpdateHolidaysByLaw(CCmdUI* pCmdUI);
    afx_msg void OnUpdateDayChoice(CCmdUI* pCmdUI);
    afx_msg void OnUpdateZone(CCmdUI* pCmdUI);
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
    static constexpr int kDayPane = 1; // of the status bar
    static constexpr int kCountPane = 2;
    static constexpr int kCountPaneWidth = 110; // pixels at 96 dpi

    static constexpr UINT_PTR kReminderTimer = 1;
    static constexpr UINT_PTR kCopyTimer = 2;
    COleDateTime ShownDay(); // the selected day when it is in view, else the view's own
    void SetUpView();
    void ShowFirstHours();
    void ApplyTimeScale();
    static void FillHeight(CTimeGridCtrl& grid);
    COleDateTime FirstDay(); // to show of a file
    CAgendaView* Agenda();   // nullptr: another view is shown
    void Follow();
    void Finish(const planner::EditResult& result);
    planner::EventTimes NewTimes();
    const planner::Occurrence* ItemAt(CPoint client, CRect& part);
    void FollowPointer(const MSG& message); // of the view: tips
    bool DragsOut(const MSG& message);
    void BeginDrops();
    std::optional<planner::EventTimes> PlaceAt(CPoint screen);
    void ShowTray(bool isShown);
    struct Drop
    {
        bool isInView;
        COleDateTime day; // of the small calendars; not valid: none
    };
    Drop DropAt(CPoint screen);
    void TakeBack();
    void FinishMerge(const planner::MergeReport& report);
    void OpenOrImport(const std::vector<std::string>& paths);
    void Dismiss(const std::vector<planner::DueReminder>& due);
    void TakeSettings();
    void TakePlace(const planner::IniText& ini);
    void KeepSettings();
    bool KeepCopy();
    void RefreshFound();  // the dialog that finds items
    void ShowCalendars(); // another choice of them, or other colours
    void OpenCalendarMenu();
    void OnCalendarCommand(UINT nID);
    void MakeMenu(); // in the user's language, with the files opened before
    void RememberFile();
    void ShowMessages(const std::vector<planner::Message>& others);
    void ChangeItem(const planner::OccurrenceId& id, const std::string& question,
                    const std::function<planner::EditResult(planner::Scope)>& change);
    void Reveal(const planner::OccurrenceId& id);
    void ShowCurrent();
    // In the status bar, until something else is to be shown; in the user's language.
    void ShowStatus(const std::string& text);
    void ApplySettings(CCalendarCtrl& ctrl);
    void ApplyTexts();
    void BeginDayChoices();
    void SpeakOfDays(); // in the user's language
    void KeepDays();
    void ApplyDays(CCalendarCtrl& ctrl);
    void ShowDayNotes(const COleDateTime& day); // in its pane of the status bar
    void ForgetDialogs();
    void ApplyTheme(); // to the view, bars and panes
    void ApplyScale();
    void Zoom(int steps);          // 0: back to 100 %
    bool IsReadyToPrint(UINT nID); // before a command to print or to look at the pages
    CCalendarCtrl* PrintedCtrl();  // of the view, with a printer by the page settings; nullptr: there is none
    planner::PageSettings Pages(); // as they are for the view: an agenda is a list
    BOOL* SettingOf(UINT nID);
    CWnd* PaneOf(UINT nID);
    static planner::CalendarSet* CalendarOf(LPARAM lFrame);

    planner::ChosenView m_view;
    COleDateTime m_day;      // to show when there is a view; not valid at first: see FirstDay
    COleDateTime m_followed; // by the bars and panes
    std::string m_statusText;
    std::string m_title;
    planner::OccurrenceId m_statusItem; // the current item when its details were last shown
    bool m_altTaken = false;            // the key pressed with Alt was a command
    planner::ShownItems m_items;
    planner::ItemEditor m_editor;
    std::size_t m_menuCalendar = 0;        // that the commands of the list of calendars are about
    std::vector<std::string> m_categories; // of the menu; the first one: none
    planner::Reminders m_reminders;
    std::unique_ptr<CFindDialog> m_find;
    std::unique_ptr<CReminderDialog> m_reminderBox;
    HMENU m_menu = nullptr;
    dayvane::PartTip m_tip;
    std::string m_tipText;
    CRect m_tipPart;
    CPoint m_pointerBefore; // when the window was made; off the screen once it has moved
    std::unique_ptr<planner::DropPlace> m_drops;
    planner::OccurrenceId m_dragged; // out of the window
    TrayIcon m_tray;
    BOOL m_usesTray = FALSE;
    bool m_isCopyKept = true; // or there is nothing to be kept
    planner::PageSettings m_pages;

    CPlannerToolBar m_toolBar;
    CThemedStatusBar m_statusBar;
    CSidePane m_sidePane;
    CMessagePane m_messagePane;
    planner::DayChoices m_days;
    std::string m_holidayList; // a file (UTF-8); empty: the law's holidays
    int m_rowsPerHour = 0;     // of the time grids; 0: what suits the items
    BOOL m_remind = TRUE;
    BOOL m_mondayFirst = FALSE;
    BOOL m_holidays = TRUE;
    BOOL m_solarTerms = TRUE;
    planner::ThemeChoice m_theme;
    int m_dpi;        // of the screen that the window is on
    int m_zoom = 100; // of the view, per cent
    dayvane::SystemThemeWatch m_themeWatch;
};
