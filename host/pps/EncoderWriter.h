// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_ENCODERWRITER_H
#define PPS_ENCODERWRITER_H

#include "ByteScan.h"
#include "Punctuation.h"

#include <pps/encoder.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pps {

/**
 * Does the work of one call of the encoder's interface, so that a call that fails has added
 * nothing: its functions append to the text one after another, and finish() keeps what they wrote
 * or, if one of them failed, takes it back. After a failure the others do nothing.
 */
class EncoderWriter
{
public:
    explicit EncoderWriter(pps_encoder_t* encoder) : m_encoder(*encoder), m_start(encoder->length)
    {
    }

    /**
     * Writes what stands before a value: its name, if it has one, and punctuation.
     *
     * @param marker the marker that stands on a line, with its colons
     */
    EncoderWriter& name(const char* name, const Punctuation& marker);

    /** Writes a value that is a word. */
    EncoderWriter& word(const Punctuation& word);

    /** Writes a string, escaped and, in JSON, in quotes. */
    EncoderWriter& string(const char* text);

    EncoderWriter& number(std::int64_t value);

    /** Writes a number, an integral one as an integer where it is exact. */
    EncoderWriter& number(double value);

    /** Begins an object or array. Nothing may be written after it in the same call. */
    EncoderWriter& open(bool object);

    /** Ends the innermost object or array, if it is one. Nothing may be written after it. */
    EncoderWriter& close(bool object);

    /** Writes the line that deletes an attribute, without its end. */
    EncoderWriter& deletion(const char* name);

    /** Writes an object-name line without its end. */
    EncoderWriter& objectName(const char* name);

    /** Writes a line end, if attributes are lines here. Then tells the result of the call. */
    int finish();

private:
    /**
     * How many bytes are free beyond those that were asked for: a line end or a brace at the end of
     * the text and the final NUL, or what is stored in whole blocks and is not part of the text.
     */
    static constexpr std::size_t Slack = Block::Size + 2 * Punctuation::StoredSize;

    /** Whether attributes are lines where the encoder stands. */
    bool inLines() const { return !m_encoder.raw && m_encoder.depth == 0; }
    bool inArray() const;

    EncoderWriter& fail(int code);
    bool grow(std::size_t size);

    /** Where the text goes on, with so many bytes free and the slack; null after a failure. */
    char* room(std::size_t size)
    {
        if (m_error || (size + Slack > m_encoder.capacity - m_encoder.length && !grow(size)))
            return nullptr;
        return m_encoder.data + m_encoder.length;
    }

    /** Ends the text at `end`, which lies in the room that was given out last. */
    void wrote(const char* end)
    {
        m_encoder.length = static_cast<std::size_t>(end - m_encoder.data);
    }

    void put(const Punctuation& characters)
    {
        if (char* const to = room(0))
            wrote(characters.store(to));
    }

    template<class Number>
    void putNumber(Number value);

    /** Writes a string between what stands before it and what stands behind it. */
    template<class Rules>
    void putString(const Punctuation& before, std::string_view text, const Punctuation& after);
    void putSpecial(const char*& cursor, const char* end, const char* (*replacementOf)(char));

    pps_encoder_t& m_encoder;
    const std::size_t m_start; ///< where the text ended before the call
    int m_error = 0;
};

} // namespace pps

#endif
