// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_BYTESCAN_H
#define PPS_BYTESCAN_H

#include <endian.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace pps {

/**
 * Looks at eight bytes of text at a time. A matcher turns a word into a mask in which the lowest
 * set bit is the top bit of the first byte that matches; bits above it mean nothing.
 */
namespace bytes {

inline constexpr std::uint64_t Ones = 0x0101010101010101;
inline constexpr std::uint64_t TopBits = 0x8080808080808080;

/** Matches the bytes below `limit`, which is at most 128. */
constexpr std::uint64_t below(std::uint64_t word, unsigned char limit)
{
    return (word - Ones * limit) & ~word & TopBits;
}

/** Matches one byte. */
constexpr std::uint64_t equal(std::uint64_t word, char byte)
{
    return below(word ^ (Ones * static_cast<unsigned char>(byte)), 1);
}

/** Matches what is not ASCII. */
constexpr std::uint64_t notAscii(std::uint64_t word)
{
    return word & TopBits;
}

} // namespace bytes

/** The first byte in the text that the matcher matches, or `end`. */
template<class Matcher>
const char* find(const char* cursor, const char* end, Matcher matcher)
{
    constexpr std::ptrdiff_t WordSize = sizeof(std::uint64_t);
    for (; end - cursor >= WordSize; cursor += WordSize) {
        std::uint64_t word;
        std::memcpy(&word, cursor, sizeof word);
        if (const std::uint64_t mask = matcher(le64toh(word)))
            return cursor + __builtin_ctzll(mask) / 8;
    }
    for (; cursor != end; ++cursor) {
        if (matcher(bytes::Ones * static_cast<unsigned char>(*cursor)))
            return cursor;
    }
    return end;
}

} // namespace pps

#endif
