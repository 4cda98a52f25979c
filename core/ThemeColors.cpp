#include "core/ThemeColors.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>

namespace dayvane {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr double kFull = 255.0;

// On a dark page: lightness 0 to 1.
constexpr double kDarkestGround = 0.17; // of a white or pale ground
constexpr double kGroundSpan = 0.20;    // a dark ground of the host stays so much lighter, to differ from pale ones
constexpr double kGroundSaturation = 0.6;
constexpr double kShapeContrast = 3.0; // outlines and marks (WCAG 2.1, success criterion 1.4.11)
constexpr double kLightenStep = 0.04;
constexpr double kDarkenStep = 0.02;

double Luminance(COLORREF color)
{
    // The linear value of a channel of sRGB.
    const auto linear = [](int channel) {
        const double part = channel / kFull;
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) + 0.0722 * linear(GetBValue(color));
}

// Hue as the direction from grey, saturation and lightness 0 to 1.
struct Tone
{
    double hue; // 0 .. 6
    double saturation;
    double lightness;
};

Tone ToneOf(COLORREF color)
{
    const double red = GetRValue(color) / kFull;
    const double green = GetGValue(color) / kFull;
    const double blue = GetBValue(color) / kFull;
    const double high = std::max({red, green, blue});
    const double low = std::min({red, green, blue});
    const double span = high - low;
    Tone tone = {0.0, 0.0, (high + low) / 2.0};
    if (span <= 0.0) {
        return tone;
    }
    tone.saturation = span / (1.0 - std::abs(2.0 * tone.lightness - 1.0));
    tone.hue = high == red     ? std::fmod((green - blue) / span + 6.0, 6.0)
               : high == green ? (blue - red) / span + 2.0
                               : (red - green) / span + 4.0;
    return tone;
}

COLORREF ColorOf(const Tone& tone)
{
    const double span = (1.0 - std::abs(2.0 * tone.lightness - 1.0)) * tone.saturation;
    const double low = tone.lightness - span / 2.0;
    // A channel is at its height within one step of its own hue, and falls over the next.
    const auto channel = [&](double ownHue) {
        const double away = std::abs(std::remainder(tone.hue - ownHue, 6.0));
        const double part = low + span * std::clamp(2.0 - away, 0.0, 1.0);
        return std::clamp(static_cast<int>(part * kFull + 0.5), 0, 255);
    };
    return RGB(channel(0.0), channel(2.0), channel(4.0));
}

COLORREF DarkGround(COLORREF given)
{
    Tone tone = ToneOf(given);
    tone.saturation *= kGroundSaturation;
    tone.lightness = kDarkestGround + kGroundSpan * (1.0 - tone.lightness);
    // Yellow and green are brighter than their lightness says.
    while (ContrastOf(kWhite, ColorOf(tone)) < kTextContrast) {
        tone.lightness -= kDarkenStep;
    }
    return ColorOf(tone);
}

// The colour, lightened until it has the contrast to each of the grounds, which are dark.
COLORREF Lightened(COLORREF color, std::initializer_list<COLORREF> grounds, double contrast)
{
    const auto isRead = [&](COLORREF candidate) {
        return std::all_of(grounds.begin(), grounds.end(),
                           [&](COLORREF ground) { return ContrastOf(candidate, ground) >= contrast; });
    };
    Tone tone = ToneOf(color);
    // Black on a pale ground becomes white on a dark one, grey in between.
    if (tone.saturation < kLightenStep) {
        tone.lightness = std::max(tone.lightness, 1.0 - tone.lightness);
    }
    while (tone.lightness < 1.0 && !isRead(ColorOf(tone))) {
        tone.lightness = std::min(tone.lightness + kLightenStep, 1.0);
    }
    return ColorOf(tone);
}

tagCALENDAR_DAY_COLOR RowOf(const CalendarTheme::Day& day, const tagCALENDAR_DAY_COLOR& own)
{
    const COLORREF roles[] = {day.work,    day.workLine,    day.workHourLine, day.off,
                              day.offLine, day.offHourLine, day.text};
    tagCALENDAR_DAY_COLOR row = own;
    for (size_t i = 0; i < std::size(roles); ++i) {
        row.crColor[i] = ThemeOr(roles[i], own.crColor[i]);
    }
    return row;
}

tagCALENDAR_DAY_COLOR DarkRow(const tagCALENDAR_DAY_COLOR& own)
{
    constexpr int kText = 6;
    tagCALENDAR_DAY_COLOR row = own;
    for (int i = 0; i < kText; ++i) {
        row.crColor[i] = DarkGround(own.crColor[i]);
    }
    row.crColor[kText] = Lightened(own.crColor[kText], {row.crColor[0]}, kTextContrast);
    return row;
}

void DarkenItem(tagCALENDAR_ITEM& item, const CalendarTheme& theme, ItemGround ground)
{
    const bool isFilled = ground == ItemGround::Filled || item.crColor2 != kWhite;
    const COLORREF fill = isFilled ? DarkGround(item.crColor2) : theme.page;
    const auto read = [&](COLORREF color, double contrast) {
        return isFilled
                   ? Lightened(color, {fill}, contrast)
                   : Lightened(color, {fill, theme.ordinary.work, theme.holiday.work, theme.saturday.work}, contrast);
    };
    item.crColor2 = isFilled ? fill : kWhite;
    item.crColor1 = read(item.crColor1, kShapeContrast);
    item.crColor3 = read(item.crColor3, kShapeContrast);
    item.crColor4 = read(item.crColor4, kShapeContrast);
    item.crColor5 = read(item.crColor5, kTextContrast);
}

} // namespace

double ContrastOf(COLORREF a, COLORREF b)
{
    const double one = Luminance(a);
    const double other = Luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

COLORREF Paler(COLORREF color)
{
    const auto channel = [](int value) { return static_cast<BYTE>((value + 255) / 2); };
    return RGB(channel(GetRValue(color)), channel(GetGValue(color)), channel(GetBValue(color)));
}

CalendarColors Themed(const CalendarColors& own, const CalendarTheme& theme)
{
    CalendarColors colors = own;
    colors.caption = ThemeOr(theme.title, own.caption);
    colors.captionText = ThemeOr(theme.titleText, own.captionText);
    colors.ruler = ThemeOr(theme.ruler, own.ruler);
    colors.rulerText = ThemeOr(theme.rulerText, own.rulerText);
    colors.content = ThemeOr(theme.page, own.content);
    colors.grid = ThemeOr(theme.grid, own.grid);
    colors.border = ThemeOr(theme.border, own.border);
    colors.highlight = ThemeOr(theme.selection, own.highlight);
    colors.highlightText = ThemeOr(theme.selectionText, own.highlightText);
    colors.itemBorder = ThemeOr(theme.itemOutline, own.itemBorder);
    colors.noFocus = ThemeOr(theme.header, own.noFocus);
    return colors;
}

bool HasDayColors(const CalendarTheme& theme)
{
    CalendarTheme days;
    days.ordinary = theme.ordinary;
    days.holiday = theme.holiday;
    days.saturday = theme.saturday;
    days.itemFill = theme.itemFill;
    return days != kClassicTheme;
}

void FillThemedDays(const DayColorTable& own, const CalendarTheme& theme, DayColorTable& themed)
{
    const CalendarTheme::Day* const days[] = {&theme.ordinary, &theme.holiday, &theme.saturday};
    constexpr INT_PTR kThemeRows = std::size(days);
    themed.SetSize(own.GetSize());
    for (INT_PTR i = 0; i < own.GetSize(); ++i) {
        if (i < kThemeRows) {
            themed[i] = RowOf(*days[i], own[i]);
        } else if (theme.itemFill == ItemFill::AsGiven) {
            themed[i] = own[i];
        } else {
            themed[i] = theme.itemFill == ItemFill::ForDarkPage ? DarkRow(own[i]) : RowOf(theme.ordinary, own[i]);
        }
    }
}

void ThemeItem(tagCALENDAR_ITEM& item, const CalendarTheme& theme, ItemGround ground)
{
    switch (theme.itemFill) {
    case ItemFill::AsGiven:
        break;
    case ItemFill::ForDarkPage:
        DarkenItem(item, theme, ground);
        break;
    case ItemFill::Plain:
        item.crColor2 = theme.page;
        item.crColor1 = item.crColor5 = theme.pageText;
        item.crColor3 = item.crColor4 = theme.itemOutline;
        break;
    }
}

} // namespace dayvane
