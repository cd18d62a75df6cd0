// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_SSEBLOCK_H
#define PPS_SSEBLOCK_H

#include "WordBlock.h"

#include <emmintrin.h>

#include <cstddef>
#include <cstdint>

namespace pps {

/** Sixteen bytes of text in a vector register. The interface is that of WordBlock. */
class SseBlock
{
public:
    static constexpr std::ptrdiff_t Size = 16;

    class Mask
    {
    public:
        explicit Mask(__m128i bytes) : m_bytes(bytes) {}
        Mask operator|(Mask other) const { return Mask(_mm_or_si128(m_bytes, other.m_bytes)); }
        explicit operator bool() const { return bits() != 0; }
        int first() const { return __builtin_ctz(bits()); }

        Mask within(std::ptrdiff_t count) const
        {
            const __m128i indices =
                _mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
            const __m128i kept = _mm_cmplt_epi8(indices, _mm_set1_epi8(static_cast<char>(count)));
            return Mask(_mm_and_si128(m_bytes, kept));
        }

    private:
        unsigned bits() const { return static_cast<unsigned>(_mm_movemask_epi8(m_bytes)); }

        __m128i m_bytes; ///< the top bit of each byte
    };

    static SseBlock load(const char* from)
    {
        return SseBlock(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
    }

    static SseBlock loadPart(const char* from, std::ptrdiff_t count)
    {
        if (count < WordBlock::Size)
            return SseBlock(WordBlock::loadPart(from, count).word(), 0);
        const std::uint64_t low = WordBlock::load(from).word();
        const std::uint64_t last = WordBlock::load(from + count - WordBlock::Size).word();
        // In two steps, because a shift by 64 is not defined.
        return SseBlock(low, last >> 8 * (Size - 1 - count) >> 8);
    }

    void store(char* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), m_bytes); }

    Mask below(char limit) const
    {
        const __m128i highest = _mm_set1_epi8(static_cast<char>(limit - 1));
        return Mask(_mm_cmpeq_epi8(_mm_min_epu8(m_bytes, highest), m_bytes));
    }

    Mask equal(char byte) const { return Mask(_mm_cmpeq_epi8(m_bytes, _mm_set1_epi8(byte))); }
    Mask notAscii() const { return Mask(m_bytes); }

private:
    explicit SseBlock(__m128i bytes) : m_bytes(bytes) {}
    SseBlock(std::uint64_t low, std::uint64_t high)
        : m_bytes(_mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low)))
    {
    }

    __m128i m_bytes;
};

} // namespace pps

#endif
