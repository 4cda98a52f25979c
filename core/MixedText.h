// Text of which the selected face lacks some characters: each of these comes from a face of the system that has it.
#pragma once

#include "TextRuns.h"

#include <afxwin.h>

#include <string>
#include <vector>

namespace dayvane {

// Whether some character is not in the selected face, but in another one, or is beyond the basic plane, as emoji are,
// and in any face. Cheap for what the face has.
bool IsMixedText(HDC hDC, const std::u16string& text);

// The face of the system for a character that the selected face lacks, from 1; 0: it has it, or no other one does. For
// characters beyond the basic plane it may be the selected one.
int FallbackFace(HDC hDC, char32_t character);
const std::wstring& FallbackFaceName(int face);

// One face for a whole text, where only one can be, as in an edit box: a new font like the selected one, of a face that
// has more of its characters, all of them if possible; nullptr: there is no better one. The caller deletes it.
HFONT NewFontForText(HDC hDC, const std::u16string& text);

// One measured text; the font that is selected when it is made must be selected when it is drawn.
class MixedText
{
public:
    MixedText(HDC hDC, const std::u16string& text);
    ~MixedText();
    MixedText(const MixedText&) = delete;
    MixedText& operator=(const MixedText&) = delete;

    const std::vector<int>& Ends() const { return m_ends; } // of each unit, pixels from the beginning
    int Width() const { return m_ends.empty() ? 0 : m_ends.back(); }
    int Height() const { return m_height; } // of a line of the selected font

    // The units [from, to) with their upper left corner at the point, within the rectangle only.
    void Draw(int x, int y, const CRect& clip, std::size_t from, std::size_t to) const;

private:
    void Measure(const TextRun& run);
    void DrawRun(int x, int y, const CRect& clip, std::size_t from, std::size_t to) const;

    HDC m_hDC;
    std::u16string m_text;
    std::vector<TextRun> m_runs;
    std::vector<int> m_ends;
    std::vector<HFONT> m_fonts; // by run; null: the selected one
    int m_height = 0;
    int m_ascent = 0;
};

} // namespace dayvane
