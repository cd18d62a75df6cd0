// SPDX-License-Identifier: Apache-2.0
#ifndef TEST_PPS_VALUE_H
#define TEST_PPS_VALUE_H

#include <pps/decoder.h>
#include <pps/encoder.h>

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace test {

struct Member;

/** A value that a message can hold: what the encoder is given and the decoder has to give back. */
struct Value
{
    struct Null
    {
    };
    using Array = std::vector<Value>;
    using Object = std::vector<Member>;

    std::variant<Null, bool, std::int64_t, double, std::string, Array, Object> is;
};

/** A member of an object. Names may be repeated. */
struct Member
{
    std::string name;
    Value value;
};

/**
 * Adds the members to where the encoder stands.
 *
 * @return false where the encoder refused one of them
 */
bool encode(const Value::Object& members, pps_encoder_t* encoder);

/** Compares the container that the decoder is in with the members, all of them and in order. */
bool holds(pps_decoder_t* decoder, const Value::Object& members);

/** Reads the container that the decoder is in. Deleted members are left out. */
Value::Object decode(pps_decoder_t* decoder);

} // namespace test

#endif
