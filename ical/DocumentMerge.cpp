#include "ical/DocumentMerge.h"

#include "ical/DocumentEdits.h"
#include "ical/Text.h"

#include <algorithm>
#include <map>
#include <set>

namespace dayvane::ical {

namespace {

using Entry = DocumentState::Entry;
using EventMap = std::map<std::string, const Entry*>;

// Names an event in every file that has it.
std::string KeyOf(const Entry& entry)
{
    const Event& event = *entry.event;
    if (event.uid.empty()) {
        return "\n\n" + entry.raw;
    }
    return event.uid + "\n" + (event.replaces ? std::to_string(event.replaces->Instant()) : "");
}

bool IsShown(const Entry& entry)
{
    return entry.isLive && entry.event;
}

EventMap EventsOf(const DocumentState& state)
{
    EventMap events;
    for (const Entry& entry : state.Entries()) {
        if (IsShown(entry)) {
            events.emplace(KeyOf(entry), &entry);
        }
    }
    return events;
}

const Entry* FindIn(const EventMap& events, const std::string& key)
{
    const auto found = events.find(key);
    return found == events.end() ? nullptr : found->second;
}

// The file's VTIMEZONE components by TZID.
std::map<std::string, std::string> ZoneTexts(const DocumentState& state)
{
    std::map<std::string, std::string> zones;
    for (const Entry& entry : state.Entries()) {
        if (entry.isLive && !entry.event) {
            std::string zone;
            RawLine line;
            LineReader reader(entry.raw);
            while (reader.Next(line)) {
                const std::string text = UpperText(TrimBlanks(Unfold(line.raw)));
                if (text == "BEGIN:VTIMEZONE") {
                    zone = std::string(line.raw);
                } else if (!zone.empty()) {
                    zone += line.raw;
                }
                if (text == "END:VTIMEZONE" && !zone.empty()) {
                    MessageLog unused;
                    const ZonePtr read = ReadTimeZone(zone, 1, unused);
                    if (read) {
                        zones.emplace(read->Id(), zone);
                    }
                    zone.clear();
                }
            }
        }
    }
    return zones;
}

std::set<std::string> ZonesIn(const ComponentText& text)
{
    std::set<std::string> ids;
    for (const auto& line : text.Lines()) {
        const std::string* id = line.property ? line.property->Find("TZID") : nullptr;
        if (id) {
            ids.insert(*id);
        }
    }
    return ids;
}

// Whether the other form of an event is the newer one.
bool IsNewer(const Entry& other, const Entry& own)
{
    if (other.event->sequence != own.event->sequence) {
        return other.event->sequence > own.event->sequence;
    }
    const auto stamp = [](const Entry& entry) {
        const ComponentText text(entry.raw);
        LocalTime latest = kEarliestTime;
        for (const std::string_view name : {"LAST-MODIFIED", "DTSTAMP"}) {
            const std::size_t line = text.FindLast(name);
            const auto time =
                line == ComponentText::kNone ? std::nullopt : ParseTime(text.Lines()[line].property->Value());
            latest = time ? std::max(latest, time->wall) : latest;
        }
        return latest;
    };
    return stamp(other) > stamp(own);
}

// Collects what comes from another file, then makes it one step.
class Import
{
public:
    Import(DocumentState& state, const DocumentState& other)
        : m_state(state), m_zones(ZoneTexts(other)), m_zoneTable(other.writing.zones)
    {
    }

    void Add(ComponentText text)
    {
        TakeZones(text);
        const std::string raw = ClosedText(text);
        const auto place = m_state.InsertNew(EndingOf(raw).empty() ? raw + m_state.lineEnding : raw);
        m_step.changes.push_back({place->id, {place->raw, false}, {place->raw, true}});
        m_step.idAfter = {place->id, OccurrenceId::kNotRepeated};
        ++report.added;
    }
    void Replace(const Entry& own, ComponentText text)
    {
        TakeZones(text);
        m_step.changes.push_back({own.id, {own.raw, true}, {ClosedText(text), true}});
        m_step.idAfter = {own.id, OccurrenceId::kNotRepeated};
        ++report.replaced;
    }
    void Remove(const Entry& own)
    {
        m_step.changes.push_back({own.id, {own.raw, true}, {own.raw, false}});
        ++report.removed;
    }
    MergeReport Finish()
    {
        report.edit = {true, "", m_step.idAfter};
        if (m_step.changes.empty()) {
            return report;
        }
        const EventId last = m_step.idAfter.event;
        if (!m_state.Commit(std::move(m_step))) {
            report.edit = Refuse("The calendar file cannot hold these items.");
        } else if (const Entry* entry = m_state.FindEntry(last)) {
            const bool repeats = entry->event && entry->event->IsRecurrent() && !entry->event->replaces;
            report.edit.id.original = repeats ? entry->event->start.wall : OccurrenceId::kNotRepeated;
        }
        return report;
    }

    MergeReport report;

private:
    void TakeZones(const ComponentText& text)
    {
        for (const std::string& id : ZonesIn(text)) {
            const auto zone = m_zones.find(id);
            if (zone != m_zones.end() && m_taken.insert(id).second && !m_state.FormOfZone(id)) {
                const auto place = m_state.InsertZone(zone->second, m_zoneTable->Find(0, id));
                m_step.changes.push_back({place->id, {place->raw, false}, {place->raw, true}});
            }
        }
    }

    DocumentState& m_state;
    std::map<std::string, std::string> m_zones;
    const ZoneTable* m_zoneTable;
    std::set<std::string> m_taken;
    DocumentState::Step m_step;
};

// Loads a file whose events are to be taken. False if there is nothing in it that can be read.
bool LoadOther(DocumentState& other, const DocumentState& state, std::string_view bytes)
{
    other.newUid = state.newUid;
    other.utcNow = state.utcNow;
    other.Load(bytes, {});
    return !other.isLocked;
}

constexpr char kNoCalendar[] = "This is no calendar file that can be read.";
constexpr char kLockedFile[] = "This file is in an encoding that cannot be edited here.";

void MergeEvent(Import& import, const Entry& theirs, const Entry* own, const Entry* before, bool hasBase)
{
    if (before && before->raw == theirs.raw) {
        return; // only here it may have changed
    }
    if (!own) {
        if (before) { // deleted here, changed there
            import.report.conflicts.push_back(theirs.event->summary);
        }
        import.Add(ComponentText(theirs.raw));
    } else if (own->raw != theirs.raw) {
        const bool isOwnChange = !hasBase || !before || before->raw != own->raw;
        if (isOwnChange) {
            import.report.conflicts.push_back(theirs.event->summary);
        }
        if (!isOwnChange || IsNewer(theirs, *own)) {
            import.Replace(*own, ComponentText(theirs.raw));
        }
    }
}

} // namespace

MergeReport MergeInto(DocumentState& state, std::string_view other, std::optional<std::string_view> base)
{
    DocumentState theirs, before;
    if (state.isLocked || !LoadOther(theirs, state, other) || (base && !LoadOther(before, state, *base))) {
        return {Refuse(state.isLocked ? kLockedFile : kNoCalendar), 0, 0, 0, {}};
    }
    const EventMap own = EventsOf(state);
    const EventMap theirEvents = EventsOf(theirs);
    const EventMap baseEvents = base ? EventsOf(before) : EventMap();
    Import import(state, theirs);
    for (const Entry& entry : theirs.Entries()) {
        if (IsShown(entry) && FindIn(theirEvents, KeyOf(entry)) == &entry) {
            const std::string key = KeyOf(entry);
            MergeEvent(import, entry, FindIn(own, key), FindIn(baseEvents, key), base.has_value());
        }
    }
    for (const auto& [key, entry] : baseEvents) {
        const Entry* mine = FindIn(own, key);
        if (mine && !FindIn(theirEvents, key)) { // deleted there
            if (mine->raw == entry->raw) {
                import.Remove(*mine);
            } else {
                import.report.conflicts.push_back(mine->event->summary);
            }
        }
    }
    return import.Finish();
}

MergeReport PasteInto(DocumentState& state, std::string_view other, std::optional<LocalTime> start)
{
    DocumentState theirs;
    if (state.isLocked || !LoadOther(theirs, state, other)) {
        return {Refuse(state.isLocked ? kLockedFile : kNoCalendar), 0, 0, 0, {}};
    }
    bool isWhole = true;
    std::map<EventId, Occurrence> singles;
    LocalTime first = kEndOfTime;
    for (const Occurrence& each : theirs.OccurrencesIn(kEarliestTime, kEndOfTime, isWhole)) {
        if (!each.event->IsRecurrent() && !each.event->replaces) {
            singles.emplace(each.id.event, each);
            first = std::min(first, each.times.start);
        }
    }
    LocalTime shift = start ? *start - first : 0;
    if (start && *start % kDaySeconds == 0) { // a day: times of day stay
        shift = (DayOfTime(*start) - DayOfTime(first)) * kDaySeconds;
    }
    Import import(state, theirs);
    std::map<std::string, std::string> uids;
    for (const Entry& entry : theirs.Entries()) {
        if (!IsShown(entry)) {
            continue;
        }
        ComponentText text(entry.raw);
        std::string& uid = uids[entry.event->uid.empty() ? entry.raw : entry.event->uid];
        uid = uid.empty() ? UnusedUid(state) : uid;
        text.RemoveAll("UID");
        text.InsertAfter(0, "UID:" + EscapeText(uid));
        const auto single = singles.find(entry.id);
        if (single != singles.end() && shift != 0) {
            EventTimes times = single->second.times;
            times.start += shift;
            times.end += shift;
            SetTimes(text, times, &single->second, theirs.ContextFor(entry));
        }
        import.Add(text);
    }
    return import.Finish();
}

std::string ExcerptOf(const DocumentState& state, const std::vector<OccurrenceId>& ids, ExcerptForm form)
{
    std::vector<ComponentText> events;
    std::set<EventId> taken;
    for (const OccurrenceId& id : ids) {
        const auto occurrence = state.Find(id);
        for (const Entry& entry : state.Entries()) {
            if (!occurrence || !IsShown(entry)) {
                continue;
            }
            const Event& event = *occurrence->event;
            const bool isSame = entry.id == id.event;
            const bool isRelated =
                entry.calendar == event.calendar && !event.uid.empty() && entry.event->uid == event.uid;
            if (form == ExcerptForm::WholeEvents && (isSame || isRelated) && taken.insert(entry.id).second) {
                events.emplace_back(entry.raw);
            } else if (form == ExcerptForm::Occurrences && isSame) {
                ComponentText text(entry.raw);
                MakeSingle(text, UnusedUid(state), state.utcNow());
                SetTimes(text, occurrence->times, &*occurrence, state.ContextFor(entry));
                events.push_back(std::move(text));
            }
        }
    }
    std::set<std::string> zones;
    std::string body;
    for (ComponentText& event : events) {
        zones.merge(ZonesIn(event));
        const std::string text = ClosedText(event);
        body += EndingOf(text).empty() ? text + state.lineEnding : text;
    }
    std::string head = HeadText(state.lineEnding);
    for (const auto& [id, text] : ZoneTexts(state)) {
        head += zones.count(id) != 0 ? text : "";
    }
    return head + body + "END:VCALENDAR" + state.lineEnding;
}

} // namespace dayvane::ical
