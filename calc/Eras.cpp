#include "calc/Eras.h"

#include "calc/Utf8.h"

#include <algorithm>
#include <array>

namespace dayvane {
namespace {
// First days: Meiji by the edict of 23 October 1868, which made the whole lunar year that had begun on 25 January its
// first; Taisho and Showa by the edicts of 30 July 1912 and 25 December 1926 ("from this day on"); Heisei by Cabinet
// Order 1 of 1989 and Reiwa by Cabinet Order 143 of 2019 (the day after, and the accession).
struct EraRow
{
    const char* name;
    const char* sign;
    const char* ligature;
    const char* english;
    CivilDate firstDay;
};
constexpr EraRow kEras[] = {
    {u8"明治", u8"明", u8"㍾", "Meiji", {1868, 1, 25}},  {u8"大正", u8"大", u8"㍽", "Taisho", {1912, 7, 30}},
    {u8"昭和", u8"昭", u8"㍼", "Showa", {1926, 12, 25}}, {u8"平成", u8"平", u8"㍻", "Heisei", {1989, 1, 8}},
    {u8"令和", u8"令", u8"㋿", "Reiwa", {2019, 5, 1}},
};

constexpr int kFirstGregorianYear = 1873; // Meiji 6, by Edict 337 of 1872
constexpr int kDigitsOfNumber = 4;
constexpr const char* kEnglishMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                          "July",    "August",   "September", "October", "November", "December"};

bool IsEarlier(const CivilDate& a, const CivilDate& b)
{
    return SerialDayOf(a) < SerialDayOf(b);
}

// The text with full-width letters, digits and signs made ASCII, and no spaces; empty when it is no UTF-8.
std::u32string PlainCharacters(const std::string& text)
{
    std::u32string plain;
    const char* at = text.data();
    const char* const end = at + text.size();
    char32_t character = 0;
    while (TakeUtf8(at, end, character)) {
        if (character >= 0xFF01 && character <= 0xFF5E) {
            character -= 0xFF01 - '!';
        }
        if (character != ' ' && character != '\t' && character != 0x3000) {
            plain += character;
        }
    }
    return at == end ? plain : std::u32string();
}

// Reads a text from its front.
class Reader
{
public:
    explicit Reader(const std::string& text) : m_text(PlainCharacters(text)) {}

    bool IsAtEnd() const { return m_at == m_text.size(); }

    bool Take(char32_t character)
    {
        const bool found = m_at < m_text.size() && m_text[m_at] == character;
        m_at += found ? 1 : 0;
        return found;
    }

    // The sign of a part, or one of those that stand for it.
    bool TakeSeparator(char32_t sign) { return Take(sign) || Take('.') || Take('/') || Take('-'); }

    bool TakeText(const std::string& text)
    {
        const std::u32string wanted = PlainCharacters(text);
        const bool found = !wanted.empty() && m_text.compare(m_at, wanted.size(), wanted) == 0;
        m_at += found ? wanted.size() : 0;
        return found;
    }

    bool TakeInitial(char initial)
    {
        return Take(static_cast<unsigned char>(initial)) || Take(static_cast<unsigned char>(initial | 0x20));
    }

    // A number of 1 to 9999; -1 when there is none.
    int TakeNumber()
    {
        int number = 0;
        int digits = -1; // not yet added, for a multiplier may follow; -1: none
        int characters = 0;
        for (; m_at < m_text.size(); ++m_at, ++characters) {
            const char32_t character = m_text[m_at];
            const int digit = DigitOf(character);
            if (digit >= 0) {
                digits = std::max(digits, 0) * 10 + digit;
            } else if (character == U'十' || character == U'百') {
                number += (digits < 0 ? 1 : digits) * (character == U'十' ? 10 : 100);
                digits = -1;
            } else {
                break;
            }
            if (characters == kDigitsOfNumber) {
                return -1;
            }
        }
        number += std::max(digits, 0);
        return number > 0 && number < 10000 ? number : -1;
    }

private:
    static int DigitOf(char32_t character)
    {
        constexpr char32_t kChineseDigits[] = {U'〇', U'一', U'二', U'三', U'四', U'五', U'六', U'七', U'八', U'九'};
        if (character >= '0' && character <= '9') {
            return static_cast<int>(character - '0');
        }
        const auto* const found = std::find(std::begin(kChineseDigits), std::end(kChineseDigits), character);
        return found == std::end(kChineseDigits) ? -1 : static_cast<int>(found - std::begin(kChineseDigits));
    }

    std::u32string m_text;
    size_t m_at = 0;
};

// Which parts a text has after its era, and their numbers.
EraParts TakeParts(Reader& reader, std::array<int, 3>& numbers)
{
    numbers = {reader.Take(U'元') ? 1 : reader.TakeNumber(), 1, 1};
    if (numbers[0] < 0) {
        return EraParts::None;
    }
    if (!reader.TakeSeparator(U'年') || reader.IsAtEnd()) {
        return EraParts::Year;
    }
    numbers[1] = reader.TakeNumber();
    if (!reader.TakeSeparator(U'月') || reader.IsAtEnd()) {
        return EraParts::Month;
    }
    numbers[2] = reader.TakeNumber();
    reader.Take(U'日');
    return EraParts::Day;
}
} // namespace

EraTable::EraTable()
{
    for (const EraRow& row : kEras) {
        Add({row.name, row.sign, row.ligature, row.english, row.english[0], row.firstDay});
    }
}

bool EraTable::Add(const Era& era)
{
    const bool isValid = !era.name.empty() && era.initial >= 'A' && era.initial <= 'Z' &&
                         civil::IsValid(era.firstDay.year, era.firstDay.month, era.firstDay.day);
    if (!isValid || (!m_eras.empty() && !IsEarlier(m_eras.back().firstDay, era.firstDay))) {
        return false;
    }
    m_eras.push_back(era);
    return true;
}

bool EraTable::AddSystemEntry(const std::string& firstDay, const std::string& names)
{
    constexpr size_t kLengthOfDay = 10; // "2019 05 01"
    Era era;
    CivilDate& day = era.firstDay;
    const auto number = [&firstDay](size_t at, size_t digits) {
        int value = 0;
        for (size_t i = at; i < at + digits; ++i) {
            const bool isDigit = firstDay[i] >= '0' && firstDay[i] <= '9';
            value = isDigit && value >= 0 ? value * 10 + (firstDay[i] - '0') : -1;
        }
        return value;
    };
    if (firstDay.size() != kLengthOfDay) {
        return false;
    }
    day = {number(0, 4), number(5, 2), number(8, 2)};
    std::vector<std::string> parts(1);
    for (const char character : names) {
        if (character == '_') {
            parts.emplace_back();
        } else {
            parts.back() += character;
        }
    }
    if (parts.size() != 4 || parts[3].empty()) {
        return false;
    }
    era.name = parts[0];
    era.sign = parts[1];
    era.english = parts[2];
    era.initial = parts[3][0];
    return Add(era);
}

EraYear EraTable::YearOf(const CivilDate& date) const
{
    EraYear result;
    if (!date.IsValid()) {
        return result;
    }
    for (const Era& era : m_eras) {
        if (!IsEarlier(date, era.firstDay)) {
            result = {&era, date.year - era.firstDay.year + 1, date.year < kFirstGregorianYear};
        }
    }
    return result;
}

std::string EraTable::Format(const CivilDate& date, EraStyle style) const
{
    const EraYear year = YearOf(date);
    if (!year.era) {
        return {};
    }
    const std::string number = std::to_string(year.year);
    const std::string month = std::to_string(date.month);
    const std::string day = std::to_string(date.day);
    if (style == EraStyle::Short) {
        return year.era->initial + number + "." + month + "." + day;
    }
    if (style == EraStyle::English) {
        return day + " " + kEnglishMonths[date.month - 1] + ", " + year.era->english + " " + number;
    }
    std::string text = year.era->name + (year.year == 1 ? u8"元" : number) + u8"年";
    if (style != EraStyle::LongYear) {
        text += month + u8"月";
    }
    return style == EraStyle::Long ? text + day + u8"日" : text;
}

EraDate EraTable::Parse(const std::string& text) const
{
    Reader reader(text);
    const auto era = std::find_if(m_eras.rbegin(), m_eras.rend(), [&reader](const Era& candidate) {
        return reader.TakeText(candidate.name) || reader.TakeText(candidate.sign) ||
               reader.TakeText(candidate.ligature) || reader.TakeInitial(candidate.initial);
    });
    if (era == m_eras.rend()) {
        return {};
    }
    std::array<int, 3> numbers = {};
    EraDate result;
    result.parts = TakeParts(reader, numbers);
    result.date = {era->firstDay.year + numbers[0] - 1, numbers[1], numbers[2]};
    if (result.parts == EraParts::None || !reader.IsAtEnd() ||
        !civil::IsValid(result.date.year, result.date.month, result.date.day)) {
        return {};
    }
    // A part that begins before the era, as its first year does, stands for the days of it that the era has.
    const bool isFirstYear = numbers[0] == 1;
    const bool isOfFirstMonth = isFirstYear && numbers[1] == era->firstDay.month;
    if ((result.parts == EraParts::Year && isFirstYear) || (result.parts == EraParts::Month && isOfFirstMonth)) {
        result.date = era->firstDay;
    }
    result.isOutsideEra = YearOf(result.date).era != &*era;
    result.isBeforeGregorian = result.date.year < kFirstGregorianYear;
    return result;
}
} // namespace dayvane
