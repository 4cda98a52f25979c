#include "ical/DocumentEdits.h"

#include "ical/AlarmText.h"
#include "ical/SeriesText.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr char kGone[] = "This item is no longer in the calendar.";
constexpr char kLocked[] = "This file is in an encoding that cannot be edited here.";
constexpr char kBadTimes[] = "An item must end after it begins, between the years 100 and 9999.";
constexpr char kUnreadRule[] =
    "This item repeats by a rule that is not understood here: only the whole series can be renamed or deleted.";
constexpr char kBadRule[] = "This rule of repetition is not understood.";
constexpr char kNoUid[] = "This item repeats but has no identifier, so single occurrences of it cannot be changed.";
constexpr char kSeriesZone[] = "Only a whole series can change its time zone, and not together with its times.";
constexpr char kUnwritable[] = "The calendar file cannot hold this item.";

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

const char kChangedFollowing[] =
    "The file changes later occurrences of this series together, in a way that cannot be divided here.";
const char kNoZone[] = "The calendar file does not define this time zone.";

std::string ClosedText(ComponentText& text)
{
    if (text.Lines().back().depth != 0) {
        text.InsertAfter(text.Lines().size() - 1, "END:VEVENT");
    }
    return text.Text();
}

EditResult Refuse(const char* problem)
{
    return {false, problem, {}};
}

std::string UnusedUid(const DocumentState& state)
{
    for (;;) {
        std::string uid = state.newUid();
        if (!state.IsUsedUid(uid)) {
            return uid;
        }
    }
}

TimeForm StartForm(const ComponentText& text, const WritingContext& context)
{
    return FormOf(*text.Lines()[text.Find("DTSTART")].property, &context);
}

DocumentEdit::DocumentEdit(DocumentState& state, const OccurrenceId& id)
    : m_state(state), m_id(id), m_occurrence(state.Find(id))
{
    if (m_occurrence) {
        m_entry = state.FindEntry(id.event);
        m_series = m_entry->event->replaces        ? state.SeriesOf(*m_entry->event)
                   : m_entry->event->IsRecurrent() ? m_entry
                                                   : nullptr;
    }
}

const char* DocumentEdit::Check() const
{
    return m_state.isLocked ? kLocked : m_occurrence ? nullptr : kGone;
}

ComponentText& DocumentEdit::TextOf(const Entry& entry)
{
    return m_texts.try_emplace(entry.id, entry.raw).first->second;
}

void DocumentEdit::Kill(const Entry& entry)
{
    m_killed.push_back(entry.id);
}

EditResult DocumentEdit::Finish(const OccurrenceId& idAfter)
{
    DocumentState::Step step;
    step.idBefore = m_id;
    step.idAfter = idAfter;
    for (auto& [id, text] : m_texts) {
        const Entry& entry = *m_state.FindEntry(id);
        const bool isKilled = std::find(m_killed.begin(), m_killed.end(), id) != m_killed.end();
        if (isKilled || (entry.isLive && text.Text() == entry.raw)) {
            continue;
        }
        if (m_isRevision) {
            MarkEdited(text, m_state.utcNow());
        }
        step.changes.push_back({id, {entry.raw, entry.isLive}, {entry.isLive ? text.Text() : ClosedText(text), true}});
    }
    for (const EventId id : m_killed) {
        const Entry& entry = *m_state.FindEntry(id);
        step.changes.push_back({id, {entry.raw, entry.isLive}, {entry.raw, false}});
    }
    if (!step.changes.empty() && !m_state.Commit(std::move(step))) {
        return Refuse(kUnwritable);
    }
    return {true, "", idAfter};
}

void ApplyChanges(ComponentText& text, const Event& look, const EventChanges& changes)
{
    const auto setText = [&](std::string_view name, const std::optional<std::string>& wanted,
                             const std::string& present) {
        if (wanted && *wanted != present) {
            SetTextProperty(text, name, *wanted);
        }
    };
    setText("SUMMARY", changes.summary, look.summary);
    setText("LOCATION", changes.location, look.location);
    setText("DESCRIPTION", changes.description, look.description);
    if (changes.categories && *changes.categories != look.categories) {
        SetCategories(text, *changes.categories);
    }
    if (changes.isTransparent && *changes.isTransparent != look.isTransparent) {
        SetValue(text, "TRANSP", *changes.isTransparent ? "TRANSPARENT" : "OPAQUE");
    }
    if (changes.isPrivate && *changes.isPrivate != look.isPrivate) {
        SetValue(text, "CLASS", *changes.isPrivate ? "PRIVATE" : "PUBLIC");
    }
    if (changes.reminders) {
        SetReminders(text, *changes.reminders);
    }
}

void DocumentEdit::ApplyTexts(ComponentText& text, const EventChanges& changes) const
{
    ApplyChanges(text, *m_occurrence->event, changes);
}

// Writes the times as those of another zone's clock. False if the file has no such zone.
bool DocumentEdit::SetZone(ComponentText& text, const EventChanges& changes) const
{
    const auto form = m_state.FormOfZone(*changes.zone);
    if (!form) {
        return false;
    }
    SetTimesInZone(text, changes.times.value_or(m_occurrence->times), *form, m_state.ContextFor(*m_entry));
    return true;
}

EditResult DocumentEdit::Change(const EventChanges& wanted, Scope scope)
{
    if (const char* problem = Check()) {
        return Refuse(problem);
    }
    EventChanges changes = wanted;
    if (changes.times && !Normalise(*changes.times)) {
        return Refuse(kBadTimes);
    }
    if (changes.times && *changes.times == m_occurrence->times) {
        changes.times.reset();
    }
    if (changes.rule && !changes.rule->empty() && !ParseRule(*changes.rule).rule) {
        return Refuse(kBadRule);
    }
    if (m_entry->event->hasUnreadRule && (changes.times || scope != Scope::WholeSeries)) {
        const bool changesNothing = !changes.times && !changes.rule && !changes.categories && !changes.isPrivate &&
                                    !changes.isTransparent && !changes.summary && !changes.location &&
                                    !changes.description && !changes.reminders && !changes.zone;
        return changesNothing ? EditResult{true, "", m_id} : Refuse(kUnreadRule);
    }
    if (!m_series) {
        return ChangeAlone(changes);
    }
    if (changes.zone) {
        const bool isAlone = scope == Scope::WholeSeries && m_entry == m_series && !changes.times && !changes.rule;
        return isAlone && !m_series->event->IsAllDay() ? ChangeSeriesZone(changes) : Refuse(kSeriesZone);
    }
    if (scope != Scope::WholeSeries && m_entry->event->changesFollowing) {
        return Refuse(kChangedFollowing);
    }
    switch (scope) {
    case Scope::WholeSeries:
        return ChangeSeries(changes);
    case Scope::ThisAndFollowing:
        return ChangeFollowing(changes);
    default:
        return m_entry == m_series ? ReplaceOccurrence(changes) : ChangeAlone(changes);
    }
}

EditResult DocumentEdit::ChangeAlone(const EventChanges& changes)
{
    ComponentText& text = TextOf(*m_entry);
    const bool isTimed = !changes.times.value_or(m_occurrence->times).isAllDay;
    if (changes.zone && isTimed) {
        if (!SetZone(text, changes)) {
            return Refuse(kNoZone);
        }
    } else if (changes.times) {
        SetTimes(text, *changes.times, &*m_occurrence, m_state.ContextFor(*m_entry));
    }
    ApplyTexts(text, changes);
    if (changes.rule && !m_entry->event->replaces) {
        SetValue(text, "RRULE", *changes.rule);
    }
    OccurrenceId after = m_id;
    const bool willRepeat = changes.rule && !changes.rule->empty() && !m_entry->event->replaces;
    EditResult result = Finish(after);
    if (result.isDone && willRepeat) { // it is the first occurrence of a series now
        after.original = m_state.FindEntry(m_id.event)->event->start.wall;
        return {true, "", after};
    }
    return result;
}

EditResult DocumentEdit::ReplaceOccurrence(const EventChanges& changes)
{
    EventChanges ofOne = changes;
    ofOne.rule.reset(); // one occurrence has none
    ComponentText text(m_state.FindEntry(m_occurrence->event->id)->raw);
    const WritingContext context = m_state.ContextFor(*m_series);
    const std::string before = text.Text();
    ApplyTexts(text, ofOne);
    if (!ofOne.times && text.Text() == before) {
        return {true, "", m_id};
    }
    if (m_series->event->uid.empty()) {
        return Refuse(kNoUid);
    }
    MakeReplacement(text, StartForm(ComponentText(m_series->raw), context), m_id.original);
    SetTimes(text, ofOne.times.value_or(m_occurrence->times), &*m_occurrence, context);
    const auto place = m_state.InsertAfter(*m_series, text.Text());
    m_texts.emplace(place->id, text);
    OccurrenceId after;
    after.event = place->id;
    return Finish(after);
}

EditResult DocumentEdit::Delete(Scope scope)
{
    if (const char* problem = Check()) {
        return Refuse(problem);
    }
    const Event& event = *m_entry->event;
    if (scope == Scope::WholeSeries) {
        for (const auto& other : m_state.Related(*m_entry)) {
            Kill(*other);
        }
    } else if (event.hasUnreadRule) {
        return Refuse(kUnreadRule);
    } else if (event.changesFollowing && m_series && scope == Scope::ThisOccurrence) {
        return Refuse(kChangedFollowing);
    } else if (scope == Scope::ThisAndFollowing && m_series) {
        if (IsFirst(OriginalOnSeries())) {
            return Delete(Scope::WholeSeries);
        }
        EndBefore(OriginalOnSeries());
        for (const auto& other : ReplacementsFrom(OriginalOnSeries())) {
            Kill(*other);
        }
    } else if (event.replaces) {
        DeleteReplacement();
    } else if (event.IsRecurrent()) {
        AddException(TextOf(*m_entry), m_id.original);
    } else {
        Kill(*m_entry);
    }
    return Finish({});
}

// Without an exception the occurrence that was replaced would come back, or another event that replaces it.
void DocumentEdit::DeleteReplacement()
{
    const EventTime& replaced = *m_entry->event->replaces;
    for (const auto& other : m_state.Related(*m_entry)) {
        const Event& event = *other->event;
        const bool isSame = event.replaces && event.replaces->isDate == replaced.isDate &&
                            event.replaces->Instant() == replaced.Instant();
        if (isSame) {
            Kill(*other);
        } else if (!event.replaces) {
            const LocalTime original = OriginalStart(replaced, event.start);
            if (event.IsRecurrent() || event.start.wall == original) {
                AddException(TextOf(*other), original);
            }
        }
    }
    if (m_killed.empty()) { // it has no UID
        Kill(*m_entry);
    }
}

EditResult DocumentEdit::Copy(const EventTimes& wanted)
{
    EventTimes times = wanted;
    if (const char* problem = Check()) {
        return Refuse(problem);
    }
    if (!Normalise(times)) {
        return Refuse(kBadTimes);
    }
    ComponentText text(m_state.FindEntry(m_occurrence->event->id)->raw);
    MakeSingle(text, UnusedUid(m_state), m_state.utcNow());
    SetTimes(text, times, &*m_occurrence, m_state.ContextFor(*m_entry));
    const auto place = m_state.InsertAfter(*m_entry, text.Text());
    m_texts.emplace(place->id, text);
    OccurrenceId copy;
    copy.event = place->id;
    return Finish(copy);
}

EditResult DocumentEdit::Acknowledge(LocalTime utc)
{
    if (const char* problem = Check()) {
        return Refuse(problem);
    }
    m_isRevision = false;
    SetAcknowledged(TextOf(*m_entry), utc);
    return Finish(m_id);
}

namespace {

// A new event's times, and its rule which is said on the shown clock, in a zone of its own. nullptr: done.
const char* RezoneNew(DocumentState& state, ComponentText& text, const EventTimes& times, const TimeForm& form)
{
    DocumentState::Entry draft;
    draft.raw = text.Text();
    draft.calendar = state.writing.calendar;
    const EventPtr event = state.ReadEvent(draft);
    if (!event) {
        return kUnwritable;
    }
    SetTimesInZone(text, times, form, state.writing);
    const LocalTime start = ParseTime(text.Lines()[text.Find("DTSTART")].property->Value())->wall;
    return DocumentEdit::RezoneRule(text, *event, start, form.zone);
}

} // namespace

EditResult CreateEvent(DocumentState& state, const EventTimes& wanted, const EventChanges& changes)
{
    EventTimes times = wanted;
    if (state.isLocked || !Normalise(times)) {
        return Refuse(state.isLocked ? kLocked : kBadTimes);
    }
    std::optional<TimeForm> form;
    if (changes.zone && !(form = state.FormOfZone(*changes.zone))) {
        return Refuse(kNoZone);
    }
    if (changes.rule && !changes.rule->empty() && !ParseRule(*changes.rule).rule) {
        return Refuse(kBadRule);
    }
    ComponentText text(NewEventText(UnusedUid(state), state.utcNow(), times, changes.summary.value_or(""),
                                    state.writing, state.lineEnding));
    EventChanges others = changes;
    others.summary.reset();
    ApplyChanges(text, Event(), others);
    if (changes.rule) {
        SetValue(text, "RRULE", *changes.rule);
    }
    const char* problem = form && !times.isAllDay ? RezoneNew(state, text, times, *form) : nullptr;
    if (problem) {
        return Refuse(problem);
    }
    const std::string raw = text.Text();
    const auto place = state.InsertNew(raw);
    DocumentState::Step step;
    step.changes.push_back({place->id, {raw, false}, {raw, true}});
    OccurrenceId id;
    id.event = place->id;
    step.idAfter = id;
    if (!state.Commit(std::move(step))) {
        return Refuse(kUnwritable);
    }
    const EventPtr& event = state.FindEntry(id.event)->event;
    id.original = event->IsRecurrent() ? event->start.wall : OccurrenceId::kNotRepeated;
    return {true, "", id};
}

} // namespace dayvane::ical
