// SPDX-License-Identifier: Apache-2.0
#include "cli/MessageJson.h"
#include "common/Failure.h"

#include <gtest/gtest.h>

using namespace tamobox;

namespace {

TEST(MessageJsonTest, ObjectsAreMembersUnderTheirLines)
{
    EXPECT_EQ(
        messageToJson("top::x\n@a\nn:n:1\nd:n:1.5\nb:b:true\n@b\nj:json:{\"k\":[null,\"\"]}\n"),
        "{\"top\":\"x\",\"@a\":{\"n\":1,\"d\":1.5,\"b\":true},\"@b\":{\"j\":{\"k\":[null,\"\"]}}}");
}

TEST(MessageJsonTest, StringsAreEscaped)
{
    EXPECT_EQ(messageToJson("a::\"\\\\\\n\n"), "{\"a\":\"\\\"\\\\\\n\"}");
}

TEST(MessageJsonTest, WhatIsDeletedIsNull)
{
    EXPECT_EQ(messageToJson("@a\n-b\n"), "{\"@a\":{\"-b\":null}}");
    EXPECT_EQ(messageToJson("-@a\n"), "{\"-@a\":null}");
}

TEST(MessageJsonTest, MalformedTextIsRefused)
{
    EXPECT_THROW(messageToJson("a:n:x\n"), Failure);
}

} // namespace
