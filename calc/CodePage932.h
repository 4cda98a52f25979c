// Code page 932 (Shift-JIS as Windows has it) and UTF-8, without asking a system.
#pragma once

#include <string>
#include <string_view>

namespace dayvane {
// False when bytes are not of the code page, or not assigned, or user-defined characters; text then has U+FFFD for
// each.
bool Utf8FromCodePage932(std::string_view bytes, std::string& text);

// False when the text is no UTF-8 or has characters that the code page lacks; bytes then have "?" for each. Of several
// codes of one character it takes the one that Windows takes.
bool CodePage932FromUtf8(std::string_view text, std::string& bytes);
} // namespace dayvane
