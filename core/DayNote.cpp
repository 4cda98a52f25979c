#include "core/DayNote.h"

#include "calc/CodePage932.h"
#include "calc/DayAnnotation.h"
#include "core/DateMath.h"
#include "core/TextCodec.h"

namespace dayvane {
namespace {

void Append(std::u16string& text, const std::string& utf8)
{
    if (!text.empty()) {
        text += u' ';
    }
    text += DecodeText(utf8, kUtf8CodePage);
}

} // namespace

DayNote NoteOf(const COleDateTime& date, const DayProvider* provider)
{
    DayNote note;
    if (!provider) {
        provider = DefaultDayProvider();
    }
    if (!provider) {
        const DayAnnotation annotation = AnnotateDay(date);
        note.name = OwnText(annotation.holidayName);
        note.term = OwnText(annotation.solarTerm);
        note.isDayOff = annotation.isDayOff;
    } else if (IsValid(date)) {
        const DayInfo info = provider->InfoOf(CivilDateOf(date));
        for (const DayName& name : info.names) {
            const bool isTerm = name.kind == DayKind::SolarTerm || name.kind == DayKind::SeasonalDay;
            Append(isTerm ? note.term : note.name, name.text);
        }
        note.isDayOff = info.isDayOff;
        note.colorRow = info.colorRow;
    }
    return note;
}

DayInfo InfoOfDay(const CivilDate& date, const DayProvider* provider)
{
    const DayProvider* const own = provider ? provider : DefaultDayProvider();
    return (own ? *own : StandardDayProvider()).InfoOf(date);
}

CString OwnTextOf(const std::string& utf8)
{
    std::string bytes;
    CodePage932FromUtf8(utf8, bytes);
    return CString(bytes.c_str());
}

} // namespace dayvane
