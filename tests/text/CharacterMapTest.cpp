// Which characters beyond the basic plane a font has, read from its own table.
#include "core/CharacterMap.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace dayvane;

namespace {

std::string Number(unsigned number, int bytes)
{
    std::string text;
    while (bytes-- > 0) {
        text += static_cast<char>(number >> 8 * bytes & 0xFF);
    }
    return text;
}

// Two subtables: one of the basic plane only, and segments of all planes.
std::string Table(const std::vector<CharacterRange>& ranges)
{
    const std::string plain = Number(4, 2) + Number(32, 2) + std::string(28, '\x7F');
    std::string table = Number(0, 2) + Number(2, 2) + Number(3, 2) + Number(1, 2) + Number(20, 4) + Number(3, 2) +
                        Number(10, 2) + Number(52, 4) + plain;
    table += Number(12, 2) + Number(0, 2) + Number(16 + 12 * static_cast<unsigned>(ranges.size()), 4) + Number(0, 4) +
             Number(static_cast<unsigned>(ranges.size()), 4);
    for (const CharacterRange& range : ranges) {
        table += Number(range.first, 4) + Number(range.last, 4) + Number(7, 4);
    }
    return table;
}

} // namespace

TEST(CharacterMap, SaysWhatTheTableSays)
{
    const std::string table = Table({{0x20, 0x1F5FF}, {0x1F610, 0x1F610}, {0x20B9F, 0xFFFFFFFF}});
    const std::vector<CharacterRange> ranges = RangesBeyondBasicPlane(table);
    ASSERT_EQ(ranges.size(), 3u);
    EXPECT_EQ(ranges[0].first, 0x10000u) << "what lies below is the system's to say";
    EXPECT_EQ(ranges[2].last, 0x10FFFFu);
    for (const char32_t character : {0x10000, 0x1F5FF, 0x1F610, 0x20B9F}) {
        EXPECT_TRUE(HasCharacter(ranges, character)) << character;
    }
    for (const char32_t character : {0xFFFF, 0x1F600, 0x1F60F, 0x1F611, 0x20B9E, 0x110000}) {
        EXPECT_FALSE(HasCharacter(ranges, character)) << character;
    }
    EXPECT_TRUE(RangesBeyondBasicPlane(Table({{0x20, 0xFFFD}})).empty());
    std::string one = table;
    one[3] = 1; // subtables
    EXPECT_TRUE(RangesBeyondBasicPlane(one).empty());
}

TEST(CharacterMap, DamagedTablesAreReadAsFarAsTheyGo)
{
    const std::string table = Table({{0x10000, 0x10010}, {0x1F600, 0x1F640}});
    EXPECT_EQ(RangesBeyondBasicPlane(table.substr(0, table.size() - 1)).size(), 1u);
    std::mt19937 random(5);
    for (size_t length = 0; length < table.size(); ++length) {
        std::string damaged = table.substr(0, length);
        for (char& byte : damaged) {
            byte = random() % 4 == 0 ? static_cast<char>(random()) : byte;
        }
        for (const CharacterRange& range : RangesBeyondBasicPlane(damaged)) {
            EXPECT_LE(range.first, range.last);
        }
    }
}
