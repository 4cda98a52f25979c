#include "ical/DocumentEdits.h"

#include "ical/SeriesText.h"

#include <algorithm>

// Edits that change a series as a whole or from one occurrence on.
namespace dayvane::ical {

namespace {

constexpr char kSeriesForm[] = "A series cannot change between whole days and times.";
constexpr char kSeriesRule[] =
    "The rule of this series cannot say where its occurrences would lie. Single occurrences can be moved.";

bool IsSameForm(const TimeForm& a, const TimeForm& b)
{
    return a.isDate == b.isDate && a.isUtc == b.isUtc && a.tzid == b.tzid;
}

} // namespace

LocalTime DocumentEdit::OriginalOnSeries() const
{
    return m_entry == m_series ? m_id.original : OriginalStart(*m_entry->event->replaces, m_series->event->start);
}

// Whether the series has nothing before that occurrence.
bool DocumentEdit::IsFirst(LocalTime original)
{
    const auto first = NextStart(m_series->event, m_state.Replaced(), m_series->event->start.wall);
    bool replacesEarlier = false;
    for (const auto& other : m_state.Related(*m_series)) {
        replacesEarlier =
            replacesEarlier ||
            (other->event->replaces && OriginalStart(*other->event->replaces, m_series->event->start) < original);
    }
    return !replacesEarlier && (!first || *first >= original);
}

std::vector<DocumentState::EntryRef> DocumentEdit::ReplacementsFrom(LocalTime original)
{
    std::vector<DocumentState::EntryRef> replacements;
    for (const auto& other : m_state.Related(*m_series)) {
        if (other->event->replaces && OriginalStart(*other->event->replaces, m_series->event->start) >= original) {
            replacements.push_back(other);
        }
    }
    return replacements;
}

// The first occurrence of an event as its own text has it.
Occurrence DocumentEdit::FirstOf(const Entry& entry) const
{
    return OccurrenceAt(entry.event, m_state.writing.displayZone, entry.event->start.wall);
}

// Of the series' own event, of the edited one, and of those by which later occurrences are changed: these are seen.
void DocumentEdit::ApplyTextsToSeries(const EventChanges& changes)
{
    ApplyTexts(TextOf(*m_series), changes);
    for (const auto& other : ReplacementsFrom(kEarliestTime)) {
        if (&*other == m_entry || other->event->changesFollowing) {
            ApplyTexts(TextOf(*other), changes);
        }
    }
}

// The times that the anchor gets when the edited occurrence gets `times`.
EventTimes DocumentEdit::TimesOfAnchor(const Occurrence& anchor, const EventTimes& times) const
{
    EventTimes moved = anchor.times;
    moved.start += times.start - m_occurrence->times.start;
    moved.end += times.end - m_occurrence->times.end;
    moved.end = std::max(moved.end, moved.start);
    return moved;
}

// Whether the shifted rule gives the occurrence that was edited, and the start where the series' own rule gave it.
bool DocumentEdit::IsShiftSound(std::string_view shifted, const Event& event, LocalTime from, LocalTime to) const
{
    RecurrenceRule before = *event.rule, after = *ParseRule(shifted).rule;
    before.givesStart = after.givesStart = false;
    after.lastStart = kEndOfTime;
    const LocalTime edited = OriginalOnSeries();
    const bool givesStart = !IsStartOf(before, event.start.wall, from) || IsStartOf(after, to, to);
    return givesStart && (!IsStartOf(before, event.start.wall, edited) || IsStartOf(after, to, edited + to - from));
}

// Moves a series' text, whose DTSTART becomes that of the anchor, with its rules and dates. nullptr: done.
const char* DocumentEdit::MoveSeries(ComponentText& text, const Event& event, const Occurrence& anchor,
                                     const EventTimes& times, LocalTime& shiftedStart)
{
    const WritingContext context = m_state.ContextFor(*m_series);
    if (times.isAllDay != event.IsAllDay()) {
        return kSeriesForm;
    }
    const TimeForm form = StartForm(text, context);
    SetTimes(text, times, &anchor, context);
    if (!IsSameForm(form, StartForm(text, context))) {
        return kSeriesRule;
    }
    const LocalTime from = anchor.id.original;
    shiftedStart = ParseTime(text.Lines()[text.Find("DTSTART")].property->Value())->wall;
    if (shiftedStart == from) {
        return nullptr;
    }
    for (const std::string_view name : {"RRULE", "EXRULE"}) {
        const std::size_t line = text.Find(name);
        if (line == ComponentText::kNone) {
            continue;
        }
        const auto rule = ShiftRule(text.Lines()[line].property->Value(), event, from, shiftedStart);
        if (!rule || (name == "RRULE" && !IsShiftSound(*rule, event, from, shiftedStart))) {
            return kSeriesRule;
        }
        SetValue(text, name, *rule);
    }
    ShiftDates(text, event, "RDATE", context, from, shiftedStart);
    ShiftDates(text, event, "EXDATE", context, from, shiftedStart);
    return nullptr;
}

EditResult DocumentEdit::ChangeSeries(const EventChanges& changes)
{
    const Event& event = *m_series->event;
    ComponentText& text = TextOf(*m_series);
    const WritingContext context = m_state.ContextFor(*m_series);
    OccurrenceId after = m_id;
    if (changes.times) {
        const Occurrence first = FirstOf(*m_series);
        LocalTime start = 0;
        if (const char* problem = MoveSeries(text, event, first, TimesOfAnchor(first, *changes.times), start)) {
            return Refuse(problem);
        }
        for (const auto& other : ReplacementsFrom(kEarliestTime)) {
            ShiftDates(TextOf(*other), event, "RECURRENCE-ID", context, event.start.wall, start);
            if (other->event->changesFollowing && &*other != m_entry) {
                const Occurrence changed = FirstOf(*other);
                if (changed.times.isAllDay != event.IsAllDay()) {
                    return Refuse(kSeriesForm);
                }
                SetTimes(TextOf(*other), TimesOfAnchor(changed, *changes.times), &changed, context);
            }
        }
        if (m_entry == m_series) {
            after.original += start - event.start.wall;
        } else {
            SetTimes(TextOf(*m_entry), *changes.times, &*m_occurrence, context);
        }
    }
    ApplyTextsToSeries(changes);
    if (changes.rule) {
        SetValue(text, "RRULE", *changes.rule);
    }
    return Finished(Finish(after), m_series->id);
}

const char* DocumentEdit::RezoneRule(ComponentText& text, const Event& event, LocalTime to, const ZonePtr& zone)
{
    const LocalTime from = event.start.wall;
    for (const std::string_view name : {"RRULE", "EXRULE"}) {
        const std::size_t line = text.Find(name);
        if (line == ComponentText::kNone) {
            continue;
        }
        const std::string before(text.Lines()[line].property->Value());
        auto rule = from == to ? std::optional<std::string>(before) : ShiftRule(before, event, from, to);
        const RuleReading reading = ParseRule(before);
        if (!rule || !reading.rule) {
            return kSeriesRule;
        }
        const auto& until = reading.rule->until;
        if (until && !until->isDate) {
            const LocalTime wall = until->isUtc ? WallOf(until->wall, event.start.zone) : until->wall;
            const EventTime start = {to, zone, false};
            rule = WithLimit(*rule, UntilBefore(start, wall + to - from + 1));
        }
        SetValue(text, name, *rule);
    }
    return nullptr;
}

// Every occurrence begins and ends at the same time on the clock of the other zone as the first one does.
EditResult DocumentEdit::ChangeSeriesZone(const EventChanges& changes)
{
    const Event& event = *m_series->event;
    const WritingContext context = m_state.ContextFor(*m_series);
    const auto form = m_state.FormOfZone(*changes.zone);
    if (!form) {
        return Refuse(kNoZone);
    }
    ComponentText& text = TextOf(*m_series);
    const LocalTime from = event.start.wall;
    SetTimesInZone(text, FirstOf(*m_series).times, *form, context);
    const LocalTime to = ParseTime(text.Lines()[text.Find("DTSTART")].property->Value())->wall;
    if (const char* problem = RezoneRule(text, event, to, form->zone)) {
        return Refuse(problem);
    }
    bool isWritten = RezoneDates(text, event, "RDATE", context, from, to, *form) &&
                     RezoneDates(text, event, "EXDATE", context, from, to, *form);
    for (const auto& other : ReplacementsFrom(kEarliestTime)) {
        isWritten = isWritten && RezoneDates(TextOf(*other), event, "RECURRENCE-ID", context, from, to, *form);
        if (other->event->changesFollowing && !other->event->IsAllDay()) {
            SetTimesInZone(TextOf(*other), FirstOf(*other).times, *form, context);
        }
    }
    if (!isWritten) {
        return Refuse(kSeriesRule);
    }
    ApplyTextsToSeries(changes);
    OccurrenceId after = m_id;
    after.original += to - from;
    return Finished(Finish(after), m_series->id);
}

// An occurrence that the new rule does not give is not current afterwards: the first one of the series is.
EditResult DocumentEdit::Finished(EditResult result, EventId series)
{
    const Entry& entry = *m_state.FindEntry(series);
    if (result.isDone && !m_state.Find(result.id) && entry.event) {
        const auto next = NextStart(entry.event, m_state.Replaced(), entry.event->start.wall);
        result.id = {series, entry.event->IsRecurrent() && next ? *next : OccurrenceId::kNotRepeated};
    }
    return result;
}

bool DocumentEdit::HasChangesOfFollowing()
{
    const auto related = m_state.Related(*m_series);
    return std::any_of(related.begin(), related.end(),
                       [](const auto& other) { return other->event->changesFollowing; });
}

// The first start that the series' rule gives from there on.
std::optional<LocalTime> DocumentEdit::RuleStartFrom(LocalTime original) const
{
    const Event& event = *m_series->event;
    std::optional<LocalTime> start;
    if (event.rule) {
        ExpandRule(*event.rule, event.start.wall, original, kEndOfTime, [&](LocalTime wall) {
            start = wall;
            return false;
        });
    }
    return start;
}

// Leaves the rule of a series that begins at `first` the occurrences that its COUNT has left. False if these cannot be
// counted.
bool DocumentEdit::LimitTail(ComponentText& tail, const Event& event, LocalTime first) const
{
    if (!event.rule || !event.rule->count) {
        return true;
    }
    std::int64_t before = 0;
    const std::int64_t steps = ExpandRule(*event.rule, event.start.wall, event.start.wall, first, [&](LocalTime) {
        ++before;
        return true;
    });
    const std::string left = "COUNT=" + std::to_string(std::max<std::int64_t>(1, *event.rule->count - before));
    SetValue(tail, "RRULE", WithLimit(event.ruleText, left));
    return steps < kExpansionSteps;
}

void DocumentEdit::EndBefore(LocalTime original)
{
    EndSeries(TextOf(*m_series), *m_series->event, original, m_state.ContextFor(*m_series));
}

EditResult DocumentEdit::ChangeFollowing(const EventChanges& changes)
{
    const LocalTime original = OriginalOnSeries();
    if (HasChangesOfFollowing()) {
        return Refuse(kChangedFollowing);
    }
    if (IsFirst(original)) {
        return ChangeSeries(changes);
    }
    const Event& event = *m_series->event;
    const WritingContext context = m_state.ContextFor(*m_series);
    const auto ruleStart = RuleStartFrom(original);
    const auto fromThere = [&](LocalTime date) { return date >= original; };
    ComponentText tail(m_series->raw);
    const std::string uid = UnusedUid(m_state);
    SetTextProperty(tail, "UID", uid);
    FilterDates(tail, event, "RDATE", context, fromThere);
    FilterDates(tail, event, "EXDATE", context, fromThere);
    if (!ruleStart) { // only further dates are left
        SetValue(tail, "RRULE", "");
    } else if (!LimitTail(tail, event, *ruleStart)) {
        return Refuse(kSeriesRule);
    }
    const Occurrence anchor = OccurrenceAt(m_series->event, m_state.writing.displayZone, ruleStart.value_or(original));
    const EventTimes times = changes.times ? TimesOfAnchor(anchor, *changes.times) : anchor.times;
    LocalTime start = anchor.id.original;
    if (const char* problem = MoveSeries(tail, event, anchor, times, start)) {
        return Refuse(problem);
    }
    ApplyTexts(tail, changes);
    if (changes.rule) {
        SetValue(tail, "RRULE", *changes.rule);
    }
    for (const auto& other : ReplacementsFrom(original)) {
        ComponentText& text = TextOf(*other);
        SetTextProperty(text, "UID", uid);
        ShiftDates(text, event, "RECURRENCE-ID", context, anchor.id.original, start);
    }
    if (m_entry != m_series) {
        ApplyTexts(TextOf(*m_entry), changes);
        if (changes.times) {
            SetTimes(TextOf(*m_entry), *changes.times, &*m_occurrence, context);
        }
    }
    EndBefore(original);
    const auto place = m_state.InsertAfter(*m_series, tail.Text());
    m_texts.emplace(place->id, tail);
    OccurrenceId after = m_id;
    if (m_entry == m_series) {
        after = {place->id, original + start - anchor.id.original};
    }
    return Finished(Finish(after), place->id);
}

} // namespace dayvane::ical
