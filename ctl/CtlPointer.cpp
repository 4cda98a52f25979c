// Messages about the pointer, editing and printing.
#include "CtlMessages.h"
#include "CtlText.h"

#include "printing/CalendarPrinter.h"

#include <afxext.h>

namespace dayvane::ctl {

namespace {

// The device context is the host's.
class BorrowedDc
{
public:
    explicit BorrowedDc(HDC hdc) { m_dc.Attach(hdc); }
    ~BorrowedDc() { m_dc.Detach(); }
    BorrowedDc(const BorrowedDc&) = delete;
    BorrowedDc& operator=(const BorrowedDc&) = delete;
    CDC* Get() { return &m_dc; }

private:
    CDC m_dc;
};

// From Begin to End.
class PrintJob
{
public:
    PrintJob(CalendarPrinting& printer, CDC* dc, CPrintInfo* info) : pages(printer.Begin(dc, info)), m_printer(printer)
    {
    }
    ~PrintJob() { m_printer.End(); }
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    const int pages;

private:
    CalendarPrinting& m_printer;
};

} // namespace

LRESULT OnHitTest(CtlWindow& control, WPARAM, LPARAM lParam)
{
    DV_HIT& record = *reinterpret_cast<DV_HIT*>(lParam);
    tagCCHITTESTINFO hit;
    hit.pt = record.pt;
    control.view->HitTest(hit);
    record.uHit = static_cast<UINT>(hit.nHitCode);
    record.nItem = hit.nItem;
    record.stTime = hit.time;
    return hit.nHitCode;
}

LRESULT OnBeginEdit(CtlWindow& control, WPARAM, LPARAM lParam)
{
    control.view->BeginEditItem(StoreText(reinterpret_cast<const WCHAR*>(lParam)));
    return EditBoxOf(control) ? kDone : kNone;
}

LRESULT OnPrint(CtlWindow& control, WPARAM, LPARAM lParam)
{
    DV_PRINT& record = *reinterpret_cast<DV_PRINT*>(lParam);
    if ((record.uFlags & ~DVP_LIST) != 0 || !record.hdc || record.nPage < 0) {
        return DVE_VALUE;
    }
    CListPrinter list(control.view);
    CalendarPrinting* printer = record.uFlags & DVP_LIST ? &list : control.view->GetPrinter();
    if (!printer) {
        return DVE_FAILED;
    }
    BorrowedDc dc(record.hdc);
    CPrintInfo info;
    const PrintJob job(*printer, dc.Get(), &info);
    record.nPages = job.pages;
    if (record.nPage == 0) {
        return kDone;
    }
    if (record.nPage > job.pages) {
        return kNone;
    }
    info.m_nCurPage = static_cast<UINT>(record.nPage);
    return printer->Print(dc.Get(), &info) != 0 ? kDone : kNone;
}

} // namespace dayvane::ctl
