#include "core/TextRuns.h"

#include "core/Utf16.h"

namespace dayvane {
namespace {

constexpr char16_t kFirstEastAsian = 0x2E80; // radicals, kana, ideographs, Hangul

bool JoinsTheCharacterBefore(char32_t character)
{
    return (character >= 0x300 && character < 0x370) || (character >= 0x20D0 && character < 0x2100) ||
           (character >= 0xFE00 && character < 0xFE10) || character == 0x200D ||
           (character >= 0x1F3FB && character <= 0x1F3FF);
}

bool IsBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t';
}

bool IsLineBreak(char16_t unit)
{
    return unit == u'\n' || unit == u'\r';
}

bool MayBreakBefore(std::u16string_view text, std::size_t at)
{
    return !IsTrail(text[at]) && !JoinsTheCharacterBefore(text[at]) &&
           (IsBlank(text[at - 1]) || text[at] >= kFirstEastAsian || text[at - 1] >= kFirstEastAsian);
}

// The end of the line that begins at `from`, in a paragraph that ends at `end`.
std::size_t EndOfLine(std::u16string_view text, const std::vector<int>& ends, std::size_t from, std::size_t end,
                      int width)
{
    const int start = from > 0 ? ends[from - 1] : 0;
    std::size_t fit = from;
    while (fit < end && (IsBlank(text[fit]) || ends[fit] - start <= width)) { // blanks hang over
        ++fit;
    }
    if (fit == end) {
        return end;
    }
    for (std::size_t at = fit; at > from; --at) {
        if (MayBreakBefore(text, at)) {
            return at;
        }
    }
    fit = fit > from ? fit : from + 1;
    while (fit < end && (IsTrail(text[fit]) || JoinsTheCharacterBefore(text[fit]))) {
        ++fit;
    }
    return fit;
}

} // namespace

std::vector<TextRun> SplitRuns(std::u16string_view text, const std::function<int(char32_t)>& faceOf)
{
    std::vector<TextRun> runs;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t from = at;
        const char32_t character = TakeCharacter(text, at);
        const bool joins = JoinsTheCharacterBefore(character) && !runs.empty();
        const int face = joins ? runs.back().face : faceOf(character);
        if (!runs.empty() && runs.back().face == face) {
            runs.back().to = at;
        } else {
            runs.push_back({from, at, face});
        }
    }
    return runs;
}

std::vector<MixedLine> BreakLines(std::u16string_view text, const std::vector<int>& ends, int width)
{
    std::vector<MixedLine> lines;
    for (std::size_t from = 0; from < text.size();) {
        std::size_t end = from;
        while (end < text.size() && !IsLineBreak(text[end])) {
            ++end;
        }
        for (std::size_t at = from; at < end || at == from;) {
            const std::size_t to = EndOfLine(text, ends, at, end, width);
            lines.push_back({at, to});
            at = to > at ? to : at + 1;
        }
        from = end + (end + 1 < text.size() && text[end] == u'\r' && text[end + 1] == u'\n' ? 2 : 1);
    }
    return lines;
}

} // namespace dayvane
