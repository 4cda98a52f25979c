#include "calc/DayProvider.h"

#include "calc/CodePage932.h"
#include "calc/DayAnnotation.h"
#include "calc/NamedDays.h"

namespace dayvane {
namespace {
const DayProvider* g_defaultProvider = nullptr;

class StandardDays : public DayProvider
{
public:
    DayInfo InfoOf(const CivilDate& date) const override
    {
        DayInfo info;
        if (!date.IsValid()) {
            return info;
        }
        const DayAnnotation annotation = AnnotateDay(COleDateTime(date.year, date.month, date.day, 0, 0, 0));
        info.isDayOff = annotation.isDayOff;
        if (annotation.holidayName) {
            Append(info, annotation.holidayName, KindOf(annotation));
        }
        if (annotation.solarTerm) {
            Append(info, annotation.solarTerm, DayKind::SolarTerm);
        }
        return info;
    }

private:
    static DayKind KindOf(const DayAnnotation& annotation)
    {
        const std::string_view name = annotation.holidayName;
        return !annotation.isDayOff                  ? DayKind::Observance
               : name == kSubstituteHoliday.lpszName ? DayKind::SubstituteHoliday
               : name == kSandwichedDay.lpszName     ? DayKind::BetweenHolidays
                                                     : DayKind::StatutoryHoliday;
    }

    static void Append(DayInfo& info, const char* name, DayKind kind)
    {
        info.names.push_back({{}, kind});
        Utf8FromCodePage932(name, info.names.back().text);
    }
};
} // namespace

std::string NamesText(const DayInfo& info)
{
    std::string text;
    for (const DayName& name : info.names) {
        text += (text.empty() ? "" : " ") + name.text;
    }
    return text;
}

const DayProvider& StandardDayProvider()
{
    static const StandardDays days;
    return days;
}

void SetDefaultDayProvider(const DayProvider* provider)
{
    g_defaultProvider = provider;
}

const DayProvider* DefaultDayProvider()
{
    return g_defaultProvider;
}
} // namespace dayvane
