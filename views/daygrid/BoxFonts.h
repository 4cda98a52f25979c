// The fonts of a month, week or year view, made when first asked for. Clear when the window goes.
#pragma once

#include "../../core/Fonts.h"

namespace dayvane {

class BoxFonts
{
public:
    void SetScale(const ViewScale& scale) { m_scale = scale; }
    // For weekday names and annotations, for 96 dpi; nullptr: their own.
    void SetText(const LOGFONT* pFont)
    {
        m_hasText = pFont != nullptr;
        m_text = pFont ? *pFont : LOGFONT();
    }
    CFont* Weekday() { return Text({12, FW_DONTCARE, SHIFTJIS_CHARSET, "MS UI Gothic"}); } // weekday names
    CFont* DayNumber() { return Small({16, FW_BOLD, ANSI_CHARSET, "Arial"}); }
    CFont* SmallLatin() { return m_cache.Get({12, FW_DONTCARE, ANSI_CHARSET, "Arial"}); } // for printing
    // Holidays, solar terms, the host's text for a day.
    CFont* Annotation() { return Text({12, FW_DONTCARE, SHIFTJIS_CHARSET, "MS UI Gothic"}); }
    // The title band's have the face, character set and style of the item font. Heights in pixels.
    CFont* CaptionNumber(const LOGFONT& itemFont, int height)
    {
        return m_cache.Get(Resized(itemFont, m_scale.Of(height), FW_BOLD));
    }
    CFont* CaptionText(const LOGFONT& itemFont)
    {
        return m_cache.Get(Resized(itemFont, m_scale.Of(kCaptionTextHeight), itemFont.lfWeight));
    }
    void Clear() { m_cache.Clear(); }

private:
    static constexpr int kCaptionTextHeight = 18;
    CFont* Small(const FontSpec& spec) { return m_cache.Get(ScaledText(spec, m_scale)); }

    CFont* Text(const FontSpec& own) { return m_hasText ? m_cache.Get(Scaled(m_text, m_scale)) : Small(own); }

    ViewScale m_scale;
    LOGFONT m_text = {};
    bool m_hasText = false;
    FontCache m_cache;
};

} // namespace dayvane
