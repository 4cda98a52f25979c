// Device contexts: drawing and measuring.
#include "afximpl.h"

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr)
{
    // An opaque text without characters is the fastest fill there is.
    ::SetBkColor(m_hDC, clr);
    ::ExtTextOut(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr)
{
    const RECT area = {x, y, x + cx, y + cy};
    FillSolidRect(&area, clr);
}

void CDC::Draw3dRect(LPCRECT r, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    const int cx = r->right - r->left;
    const int cy = r->bottom - r->top;
    FillSolidRect(r->left, r->top, cx - 1, 1, clrTopLeft);
    FillSolidRect(r->left, r->top, 1, cy - 1, clrTopLeft);
    FillSolidRect(r->right - 1, r->top, 1, cy, clrBottomRight);
    FillSolidRect(r->left, r->bottom - 1, cx, 1, clrBottomRight);
}

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop)
{
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC ? pSrcDC->m_hDC : nullptr, xSrc, ySrc, dwRop);
}

BOOL CDC::StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                     int nSrcHeight, DWORD dwRop)
{
    return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC ? pSrcDC->m_hDC : nullptr, xSrc, ySrc, nSrcWidth,
                        nSrcHeight, dwRop);
}

BOOL CDC::TransparentBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                         int nSrcHeight, UINT clrTransparent)
{
    return ::TransparentBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->m_hDC, xSrc, ySrc, nSrcWidth, nSrcHeight,
                            clrTransparent);
}

BOOL CDC::AlphaBlend(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                     int nSrcHeight, BLENDFUNCTION blend)
{
    return ::AlphaBlend(m_hDC, x, y, nWidth, nHeight, pSrcDC->m_hDC, xSrc, ySrc, nSrcWidth, nSrcHeight, blend);
}

// Text

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const
{
    SIZE size = {};
    ::GetTextExtentPoint32(m_hAttribDC, lpszString, nCount, &size);
    return CSize(size);
}

CSize CDC::GetOutputTextExtent(LPCTSTR lpszString, int nCount) const
{
    SIZE size = {};
    ::GetTextExtentPoint32(m_hDC, lpszString, nCount, &size);
    return CSize(size);
}

int CDC::GetTextFace(CString& rString) const
{
    const int count = ::GetTextFace(m_hAttribDC, 0, nullptr); // with the closing zero
    ::GetTextFace(m_hAttribDC, count, rString.GetBuffer(count));
    rString.ReleaseBuffer();
    return rString.GetLength();
}
