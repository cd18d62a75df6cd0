// SPDX-License-Identifier: Apache-2.0
#include "Utf8.h"

#include <cstddef>

namespace pps::utf8 {
namespace {

/** One row of the Unicode Standard's table of well-formed sequences (table 3-7). */
struct Form
{
    unsigned char firstLead, lastLead;     ///< the range of the first byte
    unsigned char firstSecond, lastSecond; ///< the range of the second byte
    unsigned char length;
};

constexpr Form Forms[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

char continuation(std::uint32_t bits)
{
    return static_cast<char>(0x80 | (bits & 0x3F));
}

unsigned byteAt(const char* place)
{
    return static_cast<unsigned char>(*place);
}

bool isBetween(unsigned byte, unsigned first, unsigned last)
{
    return byte >= first && byte <= last;
}

/** The length in bytes of the well-formed sequence at `cursor`; 0 where there is none. */
std::ptrdiff_t sequenceLength(const char* cursor, const char* end)
{
    for (const Form& form : Forms) {
        if (!isBetween(byteAt(cursor), form.firstLead, form.lastLead))
            continue;
        if (end - cursor < form.length ||
            !isBetween(byteAt(cursor + 1), form.firstSecond, form.lastSecond))
            return 0;
        for (int index = 2; index < form.length; ++index) {
            if (!isBetween(byteAt(cursor + index), 0x80, 0xBF))
                return 0;
        }
        return form.length;
    }
    return 0;
}

} // namespace

bool skip(const char*& cursor, const char* end)
{
    while (cursor != end && byteAt(cursor) >= 0x80) {
        const std::ptrdiff_t length = sequenceLength(cursor, end);
        if (length == 0)
            return false;
        cursor += length;
    }
    return true;
}

char* append(char* to, std::uint32_t codePoint)
{
    if (codePoint < 0x80) {
        *to++ = static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        *to++ = static_cast<char>(0xC0 | (codePoint >> 6));
        *to++ = continuation(codePoint);
    } else if (codePoint < 0x10000) {
        *to++ = static_cast<char>(0xE0 | (codePoint >> 12));
        *to++ = continuation(codePoint >> 6);
        *to++ = continuation(codePoint);
    } else {
        *to++ = static_cast<char>(0xF0 | (codePoint >> 18));
        *to++ = continuation(codePoint >> 12);
        *to++ = continuation(codePoint >> 6);
        *to++ = continuation(codePoint);
    }
    return to;
}

} // namespace pps::utf8
