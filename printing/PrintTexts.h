// The words of printed pages, in the language of the options.
#pragma once

#include "PrintOptions.h"

#include <string>

namespace dayvane {

class PrintTexts
{
public:
    explicit PrintTexts(PrintLanguage language) : m_japanese(language == PrintLanguage::Japanese) {}

    // Dates; days are day numbers.
    std::u16string Year(int year) const;             // "2026年", "2026"
    std::u16string Month(int year, int month) const; // "2026年11月", "November 2026"
    std::u16string MonthOf(int day) const;
    std::u16string MonthName(int month) const; // "11月", "November"
    std::u16string Date(int day) const;        // "2026年11月24日", "24 November 2026"
    std::u16string DateSpan(int first, int last) const;
    std::u16string ShortDate(int day) const;          // "11/24", "24 Nov"
    std::u16string DayHeading(int day) const;         // "11月24日（火）", "Tuesday, 24 November"
    std::u16string Weekday(int dayOfWeek) const;      // 1 Sunday .. 7: "火曜日", "Tuesday"
    std::u16string ShortWeekday(int dayOfWeek) const; // "火", "Tue"
    std::u16string TinyWeekday(int dayOfWeek) const;  // "火", "T"

    // Times, minutes of the day; 1440 is 24:00.
    static std::u16string Time(int minute);
    static std::u16string TimeSpan(int start, int end);
    static std::u16string Number(int n);
    std::u16string DayOfMonth(int day) const;
    // "11/3", "11/3–11/5"
    std::u16string ShortDates(int first, int last) const;

    std::u16string LunarDate(int month, int day) const;

    // Around the items
    std::u16string WholeDay() const { return m_japanese ? u"終日" : u"all day"; }
    std::u16string DayOfDays(int day, int days) const; // "(2/3)"
    std::u16string OtherItems() const { return m_japanese ? u"そのほかの予定" : u"Also on this day"; }
    std::u16string Notes() const { return m_japanese ? u"メモ" : u"Notes"; }
    std::u16string NoItems() const { return m_japanese ? u"予定はありません" : u"No items"; }
    // On what goes on elsewhere, and over what has begun elsewhere
    std::u16string ContinuedOn(int page) const;
    std::u16string Continued() const { return m_japanese ? u"（続き）" : u" (continued)"; }

    // Footer
    std::u16string PageOf(int page, int pages) const;
    std::u16string Printed(int day) const;

private:
    bool m_japanese;
};

} // namespace dayvane
