#include "printing/CalendarSource.h"

#include "calc/ExactSky.h"
#include "core/DateMath.h"
#include "core/DayLines.h"
#include "core/DayNote.h"

#include <algorithm>
#include <map>
#include <memory>

namespace dayvane {
namespace {

constexpr int kLastSecond = 59;
constexpr int kBold = 1; // font flags of an item
constexpr int kStruck = 2;
constexpr int kLeastMonth = 28; // days
constexpr int kLeastYear = 365;

int MinuteOf(const COleDateTime& time)
{
    return time.GetHour() * kMinutesPerHour + time.GetMinute();
}

// The item's days and times; false for one that no view shows.
bool SetTimes(PrintItem& item, const tagCC_ITEM& stored)
{
    if (!IsValid(stored.dtStart) || !IsValid(stored.dtEnd)) {
        return false;
    }
    item.firstDay = DayNumberOf(stored.dtStart);
    item.lastDay = DayNumberOf(stored.dtEnd);
    item.startMinute = MinuteOf(stored.dtStart);
    // The last moment of an item may be the last second before the end that people mean.
    item.endMinute = MinuteOf(stored.dtEnd) + (stored.dtEnd.GetSecond() == kLastSecond ? 1 : 0);
    item.isWholeDay = stored.nFullday == 1;
    return item.lastDay >= item.firstDay;
}

void Append(std::u16string& text, const std::u16string& more)
{
    text += (text.empty() || more.empty() ? u"" : u" ") + more;
}

// Names as the view's captions and lines show them: where it has lines of terms and seasonal days, only those.
void SetNames(PrintDay& facts, const CCalendarCtrl& ctrl, const DayInfo& info)
{
    const DayLines& lines = ctrl.GetDayLines();
    const bool hasTermLines = lines.terms || lines.seasonalDays;
    const bool showsTerms = hasTermLines ? lines.terms : ctrl.IsShow24Setuki() != FALSE;
    const bool showsSeasonal = hasTermLines ? lines.seasonalDays : ctrl.IsShow24Setuki() != FALSE;
    const bool showsNames = ctrl.IsShowHoliday() || lines.names;
    for (const DayName& name : info.names) {
        const bool isTerm = name.kind == DayKind::SolarTerm;
        const bool isSeasonal = name.kind == DayKind::SeasonalDay;
        if (isTerm ? showsTerms : isSeasonal ? showsSeasonal : showsNames) {
            Append(isTerm || isSeasonal ? facts.solarTerm : facts.holiday,
                   DayNamesText(ctrl.GetTexts(), DecodeText(std::string_view(name.text), kUtf8CodePage)));
        }
    }
    facts.isDayOff = info.isDayOff && showsNames;
}

// What the view's lines say of every day, and the lunar date for titles.
void SetSky(PrintDay& facts, const CCalendarCtrl& ctrl, const COleDateTime& date)
{
    DayLines sky;
    const DayLines& lines = ctrl.GetDayLines();
    sky.rokuyo = lines.rokuyo;
    sky.lunarDate = lines.lunarDate;
    sky.moonPhase = lines.moonPhase;
    sky.language = lines.language;
    sky.zoneMinutes = lines.zoneMinutes;
    for (const DayPiece& piece : PiecesOfDay(date, ctrl.GetDayProvider(), sky)) {
        Append(facts.sky, piece.text);
        facts.moon = std::max(facts.moon, piece.moon);
    }
    const CivilDate day = CivilDateOf(date);
    const ExactLunarDate lunar = LunarDateOf(day.year, day.month, day.day, lines.zoneMinutes);
    facts.lunarMonth = lunar.month;
    facts.lunarDay = lunar.day;
    facts.isLeapMonth = lunar.isLeapMonth;
}

PrintDay FactsOfDay(CCalendarCtrl& ctrl, int day)
{
    PrintDay facts;
    const COleDateTime date = DateOfDayNumber(day);
    SetNames(facts, ctrl, InfoOfDay(CivilDateOf(date), ctrl.GetDayProvider()));
    SetSky(facts, ctrl, date);
    if (const tagCALENDAR_DAY_PROPERTY* property = ctrl.GetDayProperty(date)) {
        facts.note = DecodeText(property->strText, ctrl.GetTextCodePage());
    }
    return facts;
}

// Year of the era and weeks, where the view's title has them.
std::u16string NoteOfTitle(const CCalendarCtrl& ctrl, int first, int last)
{
    const int days = last - first + 1;
    const TitleUnit unit = days >= kLeastYear    ? TitleUnit::Year
                           : days >= kLeastMonth ? TitleUnit::Month
                                                 : TitleUnit::Day;
    const int firstDayOfWeek = unit == TitleUnit::Day ? ctrl.GetFirstDayOfWeek() : 0;
    std::u16string note =
        OwnText(TitleNote(DateOfDayNumber(first), DateOfDayNumber(last), unit, firstDayOfWeek, ctrl.GetDayLines()));
    note.erase(0, note.find_first_not_of(u' '));
    return note;
}

} // namespace

std::u16string WideText(CCalendarCtrl& ctrl, const CString& text)
{
    return DecodeText(text, ctrl.GetTextCodePage());
}

PrintSource SourceOf(CCalendarCtrl& ctrl, int firstDay, int lastDay, const std::function<CString(int)>& placeOf)
{
    const UINT codePage = ctrl.GetTextCodePage();
    PrintSource source;
    source.firstDayOfWeek = ctrl.GetFirstDayOfWeek();
    source.today = DayNumberOf(Now());
    for (int i = 0; i < ctrl.GetItemCount(); ++i) {
        tagCC_ITEM stored;
        ctrl.GetItem(i, stored);
        PrintItem item;
        if (!SetTimes(item, stored) || !item.Overlaps(firstDay, lastDay)) {
            continue;
        }
        item.text = DecodeText(stored.strText, codePage);
        if (placeOf) {
            item.place = DecodeText(placeOf(i), codePage);
        }
        item.fill = stored.crColor2;
        item.edge = stored.crColor4;
        item.isBold = (stored.nReserved & kBold) != 0;
        item.isStruck = (stored.nReserved & kStruck) != 0;
        item.image = stored.nImage;
        source.items.push_back(std::move(item));
    }
    // A sheet asks for a day more than once.
    const auto known = std::make_shared<std::map<int, PrintDay>>();
    CCalendarCtrl* const asked = &ctrl;
    source.dayFacts = [known, asked](int day) {
        const auto found = known->find(day);
        return found != known->end() ? found->second : known->emplace(day, FactsOfDay(*asked, day)).first->second;
    };
    source.texts = std::make_shared<CalendarTexts>(ctrl.GetTexts());
    source.titleNote = [asked](int first, int last) { return NoteOfTitle(*asked, first, last); };
    const DayLines& lines = ctrl.GetDayLines();
    source.hasSky = lines.HasSky();
    if (lines.weekNumbers) {
        source.weekOf = [asked, rule = lines.weekRule](int day) {
            return WeekOf(CivilDateOf(DateOfDayNumber(day)), asked->GetFirstDayOfWeek(), rule).week;
        };
    }
    return source;
}

} // namespace dayvane
