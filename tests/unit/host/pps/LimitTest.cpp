// SPDX-License-Identifier: Apache-2.0
#include "Message.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace {

using test::Decoder;
using test::Encoder;

std::string nested(std::size_t depth)
{
    std::string text(depth, '[');
    return text.append(depth, ']');
}

/** Nested members of each other, the innermost one null. */
std::string nestedObjects(std::size_t depth)
{
    std::string text;
    for (std::size_t level = 0; level < depth; ++level)
        text += "{\"o\":";
    return text.append("null").append(depth, '}');
}

TEST(Limit, DecoderTakesAnAttributeOfFullDepth)
{
    for (const std::string& value : {nested(PPS_MAX_DEPTH), nestedObjects(PPS_MAX_DEPTH)}) {
        Decoder decoder("@o\na:json:" + value + "\n");
        ASSERT_EQ(decoder.result(), 0) << pps_decoder_error(decoder, nullptr);
        ASSERT_EQ(pps_decoder_push(decoder, nullptr), 0);
        for (int level = 0; level < PPS_MAX_DEPTH; ++level)
            ASSERT_EQ(pps_decoder_push(decoder, nullptr), 0) << level;
        EXPECT_EQ(pps_decoder_push(decoder, nullptr), -1);
        for (int level = 0; level <= PPS_MAX_DEPTH; ++level)
            ASSERT_EQ(pps_decoder_pop(decoder), 0) << level;
        EXPECT_STREQ(pps_decoder_name(decoder), "@o");
    }
}

TEST(Limit, DecoderRefusesAnAttributeThatIsDeeper)
{
    for (const std::string& value : {nested(PPS_MAX_DEPTH + 1), nestedObjects(PPS_MAX_DEPTH + 1)}) {
        errno = 0;
        Decoder decoder("a:json:" + value);
        EXPECT_EQ(decoder.result(), -1);
        EXPECT_EQ(errno, EOVERFLOW);
        EXPECT_EQ(pps_decoder_length(decoder), 0);
    }
}

TEST(Limit, JsonMessageIsALevelAroundItsAttributes)
{
    Decoder deep("{\"a\":" + nested(PPS_MAX_DEPTH) + "}", pps_decoder_parse_json_str);
    EXPECT_EQ(deep.result(), 0);
    errno = 0;
    Decoder tooDeep("{\"a\":" + nested(PPS_MAX_DEPTH + 1) + "}", pps_decoder_parse_json_str);
    EXPECT_EQ(tooDeep.result(), -1);
    EXPECT_EQ(errno, EOVERFLOW);
}

TEST(Limit, AMegabyteOfBracketsIsAnError)
{
    for (const char bracket : {'[', '{', ']', '"'}) {
        errno = 0;
        Decoder decoder("a:json:[" + std::string(1 << 20, bracket));
        EXPECT_EQ(decoder.result(), -1);
        EXPECT_EQ(errno, bracket == '[' ? EOVERFLOW : EINVAL);
    }
}

class EncoderDepth : public testing::TestWithParam<bool>
{
};

TEST_P(EncoderDepth, IsThatOfTheDecoder)
{
    const bool objects = GetParam();
    for (const auto mode : {Encoder::Text, Encoder::Raw}) {
        Encoder encoder(mode);
        const auto start = objects ? pps_encoder_start_object : pps_encoder_start_array;
        const auto end = objects ? pps_encoder_end_object : pps_encoder_end_array;
        const char* const inner = objects ? "o" : nullptr;
        ASSERT_EQ(start(encoder, "a"), 0);
        for (int level = 1; level < PPS_MAX_DEPTH; ++level)
            ASSERT_EQ(start(encoder, inner), 0) << level;
        for (int attempt = 0; attempt < 2; ++attempt) {
            errno = 0;
            EXPECT_EQ(pps_encoder_start_array(encoder, inner), -1);
            EXPECT_EQ(errno, EOVERFLOW);
            EXPECT_EQ(pps_encoder_start_object(encoder, inner), -1);
            EXPECT_EQ(errno, EOVERFLOW);
        }
        ASSERT_EQ(pps_encoder_add_null(encoder, inner), 0);
        for (int level = 0; level < PPS_MAX_DEPTH; ++level)
            ASSERT_EQ(end(encoder), 0) << level;

        Decoder decoder(encoder.text(), mode == Encoder::Text ? pps_decoder_parse_pps_str
                                                              : pps_decoder_parse_json_str);
        ASSERT_EQ(decoder.result(), 0);
        for (int level = 0; level < PPS_MAX_DEPTH; ++level)
            ASSERT_EQ(pps_decoder_push(decoder, nullptr), 0) << level;
        EXPECT_EQ(pps_decoder_type(decoder, nullptr), PPS_TYPE_NULL);
    }
}

INSTANTIATE_TEST_SUITE_P(Limit, EncoderDepth, testing::Bool());

} // namespace
