#include "views/timegrid/ZoneRuler.h"

#include "core/DateMath.h"
#include "core/TextCodec.h"

#include <cstdlib>

namespace dayvane {
namespace {

constexpr int kNoon = kMinutesPerDay / 2;
constexpr int kSecondsPerHour = kMinutesPerHour * kSecondsPerMinute;
constexpr int kEpochDay = 25569; // day number of 1 January 1970

CString ClockText(long long seconds)
{
    CString text;
    text.Format("%d:%02d", static_cast<int>(seconds / kSecondsPerHour),
                static_cast<int>(seconds % kSecondsPerHour / kSecondsPerMinute));
    return text;
}

CString DateText(const CivilDate& date)
{
    CString text;
    if (date.IsValid()) {
        text.Format("%d/%d", date.month, date.day);
    }
    return text;
}

ClockSeconds BeginOf(const CivilDate& day)
{
    return (SerialDayOf(day) - kEpochDay) * kSecondsPerDay;
}

// "2:00>3:00": the clock shows the second time instead of the first.
CString ChangeText(const ZoneClock::Change& change)
{
    const ClockSeconds from = change.isSkipped ? change.begin : change.end;
    const ClockSeconds to = change.isSkipped ? change.end : change.begin;
    const auto timeOf = [](ClockSeconds local) { return (local % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay; };
    return ClockText(timeOf(from)) + ">" + ClockText(timeOf(to));
}

// Seconds by which the other clock is ahead at noon of the own one.
ClockSeconds DifferenceOn(const CivilDate& day, const ZoneRuler& ruler)
{
    const ClockSeconds local = BeginOf(day) + static_cast<ClockSeconds>(kNoon) * kSecondsPerMinute;
    return ruler.other.LocalOf(ruler.own.MomentsOf(local).first) - local;
}

DayPiece PieceOf(const CString& text)
{
    DayPiece piece;
    piece.kind = DayPiece::Kind::DayOff; // so that it is noticed
    piece.text = OwnText(text);
    return piece;
}

} // namespace

std::vector<ZoneHour> ZoneHoursOf(const COleDateTime& day, const ZoneRuler& ruler)
{
    std::vector<ZoneHour> hours;
    const CivilDate date = CivilDateOf(day);
    if (!date.IsValid()) {
        return hours;
    }
    for (const ZoneRulerRow& row : CalcZoneRuler(date, kMinutesPerHour, ruler.own, ruler.other)) {
        ZoneHour hour;
        const bool isGone = row.skippedMinutes >= kMinutesPerHour;
        if (ruler.showOther && !isGone) {
            hour.other = ClockText(static_cast<long long>(row.otherMinute) * kSecondsPerMinute);
            if (hours.empty() || row.otherMinute == 0) {
                hour.otherDate = DateText(row.otherDate);
            } else if (row.otherDateBegins >= 0) {
                hour.otherDate = DateText(AddDays(row.otherDate, 1));
            }
        }
        hours.push_back(hour);
    }
    const ClockSeconds begin = BeginOf(date);
    for (const ZoneClock::Change& change : ruler.own.ChangesWithin(begin, begin + kSecondsPerDay)) {
        const ClockSeconds first = change.begin < begin ? 0 : change.begin - begin;
        hours[first / kSecondsPerHour].change = ChangeText(change);
    }
    return hours;
}

std::vector<DayPiece> ZonePiecesOf(const COleDateTime& day, const ZoneRuler& ruler)
{
    std::vector<DayPiece> pieces;
    const CivilDate date = CivilDateOf(day);
    if (!date.IsValid()) {
        return pieces;
    }
    const ClockSeconds begin = BeginOf(date);
    for (const ZoneClock::Change& change : ruler.own.ChangesWithin(begin, begin + kSecondsPerDay)) {
        pieces.push_back(PieceOf(ChangeText(change)));
    }
    const CivilDate before = AddDays(date, -1);
    if (!ruler.showOther || !before.IsValid()) {
        return pieces;
    }
    const ClockSeconds difference = DifferenceOn(date, ruler);
    if (difference != DifferenceOn(before, ruler)) {
        pieces.push_back(
            PieceOf(ruler.otherLabel + (difference < 0 ? " -" : " +") + ClockText(std::llabs(difference))));
    }
    return pieces;
}

} // namespace dayvane
