// The words of printed pages: names, dates and times as the control's texts say them.
#pragma once

#include "PrintOptions.h"

#include "../core/CalendarTexts.h"

#include <memory>
#include <string>

namespace dayvane {

class PrintTexts
{
public:
    explicit PrintTexts(std::shared_ptr<const CalendarTexts> words) : m_words(std::move(words)) {}

    // Dates; days are day numbers.
    std::u16string Year(int firstDay) const { return Text(&CalendarTexts::pageYear, firstDay); }
    std::u16string Month(int day) const { return Text(&CalendarTexts::pageMonth, day); }
    std::u16string MonthName(int day) const; // without the year
    std::u16string Date(int day) const { return Text(&CalendarTexts::pageDate, day); }
    std::u16string DateSpan(int first, int last) const; // "16 – 20 November 2026", "2026年11月16日 – 20日"
    std::u16string ShortDate(int day) const { return Text(&CalendarTexts::monthDay, day); }
    std::u16string ShortDates(int first, int last) const; // "11/3", "11/3–11/5"
    std::u16string DayHeading(int day) const { return Text(&CalendarTexts::pageDay, day); }
    static std::u16string DayOfMonth(int day);
    // 1 Sunday .. 7 Saturday
    std::u16string Weekday(int dayOfWeek) const;
    std::u16string ShortWeekday(int dayOfWeek) const;
    std::u16string TinyWeekday(int dayOfWeek) const { return ShortWeekday(dayOfWeek).substr(0, 1); }

    // Times, minutes of the day; 1440 is the end of the day.
    std::u16string Time(int minute) const;
    std::u16string TimeSpan(int start, int end) const;
    std::u16string WidestSpan() const; // of those of one day
    std::u16string Hour(int hour) const;
    std::u16string HourRest(int hour) const; // stands raised beside it: "00", "PM"
    static std::u16string Number(int n);

    std::u16string LunarDate(int month, int day, bool isLeapMonth) const;

    // Around the items
    const std::u16string& WholeDay() const { return m_words->wholeDay; }
    static std::u16string DayOfDays(int day, int days); // "(2/3)"
    const std::u16string& OtherItems() const { return m_words->pageOther; }
    const std::u16string& Notes() const { return m_words->pageNotes; }
    const std::u16string& NoItems() const { return m_words->pageNothing; }
    const std::u16string& TimedItems() const { return m_words->pageTimed; }
    // On what goes on elsewhere, and over what has begun elsewhere
    std::u16string ContinuedOn(int page) const;
    const std::u16string& Continued() const { return m_words->pageAgain; }

    // Footer
    std::u16string PageOf(int page, int pages) const;
    std::u16string Printed(int day) const { return m_words->pagePrinted + Date(day); }

private:
    std::u16string Text(std::u16string CalendarTexts::*pattern, int day) const;

    std::shared_ptr<const CalendarTexts> m_words;
};

// The words for pages with these options, of a control with these texts.
PrintTexts TextsFor(const PrintOptions& options, std::shared_ptr<const CalendarTexts> ofControl);

} // namespace dayvane
