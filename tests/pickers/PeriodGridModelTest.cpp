#include "pickers/PeriodGridModel.h"
#include "tests/pickers/PickerDates.h"

using namespace dayvane;

namespace {
// The effects in the order in which a control applies them.
std::string Text(const GridEffects& effects)
{
    std::string text;
    const auto add = [&](bool on, const char* word) {
        text += on ? (text.empty() ? "" : " ") + std::string(word) : "";
    };
    add(effects.closePopup, "close");
    add(effects.releaseCapture, "release");
    add(effects.layout, "layout");
    add(effects.capture, "capture");
    add(effects.openPopup, "open");
    add(effects.redraw, "redraw");
    add(effects.notifyClick, "click");
    add(effects.notifyDoubleClick, "dblclk");
    return text.empty() && effects.handled ? "handled" : text;
}

const COleDateTime kNow = Day(2010, 1, 15, 9);

struct Script
{
    explicit Script(const PeriodPolicy& policy, int rows = 1, int columns = 1) : model(policy, kNow)
    {
        model.SetGrid(rows, columns);
    }
    std::string Press(const COleDateTime& date) { return Text(model.Press({GridPart::Cell, 0, 0}, date, kNow)); }
    std::string Press(GridPart part, int block = -1) { return Text(model.Press({part, block}, NoDate(), kNow)); }
    std::string Point(const COleDateTime& date) { return Text(model.PointAt(date)); }
    std::string Release(int period = 0) { return Text(model.Release(period)); }
    std::string Key(PickerKey key, const char* with = "")
    {
        const std::string keys = with;
        return Text(model.Key(key, keys.find('s') != keys.npos, keys.find('c') != keys.npos, kNow));
    }
    std::string Selection() const { return Text(model.Selection().start) + "-" + Text(model.Selection().end); }
    std::string Shown() const { return Text(DateOfPeriod(model.Policy(), model.FirstPeriod())); }

    PeriodGridModel model;
};
} // namespace

TEST(PeriodGridModelTest, ASweepSelectsEitherWayAndReportsOnceAtItsEnd)
{
    Script s(kMonthPolicy);
    EXPECT_EQ("none-none", s.Selection());
    EXPECT_EQ("capture redraw", s.Press(Day(2010, 1, 10)));
    EXPECT_EQ("redraw", s.Point(Day(2010, 1, 12)));
    EXPECT_EQ("handled", s.Point(Day(2010, 1, 12))) << "nothing changed, nothing is drawn";
    EXPECT_EQ("", s.Point(NoDate())) << "beside the days the range stays";
    EXPECT_EQ("2010/1/10-2010/1/12", s.Selection());
    EXPECT_EQ("redraw", s.Point(Day(2010, 1, 7)));
    EXPECT_EQ("2010/1/7-2010/1/10", s.Selection());
    EXPECT_EQ("release redraw click", s.Release());
    EXPECT_EQ("", s.Point(Day(2010, 1, 20))) << "the sweep is over";
    EXPECT_EQ("", s.Release());
    s.Press(Day(2010, 1, 20));
    EXPECT_EQ("handled", s.Key(PickerKey::Left)) << "keys do nothing beside the held button";
    EXPECT_EQ("release redraw", s.Key(PickerKey::Escape));
    EXPECT_EQ("", s.Key(PickerKey::Escape)) << "a second Escape is for the dialog";
    EXPECT_EQ("2010/1/7-2010/1/10", s.Selection());
    EXPECT_EQ("", s.Press(NoDate())) << "a cell beyond the calendar's ends";
}

TEST(PeriodGridModelTest, TheFooterSelectsThePresentMomentAndShowsIt)
{
    Script s(kMonthPolicy);
    s.model.SetFirstPeriod(PeriodOf(kMonthPolicy, Day(1999, 3, 1)));
    EXPECT_EQ("layout redraw click", s.Press(GridPart::Footer));
    EXPECT_EQ("2010/1/15+9h-2010/1/15+9h", s.Selection());
    EXPECT_EQ("2010/1/1", s.Shown());
    EXPECT_FALSE(s.model.IsSelected(Day(2010, 1, 15))) << "midnight lies before the bounds";
    EXPECT_TRUE(s.model.IsCellSelected(Day(2010, 1, 15))) << "but the day is drawn as selected";
    EXPECT_FALSE(s.model.IsCellSelected(Day(2010, 1, 16)));
    s.model.Unselect();
    EXPECT_FALSE(s.model.IsCellSelected(Day(2010, 1, 15)));
    s.model.Select(Day(2010, 1, 15, 20), Day(2010, 1, 15, 9));
    EXPECT_FALSE(s.model.IsCellSelected(Day(2010, 1, 15))) << "bounds the wrong way round";
}

TEST(PeriodGridModelTest, PagingStopsAtTheEnds)
{
    for (const PeriodPolicy* policy : {&kMonthPolicy, &kYearPolicy}) {
        Script ends(*policy, 2, 2);
        ends.model.SetFirstPeriod(policy->LastPeriod());
        EXPECT_EQ("layout redraw", ends.Press(GridPart::RightArrow));
        EXPECT_EQ(policy->LastPeriod(), ends.model.FirstPeriod());
        ends.model.SetFirstPeriod(-5);
        ends.Press(GridPart::LeftArrow);
        EXPECT_EQ(policy->FirstPeriod(), ends.model.FirstPeriod());
    }
}

TEST(PeriodGridModelTest, TheChosenMonthComesToTheClickedTitleTheChosenYearToTheFirst)
{
    Script months(kMonthPolicy, 1, 3);
    EXPECT_EQ("capture open redraw", months.Press(GridPart::Title, 2));
    EXPECT_EQ("close release layout redraw", months.Release(PeriodOf(kMonthPolicy, Day(2010, 5, 1))));
    EXPECT_EQ("2010/3/1", months.Shown());
    months.Press(GridPart::Title, 2);
    months.Release(PeriodOf(kMonthPolicy, Day(2010, 1, 1)));
    EXPECT_EQ("2009/11/1", months.Shown()) << "over the year's end";
    months.Press(GridPart::Title, 2);
    months.Release(PeriodOf(kMonthPolicy, Day(100, 1, 1)));
    EXPECT_EQ("100/1/1", months.Shown()) << "not before the first month";

    Script years(kYearPolicy, 1, 2);
    years.Press(GridPart::Title, 1);
    years.Release(2015);
    EXPECT_EQ("2015/1/1", years.Shown());
}

TEST(PeriodGridModelTest, KeysMoveTheSelectionAndTurnThePageWhenItLeaves)
{
    const struct
    {
        const PeriodPolicy& policy;
        COleDateTime from;
        PickerKey key;
        const char* with; // s: Shift, c: Ctrl
        const char* selection;
        const char* shown;
    } table[] = {
        {kMonthPolicy, Day(2010, 1, 10), PickerKey::Left, "", "2010/1/9-2010/1/9", "2010/1/1"},
        {kMonthPolicy, Day(2010, 1, 31), PickerKey::Right, "", "2010/2/1-2010/2/1", "2010/1/1"},
        {kMonthPolicy, Day(2010, 2, 27), PickerKey::Down, "", "2010/3/6-2010/3/6", "2010/2/1"},
        {kMonthPolicy, Day(2010, 1, 3), PickerKey::Up, "", "2009/12/27-2009/12/27", "2009/12/1"},
        {kMonthPolicy, Day(2010, 1, 31), PickerKey::PageDown, "", "2010/2/28-2010/2/28", "2010/1/1"},
        {kMonthPolicy, Day(2010, 1, 31), PickerKey::PageUp, "c", "2009/1/31-2009/1/31", "2009/1/1"},
        {kMonthPolicy, Day(2010, 1, 31), PickerKey::PageDown, "c", "2011/1/31-2011/1/31", "2010/12/1"},
        {kMonthPolicy, Day(2010, 1, 10), PickerKey::Home, "", "2010/1/1-2010/1/1", "2010/1/1"},
        {kMonthPolicy, Day(2010, 1, 10), PickerKey::End, "", "2010/1/31-2010/1/31", "2010/1/1"},
        {kMonthPolicy, Day(2010, 1, 10), PickerKey::End, "c", "2010/2/28-2010/2/28", "2010/1/1"},
        {kMonthPolicy, Day(2010, 1, 10), PickerKey::Right, "s", "2010/1/10-2010/1/11", "2010/1/1"},
        {kMonthPolicy, Day(2010, 1, 10), PickerKey::Up, "s", "2010/1/3-2010/1/10", "2010/1/1"},
        {kMonthPolicy, Day(100, 1, 1), PickerKey::Up, "", "100/1/1-100/1/1", "100/1/1"},
        {kMonthPolicy, Day(9999, 12, 31), PickerKey::PageDown, "c", "9999/12/31-9999/12/31", "9999/12/1"},
        {kMonthPolicy, Day(100, 1, 3), PickerKey::Up, "", "100/1/1-100/1/1", "100/1/1"},
        {kMonthPolicy, Day(9999, 12, 30), PickerKey::Down, "", "9999/12/31-9999/12/31", "9999/12/1"},
        {kMonthPolicy, Day(9999, 11, 30), PickerKey::PageDown, "", "9999/12/30-9999/12/30", "9999/11/1"},
        {kMonthPolicy, Day(2012, 2, 29), PickerKey::PageDown, "c", "2013/2/28-2013/2/28", "2013/1/1"},
        {kYearPolicy, Day(100, 2, 1), PickerKey::Up, "", "100/1/1-100/1/1", "100/1/1"},
        {kYearPolicy, Day(105, 7, 1), PickerKey::PageUp, "c", "100/1/1-100/1/1", "100/1/1"},
        {kYearPolicy, Day(9999, 2, 1), PickerKey::End, "", "9999/12/1-9999/12/1", "9999/1/1"},
        {kYearPolicy, Day(2010, 2, 1), PickerKey::Up, "", "2009/11/1-2009/11/1", "2009/1/1"},
        {kYearPolicy, Day(2010, 12, 1), PickerKey::Right, "", "2011/1/1-2011/1/1", "2010/1/1"},
        {kYearPolicy, Day(2010, 2, 1), PickerKey::PageDown, "c", "2020/2/1-2020/2/1", "2019/1/1"},
        {kYearPolicy, Day(2010, 2, 1), PickerKey::Right, "s", "2010/3/1-2010/3/1", "2010/1/1"},
    };
    for (const auto& row : table) {
        Script s(row.policy, 1, 2);
        s.model.Select(row.from, row.from);
        const bool turned = std::string(row.shown) != s.Shown();
        EXPECT_EQ(turned ? "layout redraw click" : "redraw click", s.Key(row.key, row.with)) << row.selection;
        EXPECT_EQ(row.selection, s.Selection());
        EXPECT_EQ(row.shown, s.Shown()) << row.selection;
    }
}

TEST(PeriodGridModelTest, StepsAreWholeDays)
{
    EXPECT_EQ(AddPeriods(kMonthPolicy, Day(2010, 1, 31, 9), 1), Day(2010, 2, 28));
    EXPECT_EQ(AddPeriods(kYearPolicy, Day(2010, 2, 1), -1), Day(2009, 2, 1));
}

TEST(PeriodGridModelTest, ASweepHeldBesideTheCellsPagesAndSelectsToTheEdge)
{
    Script s(kMonthPolicy, 1, 2);
    EXPECT_EQ("", Text(s.model.SweepBeyond(1))) << "no sweep";
    s.Press(Day(2010, 1, 20));
    EXPECT_EQ("", Text(s.model.SweepBeyond(0)));
    EXPECT_EQ("layout redraw", Text(s.model.SweepBeyond(1)));
    EXPECT_EQ("2010/2/1", s.Shown());
    EXPECT_EQ("2010/1/20-2010/3/31", s.Selection());
    s.model.SweepBeyond(-1);
    s.model.SweepBeyond(-1);
    EXPECT_EQ("2009/12/1-2010/1/20", s.Selection());
    EXPECT_EQ("release redraw", s.Key(PickerKey::Escape));
    EXPECT_EQ("none-none", s.Selection());
}

TEST(PeriodGridModelTest, TheKeyboardStartsFromTodayOrTheFirstCellShown)
{
    Script s(kMonthPolicy);
    s.Key(PickerKey::Right);
    EXPECT_EQ("2010/1/16-2010/1/16", s.Selection());
    s.model.SetFirstPeriod(PeriodOf(kMonthPolicy, Day(2011, 6, 1)));
    EXPECT_EQ("layout redraw click", s.Key(PickerKey::Today));
    EXPECT_EQ("2010/1/15+9h-2010/1/15+9h", s.Selection()) << "as by the footer";
    s.model.Unselect();
    s.model.SetFirstPeriod(PeriodOf(kMonthPolicy, Day(2011, 6, 1)));
    EXPECT_EQ("redraw dblclk", s.Key(PickerKey::Enter));
    EXPECT_EQ("2011/6/1-2011/6/1", s.Selection());
    s.Key(PickerKey::Down, "s");
    s.Key(PickerKey::Right, "s");
    EXPECT_EQ("2011/6/1-2011/6/9", s.Selection());
    s.Key(PickerKey::Up, "s");
    s.Key(PickerKey::Left, "s");
    s.Key(PickerKey::Left, "s");
    EXPECT_EQ("2011/5/31-2011/6/1", s.Selection()) << "the range turns over at its anchor";
    EXPECT_EQ("redraw dblclk", s.Key(PickerKey::Enter));
    EXPECT_EQ("2011/5/31-2011/6/1", s.Selection()) << "Enter opens what is selected";
}
