#pragma once

#include "CalendarScanner.h"
#include "EventReader.h"
#include "EventWriter.h"
#include "Messages.h"
#include "Occurrences.h"
#include "UidSource.h"
#include "UndoStack.h"

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace dayvane::ical {

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
enum class Scope
{
    ThisOccurrence,
    WholeSeries
};

// One calendar file, open for reading and editing, with undo. (Parsers at hand drop what they do not know when they
// write; this one is the file's own text with the events found in it.)
//
// The clock. When the file names its zone (X-WR-TIMEZONE) and the zone is known, or names none and defines just one,
// all times are shown on that zone's clock. Otherwise each event is shown on the clock of its own DTSTART: an event at
// 9:30 in Phoenix shows 9:30, one written in UTC shows UTC. Floating times, and times in zones that nobody defines, are
// shown as they stand.
//
// Editing changes the text of the edited event only, and of that only the lines that change; every other byte of the
// file stays. An event that was edited and undone has its old bytes again. LAST-MODIFIED and SEQUENCE are not touched.
//
// Repeated events. Moving one occurrence, or changing its text alone, adds an event with a RECURRENCE-ID that replaces
// it; deleting one adds an EXDATE. A series cannot be moved as a whole.
class Document
{
public:
    // An empty calendar.
    explicit Document(UidSource newUid = RandomUids());
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    // Begins an empty calendar, without history.
    void Clear();
    // Replaces everything, history included. Never fails: what is not readable is told in Messages().
    void Load(std::string_view bytes);
    // The file's bytes; those given to Load as long as nothing is changed.
    std::string Save() const;

    // What Load could not read, by line.
    const std::vector<Message>& Messages() const { return m_messages; }
    const std::string& Name() const { return m_name; } // X-WR-CALNAME, may be empty
    // The zone of the clock; nullptr: each event's own.
    const ZonePtr& DisplayZone() const { return m_writing.displayZone; }

    // The occurrences that meet [from, to), by start, longer ones first; at most kMaxOccurrences.
    std::vector<Occurrence> OccurrencesIn(LocalTime from, LocalTime to) const;
    std::optional<Occurrence> Find(const OccurrenceId& id) const;
    std::size_t EventCount() const;

    EditResult Move(const OccurrenceId& id, const EventTimes& times);
    // WholeSeries changes the repeated event itself; replaced occurrences keep their texts.
    EditResult SetText(const OccurrenceId& id, TextField field, const std::string& text, Scope scope);
    EditResult Delete(const OccurrenceId& id, Scope scope);
    // `utcNow` becomes the event's DTSTAMP.
    EditResult Create(const EventTimes& times, const std::string& summary, LocalTime utcNow);
    // A new, single event with everything that the occurrence has besides its times.
    EditResult Copy(const OccurrenceId& id, const EventTimes& times, LocalTime utcNow);

    bool CanUndo() const { return m_undo.CanUndo(); }
    bool CanRedo() const { return m_undo.CanRedo(); }
    EditResult Undo();
    EditResult Redo();
    bool IsModified() const { return !m_undo.IsSaved(); }
    void MarkSaved() { m_undo.MarkSaved(); }
    void MarkUnsaved() { m_undo.MarkUnsaved(); }

private:
    // A stretch of the file. Deleted events stay in the list, dead, so that undo finds their place.
    struct Entry
    {
        std::string raw;
        EventId id = kNoEvent; // kNoEvent: text between events
        int calendar = 0;
        int line = 1;
        bool isLive = true;
        bool isCreated = false;
        bool isWrapped = false; // created in a file without VCALENDAR: saved inside one
        EventPtr event;         // nullptr: not readable, or no event
    };
    using EntryList = std::list<Entry>;
    using EntryRef = EntryList::iterator;

    struct State
    {
        std::string raw;
        bool isLive = false;
    };
    struct Change
    {
        EventId id;
        State before, after;
    };
    struct Step
    {
        std::vector<Change> changes;
        OccurrenceId idBefore, idAfter;
    };

    void ReadEvents(MessageLog& log);
    void SortMessages(MessageLog& log);
    EventPtr ReadEvent(const Entry& entry) const;
    void ChooseClock(const CalendarScan& scan);
    const ReplacedTimes& Replaced() const;
    static bool IsCutOff(const Entry& entry); // an event without END

    Entry* FindEntry(EventId id);
    // The living events of the series: the repeated ones and those that replace occurrences of them.
    std::vector<EntryRef> SeriesOf(const Entry& entry);
    EntryRef Insert(EntryRef before, const std::string& raw, int calendar);
    WritingContext ContextFor(const Entry& entry) const;

    void Apply(EventId id, const State& state);
    EditResult Commit(Step step);
    static Change ChangeText(const Entry& entry, std::string raw);
    static Change Kill(const Entry& entry);
    // Adds the event that replaces one occurrence; edit(ComponentText&) gives it what differs besides the times.
    template <typename Edit>
    EditResult Replace(Entry& series, const Occurrence& occurrence, const EventTimes& times, Edit edit);
    EditResult EditEvent(Entry& entry, const OccurrenceId& id, const ComponentText& text);
    EditResult DeleteSeries(const Entry& entry, const OccurrenceId& id);
    EditResult DeleteReplacement(Entry& entry, const OccurrenceId& id);
    EditResult AddEvent(std::string raw, const OccurrenceId& idBefore);
    std::string UnusedUid();

    UidSource m_newUid;
    EntryList m_entries;
    std::unordered_map<EventId, EntryRef> m_byId;
    EntryRef m_insertBefore;
    EventId m_lastId = kNoEvent;
    std::vector<Message> m_messages;
    ZoneTable m_zones;
    WritingContext m_writing; // `calendar` is the one of new events
    std::string m_name;
    std::string m_ending;    // of the lines of new events
    bool m_isLocked = false; // the file is in an encoding that cannot be added to
    UndoStack<Step> m_undo;
    mutable std::optional<ReplacedTimes> m_replaced;
};

} // namespace dayvane::ical
