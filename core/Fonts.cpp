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
