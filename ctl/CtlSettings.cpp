// Messages about options, parts, colours and sizes.
#include "CtlMessages.h"

#include "core/DayLines.h"

#include <iterator>

namespace dayvane::ctl {

namespace {

// In the order of the bits DVO_...
constexpr bool CalendarOptions::*kOptions[] = {
    &CalendarOptions::tidyColumns,   &CalendarOptions::limitedBand,    &CalendarOptions::visibleShortItems,
    &CalendarOptions::hitWhatIsSeen, &CalendarOptions::wholeDayByDrag, &CalendarOptions::keysLeaveWholeDay,
    &CalendarOptions::nowLine,       &CalendarOptions::extendedMove,   &CalendarOptions::moreList,
    &CalendarOptions::toolTips,      &CalendarOptions::carefulDrops,   &CalendarOptions::selectionEvents,
    &CalendarOptions::dialogKeys,    &CalendarOptions::wheelByDelta,   &CalendarOptions::keyboardMoves,
    &CalendarOptions::typeToEdit,    &CalendarOptions::followDpi,      &CalendarOptions::followSystemTheme,
};
static_assert(DVO_ALL == (1u << std::size(kOptions)) - 1, "each option has a bit");

// In the order of the numbers DVC_...
constexpr void (CCalendarCtrl::*kColors[])(COLORREF) = {
    &CCalendarCtrl::SetCaptionColor,   &CCalendarCtrl::SetCaptionTextColor, &CCalendarCtrl::SetRulerColor,
    &CCalendarCtrl::SetRulerTextColor, &CCalendarCtrl::SetContentColor,     &CCalendarCtrl::SetGridColor,
    &CCalendarCtrl::SetBorderColor,    &CCalendarCtrl::SetHighLightColor,   &CCalendarCtrl::SetHighLightTextColor};
static_assert(DVC_HIGHLIGHTTEXT + 1 == std::size(kColors), "each colour has a number");

constexpr UINT kViewParts = DVSH_CAPTION | DVSH_HOLIDAYS | DVSH_TERMS | DVSH_HOVER;
constexpr UINT kGridParts = DVSH_RANGES;
constexpr UINT kMiniCalendarParts = DVSH_RANGES | DVSH_WEEKNUMBERS;

// In the order of the bits DVY_..., the language beside them.
constexpr bool DayLines::*kDayLines[] = {&DayLines::names,       &DayLines::terms,     &DayLines::seasonalDays,
                                         &DayLines::rokuyo,      &DayLines::lunarDate, &DayLines::moonPhase,
                                         &DayLines::weekNumbers, &DayLines::eraTitles};
constexpr UINT kAllDayLines = DVY_INENGLISH | (DVY_INENGLISH - 1);
static_assert(DVY_INENGLISH == 1u << std::size(kDayLines), "each line has a bit");
constexpr UINT kAllParts = kViewParts | kGridParts | kMiniCalendarParts;

constexpr int kLowestScale = 48; // dots an inch
constexpr int kHighestScale = 768;
constexpr int kMostBlocks = 20; // rows, and columns, of a mini calendar
constexpr int kMinutesPerDay = 24 * 60;
constexpr int kFewestDays = 2;
constexpr int kMostDays = 14;
// What CWeekDayViewCtrl::SetDateScale calls its weeks.
constexpr int kScaleWorkWeek = 14;
constexpr int kScaleWeek = 15;

// Calls `body` with the control itself.
template <class Body>
void Visit(CtlWindow& control, Body body)
{
    if (control.view) {
        body(*control.view);
    } else if (control.grid) {
        body(*control.grid);
    } else {
        body(*control.picker);
    }
}

CalendarOptions OptionsOf(CtlWindow& control)
{
    CalendarOptions options;
    Visit(control, [&options](const auto& object) { options = object.GetOptions(); });
    return options;
}

void ShowInView(CCalendarCtrl& view, UINT part, BOOL isShown)
{
    switch (part) {
    case DVSH_CAPTION:
        view.ShowCaption(isShown);
        break;
    case DVSH_HOLIDAYS:
        view.ShowHoliday(isShown);
        break;
    case DVSH_TERMS:
        view.Show24Setuki(isShown);
        break;
    case DVSH_HOVER:
        view.EnableMouseHoverEvent(isShown);
        break;
    }
}

void ShowInGrid(CtlWindow& control, UINT part, BOOL isShown)
{
    switch (part) {
    case DVSH_RANGES:
        control.grid->SetRangeSelect(isShown);
        break;
    case DVSH_WEEKNUMBERS:
        control.miniCalendar->ShowWeekNumbers(isShown);
        break;
    }
}

COleDateTime TimeOfMinute(int minute)
{
    return COleDateTime(1899, 12, 30, minute / 60, minute % 60, 0);
}

} // namespace

LRESULT OnSetOptions(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const UINT mask = static_cast<UINT>(wParam);
    const UINT flags = static_cast<UINT>(lParam);
    if ((mask | flags) & ~DVO_ALL) {
        return DVE_VALUE;
    }
    CalendarOptions options = OptionsOf(control);
    for (size_t i = 0; i < std::size(kOptions); ++i) {
        if (mask & (1u << i)) {
            options.*kOptions[i] = (flags & (1u << i)) != 0;
        }
    }
    Visit(control, [&options](auto& object) { object.SetOptions(options); });
    return kDone;
}

LRESULT OnGetOptions(CtlWindow& control, WPARAM, LPARAM)
{
    const CalendarOptions options = OptionsOf(control);
    UINT flags = 0;
    for (size_t i = 0; i < std::size(kOptions); ++i) {
        flags |= options.*kOptions[i] ? 1u << i : 0;
    }
    return static_cast<LRESULT>(flags);
}

LRESULT OnSetShow(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const UINT mask = static_cast<UINT>(wParam);
    if ((mask | static_cast<UINT>(lParam)) & ~kAllParts) {
        return DVE_VALUE;
    }
    if (mask & ~(control.view ? kViewParts : control.miniCalendar ? kMiniCalendarParts : kGridParts)) {
        return DVE_KIND;
    }
    for (UINT part = 1; part <= kAllParts; part <<= 1) {
        if ((mask & part) == 0) {
            continue;
        }
        const BOOL isShown = (lParam & part) != 0;
        if (control.view) {
            ShowInView(*control.view, part, isShown);
        } else {
            ShowInGrid(control, part, isShown);
        }
    }
    Refresh(control);
    return kDone;
}

LRESULT OnSetDayLines(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const UINT mask = static_cast<UINT>(wParam);
    const UINT flags = static_cast<UINT>(lParam);
    if ((mask | flags) & ~kAllDayLines) {
        return DVE_VALUE;
    }
    DayLines lines = control.view->GetDayLines();
    for (size_t i = 0; i < std::size(kDayLines); ++i) {
        if (mask & (1u << i)) {
            lines.*kDayLines[i] = (flags & (1u << i)) != 0;
        }
    }
    if (mask & DVY_INENGLISH) {
        lines.language = flags & DVY_INENGLISH ? DayLanguage::English : DayLanguage::Japanese;
    }
    control.view->SetDayLines(lines);
    Refresh(control);
    return kDone;
}

LRESULT OnGetDayLines(CtlWindow& control, WPARAM, LPARAM)
{
    const DayLines& lines = control.view->GetDayLines();
    UINT flags = lines.language == DayLanguage::English ? DVY_INENGLISH : 0;
    for (size_t i = 0; i < std::size(kDayLines); ++i) {
        flags |= lines.*kDayLines[i] ? 1u << i : 0;
    }
    return static_cast<LRESULT>(flags);
}

LRESULT OnSetColor(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    if (wParam >= std::size(kColors)) {
        return DVE_VALUE;
    }
    (control.view->*kColors[wParam])(static_cast<COLORREF>(lParam));
    Refresh(control);
    return kDone;
}

LRESULT OnSetTheme(CtlWindow& control, WPARAM wParam, LPARAM)
{
    if (wParam > DVT_HIGHCONTRAST) {
        return DVE_VALUE;
    }
    const CalendarTheme theme = wParam == DVT_CALM           ? CalendarTheme::Calm()
                                : wParam == DVT_DARK         ? CalendarTheme::Dark()
                                : wParam == DVT_HIGHCONTRAST ? CalendarTheme::HighContrast()
                                                             : CalendarTheme::Classic();
    Visit(control, [&](auto& object) { object.SetTheme(theme); });
    return kDone;
}

LRESULT OnSetTexts(CtlWindow& control, WPARAM wParam, LPARAM)
{
    if (wParam > DVX_USER) {
        return DVE_VALUE;
    }
    const CalendarTexts texts = wParam == DVX_JAPANESE  ? CalendarTexts::Japanese()
                                : wParam == DVX_ENGLISH ? CalendarTexts::English()
                                : wParam == DVX_USER    ? CalendarTexts::FromLocale(::GetUserDefaultLCID())
                                                        : CalendarTexts::Required();
    Visit(control, [&texts](auto& object) { object.SetTexts(texts); });
    return kDone;
}

LRESULT OnSetScale(CtlWindow& control, WPARAM wParam, LPARAM)
{
    const int dpi = static_cast<int>(wParam);
    if (dpi < kLowestScale || dpi > kHighestScale) {
        return DVE_VALUE;
    }
    Visit(control, [dpi](auto& object) { object.SetScale(dpi); });
    return kDone;
}

LRESULT OnGetScale(CtlWindow& control, WPARAM, LPARAM)
{
    int dpi = 0;
    Visit(control, [&dpi](const auto& object) { dpi = object.GetScale(); });
    return dpi;
}

LRESULT OnSetFirstDay(CtlWindow& control, WPARAM wParam, LPARAM)
{
    // An exception for other days: DVE_VALUE
    const int day = static_cast<int>(wParam);
    if (control.view) {
        control.view->SetFirstDayOfWeek(day);
    } else {
        control.grid->SetFirstDayOfWeek(day);
    }
    Refresh(control);
    return kDone;
}

LRESULT OnGetFirstDay(CtlWindow& control, WPARAM, LPARAM)
{
    return control.view ? control.view->GetFirstDayOfWeek() : control.grid->GetFirstDayOfWeek();
}

LRESULT OnSetTimeScale(CtlWindow& control, WPARAM wParam, LPARAM)
{
    control.view->SetTimeScale(static_cast<int>(wParam));
    Refresh(control);
    return kDone;
}

LRESULT OnSetWorkTime(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const int from = static_cast<int>(wParam);
    const int to = static_cast<int>(lParam);
    if (from < 0 || to < from || to >= kMinutesPerDay) {
        return DVE_VALUE;
    }
    control.view->SetWorkTime({TimeOfMinute(from), TimeOfMinute(to)});
    Refresh(control);
    return kDone;
}

LRESULT OnSetDays(CtlWindow& control, WPARAM wParam, LPARAM)
{
    const int days = static_cast<int>(wParam);
    const int scale = days == DVD_WORKWEEK ? kScaleWorkWeek : days == DVD_WEEK ? kScaleWeek : days - 1;
    if (days != DVD_WORKWEEK && days != DVD_WEEK && (days < kFewestDays || days > kMostDays)) {
        return DVE_VALUE;
    }
    control.multiDay->SetDateScale(scale);
    Refresh(control);
    return kDone;
}

LRESULT OnScrollToTime(CtlWindow& control, WPARAM wParam, LPARAM)
{
    const int minute = static_cast<int>(wParam);
    if (minute < 0 || minute >= kMinutesPerDay) {
        return DVE_VALUE;
    }
    control.timeGrid->ScrollToTime(TimeOfMinute(minute));
    return kDone;
}

LRESULT OnSetGrid(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const int rows = static_cast<int>(wParam);
    const int columns = static_cast<int>(lParam);
    if (rows < 1 || rows > kMostBlocks || columns < 1 || columns > kMostBlocks) {
        return DVE_VALUE;
    }
    control.grid->SetRowAndCol(rows, columns);
    Refresh(control);
    return kDone;
}

LRESULT OnGetIdealSize(CtlWindow& control, WPARAM, LPARAM lParam)
{
    *reinterpret_cast<SIZE*>(lParam) = control.grid->GetGridSize();
    return kDone;
}

} // namespace dayvane::ctl
