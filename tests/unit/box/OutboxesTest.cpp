// SPDX-License-Identifier: Apache-2.0
#include "services/payment/Outboxes.h"

#include <gmock/gmock.h>

#include <set>

using namespace tamobox;
using namespace testing;
using namespace std::chrono_literals;

namespace {

using Delivery = Outboxes::Delivery;

/** Outboxes before queues that take two messages each. A message is its client's number and a
 * text. */
class OutboxesTest : public Test
{
protected:
    static constexpr std::size_t room = 2;

    Delivery deliver(const std::string& message)
    {
        ++m_attempts;
        const int client = std::stoi(message);
        if (m_gone.count(client) != 0)
            return Delivery::Gone;
        if (m_queues[client].size() == room)
            return Delivery::Full;
        m_queues[client].push_back(message);
        return Delivery::Sent;
    }

    Delivery send(int client, const std::string& text)
    {
        return m_outboxes.send(client, std::to_string(client) + text);
    }

    /** Takes what is in a client's queue. */
    std::vector<std::string> read(int client) { return std::exchange(m_queues[client], {}); }

    bool runUntil(const std::function<bool()>& condition)
    {
        return m_loop.runUntil(condition, EventLoop::Clock::now() + 20s);
    }

    EventLoop m_loop;
    std::map<int, std::vector<std::string>> m_queues;
    std::set<int> m_gone;
    int m_attempts = 0;
    Outboxes m_outboxes{m_loop, [this](const std::string& message) { return deliver(message); }};
};

TEST_F(OutboxesTest, WhatFindsTheQueueFullFollowsInItsOrder)
{
    std::vector<std::string> sent;
    for (const char* text : {"a", "b", "c", "d", "e"}) {
        EXPECT_EQ(send(1, text), Delivery::Sent);
        sent.push_back(std::string("1") + text);
    }
    EXPECT_THAT(m_queues[1], ElementsAre("1a", "1b"));
    std::vector<std::string> got;
    EXPECT_TRUE(runUntil([&] {
        for (const std::string& message : read(1))
            got.push_back(message);
        return got.size() == sent.size();
    }));
    EXPECT_EQ(got, sent);
    EXPECT_FALSE(m_outboxes.isWaiting());
}

TEST_F(OutboxesTest, WhatComesLaterDoesNotOvertake)
{
    for (const char* text : {"a", "b", "c", "d", "e"})
        send(1, text);
    read(1);
    send(1, "f");
    EXPECT_THAT(read(1), ElementsAre("1c", "1d"));
    m_outboxes.tryNow(1);
    EXPECT_THAT(read(1), ElementsAre("1e", "1f"));
    EXPECT_FALSE(m_outboxes.isWaiting());
}

TEST_F(OutboxesTest, AClientThatDoesNotReadHindersNobody)
{
    for (const char* text : {"a", "b", "c"}) {
        send(1, text);
        send(2, text);
    }
    std::vector<std::string> got;
    EXPECT_TRUE(runUntil([&] {
        for (const std::string& message : read(2))
            got.push_back(message);
        return got.size() == 3;
    }));
    EXPECT_THAT(got, ElementsAre("2a", "2b", "2c"));
    EXPECT_EQ(send(3, "a"), Delivery::Sent);
    EXPECT_THAT(m_queues[3], ElementsAre("3a"));
    EXPECT_TRUE(m_outboxes.isWaiting());
}

TEST_F(OutboxesTest, AClientThatDoesNotReadIsTriedEverMoreRarely)
{
    for (const char* text : {"a", "b", "c"})
        send(1, text);
    m_attempts = 0;
    m_loop.runUntil([] { return false; }, EventLoop::Clock::now() + 300ms);
    EXPECT_GE(m_attempts, 1);
    EXPECT_LE(m_attempts, 5); // after 10, 30, 70, 150 and 310 ms, or later
}

TEST_F(OutboxesTest, WhereNothingWaitsNothingIsTried)
{
    send(1, "a");
    send(1, "b");
    send(1, "c");
    read(1);
    EXPECT_TRUE(runUntil([&] { return !m_outboxes.isWaiting(); }));
    m_attempts = 0;
    // The loop has nothing to wake up for: it sleeps for the whole time, once.
    int wakings = 0;
    m_loop.runUntil(
        [&] {
            ++wakings;
            return false;
        },
        EventLoop::Clock::now() + 50ms);
    EXPECT_LE(wakings, 3);
    EXPECT_EQ(m_attempts, 0);
}

TEST_F(OutboxesTest, AClientThatLeavesTakesItsMessagesAlong)
{
    for (const char* text : {"a", "b", "c"})
        send(1, text);
    m_outboxes.clientLeft(1);
    EXPECT_FALSE(m_outboxes.isWaiting());
    for (const char* text : {"a", "b", "c"})
        send(2, text);
    m_gone.insert(2);
    EXPECT_EQ(send(2, "d"), Delivery::Gone);
    EXPECT_FALSE(m_outboxes.isWaiting());
}

TEST_F(OutboxesTest, WhatExceedsTheRoomIsLost)
{
    const std::string text(Outboxes::mostOfAClient / 4, 'x');
    for (std::size_t i = 0; i < room + 3; ++i)
        EXPECT_EQ(send(1, text), Delivery::Sent);
    EXPECT_EQ(send(1, text), Delivery::Full);
    EXPECT_EQ(send(2, "a"), Delivery::Sent);
    for (int client = 3; client < 7; ++client)
        for (std::size_t i = 0; i < room + 3; ++i)
            send(client, text);
    EXPECT_EQ(send(7, "a"), Delivery::Sent);
    EXPECT_EQ(send(7, "b"), Delivery::Sent);
    EXPECT_EQ(send(7, text), Delivery::Full); // 15 are here, and the 16th takes a bit more
    m_outboxes.clientLeft(1);
    EXPECT_EQ(send(7, text), Delivery::Sent);
}

} // namespace
