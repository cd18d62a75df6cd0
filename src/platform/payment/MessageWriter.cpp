// SPDX-License-Identifier: Apache-2.0
#include "MessageWriter.h"

#include "ServiceDescriptor.h"

#include <tamo/Exception.h>

namespace tamo {
namespace platform {

namespace {

void check(int result)
{
    if (result != 0)
        throw Exception();
}

} // namespace

MessageWriter::MessageWriter()
{
    pps_encoder_initialize(&m_encoder, false);
}

MessageWriter::~MessageWriter()
{
    pps_encoder_cleanup(&m_encoder);
}

void MessageWriter::addText(const char* name, const QString& text)
{
    // Null, for a text that has no UTF-8, is refused by the encoder.
    addText(name, m_utf8.convert(text));
}

void MessageWriter::addText(const char* name, const char* utf8)
{
    check(pps_encoder_add_string(&m_encoder, name, utf8));
}

void MessageWriter::addNumber(const char* name, double number)
{
    check(pps_encoder_add_double(&m_encoder, name, number));
}

void MessageWriter::addBool(const char* name, bool value)
{
    check(pps_encoder_add_bool(&m_encoder, name, value));
}

void MessageWriter::startObject(const char* name)
{
    check(pps_encoder_start_object(&m_encoder, name));
}

void MessageWriter::endObject()
{
    check(pps_encoder_end_object(&m_encoder));
}

void MessageWriter::startArray(const char* name)
{
    check(pps_encoder_start_array(&m_encoder, name));
}

void MessageWriter::endArray()
{
    check(pps_encoder_end_array(&m_encoder));
}

void MessageWriter::writeTo(const ServiceDescriptor& service)
{
    const char* const text = pps_encoder_buffer(&m_encoder);
    if (!text)
        throw Exception();
    service.write(text, pps_encoder_length(&m_encoder));
}

} // namespace platform
} // namespace tamo
