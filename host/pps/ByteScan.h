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

/** The `count` bytes at `from`, at most 8 of them, as a word that is zero above them. */
inline std::uint64_t load(const char* from, std::size_t count)
{
    const auto load32 = [](const char* place) {
        std::uint32_t half;
        std::memcpy(&half, place, sizeof half);
        return std::uint64_t(le32toh(half));
    };
    const auto load8 = [](const char* place) {
        return std::uint64_t(static_cast<unsigned char>(*place));
    };
    // Loads that overlap take any count without a loop.
    if (count >= 4)
        return load32(from) | load32(from + count - 4) << 8 * (count - 4);
    if (count == 0)
        return 0;
    return load8(from) | load8(from + count / 2) << 8 * (count / 2) |
           load8(from + count - 1) << 8 * (count - 1);
}

/** The first byte in the text that the matcher matches, or `end`. */
template<class Matcher>
const char* find(const char* cursor, const char* end, Matcher matcher)
{
    constexpr std::ptrdiff_t WordSize = sizeof(std::uint64_t);
    for (; end - cursor >= WordSize; cursor += WordSize) {
        if (const std::uint64_t mask = matcher(load(cursor, WordSize)))
            return cursor + __builtin_ctzll(mask) / 8;
    }
    const auto rest = static_cast<std::size_t>(end - cursor);
    const std::uint64_t word = load(cursor, rest);
    const std::uint64_t mask = matcher(word) & ~(~std::uint64_t(0) << 8 * rest);
    return mask ? cursor + __builtin_ctzll(mask) / 8 : end;
}

} // namespace pps

#endif
