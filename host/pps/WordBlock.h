// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_WORDBLOCK_H
#define PPS_WORDBLOCK_H

#include <endian.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace pps {

/** Eight bytes of text in an ordinary register: for every processor. */
class WordBlock
{
public:
    static constexpr std::ptrdiff_t Size = 8;

    /** Which bytes matched. Only the first of them is told reliably. */
    class Mask
    {
    public:
        explicit Mask(std::uint64_t topBits) : m_topBits(topBits) {}
        explicit operator bool() const { return m_topBits != 0; }
        Mask operator|(Mask other) const { return Mask(m_topBits | other.m_topBits); }

        /** The index of the first byte that matched, where any has. */
        int first() const { return __builtin_ctzll(m_topBits) / 8; }

        /** Without what is at `count`, which is less than Size, and above. */
        Mask within(std::ptrdiff_t count) const
        {
            return Mask(m_topBits & ~(~std::uint64_t(0) << 8 * count));
        }

    private:
        std::uint64_t m_topBits; ///< the top bit of each byte
    };

    static WordBlock load(const char* from)
    {
        std::uint64_t word;
        std::memcpy(&word, from, sizeof word);
        return WordBlock(le64toh(word));
    }

    /** Loads `count` bytes, fewer than Size, and reads no others; the rest is NUL. */
    static WordBlock loadPart(const char* from, std::ptrdiff_t count)
    {
        // Loads that overlap take any count without a loop.
        if (count >= 4)
            return WordBlock(loadHalf(from) | loadHalf(from + count - 4) << 8 * (count - 4));
        if (count == 0)
            return WordBlock(0);
        return WordBlock(loadByte(from) | loadByte(from + count / 2) << 8 * (count / 2) |
                         loadByte(from + count - 1) << 8 * (count - 1));
    }

    void store(char* to) const
    {
        const std::uint64_t word = htole64(m_word);
        std::memcpy(to, &word, sizeof word);
    }

    std::uint64_t word() const { return m_word; }

    /** The bytes that are below `limit`, an ASCII character. */
    Mask below(char limit) const
    {
        return Mask((m_word - Ones * static_cast<unsigned char>(limit)) & ~m_word & TopBits);
    }

    Mask equal(char byte) const
    {
        return WordBlock(m_word ^ (Ones * static_cast<unsigned char>(byte))).below(1);
    }

    Mask notAscii() const { return Mask(m_word & TopBits); }

private:
    static constexpr std::uint64_t Ones = 0x0101010101010101;
    static constexpr std::uint64_t TopBits = 0x8080808080808080;

    explicit WordBlock(std::uint64_t word) : m_word(word) {}

    static std::uint64_t loadHalf(const char* from)
    {
        std::uint32_t half;
        std::memcpy(&half, from, sizeof half);
        return le32toh(half);
    }

    static std::uint64_t loadByte(const char* from) { return static_cast<unsigned char>(*from); }

    std::uint64_t m_word; ///< the first byte is the lowest
};

} // namespace pps

#endif
