// SPDX-License-Identifier: Apache-2.0
#include "ZelTest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace tamotest {
namespace {

class ForkTest : public ZelTest
{
};

TEST_F(ForkTest, TheChildBeginsWithoutAnythingAndMayInitializeItself)
{
    static int completed;
    completed = 0;
    push(channel(), 1, 0, [](zel_event_t*) { ++completed; });
    zel_register_shutdown_handler([](void*) { ++completed; }, nullptr);
    const int status = inChild([this] {
        int failures = 0;
        failures += zel_shutdown() == -1 && errno == EPERM ? 0 : 1;
        zel_event_t* const event = make(1);
        failures += zel_channel_push_event(channel(), event) == -1 ? 0 : 2;
        zel_event_destroy(event);
        failures += zel_initialize() == 0 ? 0 : 4;
        failures += zel_channel_get_active() > channel() ? 0 : 8;
        failures += take(0) == -1 ? 0 : 16;
        push(zel_channel_get_active(), 6);
        failures += take(0) == 6 ? 0 : 32;
        failures += zel_shutdown() == 0 ? 0 : 64;
        return failures + (completed == 0 ? 0 : 128);
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(completed, 0);
    EXPECT_EQ(take(0), 1) << "the parent's event is still there";
}

TEST_F(ForkTest, NothingIsWatchedInTheChild)
{
    int pipes[2];
    ASSERT_EQ(pipe(pipes), 0);
    static int calls;
    calls = 0;
    zel_add_fd(
        pipes[0], ZEL_IO_INPUT, [](int, int, void*) { return ++calls; }, nullptr);
    EXPECT_EQ(inChild([&] {
                  zel_initialize();
                  EXPECT_EQ(write(pipes[1], "x", 1), 1);
                  const bool isQuiet = take(0) == -1 && calls == 0;
                  // What it watches itself does not touch the parent's.
                  const bool isAdded = zel_add_fd(
                                           pipes[0], ZEL_IO_INPUT,
                                           [](int, int, void*) { return ++calls; }, nullptr) == 0;
                  return isQuiet && isAdded && take(0) == -1 && calls == 1 ? 0 : 1;
              }),
              0);
    EXPECT_EQ(take(0), -1);
    EXPECT_EQ(calls, 1);
    close(pipes[0]);
    close(pipes[1]);
}

} // namespace
} // namespace tamotest
