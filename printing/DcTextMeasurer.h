// Measures texts with the system's fonts, at a size so large that the hinting for one device does not show.
#pragma once

#include "Page.h"

#include <afxwin.h>

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

// A font with that height of its em square, device pixels. Its owner deletes it.
HFONT CreatePageFont(const PageFont& font, const PageFaces& faces, int emHeight);

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
        HFONT font = nullptr;
        std::unordered_map<unsigned, int> widths; // by character, or by both halves of one
    };
    Style& StyleOf(const PageFont& font) const;
    int WidthOf(Style& style, const char16_t* character, int length) const;

    PageFaces m_faces;
    HDC m_dc;
    mutable std::unordered_map<int, Style> m_styles;
};

} // namespace dayvane
