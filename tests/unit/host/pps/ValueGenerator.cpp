// SPDX-License-Identifier: Apache-2.0
#include "ValueGenerator.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace test {
namespace {

constexpr int MaxDepth = 5;

/** The ends of ranges, what has to be escaped somewhere, and what only looks so. */
const char* const OddCharacters[] = {
    "\n",      "\r",      "\t",     "\\",         "\"",         ":",
    "@",       "-",       "+",      "/",          "{",          "}",
    "[",       "]",       ",",      "'",          " ",          "\x01",
    "\x1f",    "\x7f",    "\u0080", "\u07ff",     "\u0800",     "\xed\x9f\xbf",
    "\ue000",  "\ufeff",  "\uffff", "\U00010000", "\U0010ffff", "\\n",
    "\\u0041", "e\u0301", "\u2028", "\U0001f50b"};

constexpr double OddReals[] = {0.0,
                               -0.0,
                               1.0,
                               0.1,
                               1e22,
                               1e23,
                               123456789012345678.0,
                               9007199254740991.0,
                               9007199254740993.0,
                               -9007199254740992.0,
                               9223372036854775807.0,
                               std::numeric_limits<double>::max(),
                               std::numeric_limits<double>::lowest(),
                               std::numeric_limits<double>::min(),
                               std::numeric_limits<double>::denorm_min(),
                               std::numeric_limits<double>::epsilon()};

constexpr std::int64_t OddIntegers[] = {0,
                                        -1,
                                        std::numeric_limits<int>::max(),
                                        std::numeric_limits<int>::min(),
                                        9007199254740993,
                                        std::numeric_limits<std::int64_t>::max(),
                                        std::numeric_limits<std::int64_t>::min()};

} // namespace

std::size_t ValueGenerator::below(std::size_t limit)
{
    return m_random() % limit;
}

std::uint64_t ValueGenerator::bits()
{
    return std::uint64_t(m_random()) << 32 | m_random();
}

double ValueGenerator::real()
{
    if (below(3) == 0)
        return OddReals[below(std::size(OddReals))];
    if (below(3) == 0)
        return static_cast<double>(below(100000)) / 100;
    for (;;) {
        const std::uint64_t pattern = bits();
        double value;
        std::memcpy(&value, &pattern, sizeof value);
        if (std::isfinite(value))
            return value;
    }
}

std::string ValueGenerator::string()
{
    std::string text;
    const std::size_t length = below(20) == 0 ? below(3000) : below(24);
    while (text.size() < length) {
        if (below(5) == 0)
            text += OddCharacters[below(std::size(OddCharacters))];
        else
            text += static_cast<char>('a' + below(26));
    }
    return text;
}

std::string ValueGenerator::attributeName()
{
    std::string name;
    for (const char character : string()) {
        if (character != ':' && character != '\n' && character != '\r')
            name += character;
    }
    if (name.empty() || name[0] == '@' || name[0] == '-' || name.compare(0, 2, "+@") == 0)
        name.insert(0, "n");
    return name;
}

Value ValueGenerator::value(int depth)
{
    switch (below(depth < MaxDepth ? 7 : 5)) {
    case 0:
        return {Value::Null()};
    case 1:
        return {below(2) == 0};
    case 2:
        if (below(2) == 0)
            return {OddIntegers[below(std::size(OddIntegers))]};
        return {static_cast<std::int64_t>(bits())};
    case 3:
        return {real()};
    case 4:
        return {string()};
    case 5: {
        Value::Array elements(below(6));
        for (Value& element : elements)
            element = value(depth + 1);
        return {std::move(elements)};
    }
    default: {
        Value::Object members(below(6));
        for (Member& member : members)
            member = {string(), value(depth + 1)};
        return {std::move(members)};
    }
    }
}

Value::Object ValueGenerator::message()
{
    Value::Object members(below(10));
    for (Member& member : members)
        member = {attributeName(), value(0)};
    return members;
}

} // namespace test
