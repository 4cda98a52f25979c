#include "ical/UidSource.h"

#include <ctime>
#include <memory>
#include <random>

namespace dayvane::ical {

UidSource RandomUids()
{
    auto random = std::make_shared<std::random_device>();
    return [random] {
        constexpr char hex[] = "0123456789abcdef";
        constexpr int digits = 32;
        std::string uid;
        for (int i = 0; i < digits; ++i) {
            if (i == 8 || i == 12 || i == 16 || i == 20) { // the usual grouping of UUIDs, version 4
                uid += '-';
            }
            const unsigned value = (*random)() & 0xF;
            uid += i == 12 ? '4' : hex[i == 16 ? (value & 0x3) | 0x8 : value];
        }
        return uid;
    };
}

UidSource CountedUids(const std::string& prefix)
{
    auto count = std::make_shared<int>(0);
    return [prefix, count] { return prefix + std::to_string(++*count); };
}

UtcClock SystemClock()
{
    return [] { return static_cast<LocalTime>(std::time(nullptr)); };
}

} // namespace dayvane::ical
