// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace tamotest {
namespace {

constexpr int Runs = 200;
constexpr unsigned LimitSeconds = 60;

TEST(ExitTest, AProcessMayExitWhileItsThreadsAreInTheLibrary)
{
    for (int i = 0; i < Runs; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(LimitSeconds);
            execl(TAMO_TEST_EXIT_UNDER_LOAD, TAMO_TEST_EXIT_UNDER_LOAD, nullptr);
            _exit(127);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status) << " in run " << i;
        ASSERT_EQ(WEXITSTATUS(status), 7) << "in run " << i;
    }
}

} // namespace
} // namespace tamotest
