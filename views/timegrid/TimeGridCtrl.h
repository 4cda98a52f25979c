// What the day view and the multi-day view share as windows: columns of days over one time ruler, scrolling, row moves,
// the now line, painting.
//
// Coordinates are client pixels. Screen items have the place that they have when the grid is scrolled to the top; the
// bars of the full-day band do not scroll. The band is as high as the lanes that the last layout counted, also where a
// small window has no room left for the grid. The window gets a vertical scroll bar where the rows of the day do not
// fit, also without WS_VSCROLL.
#pragma once

#include "../../core/MoreListCtrl.h"

#include <memory>
#include <vector>

namespace dayvane {
struct DayTone;
struct DayRange;
struct GridScroll;
struct GridSelection;
struct GridWindow;
struct MoreMark;
struct ShownDay;
struct TimeGridHit;
struct TimeGridMetrics;
struct TimeGridParts;
struct TimeGridState;
struct TimeScale;
struct ZoneRuler;
class WorkHours;
class TimeGridPainter;
} // namespace dayvane

class CTimeGridCtrl : public CMoreListCtrl
{
    DECLARE_DYNAMIC(CTimeGridCtrl)

public:
    typedef CArray<tagCV_LAYOUT, tagCV_LAYOUT> CRowLayoutArray;

    CTimeGridCtrl();
    ~CTimeGridCtrl() override;

    // A line at the present time across the column of today, moved each minute. Off unless set.
    void ShowNowLine(BOOL bShow);
    BOOL IsShowNowLine() const { return m_options.nowLine; }

    // Work periods for each weekday and for single dates (calc/WorkHours.h) instead of SetWorkTime and
    // SetWorkDayOfWeek. The control keeps a copy. A day's own work time (SetDayProperty) goes before them.
    void SetWorkHours(const dayvane::WorkHours& hours);
    void ClearWorkHours();
    // A second ruler with the clock of another zone, and the changes of the clock that the items go by
    // (views/timegrid/ZoneRuler.h). The rulers go by the current date. The control keeps a copy.
    void SetZoneRuler(const dayvane::ZoneRuler& ruler);
    void ClearZoneRuler();

    void SetCurrentDate(const COleDateTime& date) override;
    using CCalendarCtrl::Layout;
    void Layout(int cx, int cy) override;
    // Scrolls down, from where it is, by as many lines as the time (nullptr: now) lies below the top of the day.
    void SyncToPresent(const COleDateTime* pWhen) override;
    // Scrolls so that the row of the time of day is the first in sight, or as near to it as the end of the day allows.
    // Scrolling that waits (SyncToPresent) is done first here and in the next two.
    void ScrollToTime(const COleDateTime& when);
    // Scrolls, and no further than needed, to show the item, at least its begin, or the mark that counts it. FALSE when
    // the shown days have none of it. nIndex: in the store.
    BOOL EnsureVisible(int nIndex);
    // Pixels from the top of the day; held between 0 and what does not fit.
    void SetVertScrollOffset(int nOffset);

    void SetFocusToItem() override;
    void BeginEditItem(const char* lpszText) override; // brings the cell or the item in sight first

    // Gives the full-day items of the screen list their lanes in the band.
    virtual void CalcFulldayItemRect(CRect rcBand, CItemArray& screenItems) = 0;
    // Fills one record for each grid row with the timed items that cover it, and raises their parallel counts. A time
    // that leads to a row outside the day throws CInvalidArgException.
    void GetMaxParalelCalendarItems(CItemArray& screenItems, CRowLayoutArray& layout);
    // 1 plus the largest number of timed items whose rectangles intersect one timed item's rectangle; at least 1.
    int CalcOverlayedNumber(const CItemArray& screenItems);

protected:
    static constexpr int kRangeChangeValue = 0x801; // nValue of CCN_VIEWRANGECHANGE

    // ---- What a view says of its columns, counted from 0.

    virtual dayvane::DayRange GetShownRange() const = 0;
    virtual BOOL IsColumnWorkTime(int nColumn, int nRow) const = 0;
    virtual BOOL IsColumnUseMyWorkTime(int nColumn) const = 0;
    virtual void CurrentDateMoved() = 0; // it may have come to another day

    // ---- Hooks of the base.

    void DrawCtrl(CDC* pDC) override;
    void DrawRuler(CDC* pDC, CRect rcRuler) override;
    CRect GetPaintedBox(const tagCALENDAR_ITEM& screenItem) override;
    void GetPaintedState(dayvane::PaintedState& state) override;
    void DayProviderChanged() override;
    void ScaleChanged(const dayvane::ViewScale& before) override;
    void ForgetDrawn() override;
    void InvalidateCellRectRange() override;
    // nMode 1: the rectangle is an item's, 0: a cell's, of a selection of whole days one in the band.
    void GetCurCellRect(CRect& rect, int& nMode) override;
    void MoveBackward(UINT nFlags) override { MoveRow(TRUE, nFlags); }
    void MoveForward(UINT nFlags) override { MoveRow(FALSE, nFlags); }
    void MoveToEnd(BOOL bLast, UINT nFlags) override;
    int GetPullableEdges(const tagCALENDAR_ITEM& screenItem) override;
    dayvane::KeyStep GetKeyStep(dayvane::KeyArrow arrow, bool bWholeDays) override;
    void ShowMoved(const COleDateTime& when, BOOL bWholeDays) override;
    void DescribeParts(dayvane::ViewParts& parts) override;
    void SelectionMoved() override; // the current date follows
    void OptionsChanged(const CalendarOptions& before) override;
    BOOL OpenMoreListAt(CPoint point) override;
    BOOL OpenMoreListOf(const COleDateTime& date) override;
    void DrawListRow(CDC* pDC, const tagCALENDAR_ITEM& item) override;
    void DrawListEnd(CDC* pDC, const CRect& rcList) override;
    void DrawItemBox(CDC& dc, const dayvane::ItemBox& box) override;
    CRect GetFocusBox() override;
    BOOL FindTip(const tagCCHITTESTINFO& hit, CRect& rcPart, std::u16string& strText) override;
    void PreSubclassWindow() override;
    void HitListedItem(const tagCALENDAR_ITEM& item, const COleDateTime& dtFirst, tagCCHITTESTINFO& hit) override;

    // ---- Hooks of the time grids.

    virtual void DrawHeader(CDC* pDC, CRect rcHeader);
    virtual void DrawFulldayRuler(CDC* pDC, CRect rcBand);
    virtual void DrawFulldayContent(CDC* pDC, CRect rcBand);
    virtual void DrawFulldayItem(CDC* pDC, CRect rcBand, CItemArray& screenItems);
    // The texts of a day above the grid, at the point, that are cut off, and where they stand; empty: none is.
    virtual std::u16string FindCutDayText(const tagCCHITTESTINFO& hit, CRect& rcPart) = 0;

    // ---- Services for the views.

    dayvane::TimeScale Scale() const;
    dayvane::TimeGridState State() const; // as laid out and scrolled now
    dayvane::TimeGridPainter Painter(CDC* pDC) const;
    // The shown days with their holidays and terms, worked out anew when others are shown.
    const std::vector<dayvane::ShownDay>& GetShownDays();
    dayvane::DayTone ToneOfColumn(int nColumn);
    int CalcLinesHeight(const CRect& client); // of the lines under the names of the days; 0: none
    void DrawDayLines(CDC* pDC, int nColumn);
    CRect GetLinesArea(int nColumn);               // in the header of a day
    int GetZoneRulerWidth() const;                 // 0: one ruler
    dayvane::TimeGridMetrics FrameMetrics() const; // with the second ruler
    // Builds the screen items of the shown days. When the band then needs another height than the layout gave it, the
    // rectangles of the layout follow at once, so that an added item never lies over the grid.
    void MakeScreenItem(CItemArray& items, CItemArray& screenItems) override;
    // Lays the shown items out: the timed ones in the columns (a single one: in rcGrid), the bars by
    // CalcFulldayItemRect. Where MakeScreenItem has only made some anew, only the columns of those.
    void CalcItemRect(CRect rcGrid, CItemArray& screenItems) override;
    // CalcLayout of the views: the frame of the shown days, its rectangles for the hooks.
    void CalcGridLayout(const CRect& rcClient, bool isCaptionShown, int nHeaderHeight, CRect& rcCaption, CRect& rcRuler,
                        CRect& rcGrid);
    int LanesIn(const CRect& rcClient) const; // of the full-day band
    void KeepTimedMarks(std::vector<dayvane::MoreMark> marks);
    const dayvane::MoreMark* FindMarkOf(LPARAM nItem) const; // that counts the item; nullptr: it is not hidden
    void LimitBand(const CRect& rcBand, CItemArray& screenItems);
    int FillHit(tagCCHITTESTINFO& info, const dayvane::TimeGridHit& hit) const; // returns the item
    // The selection as the moves take it: one without dates begins at the current date; a current date on another day
    // gives way to the selection.
    dayvane::GridSelection Selection() const;
    void SetSelection(const dayvane::GridSelection& selection); // and repaints what it leaves and takes
    void Rebuild(); // items and rectangles for what is shown now, and a repaint
    void InvalidateGrid();
    void KeepCursorInSight(); // scrolls to the row of the selection's end
    // The screen list's position of the item that has the focus, -1 none.
    int GetFocusedScreenItem() const;
    BOOL IsSelectionDrawn() const { return IsSelectionShown() || IsDragging(); }
    void DrawRows(CDC* pDC, int nColumn);
    void DrawTimedItem(CDC* pDC, const tagCALENDAR_ITEM& item, int nColumnRight); // left of that edge
    void DrawTimedItem(CDC* pDC, const dayvane::TimeGridState& state, const tagCALENDAR_ITEM& item, int nColumnRight);

    CRect m_rcFulldayContent = CRect(0, 0, 0, 0); // the band right of the ruler
    CRect m_rcFulldayRuler = CRect(0, 0, 0, 0);   // the band over the ruler
    std::unique_ptr<dayvane::TimeGridParts> m_pParts;

    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint point);
    afx_msg LRESULT OnMouseHWheel(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    bool RemakeShownItems(const dayvane::DayRange& range);
    bool ServeWaitingScroll();
    void ScrollTo(int nOffset);
    void RepaintScrolled(int nOldOffset);
    bool RowsFillGrid(int nOffset) const;
    void RepaintCutBoxes(int nOldOffset);
    void ShowInGrid(const CRect& box, bool inBand);
    void CalcFrame();
    void MoveRow(BOOL bLater, UINT nFlags);
    dayvane::GridWindow RowWindow() const;
    dayvane::GridScroll GetScroll();
    void SetScroll(const dayvane::GridScroll& scroll);
    void UpdateScrollRange();
    void RestartNowTimer();
    void LeaveWholeDay();
    void ChangeScale(int nSteps, int y);
    void TurnPages(int nPages);
    void SizeTo(int cx, int cy);
    BOOL FitsText(const tagCALENDAR_ITEM& item);
    bool HasPlaceForText(const dayvane::tagCALENDAR_ITEM& item) const;
    BOOL HasMarks(BOOL bBar, int nWidth) const;
    void DrawNowLine(CDC* pDC);
    void DrawMoreMarks(CDC* pDC);
    template <class Draw>
    void DrawInTheme(const tagCALENDAR_ITEM& item, Draw draw);
    void DrawTimedBox(CDC* pDC, const dayvane::TimeGridPainter& painter, const tagCALENDAR_ITEM& item,
                      const dayvane::ItemBox& box);
    void DrawBar(CDC* pDC, const dayvane::ItemBox& box, const std::u16string& text);
    void DrawThemedBar(CDC* pDC, const dayvane::ItemBox& box, const tagCALENDAR_ITEM& item, const std::u16string& text);

    void FillDayPieces(dayvane::ShownDay& day);
    BOOL IsWorkRow(int nColumn, int nRow);
    int GetWorkBegin(int nColumn); // the hour; -1: no work
    COleDateTime GetRulerDay() const;

    BOOL m_bSizing = FALSE; // the size has changed: the scroll position follows in proportion
};
