// Texts whose characters are in several faces, and how they break into lines; without a device.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace dayvane {

// Units [from, to) of one face; face 0 is the selected one.
struct TextRun
{
    std::size_t from;
    std::size_t to;
    int face;

    friend bool operator==(const TextRun& a, const TextRun& b)
    {
        return a.from == b.from && a.to == b.to && a.face == b.face;
    }
};

// faceOf: the face for a character. What joins a character (accents, joiners, variants) stays in its run.
std::vector<TextRun> SplitRuns(std::u16string_view text, const std::function<int(char32_t)>& faceOf);

// The lines of a text whose units end at these positions (pixels from its beginning), as DT_WORDBREAK | DT_EDITCONTROL
// breaks it: at blanks and around East Asian characters, within a word that is wider than a line, and at line breaks,
// which belong to no line. At least one character a line.
struct MixedLine
{
    std::size_t from;
    std::size_t to;
};
std::vector<MixedLine> BreakLines(std::u16string_view text, const std::vector<int>& ends, int width);

} // namespace dayvane
