// CMonthViewCtrl: a month as 6 weeks of 7 day cells with the items as bars, and CMonthViewCtrl2, its variant that shows
// one item a day as a block.
//
// The grid starts with the week of the 1st of the month; scrolling then moves it by whole weeks, without regard to
// months. The window gets a vertical scroll bar with its first size, also without WS_VSCROLL.
//
// Notifications besides those of CCalendarCtrl: CCN_SELDATECHANGE before scrolling moves the grid or the selected date
// (time: the date that scrolling selects; a key that scrolls keeps its own date selected afterwards),
// CCN_VIEWRANGECHANGE with nValue 4104 after the grid has moved.
#pragma once

#include "DayCells.h"
#include "DayGridCtrl.h"

namespace dayvane {
struct CaptionLook;
struct DayLookInput;
struct MonthPicture;
} // namespace dayvane

class CMonthViewCtrl : public CDayGridCtrl
{
    DECLARE_DYNCREATE(CMonthViewCtrl)

public:
    typedef dayvane::MonthCell CCell;
    typedef dayvane::BoxDay CCellDate;

    // Built around today. Registers the window class; throws CResourceException when that fails.
    CMonthViewCtrl();
    ~CMonthViewCtrl() override;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext = nullptr) override;

    using CCalendarCtrl::Layout;
    void Layout(int cx, int cy) override;
    int HitTest(tagCCHITTESTINFO& info) override { return HitBoxes(info, info.pt); }

    // Builds the grid around the month of the date. The screen items follow with the next layout: call Refresh().
    void SetCurrentDate(const COleDateTime& date) override;
    // 00:00 of the first and 23:59:59 of the last of the 42 days; invalid where the grid leaves the years 100 to 9999.
    void GetViewRange(COleDateTime& first, COleDateTime& last) override;
    // Moves the grid by whole weeks, rebuilds dates and items, sends CCN_VIEWRANGECHANGE. The window may be gone
    // afterwards.
    void MoveCalendar(int nWeeks);

    // The cells, row by row, 0..41; other indices throw CInvalidArgException.
    const CCell& GetCell(int i) const { return m_arCell[i]; }
    const CCellDate& GetCellDate(int i) const { return m_arCellDate[i]; }
    void SetTitle(LPCTSTR lpszTitle) { m_strTitle = lpszTitle; } // for printing
    CString GetTitle() const { return m_strTitle; }

protected:
    void CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcCalendar) override;
    virtual CSize CalcCellSize(CRect rcCalendar);
    virtual void CalcCellRect(CRect rcHeader, const CRect& rcCalendar);
    void TodayChanged() override;
    void BringInSight(const COleDateTime& date) override;
    void DescribeParts(dayvane::ViewParts& parts) override;
    virtual void CalcCalendar();
    void CalcItemRect(CRect rcCalendar, CItemArray& screenItems) override;
    dayvane::BoxRange Range() const override;
    dayvane::BoxDayArray* GetDays() override { return &m_arCellDate; }
    CRect GetBoxRect(int nBox) override { return m_arCell[nBox].m_rect; }
    int GetHitStripHeight() override;
    int GetStripHeight() override;
    std::u16string GetCutBoxText(int nBox) override;
    BOOL HasMoreMark(int nBox) override { return m_arCell[nBox].m_bMore == 1; }
    void ClearMoreMarks() override;

    void DrawCtrl(CDC* pDC) override;
    virtual void DrawCalendar(CDC* pDC, CRect rcCalendar);
    void DrawCaption(CDC* pDC, CRect rcCaption) override;
    void DrawTitle(CDC* pDC, const CRect& rcCaption, const dayvane::CaptionLook& look);
    virtual void DrawHeader(CDC* pDC, CRect rcHeader);
    virtual void DrawTodayRect(CDC* pDC, CRect rect);
    virtual void DrawFocusRect(CDC* pDC, CRect rect);

    void MoveSelection(int nDays, UINT nFlags) override;

    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    DECLARE_MESSAGE_MAP()

    COleDateTime m_dtCurrent; // the grid's month is this date's
    COleDateTime m_dtScroll;  // shown in the title band; follows m_dtCurrent
    CString m_strTitle;
    CArray<CCell, const CCell&> m_arHeaderCell;       // 7
    CArray<CCell, const CCell&> m_arCell;             // 42
    CArray<CCellDate, const CCellDate&> m_arCellDate; // 42
    COLORREF m_crOtherMonth;                          // kept for derived views
    COLORREF m_crButtonFace;

private:
    dayvane::MonthPicture TakePicture();
    void RepaintMoved(dayvane::MonthPicture& before, int nWeeks);
    void MoveCalendarFrom(dayvane::MonthPicture& before, int nWeeks);
    void ShowRange(const dayvane::BoxRange& range);
    dayvane::DayLookInput LookInput();
};

class CMonthViewCtrl2 : public CMonthViewCtrl
{
    DECLARE_DYNCREATE(CMonthViewCtrl2)

public:
    CMonthViewCtrl2();

protected:
    void CalcItemRect(CRect rcCalendar, CItemArray& screenItems) override;
    void DrawCaption(CDC* pDC, CRect rcCaption) override;
    void DrawItem(CDC* pDC, CRect rcCalendar, CItemArray& screenItems) override;
    void DrawItemBox(CDC& dc, const dayvane::ItemBox& box) override;
    BOOL IsBarTextCut(const tagCALENDAR_ITEM& item, const std::u16string& strText) override;
};
