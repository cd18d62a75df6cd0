// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <cerrno>
#include <string>

namespace tamotest {
namespace {

using TextT1 = PpsTest;
using TextT2 = PpsTest;
using TextT3 = PpsTest;

std::string nested(std::size_t depth)
{
    return "a:json:" + std::string(depth, '[') + std::string(depth, ']') + '\n';
}

TEST_F(TextT1, NamesThatTheTextCannotCarryAreMalformed)
{
    const PpsDescriptor object("o");
    for (const char* const line : {":n:1\n", "-\n", "-a:n:1\n", "-a:b\n", "::\n", "+@a:n:1\n"})
        EXPECT_EQ(object.write(line), EINVAL) << line;
    EXPECT_EQ(object.write("a b:n:1\n\xc3\xa4::umlaut\n+a:n:2\n"), 0);
}

TEST_F(TextT2, MalformedTextIsRefused)
{
    using namespace std::string_literals;
    const PpsDescriptor object("o");
    const std::string malformed[] = {
        "a::\xff\n",
        "a::\xc0\x80\n",
        "a::\xed\xa0\x80\n",
        "a::x\0y\n"s,
        "a\0::x\n"s,
        "a:json:[\"\\u0000\"]\n",
        "a:x:1\n",
        "a::\\t\n",
        "a::\\\n",
        "a::x\r\n",
        "\n",
        "a:n:1\n\nb:n:2\n",
        "a\n",
        "a:n\n",
        "a:n:\n",
        "a:n:1e999\n",
        "a:n:NaN\n",
        "a:n:0x10\n",
        "a:n:01\n",
        "a:n: 1\n",
        "a:b:True\n",
        "a:b:1\n",
        "a:json:\"text\"\n",
        "a:json:1\n",
        "a:json:true\n",
        "a:json:\n",
        "a:json:{\n",
        "a:json:[1,]\n",
        "a:json:{\"a\":1}}\n",
        "@\n",
        "\xef\xbb\xbf@o\n",
    };
    for (const std::string& text : malformed)
        EXPECT_EQ(object.write(text), EINVAL) << text;
    EXPECT_EQ(contentOf("o"), "");
}

TEST_F(TextT2, WhatIsWellFormedIsTaken)
{
    const PpsDescriptor object("o");
    const std::string text = "@o\n"
                             "empty::\n"
                             "escaped::a\\nb\\rc\\\\d\n"
                             "colons::a:b:c\n"
                             "number:n:-1.5e3\n"
                             "yes:b:true\n"
                             "nothing:json:null\n"
                             "object:json:{\"a\":[1,\"\\u00e4\",{}]}\n";
    EXPECT_EQ(object.write(text), 0);
    EXPECT_EQ(contentOf("o"), text);
}

TEST_F(TextT2, NestingIsLimited)
{
    const PpsDescriptor object("o");
    EXPECT_EQ(object.write(nested(1024)), 0);
    EXPECT_EQ(object.write(nested(1025)), EINVAL);
    EXPECT_EQ(object.write("a:json:" + std::string(1'000'000, '[')), EINVAL);
}

TEST_F(TextT2, TheLastLineMayLackItsLineFeed)
{
    const PpsDescriptor object("o");
    EXPECT_EQ(object.write("a:n:1\nb:n:2"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\nb:n:2\n");
}

TEST_F(TextT3, TheLaterOfRepeatedNamesCounts)
{
    const PpsDescriptor object("o");
    EXPECT_EQ(object.write("a:n:1\nb:n:1\na::two\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na::two\nb:n:1\n");
    EXPECT_EQ(object.write("b:n:2\n-b\n-a\na:n:3\n"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:3\n");
}

} // namespace
} // namespace tamotest
