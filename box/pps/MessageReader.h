// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_MESSAGEREADER_H
#define TAMOBOX_MESSAGEREADER_H

#include <pps/decoder.h>

#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/**
 * Reads one PPS message. It stands in a container, at first the top level, and looks its members up
 * by name; what is not there, or is of another type, is reported as nothing.
 */
class MessageReader
{
public:
    /** @throws Failure where the text is malformed, with the line and what is wrong with it */
    explicit MessageReader(std::string text);
    ~MessageReader();
    MessageReader(const MessageReader&) = delete;
    MessageReader& operator=(const MessageReader&) = delete;

    std::optional<std::string> string(const char* name) const;
    std::optional<double> number(const char* name) const;
    std::optional<bool> boolean(const char* name) const;

    /** A number that is a whole one in the range of `int`. */
    std::optional<int> integer(const char* name) const;

    bool has(const char* name) const;

    /** Goes into a member that is an object or an array; false, and nothing moves, where it is not.
     */
    bool enter(const char* name);

    /** Comes back to the container that enter() left. */
    void leave();

    /** Goes to the next member of the container, at first to the first; false after the last. */
    bool next();

    /** The name of the member that next() went to. */
    std::string name() const;

    /** The type of the member that next() went to. */
    pps_type_t type() const;

    /** The decoder itself, for what this class has no word for. */
    pps_decoder_t* decoder() { return &m_decoder; }

private:
    std::string m_text;
    pps_decoder_t m_decoder;
    std::vector<int> m_nextIndexes = {0}; // one for each container, from the top level inwards
};

} // namespace tamobox

#endif
