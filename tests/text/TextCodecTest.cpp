// Bytes to UTF-16 and back: broken bytes are marked and never lost.
#include "core/TextCodec.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace dayvane;

namespace {

bool IsSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xE000;
}

bool HasHalfPair(const std::u16string& text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsSurrogate(text[i])) {
            if (text[i] >= 0xDC00 || i + 1 == text.size() || text[i + 1] < 0xDC00 || text[i + 1] >= 0xE000) {
                return true;
            }
            ++i;
        }
    }
    return false;
}

// Pieces of characters of every length, whole and broken, so that random texts are full of both.
class RandomTexts
{
public:
    int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }
    std::string Bytes()
    {
        const std::string pieces[] = {"a",
                                      " ",
                                      "\xC3\xA9",
                                      "\xE6\xBC\xA2",
                                      "\xF0\x9F\x98\x80",
                                      "\xE6",
                                      "\xE6\xBC",
                                      "\x80",
                                      "\xBF",
                                      "\xF0\x9F",
                                      "\xED\xA0\x80",
                                      "\xC0",
                                      "\xFF",
                                      "\x89\xEF",
                                      "\xF4\x90\x80\x80",
                                      "\x81"};
        std::string bytes;
        for (int i = Below(8); i > 0; --i) {
            bytes += pieces[Below(16)];
        }
        return bytes;
    }
    std::u16string Typed()
    {
        const char16_t* const words[] = {u"", u"x", u"é", u"漢字", u"😀", u"?"};
        return words[Below(6)];
    }

private:
    std::mt19937 m_random{20261122};
};

} // namespace

TEST(TextCodec, Utf8AsTheStandardReadsIt)
{
    const struct
    {
        std::string bytes;
        std::u16string text;
    } rows[] = {
        {"Caf\xC3\xA9 \xE6\xBC\xA2\xF0\x9F\x98\x80", u"Café 漢😀"},
        {"a\xE3\x81", u"a\xFFFD"}, // half a character at the end
        {"\xE3\x81"
         "b\x82",
         u"\xFFFD"
         u"b\xFFFD"},
        {"\xF0\x80\x80\x41", u"\xFFFD\xFFFD\xFFFD"
                             u"A"},                                  // none of these could become a character
        {"\xED\xA0\x80\xC0\xAF", u"\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD"}, // a surrogate, an overlong form
        // Table 3-8 of the Unicode standard
        {"a\xF1\x80\x80\xE1\x80\xC2"
         "b\x80"
         "c\x80\xBF"
         "d",
         u"a\xFFFD\xFFFD\xFFFD"
         u"b\xFFFD"
         u"c\xFFFD\xFFFD"
         u"d"},
        {std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(DecodeText(row.bytes, kUtf8CodePage), row.text) << row.bytes;
    }
    const std::vector<char> exact = {'a', '\xE3', '\x81'}; // behind it lies nothing that may be read
    EXPECT_EQ(DecodeText(std::string_view(exact.data(), exact.size()), kUtf8CodePage), u"a\xFFFD");
    const std::u16string mixed = u"é漢😀"; // asserted texts go through variables: the compiler's page cannot spell them
    EXPECT_EQ(EncodeText(mixed, kUtf8CodePage), "\xC3\xA9\xE6\xBC\xA2\xF0\x9F\x98\x80");
    EXPECT_EQ(EncodeText(std::u16string(1, 0xD83D), kUtf8CodePage), "\xEF\xBF\xBD");
    EXPECT_TRUE(HoldsText(mixed, kUtf8CodePage));
    for (const char16_t half : {u'\xD83D', u'\xDE00'}) {
        EXPECT_FALSE(HoldsText(std::u16string(1, half), kUtf8CodePage));
        EXPECT_FALSE(HoldsText(mixed + half, kUtf8CodePage)) << "after a pair";
    }
}

TEST(TextCodec, TheLibrarysOwnPage)
{
    const std::string meeting = "\x89\xEF\x8B\x63 A";
    EXPECT_EQ(DecodeText(meeting, kOwnCodePage), u"会議 A");
    EXPECT_EQ(EncodeText(u"会議 A", kOwnCodePage), meeting);
    EXPECT_NE(DecodeText(std::string("\x80"), kOwnCodePage), u"\xFF80") << "no sign of the byte";
    EXPECT_TRUE(HoldsText(u"会議", kOwnCodePage));
    const std::u16string korean = u"한";
    EXPECT_FALSE(HoldsText(korean, kOwnCodePage));
    EXPECT_EQ(EncodeText(korean, kOwnCodePage), "?");
}

TEST(TextCodec, EditsKeepTheBytesOfWhatWasNotEdited)
{
    const struct
    {
        std::string before;
        std::u16string edited;
        unsigned codePage;
        std::string after;
    } rows[] = {
        {"a\xE3 b\x81", u"a\xFFFD b\xFFFD", kUtf8CodePage, "a\xE3 b\x81"},
        {"a\xE3 b\x81", u"a\xFFFD new b\xFFFD", kUtf8CodePage, "a\xE3 new b\x81"},
        {"\xE3"
         "x\x81\x82",
         u"\xFFFD\xFFFD\xFFFD", kUtf8CodePage, "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"}, // not a third
        {"\x93\xFA\x96\x7B", u"日x本", kOwnCodePage, "\x93\xFAx\x96\x7B"},
        {"\x96\x7B", u"{", kOwnCodePage, "{"}, // the second byte of 本 is no brace of its own
        {"", u"new", kOwnCodePage, "new"},
        {"old", u"", kUtf8CodePage, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(EncodeEdited(row.before, row.edited, row.codePage), row.after) << row.before;
    }
    const std::string broken = "\x89\xEF\x8B\x63\x80"; // two characters and a byte that is none
    EXPECT_EQ(EncodeEdited(broken, DecodeText(broken, kOwnCodePage) + u"!", kOwnCodePage), broken + "!");
}

TEST(TextCodec, RandomBytesGoThroughUnharmed)
{
    RandomTexts random;
    for (int round = 0; round < 20000; ++round) {
        const std::string bytes = random.Bytes();
        for (const unsigned codePage : {kUtf8CodePage, kOwnCodePage}) {
            const std::u16string text = DecodeText(bytes, codePage);
            ASSERT_FALSE(HasHalfPair(text));
            ASSERT_EQ(EncodeEdited(bytes, text, codePage), bytes) << "an edit that changed nothing";
            const std::size_t at = static_cast<std::size_t>(random.Below(static_cast<int>(text.size()) + 1));
            if (at < text.size() && text[at] >= 0xDC00 && text[at] < 0xE000) {
                continue; // nobody types between the halves of a pair
            }
            std::u16string edited = text.substr(0, at) + random.Typed() + text.substr(at);
            const std::string after = EncodeEdited(bytes, edited, codePage);
            if (DecodeText(after, codePage) != edited) { // no bytes of the page read so
                ASSERT_EQ(DecodeText(after, codePage), DecodeText(EncodeText(edited, codePage), codePage));
            }
        }
        const std::u16string text = DecodeText(bytes, kUtf8CodePage);
        ASSERT_EQ(DecodeText(EncodeText(text, kUtf8CodePage), kUtf8CodePage), text);
    }
}
