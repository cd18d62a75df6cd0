// SPDX-License-Identifier: Apache-2.0
#include "common/EventLoop.h"
#include "common/Timer.h"

#include <sys/eventfd.h>

#include <gtest/gtest.h>

using namespace tamobox;
using namespace std::chrono_literals;

namespace {

using Clock = EventLoop::Clock;

Descriptor readableDescriptor()
{
    return Descriptor(eventfd(1, EFD_CLOEXEC));
}

TEST(EventLoopTest, CallsBackWhileADescriptorIsReadable)
{
    EventLoop loop;
    const Descriptor readable = readableDescriptor();
    int calls = 0;
    loop.watch(readable.get(), [&] { ++calls; });
    EXPECT_TRUE(loop.runUntil([&] { return calls == 3; }, Clock::now() + 10s));
}

TEST(EventLoopTest, ACallbackMayUnwatchItselfAndOthers)
{
    EventLoop loop;
    const Descriptor one = readableDescriptor();
    const Descriptor other = readableDescriptor();
    int calls = 0;
    const auto callback = [&] {
        ++calls;
        loop.unwatch(one.get());
        loop.unwatch(other.get());
    };
    loop.watch(one.get(), callback);
    loop.watch(other.get(), callback);
    EXPECT_FALSE(loop.runUntil([] { return false; }, Clock::now() + 20ms));
    EXPECT_EQ(calls, 1);
}

TEST(EventLoopTest, OneBusyDescriptorDoesNotStarveAnother)
{
    EventLoop loop;
    const Descriptor busy = readableDescriptor();
    const Descriptor other = readableDescriptor();
    bool called = false;
    loop.watch(busy.get(), [] {});
    loop.watch(other.get(), [&] { called = true; });
    EXPECT_TRUE(loop.runUntil([&] { return called; }, Clock::now() + 10s));
}

TEST(EventLoopTest, WaitingHasAnEnd)
{
    EventLoop loop;
    EXPECT_FALSE(loop.runUntil([] { return false; }, Clock::now() + 1ms));
}

TEST(TimerTest, CallsBackOnceAndNotBeforeItsMoment)
{
    EventLoop loop;
    int calls = 0;
    Timer timer(loop, [&] { ++calls; });
    const auto moment = Clock::now() + 20ms;
    timer.startAt(moment);
    EXPECT_TRUE(loop.runUntil([&] { return calls == 1; }, Clock::now() + 10s));
    EXPECT_GE(Clock::now(), moment);
    EXPECT_FALSE(loop.runUntil([&] { return calls == 2; }, Clock::now() + 20ms));
}

TEST(TimerTest, AMomentThatHasPassedCallsBackAtOnce)
{
    EventLoop loop;
    bool called = false;
    Timer timer(loop, [&] { called = true; });
    timer.startAt(Clock::time_point());
    EXPECT_TRUE(loop.runUntil([&] { return called; }, Clock::now() + 10s));
}

TEST(TimerTest, AStoppedTimerDoesNotCallBack)
{
    EventLoop loop;
    bool called = false;
    Timer timer(loop, [&] { called = true; });
    timer.startAt(Clock::now() + 5ms);
    timer.stop();
    EXPECT_FALSE(loop.runUntil([&] { return called; }, Clock::now() + 20ms));
}

} // namespace
