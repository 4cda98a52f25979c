#pragma once

#include <string>
#include <string_view>

namespace planner {

// Between the UTF-8 of calendar files and the code page in which the controls show text. The windows part implements it
// (see Utf16FromUtf8 in Text.h for the way to and from UTF-16); characters that the code page lacks are shown as some
// mark of its choice. Both ways must work character by character.
class CodePageText
{
public:
    virtual ~CodePageText() = default;
    virtual std::string FromUtf8(std::string_view text) const = 0;
    virtual std::string ToUtf8(std::string_view text) const = 0;
};

// Whether the text comes back unchanged from the code page.
bool HoldsText(const CodePageText& codePage, std::string_view utf8);

// The text, as UTF-8, that a user made by editing what was shown of `before`. Characters at both ends that the user
// left as they were shown are taken from `before`, so those that the code page could not show survive the edit.
std::string MergeEditedText(const CodePageText& codePage, std::string_view before, std::string_view editedShown);

} // namespace planner
