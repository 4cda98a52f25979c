// The table of common zones against the zone data of this system (package tzdata), which the C library reads.
#include "ical/TimeZone.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <map>
#include <string>

namespace dayvane::ical {
namespace {

// The zones that Windows means by its names (CLDR, windowsZones.xml, territory 001).
const std::map<std::string, std::string, std::less<>>& WindowsNames()
{
    static const std::map<std::string, std::string, std::less<>> names = {
        {"Arabian Standard Time", "Asia/Dubai"},
        {"Central Europe Standard Time", "Europe/Budapest"},
        {"Central European Standard Time", "Europe/Warsaw"},
        {"Central Standard Time", "America/Chicago"},
        {"China Standard Time", "Asia/Shanghai"},
        {"E. Australia Standard Time", "Australia/Brisbane"},
        {"Eastern Standard Time", "America/New_York"},
        {"GMT Standard Time", "Europe/London"},
        {"Hawaiian Standard Time", "Pacific/Honolulu"},
        {"India Standard Time", "Asia/Kolkata"},
        {"Korea Standard Time", "Asia/Seoul"},
        {"Mountain Standard Time", "America/Denver"},
        {"Pacific Standard Time", "America/Los_Angeles"},
        {"Romance Standard Time", "Europe/Paris"},
        {"SE Asia Standard Time", "Asia/Bangkok"},
        {"Singapore Standard Time", "Asia/Singapore"},
        {"Taipei Standard Time", "Asia/Taipei"},
        {"Tokyo Standard Time", "Asia/Tokyo"},
        {"US Mountain Standard Time", "America/Phoenix"},
        {"W. Australia Standard Time", "Australia/Perth"},
        {"W. Europe Standard Time", "Europe/Berlin"},
    };
    return names;
}

// While it lives, the C library keeps this zone.
class SystemZone
{
public:
    explicit SystemZone(const std::string& name)
    {
        setenv("TZ", (":" + name).c_str(), 1);
        tzset();
    }
    ~SystemZone()
    {
        setenv("TZ", "UTC", 1);
        tzset();
    }
    LocalTime WallOfUtc(LocalTime utc) const
    {
        const std::time_t time = utc;
        std::tm parts{};
        localtime_r(&time, &parts);
        return utc + parts.tm_gmtoff;
    }
};

TEST(ZoneData, CommonZonesAgreeWithTheSystem)
{
    constexpr LocalTime first = DayOfDate(1996, 1, 1) * kDaySeconds;
    constexpr LocalTime last = DayOfDate(2037, 12, 31) * kDaySeconds;
    const auto names = CommonZoneNames();
    ASSERT_GT(names.size(), 60u);
    for (const std::string_view name : names) {
        const auto windows = WindowsNames().find(name);
        const std::string systemName(windows == WindowsNames().end() ? name : windows->second);
        ASSERT_TRUE(std::ifstream("/usr/share/zoneinfo/" + systemName)) << systemName;
        const SystemZone system(systemName);
        const ZonePtr zone = FindCommonZone(name);
        ASSERT_TRUE(zone) << name;
        const auto differsAt = [&](LocalTime utc) { return system.WallOfUtc(utc) != zone->WallOfUtc(utc); };
        LocalTime before = system.WallOfUtc(first) - first;
        for (LocalTime day = first; day < last; day += kDaySeconds) {
            // Of days on which the clock is changed every quarter of an hour, to its last second.
            const LocalTime offset = system.WallOfUtc(day) - day;
            LocalTime wrong = differsAt(day) ? day : last;
            for (LocalTime utc = day; offset != before && utc > day - kDaySeconds; utc -= kHourSeconds / 4) {
                wrong = differsAt(utc) ? utc : differsAt(utc - 1) ? utc - 1 : wrong;
            }
            before = offset;
            if (wrong != last) {
                ADD_FAILURE() << name << " at " << FormatTime({wrong, false, true}) << " is "
                              << FormatTime({system.WallOfUtc(wrong), false, false}) << " by the system, here "
                              << FormatTime({zone->WallOfUtc(wrong), false, false});
                break;
            }
        }
    }
}

} // namespace
} // namespace dayvane::ical
