#pragma once

#include "DocumentState.h"

#include <map>
#include <optional>
#include <string>

namespace dayvane::ical {

// One edit of one occurrence: collects what it makes of the texts of events, then commits them as one step.
class DocumentEdit
{
public:
    DocumentEdit(DocumentState& state, const OccurrenceId& id);

    EditResult Change(const EventChanges& wanted, Scope scope);
    EditResult Delete(Scope scope);
    EditResult Copy(const EventTimes& wanted);
    EditResult Acknowledge(LocalTime utc);

    // The rule on the clock of another zone, where the series begins at `to`. nullptr: done.
    static const char* RezoneRule(ComponentText& text, const Event& event, LocalTime to, const ZonePtr& zone);

private:
    using Entry = DocumentState::Entry;

    const char* Check() const; // nullptr: the occurrence is there and can be edited
    ComponentText& TextOf(const Entry& entry);
    void Kill(const Entry& entry);
    void ApplyTexts(ComponentText& text, const EventChanges& changes) const;
    void ApplyTextsToSeries(const EventChanges& changes);
    Occurrence FirstOf(const Entry& entry) const;
    bool SetZone(ComponentText& text, const EventChanges& changes) const;
    EditResult Finish(const OccurrenceId& idAfter);
    EditResult Finished(EditResult result, EventId series);

    EditResult ChangeAlone(const EventChanges& changes);
    EditResult ReplaceOccurrence(const EventChanges& changes);
    EditResult ChangeSeries(const EventChanges& changes);
    EditResult ChangeSeriesZone(const EventChanges& changes);
    EditResult ChangeFollowing(const EventChanges& changes);
    const char* MoveSeries(ComponentText& text, const Event& event, const Occurrence& anchor, const EventTimes& times,
                           LocalTime& shiftedStart);
    bool IsShiftSound(std::string_view shifted, const Event& event, LocalTime from, LocalTime to) const;
    bool LimitTail(ComponentText& tail, const Event& event, LocalTime first) const;
    std::optional<LocalTime> RuleStartFrom(LocalTime original) const;
    void EndBefore(LocalTime original);
    void DeleteReplacement();

    EventTimes TimesOfAnchor(const Occurrence& anchor, const EventTimes& times) const;
    LocalTime OriginalOnSeries() const;
    bool IsFirst(LocalTime original);
    bool HasChangesOfFollowing();
    std::vector<DocumentState::EntryRef> ReplacementsFrom(LocalTime original);

    DocumentState& m_state;
    OccurrenceId m_id;
    std::optional<Occurrence> m_occurrence;
    Entry* m_entry = nullptr;
    Entry* m_series = nullptr; // that the occurrence is of or was; may be m_entry
    std::map<EventId, ComponentText> m_texts;
    std::vector<EventId> m_killed;
    bool m_isRevision = true; // raises SEQUENCE
};

EditResult Refuse(const char* problem);
// A copy of an event that the file's end has cut off must not swallow what comes after it.
std::string ClosedText(ComponentText& text);
std::string UnusedUid(const DocumentState& state);
TimeForm StartForm(const ComponentText& text, const WritingContext& context);
// Reasons why an edit is refused: occurrences that the file changes together; a zone that it does not define.
extern const char kChangedFollowing[], kNoZone[];

// A calendar item's own text with these changes, of which it has nothing so far; `look` is what it has.
void ApplyChanges(ComponentText& text, const Event& look, const EventChanges& changes);

EditResult CreateEvent(DocumentState& state, const EventTimes& wanted, const EventChanges& changes);

} // namespace dayvane::ical
