// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_STRINGRULES_H
#define PPS_STRINGRULES_H

#include "JsonString.h"

/**
 * How strings are written in the places where they can stand. Each has a matcher of what does not
 * simply stand for itself, non-ASCII included, because it has to be checked; and a function that
 * tells how such an ASCII character is written: null, as it is; Refused, not at all.
 */
namespace pps::rules {

inline constexpr char Refused[] = "";

/** The value of a string attribute. */
struct Text
{
    static constexpr auto special = [](auto block) {
        return block.below(' ') | block.equal('\\') | block.notAscii();
    };

    static const char* replacement(char character)
    {
        switch (character) {
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\\':
            return "\\\\";
        default:
            return nullptr;
        }
    }
};

/** A name on a line of its own. */
struct Line
{
    static constexpr auto special = [](auto block) { return block.below(' ') | block.notAscii(); };

    static const char* replacement(char character)
    {
        return character == '\n' || character == '\r' ? Refused : nullptr;
    }
};

/** The name of an attribute on a line. */
struct AttributeName
{
    static constexpr auto special = [](auto block) {
        return Line::special(block) | block.equal(':');
    };

    static const char* replacement(char character)
    {
        return character == ':' ? Refused : Line::replacement(character);
    }
};

/** A JSON string, between its quotes. */
struct Json
{
    static constexpr auto special = specialInJson;

    static const char* replacement(char character)
    {
        static constexpr const char* Controls[] = {
            "\\u0000", "\\u0001", "\\u0002", "\\u0003", "\\u0004", "\\u0005", "\\u0006", "\\u0007",
            "\\b",     "\\t",     "\\n",     "\\u000b", "\\f",     "\\r",     "\\u000e", "\\u000f",
            "\\u0010", "\\u0011", "\\u0012", "\\u0013", "\\u0014", "\\u0015", "\\u0016", "\\u0017",
            "\\u0018", "\\u0019", "\\u001a", "\\u001b", "\\u001c", "\\u001d", "\\u001e", "\\u001f"};
        if (character == '"')
            return "\\\"";
        if (character == '\\')
            return "\\\\";
        return Controls[static_cast<unsigned char>(character)];
    }
};

} // namespace pps::rules

#endif
