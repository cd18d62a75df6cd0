// SPDX-License-Identifier: Apache-2.0
#include "pps/MessageReader.h"
#include "common/Failure.h"
#include "pps/MessageWriter.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

TEST(MessageReaderTest, ReadsWhatTheWriterWrote)
{
    MessageWriter writer;
    writer.object("power").add("msg", "drain").startObject("dat");
    writer.add("to", 15).add("now", true).endObject();
    MessageReader reader(writer.text());
    ASSERT_TRUE(reader.enter("@power"));
    EXPECT_EQ(reader.string("msg"), "drain");
    ASSERT_TRUE(reader.enter("dat"));
    EXPECT_EQ(reader.integer("to"), 15);
    EXPECT_TRUE(reader.has("now"));
    reader.leave();
    EXPECT_EQ(reader.string("msg"), "drain");
}

TEST(MessageReaderTest, WhatIsMissingOrOfAnotherTypeIsNothing)
{
    MessageReader reader("a::text\nb:n:1.5\nc:n:1e300\n");
    EXPECT_EQ(reader.string("b"), std::nullopt);
    EXPECT_EQ(reader.integer("a"), std::nullopt);
    EXPECT_EQ(reader.integer("b"), std::nullopt);
    EXPECT_EQ(reader.integer("c"), std::nullopt);
    EXPECT_EQ(reader.number("b"), 1.5);
    EXPECT_FALSE(reader.has("d"));
    EXPECT_FALSE(reader.enter("a"));
    EXPECT_EQ(reader.string("a"), "text");
}

TEST(MessageReaderTest, MembersAreWalkedAlsoAroundContainers)
{
    MessageReader reader("a:json:[1,2]\nb:n:2\n");
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(reader.name(), "a");
    ASSERT_TRUE(reader.enter(nullptr));
    EXPECT_TRUE(reader.next());
    EXPECT_TRUE(reader.next());
    EXPECT_FALSE(reader.next());
    reader.leave();
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(reader.name(), "b");
    EXPECT_FALSE(reader.next());
}

TEST(MessageReaderTest, MalformedTextIsRefusedWithItsLine)
{
    try {
        MessageReader reader("a::1\nb:n:x\n");
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.what(), HasSubstr("line 2"));
    }
    EXPECT_THROW(MessageReader(std::string("a::\0\n", 5)), Failure);
}

TEST(MessageWriterTest, WhatCannotBeCarriedIsRefused)
{
    MessageWriter writer;
    EXPECT_THROW(writer.add("a:b", 1), Failure);
    EXPECT_THROW(writer.add("a", "\xff"), Failure);
    writer.add("a", 1).startObject("b");
    EXPECT_THROW(writer.text(), Failure);
    EXPECT_EQ(writer.endObject().text(), "a:n:1\nb:json:{}\n");
}

} // namespace
