// Breaking a text into lines and cutting what does not fit.
#pragma once

#include "Page.h"

namespace dayvane {

struct TextLine
{
    std::u16string text;
    int width;
    bool isCut; // its end is left out, or its last word broken
};

struct LineRoom
{
    int first;    // width of the first line
    int next;     // of the others
    int most = 0; // lines; what is too much ends in an ellipsis. 0: as many as it takes
};

// A line ends at blanks, or between Japanese characters where their rules allow it (no line begins with a closing mark
// or ends with an opening one); a word that is too long is broken anywhere. A first line too narrow for its first word
// stays empty when the next ones are wider. Never fewer than one character a line.
std::vector<TextLine> BreakText(const std::u16string& text, const PageFont& font, const LineRoom& room,
                                const TextMeasurer& measurer);

// The text, or as much of it as fits with an ellipsis; empty when not even that fits.
TextLine CutText(const std::u16string& text, const PageFont& font, int width, const TextMeasurer& measurer);

// Control characters become blanks, blanks at the ends go.
std::u16string OneLine(const std::u16string& text);

} // namespace dayvane
