// What a month, week or year view keeps for its painting and of its layout; its public header does without these types.
#pragma once

#include "../../core/ClipArea.h"
#include "../../core/DrawnTexts.h"
#include "../../core/GdiPens.h"
#include "../../core/IconPixels.h"
#include "../../core/TextCache.h"
#include "BarBoard.h"
#include "BoxFonts.h"
#include "BoxLines.h"
#include "RowPieces.h"

namespace dayvane {

struct DayGridParts
{
    PaintClip clip;
    PenSet pens;
    BoxFonts fonts;
    TextCache texts; // in these fonts and in those of the items
    DrawnTexts drawn;
    IconPixels moreMark;
    BoxLines lines;

    // What was last made of the store, so that after a change of few items only their rows are laid out again.
    DayRows rows;
    BarBoard board;          // empty: all is to be made anew
    std::vector<int> remade; // positions of the pieces that are there anew but not laid out

    // Everything goes with the window.
    void Clear()
    {
        pens.Clear();
        fonts.Clear();
        texts.Clear();
        drawn.Clear();
        moreMark = IconPixels(); // another icon may get its handle
    }
};

} // namespace dayvane
