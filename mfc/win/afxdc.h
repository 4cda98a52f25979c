// Device contexts. Drawing goes to m_hDC, questions about metrics and attributes to m_hAttribDC; both are the same but
// while somebody redirects the output (SetOutputDC).
#pragma once

class CWnd;

class CDC : public CObject
{
    DECLARE_DYNCREATE(CDC)
public:
    CDC() = default;
    ~CDC() override;

    HDC m_hDC = nullptr;
    HDC m_hAttribDC = nullptr;
    BOOL m_bPrinting = FALSE;

    // Lifetime. Attach takes the context over: DeleteDC, or the destructor, deletes it.
    operator HDC() const { return m_hDC; }
    HDC GetSafeHdc() const { return m_hDC; }
    static CDC* PASCAL FromHandle(HDC hDC);
    BOOL Attach(HDC hDC);
    HDC Detach();
    virtual void SetAttribDC(HDC hDC) { m_hAttribDC = hDC; }
    virtual void SetOutputDC(HDC hDC);
    virtual void ReleaseAttribDC() { m_hAttribDC = nullptr; }
    virtual void ReleaseOutputDC();
    BOOL CreateDC(LPCTSTR lpszDriver, LPCTSTR lpszDevice, LPCTSTR lpszOutput, const void* lpInitData)
    {
        return Attach(::CreateDC(lpszDriver, lpszDevice, lpszOutput, static_cast<const DEVMODE*>(lpInitData)));
    }
    BOOL CreateIC(LPCTSTR lpszDriver, LPCTSTR lpszDevice, LPCTSTR lpszOutput, const void* lpInitData)
    {
        return Attach(::CreateIC(lpszDriver, lpszDevice, lpszOutput, static_cast<const DEVMODE*>(lpInitData)));
    }
    BOOL CreateCompatibleDC(CDC* pDC) { return Attach(::CreateCompatibleDC(pDC ? pDC->m_hDC : nullptr)); }
    BOOL DeleteDC();
    virtual int SaveDC();
    virtual BOOL RestoreDC(int nSavedDC);
    BOOL IsPrinting() const { return m_bPrinting; }
    int GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hAttribDC, nIndex); }
    CWnd* GetWindow() const;

    // Selection: each answers what was selected before, as a temporary object unless somebody owns it.
    CPen* SelectObject(CPen* pPen) { return static_cast<CPen*>(Select(pPen)); }
    CBrush* SelectObject(CBrush* pBrush) { return static_cast<CBrush*>(Select(pBrush)); }
    virtual CFont* SelectObject(CFont* pFont) { return static_cast<CFont*>(Select(pFont)); }
    CBitmap* SelectObject(CBitmap* pBitmap) { return static_cast<CBitmap*>(Select(pBitmap)); }
    int SelectObject(CRgn* pRgn) { return SelectClipRgn(pRgn); }
    CGdiObject* SelectObject(CGdiObject* pObject) { return Select(pObject); }
    virtual CGdiObject* SelectStockObject(int nIndex);
    CPen* GetCurrentPen() const { return CPen::FromHandle(static_cast<HPEN>(Current(OBJ_PEN))); }
    CBrush* GetCurrentBrush() const { return CBrush::FromHandle(static_cast<HBRUSH>(Current(OBJ_BRUSH))); }
    CFont* GetCurrentFont() const { return CFont::FromHandle(static_cast<HFONT>(Current(OBJ_FONT))); }
    CBitmap* GetCurrentBitmap() const { return CBitmap::FromHandle(static_cast<HBITMAP>(Current(OBJ_BITMAP))); }
    CPalette* SelectPalette(CPalette* pPalette, BOOL bForceBackground);
    UINT RealizePalette() { return ::RealizePalette(m_hDC); }

    // Attributes
    COLORREF GetBkColor() const { return ::GetBkColor(m_hAttribDC); }
    int GetBkMode() const { return ::GetBkMode(m_hAttribDC); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hAttribDC); }
    UINT GetTextAlign() const { return ::GetTextAlign(m_hAttribDC); }
    int GetROP2() const { return ::GetROP2(m_hAttribDC); }
    int GetMapMode() const { return ::GetMapMode(m_hAttribDC); }
    COLORREF GetNearestColor(COLORREF crColor) const { return ::GetNearestColor(m_hAttribDC, crColor); }
    virtual COLORREF SetBkColor(COLORREF crColor);
    int SetBkMode(int nBkMode);
    virtual COLORREF SetTextColor(COLORREF crColor);
    UINT SetTextAlign(UINT nFlags);
    int SetTextCharacterExtra(int nCharExtra);
    int SetROP2(int nDrawMode);
    int SetPolyFillMode(int nPolyFillMode);
    int SetStretchBltMode(int nStretchMode);
    CPoint SetBrushOrg(int x, int y);
    CPoint SetBrushOrg(POINT point) { return SetBrushOrg(point.x, point.y); }

    // Coordinates
    virtual int SetMapMode(int nMapMode);
    CPoint GetViewportOrg() const;
    virtual CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
    virtual CPoint OffsetViewportOrg(int nWidth, int nHeight);
    CSize GetViewportExt() const;
    virtual CSize SetViewportExt(int cx, int cy);
    CSize SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }
    CPoint GetWindowOrg() const;
    CPoint SetWindowOrg(int x, int y);
    CPoint SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }
    CPoint OffsetWindowOrg(int nWidth, int nHeight);
    CSize GetWindowExt() const;
    virtual CSize SetWindowExt(int cx, int cy);
    CSize SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }
    void DPtoLP(LPPOINT lpPoints, int nCount = 1) const { ::DPtoLP(m_hAttribDC, lpPoints, nCount); }
    void DPtoLP(LPRECT lpRect) const { ::DPtoLP(m_hAttribDC, reinterpret_cast<LPPOINT>(lpRect), 2); }
    void DPtoLP(LPSIZE lpSize) const;
    void LPtoDP(LPPOINT lpPoints, int nCount = 1) const { ::LPtoDP(m_hAttribDC, lpPoints, nCount); }
    void LPtoDP(LPRECT lpRect) const { ::LPtoDP(m_hAttribDC, reinterpret_cast<LPPOINT>(lpRect), 2); }
    void LPtoDP(LPSIZE lpSize) const;

    // Clipping
    virtual int GetClipBox(LPRECT lpRect) const { return ::GetClipBox(m_hAttribDC, lpRect); }
    virtual BOOL PtVisible(int x, int y) const { return ::PtVisible(m_hDC, x, y); }
    virtual BOOL RectVisible(LPCRECT lpRect) const { return ::RectVisible(m_hDC, lpRect); }
    int SelectClipRgn(CRgn* pRgn);
    int SelectClipRgn(CRgn* pRgn, int nMode);
    int ExcludeClipRect(int x1, int y1, int x2, int y2);
    int ExcludeClipRect(LPCRECT rect) { return ExcludeClipRect(rect->left, rect->top, rect->right, rect->bottom); }
    int IntersectClipRect(int x1, int y1, int x2, int y2);
    int IntersectClipRect(LPCRECT rect) { return IntersectClipRect(rect->left, rect->top, rect->right, rect->bottom); }
    int OffsetClipRgn(int x, int y);

    // Lines
    CPoint GetCurrentPosition() const;
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    BOOL Arc(LPCRECT r, POINT from, POINT to)
    {
        return ::Arc(m_hDC, r->left, r->top, r->right, r->bottom, from.x, from.y, to.x, to.y);
    }
    BOOL Polyline(const POINT* lpPoints, int nCount) { return ::Polyline(m_hDC, lpPoints, nCount); }
    BOOL PolyBezier(const POINT* lpPoints, int nCount) { return ::PolyBezier(m_hDC, lpPoints, nCount); }

    // Areas. Rectangles exclude their right and bottom edges.
    void FillRect(LPCRECT lpRect, CBrush* pBrush) { ::FillRect(m_hDC, lpRect, *pBrush); }
    void FrameRect(LPCRECT lpRect, CBrush* pBrush) { ::FrameRect(m_hDC, lpRect, *pBrush); }
    void InvertRect(LPCRECT lpRect) { ::InvertRect(m_hDC, lpRect); }
    // Fill with one colour, which stays the context's background colour.
    void FillSolidRect(LPCRECT lpRect, COLORREF clr);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
    void Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight);
    BOOL Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }
    BOOL Rectangle(LPCRECT r) { return Rectangle(r->left, r->top, r->right, r->bottom); }
    BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3)
    {
        return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
    }
    BOOL RoundRect(LPCRECT r, POINT point) { return RoundRect(r->left, r->top, r->right, r->bottom, point.x, point.y); }
    BOOL Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }
    BOOL Ellipse(LPCRECT r) { return Ellipse(r->left, r->top, r->right, r->bottom); }
    BOOL Polygon(const POINT* lpPoints, int nCount) { return ::Polygon(m_hDC, lpPoints, nCount); }
    BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop)
    {
        return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
    }
    BOOL FillRgn(CRgn* pRgn, CBrush* pBrush) { return ::FillRgn(m_hDC, *pRgn, *pBrush); }
    BOOL GradientFill(TRIVERTEX* pVertices, ULONG nVertices, void* pMesh, ULONG nMeshElements, DWORD dwMode)
    {
        return ::GradientFill(m_hDC, pVertices, nVertices, pMesh, nMeshElements, dwMode);
    }
    void DrawFocusRect(LPCRECT lpRect) { ::DrawFocusRect(m_hDC, lpRect); }
    BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) { return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags); }
    BOOL DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState)
    {
        return ::DrawFrameControl(m_hDC, lpRect, nType, nState);
    }

    // Pictures
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop);
    BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                    int nSrcHeight, DWORD dwRop);
    BOOL TransparentBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                        int nSrcHeight, UINT clrTransparent);
    BOOL AlphaBlend(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                    int nSrcHeight, BLENDFUNCTION blend);
    BOOL DrawIcon(int x, int y, HICON hIcon) { return ::DrawIcon(m_hDC, x, y, hIcon); }
    BOOL DrawIcon(POINT point, HICON hIcon) { return DrawIcon(point.x, point.y, hIcon); }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    COLORREF GetPixel(POINT point) const { return GetPixel(point.x, point.y); }
    COLORREF SetPixel(int x, int y, COLORREF crColor) { return ::SetPixel(m_hDC, x, y, crColor); }
    COLORREF SetPixel(POINT point, COLORREF crColor) { return SetPixel(point.x, point.y, crColor); }

    // Text
    virtual BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount)
    {
        return ::TextOut(m_hDC, x, y, lpszString, nCount);
    }
    BOOL TextOut(int x, int y, const CString& str) { return TextOut(x, y, str, str.GetLength()); }
    virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount,
                            LPINT lpDxWidths)
    {
        return ::ExtTextOut(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
    }
    BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str, LPINT lpDxWidths)
    {
        return ExtTextOut(x, y, nOptions, lpRect, str, str.GetLength(), lpDxWidths);
    }
    virtual int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat)
    {
        return ::DrawText(m_hDC, lpszString, nCount, lpRect, nFormat);
    }
    int DrawText(const CString& str, LPRECT lpRect, UINT nFormat)
    {
        return DrawText(str, str.GetLength(), lpRect, nFormat);
    }
    CSize GetTextExtent(LPCTSTR lpszString, int nCount) const;
    CSize GetTextExtent(const CString& str) const { return GetTextExtent(str, str.GetLength()); }
    CSize GetOutputTextExtent(LPCTSTR lpszString, int nCount) const;
    BOOL GetTextMetrics(LPTEXTMETRIC lpMetrics) const { return ::GetTextMetrics(m_hAttribDC, lpMetrics); }
    BOOL GetOutputTextMetrics(LPTEXTMETRIC lpMetrics) const { return ::GetTextMetrics(m_hDC, lpMetrics); }
    int GetTextFace(CString& rString) const;

    // Printing
    virtual int StartDoc(LPDOCINFO lpDocInfo) { return ::StartDoc(m_hDC, lpDocInfo); }
    virtual int StartPage() { return ::StartPage(m_hDC); }
    virtual int EndPage() { return ::EndPage(m_hDC); }
    virtual int EndDoc() { return ::EndDoc(m_hDC); }
    virtual int AbortDoc() { return ::AbortDoc(m_hDC); }
    int SetAbortProc(ABORTPROC lpfn) { return ::SetAbortProc(m_hDC, lpfn); }
    virtual int Escape(int nEscape, int nCount, LPCSTR lpszInData, LPVOID lpOutData)
    {
        return ::Escape(m_hDC, nEscape, nCount, lpszInData, lpOutData);
    }

protected:
    CGdiObject* Select(const CGdiObject* pObject);
    HGDIOBJ Current(UINT nType) const { return ::GetCurrentObject(m_hAttribDC, nType); }
    // Whether settings have to be made on two contexts.
    bool HasOwnAttribDC() const { return m_hAttribDC && m_hAttribDC != m_hDC; }
};

// The context of one paint message; the window is validated when the object is destroyed.
class CPaintDC : public CDC
{
    DECLARE_DYNAMIC(CPaintDC)
public:
    // Raises CResourceException when the system gives no context.
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

protected:
    HWND m_hWnd;
};

// The client area of a window, or the whole screen when pWnd is null. Raises CResourceException.
class CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)
public:
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

// A whole window, or the whole screen when pWnd is null. Raises CResourceException.
class CWindowDC : public CDC
{
    DECLARE_DYNAMIC(CWindowDC)
public:
    explicit CWindowDC(CWnd* pWnd);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};

// The context that a message carries, as an object for the time of its handler.
class AfxTempDC
{
public:
    explicit AfxTempDC(WPARAM hDC);
    ~AfxTempDC();
    AfxTempDC(const AfxTempDC&) = delete;
    AfxTempDC& operator=(const AfxTempDC&) = delete;
    operator CDC*() { return m_pDC; }

private:
    CDC m_dc;
    CDC* m_pDC;
};
