// SPDX-License-Identifier: Apache-2.0
#include "Message.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <ostream>
#include <string>

namespace {

using test::Encoder;

using Call = std::function<int(pps_encoder_t*)>;

struct Written
{
    const char* text;
    Call call;
};

void PrintTo(const Written& row, std::ostream* stream)
{
    *stream << row.text;
}

class WrittenLine : public testing::TestWithParam<Written>
{
};

TEST_P(WrittenLine, IsTheOneOfItsValue)
{
    Encoder encoder;
    EXPECT_EQ(GetParam().call(encoder), 0);
    EXPECT_EQ(encoder.text(), GetParam().text);
}

Call string(const char* name, const char* value)
{
    return [=](pps_encoder_t* encoder) { return pps_encoder_add_string(encoder, name, value); };
}

Call number(double value)
{
    return [=](pps_encoder_t* encoder) { return pps_encoder_add_double(encoder, "n", value); };
}

Call integer(std::int64_t value)
{
    return [=](pps_encoder_t* encoder) { return pps_encoder_add_int64(encoder, "n", value); };
}

Call boolean(bool value)
{
    return [=](pps_encoder_t* encoder) { return pps_encoder_add_bool(encoder, "b", value); };
}

INSTANTIATE_TEST_SUITE_P(
    Encoder, WrittenLine,
    testing::Values(
        Written{"s::text\n", string("s", "text")}, Written{"s::\n", string("s", "")},
        Written{"s::a\\nb\\rc\\\\d\n", string("s", "a\nb\rc\\d")},
        Written{"s::\t\"quoted\":\x01\x7f\n", string("s", "\t\"quoted\":\x01\x7f")},
        Written{"Ger\u00e4t::\u65e5\u672c\n", string("Ger\u00e4t", "\u65e5\u672c")},
        Written{"with space\tand \"quotes\"::x\n", string("with space\tand \"quotes\"", "x")},
        Written{"+plus::x\n", string("+plus", "x")}, Written{"b:b:true\n", boolean(true)},
        Written{"b:b:false\n", boolean(false)}, Written{"n:n:5\n", number(5)},
        Written{"n:n:-5\n", number(-5)}, Written{"n:n:0\n", number(0.0)},
        Written{"n:n:-0\n", number(-0.0)}, Written{"n:n:0.99\n", number(0.99)},
        Written{"n:n:1000000\n", number(1e6)}, Written{"n:n:1e+22\n", number(1e22)},
        Written{"n:n:5e-324\n", number(5e-324)},
        Written{"n:n:1.7976931348623157e+308\n", number(std::numeric_limits<double>::max())},
        Written{"n:n:9007199254740991\n", number(9007199254740991.0)},
        Written{"n:n:9223372036854775807\n", integer(INT64_MAX)},
        Written{"n:n:-9223372036854775808\n", integer(INT64_MIN)},
        Written{
            "n:n:-2147483648\n",
            [](pps_encoder_t* encoder) { return pps_encoder_add_int(encoder, "n", INT32_MIN); }},
        Written{"z:json:null\n",
                [](pps_encoder_t* encoder) { return pps_encoder_add_null(encoder, "z"); }},
        Written{
            "-gone\n",
            [](pps_encoder_t* encoder) { return pps_encoder_delete_attribute(encoder, "gone"); }},
        Written{"@control.7\n", [](pps_encoder_t* encoder) {
                    return pps_encoder_add_object_name(encoder, "@control.7");
                }}));

/** Writes one of everything, inside an object and an array. */
void addNested(pps_encoder_t* encoder)
{
    pps_encoder_start_object(encoder, "o");
    pps_encoder_add_string(encoder, "", "a\"\\\n\x01/\u00e4");
    pps_encoder_add_null(encoder, "@:-");
    pps_encoder_start_array(encoder, "\n");
    pps_encoder_add_bool(encoder, nullptr, true);
    pps_encoder_add_double(encoder, nullptr, 0.5);
    pps_encoder_start_object(encoder, nullptr);
    pps_encoder_end_object(encoder);
    pps_encoder_start_array(encoder, nullptr);
    pps_encoder_end_array(encoder);
    pps_encoder_add_string(encoder, nullptr, "");
    pps_encoder_end_array(encoder);
    pps_encoder_add_int(encoder, "i", 1);
    pps_encoder_end_object(encoder);
    pps_encoder_add_int(encoder, "j", 2);
}

TEST(Encoder, WritesContainersAsJson)
{
    Encoder encoder;
    addNested(encoder);
    EXPECT_EQ(encoder.text(), "o:json:{\"\":\"a\\\"\\\\\\n\\u0001/\u00e4\",\"@:-\":null,"
                              "\"\\n\":[true,0.5,{},[],\"\"],\"i\":1}\nj:n:2\n");
}

TEST(Encoder, WritesOneJsonObjectInRawMode)
{
    Encoder encoder(Encoder::Raw);
    EXPECT_EQ(encoder.text(), "{}");
    addNested(encoder);
    EXPECT_EQ(encoder.text(), "{\"o\":{\"\":\"a\\\"\\\\\\n\\u0001/\u00e4\",\"@:-\":null,"
                              "\"\\n\":[true,0.5,{},[],\"\"],\"i\":1},\"j\":2}");
}

TEST(Encoder, TakesAnyNameAtTheTopLevelOfRawMode)
{
    Encoder encoder(Encoder::Raw);
    EXPECT_EQ(pps_encoder_add_int(encoder, "", 1), 0);
    EXPECT_EQ(pps_encoder_add_int(encoder, "@a:\n", 2), 0);
    EXPECT_EQ(encoder.text(), "{\"\":1,\"@a:\\n\":2}");
}

struct Refused
{
    const char* what;
    Call call;
};

void PrintTo(const Refused& row, std::ostream* stream)
{
    *stream << row.what;
}

class RefusedCall : public testing::TestWithParam<Refused>
{
};

TEST_P(RefusedCall, AddsNothing)
{
    Encoder encoder;
    ASSERT_EQ(pps_encoder_add_int(encoder, "before", 1), 0);
    errno = 0;
    EXPECT_EQ(GetParam().call(encoder), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(pps_encoder_add_int(encoder, "after", 2), 0);
    EXPECT_EQ(encoder.text(), "before:n:1\nafter:n:2\n");
}

INSTANTIATE_TEST_SUITE_P(
    Encoder, RefusedCall,
    testing::Values(
        Refused{"no name", string(nullptr, "x")}, Refused{"an empty name", string("", "x")},
        Refused{"a name with an at sign first", string("@a", "x")},
        Refused{"a name with a hyphen first", string("-a", "x")},
        Refused{"a name like a client's arrival", string("+@a", "x")},
        Refused{"a name with a colon", string("a:b", "x")},
        Refused{"a long name with a colon", string("sixteen characters:", "x")},
        Refused{"a name with a line feed", string("a\nb", "x")},
        Refused{"a name with a carriage return", string("a\rb", "x")},
        Refused{"a name that is not UTF-8", string("a\xff", "x")},
        Refused{"no string", string("s", nullptr)},
        Refused{"a lone continuation", string("s", "\x80")},
        Refused{"a lone continuation after a block", string("s", "sixteen characters and \x80")},
        Refused{"a truncated sequence", string("s", "abc\xe2\x82")},
        Refused{"an overlong form", string("s", "\xc0\xaf")},
        Refused{"a surrogate", string("s", "\xed\xa0\x80")},
        Refused{"beyond the last character", string("s", "\xf4\x90\x80\x80")},
        Refused{"NaN", number(std::nan(""))},
        Refused{"infinity", number(std::numeric_limits<double>::infinity())},
        Refused{"negative infinity", number(-std::numeric_limits<double>::infinity())},
        Refused{"the end of an object that was not begun", pps_encoder_end_object},
        Refused{"the end of an array that was not begun", pps_encoder_end_array},
        Refused{"an object under a bad name",
                [](pps_encoder_t* encoder) { return pps_encoder_start_object(encoder, "a:"); }},
        Refused{"an array without a name",
                [](pps_encoder_t* encoder) { return pps_encoder_start_array(encoder, nullptr); }},
        Refused{
            "the deletion of nothing",
            [](pps_encoder_t* encoder) { return pps_encoder_delete_attribute(encoder, nullptr); }},
        Refused{
            "the deletion of a bad name",
            [](pps_encoder_t* encoder) { return pps_encoder_delete_attribute(encoder, "a:b"); }},
        Refused{"the deletion of an object",
                [](pps_encoder_t* encoder) { return pps_encoder_delete_attribute(encoder, "@a"); }},
        Refused{
            "no object name",
            [](pps_encoder_t* encoder) { return pps_encoder_add_object_name(encoder, nullptr); }},
        Refused{"an object name without an at sign",
                [](pps_encoder_t* encoder) { return pps_encoder_add_object_name(encoder, "a"); }},
        Refused{"an at sign alone",
                [](pps_encoder_t* encoder) { return pps_encoder_add_object_name(encoder, "@"); }},
        Refused{"an object name with a line end", [](pps_encoder_t* encoder) {
                    return pps_encoder_add_object_name(encoder, "@a\nb");
                }}));

class RefusedInside : public testing::TestWithParam<Refused>
{
};

TEST_P(RefusedInside, AnObject)
{
    Encoder encoder;
    ASSERT_EQ(pps_encoder_start_object(encoder, "o"), 0);
    errno = 0;
    EXPECT_EQ(GetParam().call(encoder), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(pps_encoder_add_int(encoder, "i", 1), 0);
    EXPECT_EQ(GetParam().call(encoder), -1);
    EXPECT_EQ(pps_encoder_end_object(encoder), 0);
    EXPECT_EQ(encoder.text(), "o:json:{\"i\":1}\n");
}

INSTANTIATE_TEST_SUITE_P(
    Encoder, RefusedInside,
    testing::Values(
        Refused{"no name", string(nullptr, "x")}, Refused{"no string", string("s", nullptr)},
        Refused{"a name that is not UTF-8", string("\xc3(", "x")},
        Refused{"a string that is not UTF-8", string("s", "ab\xf0\x9f\x98")},
        Refused{"NaN", number(std::nan(""))}, Refused{"the end of an array", pps_encoder_end_array},
        Refused{"a deletion",
                [](pps_encoder_t* encoder) { return pps_encoder_delete_attribute(encoder, "a"); }},
        Refused{"an object name", [](pps_encoder_t* encoder) {
                    return pps_encoder_add_object_name(encoder, "@a");
                }}));

TEST(Encoder, RefusesANameInAnArray)
{
    Encoder encoder;
    ASSERT_EQ(pps_encoder_start_array(encoder, "a"), 0);
    EXPECT_EQ(pps_encoder_add_null(encoder, "name"), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(pps_encoder_start_object(encoder, ""), -1);
    EXPECT_EQ(pps_encoder_end_object(encoder), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(pps_encoder_end_array(encoder), 0);
    EXPECT_EQ(encoder.text(), "a:json:[]\n");
}

TEST(Encoder, RefusesLinesInRawMode)
{
    Encoder encoder(Encoder::Raw);
    EXPECT_EQ(pps_encoder_delete_attribute(encoder, "a"), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(pps_encoder_add_object_name(encoder, "@a"), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(encoder.text(), "{}");
}

TEST(Encoder, HasNoBufferWhileAContainerIsOpen)
{
    for (const auto mode : {Encoder::Text, Encoder::Raw}) {
        Encoder encoder(mode);
        ASSERT_EQ(pps_encoder_start_array(encoder, "a"), 0);
        errno = 0;
        EXPECT_EQ(pps_encoder_buffer(encoder), nullptr);
        EXPECT_EQ(errno, EINVAL);
        EXPECT_EQ(pps_encoder_length(encoder), 0U);
        ASSERT_EQ(pps_encoder_end_array(encoder), 0);
        EXPECT_NE(pps_encoder_buffer(encoder), nullptr);
    }
}

TEST(Encoder, BufferIsZeroTerminatedAndGoesOn)
{
    for (const auto mode : {Encoder::Text, Encoder::Raw}) {
        Encoder encoder(mode);
        for (int count = 0; count < 200; ++count) {
            const std::string text = encoder.text();
            EXPECT_EQ(text, pps_encoder_buffer(encoder));
            EXPECT_EQ(text.size(), pps_encoder_length(encoder));
            ASSERT_EQ(pps_encoder_add_string(encoder, "name", "value"), 0);
        }
    }
}

TEST(Encoder, ResetKeepsTheMode)
{
    Encoder raw(Encoder::Raw);
    ASSERT_EQ(pps_encoder_start_object(raw, "o"), 0);
    pps_encoder_reset(raw);
    EXPECT_EQ(raw.text(), "{}");

    Encoder lines;
    ASSERT_EQ(pps_encoder_add_string(lines, "s", std::string(5000, 'x').c_str()), 0);
    pps_encoder_reset(lines);
    EXPECT_EQ(lines.text(), "");
    ASSERT_EQ(pps_encoder_add_int(lines, "i", 1), 0);
    EXPECT_EQ(lines.text(), "i:n:1\n");
}

TEST(Encoder, IsEmptyAfterCleanup)
{
    Encoder encoder;
    ASSERT_EQ(pps_encoder_add_string(encoder, "s", std::string(5000, 'x').c_str()), 0);
    pps_encoder_cleanup(encoder);
    pps_encoder_cleanup(encoder);
    EXPECT_EQ(encoder.text(), "");
}

} // namespace
