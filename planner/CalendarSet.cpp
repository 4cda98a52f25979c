#include "planner/CalendarSet.h"

#include <algorithm>

namespace planner {

namespace {

// An event of the set is named by its own number and that of its calendar: so many events fit into one.
constexpr EventId kEventsOfCalendar = 1 << 26;
constexpr int kColors = 8; // of ItemBridge

OccurrenceId Outer(const CalendarSet::Member& member, OccurrenceId id)
{
    id.event += id.event == kNoEvent ? 0 : member.number * kEventsOfCalendar;
    return id;
}

OccurrenceId Inner(OccurrenceId id)
{
    id.event %= kEventsOfCalendar;
    return id;
}

// As the occurrences of one document are sorted.
bool ComesBefore(const Occurrence& a, const Occurrence& b)
{
    return a.times.start != b.times.start ? a.times.start < b.times.start : a.times.end > b.times.end;
}

EditResult Gone()
{
    return {false, "This item is no longer in the calendar.", {}};
}

EditResult& ResultOf(EditResult& result)
{
    return result;
}

EditResult& ResultOf(MergeReport& report)
{
    return report.edit;
}

} // namespace

// ---- The calendars

bool CalendarSet::Add(Document& document, const std::string& name)
{
    Member member;
    member.document = &document;
    member.name = name;
    while (MemberNumbered(member.number)) {
        ++member.number;
    }
    if (m_members.size() >= kMostCalendars) {
        return false;
    }
    m_members.push_back(member);
    if (m_members.size() > 1) {
        for (Member& each : m_members) {
            each.color = each.color == kByCategory ? each.number % kColors : each.color;
        }
    }
    return true;
}

void CalendarSet::Remove(std::size_t index)
{
    const int number = m_members[index].number;
    m_members.erase(m_members.begin() + static_cast<std::ptrdiff_t>(index));
    m_target = m_target == index ? 0 : m_target > index ? m_target - 1 : m_target;
    for (std::vector<int>* steps : {&m_done, &m_undone}) {
        steps->erase(std::remove(steps->begin(), steps->end(), number), steps->end());
    }
    if (m_members.size() == 1) {
        m_members.front().color = kByCategory;
        m_members.front().isShown = true; // there is no list any more to tick it in
    }
}

CalendarSet::Member* CalendarSet::MemberNumbered(int number)
{
    const auto found =
        std::find_if(m_members.begin(), m_members.end(), [&](const Member& each) { return each.number == number; });
    return found == m_members.end() ? nullptr : &*found;
}

CalendarSet::Member* CalendarSet::FindMember(const OccurrenceId& id)
{
    return id.event == kNoEvent ? nullptr : MemberNumbered(id.event / kEventsOfCalendar);
}

const CalendarSet::Member* CalendarSet::MemberOf(const OccurrenceId& id) const
{
    return const_cast<CalendarSet*>(this)->FindMember(id);
}

int CalendarSet::ColorOf(const OccurrenceId& id) const
{
    const Member* member = MemberOf(id);
    return member ? member->color : kByCategory;
}

// ---- The filter

bool CalendarSet::IsFiltered() const
{
    return !m_hidden.empty() ||
           !std::all_of(m_members.begin(), m_members.end(), [](const Member& each) { return each.isShown; });
}

bool CalendarSet::Passes(const Event& event) const
{
    if (m_hidden.empty()) {
        return true;
    }
    if (event.categories.empty()) {
        return m_hidden.count("") == 0;
    }
    return std::any_of(event.categories.begin(), event.categories.end(),
                       [&](const std::string& category) { return m_hidden.count(category) == 0; });
}

std::set<std::string> CalendarSet::CategoriesIn(LocalTime from, LocalTime to) const
{
    std::set<std::string> categories;
    for (const Member& member : m_members) {
        for (const Occurrence& each : member.document->OccurrencesIn(from, to)) {
            categories.insert(each.event->categories.begin(), each.event->categories.end());
        }
    }
    return categories;
}

// ---- Reading

std::vector<Occurrence> CalendarSet::OccurrencesIn(LocalTime from, LocalTime to, bool* isWhole) const
{
    std::vector<Occurrence> all;
    bool whole = true;
    for (const Member& member : m_members) {
        bool isWholeMember = true;
        if (!member.isShown) {
            continue;
        }
        for (Occurrence& each : member.document->OccurrencesIn(from, to, &isWholeMember)) {
            if (Passes(*each.event)) {
                each.id = Outer(member, each.id);
                all.push_back(std::move(each));
            }
        }
        whole = whole && isWholeMember;
    }
    if (m_members.size() > 1) {
        std::stable_sort(all.begin(), all.end(), ComesBefore);
    }
    if (isWhole) {
        *isWhole = whole;
    }
    return all;
}

std::vector<Occurrence> CalendarSet::AllOccurrencesIn(LocalTime from, LocalTime to) const
{
    CalendarSet open = *this;
    open.m_hidden.clear();
    for (Member& member : open.m_members) {
        member.isShown = true;
    }
    return open.OccurrencesIn(from, to);
}

std::optional<Occurrence> CalendarSet::Find(const OccurrenceId& id) const
{
    const Member* member = MemberOf(id);
    auto found = member ? member->document->Find(Inner(id)) : std::nullopt;
    if (found) {
        found->id = Outer(*member, found->id);
    }
    return found;
}

bool CalendarSet::IsOfSeries(const OccurrenceId& id) const
{
    const Member* member = MemberOf(id);
    return member && member->document->IsOfSeries(Inner(id));
}

std::vector<std::string> CalendarSet::ZonesOf(const OccurrenceId& id) const
{
    const Member* member = MemberOf(id);
    return (member ? *member->document : TargetDocument()).Zones();
}

// Of several calendars one file is made, as a merge of them would be.
std::string CalendarSet::Excerpt(const std::vector<OccurrenceId>& ids, ExcerptForm form) const
{
    std::vector<std::string> parts;
    for (const Member& member : m_members) {
        std::vector<OccurrenceId> own;
        for (const OccurrenceId& id : ids) {
            if (MemberOf(id) == &member) {
                own.push_back(Inner(id));
            }
        }
        if (!own.empty()) {
            parts.push_back(member.document->Excerpt(own, form));
        }
    }
    if (parts.size() == 1) {
        return parts.front();
    }
    Document all;
    for (const std::string& part : parts) {
        all.Merge(part);
    }
    return all.Save();
}

// ---- Edits

template <class Result, class Edit>
Result CalendarSet::Noted(Member& member, const Edit& edit)
{
    const std::size_t before = member.document->StepsDone();
    Result result = edit(*member.document);
    if (member.document->StepsDone() != before) {
        m_done.push_back(member.number);
        m_undone.clear();
    }
    ResultOf(result).id = Outer(member, ResultOf(result).id);
    return result;
}

template <class Edit>
EditResult CalendarSet::Edited(const OccurrenceId& id, const Edit& edit)
{
    Member* member = FindMember(id);
    return member ? Noted<EditResult>(*member, [&](Document& document) { return edit(document, Inner(id)); }) : Gone();
}

EditResult CalendarSet::Change(const OccurrenceId& id, const EventChanges& changes, Scope scope)
{
    return Edited(id,
                  [&](Document& document, const OccurrenceId& own) { return document.Change(own, changes, scope); });
}

EditResult CalendarSet::Move(const OccurrenceId& id, const EventTimes& times, Scope scope)
{
    return Edited(id, [&](Document& document, const OccurrenceId& own) { return document.Move(own, times, scope); });
}

EditResult CalendarSet::SetText(const OccurrenceId& id, TextField field, const std::string& text, Scope scope)
{
    return Edited(
        id, [&](Document& document, const OccurrenceId& own) { return document.SetText(own, field, text, scope); });
}

EditResult CalendarSet::Delete(const OccurrenceId& id, Scope scope)
{
    return Edited(id, [&](Document& document, const OccurrenceId& own) { return document.Delete(own, scope); });
}

EditResult CalendarSet::Copy(const OccurrenceId& id, const EventTimes& times)
{
    return Edited(id, [&](Document& document, const OccurrenceId& own) { return document.Copy(own, times); });
}

EditResult CalendarSet::Acknowledge(const OccurrenceId& id, LocalTime utc)
{
    return Edited(id, [&](Document& document, const OccurrenceId& own) { return document.Acknowledge(own, utc); });
}

EditResult CalendarSet::Create(const EventTimes& times, const std::string& summary)
{
    EventChanges changes;
    changes.summary = summary;
    return Create(times, changes);
}

EditResult CalendarSet::Create(const EventTimes& times, const EventChanges& changes)
{
    return Noted<EditResult>(m_members[m_target], [&](Document& document) { return document.Create(times, changes); });
}

MergeReport CalendarSet::Merge(std::string_view other)
{
    return Noted<MergeReport>(m_members[m_target], [&](Document& document) { return document.Merge(other); });
}

MergeReport CalendarSet::Paste(std::string_view other, std::optional<LocalTime> start)
{
    return Noted<MergeReport>(m_members[m_target], [&](Document& document) { return document.Paste(other, start); });
}

// ---- Undo

// A calendar that was read again has no steps any more.
void CalendarSet::DropLostSteps()
{
    while (!m_done.empty() && !MemberNumbered(m_done.back())->document->CanUndo()) {
        m_done.pop_back();
    }
    while (!m_undone.empty() && !MemberNumbered(m_undone.back())->document->CanRedo()) {
        m_undone.pop_back();
    }
}

bool CalendarSet::CanUndo() const
{
    return std::any_of(m_members.begin(), m_members.end(), [](const Member& each) { return each.document->CanUndo(); });
}

bool CalendarSet::CanRedo() const
{
    if (m_members.size() == 1) {
        return First().CanRedo();
    }
    return std::any_of(m_members.begin(), m_members.end(), [&](const Member& each) {
        return each.document->CanRedo() && std::count(m_undone.begin(), m_undone.end(), each.number) != 0;
    });
}

EditResult CalendarSet::Undo()
{
    DropLostSteps();
    if (m_done.empty()) { // what was done past this set
        const auto other = std::find_if(m_members.begin(), m_members.end(),
                                        [](const Member& each) { return each.document->CanUndo(); });
        m_done.push_back(other == m_members.end() ? m_members.front().number : other->number);
    }
    Member& member = *MemberNumbered(m_done.back());
    m_undone.push_back(m_done.back());
    m_done.pop_back();
    EditResult result = member.document->Undo();
    result.id = Outer(member, result.id);
    return result;
}

EditResult CalendarSet::Redo()
{
    DropLostSteps();
    if (m_undone.empty()) {
        return m_members.size() == 1 ? First().Redo() : EditResult{false, "There is nothing to redo.", {}};
    }
    Member& member = *MemberNumbered(m_undone.back());
    m_done.push_back(m_undone.back());
    m_undone.pop_back();
    EditResult result = member.document->Redo();
    result.id = Outer(member, result.id);
    return result;
}

bool CalendarSet::IsModified() const
{
    return std::any_of(m_members.begin(), m_members.end(),
                       [](const Member& each) { return each.document->IsModified(); });
}

} // namespace planner
