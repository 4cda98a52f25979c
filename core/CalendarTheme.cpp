#include "core/CalendarTheme.h"

#include "core/ThemeColors.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr COLORREF Web(unsigned rrggbb)
{
    return RGB(rrggbb >> 16 & 0xFF, rrggbb >> 8 & 0xFF, rrggbb & 0xFF);
}

constexpr bool SameDay(const CalendarTheme::Day& a, const CalendarTheme::Day& b)
{
    return a.work == b.work && a.workLine == b.workLine && a.workHourLine == b.workHourLine && a.off == b.off &&
           a.offLine == b.offLine && a.offHourLine == b.offHourLine && a.text == b.text;
}

// Every role that is one colour, in the notation of web colours.
struct Role
{
    COLORREF CalendarTheme::*role;
    unsigned calm;
    unsigned dark;
};
constexpr Role kRoles[] = {
    {&CalendarTheme::title, 0xF3F5F8, 0x26292E},          {&CalendarTheme::titleLine, 0xC9D0D9, 0x3A3F47},
    {&CalendarTheme::titleText, 0x1F2328, 0xF0F2F5},      {&CalendarTheme::header, 0xEEF1F5, 0x2A2E34},
    {&CalendarTheme::headerOther, 0xE2E7ED, 0x343940},    {&CalendarTheme::headerText, 0x333B46, 0xD5D9DF},
    {&CalendarTheme::headerHoliday, 0x9E2B36, 0xFF9A9A},  {&CalendarTheme::headerSaturday, 0x28569B, 0x9CC2FF},
    {&CalendarTheme::ruler, 0xF3F5F8, 0x26292E},          {&CalendarTheme::rulerText, 0x545B65, 0xB4BAC4},
    {&CalendarTheme::page, 0xFFFFFF, 0x1E2024},           {&CalendarTheme::pageText, 0x1F2328, 0xE4E6EA},
    {&CalendarTheme::otherMonthText, 0x545B65, 0xABB1BB}, {&CalendarTheme::grid, 0xD5DAE1, 0x3A3F47},
    {&CalendarTheme::border, 0xB8C0CA, 0x4A505A},         {&CalendarTheme::today, 0xC96A12, 0xF0A040},
    {&CalendarTheme::todayGround, 0xFFDC9F, 0x4A3A1E},    {&CalendarTheme::selection, 0xCFE2FB, 0x264A78},
    {&CalendarTheme::selectionText, 0x12355F, 0xF4F8FF},  {&CalendarTheme::selectionFrame, 0x2F6FD0, 0x5C9CF0},
    {&CalendarTheme::focus, 0x1A62C4, 0x7DB4FF},          {&CalendarTheme::hot, 0xE6EEF9, 0x2F3640},
    {&CalendarTheme::nowLine, 0xD4182A, 0xFF6B6B},        {&CalendarTheme::itemOutline, 0x8A94A3, 0x6B7480},
    {&CalendarTheme::itemArrow, 0x5A6470, 0xB0B6C0},      {&CalendarTheme::mark, 0xE3E8EF, 0x3A3F47},
    {&CalendarTheme::markText, 0x333B46, 0xE4E6EA},
};

// Ordinary days, holidays, Saturdays.
using DayColors = unsigned[3][7];
constexpr DayColors kCalmDays = {
    // work    line      hour line off       line      hour line text
    {0xFFFFFF, 0xE7EAEE, 0xD0D6DE, 0xF5F6F8, 0xE4E7EC, 0xCDD3DB, 0x1F2328},
    {0xFBF3F3, 0xF0E3E3, 0xE2CFCF, 0xF6ECEC, 0xEBDDDD, 0xDECACA, 0x9E2B36},
    {0xF3F6FB, 0xE3E9F2, 0xCFD8E6, 0xECF0F7, 0xDDE4EE, 0xCAD3E1, 0x28569B},
};
constexpr DayColors kDarkDays = {
    {0x1E2024, 0x2B2F35, 0x3B4048, 0x18191C, 0x24272C, 0x343840, 0xE4E6EA},
    {0x2A2022, 0x36292B, 0x46363A, 0x231A1C, 0x2F2426, 0x3F3033, 0xFF9A9A},
    {0x1F2530, 0x2A3240, 0x3A4556, 0x191E28, 0x242B37, 0x333D4C, 0x9CC2FF},
};

CalendarTheme::Day DayOf(const unsigned (&web)[7])
{
    return {Web(web[0]), Web(web[1]), Web(web[2]), Web(web[3]), Web(web[4]), Web(web[5]), Web(web[6])};
}

CalendarTheme ThemeIn(unsigned Role::*color, const DayColors& days)
{
    CalendarTheme theme;
    for (const Role& row : kRoles) {
        theme.*row.role = Web(row.*color);
    }
    theme.ordinary = DayOf(days[0]);
    theme.holiday = DayOf(days[1]);
    theme.saturday = DayOf(days[2]);
    theme.redFirsts = false;
    theme.dayOffMark = true;
    return theme;
}

} // namespace

CalendarTheme CalendarTheme::Calm()
{
    return ThemeIn(&Role::calm, kCalmDays);
}

CalendarTheme CalendarTheme::Dark()
{
    CalendarTheme theme = ThemeIn(&Role::dark, kDarkDays);
    theme.itemFill = ItemFill::ForDarkPage;
    return theme;
}

// Where the system's colours leave a choice, the readable one: days of other months are gray only where gray is read.
CalendarTheme CalendarTheme::HighContrast(const SystemColors& system)
{
    const COLORREF text = system.windowText;
    const bool grayIsRead = dayvane::ContrastOf(system.grayText, system.window) >= dayvane::kTextContrast;
    CalendarTheme theme;
    theme.title = theme.header = theme.headerOther = theme.ruler = theme.mark = system.face;
    theme.titleText = theme.headerText = theme.headerHoliday = theme.headerSaturday = system.faceText;
    theme.rulerText = theme.markText = theme.titleLine = system.faceText;
    theme.page = theme.todayGround = theme.hot = system.window;
    theme.pageText = theme.grid = theme.border = text;
    theme.otherMonthText = grayIsRead ? system.grayText : text;
    theme.ordinary = {system.window, system.grayText, text, system.window, system.grayText, text, text};
    theme.holiday = theme.saturday = theme.ordinary;
    theme.today = theme.selection = theme.selectionFrame = theme.focus = theme.nowLine = system.highlight;
    theme.selectionText = system.highlightText;
    theme.itemFill = ItemFill::Plain;
    theme.itemOutline = theme.itemArrow = text;
    theme.redFirsts = false;
    theme.dayOffMark = true;
    return theme;
}

bool operator==(const CalendarTheme& a, const CalendarTheme& b)
{
    return a.itemFill == b.itemFill && a.redFirsts == b.redFirsts && a.dayOffMark == b.dayOffMark &&
           SameDay(a.ordinary, b.ordinary) && SameDay(a.holiday, b.holiday) && SameDay(a.saturday, b.saturday) &&
           std::all_of(std::begin(kRoles), std::end(kRoles),
                       [&](const Role& row) { return a.*row.role == b.*row.role; });
}
