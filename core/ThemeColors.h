// What the controls work out from a theme: contrasts, the table of day colours, the colours of items. Pure.
#pragma once

#include "CalendarColors.h"
#include "CalendarRecords.h"
#include "CalendarTheme.h"

namespace dayvane {

// Least contrast between a text and its ground that is read without effort (WCAG 2.1, success criterion 1.4.3).
constexpr double kTextContrast = 4.5;

// The contrast ratio of WCAG 2.1: 1 for equal colours to 21 for black and white.
double ContrastOf(COLORREF a, COLORREF b);

// The colour of a role, or the control's own.
constexpr COLORREF ThemeOr(COLORREF role, COLORREF own)
{
    return role == CalendarTheme::kOwn ? own : role;
}

// The colour half way to white.
COLORREF Paler(COLORREF color);

// The settings of a view, replaced by the roles that the theme has.
CalendarColors Themed(const CalendarColors& own, const CalendarTheme& theme);

using DayColorTable = CArray<tagCALENDAR_DAY_COLOR, const tagCALENDAR_DAY_COLOR&>;

// Whether a theme changes day colours, so that a control needs a table of its own.
bool HasDayColors(const CalendarTheme& theme);
// The rows of all controls as the theme shows them: the three of ordinary days, holidays and Saturdays are the
// theme's, those of the host keep their hue on a dark page and give way to ordinary days where items are plain.
void FillThemedDays(const DayColorTable& own, const CalendarTheme& theme, DayColorTable& themed);

// The item with its colours as the theme shows them. Its text has a contrast of at least kTextContrast to its ground;
// what is not filled (a white background, of bars only) to every ground that a day can have.
enum class ItemGround
{
    WhiteIsNone, // bars of the month, week and year views
    Filled
};
void ThemeItem(tagCALENDAR_ITEM& item, const CalendarTheme& theme, ItemGround ground);
inline bool ChangesItems(const CalendarTheme& theme)
{
    return theme.itemFill != ItemFill::AsGiven;
}

} // namespace dayvane
