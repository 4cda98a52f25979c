#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The lines of a calendar file (RFC 5545, section 3.1): logical lines with their folds, and name;parameters:value.
namespace dayvane::ical {

// One logical line as it stands in the file: fold marks and line ending included. A line that begins with a blank or a
// tab continues the line before it. CRLF, LF, lone CR and CR CR LF end a line.
struct RawLine
{
    std::string_view raw;
    int number = 1; // of its first physical line
    bool isFolded = false;
};

class LineReader
{
public:
    explicit LineReader(std::string_view text, int firstLine = 1) : m_text(text), m_number(firstLine) {}
    // False at the end of the text. The lines, put together, are the text.
    bool Next(RawLine& line);

private:
    std::string_view m_text;
    std::size_t m_at = 0;
    int m_number;
};

// The line without folds and ending.
std::string Unfold(std::string_view raw);
// The line ending at the end of `raw`, which is empty for a last line that has none.
std::string_view EndingOf(std::string_view raw);
// Folds a logical line at 75 octets, never inside a UTF-8 sequence, and ends it with `ending`.
std::string Fold(std::string_view text, std::string_view ending);

struct Parameter
{
    std::string name;               // upper case
    std::string value;              // without quotation marks; a list stays one string
    std::size_t begin = 0, end = 0; // of the whole ";NAME=value" in the property's text
};

struct Property
{
    std::string name; // upper case
    std::vector<Parameter> parameters;
    std::string text; // the whole unfolded line
    std::size_t valueBegin = 0;
    bool hasEmptyParameter = false; // two semicolons, or a semicolon before the colon
    bool isBroken = false; // a quotation mark is not closed: the parameters are read as if it were an ordinary letter

    std::string_view Value() const { return std::string_view(text).substr(valueBegin); }
    // The value of the first parameter of that name, nullptr if there is none.
    const std::string* Find(std::string_view parameterName) const;
};

// Nothing if the line has no colon or no name before it.
std::optional<Property> ParseProperty(std::string text);
// The same into a property that was there before, whose memory is used again; false where there is none.
bool ParseProperty(const RawLine& line, Property& property);

} // namespace dayvane::ical
