#include "tests/support/MemoryDc.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

namespace testsupport {
namespace {

constexpr DWORD kColorBits = 0x00FFFFFF;

DWORD PixelOf(COLORREF color)
{
    return RGB(GetBValue(color), GetGValue(color), GetRValue(color));
}

BITMAPINFO TopDownInfo(int width, int height)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

} // namespace

MemoryDc::MemoryDc(int width, int height, COLORREF background) : m_width(width), m_height(height)
{
    const BITMAPINFO info = TopDownInfo(width, height);
    m_dc.CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    m_bitmap = ::CreateDIBSection(m_dc.m_hDC, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    m_pixels = static_cast<DWORD*>(bits);
    m_oldBitmap = ::SelectObject(m_dc.m_hDC, m_bitmap);
    Fill(background);
}

MemoryDc::~MemoryDc()
{
    ::SelectObject(m_dc.m_hDC, m_oldBitmap);
    ::DeleteObject(m_bitmap);
}

void MemoryDc::Fill(COLORREF color)
{
    ::GdiFlush();
    std::fill_n(m_pixels, static_cast<size_t>(m_width) * m_height, PixelOf(color));
}

COLORREF MemoryDc::Pixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_width || y >= m_height) {
        return CLR_INVALID;
    }
    ::GdiFlush();
    const DWORD pixel = m_pixels[y * m_width + x] & kColorBits;
    return PixelOf(pixel);
}

int MemoryDc::Count(const CRect& area, COLORREF color) const
{
    ::GdiFlush();
    const CRect inside = area & CRect(0, 0, m_width, m_height);
    const DWORD wanted = PixelOf(color);
    int count = 0;
    for (int y = inside.top; y < inside.bottom; ++y) {
        for (int x = inside.left; x < inside.right; ++x) {
            count += (m_pixels[y * m_width + x] & kColorBits) == wanted;
        }
    }
    return count;
}

int MemoryDc::CountOther(const CRect& area, COLORREF color) const
{
    const CRect inside = area & CRect(0, 0, m_width, m_height);
    return inside.Width() * inside.Height() - Count(inside, color);
}

bool MemoryDc::SameAs(const MemoryDc& other) const
{
    if (m_width != other.m_width || m_height != other.m_height) {
        return false;
    }
    ::GdiFlush();
    const DWORD* otherPixels = other.m_pixels;
    return std::equal(m_pixels, m_pixels + static_cast<size_t>(m_width) * m_height, otherPixels,
                      [](DWORD a, DWORD b) { return ((a ^ b) & kColorBits) == 0; });
}

bool MemoryDc::Save(const char* path) const
{
    ::GdiFlush();
    std::vector<DWORD> pixels(m_pixels, m_pixels + m_width * m_height);
    for (DWORD& pixel : pixels) {
        pixel |= 0xFF000000; // opaque: only some calls of the system set the fourth byte
    }
    const DWORD imageBytes = static_cast<DWORD>(pixels.size() * sizeof(DWORD));
    const BITMAPINFO info = TopDownInfo(m_width, m_height);
    BITMAPFILEHEADER header = {};
    memcpy(&header.bfType, "BM", 2);
    header.bfOffBits = sizeof(header) + sizeof(info.bmiHeader);
    header.bfSize = header.bfOffBits + imageBytes;
    FILE* file = fopen(path, "wb");
    if (!file) {
        return false;
    }
    const bool written = fwrite(&header, sizeof(header), 1, file) == 1 &&
                         fwrite(&info.bmiHeader, sizeof(info.bmiHeader), 1, file) == 1 &&
                         fwrite(pixels.data(), imageBytes, 1, file) == 1;
    return fclose(file) == 0 && written;
}

} // namespace testsupport
