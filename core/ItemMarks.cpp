// The alarm and recurrence marks of an item.
#include "core/DrawingHelpers.h"
#include "core/Fonts.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace dayvane {
namespace {

constexpr int kMarkColumns = 9;
constexpr int kPixelHeight = 12; // of the font that the pixels stand for

// A string per row of pixels, '#' for a pixel.
constexpr const char* kBell[] = {
    "....#....", "...###...", "..#####..", "..#####..", "..#####..",
    "..#####..", ".#######.", "#########", ".........", "...###...",
};
constexpr const char* kChasingArrows[] = {
    "..###.#..", ".#...##..", "#...###..", "#........", ".........", "........#", "..###...#", "..##...#.", "..#.###..",
};

// A substitute for the symbol face would show plain letters, so the face itself must be there.
bool HasSymbolFace(CDC* pDC, const LOGFONT& lf)
{
    // Looked up once a face: fonts are seldom installed while a program runs, and the look-up is slow.
    static char askedFace[LF_FACESIZE] = "";
    static bool installed = false;
    if (std::strcmp(askedFace, lf.lfFaceName) != 0) {
        installed = IsFaceInstalled(pDC->GetSafeHdc(), lf.lfFaceName, lf.lfCharSet);
        lstrcpynA(askedFace, lf.lfFaceName, LF_FACESIZE);
    }
    return installed;
}

void DrawPixels(CDC* pDC, int left, int top, const char* const* rows, int rowCount)
{
    std::vector<POINT> ends;
    for (int row = 0; row < rowCount; ++row) {
        for (int begin = 0; begin < kMarkColumns; ++begin) {
            int end = begin;
            while (end < kMarkColumns && rows[row][end] == '#') {
                ++end;
            }
            if (end > begin) {
                ends.push_back({left + begin, top + row});
                ends.push_back({left + end, top + row});
                begin = end;
            }
        }
    }
    constexpr DWORD kEnds = 2; // of a line
    const std::vector<DWORD> counts(ends.size() / kEnds, kEnds);
    CPen pen(PS_SOLID, 1, pDC->GetTextColor());
    const SelectGdi selectPen(pDC, &pen);
    ::PolyPolyline(pDC->GetSafeHdc(), ends.data(), counts.data(), static_cast<DWORD>(counts.size()));
}

// At other sizes than the pixels' own the marks are drawn from their outlines, in thousandths of a pixel of theirs.
constexpr int kThousandths = 1000;
constexpr POINT kBellOutline[] = {{4000, 0},    {5000, 0},    {5300, 1000}, {6700, 1900}, {7200, 3500},
                                  {7200, 5800}, {9000, 7400}, {9000, 8000}, {0, 8000},    {0, 7400},
                                  {1800, 5800}, {1800, 3500}, {2300, 1900}, {3700, 1000}};
constexpr POINT kBellClapper[] = {{3000, 8900}, {6000, 8900}, {5300, 10000}, {3700, 10000}};
constexpr POINT kUpperHead[] = {{7600, 0}, {7600, 3200}, {4400, 3200}};
constexpr POINT kLowerHead[] = {{1400, 9000}, {1400, 5800}, {4600, 5800}};
constexpr POINT kUpperArc[] = {{7000, 1700}, {5700, 800}, {4300, 500}, {2900, 800},
                               {1700, 1600}, {800, 2900}, {500, 4300}};
constexpr POINT kLowerArc[] = {{2000, 7300}, {3300, 8200}, {4700, 8500}, {6100, 8200},
                               {7300, 7400}, {8200, 6100}, {8500, 4700}};

class MarkOutlines
{
public:
    // height: of the mark's font, whose pixels are made for 12.
    MarkOutlines(CDC* pDC, CPoint origin, int height)
        : m_pDC(pDC), m_origin(origin), m_height(height),
          m_pen(PS_SOLID, std::max(1, height / kPixelHeight), pDC->GetTextColor()), m_brush(pDC->GetTextColor())
    {
    }

    template <int Count>
    void Fill(const POINT (&outline)[Count]) const
    {
        POINT points[Count];
        Place(outline, Count, points);
        CPen thin(PS_SOLID, 1, m_pDC->GetTextColor());
        const SelectGdi selectPen(m_pDC, &thin);
        const SelectGdi selectBrush(m_pDC, const_cast<CBrush*>(&m_brush));
        m_pDC->Polygon(points, Count);
    }

    template <int Count>
    void Stroke(const POINT (&line)[Count]) const
    {
        POINT points[Count];
        Place(line, Count, points);
        const SelectGdi selectPen(m_pDC, const_cast<CPen*>(&m_pen));
        m_pDC->Polyline(points, Count);
    }

private:
    void Place(const POINT* from, int count, POINT* to) const
    {
        for (int i = 0; i < count; ++i) {
            to[i].x = m_origin.x + MulDiv(from[i].x, m_height, kThousandths * kPixelHeight);
            to[i].y = m_origin.y + MulDiv(from[i].y, m_height, kThousandths * kPixelHeight);
        }
    }

    CDC* m_pDC;
    CPoint m_origin;
    int m_height;
    CPen m_pen;
    CBrush m_brush;
};

void DrawBellOutline(const MarkOutlines& mark)
{
    mark.Fill(kBellOutline);
    mark.Fill(kBellClapper);
}

void DrawArrowOutlines(const MarkOutlines& mark)
{
    mark.Stroke(kUpperArc);
    mark.Stroke(kLowerArc);
    mark.Fill(kUpperHead);
    mark.Fill(kLowerHead);
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
             void (*drawOutlines)(const MarkOutlines&), BOOL bCentered)
{
    if (HasSymbolFace(pDC, lfMarks)) {
        return DrawSymbol(pDC, rect, lfMarks, glyph, bCentered);
    }
    const int height = std::abs(static_cast<int>(lfMarks.lfHeight));
    const bool hasOwnSize = height == kPixelHeight || height == 0;
    const int width = hasOwnSize ? kMarkColumns : MulDiv(kMarkColumns, height, kPixelHeight);
    if (rect.left + width >= rect.right) {
        return 0;
    }
    const int spare = rect.Height() - (hasOwnSize ? Rows : MulDiv(Rows, height, kPixelHeight));
    const int top = rect.top + (bCentered ? spare / 2 : 1);
    if (hasOwnSize) {
        DrawPixels(pDC, rect.left, top, pixels, Rows);
    } else {
        drawOutlines(MarkOutlines(pDC, CPoint(rect.left, top), height));
    }
    return width;
}

} // namespace

int DrawAlarmGlyph(CDC* pDC, const CRect& rect, const LOGFONT& lfMarks, BOOL bCentered)
{
    return DrawMark(pDC, rect, lfMarks, "A", kBell, &DrawBellOutline, bCentered);
}

int DrawRecurrenceGlyph(CDC* pDC, const CRect& rect, const LOGFONT& lfMarks, BOOL bCentered)
{
    return DrawMark(pDC, rect, lfMarks, "C", kChasingArrows, &DrawArrowOutlines, bCentered);
}

} // namespace dayvane
