// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"
#include "WaitingReader.h"

#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <string>

namespace tamotest {
namespace {

using EndE1 = PpsTest;
using EndE2 = PpsTest;

bool isMounted()
{
    std::ifstream mounts("/proc/self/mounts");
    for (std::string line; std::getline(mounts, line);) {
        if (line.find(" /pps fuse.ppsfs ") != std::string::npos)
            return true;
    }
    return false;
}

TEST_F(EndE1, AKilledFilesystemIsAnError)
{
    publish("o", "a:n:1\n");
    const PpsDescriptor object("o?wait");
    object.read();
    WaitingReader waiting(object);
    filesystem().kill();
    EXPECT_EQ(waiting.result().error, ECONNABORTED);
    EXPECT_TRUE(object.events() & POLLERR);
    EXPECT_EQ(object.tryRead().error, ENOTCONN);
    EXPECT_EQ(object.write("a:n:1\n"), ENOTCONN);
    EXPECT_EQ(PpsDescriptor("o", O_RDONLY).error(), ENOTCONN);
}

TEST_F(EndE1, PollersAreWokenByAKill)
{
    const PpsDescriptor object("o");
    const pid_t poller = fork();
    if (poller == 0) {
        pollfd polled{object.get(), POLLIN, 0};
        _exit(poll(&polled, 1, 10'000) == 1 && (polled.revents & POLLERR) ? 0 : 1);
    }
    EXPECT_TRUE(waitUntilSleepsIn(poller, poller, SYS_poll));
    filesystem().kill();
    int status = 0;
    waitpid(poller, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(EndE1, ASignalEndsItCleanly)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        PpsFilesystem second; // on top of the fixture's
        publish("o", "a:n:1\n");
        const PpsDescriptor object("o?wait");
        object.read();
        WaitingReader waiting(object);
        contentOf("o"); // answered after the read that waits was received
        ASSERT_EQ(kill(second.pid(), signal), 0);
        EXPECT_EQ(waiting.result().error, ENOTCONN);
        siginfo_t ended{};
        ASSERT_EQ(waitid(P_PID, static_cast<id_t>(second.pid()), &ended, WEXITED | WNOWAIT), 0);
        EXPECT_EQ(ended.si_code, CLD_EXITED);
        EXPECT_EQ(ended.si_status, 0);
        EXPECT_EQ(object.tryRead().error, ENOTCONN);
        EXPECT_TRUE(object.events() & POLLERR);
        EXPECT_EQ(PpsDescriptor("o", O_RDONLY).error(), ENOENT); // what it lay upon is there again
    }
}

TEST_F(EndE1, UnmountingEndsIt)
{
    PpsFilesystem second;
    EXPECT_EQ(shell("umount /pps"), 0);
    siginfo_t ended{};
    ASSERT_EQ(waitid(P_PID, static_cast<id_t>(second.pid()), &ended, WEXITED | WNOWAIT), 0);
    EXPECT_EQ(ended.si_code, CLD_EXITED);
    EXPECT_EQ(ended.si_status, 0);
}

TEST_F(EndE2, NothingIsKept)
{
    {
        const PpsFilesystem second;
        publish("o", "a:n:1\n");
        EXPECT_TRUE(isMounted());
    }
    const PpsFilesystem third;
    EXPECT_EQ(PpsDescriptor("o", O_RDONLY).error(), ENOENT);
}

} // namespace
} // namespace tamotest
