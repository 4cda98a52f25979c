// Printing of views: the state of a job and the loop over its pages.
#include "afximpl.h"

#include <afxext.h>

#include <algorithm>

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
        if (m_started) {
            dc.AbortDoc();
        }
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

    CDC dc;

private:
    bool m_started = false;
};

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
    dialog.m_pd.nMaxPage = std::max(dialog.m_pd.nMaxPage, dialog.m_pd.nMinPage);
    if (pInfo->m_bPreview || pInfo->m_bDirect) {
        if (!dialog.m_pd.hDC && !dialog.GetDefaults()) {
            return FALSE;
        }
    } else {
        dialog.m_pd.nFromPage = dialog.m_pd.nMinPage;
        dialog.m_pd.nToPage = dialog.m_pd.nMaxPage;
        if (dialog.DoModal() != IDOK) {
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
    const bool toFile = (info.m_pPD->m_pd.Flags & PD_PRINTTOFILE) != 0;
    bool ok = job.Start(title, toFile ? "FILE:" : nullptr);
    if (ok) {
        ok = PrintPages(&job.dc, &info);
        if (ok) {
            job.End();
        }
    }
    OnEndPrinting(&job.dc, &info);
    if (!ok) {
        AfxMessageBox("The document could not be printed.", MB_OK | MB_ICONEXCLAMATION);
    }
}

// FALSE when the printer refuses a page.
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
        pInfo->m_rectDraw.SetRect(0, 0, pDC->GetDeviceCaps(HORZRES), pDC->GetDeviceCaps(VERTRES));
        pDC->DPtoLP(&pInfo->m_rectDraw);
        if (pDC->StartPage() < 0) {
            return FALSE;
        }
        OnPrepareDC(pDC, pInfo);
        OnPrint(pDC, pInfo);
        if (pDC->EndPage() < 0) {
            return FALSE;
        }
        if (pInfo->m_nCurPage == last) {
            return TRUE;
        }
    }
}
