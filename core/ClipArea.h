// What of a device context a painter has to paint: the clip box, and within it the single parts where the clip region
// has several, as after a drag step that leaves one place for another.
#pragma once

#include <afxwin.h>

#include <memory>
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
    std::vector<CRect> m_parts; // from above, in bands of one height; empty: the whole box
};

// The clip area that all painters of one paint share: asking the system for it costs more than drawing a small item.
class PaintClip
{
public:
    // For the time of a paint the areas of its device context are remembered.
    class Paint
    {
    public:
        Paint(PaintClip& clip, CDC& dc) : m_clip(clip), m_outer(clip.m_hDC) { clip.m_hDC = dc.GetSafeHdc(); }
        ~Paint()
        {
            m_clip.m_hDC = m_outer;
            m_clip.m_area.reset();
        }
        Paint(const Paint&) = delete;
        Paint& operator=(const Paint&) = delete;

    private:
        PaintClip& m_clip;
        HDC m_outer;
    };

    std::shared_ptr<const ClipArea> Of(CDC& dc);

private:
    HDC m_hDC = nullptr;
    std::shared_ptr<const ClipArea> m_area;
};

// The part of a window's device context that reaches the screen, in its own logical units: the region that a WM_PAINT
// updates. False when it is no more than the clip box, or unknown.
bool GetUpdateParts(CDC& dc, CRgn& region);

} // namespace dayvane
