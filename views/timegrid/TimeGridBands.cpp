// The bands above a time grid: title band and day header; and the fonts.
#include "core/WideText.h"
#include "views/timegrid/TimeGridPainter.h"

#include "core/DateMath.h"

namespace dayvane {
namespace {
constexpr int kHeaderFrame = 2; // pixels
constexpr int kCaptionDateHeight = 28;

bool IsLight(COLORREF color)
{
    constexpr int kHalf = 3 * 256 / 2;
    return GetRValue(color) + GetGValue(color) + GetBValue(color) >= kHalf;
}

} // namespace

COLORREF TimeGridPainter::HeaderColor(int dayOfWeek, COLORREF ordinary) const
{
    return dayOfWeek == kSunday     ? ThemeOr(m_theme.headerHoliday, kTimeGridPalette.sunday)
           : dayOfWeek == kSaturday ? ThemeOr(m_theme.headerSaturday, kTimeGridPalette.saturday)
                                    : ordinary;
}

// ---- Fonts

CFont* TimeGridFonts::LabelWithin(int room, int width)
{
    const LOGFONT label = LabelDescription();
    const int height = width > room ? MulDiv(label.lfHeight, room, width) : label.lfHeight;
    return m_cache.Get(Resized(label, height == 0 ? label.lfHeight : height, label.lfWeight));
}

CaptionFonts TimeGridFonts::Caption(const LOGFONT& lf)
{
    return {m_cache.Get(Resized(lf, m_scale.Of(kCaptionDateHeight), FW_BOLD)),
            m_cache.Get(Scaled(LogFontOf(kCaptionTextFont), m_scale))};
}

// ---- Title band

GridCaption TimeGridPainter::PlaceCaption(const CRect& caption, const GridCaptionTexts& texts,
                                          const CaptionFonts& fonts) const
{
    const std::u16string* const parts[] = {&texts.date, &texts.weekday, &texts.longDate, &texts.holiday,
                                           &texts.solarTerm};
    std::vector<int> widths;
    for (const std::u16string* part : parts) {
        const SelectGdi selectFont(&m_dc, widths.empty() ? fonts.date : fonts.text);
        widths.push_back(part->empty() ? 0 : WideTextExtent(m_dc, *part).cx);
    }
    return PlaceCaptionTexts(caption, widths, m_state.scale.metrics.scale);
}

void TimeGridPainter::DrawCaptionPart(const CRect& place, const std::u16string& text, COLORREF color, COLORREF shadow,
                                      UINT cut) const
{
    if (text.empty() || place.IsRectEmpty()) {
        return;
    }
    const UINT flags = DT_SINGLELINE | DT_BOTTOM | DT_NOPREFIX | cut;
    if (shadow != CLR_NONE) {
        CRect below = place;
        below.OffsetRect(1, 1);
        m_dc.SetTextColor(shadow);
        DrawWideText(m_dc, text, below, flags);
    }
    m_dc.SetTextColor(color);
    DrawWideText(m_dc, text, place, flags);
}

void TimeGridPainter::DrawDayCaption(const CRect& caption, const GridCaptionTexts& texts, int dayOfWeek,
                                     const CaptionFonts& fonts) const
{
    if (!IsVisible(caption)) {
        return;
    }
    DrawTitleBand(&m_dc, caption, TitleBandOf(m_theme, kTimeGridPalette.dayCaption));
    // The band is light: a light text needs an edge to be read.
    const COLORREF plain = m_colors.captionText;
    const bool hasOwnGround = m_theme.title == CalendarTheme::kOwn;
    const COLORREF shadow = hasOwnGround && IsLight(plain) ? kTimeGridPalette.captionShadow : CLR_NONE;
    const GridCaption places = PlaceCaption(caption, texts, fonts);
    {
        const SelectGdi selectFont(&m_dc, fonts.date);
        DrawCaptionPart(places.date, texts.date, plain, shadow, 0);
    }
    const SelectGdi selectFont(&m_dc, fonts.text);
    const COLORREF weekday = HeaderColor(dayOfWeek, plain);
    DrawCaptionPart(places.weekday, texts.weekday, weekday, weekday == plain ? shadow : CLR_NONE);
    DrawCaptionPart(places.longDate, texts.longDate, plain, shadow);
    DrawCaptionPart(places.holiday, texts.holiday, ThemeOr(m_theme.headerHoliday, kTimeGridPalette.holiday));
    DrawCaptionPart(places.solarTerm, texts.solarTerm, plain, shadow);
}

void TimeGridPainter::DrawDaysCaption(const CRect& caption, const GridCaptionTexts& texts,
                                      const CaptionFonts& fonts) const
{
    if (!IsVisible(caption)) {
        return;
    }
    // Pale enough for the dark text that the settings begin with.
    const COLORREF middle = Paler(m_colors.caption);
    DrawTitleBand(&m_dc, caption, TitleBandOf(m_theme, {Paler(middle), middle, m_colors.caption}));
    const GridCaption places = PlaceCaption(caption, texts, fonts);
    {
        const SelectGdi selectFont(&m_dc, fonts.date);
        DrawCaptionPart(places.date, texts.date, m_colors.captionText);
    }
    const SelectGdi selectFont(&m_dc, fonts.text);
    DrawCaptionPart(places.longDate, texts.longDate, m_colors.captionText);
}

// ---- Day header

void TimeGridPainter::DrawHeaderBackground(const CRect& header) const
{
    if (IsVisible(header)) {
        DrawHeaderBand(&m_dc, header, HeaderBandOf(m_theme.header, kHeaderBand));
    }
}

void TimeGridPainter::DrawHeaderFrame(const CRect& box, COLORREF frame) const
{
    CRect inner = box;
    inner.left += 1; // the separator keeps its place
    if (inner.Width() > 2 * Px(kHeaderFrame) && inner.Height() > 2 * Px(kHeaderFrame)) {
        inner.DeflateRect(1, 1);
        DrawBoxEdges(inner, frame, Px(kHeaderFrame), true, true);
    }
}

void TimeGridPainter::DrawTodayHeader(const CRect& box, COLORREF todayColor) const
{
    if (!IsVisible(box)) {
        return;
    }
    DrawGradient(&m_dc, box, ThemeOr(m_theme.todayGround, Paler(Paler(todayColor))),
                 ThemeOr(m_theme.todayGround, todayColor), FALSE, TRUE);
    DrawHeaderFrame(box, ThemeOr(m_theme.today, kTimeGridPalette.todayFrame));
}

int TimeGridPainter::HeaderForm(const CRect& box, const HeaderTexts& texts, CFont* font) const
{
    const SelectGdi selectFont(&m_dc, font);
    const auto widthOf = [&](const std::u16string& text) { return m_tools.texts.WidthOf(&m_dc, font, text); };
    return FittingHeaderForm(box, texts, widthOf, m_state.scale.metrics.scale);
}

HeaderPlaces TimeGridPainter::PlaceHeader(const CRect& box, const HeaderTexts& texts, int form, CFont* font) const
{
    const SelectGdi selectFont(&m_dc, font);
    const auto widthOf = [&](const std::u16string& text) { return m_tools.texts.WidthOf(&m_dc, font, text); };
    return PlaceHeaderTexts(box, texts, form, widthOf, m_state.scale.metrics.scale);
}

void TimeGridPainter::DrawHeaderText(const CRect& box, const HeaderTexts& texts, int form, const ShownDay& day,
                                     bool isDayOff, CFont* font) const
{
    if (!IsVisible(box)) {
        return;
    }
    const HeaderPlaces places = PlaceHeader(box, texts, form, font);
    const SelectGdi selectFont(&m_dc, font);
    const UINT flags = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
    const COLORREF holiday = ThemeOr(m_theme.headerHoliday, kTimeGridPalette.holiday);
    const COLORREF ordinary = ThemeOr(m_theme.headerText, kTimeGridPalette.headerText);
    m_dc.SetTextColor(isDayOff ? holiday : HeaderColor(day.dayOfWeek, ordinary));
    DrawWideText(m_dc, places.date, places.dateRect, flags);
    if (!places.note.IsRectEmpty()) {
        m_dc.SetTextColor(holiday);
        DrawWideText(m_dc, texts.note, places.note, flags | DT_END_ELLIPSIS);
    }
}

} // namespace dayvane
