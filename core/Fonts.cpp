#include "core/Fonts.h"

#include "core/DrawingHelpers.h"

#include <algorithm>
#include <cstring>

namespace dayvane {
namespace {

constexpr int kOwnLine = 12; // height of a line of text that the sizes are made for, pixels at 96 dpi

int CALLBACK FoundFace(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM lParam)
{
    *reinterpret_cast<bool*>(lParam) = true;
    return 0;
}

} // namespace

LOGFONT LogFontOf(const FontSpec& spec)
{
    LOGFONT lf = {};
    lf.lfHeight = spec.height;
    lf.lfWeight = spec.weight;
    lf.lfCharSet = spec.charSet;
    lstrcpyn(lf.lfFaceName, spec.face, LF_FACESIZE);
    return lf;
}

LOGFONT Resized(LOGFONT description, int height, int weight)
{
    description.lfHeight = height;
    description.lfWeight = weight;
    return description;
}

bool IsFaceInstalled(HDC hDC, const char* face, BYTE charSet)
{
    LOGFONTA wanted = {};
    wanted.lfCharSet = charSet;
    lstrcpynA(wanted.lfFaceName, face, LF_FACESIZE);
    bool found = false;
    ::EnumFontFamiliesExA(hDC, &wanted, &FoundFace, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

LOGFONT Scaled(LOGFONT description, const ViewScale& scale)
{
    const bool isCell = description.lfHeight >= 0; // a negative height is that of the characters
    const int height = scale.Of(static_cast<int>(isCell ? description.lfHeight : -description.lfHeight));
    description.lfHeight = isCell ? height : -height;
    return description;
}

LOGFONT ScaledText(const FontSpec& spec, const ViewScale& scale)
{
    LOGFONT description = LogFontOf(spec);
    description.lfHeight = scale.Line(spec.height);
    return description;
}

int TextGrowth(const LOGFONT& font, const ViewScale& scale)
{
    const LOGFONT scaled = Scaled(font, scale);
    CFont made;
    made.CreateFontIndirect(&scaled);
    CDC screen;
    screen.CreateCompatibleDC(nullptr);
    const SelectGdi selectFont(&screen, &made);
    TEXTMETRIC metrics = {};
    screen.GetTextMetrics(&metrics);
    return std::max<int>(metrics.tmHeight - scale.Of(kOwnLine), 0);
}

bool FontOfMessage(HFONT hFont, const ViewScale& scale, LOGFONT& description)
{
    if (!hFont || ::GetObject(hFont, sizeof(description), &description) == 0) {
        return false;
    }
    description.lfHeight = MulDiv(description.lfHeight, kBaseDpi, scale.dpi);
    return true;
}

CFont* FontCache::Get(const LOGFONT& description)
{
    for (const std::unique_ptr<Entry>& entry : m_fonts) {
        if (std::memcmp(&entry->description, &description, sizeof(description)) == 0) {
            return &entry->font;
        }
    }
    m_fonts.push_back(std::make_unique<Entry>());
    m_fonts.back()->description = description;
    m_fonts.back()->font.CreateFontIndirect(&description);
    return &m_fonts.back()->font;
}

} // namespace dayvane
