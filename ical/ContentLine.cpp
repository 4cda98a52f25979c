#include "ical/ContentLine.h"

#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr std::size_t kFoldOctets = 75;

// The length of the line ending at `at`, 0 if there is none.
std::size_t EndingLength(std::string_view text, std::size_t at)
{
    for (const std::string_view ending : {"\r\n", "\r\r\n", "\n", "\r"}) {
        if (text.compare(at, ending.size(), ending) == 0) {
            return ending.size();
        }
    }
    return 0;
}

// The first line ending at or after `at`, else the end of the text.
std::size_t FindEnding(std::string_view text, std::size_t at)
{
    while (at < text.size() && text[at] != '\r' && text[at] != '\n') {
        ++at;
    }
    return at;
}

bool IsFoldBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool IsNameLetter(char c)
{
    const char upper = UpperLetter(c);
    return (upper >= 'A' && upper <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
}

Parameter ReadParameter(const std::string& text, std::size_t begin, std::size_t end)
{
    const std::string_view written = std::string_view(text).substr(begin + 1, end - begin - 1);
    const std::size_t equals = written.find('=');
    Parameter parameter;
    parameter.begin = begin;
    parameter.end = end;
    parameter.name = UpperText(TrimBlanks(written.substr(0, equals)));
    if (equals != std::string_view::npos) {
        std::string_view value = TrimBlanks(written.substr(equals + 1));
        if (value.size() >= 2 && value.front() == '"' && value.find('"', 1) == value.size() - 1) {
            value = value.substr(1, value.size() - 2);
        }
        parameter.value = value;
    }
    return parameter;
}

// Takes the line apart; false if a quotation mark is not closed or no colon follows.
bool ReadParts(Property& property, bool quotes)
{
    const std::string& text = property.text;
    const std::size_t nameEnd = text.find_first_of(";:");
    std::size_t begin = nameEnd;
    bool quoted = false;
    property.parameters.clear();
    property.hasEmptyParameter = false;
    for (std::size_t at = nameEnd; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"' && quotes) {
            quoted = !quoted;
        } else if (!quoted && (c == ';' || c == ':')) {
            if (at > begin + 1) {
                property.parameters.push_back(ReadParameter(text, begin, at));
            } else if (at > begin) {
                property.hasEmptyParameter = true;
            }
            begin = at;
            if (c == ':') {
                property.valueBegin = at + 1;
                return true;
            }
        }
    }
    return false;
}

} // namespace

bool LineReader::Next(RawLine& line)
{
    if (m_at >= m_text.size()) {
        return false;
    }
    const std::size_t begin = m_at;
    int pieces = 0;
    line.number = m_number;
    do {
        m_at = FindEnding(m_text, m_at);
        if (m_at < m_text.size()) {
            m_at += EndingLength(m_text, m_at);
            ++m_number;
        }
        ++pieces;
    } while (m_at < m_text.size() && IsFoldBlank(m_text[m_at]));
    line.isFolded = pieces > 1;
    line.raw = m_text.substr(begin, m_at - begin);
    return true;
}

std::string Unfold(std::string_view raw)
{
    std::string text;
    text.reserve(raw.size());
    for (std::size_t at = 0; at < raw.size();) {
        const std::size_t end = FindEnding(raw, at);
        text += raw.substr(at, end - at);
        // After an ending inside the line stands the blank that marks the fold.
        at = end < raw.size() ? end + EndingLength(raw, end) + 1 : end;
    }
    return text;
}

std::string_view EndingOf(std::string_view raw)
{
    const std::size_t last = raw.find_last_not_of("\r\n");
    return last == std::string_view::npos ? raw : raw.substr(last + 1);
}

std::string Fold(std::string_view text, std::string_view ending)
{
    std::string folded;
    std::size_t used = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = std::max<std::size_t>(Utf8Length(text, at), 1);
        if (used + length > kFoldOctets) {
            folded += ending;
            folded += ' ';
            used = 1;
        }
        folded += text.substr(at, length);
        used += length;
        at += length;
    }
    folded += ending;
    return folded;
}

const std::string* Property::Find(std::string_view parameterName) const
{
    for (const Parameter& parameter : parameters) {
        if (parameter.name == parameterName) {
            return &parameter.value;
        }
    }
    return nullptr;
}

namespace {

// Takes property.text apart.
bool ReadProperty(Property& property)
{
    const std::string_view text = property.text;
    const std::size_t nameEnd = text.find_first_of(";:");
    if (nameEnd == std::string_view::npos) {
        return false;
    }
    property.name = TrimBlanks(text.substr(0, nameEnd));
    if (property.name.empty() || !std::all_of(property.name.begin(), property.name.end(), IsNameLetter)) {
        return false;
    }
    std::transform(property.name.begin(), property.name.end(), property.name.begin(), UpperLetter);
    property.isBroken = !ReadParts(property, true);
    return !property.isBroken || ReadParts(property, false);
}

} // namespace

std::optional<Property> ParseProperty(std::string text)
{
    Property property;
    property.text = std::move(text);
    return ReadProperty(property) ? std::optional(std::move(property)) : std::nullopt;
}

bool ParseProperty(const RawLine& line, Property& property)
{
    if (line.isFolded) {
        property.text = Unfold(line.raw);
    } else {
        property.text = line.raw.substr(0, line.raw.size() - EndingOf(line.raw).size());
    }
    return ReadProperty(property);
}

} // namespace dayvane::ical
