// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <poll.h>

#include <chrono>
#include <ctime>

namespace tamotest {
namespace {

using namespace std::chrono_literals;

class ProcessorTime : public PpsTest
{
protected:
    /** How long the filesystem's process has computed. */
    std::chrono::nanoseconds used()
    {
        clockid_t clock{};
        timespec time{};
        EXPECT_EQ(clock_getcpuclockid(filesystem().pid(), &clock), 0);
        EXPECT_EQ(clock_gettime(clock, &time), 0);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    /** What it computes in a fifth of a second in which nobody asks for anything. */
    std::chrono::nanoseconds usedWhileIdle(const PpsDescriptor& waiting)
    {
        pollfd polled = {waiting.get(), POLLIN, 0};
        const auto before = used();
        EXPECT_EQ(poll(&polled, 1, 200), 0);
        return used() - before;
    }
};

// The filesystem stays awake for a moment in which it expects a request, and for no longer.
TEST_F(ProcessorTime, IsNotUsedForAReaderThatHasBeenToldAndDoesNotAsk)
{
    publish("told", "a:n:1\n");
    publish("waiting", "a:n:1\n");
    const PpsDescriptor told("told", O_RDONLY);
    const PpsDescriptor waiting("waiting", O_RDONLY);
    ASSERT_NE(told.read(), "");
    ASSERT_NE(waiting.read(), "");
    EXPECT_FALSE(told.isReadable()); // the kernel is to be told of the next publication
    publish("told", "a:n:2\n");
    EXPECT_LT(usedWhileIdle(waiting), 50ms);
    EXPECT_TRUE(told.isReadable());
    EXPECT_LT(usedWhileIdle(waiting), 50ms);
}

} // namespace
} // namespace tamotest
