// Measures texts with the system's fonts, at a size so large that the hinting for one device does not show.
#pragma once

#include "Page.h"

#include <afxwin.h>

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace dayvane {

// The faces behind a page's two, and the character set that goes with the first.
struct PageFaces
{
    std::string text = "MS PGothic";
    BYTE textCharSet = SHIFTJIS_CHARSET;
    std::string latin = "Arial";
};

// A font with that height of its em square, device pixels; fallback: a number of FaceFinder, 0: the page's own face.
// Its owner deletes it.
HFONT CreatePageFont(const PageFont& font, const PageFaces& faces, int emHeight, int fallback = 0);

// Printers and metafiles draw a text in its face and nothing else: so a character that the face lacks needs another
// face of the system that has it.
class FaceFinder
{
public:
    explicit FaceFinder(const PageFaces& faces);
    ~FaceFinder();
    FaceFinder(const FaceFinder&) = delete;
    FaceFinder& operator=(const FaceFinder&) = delete;

    // Which other face has the character, from 1; 0: none is needed.
    int FallbackFor(PageFace face, char32_t character) const;

private:
    struct Own
    {
        HFONT font = nullptr;
        std::unordered_map<char32_t, int> known;
    };
    HDC m_dc;
    mutable Own m_own[2]; // by PageFace
};

class DcTextMeasurer : public TextMeasurer
{
public:
    explicit DcTextMeasurer(const PageFaces& faces);
    ~DcTextMeasurer() override;
    DcTextMeasurer(const DcTextMeasurer&) = delete;
    DcTextMeasurer& operator=(const DcTextMeasurer&) = delete;

    void Measure(const PageFont& font, const std::u16string& text, std::vector<int>& ends) const override;

private:
    // The widths of characters at the reference height, each measured once; sizes scale them.
    struct Style
    {
        std::map<int, HFONT> fonts;               // by the number of the fallback
        std::unordered_map<unsigned, int> widths; // by character, or by both halves of one
    };
    Style& StyleOf(const PageFont& font) const;
    int WidthOf(const PageFont& font, Style& style, const char16_t* character, int length) const;

    PageFaces m_faces;
    FaceFinder m_finder;
    HDC m_dc;
    mutable std::unordered_map<int, Style> m_styles;
};

} // namespace dayvane
