#include "core/CalendarTheme.h"

#include "core/ThemeColors.h"

#include <algorithm>
#include <iterator>

namespace {

// From the notation of web colours.
constexpr COLORREF Web(unsigned rrggbb)
{
    return RGB(rrggbb >> 16 & 0xFF, rrggbb >> 8 & 0xFF, rrggbb & 0xFF);
}

constexpr bool SameDay(const CalendarTheme::Day& a, const CalendarTheme::Day& b)
{
    return a.work == b.work && a.workLine == b.workLine && a.workHourLine == b.workHourLine && a.off == b.off &&
           a.offLine == b.offLine && a.offHourLine == b.offHourLine && a.text == b.text;
}

// Every role that is one colour.
constexpr COLORREF CalendarTheme::*kRoles[] = {
    &CalendarTheme::title,          &CalendarTheme::titleLine,
    &CalendarTheme::titleText,      &CalendarTheme::header,
    &CalendarTheme::headerOther,    &CalendarTheme::headerText,
    &CalendarTheme::headerHoliday,  &CalendarTheme::headerSaturday,
    &CalendarTheme::ruler,          &CalendarTheme::rulerText,
    &CalendarTheme::page,           &CalendarTheme::pageText,
    &CalendarTheme::otherMonthText, &CalendarTheme::grid,
    &CalendarTheme::border,         &CalendarTheme::today,
    &CalendarTheme::todayGround,    &CalendarTheme::selection,
    &CalendarTheme::selectionText,  &CalendarTheme::selectionFrame,
    &CalendarTheme::focus,          &CalendarTheme::hot,
    &CalendarTheme::nowLine,        &CalendarTheme::itemOutline,
    &CalendarTheme::itemArrow,      &CalendarTheme::mark,
    &CalendarTheme::markText,
};

} // namespace

CalendarTheme CalendarTheme::Calm()
{
    CalendarTheme theme;
    theme.title = Web(0xF3F5F8);
    theme.titleLine = Web(0xC9D0D9);
    theme.titleText = Web(0x1F2328);
    theme.header = Web(0xEEF1F5);
    theme.headerOther = Web(0xE2E7ED);
    theme.headerText = Web(0x333B46);
    theme.headerHoliday = Web(0x9E2B36);
    theme.headerSaturday = Web(0x28569B);
    theme.ruler = Web(0xF3F5F8);
    theme.rulerText = Web(0x545B65);
    theme.page = Web(0xFFFFFF);
    theme.pageText = Web(0x1F2328);
    theme.otherMonthText = Web(0x545B65);
    theme.grid = Web(0xD5DAE1);
    theme.border = Web(0xB8C0CA);
    //                work,          line,          hour line,     off,           line,          hour line,     text
    theme.ordinary = {Web(0xFFFFFF), Web(0xE7EAEE), Web(0xD0D6DE), Web(0xF5F6F8),
                      Web(0xE4E7EC), Web(0xCDD3DB), Web(0x1F2328)};
    theme.holiday = {Web(0xFBF3F3), Web(0xF0E3E3), Web(0xE2CFCF), Web(0xF6ECEC),
                     Web(0xEBDDDD), Web(0xDECACA), Web(0x9E2B36)};
    theme.saturday = {Web(0xF3F6FB), Web(0xE3E9F2), Web(0xCFD8E6), Web(0xECF0F7),
                      Web(0xDDE4EE), Web(0xCAD3E1), Web(0x28569B)};
    theme.today = Web(0xC96A12);
    theme.todayGround = Web(0xFFDC9F);
    theme.selection = Web(0xCFE2FB);
    theme.selectionText = Web(0x12355F);
    theme.selectionFrame = Web(0x2F6FD0);
    theme.focus = Web(0x1A62C4);
    theme.hot = Web(0xE6EEF9);
    theme.nowLine = Web(0xD4182A);
    theme.itemOutline = Web(0x8A94A3);
    theme.itemArrow = Web(0x5A6470);
    theme.mark = Web(0xE3E8EF);
    theme.markText = Web(0x333B46);
    theme.redFirsts = false;
    theme.dayOffMark = true;
    return theme;
}

CalendarTheme CalendarTheme::Dark()
{
    CalendarTheme theme;
    theme.title = Web(0x26292E);
    theme.titleLine = Web(0x3A3F47);
    theme.titleText = Web(0xF0F2F5);
    theme.header = Web(0x2A2E34);
    theme.headerOther = Web(0x343940);
    theme.headerText = Web(0xD5D9DF);
    theme.headerHoliday = Web(0xFF9A9A);
    theme.headerSaturday = Web(0x9CC2FF);
    theme.ruler = Web(0x26292E);
    theme.rulerText = Web(0xB4BAC4);
    theme.page = Web(0x1E2024);
    theme.pageText = Web(0xE4E6EA);
    theme.otherMonthText = Web(0xABB1BB);
    theme.grid = Web(0x3A3F47);
    theme.border = Web(0x4A505A);
    //                work,          line,          hour line,     off,           line,          hour line,     text
    theme.ordinary = {Web(0x1E2024), Web(0x2B2F35), Web(0x3B4048), Web(0x18191C),
                      Web(0x24272C), Web(0x343840), Web(0xE4E6EA)};
    theme.holiday = {Web(0x2A2022), Web(0x36292B), Web(0x46363A), Web(0x231A1C),
                     Web(0x2F2426), Web(0x3F3033), Web(0xFF9A9A)};
    theme.saturday = {Web(0x1F2530), Web(0x2A3240), Web(0x3A4556), Web(0x191E28),
                      Web(0x242B37), Web(0x333D4C), Web(0x9CC2FF)};
    theme.today = Web(0xF0A040);
    theme.todayGround = Web(0x4A3A1E);
    theme.selection = Web(0x264A78);
    theme.selectionText = Web(0xF4F8FF);
    theme.selectionFrame = Web(0x5C9CF0);
    theme.focus = Web(0x7DB4FF);
    theme.hot = Web(0x2F3640);
    theme.nowLine = Web(0xFF6B6B);
    theme.itemFill = ItemFill::ForDarkPage;
    theme.itemOutline = Web(0x6B7480);
    theme.itemArrow = Web(0xB0B6C0);
    theme.mark = Web(0x3A3F47);
    theme.markText = Web(0xE4E6EA);
    theme.redFirsts = false;
    theme.dayOffMark = true;
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
                       [&](COLORREF CalendarTheme::*role) { return a.*role == b.*role; });
}
