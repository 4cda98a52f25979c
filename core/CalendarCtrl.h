// CCalendarCtrl: the window class from which every calendar view that shows schedule items derives.
//
// It keeps the host's items, the appearance settings, the selection and the shown dates, turns mouse and keyboard into
// moves and notifications, and runs the layout and paint pipeline. A view overrides the virtual hooks below; each hook
// states what a view must keep. Hosts use the derived controls.
//
// Coordinates are client pixels. Indices are indices into the item store unless stated. Settings only store their
// value: call Refresh() to see them. Everything runs on the thread that owns the window.
//
// A control reports to its parent by WM_NOTIFY (core/CalendarNotify.h). The parent may do anything while it handles a
// notification: change or delete items, change the date, begin an edit, destroy the window, delete the C++ object.
// After each send a control therefore asks a WindowAlive guard before it touches anything of itself.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>
#include <afxtempl.h>
#include <afxdisp.h>

#include "CalendarAccess.h"
#include "CalendarClock.h"
#include "CalendarColors.h"
#include "CalendarFonts.h"
#include "CalendarNotify.h"
#include "CalendarOptions.h"
#include "CalendarPrinting.h"
#include "CalendarRecords.h"
#include "DataImport.h"
#include "DayLines.h"
#include "SystemTheme.h"
#include "TextSettings.h"
#include "ViewScale.h"
#include "WindowAlive.h"

#include <atomic>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

struct CPrintInfo;
class CInPlaceEdit;
namespace dayvane {
class CalendarWindowAccess;
class DayProvider;
class PointerDriver;
class TimeIndex;
class ItemFeed;
class ItemSource;
enum class Drop;
struct Interaction;
struct LayoutWatch;
struct PaintedState;
struct PieceMove;
struct SelectedRange;
struct KeyStep;
struct ViewParts;
enum class KeyArrow;
enum class KeyEdge;
} // namespace dayvane

class CCalendarCtrl : public CWnd
{
    DECLARE_DYNAMIC(CCalendarCtrl)

public:
    typedef dayvane::tagCALENDAR_ITEM tagCALENDAR_ITEM;
    typedef dayvane::tagCV_LAYOUT tagCV_LAYOUT;
    typedef CArray<tagCALENDAR_ITEM, const tagCALENDAR_ITEM&> CItemArray;

    // Sets every default and appends the seven standard rows to m_arDayColors.
    CCalendarCtrl();
    ~CCalendarCtrl() override;

    // ---- The virtual operations, in the order of their slots. Derived controls that are built apart from this library
    // call them by slot: the order stays, and new operations come after the last.

    // Views create their window and return TRUE, FALSE when it could not be created; the base creates nothing and
    // returns TRUE.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext = nullptr);

    virtual void SetFirstDayOfWeek(int nDay);    // 1 Sunday .. 7 Saturday; others throw CInvalidArgException
    virtual int HitTest(tagCCHITTESTINFO& info); // returns info.nItem
    virtual COleDateTime GetCurrentDate() { return m_dtCurrentDate; }
    virtual void SetCurrentDate(const COleDateTime& date); // the host calls Refresh() afterwards
    virtual COleDateTime GetSelDate() { return GetCurrentDate(); }
    virtual void SetSelDate(const COleDateTime& date);
    virtual void GetViewRange(COleDateTime& first, COleDateTime& last); // first and last shown day

    // What the host sets for single days: the views keep it, the base control keeps nothing.
    virtual void SetDayColor(COleDateTime date, int nColor);
    virtual void SetDayProperty(COleDateTime /*date*/, const tagCALENDAR_DAY_PROPERTY& /*property*/) {}
    virtual tagCALENDAR_DAY_PROPERTY* GetDayProperty(COleDateTime /*date*/) { return nullptr; }
    virtual void ClearDayProperty() {}
    virtual int GetDayColor(int /*nDay*/) { return 0; } // 1-based row of m_arDayColors, 0: none

    // Items. The control keeps copies. bUpdate: rebuild the screen items and their rectangles; bRedraw: repaint.
    // Return values: 1 done; 0 when the index is greater than the count. An index equal to the count, or negative,
    // throws CInvalidArgException; lack of memory throws CMemoryException; both leave the store as it was.
    virtual int AddItem(tagCC_ITEM* pItem, int bUpdate = TRUE, int bRedraw = TRUE);
    // Sets the record at nIndex; beyond the end the store grows, the gap holds default items. Nothing is shifted.
    virtual int InsertItem(int nIndex, tagCC_ITEM* pItem, int bUpdate = TRUE, int bRedraw = TRUE);
    virtual int SetItem(int nIndex, tagCC_ITEM* pItem, int bUpdate = TRUE, int bRedraw = TRUE);
    // The current item index is not adjusted: after the last item was deleted it may be the count. SetCurSel mends it.
    virtual int DeleteItem(int nIndex, int bUpdate = TRUE, int bRedraw = TRUE);
    // Clears the day properties too. The current item index is not adjusted: call SetCurSel(-1).
    virtual void DeleteAllItems();

    virtual void Layout(int cx, int cy);
    virtual int DoPrint(CDC* pDC, CPrintInfo* pInfo); // 0: nothing printed
    // The selected range, earlier date first. Returns 0 when nothing is selected (a bound is 0.0), else 1.
    virtual int GetSelRange(COleDateTime& begin, COleDateTime& end);

protected:
    virtual void DrawCtrl(CDC* pDC);
    virtual void InvalidateCellRect(COleDateTime /*date*/) {}
    virtual void InvalidateItemRect(int nIndex); // every piece of the item, 2 pixels around included
    virtual void InvalidateCellRectRange() {}    // the cells of the selected range, and up to m_dtPrevSelEnd
    virtual void DrawItem(CDC* /*pDC*/, CRect /*rcContent*/, CItemArray& /*screenItems*/) {}
    virtual void DrawGrid(CDC* /*pDC*/, CRect /*rcContent*/) {}
    virtual void DrawRuler(CDC* /*pDC*/, CRect /*rcRuler*/) {}
    virtual void DrawCaption(CDC* /*pDC*/, CRect /*rcCaption*/) {}
    virtual void MakeScreenItem(CItemArray& items, CItemArray& screenItems);
    virtual void CalcItemRect(CRect /*rcContent*/, CItemArray& /*screenItems*/) {}
    virtual void CalcLayout(CRect /*rcClient*/, CRect& /*rcCaption*/, CRect& /*rcRuler*/, CRect& /*rcContent*/) {}

public:
    virtual void SortItem(CItemArray& items); // by start, earliest first; invalid starts stay where they are
    virtual void EndEditItem(const char* lpszText, int nMode); // reports the text to the parent
    virtual void BeginEditItem(const char* lpszText);          // opens an edit box over the current cell

protected:
    // Where the edit box opens: the current cell; top -1: nowhere. nMode goes through to the notification.
    virtual void GetCurCellRect(CRect& rect, int& nMode);

public:
    virtual void SetFocusToItem(); // the next item that can have the focus becomes current, CCN_ITEMCLICK is sent

protected:
    // Keyboard moves; nFlags 0x10 (Shift) extends the selection.
    virtual void MoveRightward(UINT /*nFlags*/) {}
    virtual void MoveLeftward(UINT /*nFlags*/) {}
    virtual void MoveBackward(UINT nFlags); // down, later
    virtual void MoveForward(UINT nFlags);  // up, earlier

public:
    virtual void SyncToPresent(const COleDateTime* /*pWhen*/) {} // time grids: scroll to the time, nullptr: now

protected:
    // Item drag.
    virtual void MoveItem(tagCCHITTESTINFO hit);
    virtual void MoveItemEx(tagCCHITTESTINFO hit);
    // Extended drags: which edges of the screen item may be pulled (dayvane::ItemEdge), and the length of a row.
    virtual int GetPullableEdges(const tagCALENDAR_ITEM& /*screenItem*/) { return dayvane::EDGE_NONE; }
    virtual int GetMoveStepMinutes();
    // The mouse has moved a bound of the selection, or both.
    virtual void SelectionMoved() {}
    virtual void OptionsChanged(const CalendarOptions& /*before*/) { Refresh(); } // lays out and repaints
    virtual void DayProviderChanged() {}                         // what the view keeps of the shown days is out of date
    virtual void ScaleChanged(const dayvane::ViewScale& before); // drops fonts, lays out and repaints
    virtual void ForgetDrawn() {}                                // pixels of texts: their fonts have gone, or time has
    // Where a screen item is painted, frame of the current item included: client pixels.
    virtual CRect GetPaintedBox(const tagCALENDAR_ITEM& screenItem);
    virtual void GetPaintedState(dayvane::PaintedState& state); // what the picture shows of the items now
    virtual void TodayChanged() {} // another day is today, as far as the view keeps that; a repaint follows
    // Paints a bar or a box of an item with its text, its marks and its frame. A derived view may paint more on it, or
    // all of it in a way of its own.
    virtual void DrawItemBox(CDC& /*dc*/, const dayvane::ItemBox& /*box*/) {}
    // Where the keyboard's focus is shown, client pixels: the current item, else the moving end of the selection.
    virtual CRect GetFocusBox();
    // Option toolTips: what is cut off at the point, with the part of the window that shows it. FALSE: nothing is.
    virtual BOOL FindTip(const tagCCHITTESTINFO& hit, CRect& rcPart, std::u16string& strText);
    virtual void DescribeParts(dayvane::ViewParts& /*parts*/) {} // places and dates of what is shown now
    // Option keyboardMoves. How far an arrow key moves an item; bWholeDays: one that is shown by days alone.
    virtual dayvane::KeyStep GetKeyStep(dayvane::KeyArrow arrow, bool bWholeDays);
    // A key has moved an item to that time, or an end of it: brings it in sight, turning the page where needed.
    virtual void ShowMoved(const COleDateTime& /*when*/, BOOL /*bWholeDays*/) {}
    virtual BOOL OpenMoreListAt(CPoint) { return FALSE; } // of the mark under a point of the window; FALSE: none is

public:
    // ---- Items and selection.

    // Calls AddItem for each of the items, and updates and repaints once at the end. An exception leaves those added
    // before it.
    int AddItems(const tagCC_ITEM* pItems, int nCount, int bUpdate = TRUE, int bRedraw = TRUE);
    // Between the two the operations only store; updates and repaints are done at the end. Calls may nest.
    void BeginUpdate() { ++m_nUpdating; }
    void EndUpdate();
    // Items on demand (core/ItemSource.h) take the place of those that there are: whenever other days are shown, the
    // control asks for theirs by a message of its own, shows a placeholder until the answer comes, and then takes it in
    // place of all its items, as soon as none of them is held or edited. The current item stays current where its
    // lParam is among them. The source must live as long as it is set; nullptr: none, the items stay.
    void SetItemSource(dayvane::ItemSource* pSource);
    void ReloadItems(); // asks again: the host's items have changed
    void UpdateItems(); // does at once what that message would do: asks and takes, even what is held or edited
    BOOL IsLoadingItems() const;
    // The item operations for records that are not the caller's to change. They have names of their own so that the
    // address of a virtual operation names one function. The views' AddItem takes a const pointer, too.
    int AddItemCopy(tagCC_ITEM item, int bUpdate = TRUE, int bRedraw = TRUE);
    int InsertItemCopy(int nIndex, tagCC_ITEM item, int bUpdate = TRUE, int bRedraw = TRUE);
    int SetItemCopy(int nIndex, tagCC_ITEM item, int bUpdate = TRUE, int bRedraw = TRUE);
    int GetItem(int nIndex, tagCC_ITEM& item); // answers and throws as SetItem
    int GetItemCount() const { return static_cast<int>(m_arItem.GetSize()); }
    LPARAM GetItemData(int nIndex); // -1 for a negative index, 0 for one greater than the count
    int IsItemMovable(int nIndex);  // -1 for a negative index, 1 for one greater than the count
    int IsFulldayItem(tagCALENDAR_ITEM item);
    const CItemArray& GetScreenItems() const { return m_arScreenItem; } // as last laid out
    // Returns nIndex, or -1 (and changes nothing) when it is greater than the count.
    int SetCurSel(int nIndex);
    int GetCurSel() const { return m_nCurSel; }
    void SetSelScreenItem(int nIndex) { m_nSelScreenItem = nIndex; }
    int GetSelScreenItem() const { return m_nSelScreenItem; }
    // Stores both bounds as given and whether they stand for whole days; no notification.
    void SetSelRange(const COleDateTime& begin, const COleDateTime& end, BOOL bFullday = FALSE);
    BOOL IsWholeDaySelection() const { return m_bFulldaySelection; }

    // ---- Days.

    int GetFirstDayOfWeek() const { return m_nFirstDayOfWeek; }
    // The colour rows that day-colour numbers select (number n: row n-1), shared by all controls of the process.
    DAYVANE_DATA static CArray<tagCALENDAR_DAY_COLOR, const tagCALENDAR_DAY_COLOR&> m_arDayColors;
    // Holiday name and solar term of the date: "name", " term" or "name term"; empty for a plain day.
    static CString WhatsToday(COleDateTime date);
    // Names, days off and colours of the shown dates; nullptr: the process-wide provider (SetDefaultDayProvider), at
    // first the required annotations. It must live as long as it is set; call again after it answers differently.
    void SetDayProvider(const dayvane::DayProvider* pProvider);
    const dayvane::DayProvider* GetDayProvider() const { return m_pDayProvider; }
    // What stands under the number of a day, week numbers, eras; lays out and repaints. Eras that the system knows and
    // we do not are taken from it.
    void SetDayLines(const dayvane::DayLines& lines);
    const dayvane::DayLines& GetDayLines() const { return m_dayLines; }

    // ---- Appearance. core/CalendarColors.h says where each colour shows.

    void SetCaptionColor(COLORREF color) { m_colors.caption = color; }
    void SetCaptionTextColor(COLORREF color) { m_colors.captionText = color; }
    void SetRulerColor(COLORREF color) { m_colors.ruler = color; }
    void SetRulerTextColor(COLORREF color) { m_colors.rulerText = color; }
    void SetContentColor(COLORREF color) { m_colors.content = color; }
    void SetGridColor(COLORREF color) { m_colors.grid = color; }
    void SetBorderColor(COLORREF color) { m_colors.border = color; }
    void SetHighLightColor(COLORREF color) { m_colors.highlight = color; }
    void SetItemBorderColor(COLORREF color) { m_colors.itemBorder = color; }
    void SetHighLightTextColor(COLORREF color) { m_colors.highlightText = color; }
    void SetNoFocusColor(COLORREF color) { m_colors.noFocus = color; }
    const dayvane::CalendarColors& GetColors() const { return m_colors; }
    // All colours at once, those of popups and of the edit box too; repaints. With the option followSystemTheme the
    // system's next change replaces it.
    void SetTheme(const CalendarTheme& theme);
    // The resolution that the control is drawn for, 96 at first: bands, rows, bars, fonts and marks follow. Ends what
    // the option followDpi does. Kept between 48 and 768.
    void SetScale(int dpi);
    int GetScale() const { return m_scale.dpi; }
    const dayvane::ViewScale& GetViewScale() const { return m_scale; }
    // Face and size of texts; the height is that for 96 dpi. Rows, bars and lanes become higher where it is higher than
    // the control's own. WM_SETFONT does the same with a font of the present scale.
    void SetTextFont(const LOGFONT& font);
    void SetFonts(const CalendarFonts& fonts); // the text font and those of hours and title bands
    const CalendarTheme& GetTheme() const { return m_theme; }
    void ShowCaption(BOOL bShow) { m_bShowCaption = bShow; }
    BOOL IsShowCaption() const { return m_bShowCaption; }
    void SetCaptionText(LPCTSTR lpszText) { m_strCaption = lpszText; }
    CString GetCaptionText() const { return m_strCaption; }
    void ShowHoliday(BOOL bShow) { m_bShowHoliday = bShow; }
    BOOL IsShowHoliday() const { return m_bShowHoliday; }
    void Show24Setuki(BOOL bShow) { m_bShow24Setuki = bShow; }
    BOOL IsShow24Setuki() const { return m_bShow24Setuki; }
    void EnableMouseHoverEvent(BOOL bEnable) { m_bHoverEvents = bEnable; }
    // CalendarItemDisplay.
    void SetItemDisplayMode(int nMode) { m_nItemDisplayMode = nMode; }
    int GetItemDisplayMode() const { return m_nItemDisplayMode; }
    // Whether the date selection shows while an item is current.
    void ShowSelectionWithItem(BOOL bShow) { m_bShowSelectionWithItem = bShow; }
    BOOL IsShowSelectionWithItem() const { return m_bShowSelectionWithItem; }
    // The control keeps a copy; an earlier copy lives on until the control ends, for it may be in use. Returns 0, and
    // keeps the list that there was, when image 0 cannot be read.
    int SetImageList(CImageList* pImageList);
    CImageList* GetImageList() const { return m_pImageList; }
    // Text font: bit 0 bold, bit 1 italic with strike-out. Belongs to the control.
    CFont* GetFont(int nFlags);
    using CWnd::GetFont;

    // What the bytes of the host's texts are (items, day properties, titles, edited texts): CP_ACP (at first), 932,
    // CP_UTF8, ... The store keeps them as they are; notifications carry texts of the same page. Repaints.
    void SetTextCodePage(UINT nCodePage);
    UINT GetTextCodePage() const { return m_texts.codePage; }
    // The words and patterns of dates that the control writes itself. Sets the first day of the week, too, when the
    // texts have one. Repaints.
    void SetTexts(const CalendarTexts& texts);
    const CalendarTexts& GetTexts() const { return *m_texts.words; }

    // ---- Time grids: rows and work time.

    // Grid rows an hour, 1 .. 60 (divisors of 60 keep rows and times exact); others throw CInvalidArgException.
    void SetTimeScale(int nRowsPerHour);
    int GetTimeScale() const { return m_nTimeScale; }
    int GetMaxGridRows() const;
    void SetFulldayItemCount(int nCount) { m_nFulldayItemCount = nCount > 0 ? nCount : 1; }
    int GetFulldayItemCount() const { return m_nFulldayItemCount; }
    void ShowFulldaySection(BOOL bShow) { m_bShowFulldaySection = bShow; }
    BOOL IsShowFulldaySection() const { return m_bShowFulldaySection; }
    void SetWorkDayOfWeek(const tagCALENDAR_WORK_DAY_OF_WEEK& days) { m_workDays = days; }
    const tagCALENDAR_WORK_DAY_OF_WEEK& GetWorkDayOfWeek() const { return m_workDays; }
    int IsWorkDayOfWeek(int nDayOfWeek) const; // 1 Sunday .. 7 Saturday; 0 for anything else
    int IsWorkDayOfWeek(const COleDateTime& date) const { return IsWorkDayOfWeek(date.GetDayOfWeek()); }
    void SetWorkTime(const tagCALENDAR_WORK_TIME& time) { m_workTime = time; }
    const tagCALENDAR_WORK_TIME& GetWorkTime() const { return m_workTime; }
    // Whether the row begins within the work time.
    int IsWorkTime(int nRow) const { return _IsWorkTime(nRow, m_workTime.dtStart, m_workTime.dtEnd); }
    int _IsWorkTime(int nRow, COleDateTime start, COleDateTime end) const;

    // ---- Options. The single switches (EnableExtendedMove, EnableMoreList, ShowNowLine) write the same record.

    void SetOptions(const CalendarOptions& options); // lays out and repaints
    const CalendarOptions& GetOptions() const { return m_options; }

    // ---- Layout and paint.

    void Layout();  // lays out for the client area of the window and repaints the content
    void Refresh(); // Layout() and a repaint of everything
    int GetVertScrollOffset() const { return m_nVertScroll; }
    // Two colours from left to right (bHorizontal) or from top to bottom; see core/DrawingHelpers.h.
    static void DrawGradient(CDC* pDC, const CRect& rect, COLORREF crFrom, COLORREF crTo, BOOL bHorizontal,
                             BOOL bStepped = TRUE);
    // What stands left of an item's text. Each returns the width used, 0 when there is no room.
    int DrawImageIcon(CDC* pDC, int nImage, CRect rect);
    int DrawAlarmMark(CDC* pDC, RECT rect, int nFulldayForm);
    int DrawRecurrentMark(CDC* pDC, RECT rect, int nFulldayForm);
    void DrawGradationBorder(CDC* pDC, COLORREF color, const CRect& rect); // shades of the colour, lighter inwards

    // ---- Printing (printing/CalendarPrinter.h). DoPrint hands over to the printer.

    // nullptr: the control has none, as the base control.
    dayvane::CalendarPrinting* GetPrinter();
    // Another printer for this control; nullptr: the one that suits the view.
    void SetPrinter(std::unique_ptr<dayvane::CalendarPrinting> pPrinter) { m_pPrinter = std::move(pPrinter); }
    // The printer is the caller's from now on; the control makes another one when it is asked to print.
    std::unique_ptr<dayvane::CalendarPrinting> TakePrinter() { return std::move(m_pPrinter); }

    // ---- Notifications. Send WM_NOTIFY to the parent and return its answer, 0 without a parent. The control may be
    // gone afterwards: see WindowAlive.

    LRESULT Notify(int nCode, int nItem, int nSubValue, POINT pt, const SYSTEMTIME& time, UINT nFlags);
    LRESULT Notify(int nCode, const COleDateTime& date, const COleDateTime& first, const COleDateTime& last,
                   int nValue);

    // ---- In-place editing and dragging.

    // Stays TRUE after an edit was cancelled with Escape, until the next edit ends with a text.
    BOOL IsEditing() const { return m_bEditing; }
    // The open edit box, nullptr when there is none. It belongs to the control and lives until the edit ends.
    CEdit* GetInPlaceEdit() const;
    BOOL IsDragging() const;
    BOOL IsCarrying() const; // an item is dragged by keys
    // While an item is dragged, and during CCN_ITEMMOVED: the times it had before. FALSE when nothing is dragged.
    BOOL GetDragOrigin(COleDateTime& start, COleDateTime& end) const;
    // Extended: a dragged item keeps its distance from the pointer, and its time of day where the view shows whole
    // days; in the time grids its lower or right edge can be pulled. Otherwise it begins where the pointer is.
    void EnableExtendedMove(BOOL bEnable) { m_options.extendedMove = bEnable != FALSE; }
    BOOL IsExtendedMove() const { return m_options.extendedMove; }

protected:
    static constexpr UINT kEditId = 1;             // identifier of the edit box
    static constexpr UINT kExtendSelection = 0x10; // argument of the keyboard moves: Shift

    // ---- Services for the views.

    // The descriptions in m_lfFonts.
    enum CalendarFont
    {
        FONT_CAPTION, // the time grids' hours
        FONT_LARGE_CAPTION,
        FONT_TEXT, // of GetFont
        FONT_MARKS,
        CALENDAR_FONTS
    };

    // Whether a step of a drag and scrolling repaint only what they change. So it is for the views as they are; a class
    // derived from one repaints everything, for its own hooks may paint what nobody here knows of, until it says that
    // they paint on the pieces of items only and neither clip nor move the device context that they pass on,
    // and that its store changes by the operations of the control alone: an index and the last layout still hold then.
    BOOL UpdatesByParts() const { return m_bUpdateByParts || (m_pOwnType && *m_pOwnType == typeid(*this)); }
    void UpdateByParts(BOOL bParts) { m_bUpdateByParts = bParts; }

    // The view's own colours, all but those of selections, which stay the system's.
    void SetOwnColors(dayvane::CalendarColors colors);
    // The rows that day-colour numbers select, as the theme shows them.
    const CArray<tagCALENDAR_DAY_COLOR, const tagCALENDAR_DAY_COLOR&>& GetDayColors();
    // The host's text font, for 96 dpi; nullptr: there is none.
    const LOGFONT* GetTextFont() const { return m_bTextFont ? &m_lfFonts[FONT_TEXT] : nullptr; }
    BOOL IsSelectionShown() const { return m_nCurSel == -1 || m_bShowSelectionWithItem; }
    void NotifyItemByKey(int nCode, int nIndex, int nSubValue);
    void UpdateScreenItems(); // MakeScreenItem and CalcItemRect
    void ItemsChanged(int bUpdate, int bRedraw);
    // To be called when the item at the index was set, added or removed, before ItemsChanged.
    void ItemStored(int nIndex);
    void ItemsWanted(); // other days may be shown now: asks the item source, if there is one, and takes its answer
    void ItemRemoved(int nIndex);
    // The positions of all items that may touch the days (day numbers), ascending. nullptr: look at all of them. Valid
    // until the next call.
    const std::vector<int>* FindItems(const CItemArray& items, int nFirstDay, int nLastDay);
    // The items set since the screen items were last made of the store; nullptr: more has changed than that.
    const std::vector<int>* ItemsSetSinceMade() const { return m_bManyChanged ? nullptr : &m_setItems; }
    void ScreenItemsMade();
    // For RefreshChanged a view reports its changes of m_arScreenItem: before all or one is made anew, after few moved.
    void AllPiecesChange();
    void PieceChanges(int nScreenItem);
    void PiecesMoved(const std::vector<dayvane::PieceMove>& moved);
    void RefreshChanged();   // Refresh, but repaints only what the layout has changed where UpdatesByParts says so
    void InvalidateClient(); // the whole client area, without erasing, when there is a window
    void FinishEdit(BOOL bCommit); // closes an open edit box
    // The same with its text; false: the host has ended the control meanwhile. Views call it first in SetCurrentDate.
    bool EndEdit();
    // A press of the left button, after its notification: makes the item under it current or begins a sweep.
    void Press(const tagCCHITTESTINFO& hit, UINT nFlags);
    // A key that moves the selection: calls the move, which extends the selection while Shift is down.
    void ArrowKey(void (CCalendarCtrl::*move)(UINT));
    // The width that DrawItemMarks would use.
    int GetItemMarksWidth(const tagCALENDAR_ITEM& item, CRect rect, int nFulldayForm, int nGap, BOOL bIcon);
    // The marks that the item has, in its colour, nGap pixels after each; bIcon: its icon too. Returns the width used.
    int DrawItemMarks(CDC* pDC, const tagCALENDAR_ITEM& item, CRect rect, int nFulldayForm, int nGap, BOOL bIcon);
    // How far down the marks and the icon of the item reach from where they begin: a low box does not hold them.
    int GetMarksHeight(const tagCALENDAR_ITEM& item) const;

    CItemArray m_arItem;       // the host's items, in the host's order
    CItemArray m_arScreenItem; // what is shown
    int m_nCurSel = -1;        // current item, -1 none
    int m_nSelScreenItem = -1;

    COleDateTime m_dtCurrentDate;
    COleDateTime m_dtViewDate; // follows the current date
    COleDateTime m_dtSelBegin; // 0.0: nothing selected
    COleDateTime m_dtSelEnd;
    COleDateTime m_dtSelAnchor;
    COleDateTime m_dtPrevSelEnd; // the end that the selection is just leaving, for repainting it; else not valid

    CRect m_rcCaption = CRect(0, 0, 0, 0);
    CRect m_rcRuler = CRect(0, 0, 0, 0);
    CRect m_rcContent = CRect(0, 0, 0, 0);
    int m_nHorzScroll = 0; // pixels
    int m_nVertScroll = 0; // pixels
    BOOL m_bHasFocus = FALSE;

    dayvane::CalendarColors m_colors; // as the theme has them
    CalendarTheme m_theme;
    dayvane::ViewScale m_scale;
    BOOL m_bShowCaption = TRUE;
    CString m_strCaption;
    BOOL m_bShowHoliday = TRUE;
    const dayvane::DayProvider* m_pDayProvider = nullptr;
    dayvane::DayLines m_dayLines;
    BOOL m_bShow24Setuki = TRUE;
    BOOL m_bHoverEvents = FALSE;
    int m_nFirstDayOfWeek = 1;
    int m_nTimeScale = 2;
    tagCALENDAR_WORK_DAY_OF_WEEK m_workDays;
    tagCALENDAR_WORK_TIME m_workTime;
    int m_nFulldayItemCount = 0;
    BOOL m_bShowFulldaySection = FALSE;
    int m_nItemDisplayMode = 0;
    BOOL m_bShowSelectionWithItem = FALSE;

    LOGFONT m_lfFonts[CALENDAR_FONTS];
    CImageList* m_pImageList = nullptr; // the control's copy
    int m_cxIcon = 0;
    int m_cyIcon = 0;

    CalendarOptions m_options;
    dayvane::TextSettings m_texts;
    int m_nAutoScrollInterval; // milliseconds between the steps of a sweep or drag beyond an edge
    const std::unique_ptr<dayvane::Interaction> m_interaction;

    BOOL m_bShiftExtend = FALSE;      // the selection is being extended with Shift and an arrow key
    BOOL m_bItemDrag = TRUE;          // mouse moves are offered to the item drag
    BOOL m_bFulldaySelection = FALSE; // the selection stands for whole days
    BOOL m_bEditing = FALSE;
    unsigned m_nItemVersion = 0;                // counts changes of the store
    unsigned m_nCancelCount = 0;                // counts WM_CANCELMODE
    const std::type_info* m_pOwnType = nullptr; // of the view, set by its constructor
    BOOL m_bUpdateByParts = FALSE;
    unsigned m_nLayoutVersion = 0; // counts changes of the screen list and its rectangles
    dayvane::WindowLife m_life;
    std::unique_ptr<dayvane::CalendarPrinting> m_pPrinter; // made when it is first asked for

    // Message handlers, in the order of the message map.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PreSubclassWindow() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    void PostNcDestroy() override;
    afx_msg void OnDestroy();
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnMouseHover(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint point);
    afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    afx_msg void OnContextMenu(CWnd* pWnd, CPoint point);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg LRESULT OnImeChar(WPARAM wParam, LPARAM lParam);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg void OnCancelMode();
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg LRESULT OnMouseHWheel(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnUpdateUIState(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);
    afx_msg void OnCcnIpeEndEditItem(NMHDR* pNMHDR, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

private:
    friend class CInPlaceEdit;
    friend class dayvane::CalendarWindowAccess;
    class Pointing;

    void GrowToTextLine(CRect& rect);
    void EditBoxGone(CInPlaceEdit* pEdit);
    tagCCHITTESTINFO HitAt(CPoint point);
    tagCCHITTESTINFO KeyboardHit();
    dayvane::ItemEdge EdgeUnder(const tagCCHITTESTINFO& hit);
    void CancelTracking();
    void FollowSystemTheme();
    LRESULT ColorChild(HDC hDC);
    void ApplyScale(int dpi);
    void FollowDpi(UINT message, WPARAM wParam);
    void TakeFont(HFONT hFont);
    void DayHasCome();
    void PaintAll(CDC* pDC);
    CRect FocusFrame();
    void ShowFocus(bool bShow);
    void RestoreSelection();
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleAndReport(UINT message, WPARAM wParam, LPARAM lParam);
    void ReportSelection(int nCause, const dayvane::SelectedRange& before);
    dayvane::SelectedRange Selected() const;
    int FocusStep(bool bBack, CItemArray& sorted);
    BOOL HasFocusItemBeyond(BOOL bBack);
    void ShowTip(const tagCCHITTESTINFO& hit);
    int PlacedPieceOf(int nItem) const;
    dayvane::Drop DropAt(CPoint point) const;
    void PostScroll(int nSteps, UINT nBack, UINT nOn);
    void LiftCurrentItem();
    void CarryItem(const dayvane::ItemTimes& times, const COleDateTime& mark);
    void DropCarriedItem();
    void ReleaseAt(const tagCCHITTESTINFO& hit);
    void RefuseMove();
    BOOL BeginCarry();
    void MoveItemByKey(dayvane::KeyArrow arrow, dayvane::KeyEdge edge);
    BOOL TakeOptionKey(WPARAM nKey);
    BOOL TakeRequestKey(WPARAM nKey, BOOL bControl, BOOL bShift);
    BOOL TakeCarryKey(const MSG& msg);
    void StepPlace(BOOL bBack);
    BOOL TakePlaceKey(WPARAM nKey);
    CRect GetPlaceBox();
    BOOL BeginTyping(UINT nChar);
    BOOL ForwardTyping(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    // For programs that read aloud: press and release at these hits; the text of the current item, or a new one.
    BOOL ClickAt(const tagCCHITTESTINFO& from, const tagCCHITTESTINFO& to);
    BOOL SetCurrentText(const wchar_t* text);

    static constexpr UINT kItemFeedMessage = WM_USER + 0x2D1;
    afx_msg LRESULT OnItemFeed(WPARAM bAlsoHeld, LPARAM lParam);
    void AddPaintedBox(const tagCALENDAR_ITEM& screenItem);
    void InvalidateParts(const std::vector<CRect>& changed);
    void TakeFedItems();
    void ForgetItems(); // all of the store
    CRect LoadingBox() const;
    void DrawLoading(CDC* pDC) const;

    std::unique_ptr<dayvane::ItemFeed> m_pFeed; // while there is an item source
    // The window for other threads to post to; nullptr: there is none.
    const std::shared_ptr<std::atomic<HWND>> m_feedWindow = std::make_shared<std::atomic<HWND>>(nullptr);
    BOOL m_bFeedPosted = FALSE;
    std::unique_ptr<dayvane::TimeIndex> m_pIndex;
    std::vector<int> m_foundItems; // answer of FindItems
    std::vector<int> m_setItems;
    dayvane::LayoutWatch* m_pWatch = nullptr; // of RefreshChanged, while it lays out
    BOOL m_bManyChanged = TRUE;               // more than m_setItems has changed since the screen items were made
    int m_nUpdating = 0;                      // calls of BeginUpdate
    BOOL m_bUpdateWaits = FALSE;
    BOOL m_bRedrawWaits = FALSE;
    CFont m_fontCache[4]; // of GetFont
    std::vector<std::unique_ptr<CImageList>> m_imageLists;
    std::unique_ptr<dayvane::PointerDriver> m_pointer;
    dayvane::AccessHook m_access;
    CInPlaceEdit* m_pEdit = nullptr;                                            // the open edit box; deletes itself
    BOOL m_bOwnScale = FALSE;                                                   // the host has set one
    BOOL m_bTextFont = FALSE;                                                   // the host has set one
    dayvane::CalendarColors m_ownColors;                                        // without a theme
    CArray<tagCALENDAR_DAY_COLOR, const tagCALENDAR_DAY_COLOR&> m_arThemedDays; // empty: to be made
    CBrush m_pageBrush;                                                         // of edit and combo boxes
    dayvane::SystemThemeWatch m_themeWatch;                                     // while the option is on
};
