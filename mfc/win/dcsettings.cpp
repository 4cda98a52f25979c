// Device contexts: settings, which both contexts of an object get when they differ.
#include "afximpl.h"

namespace {

template <class Call>
auto OnBoth(const CDC& dc, Call call)
{
    auto result = decltype(call(dc.m_hDC))();
    if (dc.m_hDC) {
        result = call(dc.m_hDC);
    }
    if (dc.m_hAttribDC && dc.m_hAttribDC != dc.m_hDC) {
        result = call(dc.m_hAttribDC);
    }
    return result;
}

} // namespace

CGdiObject* CDC::Select(const CGdiObject* pObject)
{
    const HGDIOBJ hObject = AfxSafeHandle(pObject);
    // A bitmap belongs to one context at a time.
    if (HasOwnAttribDC() && ::GetObjectType(hObject) == OBJ_BITMAP) {
        return CGdiObject::FromHandle(::SelectObject(m_hDC, hObject));
    }
    return CGdiObject::FromHandle(OnBoth(*this, [=](HDC hDC) { return ::SelectObject(hDC, hObject); }));
}

CGdiObject* CDC::SelectStockObject(int nIndex)
{
    const HGDIOBJ hObject = ::GetStockObject(nIndex);
    return CGdiObject::FromHandle(OnBoth(*this, [=](HDC hDC) { return ::SelectObject(hDC, hObject); }));
}

CPalette* CDC::SelectPalette(CPalette* pPalette, BOOL bForceBackground)
{
    return CPalette::FromHandle(
        ::SelectPalette(m_hDC, static_cast<HPALETTE>(AfxSafeHandle(pPalette)), bForceBackground));
}

COLORREF CDC::SetBkColor(COLORREF crColor)
{
    return OnBoth(*this, [=](HDC hDC) { return ::SetBkColor(hDC, crColor); });
}

int CDC::SetBkMode(int nBkMode)
{
    return OnBoth(*this, [=](HDC hDC) { return ::SetBkMode(hDC, nBkMode); });
}

COLORREF CDC::SetTextColor(COLORREF crColor)
{
    return OnBoth(*this, [=](HDC hDC) { return ::SetTextColor(hDC, crColor); });
}

UINT CDC::SetTextAlign(UINT nFlags)
{
    return OnBoth(*this, [=](HDC hDC) { return ::SetTextAlign(hDC, nFlags); });
}

int CDC::SetTextCharacterExtra(int nCharExtra)
{
    return OnBoth(*this, [=](HDC hDC) { return ::SetTextCharacterExtra(hDC, nCharExtra); });
}

int CDC::SetROP2(int nDrawMode)
{
    return OnBoth(*this, [=](HDC hDC) { return ::SetROP2(hDC, nDrawMode); });
}

int CDC::SetPolyFillMode(int nPolyFillMode)
{
    return OnBoth(*this, [=](HDC hDC) { return ::SetPolyFillMode(hDC, nPolyFillMode); });
}

int CDC::SetStretchBltMode(int nStretchMode)
{
    return OnBoth(*this, [=](HDC hDC) { return ::SetStretchBltMode(hDC, nStretchMode); });
}

CPoint CDC::SetBrushOrg(int x, int y)
{
    POINT before = {};
    ::SetBrushOrgEx(m_hDC, x, y, &before);
    return CPoint(before);
}

// Coordinates

int CDC::SetMapMode(int nMapMode)
{
    return OnBoth(*this, [=](HDC hDC) { return ::SetMapMode(hDC, nMapMode); });
}

CPoint CDC::GetViewportOrg() const
{
    POINT point = {};
    ::GetViewportOrgEx(m_hAttribDC, &point);
    return CPoint(point);
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    POINT before = {};
    OnBoth(*this, [&](HDC hDC) { return ::SetViewportOrgEx(hDC, x, y, &before); });
    return CPoint(before);
}

CPoint CDC::OffsetViewportOrg(int nWidth, int nHeight)
{
    POINT before = {};
    OnBoth(*this, [&](HDC hDC) { return ::OffsetViewportOrgEx(hDC, nWidth, nHeight, &before); });
    return CPoint(before);
}

CSize CDC::GetViewportExt() const
{
    SIZE size = {};
    ::GetViewportExtEx(m_hAttribDC, &size);
    return CSize(size);
}

CSize CDC::SetViewportExt(int cx, int cy)
{
    SIZE before = {};
    OnBoth(*this, [&](HDC hDC) { return ::SetViewportExtEx(hDC, cx, cy, &before); });
    return CSize(before);
}

CPoint CDC::GetWindowOrg() const
{
    POINT point = {};
    ::GetWindowOrgEx(m_hAttribDC, &point);
    return CPoint(point);
}

CPoint CDC::SetWindowOrg(int x, int y)
{
    POINT before = {};
    OnBoth(*this, [&](HDC hDC) { return ::SetWindowOrgEx(hDC, x, y, &before); });
    return CPoint(before);
}

CPoint CDC::OffsetWindowOrg(int nWidth, int nHeight)
{
    POINT before = {};
    OnBoth(*this, [&](HDC hDC) { return ::OffsetWindowOrgEx(hDC, nWidth, nHeight, &before); });
    return CPoint(before);
}

CSize CDC::GetWindowExt() const
{
    SIZE size = {};
    ::GetWindowExtEx(m_hAttribDC, &size);
    return CSize(size);
}

CSize CDC::SetWindowExt(int cx, int cy)
{
    SIZE before = {};
    OnBoth(*this, [&](HDC hDC) { return ::SetWindowExtEx(hDC, cx, cy, &before); });
    return CSize(before);
}

void CDC::DPtoLP(LPSIZE lpSize) const
{
    CRect area(0, 0, lpSize->cx, lpSize->cy);
    DPtoLP(&area);
    *lpSize = {std::abs(area.Width()), std::abs(area.Height())};
}

void CDC::LPtoDP(LPSIZE lpSize) const
{
    CRect area(0, 0, lpSize->cx, lpSize->cy);
    LPtoDP(&area);
    *lpSize = {std::abs(area.Width()), std::abs(area.Height())};
}

// Clipping

int CDC::SelectClipRgn(CRgn* pRgn)
{
    const HRGN hRgn = static_cast<HRGN>(AfxSafeHandle(pRgn));
    return OnBoth(*this, [=](HDC hDC) { return ::SelectClipRgn(hDC, hRgn); });
}

int CDC::SelectClipRgn(CRgn* pRgn, int nMode)
{
    const HRGN hRgn = static_cast<HRGN>(AfxSafeHandle(pRgn));
    return OnBoth(*this, [=](HDC hDC) { return ::ExtSelectClipRgn(hDC, hRgn, nMode); });
}

int CDC::ExcludeClipRect(int x1, int y1, int x2, int y2)
{
    return OnBoth(*this, [=](HDC hDC) { return ::ExcludeClipRect(hDC, x1, y1, x2, y2); });
}

int CDC::IntersectClipRect(int x1, int y1, int x2, int y2)
{
    return OnBoth(*this, [=](HDC hDC) { return ::IntersectClipRect(hDC, x1, y1, x2, y2); });
}

int CDC::OffsetClipRgn(int x, int y)
{
    return OnBoth(*this, [=](HDC hDC) { return ::OffsetClipRgn(hDC, x, y); });
}

// The current position

CPoint CDC::GetCurrentPosition() const
{
    POINT point = {};
    ::GetCurrentPositionEx(m_hAttribDC, &point);
    return CPoint(point);
}

CPoint CDC::MoveTo(int x, int y)
{
    POINT before = {};
    OnBoth(*this, [&](HDC hDC) { return ::MoveToEx(hDC, x, y, &before); });
    return CPoint(before);
}

BOOL CDC::LineTo(int x, int y)
{
    if (HasOwnAttribDC()) {
        ::MoveToEx(m_hAttribDC, x, y, nullptr);
    }
    return ::LineTo(m_hDC, x, y);
}
