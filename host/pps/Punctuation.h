// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_PUNCTUATION_H
#define PPS_PUNCTUATION_H

#include <cstddef>
#include <cstring>

namespace pps {

/** A few characters that are written with a single store. */
class Punctuation
{
public:
    /** How much is written, however few characters it has. */
    static constexpr std::size_t StoredSize = 8;

    template<std::size_t Size>
    constexpr Punctuation(const char (&text)[Size]) : m_text(), m_size(Size - 1)
    {
        static_assert(Size <= StoredSize);
        for (std::size_t index = 0; index < m_size; ++index)
            m_text[index] = text[index];
    }

    /** Writes the characters, and something behind them, and returns the place behind them. */
    char* store(char* to) const
    {
        std::memcpy(to, m_text, sizeof m_text);
        return to + m_size;
    }

private:
    char m_text[StoredSize];
    std::size_t m_size;
};

} // namespace pps

#endif
