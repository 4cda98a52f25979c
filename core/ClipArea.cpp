#include "core/ClipArea.h"

#include <algorithm>
#include <cstring>

namespace dayvane {
namespace {

constexpr size_t kMostParts = 4096; // of more, the box alone counts

std::vector<CRect> RectsOf(const CRgn& region)
{
    const HRGN handle = static_cast<HRGN>(region.GetSafeHandle());
    const DWORD size = ::GetRegionData(handle, 0, nullptr);
    std::vector<char> bytes(size);
    std::vector<CRect> rects;
    if (size == 0 || ::GetRegionData(handle, size, reinterpret_cast<RGNDATA*>(bytes.data())) == 0) {
        return rects;
    }
    RGNDATAHEADER header;
    std::memcpy(&header, bytes.data(), sizeof(header));
    if (header.nCount > 1 && header.nCount <= kMostParts) {
        rects.resize(header.nCount);
        for (size_t i = 0; i < rects.size(); ++i) {
            RECT rect;
            std::memcpy(&rect, bytes.data() + sizeof(header) + i * sizeof(RECT), sizeof(rect));
            rects[i] = rect;
        }
    }
    return rects;
}

} // namespace

ClipArea::ClipArea(CDC& dc) : m_box(0, 0, 0, 0)
{
    dc.GetClipBox(&m_box);
    CRgn region;
    region.CreateRectRgn(0, 0, 0, 0);
    if (::GetClipRgn(dc.GetSafeHdc(), static_cast<HRGN>(region.GetSafeHandle())) != 1) {
        return;
    }
    m_parts = RectsOf(region);
    for (CRect& part : m_parts) {
        ::DPtoLP(dc.GetSafeHdc(), reinterpret_cast<POINT*>(&part), 2);
        part.NormalizeRect();
    }
    // A region comes so already, but a device context may be upside down.
    std::sort(m_parts.begin(), m_parts.end(),
              [](const CRect& a, const CRect& b) { return a.top != b.top ? a.top < b.top : a.left < b.left; });
}

bool ClipArea::Meets(const CRect& rect) const
{
    CRect seen;
    if (!seen.IntersectRect(&rect, &m_box)) {
        return false;
    }
    // Parts of one band have one top and one bottom, so the bottoms ascend too.
    auto part = std::partition_point(m_parts.begin(), m_parts.end(),
                                     [&rect](const CRect& above) { return above.bottom <= rect.top; });
    for (; part != m_parts.end() && part->top < rect.bottom; ++part) {
        if (rect.left < part->right && part->left < rect.right) {
            return true;
        }
    }
    return m_parts.empty();
}

// A hook in between may have clipped or moved the device context.
std::shared_ptr<const ClipArea> PaintClip::Of(CDC& dc)
{
    if (dc.GetSafeHdc() != m_hDC) {
        return std::make_shared<const ClipArea>(dc);
    }
    CRect box;
    dc.GetClipBox(&box);
    if (!m_area || m_area->Box() != box) {
        m_area = std::make_shared<const ClipArea>(dc);
    }
    return m_area;
}

bool GetUpdateParts(CDC& dc, CRgn& region)
{
    constexpr INT kSystemRegion = 4; // SYSRGN: the visible region, in WM_PAINT cut to what is to be updated
    const HDC hDC = dc.GetSafeHdc();
    POINT origin = {0, 0};
    if (::GetObjectType(hDC) != OBJ_DC || ::GetMapMode(hDC) != MM_TEXT || ::GetLayout(hDC) != 0 ||
        !::GetDCOrgEx(hDC, &origin) || !region.CreateRectRgn(0, 0, 0, 0)) {
        return false;
    }
    const HRGN handle = static_cast<HRGN>(region.GetSafeHandle());
    if (::GetRandomRgn(hDC, handle, kSystemRegion) != 1) {
        return false;
    }
    region.OffsetRgn(-origin.x, -origin.y); // from the screen to the window
    POINT moved = {0, 0};
    ::DPtoLP(hDC, &moved, 1);
    region.OffsetRgn(moved.x, moved.y);
    CRect box;
    return region.GetRgnBox(&box) == COMPLEXREGION;
}

} // namespace dayvane
