#include "access/PickerTree.h"

#include "core/DateMath.h"

namespace dayvane {
namespace {

constexpr int kGridOfCells = 1;
constexpr int kLayerOfButtons = 1; // they lie on the titles of the periods

AccessNode NodeOf(AccessPart part, int key, int index, const CRect& box, int layer = 0)
{
    AccessNode node;
    node.id = {part, key, index};
    node.box = box;
    node.layer = layer;
    return node;
}

void AddPeriod(AccessTree& tree, const PeriodPolicy& policy, const PeriodBlock& block)
{
    CRect box = block.band;
    box.UnionRect(&box, &block.weekdays);
    box.UnionRect(&box, &block.cellArea);
    const int period = tree.Add(0, NodeOf(AccessPart::Period, block.period, 0, box));
    tree.Add(period, NodeOf(AccessPart::PeriodTitle, block.period, 0, block.title));
    for (size_t i = 0; i < block.cells.size(); ++i) {
        const int cell = static_cast<int>(i);
        AccessNode node = NodeOf(AccessPart::Cell, block.period, cell, block.cells[i].rect);
        node.grid = kGridOfCells;
        node.gridRow = block.row * policy.cellRows + cell / policy.cellColumns;
        node.gridColumn = block.column * policy.cellColumns + cell % policy.cellColumns;
        tree.Add(period, node);
    }
}

std::string SpokenPeriod(const AccessTexts& texts, const PeriodPolicy& policy, int period)
{
    const COleDateTime first = DateOfPeriod(policy, period);
    if (!IsValid(first)) {
        return texts.noDate;
    }
    return policy.unit == CellUnit::Day ? SpokenMonth(texts, first)
                                        : FillIn(texts.year, {std::to_string(first.GetYear())});
}

} // namespace

// ---- Mini calendars

AccessTree MakePeriodGridTree(const PeriodPolicy& policy, const PeriodGridLayout& layout, const CRect& client)
{
    AccessTree tree(client);
    tree.Add(0, NodeOf(AccessPart::Previous, 0, 0, layout.leftArrow, kLayerOfButtons));
    tree.Add(0, NodeOf(AccessPart::Next, 0, 0, layout.rightArrow, kLayerOfButtons));
    for (const PeriodBlock& block : layout.blocks) {
        AddPeriod(tree, policy, block);
    }
    tree.Add(0, NodeOf(AccessPart::Now, 0, 0, layout.footer, kLayerOfButtons));
    return tree;
}

GridHit HitOfPart(const PeriodGridLayout& layout, const AccessId& id)
{
    GridHit hit;
    switch (id.part) {
    case AccessPart::Previous:
        hit.part = GridPart::LeftArrow;
        return hit;
    case AccessPart::Next:
        hit.part = GridPart::RightArrow;
        return hit;
    case AccessPart::Now:
        hit.part = GridPart::Footer;
        return hit;
    case AccessPart::PeriodTitle:
    case AccessPart::Cell:
        for (size_t i = 0; i < layout.blocks.size(); ++i) {
            if (layout.blocks[i].period == id.key) {
                hit.part = id.part == AccessPart::Cell ? GridPart::Cell : GridPart::Title;
                hit.block = static_cast<int>(i);
                hit.cell = id.part == AccessPart::Cell ? id.index : -1;
            }
        }
        return hit;
    default:
        return hit;
    }
}

AccessId PartOfHit(const PeriodGridLayout& layout, const GridHit& hit)
{
    if (hit.part != GridPart::Cell || hit.block < 0 || hit.block >= static_cast<int>(layout.blocks.size())) {
        return {};
    }
    return {AccessPart::Cell, layout.blocks[hit.block].period, hit.cell};
}

AccessWords PeriodGridSpeech::WordsOf(const AccessId& id) const
{
    AccessWords words;
    const bool ofMonths = policy.unit == CellUnit::Month;
    words.action = texts.press;
    switch (id.part) {
    case AccessPart::Root:
        words.name = texts.smallCalendar;
        words.action.clear();
        break;
    case AccessPart::Previous:
        words.name = ofMonths ? texts.previousYear : texts.previousMonth;
        break;
    case AccessPart::Next:
        words.name = ofMonths ? texts.nextYear : texts.nextMonth;
        break;
    case AccessPart::Now:
        words.name = FillIn(ofMonths ? texts.thisMonthIs : texts.todayIs,
                            {ofMonths ? SpokenMonth(texts, now) : SpokenDate(texts, now)});
        break;
    case AccessPart::Period:
    case AccessPart::PeriodTitle:
        words.name = SpokenPeriod(texts, policy, id.key);
        words.action.clear();
        break;
    case AccessPart::Cell: {
        const COleDateTime date = DateOfHit(layout, HitOfPart(layout, id));
        const bool isNow = IsValid(date) && IsValid(now) && CellDateOf(policy.unit, now) == date;
        words.name = !IsValid(date) ? texts.noDate + texts.between + std::to_string(id.index + 1)
                                    : Joined({ofMonths ? SpokenMonth(texts, date) : SpokenDate(texts, date),
                                              isNow ? (ofMonths ? texts.thisMonth : texts.today) : ""},
                                             texts.between);
        words.description = ofMonths || !IsValid(date) ? "" : namesOfDay(date);
        words.action = texts.select;
        break;
    }
    default:
        break;
    }
    return words;
}

// ---- The year-month picker's popup

AccessTree MakeYearMonthTree(const YearMonthLayout& layout)
{
    AccessTree tree(layout.client);
    tree.Add(0, NodeOf(AccessPart::Previous, 0, 0, layout.previousYear, kLayerOfButtons));
    tree.Add(0, NodeOf(AccessPart::Title, 0, 0, layout.header));
    tree.Add(0, NodeOf(AccessPart::Next, 0, 0, layout.nextYear, kLayerOfButtons));
    for (int month = 0; month < kMonthsPerYear; ++month) {
        AccessNode node = NodeOf(AccessPart::Cell, 0, month, layout.months[month]);
        node.grid = kGridOfCells;
        node.gridRow = month / kYearMonthMetrics.gridColumns;
        node.gridColumn = month % kYearMonthMetrics.gridColumns;
        tree.Add(0, node);
    }
    tree.Add(0, NodeOf(AccessPart::Now, 0, 0, layout.footer, kLayerOfButtons));
    return tree;
}

AccessWords WordsOfYearMonth(const AccessTexts& texts, const AccessId& id, int year, const COleDateTime& now)
{
    AccessWords words;
    words.action = texts.press;
    switch (id.part) {
    case AccessPart::Root:
        words.name = texts.chooseMonth;
        words.action.clear();
        break;
    case AccessPart::Title:
        words.name = FillIn(texts.year, {std::to_string(year)});
        words.action.clear();
        break;
    case AccessPart::Previous:
        words.name = texts.previousYear;
        break;
    case AccessPart::Next:
        words.name = texts.nextYear;
        break;
    case AccessPart::Now:
        words.name = FillIn(texts.thisMonthIs, {SpokenMonth(texts, now)});
        break;
    case AccessPart::Cell:
        words.name = SpokenMonth(texts, COleDateTime(year, id.index + 1, 1, 0, 0, 0));
        words.action = texts.select;
        break;
    default:
        break;
    }
    return words;
}

// ---- Lists

AccessTree MakePeriodRunTree(const PeriodRun& run)
{
    AccessTree tree(CRect(CPoint(0, 0), run.Size()));
    for (int row = 0; row < kPeriodRunMetrics.RowCount(); ++row) {
        if (run.HasPeriod(row)) {
            tree.Add(0, NodeOf(AccessPart::Entry, run.PeriodOfRow(row), 0, run.RowRect(row)));
        }
    }
    return tree;
}

AccessWords WordsOfPeriodRun(const AccessTexts& texts, const PeriodPolicy& policy, const AccessId& id)
{
    AccessWords words;
    if (id.part == AccessPart::Entry) {
        words.name = SpokenPeriod(texts, policy, id.key);
    } else {
        words.name = policy.unit == CellUnit::Day ? texts.chooseMonth : texts.yearAndMonth;
    }
    return words;
}

AccessTree MakeMoreListTree(const MoreListModel& list)
{
    AccessTree tree(CRect(CPoint(0, 0), list.Size()));
    for (int row = 0; row < list.Count(); ++row) {
        const bool isInSight = row >= list.Top() && row < list.Top() + list.RowsInSight();
        tree.Add(0, NodeOf(AccessPart::Entry, row, 0, isInSight ? list.RowRect(row) : CRect(0, 0, 0, 0)));
    }
    return tree;
}

} // namespace dayvane
