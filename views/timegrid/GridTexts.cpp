#include "views/timegrid/GridTexts.h"

#include <algorithm>
#include <iterator>

namespace dayvane {
namespace {
// Pixels.
struct GridTextMetrics
{
    int rulerLineInset = 2; // the hour lines stay so far from the ruler's edges
    int hourRight = 24;     // between the hour numbers and the ruler's right edge
    int restRight = 5;      // between the rest of the time and that edge
    int zoneInset = 2;      // left and right of what the other zone's ruler shows
    int zoneDateTop = 2;    // between an hour's edge and the date below it
    int captionLeft = 5;
    int captionBottom = 1;
    int baselineStep = 4; // the small texts of the title band stand so much higher to share the date's baseline
    int headerInset = 3;
    int noteGap = 6;
    int noteWidth = 20; // a narrower room would show nothing but an ellipsis
};
constexpr GridTextMetrics kTexts;
} // namespace

std::vector<RulerHour> PlaceRulerHours(const CRect& ruler, int scroll, const TimeScale& scale)
{
    const ViewScale& view = scale.metrics.scale;
    const int inset = view.Of(kTexts.rulerLineInset);
    std::vector<RulerHour> hours;
    for (int hour = 0; hour <= kHoursPerDay; ++hour) {
        const int top = ruler.top - scroll + hour * scale.HourHeight();
        const int bottom = top + scale.HourHeight();
        const int middle = ruler.right - view.Of(kTexts.hourRight);
        hours.push_back({CRect(ruler.left, top, ruler.right, bottom),
                         CRect(ruler.left + inset, top, ruler.right - inset, top + 1),
                         CRect(ruler.left, top, middle, bottom),
                         CRect(middle, top, ruler.right - view.Of(kTexts.restRight), bottom)});
    }
    return hours;
}

ZoneColumns SplitRuler(const CRect& ruler, int otherWidth)
{
    const int middle = ruler.left + otherWidth;
    return {CRect(ruler.left, ruler.top, middle, ruler.bottom), CRect(middle, ruler.top, ruler.right, ruler.bottom)};
}

std::vector<ZoneHourPlaces> PlaceZoneHours(const ZoneColumns& columns, int lineHeight, int scroll,
                                           const TimeScale& scale)
{
    const int inset = scale.metrics.scale.Of(kTexts.zoneInset);
    const int dateTop = scale.metrics.scale.Of(kTexts.zoneDateTop);
    const CRect& other = columns.other;
    const CRect& own = columns.own;
    std::vector<ZoneHourPlaces> hours;
    for (int hour = 0; hour < kHoursPerDay; ++hour) {
        const int top = other.top - scroll + hour * scale.HourHeight();
        const int bottom = top + scale.HourHeight();
        hours.push_back({CRect(other.left, top, own.right, bottom),
                         CRect(other.left + inset, top, other.right - inset, top + 1),
                         CRect(other.left, top, other.right - inset, bottom),
                         CRect(other.left + inset, top + dateTop, other.right, top + dateTop - 1 + lineHeight),
                         CRect(own.left, bottom - lineHeight, own.right, bottom)});
    }
    return hours;
}

GridCaption PlaceCaptionTexts(const CRect& caption, const std::vector<int>& widths, const ViewScale& scale)
{
    GridCaption places;
    CRect rest(caption.left + scale.Of(kTexts.captionLeft), caption.top, caption.right,
               caption.bottom - scale.Of(kTexts.captionBottom));
    CRect* const all[] = {&places.date, &places.weekday, &places.longDate, &places.holiday, &places.solarTerm};
    for (size_t i = 0; i < std::size(all); ++i) {
        *all[i] = rest;
        rest.left += widths[i];
        if (i == 0) {
            rest.bottom -= scale.Of(kTexts.baselineStep);
        }
    }
    places.end = rest.left;
    return places;
}

int FittingHeaderForm(const CRect& box, const HeaderTexts& texts, const TextWidth& widthOf, const ViewScale& scale)
{
    const int room = box.Width() - 2 * scale.Of(kTexts.headerInset);
    const auto forms = texts.Forms();
    const auto fits = std::find_if(forms.begin(), forms.end() - 1,
                                   [&](const std::u16string* form) { return widthOf(*form) <= room; });
    return static_cast<int>(fits - forms.begin());
}

HeaderPlaces PlaceHeaderTexts(const CRect& box, const HeaderTexts& texts, int form, const TextWidth& widthOf,
                              const ViewScale& scale)
{
    CRect area = box;
    area.DeflateRect(scale.Of(kTexts.headerInset), 0);
    HeaderPlaces places;
    places.date = *texts.Forms()[form];
    const int dateWidth = widthOf(places.date);
    if (dateWidth > area.Width()) {
        area = box; // rather without a margin than cut
    }
    const int gap = scale.Of(kTexts.noteGap);
    const int noteWidth = texts.note.empty() ? 0 : widthOf(texts.note);
    const int noteRoom = std::min(noteWidth, area.Width() - dateWidth - gap);
    const bool hasNote = noteRoom > 0 && noteRoom >= std::min(noteWidth, scale.Line(kTexts.noteWidth));
    area.left += (area.Width() - dateWidth - (hasNote ? noteRoom + gap : 0)) / 2;
    places.dateRect = area;
    if (hasNote) {
        places.note = area;
        places.note.left += dateWidth + gap;
    }
    places.isWhole = form == 0 && (hasNote ? noteRoom : 0) == noteWidth;
    return places;
}

} // namespace dayvane
