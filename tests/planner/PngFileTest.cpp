// Pictures come back from their files by a reader of its own: chunks and checksums by ISO/IEC 15948, the packed rows by
// RFC 1951, whose tables it works out instead of listing them.
#include "planner/PngFile.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace planner {
namespace {

unsigned Number(const std::string& bytes, std::size_t at)
{
    unsigned number = 0;
    for (std::size_t i = at; i < at + 4; ++i) {
        number = number << 8 | static_cast<unsigned char>(bytes.at(i));
    }
    return number;
}

// The remainder of the polynomial division, bit by bit.
unsigned Crc(const std::string& bytes)
{
    unsigned crc = ~0u;
    for (const char c : bytes) {
        for (int bit = 0; bit < 8; ++bit) {
            const bool isOdd = ((crc ^ static_cast<unsigned char>(c) >> bit) & 1) != 0;
            crc = crc >> 1 ^ (isOdd ? 0xEDB88320u : 0);
        }
    }
    return ~crc;
}

std::map<std::string, std::string> ChunksOf(const std::string& file)
{
    std::map<std::string, std::string> chunks;
    EXPECT_EQ(file.substr(0, 8), "\x89PNG\r\n\x1A\n");
    for (std::size_t at = 8; at < file.size();) {
        const unsigned size = Number(file, at);
        EXPECT_EQ(Crc(file.substr(at + 4, size + 4)), Number(file, at + 8 + size));
        chunks[file.substr(at + 4, 4)] += file.substr(at + 8, size);
        at += size + 12;
    }
    return chunks;
}

class Inflater
{
public:
    explicit Inflater(const std::string& packed) : m_packed(packed) {}

    // One last block with the fixed codes; what follows its end begins at a whole byte.
    std::string Rows()
    {
        EXPECT_EQ(Bits(3), 3); // last block, fixed codes
        std::string out;
        for (int symbol = Symbol(); symbol != 256; symbol = Symbol()) {
            if (symbol < 256) {
                out += static_cast<char>(symbol);
                continue;
            }
            // Eight lengths of their own, then four for each further number of extra bits; the last one stands alone.
            const int place = symbol - 257;
            const int extra = place < 8 || symbol == 285 ? 0 : place / 4 - 1;
            const int length = symbol == 285 ? 258
                               : place < 8   ? place + 3
                                             : ((4 + place % 4) << extra) + 3 + Bits(extra);
            EXPECT_EQ(Bits(5), 0) << "the distance of the byte before";
            EXPECT_FALSE(out.empty());
            out.append(static_cast<std::size_t>(length), out.empty() ? '\0' : out.back());
        }
        return out;
    }
    std::size_t End() const { return (m_bit + 7) / 8; }

private:
    int Bits(int count)
    {
        int value = 0;
        for (int i = 0; i < count; ++i, ++m_bit) {
            value |= (m_packed.at(m_bit / 8) >> (m_bit % 8) & 1) << i;
        }
        return value;
    }
    int Symbol()
    {
        int code = 0;
        for (int bits = 1;; ++bits) {
            code = code << 1 | Bits(1);
            if (bits == 7 && code < 24) {
                return 256 + code;
            }
            if (bits == 8 && code >= 0x30 && code < 0xC8) {
                return code < 0xC0 ? code - 0x30 : 280 + code - 0xC0;
            }
            if (bits == 9) {
                return 144 + code - 0x190;
            }
        }
    }

    const std::string& m_packed;
    std::size_t m_bit = 16; // after the two bytes of RFC 1950
};

std::vector<std::uint8_t> PixelsOf(const std::string& rows, int width, int height)
{
    const std::size_t stride = static_cast<std::size_t>(width) * 3;
    EXPECT_EQ(rows.size(), (stride + 1) * static_cast<std::size_t>(height));
    std::vector<std::uint8_t> pixels;
    const auto before = [&](std::size_t distance, bool exists) {
        return exists ? static_cast<int>(pixels[pixels.size() - distance]) : 0;
    };
    for (int y = 0; y < height; ++y) {
        const std::size_t begin = (stride + 1) * static_cast<std::size_t>(y);
        const int filter = rows.at(begin);
        for (std::size_t i = 0; i < stride; ++i) {
            const int predicted[] = {0, before(3, i >= 3), before(stride, y > 0)}; // the others are not used
            EXPECT_TRUE(filter >= 0 && filter < 3);
            pixels.push_back(static_cast<std::uint8_t>(rows.at(begin + 1 + i) + predicted[filter % 3]));
        }
    }
    return pixels;
}

void ExpectComesBack(const Picture& picture)
{
    auto chunks = ChunksOf(PngOf(picture));
    EXPECT_EQ(Number(chunks["IHDR"], 0), static_cast<unsigned>(picture.width));
    EXPECT_EQ(Number(chunks["IHDR"], 4), static_cast<unsigned>(picture.height));
    EXPECT_EQ(chunks["IHDR"].substr(8), std::string("\x08\x02\0\0\0", 5));
    EXPECT_EQ(chunks.count("IEND"), 1u);
    const std::string& data = chunks["IDAT"];
    Inflater inflater(data);
    const std::string rows = inflater.Rows();
    unsigned first = 1, second = 0;
    for (const char c : rows) {
        first = (first + static_cast<unsigned char>(c)) % 65521;
        second = (second + first) % 65521;
    }
    EXPECT_EQ(Number(data, inflater.End()), second << 16 | first);
    EXPECT_EQ(inflater.End() + 4, data.size());
    EXPECT_EQ(PixelsOf(rows, picture.width, picture.height), picture.rgb);
}

TEST(PngFile, PicturesComeBack)
{
    std::mt19937 random(4);
    for (int width : {1, 2, 7, 90, 700}) {
        Picture picture;
        picture.width = width;
        picture.height = 1 + static_cast<int>(random() % 9);
        while (picture.rgb.size() < static_cast<std::size_t>(picture.width * picture.height * 3)) {
            // Stretches of every length, and noise between them.
            const std::uint8_t shade = static_cast<std::uint8_t>(random());
            picture.rgb.insert(picture.rgb.end(), 1 + random() % 300, shade);
            for (int i = 0; i < 9; ++i) {
                picture.rgb.push_back(static_cast<std::uint8_t>(random()));
            }
        }
        picture.rgb.resize(static_cast<std::size_t>(picture.width * picture.height * 3));
        ExpectComesBack(picture);
    }
    for (int length = 1; length <= 270; ++length) { // a row of one shade and what is left of it
        Picture row;
        row.width = length;
        row.height = 1;
        row.rgb.assign(static_cast<std::size_t>(length) * 3, 77);
        row.rgb.back() = 78;
        ExpectComesBack(row);
    }
}

TEST(PngFile, StatesItsResolution)
{
    const std::pair<int, unsigned> rows[] = {{96, 3779}, {300, 11811}, {600, 23622}}; // dots in a metre
    for (const auto& [dotsPerInch, dotsPerMetre] : rows) {
        auto chunks = ChunksOf(PngOf({1, 1, {0, 0, 0}, dotsPerInch}));
        EXPECT_EQ(Number(chunks["pHYs"], 0), dotsPerMetre);
        EXPECT_EQ(Number(chunks["pHYs"], 4), dotsPerMetre);
        EXPECT_EQ(chunks["pHYs"].substr(8), "\x01");
    }
}

} // namespace
} // namespace planner
