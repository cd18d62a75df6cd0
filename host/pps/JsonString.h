// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_JSONSTRING_H
#define PPS_JSONSTRING_H

#include "ByteScan.h"
#include "Fault.h"

namespace pps {

/** Where a JSON string lies in the text, without its quotes. */
struct JsonString
{
    const char* begin;
    const char* end;
    bool escaped; ///< whether it holds escapes, so that its value is shorter than its text
};

/** The bytes of a JSON string that do not simply stand for themselves. */
inline constexpr auto specialInJson = [](auto block) {
    return block.equal('"') | block.equal('\\') | block.below(' ') | block.notAscii();
};

/** Goes on with scanJsonString() at a special byte, or at the end of the text. */
const Fault* scanJsonStringFrom(const char*& cursor, const char* end, JsonString& string);

/**
 * Reads the JSON string whose opening quote is before `cursor` and moves `cursor` behind its
 * closing quote. What is not UTF-8 is refused, so is the character NUL, however it is written.
 */
inline const Fault* scanJsonString(const char*& cursor, const char* end, JsonString& string)
{
    string.begin = cursor;
    string.escaped = false;
    const char* special = find(cursor, end, specialInJson);
    if (special == end || *special != '"') {
        // Copies go out and in, so that the caller's variables can stay in registers.
        JsonString whole = string;
        const Fault* const fault = scanJsonStringFrom(special, end, whole);
        string = whole;
        cursor = special;
        return fault;
    }
    string.end = special;
    cursor = special + 1;
    return nullptr;
}

/** Replaces the escapes of a scanned string, which lies at `begin`, in place; the value's new end.
 */
char* unescapeJsonString(char* begin, char* end);

} // namespace pps

#endif
