// An icon without half-transparent pixels, as pixels that are written straight into the bitmap that is painted in. The
// system makes bitmaps of its own each time that it draws an icon.
#pragma once

#include "ClipArea.h"

#include <vector>

namespace dayvane {

class IconPixels
{
public:
    // False: the system is to draw it.
    bool Draw(const ClipArea& clip, HICON icon, const CRect& rect);

private:
    void Read(HICON icon, CSize size);

    HICON m_icon = nullptr; // that was read
    CSize m_size = CSize(0, 0);
    std::vector<DWORD> m_colors; // empty: it has half-transparent pixels, or there was no memory
    std::vector<char> m_isSolid;
};

} // namespace dayvane
