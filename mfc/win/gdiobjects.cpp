// Pens, brushes, fonts, bitmaps, regions: objects that own a handle, and temporary ones that do not.
#include "afximpl.h"

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CPalette, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

namespace {

// The type of an object is part of its handle, also when the system gives the same index away again.
std::unique_ptr<CGdiObject> MakeForType(HGDIOBJ hObject)
{
    switch (::GetObjectType(hObject)) {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return std::make_unique<CPen>();
    case OBJ_BRUSH:
        return std::make_unique<CBrush>();
    case OBJ_FONT:
        return std::make_unique<CFont>();
    case OBJ_BITMAP:
        return std::make_unique<CBitmap>();
    case OBJ_PAL:
        return std::make_unique<CPalette>();
    case OBJ_REGION:
        return std::make_unique<CRgn>();
    default:
        return std::make_unique<CGdiObject>();
    }
}

} // namespace

CGdiObject* PASCAL CGdiObject::FromHandle(HGDIOBJ hObject)
{
    auto& objects = AfxState().gdiObjects;
    if (!hObject) {
        return nullptr;
    }
    if (CGdiObject* object = objects.Permanent(hObject)) {
        return object;
    }
    if (CGdiObject* object = objects.Temporary(hObject)) {
        return object;
    }
    std::unique_ptr<CGdiObject> made = MakeForType(hObject);
    made->m_hObject = hObject;
    return objects.SetTemporary(hObject, std::move(made));
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    ASSERT(!m_hObject);
    if (!hObject) {
        return FALSE;
    }
    m_hObject = hObject;
    AfxState().gdiObjects.SetPermanent(hObject, this);
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    const HGDIOBJ hObject = m_hObject;
    if (hObject) {
        AfxState().gdiObjects.RemovePermanent(hObject, this);
    }
    m_hObject = nullptr;
    return hObject;
}

BOOL CGdiObject::DeleteObject()
{
    return m_hObject && ::DeleteObject(Detach());
}

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor)
{
    if (!CreatePen(nPenStyle, nWidth, crColor)) {
        AfxThrowResourceException();
    }
}

CPen::CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount, const DWORD* lpStyle)
{
    if (!CreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle)) {
        AfxThrowResourceException();
    }
}

CBrush::CBrush(COLORREF crColor)
{
    if (!CreateSolidBrush(crColor)) {
        AfxThrowResourceException();
    }
}

CBrush::CBrush(int nIndex, COLORREF crColor)
{
    if (!CreateHatchBrush(nIndex, crColor)) {
        AfxThrowResourceException();
    }
}

CBrush::CBrush(CBitmap* pBitmap)
{
    if (!CreatePatternBrush(pBitmap)) {
        AfxThrowResourceException();
    }
}

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap)
{
    return Attach(::CreatePatternBrush(*pBitmap));
}

BOOL CFont::CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                       BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                       BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename)
{
    return Attach(::CreateFont(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic, bUnderline, cStrikeOut,
                               nCharSet, nOutPrecision, nClipPrecision, nQuality, nPitchAndFamily, lpszFacename));
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    LOGFONT logFont = {};
    logFont.lfCharSet = DEFAULT_CHARSET;
    logFont.lfHeight = nPointSize;
    ::lstrcpyn(logFont.lfFaceName, lpszFaceName, LF_FACESIZE);
    return CreatePointFontIndirect(&logFont, pDC);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC)
{
    constexpr int tenthsPerInch = 720;
    const HDC hDC = pDC ? pDC->m_hAttribDC : ::GetDC(nullptr);
    LOGFONT logFont = *lpLogFont;
    POINT top = {0, ::MulDiv(logFont.lfHeight, ::GetDeviceCaps(hDC, LOGPIXELSY), tenthsPerInch)};
    ::DPtoLP(hDC, &top, 1);
    POINT origin = {0, 0};
    ::DPtoLP(hDC, &origin, 1);
    logFont.lfHeight = -std::abs(top.y - origin.y);
    if (!pDC) {
        ::ReleaseDC(nullptr, hDC);
    }
    return CreateFontIndirect(&logFont);
}

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName)
{
    return Attach(::LoadBitmap(AfxFindResourceHandle(lpszResourceName, RT_BITMAP), lpszResourceName));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateCompatibleBitmap(pDC->m_hDC, nWidth, nHeight));
}

CSize CBitmap::GetBitmapDimension() const
{
    SIZE size = {};
    ::GetBitmapDimensionEx(*this, &size);
    return CSize(size);
}
