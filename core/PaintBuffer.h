// The bitmap that a window is painted in off screen, kept from one paint to the next: a new one costs as much as
// drawing a good part of the picture, for the system hands out its memory page by page while it is painted.
#pragma once

#include <afxwin.h>

#include <memory>

namespace dayvane {

// Made for a device context; where that has pixels of 32 bits, they are within reach.
struct OffscreenBitmap
{
    CBitmap bitmap;
    CSize size = CSize(0, 0); // pixels
    DWORD* pixels = nullptr;  // rows from above; nullptr: out of reach
    bool isUsed = false;      // an earlier picture is in it; else it is black

    // False: there is no memory for it.
    bool Make(CDC& target, CSize wanted);
};

class PaintBuffer
{
public:
    // A bitmap of at least the size, in a paint of a window of that size; the window's own one unless it is in use or
    // would be too large to keep. nullptr: there is no memory.
    std::shared_ptr<OffscreenBitmap> Take(CDC& target, CSize size, CSize window);
    void Free() { m_kept.reset(); }
    // Frees it when nothing was painted since the last call. True: it is kept.
    bool FreeUnused();
    bool IsKept() const { return m_kept != nullptr; }

private:
    std::shared_ptr<OffscreenBitmap> m_kept;
    bool m_isUsed = false; // since FreeUnused was called
};

} // namespace dayvane
