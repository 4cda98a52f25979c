// The cycle of sixty that counts days, months and years: ten stems and twelve branches that run beside each other.
//
// A place in the cycle is 0 to 59, 0 the first stem with the first branch (Wood Rat, kinoe-ne); its stem is place % 10,
// its branch place % 12.
#pragma once

namespace dayvane {
inline constexpr int kSexagenaryPlaces = 60;
inline constexpr int kStems = 10;
inline constexpr int kBranches = 12;

inline constexpr int kFifthStem = 4; // tsuchinoe, whose days near the equinoxes are shanichi
inline constexpr int kOxBranch = 1;

// Of a day (as civil::DayNumber): days have been counted so without a gap.
int SexagenaryDay(int serialDay);

// Of a year. Which days belong to it is the caller's choice: from the lunar new year on, or from the beginning of
// spring.
int SexagenaryYear(int year);

// Of a month of the almanac, which begins with the first solar term (285 + 30 n degrees) of a civil month.
int SexagenaryMonth(int year, int civilMonth);
} // namespace dayvane
