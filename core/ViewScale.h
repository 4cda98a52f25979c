// How large a control is drawn. Layouts and painters state their sizes for 96 dpi; here they become pixels.
#pragma once

namespace dayvane {

constexpr int kBaseDpi = 96;

struct ViewScale
{
    int dpi = kBaseDpi;
    int textGrowth = 0; // pixels by which a line of text is higher than the line that the sizes are made for

    // A length of 0 or more.
    constexpr int Of(int pixels) const { return (pixels * dpi + kBaseDpi / 2) / kBaseDpi; }
    // The height of what holds one line of text.
    constexpr int Line(int pixels) const { return Of(pixels) + textGrowth; }

    friend constexpr bool operator==(const ViewScale& a, const ViewScale& b)
    {
        return a.dpi == b.dpi && a.textGrowth == b.textGrowth;
    }
    friend constexpr bool operator!=(const ViewScale& a, const ViewScale& b) { return !(a == b); }
};

} // namespace dayvane
