// SPDX-License-Identifier: Apache-2.0
#ifndef TEST_PPS_MESSAGE_H
#define TEST_PPS_MESSAGE_H

#include <pps/decoder.h>
#include <pps/encoder.h>

#include <string>
#include <utility>

namespace test {

/** An encoder that cleans up after itself. */
class Encoder
{
public:
    enum Mode { Text, Raw };

    explicit Encoder(Mode mode = Text) { pps_encoder_initialize(&m_encoder, mode == Raw); }
    ~Encoder() { pps_encoder_cleanup(&m_encoder); }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    operator pps_encoder_t*() { return &m_encoder; }

    /** The text so far. */
    std::string text()
    {
        const char* const buffer = pps_encoder_buffer(&m_encoder);
        return buffer ? std::string(buffer, pps_encoder_length(&m_encoder)) : "(no text)";
    }

private:
    pps_encoder_t m_encoder;
};

/** A decoder together with the text that it parses in place. */
class Decoder
{
public:
    using Parser = int (*)(pps_decoder_t*, char*);

    /** Parses a copy of the text; result() tells how that went. */
    explicit Decoder(std::string text, Parser parser = pps_decoder_parse_pps_str)
        : m_text(std::move(text))
    {
        pps_decoder_initialize(&m_decoder, nullptr);
        m_result = parser(&m_decoder, m_text.data());
    }
    ~Decoder() { pps_decoder_cleanup(&m_decoder); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    operator pps_decoder_t*() { return &m_decoder; }
    int result() const { return m_result; }

private:
    std::string m_text;
    pps_decoder_t m_decoder;
    int m_result;
};

} // namespace test

#endif
