#include "planner/WindowPicture.h"

#include <fstream>
#include <vector>

namespace planner {

namespace {

constexpr int kBitsPerPixel = 24;
constexpr int kRowAlignment = 4;     // bytes
constexpr WORD kBitmapMark = 0x4D42; // "BM"

} // namespace

BOOL SaveWindowPicture(CWnd& window, LPCTSTR path)
{
    CRect place;
    window.GetWindowRect(&place);
    CWindowDC source(&window);
    CDC memory;
    CBitmap bitmap;
    if (!memory.CreateCompatibleDC(&source) || !bitmap.CreateCompatibleBitmap(&source, place.Width(), place.Height())) {
        return FALSE;
    }
    CBitmap* before = memory.SelectObject(&bitmap);
    memory.BitBlt(0, 0, place.Width(), place.Height(), &source, 0, 0, SRCCOPY);
    memory.SelectObject(before);

    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = place.Width();
    info.bmiHeader.biHeight = place.Height();
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = kBitsPerPixel;
    const int rowBytes = (place.Width() * kBitsPerPixel / 8 + kRowAlignment - 1) / kRowAlignment * kRowAlignment;
    std::vector<char> pixels(static_cast<std::size_t>(rowBytes) * place.Height());
    if (!::GetDIBits(memory, bitmap, 0, place.Height(), pixels.data(), &info, DIB_RGB_COLORS)) {
        return FALSE;
    }
    BITMAPFILEHEADER header = {};
    header.bfType = kBitmapMark;
    header.bfOffBits = sizeof(header) + sizeof(info.bmiHeader);
    header.bfSize = header.bfOffBits + static_cast<DWORD>(pixels.size());
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(&header), sizeof(header));
    file.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof(info.bmiHeader));
    file.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
    return file.good();
}

} // namespace planner
