// What the month, week and year views share as windows: boxes that stand for dates, item bars that are drawn and hit,
// and the more-items mark.
#pragma once

#include "../../core/MoreListCtrl.h"
#include "DayCells.h"

#include <memory>
#include <string>
#include <vector>

namespace dayvane {
class BoxPainter;
class BoxRange;
struct BarRules;
struct BoxGrid;
struct BoxLines;
struct BoxLoad;
struct DayGridParts;
struct DayLookInput;
} // namespace dayvane

class CDayGridCtrl : public CMoreListCtrl
{
    DECLARE_DYNAMIC(CDayGridCtrl)

public:
    CDayGridCtrl();
    ~CDayGridCtrl() override;

    void DeleteAllItems() override; // clears the more-items marks too

    // Of the views whose boxes are days. Kept with the shown days only: forgotten when others are shown. A date that is
    // not shown is ignored.
    void SetDayProperty(COleDateTime date, const tagCALENDAR_DAY_PROPERTY& property) override;
    void ClearDayProperty() override;
    // Colour number of the box's property, 0 none. Where there is no such box: CInvalidArgException.
    int GetDayColor(int nBox) override;

    // Off at first. On: a press on a more-items mark (or F4, when the selected box has one) opens a list of the items
    // of that day or month; see CMoreListCtrl.
    void EnableMoreList(BOOL bEnable);
    BOOL IsMoreListEnabled() const { return m_options.moreList; }

    // Of the cell where the selection begins; shows it first when it lies beyond the boxes.
    void BeginEditItem(const char* lpszText) override;

    CFont* GetSmallLatinFont(); // for printing; belongs to the view, and exists as long as its window

protected:
    enum
    {
        kMoreMarkWidth = 20,
        kMoreMarkHeight = 8
    }; // pixels at 96 dpi

    // ---- Hooks of the views. The boxes stand for days or months, in the order of time.
    virtual dayvane::BoxRange Range() const = 0;                // the dates of the boxes
    virtual dayvane::BoxDayArray* GetDays() { return nullptr; } // the boxes as days; nullptr: they are none
    virtual CRect GetBoxRect(int nBox) = 0;
    virtual int GetHitStripHeight() = 0; // pixels at the top of a box that answer as its caption
    virtual int GetStripHeight() = 0;    // pixels at the top of a box for its number; the lines stand below them
    virtual std::u16string GetCutBoxText(int nBox) = 0; // what is said there, when not all of it has room; else empty
    virtual BOOL HasMoreMark(int nBox) = 0;
    virtual void ClearMoreMarks() = 0;                                          // no item is hidden any more
    virtual CRect GetMarkBox(int nBox) { return MoreMarkOf(GetBoxRect(nBox)); } // where the more-items mark is painted
    virtual std::u16string GetBarText(const tagCALENDAR_ITEM& item, BOOL bFullday);
    virtual BOOL IsBarTextCentered(BOOL bFullday) { return bFullday; }
    virtual void BringInSight(const COleDateTime& date) = 0; // moves the boxes until one stands for the date

    int GetBoxCount() const;
    int BoxAt(CPoint point); // -1: none
    // HitTest for a point of the boxes, which a view may have moved.
    int HitBoxes(tagCCHITTESTINFO& info, CPoint point);

    // ---- The lines under a day's number, and the weeks.
    const dayvane::BoxLines& GetBoxLines();
    int GetLinesHeight(); // by so much the items of a box begin lower, pixels
    void DrawBoxLinesText(CDC* pDC, int nBox, const CRect& box);
    // What a box says of its day or month, its items apart, when not all of it has room; else empty.
    std::u16string GetCutText(int nBox, CRect& rcPart);
    int GetWeekColumnWidth() const; // pixels; 0: week numbers are off
    void DrawWeekColumn(CDC* pDC, const CRect& header, const CRect& calendar);
    void DayProviderChanged() override;

    CRect GetPaintedBox(const tagCALENDAR_ITEM& screenItem) override;
    void GetPaintedState(dayvane::PaintedState& state) override;
    dayvane::KeyStep GetKeyStep(dayvane::KeyArrow arrow, bool bWholeDays) override;
    void ShowMoved(const COleDateTime& when, BOOL bWholeDays) override;
    void DescribeParts(dayvane::ViewParts& parts) override;
    void InvalidateCellRect(COleDateTime date) override;
    void InvalidateCellRectRange() override;
    void GetCurCellRect(CRect& rect, int& bFound) override;
    // Keys: moves the selection end by so many boxes, the start too unless nFlags extends. TRUE when the end has left
    // the boxes in that direction: the view scrolls then.
    BOOL MoveSelectionEnd(int nBoxes, UINT nFlags);
    virtual void MoveSelection(int nBoxes, UINT nFlags) = 0; // MoveSelectionEnd; scrolls where it says so
    void MoveForward(UINT nFlags) override;                  // the box above; in the year view the year before
    void MoveBackward(UINT nFlags) override;                 // the box below; in the year view the next year
    void MoveLeftward(UINT nFlags) override { MoveSelection(-1, nFlags); }
    void MoveRightward(UINT nFlags) override { MoveSelection(1, nFlags); }
    void MoveToEnd(BOOL bLast, UINT nFlags) override;
    void ResetScrollBar(); // range and thumb as the dates of the boxes have them

    // The window may be gone after each.
    void NotifySelDateChange(const COleDateTime& date);
    void NotifyViewRangeChange(const COleDateTime& date, int nValue);

    // Positions in the screen list of the items that are drawn and hit: those that have a rectangle and are not hidden.
    // A view that changes its screen items calls ScreenItemsChanged; an open list of a box's items closes then.
    const std::vector<int>& GetShownItems();
    void ScreenItemsChanged()
    {
        m_bShownValid = FALSE;
        ++m_nLayoutVersion;
        CloseMoreList();
    }
    // The pieces of the items in the rows of boxes. Of the store, where few items were set since, only theirs.
    void MakeScreenItem(CItemArray& items, CItemArray& screenItems) override;
    // Lays out the bars; in the screen list, where MakeScreenItem has only made some anew, only the rows of those.
    std::vector<dayvane::BoxLoad> LayOutPieces(const dayvane::BoxGrid& grid, const dayvane::BarRules& rules,
                                               CItemArray& screenItems);
    // The position in the screen list of the first shown item there, with hitWhatIsSeen of the last, which is seen; -1
    // none. pCount: how many there are.
    int ScreenItemAt(CPoint point, int* pCount = nullptr);

    // Bars of the given items, in their order; those outside the clip box are passed over.
    void DrawItem(CDC* pDC, CRect rcCalendar, CItemArray& items) override;
    void DrawItemBox(CDC& dc, const dayvane::ItemBox& box) override;

    void DrawThemedBar(CDC* pDC, const dayvane::BoxPainter& painter, const tagCALENDAR_ITEM& item, bool isCurrent);

    void ScaleChanged(const dayvane::ViewScale& before) override;
    void ForgetDrawn() override;
    void PreSubclassWindow() override;
    CRect GetFocusBox() override;
    BOOL FindTip(const tagCCHITTESTINFO& hit, CRect& rcPart, std::u16string& strText) override;
    virtual BOOL IsBarTextCut(const tagCALENDAR_ITEM& item, const std::u16string& strText);
    dayvane::BoxPainter PainterOn(CDC* pDC);
    // The border of the calendar and the lines between the boxes.
    void DrawBoxLines(CDC* pDC, const CRect& rcCalendar);
    // The more-items mark in the lower right corner of a box.
    void DrawMoreMark(CDC* pDC, const CRect& box);

    // A box with a more-items mark, for the list of its items.
    struct MoreBox
    {
        CRect mark;
        COleDateTime first; // days that it stands for
        COleDateTime last;
    };
    BOOL GetMoreBox(int nBox, MoreBox& box); // FALSE: the box shows no mark
    std::vector<int> ItemsOf(const MoreBox& box);
    CRect MoreMarkOf(const CRect& box) const
    {
        return CRect(box.right - m_scale.Of(kMoreMarkWidth), box.bottom - m_scale.Of(kMoreMarkHeight), box.right,
                     box.bottom);
    }
    dayvane::DayLookInput LookOfDays(); // with the control's settings; no day is selected
    BOOL DrawsOwnMark() const;          // the mark's picture suits neither theme nor scale
    BOOL OpenMoreListAt(CPoint point) override;
    BOOL OpenMoreListOf(const COleDateTime& date) override;
    void DrawListRow(CDC* pDC, const tagCALENDAR_ITEM& item) override;
    void DrawListEnd(CDC* pDC, const CRect& rcList) override { DrawMoreMark(pDC, rcList); }

    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    DECLARE_MESSAGE_MAP()

    const std::unique_ptr<dayvane::DayGridParts> m_parts;

private:
    static constexpr int kNoTop = -1; // of an item without a rectangle
    static bool IsShown(const tagCALENDAR_ITEM& item) { return !item.bNoFocus && item.rcItem.top != kNoTop; }
    bool RemakePieces(const std::vector<int>& rows);
    void UpdateShown(const std::vector<dayvane::PieceMove>& moved);
    void PreparePainting(); // makes the mark of hidden items

    HICON m_hMoreMark = nullptr;
    std::vector<int> m_shown;
    INT_PTR m_nShownOf = 0; // size of the screen list that m_shown was made from
    BOOL m_bShownValid = FALSE;
};
