// What a view may say of a day besides its number: which lines stand under it, and their texts. A host chooses with
// CCalendarCtrl::SetDayLines; all is off at first.
#pragma once

#include "../calc/DayCalendar.h"
#include "../calc/ExactSky.h"
#include "../calc/WeekNumbers.h"

#include <afx.h>
#include <afxdisp.h>

#include <string>
#include <vector>

namespace dayvane {

struct DayLines
{
    // ---- Under the number of a day. Under the name of a month in the year view, which has its days off only: with any
    // of these their numbers, with the first one their names too.
    bool names = false;        // holidays, observances and the host's days: no longer beside the number
    bool terms = false;        // solar terms; with this or the next on, neither stands beside the number
    bool seasonalDays = false; // the farmer's year
    bool rokuyo = false;       // the six days: 大安, 赤口, ...
    bool lunarDate = false;    // of the lunisolar calendar, by the exact sky
    bool moonPhase = false;    // a picture of the moon, with its name on the days of its quarters

    // ---- Elsewhere.
    bool weekNumbers = false; // a column in the month views, a note in the titles of the others
    bool eraTitles = false;   // the year of the era, after the title's own text

    WeekRule weekRule = WeekRule::FirstFourDayWeek; // with Monday as the first day: the weeks of ISO 8601
    DayLanguage language = DayLanguage::Japanese;   // English also for Japanese names that have an English one
    int zoneMinutes = kJapanZone;                   // of the lunisolar calendar, east of Greenwich

    bool HasSky() const { return rokuyo || lunarDate || moonPhase; }
    bool HasLines() const { return names || terms || seasonalDays || HasSky(); }
};

// One word or picture of the lines.
struct DayPiece
{
    enum class Kind
    {
        DayOff, // a name in the holiday colour
        Name,
        Term, // or a seasonal day
        Sky   // what each day has: rokuyo, lunar date, moon
    };
    Kind kind = Kind::Name;
    std::u16string text; // may be empty for a moon
    double moon = -1;    // elongation in degrees of the moon that stands before the text; negative: none
    int textWidth = 0;   // pixels, measured by the painter (MeasurePieces)
};

// The pieces of a day the most important first; empty for a date that is not valid. provider: as NoteOf takes it.
std::vector<DayPiece> PiecesOfDay(const COleDateTime& date, const DayProvider* provider, const DayLines& lines);

// The days off of a month, from its first day on: "3 文化の日", or "3" without the line of names. Days off in a row
// without names are one piece, "29-31".
std::vector<DayPiece> DaysOffOfMonth(const COleDateTime& month, const DayProvider* provider, const DayLines& lines);

// What follows the text of a title over these days: era and weeks, each after two blanks. firstDayOfWeek 0: without
// the weeks.
enum class TitleUnit
{
    Year,
    Month,
    Day
};
CString TitleNote(const COleDateTime& first, const COleDateTime& last, TitleUnit unit, int firstDayOfWeek,
                  const DayLines& lines);

} // namespace dayvane
