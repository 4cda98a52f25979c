// Characters of code page 932, the code page of every text here whatever the system's is: one byte, or a lead byte and
// a second one in 0x40..0xFC, which may look like a letter, a backslash or a lead byte.
#pragma once

namespace dbcs {
inline bool IsLeadByte(char ch)
{
    const unsigned char byte = static_cast<unsigned char>(ch);
    return (byte >= 0x81 && byte <= 0x9f) || (byte >= 0xe0 && byte <= 0xfc);
}

// Bytes of the character at p: 1 or 2. A lead byte at the end of the text stands alone.
inline int CharSize(const char* p)
{
    return IsLeadByte(*p) && p[1] != 0 ? 2 : 1;
}
} // namespace dbcs
