#include "ical/TimeZone.h"

#include "ical/Text.h"

#include <map>

namespace dayvane::ical {

namespace {

enum class SummerTime
{
    None,
    America,
    Europe,
    Lisbon, // as Europe, after a last winter an hour ahead
    Perth   // 2006 to 2009 only
};

// Facts of the public time zone database, as they hold since 1996 (America: since 1976), and under the names that
// Windows gives these zones (CLDR, windowsZones). Zones whose offsets changed otherwise are left out rather than given
// wrong.
struct CommonZone
{
    std::string_view id;
    int minutesEast; // of UTC, in winter
    SummerTime summerTime;
};
constexpr CommonZone kCommonZones[] = {
    // id                           minutes  summer time
    {"UTC", 0, SummerTime::None},
    {"Etc/UTC", 0, SummerTime::None},
    {"GMT", 0, SummerTime::None},
    {"Etc/GMT", 0, SummerTime::None},
    {"Asia/Tokyo", 540, SummerTime::None},
    {"Japan", 540, SummerTime::None},
    {"Tokyo Standard Time", 540, SummerTime::None},
    {"Asia/Seoul", 540, SummerTime::None},
    {"Korea Standard Time", 540, SummerTime::None},
    {"Asia/Shanghai", 480, SummerTime::None},
    {"China Standard Time", 480, SummerTime::None},
    {"Asia/Hong_Kong", 480, SummerTime::None},
    {"Asia/Taipei", 480, SummerTime::None},
    {"Taipei Standard Time", 480, SummerTime::None},
    {"Asia/Singapore", 480, SummerTime::None},
    {"Singapore Standard Time", 480, SummerTime::None},
    {"Asia/Manila", 480, SummerTime::None},
    {"Australia/Perth", 480, SummerTime::Perth},
    {"W. Australia Standard Time", 480, SummerTime::Perth},
    {"Asia/Bangkok", 420, SummerTime::None},
    {"SE Asia Standard Time", 420, SummerTime::None},
    {"Asia/Kolkata", 330, SummerTime::None},
    {"Asia/Calcutta", 330, SummerTime::None},
    {"India Standard Time", 330, SummerTime::None},
    {"Asia/Dubai", 240, SummerTime::None},
    {"Arabian Standard Time", 240, SummerTime::None},
    {"Australia/Brisbane", 600, SummerTime::None},
    {"E. Australia Standard Time", 600, SummerTime::None},
    {"Pacific/Honolulu", -600, SummerTime::None},
    {"Hawaiian Standard Time", -600, SummerTime::None},
    {"America/Phoenix", -420, SummerTime::None},
    {"US Mountain Standard Time", -420, SummerTime::None},
    {"America/New_York", -300, SummerTime::America},
    {"US/Eastern", -300, SummerTime::America},
    {"Eastern Standard Time", -300, SummerTime::America},
    {"America/Toronto", -300, SummerTime::America},
    {"America/Chicago", -360, SummerTime::America},
    {"US/Central", -360, SummerTime::America},
    {"Central Standard Time", -360, SummerTime::America},
    {"America/Denver", -420, SummerTime::America},
    {"US/Mountain", -420, SummerTime::America},
    {"Mountain Standard Time", -420, SummerTime::America},
    {"America/Los_Angeles", -480, SummerTime::America},
    {"US/Pacific", -480, SummerTime::America},
    {"Pacific Standard Time", -480, SummerTime::America},
    {"Europe/London", 0, SummerTime::Europe},
    {"GMT Standard Time", 0, SummerTime::Europe},
    {"Europe/Dublin", 0, SummerTime::Europe},
    {"Europe/Lisbon", 0, SummerTime::Lisbon},
    {"Europe/Paris", 60, SummerTime::Europe},
    {"Romance Standard Time", 60, SummerTime::Europe},
    {"Europe/Berlin", 60, SummerTime::Europe},
    {"W. Europe Standard Time", 60, SummerTime::Europe},
    {"Europe/Amsterdam", 60, SummerTime::Europe},
    {"Europe/Brussels", 60, SummerTime::Europe},
    {"Europe/Madrid", 60, SummerTime::Europe},
    {"Europe/Rome", 60, SummerTime::Europe},
    {"Europe/Vienna", 60, SummerTime::Europe},
    {"Europe/Zurich", 60, SummerTime::Europe},
    {"Europe/Copenhagen", 60, SummerTime::Europe},
    {"Europe/Stockholm", 60, SummerTime::Europe},
    {"Europe/Oslo", 60, SummerTime::Europe},
    {"Europe/Prague", 60, SummerTime::Europe},
    {"Central Europe Standard Time", 60, SummerTime::Europe},
    {"Europe/Warsaw", 60, SummerTime::Europe},
    {"Central European Standard Time", 60, SummerTime::Europe},
    {"Europe/Helsinki", 120, SummerTime::Europe},
    {"Europe/Athens", 120, SummerTime::Europe},
};

struct SummerTimeRule
{
    SummerTime where;
    bool begins;            // else it ends
    std::string_view onset; // of the first time; in Europe in UTC, else by the wall clock
    std::string_view rule;  // empty: just this once
};
constexpr SummerTimeRule kSummerTimeRules[] = {
    // where             begins  onset              rule
    {SummerTime::America, true, "19760425T020000", "FREQ=YEARLY;BYMONTH=4;BYDAY=-1SU;UNTIL=19861231"},
    {SummerTime::America, true, "19870405T020000", "FREQ=YEARLY;BYMONTH=4;BYDAY=1SU;UNTIL=20061231"},
    {SummerTime::America, true, "20070311T020000", "FREQ=YEARLY;BYMONTH=3;BYDAY=2SU"},
    {SummerTime::America, false, "19761031T020000", "FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU;UNTIL=20061231"},
    {SummerTime::America, false, "20071104T020000", "FREQ=YEARLY;BYMONTH=11;BYDAY=1SU"},
    {SummerTime::Europe, true, "19960331T010000", "FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU"},
    {SummerTime::Europe, false, "19961027T010000", "FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU"},
    {SummerTime::Perth, true, "20061203T020000", ""},
    {SummerTime::Perth, true, "20071028T020000", "FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU;UNTIL=20081231"},
    {SummerTime::Perth, false, "20070325T030000", "FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU;UNTIL=20091231"},
};

Observance ObservanceOf(const SummerTimeRule& row, int winter)
{
    const int summer = winter + static_cast<int>(kHourSeconds);
    Observance observance;
    observance.offsetFrom = row.begins ? winter : summer;
    observance.offsetTo = row.begins ? summer : winter;
    observance.onset = ParseTime(row.onset)->wall;
    if (row.where == SummerTime::Europe) {
        observance.onset += observance.offsetFrom;
    }
    if (!row.rule.empty()) {
        observance.rule = ParseRule(row.rule).rule;
        if (observance.rule->until) {
            observance.rule->lastStart = observance.rule->until->wall;
        }
    }
    return observance;
}

ZonePtr MakeZone(const CommonZone& row)
{
    const int winter = row.minutesEast * static_cast<int>(kMinuteSeconds);
    const bool isLisbon = row.summerTime == SummerTime::Lisbon;
    std::vector<Observance> observances;
    for (const SummerTimeRule& rule : kSummerTimeRules) {
        if (rule.where == (isLisbon ? SummerTime::Europe : row.summerTime)) {
            observances.push_back(ObservanceOf(rule, winter));
        }
    }
    if (isLisbon) { // the year before, the summer an hour further ahead had ended to this winter
        Observance ahead;
        ahead.onset = ParseTime("19950924T030000")->wall;
        ahead.offsetFrom = 2 * static_cast<int>(kHourSeconds);
        ahead.offsetTo = static_cast<int>(kHourSeconds);
        observances.push_back(ahead);
    }
    if (observances.empty()) {
        Observance fixed;
        fixed.offsetFrom = fixed.offsetTo = winter;
        observances.push_back(fixed);
    }
    return std::make_shared<TimeZone>(std::string(row.id), std::move(observances));
}

// Some writers put their own registry before the name: "/example.org/2005_1/Asia/Tokyo".
std::string_view WithoutRegistry(std::string_view id)
{
    if (id.empty() || id.front() != '/') {
        return id;
    }
    const std::size_t city = id.rfind('/');
    const std::size_t region = city == 0 ? 0 : id.rfind('/', city - 1);
    return id.substr(region + 1);
}

} // namespace

std::vector<std::string_view> CommonZoneNames()
{
    std::vector<std::string_view> names;
    for (const CommonZone& row : kCommonZones) {
        names.push_back(row.id);
    }
    return names;
}

ZonePtr FindCommonZone(std::string_view id)
{
    static const std::map<std::string, ZonePtr, std::less<>> zones = [] {
        std::map<std::string, ZonePtr, std::less<>> made;
        for (const CommonZone& row : kCommonZones) {
            made.emplace(UpperText(row.id), MakeZone(row));
        }
        return made;
    }();
    const auto found = zones.find(UpperText(WithoutRegistry(id)));
    return found == zones.end() ? nullptr : found->second;
}

} // namespace dayvane::ical
