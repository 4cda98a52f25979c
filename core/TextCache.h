// Single lines of text that are measured and cut once instead of on every paint.
//
// The system's own way of cutting a text at the end measures it several times, which costs more than drawing it. The
// texts of a calendar seldom change between two paints, so the result is kept: by font, room and text.
#pragma once

#include <afxwin.h>

#include <string>
#include <unordered_map>

namespace dayvane {

// For one kind of device: what fits on the screen is not what fits on a printer.
class TextCache
{
public:
    // Draws the text in the font that is selected into the device context. Format: DT_LEFT, DT_CENTER or DT_RIGHT;
    // DT_VCENTER or DT_TOP; DT_END_ELLIPSIS. Nothing is drawn outside the rectangle. Ampersands are plain characters,
    // control characters are blanks.
    void Draw(CDC* pDC, CFont* pSelectedFont, const std::u16string& text, const CRect& rect, UINT format);

    // The width of the whole text in the font, pixels.
    int WidthOf(CDC* pDC, CFont* pFont, const std::u16string& text);

    // Of a line in the font, pixels.
    int HeightOf(CDC* pDC, CFont* pFont) { return FactsOf(pDC, pFont).height; }

    // Call it when fonts are deleted: a new font may get the handle of an old one.
    void Clear();

private:
    struct FontFacts
    {
        int height;
        int ellipsisWidth;
    };
    struct Key
    {
        HGDIOBJ font;
        int room;
        std::u16string text;
        bool operator==(const Key& other) const
        {
            return font == other.font && room == other.room && text == other.text;
        }
    };
    struct KeyHash
    {
        size_t operator()(const Key& key) const;
    };
    struct Line
    {
        std::wstring text;
        int width;    // pixels
        bool isMixed; // see MixedText
    };

    const FontFacts& FactsOf(CDC* pDC, CFont* pFont);
    const Line& LineFor(CDC* pDC, CFont* pFont, const std::u16string& text, int room);
    static Line MakeLine(CDC* pDC, const FontFacts& font, const std::u16string& text, int room);
    static Line MakeMixedLine(CDC* pDC, const FontFacts& font, const std::u16string& line, int room);

    std::unordered_map<HGDIOBJ, FontFacts> m_fonts;
    std::unordered_map<Key, Line, KeyHash> m_lines;
    size_t m_bytes = 0; // that the lines take, about; they go when it becomes too many
};

} // namespace dayvane
