// The bands above a time grid: title band and day header; and the fonts.
#include "core/WideText.h"
#include "views/timegrid/TimeGridPainter.h"

#include "core/DateMath.h"

#include <algorithm>

namespace dayvane {
namespace {
// Pixels.
struct BandPaintMetrics
{
    int captionLeft = 5;
    int captionBottom = 1;
    int baselineStep = 4; // the small texts of the title band stand so much higher to share the date's baseline
    int headerTextInset = 3;
    int headerNoteGap = 6;
    int headerNoteWidth = 20; // a narrower room would show nothing but an ellipsis
    int headerFrame = 2;
};
constexpr BandPaintMetrics kBandPaint;

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

CFont* TimeGridFonts::CaptionDate(const LOGFONT& lf)
{
    return m_cache.Get(Resized(lf, m_scale.Of(kCaptionDateHeight), FW_BOLD));
}

// ---- Title band

// Draws at the left of the area, which loses what the text has used.
void TimeGridPainter::DrawCaptionPart(CRect& area, const std::u16string& text, COLORREF color, COLORREF shadow,
                                      UINT cut) const
{
    if (text.empty() || area.IsRectEmpty()) {
        return;
    }
    const UINT flags = DT_SINGLELINE | DT_BOTTOM | DT_NOPREFIX | cut;
    if (shadow != CLR_NONE) {
        CRect below = area;
        below.OffsetRect(1, 1);
        m_dc.SetTextColor(shadow);
        DrawWideText(m_dc, text, below, flags);
    }
    m_dc.SetTextColor(color);
    DrawWideText(m_dc, text, area, flags);
    area.left += WideTextExtent(m_dc, text).cx;
}

void TimeGridPainter::DrawDayCaption(const CRect& caption, const GridCaptionTexts& texts, int dayOfWeek, CFont* date,
                                     CFont* text) const
{
    if (!IsVisible(caption)) {
        return;
    }
    DrawTitleBand(&m_dc, caption, TitleBandOf(m_theme, kTimeGridPalette.dayCaption));
    CRect area(caption.left + Px(kBandPaint.captionLeft), caption.top, caption.right,
               caption.bottom - Px(kBandPaint.captionBottom));
    // The band is light: a light text needs an edge to be read.
    const COLORREF plain = m_colors.captionText;
    const bool hasOwnGround = m_theme.title == CalendarTheme::kOwn;
    const COLORREF shadow = hasOwnGround && IsLight(plain) ? kTimeGridPalette.captionShadow : CLR_NONE;
    {
        const SelectGdi selectFont(&m_dc, date);
        DrawCaptionPart(area, texts.date, plain, shadow, 0);
    }
    area.bottom -= Px(kBandPaint.baselineStep);
    const SelectGdi selectFont(&m_dc, text);
    const COLORREF weekday = HeaderColor(dayOfWeek, plain);
    DrawCaptionPart(area, texts.weekday, weekday, weekday == plain ? shadow : CLR_NONE);
    DrawCaptionPart(area, texts.longDate, plain, shadow);
    DrawCaptionPart(area, texts.holiday, ThemeOr(m_theme.headerHoliday, kTimeGridPalette.holiday));
    DrawCaptionPart(area, texts.solarTerm, plain, shadow);
}

bool TimeGridPainter::FitsDayCaption(const CRect& caption, const GridCaptionTexts& texts, CFont* date,
                                     CFont* text) const
{
    int width = Px(kBandPaint.captionLeft);
    {
        const SelectGdi selectFont(&m_dc, date);
        width += WideTextExtent(m_dc, texts.date).cx;
    }
    const SelectGdi selectFont(&m_dc, text);
    for (const std::u16string* part : {&texts.weekday, &texts.longDate, &texts.holiday, &texts.solarTerm}) {
        width += WideTextExtent(m_dc, *part).cx;
    }
    return width <= caption.Width();
}

void TimeGridPainter::DrawDaysCaption(const CRect& caption, const GridCaptionTexts& texts, CFont* date,
                                      CFont* text) const
{
    if (!IsVisible(caption)) {
        return;
    }
    // Pale enough for the dark text that the settings begin with.
    const COLORREF middle = Paler(m_colors.caption);
    DrawTitleBand(&m_dc, caption, TitleBandOf(m_theme, {Paler(middle), middle, m_colors.caption}));
    CRect area(caption.left + Px(kBandPaint.captionLeft), caption.top, caption.right,
               caption.bottom - Px(kBandPaint.captionBottom));
    {
        const SelectGdi selectFont(&m_dc, date);
        DrawCaptionPart(area, texts.date, m_colors.captionText);
    }
    area.bottom -= Px(kBandPaint.baselineStep);
    const SelectGdi selectFont(&m_dc, text);
    DrawCaptionPart(area, texts.longDate, m_colors.captionText);
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
    if (inner.Width() > 2 * Px(kBandPaint.headerFrame) && inner.Height() > 2 * Px(kBandPaint.headerFrame)) {
        inner.DeflateRect(1, 1);
        DrawBoxEdges(inner, frame, Px(kBandPaint.headerFrame), true, true);
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

// The first of the forms of the date that fits; the last one, which loses its weekday, whether it does or not.
std::u16string TimeGridPainter::FittingDate(const HeaderTexts& texts, int width) const
{
    for (const std::u16string* form : {&texts.longDate, &texts.dayAndName, &texts.tightDate}) {
        if (WideTextExtent(m_dc, *form).cx <= width) {
            return *form;
        }
    }
    return texts.shortDate;
}

bool TimeGridPainter::FitsHeaderText(const CRect& box, const HeaderTexts& texts, CFont* font) const
{
    const SelectGdi selectFont(&m_dc, font);
    const int noteWidth = texts.note.empty() ? 0 : WideTextExtent(m_dc, texts.note).cx + Px(kBandPaint.headerNoteGap);
    return WideTextExtent(m_dc, texts.longDate).cx + noteWidth <= box.Width() - 2 * Px(kBandPaint.headerTextInset);
}

void TimeGridPainter::DrawHeaderText(const CRect& box, const HeaderTexts& texts, const ShownDay& day, bool isDayOff,
                                     CFont* font) const
{
    CRect area = box;
    area.DeflateRect(Px(kBandPaint.headerTextInset), 0);
    if (!IsVisible(box)) {
        return;
    }
    const SelectGdi selectFont(&m_dc, font);
    const std::u16string date = FittingDate(texts, area.Width());
    const int dateWidth = WideTextExtent(m_dc, date).cx;
    if (dateWidth > area.Width()) {
        area = box; // rather without a margin than cut
    }
    const int noteWidth = texts.note.empty() ? 0 : WideTextExtent(m_dc, texts.note).cx;
    const int noteRoom = std::min(noteWidth, area.Width() - dateWidth - Px(kBandPaint.headerNoteGap));
    const bool hasNote = noteRoom > 0 && noteRoom >= std::min(noteWidth, Px(kBandPaint.headerNoteWidth));
    area.left += (area.Width() - dateWidth - (hasNote ? noteRoom + Px(kBandPaint.headerNoteGap) : 0)) / 2;
    const UINT flags = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
    const COLORREF holiday = ThemeOr(m_theme.headerHoliday, kTimeGridPalette.holiday);
    const COLORREF ordinary = ThemeOr(m_theme.headerText, kTimeGridPalette.headerText);
    m_dc.SetTextColor(isDayOff ? holiday : HeaderColor(day.dayOfWeek, ordinary));
    DrawWideText(m_dc, date, area, flags);
    if (hasNote) {
        area.left += dateWidth + Px(kBandPaint.headerNoteGap);
        m_dc.SetTextColor(holiday);
        DrawWideText(m_dc, texts.note, area, flags | DT_END_ELLIPSIS);
    }
}

} // namespace dayvane
