#include "ical/Document.h"

#include "ical/DocumentEdits.h"
#include "ical/DocumentMerge.h"
#include "ical/DocumentState.h"

namespace dayvane::ical {

Document::Document(UidSource newUid, UtcClock utcNow) : m_state(std::make_unique<DocumentState>())
{
    m_state->newUid = std::move(newUid);
    m_state->utcNow = std::move(utcNow);
    Clear();
}

Document::~Document() = default;
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&&) noexcept = default;

void Document::Clear()
{
    Load(EmptyCalendar());
}

bool Document::Load(std::string_view bytes, const LoadProgress& progress)
{
    auto fresh = std::make_unique<DocumentState>();
    fresh->newUid = m_state->newUid;
    fresh->utcNow = m_state->utcNow;
    const bool isRead = fresh->Load(bytes, progress);
    if (isRead) {
        m_state = std::move(fresh);
    }
    return isRead;
}

std::string Document::Save() const
{
    return m_state->Save();
}

const std::vector<Message>& Document::Messages() const
{
    return m_state->messages;
}

const std::string& Document::Name() const
{
    return m_state->name;
}

const ZonePtr& Document::DisplayZone() const
{
    return m_state->writing.displayZone;
}

void Document::ShowOn(const ZonePtr& zone)
{
    m_state->writing.displayZone = zone;
}

std::vector<Occurrence> Document::OccurrencesIn(LocalTime from, LocalTime to, bool* isWhole) const
{
    bool whole = true;
    std::vector<Occurrence> occurrences = m_state->OccurrencesIn(from, to, whole);
    if (isWhole) {
        *isWhole = whole;
    }
    return occurrences;
}

std::optional<Occurrence> Document::Find(const OccurrenceId& id) const
{
    return m_state->Find(id);
}

bool Document::IsOfSeries(const OccurrenceId& id) const
{
    const auto occurrence = Find(id);
    const DocumentState::Entry* entry = occurrence ? m_state->FindEntry(id.event) : nullptr;
    return entry && (entry->event->IsRecurrent() || (entry->event->replaces && m_state->SeriesOf(*entry->event)));
}

std::size_t Document::EventCount() const
{
    return m_state->EventCount();
}

EditResult Document::Change(const OccurrenceId& id, const EventChanges& changes, Scope scope)
{
    return DocumentEdit(*m_state, id).Change(changes, scope);
}

EditResult Document::Move(const OccurrenceId& id, const EventTimes& times, Scope scope)
{
    EventChanges changes;
    changes.times = times;
    return Change(id, changes, scope);
}

EditResult Document::SetText(const OccurrenceId& id, TextField field, const std::string& text, Scope scope)
{
    EventChanges changes;
    auto& changed = field == TextField::Summary    ? changes.summary
                    : field == TextField::Location ? changes.location
                                                   : changes.description;
    changed = text;
    return Change(id, changes, scope);
}

EditResult Document::Delete(const OccurrenceId& id, Scope scope)
{
    return DocumentEdit(*m_state, id).Delete(scope);
}

EditResult Document::Create(const EventTimes& times, const std::string& summary)
{
    EventChanges changes;
    changes.summary = summary;
    return CreateEvent(*m_state, times, changes);
}

EditResult Document::Create(const EventTimes& times, const EventChanges& changes)
{
    return CreateEvent(*m_state, times, changes);
}

EditResult Document::Acknowledge(const OccurrenceId& id, LocalTime utc)
{
    return DocumentEdit(*m_state, id).Acknowledge(utc);
}

std::vector<std::string> Document::Zones() const
{
    return m_state->Zones();
}

std::string Document::NewZone() const
{
    const TimeForm& form = m_state->writing.newForm;
    return form.isUtc ? TimeZone::Utc()->Id() : form.tzid;
}

std::string Document::Excerpt(const std::vector<OccurrenceId>& ids, ExcerptForm form) const
{
    return ExcerptOf(*m_state, ids, form);
}

MergeReport Document::Merge(std::string_view other, std::optional<std::string_view> base)
{
    return MergeInto(*m_state, other, base);
}

MergeReport Document::Paste(std::string_view other, std::optional<LocalTime> start)
{
    return PasteInto(*m_state, other, start);
}

EditResult Document::Copy(const OccurrenceId& id, const EventTimes& times)
{
    return DocumentEdit(*m_state, id).Copy(times);
}

std::size_t Document::StepsDone() const
{
    return m_state->undo.Done();
}

bool Document::CanUndo() const
{
    return m_state->undo.CanUndo();
}

bool Document::CanRedo() const
{
    return m_state->undo.CanRedo();
}

EditResult Document::Undo()
{
    const auto id = m_state->Undo();
    return id ? EditResult{true, "", *id} : EditResult{false, "There is nothing to undo.", {}};
}

EditResult Document::Redo()
{
    const auto id = m_state->Redo();
    return id ? EditResult{true, "", *id} : EditResult{false, "There is nothing to redo.", {}};
}

bool Document::IsModified() const
{
    return !m_state->undo.IsSaved();
}

void Document::MarkSaved()
{
    m_state->undo.MarkSaved();
}

void Document::MarkUnsaved()
{
    m_state->undo.MarkUnsaved();
}

} // namespace dayvane::ical
