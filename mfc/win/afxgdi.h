// Drawing objects. Each class owns the handle that it created or was attached to and deletes it when it is destroyed;
// FromHandle gives a temporary object that deletes nothing (see AfxLockTempMaps). An object must not be deleted while
// a device context still has it selected.
#pragma once

class CDC;

class CGdiObject : public CObject
{
    DECLARE_DYNCREATE(CGdiObject)
public:
    CGdiObject() = default;
    ~CGdiObject() override { DeleteObject(); }

    operator HGDIOBJ() const { return m_hObject; }
    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    // The object that owns the handle, else a temporary one of the class that fits the handle's type; null for null.
    static CGdiObject* PASCAL FromHandle(HGDIOBJ hObject);

    // Takes over the handle; FALSE when it is null.
    BOOL Attach(HGDIOBJ hObject);
    HGDIOBJ Detach();
    // FALSE when there is no handle or the system refuses.
    BOOL DeleteObject();

    int GetObject(int nCount, LPVOID lpObject) const { return ::GetObject(m_hObject, nCount, lpObject); }
    UINT GetObjectType() const { return ::GetObjectType(m_hObject); }
    BOOL CreateStockObject(int nIndex) { return Attach(::GetStockObject(nIndex)); }
    BOOL UnrealizeObject() { return ::UnrealizeObject(m_hObject); }

    HGDIOBJ m_hObject = nullptr;
};

class CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)
public:
    CPen() = default;
    // Raises CResourceException when the system gives no pen.
    CPen(int nPenStyle, int nWidth, COLORREF crColor);
    CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0, const DWORD* lpStyle = nullptr);

    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
    static CPen* PASCAL FromHandle(HPEN hPen) { return static_cast<CPen*>(CGdiObject::FromHandle(hPen)); }
    BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor)
    {
        return Attach(::CreatePen(nPenStyle, nWidth, crColor));
    }
    BOOL CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount, const DWORD* lpStyle)
    {
        return Attach(::ExtCreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle));
    }
    BOOL CreatePenIndirect(LPLOGPEN lpLogPen) { return Attach(::CreatePenIndirect(lpLogPen)); }
    int GetLogPen(LOGPEN* pLogPen) { return GetObject(sizeof(LOGPEN), pLogPen); }
};

class CBitmap;

class CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)
public:
    CBrush() = default;
    // Raise CResourceException when the system gives no brush.
    explicit CBrush(COLORREF crColor);
    CBrush(int nIndex, COLORREF crColor);
    explicit CBrush(CBitmap* pBitmap);

    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    static CBrush* PASCAL FromHandle(HBRUSH hBrush) { return static_cast<CBrush*>(CGdiObject::FromHandle(hBrush)); }
    BOOL CreateSolidBrush(COLORREF crColor) { return Attach(::CreateSolidBrush(crColor)); }
    BOOL CreateHatchBrush(int nIndex, COLORREF crColor) { return Attach(::CreateHatchBrush(nIndex, crColor)); }
    BOOL CreateBrushIndirect(const LOGBRUSH* lpLogBrush) { return Attach(::CreateBrushIndirect(lpLogBrush)); }
    BOOL CreatePatternBrush(CBitmap* pBitmap);
    BOOL CreateSysColorBrush(int nIndex) { return Attach(::GetSysColorBrush(nIndex)); }
    int GetLogBrush(LOGBRUSH* pLogBrush) { return GetObject(sizeof(LOGBRUSH), pLogBrush); }
};

class CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)
public:
    CFont() = default;

    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
    static CFont* PASCAL FromHandle(HFONT hFont) { return static_cast<CFont*>(CGdiObject::FromHandle(hFont)); }
    BOOL CreateFontIndirect(const LOGFONT* lpLogFont) { return Attach(::CreateFontIndirect(lpLogFont)); }
    BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                    BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                    BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename);
    // Heights in tenths of a point, on the device context or, without one, on the screen.
    BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = nullptr);
    BOOL CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC = nullptr);
    int GetLogFont(LOGFONT* pLogFont) { return GetObject(sizeof(LOGFONT), pLogFont); }
};

class CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)
public:
    CBitmap() = default;

    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
    static CBitmap* PASCAL FromHandle(HBITMAP hBitmap)
    {
        return static_cast<CBitmap*>(CGdiObject::FromHandle(hBitmap));
    }
    // From the program's resources or, when it has none of that name, from the library's.
    BOOL LoadBitmap(LPCTSTR lpszResourceName);
    BOOL LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCE(nIDResource)); }
    BOOL LoadOEMBitmap(UINT nIDBitmap) { return Attach(::LoadBitmap(nullptr, MAKEINTRESOURCE(nIDBitmap))); }
    BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits)
    {
        return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
    }
    BOOL CreateBitmapIndirect(LPBITMAP lpBitmap) { return Attach(::CreateBitmapIndirect(lpBitmap)); }
    BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
    int GetBitmap(BITMAP* pBitMap) { return GetObject(sizeof(BITMAP), pBitMap); }
    DWORD GetBitmapBits(DWORD dwCount, LPVOID lpBits) const { return ::GetBitmapBits(*this, dwCount, lpBits); }
    CSize GetBitmapDimension() const;
};

class CPalette : public CGdiObject
{
    DECLARE_DYNAMIC(CPalette)
public:
    CPalette() = default;

    operator HPALETTE() const { return static_cast<HPALETTE>(m_hObject); }
    static CPalette* PASCAL FromHandle(HPALETTE hPalette)
    {
        return static_cast<CPalette*>(CGdiObject::FromHandle(hPalette));
    }
    BOOL CreatePalette(LPLOGPALETTE lpLogPalette) { return Attach(::CreatePalette(lpLogPalette)); }
    UINT GetNearestPaletteIndex(COLORREF crColor) const { return ::GetNearestPaletteIndex(*this, crColor); }
};

class CRgn : public CGdiObject
{
    DECLARE_DYNAMIC(CRgn)
public:
    CRgn() = default;

    operator HRGN() const { return static_cast<HRGN>(m_hObject); }
    static CRgn* PASCAL FromHandle(HRGN hRgn) { return static_cast<CRgn*>(CGdiObject::FromHandle(hRgn)); }
    BOOL CreateRectRgn(int x1, int y1, int x2, int y2) { return Attach(::CreateRectRgn(x1, y1, x2, y2)); }
    BOOL CreateRectRgnIndirect(LPCRECT lpRect) { return Attach(::CreateRectRgnIndirect(lpRect)); }
    BOOL CreateEllipticRgnIndirect(LPCRECT lpRect) { return Attach(::CreateEllipticRgnIndirect(lpRect)); }
    BOOL CreatePolygonRgn(const POINT* lpPoints, int nCount, int nMode)
    {
        return Attach(::CreatePolygonRgn(lpPoints, nCount, nMode));
    }
    BOOL CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3)
    {
        return Attach(::CreateRoundRectRgn(x1, y1, x2, y2, x3, y3));
    }
    void SetRectRgn(LPCRECT lpRect) { ::SetRectRgn(*this, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }
    int CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode)
    {
        return ::CombineRgn(*this, *pRgn1, pRgn2 ? static_cast<HRGN>(*pRgn2) : nullptr, nCombineMode);
    }
    int OffsetRgn(int x, int y) { return ::OffsetRgn(*this, x, y); }
    int GetRgnBox(LPRECT lpRect) const { return ::GetRgnBox(*this, lpRect); }
    BOOL PtInRegion(POINT point) const { return ::PtInRegion(*this, point.x, point.y); }
    BOOL RectInRegion(LPCRECT lpRect) const { return ::RectInRegion(*this, lpRect); }
};

// The handle of an object that may be null.
inline HGDIOBJ AfxSafeHandle(const CGdiObject* pObject)
{
    return pObject ? pObject->m_hObject : nullptr;
}
