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

std::u16string Dates(const TextSettings& texts, std::u16string CalendarTexts::*pattern, const COleDateTime& first,
                     const COleDateTime& last)
{
    return texts.Date(pattern, first) + u" - " + texts.Date(pattern, last);
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
    return Dates(texts, &CalendarTexts::time, item.dtStart, item.dtEnd) + u" " + texts.HostText(item.strText);
}

std::u16string BandItemText(const tagCALENDAR_ITEM& item, const TextSettings& texts)
{
    std::u16string text = texts.HostText(item.strText);
    if (item.nFullday != 1 && item.nPiece == PIECE_HEAD) {
        return texts.Time(item.dtStart) + u" " + text;
    }
    if (item.nFullday != 1 && item.nPiece == PIECE_TAIL) {
        return texts.Time(item.dtEnd) + u" " + text;
    }
    return text;
}

GridCaptionTexts CaptionOfDay(const ShownDay& day, bool showHolidays, bool showSolarTerms, const TextSettings& words)
{
    GridCaptionTexts texts;
    if (day.dayOfWeek == -1) {
        return texts;
    }
    texts.date = words.Date(&CalendarTexts::captionDay, day.date);
    texts.weekday = words.Date(&CalendarTexts::captionWeekday, day.date);
    texts.longDate = u"     " + words.Date(&CalendarTexts::longDate, day.date);
    if (showHolidays && !day.note.name.empty()) {
        texts.holiday = u"  " + words.DayNames(day.note.name);
    }
    if (showSolarTerms && !day.note.term.empty()) {
        texts.solarTerm = u" " + words.DayNames(day.note.term);
    }
    return texts;
}

GridCaptionTexts CaptionOfDays(const COleDateTime& first, const COleDateTime& last, const TextSettings& words)
{
    GridCaptionTexts texts;
    if (!IsValid(first) || !IsValid(last)) {
        return texts;
    }
    texts.date = Dates(words, &CalendarTexts::captionDay, first, last);
    if (first.GetYear() != last.GetYear()) {
        texts.longDate = u"     " + Dates(words, &CalendarTexts::spanYearDate, first, last);
        return texts;
    }
    // One year is said once: at the end where it stands last, at the beginning where it stands first.
    const bool yearIsFirst = words.words->spanYearDate.find(u"%Y") == 0;
    const auto pattern = [yearIsFirst](bool isFirst) {
        return isFirst == yearIsFirst ? &CalendarTexts::spanYearDate : &CalendarTexts::spanDate;
    };
    texts.longDate = u"     " + words.Date(pattern(true), first) + u" - " + words.Date(pattern(false), last);
    return texts;
}

HeaderTexts HeaderOfDay(const ShownDay& day, bool showHolidays, const std::u16string& hostText,
                        const TextSettings& words)
{
    HeaderTexts texts;
    if (day.dayOfWeek == -1) {
        return texts;
    }
    texts.longDate = words.Date(&CalendarTexts::headerDay, day.date);
    texts.shortDate = words.Date(&CalendarTexts::day, day.date);
    const std::u16string weekday = words.words->shortWeekdays[day.dayOfWeek - 1];
    texts.dayAndName = texts.shortDate + u" (" + weekday + u")";
    texts.tightDate = texts.shortDate + weekday;
    texts.note = hostText.empty() && showHolidays ? words.DayNames(day.note.name) : hostText;
    return texts;
}

} // namespace dayvane
