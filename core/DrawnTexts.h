// Texts that the system has drawn on a ground of one colour, kept as pixels: where they are drawn again on that ground
// they are copied. Drawing a text takes the system as long as writing some ten thousand pixels.
#pragma once

#include "ClipArea.h"
#include "DrawingHelpers.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace dayvane {

// A text in a rectangle, in the text colour of the device context. format: whatever else decides how it looks.
struct PlacedText
{
    CFont* font;
    const std::u16string& text;
    CRect rect; // logical units
    UINT format;
    bool isClipped = false; // no letter reaches over the rectangle's edges
};

class DrawnTexts
{
public:
    // draw(): the system draws the text, whose font is selected meanwhile. It is not called where a copy serves.
    template <class DrawText>
    void Draw(CDC& dc, const ClipArea& clip, const PlacedText& placed, DrawText draw)
    {
        Drawing drawing;
        if (Copy(dc, clip, placed, drawing)) {
            return;
        }
        const SelectGdi selectFont(&dc, placed.font);
        draw();
        Keep(clip, placed, drawing);
    }

    void Clear();
    std::size_t CountBytes() const { return m_bytes; }

private:
    // All that a picture depends on besides the text.
    struct Look
    {
        HGDIOBJ font;
        COLORREF color;
        DWORD ground; // pixel
        CSize size;
        UINT format;

        bool operator==(const Look& other) const
        {
            return font == other.font && color == other.color && ground == other.ground && size == other.size &&
                   format == other.format;
        }
    };
    struct Picture
    {
        Look look;
        std::u16string text;
        CRect ink; // the part that differs from the ground, from the rectangle's corner
        std::vector<DWORD> pixels;
    };
    // A text that is about to be drawn.
    struct Drawing
    {
        bool canBeKept = false;
        unsigned hash = 0;
        Look look = {};
        CRect around;              // the rectangle and what a letter may reach over its edges
        std::vector<DWORD> before; // the pixels there
    };

    static unsigned HashOf(const Look& look, const std::u16string& text);
    const Picture* Find(unsigned hash, const Look& look, const std::u16string& text) const;
    static bool StoodOnGround(const Drawing& drawing, const CRect& drawn);
    bool Copy(CDC& dc, const ClipArea& clip, const PlacedText& placed, Drawing& drawing);
    void Keep(const ClipArea& clip, const PlacedText& placed, Drawing& drawing);

    std::unordered_multimap<unsigned, Picture> m_pictures; // by hash
    std::size_t m_bytes = 0;
};

} // namespace dayvane
