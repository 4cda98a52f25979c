#include "views/daygrid/GdiPens.h"

namespace dayvane
{

CPen* PenSet::Solid(int width, COLORREF color)
{
    for (const Entry& entry : m_pens) {
        if (entry.width == width && entry.color == color)
            return entry.pen.get();
    }
    m_pens.push_back({width, color, std::make_unique<CPen>(PS_SOLID, width, color)});
    return m_pens.back().pen.get();
}

} // namespace dayvane
