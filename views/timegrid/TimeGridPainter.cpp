#include "views/timegrid/TimeGridPainter.h"

#include "core/DateMath.h"
#include "core/DayLinePainter.h"
#include "core/WideText.h"

#include <algorithm>

namespace dayvane {
namespace {
// Pixels.
struct GridPaintMetrics
{
    int currentFrame = 2;  // thickness of the outline of the current item
    int stripeWidth = 2;   // the shaded part of a box, inside its left edge
    int stripedWidth = 16; // a narrower box has none
    int letterWidth = 6;   // the least room for a text
    int letterHeight = 8;
    int timesWidth = 70;     // of "00:00 - 00:00"
    int twoLinesHeight = 24; // a lower box shows one line
    int nowLineHeight = 2;
};
constexpr GridPaintMetrics kPaint;

constexpr int kRulerYear = 2000; // any year: of its days only the hours are shown

enum : int
{
    OUTLINE = 1 // thickness of an ordinary outline
};
} // namespace

TimeGridPainter::TimeGridPainter(CDC& dc, TimeGridTools& tools, const TimeGridState& state,
                                 const CalendarColors& colors, const CalendarTheme& theme)
    : m_dc(dc), m_tools(tools), m_state(state), m_colors(colors), m_theme(theme), m_clip(tools.clip.Of(dc))
{
}

bool TimeGridPainter::IsVisible(const CRect& rect) const
{
    return m_clip->Intersects(rect);
}

bool TimeGridPainter::ShowsTimedItem(const tagCALENDAR_ITEM& item, int marksHeight) const
{
    CRect box = item.rcItem;
    box.OffsetRect(0, -m_state.scroll);
    box.NormalizeRect();
    box.bottom = std::max<int>(box.bottom, std::max(box.top, m_state.frame.grid.top) + marksHeight);
    box.InflateRect(Px(kPaint.currentFrame), Px(kPaint.currentFrame));
    return IsVisible(box) && IsBoxInSight(m_state, item);
}

void TimeGridPainter::Fill(CRect rect, COLORREF color) const
{
    rect.NormalizeRect();
    if (!m_clip->Fill(rect, color)) {
        FillBySystem(rect, color);
    }
}

void TimeGridPainter::FillNext(CRect rect, COLORREF color) const
{
    rect.NormalizeRect();
    if (!m_clip->FillNext(rect, color)) {
        FillBySystem(rect, color);
    }
}

void TimeGridPainter::FillBySystem(const CRect& rect, COLORREF color) const
{
    m_tools.pens.Fill(&m_dc, rect, color);
    ::GdiFlush(); // what is filled next may not wait for it
}

void TimeGridPainter::DrawLineOfText(CFont* font, const std::u16string& text, const CRect& rect, UINT format) const
{
    m_tools.drawn.Draw(m_dc, *m_clip, {font, text, rect, format, true},
                       [&] { DrawWideText(m_dc, text, rect, format); });
}

void TimeGridPainter::HorizontalLine(int left, int right, int y, COLORREF color) const
{
    if (right > left && y >= m_clip->Box().top && y < m_clip->Box().bottom) {
        Fill(CRect(left, y, right, y + 1), color);
    }
}

void TimeGridPainter::VerticalLine(int x, int top, int bottom, COLORREF color) const
{
    if (bottom > top && x >= m_clip->Box().left && x < m_clip->Box().right) {
        Fill(CRect(x, top, x + 1, bottom), color);
    }
}

// ---- Ruler and full-day band

void TimeGridPainter::DrawRulerEdge() const
{
    VerticalLine(m_state.frame.grid.left - 1, m_state.frame.fulldayRuler.top,
                 std::max(m_state.frame.ruler.bottom, m_state.frame.fulldayRuler.bottom), m_colors.grid);
}

void TimeGridPainter::DrawRuler(const CRect& ruler, CFont* hours, CFont* zeros, const TextSettings& texts) const
{
    if (!IsVisible(ruler)) {
        return;
    }
    Fill(ruler, m_colors.ruler);
    m_dc.SetTextColor(m_colors.rulerText);
    constexpr UINT format = DT_SINGLELINE | DT_VCENTER | DT_RIGHT;
    const std::vector<RulerHour> places = PlaceRulerHours(ruler, m_state.scroll, m_state.scale);
    for (int hour = 0; hour <= kHoursPerDay; ++hour) {
        const RulerHour& place = places[hour];
        if (!IsVisible(place.box)) {
            continue;
        }
        HorizontalLine(place.line.left, place.line.right, place.line.top, m_colors.rulerText);
        if (hour == kHoursPerDay) {
            break; // the grid's end: a line without a number
        }
        const COleDateTime time(kRulerYear, 1, 1, hour, 0, 0);
        DrawLineOfText(hours, texts.Date(&CalendarTexts::hour, time), place.number, format);
        DrawLineOfText(zeros, texts.Date(&CalendarTexts::hourRest, time), place.rest, format);
    }
}

void TimeGridPainter::DrawFulldayRuler(const CRect& band, TimeGridFonts& fonts, const std::u16string& text) const
{
    if (!IsVisible(band)) {
        return;
    }
    Fill(band, m_colors.ruler);
    m_dc.SetTextColor(m_colors.rulerText);
    const SelectGdi selectLabel(&m_dc, fonts.Label());
    const SelectGdi selectFont(&m_dc, fonts.LabelWithin(band.Width(), WideTextExtent(m_dc, text).cx));
    DrawWideText(m_dc, text, band, DT_SINGLELINE | DT_VCENTER | DT_RIGHT);
}

void TimeGridPainter::DrawZoneHours(const ZoneColumns& columns, const std::vector<ZoneHour>& hours, CFont* label) const
{
    constexpr UINT format = DT_SINGLELINE | DT_NOPREFIX;
    const COLORREF alert = DayLineColors::Of(m_theme).dayOff;
    const int lineHeight = DayLineMetrics::For(m_state.scale.metrics.scale).lineHeight;
    Fill(columns.other, m_colors.ruler);
    const SelectGdi selectFont(&m_dc, label);
    const std::vector<ZoneHourPlaces> places = PlaceZoneHours(columns, lineHeight, m_state.scroll, m_state.scale);
    for (size_t i = 0; i < hours.size(); ++i) {
        if (!IsVisible(places[i].box)) {
            continue;
        }
        if (!columns.other.IsRectEmpty()) {
            Fill(places[i].line, m_colors.rulerText);
            m_dc.SetTextColor(m_colors.rulerText);
            DrawWideText(m_dc, OwnText(hours[i].other), places[i].clock, format | DT_VCENTER | DT_RIGHT);
            m_dc.SetTextColor(alert);
            DrawWideText(m_dc, OwnText(hours[i].otherDate), places[i].date, format | DT_LEFT);
        }
        if (!hours[i].change.IsEmpty()) {
            Fill(places[i].change, ThemeOr(m_theme.selection, kTimeGridPalette.changedHour));
            m_dc.SetTextColor(alert);
            DrawWideText(m_dc, OwnText(hours[i].change), places[i].change, format | DT_VCENTER | DT_CENTER);
        }
    }
}

// The names of the zones stand over their rulers, where the band is.
void TimeGridPainter::DrawZoneLabels(const ZoneColumns& columns, const ZoneRuler& zones, CFont* label) const
{
    constexpr UINT format = DT_SINGLELINE | DT_NOPREFIX | DT_CENTER | DT_BOTTOM | DT_END_ELLIPSIS;
    const SelectGdi selectFont(&m_dc, label);
    m_dc.SetTextColor(m_colors.rulerText);
    DrawWideText(m_dc, OwnText(zones.otherLabel), columns.other, format);
    DrawWideText(m_dc, OwnText(zones.ownLabel), columns.own, format);
}

void TimeGridPainter::DrawFulldayContent(const CRect& band, const std::vector<CRect>& selected) const
{
    if (!IsVisible(band)) {
        return;
    }
    Fill(band, m_colors.content);
    for (const CRect& part : selected) {
        Fill(CRect(part.left, band.top, part.right, band.bottom), m_colors.highlight);
    }
    HorizontalLine(band.left, band.right, band.top, m_colors.grid);
    HorizontalLine(band.left, band.right, band.bottom - 1, m_colors.grid);
    VerticalLine(band.left, band.top, band.bottom, m_colors.grid);
    VerticalLine(band.right, band.top, band.bottom, m_colors.grid);
}

// ---- Grid

void TimeGridPainter::DrawGridBackground(const CRect& grid) const
{
    if (!IsVisible(grid)) {
        return;
    }
    CRect inner = grid;
    inner.DeflateRect(1, 1);
    if (!inner.IsRectEmpty() && m_clip->Fill(inner, m_colors.content)) {
        const SelectGdi selectBrush(&m_dc, ::GetStockObject(HOLLOW_BRUSH));
        m_dc.Rectangle(&grid);
        return;
    }
    CBrush brush(m_colors.content);
    const SelectGdi selectBrush(&m_dc, &brush);
    m_dc.Rectangle(&grid);
}

RowRange TimeGridPainter::VisibleRows() const
{
    const CRect& grid = m_state.frame.grid;
    const int rowHeight = m_state.scale.metrics.rowHeight;
    const int top = std::max(m_clip->Box().top, grid.top) - m_state.TopOfRow(0);
    const int bottom = std::min(m_clip->Box().bottom, grid.bottom) - m_state.TopOfRow(0);
    // The row after the last is painted too: it closes the day.
    return RowRange{std::max(top / rowHeight, 0),
                    std::min((bottom + rowHeight - 1) / rowHeight, m_state.scale.RowsPerDay() + 1)};
}

void TimeGridPainter::DrawRows(const CRect& column, const RowRange& rows, const std::vector<RowLook>& looks) const
{
    if (column.IsRectEmpty() || rows.end <= rows.first) {
        return;
    }
    int filled = rows.first;
    for (int row = rows.first; row < rows.end; ++row) {
        // Rows of one colour are filled together.
        const bool isLast = row + 1 == rows.end;
        if (isLast || looks[row + 1 - rows.first].fill != looks[row - rows.first].fill) {
            const int from = m_state.TopOfRow(filled);
            const int to = m_state.TopOfRow(row + 1);
            const CRect box(column.left, from, column.right, to);
            filled == rows.first ? Fill(box, looks[row - rows.first].fill)
                                 : FillNext(box, looks[row - rows.first].fill);
            filled = row + 1;
        }
    }
    for (int row = rows.first; row < rows.end; ++row) {
        const int y = m_state.TopOfRow(row);
        FillNext(CRect(column.left, y, column.right, y + 1), looks[row - rows.first].line);
    }
}

void TimeGridPainter::DrawSeparators(const CRect& area) const
{
    for (const CRect& column : m_state.frame.columns) {
        VerticalLine(column.left, area.top, area.bottom, m_colors.grid);
    }
}

void TimeGridPainter::DrawNowLine(const CRect& column, const ClockTime& now) const
{
    const int minute = now.hour * kMinutesPerHour + now.minute;
    const int y = m_state.TopOfRow(0) + minute * m_state.scale.HourHeight() / kMinutesPerHour;
    const CRect line(column.left, y, column.right, y + Px(kPaint.nowLineHeight));
    if (now.isValid && y >= column.top && IsVisible(line)) {
        Fill(line, ThemeOr(m_theme.nowLine, kTimeGridPalette.nowLine));
    }
}

// ---- Items

// Lines along the edges: those above and below always. Thicker lines lie astride the edge.
void TimeGridPainter::DrawBoxEdges(const CRect& box, COLORREF color, int thickness, bool left, bool right) const
{
    const int out = thickness / 2;
    const CRect outer(box.left - out, box.top - out, box.right - 1 - out + thickness, box.bottom - 1 - out + thickness);
    FillNext(CRect(outer.left, outer.top, outer.right, outer.top + thickness), color);
    FillNext(CRect(outer.left, outer.bottom - thickness, outer.right, outer.bottom), color);
    if (left) {
        FillNext(CRect(outer.left, outer.top, outer.left + thickness, outer.bottom), color);
    }
    if (right) {
        FillNext(CRect(outer.right - thickness, outer.top, outer.right, outer.bottom), color);
    }
}

void TimeGridPainter::DrawStripe(const CRect& box, COLORREF color) const
{
    if (box.Width() >= Px(kPaint.stripedWidth) && box.Height() > 2 * OUTLINE) {
        const int left = box.left + OUTLINE;
        FillNext(CRect(left, box.top + OUTLINE, left + Px(kPaint.stripeWidth), box.bottom - OUTLINE), color);
    }
}

void TimeGridPainter::DrawTimedBox(const tagCALENDAR_ITEM& item, const PaintedBox& painted, bool isCurrent) const
{
    DrawFilledBox(item, painted, true, isCurrent);
}

// The stripe stands where the item begins.
void TimeGridPainter::DrawBandBar(const tagCALENDAR_ITEM& item, const PaintedBox& painted, bool isCurrent) const
{
    DrawFilledBox(item, painted, painted.leftEdge, isCurrent);
}

void TimeGridPainter::DrawFilledBox(const tagCALENDAR_ITEM& item, const PaintedBox& painted, bool hasStripe,
                                    bool isCurrent) const
{
    const CRect& box = painted.box;
    CRect inner(box.left + (painted.leftEdge ? OUTLINE : 0), box.top + OUTLINE,
                box.right - (painted.rightEdge ? OUTLINE : 0), box.bottom - OUTLINE);
    const bool isNested = !isCurrent && inner.Width() >= 0 && inner.Height() >= 0;
    if (isNested) { // one fill in the other costs half of what four lines do
        Fill(box, item.crColor4);
        FillNext(inner, item.crColor2);
    } else {
        Fill(box, item.crColor2);
    }
    if (hasStripe) {
        DrawStripe(box, item.crColor3);
    }
    if (!isNested) {
        DrawBoxEdges(box, isCurrent ? ThemeOr(m_theme.focus, m_colors.highlight) : item.crColor4,
                     isCurrent ? Px(kPaint.currentFrame) : OUTLINE, painted.leftEdge, painted.rightEdge);
    }
}

bool TimeGridPainter::IsWideEnoughForText(int width, const ViewScale& scale)
{
    return width >= scale.Of(kPaint.letterWidth);
}

bool TimeGridPainter::HasRoomForText(const CRect& content) const
{
    return IsWideEnoughForText(content.Width(), m_state.scale.metrics.scale) &&
           content.Height() >= Px(kPaint.letterHeight) && IsVisible(content);
}

void TimeGridPainter::DrawTimedText(const tagCALENDAR_ITEM& item, CFont* font, const CRect& content,
                                    bool timesWhereTheyFit, const TextSettings& texts) const
{
    if (!HasRoomForText(content)) {
        return;
    }
    m_dc.SetTextColor(item.crColor5);
    std::u16string text = TimedItemText(item, texts);
    if (timesWhereTheyFit && (content.Width() < Px(kPaint.timesWidth) ||
                              (content.Height() < Px(kPaint.twoLinesHeight) && !item.strText.IsEmpty() &&
                               m_tools.texts.WidthOf(&m_dc, font, text) > content.Width()))) {
        text = texts.HostText(item.strText);
    }
    // In one line of many days the text ends in an ellipsis rather than with its last whole word.
    const bool isOneLine = timesWhereTheyFit && content.Height() < Px(kPaint.twoLinesHeight);
    const UINT lines = isOneLine ? DT_SINGLELINE | DT_END_ELLIPSIS : DT_WORDBREAK | DT_EDITCONTROL;
    DrawBlockOfText(font, text, content, DT_NOPREFIX | lines);
}

void TimeGridPainter::DrawBandText(const tagCALENDAR_ITEM& item, CFont* font, const std::u16string& text,
                                   const CRect& content) const
{
    if (!HasRoomForText(content)) {
        return;
    }
    m_dc.SetTextColor(item.crColor5);
    const UINT side = item.nPiece == PIECE_MIDDLE ? DT_CENTER : item.nPiece == PIECE_TAIL ? DT_RIGHT : DT_LEFT;
    DrawBlockOfText(font, text, content,
                    side | DT_VCENTER | DT_WORDBREAK | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void TimeGridPainter::DrawBlockOfText(CFont* font, const std::u16string& text, const CRect& rect, UINT format) const
{
    m_tools.drawn.Draw(m_dc, *m_clip, {font, text, rect, format, true},
                       [&] { m_tools.blocks.Draw(m_dc, font, text, rect, format, m_tools.texts); });
}

void TimeGridPainter::DrawMoreMark(const CRect& box, const std::u16string& text, CFont* font) const
{
    if (!IsVisible(box)) {
        return;
    }
    const COLORREF textColor = ThemeOr(m_theme.markText, m_colors.rulerText);
    Fill(box, ThemeOr(m_theme.mark, m_colors.ruler));
    DrawBoxEdges(box, textColor, OUTLINE, true, true);
    const SelectGdi selectFont(&m_dc, font);
    m_dc.SetTextColor(textColor);
    DrawWideText(m_dc, text, box, DT_SINGLELINE | DT_VCENTER | DT_CENTER | DT_NOPREFIX);
}

} // namespace dayvane
