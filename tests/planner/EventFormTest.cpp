// What the event dialog shows and gives back, without its window.
#include "planner/EventForm.h"
#include "planner/Words.h"
#include "tests/ical/CalendarTesting.h"

namespace {

using namespace planner;

class EventFormTest : public testing::Test
{
protected:
    void SetUp() override { SetLanguage(Language::English); }
    void TearDown() override { SetLanguage(Language::English); }
    void Open(std::initializer_list<std::string_view> lines) { m_document.Load(CalendarWith(lines)); }
    Occurrence First() { return m_document.OccurrencesIn(At("20260101"), At("20270101")).front(); }
    EventForm Form() { return FormOf(First()); }
    EventChanges Changes(const EventForm& after) { return ChangesOf(Form(), after, First().event->start.zone); }
    static std::string Problems(const EventForm& form)
    {
        std::string text;
        for (const FormProblem& problem : ProblemsOf(form)) {
            text += std::to_string(static_cast<int>(problem.field)) + ": " + problem.text + "\n";
        }
        return text;
    }

    Document m_document{CountedUids("new")};
};

TEST_F(EventFormTest, AFormThatNobodyTouchedChangesNothing)
{
    const std::initializer_list<std::string_view> events[] = {
        {"UID:a", "DTSTART:20260415T093017Z", "DTEND:20260415T103000Z", "CATEGORIES:a,b\\,c", "SUMMARY:x"},
        {"UID:a", "DTSTART;VALUE=DATE:20260415", "DTEND;VALUE=DATE:20260418", "RRULE:FREQ=YEARLY;BYMONTH=4"},
        {"UID:a", "DTSTART:20260415T093000", "RRULE:FREQ=MONTHLY;BYSETPOS=-1;BYDAY=MO,TU,WE,TH,FR"},
        {"UID:a", "DTSTART:20260415T093000", "RRULE:FREQ=HOURLY;BYEASTER=1"},
        {"UID:a", "DTSTART:20260415T093000", "DURATION:PT90M", "RRULE:FREQ=WEEKLY;INTERVAL=2;UNTIL=20260601T000000",
         "BEGIN:VALARM", "TRIGGER:-PT7M", "END:VALARM"},
    };
    for (const auto& event : events) {
        Open(event);
        EXPECT_EQ(Problems(Form()), "");
        EXPECT_TRUE(IsEmpty(Changes(Form()))) << std::string(*event.begin());
    }
}

TEST_F(EventFormTest, TypedTextsBecomeTimes)
{
    Open({"UID:a", "DTSTART:20260415T093000", "DTEND:20260415T103000"});
    EventForm form = Form();
    form.startDate = "17.4";
    form.startTime = "14";
    KeepLength(Form(), form);
    EXPECT_EQ(form.endDate + " " + form.endTime, "2026-04-17 15:00");
    EXPECT_EQ(Shown(Changes(form).times->start) + Shown(Changes(form).times->end), "20260417T140020260417T1500");
    form.startDate = "30";
    KeepLength(Form(), form);
    EXPECT_EQ(form.endDate, "2026-04-30") << "a day alone is one of the form's month";
    form.startDate = form.endDate = "17.4";
    form.isAllDay = true;
    EXPECT_EQ(Shown(Changes(form).times->end), "20260418") << "the last day counts in full";
    EventForm later = form;
    later.startDate = "20.4";
    KeepLength(form, later);
    EXPECT_EQ(later.endDate, "2026-04-20");
    form.isAllDay = false;
    form.endTime = "13:00";
    EXPECT_EQ(Problems(form), "3: It ends before it begins\n");
    form.endDate = "16.4";
    EXPECT_EQ(Problems(form), "2: It ends before it begins\n");
    form.startDate = "31.4";
    form.endTime = "never";
    EXPECT_EQ(Problems(form), "0: This is no date: 2026-11-24, 24.11 or next friday are\n"
                              "3: This is no time of day: 9:30 or 17:00 are\n");
}

TEST_F(EventFormTest, RulesGoThereAndBackAndSayWhatTheyMean)
{
    const LocalTime start = At("20260417T0930"); // the third Friday
    const EventTimes times = {start, start + kHourSeconds, false};
    const struct
    {
        const char* rule;
        const char* english;
        const char* japanese;
    } rows[] = {
        {"", "Does not repeat", u8"繰り返しなし"},
        {"FREQ=DAILY;INTERVAL=3;COUNT=5", "Every 3 days, 5 times", u8"3日ごと、5回"},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,WE,FR", "Every 2 weeks on Monday, Wednesday and Friday",
         u8"2週間ごと 月曜日・水曜日・金曜日"},
        {"FREQ=MONTHLY;BYMONTHDAY=17;UNTIL=20261231T235959", "Every month on day 17, until 2026-12-31",
         u8"毎月 17日、2026-12-31まで"},
        {"FREQ=MONTHLY;BYDAY=3FR", "Every month on the third Friday", u8"毎月 第3 金曜日"},
        {"FREQ=MONTHLY;BYDAY=-1FR", "Every month on the last Friday", u8"毎月 最終 金曜日"},
        {"FREQ=YEARLY", "Every year on April 17", u8"毎年 4月17日"},
        {"FREQ=DAILY;BYHOUR=9,14", "Repeats by a rule of its own, which is kept: FREQ=DAILY;BYHOUR=9,14",
         u8"独自の規則で繰り返します (そのまま保存): FREQ=DAILY;BYHOUR=9,14"},
    };
    for (const auto& row : rows) {
        const RuleForm form = RuleFormOf(row.rule, start, nullptr);
        EXPECT_EQ(RuleTextOf(form, times, nullptr), row.rule);
        SetLanguage(Language::English);
        EXPECT_EQ(RuleSentence(form, start), row.english);
        SetLanguage(Language::Japanese);
        EXPECT_EQ(RuleSentence(form, start), row.japanese);
    }
    RuleForm until = RuleFormOf("FREQ=DAILY;UNTIL=20260501", start, TimeZone::Utc());
    EXPECT_EQ(RuleTextOf(until, times, TimeZone::Utc()), "FREQ=DAILY;UNTIL=20260501T235959Z");
    EXPECT_EQ(RuleTextOf(until, {start, start, true}, nullptr), "FREQ=DAILY;UNTIL=20260501");
    for (const char* other : {"FREQ=WEEKLY;BYDAY=MO", "FREQ=MONTHLY;BYMONTHDAY=3", "FREQ=YEARLY;BYDAY=1MO",
                              "FREQ=WEEKLY;INTERVAL=2;WKST=SU", "FREQ=MONTHLY;BYDAY=1FR", "nonsense"}) {
        EXPECT_EQ(RuleFormOf(other, start, nullptr).kind, RuleForm::Kind::Other) << other;
    }
}

TEST_F(EventFormTest, OnlyWhatDiffersIsWritten)
{
    Open({"UID:a", "DTSTART:20260415T093000", "DTEND:20260415T103000", "SUMMARY:A", "X-KEPT:1"});
    EventForm form = Form();
    form.title = u8"会議";
    form.category = "Work,  Team,";
    form.isBusy = false;
    form.reminders = {600};
    form.rule.kind = RuleForm::Kind::Weekly;
    ASSERT_TRUE(m_document.Change(First().id, Changes(form)).isDone);
    const EventForm again = Form();
    EXPECT_EQ(again.title + "|" + again.category, u8"会議|Work, Team");
    EXPECT_TRUE(!again.isBusy && again.reminders == form.reminders && again.rule == form.rule);
    EXPECT_EQ(First().event->ruleText, "FREQ=WEEKLY;BYDAY=WE");
    form.rule.interval = 0;
    EXPECT_EQ(Problems(form), "4: The interval is a number from 1 to 999\n");
    EXPECT_EQ(ReminderText(600) + "|" + ReminderText(kDaySeconds) + "|" + ReminderText(0),
              "10 minutes before|1 day before|at the start");
}

} // namespace
