// SPDX-License-Identifier: Apache-2.0
#include "MessageReader.h"

#include "pps/Utf8Text.h"

#include <cstring>
#include <string_view>

namespace tamo {
namespace platform {

namespace {

template<class Value, class Get>
std::optional<Value> valueOf(const pps_decoder_t& decoder, const char* name, Get get)
{
    Value value = {};
    if (get(&decoder, name, &value) != 0)
        return std::nullopt;
    return value;
}

} // namespace

MessageReader::MessageReader(const char* text, std::size_t length) : m_text(text, text + length)
{
    // The decoder would take the text to end at a zero.
    const bool isText = std::string_view(text, length).find('\0') == std::string_view::npos;
    m_text.push_back('\0');
    m_isValid = pps_decoder_initialize(&m_decoder, isText ? m_text.data() : nullptr) == 0 && isText;
}

MessageReader::~MessageReader()
{
    pps_decoder_cleanup(&m_decoder);
}

std::optional<const char*> MessageReader::utf8(const char* name) const
{
    return valueOf<const char*>(m_decoder, name, pps_decoder_get_string);
}

std::optional<QString> MessageReader::text(const char* name) const
{
    const std::optional<const char*> found = utf8(name);
    if (!found)
        return std::nullopt;
    return textFromUtf8(*found, std::strlen(*found));
}

std::optional<int> MessageReader::integer(const char* name) const
{
    return valueOf<int>(m_decoder, name, pps_decoder_get_int);
}

std::optional<double> MessageReader::number(const char* name) const
{
    return valueOf<double>(m_decoder, name, pps_decoder_get_double);
}

std::optional<bool> MessageReader::boolean(const char* name) const
{
    return valueOf<bool>(m_decoder, name, pps_decoder_get_bool);
}

void MessageReader::readText(const char* name, QString& value) const
{
    if (std::optional<QString> found = text(name))
        value = std::move(*found);
}

bool MessageReader::enterObject(const char* name)
{
    return enter(name, PPS_TYPE_OBJECT);
}

bool MessageReader::enterArray(const char* name)
{
    return enter(name, PPS_TYPE_ARRAY);
}

bool MessageReader::enterContainer(const char* name)
{
    return enterObject(name) || enterArray(name);
}

bool MessageReader::enterElement(int index)
{
    return pps_decoder_goto_index(&m_decoder, index) == 0 && enter(nullptr, PPS_TYPE_OBJECT);
}

void MessageReader::leave()
{
    pps_decoder_pop(&m_decoder);
}

int MessageReader::length() const
{
    return pps_decoder_length(&m_decoder);
}

bool MessageReader::enter(const char* name, pps_type_t type)
{
    return pps_decoder_type(&m_decoder, name) == type && pps_decoder_push(&m_decoder, name) == 0;
}

} // namespace platform
} // namespace tamo
