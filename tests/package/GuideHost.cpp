// What docs/guide.md shows, in one program: a month in a window, an item that is dragged, pages into a metafile.
// snippet include
#include <dayvane/Dayvane.h> // the whole public API
// end of snippet

#include "HostMain.h"

#include <cstdio>
#include <map>

namespace {

// What the host below stores: the times of its items by their lParam.
std::map<LPARAM, COleDateTime> g_starts;

void Store(LPARAM item, const COleDateTime& start)
{
    g_starts[item] = start;
}

// snippet window
class CHostWnd : public CWnd
{
public:
    CMonthViewCtrl m_calendar;

protected:
    int OnCreate(LPCREATESTRUCT cs)
    {
        if (CWnd::OnCreate(cs) == -1) {
            return -1;
        }
        m_calendar.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 800, 600), this, 100);
        m_calendar.SetCurrentDate(COleDateTime(2026, 11, 20, 0, 0, 0));
        tagCC_ITEM item;
        item.dtStart = COleDateTime(2026, 11, 24, 10, 0, 0);
        item.dtEnd = COleDateTime(2026, 11, 24, 11, 30, 0);
        item.strText = "Weekly meeting";
        item.bMovable = TRUE;
        item.lParam = 7; // yours; comes back in every notification
        m_calendar.AddItem(&item);
        m_calendar.Refresh(); // shows what has been set
        return 0;
    }

    afx_msg void OnItemMoved(NMHDR* header, LRESULT* result)
    {
        const NMCALENDARITEM* moved = reinterpret_cast<const NMCALENDARITEM*>(header);
        tagCC_ITEM item;
        m_calendar.GetItem(moved->nItem, item);
        Store(moved->lParam, item.dtStart);
        *result = 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
ON_WM_CREATE()
ON_NOTIFY(CCN_ITEMMOVED, 100, &CHostWnd::OnItemMoved)
END_MESSAGE_MAP()
// end of snippet

bool MovesTheMeeting(CHostWnd& window)
{
    CMonthViewCtrl& month = window.m_calendar;
    const CPoint from = month.GetScreenItems()[0].rcItem.CenterPoint();
    Drag(month, from, CPoint(from.x, from.y + month.GetCell(0).m_rect.Height())); // a week later
    return g_starts.size() == 1 && g_starts[7].GetMonth() == 12 && g_starts[7].GetDay() == 1;
}

// The pages of the month as pictures, one after the other.
int PrintPages(CMonthViewCtrl& m_month, CDC& dc)
{
    // snippet print
    CPrintInfo info;
    dayvane::CalendarPrinting* printer = m_month.GetPrinter();
    printer->Begin(&dc, &info); // lays the pages out; info.GetMaxPage() says how many
    for (info.m_nCurPage = 1; info.m_nCurPage <= info.GetMaxPage(); ++info.m_nCurPage) {
        dc.StartPage();
        m_month.DoPrint(&dc, &info); // 1: printed
        dc.EndPage();
    }
    printer->End();
    // end of snippet
    return info.GetMaxPage();
}

bool PrintsTheMonth(CHostWnd& window)
{
    CDC dc;
    dc.Attach(::CreateEnhMetaFile(nullptr, nullptr, nullptr, nullptr));
    const int printed = PrintPages(window.m_calendar, dc);
    const HENHMETAFILE picture = ::CloseEnhMetaFile(dc.Detach());
    ENHMETAHEADER header = {};
    const bool hasPicture = ::GetEnhMetaFileHeader(picture, sizeof(header), &header) != 0;
    ::DeleteEnhMetaFile(picture);
    return printed == 1 && hasPicture && header.nRecords > 100;
}

bool ShowsAMonth(CWnd& frame)
{
    // snippet ten
    CMonthViewCtrl month;
    month.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 800, 600), &frame, 101);
    month.SetOptions(CalendarOptions::Modern());
    tagCC_ITEM item;
    item.dtStart = COleDateTime(2026, 11, 24, 10, 0, 0);
    item.dtEnd = COleDateTime(2026, 11, 24, 11, 30, 0);
    item.strText = "Weekly meeting";
    month.AddItem(&item);
    month.SetCurrentDate(item.dtStart);
    month.Refresh();
    // end of snippet
    const bool shown = month.GetScreenItems().GetSize() == 1;
    month.DestroyWindow();
    return shown;
}

int Run()
{
    CHostWnd window;
    if (!window.CreateEx(0, AfxRegisterWndClass(CS_DBLCLKS), "Guide", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                         CRect(0, 0, 820, 640), nullptr, 0)) {
        printf("no window\n");
        return 1;
    }
    if (!ShowsAMonth(window)) {
        printf("the month does not show its item\n");
        return 1;
    }
    if (!MovesTheMeeting(window)) {
        printf("the meeting was not stored with its new day\n");
        return 1;
    }
    if (!PrintsTheMonth(window)) {
        printf("the month was not printed on one page\n");
        return 1;
    }
    return 0;
}

} // namespace

int main()
{
    return RunHost(Run);
}
