// CDayViewCtrl: one day as a vertical time grid. A caption, a band for full-day items, a time ruler and a grid of equal
// rows in which each timed item is a box; items that overlap in time stand side by side.
//
// Notifies CCN_VIEWRANGECHANGE (value 0x801, the new date three times) when the keyboard moves it to another day.
#pragma once

#include "TimeGridCtrl.h"

namespace dayvane {
struct GridCaptionTexts;
}

class CDayViewCtrl : public CTimeGridCtrl
{
    DECLARE_DYNCREATE(CDayViewCtrl)

public:
    CDayViewCtrl();
    ~CDayViewCtrl() override;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext = nullptr) override;

    // Codes: items CCHT_ONITEM, in the full-day band CCHT_ONFULLDAYITEM; rows CCHT_ONCELL, where they lie under the
    // caption CCHT_ONDAYCAPTION; the band CCHT_ONFULLDAY; the ruler CCHT_ONRULER. The row after the last counts as
    // one, without a time.
    int HitTest(tagCCHITTESTINFO& info) override;
    // The selection to the end of its last row; 00:00:00 to 23:59:59 of its first day when it stands for whole days.
    // Returns what the base returns.
    int GetSelRange(COleDateTime& begin, COleDateTime& end) override;
    // The view keeps one property, whatever the date.
    void SetDayProperty(COleDateTime, const tagCALENDAR_DAY_PROPERTY& property) override { m_dayProperty = property; }
    tagCALENDAR_DAY_PROPERTY* GetDayProperty(COleDateTime) override { return &m_dayProperty; }
    void ClearDayProperty() override; // but for the work hours
    int GetDayColor(int) override { return m_dayProperty.nDayColor; }
    // Whether the row begins within the work hours, the day's own when the property says so.
    int IsWorkTime(int nRow) const;
    // A timed item's rectangle as if it were alone in the grid; (-1, -1, -1, -1) when it begins on another day.
    void _CalcItemRect(CRect rcGrid, tagCALENDAR_ITEM& item);
    // The k-th full-day item gets the k-th lane.
    void CalcFulldayItemRect(CRect rcBand, CItemArray& screenItems) override;

protected:
    void CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcRuler, CRect& rcGrid) override;
    void MakeScreenItem(CItemArray& items, CItemArray& screenItems) override;
    void DrawGrid(CDC* pDC, CRect rcGrid) override;
    void DrawItem(CDC* pDC, CRect rcGrid, CItemArray& screenItems) override;
    void DrawCaption(CDC* pDC, CRect rcCaption) override;
    dayvane::GridCaptionTexts GetCaptionTexts();
    std::u16string FindCutDayText(const tagCCHITTESTINFO& hit, CRect& rcPart) override;
    void InvalidateCellRect(COleDateTime date) override;
    void MoveRightward(UINT nFlags) override;
    void MoveLeftward(UINT nFlags) override;

    dayvane::DayRange GetShownRange() const override;
    BOOL IsColumnWorkTime(int, int nRow) const override { return IsWorkTime(nRow); }
    BOOL IsColumnUseMyWorkTime(int) const override { return m_dayProperty.bUseMyWorkTime; }
    void CurrentDateMoved() override;

    tagCALENDAR_DAY_PROPERTY m_dayProperty;

private:
    void MoveToDay(void (*move)(dayvane::GridSelection&, bool), UINT nFlags);

    int m_nItemDay = 0; // day number that the screen items were made for
};
