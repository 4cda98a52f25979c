// Views, but for printing.
#include "afximpl.h"

#include <afxext.h>
#include <afxpriv.h>

IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CView, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_PAINT()
ON_WM_MOUSEACTIVATE()
ON_MESSAGE(WM_INITIALUPDATE, &CView::OnInitialUpdateMessage)
END_MESSAGE_MAP()

CView::~CView()
{
    if (m_pDocument) {
        m_pDocument->RemoveView(this);
    }
}

BOOL CView::PreCreateWindow(CREATESTRUCT& cs)
{
    if ((cs.style & WS_BORDER) != 0) {
        cs.dwExStyle |= WS_EX_CLIENTEDGE;
        cs.style &= ~WS_BORDER;
    }
    if (!cs.lpszClass) {
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW),
                                           reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_WINDOW + 1)));
    }
    return TRUE;
}

int CView::OnCreate(LPCREATESTRUCT lpcs)
{
    if (CWnd::OnCreate(lpcs) == -1) {
        return -1;
    }
    const CCreateContext* pContext = static_cast<const CCreateContext*>(lpcs->lpCreateParams);
    if (pContext && pContext->m_pCurrentDoc) {
        pContext->m_pCurrentDoc->AddView(this);
    }
    return 0;
}

void CView::OnDestroy()
{
    CFrameWnd* pFrame = GetParentFrame();
    if (pFrame && pFrame->GetActiveView() == this) {
        pFrame->SetActiveView(nullptr);
    }
    CWnd::OnDestroy();
}

void CView::OnPaint()
{
    CPaintDC dc(this);
    OnPrepareDC(&dc);
    OnDraw(&dc);
}

LRESULT CView::OnInitialUpdateMessage(WPARAM, LPARAM)
{
    OnInitialUpdate();
    return 0;
}

void CView::OnUpdate(CView*, LPARAM, CObject*)
{
    if (m_hWnd) {
        Invalidate(TRUE);
    }
}

void CView::OnActivateView(BOOL bActivate, CView* pActivateView, CView*)
{
    if (bActivate && pActivateView == this && GetTopLevelParent()->IsWindowEnabled()) {
        SetFocus();
    }
}

int CView::OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message)
{
    const int result = CWnd::OnMouseActivate(pDesktopWnd, nHitTest, message);
    CFrameWnd* pFrame = GetParentFrame();
    if (result == MA_NOACTIVATE || result == MA_NOACTIVATEANDEAT || !pFrame) {
        return result;
    }
    // A child that has the focus keeps it.
    const HWND hWndFocus = ::GetFocus();
    if (pFrame->GetActiveView() == this && m_hWnd != hWndFocus && !::IsChild(m_hWnd, hWndFocus)) {
        OnActivateView(TRUE, this, this);
    } else {
        pFrame->SetActiveView(this);
    }
    return result;
}

BOOL CView::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    return CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo) ||
           (m_pDocument && m_pDocument->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo));
}
