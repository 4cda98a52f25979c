// What docs/printing.md shows, in one program: pages with a host's options, as a list, and as pictures without a
// printer.
#include "HostMain.h"

#include <cstdio>

namespace {

class CHostWnd : public CWnd
{
};

void Fill(CMonthViewCtrl& month)
{
    month.SetCurrentDate(COleDateTime(2026, 11, 20, 0, 0, 0));
    tagCC_ITEM item;
    item.dtStart = COleDateTime(2026, 11, 24, 10, 0, 0);
    item.dtEnd = COleDateTime(2026, 11, 24, 11, 30, 0);
    item.strText = "Weekly meeting";
    month.AddItem(&item);
}

// What was drawn into a metafile.
int RecordsOf(CMonthViewCtrl& month)
{
    CDC dc;
    dc.Attach(::CreateEnhMetaFile(nullptr, nullptr, nullptr, nullptr));
    CPrintInfo info;
    const int printed = month.DoPrint(&dc, &info);
    const HENHMETAFILE picture = ::CloseEnhMetaFile(dc.Detach());
    ENHMETAHEADER header = {};
    ::GetEnhMetaFileHeader(picture, sizeof(header), &header);
    ::DeleteEnhMetaFile(picture);
    return printed ? static_cast<int>(header.nRecords) : 0;
}

void Choose(CMonthViewCtrl& m_month)
{
    // snippet options
    CCalendarPrinter* printer = CCalendarPrinter::Of(m_month);
    dayvane::PrintOptions options = printer->GetOptions();
    options.inColor = false;
    options.marginLeft = 25; // millimetres: holes for a binder
    options.footerText = printer->WideText("Sales department");
    options.otherDays = dayvane::PrintOptions::OtherDays::LeftOut;
    printer->SetOptions(options);
    printer->SetTitle(u"Team calendar"); // beside the month, in place of the view's own title
    printer->SetPlaces([](int item) { return item == 0 ? CString("Room 1") : CString(); });
    // end of snippet
}

// The number of the pages.
std::size_t SavePictures(CMonthViewCtrl& m_month)
{
    // snippet pictures
    const CSize a4(2970, 2100); // tenths of a millimetre, landscape
    CCalendarPrinter* printer = CCalendarPrinter::Of(m_month);
    const std::vector<dayvane::Page> pages = printer->MakePages(a4); // needs no printer
    for (const dayvane::Page& page : pages) {
        CBitmap bitmap;
        CDC memory;
        memory.CreateCompatibleDC(nullptr);
        CClientDC screen(&m_month);
        dayvane::PageView view; // where the sheet lies: at 0, 0 with 96 dots an inch
        const CRect sheet = view.Map(CRect(CPoint(0, 0), page.size));
        bitmap.CreateCompatibleBitmap(&screen, sheet.Width(), sheet.Height());
        CBitmap* before = memory.SelectObject(&bitmap);
        memory.FillSolidRect(&sheet, RGB(255, 255, 255));
        printer->DrawPage(&memory, page, view);
        memory.SelectObject(before);
    }
    // end of snippet
    return pages.size();
}

void PrintAsList(CMonthViewCtrl& m_month)
{
    // snippet list
    m_month.SetPrinter(std::make_unique<CListPrinter>(&m_month));
    // end of snippet
}

int Run()
{
    CHostWnd window;
    CMonthViewCtrl month;
    if (!window.CreateEx(0, AfxRegisterWndClass(CS_DBLCLKS), "Print", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                         CRect(0, 0, 400, 300), nullptr, 0) ||
        !month.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 380, 260), &window, 1)) {
        printf("no window\n");
        return 1;
    }
    Fill(month);
    const int whole = RecordsOf(month);
    Choose(month);
    const int chosen = RecordsOf(month);
    const std::size_t pictures = SavePictures(month);
    PrintAsList(month);
    const int list = RecordsOf(month);
    if (chosen >= whole || list >= chosen || list < 5 || pictures != 1) {
        printf("records: %d, %d without other months, %d as a list; %d pictures\n", whole, chosen, list,
               static_cast<int>(pictures));
        return 1;
    }
    return 0;
}

} // namespace

int main()
{
    return RunHost(Run);
}
