#include "core/CalendarView.h"

#include <memory>

using namespace dayvane;

namespace {
constexpr UINT kCtrlId = 0;         // identifier of the control within the view
const CRect kFirstRect(0, 0, 0, 0); // the first WM_SIZE replaces it
} // namespace

IMPLEMENT_DYNCREATE(CCalendarView, CView)

BEGIN_MESSAGE_MAP(CCalendarView, CView)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_COMMAND(ID_FILE_PRINT, &CView::OnFilePrint)
ON_COMMAND(ID_FILE_PRINT_PREVIEW, &CView::OnFilePrintPreview)
ON_NOTIFY(CCN_ITEMCLICK, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_ITEMDBLCLICK, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_ITEMRCLICK, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_CONTEXTMENU, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_SELDATECHANGE, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_VIEWRANGECHANGE, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_ITEMMOVED, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_IPE_ENDEDITITEM, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_COMBOSELCHANGE, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_MOUSEHOVER, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_SELCHANGED, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_COPY, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_CUT, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_PASTE, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_DUPLICATE, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_RENAME, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_DELETE, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_GOTODATE, kCtrlId, &CCalendarView::OnCcnItemClick)
ON_NOTIFY(CCN_BEGINMOVE, kCtrlId, &CCalendarView::OnCcnItemClick)
END_MESSAGE_MAP()

CCalendarView::CCalendarView() : CCalendarView(nullptr, WS_CHILD | WS_VISIBLE)
{
}

CCalendarView::CCalendarView(CRuntimeClass* pCtrlClass, DWORD dwStyle)
    : m_pCtrlClass(pCtrlClass), m_dwCtrlStyle(dwStyle)
{
}

CCalendarView::~CCalendarView()
{
    delete m_pCalendarCtrl;
}

int CCalendarView::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CView::OnCreate(lpCreateStruct) == -1) {
        return -1;
    }
    std::unique_ptr<CObject> object(m_pCtrlClass ? m_pCtrlClass->CreateObject() : nullptr);
    if (!object) {
        AfxThrowMemoryException();
    }
    CCalendarCtrl* ctrl = DYNAMIC_DOWNCAST(CCalendarCtrl, object.get());
    if (ctrl && ctrl->Create(m_dwCtrlStyle, kFirstRect, this, kCtrlId)) {
        object.release();
        m_pCalendarCtrl = ctrl;
    }
    return 0;
}

void CCalendarView::OnDestroy()
{
    CView::OnDestroy();
    if (!m_pCalendarCtrl) {
        return;
    }
    CCalendarCtrl* ctrl = m_pCalendarCtrl;
    m_pCalendarCtrl = nullptr;
    ctrl->DestroyWindow();
    delete ctrl;
}

void CCalendarView::OnSize(UINT nType, int cx, int cy)
{
    CView::OnSize(nType, cx, cy);
    if (m_pCalendarCtrl && m_pCalendarCtrl->GetSafeHwnd()) {
        m_pCalendarCtrl->MoveWindow(0, 0, cx, cy, TRUE);
    }
}

void CCalendarView::OnSetFocus(CWnd* pOldWnd)
{
    CView::OnSetFocus(pOldWnd);
    if (m_pCalendarCtrl && m_pCalendarCtrl->GetSafeHwnd()) {
        m_pCalendarCtrl->SetFocus();
    }
}

void CCalendarView::OnDraw(CDC*)
{
}

void CCalendarView::OnCcnItemClick(NMHDR* pNMHDR, LRESULT* pResult)
{
    // The owner may do anything to this view; nothing of it is touched afterwards.
    if (CWnd* owner = GetOwner()) {
        *pResult = owner->SendMessage(WM_NOTIFY, GetDlgCtrlID(), reinterpret_cast<LPARAM>(pNMHDR));
    }
}

// ---- Printing

BOOL CCalendarView::OnPreparePrinting(CPrintInfo* pInfo)
{
    pInfo->m_pPD->m_pd.hwndOwner = m_hWnd;
    return DoPreparePrinting(pInfo);
}

void CCalendarView::OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo)
{
    if (CalendarPrinting* printer = m_pCalendarCtrl ? m_pCalendarCtrl->GetPrinter() : nullptr) {
        printer->Begin(pDC, pInfo);
    }
}

void CCalendarView::OnPrint(CDC* pDC, CPrintInfo* pInfo)
{
    DoPrint(pDC, pInfo);
}

void CCalendarView::OnEndPrinting(CDC*, CPrintInfo*)
{
    if (CalendarPrinting* printer = m_pCalendarCtrl ? m_pCalendarCtrl->GetPrinter() : nullptr) {
        printer->End();
    }
}

void CCalendarView::DoPrint(CDC* pDC, CPrintInfo* pInfo)
{
    if (m_pCalendarCtrl) {
        m_pCalendarCtrl->DoPrint(pDC, pInfo);
    }
}
