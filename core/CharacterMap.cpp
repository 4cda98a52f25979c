#include "core/CharacterMap.h"

#include <algorithm>
#include <cstddef>

namespace dayvane {
namespace {

// OpenType, "cmap - Character to Glyph Index Mapping Table"; numbers are big-endian.
constexpr std::size_t kCountAt = 2; // of encoding records
constexpr std::size_t kRecordsAt = 4;
constexpr std::size_t kRecordSize = 8;
constexpr std::size_t kOffsetInRecord = 4;
constexpr unsigned kSegmentedCoverage = 12; // format of the subtable
constexpr std::size_t kGroupCountAt = 12;
constexpr std::size_t kGroupsAt = 16;
constexpr std::size_t kGroupSize = 12;
constexpr std::size_t kLastInGroup = 4;
constexpr char32_t kFirstBeyond = 0x10000;
constexpr char32_t kLastCharacter = 0x10FFFF;

// 0 beyond the end.
unsigned NumberAt(std::string_view table, std::size_t at, std::size_t bytes)
{
    if (at > table.size() || table.size() - at < bytes) {
        return 0;
    }
    unsigned number = 0;
    for (std::size_t i = 0; i < bytes; ++i) {
        number = number << 8 | static_cast<unsigned char>(table[at + i]);
    }
    return number;
}

void AddGroups(std::string_view table, std::size_t subtable, std::vector<CharacterRange>& ranges)
{
    const std::size_t room = table.size() - std::min(table.size(), subtable + kGroupsAt);
    const std::size_t count = std::min<std::size_t>(NumberAt(table, subtable + kGroupCountAt, 4), room / kGroupSize);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t group = subtable + kGroupsAt + i * kGroupSize;
        const char32_t first = std::max<char32_t>(NumberAt(table, group, 4), kFirstBeyond);
        const char32_t last = std::min<char32_t>(NumberAt(table, group + kLastInGroup, 4), kLastCharacter);
        if (first <= last) {
            ranges.push_back({first, last});
        }
    }
}

} // namespace

std::vector<CharacterRange> RangesBeyondBasicPlane(std::string_view table)
{
    std::vector<CharacterRange> ranges;
    const unsigned count = NumberAt(table, kCountAt, 2);
    for (unsigned i = 0; i < count && ranges.empty(); ++i) {
        const std::size_t subtable = NumberAt(table, kRecordsAt + i * kRecordSize + kOffsetInRecord, 4);
        if (NumberAt(table, subtable, 2) == kSegmentedCoverage) {
            AddGroups(table, subtable, ranges);
        }
    }
    std::sort(ranges.begin(), ranges.end(),
              [](const CharacterRange& a, const CharacterRange& b) { return a.first < b.first; });
    return ranges;
}

bool HasCharacter(const std::vector<CharacterRange>& ranges, char32_t character)
{
    return std::any_of(ranges.begin(), ranges.end(), [character](const CharacterRange& range) {
        return range.first <= character && character <= range.last;
    });
}

} // namespace dayvane
