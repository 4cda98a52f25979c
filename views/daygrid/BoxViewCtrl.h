// What the week and the year view share: two rows of boxes that stand for days or months, each with a caption strip,
// the items as bars below it. The views say which date a box stands for and what is written in it.
//
// Notifications besides those of CCalendarCtrl: CCN_SELDATECHANGE before each scroll step (time: the date that will be
// selected), CCN_VIEWRANGECHANGE with nValue 4100 after it, also where the step left the range as it was.
#pragma once

#include "BoxViewLayout.h"
#include "DayGridCtrl.h"
#include "MonthPainter.h"

class CBoxViewCtrl : public CDayGridCtrl
{
    DECLARE_DYNAMIC(CBoxViewCtrl)

public:
    ~CBoxViewCtrl() override;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext = nullptr) override;

    using CCalendarCtrl::Layout;
    void Layout(int cx, int cy) override;
    int HitTest(tagCCHITTESTINFO& info) override;

    // Shows the week (the year) of the date with its items and selects the date. An invalid date shows nothing.
    void SetCurrentDate(const COleDateTime& date) override;
    // The week (the year) of the date with its items, without selecting it or repainting.
    void SetRange(COleDateTime date);
    // 00:00 of the first and 23:59:59 of the last shown day; invalid where the range leaves the years 100 to 9999.
    void GetViewRange(COleDateTime& first, COleDateTime& last) override;

    // As the base control's, but for an index greater than the count (SetItem) or not below it (DeleteItem): returns 0.
    // SetItem repaints with erasing. DeleteItem always rebuilds the screen items and never repaints.
    int SetItem(int nIndex, tagCC_ITEM* pItem, int bUpdate = TRUE, int bRedraw = TRUE) override;
    int DeleteItem(int nIndex, int bUpdate = TRUE, int bRedraw = TRUE) override;

    BOOL IsMore(int nBox) const; // an item of the box did not fit; CInvalidArgException where there is no such box

    void SetTitle(LPCTSTR lpszTitle) { m_strTitle = lpszTitle; }
    CString GetTitle() const { return m_strTitle; }

protected:
    // Members of the view, one for each box.
    struct BoxArrays
    {
        CRect* boxes;
        CRect* strips;
        int* more; // 1: an item of the box did not fit
    };
    // What is fixed of a view. The texts are literals.
    struct BoxViewKind
    {
        LPCTSTR lpszClass; // of the window
        LPCTSTR lpszTitle;
        const dayvane::BoxViewMetrics& metrics;
        const dayvane::CalendarColors& colors;
    };
    CBoxViewCtrl(const BoxViewKind& kind, const BoxArrays& arrays);
    void Start();                        // for the views' constructors: empty boxes, the range of today
    const CRect& GetBox(int nBox) const; // CInvalidArgException where there is no such box

    // ---- Hooks of the views.
    // Sets m_dtRangeStart and m_dtRangeEnd to the range that holds the date; both invalid for an invalid date.
    virtual void CalcRange(const COleDateTime& date) = 0;
    virtual dayvane::DayRows GetRows() = 0;
    virtual std::vector<dayvane::BoxSpan> GetSpans(const CItemArray& screenItems) = 0;
    virtual dayvane::ScrollStep CalcScroll(int nCode, int nPos, int nThumb) = 0;
    virtual SCROLLINFO GetScrollRange() = 0; // nMin, nMax and nPos
    // A date in the range that is so many scroll steps (days or years) away; invalid when that range has no date.
    virtual COleDateTime DateInRangeAfter(int nStep) = 0;
    // The date moved along with the range, when the range moves to the one that holds dtTarget.
    virtual COleDateTime CarryAlong(const COleDateTime& date, const COleDateTime& dtTarget) = 0;
    virtual BOOL IsInRangeOf(const COleDateTime& dtTarget, const COleDateTime& date) = 0;
    virtual void DrawBoxStrip(CDC* pDC, int nBox) = 0;
    virtual COLORREF GetBoxColor(int nBox) = 0;
    virtual BOOL IsToday(int nBox) = 0;
    virtual void DrawBoxMark(CDC* pDC, int nBox) = 0; // the more-items mark

    // The second and third rectangle are left as they are. Sets the rectangles of the boxes and their strips.
    virtual void CalcLayout(const CRect& rcClient, CRect& rcCaption, CRect& rcUnused, CRect& rcHeader,
                            CRect& rcCalendar);
    void CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcCalendar) override;
    void MakeScreenItem(CItemArray& items, CItemArray& screenItems) override;
    void CalcItemRect(CRect rcCalendar, CItemArray& screenItems) override;

    int GetBoxCount() override { return BoxCount(); }
    CRect GetBoxRect(int nBox) override { return m_arrays.boxes[nBox]; }
    int BoxAt(CPoint point) override { return dayvane::BoxOfPoint(m_arrays.boxes, BoxCount(), point); }
    int GetHitStripHeight() override { return m_metrics.hitStripHeight; }
    BOOL HasMoreMark(int nBox) override { return m_arrays.more[nBox] == 1; }
    void ClearMoreMarks() override;

    void DrawCtrl(CDC* pDC) override;
    virtual void DrawCell(CDC* pDC, const CRect& rcCalendar); // the boxes
    void DrawItem(CDC* pDC, CRect rcCalendar, CItemArray& screenItems) override;
    virtual void DrawTodayRect(CDC* pDC, CRect rect, int nBox);
    virtual void DrawFocusRect(CDC* pDC, CRect rect, int nBox);

    // MoveSelectionTo; scrolls by a posted message when the date leaves the range.
    void SelectByKey(const COleDateTime& end, BOOL bBack, UINT nFlags);

    int BoxCount() const { return m_metrics.BoxCount(); }
    int BoxOfStrip(const CRect& rcStrip) const; // -1: none
    BOOL IsBoxSelected(int nBox);               // and the selection is shown
    BOOL HasRange() const;

    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    DECLARE_MESSAGE_MAP()

    COleDateTime m_dtRangeStart;
    COleDateTime m_dtRangeEnd;
    CString m_strTitle;
    COLORREF m_crAccent = 0x8F9300;
    COLORREF m_crAccentBack = 0xFFFFFF;
    dayvane::MonthFonts m_fonts;

private:
    void ScrollTo(const COleDateTime& dtTarget);
    void UpdateScrollBar();
    CRect PaintRectOf(int nBox) const;
    void DrawFrame(CDC* pDC, const CRect& rect, const dayvane::DayFrameColors& colors);

    LPCTSTR m_lpszClass;
    const dayvane::BoxViewMetrics& m_metrics;
    BoxArrays m_arrays;
    CRect m_rcUnused = CRect(0, 0, 0, 0);
};
