#include "core/DateMath.h"
#include "views/timegrid/TimeGridLook.h"

namespace dayvane {
namespace {
// Columns of the table of day colours.
enum DayColorColumn
{
    WORK_FILL = 0,
    WORK_LINE = 1,
    WORK_HOUR_LINE = 2,
    OFF_FILL = 3,
    OFF_LINE = 4,
    OFF_HOUR_LINE = 5,
};

constexpr int kSundayRow = 1;
constexpr int kSaturdayRow = 2;

constexpr const char* kWeekdays[] = {"日", "月", "火", "水", "木", "金", "土"};
constexpr const char* kClock = "%#H:%M";

// "日" .. "土", empty for other numbers than 1 to 7.
const char* WeekdayName(int dayOfWeek)
{
    return dayOfWeek >= kSunday && dayOfWeek <= kSaturday ? kWeekdays[dayOfWeek - 1] : "";
}

CString Joined(const char* format, const CString& text)
{
    CString joined;
    joined.Format(format, static_cast<LPCTSTR>(text));
    return joined;
}

CString Joined(const char* format, const CString& first, const CString& second)
{
    CString joined;
    joined.Format(format, static_cast<LPCTSTR>(first), static_cast<LPCTSTR>(second));
    return joined;
}
} // namespace

ShownDay ShownDay::Of(const COleDateTime& date, const DayProvider* provider)
{
    ShownDay day;
    day.date = date;
    day.dayOfWeek = date.GetDayOfWeek();
    day.note = NoteOf(date, provider);
    return day;
}

DayTone ToneOfDay(const ShownDay& day, bool showHolidays, int dayColor)
{
    DayTone tone;
    tone.isDayOff = showHolidays && day.note.isDayOff;
    if (dayColor != 0) {
        tone.colorRow = dayColor - 1;
    } else if (tone.isDayOff || day.dayOfWeek == kSunday) {
        tone.colorRow = kSundayRow;
    } else if (day.dayOfWeek == kSaturday) {
        tone.colorRow = kSaturdayRow;
    }
    return tone;
}

RowLook LookOfRow(int row, bool isWorkTime, bool isSelected, const RowLookInput& input)
{
    const COLORREF* colors = input.colors.crColor;
    const bool onTheHour = input.scale.IsOnTheHour(row);
    RowLook look;
    if (isWorkTime) {
        const bool beginsWork = onTheHour && row / input.scale.rowsPerHour == input.workBeginHour;
        look.fill = colors[WORK_FILL];
        look.line = colors[beginsWork ? OFF_HOUR_LINE : onTheHour ? WORK_HOUR_LINE : WORK_LINE];
    } else {
        look.fill = colors[OFF_FILL];
        look.line = colors[onTheHour ? OFF_HOUR_LINE : OFF_LINE];
    }
    if (isSelected) {
        look.fill = input.highlight;
    }
    return look;
}

CString TimedItemText(const tagCALENDAR_ITEM& item)
{
    CString text;
    text.Format("%s - %s %s", static_cast<LPCTSTR>(item.dtStart.Format(kClock)),
                static_cast<LPCTSTR>(item.dtEnd.Format(kClock)), static_cast<LPCTSTR>(item.strText));
    return text;
}

CString BandItemText(const tagCALENDAR_ITEM& item)
{
    if (item.nFullday != 1 && item.nPiece == PIECE_HEAD) {
        return Joined("%s %s", item.dtStart.Format(kClock), item.strText);
    }
    if (item.nFullday != 1 && item.nPiece == PIECE_TAIL) {
        return Joined("%s %s", item.dtEnd.Format(kClock), item.strText);
    }
    return item.strText;
}

GridCaptionTexts CaptionOfDay(const ShownDay& day, bool showHolidays, bool showSolarTerms)
{
    GridCaptionTexts texts;
    if (day.dayOfWeek == -1) {
        return texts;
    }
    texts.date = day.date.Format("%#m.%#d");
    texts.weekday = Joined(" (%s)", WeekdayName(day.dayOfWeek));
    texts.longDate = Joined("     %s", day.date.Format("%A, %d %B, %Y"));
    if (showHolidays && !day.note.name.IsEmpty()) {
        texts.holiday = Joined("  %s", day.note.name);
    }
    if (showSolarTerms && !day.note.term.IsEmpty()) {
        texts.solarTerm = Joined(" %s", day.note.term);
    }
    return texts;
}

GridCaptionTexts CaptionOfDays(const COleDateTime& first, const COleDateTime& last)
{
    GridCaptionTexts texts;
    if (!IsValid(first) || !IsValid(last)) {
        return texts;
    }
    texts.date = Joined("%s - %s", first.Format("%#m.%#d"), last.Format("%#m.%#d"));
    const bool sameYear = first.GetYear() == last.GetYear();
    texts.longDate =
        Joined("     %s - %s", first.Format(sameYear ? "%#d %B" : "%#d %B, %Y"), last.Format("%#d %B, %Y"));
    return texts;
}

HeaderTexts HeaderOfDay(const ShownDay& day, bool showHolidays, const CString& hostText)
{
    HeaderTexts texts;
    if (day.dayOfWeek == -1) {
        return texts;
    }
    texts.longDate = Joined("%s (%s)", day.date.Format("%#m/%#d"), WeekdayName(day.dayOfWeek));
    texts.shortDate = day.date.Format("%#d");
    texts.note = hostText;
    if (hostText.IsEmpty() && showHolidays && !day.note.name.IsEmpty()) {
        texts.note = day.note.name;
    }
    return texts;
}

} // namespace dayvane
