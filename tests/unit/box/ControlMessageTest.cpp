// SPDX-License-Identifier: Apache-2.0
#include "common/ControlMessage.h"

#include "common/Descriptor.h"

#include <sys/socket.h>

#include <gtest/gtest.h>

namespace tamobox {
namespace {

class ControlMessageTest : public testing::Test
{
protected:
    void SetUp() override
    {
        int ends[2];
        ASSERT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends), 0);
        here = Descriptor(ends[0]);
        there = Descriptor(ends[1]);
    }

    Descriptor here;
    Descriptor there;
};

TEST_F(ControlMessageTest, ArrivesAsItWasSent)
{
    ASSERT_TRUE(sendControlMessage(there.get(), {ControlMessage::Kind::Note, 7, "text"}));
    const auto message = receiveControlMessage(here.get());
    ASSERT_TRUE(message);
    EXPECT_EQ(message->kind, ControlMessage::Kind::Note);
    EXPECT_EQ(message->number, 7);
    EXPECT_EQ(message->text, "text");
}

TEST_F(ControlMessageTest, LastOneArrivesAlsoFromAPeerThatHadUnreadOnes)
{
    ASSERT_TRUE(sendControlMessage(here.get(), {ControlMessage::Kind::Signal, 15}));
    ASSERT_TRUE(sendControlMessage(there.get(), {ControlMessage::Kind::Ended, 6}));
    there.reset();
    const auto message = receiveControlMessage(here.get());
    ASSERT_TRUE(message);
    EXPECT_EQ(message->number, 6);
    EXPECT_FALSE(receiveControlMessage(here.get()));
}

TEST_F(ControlMessageTest, NothingArrivesFromAPeerThatHasGone)
{
    there.reset();
    EXPECT_FALSE(receiveControlMessage(here.get()));
}

} // namespace
} // namespace tamobox
