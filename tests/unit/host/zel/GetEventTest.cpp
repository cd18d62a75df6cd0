// SPDX-License-Identifier: Apache-2.0
#include "ZelTest.h"

#include <pthread.h>
#include <signal.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <malloc.h>
#include <thread>
#include <vector>

namespace tamotest {
namespace {

using Clock = std::chrono::steady_clock;

class GetEventTest : public ZelTest
{
};

TEST_F(GetEventTest, ArgumentsAreChecked)
{
    zel_event_t* event = nullptr;
    EXPECT_THAT(zel_get_event(nullptr, 0), FailsWith(EINVAL));
    EXPECT_THAT(zel_get_event(&event, -2), FailsWith(EINVAL));
}

TEST_F(GetEventTest, GivesNullWhenTheTimeIsOver)
{
    zel_event_t* event = make(1);
    zel_event_t* const made = event;
    EXPECT_EQ(zel_get_event(&event, 0), 0);
    EXPECT_EQ(event, nullptr);
    const auto start = Clock::now();
    event = made;
    EXPECT_EQ(zel_get_event(&event, 20), 0);
    EXPECT_EQ(event, nullptr);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(20));
    zel_event_destroy(made);
}

TEST_F(GetEventTest, KeepsTheOrder)
{
    for (int i = 0; i < 1000; ++i)
        push(channel(), i);
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(take(0), i);
    EXPECT_EQ(take(0), -1);
}

TEST_F(GetEventTest, IsWokenByAnotherThread)
{
    std::thread pusher([this] { push(channel(), 3); });
    EXPECT_EQ(take(-1), 3);
    pusher.join();
}

extern "C" void countSignal(int) {}

TEST_F(GetEventTest, SignalsDoNotEndTheWaiting)
{
    struct sigaction action
    {
    };
    action.sa_handler = countSignal; // without SA_RESTART
    sigaction(SIGUSR1, &action, nullptr);
    const pthread_t waiting = pthread_self();
    for (const bool watches : {false, true}) {
        int pipes[2];
        ASSERT_EQ(pipe(pipes), 0);
        if (watches) {
            zel_add_fd(
                pipes[0], ZEL_IO_INPUT, [](int, int, void*) { return 0; }, nullptr);
        }
        std::thread disturber([&] {
            for (int i = 0; i < 100; ++i) {
                pthread_kill(waiting, SIGUSR1);
                std::this_thread::yield();
            }
            push(channel(), 4);
        });
        EXPECT_EQ(take(-1), 4);
        disturber.join();
        zel_remove_fd(pipes[0]);
        close(pipes[0]);
        close(pipes[1]);
    }
    signal(SIGUSR1, SIG_DFL);
}

TEST_F(GetEventTest, EventsOfEachPusherKeepTheirOrderAndNoneIsLost)
{
    constexpr int Pushers = 4;
    constexpr int Events = 20'000;
    std::vector<std::thread> threads;
    for (int i = 0; i < Pushers; ++i) {
        threads.emplace_back([this, i] {
            for (int j = 0; j < Events; ++j)
                push(channel(), j, static_cast<std::uintptr_t>(i));
        });
    }
    std::vector<int> next(Pushers, 0);
    for (int i = 0; i < Pushers * Events; ++i) {
        zel_event_t* event = nullptr;
        ASSERT_EQ(zel_get_event(&event, TimeoutMs), 0);
        ASSERT_NE(event, nullptr);
        int& expected = next[zel_event_get_payload(event)->data1];
        ASSERT_EQ(zel_event_get_code(event), expected);
        ++expected;
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(take(0), -1);
}

TEST_F(GetEventTest, NoWakeUpIsLostBetweenTwoThreads)
{
    for (const bool watches : {false, true}) {
        constexpr int Rounds = 20'000;
        int pipes[2];
        ASSERT_EQ(pipe(pipes), 0);
        const auto watch = [&] {
            if (watches) {
                zel_add_fd(
                    pipes[0], ZEL_IO_INPUT, [](int, int, void*) { return 0; }, nullptr);
            }
        };
        watch();
        std::atomic<int> otherChannel{0};
        std::thread other([&] {
            zel_initialize();
            watch();
            otherChannel = zel_channel_get_active();
            for (int i = 0; i < Rounds; ++i) {
                if (take() != i)
                    break;
                push(channel(), i);
            }
        });
        while (otherChannel == 0)
            std::this_thread::yield();
        for (int i = 0; i < Rounds; ++i) {
            push(otherChannel, i);
            if (take() != i) {
                ADD_FAILURE() << "lost at " << i;
                break;
            }
        }
        other.join();
        zel_remove_fd(pipes[0]);
        close(pipes[0]);
        close(pipes[1]);
    }
}

TEST_F(GetEventTest, AMillionEventsLeaveNothing)
{
    const auto run = [this](int times) {
        for (int i = 0; i < times; ++i) {
            push(channel(), i);
            ASSERT_EQ(take(0), i);
        }
    };
    run(1000);
    const auto memory = mallinfo2().uordblks;
    run(1'000'000);
    EXPECT_LT(mallinfo2().uordblks, memory + 16 * 1024);
}

TEST_F(GetEventTest, PushingToAThreadThatEndsTakesTheEventOrFails)
{
    constexpr int Rounds = 300;
    static std::atomic<int> completed;
    completed = 0;
    int failed = 0;
    int pushed = 0;
    for (int i = 0; i < Rounds; ++i) {
        std::atomic<int> theirs{0};
        std::thread ending([&] {
            zel_initialize();
            theirs = zel_channel_get_active();
            take(-1);
        });
        while (theirs == 0)
            std::this_thread::yield();
        for (bool goesOn = true; goesOn; ++pushed) {
            zel_event_t* const event = make(pushed, 0, [](zel_event_t*) { ++completed; });
            if (zel_channel_push_event(theirs, event) != 0) {
                EXPECT_EQ(errno, EINVAL);
                zel_event_destroy(event);
                ++failed;
                goesOn = false;
            }
        }
        ending.join();
    }
    EXPECT_EQ(failed, Rounds);
    EXPECT_EQ(completed, pushed) << "each once";
}

TEST_F(GetEventTest, EventsAreSaidFromVerbosityTwoOn)
{
    for (const unsigned verbosity : {0U, 1U, 2U, 3U}) {
        zel_set_verbosity(verbosity);
        ::testing::internal::CaptureStderr();
        push(channel(), 33);
        take();
        zel_set_verbosity(0);
        const std::string said = ::testing::internal::GetCapturedStderr();
        EXPECT_EQ(said.find("event 33 of domain " + std::to_string(domain())) != std::string::npos,
                  verbosity >= 2)
            << said;
    }
}

} // namespace
} // namespace tamotest
