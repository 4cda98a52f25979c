// The smallest calendar that can be used: the base control in a window of its own, one day in 20-pixel rows of half an
// hour, every item as wide as the window. Writes down which hooks the base control calls.
#pragma once

#include "core/CalendarCtrl.h"
#include "core/DateMath.h"
#include "core/WindowHelpers.h"
#include "support/RecordingParent.h"

#include <string>
#include <vector>

namespace coretest {

constexpr int kWidth = 300;
constexpr int kHeight = 600;
constexpr int kRow = 20;

class PlainCalendar : public CCalendarCtrl
{
public:
    std::vector<std::string> calls; // of the move and invalidation hooks
    std::string drawn;              // the drawing hooks, a word each
    int cellHeight = 24;
    bool hasCell = true; // whether BeginEditItem finds a cell

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* = nullptr) override
    {
        dayvane::RegisterControlClass("DayvanePlainCalendar");
        return CWnd::CreateEx(0, "DayvanePlainCalendar", "", dwStyle, rect, pParent, nID);
    }

    void GetCurCellRect(CRect& rect, int& nMode) override
    {
        if (!hasCell) {
            return CCalendarCtrl::GetCurCellRect(rect, nMode);
        }
        rect.SetRect(10, 40, 200, 40 + cellHeight);
        nMode = 17;
    }

    using CCalendarCtrl::DrawCtrl;
    using CCalendarCtrl::InvalidateItemRect;
    using CCalendarCtrl::m_nVertScroll;
    using CCalendarCtrl::m_rcContent;

protected:
    void CalcLayout(CRect rcClient, CRect&, CRect&, CRect& rcContent) override { rcContent = rcClient; }
    void CalcItemRect(CRect rcContent, CItemArray& screenItems) override
    {
        for (int i = 0; i < screenItems.GetSize(); ++i) {
            CRect& box = screenItems[i].rcItem;
            box = rcContent;
            box.top += RowOf(screenItems[i].dtStart) * kRow;
            box.bottom = rcContent.top + RowOf(screenItems[i].dtEnd) * kRow;
        }
    }
    int GetPullableEdges(const tagCALENDAR_ITEM&) override { return dayvane::EDGE_BOTTOM; }
    void MoveRightward(UINT nFlags) override { Called("right", nFlags); }
    void MoveLeftward(UINT nFlags) override { Called("left", nFlags); }
    void InvalidateCellRectRange() override { calls.push_back("range"); }
    void DrawGrid(CDC*, CRect) override { drawn += "grid "; }
    void DrawRuler(CDC*, CRect) override { drawn += "ruler "; }
    void DrawItem(CDC*, CRect, CItemArray&) override { drawn += "items "; }
    void DrawCaption(CDC*, CRect) override { drawn += "caption "; }

private:
    static int RowOf(const COleDateTime& date) { return date.GetHour() * 2 + date.GetMinute() / 30; }
    void Called(const char* what, UINT nFlags) { calls.push_back(what + std::string(nFlags ? "+shift" : "")); }
};

inline COleDateTime At(int hour, int minute = 0)
{
    return COleDateTime(2017, 4, 25, hour, minute, 0);
}

// The middle of the row that begins at the time.
inline CPoint PointAt(int hour, int minute = 0)
{
    return CPoint(kWidth / 2, (hour * 2 + minute / 30) * kRow + kRow / 2);
}

// A recording parent with a plain calendar on 25 April 2017, holding two items of two hours: 2:00 and 6:00.
class CalendarScene
{
public:
    testsupport::RecordingParent parent;
    PlainCalendar* calendar = new PlainCalendar; // on the heap: hosts delete it in the middle of things

    explicit CalendarScene(DWORD extraStyle = 0)
    {
        parent.Create(kWidth, kHeight);
        calendar->SetCurrentDate(At(0));
        calendar->Create(WS_CHILD | WS_VISIBLE | extraStyle, CRect(0, 0, kWidth, kHeight), &parent, 5);
        AddItem(2, 70);
        AddItem(6, 71);
        calendar->Refresh();
        window = calendar->m_hWnd;
    }
    ~CalendarScene() { delete calendar; }

    void AddItem(int hour, LPARAM data, BOOL movable = TRUE)
    {
        tagCC_ITEM item;
        item.dtStart = At(hour);
        item.dtEnd = At(hour + 2);
        item.strText = "item";
        item.lParam = data;
        item.bMovable = movable;
        calendar->AddItem(&item);
    }

    std::string TimesOf(int index) const
    {
        tagCC_ITEM item;
        calendar->GetItem(index, item);
        return std::string(item.dtStart.Format("%H:%M")) + "-" + std::string(item.dtEnd.Format("%H:%M"));
    }

    // The notifications since the last call, a line each.
    std::vector<std::string> Reports()
    {
        std::vector<std::string> lines = parent.Lines();
        parent.ClearLog();
        return lines;
    }

    HWND window = nullptr;
};

} // namespace coretest
