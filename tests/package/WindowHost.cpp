// A host with a window: shows a month with items through the installed library, and catches what the library throws.
#include <dayvane/Dayvane.h>

#include <cstdio>

namespace {

constexpr UINT kControlId = 100;

int Fail(const char* what)
{
    printf("%s\n", what);
    return 1;
}

// The parent counts what the control reports.
class HostWindow : public CWnd
{
public:
    int clicks = 0;

protected:
    afx_msg void OnItemClick(NMHDR* header, LRESULT* result)
    {
        const NMCALENDARITEM* record = reinterpret_cast<const NMCALENDARITEM*>(header);
        clicks += record->lParam == 7;
        *result = 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(HostWindow, CWnd)
ON_NOTIFY(CCN_ITEMCLICK, kControlId, &HostWindow::OnItemClick)
END_MESSAGE_MAP()

int ShowMonth()
{
    HostWindow window;
    if (!window.CreateEx(0, AfxRegisterWndClass(CS_DBLCLKS), "Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                         CRect(0, 0, 800, 600), nullptr, 0)) {
        return Fail("no window");
    }
    CMonthViewCtrl month;
    CRect client;
    window.GetClientRect(&client);
    if (!month.Create(WS_CHILD | WS_VISIBLE, client, &window, kControlId)) {
        return Fail("no month view");
    }
    if (CCalendarCtrl::m_arDayColors.GetSize() < 7) { // data of the DLL, not a copy of its own
        return Fail("no table of day colours");
    }
    month.SetCurrentDate(COleDateTime(2017, 4, 12, 0, 0, 0));
    tagCC_ITEM item;
    item.dtStart = COleDateTime(2017, 4, 12, 10, 0, 0);
    item.dtEnd = COleDateTime(2017, 4, 13, 11, 0, 0);
    item.strText = "Meeting";
    item.lParam = 7;
    month.AddItem(&item);
    month.Refresh();
    month.UpdateWindow();
    if (month.GetScreenItems().GetSize() != 1) {
        return Fail("the item is not on the screen");
    }
    const CPoint inside = month.GetScreenItems()[0].rcItem.CenterPoint();
    month.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(inside.x, inside.y));
    month.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(inside.x, inside.y));
    if (window.clicks != 1) {
        return Fail("the click on the item was not reported");
    }
    bool caught = false;
    try {
        month.SetItem(-1, &item);
    } catch (CInvalidArgException* exception) {
        caught = true;
        exception->Delete();
    }
    return caught ? 0 : Fail("the library's exception did not arrive");
}

} // namespace

int main()
{
    if (!AfxWinInit(GetModuleHandle(nullptr), nullptr, GetCommandLine(), SW_SHOW)) {
        return Fail("no framework");
    }
    const int result = ShowMonth();
    AfxWinTerm();
    return result;
}
