#pragma once

#include "Event.h"
#include "Messages.h"
#include "Occurrences.h"
#include "UidSource.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dayvane::ical {

class DocumentState;

// What an edit came to. `id` is the occurrence to make current afterwards; kNoEvent if nothing is left to point at.
struct EditResult
{
    bool isDone = false;
    std::string problem; // why not, as a sentence for the user; empty when done
    OccurrenceId id;
};

enum class TextField
{
    Summary,
    Location,
    Description
};

// How far an edit of one occurrence of a series goes. Single events know no difference.
enum class Scope
{
    ThisOccurrence,
    ThisAndFollowing,
    WholeSeries
};

// What an edit changes; nothing that is empty here.
struct EventChanges
{
    std::optional<EventTimes> times; // of the occurrence that is edited
    std::optional<std::string> summary, location, description;
    std::optional<std::vector<std::string>> categories;
    std::optional<bool> isTransparent;
    std::optional<bool> isPrivate;
    std::optional<std::string> rule; // an RRULE that ParseRule understands; "": repeats no more
    // Seconds before the start at which something is shown. Alarms that do something else, or at other times, stay.
    std::optional<std::vector<std::int64_t>> reminders;
    // One of Zones(): the event is written in it from now on. Of events that repeat the whole series, and not together
    // with times or a rule.
    std::optional<std::string> zone;
};

// What a document took over from another one.
struct MergeReport
{
    EditResult edit; // one step of undo; done with no id when nothing was to be changed
    std::size_t added = 0, replaced = 0, removed = 0;
    std::vector<std::string> conflicts; // titles of events that both have changed; the higher SEQUENCE has won
};

enum class ExcerptForm
{
    Occurrences, // each as a single event
    WholeEvents  // series with everything that belongs to them
};

// Called now and then with the bytes that are read and all of them; false ends the reading.
using LoadProgress = std::function<bool(std::size_t done, std::size_t all)>;

// One calendar file, open for reading and editing, with undo. (Parsers at hand drop what they do not know when they
// write; this one is the file's own text with the events found in it.)
//
// The clock. When the file names its zone (X-WR-TIMEZONE) and the zone is known, or names none and defines just one,
// all times are shown on that zone's clock. Otherwise each event is shown on the clock of its own DTSTART: an event at
// 9:30 in Phoenix shows 9:30, one written in UTC shows UTC. Floating times, and times in zones that nobody defines, are
// shown as they stand. New events get the file's zone, or the one that all its events are written in.
//
// Lengths are elapsed time. What is moved over a change of the clock lasts as long as before; an occurrence of a series
// with DTEND lasts exactly as long as the first one, with DURATION as many days and then hours as that says.
//
// Editing changes the text of the edited event only, and of that only the lines that change and the SEQUENCE, DTSTAMP
// and LAST-MODIFIED that it has; every other byte of the file stays. An event that was edited and undone has its old
// bytes again.
//
// Repeated events. Changing one occurrence adds an event with a RECURRENCE-ID that replaces it; deleting one adds an
// EXDATE. Changing an occurrence and the following ones ends the series before it (UNTIL) and adds another one with a
// UID of its own, to which the replaced occurrences and exceptions from there on go. Moving a series moves its rule,
// exceptions and replaced occurrences' names along. A rule that is not understood, or cannot say the result, refuses.
class Document
{
public:
    // An empty calendar. `newUid` and `utcNow` name and stamp new and edited events.
    explicit Document(UidSource newUid = RandomUids(), UtcClock utcNow = SystemClock());
    ~Document();
    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;

    // Begins an empty calendar, without history.
    void Clear();
    // Replaces everything, history included. What is not readable is reported in Messages(). False only when `progress`
    // ended it: then the document is what it was.
    bool Load(std::string_view bytes, const LoadProgress& progress = {});
    // The file's bytes; those given to Load as long as nothing is changed.
    std::string Save() const;

    // What Load could not read, by line.
    const std::vector<Message>& Messages() const;
    const std::string& Name() const; // X-WR-CALNAME, may be empty
    // The zone of the clock; nullptr: each event's own.
    const ZonePtr& DisplayZone() const;
    // Shows all times on that clock instead, until the next Load. The file stays as it is.
    void ShowOn(const ZonePtr& zone);

    // The occurrences that overlap [from, to), by start, longer ones first; at most kMaxOccurrences, and
    // kMaxOccurrencesOfEvent of each event. `isWhole` says whether these are all.
    std::vector<Occurrence> OccurrencesIn(LocalTime from, LocalTime to, bool* isWhole = nullptr) const;
    std::optional<Occurrence> Find(const OccurrenceId& id) const;
    // Whether the occurrence is one of a series, replaced ones included: then the scopes differ.
    bool IsOfSeries(const OccurrenceId& id) const;
    std::size_t EventCount() const;
    // The zones that an event of this file can be written in, by TZID: "" for floating times, "UTC", and those that the
    // file defines.
    std::vector<std::string> Zones() const;
    // The one that new timed events are written in, when nothing else is said.
    std::string NewZone() const;
    // A calendar file of these occurrences and the zones of the file.
    std::string Excerpt(const std::vector<OccurrenceId>& ids, ExcerptForm form) const;

    // Everything in one step. Of several occurrences the scope says which change; replaced ones keep what is their own.
    EditResult Change(const OccurrenceId& id, const EventChanges& changes, Scope scope = Scope::ThisOccurrence);
    EditResult Move(const OccurrenceId& id, const EventTimes& times, Scope scope = Scope::ThisOccurrence);
    EditResult SetText(const OccurrenceId& id, TextField field, const std::string& text, Scope scope);
    EditResult Delete(const OccurrenceId& id, Scope scope);
    EditResult Create(const EventTimes& times, const std::string& summary);
    EditResult Create(const EventTimes& times, const EventChanges& changes);
    // A new, single event with everything that the occurrence has besides its times.
    EditResult Copy(const OccurrenceId& id, const EventTimes& times);
    // Dismisses the alarms that go off until then (UTC).
    EditResult Acknowledge(const OccurrenceId& id, LocalTime utc);

    // Takes over the events of a calendar file, event by event (UID and RECURRENCE-ID). With `base`, the file that both
    // come from, only what the other one has changed since: then events that it has deleted go here too.
    MergeReport Merge(std::string_view other, std::optional<std::string_view> base = std::nullopt);
    // Adds the events of a calendar file as new ones with UIDs of their own, moved so that the first one begins at
    // `start`; nothing: where they are.
    MergeReport Paste(std::string_view other, std::optional<LocalTime> start = std::nullopt);

    std::size_t StepsDone() const; // that Undo takes back
    bool CanUndo() const;
    bool CanRedo() const;
    EditResult Undo();
    EditResult Redo();
    bool IsModified() const;
    void MarkSaved();
    void MarkUnsaved();

private:
    std::unique_ptr<DocumentState> m_state;
};

} // namespace dayvane::ical
