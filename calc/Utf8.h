// UTF-8, one character at a time.
#pragma once

#include <string>

namespace dayvane {
// Takes one character from the front of [text, end) and moves text after it. False, and text unmoved, at the end and
// where the bytes are no UTF-8 (overlong forms, surrogates and numbers beyond 10FFFF included).
inline bool TakeUtf8(const char*& text, const char* end, char32_t& character)
{
    if (text == end) {
        return false;
    }
    const unsigned lead = static_cast<unsigned char>(*text);
    if (lead < 0x80) {
        character = lead;
        ++text;
        return true;
    }
    const int more = lead >= 0xC2 && lead < 0xE0 ? 1 : (lead & 0xF0) == 0xE0 ? 2 : lead >= 0xF0 && lead < 0xF5 ? 3 : 0;
    if (more == 0 || end - text <= more) {
        return false;
    }
    char32_t value = lead & (0x3F >> more);
    for (int i = 1; i <= more; ++i) {
        const unsigned byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80) {
            return false;
        }
        value = value << 6 | (byte & 0x3F);
    }
    const char32_t least = more == 1 ? 0x80 : more == 2 ? 0x800 : 0x10000;
    if (value < least || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000)) {
        return false;
    }
    character = value;
    text += more + 1;
    return true;
}

// The character must be none of the surrogates and at most 10FFFF.
inline void AppendUtf8(std::string& text, char32_t character)
{
    const auto append = [&text](char32_t bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
    if (character < 0x80) {
        append(character);
        return;
    }
    if (character < 0x800) {
        append(0xC0 | character >> 6);
    } else {
        if (character < 0x10000) {
            append(0xE0 | character >> 12);
        } else {
            append(0xF0 | character >> 18);
            append(0x80 | (character >> 12 & 0x3F));
        }
        append(0x80 | (character >> 6 & 0x3F));
    }
    append(0x80 | (character & 0x3F));
}
} // namespace dayvane
