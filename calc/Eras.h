// Japanese eras: years counted from an emperor's accession, written and read. All texts are UTF-8.
#pragma once

#include "CivilDate.h"

#include <string>
#include <vector>

namespace dayvane {
struct Era
{
    std::string name;     // "令和"
    std::string sign;     // one character: "令"
    std::string ligature; // one character for the whole name: "㋿"; may be empty
    std::string english;  // "Reiwa"
    char initial = 0;     // 'R', of A to Z
    CivilDate firstDay;   // Gregorian. The era lasts until the day before the next one's
};

// How much of a date a text has.
enum class EraParts
{
    None, // no date of an era
    Year,
    Month,
    Day
};

struct EraYear
{
    const Era* era =
        nullptr;  // nullptr: before the first era, or no valid date. Lives as long as the table is unchanged
    int year = 0; // 1 for the year in which the era begins

    // The date lies before 1 January of Meiji 6 (1873), when the Gregorian calendar came into force: its month and day
    // are Gregorian ones carried back, not those that were written then.
    bool isBeforeGregorian = false;
};

struct EraDate
{
    CivilDate date; // the first day of what the text has: of the month, or the era's first day in that year
    EraParts parts = EraParts::None;
    // The era did not hold on that day: "平成32年" on a paper printed in 2018 means 2020.
    bool isOutsideEra = false;
    bool isBeforeGregorian = false;
};

enum class EraStyle
{
    Long,      // 令和8年11月20日; the first year is 元年
    Short,     // R8.11.20
    LongMonth, // 令和8年11月
    LongYear,  // 令和8年
    English,   // 20 November, Reiwa 8
};

// The eras from Meiji to Reiwa, and later ones that a host adds.
class EraTable
{
public:
    EraTable();

    // A new era. False, and nothing changed, when it has no name or initial, or does not begin on a valid day after
    // the last one's first day.
    bool Add(const Era& era);

    // One value of the system's list of eras, the registry's ...\Nls\Calendars\Japanese\Eras of the machine: its name
    // "2019 05 01" and its text "令和_令_Reiwa_R" as UTF-8. As Add; eras that the table has already are refused so too.
    bool AddSystemEntry(const std::string& firstDay, const std::string& names);

    const std::vector<Era>& Eras() const { return m_eras; }
    EraYear YearOf(const CivilDate& date) const;

    // Empty where no era holds.
    std::string Format(const CivilDate& date, EraStyle style) const;

    // Reads the styles above but English, and what people write instead: the era's sign, ligature or initial in any
    // case before a number, numbers in full-width or Chinese digits, ".", "/" or "-" for 年 and 月, spaces between.
    // The month and day may be missing. parts is None for anything else, also for a day that its month does not have.
    EraDate Parse(const std::string& text) const;

private:
    std::vector<Era> m_eras; // ascending
};
} // namespace dayvane
