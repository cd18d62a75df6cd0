// SPDX-License-Identifier: Apache-2.0
#include "ObjectName.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace ppsfs {
namespace {

TEST(ObjectName, OptionsAreASet)
{
    ObjectName name;
    ASSERT_EQ(ObjectName::parse("battery?changes,wait,wait", name), 0);
    EXPECT_EQ(name.plain, "battery");
    EXPECT_EQ(name.options, WaitOption | ChangesOption);
    ASSERT_EQ(ObjectName::parse("battery", name), 0);
    EXPECT_EQ(name.options, 0);
}

TEST(ObjectName, WhatIsNoOptionIsRefused)
{
    ObjectName name;
    for (const char* const text :
         {"", "?wait", "a?", "a?,", "a?wait,", "a?WAIT", "a?wait?serve", "a?serve,changes"})
        EXPECT_EQ(ObjectName::parse(text, name), EINVAL) << text;
    EXPECT_EQ(ObjectName::parse(std::string(256, 'a'), name), ENAMETOOLONG);
}

TEST(ObjectName, ANodesNameHeadsAText)
{
    for (const char* const valid : {"a", "-a", "@", "a:b", "a b", "\xc3\xa4"})
        EXPECT_TRUE(isValidNodeName(valid)) << valid;
    for (const char* const invalid : {"", "a\nb", "\n", "a\r", "\xc3", "\xed\xa0\x80"})
        EXPECT_FALSE(isValidNodeName(invalid)) << invalid;
    EXPECT_FALSE(isValidNodeName(std::string_view("a\0b", 3)));
}

} // namespace
} // namespace ppsfs
