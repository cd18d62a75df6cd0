// SPDX-License-Identifier: Apache-2.0
#include "Message.h"
#include "Value.h"
#include "ValueGenerator.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cstdint>
#include <string>

namespace {

using test::Decoder;
using test::Encoder;
using test::Value;
using test::ValueGenerator;

TEST(RoundTrip, WhateverIsAcceptedDecodesToAnEqualMessage)
{
    for (std::uint32_t seed = 0; seed < 3000; ++seed) {
        const Value::Object message = ValueGenerator(seed).message();
        Encoder encoder;
        ASSERT_TRUE(test::encode(message, encoder)) << "seed " << seed;
        Decoder decoder(encoder.text());
        ASSERT_EQ(decoder.result(), 0)
            << "seed " << seed << ": " << pps_decoder_error(decoder, nullptr) << '\n'
            << encoder.text();
        ASSERT_TRUE(test::holds(decoder, message)) << "seed " << seed << '\n' << encoder.text();
    }
}

TEST(RoundTrip, RawModeIsReadByTheJsonParser)
{
    for (std::uint32_t seed = 0; seed < 1000; ++seed) {
        const Value::Object message = ValueGenerator(seed).message();
        Encoder encoder(Encoder::Raw);
        ASSERT_TRUE(test::encode(message, encoder)) << "seed " << seed;
        Decoder decoder(encoder.text(), pps_decoder_parse_json_str);
        ASSERT_EQ(decoder.result(), 0) << "seed " << seed << '\n' << encoder.text();
        ASSERT_TRUE(test::holds(decoder, message)) << "seed " << seed << '\n' << encoder.text();
    }
}

TEST(RoundTrip, EveryCharacterComesBackInEveryPlace)
{
    for (char32_t codePoint = 1; codePoint <= 0x10FFFF; codePoint += codePoint < 0x3000 ? 1 : 211) {
        if (codePoint >= 0xD800 && codePoint < 0xE000)
            continue;
        std::string text;
        if (codePoint < 0x80) {
            text = {static_cast<char>(codePoint)};
        } else if (codePoint < 0x800) {
            text = {static_cast<char>(0xC0 | codePoint >> 6),
                    static_cast<char>(0x80 | (codePoint & 0x3F))};
        } else if (codePoint < 0x10000) {
            text = {static_cast<char>(0xE0 | codePoint >> 12),
                    static_cast<char>(0x80 | (codePoint >> 6 & 0x3F)),
                    static_cast<char>(0x80 | (codePoint & 0x3F))};
        } else {
            text = {static_cast<char>(0xF0 | codePoint >> 18),
                    static_cast<char>(0x80 | (codePoint >> 12 & 0x3F)),
                    static_cast<char>(0x80 | (codePoint >> 6 & 0x3F)),
                    static_cast<char>(0x80 | (codePoint & 0x3F))};
        }
        const Value::Object message{
            {"text", {text}},
            {"inside", {"some" + text + text + "thing longer than a block"}},
            {"json", {Value::Object{{text, {text}}}}}};
        Encoder encoder;
        ASSERT_TRUE(test::encode(message, encoder)) << codePoint;
        Decoder decoder(encoder.text());
        ASSERT_TRUE(test::holds(decoder, message)) << codePoint;
    }
}

TEST(RoundTrip, StringsOfEveryLengthComeBack)
{
    for (std::size_t length = 0; length < 1100; ++length) {
        std::string text(length, 'x');
        if (length != 0)
            text.back() = length % 2 == 0 ? '"' : '\n';
        const Value::Object message{{"t", {text}}, {"j", {Value::Array{{text}, {text}}}}};
        Encoder encoder;
        ASSERT_TRUE(test::encode(message, encoder)) << length;
        Decoder decoder(encoder.text());
        ASSERT_TRUE(test::holds(decoder, message)) << length;
    }
}

TEST(RoundTrip, ExtremeNumbersComeBack)
{
    const Value::Object message{
        {"a", {DBL_MAX}},
        {"b", {-DBL_MAX}},
        {"c", {DBL_MIN}},
        {"d", {DBL_TRUE_MIN}},
        {"e", {-0.0}},
        {"f", {0.1 + 0.2}},
        {"g", {INT64_MAX}},
        {"h", {INT64_MIN}},
        {"i", {9007199254740993.0}},
        {"j", {DBL_EPSILON}},
        {"k", {std::int64_t(0)}},
        {"l", {1e22}},
        {"m", {Value::Array{{INT64_MIN}, {-DBL_TRUE_MIN}, {-0.0}}}},
    };
    Encoder encoder;
    ASSERT_TRUE(test::encode(message, encoder));
    Decoder decoder(encoder.text());
    EXPECT_TRUE(test::holds(decoder, message)) << encoder.text();
}

TEST(RoundTrip, RepeatedNamesAllComeBack)
{
    const Value::Object message{
        {"a", {true}},
        {"a", {Value::Object{{"b", {1.0}}, {"b", {2.0}}, {"", {false}}, {"", {Value::Null()}}}}},
        {"a", {std::string("last")}}};
    Encoder encoder;
    ASSERT_TRUE(test::encode(message, encoder));
    Decoder decoder(encoder.text());
    EXPECT_TRUE(test::holds(decoder, message));
}

TEST(RoundTrip, MessagesOfAMegabyteComeBack)
{
    Value::Array elements(100000, Value{std::string("abcdefg")});
    const Value::Object message{{"many", {elements}},
                                {"long", {std::string(1 << 20, 'l')}},
                                {"escaped", {std::string(1 << 20, '\n')}},
                                {"inner", {Value::Array{{std::string(1 << 20, '"')}}}}};
    Encoder encoder;
    ASSERT_TRUE(test::encode(message, encoder));
    Decoder decoder(encoder.text());
    EXPECT_TRUE(test::holds(decoder, message));
}

} // namespace
