// Fonts of the controls: a form in the source, a description that a host may change, and the made font.
#pragma once

#include "ViewScale.h"

#include <afxwin.h>

#include <memory>
#include <vector>

namespace dayvane {

// A font as the source states it.
struct FontSpec
{
    int height; // of a line, pixels
    int weight; // FW_...
    BYTE charSet;
    const char* face;
};
LOGFONT LogFontOf(const FontSpec& spec);
// The same face, character set and style in another height and weight.
LOGFONT Resized(LOGFONT description, int height, int weight);

// Whether the device has the face with that character set; CreateFont would take another one for it.
bool IsFaceInstalled(HDC hDC, const char* face, BYTE charSet);

// A description for 96 dpi, as it is at a scale.
LOGFONT Scaled(LOGFONT description, const ViewScale& scale);
// The same of small texts, which grow with the text font.
LOGFONT ScaledText(const FontSpec& spec, const ViewScale& scale);

// By how many pixels a line of the host's font (for 96 dpi) is higher, at that scale, than a line that the sizes are
// made for. 0 for a lower one.
int TextGrowth(const LOGFONT& font, const ViewScale& scale);
// The host's font (for 96 dpi) of a WM_SETFONT of the present scale; false where it is none.
bool FontOfMessage(HFONT hFont, const ViewScale& scale, LOGFONT& description);

// Fonts by description: each is made when it is first asked for and lives until Clear. Empty the cache in OnDestroy.
class FontCache
{
public:
    CFont* Get(const LOGFONT& description);
    CFont* Get(const FontSpec& spec) { return Get(LogFontOf(spec)); }
    void Clear() { m_fonts.clear(); }

private:
    struct Entry
    {
        LOGFONT description;
        CFont font;
    };
    std::vector<std::unique_ptr<Entry>> m_fonts;
};

} // namespace dayvane
