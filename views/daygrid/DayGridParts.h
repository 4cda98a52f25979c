// What a month, week or year view keeps for its painting; its public header does without these types.
#pragma once

#include "BoxFonts.h"
#include "GdiPens.h"
#include "TextCache.h"

namespace dayvane {

struct DayGridParts
{
    PenSet pens;
    BoxFonts fonts;
    TextCache texts; // in these fonts and in those of the items

    // Everything goes with the window.
    void Clear()
    {
        pens.Clear();
        fonts.Clear();
        texts.Clear();
    }
};

} // namespace dayvane
