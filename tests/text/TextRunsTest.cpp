// Runs of faces and lines of mixed texts, without a device.
#include "core/TextRuns.h"

#include <gtest/gtest.h>

#include <random>

using namespace dayvane;

namespace {

// Face 1 has the Hangul, face 2 what lies beyond the basic plane.
int FaceOf(char32_t character)
{
    return character >= 0x10000 ? 2 : character >= 0xAC00 && character < 0xD7A4 ? 1 : 0;
}

std::vector<int> EndsOf(const std::u16string& text, int width)
{
    std::vector<int> ends;
    int end = 0;
    for (const char16_t unit : text) {
        end += unit >= 0xDC00 && unit < 0xE000 ? 0 : width;
        ends.push_back(end);
    }
    return ends;
}

} // namespace

TEST(TextRuns, AccentsAndHalvesStayWithTheirCharacter)
{
    const std::u16string text = u"ab한글c😀\xFE0F!한\x0301"; // a variant of the pair, an accent on the last
    const std::vector<TextRun> runs = {{0, 2, 0}, {2, 4, 1}, {4, 5, 0}, {5, 8, 2}, {8, 9, 0}, {9, 11, 1}};
    EXPECT_EQ(SplitRuns(text, &FaceOf), runs);
    EXPECT_TRUE(SplitRuns(u"", &FaceOf).empty());
    const std::vector<TextRun> accentFirst = {{0, 2, 0}};
    EXPECT_EQ(SplitRuns(u"\x0301x", &FaceOf), accentFirst);
}

TEST(TextRuns, LinesBreakWherePeopleBreakThem)
{
    const struct
    {
        const char16_t* text;
        int characters; // that fit a line
        std::vector<std::u16string> lines;
    } rows[] = {
        {u"one two three", 8, {u"one two ", u"three"}},
        {u"one  two", 3, {u"one  ", u"two"}}, // blanks hang over
        {u"incomprehensible", 6, {u"incomp", u"rehens", u"ible"}},
        {u"会議室で会う", 4, {u"会議室で", u"会う"}},
        {u"see 会議", 5, {u"see 会", u"議"}},
        {u"a\r\n\nb", 9, {u"a", u"", u"b"}},
        {u"", 4, {}},
    };
    for (const auto& row : rows) {
        const std::u16string text = row.text;
        std::vector<std::u16string> lines;
        for (const MixedLine& line : BreakLines(text, EndsOf(text, 10), row.characters * 10)) {
            lines.push_back(text.substr(line.from, line.to - line.from));
        }
        EXPECT_EQ(lines, row.lines) << &row - rows;
    }
}

// Nothing is lost or shown twice, no line is too wide but for blanks or one character, and no character is halved.
TEST(TextRuns, RandomTextsBreakWithoutLoss)
{
    std::mt19937 random(20261122);
    const auto below = [&random](unsigned n) { return static_cast<int>(random() % n); };
    const char16_t* const pieces[] = {u"word", u" ", u"漢", u"한", u"😀", u"\n", u"é", u"\r\n", u"  ", u"a"};
    for (int round = 0; round < 5000; ++round) {
        std::u16string text;
        for (int i = below(12); i > 0; --i) {
            text += pieces[below(10)];
        }
        const std::vector<int> ends = EndsOf(text, 10);
        const int width = below(80);
        std::size_t next = 0;
        for (const MixedLine& line : BreakLines(text, ends, width)) {
            ASSERT_LE(next, line.from);
            for (std::size_t i = next; i < line.from; ++i) {
                ASSERT_TRUE(text[i] == u'\n' || text[i] == u'\r');
            }
            std::size_t inked = line.to;
            while (inked > line.from && text[inked - 1] == u' ') {
                --inked;
            }
            const int ink = inked > line.from ? ends[inked - 1] - (line.from > 0 ? ends[line.from - 1] : 0) : 0;
            ASSERT_TRUE(ink <= width || ink == 10) << ink << " in " << width;
            ASSERT_FALSE(line.to < text.size() && text[line.to] >= 0xDC00 && text[line.to] < 0xE000);
            next = line.to;
        }
        for (; next < text.size(); ++next) {
            ASSERT_TRUE(text[next] == u'\n' || text[next] == u'\r');
        }
    }
}
