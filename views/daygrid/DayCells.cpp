#include "views/daygrid/DayCells.h"

#include "core/DateMath.h"
#include "core/DayNote.h"
#include "core/TextCodec.h"
#include "views/daygrid/BoxRange.h"

namespace dayvane {
namespace {

BoxDay DayOf(const COleDateTime& date, int currentMonth, const CivilDate& today)
{
    BoxDay info;
    info.m_date = date;
    const CivilDate fields = CivilDateOf(date);
    if (!IsValid(date)) {
        return info;
    }
    if (fields.month == currentMonth) {
        info.m_nFlags |= DAY_IN_MONTH;
    }
    if (fields == today) {
        info.m_nFlags |= DAY_TODAY;
    }
    return info;
}

// The text in the library's code page; wide keeps it when that page lacks one of its characters.
CString Narrow(const std::u16string& text, std::u16string& wide)
{
    wide = HoldsText(text, kOwnCodePage) ? std::u16string() : text;
    return CString(EncodeText(text, kOwnCodePage).c_str());
}

// A day off without a name is one too: the host's provider need not name it.
void Annotate(const DayNote& note, BoxDay& day)
{
    day.m_strHoliday = Narrow(note.name, day.m_wideHoliday);
    day.m_bHoliday = note.isDayOff || !note.name.empty() ? 1 : 0;
    day.m_nHolidayType = day.m_bHoliday == 0 || note.isDayOff ? 0 : 1;
    day.m_bSolarTerm = note.term.empty() ? 0 : 1;
    const CString term = Narrow(note.term, day.m_wideTerm);
    day.m_strText = day.m_bSolarTerm == 1 ? day.m_strHoliday + " " + term : CString();
    day.m_nColorRow = note.colorRow;
}

} // namespace

void FillDays(const BoxRange& range, const COleDateTime& current, const COleDateTime& today,
              const DayProvider* provider, BoxDayArray& days)
{
    const int currentMonth = CivilDateOf(current).month;
    const CivilDate todayFields = CivilDateOf(today);
    days.RemoveAll();
    days.SetSize(range.Count());
    for (int i = 0; i < range.Count(); ++i) {
        days[i] = DayOf(range.DateOfBox(i), currentMonth, todayFields);
    }
    AnnotateDays(provider, days);
}

void MarkToday(const COleDateTime& today, BoxDayArray& days)
{
    for (int i = 0; i < static_cast<int>(days.GetSize()); ++i) {
        const bool isToday = IsValid(days[i].m_date) && IsSameDay(days[i].m_date, today);
        days[i].m_nFlags &= ~DAY_TODAY;
        if (isToday) {
            days[i].m_nFlags |= DAY_TODAY;
        }
    }
}

void AnnotateDays(const DayProvider* provider, BoxDayArray& days)
{
    for (int i = 0; i < static_cast<int>(days.GetSize()); ++i) {
        Annotate(NoteOf(days[i].m_date, provider), days[i]);
    }
}

BoxRange RangeOf(const BoxDayArray& days)
{
    for (int i = 0; i < static_cast<int>(days.GetSize()); ++i) {
        if (IsValid(days[i].m_date)) {
            return BoxRange::FromDay(RangeKind::Month, DayNumberOf(days[i].m_date) - i);
        }
    }
    return BoxRange(RangeKind::Month);
}

void ClearDayProperties(BoxDayArray& days)
{
    for (int i = 0; i < static_cast<int>(days.GetSize()); ++i) {
        tagCALENDAR_DAY_PROPERTY& property = days[i].m_dayProperty;
        property.strText.Empty();
        property.nDayColor = property.nReserved = property.bUseMyWorkTime = 0;
    }
}

} // namespace dayvane
