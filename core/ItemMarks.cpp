// The alarm and recurrence marks of an item.
#include "core/DrawingHelpers.h"

#include <cstring>

namespace dayvane {
namespace {

constexpr int kMarkColumns = 9;

// A string per row of pixels, '#' for a pixel.
constexpr const char* kBell[] = {
    "....#....", "...###...", "..#####..", "..#####..", "..#####..",
    "..#####..", ".#######.", "#########", ".........", "...###...",
};
constexpr const char* kChasingArrows[] = {
    "..###.#..", ".#...##..", "#...###..", "#........", ".........", "........#", "..###...#", "..##...#.", "..#.###..",
};

int CALLBACK FoundFace(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM lParam)
{
    *reinterpret_cast<bool*>(lParam) = true;
    return 0;
}

// A substitute for the symbol face would show plain letters, so the face itself must be there.
bool IsFaceInstalled(CDC* pDC, const LOGFONT& lf)
{
    LOGFONT wanted = {};
    wanted.lfCharSet = lf.lfCharSet;
    lstrcpynA(wanted.lfFaceName, lf.lfFaceName, LF_FACESIZE);
    bool found = false;
    ::EnumFontFamiliesExA(pDC->GetSafeHdc(), &wanted, FoundFace, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

bool HasSymbolFace(CDC* pDC, const LOGFONT& lf)
{
    // Looked up once a face: fonts are seldom installed while a program runs, and the look-up is slow.
    static char askedFace[LF_FACESIZE] = "";
    static bool installed = false;
    if (std::strcmp(askedFace, lf.lfFaceName) != 0) {
        installed = IsFaceInstalled(pDC, lf);
        lstrcpynA(askedFace, lf.lfFaceName, LF_FACESIZE);
    }
    return installed;
}

void DrawPixels(CDC* pDC, int left, int top, const char* const* rows, int rowCount)
{
    CPen pen(PS_SOLID, 1, pDC->GetTextColor());
    SelectGdi selectPen(pDC, &pen);
    for (int row = 0; row < rowCount; ++row) {
        for (int begin = 0; begin < kMarkColumns; ++begin) {
            int end = begin;
            while (end < kMarkColumns && rows[row][end] == '#') {
                ++end;
            }
            if (end > begin) {
                pDC->MoveTo(left + begin, top + row);
                pDC->LineTo(left + end, top + row);
                begin = end;
            }
        }
    }
}

int DrawSymbol(CDC* pDC, const CRect& rect, const LOGFONT& lfMarks, const char* glyph, BOOL bCentered)
{
    CFont font;
    if (!font.CreateFontIndirect(&lfMarks)) {
        return 0;
    }
    SelectGdi selectFont(pDC, &font);
    SIZE size = {};
    ::GetTextExtentPoint32A(pDC->GetSafeHdc(), glyph, 1, &size);
    if (rect.left + size.cx >= rect.right) {
        return 0;
    }
    CRect area = rect;
    const UINT vertical = bCentered ? DT_VCENTER : DT_TOP;
    ::DrawTextA(pDC->GetSafeHdc(), glyph, 1, &area, DT_SINGLELINE | DT_NOPREFIX | DT_LEFT | vertical);
    return size.cx;
}

template <int Rows>
int DrawMark(CDC* pDC, const CRect& rect, const LOGFONT& lfMarks, const char* glyph, const char* const (&pixels)[Rows],
             BOOL bCentered)
{
    if (HasSymbolFace(pDC, lfMarks)) {
        return DrawSymbol(pDC, rect, lfMarks, glyph, bCentered);
    }
    if (rect.left + kMarkColumns >= rect.right) {
        return 0;
    }
    const int spare = rect.Height() - Rows;
    DrawPixels(pDC, rect.left, rect.top + (bCentered ? spare / 2 : 1), pixels, Rows);
    return kMarkColumns;
}

} // namespace

int DrawAlarmGlyph(CDC* pDC, const CRect& rect, const LOGFONT& lfMarks, BOOL bCentered)
{
    return DrawMark(pDC, rect, lfMarks, "A", kBell, bCentered);
}

int DrawRecurrenceGlyph(CDC* pDC, const CRect& rect, const LOGFONT& lfMarks, BOOL bCentered)
{
    return DrawMark(pDC, rect, lfMarks, "C", kChasingArrows, bCentered);
}

} // namespace dayvane
