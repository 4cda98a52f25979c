#include "ical/CalendarScanner.h"

#include "ical/ComponentText.h"
#include "ical/Text.h"

#include <algorithm>
#include <map>
#include <optional>

namespace dayvane::ical {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The components that stand side by side in a VCALENDAR: none of them holds another.
constexpr std::string_view kSiblingKinds[] = {"VEVENT", "VTODO", "VJOURNAL", "VFREEBUSY", "VTIMEZONE"};

bool IsSiblingKind(std::string_view kind)
{
    return std::find(std::begin(kSiblingKinds), std::end(kSiblingKinds), kind) != std::end(kSiblingKinds);
}

class Scanner
{
public:
    Scanner(std::string_view text, MessageLog& log) : m_text(text), m_log(log) {}

    CalendarScan Run()
    {
        m_at = m_text.substr(0, kByteOrderMark.size()) == kByteOrderMark ? kByteOrderMark.size() : 0;
        LineReader reader(m_text.substr(m_at));
        RawLine line;
        while (reader.Next(line)) {
            ReadLine(line);
            m_at += line.raw.size();
        }
        while (!m_open.empty()) {
            Close(false);
        }
        Cut(m_text.size(), false);
        PlaceNewEvents();
        ReportUnshown();
        return std::move(m_scan);
    }

private:
    struct Open
    {
        std::string kind;
        std::size_t begin; // offset of its BEGIN line
        int line;
    };
    struct Unshown
    {
        int count = 0;
        int firstLine = 0;
    };

    void ReadLine(const RawLine& line)
    {
        m_line = line.number;
        if (InEvent() && !MayBeBeginOrEnd(line.raw.front())) { // most lines of a file; the events' reader sees them
            return;
        }
        const auto property = ParseProperty(Unfold(line.raw));
        if (!property) {
            const std::string text = Unfold(line.raw);
            if (!InEvent() && !TrimBlanks(text).empty()) { // lines of events are reported by their reader
                m_log.Add(m_line, {{"%1 is not a calendar line", Quoted(text)}});
            }
        } else if (property->name == "BEGIN") {
            Begin(UpperText(TrimBlanks(property->Value())));
        } else if (property->name == "END") {
            End(UpperText(TrimBlanks(property->Value())), line.raw.size());
        } else if (IsOutermost() && property->name == "X-WR-TIMEZONE" && m_scan.zoneName.empty()) {
            m_scan.zoneName = TrimBlanks(property->Value());
            m_scan.zoneLine = m_line;
        } else if (IsOutermost() && property->name == "X-WR-CALNAME" && m_scan.name.empty()) {
            m_scan.name = RepairUtf8(UnescapeText(property->Value()));
        }
    }

    static bool MayBeBeginOrEnd(char first)
    {
        const char letter = UpperLetter(first);
        return letter == 'B' || letter == 'E' || letter == ' ' || letter == '\t';
    }

    bool InEvent() const { return m_events > 0; }

    bool IsOutermost() const { return m_open.empty() || m_open.back().kind == "VCALENDAR"; }

    void Begin(const std::string& kind)
    {
        if (kind == "VCALENDAR") {
            while (!m_open.empty()) {
                Close(false);
            }
            m_calendar = ++m_calendars;
        } else if (IsSiblingKind(kind)) {
            const auto isSibling = [](const Open& open) { return IsSiblingKind(open.kind); };
            const auto sibling = std::find_if(m_open.begin(), m_open.end(), isSibling);
            for (auto left = m_open.end() - sibling; left > 0; --left) {
                Close(false);
            }
        }
        if (kind == "VEVENT" && m_open.size() < kMaxOpenComponents) {
            Cut(m_at, false);
            ++m_events;
        } else if (kind != "VCALENDAR" && kind != "VTIMEZONE" && IsOutermost()) {
            Unshown& unshown = m_unshown[kind];
            unshown.firstLine = unshown.count++ == 0 ? m_line : unshown.firstLine;
        }
        if (m_open.size() < kMaxOpenComponents) {
            m_open.push_back({kind, m_at, m_line});
            m_firstUnclosed.reset();
        }
    }

    void End(const std::string& kind, std::size_t lineLength)
    {
        const auto found =
            std::find_if(m_open.rbegin(), m_open.rend(), [&](const Open& open) { return open.kind == kind; });
        if (found == m_open.rend()) {
            m_log.Add(m_line, {{"%1 has no BEGIN", "END:" + Shortened(kind)}});
            return;
        }
        if (kind == "VCALENDAR") {
            // New events go before the END, and before anything that is still open there.
            m_endOfCalendar = found == m_open.rbegin() ? m_at : std::prev(found)->begin;
            m_endedCalendar = m_calendar;
        }
        for (auto left = found - m_open.rbegin(); left > 0; --left) {
            Close(false);
        }
        m_at += lineLength; // the END line belongs to what it ends
        Close(true);
        m_at -= lineLength;
    }

    // Ends the innermost component at the present offset.
    void Close(bool properly)
    {
        const Open open = m_open.back();
        m_open.pop_back();
        if (!properly) {
            m_log.Add(open.line, {{"%1 has no END", "BEGIN:" + Shortened(open.kind)}});
        }
        if (open.kind == "VEVENT") {
            Cut(m_at, true);
            --m_events;
        } else if (open.kind == "VTIMEZONE") {
            if (ZonePtr zone = ReadTimeZone(m_text.substr(open.begin, m_at - open.begin), open.line, m_log)) {
                m_scan.zones.Add(m_calendar, std::move(zone));
            }
        } else if (open.kind == "VCALENDAR") {
            if (!properly) {
                m_endOfCalendar = m_firstUnclosed.value_or(m_at);
                m_endedCalendar = m_calendar;
            }
            m_calendar = 0;
        }
        m_firstUnclosed = properly ? std::nullopt : std::optional<std::size_t>(open.begin);
    }

    // The text up to `end` that is in no passage yet becomes one.
    void Cut(std::size_t end, bool isEvent)
    {
        if (end > m_cutAt) {
            m_scan.passages.push_back({m_text.substr(m_cutAt, end - m_cutAt), m_cutLine, isEvent, m_calendar});
            m_cutAt = end;
        }
        m_cutLine = m_line;
    }

    // Finds or makes the passage boundary at the end of the last VCALENDAR.
    void PlaceNewEvents()
    {
        std::vector<Passage>& passages = m_scan.passages;
        m_scan.insertAt = passages.size();
        m_scan.insertCalendar = m_endedCalendar;
        if (m_endedCalendar == 0) {
            return;
        }
        std::size_t offset = 0;
        for (std::size_t i = 0; i < passages.size(); ++i) {
            const std::size_t end = offset + passages[i].raw.size();
            if (m_endOfCalendar == offset) {
                m_scan.insertAt = i;
                return;
            }
            if (m_endOfCalendar < end) {
                Passage rest = passages[i];
                rest.raw.remove_prefix(m_endOfCalendar - offset);
                passages[i].raw = passages[i].raw.substr(0, m_endOfCalendar - offset);
                m_scan.insertAt = i + 1;
                passages.insert(passages.begin() + static_cast<std::ptrdiff_t>(i) + 1, rest);
                return;
            }
            offset = end;
        }
    }

    void ReportUnshown()
    {
        for (const auto& [kind, unshown] : m_unshown) {
            m_log.Add(unshown.firstLine, {{"%1 is kept but not shown", Shortened(kind)},
                                          {"%1 in the file, the first one here", std::to_string(unshown.count)}});
        }
    }

    std::string_view m_text;
    MessageLog& m_log;
    CalendarScan m_scan;
    std::vector<Open> m_open;
    std::map<std::string, Unshown> m_unshown;
    std::size_t m_at = 0;    // offset of the present line
    int m_line = 1;          // number of the present line
    std::size_t m_cutAt = 0; // where the next passage begins
    int m_cutLine = 1;
    int m_calendar = 0;  // the VCALENDAR that is open
    int m_calendars = 0; // how many there were
    int m_events = 0;    // open VEVENTs
    std::size_t m_endOfCalendar = 0;
    int m_endedCalendar = 0;
    std::optional<std::size_t> m_firstUnclosed; // where the component began that was closed just now without END
};

} // namespace

CalendarScan ScanCalendar(std::string_view text, MessageLog& log)
{
    return Scanner(text, log).Run();
}

} // namespace dayvane::ical
