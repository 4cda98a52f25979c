#include "core/IconPixels.h"

#include "core/DrawingHelpers.h"
#include "core/PaintBuffer.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace dayvane {
namespace {

constexpr DWORD kColors = 0x00FFFFFF; // of a pixel, which may have more bits

// The icon on a ground of one colour; empty: there is no memory.
std::vector<DWORD> DrawnOn(DWORD ground, HICON icon, CSize size)
{
    CDC screen;
    screen.Attach(::CreateDCA("DISPLAY", nullptr, nullptr, nullptr));
    CDC dc;
    OffscreenBitmap bitmap;
    if (!dc.CreateCompatibleDC(&screen) || !bitmap.Make(screen, size) || !bitmap.pixels) {
        return {};
    }
    const SelectGdi selectBitmap(&dc, &bitmap.bitmap);
    DWORD* end = bitmap.pixels + static_cast<std::size_t>(size.cx) * size.cy;
    std::fill(bitmap.pixels, end, ground);
    ::DrawIconEx(dc.GetSafeHdc(), 0, 0, icon, size.cx, size.cy, 0, nullptr, DI_NORMAL);
    ::GdiFlush();
    return std::vector<DWORD>(bitmap.pixels, end);
}

} // namespace

void IconPixels::Read(HICON icon, CSize size)
{
    m_icon = icon;
    m_size = size;
    m_colors.clear();
    m_isSolid.clear();
    std::vector<DWORD> onBlack = DrawnOn(0, icon, size);
    const std::vector<DWORD> onWhite = DrawnOn(kColors, icon, size);
    for (std::size_t i = 0; i < onBlack.size() && i < onWhite.size(); ++i) {
        const DWORD color = onBlack[i] & kColors;
        const bool isSolid = color == (onWhite[i] & kColors);
        const bool isOpen = color == 0 && (onWhite[i] & kColors) == kColors;
        if (!isSolid && !isOpen) {
            return;
        }
        m_isSolid.push_back(isSolid);
    }
    m_colors = std::move(onBlack);
}

bool IconPixels::Draw(const ClipArea& clip, HICON icon, const CRect& rect)
{
    const PixelBlock block = clip.PixelsOf(rect);
    if (!block.first) {
        return false;
    }
    if (m_icon != icon || m_size != rect.Size()) {
        Read(icon, rect.Size());
    }
    if (m_colors.size() != m_isSolid.size() || m_colors.empty()) {
        return false;
    }
    DWORD* to = block.first;
    for (int y = block.seen.top; y < block.seen.bottom; ++y, to += block.rowPixels) {
        const std::size_t row = static_cast<std::size_t>(y - rect.top) * m_size.cx;
        for (int x = block.seen.left; x < block.seen.right; ++x) {
            const std::size_t from = row + (x - rect.left);
            if (m_isSolid[from]) {
                to[x - block.seen.left] = m_colors[from] & kColors;
            }
        }
    }
    return true;
}

} // namespace dayvane
