// SPDX-License-Identifier: Apache-2.0
#include "ZelTest.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <functional>

namespace tamotest {
namespace {

class Pipe
{
public:
    Pipe() { EXPECT_EQ(pipe2(m_ends, O_CLOEXEC | O_NONBLOCK), 0); }
    ~Pipe()
    {
        closeReader();
        closeWriter();
    }
    int reader() const { return m_ends[0]; }
    int writer() const { return m_ends[1]; }
    void fill() const { EXPECT_EQ(write(writer(), "x", 1), 1); }
    void drain() const
    {
        char byte;
        EXPECT_EQ(read(reader(), &byte, 1), 1);
    }
    void closeReader() { closeEnd(m_ends[0]); }
    void closeWriter() { closeEnd(m_ends[1]); }

private:
    static void closeEnd(int& end)
    {
        if (end >= 0)
            close(std::exchange(end, -1));
    }

    int m_ends[2];
};

using Handler = std::function<int(int fd, int ioEvents)>;

int callHandler(int fd, int ioEvents, void* data)
{
    return (*static_cast<Handler*>(data))(fd, ioEvents);
}

class WatchedDescriptorTest : public ZelTest
{
protected:
    static int add(int fd, int ioEvents, Handler& handler)
    {
        return zel_add_fd(fd, ioEvents, callHandler, &handler);
    }

    /** A handler that pushes an event with the code that it was called with. */
    Handler pusher(const Pipe& pipe)
    {
        return [this, &pipe](int, int ioEvents) {
            if (ioEvents & ZEL_IO_INPUT)
                pipe.drain();
            push(zel_channel_get_active(), ioEvents);
            return 0;
        };
    }
};

TEST_F(WatchedDescriptorTest, HandlerIsCalledWhileAnEventIsWaitedForAndMayPushIt)
{
    Pipe pipe;
    Handler handler = pusher(pipe);
    EXPECT_EQ(add(pipe.reader(), ZEL_IO_INPUT, handler), 0);
    EXPECT_EQ(take(0), -1);
    pipe.fill();
    EXPECT_EQ(take(-1), ZEL_IO_INPUT);
    EXPECT_EQ(take(0), -1);
    pipe.fill();
    EXPECT_EQ(take(0), ZEL_IO_INPUT) << "also without waiting";
    EXPECT_EQ(zel_remove_fd(pipe.reader()), 0);
    pipe.fill();
    EXPECT_EQ(take(0), -1);
}

TEST_F(WatchedDescriptorTest, ReadinessIsALevel)
{
    Pipe pipe;
    int calls = 0;
    Handler handler = [&](int, int) { return ++calls == 5 ? 1 : 0; };
    add(pipe.reader(), ZEL_IO_INPUT, handler);
    pipe.fill();
    while (calls < 5)
        EXPECT_EQ(take(0), -1);
    EXPECT_EQ(take(0), -1);
    EXPECT_EQ(calls, 5) << "its result has ended the watching";
    EXPECT_THAT(zel_remove_fd(pipe.reader()), FailsWith(ENOENT));
}

TEST_F(WatchedDescriptorTest, OneThatIsAlwaysReadyDoesNotHoldUpTheTimeout)
{
    Pipe pipe;
    int calls = 0;
    Handler handler = [&](int, int) {
        ++calls;
        return 0;
    };
    add(pipe.reader(), ZEL_IO_INPUT, handler);
    pipe.fill();
    EXPECT_EQ(take(20), -1);
    EXPECT_GT(calls, 0);
}

TEST_F(WatchedDescriptorTest, ReportsOutputBothAndTheOtherEndsGoing)
{
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    int reported = 0;
    Handler handler = [&](int fd, int ioEvents) {
        EXPECT_EQ(fd, ends[0]);
        reported = ioEvents;
        push(channel(), 1);
        return 1;
    };
    EXPECT_EQ(add(ends[0], ZEL_IO_OUTPUT, handler), 0);
    EXPECT_EQ(take(), 1);
    EXPECT_EQ(reported, ZEL_IO_OUTPUT);
    EXPECT_EQ(write(ends[1], "x", 1), 1);
    EXPECT_EQ(add(ends[0], ZEL_IO_INPUT | ZEL_IO_OUTPUT | ZEL_IO_EXCEPT, handler), 0);
    EXPECT_EQ(take(), 1);
    EXPECT_EQ(reported, ZEL_IO_INPUT | ZEL_IO_OUTPUT);
    close(ends[1]);
    EXPECT_EQ(add(ends[0], ZEL_IO_INPUT, handler), 0);
    EXPECT_EQ(take(), 1);
    EXPECT_EQ(reported, ZEL_IO_INPUT | ZEL_IO_EXCEPT);
    close(ends[0]);
}

TEST_F(WatchedDescriptorTest, HangUpsAndErrorsAreReportedUnasked)
{
    Pipe hungUp;
    hungUp.closeWriter();
    int reported = 0;
    Handler handler = [&](int, int ioEvents) {
        reported = ioEvents;
        push(channel(), 1);
        return 1;
    };
    add(hungUp.reader(), ZEL_IO_INPUT, handler);
    EXPECT_EQ(take(), 1);
    EXPECT_EQ(reported, ZEL_IO_INPUT | ZEL_IO_EXCEPT) << "reading it says that it has ended";

    Pipe broken;
    broken.closeReader();
    add(broken.writer(), ZEL_IO_OUTPUT, handler);
    EXPECT_EQ(take(), 1);
    EXPECT_EQ(reported & ZEL_IO_EXCEPT, ZEL_IO_EXCEPT);
}

TEST_F(WatchedDescriptorTest, BadOnesAreRefused)
{
    Pipe pipe;
    Handler handler = [](int, int) { return 0; };
    EXPECT_THAT(add(-1, ZEL_IO_INPUT, handler), FailsWith(EBADF));
    EXPECT_THAT(add(100'000, ZEL_IO_INPUT, handler), FailsWith(EBADF));
    EXPECT_THAT(add(pipe.reader(), 0, handler), FailsWith(EINVAL));
    EXPECT_THAT(add(pipe.reader(), ZEL_IO_EXCEPT, handler), FailsWith(EINVAL));
    EXPECT_THAT(add(pipe.reader(), ZEL_IO_INPUT | 8, handler), FailsWith(EINVAL));
    EXPECT_THAT(zel_add_fd(pipe.reader(), ZEL_IO_INPUT, nullptr, nullptr), FailsWith(EINVAL));
    EXPECT_THAT(zel_remove_fd(pipe.reader()), FailsWith(ENOENT));
    const int file = open("/proc/self/exe", O_RDONLY | O_CLOEXEC);
    EXPECT_THAT(add(file, ZEL_IO_INPUT, handler), FailsWith(EPERM));
    close(file);

    EXPECT_EQ(add(pipe.reader(), ZEL_IO_INPUT, handler), 0);
    EXPECT_THAT(add(pipe.reader(), ZEL_IO_INPUT, handler), FailsWith(EEXIST));
    EXPECT_EQ(zel_remove_fd(pipe.reader()), 0);
    EXPECT_THAT(zel_remove_fd(pipe.reader()), FailsWith(ENOENT));
}

TEST_F(WatchedDescriptorTest, BelongsToTheChannelThatWasActive)
{
    Pipe pipe;
    Handler handler = pusher(pipe);
    add(pipe.reader(), ZEL_IO_INPUT, handler);
    int other = 0;
    zel_channel_create(&other);
    zel_channel_set_active(other, nullptr);
    pipe.fill();
    EXPECT_EQ(take(0), -1);
    EXPECT_THAT(zel_remove_fd(pipe.reader()), FailsWith(ENOENT));
    zel_channel_set_active(channel(), nullptr);
    EXPECT_EQ(take(0), ZEL_IO_INPUT);
}

TEST_F(WatchedDescriptorTest, HandlersMayRemoveAnyAndNoneIsCalledAfterwards)
{
    Pipe pipes[2];
    int calls = 0;
    Handler handler = [&](int, int) {
        ++calls;
        EXPECT_EQ(zel_remove_fd(pipes[0].reader()), 0);
        EXPECT_EQ(zel_remove_fd(pipes[1].reader()), 0);
        return 0;
    };
    for (Pipe& pipe : pipes) {
        add(pipe.reader(), ZEL_IO_INPUT, handler);
        pipe.fill();
    }
    EXPECT_EQ(take(0), -1);
    EXPECT_EQ(take(0), -1);
    EXPECT_EQ(calls, 1);
}

TEST_F(WatchedDescriptorTest, AHandlerMayReplaceItsOwnWatch)
{
    Pipe pipe;
    int second = 0;
    Handler after = [&](int, int) { return ++second; };
    Handler before = [&](int fd, int) {
        zel_remove_fd(fd);
        EXPECT_EQ(add(fd, ZEL_IO_INPUT, after), 0);
        return 1; // ends the watch that it was called for, which has ended already
    };
    add(pipe.reader(), ZEL_IO_INPUT, before);
    pipe.fill();
    while (second == 0)
        EXPECT_EQ(take(0), -1);
    EXPECT_EQ(second, 1);
}

TEST_F(WatchedDescriptorTest, WhatAnotherHandlerHasTakenIsNotReported)
{
    Pipe pipes[2];
    int calls = 0;
    Handler handler = [&](int, int) {
        ++calls;
        pipes[0].drain();
        pipes[1].drain();
        return 0;
    };
    for (Pipe& pipe : pipes) {
        add(pipe.reader(), ZEL_IO_INPUT, handler);
        pipe.fill();
    }
    EXPECT_EQ(take(0), -1);
    EXPECT_EQ(calls, 1);
}

TEST_F(WatchedDescriptorTest, AHandlerMayDestroyTheChannel)
{
    Pipe pipe;
    int other = 0;
    zel_channel_create(&other);
    zel_channel_set_active(other, nullptr);
    Handler handler = [&](int, int) {
        zel_channel_destroy(other);
        zel_channel_set_active(channel(), nullptr);
        push(channel(), 9);
        return 0;
    };
    add(pipe.reader(), ZEL_IO_INPUT, handler);
    pipe.fill();
    EXPECT_EQ(take(-1), 9);
}

TEST_F(WatchedDescriptorTest, AHandlerMayShutDown)
{
    inThread([&] {
        Pipe pipe;
        zel_initialize();
        Handler handler = [](int, int) { return zel_shutdown(); };
        add(pipe.reader(), ZEL_IO_INPUT, handler);
        pipe.fill();
        zel_event_t* event = nullptr;
        EXPECT_THAT(zel_get_event(&event, -1), FailsWith(EPERM));
    });
}

TEST_F(WatchedDescriptorTest, AHandlerMayTakeEvents)
{
    Pipe pipe;
    int inner = 0;
    Handler handler = [&](int, int) {
        pipe.drain();
        push(channel(), 5);
        push(channel(), 6);
        inner = take(0);
        return 0;
    };
    add(pipe.reader(), ZEL_IO_INPUT, handler);
    pipe.fill();
    EXPECT_EQ(take(), 6);
    EXPECT_EQ(inner, 5);
}

TEST_F(WatchedDescriptorTest, DoesNotStarveWhileThereAreAlwaysEvents)
{
    Pipe pipe;
    bool isCalled = false;
    Handler handler = [&](int, int) {
        pipe.drain();
        return isCalled = true;
    };
    add(pipe.reader(), ZEL_IO_INPUT, handler);
    pipe.fill();
    push(channel(), 0);
    int events = 0;
    for (; !isCalled && events < 1000; ++events) {
        push(channel(), 0);
        take();
    }
    EXPECT_LE(events, 34);
}

TEST_F(WatchedDescriptorTest, ThoseThatAreReadyTakeTurns)
{
    std::array<Pipe, 4> pipes;
    std::array<int, 4> calls{};
    std::array<Handler, 4> handlers;
    for (std::size_t i = 0; i < pipes.size(); ++i) {
        handlers[i] = [&calls, i](int, int) {
            ++calls[i];
            return 0;
        };
        add(pipes[i].reader(), ZEL_IO_INPUT, handlers[i]);
        pipes[i].fill();
    }
    for (int i = 0; i < 40; ++i)
        take(0);
    for (const int count : calls)
        EXPECT_GE(count, 20);
}

TEST_F(WatchedDescriptorTest, OneThatWasClosedWhileWatchedGivesItsNumberFree)
{
    Pipe first;
    Pipe second;
    Handler none = [](int, int) { return 0; };
    const int number = first.reader();
    add(number, ZEL_IO_INPUT, none);
    first.closeReader();
    const int again = fcntl(second.reader(), F_DUPFD_CLOEXEC, number);
    ASSERT_EQ(again, number);
    Handler handler = pusher(second);
    EXPECT_EQ(add(again, ZEL_IO_INPUT, handler), 0);
    second.fill();
    EXPECT_EQ(take(), ZEL_IO_INPUT);
    EXPECT_EQ(zel_remove_fd(again), 0);
    close(again);
}

double processorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST_F(WatchedDescriptorTest, OneThatWasClosedBeforeItWasRemovedDoesNotKeepTheThreadBusy)
{
    Pipe pipe;
    Pipe other;
    Handler none = [](int, int) { return 0; };
    Handler handler = pusher(other);
    add(pipe.reader(), ZEL_IO_INPUT, none);
    add(other.reader(), ZEL_IO_INPUT, handler);
    pipe.fill();
    const int number = pipe.reader();
    const int duplicate = fcntl(number, F_DUPFD_CLOEXEC, 0); // keeps it in the kernel's set
    pipe.closeReader();
    EXPECT_EQ(zel_remove_fd(number), 0);
    const double before = processorSeconds();
    EXPECT_EQ(take(300), -1);
    EXPECT_LT(processorSeconds() - before, 0.1);
    other.fill();
    EXPECT_EQ(take(), ZEL_IO_INPUT) << "the others are still watched";
    close(duplicate);
}

} // namespace
} // namespace tamotest
