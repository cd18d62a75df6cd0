// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_ENCODERWRITER_H
#define PPS_ENCODERWRITER_H

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

    /** Whether attributes are lines where the encoder stands. */
    bool inLines() const { return !m_encoder.raw && m_encoder.depth == 0; }

    /** Writes what stands before a value: its name, if it has one, and punctuation. */
    EncoderWriter& name(const char* name, std::string_view marker);

    /** Writes text as it is. */
    EncoderWriter& verbatim(std::string_view text);

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
    EncoderWriter& fail(int code);
    bool inObject() const;
    bool reserve(std::size_t size);
    void put(std::string_view text);
    void putEscaped(std::string_view text, const char* (*escape)(char));
    void putQuoted(const char* text);
    void putLine(std::string_view text);

    pps_encoder_t& m_encoder;
    const std::size_t m_start; ///< where the text ended before the call
    int m_error = 0;
};

} // namespace pps

#endif
