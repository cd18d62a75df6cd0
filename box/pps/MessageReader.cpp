// SPDX-License-Identifier: Apache-2.0
#include "MessageReader.h"

#include "common/Failure.h"

namespace tamobox {

MessageReader::MessageReader(std::string text) : m_text(std::move(text))
{
    // The decoder takes a zero for the end of the text.
    if (m_text.find('\0') != std::string::npos)
        throw Failure("the message holds a zero byte");
    if (pps_decoder_initialize(&m_decoder, m_text.data()) == 0)
        return;
    std::size_t line = 0;
    const char* const reason = pps_decoder_error(&m_decoder, &line);
    const std::string sentence = "line " + std::to_string(line) + " of the message is malformed: " +
                                 (reason == nullptr ? "unreadable" : reason);
    pps_decoder_cleanup(&m_decoder);
    throw Failure(sentence);
}

MessageReader::~MessageReader()
{
    pps_decoder_cleanup(&m_decoder);
}

std::optional<std::string> MessageReader::string(const char* name) const
{
    const char* value = nullptr;
    if (pps_decoder_get_string(&m_decoder, name, &value) == -1)
        return std::nullopt;
    return value;
}

std::optional<double> MessageReader::number(const char* name) const
{
    double value = 0;
    if (pps_decoder_get_double(&m_decoder, name, &value) == -1)
        return std::nullopt;
    return value;
}

std::optional<bool> MessageReader::boolean(const char* name) const
{
    bool value = false;
    if (pps_decoder_get_bool(&m_decoder, name, &value) == -1)
        return std::nullopt;
    return value;
}

std::optional<int> MessageReader::integer(const char* name) const
{
    int value = 0;
    if (pps_decoder_get_int(&m_decoder, name, &value) == -1)
        return std::nullopt;
    return value;
}

bool MessageReader::has(const char* name) const
{
    return pps_decoder_type(&m_decoder, name) != PPS_TYPE_NONE;
}

bool MessageReader::enter(const char* name)
{
    if (pps_decoder_push(&m_decoder, name) == -1)
        return false;
    m_nextIndexes.push_back(0);
    return true;
}

void MessageReader::leave()
{
    if (pps_decoder_pop(&m_decoder) == 0)
        m_nextIndexes.pop_back();
}

bool MessageReader::next()
{
    if (pps_decoder_goto_index(&m_decoder, m_nextIndexes.back()) == -1)
        return false;
    ++m_nextIndexes.back();
    return true;
}

std::string MessageReader::name() const
{
    const char* const name = pps_decoder_name(&m_decoder);
    return name == nullptr ? std::string() : name;
}

pps_type_t MessageReader::type() const
{
    return pps_decoder_type(&m_decoder, nullptr);
}

} // namespace tamobox
