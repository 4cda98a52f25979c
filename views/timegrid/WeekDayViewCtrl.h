// CWeekDayViewCtrl: 2 to 14 days, a working week or a week as columns over one time ruler, with a header box for each
// day and a band for full-day items above the columns.
//
// Left and right move the selection by one column. A move that leaves the shown range moves the range by whole views
// (by weeks, when it begins on the first day of the week) and sends CCN_VIEWRANGECHANGE (value 0x801, the current date,
// the first and the last moment shown); where the day is not shown then (between two working weeks), the selection
// comes to the nearest shown day. A row move onto such a day leaves the range where it is. The selection's begin
// follows its end, unless the move extends it.
//
// The selection runs from its begin through all columns to its end. Day properties are kept for the shown days: they
// move along with the range, and those that leave it are dropped.
#pragma once

#include "TimeGridCtrl.h"

namespace dayvane {
struct HeaderTexts;
}

// SetDateScale: that many days from any day on; or from the first day of the week on.
enum CalendarDateScale
{
    CWD_2DAYS = 1,
    CWD_3DAYS,
    CWD_4DAYS,
    CWD_5DAYS,
    CWD_6DAYS,
    CWD_7DAYS,
    CWD_8DAYS,
    CWD_9DAYS,
    CWD_10DAYS,
    CWD_11DAYS,
    CWD_12DAYS,
    CWD_13DAYS,
    CWD_14DAYS,
    CWD_WORKWEEK,
    CWD_WEEK,
};

class CWeekDayViewCtrl : public CTimeGridCtrl
{
    DECLARE_DYNCREATE(CWeekDayViewCtrl)

public:
    CWeekDayViewCtrl();
    ~CWeekDayViewCtrl() override;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext = nullptr) override;

    // 2 .. 14 columns, else 2. nBeginDayOfWeek 1 .. 7: the range begins on the control's first day of the week,
    // whatever the number; else it begins on the given date.
    void SetViewOption(int nDays, int nBeginDayOfWeek);
    // The first day of the week, 0 when the range begins on any day.
    int GetBeginDayOfWeek() const { return m_nBeginDayOption != 0 ? GetFirstDayOfWeek() : 0; }
    int GetMaxDays() const { return m_nDays; }
    // 1 .. 13: that many days and one more; 14: five days, 15: seven days from the first day of the week. Sets the
    // caption text, keeps the range's begin where it can, drops the day properties. Other values are only stored.
    // CalendarDateScale names the numbers.
    void SetDateScale(int nScale);
    int GetDateScale() const { return m_nDateScale; }
    // Shows the days from the date on, or from the first day of its week on. A current date that is not shown then
    // gives way to this one. Call Refresh() afterwards. The days before the year 100 and after the year 9999 do not
    // count: a week may begin late there, a range end early.
    void SetRange(COleDateTime date);
    // 00:00:00 of the first, 23:59:59 of the last day.
    void GetViewRange(COleDateTime& begin, COleDateTime& end) override;
    // The time goes to the beginning of its row; the range and both ends of the selection follow.
    void SetCurrentDate(const COleDateTime& date) override;
    // The earlier bound first, to the end of the last row unless that is 23:59 and the begin 00:00; whole days when the
    // selection stands for them. Returns what the base returns.
    int GetSelRange(COleDateTime& begin, COleDateTime& end) override;
    // Throws CInvalidArgException beyond the last column.
    CRect GetColumnRect(int nColumn) const;

    // Codes as in the day view; the day header gives CCHT_ONDAYCAPTION and its day at 00:00, the band its day at 00:00.
    int HitTest(tagCCHITTESTINFO& info) override;

    int IsUseMyWorkTime(int nColumn) const; // 0 for a column without a property
    int IsWorkTime(int nColumn, int nRow) const;
    void SetDayProperty(COleDateTime date, const tagCALENDAR_DAY_PROPERTY& property) override; // of shown days only
    tagCALENDAR_DAY_PROPERTY* GetDayProperty(COleDateTime date) override;                      // nullptr: none
    void ClearDayProperty() override { m_arDayProperty.RemoveAll(); }
    int GetDayColor(int nColumn) override;
    // A timed item's rectangle as if it were alone in the column of that day.
    void _CalcItemRect(CRect rcColumn, tagCALENDAR_ITEM& item, COleDateTime day);
    void CalcFulldayItemRect(CRect rcBand, CItemArray& screenItems) override;

protected:
    void CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcRuler, CRect& rcGrid) override; // forwards to the next
    virtual void CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcRuler, CRect& rcGrid);
    void DrawGrid(CDC* pDC, CRect rcGrid) override;
    void DrawItem(CDC* pDC, CRect rcGrid, CItemArray& screenItems) override;
    void _DrawItem(CDC* pDC, CRect rcColumn, const tagCALENDAR_ITEM& item); // what lies in the column
    void DrawCaption(CDC* pDC, CRect rcCaption) override;
    void DrawHeader(CDC* pDC, CRect rcHeader) override;
    std::u16string FindCutDayText(const tagCCHITTESTINFO& hit, CRect& rcPart) override;
    virtual void DrawTodayRect(CDC* pDC, CRect rcBox); // background of today's header box
    virtual void DrawFocusRect(CDC* pDC, CRect rcBox); // frame of the current day's header box
    void InvalidateCellRect(COleDateTime date) override;
    void MoveRightward(UINT nFlags) override { MoveColumn(1, nFlags); }
    void MoveLeftward(UINT nFlags) override { MoveColumn(-1, nFlags); }

    dayvane::DayRange GetShownRange() const override;
    BOOL IsColumnWorkTime(int nColumn, int nRow) const override { return IsWorkTime(nColumn, nRow); }
    BOOL IsColumnUseMyWorkTime(int nColumn) const override { return IsUseMyWorkTime(nColumn); }
    void CurrentDateMoved() override;

    int m_nDays = 2;
    int m_nBeginDayOption = 0; // not 0: the range begins on the first day of the week
    int m_nDateScale = 0;
    COleDateTime m_dtViewBegin;
    CArray<tagCALENDAR_DAY_PROPERTY, const tagCALENDAR_DAY_PROPERTY&> m_arDayProperty; // by column
    COLORREF m_crToday;

private:
    void MoveColumn(int nDays, UINT nFlags);
    void InvalidateHeader();
    void ShiftProperties(int nDays);
    dayvane::HeaderTexts HeaderOf(int nColumn);
    int HeaderFormOn(const dayvane::TimeGridPainter& painter);
};
