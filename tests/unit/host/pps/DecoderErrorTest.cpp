// SPDX-License-Identifier: Apache-2.0
#include "Malformed.h"
#include "Message.h"
#include "Value.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <string>

namespace {

using test::Decoder;

class MalformedMessage : public testing::TestWithParam<test::MalformedLine>
{
};

TEST_P(MalformedMessage, IsRefusedWithItsLine)
{
    errno = 0;
    Decoder decoder("@object\nfine:n:1\n" + GetParam().line + "\nfine:n:2\n");
    EXPECT_EQ(decoder.result(), -1);
    EXPECT_EQ(errno, EINVAL);
    std::size_t line = 0;
    EXPECT_NE(pps_decoder_error(decoder, &line), nullptr);
    EXPECT_EQ(line, 3U);
    EXPECT_NE(pps_decoder_error(decoder, nullptr), nullptr);
    EXPECT_EQ(pps_decoder_length(decoder), 0) << "half a message is left";
    EXPECT_EQ(pps_decoder_type(decoder, "@object"), PPS_TYPE_NONE);
}

INSTANTIATE_TEST_SUITE_P(Decoder, MalformedMessage, testing::ValuesIn(test::MalformedLines));

TEST(Decoder, RefusesJsonThatIsNotAnObject)
{
    for (const char* const text : {"", " ", "null", "[]", "1", "\"a\"", "{}{}", "{} x", "{",
                                   "{\"a\":1", "\xef\xbb\xbf{}", "@a\nb:n:1\n"}) {
        errno = 0;
        Decoder decoder(text, pps_decoder_parse_json_str);
        EXPECT_EQ(decoder.result(), -1) << text;
        EXPECT_EQ(errno, EINVAL) << text;
        EXPECT_NE(pps_decoder_error(decoder, nullptr), nullptr) << text;
        EXPECT_EQ(pps_decoder_length(decoder), 0) << text;
    }
}

TEST(Decoder, TellsTheLineOfAJsonError)
{
    Decoder decoder("{\r\n\t\"a\\nb\" : 1 ,\n\n\"b\":tru }", pps_decoder_parse_json_str);
    EXPECT_EQ(decoder.result(), -1);
    std::size_t line = 0;
    EXPECT_STREQ(pps_decoder_error(decoder, &line), "JSON: a value expected");
    EXPECT_EQ(line, 4U);
}

TEST(Decoder, ParsesAgainAfterAnError)
{
    Decoder decoder("bad\n");
    ASSERT_EQ(decoder.result(), -1);
    std::string good = "a:n:1\n";
    EXPECT_EQ(pps_decoder_parse_pps_str(decoder, good.data()), 0);
    EXPECT_EQ(pps_decoder_error(decoder, nullptr), nullptr);
    EXPECT_EQ(pps_decoder_length(decoder), 1);
}

TEST(Decoder, RefusesNoText)
{
    Decoder decoder("a:n:1\n");
    errno = 0;
    EXPECT_EQ(pps_decoder_parse_pps_str(decoder, nullptr), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(pps_decoder_parse_json_str(decoder, nullptr), -1);
    EXPECT_EQ(pps_decoder_length(decoder), 1) << "the text before is gone";
}

TEST(Decoder, IsEmptyWithoutText)
{
    pps_decoder_t decoder;
    ASSERT_EQ(pps_decoder_initialize(&decoder, nullptr), 0);
    EXPECT_EQ(pps_decoder_length(&decoder), 0);
    EXPECT_EQ(pps_decoder_name(&decoder), nullptr);
    EXPECT_EQ(pps_decoder_type(&decoder, nullptr), PPS_TYPE_NONE);
    EXPECT_EQ(pps_decoder_type(&decoder, "a"), PPS_TYPE_NONE);
    EXPECT_EQ(pps_decoder_error(&decoder, nullptr), nullptr);
    bool value;
    for (const int result :
         {pps_decoder_goto_index(&decoder, 0), pps_decoder_push(&decoder, nullptr),
          pps_decoder_push(&decoder, "a"), pps_decoder_pop(&decoder),
          pps_decoder_get_bool(&decoder, nullptr, &value)})
        EXPECT_EQ(result, -1);
    EXPECT_EQ(errno, ENOENT);
    pps_decoder_cleanup(&decoder);
    pps_decoder_cleanup(&decoder);
}

/** What becomes of each reading function on one kind of element. */
void expectEachReader(pps_decoder_t* decoder, const char* name, int expectedErrno,
                      pps_type_t readable)
{
    bool boolean;
    int integer;
    std::int64_t wide;
    double real;
    const char* string;
    const auto expect = [&](int result, pps_type_t type) {
        if (type == readable) {
            EXPECT_EQ(result, 0);
            return;
        }
        EXPECT_EQ(result, -1);
        EXPECT_EQ(errno, expectedErrno);
    };
    expect(pps_decoder_get_bool(decoder, name, &boolean), PPS_TYPE_BOOL);
    expect(pps_decoder_get_int(decoder, name, &integer), PPS_TYPE_NUMBER);
    expect(pps_decoder_get_int64(decoder, name, &wide), PPS_TYPE_NUMBER);
    expect(pps_decoder_get_double(decoder, name, &real), PPS_TYPE_NUMBER);
    expect(pps_decoder_get_string(decoder, name, &string), PPS_TYPE_STRING);
    if (readable != PPS_TYPE_OBJECT && readable != PPS_TYPE_ARRAY) {
        EXPECT_EQ(pps_decoder_push(decoder, name), -1);
        EXPECT_EQ(errno, expectedErrno);
    }
}

TEST(Decoder, ReadsAnElementAsItsOwnTypeOnly)
{
    Decoder decoder("b:b:true\nn:n:1\ns::1\nz:json:null\na:json:[]\no:json:{}\n-d\n");
    ASSERT_EQ(decoder.result(), 0);
    const struct
    {
        const char* name;
        pps_type_t type;
    } elements[] = {{"b", PPS_TYPE_BOOL},   {"n", PPS_TYPE_NUMBER}, {"s", PPS_TYPE_STRING},
                    {"z", PPS_TYPE_NULL},   {"a", PPS_TYPE_ARRAY},  {"o", PPS_TYPE_OBJECT},
                    {"d", PPS_TYPE_DELETED}};
    for (const auto& [name, type] : elements) {
        SCOPED_TRACE(name);
        EXPECT_EQ(pps_decoder_type(decoder, name), type);
        expectEachReader(decoder, name, EINVAL, type);
    }
    expectEachReader(decoder, "missing", ENOENT, PPS_TYPE_NONE);
    EXPECT_STREQ(pps_decoder_name(decoder), "b") << "a reader by name has moved the decoder";
}

TEST(Decoder, HasNothingToReadInAnEmptyContainer)
{
    Decoder decoder("a:json:[]\n");
    ASSERT_EQ(pps_decoder_push(decoder, "a"), 0);
    expectEachReader(decoder, nullptr, ENOENT, PPS_TYPE_NONE);
    EXPECT_EQ(pps_decoder_type(decoder, nullptr), PPS_TYPE_NONE);
    EXPECT_EQ(pps_decoder_name(decoder), nullptr);
    EXPECT_EQ(pps_decoder_goto_index(decoder, 0), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(Decoder, FindsNoNamesInAnArray)
{
    Decoder decoder("a:json:[{\"b\":1}]\n");
    ASSERT_EQ(pps_decoder_push(decoder, "a"), 0);
    EXPECT_EQ(pps_decoder_type(decoder, "b"), PPS_TYPE_NONE);
    EXPECT_EQ(pps_decoder_push(decoder, "b"), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(Decoder, StaysWhereItIsWhenAMoveFails)
{
    Decoder decoder("a:n:1\nb:n:2\nc:n:3\n");
    ASSERT_EQ(pps_decoder_goto_index(decoder, 1), 0);
    for (const int index : {-1, 3, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(pps_decoder_goto_index(decoder, index), -1);
        EXPECT_EQ(errno, ENOENT);
    }
    EXPECT_EQ(pps_decoder_push(decoder, nullptr), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(pps_decoder_pop(decoder), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_STREQ(pps_decoder_name(decoder), "b");
}

TEST(Decoder, SurvivesTheTruncationOfAMessageAtEveryByte)
{
    const std::string text =
        "@o\na::x\\ny\nn:n:12.5\nb:b:true\nj:json:{\"k\":[1,\"\\u00e4\",null]}\n";
    for (std::size_t size = 0; size <= text.size(); ++size) {
        Decoder decoder(text.substr(0, size));
        if (decoder.result() != 0) {
            EXPECT_NE(pps_decoder_error(decoder, nullptr), nullptr);
            continue;
        }
        // What is accepted is a message of whole lines, of which the last may be shorter than it
        // was.
        const test::Value::Object members = test::decode(decoder);
        EXPECT_EQ(members.size(), size == 0 ? 0U : 1U) << text.substr(0, size);
    }
}

} // namespace
