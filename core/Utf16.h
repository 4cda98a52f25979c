// UTF-16: characters beyond the basic plane take two units, the halves of a pair.
#pragma once

#include <cstddef>
#include <string_view>

namespace dayvane {

constexpr char16_t kFirstLead = 0xD800; // first halves
constexpr char16_t kFirstTrail = 0xDC00;
constexpr char16_t kEndOfTrails = 0xE000;
constexpr char32_t kFirstPair = 0x10000; // the first character of two units
constexpr int kPairShift = 10;

constexpr bool IsLead(char32_t unit)
{
    return unit >= kFirstLead && unit < kFirstTrail;
}

constexpr bool IsTrail(char32_t unit)
{
    return unit >= kFirstTrail && unit < kEndOfTrails;
}

constexpr bool IsPairAt(std::u16string_view text, std::size_t at)
{
    return IsLead(text[at]) && at + 1 < text.size() && IsTrail(text[at + 1]);
}

// Takes the character at `at` and moves past it; half a pair that stands alone comes as it is.
constexpr char32_t TakeCharacter(std::u16string_view text, std::size_t& at)
{
    if (!IsPairAt(text, at)) {
        return text[at++];
    }
    const char32_t high = static_cast<char32_t>(text[at] - kFirstLead) << kPairShift;
    at += 2;
    return kFirstPair + high + static_cast<char32_t>(text[at - 1] - kFirstTrail);
}

} // namespace dayvane
