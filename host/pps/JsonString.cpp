// SPDX-License-Identifier: Apache-2.0
#include "JsonString.h"

#include "Utf8.h"

#include <cstdint>

namespace pps {
namespace {

constexpr std::uint32_t Invalid = ~std::uint32_t(0);

bool isHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

std::uint32_t hexDigit(char digit)
{
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint32_t>(digit - '0');
    if (digit >= 'a' && digit <= 'f')
        return static_cast<std::uint32_t>(digit - 'a' + 10);
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint32_t>(digit - 'A' + 10);
    return Invalid;
}

/** Reads `\uXXXX` and moves `cursor` behind it; Invalid where that does not stand there. */
std::uint32_t takeCodeUnit(const char*& cursor, const char* end)
{
    constexpr int Length = 6;
    if (end - cursor < Length || cursor[0] != '\\' || cursor[1] != 'u')
        return Invalid;
    std::uint32_t unit = 0;
    for (int index = 2; index < Length; ++index) {
        const std::uint32_t digit = hexDigit(cursor[index]);
        if (digit == Invalid)
            return Invalid;
        unit = unit << 4 | digit;
    }
    cursor += Length;
    return unit;
}

/** What the escape of a backslash and `letter` stands for; NUL where there is none. */
char simpleEscape(char letter)
{
    switch (letter) {
    case '"':
    case '\\':
    case '/':
        return letter;
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return '\0';
    }
}

/** Reads the escape at `cursor` and moves `cursor` behind it. */
const Fault* takeEscape(const char*& cursor, const char* end, std::uint32_t& codePoint)
{
    if (end - cursor < 2)
        return &faults::JsonString;
    if (const char character = simpleEscape(cursor[1])) {
        codePoint = static_cast<unsigned char>(character);
        cursor += 2;
        return nullptr;
    }
    codePoint = takeCodeUnit(cursor, end);
    if (codePoint == Invalid)
        return &faults::JsonEscape;
    if (codePoint == 0)
        return &faults::Nul;
    if (isLowSurrogate(codePoint))
        return &faults::JsonSurrogate;
    if (isHighSurrogate(codePoint)) {
        const std::uint32_t low = takeCodeUnit(cursor, end);
        if (!isLowSurrogate(low))
            return &faults::JsonSurrogate;
        codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
    }
    return nullptr;
}

} // namespace

const Fault* scanJsonStringFrom(const char*& cursor, const char* end, JsonString& string)
{
    for (;; cursor = find(cursor, end, specialInJson)) {
        if (cursor == end)
            return &faults::JsonString;
        if (*cursor == '"') {
            string.end = cursor++;
            return nullptr;
        }
        if (*cursor == '\\') {
            std::uint32_t codePoint;
            if (const Fault* fault = takeEscape(cursor, end, codePoint))
                return fault;
            string.escaped = true;
            continue;
        }
        if ((*cursor & 0x80) == 0)
            return &faults::JsonControl;
        if (!utf8::skip(cursor, end))
            return &faults::Utf8;
    }
}

char* unescapeJsonString(char* begin, char* end)
{
    char* to = begin;
    for (const char* cursor = begin; cursor != end;) {
        if (*cursor != '\\') {
            *to++ = *cursor++;
            continue;
        }
        // An escape is at least as long as what it stands for, so `to` never overtakes `cursor`.
        std::uint32_t codePoint = 0;
        takeEscape(cursor, end, codePoint);
        to = utf8::append(to, codePoint);
    }
    return to;
}

} // namespace pps
