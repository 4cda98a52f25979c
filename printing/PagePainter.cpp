#include "printing/PagePainter.h"

#include "core/DrawingHelpers.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace dayvane {
namespace {

constexpr int kHundredthsPerInch = 2540; // of a millimetre
constexpr int kPointTenthsPerInch = 720;

class Painter
{
public:
    Painter(CDC* pDC, const PageView& view, const PageFaces& faces) : m_dc(pDC->m_hDC), m_view(view), m_faces(faces)
    {
        ::SetMapMode(m_dc, MM_TEXT);
        ::SetWindowOrgEx(m_dc, 0, 0, nullptr);
        ::SetViewportOrgEx(m_dc, 0, 0, nullptr);
        ::SetBkMode(m_dc, TRANSPARENT);
        ::SetTextAlign(m_dc, TA_LEFT | TA_BASELINE | TA_NOUPDATECP);
        ::SetTextCharacterExtra(m_dc, 0);
    }

    ~Painter()
    {
        ::SelectObject(m_dc, ::GetStockObject(SYSTEM_FONT));
        for (const auto& font : m_fonts) {
            ::DeleteObject(font.second);
        }
    }

    void Draw(const PageShape& shape)
    {
        const CRect rect = m_view.Map(shape.rect);
        const int penX = Pen(shape.pen, m_view.dpiX);
        const int penY = Pen(shape.pen, m_view.dpiY);
        switch (shape.kind) {
        case PageShape::Fill:
            Fill(rect, shape.color);
            break;
        case PageShape::Frame:
            Fill(CRect(rect.left, rect.top, rect.right, rect.top + penY), shape.color);
            Fill(CRect(rect.left, rect.bottom - penY, rect.right, rect.bottom), shape.color);
            Fill(CRect(rect.left, rect.top + penY, rect.left + penX, rect.bottom - penY), shape.color);
            Fill(CRect(rect.right - penX, rect.top + penY, rect.right, rect.bottom - penY), shape.color);
            break;
        case PageShape::Line:
            if (shape.rect.left == shape.rect.right) {
                Fill(CRect(rect.left - penX / 2, rect.top, rect.left - penX / 2 + penX, rect.bottom), shape.color);
            } else {
                Fill(CRect(rect.left, rect.top - penY / 2, rect.right, rect.top - penY / 2 + penY), shape.color);
            }
            break;
        case PageShape::Ahead:
            Triangle(rect.left, rect.right, rect, shape.color);
            break;
        case PageShape::Back:
            Triangle(rect.right, rect.left, rect, shape.color);
            break;
        }
    }

    void Draw(const PageText& text)
    {
        const CRect box = m_view.Map(text.box);
        ::SelectObject(m_dc, FontFor(text.font));
        ::SetTextColor(m_dc, text.color);
        const LPCWSTR words = reinterpret_cast<LPCWSTR>(text.text.c_str());
        const int length = static_cast<int>(text.text.size());
        m_ends.resize(text.text.size());
        SIZE size = {};
        ::GetTextExtentExPointW(m_dc, words, length, 0, nullptr, m_ends.data(), &size);
        const int width = std::max(m_ends.empty() ? 0 : m_ends.back(), 0);
        int left = box.left;
        if (text.align == PageAlign::Center) {
            left += std::max((box.Width() - width) / 2, 0);
        } else if (text.align == PageAlign::Right) {
            left += std::max(box.Width() - width, 0);
        }
        // A device whose letters come out wider than they were measured sets them closer.
        const bool isTight = width > box.Width();
        if (isTight) {
            int before = 0;
            for (int& end : m_ends) {
                const int scaled = ::MulDiv(end, box.Width(), width);
                end = scaled - before;
                before = scaled;
            }
        }
        ::ExtTextOutW(m_dc, left, m_view.Y(text.box.top + text.font.Ascent()), 0, nullptr, words,
                      static_cast<UINT>(length), isTight ? m_ends.data() : nullptr);
    }

    // Image lists keep their own size on a printer, and icons fail there: the image goes over as a plain bitmap.
    void Draw(const PageImage& image, HIMAGELIST images)
    {
        int width = 0, height = 0;
        if (image.image >= ::ImageList_GetImageCount(images) || !::ImageList_GetIconSize(images, &width, &height)) {
            return;
        }
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        const HDC memory = ::CreateCompatibleDC(nullptr);
        const HBITMAP bitmap = ::CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (bitmap) {
            const HGDIOBJ old = ::SelectObject(memory, bitmap);
            FillOn(memory, CRect(0, 0, width, height), image.background);
            ::ImageList_Draw(images, image.image, memory, 0, 0, ILD_TRANSPARENT);
            ::GdiFlush();
            const CRect rect = m_view.Map(image.rect);
            ::StretchDIBits(m_dc, rect.left, rect.top, rect.Width(), rect.Height(), 0, 0, width, height, bits, &info,
                            DIB_RGB_COLORS, SRCCOPY);
            ::SelectObject(memory, old);
            ::DeleteObject(bitmap);
        }
        ::DeleteDC(memory);
    }

private:
    static int Pen(int hundredths, int dpi) { return std::max(::MulDiv(hundredths, dpi, kHundredthsPerInch), 1); }

    static void FillOn(HDC dc, const CRect& rect, COLORREF color)
    {
        const HBRUSH brush = ::CreateSolidBrush(color);
        ::FillRect(dc, &rect, brush);
        ::DeleteObject(brush);
    }

    void Fill(const CRect& rect, COLORREF color) { FillOn(m_dc, rect, color); }

    void Triangle(int base, int tip, const CRect& rect, COLORREF color)
    {
        const POINT points[] = {{base, rect.top}, {tip, (rect.top + rect.bottom) / 2}, {base, rect.bottom}};
        const HBRUSH brush = ::CreateSolidBrush(color);
        const HGDIOBJ oldBrush = ::SelectObject(m_dc, brush);
        const HGDIOBJ oldPen = ::SelectObject(m_dc, ::GetStockObject(NULL_PEN));
        ::Polygon(m_dc, points, static_cast<int>(std::size(points)));
        ::SelectObject(m_dc, oldPen);
        ::SelectObject(m_dc, oldBrush);
        ::DeleteObject(brush);
    }

    HFONT FontFor(const PageFont& font)
    {
        for (const auto& known : m_fonts) {
            if (known.first == font) {
                return known.second;
            }
        }
        const HFONT made = CreatePageFont(font, m_faces, ::MulDiv(font.size, m_view.dpiY, kPointTenthsPerInch));
        m_fonts.push_back({font, made});
        return made;
    }

    HDC m_dc;
    const PageView& m_view;
    const PageFaces& m_faces;
    std::vector<std::pair<PageFont, HFONT>> m_fonts;
    std::vector<int> m_ends; // of the run at hand
};

} // namespace

void DrawPage(CDC* pDC, const Page& page, const PageView& view, const PageFaces& faces, CImageList* pImages)
{
    SaveDcScope saved(pDC);
    Painter painter(pDC, view, faces);
    for (const PageShape& shape : page.shapes) {
        painter.Draw(shape);
    }
    if (pImages && pImages->m_hImageList) {
        for (const PageImage& image : page.images) {
            painter.Draw(image, pImages->m_hImageList);
        }
    }
    for (const PageText& text : page.texts) {
        painter.Draw(text);
    }
}

} // namespace dayvane
