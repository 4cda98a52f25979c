#include "ical/Text.h"

#include <algorithm>
#include <cstdint>

namespace dayvane::ical {

namespace {

constexpr char kReplacementUtf8[] = "\xEF\xBF\xBD";
constexpr std::size_t kShortBytes = 60;
constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstSurrogate = 0xD800;
constexpr char32_t kFirstLowSurrogate = 0xDC00;
constexpr char32_t kLastSurrogate = 0xDFFF;
constexpr char32_t kFirstBeyond16Bits = 0x10000;
constexpr char32_t kLastCharacter = 0x10FFFF;

// One row for each length of a UTF-8 sequence.
struct SequenceForm
{
    std::uint8_t leadMask;
    std::uint8_t leadBits;
    char32_t firstCharacter; // smaller ones have a shorter form
};
constexpr SequenceForm kSequenceForms[] = {
    // mask  bits  first
    {0x80, 0x00, 0},
    {0xE0, 0xC0, 0x80},
    {0xF0, 0xE0, 0x800},
    {0xF8, 0xF0, 0x10000},
};

// The character at `at` and its length in bytes; length 0 if it is malformed.
char32_t DecodeAt(std::string_view text, std::size_t at, std::size_t& length)
{
    const auto lead = static_cast<std::uint8_t>(text[at]);
    length = 0;
    for (std::size_t tail = 0; tail < 4; ++tail) {
        const SequenceForm& form = kSequenceForms[tail];
        if ((lead & form.leadMask) != form.leadBits) {
            continue;
        }
        char32_t character = lead & static_cast<std::uint8_t>(~form.leadMask);
        if (at + tail >= text.size()) {
            return kReplacement;
        }
        for (std::size_t i = 1; i <= tail; ++i) {
            const auto byte = static_cast<std::uint8_t>(text[at + i]);
            if ((byte & 0xC0) != 0x80) {
                return kReplacement;
            }
            character = character << 6 | (byte & 0x3F);
        }
        const bool surrogate = character >= kFirstSurrogate && character <= kLastSurrogate;
        if (character < form.firstCharacter || character > kLastCharacter || surrogate) {
            return kReplacement;
        }
        length = tail + 1;
        return character;
    }
    return kReplacement;
}

void AppendUtf8(std::string& text, char32_t character)
{
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else if (character < kFirstBeyond16Bits) {
        text += static_cast<char>(0xE0 | character >> 12);
        text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xF0 | character >> 18);
        text += static_cast<char>(0x80 | (character >> 12 & 0x3F));
        text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

} // namespace

std::string UpperText(std::string_view text)
{
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperLetter);
    return upper;
}

bool SameWord(std::string_view a, std::string_view b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return UpperLetter(x) == UpperLetter(y); });
}

std::string_view TrimBlanks(std::string_view text)
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::vector<std::string_view> SplitAt(std::string_view text, char separator)
{
    std::vector<std::string_view> pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + 1);
    }
}

std::size_t Utf8Length(std::string_view text, std::size_t at)
{
    if (static_cast<std::uint8_t>(text[at]) < 0x80) { // nearly all
        return 1;
    }
    std::size_t length = 0;
    DecodeAt(text, at, length);
    return length;
}

bool IsUtf8(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = Utf8Length(text, at);
        if (length == 0) {
            return false;
        }
        at += length;
    }
    return true;
}

bool IsPlainText(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

std::string RepairUtf8(std::string_view text)
{
    if (IsPlainText(text)) {
        return std::string(text);
    }
    std::string repaired;
    repaired.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = Utf8Length(text, at);
        const auto byte = static_cast<std::uint8_t>(text[at]);
        if (length == 0) {
            repaired += kReplacementUtf8;
        } else if (length == 1 && ((byte < 0x20 && byte != '\n' && byte != '\t') || byte == 0x7F)) {
            repaired += ' ';
        } else {
            repaired += text.substr(at, length);
        }
        at += std::max<std::size_t>(length, 1);
    }
    return repaired;
}

std::u16string Utf16FromUtf8(std::string_view text)
{
    std::u16string wide;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t length = 0;
        const char32_t character = DecodeAt(text, at, length);
        if (character >= kFirstBeyond16Bits) {
            const char32_t rest = character - kFirstBeyond16Bits;
            wide += static_cast<char16_t>(kFirstSurrogate + (rest >> 10));
            wide += static_cast<char16_t>(kFirstLowSurrogate + (rest & 0x3FF));
        } else {
            wide += static_cast<char16_t>(character);
        }
        at += std::max<std::size_t>(length, 1);
    }
    return wide;
}

std::string Utf8FromUtf16(std::u16string_view text)
{
    std::string narrow;
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t character = text[at];
        if (character >= kFirstSurrogate && character <= kLastSurrogate) {
            const bool paired = character < kFirstLowSurrogate && at + 1 < text.size() &&
                                text[at + 1] >= kFirstLowSurrogate && text[at + 1] <= kLastSurrogate;
            character = paired ? kFirstBeyond16Bits + ((character - kFirstSurrogate) << 10) +
                                     (text[at + 1] - kFirstLowSurrogate)
                               : kReplacement;
            at += paired ? 1 : 0;
        }
        AppendUtf8(narrow, character);
    }
    return narrow;
}

std::string Shortened(std::string_view value)
{
    std::size_t end = 0;
    while (end < value.size() && end < kShortBytes) {
        end += std::max<std::size_t>(Utf8Length(value, end), 1);
    }
    std::string text = RepairUtf8(value.substr(0, end));
    std::replace(text.begin(), text.end(), '\n', ' ');
    return end < value.size() ? text + "..." : text;
}

std::string Quoted(std::string_view value)
{
    return '"' + Shortened(value) + '"';
}

std::string UnescapeText(std::string_view value)
{
    if (value.find('\\') == std::string_view::npos) {
        return std::string(value);
    }
    std::string text;
    text.reserve(value.size());
    for (std::size_t at = 0; at < value.size(); ++at) {
        const char next = value[at] == '\\' && at + 1 < value.size() ? value[at + 1] : '\0';
        if (next == 'n' || next == 'N') {
            text += '\n';
            ++at;
        } else if (next == ',' || next == ';' || next == '\\') {
            text += next;
            ++at;
        } else {
            text += value[at];
        }
    }
    return text;
}

std::string EscapeText(std::string_view text)
{
    std::string value;
    value.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '\r' || c == '\n') {
            value += "\\n";
            at += c == '\r' && at + 1 < text.size() && text[at + 1] == '\n' ? 1 : 0;
        } else {
            if (c == ',' || c == ';' || c == '\\') {
                value += '\\';
            }
            value += c;
        }
    }
    return value;
}

std::vector<std::string> SplitTextList(std::string_view value)
{
    std::vector<std::string> pieces;
    std::size_t begin = 0;
    for (std::size_t at = 0; at <= value.size(); ++at) {
        if (at == value.size() || value[at] == ',') {
            pieces.push_back(UnescapeText(value.substr(begin, at - begin)));
            begin = at + 1;
        } else if (value[at] == '\\') {
            ++at;
        }
    }
    if (begin < value.size()) { // the value ends in a lone backslash
        pieces.push_back(UnescapeText(value.substr(begin)));
    }
    return pieces;
}

} // namespace dayvane::ical
