// SPDX-License-Identifier: Apache-2.0
#include "Value.h"

#include <cstring>

namespace test {
namespace {

/** Adds one value under a name, which is null in an array. */
struct Adder
{
    pps_encoder_t* encoder;
    const char* name;

    bool operator()(Value::Null) const { return pps_encoder_add_null(encoder, name) == 0; }
    bool operator()(bool value) const { return pps_encoder_add_bool(encoder, name, value) == 0; }
    bool operator()(std::int64_t value) const
    {
        return pps_encoder_add_int64(encoder, name, value) == 0;
    }
    bool operator()(double value) const
    {
        return pps_encoder_add_double(encoder, name, value) == 0;
    }
    bool operator()(const std::string& value) const
    {
        return pps_encoder_add_string(encoder, name, value.c_str()) == 0;
    }
    bool operator()(const Value::Array& elements) const
    {
        if (pps_encoder_start_array(encoder, name) != 0)
            return false;
        for (const Value& element : elements) {
            if (!std::visit(Adder{encoder, nullptr}, element.is))
                return false;
        }
        return pps_encoder_end_array(encoder) == 0;
    }
    bool operator()(const Value::Object& members) const
    {
        return pps_encoder_start_object(encoder, name) == 0 && encode(members, encoder) &&
               pps_encoder_end_object(encoder) == 0;
    }
};

bool isSameDouble(double left, double right)
{
    return std::memcmp(&left, &right, sizeof left) == 0; // tells the zeros apart
}

/** Compares the element that the decoder stands on with a value. */
struct Comparer
{
    pps_decoder_t* decoder;

    bool operator()(Value::Null) const
    {
        return pps_decoder_type(decoder, nullptr) == PPS_TYPE_NULL;
    }
    bool operator()(bool value) const
    {
        bool read = !value;
        return pps_decoder_get_bool(decoder, nullptr, &read) == 0 && read == value;
    }
    bool operator()(std::int64_t value) const
    {
        std::int64_t read = ~value;
        double real = 0;
        return pps_decoder_get_int64(decoder, nullptr, &read) == 0 && read == value &&
               pps_decoder_get_double(decoder, nullptr, &real) == 0 &&
               isSameDouble(real, static_cast<double>(value));
    }
    bool operator()(double value) const
    {
        double read = 0;
        return pps_decoder_get_double(decoder, nullptr, &read) == 0 && isSameDouble(read, value);
    }
    bool operator()(const std::string& value) const
    {
        const char* read = nullptr;
        return pps_decoder_get_string(decoder, nullptr, &read) == 0 && read == value;
    }
    bool operator()(const Value::Array& elements) const
    {
        if (pps_decoder_type(decoder, nullptr) != PPS_TYPE_ARRAY ||
            pps_decoder_push(decoder, nullptr) != 0 ||
            pps_decoder_length(decoder) != static_cast<int>(elements.size()))
            return false;
        for (std::size_t index = 0; index < elements.size(); ++index) {
            if (pps_decoder_goto_index(decoder, static_cast<int>(index)) != 0 ||
                pps_decoder_name(decoder) != nullptr || !std::visit(*this, elements[index].is))
                return false;
        }
        return pps_decoder_pop(decoder) == 0;
    }
    bool operator()(const Value::Object& members) const
    {
        return pps_decoder_type(decoder, nullptr) == PPS_TYPE_OBJECT &&
               pps_decoder_push(decoder, nullptr) == 0 && holds(decoder, members) &&
               pps_decoder_pop(decoder) == 0;
    }
};

Value decodeElement(pps_decoder_t* decoder)
{
    switch (pps_decoder_type(decoder, nullptr)) {
    case PPS_TYPE_BOOL: {
        bool value = false;
        pps_decoder_get_bool(decoder, nullptr, &value);
        return {value};
    }
    case PPS_TYPE_NUMBER: {
        double value = 0;
        pps_decoder_get_double(decoder, nullptr, &value);
        return {value};
    }
    case PPS_TYPE_STRING: {
        const char* value = nullptr;
        pps_decoder_get_string(decoder, nullptr, &value);
        return {std::string(value)};
    }
    case PPS_TYPE_ARRAY: {
        Value::Array elements;
        pps_decoder_push(decoder, nullptr);
        for (int index = 0; index < pps_decoder_length(decoder); ++index) {
            pps_decoder_goto_index(decoder, index);
            elements.push_back(decodeElement(decoder));
        }
        pps_decoder_pop(decoder);
        return {std::move(elements)};
    }
    case PPS_TYPE_OBJECT: {
        pps_decoder_push(decoder, nullptr);
        Value::Object members = decode(decoder);
        pps_decoder_pop(decoder);
        return {std::move(members)};
    }
    default:
        return {Value::Null()};
    }
}

} // namespace

bool encode(const Value::Object& members, pps_encoder_t* encoder)
{
    for (const Member& member : members) {
        if (!std::visit(Adder{encoder, member.name.c_str()}, member.value.is))
            return false;
    }
    return true;
}

bool holds(pps_decoder_t* decoder, const Value::Object& members)
{
    if (pps_decoder_length(decoder) != static_cast<int>(members.size()))
        return false;
    for (std::size_t index = 0; index < members.size(); ++index) {
        if (pps_decoder_goto_index(decoder, static_cast<int>(index)) != 0 ||
            pps_decoder_name(decoder) != members[index].name ||
            !std::visit(Comparer{decoder}, members[index].value.is))
            return false;
    }
    return true;
}

Value::Object decode(pps_decoder_t* decoder)
{
    Value::Object members;
    for (int index = 0; index < pps_decoder_length(decoder); ++index) {
        pps_decoder_goto_index(decoder, index);
        if (pps_decoder_type(decoder, nullptr) != PPS_TYPE_DELETED)
            members.push_back({pps_decoder_name(decoder), decodeElement(decoder)});
    }
    return members;
}

} // namespace test
