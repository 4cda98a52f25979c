// The characters beyond the basic plane that a font has, which the wide calls of the system do not tell.
#pragma once

#include <string_view>
#include <vector>

namespace dayvane {

struct CharacterRange
{
    char32_t first;
    char32_t last;
};

// From the bytes of a font's table "cmap"; in order, empty where it has none or is damaged.
std::vector<CharacterRange> RangesBeyondBasicPlane(std::string_view table);

bool HasCharacter(const std::vector<CharacterRange>& ranges, char32_t character);

} // namespace dayvane
