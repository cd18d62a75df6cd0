// SPDX-License-Identifier: Apache-2.0
#include "EncoderWriter.h"
#include "Punctuation.h"

#include <pps/encoder.h>

#include <cerrno>
#include <cstdlib>

using pps::EncoderWriter;
using pps::Punctuation;

namespace {

constexpr Punctuation Null = "null";
constexpr Punctuation True = "true";
constexpr Punctuation False = "false";

namespace markers {

constexpr Punctuation String = "::";
constexpr Punctuation Number = ":n:";
constexpr Punctuation Boolean = ":b:";
constexpr Punctuation Json = ":json:";

} // namespace markers
} // namespace

void pps_encoder_initialize(pps_encoder_t* encoder, bool raw)
{
    encoder->data = encoder->inline_data;
    encoder->capacity = sizeof encoder->inline_data;
    encoder->raw = raw;
    pps_encoder_reset(encoder);
}

void pps_encoder_cleanup(pps_encoder_t* encoder)
{
    if (encoder->data != encoder->inline_data)
        free(encoder->data);
    pps_encoder_initialize(encoder, encoder->raw);
}

void pps_encoder_reset(pps_encoder_t* encoder)
{
    encoder->length = 0;
    encoder->depth = 0;
    if (encoder->raw)
        encoder->data[encoder->length++] = '{';
}

const char* pps_encoder_buffer(pps_encoder_t* encoder)
{
    if (encoder->depth != 0) {
        errno = EINVAL;
        return nullptr;
    }
    // The writer leaves room for these two bytes. The next call writes over them.
    char* end = encoder->data + encoder->length;
    if (encoder->raw)
        *end++ = '}';
    *end = '\0';
    return encoder->data;
}

size_t pps_encoder_length(pps_encoder_t* encoder)
{
    if (encoder->depth != 0)
        return 0;
    return encoder->length + (encoder->raw ? 1 : 0);
}

int pps_encoder_add_null(pps_encoder_t* encoder, const char* name)
{
    return EncoderWriter(encoder).name(name, markers::Json).word(Null).finish();
}

int pps_encoder_add_bool(pps_encoder_t* encoder, const char* name, bool value)
{
    return EncoderWriter(encoder).name(name, markers::Boolean).word(value ? True : False).finish();
}

int pps_encoder_add_int(pps_encoder_t* encoder, const char* name, int value)
{
    return pps_encoder_add_int64(encoder, name, value);
}

int pps_encoder_add_int64(pps_encoder_t* encoder, const char* name, int64_t value)
{
    return EncoderWriter(encoder).name(name, markers::Number).number(value).finish();
}

int pps_encoder_add_double(pps_encoder_t* encoder, const char* name, double value)
{
    return EncoderWriter(encoder).name(name, markers::Number).number(value).finish();
}

int pps_encoder_add_string(pps_encoder_t* encoder, const char* name, const char* value)
{
    return EncoderWriter(encoder).name(name, markers::String).string(value).finish();
}

int pps_encoder_start_object(pps_encoder_t* encoder, const char* name)
{
    return EncoderWriter(encoder).name(name, markers::Json).open(true).finish();
}

int pps_encoder_end_object(pps_encoder_t* encoder)
{
    return EncoderWriter(encoder).close(true).finish();
}

int pps_encoder_start_array(pps_encoder_t* encoder, const char* name)
{
    return EncoderWriter(encoder).name(name, markers::Json).open(false).finish();
}

int pps_encoder_end_array(pps_encoder_t* encoder)
{
    return EncoderWriter(encoder).close(false).finish();
}

int pps_encoder_delete_attribute(pps_encoder_t* encoder, const char* name)
{
    return EncoderWriter(encoder).deletion(name).finish();
}

int pps_encoder_add_object_name(pps_encoder_t* encoder, const char* name)
{
    return EncoderWriter(encoder).objectName(name).finish();
}
