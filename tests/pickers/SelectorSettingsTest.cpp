// docs/mini-calendars.md says in which date selectors a setting shows. Its table and the rows below have the same
// names and selectors (./dev lint compares them); here each setting is tried in each of them.
#include "calc/DayCalendar.h"
#include "pickers/MiniCalendarCtrl.h"
#include "pickers/MiniCalendarCtrl2.h"
#include "pickers/YearMonthPickerCtrl.h"
#include "tests/pickers/PickerFixture.h"

#include <cstring>
#include <functional>
#include <type_traits>

namespace {

const dayvane::DayCalendar g_law; // July 2020 had other days off than the rules without exceptions say

struct Selectors
{
    CMiniCalendarCtrl* days = nullptr;
    CMiniCalendarCtrl2* months = nullptr;
    CPeriodGridCtrl* grid = nullptr; // one of these
    CYearMonthPickerCtrl* button = nullptr;
};

// What all three have.
template <class Set>
std::function<void(const Selectors&)> InAll(Set set)
{
    return [set](const Selectors& selectors) {
        if (selectors.grid) {
            set(*selectors.grid);
        } else {
            set(*selectors.button);
        }
    };
}
std::function<void(const Selectors&)> InGrids(void (*set)(CPeriodGridCtrl&))
{
    return [set](const Selectors& selectors) {
        if (selectors.grid) {
            set(*selectors.grid);
        }
    };
}

LOGFONT LargeFont()
{
    LOGFONT font = {};
    font.lfHeight = -20;
    std::strcpy(font.lfFaceName, "Liberation Sans");
    return font;
}

struct Setting
{
    const char* name;
    const char* selectors; // in which it shows
    std::function<void(const Selectors&)> set;
};

const Setting kSettings[] = {
    // settings
    {"SetRowAndCol", "days, months", InGrids([](CPeriodGridCtrl& grid) { grid.SetRowAndCol(1, 2); })},
    {"RecalcRowAndCol", "days, months", InGrids([](CPeriodGridCtrl& grid) { grid.RecalcRowAndCol(590, 490); })},
    {"SetCurrentDate", "days, months, button",
     [](const Selectors& selectors) {
         if (selectors.days) {
             selectors.days->SetCurrentDate(2021, 3);
         } else if (selectors.months) {
             selectors.months->SetCurrentDate(2021);
         } else {
             selectors.button->SetCurrentDate(Day(2021, 3, 1));
         }
     }},
    {"SetSel", "days, months", InGrids([](CPeriodGridCtrl& grid) { grid.SetSel(Day(2020, 7, 1), Day(2020, 7, 1)); })},
    {"SetRangeSelect", "", InGrids([](CPeriodGridCtrl& grid) { grid.SetRangeSelect(!grid.IsRangeSelect()); })},
    {"SetFirstDayOfWeek", "days", InGrids([](CPeriodGridCtrl& grid) { grid.SetFirstDayOfWeek(2); })},
    {"ShowWeekNumbers", "days",
     [](const Selectors& selectors) {
         if (selectors.days) {
             selectors.days->ShowWeekNumbers(TRUE);
         }
     }},
    {"SetBoldCallback", "days, months",
     InGrids([](CPeriodGridCtrl& grid) { grid.SetBoldCallback([](const COleDateTime&, LPARAM) { return TRUE; }); })},
    {"SetDotCallback", "days, months", InGrids([](CPeriodGridCtrl& grid) {
         grid.SetDotCallback([](const COleDateTime&, LPARAM) -> COLORREF { return RGB(0, 200, 0); });
     })},
    {"SetDayProvider", "days", InGrids([](CPeriodGridCtrl& grid) { grid.SetDayProvider(&g_law); })},
    {"ShowEraTitles", "days, months, button", InAll([](auto& selector) { selector.ShowEraTitles(TRUE); })},
    {"SetTexts", "days, months, button", InAll([](auto& selector) { selector.SetTexts(CalendarTexts::English()); })},
    {"SetTheme", "days, months, button", InAll([](auto& selector) { selector.SetTheme(CalendarTheme::Dark()); })},
    {"SetScale", "days, months, button", InAll([](auto& selector) { selector.SetScale(144); })},
    {"SetTextFont", "days, months, button", InAll([](auto& selector) { selector.SetTextFont(LargeFont()); })},
    {"SetOptions", "", InAll([](auto& selector) {
         CalendarOptions options;
         options.toolTips = true;
         selector.SetOptions(options);
     })},
    // end of settings
};

Pixels PictureOf(CWnd& window)
{
    window.Invalidate();
    PumpMessages();
    return Scene<CWnd>::Seen(window);
}

// Whether the picture changes, be it by the size of the button.
template <class Control>
bool Changes(PickerParent& parent, const Setting& setting)
{
    Control control;
    Selectors selectors;
    if constexpr (std::is_base_of_v<CPeriodGridCtrl, Control>) {
        control.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 600, 500), &parent, kSelectorId);
        selectors.grid = &control;
        if constexpr (std::is_base_of_v<CMiniCalendarCtrl, Control>) {
            selectors.days = &control;
            control.SetCurrentDate(2020, 7);
        } else {
            selectors.months = &control;
            control.SetCurrentDate(2020);
        }
        control.Refresh();
    } else {
        control.Create("", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(10, 10, 160, 40), &parent, kSelectorId);
        selectors.button = &control;
        control.SetCurrentDate(Day(2020, 7, 1));
    }
    const Pixels before = PictureOf(control);
    setting.set(selectors);
    if (selectors.grid) {
        selectors.grid->Refresh();
    }
    const bool isOther = PictureOf(control) != before;
    control.DestroyWindow();
    return isOther;
}

} // namespace

TEST(SelectorSettings, ShowWhereTheTableSaysSo)
{
    PickerParent parent;
    for (const Setting& setting : kSettings) {
        const std::pair<const char*, bool> shows[] = {{"days", Changes<CMiniCalendarCtrl>(parent, setting)},
                                                      {"months", Changes<CMiniCalendarCtrl2>(parent, setting)},
                                                      {"button", Changes<CYearMonthPickerCtrl>(parent, setting)}};
        std::string selectors;
        for (const auto& [name, isShown] : shows) {
            if (isShown) {
                selectors += (selectors.empty() ? "" : ", ") + std::string(name);
            }
        }
        EXPECT_EQ(selectors, setting.selectors) << setting.name;
    }
}

TEST(SelectorSettings, EraTitlesAreOnOrOff)
{
    CMiniCalendarCtrl days;
    CMiniCalendarCtrl2 months;
    CYearMonthPickerCtrl button;
    constexpr BOOL kAlsoTrue = 2; // any number but 0 is, and comparisons with TRUE must hold
    for (const auto& [given, kept] : {std::make_pair(kAlsoTrue, TRUE), std::make_pair(FALSE, FALSE)}) {
        days.ShowEraTitles(given);
        months.ShowEraTitles(given);
        button.ShowEraTitles(given);
        EXPECT_EQ(days.IsShowEraTitles(), kept);
        EXPECT_EQ(months.IsShowEraTitles(), kept);
        EXPECT_EQ(button.IsShowEraTitles(), kept);
    }
}
