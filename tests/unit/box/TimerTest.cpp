// SPDX-License-Identifier: Apache-2.0
#include "common/Timer.h"

#include <gtest/gtest.h>

using namespace tamobox;
using namespace std::chrono_literals;

namespace {

template<typename Clock>
void expectThatItCallsBackOnceAtItsMoment()
{
    EventLoop loop;
    int calls = 0;
    typename Clock::time_point called;
    BasicTimer<Clock> timer(loop, [&] {
        ++calls;
        called = Clock::now();
    });
    const auto moment = Clock::now() + 20ms;
    timer.startAt(moment);
    EXPECT_TRUE(loop.runUntil([&] { return calls != 0; }, EventLoop::Clock::now() + 20s));
    EXPECT_GE(called, moment);
    EXPECT_FALSE(loop.runUntil([&] { return calls != 1; }, EventLoop::Clock::now() + 50ms));
}

template<typename Clock>
void expectThatAPastMomentIsAtOnce()
{
    EventLoop loop;
    bool isCalled = false;
    BasicTimer<Clock> timer(loop, [&] { isCalled = true; });
    timer.startAt(typename Clock::time_point());
    EXPECT_TRUE(loop.runUntil([&] { return isCalled; }, EventLoop::Clock::now() + 20s));
}

template<typename Clock>
void expectThatItDoesNotCallBackOnceItIsStopped()
{
    EventLoop loop;
    bool isCalled = false;
    BasicTimer<Clock> timer(loop, [&] { isCalled = true; });
    timer.startAt(Clock::time_point::max());
    timer.startAt(Clock::now() + 10ms);
    timer.stop();
    EXPECT_FALSE(loop.runUntil([&] { return isCalled; }, EventLoop::Clock::now() + 50ms));
}

TEST(TimerTest, CallsBackOnceAtItsMoment)
{
    expectThatItCallsBackOnceAtItsMoment<EventLoop::Clock>();
    expectThatItCallsBackOnceAtItsMoment<std::chrono::system_clock>();
}

TEST(TimerTest, CallsBackAtOnceWhereItsMomentHasPassed)
{
    expectThatAPastMomentIsAtOnce<EventLoop::Clock>();
    expectThatAPastMomentIsAtOnce<std::chrono::system_clock>();
}

TEST(TimerTest, StoppedOneDoesNotCallBack)
{
    expectThatItDoesNotCallBackOnceItIsStopped<EventLoop::Clock>();
    expectThatItDoesNotCallBackOnceItIsStopped<std::chrono::system_clock>();
}

} // namespace
