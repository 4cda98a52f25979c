// Device contexts.
#include "afximpl.h"

IMPLEMENT_DYNCREATE(CDC, CObject)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)

// Lifetime

CDC::~CDC()
{
    if (m_hDC) {
        ::DeleteDC(Detach());
    }
}

CDC* PASCAL CDC::FromHandle(HDC hDC)
{
    auto& contexts = AfxState().contexts;
    if (!hDC) {
        return nullptr;
    }
    if (CDC* pDC = contexts.Permanent(hDC)) {
        return pDC;
    }
    if (CDC* pDC = contexts.Temporary(hDC)) {
        return pDC;
    }
    auto pDC = std::make_unique<CDC>();
    pDC->m_hDC = pDC->m_hAttribDC = hDC;
    return contexts.SetTemporary(hDC, std::move(pDC));
}

BOOL CDC::Attach(HDC hDC)
{
    ASSERT(!m_hDC);
    if (!hDC) {
        return FALSE;
    }
    m_hDC = hDC;
    AfxState().contexts.SetPermanent(hDC, this);
    SetAttribDC(hDC);
    return TRUE;
}

HDC CDC::Detach()
{
    const HDC hDC = m_hDC;
    if (hDC) {
        AfxState().contexts.RemovePermanent(hDC, this);
    }
    ReleaseAttribDC();
    m_hDC = nullptr;
    return hDC;
}

// While the output is redirected the object answers for no handle but the new one, which it does not own.
void CDC::SetOutputDC(HDC hDC)
{
    AfxState().contexts.RemovePermanent(m_hDC, this);
    m_hDC = hDC;
}

void CDC::ReleaseOutputDC()
{
    AfxState().contexts.RemovePermanent(m_hDC, this);
    m_hDC = nullptr;
}

BOOL CDC::DeleteDC()
{
    return m_hDC && ::DeleteDC(Detach());
}

int CDC::SaveDC()
{
    const int saved = m_hAttribDC ? ::SaveDC(m_hAttribDC) : 0;
    return HasOwnAttribDC() && m_hDC && ::SaveDC(m_hDC) == 0 ? 0 : saved;
}

BOOL CDC::RestoreDC(int nSavedDC)
{
    const BOOL restored = ::RestoreDC(m_hDC, nSavedDC);
    return HasOwnAttribDC() ? restored && ::RestoreDC(m_hAttribDC, nSavedDC) : restored;
}

CWnd* CDC::GetWindow() const
{
    return CWnd::FromHandle(::WindowFromDC(m_hDC));
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->m_hWnd)
{
    if (!Attach(::BeginPaint(m_hWnd, &m_ps))) {
        AfxThrowResourceException();
    }
}

CPaintDC::~CPaintDC()
{
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(CWnd::SafeHwnd(pWnd))
{
    if (!Attach(::GetDC(m_hWnd))) {
        AfxThrowResourceException();
    }
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(CWnd::SafeHwnd(pWnd))
{
    if (!Attach(::GetWindowDC(m_hWnd))) {
        AfxThrowResourceException();
    }
}

CWindowDC::~CWindowDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

AfxTempDC::AfxTempDC(WPARAM hDC) : m_pDC(AfxState().contexts.Permanent(reinterpret_cast<HDC>(hDC)))
{
    if (!m_pDC) {
        m_dc.m_hDC = m_dc.m_hAttribDC = reinterpret_cast<HDC>(hDC);
        m_pDC = &m_dc;
    }
}

AfxTempDC::~AfxTempDC()
{
    m_dc.m_hDC = m_dc.m_hAttribDC = nullptr;
}
