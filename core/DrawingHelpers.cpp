#include "core/DrawingHelpers.h"

#include "core/ClipArea.h"
#include "core/PaintBuffer.h"

#include <algorithm>

namespace {
constexpr size_t kFewParts = 256; // that drawing calls are clipped to
} // namespace

CMemDC::CMemDC(CDC* pDC) : m_pDC(pDC), m_rect(0, 0, 0, 0), m_bMemDC(!pDC->IsPrinting())
{
    if (m_bMemDC) {
        pDC->GetClipBox(&m_rect);
        m_bitmap = std::make_shared<dayvane::OffscreenBitmap>();
        m_bMemDC = m_bitmap->Make(*pDC, SizeOfPicture()) && CreateCompatibleDC(pDC);
    }
    m_bMemDC ? BeginOffScreen() : BeginDirect();
}

CMemDC::CMemDC(CDC* pDC, dayvane::PaintBuffer& kept, CSize window)
    : m_pDC(pDC), m_rect(0, 0, 0, 0), m_bMemDC(!pDC->IsPrinting())
{
    if (m_bMemDC) {
        pDC->GetClipBox(&m_rect);
        m_bitmap = kept.Take(*pDC, SizeOfPicture(), window);
        m_bMemDC = m_bitmap && CreateCompatibleDC(pDC);
    }
    m_bMemDC ? BeginOffScreen() : BeginDirect();
}

// Also an empty one has a pixel.
CSize CMemDC::SizeOfPicture() const
{
    return CSize(std::max(1, m_rect.Width()), std::max(1, m_rect.Height()));
}

void CMemDC::BeginOffScreen()
{
    m_pOldBitmap = SelectObject(&m_bitmap->bitmap);
    if (m_bitmap->size != SizeOfPicture()) { // a kept one may be larger
        IntersectClipRect(CRect(CPoint(0, 0), SizeOfPicture()));
    }
    // Of a window that repaints here and there only those places are painted, not all that lies between them.
    CRgn region;
    if (dayvane::GetUpdateParts(*m_pDC, region)) {
        region.OffsetRgn(-m_rect.left, -m_rect.top);
        m_parts = dayvane::RectsOf(region);
        if (!m_parts.empty() && m_parts.size() <= kFewParts) {
            SelectClipRgn(&region);
        }
    }
    Clear();
    SetWindowOrg(m_rect.left, m_rect.top);
}

void CMemDC::BeginDirect()
{
    m_bPrinting = m_pDC->m_bPrinting;
    m_hDC = m_pDC->m_hDC;
    m_hAttribDC = m_pDC->m_hAttribDC;
}

// What the bitmap had from another picture must not show where nothing is painted; a new one is black.
void CMemDC::Clear()
{
    if (!m_bitmap->isUsed) {
        return;
    }
    ::GdiFlush(); // what the system draws may wait
    const CRect all(CPoint(0, 0), SizeOfPicture());
    const auto clear = [&](CRect part) {
        part.IntersectRect(&part, &all);
        DWORD* row = Pixels() + static_cast<size_t>(part.top) * RowPixels() + part.left;
        for (int y = part.top; y < part.bottom; ++y, row += RowPixels()) {
            std::fill_n(row, part.Width(), 0);
        }
    };
    if (m_parts.empty()) {
        clear(all);
    }
    std::for_each(m_parts.begin(), m_parts.end(), clear);
}

DWORD* CMemDC::Pixels() const
{
    return m_bitmap ? m_bitmap->pixels : nullptr;
}

int CMemDC::RowPixels() const
{
    return m_bitmap ? m_bitmap->size.cx : 0;
}

HBITMAP CMemDC::Bitmap() const
{
    return m_bitmap ? static_cast<HBITMAP>(m_bitmap->bitmap.GetSafeHandle()) : nullptr;
}

CMemDC::~CMemDC()
{
    if (m_bMemDC) {
        m_pDC->BitBlt(m_rect.left, m_rect.top, m_rect.Width(), m_rect.Height(), this, m_rect.left, m_rect.top, SRCCOPY);
        SelectObject(m_pOldBitmap);
    } else {
        // The handles are the target's.
        m_hDC = nullptr;
        m_hAttribDC = nullptr;
    }
}

namespace dayvane {
namespace {

constexpr int kStripSize = 2; // pixels of a strip of the stepped gradient

COLORREF Blend(COLORREF from, COLORREF to, int step, int steps)
{
    // Channels wrap at 256, as bytes do.
    const auto channel = [step, steps](int a, int b) { return static_cast<BYTE>(a + MulDiv(b - a, step, steps)); };
    return RGB(channel(GetRValue(from), GetRValue(to)), channel(GetGValue(from), GetGValue(to)),
               channel(GetBValue(from), GetBValue(to)));
}

TRIVERTEX VertexAt(int x, int y, COLORREF color)
{
    TRIVERTEX vertex = {};
    vertex.x = x;
    vertex.y = y;
    vertex.Red = static_cast<COLOR16>(GetRValue(color) << 8);
    vertex.Green = static_cast<COLOR16>(GetGValue(color) << 8);
    vertex.Blue = static_cast<COLOR16>(GetBValue(color) << 8);
    return vertex;
}

} // namespace

void DrawSteppedGradient(CDC* pDC, const CRect& rect, COLORREF crFrom, COLORREF crTo, BOOL bHorizontal)
{
    pDC->FillSolidRect(&rect, pDC->GetNearestColor(crTo));
    const int steps = (bHorizontal ? rect.Width() : rect.Height()) - kStripSize;
    for (int i = 0; i <= steps; i += kStripSize) {
        CRect strip = rect;
        if (bHorizontal) {
            strip.left = rect.left + i;
            strip.right = strip.left + kStripSize;
        } else {
            strip.top = rect.top + i;
            strip.bottom = strip.top + kStripSize;
        }
        // With a single strip steps is 0, and MulDiv returns -1 for a division by zero.
        pDC->FillSolidRect(&strip, pDC->GetNearestColor(Blend(crFrom, crTo, i, steps)));
    }
}

// Asking the system takes longer than drawing; pixels that are within reach have all colours.
static bool HasFewColors(CDC& dc)
{
    const CMemDC* buffer = dynamic_cast<const CMemDC*>(&dc);
    return !(buffer && buffer->Pixels()) && dc.GetDeviceCaps(NUMCOLORS) != -1;
}

void DrawGradient(CDC* pDC, const CRect& rect, COLORREF crFrom, COLORREF crTo, BOOL bHorizontal, BOOL bStepped)
{
    if (bStepped && HasFewColors(*pDC)) {
        DrawSteppedGradient(pDC, rect, crFrom, crTo, bHorizontal);
        return;
    }
    TRIVERTEX vertices[2] = {VertexAt(rect.left, rect.top, crFrom), VertexAt(rect.right, rect.bottom, crTo)};
    GRADIENT_RECT whole = {0, 1};
    ::GradientFill(pDC->GetSafeHdc(), vertices, 2, &whole, 1,
                   bHorizontal ? GRADIENT_FILL_RECT_H : GRADIENT_FILL_RECT_V);
}

void DrawTitleBand(CDC* pDC, const CRect& rect, const TitleBandColors& colors)
{
    if (rect.IsRectEmpty()) {
        return;
    }
    const int third = rect.Height() / 3;
    CRect upper = rect;
    upper.bottom = rect.top + third;
    CRect lower = rect;
    lower.top = rect.bottom - 2 * third;
    // Heights that three does not divide leave rows between the parts: the upper part reaches to the lower one.
    upper.bottom = lower.top;
    DrawGradient(pDC, upper, colors.edge, colors.middle, FALSE, TRUE);
    DrawGradient(pDC, lower, colors.middle, colors.edge, FALSE, TRUE);
    CRect line = rect;
    line.top = rect.bottom - 1;
    pDC->FillSolidRect(&line, colors.bottomLine);
}

void DrawHeaderBand(CDC* pDC, const CRect& rect, const HeaderBandColors& colors)
{
    if (rect.IsRectEmpty()) {
        return;
    }
    CRect upper = rect;
    upper.bottom = rect.top + rect.Height() / 2;
    CRect lower = rect;
    lower.top = upper.bottom;
    DrawGradient(pDC, upper, colors.upperFrom, colors.upperTo, FALSE, TRUE);
    DrawGradient(pDC, lower, colors.lowerFrom, colors.lowerTo, FALSE, TRUE);
}

void DrawFocusFrame(CDC* pDC, const CRect& rect)
{
    // The dots are mixed from these two colours.
    pDC->SetTextColor(RGB(0, 0, 0));
    pDC->SetBkColor(RGB(255, 255, 255));
    pDC->DrawFocusRect(rect);
}

void DrawVeil(CDC* pDC, const CRect& rect, COLORREF color)
{
    constexpr BYTE kHalf = 128; // of 255
    CDC veil;
    CBitmap pixel;
    if (!veil.CreateCompatibleDC(pDC) || !pixel.CreateCompatibleBitmap(pDC, 1, 1)) {
        return;
    }
    const SelectGdi select(&veil, &pixel);
    veil.SetPixel(0, 0, color);
    const BLENDFUNCTION blend = {AC_SRC_OVER, 0, kHalf, 0};
    ::AlphaBlend(pDC->GetSafeHdc(), rect.left, rect.top, rect.Width(), rect.Height(), veil.GetSafeHdc(), 0, 0, 1, 1,
                 blend);
}

void DrawShadedFrame(CDC* pDC, CRect rect, COLORREF color, int rings)
{
    const COLORREF white = RGB(255, 255, 255);
    for (int ring = 0; ring < rings && !rect.IsRectEmpty(); ++ring) {
        const COLORREF shade = Blend(color, white, ring, rings);
        pDC->Draw3dRect(&rect, shade, shade);
        rect.DeflateRect(1, 1);
    }
}

} // namespace dayvane
