#include "printing/CalendarSource.h"

#include "calc/LunarDate.h"
#include "core/DateMath.h"
#include "core/DayNote.h"

#include <map>
#include <memory>

namespace dayvane {
namespace {

constexpr int kLastSecond = 59;
constexpr int kBold = 1; // font flags of an item
constexpr int kStruck = 2;

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

PrintDay FactsOfDay(CCalendarCtrl& ctrl, int day)
{
    PrintDay facts;
    const COleDateTime date = DateOfDayNumber(day);
    const DayNote note = NoteOf(date, ctrl.GetDayProvider());
    if (ctrl.IsShowHoliday()) {
        facts.holiday = DayNamesText(ctrl.GetTexts(), note.name);
        facts.isDayOff = note.isDayOff;
    }
    if (ctrl.IsShow24Setuki()) {
        facts.solarTerm = DayNamesText(ctrl.GetTexts(), note.term);
    }
    int lunarYear = 0;
    CLunarDate().CalcLunarCalendar(date, lunarYear, facts.lunarMonth, facts.lunarDay);
    if (const tagCALENDAR_DAY_PROPERTY* property = ctrl.GetDayProperty(date)) {
        facts.note = DecodeText(property->strText, ctrl.GetTextCodePage());
    }
    return facts;
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
        if (!SetTimes(item, stored) || !item.Meets(firstDay, lastDay)) {
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
    return source;
}

} // namespace dayvane
