#include "views/daygrid/BoxTexts.h"

namespace dayvane {
namespace {

// Pixels.
struct BoxTextMetrics
{
    int titleInset = 5;
    int numberRight = 5; // from the day number to the box's right edge
    int numberTop = 1;
    int annotationTop = 3; // from the box's top
    int annotationHeight = 13;
    int annotationLeft = 4;
    int annotationGap = 4;       // to the day number
    int annotationMinWidth = 20; // a narrower one would be nothing but an ellipsis
    int stripInset = 5;          // from the sides of a box's strip to its texts
    int suffixGap = 2;           // between number and suffix
};
constexpr BoxTextMetrics kTexts;

// In a narrow box the year goes first and then the month: a number whose front is cut off reads as another date. Where
// the day does not stand last, the day alone remains.
std::u16string FittingNumber(std::u16string number, const std::u16string& dayAlone, int width, const TextWidth& widthOf)
{
    const auto isWide = [&] { return widthOf(number) > width; };
    const bool dayIsLast = number.size() >= dayAlone.size() &&
                           number.compare(number.size() - dayAlone.size(), dayAlone.size(), dayAlone) == 0;
    std::size_t slash = dayIsLast ? number.find(u'/') : std::u16string::npos;
    while (slash != std::u16string::npos && isWide()) {
        number.erase(0, slash + 1);
        slash = number.find(u'/');
    }
    return !dayAlone.empty() && number != dayAlone && isWide() ? dayAlone : number;
}

} // namespace

TitlePlaces PlaceTitle(const CRect& band, int numberWidth, const ViewScale& scale)
{
    TitlePlaces places;
    places.number = band;
    places.number.DeflateRect(scale.Of(kTexts.titleInset), scale.Of(kTexts.titleInset));
    places.text = places.number;
    places.text.left += numberWidth;
    return places;
}

DayTextPlaces PlaceDayTexts(const CRect& box, const DayLook& look, const TextWidth& numberWidth, const ViewScale& scale)
{
    DayTextPlaces places;
    places.numberRect = box;
    places.numberRect.top += scale.Of(kTexts.numberTop);
    places.numberRect.right -= scale.Of(kTexts.numberRight);
    places.number = FittingNumber(look.dayNumber, look.dayAlone, places.numberRect.Width(), numberWidth);
    const int top = box.top + scale.Of(kTexts.annotationTop);
    const CRect annotation(box.left + scale.Of(kTexts.annotationLeft), top,
                           places.numberRect.right - numberWidth(places.number) - scale.Of(kTexts.annotationGap),
                           top + scale.Line(kTexts.annotationHeight));
    if (annotation.Width() >= scale.Line(kTexts.annotationMinWidth)) {
        places.annotation = annotation;
    }
    return places;
}

StripTextPlaces PlaceStripTexts(const CRect& strip, const StripTexts& texts, const TextWidth& numberWidth,
                                const TextWidth& textWidth, const ViewScale& scale)
{
    StripTextPlaces places;
    CRect rest = strip;
    rest.DeflateRect(scale.Of(kTexts.stripInset), 0);
    places.number = FittingNumber(texts.number, texts.shortNumber, rest.Width(), numberWidth);
    const int width = numberWidth(places.number);
    if (width > rest.Width()) {
        rest = strip; // "10" would lose a digit
    }
    places.numberRect = rest;
    rest.left += width + scale.Of(kTexts.suffixGap);
    const int suffixWidth = textWidth(texts.suffix);
    if (suffixWidth > rest.Width()) {
        return places;
    }
    places.suffix = rest;
    rest.left += suffixWidth + scale.Of(kTexts.annotationGap);
    if (rest.Width() >= scale.Line(kTexts.annotationMinWidth)) {
        places.annotation = rest;
    }
    return places;
}

} // namespace dayvane
