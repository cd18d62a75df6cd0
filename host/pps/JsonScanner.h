// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_JSONSCANNER_H
#define PPS_JSONSCANNER_H

#include "Fault.h"
#include "JsonString.h"
#include "Number.h"

#include <pps/export.h>

#include <bitset>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace pps {

/** What a JSON text is to be. */
struct JsonForm
{
    const char* starts;     ///< the characters that its value may begin with
    const Fault* otherwise; ///< what is wrong where it begins with another
    std::size_t maxDepth;
};

/** The value of an attribute. */
inline constexpr JsonForm JsonAttribute{"{[n", &faults::JsonRoot, PPS_MAX_DEPTH};

/** A message. It is a level of nesting itself, around its attributes. */
inline constexpr JsonForm JsonMessage{"{", &faults::JsonObject, PPS_MAX_DEPTH + 1};

/**
 * Reads one JSON value (RFC 8259) and reports what it finds to a handler, in the text's order:
 *
 *     bool start(bool object)        an object or an array begins
 *     void end()                     the innermost one ends
 *     void name(JsonString)          the name of the member that comes next
 *     bool string(JsonString)
 *     bool number(Number)
 *     bool boolean(bool)
 *     bool null()
 *
 * A handler that returns false is out of memory. Nesting costs a bit a level and no stack.
 */
template<class Handler>
class JsonScanner
{
public:
    /**
     * @param lineEnds where the number of line ends that were passed is put; may be null
     */
    // Everything in one function, so that the scanner's state lives in registers.
    [[gnu::flatten]] static const Fault* scan(std::string_view text, const JsonForm& form,
                                              Handler& handler, std::size_t* lineEnds = nullptr)
    {
        JsonScanner scanner(text, form, handler);
        const Fault* const fault = scanner.scanRoot();
        if (lineEnds)
            *lineEnds = scanner.m_lineEnds;
        return fault;
    }

private:
    JsonScanner(std::string_view text, const JsonForm& form, Handler& handler)
        : m_cursor(text.data()), m_end(text.data() + text.size()), m_form(form), m_handler(handler)
    {
    }

    const Fault* scanRoot()
    {
        skipSpace();
        if (m_cursor == m_end || !std::strchr(m_form.starts, *m_cursor))
            return m_form.otherwise;
        do {
            if (const Fault* fault = scanValue())
                return fault;
            if (const Fault* fault = scanAfterValue())
                return fault;
        } while (m_depth != 0);
        return m_cursor == m_end ? nullptr : &faults::JsonTrailing;
    }

    /** Reads one that is not a container, or goes into containers as far as their first values. */
    const Fault* scanValue()
    {
        for (;;) {
            skipSpace();
            const bool object = peek() == '{';
            if (!object && peek() != '[')
                return scanScalar();
            if (const Fault* fault = open(object))
                return fault;
            if (peek() == (object ? '}' : ']'))
                return nullptr;
            if (object) {
                if (const Fault* fault = scanName())
                    return fault;
            }
        }
    }

    /** Closes containers that end here, and goes on to where the next value must stand. */
    const Fault* scanAfterValue()
    {
        skipSpace();
        while (m_depth != 0) {
            if (peek() == ',') {
                ++m_cursor;
                return inObject() ? scanName() : nullptr;
            }
            if (peek() != (inObject() ? '}' : ']'))
                return &faults::JsonComma;
            ++m_cursor;
            --m_depth;
            m_handler.end();
            skipSpace();
        }
        return nullptr;
    }

    // A ladder, because most values are found on its first two steps.
    const Fault* scanScalar()
    {
        if (peek() == '"') {
            JsonString string;
            if (const Fault* fault = scanString(string))
                return fault;
            return report(m_handler.string(string));
        }
        if (peek() == '-' || (peek() >= '0' && peek() <= '9')) {
            Number number;
            const char* cursor = m_cursor;
            if (const Fault* fault = scanNumber(cursor, m_end, number))
                return fault;
            m_cursor = cursor;
            return report(m_handler.number(number));
        }
        if (takeWord("true"))
            return report(m_handler.boolean(true));
        if (takeWord("false"))
            return report(m_handler.boolean(false));
        if (takeWord("null"))
            return report(m_handler.null());
        return &faults::JsonValue;
    }

    const Fault* scanName()
    {
        skipSpace();
        if (peek() != '"')
            return &faults::JsonName;
        JsonString name;
        if (const Fault* fault = scanString(name))
            return fault;
        skipSpace();
        if (peek() != ':')
            return &faults::JsonColon;
        ++m_cursor;
        m_handler.name(name);
        return nullptr;
    }

    const Fault* scanString(JsonString& string)
    {
        const char* cursor = m_cursor + 1;
        const Fault* const fault = scanJsonString(cursor, m_end, string);
        m_cursor = cursor;
        return fault;
    }

    const Fault* open(bool object)
    {
        if (m_depth == m_form.maxDepth)
            return &faults::TooDeep;
        ++m_cursor;
        m_objects[m_depth++] = object;
        skipSpace();
        return report(m_handler.start(object));
    }

    template<std::size_t Size>
    bool takeWord(const char (&word)[Size])
    {
        constexpr std::size_t Length = Size - 1;
        if (static_cast<std::size_t>(m_end - m_cursor) < Length ||
            std::memcmp(m_cursor, word, Length) != 0)
            return false;
        m_cursor += Length;
        return true;
    }

    void skipSpace()
    {
        // What is above a space is no white space either: most often a single comparison.
        for (; m_cursor != m_end && static_cast<unsigned char>(*m_cursor) <= ' '; ++m_cursor) {
            if (*m_cursor == '\n')
                ++m_lineEnds;
            else if (*m_cursor != ' ' && *m_cursor != '\t' && *m_cursor != '\r')
                return;
        }
    }

    static const Fault* report(bool taken) { return taken ? nullptr : &faults::OutOfMemory; }
    bool inObject() const { return m_objects[m_depth - 1]; }

    /** The next byte; at the end of the text NUL, which stands for nothing in JSON. */
    char peek() const { return m_cursor != m_end ? *m_cursor : '\0'; }

    const char* m_cursor;
    const char* const m_end;
    const JsonForm& m_form;
    Handler& m_handler;
    std::size_t m_depth = 0;
    std::size_t m_lineEnds = 0;
    std::bitset<PPS_MAX_DEPTH + 1> m_objects; ///< for each open level, whether it is an object
};

} // namespace pps

#endif
