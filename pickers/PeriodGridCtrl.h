// CPeriodGridCtrl: what the two mini calendars have in common. A plain window with a grid of periods (months or years),
// each a title over its cells (days or months), two arrows that page by one period, a line below that names the present
// cell, and a popup that runs through periods while the left button is held on a title. One cell or a range of cells is
// selected.
//
// Hosts use CMiniCalendarCtrl and CMiniCalendarCtrl2. Coordinates are client pixels; the blocks have a fixed size and
// begin at the top of the client area, centred from left to right. What sets a value only stores it unless stated: call
// Refresh() to see it. Cells are dates at 00:00, and everything stays within the years 100 to 9999.
//
// To the parent it sends WM_NOTIFY with its dialog identifier:
//   MCN_SELECT (-746)  NMSELCHANGE  the user has selected: at once without ranges and from the line below, at the
//                                   button's release with ranges, at each key that moves the selection
//   NM_DBLCLK  (-3)    NMHDR        double click on a cell, or Enter
// The wheel pages, and so does a sweep that is held beside the blocks. The mark of the present cell follows the clock.
//
// The parent may do anything while it handles them: change the control, destroy its window, delete the object.
//
// Keys: arrows move by cells, Page Up and Down by periods (with Ctrl by twelve months or ten years), Home and End to
// the ends of the period (with Ctrl of all shown), T to the present moment, Shift extends a range where ranges are on,
// Enter sends NM_DBLCLK, Escape cancels a sweep or the popup. Losing the mouse capture or the focus cancels them, too,
// and so does releasing the button outside the popup.
#pragma once

#include "../core/PartTip.h"
#include "../core/TodayWatch.h"
#include "PickerWindow.h"

#include <afxwin.h>
#include <afxtempl.h>
#include <afxdisp.h>

#include <memory>

struct CCreateContext;
class CPeriodSelCtrl;

namespace dayvane {
class DayProvider;
class PeriodGridAccess;
struct GridEffects;
struct GridHit;
struct PeriodGridLayout;
class PeriodGridPainter;
struct PeriodGridState;
struct PeriodPolicy;
} // namespace dayvane

class CPeriodGridCtrl : public CPickerOf<CWnd>
{
    DECLARE_DYNAMIC(CPeriodGridCtrl)

public:
    // Whether a cell is drawn bold: a host's mark, as for days that have items. Asked for each cell of a period itself
    // whenever the control lays itself out (Refresh, paging), not while it paints.
    typedef BOOL (*PFNISBOLD)(const COleDateTime& date, LPARAM lParam);
    // The colour of a dot under a cell's number, as for busy days; CLR_NONE: no dot. Asked when PFNISBOLD is.
    typedef COLORREF (*PFNDOTCOLOR)(const COleDateTime& date, LPARAM lParam);

    ~CPeriodGridCtrl() override;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext = nullptr);

    // ---- What is shown
    void SetRowAndCol(int nRows, int nCols);
    void GetRowAndCol(int& nRows, int& nCols) const;
    // As many blocks as fit into cx by cy pixels with the line below them, at least one row and column.
    void RecalcRowAndCol(int cx, int cy);
    CSize GetGridSize() const; // client pixels that rows and columns take at the present scale, with the line below
    COleDateTime GetCurrentDate() const; // the first day of the first period shown
    void MoveLeft(int nCount);           // one period back, whatever the argument; lays out and redraws
    void MoveRight(int nCount);          // one period on
    void SetFirstDayOfWeek(int nDay);    // 1 Sunday .. 7 Saturday; others raise CInvalidArgException
    int GetFirstDayOfWeek() const;
    void SetBoldCallback(PFNISBOLD pfnIsBold, LPARAM lParam = 0); // nullptr: none
    // Where days off and the names of days come from. Asked for days off at each layout, for a name when the pointer
    // comes to a day. It must live until another is set; nullptr: the process-wide provider
    // (SetDefaultDayProvider), and where there is none CCalcHoliday.
    void SetDayProvider(const dayvane::DayProvider* pProvider) { m_pDayProvider = pProvider; }
    void SetDotCallback(PFNDOTCOLOR pfnDotColor, LPARAM lParam = 0); // nullptr: none
    // Computes all rectangles for a client area; a negative size stands for the window's own.
    virtual void Layout(int cx, int cy);
    void Refresh(); // lays out and redraws
    // Words and patterns of dates; sets the first day of the week, too, when the texts have one. Lays out and redraws.
    void SetTexts(const CalendarTexts& texts);

    // ---- Selection: both bounds as they were given or selected; invalid both when there is none.
    void GetSel(COleDateTime& start, COleDateTime& end) const;
    // Shows the start's period first, lays out and redraws. Nothing is notified.
    void SetSel(const COleDateTime& start, const COleDateTime& end);
    void Unselect();
    // 1: both bounds are valid and start <= date <= end, times of day included; else 0.
    int IsSelected(const COleDateTime& date) const;
    // TRUE: a press starts a sweep that can select a range. FALSE: a press selects the one cell.
    void SetRangeSelect(BOOL bRange);
    BOOL IsRangeSelect() const;

    // ---- Where things are, as last laid out
    const dayvane::PeriodGridLayout& GetGridLayout() const;
    CPeriodSelCtrl* GetPopup() const { return m_pPopup; } // nullptr while none is open

    // ---- Notifications. The control may be gone when they return.
    virtual void FireNotifyClick();
    virtual void FireNotifyDblClick();

protected:
    friend class CPeriodSelCtrl;
    friend class dayvane::PeriodGridAccess;
    void OnPopupGone(CPeriodSelCtrl* pPopup);

    CPeriodGridCtrl(const dayvane::PeriodPolicy& policy, LPCTSTR lpszClassName);

    // The popup for a period, made on the heap.
    virtual CPeriodSelCtrl* MakePopup(int nPeriod) = 0;
    // Paints the whole client area.
    virtual void DrawCtrl(CDC* pDC) = 0;
    virtual void DrawHeader(CDC* pDC); // titles and arrows

    void ApplyScale(int dpi) override; // lays out and redraws
    void OptionsChanged() override;
    void ThemeChanged() override { m_tip.SetTheme(m_theme); }
    // Shows the periods in another form, at the present scale.
    void ShowPolicy(const dayvane::PeriodPolicy& policy);
    // Paints this control as it is now.
    dayvane::PeriodGridPainter Painter(CDC* pDC) const;
    void DrawBackground(CDC* pDC);
    void Redraw();

    // Applies the effects of an event; the last step may end the control.
    void Apply(const dayvane::GridEffects& effects);
    void OpenPopup();
    void ClosePopup();
    void Cancel();
    void InvalidatePart(const dayvane::GridHit& hit);
    void Hover(const dayvane::GridHit& hit);
    const dayvane::DayProvider* GetDayProvider() const;
    bool IsDayOff(const COleDateTime& day) const;
    // The names of a day as the tip of its cell; no tip for other parts and unnamed days.
    void ShowTip(const dayvane::GridHit& hit);
    // Starts or ends paging while a sweep is held at a point.
    void PageBeside(CPoint point);

    // Message handlers, in the order of the message map
    void PreSubclassWindow() override;
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC*) { return TRUE; } // the whole client area is painted off screen
    afx_msg void OnSysColorChange();
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnMouseLeave();
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnSetFocus(CWnd*) { Invalidate(FALSE); }
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg void OnCancelMode() { Cancel(); }
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg LRESULT OnUpdateUIState(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    CString m_strClassName;
    std::unique_ptr<dayvane::PeriodGridState> m_state; // model, layout, marks and fonts
    CPeriodSelCtrl* m_pPopup = nullptr;
    UINT_PTR m_nPopupTimer = 0;
    PFNISBOLD m_pfnIsBold = nullptr;
    LPARAM m_lBoldParam = 0;
    PFNDOTCOLOR m_pfnDotColor = nullptr;
    LPARAM m_lDotParam = 0;
    const dayvane::DayProvider* m_pDayProvider = nullptr;
    dayvane::PartTip m_tip;
    BOOL m_bTracksLeave = FALSE;
    int m_nSweepSide = 0;  // where a sweep is held beyond the cells: -1 before them, 1 after, 0 neither
    int m_nWheelDelta = 0; // turned, and not yet a page
    dayvane::TodayWatch m_today;
};

// A cell of a mini calendar: a day, or a month as its first day, at 00:00. The date is invalid beyond the years 100 to
// 9999; such a cell selects nothing.
struct CPeriodGridCell
{
    CRect rcCell;
    COleDateTime dtDate;
};

// The part of a mini calendar that keeps its public records. Record has the fields rcTitle, nRow, nCol, rcCells and
// arCells (of CPeriodGridCell), and SetPeriod writes the fields that name its period. The bodies are in
// PeriodGridRecords.h, for the sources of the two calendars.
template <class Record>
class CPeriodGridOf : public CPeriodGridCtrl
{
public:
    typedef CArray<Record, const Record&> CRecordArray;

    void Layout(int cx, int cy) override;
    // TRUE: the cell of the point, which is copied out.
    BOOL HitTest(CPoint point, CPeriodGridCell& cell) const;
    // The record whose title holds the point, in the array of all records; nullptr: none.
    Record* HeaderHitTest(CPoint point);
    const Record* HeaderHitTest(CPoint point) const { return const_cast<CPeriodGridOf*>(this)->HeaderHitTest(point); }

protected:
    using CPeriodGridCtrl::CPeriodGridCtrl;

    CRecordArray m_arRecords; // as the layout's blocks
};
