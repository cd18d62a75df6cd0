// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_LINEGRAMMAR_H
#define PPS_LINEGRAMMAR_H

#include "Fault.h"
#include "JsonScanner.h"
#include "Number.h"
#include "TextReader.h"

#include <string_view>

namespace pps {

/** Checks how an attribute's name begins. It holds no colon either, and no line end. */
const Fault* checkNameStart(std::string_view name);

/** Moves `cursor` to the end of its line. A line is UTF-8 without NUL and carriage return. */
const Fault* scanLine(const char*& cursor, const char* end);

/** Takes the first line off a text, which is not empty, and tells its parts; not yet its value. */
const Fault* takeLine(std::string_view& text, Line& line);

/** Checks the escapes of a string attribute's value and tells whether there are any. */
const Fault* scanText(std::string_view value, bool& escaped);

/** Replaces the escapes of a scanned string attribute's value in place; the value's new end. */
char* unescapeText(char* begin, char* end);

/**
 * Reads an attribute's value and reports it to a handler: that of JsonScanner, with one more
 * function, `bool text(std::string_view value, bool escaped)`, for the value of a string attribute.
 */
template<class Handler>
const Fault* scanValue(const Line& line, Handler& handler)
{
    const auto report = [](bool taken) { return taken ? nullptr : &faults::OutOfMemory; };
    const std::string_view value = line.value;

    if (line.marker.empty()) {
        bool escaped;
        if (const Fault* fault = scanText(value, escaped))
            return fault;
        return report(handler.text(value, escaped));
    }
    if (line.marker == "n") {
        Number number;
        const char* cursor = value.data();
        const char* const end = cursor + value.size();
        if (const Fault* fault = scanNumber(cursor, end, number))
            return fault;
        return cursor == end ? report(handler.number(number)) : &faults::Number;
    }
    if (line.marker == "b") {
        if (value != "true" && value != "false")
            return &faults::Boolean;
        return report(handler.boolean(value == "true"));
    }
    if (line.marker == "json")
        return JsonScanner<Handler>::scan(value, JsonAttribute, handler);
    return &faults::Marker;
}

} // namespace pps

#endif
