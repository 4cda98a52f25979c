// Printing of views: the state of a job and the loop over its pages.
#include "afximpl.h"

#include <afxext.h>
#include <afxpriv.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr UINT kUnknownLastPage = 0xFFFF;

// The printer's context as an object, and the document on it; what is not ended in good order is aborted.
class PrintJob
{
public:
    explicit PrintJob(HDC hDC)
    {
        dc.Attach(hDC);
        dc.m_bPrinting = TRUE;
    }
    ~PrintJob()
    {
        Abort();
        dc.Detach(); // CPrintInfo deletes it
    }
    bool Start(LPCTSTR name, LPCTSTR output)
    {
        DOCINFO info = {};
        info.cbSize = sizeof(info);
        info.lpszDocName = name;
        info.lpszOutput = output;
        m_started = dc.StartDoc(&info) != SP_ERROR;
        return m_started;
    }
    void End()
    {
        m_started = false;
        dc.EndDoc();
    }
    void Abort()
    {
        if (m_started) {
            m_started = false;
            dc.AbortDoc();
        }
    }

    CDC dc;

private:
    bool m_started = false;
};

CPrintingDialog* g_pJob = nullptr; // the one that is being printed

class CurrentJob
{
public:
    explicit CurrentJob(CPrintingDialog* pJob) : m_before(g_pJob) { g_pJob = pJob; }
    ~CurrentJob() { g_pJob = m_before; }
    CurrentJob(const CurrentJob&) = delete;
    CurrentJob& operator=(const CurrentJob&) = delete;

private:
    CPrintingDialog* m_before;
};

// The system asks this while it spools.
BOOL CALLBACK GoOn(HDC, int)
{
    return !g_pJob || g_pJob->Pump();
}

} // namespace

CPrintInfo::CPrintInfo() : m_pPD(new CPrintDialog(FALSE, PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOSELECTION))
{
    SetMinPage(1);
    SetMaxPage(kUnknownLastPage);
}

CPrintInfo::~CPrintInfo()
{
    if (m_pPD && m_pPD->m_pd.hDC) {
        ::DeleteDC(m_pPD->m_pd.hDC);
        m_pPD->m_pd.hDC = nullptr;
    }
    delete m_pPD;
}

void CView::OnPrepareDC(CDC*, CPrintInfo* pInfo)
{
    if (pInfo) {
        pInfo->m_bContinuePrinting = pInfo->GetMaxPage() != kUnknownLastPage || pInfo->m_nCurPage == 1;
    }
}

void CView::OnPrint(CDC* pDC, CPrintInfo*)
{
    OnDraw(pDC);
}

BOOL CView::DoPreparePrinting(CPrintInfo* pInfo)
{
    CPrintDialog& dialog = *pInfo->m_pPD;
    CWinApp* pApp = AfxGetApp();
    dialog.m_pd.nMaxPage = std::max(dialog.m_pd.nMaxPage, dialog.m_pd.nMinPage);
    if (pInfo->m_bPreview || pInfo->m_bDirect) {
        if (!dialog.m_pd.hDC && !(pApp ? pApp->GetPrinterDeviceDefaults(&dialog) : dialog.GetDefaults())) {
            return FALSE;
        }
    } else {
        dialog.m_pd.nFromPage = dialog.m_pd.nMinPage;
        dialog.m_pd.nToPage = dialog.m_pd.nMaxPage;
        if ((pApp ? pApp->DoPrintDialog(&dialog) : dialog.DoModal()) != IDOK) {
            return FALSE;
        }
    }
    return dialog.m_pd.hDC != nullptr;
}

void CView::OnFilePrint()
{
    CPrintInfo info;
    const MSG* pMsg = GetCurrentMessage();
    info.m_bDirect = pMsg->message == WM_COMMAND && LOWORD(pMsg->wParam) == ID_FILE_PRINT_DIRECT;
    if (!OnPreparePrinting(&info) || !info.m_pPD->m_pd.hDC) {
        return;
    }
    CWaitCursor wait;
    CString title = m_pDocument ? m_pDocument->GetTitle() : CString();
    if (title.IsEmpty()) {
        GetTopLevelParent()->GetWindowText(title);
    }
    PrintJob job(info.m_pPD->m_pd.hDC);
    OnBeginPrinting(&job.dc, &info);
    CPrintingDialog dialog;
    dialog.Open(this, title, info.m_pPD->GetDeviceName());
    const CurrentJob current(&dialog);
    ::SetAbortProc(job.dc.m_hDC, &GoOn);
    const bool toFile = (info.m_pPD->m_pd.Flags & PD_PRINTTOFILE) != 0;
    const bool started = job.Start(title, toFile ? "FILE:" : nullptr);
    const bool ok = started && PrintPages(&job.dc, &info);
    if (ok) {
        job.End();
    } else {
        job.Abort();
    }
    if (dialog.IsViewGone()) {
        return; // this object, too
    }
    dialog.Close();
    OnEndPrinting(&job.dc, &info);
    if (!ok && !dialog.IsCancelled()) {
        CString message = AfxTranslated("The printer does not take the document.");
        if (started) {
            message.Format(
                AfxTranslated("The printer stopped at page %u. This page and those after it are not printed."),
                info.m_nCurPage);
        }
        AfxMessageBox(message, MB_OK | MB_ICONEXCLAMATION);
    }
}

// FALSE when the printer refuses a page or the job is cancelled; the view may be gone then.
BOOL CView::PrintPages(CDC* pDC, CPrintInfo* pInfo)
{
    const UINT first = std::clamp(pInfo->GetFromPage(), pInfo->GetMinPage(), pInfo->GetMaxPage());
    const UINT last = std::clamp(pInfo->GetToPage(), pInfo->GetMinPage(), pInfo->GetMaxPage());
    const int step = last >= first ? 1 : -1;
    for (pInfo->m_nCurPage = first;; pInfo->m_nCurPage += static_cast<UINT>(step)) {
        // The first call finds out whether there is such a page; starting the page resets what it set.
        OnPrepareDC(pDC, pInfo);
        if (!pInfo->m_bContinuePrinting) {
            return TRUE;
        }
        if (!g_pJob->ShowPage(pInfo->m_nCurPage, last)) {
            return FALSE;
        }
        pInfo->m_rectDraw.SetRect(0, 0, pDC->GetDeviceCaps(HORZRES), pDC->GetDeviceCaps(VERTRES));
        pDC->DPtoLP(&pInfo->m_rectDraw);
        if (pDC->StartPage() < 0 || g_pJob->IsCancelled()) {
            return FALSE;
        }
        OnPrepareDC(pDC, pInfo);
        OnPrint(pDC, pInfo);
        if (pDC->EndPage() < 0 || g_pJob->IsCancelled()) {
            return FALSE;
        }
        if (pInfo->m_nCurPage == last) {
            return TRUE;
        }
    }
}

// The application's printer

namespace {

HANDLE CopyOf(HANDLE memory)
{
    const SIZE_T size = memory ? ::GlobalSize(memory) : 0;
    const HANDLE copy = size != 0 ? ::GlobalAlloc(GMEM_MOVEABLE, size) : nullptr;
    if (copy) {
        memcpy(::GlobalLock(copy), ::GlobalLock(memory), size);
        ::GlobalUnlock(copy);
        ::GlobalUnlock(memory);
    }
    return copy;
}

// Paper and orientation of one device mode into another.
void TakePaper(HANDLE hTo, HANDLE hFrom)
{
    auto* to = static_cast<DEVMODE*>(::GlobalLock(hTo));
    const auto* from = static_cast<const DEVMODE*>(::GlobalLock(hFrom));
    if ((from->dmFields & DM_ORIENTATION) != 0) {
        to->dmOrientation = from->dmOrientation;
    }
    if ((from->dmFields & DM_PAPERSIZE) != 0) {
        to->dmPaperSize = from->dmPaperSize;
    }
    to->dmFields |= from->dmFields & (DM_ORIENTATION | DM_PAPERSIZE);
    ::GlobalUnlock(hFrom);
    ::GlobalUnlock(hTo);
}

} // namespace

void CWinApp::SelectPrinter(HANDLE hDevNames, HANDLE hDevMode)
{
    const HANDLE names = CopyOf(hDevNames);
    const HANDLE mode = CopyOf(hDevMode);
    ::GlobalFree(m_hDevNames);
    ::GlobalFree(m_hDevMode);
    m_hDevNames = names;
    m_hDevMode = mode;
}

void CWinApp::SelectPaper(HANDLE hDevMode)
{
    if (m_hDevMode) {
        TakePaper(m_hDevMode, hDevMode);
    } else {
        SelectPrinter(nullptr, hDevMode);
    }
}

BOOL CWinApp::GetPrinterDeviceDefaults(CPrintDialog* pDialog)
{
    PRINTDLG& data = pDialog->m_pd;
    if (m_hDevNames) {
        data.hDevNames = CopyOf(m_hDevNames);
        data.hDevMode = CopyOf(m_hDevMode);
        return pDialog->CreatePrinterDC() != nullptr;
    }
    data.Flags |= PD_NOWARNING;
    if (!pDialog->GetDefaults()) {
        return FALSE;
    }
    if (m_hDevMode && data.hDevMode) {
        TakePaper(data.hDevMode, m_hDevMode);
        if (data.hDC) {
            ::DeleteDC(data.hDC);
        }
        pDialog->CreatePrinterDC();
    }
    return data.hDC != nullptr;
}

INT_PTR CWinApp::DoPrintDialog(CPrintDialog* pDialog)
{
    PRINTDLG& data = pDialog->m_pd;
    if (m_hDevNames) {
        data.hDevNames = CopyOf(m_hDevNames);
        data.hDevMode = CopyOf(m_hDevMode);
    } else if (m_hDevMode) {
        CPrintDialog defaults(FALSE, PD_RETURNDEFAULT);
        if (defaults.GetDefaults() && defaults.m_pd.hDevMode) {
            if (defaults.m_pd.hDC) {
                ::DeleteDC(defaults.m_pd.hDC);
            }
            TakePaper(defaults.m_pd.hDevMode, m_hDevMode);
            data.hDevNames = CopyOf(defaults.m_pd.hDevNames);
            data.hDevMode = CopyOf(defaults.m_pd.hDevMode);
        }
    }
    const INT_PTR answer = pDialog->DoModal();
    if (answer == IDOK) {
        SelectPrinter(data.hDevNames, data.hDevMode);
    }
    return answer;
}
