#include "core/PaintBuffer.h"

#include <utility>

namespace dayvane {
namespace {

constexpr int kPixelBits = 32;
constexpr long long kMostKept = 4096LL * 4096;                // pixels, 64 MB: a larger one is made for each paint
constexpr long long kMostMade = 0x7FFFFFFFLL / sizeof(DWORD); // the system counts the bytes in 32 bits

long long PixelsOf(CSize size)
{
    return static_cast<long long>(size.cx) * size.cy;
}

bool HasPlainPixels(CDC& target)
{
    return target.GetDeviceCaps(BITSPIXEL) == kPixelBits && target.GetDeviceCaps(PLANES) == 1;
}

} // namespace

bool OffscreenBitmap::Make(CDC& target, CSize wanted)
{
    size = wanted;
    if (PixelsOf(size) > kMostMade) {
        return false;
    }
    if (HasPlainPixels(target)) {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = size.cx;
        info.bmiHeader.biHeight = -size.cy; // rows from above
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = kPixelBits;
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        if (HBITMAP made = ::CreateDIBSection(target.GetSafeHdc(), &info, DIB_RGB_COLORS, &bits, nullptr, 0)) {
            bitmap.Attach(made);
            pixels = static_cast<DWORD*>(bits);
            return true;
        }
    }
    return bitmap.CreateCompatibleBitmap(&target, size.cx, size.cy) != FALSE;
}

std::shared_ptr<OffscreenBitmap> PaintBuffer::Take(CDC& target, CSize size, CSize window)
{
    m_isUsed = true;
    const bool isInUse = m_kept && m_kept.use_count() > 1; // a hook paints while it is painted
    const bool fits = size.cx <= window.cx && size.cy <= window.cy;
    if (m_kept && !isInUse && fits && m_kept->size == window) { // what pixels the target has takes long to find out
        m_kept->isUsed = true;
        return m_kept;
    }
    const bool canKeep = !isInUse && fits && HasPlainPixels(target) && PixelsOf(window) <= kMostKept;
    if (!isInUse) {
        m_kept.reset(); // before another one: both may be large
    }
    auto made = std::make_shared<OffscreenBitmap>();
    if (canKeep && made->Make(target, window) && made->pixels) {
        m_kept = made;
        return made;
    }
    made = std::make_shared<OffscreenBitmap>();
    return made->Make(target, size) ? made : nullptr;
}

bool PaintBuffer::FreeUnused()
{
    if (!std::exchange(m_isUsed, false)) {
        Free();
    }
    return IsKept();
}

} // namespace dayvane
