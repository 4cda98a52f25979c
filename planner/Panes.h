// The windows around the view: small calendars at the left, what could not be read at the bottom. Each takes its place
// in the frame as bars do.
#pragma once

#include <afxwin.h>

#include "pickers/MiniCalendarCtrl.h"
#include "planner/BusyDays.h"
#include "planner/CalendarList.h"
#include "planner/PlannerTheme.h"

class CSidePane : public CWnd
{
public:
    // Days with items of the document have a dot; without a document (nullptr) none are.
    typedef planner::CalendarSet* (*PFNDOCUMENT)(LPARAM lParam);
    CSidePane(PFNDOCUMENT pfnDocument, LPARAM lParam) : m_pfnDocument(pfnDocument), m_lParam(lParam) {}

    BOOL Create(CWnd* pParent, UINT nID);
    void SetFirstDayOfWeek(int nDay);
    // Selects the day; its month comes into view when it is not yet there.
    void Follow(const COleDateTime& day);
    void DocumentChanged();
    void ShowCalendars(const planner::CalendarSet& calendars); // a list of them where there are several
    void SetTexts(const CalendarTexts& texts);
    // Changes the pane's width: the frame lays out again.
    void ShowWeekNumbers(BOOL bShow, dayvane::WeekRule rule);
    void SetTheme(planner::ThemeChoice choice);
    void SetScale(int dpi);
    // The day under a point of the screen, which a dragged item is dropped on; FALSE: none.
    BOOL DayAt(CPoint screen, COleDateTime& day) const;
    CMiniCalendarCtrl& Calendar() { return m_calendar; }
    CCalendarList& List() { return m_list; }
    int Width() const;
    bool IsInSight() const { return m_hasRoom && IsWindowVisible(); }

protected:
    static COLORREF DotOf(const COleDateTime& date, LPARAM lParam);
    BOOL IsShown(const COleDateTime& day) const;

    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    // What the calendar reports goes on to the frame.
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    afx_msg LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    PFNDOCUMENT m_pfnDocument;
    LPARAM m_lParam;
    planner::BusyDays m_busyDays;
    void Arrange();

    CMiniCalendarCtrl m_calendar;
    BOOL m_weekNumbers = FALSE;
    bool m_hasRoom = true;
    CCalendarList m_list;
};

class CMessagePane : public CListBox
{
public:
    BOOL Create(CWnd* pParent, UINT nID);
    void Show(const std::vector<planner::Message>& messages);
    void SetTheme(const CalendarTheme& theme);
    void SetScale(int dpi);

protected:
    afx_msg LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor);
    DECLARE_MESSAGE_MAP()

private:
    CalendarTheme m_theme;
    CBrush m_ground;
    planner::ScaledFont m_font;
};
