// What the week and the year view share: two rows of boxes that stand for days or months, each with a caption strip,
// the items as bars below it. The views say which date a box stands for and what is written in it.
//
// Notifications besides those of CCalendarCtrl: CCN_SELDATECHANGE before each scroll step (time: the date that will be
// selected), CCN_VIEWRANGECHANGE with nValue 4100 after it, also where the step left the range as it was.
#pragma once

#include "DayGridCtrl.h"

#include <memory>

namespace dayvane {
struct BoxViewKind;
struct BoxViewState;
struct DayFrameColors;
struct StripTexts;
} // namespace dayvane

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
    explicit CBoxViewCtrl(const dayvane::BoxViewKind& kind); // the view's constructor sets the range
    const CRect& GetBox(int nBox) const;                     // CInvalidArgException where there is no such box

    // ---- Hooks of the views.
    virtual void RangeChanged() {}
    virtual void DrawBoxStrip(CDC* pDC, int nBox) = 0;
    virtual COLORREF GetBoxColor(int /*nBox*/) { return m_colors.content; }
    virtual BOOL HasBoxColor(int /*nBox*/) { return TRUE; } // FALSE: the table of day colours lacks its row
    virtual void DrawBoxMark(CDC* pDC, int nBox) { DrawMoreMark(pDC, GetBox(nBox)); }

    // Sets the rectangles of the boxes and their strips. rcUnused and rcHeader are left as they are.
    virtual void CalcLayout(const CRect& rcClient, CRect& rcCaption, CRect& rcUnused, CRect& rcHeader,
                            CRect& rcCalendar);
    void CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcCalendar) override;
    void CalcItemRect(CRect rcCalendar, CItemArray& screenItems) override;

    dayvane::BoxRange Range() const override;
    CRect GetBoxRect(int nBox) override;
    int GetHitStripHeight() override;
    int GetStripHeight() override;
    std::u16string GetCutBoxText(int nBox) override;
    virtual dayvane::StripTexts TextsOf(int nBox) = 0; // in the strip on top of a box
    BOOL HasMoreMark(int nBox) override;
    void ClearMoreMarks() override;
    void TodayChanged() override;
    void BringInSight(const COleDateTime& date) override;

    void DrawCtrl(CDC* pDC) override;
    virtual void DrawCell(CDC* pDC, const CRect& rcCalendar); // the boxes
    virtual void DrawTodayRect(CDC* pDC, CRect rect, int nBox);
    virtual void DrawFocusRect(CDC* pDC, CRect rect, int nBox);

    void MoveSelection(int nBoxes, UINT nFlags) override; // scrolls by a posted message

    int BoxOfStrip(const CRect& rcStrip) const; // -1: none
    BOOL IsBoxSelected(int nBox);               // and the selection is shown
    BOOL IsToday(int nBox) const;

    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    DECLARE_MESSAGE_MAP()

    COleDateTime m_dtRangeStart; // 00:00 of the first day
    COleDateTime m_dtRangeEnd;   // 23:59:59 of the last day
    CString m_strTitle;
    COLORREF m_crAccent = 0x8F9300;
    COLORREF m_crAccentBack = 0xFFFFFF;
    const std::unique_ptr<dayvane::BoxViewState> m_state;

private:
    dayvane::BoxRange RangeAfter(int nBoxes) const; // the range that is so many boxes away
    void ShowRange(const dayvane::BoxRange& range);
    void ScrollTo(const dayvane::BoxRange& range);
    void DrawFrame(CDC* pDC, const CRect& rect, const dayvane::DayFrameColors& colors);

    CRect m_rcUnused = CRect(0, 0, 0, 0);
};
