#include "ical/DocumentState.h"

#include "ical/EventReader.h"
#include "ical/Text.h"

#include <algorithm>
#include <set>

namespace dayvane::ical {

namespace {

constexpr std::string_view kCalendarHead[] = {"BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//Dayvane//Planner//EN"};
constexpr std::string_view kCalendarFoot = "END:VCALENDAR";
constexpr std::string_view kEventFoot = "END:VEVENT";
constexpr std::string_view kDefaultEnding = "\r\n";
constexpr int kEventsBetweenReports = 1000; // of the progress

bool IsUtf16(std::string_view bytes)
{
    return bytes.substr(0, 2) == "\xFF\xFE" || bytes.substr(0, 2) == "\xFE\xFF";
}

bool EndsLine(const std::string& text)
{
    return text.empty() || text.back() == '\n' || text.back() == '\r';
}

} // namespace

std::string HeadText(std::string_view ending)
{
    std::string text;
    for (const std::string_view line : kCalendarHead) {
        text.append(line).append(ending);
    }
    return text;
}

std::string EmptyCalendar()
{
    return HeadText(kDefaultEnding).append(kCalendarFoot).append(kDefaultEnding);
}

bool DocumentState::Load(std::string_view bytes, const LoadProgress& progress)
{
    MessageLog log;
    isLocked = IsUtf16(bytes);
    CalendarScan scan;
    if (isLocked) {
        log.Add(1, {{"the file is in UTF-16, which calendar files never are", ""}, {"it is not read", ""}});
        scan.passages.push_back({bytes, 1, false, 0});
    } else {
        scan = ScanCalendar(bytes, log);
    }
    name = std::move(scan.name);
    m_zones = std::move(scan.zones);
    RawLine firstLine;
    LineReader(bytes).Next(firstLine);
    lineEnding = EndingOf(firstLine.raw.empty() ? kDefaultEnding : firstLine.raw);
    lineEnding = lineEnding.empty() ? kDefaultEnding : lineEnding;
    for (const Passage& passage : scan.passages) {
        Entry entry;
        entry.raw = passage.raw;
        entry.calendar = passage.calendar;
        entry.line = passage.line;
        entry.id = passage.isEvent ? ++m_lastId : kNoEvent;
        m_entries.push_back(std::move(entry));
        if (passage.isEvent) {
            m_byId[m_lastId] = std::prev(m_entries.end());
        }
    }
    m_insertBefore = std::next(m_entries.begin(), static_cast<std::ptrdiff_t>(scan.insertAt));
    if (!ReadEvents(log, bytes.size(), progress)) {
        return false;
    }
    ChooseClock(scan);
    if (!scan.zoneName.empty() && !writing.displayZone) {
        log.Add(scan.zoneLine, {{"the calendar's time zone %1 is not defined", Quoted(scan.zoneName)},
                                {"times are shown as written", ""}});
    }
    KeepMessages(log);
    return true;
}

void DocumentState::ChooseClock(const CalendarScan& scan)
{
    writing = {};
    writing.zones = &m_zones;
    writing.calendar = scan.insertCalendar;
    const std::string zoneName = scan.zoneName.empty() ? m_zones.OnlyId() : scan.zoneName;
    if (!zoneName.empty()) {
        writing.displayZone = m_zones.Find(scan.insertCalendar, zoneName);
    }
    ChooseNewForm(writing.displayZone ? zoneName : OnlyNamedZone());
}

// A zone that the file neither defines nor names at an event must not be named in it: such new events are in UTC.
void DocumentState::ChooseNewForm(const std::string& zoneName)
{
    TimeForm& form = writing.newForm;
    form.zone = zoneName.empty() ? nullptr : m_zones.Find(writing.calendar, zoneName);
    if (!form.zone) {
        return;
    }
    form.isUtc = !m_zones.Defines(zoneName) && OnlyNamedZone() != zoneName;
    form.tzid = form.isUtc ? "" : zoneName;
    form.zone = form.isUtc ? TimeZone::Utc() : form.zone;
}

// The TZID of all events that name one; empty if there are none or several.
std::string DocumentState::OnlyNamedZone() const
{
    std::string only;
    for (const Entry& entry : m_entries) {
        if (!entry.event || entry.event->startZoneId.empty() || entry.event->startZoneId == only) {
            continue;
        }
        if (!only.empty()) {
            return "";
        }
        only = entry.event->startZoneId;
    }
    return only;
}

bool DocumentState::ReadEvents(MessageLog& log, std::size_t size, const LoadProgress& progress)
{
    EventReader reader(m_zones, log);
    ComponentText text("");
    std::size_t done = 0;
    int events = 0;
    for (Entry& entry : m_entries) {
        done += entry.raw.size();
        if (entry.id == kNoEvent) {
            continue;
        }
        text.Assign(entry.raw, entry.line);
        if (auto event = reader.Read(text, entry.calendar)) {
            event->id = entry.id;
            entry.event = std::move(event);
        }
        if (++events % kEventsBetweenReports == 0 && progress && !progress(done, size)) {
            return false;
        }
    }
    return true;
}

void DocumentState::KeepMessages(const MessageLog& log)
{
    messages = log.Kept();
    std::stable_sort(messages.begin(), messages.end(),
                     [](const Message& a, const Message& b) { return a.line < b.line; });
    if (log.Unkept() > 0) {
        messages.push_back(MakeMessage(messages.back().line, {{"and %1 more", std::to_string(log.Unkept())}}));
    }
}

std::string DocumentState::Save() const
{
    std::string bytes;
    const Entry* last = nullptr; // the last one that was written
    bool isWrapping = false;
    bool lostNeighbour = false; // an event that stood after the last one was deleted
    for (const Entry& entry : m_entries) {
        if (!entry.isLive) {
            lostNeighbour = lostNeighbour || !entry.isCreated;
            continue;
        }
        // An event without END ended where the deleted one began; now it would take in the text after that.
        const bool mustClose = lostNeighbour && entry.id == kNoEvent && last && IsCutOff(*last);
        if ((entry.isCreated || mustClose) && !EndsLine(bytes)) {
            bytes += lineEnding;
        }
        if (mustClose) {
            bytes.append(kEventFoot).append(lineEnding);
        }
        if (entry.isWrapped && !isWrapping) {
            bytes += HeadText(lineEnding);
            isWrapping = true;
        }
        bytes += entry.raw;
        last = &entry;
        lostNeighbour = false;
    }
    if (isWrapping) {
        bytes.append(kCalendarFoot).append(lineEnding);
    }
    return bytes;
}

bool DocumentState::IsCutOff(const Entry& entry)
{
    return entry.id != kNoEvent && ComponentText(entry.raw).Lines().back().depth != 0;
}

EventPtr DocumentState::ReadEvent(const Entry& entry) const
{
    MessageLog unused;
    std::shared_ptr<Event> event = EventReader(m_zones, unused).Read(ComponentText(entry.raw), entry.calendar);
    if (event) {
        event->id = entry.id;
    }
    return event;
}

const Replacements& DocumentState::Replaced() const
{
    if (!m_replaced) {
        m_replaced.emplace();
        for (const Entry& entry : m_entries) {
            if (entry.isLive && entry.event) {
                m_replaced->Add(entry.event);
            }
        }
        m_replaced->Settle();
    }
    return *m_replaced;
}

std::vector<Occurrence> DocumentState::OccurrencesIn(LocalTime from, LocalTime to, bool& isWhole) const
{
    std::vector<Occurrence> occurrences;
    isWhole = true;
    for (const Entry& entry : m_entries) {
        if (entry.isLive && entry.event) {
            isWhole = AppendOccurrences(entry.event, Replaced(), writing.displayZone, from, to, occurrences) && isWhole;
        }
    }
    std::sort(occurrences.begin(), occurrences.end(), [](const Occurrence& a, const Occurrence& b) {
        if (a.times.start != b.times.start) {
            return a.times.start < b.times.start;
        }
        return a.times.end != b.times.end ? a.times.end > b.times.end : a.id < b.id;
    });
    return occurrences;
}

std::optional<Occurrence> DocumentState::Find(const OccurrenceId& id) const
{
    const auto found = m_byId.find(id.event);
    if (found == m_byId.end() || !found->second->isLive || !found->second->event) {
        return std::nullopt;
    }
    return FindOccurrence(found->second->event, Replaced(), writing.displayZone, id.original);
}

std::size_t DocumentState::EventCount() const
{
    return static_cast<std::size_t>(std::count_if(m_entries.begin(), m_entries.end(),
                                                  [](const Entry& entry) { return entry.isLive && entry.event; }));
}

DocumentState::Entry* DocumentState::FindEntry(EventId id)
{
    const auto found = m_byId.find(id);
    return found == m_byId.end() ? nullptr : &*found->second;
}

DocumentState::Entry* DocumentState::SeriesOf(const Event& event)
{
    for (Entry& entry : m_entries) {
        if (entry.isLive && entry.event && entry.event->IsRecurrent() && !entry.event->replaces && !event.uid.empty() &&
            entry.calendar == event.calendar && entry.event->uid == event.uid) {
            return &entry;
        }
    }
    return nullptr;
}

std::vector<DocumentState::EntryRef> DocumentState::Related(const Entry& entry)
{
    std::vector<EntryRef> related;
    for (EntryRef other = m_entries.begin(); other != m_entries.end(); ++other) {
        const bool sameUid = other->event && !entry.event->uid.empty() && other->calendar == entry.calendar &&
                             other->event->uid == entry.event->uid;
        if (other->isLive && (sameUid || &*other == &entry)) {
            related.push_back(other);
        }
    }
    return related;
}

DocumentState::EntryRef DocumentState::Insert(EntryRef before, const std::string& raw, int calendar)
{
    Entry entry;
    entry.raw = raw;
    entry.id = ++m_lastId;
    entry.calendar = calendar;
    entry.isCreated = true;
    entry.isLive = false;
    const EntryRef inserted = m_entries.insert(before, std::move(entry));
    m_byId[m_lastId] = inserted;
    return inserted;
}

DocumentState::EntryRef DocumentState::InsertAfter(const Entry& entry, const std::string& raw)
{
    return Insert(std::next(m_byId.at(entry.id)), raw, entry.calendar);
}

DocumentState::EntryRef DocumentState::InsertNew(const std::string& raw)
{
    const EntryRef place = Insert(m_insertBefore, raw, writing.calendar);
    place->isWrapped = writing.calendar == 0;
    return place;
}

DocumentState::EntryRef DocumentState::InsertZone(const std::string& raw, const ZonePtr& zone)
{
    const EntryRef place = InsertNew(raw);
    place->isZone = true;
    m_zones.Add(writing.calendar, zone);
    return place;
}

std::optional<TimeForm> DocumentState::FormOfZone(const std::string& id) const
{
    TimeForm form;
    form.isUtc = id == TimeZone::Utc()->Id();
    form.tzid = form.isUtc ? "" : id;
    form.zone = id.empty() ? nullptr : form.isUtc ? TimeZone::Utc() : m_zones.Find(writing.calendar, id);
    return id.empty() || (form.zone && (form.isUtc || m_zones.Defines(id))) ? std::optional(form) : std::nullopt;
}

std::vector<std::string> DocumentState::Zones() const
{
    std::vector<std::string> ids = {"", TimeZone::Utc()->Id()};
    for (std::string& id : m_zones.Ids()) {
        if (id != ids[1]) {
            ids.push_back(std::move(id));
        }
    }
    return ids;
}

WritingContext DocumentState::ContextFor(const Entry& entry) const
{
    WritingContext context = writing;
    context.calendar = entry.calendar;
    return context;
}

bool DocumentState::IsUsedUid(const std::string& uid) const
{
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&](const Entry& entry) { return entry.event && entry.event->uid == uid; });
}

void DocumentState::Apply(EventId id, const EntryText& text)
{
    Entry& entry = *FindEntry(id);
    entry.raw = text.raw;
    entry.isLive = text.isLive;
    entry.event = text.isLive && !entry.isZone ? ReadEvent(entry) : nullptr;
    m_replaced.reset();
}

bool DocumentState::Commit(Step step)
{
    bool isReadable = true;
    for (const EntryChange& change : step.changes) {
        Apply(change.id, change.after);
        const Entry& entry = *FindEntry(change.id);
        isReadable = isReadable && (!change.after.isLive || entry.isZone || entry.event);
    }
    if (!isReadable) {
        for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) {
            Apply(change->id, change->before);
        }
        return false;
    }
    undo.Push(std::move(step));
    return true;
}

std::optional<OccurrenceId> DocumentState::Undo()
{
    const Step* step = undo.Undo();
    if (!step) {
        return std::nullopt;
    }
    for (auto change = step->changes.rbegin(); change != step->changes.rend(); ++change) {
        Apply(change->id, change->before);
    }
    return step->idBefore;
}

std::optional<OccurrenceId> DocumentState::Redo()
{
    const Step* step = undo.Redo();
    if (!step) {
        return std::nullopt;
    }
    for (const EntryChange& change : step->changes) {
        Apply(change.id, change.after);
    }
    return step->idAfter;
}

} // namespace dayvane::ical
