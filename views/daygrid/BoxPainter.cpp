#include "views/daygrid/BoxPainter.h"

#include "core/DateMath.h"
#include "core/WideText.h"
#include "views/daygrid/BoxRange.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kSelectionWidth = 2;    // of the frame of the current bar, pixels
constexpr int kLeastLined = 2;        // pixels of width and height
constexpr COLORREF kArrow = 0x888888; // of a bar that goes on in another row

// Of more-items marks that are drawn, not copied from a picture.
constexpr COLORREF kMarkGround = 0xFBEADB;
constexpr COLORREF kMarkText = 0x8A4A20;

constexpr COLORREF kWeekdayColors[kMonthColumns] = {0x0049DC, 0x000000, 0x000000, 0x000000,
                                                    0x000000, 0x000000, 0xDC4900};

} // namespace

namespace {

DayFrameColors FlatFrame(const DayFrameColors& own, COLORREF outline, COLORREF ground)
{
    DayFrameColors colors = own;
    colors.outline = ThemeOr(outline, own.outline);
    colors.bottomLine = ThemeOr(outline, own.bottomLine);
    if (ground != CalendarTheme::kOwn) {
        colors.upperFrom = colors.upperTo = colors.lowerFrom = colors.lowerTo = ground;
    }
    return colors;
}

} // namespace

DayFrameColors TodayFrameOf(const CalendarTheme& theme)
{
    return FlatFrame(kTodayFrame, theme.today, theme.todayGround);
}

DayFrameColors SelectedFrameOf(const CalendarTheme& theme)
{
    return FlatFrame(kSelectedDayFrame, theme.selectionFrame, theme.selection);
}

BoxPainter::BoxPainter(CDC& dc, DayGridParts& parts, const CalendarColors& colors, const CalendarTheme& theme,
                       const ViewScale& scale)
    : m_dc(dc), m_parts(parts), m_colors(colors), m_theme(theme), m_scale(scale), m_clip(parts.clip.Of(dc))
{
}

bool BoxPainter::IsVisible(const CRect& rect) const
{
    return m_clip->Intersects(rect);
}

void BoxPainter::Fill(const CRect& rect, COLORREF color) const
{
    if (!m_clip->Fill(rect, color)) {
        m_parts.pens.Fill(&m_dc, rect, color);
    }
}

// ---- Bands

void BoxPainter::DrawCaption(const CRect& band, const CaptionLook& look, const CaptionTexts& texts,
                             const LOGFONT& itemFont) const
{
    if (band.IsRectEmpty() || !IsVisible(band)) {
        return;
    }
    DrawTitleBand(&m_dc, band, TitleBandOf(m_theme, look.band));
    m_dc.SetTextColor(m_colors.captionText);
    const SelectGdi selectNumber(&m_dc, m_parts.fonts.CaptionNumber(itemFont, look.numberHeight));
    const TitlePlaces places = PlaceTitle(band, WideTextExtent(m_dc, texts.number).cx, m_scale);
    DrawWideText(m_dc, texts.number, places.number, DT_SINGLELINE | DT_VCENTER | DT_NOCLIP | DT_NOPREFIX | look.cut);
    if (!places.text.IsRectEmpty()) {
        const SelectGdi selectText(&m_dc, m_parts.fonts.CaptionText(itemFont));
        DrawWideText(m_dc, texts.text, places.text, DT_SINGLELINE | DT_NOPREFIX | look.textAlign | look.cut);
    }
}

void BoxPainter::DrawWeekdays(const CRect& band, const MonthCellArray& headerCells, const BoxDayArray& days,
                              const CalendarTexts& texts) const
{
    if (!IsVisible(band)) {
        return;
    }
    DrawHeaderBand(&m_dc, band, HeaderBandOf(m_theme.header, kHeaderBand));
    const SelectGdi selectFont(&m_dc, m_parts.fonts.Weekday());
    // Where one name does not fit, all are short.
    int width = 0;
    for (const std::u16string& name : texts.columnWeekdays) {
        width = std::max<int>(width, WideTextExtent(m_dc, name).cx);
    }
    const bool isShort = headerCells[0].m_rect.Width() < width;
    for (int column = 0; column < kMonthColumns; ++column) {
        const int dayOfWeek = days[column].m_date.GetDayOfWeek();
        if (dayOfWeek < 1) {
            continue;
        }
        const size_t weekday = static_cast<size_t>(dayOfWeek - 1);
        const COLORREF role = dayOfWeek == kSunday     ? m_theme.headerHoliday
                              : dayOfWeek == kSaturday ? m_theme.headerSaturday
                                                       : m_theme.headerText;
        m_dc.SetTextColor(ThemeOr(role, kWeekdayColors[weekday]));
        DrawWideText(m_dc, isShort ? texts.shortWeekdays[weekday] : texts.columnWeekdays[weekday],
                     headerCells[column].m_rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
}

// ---- Boxes

void BoxPainter::DrawLines(const CRect& calendar, const std::vector<int>& lefts, const std::vector<int>& tops) const
{
    Fill(calendar, m_colors.content);
    if (calendar.Width() < kLeastLined || calendar.Height() < kLeastLined) {
        DrawLinesBySystem(calendar, lefts, tops);
        return;
    }
    DrawOutline(calendar, m_colors.grid);
    for (int x : lefts) {
        Fill(CRect(x, calendar.top, x + 1, calendar.bottom), m_colors.grid);
    }
    for (int y : tops) {
        Fill(CRect(calendar.left, y, calendar.right, y + 1), m_colors.grid);
    }
}

// Of a calendar that is the wrong way round, too: in a window without room for it.
void BoxPainter::DrawLinesBySystem(const CRect& calendar, const std::vector<int>& lefts,
                                   const std::vector<int>& tops) const
{
    const SelectGdi selectPen(&m_dc, m_parts.pens.Solid(1, m_colors.grid));
    const SelectGdi selectBrush(&m_dc, ::GetStockObject(HOLLOW_BRUSH));
    m_dc.Rectangle(&calendar);
    for (int x : lefts) {
        m_dc.MoveTo(x, calendar.top);
        m_dc.LineTo(x, calendar.bottom);
    }
    for (int y : tops) {
        m_dc.MoveTo(calendar.left, y);
        m_dc.LineTo(calendar.right, y);
    }
}

void BoxPainter::DrawBackground(const CRect& box, COLORREF color) const
{
    const CRect inner(box.left + 1, box.top + 1, box.right, box.bottom);
    if (!inner.IsRectEmpty()) {
        Fill(inner, color);
    }
}

void BoxPainter::DrawDayFrame(const DayFrameParts& parts, const DayFrameColors& colors) const
{
    const CRect& frame = parts.frame;
    if (frame.IsRectEmpty()) {
        return;
    }
    if (!parts.upper.IsRectEmpty()) {
        DrawGradient(&m_dc, parts.upper, colors.upperFrom, colors.upperTo, FALSE, TRUE);
    }
    if (!parts.lower.IsRectEmpty()) {
        DrawGradient(&m_dc, parts.lower, colors.lowerFrom, colors.lowerTo, FALSE, TRUE);
    }
    if (parts.bottomLine < frame.bottom) {
        const SelectGdi selectPen(&m_dc, m_parts.pens.Solid(m_scale.Of(colors.bottomLineWidth), colors.bottomLine));
        m_dc.MoveTo(frame.left, parts.bottomLine);
        m_dc.LineTo(frame.right, parts.bottomLine);
    }
    const SelectGdi selectPen(&m_dc, m_parts.pens.Solid(m_scale.Of(colors.outlineWidth), colors.outline));
    m_dc.MoveTo(frame.left, frame.top);
    m_dc.LineTo(frame.left, frame.bottom);
    m_dc.LineTo(frame.right, frame.bottom);
    m_dc.LineTo(frame.right, frame.top);
    m_dc.LineTo(frame.left, frame.top);
}

TextWidth BoxPainter::WidthIn(CFont* pFont) const
{
    return [this, pFont](const std::u16string& text) { return m_parts.texts.WidthOf(&m_dc, pFont, text); };
}

StripTextPlaces BoxPainter::PlacesOf(const CRect& strip, const StripTexts& texts) const
{
    return PlaceStripTexts(strip, texts, WidthIn(m_parts.fonts.DayNumber()), WidthIn(m_parts.fonts.Annotation()),
                           m_scale);
}

DayTextPlaces BoxPainter::PlacesOf(const CRect& box, const DayLook& look) const
{
    return PlaceDayTexts(box, look, WidthIn(m_parts.fonts.DayNumber()), m_scale);
}

void BoxPainter::DrawStripTexts(const CRect& strip, const StripTexts& texts) const
{
    const StripTextPlaces places = PlacesOf(strip, texts);
    m_dc.SetTextColor(texts.color);
    DrawLineOfText(m_parts.fonts.DayNumber(), places.number, places.numberRect, DT_LEFT | DT_VCENTER);
    CFont* font = m_parts.fonts.Annotation();
    if (!places.suffix.IsRectEmpty()) {
        DrawLineOfText(font, texts.suffix, places.suffix, DT_LEFT | DT_VCENTER);
    }
    if (!places.annotation.IsRectEmpty()) {
        m_dc.SetTextColor(texts.annotationColor);
        DrawLineOfText(font, texts.annotation, places.annotation, DT_RIGHT | DT_VCENTER | DT_END_ELLIPSIS);
    }
}

bool BoxPainter::FitsStripTexts(const CRect& strip, const StripTexts& texts) const
{
    const StripTextPlaces places = PlacesOf(strip, texts);
    const TextWidth widthOf = WidthIn(m_parts.fonts.Annotation());
    return places.number == texts.number && !IsCut(texts.suffix, places.suffix, widthOf) &&
           !IsCut(texts.annotation, places.annotation, widthOf);
}

void BoxPainter::DrawDayTexts(const CRect& box, const DayLook& look) const
{
    const DayTextPlaces places = PlacesOf(box, look);
    m_dc.SetTextColor(look.dayNumberColor);
    DrawLineOfText(m_parts.fonts.DayNumber(), places.number, places.numberRect, DT_RIGHT | DT_TOP);
    if (!look.annotation.empty() && !places.annotation.IsRectEmpty()) {
        m_dc.SetTextColor(look.annotationColor);
        DrawLineOfText(m_parts.fonts.Annotation(), look.annotation, places.annotation,
                       DT_LEFT | DT_TOP | DT_END_ELLIPSIS);
    }
}

bool BoxPainter::FitsDayTexts(const CRect& box, const DayLook& look) const
{
    const DayTextPlaces places = PlacesOf(box, look);
    return places.number == look.dayNumber &&
           !IsCut(look.annotation, places.annotation, WidthIn(m_parts.fonts.Annotation()));
}

// ---- Bars

void BoxPainter::DrawBar(const tagCALENDAR_ITEM& item, const BarParts& parts) const
{
    if (parts.bar.IsRectEmpty()) {
        return;
    }
    if (item.crColor2 != kUnfilled || m_theme.itemFill == ItemFill::Plain) { // a plain text stands on no grid lines
        Fill(parts.bar, item.crColor2);
    }
    if (!parts.stripe.IsRectEmpty()) {
        Fill(parts.stripe, item.crColor3);
    }
    DrawOutline(parts.bar, item.crColor4);
    const int middle = parts.bar.CenterPoint().y;
    if (parts.arrowBefore != kNoArrow) {
        DrawArrow(parts.arrowBefore, middle, 1);
    }
    if (parts.arrowAfter != kNoArrow) {
        DrawArrow(parts.arrowAfter, middle, -1);
    }
}

void BoxPainter::DrawBarText(CFont* pFont, const std::u16string& text, const CRect& content, bool centered) const
{
    DrawLineOfText(pFont, text, content, (centered ? DT_CENTER : DT_LEFT) | DT_VCENTER | DT_END_ELLIPSIS);
}

void BoxPainter::DrawLineOfText(CFont* pFont, const std::u16string& text, const CRect& rect, UINT format) const
{
    if (!text.empty() && !rect.IsRectEmpty()) {
        m_parts.drawn.Draw(m_dc, *m_clip, {pFont, text, rect, format},
                           [&] { m_parts.texts.Draw(&m_dc, pFont, text, rect, format); });
    }
}

void BoxPainter::DrawBarSelection(const CRect& frame) const
{
    const SelectGdi selectPen(
        &m_dc, m_parts.pens.Solid(m_scale.Of(kSelectionWidth), ThemeOr(m_theme.focus, m_colors.highlight)));
    m_dc.MoveTo(frame.left, frame.top);
    m_dc.LineTo(frame.right, frame.top);
    m_dc.LineTo(frame.right, frame.bottom);
    m_dc.LineTo(frame.left, frame.bottom);
    m_dc.LineTo(frame.left, frame.top);
}

// A box with an arrow that points down.
void BoxPainter::DrawMoreMark(const CRect& mark) const
{
    const COLORREF color = ThemeOr(m_theme.markText, kMarkText);
    Fill(mark, ThemeOr(m_theme.mark, kMarkGround));
    DrawOutline(mark, color);
    const int reach = mark.Height() / 2 - 1;
    const CPoint middle = mark.CenterPoint();
    const SelectGdi selectPen(&m_dc, m_parts.pens.Solid(1, color));
    for (int row = 0; row < reach; ++row) {
        const int half = reach - row - 1;
        m_dc.MoveTo(middle.x - half, middle.y - reach / 2 + row);
        m_dc.LineTo(middle.x + half + 1, middle.y - reach / 2 + row);
    }
}

void BoxPainter::DrawMoreIcon(HICON icon, const CRect& mark) const
{
    if (!m_parts.moreMark.Draw(*m_clip, icon, mark)) {
        ::DrawIconEx(m_dc.GetSafeHdc(), mark.left, mark.top, icon, mark.Width(), mark.Height(), 0, nullptr, DI_NORMAL);
    }
}

void BoxPainter::DrawOutline(const CRect& rect, COLORREF color) const
{
    if (!rect.IsRectEmpty() && m_clip->Fill(CRect(rect.left, rect.top, rect.right, rect.top + 1), color)) {
        m_clip->FillNext(CRect(rect.left, rect.bottom - 1, rect.right, rect.bottom), color);
        m_clip->FillNext(CRect(rect.left, rect.top, rect.left + 1, rect.bottom), color);
        m_clip->FillNext(CRect(rect.right - 1, rect.top, rect.right, rect.bottom), color);
        return;
    }
    const SelectGdi selectPen(&m_dc, m_parts.pens.Solid(1, color));
    const POINT corners[] = {{rect.left, rect.top},
                             {rect.right - 1, rect.top},
                             {rect.right - 1, rect.bottom - 1},
                             {rect.left, rect.bottom - 1},
                             {rect.left, rect.top}};
    m_dc.Polyline(corners, sizeof(corners) / sizeof(corners[0]));
}

// A filled triangle whose tip is at x = tip and that widens in the direction given.
void BoxPainter::DrawArrow(int tip, int middle, int direction) const
{
    const SelectGdi selectPen(&m_dc, m_parts.pens.Solid(1, ThemeOr(m_theme.itemArrow, kArrow)));
    for (int column = 0; column <= ArrowReach(m_scale); ++column) {
        const int x = tip + direction * column;
        m_dc.MoveTo(x, middle - column);
        m_dc.LineTo(x, middle + column + 1);
    }
}

} // namespace dayvane
