// What of a device context a painter has to paint: the clip box, and within it the single parts where the clip region
// has several, as after a drag step that leaves one place for another.
#pragma once

#include <afxwin.h>

#include <memory>
#include <vector>

class CMemDC;

namespace dayvane {

// The pixels of a rectangle that are to be painted, in the bitmap that is painted in.
struct PixelBlock
{
    CRect seen = CRect(0, 0, 0, 0); // logical units
    DWORD* first = nullptr;         // nullptr: there are none, or they are out of reach
    int rowPixels = 0;              // from one row to the next
};

// The pixel of a colour of red, green and blue.
inline DWORD PixelOf(COLORREF color)
{
    return GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color);
}

class ClipArea
{
public:
    // buffer: the device context, if it is one; then its parts count, too.
    explicit ClipArea(CDC& dc, const CMemDC* buffer = nullptr);

    bool Intersects(const CRect& rect) const; // some of it can be seen
    const CRect& Box() const { return m_box; }
    // Fills the rectangle in the buffer's own pixels, many times as fast as the system. False: it is to be filled by
    // the system. What of the buffer is in the box and in no part may be filled, too: it is not shown.
    bool Fill(const CRect& rect, COLORREF color) const;
    // The same right after another Fill, when the system has drawn nothing since.
    bool FillNext(const CRect& rect, COLORREF color) const;
    // Within reach until the system draws again.
    PixelBlock PixelsOf(const CRect& rect) const;
    bool Contains(const CRect& rect) const; // all of it can be seen

private:
    void FindPixels(CDC& dc, const CMemDC& buffer);
    PixelBlock BlockOf(const CRect& rect) const;
    void FillParts(const CRect& rect, DWORD pixel) const;
    std::vector<CRect>::const_iterator FirstPartFrom(int top) const;

    CRect m_box;                // logical units, as the parts
    std::vector<CRect> m_parts; // from above, in bands of one height; empty: the whole box
    DWORD* m_pixels = nullptr;  // of the buffer; nullptr: out of reach
    CSize m_size;               // of the buffer
    int m_rowPixels = 0;        // from one row of it to the next
    CPoint m_origin;            // of logical units in the buffer
};

// The clip area that all painters of one paint share: asking the system for it costs more than drawing a small item.
class PaintClip
{
public:
    // For the time of a paint the areas of its device context are remembered. isKept: nobody clips or moves it while
    // our own painters draw; else each of them asks whether it is still the same.
    class Paint
    {
    public:
        Paint(PaintClip& clip, CDC& dc, bool isKept = false);
        ~Paint();
        Paint(const Paint&) = delete;
        Paint& operator=(const Paint&) = delete;

    private:
        PaintClip& m_clip;
        HDC m_outer;
        const CMemDC* m_outerBuffer;
        bool m_wasKept;
    };

    std::shared_ptr<const ClipArea> Of(CDC& dc);

private:
    HDC m_hDC = nullptr;
    const CMemDC* m_buffer = nullptr; // the device context of the paint, if it is one
    bool m_isKept = false;
    std::shared_ptr<const ClipArea> m_area;
};

// The part of a window's device context that reaches the screen, in its own logical units: the region that a WM_PAINT
// updates. False when it is no more than the clip box, or unknown.
bool GetUpdateParts(CDC& dc, CRgn& region);
// The union of the rectangles. False: the system has no region for it.
bool MakeRegion(const std::vector<CRect>& rects, CRgn& region);
// The rectangles of a region that has several; empty: it has one, or too many to look at.
std::vector<CRect> RectsOf(const CRgn& region);

} // namespace dayvane
