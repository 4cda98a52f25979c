#include "printing/PagePainter.h"

#include "core/DrawingHelpers.h"
#include "core/TextRuns.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace dayvane {
namespace {

constexpr int kHundredthsPerInch = 2540; // of a millimetre
constexpr int kPointTenthsPerInch = 720;
constexpr double kPi = 3.14159265358979323846;
constexpr int kHalfTurn = 180;    // degrees
constexpr double kMoonRim = 0.86; // of the disc
constexpr int kArcPoints = 16;
constexpr COLORREF kWhite = 0xFFFFFF;

class Painter
{
public:
    Painter(CDC* pDC, const PageView& view, const PageFaces& faces, const FaceFinder& finder)
        : m_dc(pDC->m_hDC), m_view(view), m_faces(faces), m_finder(finder)
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
        for (const Made& made : m_fonts) {
            ::DeleteObject(made.handle);
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
        case PageShape::Moon:
            Moon(rect, shape.phase, shape.color);
            break;
        }
    }

    void Draw(const PageText& text)
    {
        const CRect box = m_view.Map(text.box);
        ::SetTextColor(m_dc, text.color);
        const std::vector<TextRun> runs =
            SplitRuns(text.text, [&](char32_t character) { return m_finder.FallbackFor(text.font.face, character); });
        const int width = Measure(text, runs);
        int left = box.left;
        if (text.align == PageAlign::Center) {
            left += std::max((box.Width() - width) / 2, 0);
        } else if (text.align == PageAlign::Right) {
            left += std::max(box.Width() - width, 0);
        }
        // A device whose letters come out wider than they were measured sets them closer.
        const bool isTight = width > box.Width();
        if (isTight) {
            for (int& end : m_ends) {
                end = ::MulDiv(end, box.Width(), width);
            }
        }
        const int baseLine = m_view.Y(text.box.top + text.font.Ascent());
        for (const TextRun& run : runs) {
            const int start = run.from > 0 ? m_ends[run.from - 1] : 0;
            m_steps.clear();
            for (std::size_t i = run.from; i < run.to; ++i) {
                m_steps.push_back(m_ends[i] - (i > run.from ? m_ends[i - 1] : start));
            }
            ::SelectObject(m_dc, FontFor(text.font, run.face));
            ::ExtTextOutW(m_dc, left + start, baseLine, 0, nullptr,
                          reinterpret_cast<LPCWSTR>(text.text.c_str()) + run.from, static_cast<UINT>(run.to - run.from),
                          isTight ? m_steps.data() : nullptr);
        }
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
    // Sets m_ends; returns the width.
    int Measure(const PageText& text, const std::vector<TextRun>& runs)
    {
        m_ends.assign(text.text.size(), 0);
        int width = 0;
        for (const TextRun& run : runs) {
            SIZE size = {};
            ::SelectObject(m_dc, FontFor(text.font, run.face));
            ::GetTextExtentExPointW(m_dc, reinterpret_cast<LPCWSTR>(text.text.c_str()) + run.from,
                                    static_cast<int>(run.to - run.from), 0, nullptr, &m_ends[run.from], &size);
            for (std::size_t i = run.from; i < run.to; ++i) {
                m_ends[i] += width;
            }
            width = m_ends[run.to - 1];
        }
        return width;
    }

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
        Polygon({{base, rect.top}, {tip, (rect.top + rect.bottom) / 2}, {base, rect.bottom}}, color);
    }

    // The disc in the colour, then the lit part of it in white, a little smaller so that a rim stays: from the limb on
    // the sun's side to the terminator, half an ellipse.
    void Moon(const CRect& rect, int elongation, COLORREF color)
    {
        const bool isWaxing = elongation < kHalfTurn;
        const double terminator = (isWaxing ? 1 : -1) * std::cos(elongation * kPi / kHalfTurn);
        Polygon(Disc(rect, 1, -1, 1), color);
        Polygon(isWaxing ? Disc(rect, kMoonRim, terminator, 1) : Disc(rect, kMoonRim, -1, terminator), kWhite);
    }

    // What of an ellipse lies between two half ellipses, whose widths are parts of the radius (-1 left, 1 right).
    static std::vector<POINT> Disc(const CRect& rect, double size, double from, double to)
    {
        const double radiusX = rect.Width() * size / 2, radiusY = rect.Height() * size / 2;
        const double x = (rect.left + rect.right) / 2.0, y = (rect.top + rect.bottom) / 2.0;
        std::vector<POINT> points;
        for (int i = 0; i <= 2 * kArcPoints; ++i) {
            const bool isFirst = i <= kArcPoints;
            const double angle = kPi * (isFirst ? i : 2 * kArcPoints - i) / kArcPoints;
            points.push_back({std::lround(x + radiusX * std::sin(angle) * (isFirst ? to : from)),
                              std::lround(y - radiusY * std::cos(angle))});
        }
        return points;
    }

    void Polygon(const std::vector<POINT>& points, COLORREF color)
    {
        const HBRUSH brush = ::CreateSolidBrush(color);
        const HGDIOBJ oldBrush = ::SelectObject(m_dc, brush);
        const HGDIOBJ oldPen = ::SelectObject(m_dc, ::GetStockObject(NULL_PEN));
        ::Polygon(m_dc, points.data(), static_cast<int>(points.size()));
        ::SelectObject(m_dc, oldPen);
        ::SelectObject(m_dc, oldBrush);
        ::DeleteObject(brush);
    }

    HFONT FontFor(const PageFont& font, int fallback)
    {
        for (const Made& made : m_fonts) {
            if (made.font == font && made.fallback == fallback) {
                return made.handle;
            }
        }
        m_fonts.push_back(
            {font, fallback,
             CreatePageFont(font, m_faces, ::MulDiv(font.size, m_view.dpiY, kPointTenthsPerInch), fallback)});
        return m_fonts.back().handle;
    }

    struct Made
    {
        PageFont font;
        int fallback;
        HFONT handle;
    };

    HDC m_dc;
    const PageView& m_view;
    const PageFaces& m_faces;
    const FaceFinder& m_finder;
    std::vector<Made> m_fonts;
    std::vector<int> m_ends; // of the text at hand: where each of its units ends
    std::vector<int> m_steps;
};

} // namespace

void DrawPage(CDC* pDC, const Page& page, const PageView& view, const PageFaces& faces, CImageList* pImages)
{
    SaveDcScope saved(pDC);
    const FaceFinder finder(faces);
    Painter painter(pDC, view, faces, finder);
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
