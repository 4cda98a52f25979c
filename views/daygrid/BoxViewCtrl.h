// What the week and the year view share: two rows of boxes that stand for days or months, each with a caption strip,
// the items as bars below it. The views say which date a box stands for and what is written in it.
//
// Notifications besides those of CCalendarCtrl: CCN_SELDATECHANGE before each scroll step (time: the date that will be
// selected), CCN_VIEWRANGECHANGE with nValue 4100 after it, also where the step left the range as it was.
#pragma once

#include "BoxViewLayout.h"
#include "DayGridCtrl.h"
#include "BoxPainter.h"

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
        dayvane::RangeKind range;
        LPCTSTR lpszClass; // of the window
        LPCTSTR lpszTitle;
        const dayvane::BoxViewMetrics& metrics;
        const dayvane::CalendarColors& colors;
    };
    CBoxViewCtrl(const BoxViewKind& kind, const BoxArrays& arrays);
    void Start();                        // for the views' constructors: empty boxes, the range of today
    const CRect& GetBox(int nBox) const; // CInvalidArgException where there is no such box

    // ---- Hooks of the views.
    virtual void RangeChanged() {}
    virtual void DrawBoxStrip(CDC* pDC, int nBox) = 0;
    virtual COLORREF GetBoxColor(int nBox) = 0;
    virtual void DrawBoxMark(CDC* pDC, int nBox) = 0; // the more-items mark

    // The second and third rectangle are left as they are. Sets the rectangles of the boxes and their strips.
    virtual void CalcLayout(const CRect& rcClient, CRect& rcCaption, CRect& rcUnused, CRect& rcHeader,
                            CRect& rcCalendar);
    void CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcCalendar) override;
    void MakeScreenItem(CItemArray& items, CItemArray& screenItems) override;
    void CalcItemRect(CRect rcCalendar, CItemArray& screenItems) override;

    dayvane::BoxRange Range() const override { return m_range; }
    CRect GetBoxRect(int nBox) override { return m_arrays.boxes[nBox]; }
    int GetHitStripHeight() override { return m_metrics.hitStripHeight; }
    BOOL HasMoreMark(int nBox) override { return m_arrays.more[nBox] == 1; }
    void ClearMoreMarks() override;

    void DrawCtrl(CDC* pDC) override;
    virtual void DrawCell(CDC* pDC, const CRect& rcCalendar); // the boxes
    void DrawItem(CDC* pDC, CRect rcCalendar, CItemArray& screenItems) override;
    virtual void DrawTodayRect(CDC* pDC, CRect rect, int nBox);
    virtual void DrawFocusRect(CDC* pDC, CRect rect, int nBox);

    // MoveSelectionEnd; scrolls by a posted message when the end leaves the range.
    void MoveSelection(int nBoxes, UINT nFlags);

    int BoxCount() const { return m_metrics.BoxCount(); }
    int BoxOfStrip(const CRect& rcStrip) const; // -1: none
    BOOL IsBoxSelected(int nBox);               // and the selection is shown
    BOOL IsToday(int nBox) const { return nBox == m_nTodayBox; }
    BOOL HasRange() const { return m_range.HasDates(); }

    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    DECLARE_MESSAGE_MAP()

    COleDateTime m_dtRangeStart; // 00:00 of the first day
    COleDateTime m_dtRangeEnd;   // 23:59:59 of the last day
    CString m_strTitle;
    COLORREF m_crAccent = 0x8F9300;
    COLORREF m_crAccentBack = 0xFFFFFF;
    dayvane::BoxFonts m_fonts;

private:
    dayvane::BoxRange RangeAfter(int nBoxes) const; // the range that is so many boxes away
    void ShowRange(const dayvane::BoxRange& range);
    void ScrollTo(const dayvane::BoxRange& range);
    CRect PaintRectOf(int nBox) const;
    void DrawFrame(CDC* pDC, const CRect& rect, const dayvane::DayFrameColors& colors);

    LPCTSTR m_lpszClass;
    const dayvane::BoxViewMetrics& m_metrics;
    BoxArrays m_arrays;
    dayvane::BoxRange m_range;
    int m_nTodayBox = -1; // when the range was set; -1: not shown
    CRect m_rcUnused = CRect(0, 0, 0, 0);
};
