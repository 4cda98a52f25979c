// How a time grid looks, worked out without drawing: colours of rows, texts of items, captions and headers.
#pragma once

#include "../../core/CalendarRecords.h"
#include "../../core/DayLines.h"
#include "../../core/DayNote.h"
#include "../../core/TextSettings.h"
#include "TimeScale.h"

#include <array>
#include <string>
#include <vector>

namespace dayvane {

// A shown day with what the calendar says of it; worked out when the shown days change.
struct ShownDay
{
    COleDateTime date;
    int dayOfWeek = -1; // 1 Sunday .. 7 Saturday, -1: no date
    DayNote note;
    std::vector<DayPiece> pieces; // of the lines under its name

    bool IsFor(const COleDateTime& other) const { return date == other; }
    static ShownDay Of(const COleDateTime& date, const DayProvider* provider); // provider: see NoteOf
};

// The row of the table of day colours (0-based): the host's colour number of the day, less one, when it is not 0; a day
// off (when days off are shown) or Sunday 1, Saturday 2, others 0. A day off keeps its hours whatever its colour.
struct DayTone
{
    int colorRow = 0;
    bool isDayOff = false;
};
DayTone ToneOfDay(const ShownDay& day, bool showHolidays, int dayColor);

struct RowLook
{
    COLORREF fill;
    COLORREF line; // along the row's upper edge
};
struct RowLookInput
{
    TimeScale scale;
    const tagCALENDAR_DAY_COLOR& colors;
    COLORREF highlight;
    int workBeginHour; // its row has a line of its own
};
RowLook LookOfRow(int row, bool isWorkTime, bool isSelected, const RowLookInput& input);

// "10:00 - 11:30 text"
std::u16string TimedItemText(const tagCALENDAR_ITEM& item, const TextSettings& texts);
// The text; an item that goes on afterwards has its begin before it, one that began before its end.
std::u16string BandItemText(const tagCALENDAR_ITEM& item, const TextSettings& texts);

// The texts of the title band, from left to right.
struct GridCaptionTexts
{
    std::u16string date;
    std::u16string weekday;
    std::u16string longDate;
    std::u16string holiday;
    std::u16string solarTerm;
};
GridCaptionTexts CaptionOfDay(const ShownDay& day, bool showHolidays, bool showSolarTerms, const TextSettings& words);
GridCaptionTexts CaptionOfDays(const COleDateTime& first, const COleDateTime& last, const TextSettings& words);

// The texts of a column's header. All columns of a view show the same form of the date: the longest that fits in each.
struct HeaderTexts
{
    // The date, the longest form first.
    std::array<const std::u16string*, 4> Forms() const { return {&longDate, &dayAndName, &tightDate, &shortDate}; }

    std::u16string longDate;   // "4/26 (水)"
    std::u16string dayAndName; // "26 (水)"
    std::u16string tightDate;  // "26水"
    std::u16string shortDate;  // "26"
    std::u16string note;       // holiday, or the host's text for the day
};
HeaderTexts HeaderOfDay(const ShownDay& day, bool showHolidays, const std::u16string& hostText,
                        const TextSettings& words);

} // namespace dayvane
