// SPDX-License-Identifier: Apache-2.0
#include "MessageWriter.h"

#include "common/Failure.h"

namespace tamobox {

MessageWriter::MessageWriter()
{
    pps_encoder_initialize(&m_encoder, false);
}

MessageWriter::~MessageWriter()
{
    pps_encoder_cleanup(&m_encoder);
}

MessageWriter& MessageWriter::object(const std::string& name)
{
    return checked(pps_encoder_add_object_name(&m_encoder, ('@' + name).c_str()));
}

MessageWriter& MessageWriter::add(const char* name, const std::string& value)
{
    return add(name, value.c_str());
}

MessageWriter& MessageWriter::add(const char* name, const char* value)
{
    return checked(pps_encoder_add_string(&m_encoder, name, value));
}

MessageWriter& MessageWriter::add(const char* name, int value)
{
    return checked(pps_encoder_add_int(&m_encoder, name, value));
}

MessageWriter& MessageWriter::add(const char* name, double value)
{
    return checked(pps_encoder_add_double(&m_encoder, name, value));
}

MessageWriter& MessageWriter::add(const char* name, bool value)
{
    return checked(pps_encoder_add_bool(&m_encoder, name, value));
}

MessageWriter& MessageWriter::remove(const char* name)
{
    return checked(pps_encoder_delete_attribute(&m_encoder, name));
}

MessageWriter& MessageWriter::startObject(const char* name)
{
    return checked(pps_encoder_start_object(&m_encoder, name));
}

MessageWriter& MessageWriter::endObject()
{
    return checked(pps_encoder_end_object(&m_encoder));
}

MessageWriter& MessageWriter::startArray(const char* name)
{
    return checked(pps_encoder_start_array(&m_encoder, name));
}

MessageWriter& MessageWriter::endArray()
{
    return checked(pps_encoder_end_array(&m_encoder));
}

std::string MessageWriter::text()
{
    const char* const buffer = pps_encoder_buffer(&m_encoder);
    if (buffer == nullptr)
        throw systemFailure("cannot finish a message");
    return std::string(buffer, pps_encoder_length(&m_encoder));
}

MessageWriter& MessageWriter::checked(int result)
{
    if (result == -1)
        throw systemFailure("cannot put this into a message");
    return *this;
}

} // namespace tamobox
