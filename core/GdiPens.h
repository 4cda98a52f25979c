// Pens and brushes that live as long as their control instead of one paint.
#pragma once

#include <afxwin.h>

#include <memory>
#include <vector>

namespace dayvane {

// Hosts choose the colours, so the number of tools is bounded: the oldest goes. A tool must not stay selected while
// many others are asked for.
class PenSet
{
public:
    // A solid pen; width in pixels.
    CPen* Solid(int width, COLORREF color);
    // Fills the rectangle. Under Wine a few times faster than CDC::FillSolidRect, which goes through the text output.
    void Fill(CDC* pDC, const CRect& rect, COLORREF color);
    // Frees everything; nothing may be selected any more.
    void Clear();

private:
    template <class Tool>
    struct Entry
    {
        int width;
        COLORREF color;
        std::unique_ptr<Tool> tool;
    };
    std::vector<Entry<CPen>> m_pens;
    std::vector<Entry<CBrush>> m_brushes;
};

} // namespace dayvane
