#include "planner/CodePageText.h"

#include "ical/Text.h"
#include "planner/Calendar.h"

#include <algorithm>
#include <vector>

namespace planner {

bool HoldsText(const CodePageText& codePage, std::string_view utf8)
{
    return codePage.ToUtf8(codePage.FromUtf8(utf8)) == utf8;
}

std::string MergeEditedText(const CodePageText& codePage, std::string_view before, std::string_view editedShown)
{
    struct Character
    {
        std::string_view utf8;
        std::string shown;
    };
    std::vector<Character> characters;
    for (std::size_t at = 0; at < before.size();) {
        const std::size_t length = std::max<std::size_t>(Utf8Length(before, at), 1);
        characters.push_back({before.substr(at, length), codePage.FromUtf8(before.substr(at, length))});
        at += length;
    }
    std::string head, tail;
    std::string_view rest = editedShown;
    std::size_t first = 0;
    while (first < characters.size() && rest.substr(0, characters[first].shown.size()) == characters[first].shown) {
        head += characters[first].utf8;
        rest.remove_prefix(characters[first].shown.size());
        ++first;
    }
    // A trail byte of the text in between may look like a whole character, so the end is found from the characters of
    // the rest, not from its bytes.
    const std::string restUtf8 = codePage.ToUtf8(rest);
    std::string_view middle = restUtf8;
    for (std::size_t last = characters.size(); last > first; --last) {
        const Character& character = characters[last - 1];
        const std::string asRead = codePage.ToUtf8(character.shown);
        if (asRead.size() > middle.size() || middle.substr(middle.size() - asRead.size()) != asRead) {
            break;
        }
        tail.insert(0, character.utf8);
        middle.remove_suffix(asRead.size());
    }
    return head.append(middle).append(tail);
}

} // namespace planner
