#include "core/DrawnTexts.h"

#include <algorithm>
#include <utility>

namespace dayvane {
namespace {

constexpr std::size_t kMaxBytes = 16 << 20;    // the texts of a large screen at 200 %
constexpr std::size_t kBytesOfPicture = 128;   // besides its pixels and its text
constexpr std::size_t kMostPixels = 64 * 1024; // of one text
constexpr int kReach = 3;                      // pixels that letters may go over the edges of their rectangle
constexpr int kReachOfHeight = 8;              // one part in so many of its height, where that is more

// Background, place and spacing as everybody leaves them; a hook may have set others.
bool DrawsPlainTexts(HDC hDC)
{
    return ::GetBkMode(hDC) == TRANSPARENT && ::GetTextAlign(hDC) == (TA_LEFT | TA_TOP) &&
           ::GetTextCharacterExtra(hDC) == 0;
}

// The ground is looked for beside the edges, on which lines may lie.
DWORD GroundOf(const PixelBlock& block)
{
    const int x = std::min(kReach, block.seen.Width()) - 1;
    const int y = std::min(kReach, block.seen.Height()) - 1;
    return block.first[static_cast<std::size_t>(y) * block.rowPixels + x];
}

bool HasPixelOf(COLORREF color, const std::vector<DWORD>& pixels)
{
    constexpr DWORD kColorBits = 0xFFFFFF;
    return std::any_of(pixels.begin(), pixels.end(),
                       [pixel = PixelOf(color)](DWORD other) { return ((other ^ pixel) & kColorBits) == 0; });
}

bool IsOneColor(const PixelBlock& block, DWORD color)
{
    const DWORD* row = block.first;
    for (int y = 0; y < block.seen.Height(); ++y, row += block.rowPixels) {
        DWORD differs = 0; // without a branch for each pixel
        for (int x = 0; x < block.seen.Width(); ++x) {
            differs |= row[x] ^ color;
        }
        if (differs != 0) {
            return false;
        }
    }
    return true;
}

std::vector<DWORD> PixelsIn(const PixelBlock& block)
{
    std::vector<DWORD> pixels;
    pixels.reserve(static_cast<std::size_t>(block.seen.Width()) * block.seen.Height());
    const DWORD* row = block.first;
    for (int y = 0; y < block.seen.Height(); ++y, row += block.rowPixels) {
        pixels.insert(pixels.end(), row, row + block.seen.Width());
    }
    return pixels;
}

// The rectangle that holds all pixels of the block in which it differs from what was there.
CRect DifferenceOf(const PixelBlock& block, const std::vector<DWORD>& before)
{
    CRect found(0, 0, 0, 0);
    const DWORD* row = block.first;
    const DWORD* old = before.data();
    const int width = block.seen.Width();
    for (int y = 0; y < block.seen.Height(); ++y, row += block.rowPixels, old += width) {
        const int first = static_cast<int>(std::mismatch(row, row + width, old).first - row);
        if (first == width) {
            continue;
        }
        int last = width - 1;
        while (row[last] == old[last]) {
            --last;
        }
        const CRect part(first, y, last + 1, y + 1);
        found.UnionRect(&found, &part);
    }
    return found + block.seen.TopLeft();
}

} // namespace

unsigned DrawnTexts::HashOf(const Look& look, const std::u16string& text)
{
    constexpr unsigned kPrime = 16777619u; // FNV-1a
    unsigned hash = 2166136261u;
    const auto mix = [&hash](unsigned value) { hash = (hash ^ value) * kPrime; };
    for (const char16_t unit : text) {
        mix(unit);
    }
    mix(static_cast<unsigned>(reinterpret_cast<UINT_PTR>(look.font)));
    mix(look.color);
    mix(look.ground);
    mix(static_cast<unsigned>(look.size.cx));
    mix(static_cast<unsigned>(look.size.cy));
    mix(look.format);
    return hash;
}

void DrawnTexts::Clear()
{
    m_pictures.clear();
    m_bytes = 0;
}

const DrawnTexts::Picture* DrawnTexts::Find(unsigned hash, const Look& look, const std::u16string& text) const
{
    const auto found = m_pictures.equal_range(hash);
    for (auto it = found.first; it != found.second; ++it) {
        if (it->second.look == look && it->second.text == text) {
            return &it->second;
        }
    }
    return nullptr;
}

// False: the system is to draw it.
bool DrawnTexts::Copy(CDC& dc, const ClipArea& clip, const PlacedText& placed, Drawing& drawing)
{
    const PixelBlock block = clip.PixelsOf(placed.rect);
    const HDC hDC = dc.GetSafeHdc();
    if (!block.first || !DrawsPlainTexts(hDC)) {
        return false;
    }
    drawing.look = {placed.font->GetSafeHandle(), ::GetTextColor(hDC), GroundOf(block), placed.rect.Size(),
                    placed.format};
    drawing.hash = HashOf(drawing.look, placed.text);
    if (const Picture* picture = Find(drawing.hash, drawing.look, placed.text)) {
        const CRect ink = picture->ink + placed.rect.TopLeft();
        const PixelBlock target = clip.PixelsOf(ink);
        if (!target.first) {
            return true; // nothing of it is seen
        }
        if (!IsOneColor(target, drawing.look.ground)) {
            return false;
        }
        const DWORD* from = picture->pixels.data() + static_cast<std::size_t>(target.seen.top - ink.top) * ink.Width() +
                            (target.seen.left - ink.left);
        DWORD* to = target.first;
        for (int y = 0; y < target.seen.Height(); ++y, from += ink.Width(), to += target.rowPixels) {
            std::copy_n(from, target.seen.Width(), to);
        }
        return true;
    }
    const int reach = placed.isClipped ? 0 : std::max(kReach, placed.rect.Height() / kReachOfHeight);
    drawing.around = placed.rect;
    drawing.around.InflateRect(reach, reach);
    const PixelBlock around = clip.PixelsOf(drawing.around);
    drawing.canBeKept = around.first && clip.Contains(drawing.around) &&
                        static_cast<std::size_t>(placed.rect.Width()) * placed.rect.Height() <= kMostPixels;
    if (drawing.canBeKept) {
        drawing.before = PixelsIn(around);
    }
    return false;
}

bool DrawnTexts::StoodOnGround(const Drawing& drawing, const CRect& drawn)
{
    for (int y = drawn.top; y < drawn.bottom; ++y) {
        const DWORD* row = drawing.before.data() +
                           static_cast<std::size_t>(y - drawing.around.top) * drawing.around.Width() -
                           drawing.around.left;
        if (!std::all_of(row + drawn.left, row + drawn.right, [&](DWORD old) { return old == drawing.look.ground; })) {
            return false;
        }
    }
    return true;
}

// A text that has gone over the edges of its rectangle, or stands on other colours, is drawn by the system each time.
void DrawnTexts::Keep(const ClipArea& clip, const PlacedText& placed, Drawing& drawing)
{
    if (!drawing.canBeKept) {
        return;
    }
    const CRect drawn = DifferenceOf(clip.PixelsOf(drawing.around), drawing.before);
    CRect inside;
    inside.IntersectRect(&drawn, &placed.rect);
    if (!drawn.IsRectEmpty() && (inside != drawn || !StoodOnGround(drawing, drawn))) {
        return;
    }
    if (HasPixelOf(drawing.look.color, drawing.before)) {
        return; // what of it lies there is not seen, as it would be on the ground
    }
    Picture picture = {drawing.look, placed.text, CRect(0, 0, 0, 0), {}};
    if (!drawn.IsRectEmpty()) {
        picture.ink = drawn - placed.rect.TopLeft();
        picture.pixels = PixelsIn(clip.PixelsOf(drawn));
    }
    const std::size_t bytes =
        kBytesOfPicture + picture.text.size() * sizeof(char16_t) + picture.pixels.size() * sizeof(DWORD);
    if (m_bytes + bytes > kMaxBytes) {
        Clear();
    }
    m_bytes += bytes;
    m_pictures.emplace(drawing.hash, std::move(picture));
}

} // namespace dayvane
