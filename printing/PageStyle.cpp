#include "printing/PageStyle.h"

#include <algorithm>
#include <cmath>

namespace dayvane {
namespace {

constexpr double kA4Area = 2100.0 * 2970.0;
constexpr double kSmallestScale = 0.72;
constexpr double kLargestScale = 1.5;
constexpr int kSmallestFont = 50; // tenths of a point
constexpr int kLargestFont = 160;
constexpr int kDefaultFont = 90;
constexpr int kPaleLuminance = 226; // of 255
constexpr int kInkLuminance = 150;
constexpr int kWhite = 255;

// Rec. 601 weights in thousandths
int LuminanceOf(int red, int green, int blue)
{
    return (299 * red + 587 * green + 114 * blue) / 1000;
}

struct Rgb
{
    explicit Rgb(COLORREF color)
        : red(static_cast<int>(color & 0xFF)), green(static_cast<int>(color >> 8 & 0xFF)),
          blue(static_cast<int>(color >> 16 & 0xFF))
    {
    }
    int Luminance() const { return LuminanceOf(red, green, blue); }
    COLORREF Color() const
    {
        return static_cast<COLORREF>(red) | static_cast<COLORREF>(green) << 8 | static_cast<COLORREF>(blue) << 16;
    }
    int red;
    int green;
    int blue;
};

} // namespace

PageStyle StyleFor(const PrintOptions& options, CSize paper)
{
    const double area = static_cast<double>(paper.cx) * paper.cy;
    const double scale = std::clamp(std::sqrt(area / kA4Area), kSmallestScale, kLargestScale);
    const int chosen = std::clamp(options.fontSize, kSmallestFont, kLargestFont);
    // Headings follow the chosen size, but only by half.
    const double emphasis = scale * (1.0 + static_cast<double>(chosen) / kDefaultFont) / 2;
    const auto text = [](double size, bool bold = false) {
        return PageFont{PageFace::Text, static_cast<int>(std::lround(size)), bold, false};
    };
    const auto latin = [](double size, bool bold = false) {
        return PageFont{PageFace::Latin, static_cast<int>(std::lround(size)), bold, false};
    };
    PageStyle style;
    style.title = text(250 * emphasis);
    style.subtitle = text(105 * emphasis);
    style.columnHeading = text(95 * emphasis);
    style.dayNumber = latin(135 * emphasis, true);
    style.dayNote = text(72 * emphasis);
    style.dayHeading = text(105 * emphasis);
    style.body = text(chosen * scale);
    style.bodyTime = latin(chosen * scale * 0.92);
    style.small = text(70 * emphasis);
    style.mini = latin(60 * scale);
    style.hour = latin(100 * emphasis);
    style.footer = text(70 * scale);
    style.pad = static_cast<int>(std::lround(9 * scale));
    style.gap = static_cast<int>(std::lround(35 * scale));
    style.edgeStrip = static_cast<int>(std::lround(8 * scale));
    style.noteSpacing = static_cast<int>(std::lround(80 * scale));
    return style;
}

COLORREF PaleFill(COLORREF color)
{
    Rgb rgb(color);
    const int luminance = rgb.Luminance();
    if (luminance >= kPaleLuminance) {
        return color;
    }
    const auto lighten = [&](int part) {
        return kWhite - (kWhite - part) * (kWhite - kPaleLuminance) / (kWhite - luminance);
    };
    rgb.red = lighten(rgb.red);
    rgb.green = lighten(rgb.green);
    rgb.blue = lighten(rgb.blue);
    return rgb.Color();
}

COLORREF InkOf(COLORREF color)
{
    Rgb rgb(color);
    const int luminance = rgb.Luminance();
    if (luminance <= kInkLuminance) {
        return color;
    }
    rgb.red = rgb.red * kInkLuminance / luminance;
    rgb.green = rgb.green * kInkLuminance / luminance;
    rgb.blue = rgb.blue * kInkLuminance / luminance;
    return rgb.Color();
}

COLORREF GreyOf(COLORREF color)
{
    Rgb rgb(color);
    rgb.red = rgb.green = rgb.blue = rgb.Luminance();
    return rgb.Color();
}

} // namespace dayvane
