#include "planner/PngFile.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace planner {

namespace {

constexpr int kBytesPerPixel = 3;
constexpr int kInchesPerKilometre = 39370; // dots are stated by the metre
constexpr int kLongestMatch = 258;         // deflate
constexpr int kShortestMatch = 3;

// The checksum of chunks: CRC-32 (ISO 3309), reflected, polynomial 0xEDB88320.
std::uint32_t Crc(const std::string& bytes)
{
    static const std::array<std::uint32_t, 256> table = [] {
        std::array<std::uint32_t, 256> made = {};
        for (std::uint32_t i = 0; i < made.size(); ++i) {
            std::uint32_t value = i;
            for (int bit = 0; bit < 8; ++bit) {
                value = (value & 1) != 0 ? value >> 1 ^ 0xEDB88320u : value >> 1;
            }
            made[i] = value;
        }
        return made;
    }();
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        crc = table[(crc ^ static_cast<std::uint8_t>(byte)) & 0xFF] ^ crc >> 8;
    }
    return ~crc;
}

// The checksum of the compressed data: Adler-32 (RFC 1950).
std::uint32_t Adler(const std::string& bytes)
{
    constexpr std::uint32_t prime = 65521;
    std::uint32_t sum = 1;
    std::uint32_t sums = 0;
    for (const char byte : bytes) {
        sum = (sum + static_cast<std::uint8_t>(byte)) % prime;
        sums = (sums + sum) % prime;
    }
    return sums << 16 | sum;
}

void AddBigEndian(std::string& bytes, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(value >> shift & 0xFF);
    }
}

// One block of deflate (RFC 1951) with its fixed codes, whose only matches are runs of one byte. Pages are mostly white
// and their rows much alike, so after filtering they are mostly runs of zeros.
class RunDeflater
{
public:
    std::string Compress(const std::string& bytes)
    {
        AddBits(1, 1); // the last block
        AddBits(1, 2); // fixed codes
        std::size_t i = 0;
        while (i < bytes.size()) {
            std::size_t run = 1;
            while (run <= static_cast<std::size_t>(kLongestMatch) && i + run < bytes.size() &&
                   bytes[i + run] == bytes[i]) {
                ++run;
            }
            AddSymbol(static_cast<std::uint8_t>(bytes[i]));
            ++i;
            if (run > static_cast<std::size_t>(kShortestMatch)) {
                AddMatch(static_cast<int>(run) - 1);
                i += run - 1;
            }
        }
        AddSymbol(kEndOfBlock);
        AddBits(0, 7); // fills the last byte
        return std::move(m_out);
    }

private:
    static constexpr int kEndOfBlock = 256;

    void AddBits(std::uint32_t value, int count) // the lowest bit first
    {
        for (int bit = 0; bit < count; ++bit) {
            m_byte |= (value >> bit & 1) << m_used;
            if (++m_used == 8) {
                m_out += static_cast<char>(m_byte);
                m_byte = 0;
                m_used = 0;
            }
        }
    }

    void AddCode(std::uint32_t code, int length) // Huffman codes go in from their highest bit
    {
        for (int bit = length - 1; bit >= 0; --bit) {
            AddBits(code >> bit & 1, 1);
        }
    }

    void AddSymbol(int symbol) // the fixed codes of RFC 1951, 3.2.6
    {
        if (symbol < 144) {
            AddCode(static_cast<std::uint32_t>(0x30 + symbol), 8);
        } else if (symbol < kEndOfBlock) {
            AddCode(static_cast<std::uint32_t>(0x190 + symbol - 144), 9);
        } else if (symbol < 280) {
            AddCode(static_cast<std::uint32_t>(symbol - kEndOfBlock), 7);
        } else {
            AddCode(static_cast<std::uint32_t>(0xC0 + symbol - 280), 8);
        }
    }

    // So many times the byte before: distance 1, which is code 0 of 5 bits.
    void AddMatch(int length)
    {
        struct Row
        {
            int first; // length
            int symbol;
            int extraBits;
        };
        static constexpr Row rows[] = {
            {3, 257, 0},   {4, 258, 0},   {5, 259, 0},   {6, 260, 0},   {7, 261, 0},   {8, 262, 0},
            {9, 263, 0},   {10, 264, 0},  {11, 265, 1},  {13, 266, 1},  {15, 267, 1},  {17, 268, 1},
            {19, 269, 2},  {23, 270, 2},  {27, 271, 2},  {31, 272, 2},  {35, 273, 3},  {43, 274, 3},
            {51, 275, 3},  {59, 276, 3},  {67, 277, 4},  {83, 278, 4},  {99, 279, 4},  {115, 280, 4},
            {131, 281, 5}, {163, 282, 5}, {195, 283, 5}, {227, 284, 5}, {258, 285, 0},
        };
        const Row* row = std::end(rows) - 1;
        while (row->first > length) {
            --row;
        }
        AddSymbol(row->symbol);
        AddBits(static_cast<std::uint32_t>(length - row->first), row->extraBits);
        AddCode(0, 5);
    }

    std::string m_out;
    std::uint32_t m_byte = 0;
    int m_used = 0; // bits of the byte
};

void AddChunk(std::string& file, const std::string& type, const std::string& data)
{
    AddBigEndian(file, static_cast<std::uint32_t>(data.size()));
    file += type + data;
    AddBigEndian(file, Crc(type + data));
}

// Each row as its difference from the row above (filter 2).
std::string FilteredRows(const Picture& picture)
{
    constexpr char filterUp = 2;
    const std::size_t rowBytes = static_cast<std::size_t>(picture.width) * kBytesPerPixel;
    std::string rows;
    rows.reserve((rowBytes + 1) * static_cast<std::size_t>(picture.height));
    for (std::size_t y = 0; y < static_cast<std::size_t>(picture.height); ++y) {
        rows += filterUp;
        const std::uint8_t* row = &picture.rgb[y * rowBytes];
        for (std::size_t x = 0; x < rowBytes; ++x) {
            rows += static_cast<char>(row[x] - (y > 0 ? row[x - rowBytes] : 0));
        }
    }
    return rows;
}

} // namespace

std::string PngOf(const Picture& picture)
{
    std::string file = "\x89PNG\r\n\x1A\n";
    std::string header;
    AddBigEndian(header, static_cast<std::uint32_t>(picture.width));
    AddBigEndian(header, static_cast<std::uint32_t>(picture.height));
    header += std::string("\x08\x02\0\0\0", 5); // 8 bits, red green blue, the one method of compression and of filters
    AddChunk(file, "IHDR", header);
    std::string dots;
    const auto dotsPerMetre =
        static_cast<std::uint32_t>(static_cast<long long>(picture.dotsPerInch) * kInchesPerKilometre / 1000);
    AddBigEndian(dots, dotsPerMetre);
    AddBigEndian(dots, dotsPerMetre);
    dots += '\x01'; // by the metre
    AddChunk(file, "pHYs", dots);
    const std::string rows = FilteredRows(picture);
    std::string data = "\x78\x01"; // RFC 1950: deflate, window of 32 KiB
    data += RunDeflater().Compress(rows);
    AddBigEndian(data, Adler(rows));
    AddChunk(file, "IDAT", data);
    AddChunk(file, "IEND", "");
    return file;
}

} // namespace planner
