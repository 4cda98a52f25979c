#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Bytes and characters of calendar files: ASCII case, blanks, UTF-8 and the escapes of text values.
namespace dayvane::ical {

constexpr char UpperLetter(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string UpperText(std::string_view text);          // ASCII letters only
bool SameWord(std::string_view a, std::string_view b); // ASCII letters compare without case
std::string_view TrimBlanks(std::string_view text);
std::vector<std::string_view> SplitAt(std::string_view text, char separator); // "" gives one empty piece

// The length of the well-formed UTF-8 sequence that begins at `at` (1 to 4), 0 if the bytes there are not one.
std::size_t Utf8Length(std::string_view text, std::size_t at);
bool IsUtf8(std::string_view text);
// The text with each byte that belongs to no sequence replaced by U+FFFD, and with control characters other than tab
// and line feed replaced by blanks; so the result is valid UTF-8 without NULs.
std::string RepairUtf8(std::string_view text);
// Whether it is ASCII without control characters, as most texts are: then there is nothing to repair.
bool IsPlainText(std::string_view text);
// Invalid parts of the input become U+FFFD; the other way, lone surrogates do.
std::u16string Utf16FromUtf8(std::string_view text);
std::string Utf8FromUtf16(std::u16string_view text);

// A value for a message: repaired, on one line, cut after about 60 bytes; with and without quotation marks.
std::string Shortened(std::string_view value);
std::string Quoted(std::string_view value);

// Text values: \n \N \, \; \\ and their reverse. An unknown escape stays as it is written. Escaping takes CR, LF and
// CRLF as one line break each.
std::string UnescapeText(std::string_view value);
std::string EscapeText(std::string_view text);
// The unescaped pieces of a list of text values.
std::vector<std::string> SplitTextList(std::string_view value);

} // namespace dayvane::ical
