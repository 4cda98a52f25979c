#include "CalendarTesting.h"

#include "ical/CalendarScanner.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <random>

namespace dayvane::ical {
namespace {

// Everything that the reader knows, in one file.
std::string RichCalendar()
{
    return Joined({"BEGIN:VCALENDAR",
                   "VERSION:2.0",
                   "X-WR-TIMEZONE:Own/Zone",
                   "BEGIN:VTIMEZONE",
                   "TZID:Own/Zone",
                   "BEGIN:STANDARD",
                   "DTSTART:20001029T030000",
                   "TZOFFSETFROM:+0200",
                   "TZOFFSETTO:+0100",
                   "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU",
                   "END:STANDARD",
                   "BEGIN:DAYLIGHT",
                   "DTSTART:20000326T020000",
                   "TZOFFSETFROM:+0100",
                   "TZOFFSETTO:+0200",
                   "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU",
                   "END:DAYLIGHT",
                   "END:VTIMEZONE",
                   "BEGIN:VEVENT",
                   "UID:1",
                   "DTSTART;TZID=Own/Zone:20261102T090000",
                   "DURATION:PT1H30M",
                   "RRULE:FREQ=WEEKLY;BYDAY=MO,WE;UNTIL=20270131T230000Z",
                   "EXDATE;TZID=Own/Zone:20261109T090000",
                   "SUMMARY;LANGUAGE=ja:\xE4\xBC\x9A\xE8\xAD\xB0\\, A",
                   "BEGIN:VALARM",
                   "TRIGGER:-PT10M",
                   "END:VALARM",
                   "END:VEVENT",
                   "BEGIN:VEVENT",
                   "UID:1",
                   "RECURRENCE-ID;TZID=Own/Zone:20261111T090000",
                   "DTSTART;TZID=\"Own/Zone\":20261111T130000",
                   "DTEND;TZID=Own/Zone:20261111T140000",
                   "SUMMARY:moved",
                   "END:VEVENT",
                   "BEGIN:VTODO",
                   "DUE:20261130",
                   "END:VTODO",
                   "BEGIN:VEVENT",
                   "UID:2",
                   "DTSTART;VALUE=DATE:20261120",
                   "DTEND;VALUE=DATE:20261123",
                   "CATEGORIES:A,B",
                   "X-LONG:1234567890123456789",
                   " 0123456789",
                   "END:VEVENT",
                   "BEGIN:VEVENT",
                   "UID:3",
                   "DTSTART:20261125T100000Z",
                   "RRULE:FREQ=MONTHLY;BYDAY=-1FR;COUNT=5",
                   "RDATE;VALUE=PERIOD:20261201T100000Z/PT2H",
                   "END:VEVENT",
                   "BEGIN:VEVENT",
                   "DTSTART:20261130T080000",
                   "DTEND:20261130T090000",
                   "END:VEVENT",
                   "END:VCALENDAR"});
}

class Fuzz
{
public:
    explicit Fuzz(unsigned seed) : m_random(seed) {}

    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    std::size_t At(const std::string& text) { return static_cast<std::size_t>(Pick(0, static_cast<int>(text.size()))); }

    void Mutate(std::string& text)
    {
        static const char* const pieces[] = {"\r\n",
                                             "\n ",
                                             ":",
                                             ";",
                                             "\"",
                                             ",",
                                             "BEGIN:VEVENT\r\n",
                                             "END:VEVENT\r\n",
                                             "\r\nBEGIN:X",
                                             "END:VCALENDAR\r\n",
                                             "99999999",
                                             "0",
                                             "-",
                                             "\xFF",
                                             "Z",
                                             "=",
                                             "RRULE:FREQ=DAILY\r\n",
                                             "DTSTART:20261105\r\n",
                                             "BEGIN:VCALENDAR\r\n"};
        const std::size_t at = At(text);
        switch (Pick(0, 4)) {
        case 0:
            text.insert(at, pieces[Pick(0, static_cast<int>(std::size(pieces)) - 1)]);
            break;
        case 1:
            text.erase(at, static_cast<std::size_t>(Pick(1, 30)));
            break;
        case 2:
            text.insert(At(text), text.substr(at, static_cast<std::size_t>(Pick(1, 200))));
            break;
        case 3:
            if (at < text.size()) {
                text[at] = static_cast<char>(Pick(0, 255));
            }
            break;
        default:
            if (Pick(0, 9) == 0) {
                text.resize(at);
            }
            break;
        }
    }

    EventTimes Times()
    {
        EventTimes times;
        times.isAllDay = Pick(0, 2) == 0;
        times.start = DayOfDate(2026, 11, Pick(1, 60)) * kDaySeconds + (times.isAllDay ? 0 : Pick(0, 95) * 900);
        times.end = times.start + (times.isAllDay ? Pick(1, 5) * kDaySeconds : Pick(0, 40) * 900);
        return times;
    }

    EditResult Edit(Document& document, const std::vector<Occurrence>& occurrences)
    {
        const EventTimes times = Times();
        if (occurrences.empty()) {
            return document.Create(times, "new");
        }
        const Occurrence& chosen =
            occurrences[static_cast<std::size_t>(Pick(0, static_cast<int>(occurrences.size()) - 1))];
        const OccurrenceId id = chosen.id;
        edited = chosen.event;
        const Scope scope = static_cast<Scope>(Pick(0, 2));
        switch (Pick(0, 4)) {
        case 0:
            return document.Move(id, times, scope);
        case 1:
            return document.SetText(id, TextField::Summary, "edited " + std::to_string(Pick(0, 999)), scope);
        case 2:
            return document.Delete(id, scope);
        case 3:
            return document.Copy(id, times);
        default:
            return document.Create(times, "new");
        }
    }

    EventPtr edited; // by the last Edit; nullptr: nothing that was there

private:
    std::mt19937 m_random;
};

std::vector<Occurrence> Autumn(const Document& document)
{
    return document.OccurrencesIn(DayOfDate(2026, 10, 1) * kDaySeconds, DayOfDate(2027, 2, 1) * kDaySeconds);
}

std::vector<std::string> PassagesOf(const std::string& text)
{
    MessageLog log;
    std::vector<std::string> passages;
    std::string between;
    for (const Passage& passage : ScanCalendar(text, log).passages) {
        if (passage.isEvent) {
            passages.push_back(std::move(between));
            between.clear();
            passages.emplace_back(passage.raw);
        } else {
            between += passage.raw;
        }
    }
    passages.push_back(between);
    return passages;
}

// An edit of a sound file changes no event but those of the edited one's UID, and nothing between events.
TEST(Fuzz, EditsTouchOneUid)
{
    const std::string original = RichCalendar();
    const std::vector<std::string> before = PassagesOf(original);
    const auto between = [](const std::vector<std::string>& passages) {
        std::string text;
        for (std::size_t i = 0; i < passages.size(); i += 2) {
            text += passages[i];
        }
        return text;
    };
    int done = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        Fuzz fuzz(seed);
        Document document(CountedUids("new"));
        document.Load(original);
        ASSERT_TRUE(document.Messages().size() == 1) << AllMessages(document); // the to-do
        const EditResult result = fuzz.Edit(document, Autumn(document));
        done += result.isDone;
        ASSERT_EQ(result.isDone, result.problem.empty());
        const std::vector<std::string> after = PassagesOf(document.Save());
        ASSERT_EQ(between(after), between(before)) << "seed " << seed << ": " << document.Save();
        for (std::size_t i = 1; i < before.size(); i += 2) {
            const bool isEdited = fuzz.edited && before[i].find("UID:" + fuzz.edited->uid) != std::string::npos;
            const bool isKept = std::find(after.begin(), after.end(), before[i]) != after.end();
            const bool hasNoUid = fuzz.edited && fuzz.edited->uid.empty();
            ASSERT_TRUE(isKept || (result.isDone && (isEdited || hasNoUid))) << "seed " << seed << document.Save();
        }
    }
    EXPECT_GT(done, 300);
}

// Broken files load, save alike, take edits, save what they show, and undo to the first byte.
TEST(Fuzz, BrokenFilesStayWhole)
{
    int edits = 0;
    for (unsigned seed = 0; seed < 200; ++seed) {
        Fuzz fuzz(seed);
        std::string text = RichCalendar();
        for (int n = fuzz.Pick(1, 12); n > 0; --n) {
            fuzz.Mutate(text);
        }
        Document document(CountedUids("new"));
        document.Load(text);
        ASSERT_EQ(document.Save(), text) << "seed " << seed;
        AllMessages(document); // checks their forms
        for (const Message& message : document.Messages()) {
            ASSERT_GE(message.line, 1) << message.text;
        }
        for (int n = 0; n < 4; ++n) {
            edits += fuzz.Edit(document, Autumn(document)).isDone;
            Document again;
            again.Load(document.Save());
            ASSERT_EQ(Shown(Autumn(again)), Shown(Autumn(document))) << "seed " << seed << "\n" << document.Save();
        }
        const std::string edited = document.Save();
        while (document.CanUndo()) {
            document.Undo();
        }
        ASSERT_EQ(document.Save(), text) << "seed " << seed;
        while (document.CanRedo()) {
            document.Redo();
        }
        ASSERT_EQ(document.Save(), edited) << "seed " << seed;
    }
    EXPECT_GT(edits, 600); // most files still offer something to edit
}

std::string Repeated(int times, const std::string& text)
{
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

// Work grows with the size of the file, whatever it says; a hundredfold is left for sanitizers and busy machines.
TEST(Fuzz, HostileFilesEnd)
{
    const auto event = [](const std::string& lines) { return "BEGIN:VEVENT\nUID:1\n" + lines + "END:VEVENT\n"; };
    const struct
    {
        const char* name;
        std::string text;
    } rows[] = {
        {"deep nesting", Repeated(30000, "BEGIN:A\n") + Repeated(30000, "END:B\n")},
        {"deep nesting in an event",
         event("DTSTART:20261101\n" + Repeated(30000, "BEGIN:A\n") + Repeated(30000, "END:B\n"))},
        {"line endings only", Repeated(500000, "\r")},
        {"one folded line", "X:" + Repeated(200000, "\n ")},
        {"counted rules", Repeated(2000, event("DTSTART:19000101\nRRULE:FREQ=DAILY;BYDAY=MO;COUNT=4999\n"))},
        {"rules of seconds", Repeated(100, event("DTSTART:20000101T000000\nRRULE:FREQ=SECONDLY\n"))},
        {"rules of seconds without days",
         Repeated(100, event("DTSTART:20000101T000000\nRRULE:FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30;COUNT=9\n"))},
        {"rules without days",
         Repeated(500, event("DTSTART:01000101\nRRULE:FREQ=DAILY;BYMONTH=2;BYMONTHDAY=31;COUNT=9\n"))},
        {"long occurrences", Repeated(2000, event("DTSTART:20000101\nDURATION:P9999W\nRRULE:FREQ=DAILY\n"))},
        {"date lists", event("DTSTART:20261101\nRDATE:20261105" + Repeated(50000, ",20261105") + "\nEXDATE:20261106" +
                             Repeated(50000, ",20261106") + "\n")},
        {"replacements", Repeated(3000, event("DTSTART:20261101\nRECURRENCE-ID:20261101\n"))},
        {"zones", Repeated(5000, "BEGIN:VTIMEZONE\nTZID:Z\nBEGIN:STANDARD\nDTSTART:01000101T000000\nTZOFFSETTO:+0100\n"
                                 "RRULE:FREQ=DAILY\nEND:STANDARD\nEND:VTIMEZONE\n")},
        {"plain events", Repeated(20000, event("DTSTART:20261101T090000\nDTEND:20261101T100000\n"))},
    };
    for (const auto& row : rows) {
        const auto begin = std::chrono::steady_clock::now();
        Document document;
        document.Load(row.text);
        Autumn(document);
        EXPECT_EQ(document.Save(), row.text) << row.name;
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
        EXPECT_LT(seconds.count(), 30) << row.name;
        RecordProperty(row.name, std::to_string(seconds.count()));
    }
}

std::string OfficeFile()
{
    std::ifstream file(SAMPLE_DATA "/office.ics", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(OfficeCalendar, IsReadWholeAndBusy)
{
    const std::string text = OfficeFile();
    ASSERT_GT(text.size(), 10000u);
    Document document;
    document.Load(text);
    EXPECT_EQ(AllMessages(document), "");
    EXPECT_EQ(document.Save(), text);
    EXPECT_FALSE(document.Name().empty());
    const auto on = [&](int month, int day) {
        const LocalTime begin = DayOfDate(2026, month, day) * kDaySeconds;
        return document.OccurrencesIn(begin, begin + kDaySeconds);
    };
    EXPECT_GE(on(11, 20).size(), 8u); // more than a box of the month shows
    EXPECT_GE(on(12, 15).size(), 5u);
    // The weekly meeting has moved from the 25th to the 26th; what is written in UTC shows the office's clock.
    const std::string moved = Shown(on(11, 25));
    EXPECT_EQ(moved.find("20261125T1000"), std::string::npos) << moved;
    EXPECT_NE(moved.find("20261125T0800/20261125T0900"), std::string::npos) << moved;
    EXPECT_NE(Shown(on(11, 26)).find("20261126T1500/20261126T1600"), std::string::npos);
    // Nobody meets on a holiday.
    EXPECT_EQ(Shown(on(11, 23)), "20261116/20261128*");
}

} // namespace
} // namespace dayvane::ical
