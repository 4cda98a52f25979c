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

constexpr const char16_t* kWeekdays[] = {u"日", u"月", u"火", u"水", u"木", u"金", u"土"};
constexpr const char* kClock = "%#H:%M";

// "日" .. "土", empty for other numbers than 1 to 7.
std::u16string WeekdayName(int dayOfWeek)
{
    return dayOfWeek >= kSunday && dayOfWeek <= kSaturday ? kWeekdays[dayOfWeek - 1] : u"";
}

// Names in it are of the C runtime's locale.
std::u16string DateText(const COleDateTime& date, const char* format)
{
    return DecodeText(date.Format(format), kSystemCodePage);
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

std::u16string TimedItemText(const tagCALENDAR_ITEM& item, const TextSettings& texts)
{
    return DateText(item.dtStart, kClock) + u" - " + DateText(item.dtEnd, kClock) + u" " + texts.HostText(item.strText);
}

std::u16string BandItemText(const tagCALENDAR_ITEM& item, const TextSettings& texts)
{
    const std::u16string text = texts.HostText(item.strText);
    if (item.nFullday != 1 && item.nPiece == PIECE_HEAD) {
        return DateText(item.dtStart, kClock) + u" " + text;
    }
    if (item.nFullday != 1 && item.nPiece == PIECE_TAIL) {
        return DateText(item.dtEnd, kClock) + u" " + text;
    }
    return text;
}

GridCaptionTexts CaptionOfDay(const ShownDay& day, bool showHolidays, bool showSolarTerms)
{
    GridCaptionTexts texts;
    if (day.dayOfWeek == -1) {
        return texts;
    }
    texts.date = DateText(day.date, "%#m.%#d");
    texts.weekday = u" (" + WeekdayName(day.dayOfWeek) + u")";
    texts.longDate = u"     " + DateText(day.date, "%A, %d %B, %Y");
    if (showHolidays && !day.note.name.IsEmpty()) {
        texts.holiday = u"  " + OwnText(day.note.name);
    }
    if (showSolarTerms && !day.note.term.IsEmpty()) {
        texts.solarTerm = u" " + OwnText(day.note.term);
    }
    return texts;
}

GridCaptionTexts CaptionOfDays(const COleDateTime& first, const COleDateTime& last)
{
    GridCaptionTexts texts;
    if (!IsValid(first) || !IsValid(last)) {
        return texts;
    }
    texts.date = DateText(first, "%#m.%#d") + u" - " + DateText(last, "%#m.%#d");
    const bool sameYear = first.GetYear() == last.GetYear();
    texts.longDate =
        u"     " + DateText(first, sameYear ? "%#d %B" : "%#d %B, %Y") + u" - " + DateText(last, "%#d %B, %Y");
    return texts;
}

HeaderTexts HeaderOfDay(const ShownDay& day, bool showHolidays, const std::u16string& hostText)
{
    HeaderTexts texts;
    if (day.dayOfWeek == -1) {
        return texts;
    }
    texts.longDate = DateText(day.date, "%#m/%#d") + u" (" + WeekdayName(day.dayOfWeek) + u")";
    texts.shortDate = DateText(day.date, "%#d");
    texts.note = hostText.empty() && showHolidays ? OwnText(day.note.name) : hostText;
    return texts;
}

} // namespace dayvane
