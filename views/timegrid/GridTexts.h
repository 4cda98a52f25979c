// Where the texts of a time grid's bands and ruler stand, and which form of a date has room. Client pixels; an empty
// rectangle: no room.
#pragma once

#include "TimeGridLook.h"

#include <vector>

namespace dayvane {

// The hours of the ruler from the top of the day to its end, which has a line but no number.
struct RulerHour
{
    CRect box;  // from its line to the next
    CRect line; // one pixel high
    CRect number;
    CRect rest; // of the time, in small letters
};
std::vector<RulerHour> PlaceRulerHours(const CRect& ruler, int scroll, const TimeScale& scale);

// A ruler, or the band above it, that shows another zone too: that zone's clock stands left of the own one.
struct ZoneColumns
{
    CRect other;
    CRect own;
};
ZoneColumns SplitRuler(const CRect& ruler, int otherWidth);

// What stands beside one hour of the day in such a ruler.
struct ZoneHourPlaces
{
    CRect box;    // the hour over both columns
    CRect line;   // of the other clock, one pixel high
    CRect clock;  // what it shows when the hour begins
    CRect date;   // where another date begins
    CRect change; // of the own clock
};
// lineHeight: of a line of text.
std::vector<ZoneHourPlaces> PlaceZoneHours(const ZoneColumns& columns, int lineHeight, int scroll,
                                           const TimeScale& scale);

// The texts of a title band, one after the other; the date, in large letters, reaches further down.
struct GridCaption
{
    CRect date;
    CRect weekday;
    CRect longDate;
    CRect holiday;
    CRect solarTerm;
    int end; // of the last text; beyond the band: something is cut
};
// widths: of the texts in that order, 0 for an empty one.
GridCaption PlaceCaptionTexts(const CRect& caption, const std::vector<int>& widths, const ViewScale& scale = {});

// The place in HeaderTexts::Forms of the first form that has room in the box; the last one, without its weekday, in any
// case.
int FittingHeaderForm(const CRect& box, const HeaderTexts& texts, const TextWidth& widthOf,
                      const ViewScale& scale = {});

// Date and note in the middle of the header of a day.
struct HeaderPlaces
{
    std::u16string date; // in the form that was asked for
    CRect dateRect;
    CRect note = CRect(0, 0, 0, 0);
    bool isWhole; // nothing is cut or left out
};
HeaderPlaces PlaceHeaderTexts(const CRect& box, const HeaderTexts& texts, int form, const TextWidth& widthOf,
                              const ViewScale& scale = {});

} // namespace dayvane
