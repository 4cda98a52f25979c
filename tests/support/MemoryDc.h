// A drawing surface in memory whose pixels tests can look at; needs no display.
#pragma once

#include <afxwin.h>

namespace testsupport {

class MemoryDc
{
public:
    MemoryDc(int width, int height, COLORREF background = RGB(255, 255, 255));
    ~MemoryDc();
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;

    CDC& Dc() { return m_dc; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }

    void Fill(COLORREF color);
    COLORREF Pixel(int x, int y) const; // CLR_INVALID outside
    // How many pixels of the rectangle have this colour.
    int Count(const CRect& area, COLORREF color) const;
    // How many pixels of the rectangle differ from this colour: "is something drawn here?"
    int CountOther(const CRect& area, COLORREF color) const;
    bool SameAs(const MemoryDc& other) const;
    // Writes a .bmp file, for a person who looks for a fault.
    bool Save(const char* path) const;

private:
    int m_width;
    int m_height;
    CDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_oldBitmap = nullptr;
    DWORD* m_pixels = nullptr; // 0x00RRGGBB, top row first
};

} // namespace testsupport
