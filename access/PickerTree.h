// The trees of the date selectors and of the lists that controls open, and what their parts are called.
#pragma once

#include "../core/MoreList.h"
#include "../pickers/PeriodGridLayout.h"
#include "../pickers/PeriodRun.h"
#include "../pickers/YearMonthGrid.h"
#include "AccessTree.h"
#include "ViewSpeech.h"

namespace dayvane {

// A mini calendar: two arrows, the periods with their titles and cells, the line below. The key of a title or a cell is
// its period, the index of a cell its position there.
AccessTree MakePeriodGridTree(const PeriodPolicy& policy, const PeriodGridLayout& layout, const CRect& client);
// Where it lies in the layout; part None for the root.
GridHit HitOfPart(const PeriodGridLayout& layout, const AccessId& id);
AccessId PartOfHit(const PeriodGridLayout& layout, const GridHit& hit);

struct PeriodGridSpeech
{
    const AccessTexts& texts;
    const PeriodPolicy& policy;
    const PeriodGridLayout& layout;
    COleDateTime now;
    std::function<std::string(const COleDateTime&)> namesOfDay;

    AccessWords WordsOf(const AccessId& id) const;
};

// The popup of the year-month picker: two arrows, the year, the months with the index 0 .. 11, the line below.
AccessTree MakeYearMonthTree(const YearMonthLayout& layout);
AccessWords WordsOfYearMonth(const AccessTexts& texts, const AccessId& id, int year, const COleDateTime& now);

// The list that runs through periods: a line for each row, its key the period.
AccessTree MakePeriodRunTree(const PeriodRun& run);
AccessWords WordsOfPeriodRun(const AccessTexts& texts, const PeriodPolicy& policy, const AccessId& id);

// The list of a mark: a line for each item, its key the row.
AccessTree MakeMoreListTree(const MoreListModel& list);

} // namespace dayvane
