#include "planner/Search.h"

#include "ical/Text.h"

#include <algorithm>
#include <map>

namespace planner {

namespace {

char16_t FoldedCharacter(char16_t c)
{
    struct Range
    {
        char16_t first, last;
        int shift;
    };
    // Capitals, full-width ASCII (folded once more) and katakana
    static constexpr Range ranges[] = {
        {u'A', u'Z', 0x20},        {0x00C0, 0x00D6, 0x20},  {0x00D8, 0x00DE, 0x20},          {0x0391, 0x03A9, 0x20},
        {0x0410, 0x042F, 0x20},    {0x0400, 0x040F, 0x50},  {0xFF21, 0xFF3A, -0xFEC0},       {0xFF01, 0xFF20, -0xFEE0},
        {0xFF3B, 0xFF5E, -0xFEE0}, {0x30A1, 0x30F6, -0x60}, {0x3000, 0x3000, 0x20 - 0x3000},
    };
    for (const Range& range : ranges) {
        if (c >= range.first && c <= range.last) {
            return static_cast<char16_t>(c + range.shift);
        }
    }
    return c;
}

std::vector<std::u16string> WordsOf(std::string_view query)
{
    std::vector<std::u16string> words(1);
    for (const char16_t c : Folded(query)) {
        if (c != u' ') {
            words.back() += c;
        } else if (!words.back().empty()) {
            words.emplace_back();
        }
    }
    if (words.back().empty()) {
        words.pop_back();
    }
    return words;
}

bool HasAll(const Event& event, const std::vector<std::u16string>& words)
{
    std::string text = event.summary + "\n" + event.location + "\n" + event.description;
    for (const std::string& category : event.categories) {
        text += "\n" + category;
    }
    const std::u16string folded = Folded(text);
    return std::all_of(words.begin(), words.end(),
                       [&](const std::u16string& word) { return folded.find(word) != std::u16string::npos; });
}

} // namespace

std::u16string Folded(std::string_view utf8)
{
    std::u16string text = Utf16FromUtf8(utf8);
    std::transform(text.begin(), text.end(), text.begin(), FoldedCharacter);
    return text;
}

bool Fits(const Event& event, std::string_view query)
{
    const std::vector<std::u16string> words = WordsOf(query);
    return !words.empty() && HasAll(event, words);
}

std::vector<Occurrence> Search(const CalendarSet& calendars, std::string_view query, LocalTime now)
{
    const std::vector<std::u16string> words = WordsOf(query);
    if (words.empty()) {
        return {};
    }
    std::map<EventId, bool> fits; // by event, as far as they were asked
    std::map<EventId, Occurrence> found;
    for (const Occurrence& each : calendars.OccurrencesIn(kEarliestTime, kEndOfTime)) {
        const auto [known, isNew] = fits.emplace(each.id.event, false);
        if (isNew) {
            known->second = HasAll(*each.event, words);
        }
        if (!known->second) {
            continue;
        }
        const auto [kept, isFirst] = found.emplace(each.id.event, each);
        if (!isFirst && kept->second.times.start < now) { // a later one is nearer
            kept->second = each;
        }
    }
    std::vector<Occurrence> sorted;
    for (auto& [event, occurrence] : found) {
        sorted.push_back(std::move(occurrence));
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Occurrence& a, const Occurrence& b) { return a.times.start < b.times.start; });
    return sorted;
}

} // namespace planner
