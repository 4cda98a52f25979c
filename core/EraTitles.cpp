#include "core/EraTitles.h"

#include "core/DateMath.h"
#include "core/DayNote.h"

namespace dayvane {
namespace {

EraTable& Table()
{
    static EraTable table;
    return table;
}

EraStyle StyleOf(TitleUnit unit)
{
    return unit == TitleUnit::Year    ? EraStyle::LongYear
           : unit == TitleUnit::Month ? EraStyle::LongMonth
                                      : EraStyle::Long;
}

} // namespace

const EraTable& TitleEras()
{
    return Table();
}

void SetTitleEras(const EraTable& eras)
{
    Table() = eras;
}

CString EraTitle(const COleDateTime& first, const COleDateTime& last, TitleUnit unit)
{
    const CivilDate from = CivilDateOf(first);
    const CivilDate to = CivilDateOf(last);
    const std::string begin = Table().Format(from, StyleOf(unit));
    std::string end = Table().Format(to, StyleOf(unit));
    if (begin == end || end.empty()) {
        return OwnTextOf(begin);
    }
    // A year that both have stands once.
    const std::string year = Table().Format(from, EraStyle::LongYear);
    if (!begin.empty() && end.compare(0, year.size(), year) == 0) {
        end.erase(0, year.size());
    }
    return OwnTextOf(begin.empty() ? end : begin + "-" + end);
}

} // namespace dayvane
