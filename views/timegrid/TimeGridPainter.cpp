#include "views/timegrid/TimeGridPainter.h"

#include <algorithm>
#include <utility>

namespace dayvane {
namespace {
// Pixels.
struct GridPaintMetrics
{
    int rulerLineInset = 2; // the hour lines stay so far from the ruler's edges
    int hourRight = 24;     // between the hour numbers and the ruler's right edge
    int zerosRight = 5;     // between the zeros and that edge
    int currentFrame = 2;   // thickness of the outline of the current item
    int stripeWidth = 2;    // the shaded part of a box, inside its left edge
    int stripedWidth = 16;  // a narrower box has none
    int textInset = 2;      // from a box to its text, above, below and at the right
    int textLeft = 3;       // and at the left
    int letterWidth = 6;    // the least room for a text
    int letterHeight = 8;
    int timesWidth = 70;     // of "00:00 - 00:00"
    int twoLinesHeight = 24; // a lower box shows one line
    int nowLineHeight = 2;
};
constexpr GridPaintMetrics kPaint;

enum : int
{
    OUTLINE = 1 // thickness of an ordinary outline
};
} // namespace

TimeGridPainter::TimeGridPainter(CDC* pDC, const TimeGridState& state, const CalendarColors& colors)
    : m_pDC(pDC), m_state(state), m_colors(colors)
{
    pDC->GetClipBox(&m_clip);
}

bool TimeGridPainter::IsVisible(const CRect& rect) const
{
    CRect seen;
    return seen.IntersectRect(&rect, &m_clip) != FALSE;
}

bool TimeGridPainter::ShowsTimedItem(const tagCALENDAR_ITEM& item) const
{
    const CRect box = ScrolledBox(item);
    return item.rcItem.top != -1 && box.bottom > m_state.frame.grid.top && IsVisible(box) && !IsBandItem(item);
}

CRect TimeGridPainter::ScrolledBox(const tagCALENDAR_ITEM& item) const
{
    CRect box = item.rcItem;
    box.OffsetRect(0, -m_state.scroll);
    if (box.bottom < box.top) {
        std::swap(box.top, box.bottom);
    }
    box.bottom = std::max<int>(box.bottom, box.top + OUTLINE);
    return box;
}

void TimeGridPainter::HorizontalLine(int left, int right, int y, COLORREF color)
{
    if (right > left && y >= m_clip.top && y < m_clip.bottom) {
        m_pDC->FillSolidRect(left, y, right - left, 1, color);
    }
}

void TimeGridPainter::VerticalLine(int x, int top, int bottom, COLORREF color)
{
    if (bottom > top && x >= m_clip.left && x < m_clip.right) {
        m_pDC->FillSolidRect(x, top, 1, bottom - top, color);
    }
}

// ---- Ruler and full-day band

void TimeGridPainter::DrawRulerEdge()
{
    VerticalLine(kTimeGrid.rulerRight, m_state.frame.fulldayRuler.top,
                 std::max(m_state.frame.ruler.bottom, m_state.frame.fulldayRuler.bottom), m_colors.grid);
}

void TimeGridPainter::DrawRuler(const CRect& ruler, CFont* hours, CFont* zeros)
{
    if (!IsVisible(ruler)) {
        return;
    }
    m_pDC->FillSolidRect(&ruler, m_colors.ruler);
    m_pDC->SetTextColor(m_colors.rulerText);
    const int hourHeight = m_state.scale.HourHeight();
    for (int hour = 0; hour <= kHoursPerDay; ++hour) {
        const int top = ruler.top - m_state.scroll + hour * hourHeight;
        if (!IsVisible(CRect(ruler.left, top, ruler.right, top + hourHeight))) {
            continue;
        }
        HorizontalLine(ruler.left + kPaint.rulerLineInset, ruler.right - kPaint.rulerLineInset, top,
                       m_colors.rulerText);
        if (hour == kHoursPerDay) {
            break; // the grid's end: a line without a number
        }
        CString number;
        number.Format("%d", hour);
        CRect area(ruler.left, top, ruler.right - kPaint.hourRight, top + hourHeight);
        {
            const SelectGdi selectFont(m_pDC, hours);
            m_pDC->DrawText(number, &area, DT_SINGLELINE | DT_VCENTER | DT_RIGHT);
        }
        area.left = area.right;
        area.right = ruler.right - kPaint.zerosRight;
        const SelectGdi selectFont(m_pDC, zeros);
        m_pDC->DrawText(":00", &area, DT_SINGLELINE | DT_VCENTER | DT_RIGHT);
    }
}

void TimeGridPainter::DrawFulldayRuler(const CRect& band, CFont* label)
{
    if (!IsVisible(band)) {
        return;
    }
    m_pDC->FillSolidRect(&band, m_colors.ruler);
    m_pDC->SetTextColor(m_colors.rulerText);
    CRect area = band;
    const SelectGdi selectFont(m_pDC, label);
    m_pDC->DrawText("終日", &area, DT_SINGLELINE | DT_VCENTER | DT_RIGHT);
}

void TimeGridPainter::DrawFulldayContent(const CRect& band, const std::vector<CRect>& selected)
{
    if (!IsVisible(band)) {
        return;
    }
    m_pDC->FillSolidRect(&band, m_colors.content);
    for (const CRect& part : selected) {
        m_pDC->FillSolidRect(CRect(part.left, band.top, part.right, band.bottom), m_colors.highlight);
    }
    HorizontalLine(band.left, band.right, band.top, m_colors.grid);
    HorizontalLine(band.left, band.right, band.bottom - 1, m_colors.grid);
    VerticalLine(band.left, band.top, band.bottom, m_colors.grid);
    VerticalLine(band.right, band.top, band.bottom, m_colors.grid);
}

// ---- Grid

void TimeGridPainter::DrawGridBackground(const CRect& grid)
{
    if (!IsVisible(grid)) {
        return;
    }
    CBrush brush(m_colors.content);
    const SelectGdi selectBrush(m_pDC, &brush);
    m_pDC->Rectangle(&grid);
}

RowRange TimeGridPainter::VisibleRows(const CRect& grid) const
{
    const int top = std::max(m_clip.top, grid.top) - grid.top + m_state.scroll;
    const int bottom = std::min(m_clip.bottom, grid.bottom) - grid.top + m_state.scroll;
    // The row behind the last is painted too: it closes the day.
    return RowRange{std::max(top / kTimeGrid.rowHeight, 0),
                    std::min((bottom + kTimeGrid.rowHeight - 1) / kTimeGrid.rowHeight, m_state.scale.RowsPerDay() + 1)};
}

void TimeGridPainter::DrawRows(const CRect& column, const RowRange& rows, const std::vector<RowLook>& looks)
{
    if (column.IsRectEmpty() || rows.end <= rows.first) {
        return;
    }
    const int top = column.top - m_state.scroll;
    int filled = rows.first;
    for (int row = rows.first; row < rows.end; ++row) {
        // Rows of one colour are filled together.
        const bool isLast = row + 1 == rows.end;
        if (isLast || looks[row + 1 - rows.first].fill != looks[row - rows.first].fill) {
            const int from = top + m_state.scale.TopOfRow(filled);
            const int to = top + m_state.scale.TopOfRow(row + 1);
            m_pDC->FillSolidRect(column.left, from, column.Width(), to - from, looks[row - rows.first].fill);
            filled = row + 1;
        }
    }
    for (int row = rows.first; row < rows.end; ++row) {
        HorizontalLine(column.left, column.right, top + m_state.scale.TopOfRow(row), looks[row - rows.first].line);
    }
}

void TimeGridPainter::DrawSeparators(const CRect& area, const std::vector<CRect>& columns)
{
    for (const CRect& column : columns) {
        VerticalLine(column.left, area.top, area.bottom, m_colors.grid);
    }
}

void TimeGridPainter::DrawNowLine(const CRect& column, const ClockTime& now)
{
    const int minute = now.hour * kMinutesPerHour + now.minute;
    const int y = column.top - m_state.scroll + minute * m_state.scale.HourHeight() / kMinutesPerHour;
    const CRect line(column.left, y, column.right, y + kPaint.nowLineHeight);
    if (now.isValid && y >= column.top && IsVisible(line)) {
        m_pDC->FillSolidRect(&line, kTimeGridPalette.nowLine);
    }
}

// ---- Items

// Lines along the edges: those above and below always. Thicker lines lie astride the edge.
void TimeGridPainter::DrawBoxEdges(const CRect& box, COLORREF color, int thickness, bool left, bool right)
{
    const int out = thickness / 2;
    const CRect outer(box.left - out, box.top - out, box.right - 1 - out + thickness, box.bottom - 1 - out + thickness);
    m_pDC->FillSolidRect(outer.left, outer.top, outer.Width(), thickness, color);
    m_pDC->FillSolidRect(outer.left, outer.bottom - thickness, outer.Width(), thickness, color);
    if (left) {
        m_pDC->FillSolidRect(outer.left, outer.top, thickness, outer.Height(), color);
    }
    if (right) {
        m_pDC->FillSolidRect(outer.right - thickness, outer.top, thickness, outer.Height(), color);
    }
}

void TimeGridPainter::DrawStripe(const CRect& box, COLORREF color)
{
    if (box.Width() >= kPaint.stripedWidth && box.Height() > 2 * OUTLINE) {
        m_pDC->FillSolidRect(box.left + OUTLINE, box.top + OUTLINE, kPaint.stripeWidth, box.Height() - 2 * OUTLINE,
                             color);
    }
}

CRect TimeGridPainter::DrawTimedBox(const tagCALENDAR_ITEM& item, const CRect& box, int end, bool isCurrent)
{
    CRect seen = box;
    seen.right = std::min<int>(box.right, end);
    m_pDC->FillSolidRect(&seen, item.crColor2);
    DrawStripe(seen, item.crColor3);
    DrawBoxEdges(seen, isCurrent ? m_colors.highlight : item.crColor4, isCurrent ? kPaint.currentFrame : OUTLINE, true,
                 box.right <= end);
    CRect content = seen;
    content.DeflateRect(kPaint.textInset, kPaint.textInset);
    content.left = seen.left + kPaint.textLeft;
    // The text of a box that is partly scrolled away stays in sight.
    if (content.top < m_state.frame.grid.top) {
        content.top = m_state.frame.grid.top + kPaint.textInset;
    }
    return content;
}

CRect TimeGridPainter::DrawBandBar(const tagCALENDAR_ITEM& item, const CRect& band, bool isCurrent)
{
    const CRect& box = item.rcItem;
    const bool goesOn = item.nPiece == PIECE_HEAD || item.nPiece == PIECE_MIDDLE;
    const bool began = item.nPiece == PIECE_TAIL || item.nPiece == PIECE_MIDDLE;
    m_pDC->FillSolidRect(&box, item.crColor2);
    if (!began) {
        DrawStripe(box, item.crColor3);
    }
    DrawBoxEdges(box, isCurrent ? m_colors.highlight : item.crColor4, isCurrent ? kPaint.currentFrame : OUTLINE, !began,
                 !goesOn);
    CRect content = box;
    content.DeflateRect(kPaint.textInset, kPaint.textInset);
    content.left = box.left + kPaint.textLeft;
    if (content.top < band.top) {
        content.top = band.top + kPaint.textInset;
    }
    return content;
}

void TimeGridPainter::DrawTimedText(const tagCALENDAR_ITEM& item, const CRect& content, bool timesWhereTheyFit)
{
    if (content.Width() < kPaint.letterWidth || content.Height() < kPaint.letterHeight || !IsVisible(content)) {
        return;
    }
    m_pDC->SetTextColor(item.crColor5);
    CRect area = content;
    CString text = TimedItemText(item);
    if (timesWhereTheyFit &&
        (content.Width() < kPaint.timesWidth || (content.Height() < kPaint.twoLinesHeight && !item.strText.IsEmpty() &&
                                                 m_pDC->GetTextExtent(text).cx > content.Width()))) {
        text = item.strText;
    }
    m_pDC->DrawText(text, &area, DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL);
}

void TimeGridPainter::DrawBandText(const tagCALENDAR_ITEM& item, const CRect& content)
{
    if (content.Width() < kPaint.letterWidth || content.Height() < kPaint.letterHeight || !IsVisible(content)) {
        return;
    }
    m_pDC->SetTextColor(item.crColor5);
    const UINT side = item.nPiece == PIECE_MIDDLE ? DT_CENTER : item.nPiece == PIECE_TAIL ? DT_RIGHT : DT_LEFT;
    CRect area = content;
    m_pDC->DrawText(BandItemText(item), &area,
                    side | DT_VCENTER | DT_WORDBREAK | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

} // namespace dayvane
