// Where the texts of boxes stand, and which form of a text has room. Client pixels; an empty rectangle: no room.
#pragma once

#include "../../core/ViewScale.h"
#include "DayLook.h"

#include <string>

namespace dayvane {

// A title band: a number that catches the eye and a text beside it.
struct TitlePlaces
{
    CRect number;
    CRect text;
};
TitlePlaces PlaceTitle(const CRect& band, int numberWidth, const ViewScale& scale = {});

// The number of a day at the right, the annotation to the left of it.
struct DayTextPlaces
{
    std::u16string number; // in a narrow box without year, then without month
    CRect numberRect;
    CRect annotation = CRect(0, 0, 0, 0);
};
DayTextPlaces PlaceDayTexts(const CRect& box, const DayLook& look, const TextWidth& numberWidth,
                            const ViewScale& scale = {});

// The texts in the strip on top of a day's or month's box: number and suffix at the left, annotation at the right.
struct StripTexts
{
    std::u16string number;
    std::u16string suffix;
    COLORREF color;
    std::u16string annotation;
    COLORREF annotationColor;
    std::u16string shortNumber = {}; // where the number is too wide
};
struct StripTextPlaces
{
    std::u16string number; // without month where it would be too wide
    CRect numberRect;
    CRect suffix = CRect(0, 0, 0, 0);
    CRect annotation = CRect(0, 0, 0, 0);
};
StripTextPlaces PlaceStripTexts(const CRect& strip, const StripTexts& texts, const TextWidth& numberWidth,
                                const TextWidth& textWidth, const ViewScale& scale = {});

// Whether a text lacks room, or some of it.
inline bool IsCut(const std::u16string& text, const CRect& place, const TextWidth& widthOf)
{
    return !text.empty() && widthOf(text) > place.Width();
}

} // namespace dayvane
