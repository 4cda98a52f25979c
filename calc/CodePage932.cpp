#include "calc/CodePage932.h"

#include "calc/CodePage932Table.h"
#include "calc/Utf8.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace dayvane {
namespace {
constexpr char16_t kUnassigned = 0xFFFD;
constexpr int kRows = 120; // lead bytes 81 to 9F and E0 to FC, two rows each; row 0 is none
constexpr unsigned kFirstKana = 0xA1;
constexpr unsigned kLastKana = 0xDF;
constexpr char32_t kFirstKanaCharacter = 0xFF61; // half-width
constexpr int kFirstNecSelectedRow = 89;
constexpr int kLastNecSelectedRow = 92;

constexpr std::array<const CodePage932Row*, kRows + 1> IndexRows()
{
    std::array<const CodePage932Row*, kRows + 1> index = {};
    for (const CodePage932Row& row : kCodePage932Rows) {
        index[row.row] = &row;
    }
    return index;
}
constexpr auto kRowIndex = IndexRows();

constexpr bool IsLead(unsigned byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

// The two bytes of a place in a row: cell 0 to 93. The trail bytes of the odd rows are 40 to 9E without 7F, those of
// the even rows 9F to FC.
constexpr unsigned CodeOf(int row, int cell)
{
    const int leads = (row - 1) / 2;
    const int lead = leads + (leads < 0x1F ? 0x81 : 0xC1);
    const int trail = row % 2 == 0 ? 0x9F + cell : 0x40 + cell + (cell >= 0x3F ? 1 : 0);
    return static_cast<unsigned>(lead << 8 | trail);
}

char16_t CharacterOf(unsigned lead, unsigned trail)
{
    if (trail < 0x40 || trail == 0x7F || trail > 0xFC) {
        return kUnassigned;
    }
    const int leads = static_cast<int>(lead) - (lead < 0xE0 ? 0x81 : 0xC1);
    const bool isEven = trail >= 0x9F;
    const int cell = static_cast<int>(isEven ? trail - 0x9F : trail - 0x40 - (trail > 0x7F ? 1 : 0));
    const CodePage932Row* const row = kRowIndex[2 * leads + (isEven ? 2 : 1)];
    return row ? row->characters[cell] : kUnassigned;
}

using Code = std::pair<char16_t, unsigned>; // character, its two bytes

// Ascending by character, each once.
std::vector<Code> MakeCodes()
{
    std::vector<Code> codes;
    const auto append = [&codes](bool necSelected) {
        for (const CodePage932Row& row : kCodePage932Rows) {
            if ((row.row >= kFirstNecSelectedRow && row.row <= kLastNecSelectedRow) != necSelected) {
                continue;
            }
            for (int cell = 0; cell < kRowCharacters; ++cell) {
                if (row.characters[cell] != kUnassigned) {
                    codes.emplace_back(row.characters[cell], CodeOf(row.row, cell));
                }
            }
        }
    };
    // Windows prefers the lowest code, but IBM's rows to NEC's selection of them.
    append(false);
    append(true);
    std::stable_sort(codes.begin(), codes.end(), [](const Code& a, const Code& b) { return a.first < b.first; });
    const auto isSame = [](const Code& a, const Code& b) { return a.first == b.first; };
    codes.erase(std::unique(codes.begin(), codes.end(), isSame), codes.end());
    return codes;
}

// The byte or two bytes of a character; 0 when it has none.
unsigned CodeOfCharacter(char32_t character)
{
    static const std::vector<Code> codes = MakeCodes();
    if (character >= kFirstKanaCharacter && character <= kFirstKanaCharacter + (kLastKana - kFirstKana)) {
        return static_cast<unsigned>(character - kFirstKanaCharacter) + kFirstKana;
    }
    const auto found = std::lower_bound(codes.begin(), codes.end(), character,
                                        [](const Code& code, char32_t wanted) { return code.first < wanted; });
    return found != codes.end() && found->first == character ? found->second : 0;
}
} // namespace

bool Utf8FromCodePage932(std::string_view bytes, std::string& text)
{
    text.clear();
    bool isAll = true;
    for (size_t i = 0; i < bytes.size(); ++i) {
        const unsigned byte = static_cast<unsigned char>(bytes[i]);
        char32_t character = kUnassigned;
        if (byte < 0x80) {
            character = byte;
        } else if (byte >= kFirstKana && byte <= kLastKana) {
            character = kFirstKanaCharacter + (byte - kFirstKana);
        } else if (IsLead(byte) && i + 1 < bytes.size()) {
            character = CharacterOf(byte, static_cast<unsigned char>(bytes[i + 1]));
            i += character != kUnassigned ? 1 : 0; // what follows a broken lead byte is read anew
        }
        isAll = isAll && character != kUnassigned;
        AppendUtf8(text, character);
    }
    return isAll;
}

bool CodePage932FromUtf8(std::string_view text, std::string& bytes)
{
    bytes.clear();
    bool isAll = true;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        char32_t character = 0;
        if (!TakeUtf8(at, end, character)) {
            ++at;
            character = kUnassigned;
        }
        const unsigned code = character < 0x80 ? static_cast<unsigned>(character) : CodeOfCharacter(character);
        const bool isMissing = code == 0 && character != 0;
        isAll = isAll && !isMissing;
        if (code > 0xFF) {
            bytes += static_cast<char>(code >> 8);
        }
        bytes += isMissing ? '?' : static_cast<char>(code & 0xFF);
    }
    return isAll;
}
} // namespace dayvane
