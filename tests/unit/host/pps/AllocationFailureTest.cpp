// SPDX-License-Identifier: Apache-2.0
#include "FailingAllocator.h"
#include "Message.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace {

using test::FailingAllocator;

TEST(AllocationFailure, EncoderAddsNothingAndGoesOn)
{
    const std::string value(300, 'x');
    test::Encoder encoder;
    std::string expected;
    int failures = 0;
    for (int line = 0; line < 100; ++line) {
        int result;
        int error;
        {
            const FailingAllocator allocator(0);
            result = pps_encoder_add_string(encoder, "name", value.c_str());
            error = errno;
        }
        if (result != 0) {
            ++failures;
            EXPECT_EQ(error, ENOMEM);
            ASSERT_EQ(encoder.text(), expected);
            ASSERT_EQ(pps_encoder_add_string(encoder, "name", value.c_str()), 0);
        }
        expected += "name::" + value + "\n";
        ASSERT_EQ(encoder.text(), expected);
    }
    EXPECT_GT(failures, 5);
}

TEST(AllocationFailure, EncoderStaysWhereItIsWhenAContainerDoesNotFit)
{
    bool hasFailed = false;
    for (std::size_t length = 400; length < 520; ++length) {
        test::Encoder encoder;
        ASSERT_EQ(pps_encoder_start_array(encoder, "a"), 0);
        ASSERT_EQ(pps_encoder_add_string(encoder, nullptr, std::string(length, 'x').c_str()), 0);
        int result;
        {
            const FailingAllocator allocator(0);
            result = pps_encoder_start_object(encoder, nullptr);
        }
        hasFailed = hasFailed || result != 0;
        if (result == 0) {
            ASSERT_EQ(pps_encoder_end_object(encoder), 0);
        }
        ASSERT_EQ(pps_encoder_end_array(encoder), 0);
        EXPECT_EQ(encoder.text(),
                  "a:json:[\"" + std::string(length, 'x') + (result == 0 ? "\",{}]\n" : "\"]\n"));
    }
    EXPECT_TRUE(hasFailed);
}

TEST(AllocationFailure, DecoderIsEmptyAfterwards)
{
    std::string text = "@o\nj:json:[";
    for (int element = 0; element < 1000; ++element)
        text += "1,";
    text.back() = ']';

    int failures = 0;
    for (bool done = false; !done; ++failures) {
        std::string copy = text;
        pps_decoder_t decoder;
        int result;
        int error;
        {
            const FailingAllocator allocator(failures);
            result = pps_decoder_initialize(&decoder, copy.data());
            error = errno;
            done = !allocator.hasFailed();
        }
        EXPECT_EQ(result, done ? 0 : -1);
        if (!done) {
            EXPECT_EQ(error, ENOMEM);
        }
        EXPECT_EQ(pps_decoder_length(&decoder), done ? 1 : 0);
        pps_decoder_cleanup(&decoder);
    }
    EXPECT_GT(failures, 3);
}

} // namespace
