#include "core/DayLines.h"

#include "calc/EnglishDayNames.h"
#include "calc/SkyDay.h"
#include "core/DateMath.h"
#include "core/DayNote.h"
#include "core/EraTitles.h"
#include "core/TextCodec.h"

namespace dayvane {
namespace {

std::u16string Wide(const std::string& utf8)
{
    return DecodeText(utf8, kUtf8CodePage);
}

std::u16string NameText(const DayName& name, DayLanguage language)
{
    const char* english = language == DayLanguage::English ? EnglishDayName(name.text) : nullptr;
    return Wide(english ? english : name.text);
}

const char* NameIn(DayLanguage language, const SkyName& name)
{
    return language == DayLanguage::English ? name.english : name.japanese;
}

void AppendNames(std::vector<DayPiece>& pieces, const DayInfo& info, const DayLines& lines)
{
    for (const DayName& name : info.names) {
        const bool isTerm = name.kind == DayKind::SolarTerm;
        const bool isSeasonal = name.kind == DayKind::SeasonalDay;
        if (!(isTerm ? lines.terms : isSeasonal ? lines.seasonalDays : lines.names)) {
            continue;
        }
        DayPiece piece;
        const bool isOff = info.isDayOff && name.kind != DayKind::Observance;
        piece.kind = isTerm || isSeasonal ? DayPiece::Kind::Term
                     : isOff              ? DayPiece::Kind::DayOff
                                          : DayPiece::Kind::Name;
        piece.text = NameText(name, lines.language);
        pieces.push_back(piece);
    }
}

std::u16string LunarText(const ExactLunarDate& date, DayLanguage language)
{
    const bool isEnglish = language == DayLanguage::English;
    const std::string leap = !date.isLeapMonth ? "" : isEnglish ? "leap " : u8"閏";
    return Wide((isEnglish ? "" : u8"旧") + leap + std::to_string(date.month) + "/" + std::to_string(date.day));
}

void AppendSky(std::vector<DayPiece>& pieces, const CivilDate& date, const DayLines& lines)
{
    DayPiece piece;
    piece.kind = DayPiece::Kind::Sky;
    const ExactLunarDate lunar = LunarDateOf(date.year, date.month, date.day, lines.zoneMinutes);
    if (lines.rokuyo && lunar.IsValid()) {
        piece.text = Wide(NameIn(lines.language, RokuyoName(Rokuyo(lunar))));
        pieces.push_back(piece);
    }
    if (lines.lunarDate && lunar.IsValid()) {
        piece.text = LunarText(lunar, lines.language);
        pieces.push_back(piece);
    }
    const MoonOfDay moon = lines.moonPhase ? MoonOn(date.year, date.month, date.day, lines.zoneMinutes) : MoonOfDay();
    if (moon.elongation >= 0) {
        piece.moon = moon.elongation;
        piece.text = moon.quarter != -1 ? Wide(NameIn(lines.language, MoonQuarterName(moon.quarter))) : u"";
        pieces.push_back(piece);
    }
}

// One day off of a month, or several in a row that have no names.
struct DaysOff
{
    int first = 0;
    int last = 0;
    std::u16string name;
};

DayPiece PieceOf(const DaysOff& days)
{
    DayPiece piece;
    piece.kind = DayPiece::Kind::DayOff;
    const std::string last = days.last > days.first ? "-" + std::to_string(days.last) : "";
    piece.text = Wide(std::to_string(days.first) + last);
    if (!days.name.empty()) {
        piece.text += u" " + days.name;
    }
    return piece;
}

CString WeekText(const COleDateTime& first, const COleDateTime& last, int firstDayOfWeek, const DayLines& lines)
{
    const int from = WeekOf(CivilDateOf(first), firstDayOfWeek, lines.weekRule).week;
    const int to = WeekOf(CivilDateOf(last), firstDayOfWeek, lines.weekRule).week;
    CString text;
    if (from == -1 || to == -1) {
        return text;
    }
    const bool isEnglish = lines.language == DayLanguage::English;
    if (from == to) {
        text.Format(isEnglish ? "week %d" : "第%d週", from);
    } else {
        text.Format(isEnglish ? "weeks %d-%d" : "第%d-%d週", from, to);
    }
    return text;
}

} // namespace

std::vector<DayPiece> PiecesOfDay(const COleDateTime& date, const DayProvider* provider, const DayLines& lines)
{
    std::vector<DayPiece> pieces;
    const CivilDate day = CivilDateOf(date);
    if (!day.IsValid()) {
        return pieces;
    }
    AppendNames(pieces, InfoOfDay(day, provider), lines);
    if (lines.HasSky()) {
        AppendSky(pieces, day, lines);
    }
    return pieces;
}

std::vector<DayPiece> DaysOffOfMonth(const COleDateTime& month, const DayProvider* provider, const DayLines& lines)
{
    std::vector<DayPiece> pieces;
    CivilDate day = CivilDateOf(month);
    if (!lines.HasLines()) {
        return pieces;
    }
    DaysOff open; // no days yet
    for (const int shown = day.month; day.IsValid() && day.month == shown; day = AddDays(day, 1)) {
        const DayInfo info = InfoOfDay(day, provider);
        if (!info.isDayOff) {
            continue;
        }
        const bool isNamed = lines.names && !info.names.empty();
        const std::u16string name = isNamed ? NameText(info.names.front(), lines.language) : u"";
        if (open.first != 0 && name.empty() && open.name.empty() && open.last == day.day - 1) {
            open.last = day.day;
            continue;
        }
        if (open.first != 0) {
            pieces.push_back(PieceOf(open));
        }
        open = {day.day, day.day, name};
    }
    if (open.first != 0) {
        pieces.push_back(PieceOf(open));
    }
    return pieces;
}

CString TitleNote(const COleDateTime& first, const COleDateTime& last, TitleUnit unit, int firstDayOfWeek,
                  const DayLines& lines)
{
    CString note;
    if (!IsValid(first) || !IsValid(last)) {
        return note;
    }
    if (lines.eraTitles) {
        const CString era = EraTitle(first, last, unit);
        note = era.IsEmpty() ? era : "  " + era;
    }
    if (lines.weekNumbers && firstDayOfWeek != 0) {
        note += "  " + WeekText(first, last, firstDayOfWeek, lines);
    }
    return note;
}

} // namespace dayvane
