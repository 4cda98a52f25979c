// Small painting services shared by all controls: the off-screen device context, scope objects for GDI selection,
// gradients and title bands, item marks.
#pragma once

#include <afxwin.h>

#include <memory>
#include <vector>

namespace dayvane {
struct OffscreenBitmap;
class PaintBuffer;
} // namespace dayvane

// Paints off screen: everything drawn between construction and destruction reaches the target in one transfer of its
// clip box. Where only parts of that box are to be updated, it knows them, and clips to them when they are few: each
// drawing call goes through all of them. On a printer, and where there is no memory for the picture, it draws straight
// to the target.
class CMemDC : public CDC
{
public:
    explicit CMemDC(CDC* pDC);
    // In a paint of a window of that size, in the bitmap that it keeps.
    CMemDC(CDC* pDC, dayvane::PaintBuffer& kept, CSize window);
    ~CMemDC() override;

    // So that a CMemDC can stand where a CDC* is wanted.
    CMemDC* operator->() { return this; }
    operator CMemDC*() { return this; }

    // What is to be updated, device units of this device context; empty: the whole box. It need not be clipped to that.
    const std::vector<CRect>& UpdateParts() const { return m_parts; }
    // The picture as rows of 32 bits each pixel, from above; nullptr: it is not accessible.
    DWORD* Pixels() const;
    CSize PixelSize() const { return m_rect.Size(); }
    int RowPixels() const; // from one row to the next
    HBITMAP Bitmap() const;

protected:
    CSize SizeOfPicture() const;
    void BeginOffScreen();
    void BeginDirect();
    void Clear();

    std::shared_ptr<dayvane::OffscreenBitmap> m_bitmap;
    std::vector<CRect> m_parts;
    CBitmap* m_pOldBitmap = nullptr;
    CDC* m_pDC;    // the target, not owned
    CRect m_rect;  // its clip box
    BOOL m_bMemDC; // off screen; FALSE when printing
};

namespace dayvane {

// Selects a GDI object into a device context for the life of the scope. Declare it after the object.
class SelectGdi
{
public:
    SelectGdi(CDC* pDC, CGdiObject* pObject) : SelectGdi(pDC, pObject ? pObject->GetSafeHandle() : nullptr) {}
    SelectGdi(CDC* pDC, HGDIOBJ hObject) : SelectGdi(pDC->m_hDC, hObject) {}
    SelectGdi(HDC hDC, HGDIOBJ hObject) : m_hDC(hDC), m_hOld(hObject ? ::SelectObject(hDC, hObject) : nullptr) {}
    ~SelectGdi()
    {
        if (m_hOld) {
            ::SelectObject(m_hDC, m_hOld);
        }
    }
    SelectGdi(const SelectGdi&) = delete;
    SelectGdi& operator=(const SelectGdi&) = delete;

private:
    HDC m_hDC;
    HGDIOBJ m_hOld;
};

// Restores background mode, text colour and everything else of a device context at the end of the scope.
class SaveDcScope
{
public:
    explicit SaveDcScope(CDC* pDC) : m_hDC(pDC->m_hDC), m_nSaved(::SaveDC(m_hDC)) {}
    ~SaveDcScope() { ::RestoreDC(m_hDC, m_nSaved); }
    SaveDcScope(const SaveDcScope&) = delete;
    SaveDcScope& operator=(const SaveDcScope&) = delete;

private:
    HDC m_hDC;
    int m_nSaved;
};

// A linear gradient from the left to the right edge (bHorizontal) or from the top to the bottom edge. On palette
// devices, when bStepped, in strips of 2 pixels of the nearest palette colours; otherwise one GradientFill.
void DrawGradient(CDC* pDC, const CRect& rect, COLORREF crFrom, COLORREF crTo, BOOL bHorizontal, BOOL bStepped);

// The stepped path of DrawGradient, whatever the device.
void DrawSteppedGradient(CDC* pDC, const CRect& rect, COLORREF crFrom, COLORREF crTo, BOOL bHorizontal);

// The colours of a title band: vertical gradient edge -> middle over the upper third, middle -> edge below, and a
// 1-pixel line along the bottom.
struct TitleBandColors
{
    COLORREF edge;
    COLORREF middle;
    COLORREF bottomLine;
};
void DrawTitleBand(CDC* pDC, const CRect& rect, const TitleBandColors& colors);

// Two vertical gradients, one over the upper and one over the lower half: header rows, day captions.
struct HeaderBandColors
{
    COLORREF upperFrom, upperTo;
    COLORREF lowerFrom, lowerTo;
};
constexpr HeaderBandColors kHeaderBand = {0xFFEFE3, 0xFFDDC4, 0xFFD1AD, 0xFFDBC0};
void DrawHeaderBand(CDC* pDC, const CRect& rect, const HeaderBandColors& colors);

// The dotted frame of the keyboard's focus.
void DrawFocusFrame(CDC* pDC, const CRect& rect);

// Makes what is painted half as strong, as a disabled control shows it.
void DrawVeil(CDC* pDC, const CRect& rect, COLORREF color);

// A frame of `rings` one-pixel rectangles, the outermost in the colour itself, each next one lighter.
void DrawShadedFrame(CDC* pDC, CRect rect, COLORREF color, int rings);

// The marks of an item in the device context's text colour: with the symbol font when it is installed, else from lines
// (a bell, two arrows that chase each other). Middle of the rectangle's height when bCentered, else at its top. Each
// returns the width used, 0 when the rectangle has no room for the mark and a pixel more.
int DrawAlarmGlyph(CDC* pDC, const CRect& rect, const LOGFONT& lfMarks, BOOL bCentered);
int DrawRecurrenceGlyph(CDC* pDC, const CRect& rect, const LOGFONT& lfMarks, BOOL bCentered);

} // namespace dayvane
