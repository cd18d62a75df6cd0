// SPDX-License-Identifier: Apache-2.0
#include "Utf8Buffer.h"

#include <QtCore/QStringView>

#include <cstdint>
#include <cstring>

namespace tamo {

namespace {

// The longest UTF-8 of one UTF-16 unit; a pair of units takes four bytes.
constexpr std::size_t maxBytesPerUnit = 3;

/** Copies units while all are ASCII other than NUL, four at a time; returns how many it copied. */
std::size_t copyAscii(const char16_t* units, std::size_t count, char* bytes)
{
    constexpr std::uint64_t lowestBits = 0x0001000100010001;
    constexpr std::uint64_t highestBits = 0x8000800080008000;
    constexpr std::uint64_t beyondAscii = 0xff80ff80ff80ff80;

    std::size_t i = 0;
    for (; count - i >= 4; i += 4) {
        std::uint64_t four;
        std::memcpy(&four, units + i, sizeof four);
        // The subtraction borrows into the highest bit of a unit that is zero.
        const std::uint64_t zeroUnits = (four - lowestBits) & ~four & highestBits;
        if ((four & beyondAscii) != 0 || zeroUnits != 0)
            break;
        for (std::size_t k = 0; k < 4; ++k)
            bytes[i + k] = static_cast<char>(units[i + k]);
    }
    return i;
}

bool isHighSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xd800;
}

bool isLowSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

char continuationByte(char32_t bits)
{
    return static_cast<char>(0x80 | (bits & 0x3f));
}

/** Writes one character as UTF-8 and returns where it ends. */
char* putCharacter(char32_t character, char* bytes)
{
    if (character < 0x80) {
        *bytes++ = static_cast<char>(character);
    } else if (character < 0x800) {
        *bytes++ = static_cast<char>(0xc0 | (character >> 6));
        *bytes++ = continuationByte(character);
    } else if (character < 0x10000) {
        *bytes++ = static_cast<char>(0xe0 | (character >> 12));
        *bytes++ = continuationByte(character >> 6);
        *bytes++ = continuationByte(character);
    } else {
        *bytes++ = static_cast<char>(0xf0 | (character >> 18));
        *bytes++ = continuationByte(character >> 12);
        *bytes++ = continuationByte(character >> 6);
        *bytes++ = continuationByte(character);
    }
    return bytes;
}

} // namespace

const char* Utf8Buffer::convert(const QString& text)
{
    const char16_t* const units = QStringView(text).utf16();
    const std::size_t count = static_cast<std::size_t>(text.size());
    char* const bytes = reserve(count * maxBytesPerUnit + 1);
    std::size_t i = copyAscii(units, count, bytes);
    char* end = bytes + i;
    while (i < count) {
        char32_t character = units[i++];
        if (isHighSurrogate(units[i - 1]) && i < count && isLowSurrogate(units[i]))
            character = 0x10000 + ((character - 0xd800) << 10) + (units[i++] - 0xdc00U);
        else if (character == 0 || (character >= 0xd800 && character < 0xe000))
            return nullptr;
        end = putCharacter(character, end);
    }
    *end = '\0';
    return bytes;
}

char* Utf8Buffer::reserve(std::size_t size)
{
    if (size <= m_inline.size())
        return m_inline.data();
    if (size > m_heapSize) {
        m_heap.reset(new char[size]);
        m_heapSize = size;
    }
    return m_heap.get();
}

} // namespace tamo
