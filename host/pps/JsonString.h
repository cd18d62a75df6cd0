// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_JSONSTRING_H
#define PPS_JSONSTRING_H

#include "Fault.h"

namespace pps {

/** Where a JSON string lies in the text, without its quotes. */
struct JsonString
{
    const char* begin;
    const char* end;
    bool escaped; ///< whether it holds escapes, so that its value is shorter than its text
};

/**
 * Reads the JSON string whose opening quote is before `cursor` and moves `cursor` behind its
 * closing quote. The text is known to be UTF-8.
 */
const Fault* scanJsonString(const char*& cursor, const char* end, JsonString& string);

/** Replaces the escapes of a scanned string, which lies at `begin`, in place; the value's new end.
 */
char* unescapeJsonString(char* begin, char* end);

} // namespace pps

#endif
