#include "ical/Document.h"

#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr std::string_view kCalendarHead[] = {"BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//Dayvane//Planner//EN"};
constexpr std::string_view kCalendarFoot = "END:VCALENDAR";
constexpr std::string_view kEventFoot = "END:VEVENT";
constexpr std::string_view kDefaultEnding = "\r\n";

std::string HeadText(std::string_view ending)
{
    std::string text;
    for (const std::string_view line : kCalendarHead) {
        text.append(line).append(ending);
    }
    return text;
}

bool IsUtf16(std::string_view bytes)
{
    return bytes.substr(0, 2) == "\xFF\xFE" || bytes.substr(0, 2) == "\xFE\xFF";
}

bool EndsLine(const std::string& text)
{
    return text.empty() || text.back() == '\n' || text.back() == '\r';
}

} // namespace

Document::Document(UidSource newUid) : m_newUid(std::move(newUid))
{
    Clear();
}

void Document::Clear()
{
    Load(HeadText(kDefaultEnding).append(kCalendarFoot).append(kDefaultEnding));
}

void Document::Load(std::string_view bytes)
{
    MessageLog log;
    m_isLocked = IsUtf16(bytes);
    CalendarScan scan;
    if (m_isLocked) {
        log.Add(1, "the file is in UTF-16, which calendar files never are: it is not read");
        scan.passages.push_back({bytes, 1, false, 0});
        scan.insertAt = 1;
    } else {
        scan = ScanCalendar(bytes, log);
    }
    m_entries.clear();
    m_byId.clear();
    m_lastId = kNoEvent;
    m_undo = {};
    m_replaced.reset();
    m_name = std::move(scan.name);
    m_zones = std::move(scan.zones);
    RawLine firstLine;
    LineReader(bytes).Next(firstLine);
    m_ending = EndingOf(firstLine.raw.empty() ? kDefaultEnding : firstLine.raw);
    m_ending = m_ending.empty() ? kDefaultEnding : m_ending;
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
    ChooseClock(scan);
    if (!scan.zoneName.empty() && !m_writing.displayZone) {
        log.Add(scan.zoneLine,
                "the calendar's time zone " + Quoted(scan.zoneName) + " is not defined: times are shown as written");
    }
    ReadEvents(log);
    SortMessages(log);
}

void Document::ChooseClock(const CalendarScan& scan)
{
    m_writing = {};
    m_writing.zones = &m_zones;
    m_writing.calendar = scan.insertCalendar;
    const std::string zoneName = scan.zoneName.empty() ? m_zones.OnlyId() : scan.zoneName;
    if (zoneName.empty()) {
        return;
    }
    m_writing.displayZone = m_zones.Find(scan.insertCalendar, zoneName);
    if (!m_writing.displayZone) {
        return;
    }
    // A zone that the file does not define must not be named in it: such new events are written in UTC.
    TimeForm& form = m_writing.newForm;
    form.isUtc = !m_zones.Defines(zoneName);
    form.tzid = form.isUtc ? "" : zoneName;
    form.zone = form.isUtc ? TimeZone::Utc() : m_writing.displayZone;
}

void Document::ReadEvents(MessageLog& log)
{
    EventReader reader(m_zones, log);
    for (Entry& entry : m_entries) {
        if (entry.id != kNoEvent) {
            if (auto event = reader.Read(ComponentText(entry.raw, entry.line), entry.calendar)) {
                event->id = entry.id;
                entry.event = std::move(event);
            }
        }
    }
}

void Document::SortMessages(MessageLog& log)
{
    m_messages = log.Kept();
    std::stable_sort(m_messages.begin(), m_messages.end(),
                     [](const Message& a, const Message& b) { return a.line < b.line; });
    if (log.Unkept() > 0) {
        m_messages.push_back({m_messages.back().line, "and " + std::to_string(log.Unkept()) + " more"});
    }
}

std::string Document::Save() const
{
    std::string bytes;
    const Entry* last = nullptr; // the last one that was written
    bool isWrapping = false;
    bool lostNeighbour = false; // an event that stood behind the last one was deleted
    for (const Entry& entry : m_entries) {
        if (!entry.isLive) {
            lostNeighbour = lostNeighbour || !entry.isCreated;
            continue;
        }
        // An event without END ended where the deleted one began; now it would take in the text behind.
        const bool mustClose = lostNeighbour && entry.id == kNoEvent && last && IsCutOff(*last);
        if ((entry.isCreated || mustClose) && !EndsLine(bytes)) {
            bytes += m_ending;
        }
        if (mustClose) {
            bytes.append(kEventFoot).append(m_ending);
        }
        if (entry.isWrapped && !isWrapping) {
            bytes += HeadText(m_ending);
            isWrapping = true;
        }
        bytes += entry.raw;
        last = &entry;
        lostNeighbour = false;
    }
    if (isWrapping) {
        bytes.append(kCalendarFoot).append(m_ending);
    }
    return bytes;
}

bool Document::IsCutOff(const Entry& entry)
{
    return entry.id != kNoEvent && ComponentText(entry.raw).Lines().back().depth != 0;
}

EventPtr Document::ReadEvent(const Entry& entry) const
{
    MessageLog unused;
    std::shared_ptr<Event> event = EventReader(m_zones, unused).Read(ComponentText(entry.raw), entry.calendar);
    if (event) {
        event->id = entry.id;
    }
    return event;
}

const ReplacedTimes& Document::Replaced() const
{
    if (!m_replaced) {
        m_replaced.emplace();
        for (const Entry& entry : m_entries) {
            if (entry.isLive && entry.event && entry.event->replaces && !entry.event->uid.empty()) {
                (*m_replaced)[{entry.calendar, entry.event->uid}].push_back(*entry.event->replaces);
            }
        }
    }
    return *m_replaced;
}

std::vector<Occurrence> Document::OccurrencesIn(LocalTime from, LocalTime to) const
{
    std::vector<Occurrence> occurrences;
    for (const Entry& entry : m_entries) {
        if (entry.isLive && entry.event) {
            AppendOccurrences(entry.event, Replaced(), m_writing.displayZone, from, to, occurrences);
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

std::optional<Occurrence> Document::Find(const OccurrenceId& id) const
{
    const auto found = m_byId.find(id.event);
    if (found == m_byId.end() || !found->second->isLive || !found->second->event) {
        return std::nullopt;
    }
    return FindOccurrence(found->second->event, Replaced(), m_writing.displayZone, id.original);
}

std::size_t Document::EventCount() const
{
    return static_cast<std::size_t>(std::count_if(m_entries.begin(), m_entries.end(),
                                                  [](const Entry& entry) { return entry.isLive && entry.event; }));
}

} // namespace dayvane::ical
