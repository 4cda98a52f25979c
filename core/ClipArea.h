// What of a device context a painter has to paint: the clip box, and within it the single parts where the clip region
// has several, as after a drag step that leaves one place for another.
#pragma once

#include <afxwin.h>

#include <vector>

namespace dayvane {

class ClipArea
{
public:
    explicit ClipArea(CDC& dc);

    bool Meets(const CRect& rect) const; // some of it can be seen
    const CRect& Box() const { return m_box; }

private:
    CRect m_box;                // logical units, as the parts
    std::vector<CRect> m_parts; // empty: the whole box
};

// The part of a window's device context that reaches the screen, in its own logical units: the region that a WM_PAINT
// updates. False when it is no more than the clip box, or unknown.
bool GetUpdateParts(CDC& dc, CRgn& region);

} // namespace dayvane
