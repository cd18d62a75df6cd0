// SPDX-License-Identifier: Apache-2.0
#include "Message.h"
#include "Value.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using test::Decoder;

using testing::ElementsAre;

std::vector<std::string> names(pps_decoder_t* decoder)
{
    std::vector<std::string> result;
    for (int index = 0; index < pps_decoder_length(decoder); ++index) {
        EXPECT_EQ(pps_decoder_goto_index(decoder, index), 0);
        result.emplace_back(pps_decoder_name(decoder));
    }
    return result;
}

std::string stringOf(pps_decoder_t* decoder, const char* name)
{
    const char* value = nullptr;
    EXPECT_EQ(pps_decoder_get_string(decoder, name, &value), 0) << name;
    return value ? value : "(none)";
}

double numberOf(pps_decoder_t* decoder, const char* name)
{
    double value = 0;
    EXPECT_EQ(pps_decoder_get_double(decoder, name, &value), 0) << name;
    return value;
}

TEST(Decoder, PresentsEachObjectLineAsAMember)
{
    Decoder decoder("before:n:1\n@one\na:n:1\n@two\nb:n:2\nc:n:3\n@three\n");
    ASSERT_EQ(decoder.result(), 0);
    EXPECT_THAT(names(decoder), ElementsAre("before", "@one", "@two", "@three"));
    ASSERT_EQ(pps_decoder_push(decoder, "@two"), 0);
    EXPECT_THAT(names(decoder), ElementsAre("b", "c"));
    ASSERT_EQ(pps_decoder_pop(decoder), 0);
    EXPECT_STREQ(pps_decoder_name(decoder), "@two");
    ASSERT_EQ(pps_decoder_push(decoder, "@three"), 0);
    EXPECT_EQ(pps_decoder_length(decoder), 0);
}

TEST(Decoder, PresentsARepeatedObjectTwiceAndFindsTheLast)
{
    Decoder decoder("@a\nx:n:1\n@a\nx:n:2\n");
    EXPECT_THAT(names(decoder), ElementsAre("@a", "@a"));
    ASSERT_EQ(pps_decoder_push(decoder, "@a"), 0);
    EXPECT_EQ(numberOf(decoder, "x"), 2);
}

TEST(Decoder, FindsTheLastOfARepeatedName)
{
    Decoder decoder("a:n:1\na::two\nj:json:{\"k\":1,\"k\":true}\n-a\n");
    EXPECT_THAT(names(decoder), ElementsAre("a", "a", "j", "a"));
    EXPECT_EQ(pps_decoder_type(decoder, "a"), PPS_TYPE_DELETED);
    ASSERT_EQ(pps_decoder_push(decoder, "j"), 0);
    EXPECT_EQ(pps_decoder_type(decoder, "k"), PPS_TYPE_BOOL);
}

TEST(Decoder, PresentsWhatHasGoneAsDeleted)
{
    Decoder decoder("@a\n-x\ny:n:1\n-@b\n");
    EXPECT_THAT(names(decoder), ElementsAre("@a", "@b"));
    EXPECT_EQ(pps_decoder_type(decoder, "@b"), PPS_TYPE_DELETED);
    ASSERT_EQ(pps_decoder_push(decoder, "@a"), 0);
    EXPECT_THAT(names(decoder), ElementsAre("x", "y"));
    EXPECT_EQ(pps_decoder_type(decoder, "x"), PPS_TYPE_DELETED);
}

TEST(Decoder, PresentsTheClientsOfAMailbox)
{
    Decoder decoder("+@control.7\npid:n:12\n-@control.8\n@control.7\nmsg::hello\n");
    EXPECT_THAT(names(decoder), ElementsAre("+@control.7", "@control.8", "@control.7"));
    EXPECT_EQ(pps_decoder_type(decoder, "+@control.7"), PPS_TYPE_OBJECT);
    EXPECT_EQ(pps_decoder_type(decoder, "@control.8"), PPS_TYPE_DELETED);
    ASSERT_EQ(pps_decoder_push(decoder, "+@control.7"), 0);
    EXPECT_EQ(numberOf(decoder, "pid"), 12);
}

TEST(Decoder, ARemovedObjectEndsTheOneBeforeIt)
{
    Decoder decoder("@a\nx:n:1\n-@a\ny:n:2\n");
    EXPECT_THAT(names(decoder), ElementsAre("@a", "@a", "y"));
}

TEST(Decoder, TakesALastLineWithoutLineFeed)
{
    Decoder attribute("@a\nx::end");
    ASSERT_EQ(pps_decoder_push(attribute, "@a"), 0);
    EXPECT_EQ(stringOf(attribute, "x"), "end");
    Decoder object("@a");
    EXPECT_THAT(names(object), ElementsAre("@a"));
    Decoder deletion("-x");
    EXPECT_THAT(names(deletion), ElementsAre("x"));
}

TEST(Decoder, UnescapesStrings)
{
    Decoder decoder("a::\\n\\r\\\\n\\\\\nb::plain\nc::\nd::tab\tquote\"colon::\n");
    ASSERT_EQ(decoder.result(), 0);
    EXPECT_EQ(stringOf(decoder, "a"), "\n\r\\n\\");
    EXPECT_EQ(stringOf(decoder, "b"), "plain");
    EXPECT_EQ(stringOf(decoder, "c"), "");
    EXPECT_EQ(stringOf(decoder, "d"), "tab\tquote\"colon::");
}

TEST(Decoder, UnescapesJsonStrings)
{
    Decoder decoder(
        "j:json:{\"\\u006eame\\n\":\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00E4\\u20ac\\uD83d\\uDE00.\"}\n");
    ASSERT_EQ(decoder.result(), 0) << pps_decoder_error(decoder, nullptr);
    ASSERT_EQ(pps_decoder_push(decoder, "j"), 0);
    EXPECT_EQ(stringOf(decoder, "name\n"), "\"\\/\b\f\n\r\t\u00e4\u20ac\U0001f600.");
}

TEST(Decoder, TakesWhiteSpaceInJson)
{
    Decoder decoder(" {\n\t\"a\" :\r\n [ 1 , { } , [ ] ] , \"b\":null } \n",
                    pps_decoder_parse_json_str);
    ASSERT_EQ(decoder.result(), 0) << pps_decoder_error(decoder, nullptr);
    EXPECT_THAT(names(decoder), ElementsAre("a", "b"));
    ASSERT_EQ(pps_decoder_push(decoder, "a"), 0);
    EXPECT_EQ(pps_decoder_length(decoder), 3);
}

TEST(Decoder, MovesBothWays)
{
    std::string text = "a:json:[";
    for (int element = 0; element < 100; ++element)
        text += "[" + std::to_string(element) + ",{\"x\":[]}],";
    text.back() = ']';
    Decoder decoder(text);
    ASSERT_EQ(decoder.result(), 0);
    ASSERT_EQ(pps_decoder_push(decoder, "a"), 0);
    ASSERT_EQ(pps_decoder_length(decoder), 100);
    for (int step = 0, index = 0; step < 1000; ++step, index = (index + 37) % 100) {
        ASSERT_EQ(pps_decoder_goto_index(decoder, index), 0);
        EXPECT_EQ(pps_decoder_name(decoder), nullptr);
        ASSERT_EQ(pps_decoder_push(decoder, nullptr), 0);
        EXPECT_EQ(numberOf(decoder, nullptr), index);
        ASSERT_EQ(pps_decoder_pop(decoder), 0);
    }
}

TEST(Decoder, EntersByNameAndComesBackToTheElement)
{
    Decoder decoder("a:n:1\no:json:{\"p\":{\"q\":[true]}}\nz:n:2\n");
    ASSERT_EQ(pps_decoder_push(decoder, "o"), 0);
    ASSERT_EQ(pps_decoder_push(decoder, "p"), 0);
    ASSERT_EQ(pps_decoder_push(decoder, nullptr), 0);
    EXPECT_EQ(pps_decoder_type(decoder, nullptr), PPS_TYPE_BOOL);
    ASSERT_EQ(pps_decoder_pop(decoder), 0);
    EXPECT_STREQ(pps_decoder_name(decoder), "q");
    ASSERT_EQ(pps_decoder_pop(decoder), 0);
    ASSERT_EQ(pps_decoder_pop(decoder), 0);
    EXPECT_STREQ(pps_decoder_name(decoder), "o");
    ASSERT_EQ(pps_decoder_goto_index(decoder, 2), 0);
    EXPECT_EQ(numberOf(decoder, nullptr), 2);
}

TEST(Decoder, ParsesAnotherTextWhereverItStands)
{
    Decoder decoder("a:json:{\"b\":{}}\n");
    ASSERT_EQ(pps_decoder_push(decoder, "a"), 0);
    std::string other = "c:n:1\nd:n:2\n";
    ASSERT_EQ(pps_decoder_parse_pps_str(decoder, other.data()), 0);
    EXPECT_STREQ(pps_decoder_name(decoder), "c");
    EXPECT_THAT(names(decoder), ElementsAre("c", "d"));
}

TEST(Decoder, TakesAnEmptyText)
{
    Decoder decoder("");
    EXPECT_EQ(decoder.result(), 0);
    EXPECT_EQ(pps_decoder_length(decoder), 0);
    EXPECT_EQ(pps_decoder_error(decoder, nullptr), nullptr);
}

} // namespace
