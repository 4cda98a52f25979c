// Dates and times as people type them.
#include "planner/TypedDate.h"

#include <gtest/gtest.h>

namespace {

using namespace planner;

constexpr DayNumber kToday = DayOfDate(2026, 11, 20); // a Friday

std::string Read(const char* text, DayNumber shown = kToday)
{
    const auto day = ParseTypedDate(text, {kToday, shown, 1});
    return day ? DateText(*day) : "";
}

const struct
{
    const char* text;
    const char* day;
} kTyped[] = {
    {"2026-11-24", "2026-11-24"},
    {"20261124", "2026-11-24"},
    {" 2026/3/1 ", "2026-03-01"},
    {"24.11", "2026-11-24"},
    {"24.11.", "2026-11-24"},
    {"24.11.27", "2027-11-24"},
    {"11/24", "2026-11-24"},
    {"24/11", "2026-11-24"},
    {"1/5", "2027-01-05"}, // nearer than last January's
    {"24", "2026-11-24"},
    {"Nov 24th, 2027", "2027-11-24"},
    {"24. November", "2026-11-24"},
    {"today", "2026-11-20"},
    {"Tomorrow", "2026-11-21"},
    {"friday", "2026-11-20"},
    {"next friday", "2026-11-27"},
    {"last friday", "2026-11-13"},
    {"next week", "2026-11-27"},
    {"next month", "2026-12-20"},
    {"+3", "2026-11-23"},
    {"-20", "2026-10-31"},
    {"in 2 weeks", "2026-12-04"},
    {"3 days ago", "2026-11-17"},
    {u8"令和8年11月24日", "2026-11-24"},
    {u8"令和元年5月1日", "2019-05-01"},
    {u8"昭和３９年１０月１０日", "1964-10-10"},
    {"R8.11.24", "2026-11-24"},
    {"H31.4.30", "2019-04-30"},
    {"S64.1.7", "1989-01-07"},
    {"T15.12.24", "1926-12-24"},
    {"M45.7.29", "1912-07-29"},
    {u8"2026年11月24日", "2026-11-24"},
    {u8"11月24日", "2026-11-24"},
    {u8"２４日", "2026-11-24"},
    {u8"明後日", "2026-11-22"},
    {u8"来週の金曜", "2026-11-27"},
    {u8"先週の月曜日", "2026-11-09"},
    {u8"金曜日", "2026-11-20"},
    {u8"土曜日", "2026-11-21"},
    {u8"日曜", "2026-11-22"},
    {u8"月曜", "2026-11-23"},
    {u8"火曜", "2026-11-24"},
    {u8"水曜", "2026-11-25"},
    {u8"木曜", "2026-11-26"},
    {u8"3日後", "2026-11-23"},
    {u8"2週間前", "2026-11-06"},
    {u8"来月", "2026-12-20"},
};

TEST(TypedDate, ReadsWhatPeopleWrite)
{
    for (const auto& row : kTyped) {
        EXPECT_EQ(Read(row.text), row.day) << row.text;
    }
    const char* const weekdays[] = {"Saturday", "sun", "monday", "tuesday", "wed", "thursday", "friday"};
    const char* const months[] = {"january", "feb", "march", "april", "may",      "june",
                                  "july",    "aug", "sept",  "oct",   "november", "december"};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(Read(weekdays[(i + 6) % 7]), DateText(kToday + i)) << i;
    }
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(Read((std::string("2 ") + months[i] + " 2030").c_str()), DateText(DayOfDate(2030, i + 1, 2)));
    }
    EXPECT_EQ(Read("29.2", DayOfDate(2028, 1, 1)), "2028-02-29");
    EXPECT_EQ(Read("5", DayOfDate(2024, 2, 10)), "2024-02-05") << "of the shown month";
}

TEST(TypedDate, RefusesWhatIsNoDate)
{
    for (const char* text : {"", "soon", "31.2", "2026-13-01", "32", "next", "24.11.2026.5", u8"令和", u8"13月1日",
                             "2026-", "99999999", "in days", "fri day", "+99999", "ne", "next weekend"}) {
        EXPECT_EQ(Read(text), std::string(text) == "next" ? "2026-11-27" : "") << text;
    }
}

TEST(TypedDate, EndsWithTheYear9999)
{
    constexpr DayNumber kLast = DayOfDate(9999, 12, 31);
    EXPECT_EQ(ParseTypedDate("today", {kLast, kLast, 1}), kLast);
    EXPECT_FALSE(ParseTypedDate("tomorrow", {kLast, kLast, 1}));
}

TEST(TypedDate, ReadsClocks)
{
    const struct
    {
        const char* text;
        const char* clock;
    } rows[] = {{"9", "9:00"},
                {"9:30", "9:30"},
                {"930", "9:30"},
                {"1745", "17:45"},
                {"9.30", "9:30"},
                {"9:30 PM", "21:30"},
                {"12am", "0:00"},
                {"12 pm", "12:00"},
                {u8"9時半", "9:30"},
                {u8"１４：３０", "14:30"},
                {u8"午後3時15分", "15:15"},
                {u8"午前0時", "0:00"}};
    for (const auto& row : rows) {
        const auto time = ParseTypedClock(row.text);
        ASSERT_TRUE(time) << row.text;
        EXPECT_EQ(ClockText(*time), row.clock) << row.text;
    }
    EXPECT_EQ(ParseTypedClock("24:00"), std::optional<LocalTime>(kDaySeconds));
    for (const char* text : {"", "25", "9:60", "24:01", "13pm", "nine", "9:30x", "-1"}) {
        EXPECT_FALSE(ParseTypedClock(text)) << text;
    }
}

TEST(TypedDate, ATitleMayBeginWithItsTime)
{
    const struct
    {
        const char* typed;
        const char* meaning;
    } rows[] = {{"9:30 Meeting", "9:30 10:30 Meeting"},
                {"9:30-11 Board", "9:30 11:00 Board"},
                {"23:30 Late", "23:30 0:00 Late"},
                {u8"午後3時　会議", u8"15:00 16:00 会議"},
                {"5 apples", "5 apples"},
                {"9:75 no", "9:75 no"},
                {"11:00-9:00 no", "11:00-9:00 no"},
                {"9:30", "9:30"},
                {"Re: 9:30", "Re: 9:30"}};
    for (const auto& row : rows) {
        const TypedTitle title = ParseTypedTitle(row.typed);
        const std::string times = title.start ? ClockText(*title.start) + " " + ClockText(title.end) + " " : "";
        EXPECT_EQ(times + title.title, row.meaning);
    }
}

} // namespace
