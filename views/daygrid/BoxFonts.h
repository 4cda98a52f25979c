// The fonts of a month, week or year view. They live as long as its window.
#pragma once

#include <afxwin.h>

namespace dayvane {

class BoxFonts
{
public:
    // Creates what is missing.
    void Create();
    void Clear();

    CFont weekday; // weekday names
    CFont dayNumber;
    CFont smallLatin; // for the printer
    CFont annotation; // holidays, solar terms, the host's text for a day

    // The fonts of the title band are made from the item font: its face, character set and style. Heights in pixels.
    CFont* CaptionNumber(const LOGFONT& itemFont, int height);
    CFont* CaptionText(const LOGFONT& itemFont);

private:
    struct Slot
    {
        CFont* Get(const LOGFONT& lf);

        LOGFONT made = {};
        CFont font;
    };
    Slot m_captionNumber, m_captionText;
};

} // namespace dayvane
