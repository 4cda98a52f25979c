// The bands that the painters share, in the colours of a theme: flat where the theme says so.
#pragma once

#include "DrawingHelpers.h"
#include "ThemeColors.h"

namespace dayvane {

inline TitleBandColors TitleBandOf(const CalendarTheme& theme, const TitleBandColors& own)
{
    return {ThemeOr(theme.title, own.edge), ThemeOr(theme.title, own.middle), ThemeOr(theme.titleLine, own.bottomLine)};
}

inline HeaderBandColors HeaderBandOf(COLORREF role, const HeaderBandColors& own)
{
    return role == CalendarTheme::kOwn ? own : HeaderBandColors{role, role, role, role};
}

} // namespace dayvane
