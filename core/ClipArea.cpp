#include "core/ClipArea.h"

#include "core/DrawingHelpers.h"

#include <algorithm>
#include <cstring>

namespace dayvane {
namespace {

constexpr size_t kMostParts = 4096; // of more, the box alone counts

// Whether logical units are pixels.
bool IsPlain(HDC hDC)
{
    return ::GetMapMode(hDC) == MM_TEXT && ::GetGraphicsMode(hDC) == GM_COMPATIBLE && ::GetLayout(hDC) == 0;
}

void FillBlock(const PixelBlock& block, DWORD pixel)
{
    DWORD* row = block.first;
    for (int y = 0; y < block.seen.Height(); ++y, row += block.rowPixels) {
        std::fill_n(row, block.seen.Width(), pixel);
    }
}

} // namespace

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

bool MakeRegion(const std::vector<CRect>& rects, CRgn& region)
{
    std::vector<char> bytes(sizeof(RGNDATAHEADER) + rects.size() * sizeof(RECT));
    RGNDATAHEADER header = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(rects.size()), 0, {}};
    CRect bounds(0, 0, 0, 0);
    for (size_t i = 0; i < rects.size(); ++i) {
        CRect rect = rects[i];
        rect.NormalizeRect();
        bounds.UnionRect(&bounds, &rect);
        std::memcpy(bytes.data() + sizeof(header) + i * sizeof(RECT), static_cast<const RECT*>(&rect), sizeof(RECT));
    }
    header.rcBound = bounds;
    std::memcpy(bytes.data(), &header, sizeof(header));
    return region.Attach(::ExtCreateRegion(nullptr, static_cast<DWORD>(bytes.size()),
                                           reinterpret_cast<const RGNDATA*>(bytes.data()))) != FALSE;
}

ClipArea::ClipArea(CDC& dc, const CMemDC* buffer) : m_box(0, 0, 0, 0), m_size(0, 0), m_origin(0, 0)
{
    dc.GetClipBox(&m_box);
    CRgn region;
    region.CreateRectRgn(0, 0, 0, 0);
    bool isBox = true;
    if (::GetClipRgn(dc.GetSafeHdc(), static_cast<HRGN>(region.GetSafeHandle())) == 1) {
        CRect bounds;
        isBox = region.GetRgnBox(&bounds) != COMPLEXREGION;
        m_parts = RectsOf(region);
    }
    if (buffer && (isBox || (!m_parts.empty() && m_parts == buffer->UpdateParts()))) {
        m_parts = buffer->UpdateParts();
        FindPixels(dc, *buffer);
    }
    POINT moved = {0, 0};
    const bool isPlain = IsPlain(dc.GetSafeHdc()) && ::DPtoLP(dc.GetSafeHdc(), &moved, 1);
    for (CRect& part : m_parts) {
        if (isPlain) {
            part.OffsetRect(moved);
        } else {
            ::DPtoLP(dc.GetSafeHdc(), reinterpret_cast<POINT*>(&part), 2);
            part.NormalizeRect();
        }
    }
    // A region comes so already, but a device context may be upside down.
    std::sort(m_parts.begin(), m_parts.end(),
              [](const CRect& a, const CRect& b) { return a.top != b.top ? a.top < b.top : a.left < b.left; });
}

// Only where logical units are pixels.
void ClipArea::FindPixels(CDC& dc, const CMemDC& buffer)
{
    const HDC hDC = dc.GetSafeHdc();
    if (IsPlain(hDC) && buffer.Pixels() && ::GetCurrentObject(hDC, OBJ_BITMAP) == buffer.Bitmap() &&
        ::LPtoDP(hDC, &m_origin, 1)) {
        m_pixels = buffer.Pixels();
        m_size = buffer.PixelSize();
        m_rowPixels = buffer.RowPixels();
    }
}

PixelBlock ClipArea::BlockOf(const CRect& rect) const
{
    PixelBlock block;
    CRect seen;
    if (!m_pixels || !seen.IntersectRect(&rect, &m_box)) {
        return block;
    }
    seen.OffsetRect(m_origin);
    if (!seen.IntersectRect(&seen, CRect(CPoint(0, 0), m_size))) {
        return block;
    }
    block.first = m_pixels + static_cast<size_t>(seen.top) * m_rowPixels + seen.left;
    block.rowPixels = m_rowPixels;
    seen.OffsetRect(-m_origin.x, -m_origin.y);
    block.seen = seen;
    return block;
}

PixelBlock ClipArea::PixelsOf(const CRect& rect) const
{
    if (m_pixels) {
        ::GdiFlush(); // what the system draws may wait
    }
    return BlockOf(rect);
}

bool ClipArea::Fill(const CRect& rect, COLORREF color) const
{
    if (m_pixels) {
        ::GdiFlush(); // what the system draws may wait
    }
    return FillNext(rect, color);
}

bool ClipArea::FillNext(const CRect& rect, COLORREF color) const
{
    constexpr COLORREF kOtherKind = 0xFF000000; // bits of colours that are not red, green and blue
    constexpr int kLarge = 64 * 64;             // pixels
    if (!m_pixels || (color & kOtherKind) != 0 || rect.left > rect.right || rect.top > rect.bottom) {
        return false;
    }
    const PixelBlock block = BlockOf(rect);
    const DWORD pixel = PixelOf(color);
    if (!m_parts.empty() && block.seen.Width() * block.seen.Height() > kLarge) {
        FillParts(block.seen, pixel); // memory that nobody touches is not even there
    } else {
        FillBlock(block, pixel);
    }
    return true;
}

void ClipArea::FillParts(const CRect& rect, DWORD pixel) const
{
    for (auto part = FirstPartFrom(rect.top); part != m_parts.end() && part->top < rect.bottom; ++part) {
        CRect common;
        if (common.IntersectRect(&*part, &rect)) {
            FillBlock(BlockOf(common), pixel);
        }
    }
}

// The first part that reaches below the height. Parts of one band have one top and one bottom, so the bottoms ascend
// too.
std::vector<CRect>::const_iterator ClipArea::FirstPartFrom(int top) const
{
    return std::partition_point(m_parts.begin(), m_parts.end(),
                                [top](const CRect& above) { return above.bottom <= top; });
}

bool ClipArea::Contains(const CRect& rect) const
{
    const auto holds = [&rect](const CRect& part) {
        return part.left <= rect.left && part.top <= rect.top && part.right >= rect.right && part.bottom >= rect.bottom;
    };
    return holds(m_box) && (!m_pixels || BlockOf(rect).seen == rect) &&
           (m_parts.empty() || std::any_of(FirstPartFrom(rect.top), m_parts.end(), holds));
}

bool ClipArea::Intersects(const CRect& rect) const
{
    CRect seen;
    if (!seen.IntersectRect(&rect, &m_box)) {
        return false;
    }
    for (auto part = FirstPartFrom(rect.top); part != m_parts.end() && part->top < rect.bottom; ++part) {
        if (rect.left < part->right && part->left < rect.right) {
            return true;
        }
    }
    return m_parts.empty();
}

PaintClip::Paint::Paint(PaintClip& clip, CDC& dc, bool isKept)
    : m_clip(clip), m_outer(clip.m_hDC), m_outerBuffer(clip.m_buffer), m_wasKept(clip.m_isKept)
{
    clip.m_isKept = isKept;
    clip.m_hDC = dc.GetSafeHdc();
    clip.m_buffer = dynamic_cast<const CMemDC*>(&dc);
    clip.m_area.reset();
}

PaintClip::Paint::~Paint()
{
    m_clip.m_hDC = m_outer;
    m_clip.m_buffer = m_outerBuffer;
    m_clip.m_isKept = m_wasKept;
    m_clip.m_area.reset();
}

// A hook in between may have clipped or moved the device context.
std::shared_ptr<const ClipArea> PaintClip::Of(CDC& dc)
{
    if (dc.GetSafeHdc() != m_hDC) {
        return std::make_shared<const ClipArea>(dc);
    }
    if (m_isKept && m_area) {
        return m_area;
    }
    CRect box;
    dc.GetClipBox(&box);
    if (!m_area || m_area->Box() != box) {
        m_area = std::make_shared<const ClipArea>(dc, m_buffer);
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
