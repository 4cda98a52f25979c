// The examples of RFC 5545, section 3.8.5.3, as facts: rule, start and occurrences are those printed there.
#include "CalendarTesting.h"

#include "ical/Recurrence.h"

#include <vector>

namespace dayvane::ical {
namespace {

// A list such as "970902 04 09 1002": a number of two digits is a day of the last month, one of four a month and day,
// one of six a date. Times are "0900", after a date with a T between.
std::string Dates(const std::vector<LocalTime>& starts, bool withTimes)
{
    std::string text, last = "      ";
    for (const LocalTime start : starts) {
        const std::string whole = FormatTime({start, false, false});
        const std::string date = whole.substr(2, 6);
        const std::size_t shared = date.substr(0, 4) == last.substr(0, 4)   ? 4
                                   : date.substr(0, 2) == last.substr(0, 2) ? 2
                                                                            : 0;
        text += text.empty() ? "" : " ";
        text += withTimes ? date.substr(4) + "T" + whole.substr(9, 4) : date.substr(shared);
        last = date;
    }
    return text;
}

const struct
{
    const char* rule;
    const char* start;
    const char* to; // for rules without end
    const char* dates;
} kPrinted[] = {
    {"FREQ=DAILY;COUNT=10", "19970902T0900", "", "970902 03 04 05 06 07 08 09 10 11"},
    {"FREQ=DAILY;INTERVAL=10;COUNT=5", "19970902T0900", "", "970902 12 22 1002 12"},
    {"FREQ=WEEKLY;COUNT=10", "19970902T0900", "", "970902 09 16 23 30 1007 14 21 28 1104"},
    {"FREQ=WEEKLY;INTERVAL=2;WKST=SU", "19970902T0900", "19980225",
     "970902 16 30 1014 28 1111 25 1209 23 980106 20 0203 17"},
    {"FREQ=WEEKLY;COUNT=10;WKST=SU;BYDAY=TU,TH", "19970902T0900", "", "970902 04 09 11 16 18 23 25 30 1002"},
    {"FREQ=WEEKLY;INTERVAL=2;UNTIL=19971224T000000;WKST=SU;BYDAY=MO,WE,FR", "19970901T0900", "",
     "970901 03 05 15 17 19 29 1001 03 13 15 17 27 29 31 1110 12 14 24 26 28 1208 10 12 22"},
    {"FREQ=WEEKLY;INTERVAL=2;COUNT=8;WKST=SU;BYDAY=TU,TH", "19970902T0900", "", "970902 04 16 18 30 1002 14 16"},
    {"FREQ=MONTHLY;COUNT=10;BYDAY=1FR", "19970905T0900", "", "970905 1003 1107 1205 980102 0206 0306 0403 0501 0605"},
    {"FREQ=MONTHLY;INTERVAL=2;COUNT=10;BYDAY=1SU,-1SU", "19970907T0900", "",
     "970907 28 1102 30 980104 25 0301 29 0503 31"},
    {"FREQ=MONTHLY;COUNT=6;BYDAY=-2MO", "19970922T0900", "", "970922 1020 1117 1222 980119 0216"},
    {"FREQ=MONTHLY;BYMONTHDAY=-3", "19970928T0900", "19980301", "970928 1029 1128 1229 980129 0226"},
    {"FREQ=MONTHLY;COUNT=10;BYMONTHDAY=2,15", "19970902T0900", "", "970902 15 1002 15 1102 15 1202 15 980102 15"},
    {"FREQ=MONTHLY;COUNT=10;BYMONTHDAY=1,-1", "19970930T0900", "", "970930 1001 31 1101 30 1201 31 980101 31 0201"},
    {"FREQ=MONTHLY;INTERVAL=18;COUNT=10;BYMONTHDAY=10,11,12,13,14,15", "19970910T0900", "",
     "970910 11 12 13 14 15 990310 11 12 13"},
    {"FREQ=MONTHLY;INTERVAL=2;BYDAY=TU", "19970902T0900", "19980401",
     "970902 09 16 23 30 1104 11 18 25 980106 13 20 27 0303 10 17 24 31"},
    {"FREQ=YEARLY;COUNT=10;BYMONTH=6,7", "19970610T0900", "",
     "970610 0710 980610 0710 990610 0710 000610 0710 010610 0710"},
    {"FREQ=YEARLY;INTERVAL=2;COUNT=10;BYMONTH=1,2,3", "19970310T0900", "",
     "970310 990110 0210 0310 010110 0210 0310 030110 0210 0310"},
    {"FREQ=YEARLY;INTERVAL=3;COUNT=10;BYYEARDAY=1,100,200", "19970101T0900", "",
     "970101 0410 0719 000101 0409 0718 030101 0410 0719 060101"},
    {"FREQ=YEARLY;BYDAY=20MO", "19970519T0900", "20000101", "970519 980518 990517"},
    {"FREQ=YEARLY;BYWEEKNO=20;BYDAY=MO", "19970512T0900", "20000101", "970512 980511 990517"},
    {"FREQ=YEARLY;BYMONTH=3;BYDAY=TH", "19970313T0900", "20000101", "970313 20 27 980305 12 19 26 990304 11 18 25"},
    {"FREQ=YEARLY;BYDAY=TH;BYMONTH=6,7,8", "19970605T0900", "19980101",
     "970605 12 19 26 0703 10 17 24 31 0807 14 21 28"},
    {"FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13", "19970902T0900", "20001231",
     "970902 980213 0313 1113 990813 001013"}, // its first date is excluded there
    {"FREQ=MONTHLY;BYDAY=SA;BYMONTHDAY=7,8,9,10,11,12,13", "19970913T0900", "19980701",
     "970913 1011 1108 1213 980110 0207 0307 0411 0509 0613"},
    {"FREQ=YEARLY;INTERVAL=4;BYMONTH=11;BYDAY=TU;BYMONTHDAY=2,3,4,5,6,7,8", "19961105T0900", "20050101",
     "961105 001107 041102"},
    {"FREQ=MONTHLY;COUNT=3;BYDAY=TU,WE,TH;BYSETPOS=3", "19970904T0900", "", "970904 1007 1106"},
    {"FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-2", "19970929T0900", "19980401",
     "970929 1030 1127 1230 980129 0226 0330"},
    {"FREQ=WEEKLY;INTERVAL=2;COUNT=4;BYDAY=TU,SU;WKST=MO", "19970805T0900", "", "970805 10 19 24"},
    {"FREQ=WEEKLY;INTERVAL=2;COUNT=4;BYDAY=TU,SU;WKST=SU", "19970805T0900", "", "970805 17 19 31"},
    {"FREQ=MONTHLY;BYMONTHDAY=15,30;COUNT=5", "20070115T0900", "", "070115 30 0215 0315 30"},
    // with times; the first ends at 17:00 of its own clock, as its text says
    {"FREQ=HOURLY;INTERVAL=3;UNTIL=19970902T170000", "19970902T0900", "", "02T0900 02T1200 02T1500"},
    {"FREQ=MINUTELY;INTERVAL=15;COUNT=6", "19970902T0900", "", "02T0900 02T0915 02T0930 02T0945 02T1000 02T1015"},
    {"FREQ=MINUTELY;INTERVAL=90;COUNT=4", "19970902T0900", "", "02T0900 02T1030 02T1200 02T1330"},
    {"FREQ=DAILY;BYHOUR=9,10,11,12,13,14,15,16;BYMINUTE=0,20,40", "19970902T1600", "19970903T0930",
     "02T1600 02T1620 02T1640 03T0900 03T0920"},
    {"FREQ=MINUTELY;INTERVAL=20;BYHOUR=9,10,11,12,13,14,15,16", "19970902T1600", "19970903T0930",
     "02T1600 02T1620 02T1640 03T0900 03T0920"},
    // and what RFC 7529 prints for the Gregorian calendar without leaping days
    {"RSCALE=GREGORIAN;FREQ=YEARLY;SKIP=OMIT;COUNT=4", "20160229", "", "160229 200229 240229 280229"},
};

TEST(RfcExamples, GiveWhatIsPrinted)
{
    for (const auto& row : kPrinted) {
        const RuleReading reading = ParseRule(row.rule);
        ASSERT_TRUE(reading.rule) << row.rule << reading.problem.form;
        RecurrenceRule rule = *reading.rule;
        const LocalTime start = At(row.start);
        rule.lastStart = rule.until ? rule.until->wall : rule.lastStart;
        std::int64_t steps = kCountingSteps;
        EXPECT_TRUE(LimitByCount(rule, start, steps));
        std::vector<LocalTime> starts;
        ExpandRule(rule, start, start, *row.to ? At(row.to) : kEndOfTime, [&](LocalTime wall) {
            starts.push_back(wall);
            return starts.size() < 100;
        });
        EXPECT_EQ(Dates(starts, std::string_view(row.dates).find('T') != std::string_view::npos), row.dates)
            << row.rule;
    }
}

} // namespace
} // namespace dayvane::ical
