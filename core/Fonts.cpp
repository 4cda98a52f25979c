#include "core/Fonts.h"

#include <cstring>

namespace dayvane {

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
