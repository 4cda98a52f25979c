#include "ical/Document.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr char kGone[] = "This item is no longer in the calendar.";
constexpr char kLocked[] = "This file is in an encoding that cannot be edited here.";
constexpr char kBadTimes[] = "An item must end after it begins, between the years 100 and 9999.";
constexpr char kUnreadRule[] = "This item repeats by a rule that is not understood here, so it cannot be moved.";
constexpr char kNoUid[] = "This item repeats but has no identifier, so single occurrences of it cannot be changed.";
constexpr char kUnwritable[] = "The calendar file cannot hold this item.";

EditResult Refuse(const char* problem)
{
    EditResult result;
    result.problem = problem;
    return result;
}

EditResult Done(const OccurrenceId& id)
{
    EditResult result;
    result.isDone = true;
    result.id = id;
    return result;
}

constexpr const char* NameOf(TextField field)
{
    return field == TextField::Summary ? "SUMMARY" : field == TextField::Location ? "LOCATION" : "DESCRIPTION";
}

const std::string& TextOf(const Event& event, TextField field)
{
    return field == TextField::Summary    ? event.summary
           : field == TextField::Location ? event.location
                                          : event.description;
}

// A copy of an event that the file's end has cut off must not swallow what comes after it.
std::string ClosedText(ComponentText& text)
{
    if (text.Lines().back().depth != 0) {
        text.InsertAfter(text.Lines().size() - 1, "END:VEVENT");
    }
    return text.Text();
}

// The start, on the series' clock, of the occurrence that the time names.
LocalTime OriginalStart(const EventTime& time, const EventTime& seriesStart)
{
    if (time.isDate && !seriesStart.isDate) { // a bare date names the occurrence of that day
        return time.wall + seriesStart.wall - DayOfTime(seriesStart.wall) * kDaySeconds;
    }
    const LocalTime wall = ConvertWall(time.wall, time.zone, seriesStart.zone);
    return seriesStart.isDate ? DayOfTime(wall) * kDaySeconds : wall;
}

// Time zones move a written time by a day at most; so far from the ends of the calendar's years timed items stay.
constexpr std::int64_t kZoneMargin = 2 * kDaySeconds;

// All-day times cover whole days. False if they cannot be written.
bool Normalise(EventTimes& times)
{
    if (times.start < kEarliestTime || times.end > kEndOfTime) {
        return false;
    }
    if (times.isAllDay) {
        times.start = DayOfTime(times.start) * kDaySeconds;
        times.end = std::max(DayOfTime(times.end + kDaySeconds - 1) * kDaySeconds, times.start + kDaySeconds);
    }
    const std::int64_t margin = times.isAllDay ? 0 : kZoneMargin;
    return times.start >= kEarliestTime + margin && times.start <= times.end && times.end < kEndOfTime - margin;
}

} // namespace

Document::Entry* Document::FindEntry(EventId id)
{
    const auto found = m_byId.find(id);
    return found == m_byId.end() ? nullptr : &*found->second;
}

std::vector<Document::EntryRef> Document::SeriesOf(const Entry& entry)
{
    std::vector<EntryRef> series;
    for (EntryRef other = m_entries.begin(); other != m_entries.end(); ++other) {
        const bool sameUid = other->event && !entry.event->uid.empty() && other->calendar == entry.calendar &&
                             other->event->uid == entry.event->uid;
        if (other->isLive && (sameUid || &*other == &entry)) {
            series.push_back(other);
        }
    }
    return series;
}

Document::EntryRef Document::Insert(EntryRef before, const std::string& raw, int calendar)
{
    Entry entry;
    entry.raw = raw;
    entry.id = ++m_lastId;
    entry.calendar = calendar;
    entry.isCreated = true;
    entry.isLive = false; // until its change is applied
    const EntryRef inserted = m_entries.insert(before, std::move(entry));
    m_byId[m_lastId] = inserted;
    return inserted;
}

WritingContext Document::ContextFor(const Entry& entry) const
{
    WritingContext context = m_writing;
    context.calendar = entry.calendar;
    return context;
}

void Document::Apply(EventId id, const State& state)
{
    Entry& entry = *FindEntry(id);
    entry.raw = state.raw;
    entry.isLive = state.isLive;
    entry.event = state.isLive ? ReadEvent(entry) : nullptr;
    m_replaced.reset();
}

Document::Change Document::ChangeText(const Entry& entry, std::string raw)
{
    return {entry.id, {entry.raw, entry.isLive}, {std::move(raw), true}};
}

Document::Change Document::Kill(const Entry& entry)
{
    return {entry.id, {entry.raw, entry.isLive}, {entry.raw, false}};
}

EditResult Document::Commit(Step step)
{
    bool isReadable = true;
    for (const Change& change : step.changes) {
        Apply(change.id, change.after);
        isReadable = isReadable && (!change.after.isLive || FindEntry(change.id)->event);
    }
    if (!isReadable) { // the event's other lines spoil it, a broken quotation mark for one
        for (const Change& change : step.changes) {
            Apply(change.id, change.before);
        }
        return Refuse(kUnwritable);
    }
    const OccurrenceId id = step.idAfter;
    m_undo.Push(std::move(step));
    return Done(id);
}

EditResult Document::Undo()
{
    const Step* step = m_undo.Undo();
    if (!step) {
        return Refuse("There is nothing to undo.");
    }
    for (auto change = step->changes.rbegin(); change != step->changes.rend(); ++change) {
        Apply(change->id, change->before);
    }
    return Done(step->idBefore);
}

EditResult Document::Redo()
{
    const Step* step = m_undo.Redo();
    if (!step) {
        return Refuse("There is nothing to redo.");
    }
    for (const Change& change : step->changes) {
        Apply(change.id, change.after);
    }
    return Done(step->idAfter);
}

EditResult Document::EditEvent(Entry& entry, const OccurrenceId& id, const ComponentText& text)
{
    std::string raw = text.Text();
    if (raw == entry.raw) {
        return Done(id);
    }
    return Commit({{ChangeText(entry, std::move(raw))}, id, id});
}

template <typename Edit>
EditResult Document::Replace(Entry& series, const Occurrence& occurrence, const EventTimes& times, Edit edit)
{
    if (series.event->uid.empty()) {
        return Refuse(kNoUid);
    }
    ComponentText text(series.raw);
    MakeReplacement(text, occurrence.id.original);
    SetTimes(text, times, ContextFor(series));
    edit(text);
    const EntryRef place = Insert(std::next(m_byId.at(series.id)), ClosedText(text), series.calendar);
    OccurrenceId id;
    id.event = place->id;
    return Commit({{ChangeText(*place, place->raw)}, occurrence.id, id});
}

EditResult Document::Move(const OccurrenceId& id, const EventTimes& wanted)
{
    EventTimes times = wanted;
    const auto occurrence = Find(id);
    if (m_isLocked || !occurrence) {
        return Refuse(m_isLocked ? kLocked : kGone);
    }
    if (!Normalise(times)) {
        return Refuse(kBadTimes);
    }
    if (times == occurrence->times) {
        return Done(id);
    }
    Entry& entry = *FindEntry(id.event);
    if (entry.event->hasUnreadRule) {
        return Refuse(kUnreadRule);
    }
    if (entry.event->IsRecurrent()) {
        return Replace(entry, *occurrence, times, [](ComponentText&) {});
    }
    ComponentText text(entry.raw);
    SetTimes(text, times, ContextFor(entry));
    return EditEvent(entry, id, text);
}

EditResult Document::SetText(const OccurrenceId& id, TextField field, const std::string& text, Scope scope)
{
    const auto occurrence = Find(id);
    if (m_isLocked || !occurrence) {
        return Refuse(m_isLocked ? kLocked : kGone);
    }
    Entry& entry = *FindEntry(id.event);
    if (TextOf(*entry.event, field) == text) {
        return Done(id);
    }
    if (scope == Scope::ThisOccurrence && entry.event->IsRecurrent()) {
        return Replace(entry, *occurrence, occurrence->times,
                       [&](ComponentText& replacement) { SetTextProperty(replacement, NameOf(field), text); });
    }
    ComponentText changed(entry.raw);
    SetTextProperty(changed, NameOf(field), text);
    return EditEvent(entry, id, changed);
}

EditResult Document::Delete(const OccurrenceId& id, Scope scope)
{
    if (m_isLocked || !Find(id)) {
        return Refuse(m_isLocked ? kLocked : kGone);
    }
    Entry& entry = *FindEntry(id.event);
    if (scope == Scope::WholeSeries) {
        return DeleteSeries(entry, id);
    }
    if (entry.event->replaces) {
        return DeleteReplacement(entry, id);
    }
    if (entry.event->IsRecurrent()) {
        ComponentText text(entry.raw);
        AddException(text, id.original);
        return Commit({{ChangeText(entry, text.Text())}, id, {}});
    }
    return Commit({{Kill(entry)}, id, {}});
}

EditResult Document::DeleteSeries(const Entry& entry, const OccurrenceId& id)
{
    Step step;
    step.idBefore = id;
    for (const EntryRef other : SeriesOf(entry)) {
        step.changes.push_back(Kill(*other));
    }
    return Commit(std::move(step));
}

// Without an exception the occurrence that was replaced would come back.
EditResult Document::DeleteReplacement(Entry& entry, const OccurrenceId& id)
{
    Step step;
    step.idBefore = id;
    const EventTime& replaced = *entry.event->replaces;
    for (const EntryRef other : SeriesOf(entry)) {
        if (other->event->IsRecurrent() && !other->event->replaces) {
            ComponentText text(other->raw);
            AddException(text, OriginalStart(replaced, other->event->start));
            step.changes.push_back(ChangeText(*other, text.Text()));
        }
    }
    step.changes.push_back(Kill(entry));
    return Commit(std::move(step));
}

std::string Document::UnusedUid()
{
    for (;;) {
        std::string uid = m_newUid();
        const bool isUsed = std::any_of(m_entries.begin(), m_entries.end(),
                                        [&](const Entry& entry) { return entry.event && entry.event->uid == uid; });
        if (!isUsed) {
            return uid;
        }
    }
}

EditResult Document::AddEvent(std::string raw, const OccurrenceId& idBefore)
{
    const EntryRef place = Insert(m_insertBefore, raw, m_writing.calendar);
    place->isWrapped = m_writing.calendar == 0;
    OccurrenceId id;
    id.event = place->id;
    return Commit({{ChangeText(*place, std::move(raw))}, idBefore, id});
}

EditResult Document::Create(const EventTimes& wanted, const std::string& summary, LocalTime utcNow)
{
    EventTimes times = wanted;
    if (m_isLocked || !Normalise(times)) {
        return Refuse(m_isLocked ? kLocked : kBadTimes);
    }
    return AddEvent(NewEventText(UnusedUid(), utcNow, times, summary, m_writing, m_ending), {});
}

EditResult Document::Copy(const OccurrenceId& id, const EventTimes& wanted, LocalTime utcNow)
{
    EventTimes times = wanted;
    if (m_isLocked || !Find(id)) {
        return Refuse(m_isLocked ? kLocked : kGone);
    }
    if (!Normalise(times)) {
        return Refuse(kBadTimes);
    }
    const Entry& entry = *FindEntry(id.event);
    ComponentText text(entry.raw);
    MakeSingle(text, UnusedUid(), utcNow);
    SetTimes(text, times, ContextFor(entry));
    const EntryRef place = Insert(std::next(m_byId.at(entry.id)), ClosedText(text), entry.calendar);
    OccurrenceId copyId;
    copyId.event = place->id;
    return Commit({{ChangeText(*place, place->raw)}, id, copyId});
}

} // namespace dayvane::ical
