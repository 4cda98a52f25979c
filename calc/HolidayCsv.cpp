#include "calc/HolidayCsv.h"

#include "calc/CodePage932.h"
#include "calc/Utf8.h"

#include <algorithm>
#include <cstddef>

namespace dayvane {
namespace {
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r";
constexpr size_t kLongestName = 200;

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool IsUtf8(std::string_view bytes)
{
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    char32_t character = 0;
    while (TakeUtf8(at, end, character)) {
    }
    return at == end;
}

std::string_view Trimmed(std::string_view text)
{
    const size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view WithoutQuotes(std::string_view field)
{
    field = Trimmed(field);
    const bool isQuoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
    return isQuoted ? Trimmed(field.substr(1, field.size() - 2)) : field;
}

// Takes a number of so many digits at most from the front; -1 when there is none.
int TakeNumber(std::string_view& text, size_t mostDigits)
{
    int number = 0;
    size_t digits = 0;
    while (digits < text.size() && digits < mostDigits && IsDigit(text[digits])) {
        number = number * 10 + (text[digits++] - '0');
    }
    text.remove_prefix(digits);
    return digits > 0 ? number : -1;
}

bool TakeSeparator(std::string_view& text)
{
    const bool found = !text.empty() && (text.front() == '/' || text.front() == '-');
    text.remove_prefix(found ? 1 : 0);
    return found;
}

bool ReadDate(std::string_view text, CivilDate& date)
{
    date.year = TakeNumber(text, 4);
    bool isWhole = TakeSeparator(text);
    date.month = TakeNumber(text, 2);
    isWhole = TakeSeparator(text) && isWhole;
    date.day = TakeNumber(text, 2);
    return isWhole && text.empty() && civil::IsValid(date.year, date.month, date.day);
}

bool IsName(std::string_view name)
{
    return !name.empty() && name.size() <= kLongestName && std::none_of(name.begin(), name.end(), [](char character) {
        return static_cast<unsigned char>(character) < ' ' || character == '\x7F';
    });
}

// What a line that is not blank says; false with the fault when it must be left out.
bool ReadLine(const std::string& line, ListedHoliday& holiday, CsvFault& fault)
{
    const std::string_view text = line;
    const size_t comma = text.find(',');
    const size_t nextComma = comma == std::string_view::npos ? std::string_view::npos : text.find(',', comma + 1);
    const std::string_view rest = nextComma == std::string_view::npos ? std::string_view() : text.substr(nextComma);
    if (comma == std::string_view::npos || rest.find_first_not_of(", \t\r") != std::string_view::npos) {
        fault = CsvFault::Fields;
        return false;
    }
    if (!ReadDate(WithoutQuotes(text.substr(0, comma)), holiday.date)) {
        fault = CsvFault::Date;
        return false;
    }
    const std::string_view name = WithoutQuotes(text.substr(comma + 1, nextComma - comma - 1));
    if (!IsName(name)) {
        fault = CsvFault::Name;
        return false;
    }
    holiday.name = name;
    return true;
}

// Sorts by date, and leaves out the later of two lines of one date. lines: those of the holidays.
void OrderByDate(HolidayList& list, const std::vector<int>& lines)
{
    std::vector<size_t> order(list.holidays.size());
    for (size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::stable_sort(order.begin(), order.end(), [&list](size_t a, size_t b) {
        return SerialDayOf(list.holidays[a].date) < SerialDayOf(list.holidays[b].date);
    });
    std::vector<ListedHoliday> ordered;
    for (const size_t i : order) {
        if (!ordered.empty() && ordered.back().date == list.holidays[i].date) {
            list.problems.push_back({lines[i], CsvFault::DateTwice});
        } else {
            ordered.push_back(std::move(list.holidays[i]));
        }
    }
    list.holidays = std::move(ordered);
    std::sort(list.problems.begin(), list.problems.end(),
              [](const CsvProblem& a, const CsvProblem& b) { return a.line < b.line; });
}
} // namespace

HolidayList ReadHolidayCsv(std::string_view bytes)
{
    HolidayList list;
    std::vector<int> lines;
    if (bytes.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        bytes.remove_prefix(kByteOrderMark.size());
    }
    const bool isUtf8 = IsUtf8(bytes);
    for (int line = 1; !bytes.empty(); ++line) {
        const size_t length = std::min(bytes.find('\n'), bytes.size());
        const std::string_view raw = Trimmed(bytes.substr(0, length));
        bytes.remove_prefix(std::min(length + 1, bytes.size()));
        const size_t firstCharacter = raw.find_first_not_of('"');
        const bool isHeader = line == 1 && firstCharacter != std::string_view::npos && !IsDigit(raw[firstCharacter]);
        if (raw.empty() || isHeader) {
            continue;
        }
        std::string text(raw);
        ListedHoliday holiday;
        CsvFault fault = CsvFault::Encoding;
        if ((isUtf8 || Utf8FromCodePage932(raw, text)) && ReadLine(text, holiday, fault)) {
            list.holidays.push_back(std::move(holiday));
            lines.push_back(line);
        } else {
            list.problems.push_back({line, fault});
        }
    }
    OrderByDate(list, lines);
    return list;
}
} // namespace dayvane
