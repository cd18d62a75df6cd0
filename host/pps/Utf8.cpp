// SPDX-License-Identifier: Apache-2.0
#include "Utf8.h"

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

} // namespace

std::size_t sequenceLength(const char* cursor, const char* end)
{
    const auto at = [cursor](std::size_t index) {
        return static_cast<unsigned char>(cursor[index]);
    };
    const auto available = static_cast<std::size_t>(end - cursor);
    for (const Form& form : Forms) {
        if (at(0) > form.lastLead)
            continue;
        if (at(0) < form.firstLead || available < form.length)
            return 0;
        if (at(1) < form.firstSecond || at(1) > form.lastSecond)
            return 0;
        for (std::size_t index = 2; index < form.length; ++index) {
            if ((at(index) & 0xC0) != 0x80)
                return 0;
        }
        return form.length;
    }
    return 0;
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
