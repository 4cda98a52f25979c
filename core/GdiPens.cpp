#include "core/GdiPens.h"

namespace dayvane {
namespace {

constexpr size_t kMaxTools = 64; // of each sort

template <class Entries, class Make>
auto FindOrMake(Entries& entries, int width, COLORREF color, Make make)
{
    for (const auto& entry : entries) {
        if (entry.width == width && entry.color == color) {
            return entry.tool.get();
        }
    }
    if (entries.size() >= kMaxTools) {
        entries.erase(entries.begin());
    }
    entries.push_back({width, color, make()});
    return entries.back().tool.get();
}

} // namespace

CPen* PenSet::Solid(int width, COLORREF color)
{
    return FindOrMake(m_pens, width, color, [&] { return std::make_unique<CPen>(PS_SOLID, width, color); });
}

void PenSet::Fill(CDC* pDC, const CRect& rect, COLORREF color)
{
    CBrush* brush = FindOrMake(m_brushes, 0, color, [&] { return std::make_unique<CBrush>(color); });
    pDC->FillRect(&rect, brush);
}

void PenSet::Clear()
{
    m_pens.clear();
    m_brushes.clear();
}

} // namespace dayvane
