#pragma once

#include "CalendarScanner.h"
#include "Document.h"
#include "EventWriter.h"
#include "UndoStack.h"

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace dayvane::ical {

// What a Document is made of: the stretches of the file, the events read from them, and the steps of editing.
class DocumentState
{
public:
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
        bool isZone = false;    // a VTIMEZONE that was taken over from another file
        EventPtr event;         // nullptr: not readable, or no event
    };
    using EntryList = std::list<Entry>;
    using EntryRef = EntryList::iterator;

    struct EntryText
    {
        std::string raw;
        bool isLive = false;
    };
    struct EntryChange
    {
        EventId id;
        EntryText before, after;
    };
    struct Step
    {
        std::vector<EntryChange> changes;
        OccurrenceId idBefore, idAfter;
    };

    bool Load(std::string_view bytes, const LoadProgress& progress);
    std::string Save() const;

    std::vector<Occurrence> OccurrencesIn(LocalTime from, LocalTime to, bool& isWhole) const;
    std::optional<Occurrence> Find(const OccurrenceId& id) const;
    std::size_t EventCount() const;
    const Replacements& Replaced() const;

    Entry* FindEntry(EventId id);
    // The living event that repeats and of which `event` replaces an occurrence; nullptr: none.
    Entry* SeriesOf(const Event& event);
    // The living events with the entry's UID in its calendar, itself included.
    std::vector<EntryRef> Related(const Entry& entry);
    // Adds a dead entry, which a change brings to life: after an event, or where new events go.
    EntryRef InsertAfter(const Entry& entry, const std::string& raw);
    EntryRef InsertNew(const std::string& raw);
    // Adds a dead VTIMEZONE where new events go, whose zone is known from now on.
    EntryRef InsertZone(const std::string& raw, const ZonePtr& zone);
    // How times of one of Zones() are written; nothing for any other.
    std::optional<TimeForm> FormOfZone(const std::string& id) const;
    std::vector<std::string> Zones() const;
    const EntryList& Entries() const { return m_entries; }
    WritingContext ContextFor(const Entry& entry) const;
    EventPtr ReadEvent(const Entry& entry) const; // as its text stands; nullptr: that is none
    bool IsUsedUid(const std::string& uid) const;

    // Makes the changes and keeps them as a step. False, and nothing is changed, when an event would not be readable.
    bool Commit(Step step);
    // The occurrence to make current; nothing if there is no step.
    std::optional<OccurrenceId> Undo();
    std::optional<OccurrenceId> Redo();

    UidSource newUid;
    UtcClock utcNow;
    std::vector<Message> messages;
    std::string name;
    WritingContext writing; // `calendar` is the one of new events
    std::string lineEnding; // of new events
    bool isLocked = false;  // the file is in an encoding that cannot be added to
    UndoStack<Step> undo;

private:
    bool ReadEvents(MessageLog& log, std::size_t size, const LoadProgress& progress);
    void KeepMessages(const MessageLog& log);
    void ChooseClock(const CalendarScan& scan);
    void ChooseNewForm(const std::string& zoneName);
    std::string OnlyNamedZone() const;
    static bool IsCutOff(const Entry& entry); // an event without END
    EntryRef Insert(EntryRef before, const std::string& raw, int calendar);
    void Apply(EventId id, const EntryText& text);

    EntryList m_entries;
    std::unordered_map<EventId, EntryRef> m_byId;
    EntryRef m_insertBefore;
    EventId m_lastId = kNoEvent;
    ZoneTable m_zones;
    mutable std::optional<Replacements> m_replaced;
};

// How a calendar file begins, with its lines ended so.
std::string HeadText(std::string_view ending);
// The file of an empty calendar.
std::string EmptyCalendar();

} // namespace dayvane::ical
