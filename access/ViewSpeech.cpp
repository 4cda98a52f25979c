#include "access/ViewSpeech.h"

#include "core/DateMath.h"
#include "core/ItemStore.h"

#include <cstdio>

namespace dayvane {
namespace {

constexpr int kDaysToNameByWeekday = 6; // a day further away is named with its date
constexpr char kOpenKey[] = "Enter";
constexpr char kListKey[] = "F4";

std::string Number(int number)
{
    return std::to_string(number);
}

std::string WeekdayOf(const AccessTexts& texts, const COleDateTime& date)
{
    return texts.weekdays[date.GetDayOfWeek() - 1];
}

} // namespace

std::string SpokenDate(const AccessTexts& texts, const COleDateTime& date)
{
    if (!IsValid(date)) {
        return texts.noDate;
    }
    const CivilDate fields = CivilDateOf(date);
    return FillIn(texts.date,
                  {WeekdayOf(texts, date), Number(fields.day), texts.months[fields.month - 1], Number(fields.year)});
}

std::string SpokenDay(const AccessTexts& texts, const COleDateTime& date)
{
    if (!IsValid(date)) {
        return texts.noDate;
    }
    const CivilDate fields = CivilDateOf(date);
    return FillIn(texts.dayAndMonth, {WeekdayOf(texts, date), Number(fields.day), texts.months[fields.month - 1]});
}

std::string SpokenMonth(const AccessTexts& texts, const COleDateTime& date)
{
    if (!IsValid(date)) {
        return texts.noDate;
    }
    const CivilDate fields = CivilDateOf(date);
    return FillIn(texts.month, {texts.months[fields.month - 1], Number(fields.year)});
}

std::string SpokenTime(const COleDateTime& time)
{
    char text[16] = "";
    std::snprintf(text, sizeof(text), "%d:%02d", time.GetHour(), time.GetMinute());
    return text;
}

namespace {

// A day near another is named by its weekday.
std::string NearDay(const AccessTexts& texts, const COleDateTime& day, const COleDateTime& from)
{
    const int days = DayNumberOf(day) - DayNumberOf(from);
    return days >= -kDaysToNameByWeekday && days <= kDaysToNameByWeekday ? WeekdayOf(texts, day)
                                                                         : SpokenDay(texts, day);
}

} // namespace

std::string SpokenItem(const AccessTexts& texts, const tagCALENDAR_ITEM& item, const std::string& text,
                       const COleDateTime& first, const COleDateTime& last, bool withDay)
{
    const bool hasDates = IsValid(item.dtStart) && IsValid(item.dtEnd);
    std::string time;
    if (item.nFullday == 1) {
        time = texts.allDay;
    } else if (hasDates) {
        time = item.dtStart == item.dtEnd ? SpokenTime(item.dtStart)
                                          : FillIn(texts.fromTo, {SpokenTime(item.dtStart), SpokenTime(item.dtEnd)});
    }
    const bool began = hasDates && item.dtStart < first;
    const bool isLonger = hasDates && withDay && DayNumberOf(item.dtEnd) > DayNumberOf(item.dtStart);
    const bool goesOn = hasDates && (isLonger || StartOfDay(item.dtEnd) > last);
    const std::string head = Joined(
        {withDay && !began ? SpokenDay(texts, item.dtStart) : "", time, text.empty() ? texts.noTitle : text}, " ");
    return Joined({head, item.bRecurrent ? texts.repeats : "", item.bAlarm ? texts.reminder : "",
                   began ? FillIn(texts.startsOn, {NearDay(texts, item.dtStart, first)}) : "",
                   goesOn ? FillIn(texts.endsOn, {NearDay(texts, item.dtEnd, withDay ? item.dtStart : first)}) : "",
                   item.bMovable ? "" : texts.fixed},
                  texts.between);
}

std::string SpokenItem(const AccessTexts& texts, const tagCC_ITEM& item, const std::string& text,
                       const COleDateTime& first, const COleDateTime& last, bool withDay)
{
    tagCALENDAR_ITEM record;
    FillStored(record, item);
    return SpokenItem(texts, record, text, first, last, withDay);
}

std::string SpokenCell(const AccessTexts& texts, const std::string& date, const std::string& present, int items)
{
    const std::string count = items == 0 ? "" : items == 1 ? texts.oneItem : FillIn(texts.items, {Number(items)});
    return Joined({date, present, count}, texts.between);
}

std::string TakeName(const AccessTexts& texts, std::set<std::string>& taken, const std::string& name)
{
    std::string unlike = name;
    for (int number = 2; !taken.insert(unlike).second; ++number) {
        unlike = Joined({name, FillIn(texts.another, {Number(number)})}, texts.between);
    }
    return unlike;
}

// ---- The view and its cells

std::string ViewSpeech::TitleName() const
{
    const ViewCell none;
    const ViewCell& first = parts.cells.empty() ? none : parts.cells.front();
    const ViewCell& last = parts.cells.empty() ? none : parts.cells.back();
    switch (parts.kind) {
    case ViewKind::Month:
        return SpokenMonth(texts, parts.titleDate);
    case ViewKind::Year:
        return IsValid(first.first) ? FillIn(texts.year, {Number(first.first.GetYear())}) : texts.noDate;
    case ViewKind::Day:
        return SpokenDate(texts, first.first);
    default:
        return FillIn(texts.fromTo, {SpokenDate(texts, first.first), SpokenDate(texts, last.last)});
    }
}

std::string ViewSpeech::RootName() const
{
    const std::string& pattern = texts.calendarNames[static_cast<int>(parts.kind)];
    if ((parts.kind == ViewKind::Week || parts.kind == ViewKind::SeveralDays) && !parts.cells.empty()) {
        return FillIn(pattern,
                      {SpokenDay(texts, parts.cells.front().first), SpokenDate(texts, parts.cells.back().last)});
    }
    return FillIn(pattern, {TitleName()});
}

std::string ViewSpeech::CellName(int node) const
{
    const ViewCell& cell = parts.cells[CellOfKey(parts, tree.At(node).id.key)];
    if (!IsValid(cell.first)) {
        return texts.noDate + texts.between + Number(tree.At(node).position);
    }
    const bool isMonth = parts.kind == ViewKind::Year;
    const bool isNow = IsValid(now) && now >= cell.first && now <= cell.last;
    int count = 0;
    for (int child : tree.At(node).children) {
        count += tree.At(child).id.part == AccessPart::Item;
    }
    return SpokenCell(texts, isMonth ? SpokenMonth(texts, cell.first) : SpokenDate(texts, cell.first),
                      isNow ? (isMonth ? texts.thisMonth : texts.today) : "", count);
}

std::string ViewSpeech::RowName(const AccessId& id) const
{
    const std::vector<bool>& work = parts.cells[CellOfKey(parts, id.key)].workRows;
    const bool isOutside = id.index < static_cast<int>(work.size()) && !work[id.index];
    return Joined({SpokenTime(AddMinutes(DateOfDayNumber(0), id.index * parts.minutesPerRow)),
                   SpokenDay(texts, DateOfPart(parts, id)), isOutside ? texts.outsideWork : ""},
                  texts.between);
}

// ---- Items and marks

const std::vector<std::string>& ViewSpeech::NamesIn(int cellNode) const
{
    const auto known = itemNames.find(cellNode);
    if (known != itemNames.end()) {
        return known->second;
    }
    std::vector<std::string>& names = itemNames[cellNode];
    const int cell = CellOfKey(parts, tree.At(cellNode).id.key);
    std::set<std::string> taken;
    for (int child : tree.At(cellNode).children) {
        const AccessId& id = tree.At(child).id;
        if (id.part != AccessPart::Item) {
            break; // the items come first
        }
        const bool isThere = id.index >= 0 && id.index < static_cast<int>(items.GetSize());
        const std::string name =
            isThere ? SpokenItem(texts, items[id.index], toUtf8(items[id.index].strText), parts.cells[cell].first,
                                 parts.cells[cell].last, parts.kind == ViewKind::Year)
                    : texts.noTitle;
        names.push_back(TakeName(texts, taken, name));
    }
    return names;
}

std::string ViewSpeech::MarkName(int node) const
{
    const AccessNode& mark = tree.At(node);
    int hidden = 0;
    int marks = 0;
    for (int sibling : tree.At(mark.parent).children) {
        const AccessNode& each = tree.At(sibling);
        hidden += each.id.part == AccessPart::Item && each.isHidden;
        marks += each.id.part == AccessPart::Mark && each.position < mark.position;
    }
    const std::string name = hidden == 1 ? texts.oneMore : FillIn(texts.more, {Number(hidden)});
    return marks == 0 ? name : Joined({name, FillIn(texts.another, {Number(marks + 1)})}, texts.between);
}

// ---- All parts

std::string ViewSpeech::NameOf(int node) const
{
    const AccessId& id = tree.At(node).id;
    switch (id.part) {
    case AccessPart::Root:
        return RootName();
    case AccessPart::Title:
        return TitleName();
    case AccessPart::Announcement:
        return announcement;
    case AccessPart::ColumnHeader:
        return id.key < static_cast<int>(parts.cells.size()) && IsValid(parts.cells[id.key].first)
                   ? WeekdayOf(texts, parts.cells[id.key].first)
                   : texts.noDate + texts.between + Number(id.key + 1);
    case AccessPart::Cell:
        return CellName(node);
    case AccessPart::WholeDay:
        return Joined({texts.wholeDay, SpokenDay(texts, DateOfPart(parts, id))}, texts.between);
    case AccessPart::Row:
        return RowName(id);
    case AccessPart::Item:
        return NamesIn(tree.At(node).parent)[tree.At(node).position];
    case AccessPart::Mark:
        return MarkName(node);
    default:
        return std::string();
    }
}

AccessWords ViewSpeech::WordsOf(int node) const
{
    AccessWords words;
    const AccessId& id = tree.At(node).id;
    words.name = NameOf(node);
    switch (id.part) {
    case AccessPart::Item:
        words.value = id.index < static_cast<int>(items.GetSize()) ? toUtf8(items[id.index].strText) : "";
        words.action = texts.open;
        words.shortcut = kOpenKey;
        break;
    case AccessPart::Cell:
        words.description = descriptionOf(DateOfPart(parts, id));
        words.action = texts.open;
        break;
    case AccessPart::WholeDay:
    case AccessPart::Row:
        words.action = texts.open;
        break;
    case AccessPart::Mark:
        words.action = texts.open;
        words.shortcut = kListKey;
        break;
    default:
        break;
    }
    return words;
}

std::string ViewSpeech::Moved(const COleDateTime& start, const COleDateTime& end, bool isWholeDay, bool isMove) const
{
    const bool hasTime = !isWholeDay && parts.kind != ViewKind::Year;
    if (isMove) {
        return hasTime ? FillIn(texts.movedTo, {SpokenDay(texts, start), SpokenTime(start)})
                       : FillIn(texts.movedDay, {SpokenDay(texts, start)});
    }
    const auto moment = [&](const COleDateTime& when) {
        return SpokenDay(texts, when) + (isWholeDay ? "" : texts.between + SpokenTime(when));
    };
    return FillIn(texts.lengthIs, {moment(start), moment(end)});
}

} // namespace dayvane
