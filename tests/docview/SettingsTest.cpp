// docs/settings.md says in which views a setting shows. Its table and the rows below have the same names and views
// (./dev lint compares them); here each setting is tried in each view, and the picture says where it shows.
#include "core/CalendarClock.h"
#include "support/Input.h"
#include "support/MemoryDc.h"
#include "support/RecordingParent.h"
#include "calc/DayCalendar.h"
#include "calc/WorkHours.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"
#include "views/timegrid/ZoneRuler.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

using namespace testsupport;

namespace {

constexpr int kWidth = 620;
constexpr int kHeight = 500;
constexpr COLORREF kColor = RGB(250, 100, 50); // of no theme and no item

// A day of the farmer's year, one of a solar term, a day off.
const COleDateTime kDays[] = {COleDateTime(2026, 2, 3, 0, 0, 0), COleDateTime(2026, 2, 4, 0, 0, 0),
                              COleDateTime(2026, 11, 23, 0, 0, 0)};
COleDateTime g_day;
const dayvane::DayCalendar g_calendar; // knows days of each kind

COleDateTime At(int hour, int minute = 0)
{
    return g_day + COleDateTimeSpan(0, hour, minute, 0);
}

using View = CCalendarCtrl;

CTimeGridCtrl* TimeGridOf(View& view)
{
    return dynamic_cast<CTimeGridCtrl*>(&view);
}

void SetOption(View& view, bool CalendarOptions::*option)
{
    CalendarOptions options = view.GetOptions();
    options.*option = true;
    view.SetOptions(options);
}

// One option, or one line of days, in a call.
std::function<void(View&)> Option(bool CalendarOptions::*option)
{
    return [option](View& view) { SetOption(view, option); };
}
std::function<void(View&)> Line(bool dayvane::DayLines::*line)
{
    return [line](View& view) {
        dayvane::DayLines lines;
        lines.*line = true;
        view.SetDayLines(lines);
    };
}
std::function<void(View&)> InTimeGrids(void (*set)(CTimeGridCtrl&))
{
    return [set](View& view) {
        if (CTimeGridCtrl* grid = TimeGridOf(view)) {
            set(*grid);
        }
    };
}

void MarkTheDay(View& view)
{
    tagCALENDAR_DAY_PROPERTY property;
    property.strText = "Stocktaking";
    property.nDayColor = 3;
    view.SetDayProperty(g_day, property);
}

void ShowTwoClocks(CTimeGridCtrl& grid)
{
    dayvane::ZoneRuler ruler;
    ruler.own = dayvane::ZoneClock(9 * 3600);
    ruler.other = dayvane::ZoneClock(0);
    ruler.otherLabel = "UTC";
    grid.SetZoneRuler(ruler);
}

void WorkWithABreak(CTimeGridCtrl& grid)
{
    dayvane::WorkHours hours;
    hours.SetWeekday(g_day.GetDayOfWeek(), {{8 * 60, 12 * 60}, {13 * 60, 17 * 60}});
    grid.SetWorkHours(hours);
}

void WorkNever(View& view)
{
    tagCALENDAR_WORK_DAY_OF_WEEK days;
    for (BOOL& works : days.bWorkDay) {
        works = FALSE;
    }
    view.SetWorkDayOfWeek(days);
}

void UseLargeText(View& view)
{
    LOGFONT font = {};
    font.lfHeight = -20;
    strcpy(font.lfFaceName, "Liberation Sans");
    view.SetTextFont(font);
}

struct Setting
{
    const char* name;
    const char* views; // in which it shows, in the order of kViews
    std::function<void(View&)> set;
};

const Setting kSettings[] = {
    // settings
    {"ShowCaption", "month, blocks, week, year, day, days", [](View& view) { view.ShowCaption(FALSE); }},
    {"SetCaptionText", "", [](View& view) { view.SetCaptionText("Title"); }},
    {"SetCaptionColor", "year, days", [](View& view) { view.SetCaptionColor(kColor); }},
    {"SetCaptionTextColor", "month, blocks, week, year, day, days",
     [](View& view) { view.SetCaptionTextColor(kColor); }},
    {"SetRulerColor", "day, days", [](View& view) { view.SetRulerColor(kColor); }},
    {"SetRulerTextColor", "day, days", [](View& view) { view.SetRulerTextColor(kColor); }},
    {"SetContentColor", "week, year, day, days", [](View& view) { view.SetContentColor(kColor); }},
    {"SetGridColor", "month, blocks, week, year, day, days", [](View& view) { view.SetGridColor(kColor); }},
    {"SetBorderColor", "", [](View& view) { view.SetBorderColor(kColor); }},
    {"SetHighLightColor", "month, blocks, week, year, day, days", [](View& view) { view.SetHighLightColor(kColor); }},
    {"SetHighLightTextColor", "month, blocks, week, year", [](View& view) { view.SetHighLightTextColor(kColor); }},
    {"SetItemBorderColor", "", [](View& view) { view.SetItemBorderColor(kColor); }},
    {"SetNoFocusColor", "", [](View& view) { view.SetNoFocusColor(kColor); }},
    {"SetTheme", "month, blocks, week, year, day, days", [](View& view) { view.SetTheme(CalendarTheme::Dark()); }},
    {"SetScale", "month, blocks, week, year, day, days", [](View& view) { view.SetScale(144); }},
    {"SetTextFont", "month, blocks, week, year, day, days", UseLargeText},
    {"SetFonts", "month, blocks, week, year, day, days", [](View& view) { view.SetFonts(CalendarFonts::Modern()); }},
    {"SetTexts", "month, blocks, week, year, day, days", [](View& view) { view.SetTexts(CalendarTexts::English()); }},
    {"SetTextCodePage", "month, blocks, week, year, day, days", [](View& view) { view.SetTextCodePage(CP_UTF8); }},
    {"SetFirstDayOfWeek", "month, blocks, week, days", [](View& view) { view.SetFirstDayOfWeek(2); }},
    {"SetItemDisplayMode", "month", [](View& view) { view.SetItemDisplayMode(CID_START_AND_END); }},
    {"ShowSelectionWithItem", "month, blocks, week, year, day, days",
     [](View& view) { view.ShowSelectionWithItem(FALSE); }},
    {"ShowHoliday", "month, blocks, week, day, days", [](View& view) { view.ShowHoliday(FALSE); }},
    {"Show24Setuki", "month, blocks, week, day", [](View& view) { view.Show24Setuki(FALSE); }},
    {"SetDayColor", "month, blocks, week, day, days", [](View& view) { view.SetDayColor(g_day, 3); }},
    {"SetDayProperty", "month, blocks, week, day, days", MarkTheDay},
    {"SetDayLines: names", "month, blocks, week, year, day, days", Line(&dayvane::DayLines::names)},
    {"SetDayLines: terms", "month, blocks, week, year, day, days", Line(&dayvane::DayLines::terms)},
    {"SetDayLines: seasonalDays", "month, blocks, week, year, day, days", Line(&dayvane::DayLines::seasonalDays)},
    {"SetDayLines: rokuyo", "month, blocks, week, year, day, days", Line(&dayvane::DayLines::rokuyo)},
    {"SetDayLines: lunarDate", "month, blocks, week, year, day, days", Line(&dayvane::DayLines::lunarDate)},
    {"SetDayLines: moonPhase", "month, blocks, week, year, day, days", Line(&dayvane::DayLines::moonPhase)},
    {"SetDayLines: weekNumbers", "month, blocks, week, day, days", Line(&dayvane::DayLines::weekNumbers)},
    {"SetDayLines: eraTitles", "month, blocks, week, year, day, days", Line(&dayvane::DayLines::eraTitles)},
    {"SetTimeScale", "day, days", [](View& view) { view.SetTimeScale(6); }},
    {"SetWorkTime", "day, days",
     [](View& view) {
         view.SetWorkTime({COleDateTime(1899, 12, 30, 9, 0, 0), COleDateTime(1899, 12, 30, 11, 0, 0)});
     }},
    {"SetWorkDayOfWeek", "day, days", WorkNever},
    {"SetWorkHours", "day, days", InTimeGrids(WorkWithABreak)},
    {"SetZoneRuler", "day, days", InTimeGrids(ShowTwoClocks)},
    {"SetFulldayItemCount", "", [](View& view) { view.SetFulldayItemCount(13); }},
    {"ShowFulldaySection", "", [](View& view) { view.ShowFulldaySection(FALSE); }},
    {"nowLine", "day, days", Option(&CalendarOptions::nowLine)},
    {"tidyColumns", "day, days", Option(&CalendarOptions::tidyColumns)},
    {"limitedBand", "day, days", Option(&CalendarOptions::limitedBand)},
    {"visibleShortItems", "day, days", Option(&CalendarOptions::visibleShortItems)},
    // end of settings
};

struct Kind
{
    const char* name;
    std::function<std::unique_ptr<View>()> make;
};

const Kind kViews[] = {
    {"month", [] { return std::make_unique<CMonthViewCtrl>(); }},
    {"blocks", [] { return std::make_unique<CMonthViewCtrl2>(); }},
    {"week", [] { return std::make_unique<CWeekViewCtrl>(); }},
    {"year", [] { return std::make_unique<CYearViewCtrl>(); }},
    {"day", [] { return std::make_unique<CDayViewCtrl>(); }},
    {"days", [] { return std::make_unique<CWeekDayViewCtrl>(); }},
};

void Add(View& view, const char* text, const COleDateTime& start, const COleDateTime& end, int fullday = 0)
{
    tagCC_ITEM item;
    item.dtStart = start;
    item.dtEnd = end;
    item.strText = text;
    item.nFullday = fullday;
    view.AddItem(&item, FALSE, FALSE);
}

// At 10:30: overlapping items, one without length, whole days for more than 40 % of the height, a text that only UTF-8
// reads.
void Fill(View& view)
{
    if (auto* days = dynamic_cast<CWeekDayViewCtrl*>(&view)) {
        days->SetDateScale(CWD_WEEK);
        days->SetRange(g_day);
    }
    view.SetCurrentDate(At(9));
    constexpr char kText[] = "caf\xC3\xA9";
    Add(view, kText, At(9), At(11));
    for (int i = 0; i < 4; ++i) {
        Add(view, kText, At(10), At(12));
    }
    for (int i = 0; i < 11; ++i) {
        Add(view, kText, At(0), At(23), 1);
    }
    Add(view, kText, At(13), At(13));
    view.SetDayProvider(&g_calendar);
    view.SetCurSel(0);
    view.ShowSelectionWithItem(TRUE);
}

class SettingsOf : public testing::Test
{
    std::map<std::string, std::unique_ptr<MemoryDc>> m_before;

protected:
    RecordingParent parent;

    SettingsOf()
    {
        SetCalendarClock([] { return At(10, 30); });
        parent.Create(kWidth, kHeight);
    }
    ~SettingsOf() override { SetCalendarClock(nullptr); }

    std::unique_ptr<View> Made(const Kind& kind)
    {
        std::unique_ptr<View> view = kind.make();
        view->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, kWidth, kHeight), &parent, 7);
        Fill(*view);
        view->Refresh();
        if (CTimeGridCtrl* grid = TimeGridOf(*view)) {
            grid->ScrollToTime(At(9));
        }
        return view;
    }
    // On one of the days at least; the names of days need more than one.
    bool ShowsIn(const Kind& kind, const Setting& setting)
    {
        const std::string name = setting.name;
        const bool namesDays = name.find("SetDayLines") == 0 || name == "Show24Setuki" || name == "ShowHoliday";
        for (const COleDateTime& day : kDays) {
            g_day = day;
            MemoryDc after(kWidth, kHeight);
            const auto view = Made(kind);
            setting.set(*view);
            Print(*view, after);
            view->DestroyWindow();
            if (!after.SameAs(Before(kind)) || !namesDays) {
                return !after.SameAs(Before(kind));
            }
        }
        return false;
    }
    // Without any setting, on this day.
    const MemoryDc& Before(const Kind& kind)
    {
        std::unique_ptr<MemoryDc>& picture = m_before[std::string(kind.name) + g_day.Format(" %m-%d").GetString()];
        if (!picture) {
            picture = std::make_unique<MemoryDc>(kWidth, kHeight);
            const auto view = Made(kind);
            Print(*view, *picture);
            view->DestroyWindow();
        }
        return *picture;
    }
    static void Print(View& view, MemoryDc& picture)
    {
        view.Refresh();
        PumpMessages();
        view.SendMessage(WM_PRINT, reinterpret_cast<WPARAM>(picture.Dc().m_hDC), PRF_CLIENT);
    }
};

TEST_F(SettingsOf, ViewsShowWhereTheTableSaysSo)
{
    if (::GetACP() != 932 || sizeof(void*) != 4) {
        return; // five hundred pictures; one system and one build are enough
    }
    for (const Setting& setting : kSettings) {
        std::string views;
        for (const Kind& kind : kViews) {
            if (ShowsIn(kind, setting)) {
                views += views.empty() ? kind.name : std::string(", ") + kind.name;
            }
        }
        EXPECT_EQ(views, setting.views) << setting.name;
    }
}

} // namespace
