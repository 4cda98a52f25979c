// Search, reminders, settings and texts of the planner: what works without its windows.
#include "planner/DayChoices.h"
#include "planner/IniText.h"
#include "planner/Reminders.h"
#include "planner/Search.h"
#include "planner/Words.h"
#include "tests/ical/CalendarTesting.h"

namespace {

using namespace planner;

TEST(SearchTest, FindsEveryWordInAnyFieldAndTheNearestOfASeries)
{
    Document document;
    document.Load(Joined({"BEGIN:VCALENDAR",
                          "BEGIN:VEVENT",
                          "UID:s",
                          "DTSTART:20260101T090000",
                          "RRULE:FREQ=WEEKLY;COUNT=20",
                          "SUMMARY:Team MEETING",
                          "LOCATION:Room 4",
                          "END:VEVENT",
                          "BEGIN:VEVENT",
                          "UID:b",
                          "DTSTART;VALUE=DATE:20260301",
                          u8"SUMMARY:ｶﾒﾗ カメラ Ｚürich",
                          "DESCRIPTION:team building",
                          "END:VEVENT",
                          "BEGIN:VEVENT",
                          "UID:c",
                          "DTSTART:20250301T090000",
                          "SUMMARY:Other",
                          "CATEGORIES:Team",
                          "END:VEVENT",
                          "END:VCALENDAR"}));
    const auto found = [&](const char* query, const char* now) { return Shown(Search(document, query, At(now))); };
    EXPECT_EQ(found("team", "20260203"), "20250301T0900/20250301T0900 20260205T0900/20260205T0900 20260301/20260302*");
    EXPECT_EQ(found("meeting 4", "20280101"), "20260514T0900/20260514T0900") << "the last one when all are over";
    for (const char* query : {u8"zürich かめら", u8"ZÜRICH"}) {
        EXPECT_EQ(found(query, "20260101"), "20260301/20260302*");
    }
    EXPECT_EQ(found("team xyz", "20260101") + found("", "20260101") + found("  ", "20260101"), "");
}

TEST(ReminderTest, AreDueUntilTheyAreDismissedOrSleep)
{
    Document document;
    document.Load(Joined({"BEGIN:VCALENDAR",
                          "BEGIN:VEVENT",
                          "UID:s",
                          "DTSTART:20260415T090000Z",
                          "RRULE:FREQ=DAILY",
                          "SUMMARY:S",
                          "BEGIN:VALARM",
                          "TRIGGER:-PT10M",
                          "END:VALARM",
                          "END:VEVENT",
                          "BEGIN:VEVENT",
                          "UID:f",
                          "DTSTART:20260420T120000",
                          "SUMMARY:F",
                          "BEGIN:VALARM",
                          "TRIGGER:PT0S",
                          "END:VALARM",
                          "BEGIN:VALARM",
                          "ACTION:EMAIL",
                          "TRIGGER:-PT4H",
                          "END:VALARM",
                          "END:VEVENT",
                          "END:VCALENDAR"}));
    Reminders reminders;
    const auto due = [&](const char* utc, const char* local) {
        std::string text;
        for (const DueReminder& each : reminders.DueAt(document, {At(utc), At(local)})) {
            text += each.occurrence.event->summary + Shown(each.alarm) + " ";
        }
        return text;
    };
    EXPECT_EQ(due("20260415T0849", "20260415T0849"), "");
    EXPECT_EQ(due("20260415T0850", "20260415T0850"), "S20260415T0850 ");
    const auto first = reminders.DueAt(document, {At("20260415T0850"), 0}).front();
    reminders.Snooze(first.occurrence.id, At("20260415T0855"));
    EXPECT_EQ(due("20260415T0854", "20260415T0854"), "");
    EXPECT_EQ(due("20260415T0855", "20260415T0855"), "S20260415T0850 ");
    ASSERT_TRUE(document.Acknowledge(first.occurrence.id, At("20260415T0855")).isDone);
    EXPECT_EQ(due("20260415T0856", "20260415T0856"), "");
    EXPECT_EQ(due("20260416T0850", "20260416T0850"), "S20260416T0850 ") << "the next one of the series";
    EXPECT_EQ(due("20260420T0300", "20260420T1200"), "S20260419T0850 F20260420T1200 ")
        << "floating: on the local clock";
    EXPECT_EQ(due("20270420T0300", "20270420T1200"), "S20270419T0850 ") << "nothing of last year";
}

TEST(SearchTest, CapitalsWidthsAndSyllablesAreOne)
{
    const std::pair<const char*, const char16_t*> rows[] = {
        {"@AZ[`az{", u"@az[`az{"},         {u8"¿ÀÖ×ØÞß", u"¿àö×øþß"},   {u8"ΑΩΪαω", u"αωΪαω"}, {u8"ЀЏАЯая", u"ѐџаяая"},
        {u8"！＠ＡＺ［～｟", u"!@az[~｟"}, {u8"゠ァヶヷ", u"゠ぁゖヷ"}, {u8"　、", u" 、"},
    };
    for (const auto& [text, folded] : rows) {
        EXPECT_EQ(Folded(text), folded) << text;
    }
    Event event;
    event.summary = "Team meeting";
    EXPECT_TRUE(Fits(event, u8"　ＭＥＥＴ tea"));
    EXPECT_FALSE(Fits(event, "meet teas") || Fits(event, " ") || Fits(event, ""));
}

TEST(IniTextTest, KeepsWhatItDoesNotKnow)
{
    IniText ini("\xEF\xBB\xBF; by hand\r\n[View]\r\nname = month\nunknown=1\n\n[Files]\nfile1=a.ics\nfile2=\n");
    EXPECT_EQ(ini.Get("view", "Name"), "month");
    EXPECT_EQ(ini.Get("Files", "name", "none"), "none") << "another section's";
    EXPECT_EQ(ini.GetNumber("View", "name", 7), 7);
    EXPECT_EQ(ini.GetList("Files", "file"), (std::vector<std::string>{"a.ics"}));
    ini.Set("View", "name", "week");
    ini.Set("View", "days", 4);
    ini.Set("Window", "title", "two\nlines");
    ini.SetList("Files", "file", {u8"予定.ics", "b.ics", "c.ics"});
    ini.SetList("Files", "file", {u8"予定.ics"});
    const std::string text = ini.Text();
    EXPECT_EQ(text,
              u8"; by hand\r\n[View]\r\nname=week\r\nunknown=1\r\ndays=4\r\n\r\n[Files]\r\nfile1=予定.ics\r\nfile2=\r\n"
              u8"file3=\r\n\r\n[Window]\r\ntitle=two lines\r\n");
    EXPECT_EQ(IniText(text).Text(), text);
    EXPECT_EQ(IniText(text).GetList("Files", "file").size(), 1u);
}

TEST(DayChoicesTest, HolidaysOfAListAndWordsThatAreKept)
{
    dayvane::DayCalendar days;
    const auto namesOf = [&days](int month, int day) { return dayvane::NamesText(days.InfoOf({2027, month, day})); };
    const HolidayListReport report =
        LoadHolidays(days, u8"国民の祝日・休日月日,国民の祝日・休日名称\n2027/1/4,特別休暇\n2027/2/30,x\n");
    EXPECT_EQ(report.days, 1);
    ASSERT_EQ(report.problems.size(), 1u);
    EXPECT_EQ(report.problems[0].line, 3);
    EXPECT_EQ(report.problems[0].text, "List of holidays: there is no such day");
    EXPECT_EQ(namesOf(1, 4), u8"特別休暇");
    EXPECT_EQ(namesOf(1, 11), u8"鏡開き") << "the list stands for the whole year";
    EXPECT_EQ(LoadHolidays(days, "BEGIN:VCALENDAR").days, 0);
    EXPECT_EQ(namesOf(1, 4), u8"特別休暇") << "what is no list changes nothing";
    LoadHolidays(days, u8"2028/1/1,元日");
    EXPECT_EQ(namesOf(1, 11), u8"成人の日 鏡開き") << "by the law again";

    DayChoices choices;
    EXPECT_TRUE(choices.Take("") && !choices.isChosen) << "no word says anything";
    ASSERT_TRUE(choices.Take("none,names,weeks,lunch") && choices.isChosen);
    DayChoices again;
    ASSERT_TRUE(again.Take(choices.Words()));
    EXPECT_EQ(again.Words(), "none,names,weeks,lunch");
    EXPECT_FALSE(again.Take("names,holidays"));
    EXPECT_TRUE(again.lines.weekNumbers && !again.lines.rokuyo);
}

TEST(DayChoicesTest, ClocksAndOfficeHours)
{
    constexpr LocalTime last = 80000LL * kDaySeconds;
    for (const char* name : {"Europe/Berlin", "America/New_York", "Australia/Perth", "Asia/Tokyo"}) {
        const auto zone = FindCommonZone(name);
        const dayvane::ZoneClock clock = ClockOf(*zone);
        for (LocalTime utc = 0; utc < last; utc += 5 * kDaySeconds + 7 * kHourSeconds + 11) {
            ASSERT_EQ(clock.LocalOf(utc), zone->WallOfUtc(utc)) << name;
        }
        for (const auto& change : clock.ChangesWithin(0, last)) {
            const LocalTime utc = clock.MomentsOf(change.begin).first; // the jump, or an hour before the second time
            for (const LocalTime at : {utc - 1, utc, utc + kHourSeconds - 1, utc + kHourSeconds}) {
                ASSERT_EQ(clock.LocalOf(at), zone->WallOfUtc(at)) << name;
            }
        }
    }
    const dayvane::CivilDate friday{2026, 11, 27}, saturday{2026, 11, 28}, sunday{2026, 11, 29}, monday{2026, 11, 30};
    const auto minutes = [](const dayvane::CivilDate& day, bool lunchBreak) {
        const dayvane::WorkHours hours = DayChoices::OfficeHours(lunchBreak);
        std::string text;
        for (const dayvane::WorkPeriod& period : hours.PeriodsOf(day, false)) {
            text += std::to_string(period.begin) + "-" + std::to_string(period.end) + " ";
        }
        return text;
    };
    EXPECT_EQ(minutes(monday, true), "540-720 780-1080 ");
    EXPECT_EQ(minutes(friday, false), "540-1080 ");
    EXPECT_EQ(minutes(saturday, true) + minutes(sunday, true), "");
}

// From calendars in print: the lunar date, the age of the moon at noon, the week of ISO 8601, the sign of the day.
TEST(DayStatusTest, SaysWhatIsKnownOfADay)
{
    const dayvane::DayCalendar names;
    dayvane::DayLines lines;
    const auto status = [&](const dayvane::CivilDate& day) { return DayStatus(day, names, 2, lines); };
    EXPECT_EQ(status({2026, 11, 23}), u8"勤労感謝の日  旧10/15 赤口  月齢 13.8  第48週  令和8年  辛丑");
    EXPECT_EQ(status({2023, 3, 22}), u8"旧閏2/1 友引  新月 (月齢 0.4)  第12週  令和5年  己卯");
    lines.language = dayvane::DayLanguage::English;
    EXPECT_EQ(status({2023, 3, 22}),
              "lunar leap 2/1 Tomobiki  New Moon (moon 0.4 days)  week 12  Reiwa 5  Earth Rabbit");
    EXPECT_EQ(status({1500, 1, 1}), "week 1  Fire Ox") << "before what the sky is worked out for, and before the eras";
}

TEST(WordsTest, AreInTheUsersLanguage)
{
    SetLanguage(Language::Japanese);
    EXPECT_EQ(Tr("Cancel"), u8"キャンセル");
    EXPECT_EQ(Tr("Every %1 days", "3"), u8"3日ごと");
    EXPECT_EQ(Tr("a text of somebody's"), "a text of somebody's");
    SetLanguage(Language::English);
    EXPECT_EQ(Tr("Cancel"), "Cancel");
    EXPECT_EQ(Tr("%1 of %2", "a", "b"), "a of b");
}

} // namespace
