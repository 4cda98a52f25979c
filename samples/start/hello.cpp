#include <dayvane/Dayvane.h>

class HelloFrame : public CFrameWnd
{
public:
    HelloFrame()
    {
        Create(nullptr, "Hello", WS_OVERLAPPEDWINDOW, CRect(20, 20, 840, 660));
        CRect client;
        GetClientRect(&client);
        m_month.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, client, this, AFX_IDW_PANE_FIRST);
        m_month.SetOptions(CalendarOptions::Modern()); // what we recommend; also follows the system's theme
        m_month.SetTexts(CalendarTexts::FromLocale(::GetUserDefaultLCID()));
        tagCC_ITEM item;
        item.dtStart = item.dtEnd = COleDateTime::GetCurrentTime();
        item.strText = "My first item";
        m_month.AddItem(&item);
    }

private:
    CMonthViewCtrl m_month;
};

class HelloApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        m_pMainWnd = new HelloFrame; // deletes itself with its window
        m_pMainWnd->ShowWindow(m_nCmdShow);
        return TRUE;
    }
};

HelloApp theApp;
