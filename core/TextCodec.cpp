#include "core/TextCodec.h"

#include "calc/Utf8.h"
#include "core/Utf16.h"

#include <algorithm>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include "calc/CodePage932.h"
#endif

namespace dayvane {
namespace {

constexpr char16_t kBadCharacter = 0xFFFD;

void Append(std::u16string& text, char32_t character)
{
    if (character < kFirstPair) {
        text += static_cast<char16_t>(character);
        return;
    }
    const char32_t offset = character - kFirstPair;
    text += static_cast<char16_t>(kFirstLead + (offset >> kPairShift));
    text += static_cast<char16_t>(kFirstTrail + (offset & ((1u << kPairShift) - 1)));
}

// How many bytes from the front belong to one unreadable beginning of a character: as long as more bytes could still
// have made it a character (table 3-7 of the Unicode standard); at least one.
std::size_t LengthOfBroken(const char* text, const char* end)
{
    const unsigned char lead = static_cast<unsigned char>(*text);
    const std::size_t whole = lead >= 0xC2 && lead < 0xE0   ? 2
                              : (lead & 0xF0) == 0xE0       ? 3
                              : lead >= 0xF0 && lead < 0xF5 ? 4
                                                            : 1;
    std::size_t length = 1;
    while (length < whole && text + length < end) {
        const unsigned char byte = static_cast<unsigned char>(text[length]);
        unsigned char least = 0x80;
        unsigned char most = 0xBF;
        if (length == 1) {
            least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : least;
            most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : most;
        }
        if (byte < least || byte > most) {
            break;
        }
        ++length;
    }
    return length;
}

std::u16string DecodeUtf8(std::string_view bytes)
{
    std::u16string text;
    text.reserve(bytes.size());
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (at < end) {
        const unsigned char byte = static_cast<unsigned char>(*at);
        char32_t character = 0;
        if (byte < 0x80) {
            text += static_cast<char16_t>(byte);
            ++at;
        } else if (TakeUtf8(at, end, character)) {
            Append(text, character);
        } else {
            text += kBadCharacter;
            at += LengthOfBroken(at, end);
        }
    }
    return text;
}

std::string EncodeUtf8(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = TakeCharacter(text, at);
        AppendUtf8(bytes, IsLead(character) || IsTrail(character) ? kBadCharacter : character);
    }
    return bytes;
}

bool IsAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// ---- Other pages

#ifdef _WIN32
std::u16string DecodeBySystem(std::string_view bytes, unsigned codePage)
{
    static_assert(sizeof(wchar_t) == sizeof(char16_t), "the system's wide characters are UTF-16");
    const int length = static_cast<int>(bytes.size());
    std::u16string text(bytes.size(), u'\0'); // no page gives more units than it has bytes
    const auto convert = [&](unsigned page) {
        return ::MultiByteToWideChar(page, 0, bytes.data(), length, reinterpret_cast<wchar_t*>(&text[0]), length);
    };
    int count = convert(codePage);
    if (count == 0 && codePage != kSystemCodePage) {
        count = convert(kSystemCodePage);
    }
    text.resize(static_cast<std::size_t>(count));
    return text;
}

std::string EncodeBySystem(std::u16string_view text, unsigned codePage, bool& isWhole)
{
    const wchar_t* const wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    constexpr int kMostBytes = 8; // of one unit, in any page
    std::string bytes(text.size() * kMostBytes, '\0');
    BOOL replaced = FALSE;
    const int count = ::WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, wide, length, &bytes[0],
                                            static_cast<int>(bytes.size()), nullptr, &replaced);
    if (count == 0 && codePage != kSystemCodePage) {
        return EncodeBySystem(text, kSystemCodePage, isWhole);
    }
    isWhole = !replaced;
    if (replaced) { // then look-alikes are better than question marks
        bytes.resize(static_cast<std::size_t>(::WideCharToMultiByte(codePage, 0, wide, length, &bytes[0],
                                                                    static_cast<int>(bytes.size()), nullptr, nullptr)));
    } else {
        bytes.resize(static_cast<std::size_t>(count));
    }
    return bytes;
}
#else
std::u16string DecodeBySystem(std::string_view bytes, unsigned)
{
    std::string utf8;
    Utf8FromCodePage932(bytes, utf8);
    return DecodeUtf8(utf8);
}

std::string EncodeBySystem(std::u16string_view text, unsigned, bool& isWhole)
{
    std::string bytes;
    isWhole = CodePage932FromUtf8(EncodeUtf8(text), bytes);
    return bytes;
}
#endif

// The bytes from the front that are read as one piece; at least one.
std::size_t PieceLength(std::string_view bytes, unsigned codePage)
{
    if (codePage == kUtf8CodePage) {
        const char* at = bytes.data();
        char32_t character = 0;
        return TakeUtf8(at, bytes.data() + bytes.size(), character)
                   ? static_cast<std::size_t>(at - bytes.data())
                   : LengthOfBroken(bytes.data(), bytes.data() + bytes.size());
    }
#ifdef _WIN32
    const bool isLead = ::IsDBCSLeadByteEx(codePage, static_cast<BYTE>(bytes[0])) != FALSE;
#else
    const unsigned char byte = static_cast<unsigned char>(bytes[0]);
    const bool isLead = (byte > 0x80 && byte < 0xA0) || (byte >= 0xE0 && byte < 0xFD);
#endif
    return isLead && bytes.size() > 1 ? 2 : 1;
}

struct Piece
{
    std::string_view bytes;
    std::u16string text;
};

std::vector<Piece> PiecesOf(std::string_view bytes, unsigned codePage)
{
    std::vector<Piece> pieces;
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, PieceLength(bytes, codePage));
        pieces.push_back({piece, DecodeText(piece, codePage)});
        bytes.remove_prefix(piece.size());
    }
    return pieces;
}

// Takes the pieces that the text begins with from its front; returns how many.
std::size_t TakeHead(const std::vector<Piece>& pieces, std::u16string_view& text)
{
    std::size_t taken = 0;
    while (taken < pieces.size() && text.substr(0, pieces[taken].text.size()) == pieces[taken].text) {
        text.remove_prefix(pieces[taken++].text.size());
    }
    return taken;
}

// The same at the end, with pieces from `first` on; returns the first one taken.
std::size_t TakeTail(const std::vector<Piece>& pieces, std::size_t first, std::u16string_view& text)
{
    std::size_t taken = pieces.size();
    while (taken > first && text.size() >= pieces[taken - 1].text.size() &&
           text.substr(text.size() - pieces[taken - 1].text.size()) == pieces[taken - 1].text) {
        text.remove_suffix(pieces[--taken].text.size());
    }
    return taken;
}

} // namespace

std::u16string DecodeText(std::string_view bytes, unsigned codePage)
{
    if (codePage == kUtf8CodePage) {
        return DecodeUtf8(bytes);
    }
    // The pages of systems have ASCII in common.
    return IsAscii(bytes) ? std::u16string(bytes.begin(), bytes.end()) : DecodeBySystem(bytes, codePage);
}

std::string EncodeText(std::u16string_view text, unsigned codePage)
{
    bool isWhole = true;
    return text.empty()                ? std::string()
           : codePage == kUtf8CodePage ? EncodeUtf8(text)
                                       : EncodeBySystem(text, codePage, isWhole);
}

bool HoldsText(std::u16string_view text, unsigned codePage)
{
    bool isWhole = true;
    if (codePage != kUtf8CodePage && !text.empty()) {
        EncodeBySystem(text, codePage, isWhole);
        return isWhole;
    }
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = TakeCharacter(text, at);
        if (IsLead(character) || IsTrail(character)) {
            return false;
        }
    }
    return true;
}

std::string EncodeEdited(std::string_view before, std::u16string_view edited, unsigned codePage)
{
    if (edited == DecodeText(before, codePage)) {
        return std::string(before);
    }
    const std::vector<Piece> pieces = PiecesOf(before, codePage);
    std::u16string_view middle = edited;
    const std::size_t head = TakeHead(pieces, middle);
    const std::size_t tail = TakeTail(pieces, head, middle);
    std::string bytes;
    for (std::size_t i = 0; i < head; ++i) {
        bytes += pieces[i].bytes;
    }
    bytes += EncodeText(middle, codePage);
    for (std::size_t i = tail; i < pieces.size(); ++i) {
        bytes += pieces[i].bytes;
    }
    // Halves that have come together would read as another character.
    const std::string plain = EncodeText(edited, codePage);
    const std::u16string read = DecodeText(bytes, codePage);
    return read == edited || read == DecodeText(plain, codePage) ? bytes : plain;
}

} // namespace dayvane
