// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_TEXTREADER_H
#define PPS_TEXTREADER_H

#include <cstddef>
#include <string_view>

namespace pps {

/** What one line of PPS text is. */
enum class LineKind {
    Object,          ///< `@name`
    RemovedObject,   ///< `-@name`
    ArrivedClient,   ///< `+@name.client`
    Attribute,       ///< `name:marker:value`
    DeletedAttribute ///< `-name`
};

/** One line of PPS text; the views lie in the text that was given to the reader. */
struct Line
{
    LineKind kind = LineKind::Attribute;
    std::string_view name;   ///< the attribute's name; for the object kinds from the at sign on
    std::string_view marker; ///< of an attribute: empty, `n`, `b` or `json`
    std::string_view value;  ///< of an attribute, as it stands: not unescaped
    std::string_view text;   ///< the whole line, without its line feed
};

/**
 * Reads PPS text line by line and checks each line completely, values included, so that what passes
 * here decodes. It changes and allocates nothing. It shares its grammar with the decoder.
 */
class TextReader
{
public:
    explicit TextReader(std::string_view text) : m_rest(text) {}

    /** Reads the next line. False at the end of the text, and where a line is malformed: see
     * error(). */
    bool next(Line& line);

    /** What was wrong, for a person to read; a static text, or null where nothing was. */
    const char* error() const { return m_error; }

    /** The number of the line that next() read last, counted from 1. */
    std::size_t lineNumber() const { return m_lineNumber; }

private:
    std::string_view m_rest;
    const char* m_error = nullptr;
    std::size_t m_lineNumber = 0;
};

} // namespace pps

#endif
