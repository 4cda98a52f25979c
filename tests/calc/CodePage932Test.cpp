// Code page 932 against the compiler's texts, broken bytes, and every code against the system's own conversion.
#include "calc/CodePage932.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {
using namespace dayvane;

TEST(CodePage932, TextsOfTheCompilerAndBack)
{
    const std::pair<const char*, const char*> texts[] = {
        {"", u8""},
        {"New Year\\~", u8"New Year\\~"},
        {"国民の祝日・休日月日,元日", u8"国民の祝日・休日月日,元日"},
        {"休日（祝日扱い）", u8"休日（祝日扱い）"},
        {"ソ表十能―～∥－￢①Ⅳ㈱｡ｶﾅﾟ熙黑纊", u8"ソ表十能―～∥－￢①Ⅳ㈱｡ｶﾅﾟ熙黑纊"},
    };
    for (const auto& [bytes, utf8] : texts) {
        std::string text, back;
        EXPECT_TRUE(Utf8FromCodePage932(bytes, text));
        EXPECT_EQ(text, utf8);
        EXPECT_TRUE(CodePage932FromUtf8(utf8, back));
        EXPECT_EQ(back, bytes);
    }
}

TEST(CodePage932, WhatIsMissingIsMarked)
{
    const std::pair<std::string_view, const char*> bytes[] = {
        {"a\x8c", u8"a\uFFFD"},    {"\x8c,b", u8"\uFFFD,b"},    {"\x80\xA0\xFF", u8"\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x40", u8"\uFFFD@"}, {"\x85\x41z", u8"\uFFFDAz"}, {"\x8c\x7f", u8"\uFFFD\x7f"},
    };
    for (const auto& [broken, marked] : bytes) {
        std::string text;
        EXPECT_FALSE(Utf8FromCodePage932(broken, text));
        EXPECT_EQ(text, marked);
    }
    std::string back;
    const char* const mixed = u8"ä日\U0001F600";
    EXPECT_FALSE(CodePage932FromUtf8(mixed, back));
    EXPECT_EQ(back, "?日?");
    EXPECT_FALSE(CodePage932FromUtf8("\xE6\x97", back));
    EXPECT_EQ(back, "??");
}

#ifdef _WIN32
// The system also maps user-defined characters and single bytes of no character to private ones, which do not count.
TEST(CodePage932, EveryCodeIsTheSystems)
{
    int assigned = 0;
    for (int code = 1; code <= 0xFFFF; ++code) {
        const char pair[] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
        const std::string_view bytes(code > 0xFF ? pair : pair + 1, code > 0xFF ? 2 : 1);
        wchar_t wide[3] = {};
        const int length = MultiByteToWideChar(932, MB_ERR_INVALID_CHARS, bytes.data(), bytes.size(), wide, 3);
        const bool isPrivate = wide[0] >= 0xE000 && wide[0] < 0xF900;
        const bool isControl = wide[0] >= 0x80 && wide[0] <= 0xA0;
        if (code > 0xFF && length != 1) {
            continue; // two characters of one byte, or none
        }
        std::string text, back;
        const bool isKnown = Utf8FromCodePage932(bytes, text);
        ASSERT_EQ(isKnown, length == 1 && !isPrivate && !isControl) << std::hex << code;
        if (!isKnown) {
            continue;
        }
        ++assigned;
        char utf8[8] = {};
        WideCharToMultiByte(CP_UTF8, 0, wide, 1, utf8, sizeof utf8, nullptr, nullptr);
        ASSERT_EQ(text, utf8) << std::hex << code;
        char narrow[4] = {};
        WideCharToMultiByte(932, 0, wide, 1, narrow, sizeof narrow, nullptr, nullptr);
        ASSERT_TRUE(CodePage932FromUtf8(text, back));
        ASSERT_EQ(back, narrow) << std::hex << code;
    }
    EXPECT_EQ(assigned, 127 + 63 + 7724); // without user-defined characters; CP932.TXT
}
#endif
} // namespace
