// The law of Japan's holidays as rows: each holds from the first to the last day on which it was in force.
#pragma once

namespace dayvane {
enum class HolidayRule
{
    Date,           // month and day
    NthMonday,      // the nth Monday of a month
    VernalEquinox,  // the days on which the sun reaches 0 and 180 degrees in Japan Standard Time. The observatory
    AutumnalEquinox // announces them on 1 February of the year before (Article 2 of the act names no date)
};

constexpr int kFirstDayOfLaw = 19480720;
constexpr int kInForce = 99991231;

struct HolidayRow
{
    const char* name; // UTF-8, as the Cabinet Office lists it
    HolidayRule rule;
    int month;
    int day;      // of the month; which Monday; 0 for an equinox
    int firstDay; // year x 10000 + month x 100 + day
    int lastDay;
    const char* source; // the act, UTF-8
};

// A change of the law is a new row, and the end of the row that it replaces.
inline constexpr HolidayRow kHolidayLaw[] = {
    // name, rule, month, day, first day of force, last day of force, source
    {u8"元日", HolidayRule::Date, 1, 1, kFirstDayOfLaw, kInForce, u8"昭和23年法律第178号"},
    {u8"成人の日", HolidayRule::Date, 1, 15, kFirstDayOfLaw, 19991231, u8"昭和23年法律第178号"},
    {u8"成人の日", HolidayRule::NthMonday, 1, 2, 20000101, kInForce, u8"平成10年法律第141号"},
    {u8"建国記念の日", HolidayRule::Date, 2, 11, 19661209, kInForce, u8"昭和41年法律第86号、昭和41年政令第376号"},
    {u8"天皇誕生日", HolidayRule::Date, 2, 23, 20190430, kInForce, u8"平成29年法律第63号附則第10条"},
    {u8"春分の日", HolidayRule::VernalEquinox, 3, 0, kFirstDayOfLaw, kInForce, u8"昭和23年法律第178号"},
    {u8"天皇誕生日", HolidayRule::Date, 4, 29, kFirstDayOfLaw, 19890216, u8"昭和23年法律第178号"},
    {u8"みどりの日", HolidayRule::Date, 4, 29, 19890217, 20061231, u8"平成元年法律第5号"},
    {u8"昭和の日", HolidayRule::Date, 4, 29, 20070101, kInForce, u8"平成17年法律第43号"},
    {u8"憲法記念日", HolidayRule::Date, 5, 3, kFirstDayOfLaw, kInForce, u8"昭和23年法律第178号"},
    {u8"みどりの日", HolidayRule::Date, 5, 4, 20070101, kInForce, u8"平成17年法律第43号"},
    {u8"こどもの日", HolidayRule::Date, 5, 5, kFirstDayOfLaw, kInForce, u8"昭和23年法律第178号"},
    {u8"海の日", HolidayRule::Date, 7, 20, 19960101, 20021231, u8"平成7年法律第22号"},
    {u8"海の日", HolidayRule::NthMonday, 7, 3, 20030101, 20191231, u8"平成13年法律第59号"},
    {u8"海の日", HolidayRule::Date, 7, 23, 20200101, 20201231, u8"平成30年法律第55号"},
    {u8"海の日", HolidayRule::Date, 7, 22, 20210101, 20211231, u8"令和2年法律第68号"},
    {u8"海の日", HolidayRule::NthMonday, 7, 3, 20220101, kInForce, u8"平成13年法律第59号"},
    {u8"山の日", HolidayRule::Date, 8, 11, 20160101, 20191231, u8"平成26年法律第43号"},
    {u8"山の日", HolidayRule::Date, 8, 10, 20200101, 20201231, u8"平成30年法律第55号"},
    {u8"山の日", HolidayRule::Date, 8, 8, 20210101, 20211231, u8"令和2年法律第68号"},
    {u8"山の日", HolidayRule::Date, 8, 11, 20220101, kInForce, u8"平成26年法律第43号"},
    {u8"敬老の日", HolidayRule::Date, 9, 15, 19660625, 20021231, u8"昭和41年法律第86号"},
    {u8"敬老の日", HolidayRule::NthMonday, 9, 3, 20030101, kInForce, u8"平成13年法律第59号"},
    {u8"秋分の日", HolidayRule::AutumnalEquinox, 9, 0, kFirstDayOfLaw, kInForce, u8"昭和23年法律第178号"},
    {u8"体育の日", HolidayRule::Date, 10, 10, 19660625, 19991231, u8"昭和41年法律第86号"},
    {u8"体育の日", HolidayRule::NthMonday, 10, 2, 20000101, 20191231, u8"平成10年法律第141号"},
    {u8"スポーツの日", HolidayRule::Date, 7, 24, 20200101, 20201231, u8"平成30年法律第55号、第57号"},
    {u8"スポーツの日", HolidayRule::Date, 7, 23, 20210101, 20211231, u8"令和2年法律第68号"},
    {u8"スポーツの日", HolidayRule::NthMonday, 10, 2, 20220101, kInForce, u8"平成30年法律第57号"},
    {u8"文化の日", HolidayRule::Date, 11, 3, kFirstDayOfLaw, kInForce, u8"昭和23年法律第178号"},
    {u8"勤労感謝の日", HolidayRule::Date, 11, 23, kFirstDayOfLaw, kInForce, u8"昭和23年法律第178号"},
    {u8"天皇誕生日", HolidayRule::Date, 12, 23, 19890217, 20190429, u8"平成元年法律第5号"},
    // Acts for one day. The Cabinet Office lists the two of 2019 without a name; these are the names of their act.
    {u8"結婚の儀", HolidayRule::Date, 4, 10, 19590410, 19590410, u8"昭和34年法律第16号"},
    {u8"大喪の礼", HolidayRule::Date, 2, 24, 19890224, 19890224, u8"平成元年法律第4号"},
    {u8"即位礼正殿の儀", HolidayRule::Date, 11, 12, 19901112, 19901112, u8"平成2年法律第24号"},
    {u8"結婚の儀", HolidayRule::Date, 6, 9, 19930609, 19930609, u8"平成5年法律第32号"},
    {u8"天皇の即位の日", HolidayRule::Date, 5, 1, 20190501, 20190501, u8"平成30年法律第99号"},
    {u8"即位礼正殿の儀の行われる日", HolidayRule::Date, 10, 22, 20191022, 20191022, u8"平成30年法律第99号"},
};

// Days off for what their neighbours are (Article 3, paragraphs 2 and 3).
enum class NeighbourRule
{
    NextDay,        // the day after a holiday on a Sunday
    NextFreeDay,    // the first day that is no holiday after a holiday on a Sunday
    BetweenButFree, // the day between two holidays, when it is no Sunday and no day of the rule before
    Between         // the day between two holidays, when it is no holiday itself
};

struct NeighbourRow
{
    const char* name;
    NeighbourRule rule;
    int firstDay;
    int lastDay;
    const char* source;
};

// Of two rows that give one day the first counts.
inline constexpr NeighbourRow kNeighbourLaw[] = {
    {u8"振替休日", NeighbourRule::NextDay, 19730412, 20061231, u8"昭和48年法律第10号"},
    {u8"振替休日", NeighbourRule::NextFreeDay, 20070101, kInForce, u8"平成17年法律第43号"},
    {u8"国民の休日", NeighbourRule::BetweenButFree, 19851227, 20061231, u8"昭和60年法律第103号"},
    {u8"国民の休日", NeighbourRule::Between, 20070101, kInForce, u8"平成17年法律第43号"},
};
} // namespace dayvane
