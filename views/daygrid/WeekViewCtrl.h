// CWeekViewCtrl: a week as eight day boxes in two rows of four, in the manner of a desk diary. The eighth box is the
// first day of the next week; it never shows the more-items mark.
//
// The window gets a vertical scroll bar with its first size, also without WS_VSCROLL; a line of it is a week and a page
// four. Dropping the thumb at position p moves the range by (day of the year of its first day - 7 p) days; the ends of
// the bar only move the thumb.
#pragma once

#include "BoxViewCtrl.h"
#include "DayCells.h"

namespace dayvane {
struct DayLook;
} // namespace dayvane

class CWeekViewCtrl : public CBoxViewCtrl
{
    DECLARE_DYNCREATE(CWeekViewCtrl)

public:
    // Shows the week of today. Registers the window class; throws CResourceException when that fails.
    CWeekViewCtrl();
    ~CWeekViewCtrl() override;

    COleDateTime GetCurrentDate() override; // the selection start; the date that was set when nothing is selected
    // Selects the date at 00:00.
    void SetCurrentDate(const COleDateTime& date) override;

    // The boxes in the order of the days, 0..7; other indices throw CInvalidArgException.
    const CRect& GetDayRect(int nDay) const { return GetBox(nDay); }

protected:
    void RangeChanged() override;
    dayvane::BoxDayArray* GetDays() override { return &m_arDayDate; }
    BOOL HasMoreMark(int nBox) override; // never the eighth
    std::u16string GetBarText(const tagCALENDAR_ITEM& item, BOOL bFullday) override;

    void DrawCaption(CDC* pDC, CRect rcCaption) override;
    void DrawBoxStrip(CDC* pDC, int nBox) override;
    COLORREF GetBoxColor(int nBox) override;
    BOOL HasBoxColor(int nBox) override;
    // A box's strip: its gradients, unless a frame has painted it, and the texts of the day whose strip it is.
    virtual void DrawDayCaption(CDC* pDC, const CRect& rcCaption);

    // Of the eight boxes.
    CRect* const m_rcDay;
    CRect* const m_rcDayCaption;      // the strips on top
    int* const m_bMore;               // 1: an item did not fit
    dayvane::BoxDayArray m_arDayDate; // 8

private:
    dayvane::DayLook LookOf(int nDay);
    dayvane::StripTexts TextsOf(int nDay) override;
};
