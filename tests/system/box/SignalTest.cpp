// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <signal.h>

#include <tuple>

using namespace boxtest;
using namespace testing;

namespace {

class SignalTest : public BoxTest
{
protected:
    Box startCounting() const { return start({helper("tamo-test-signals")}); }

    static void endCounting(const Box& box)
    {
        kill(box.launcher->pid(), SIGTERM);
        EXPECT_EQ(box.launcher->wait(), 3);
    }
};

TEST_P(SignalTest, SignalsToTheLauncherReachTheApplicationOnce)
{
    const Box box = startCounting();
    for (const auto& [signal, name] : std::vector<std::pair<int, std::string>>{
             {SIGHUP, "HUP"}, {SIGUSR1, "USR1"}, {SIGUSR2, "USR2"}, {SIGINT, "INT"}}) {
        kill(box.launcher->pid(), signal);
        EXPECT_TRUE(box.launcher->printed(name + '\n'));
    }
    endCounting(box);
    EXPECT_EQ(box.launcher->output(), "started\nHUP\nUSR1\nUSR2\nINT\nTERM\n");
}

TEST_P(SignalTest, SignalsToTheGroupReachTheApplicationOnce)
{
    const Box box = startCounting();
    for (int i = 0; i < 20; ++i) {
        kill(-box.launcher->pid(), i % 2 == 0 ? SIGUSR1 : SIGUSR2);
        std::string expected = "started\n";
        for (int j = 0; j <= i; ++j)
            expected += j % 2 == 0 ? "USR1\n" : "USR2\n";
        EXPECT_TRUE(box.launcher->printed(expected));
    }
    endCounting(box);
    std::string expected = "started\n";
    for (int i = 0; i < 10; ++i)
        expected += "USR1\nUSR2\n";
    EXPECT_EQ(box.launcher->output(), expected + "TERM\n");
}

TEST_P(SignalTest, ApplicationThatSignalsItsGroupHurtsNothingElse)
{
    const Result result =
        run({"run", "--", "sh", "-c", "trap 'echo caught' TERM; kill -TERM 0; exit 6"});
    EXPECT_EQ(result.output, "caught\n");
    EXPECT_EQ(result.status, 6);
    EXPECT_EQ(result.errors, "");
}

TEST_P(SignalTest, IgnoredSignalsStayIgnored)
{
    Process process(tamoBox({"run", "--", "grep", "-E", "SigIgn|SigBlk", "/proc/self/status"}),
                    GetParam(), {}, [] {
                        for (int signal = 1; signal < 32; ++signal)
                            ::signal(signal, SIG_DFL);
                        signal(SIGHUP, SIG_IGN);
                        signal(SIGCHLD, SIG_IGN);
                        sigset_t blocked;
                        sigemptyset(&blocked);
                        sigaddset(&blocked, SIGUSR2);
                        sigprocmask(SIG_SETMASK, &blocked, nullptr);
                    });
    EXPECT_EQ(process.wait(), 0) << process.errors();
    EXPECT_EQ(process.output(), "SigBlk:\t0000000000000800\nSigIgn:\t0000000000010001\n");
}

TEST_P(SignalTest, SignalsToTheGroupOfExecReachTheCommandOnce)
{
    const Box box = startIdle();
    Process command(tamoBox({"exec", "--box", box.name, "--", helper("tamo-test-signals")}),
                    GetParam());
    ASSERT_TRUE(command.printed("started"));
    std::string expected = "started\n";
    for (int i = 0; i < 20; ++i) {
        for (const auto& [process, signal, name] : {std::tuple(-command.pid(), SIGUSR1, "USR1\n"),
                                                    std::tuple(-command.pid(), SIGUSR2, "USR2\n"),
                                                    std::tuple(command.pid(), SIGHUP, "HUP\n")}) {
            kill(process, signal);
            expected += name;
            ASSERT_TRUE(command.printed(expected)) << command.output();
        }
    }
    kill(-command.pid(), SIGTERM);
    EXPECT_EQ(command.wait(), 3);
    EXPECT_EQ(command.output(), expected + "TERM\n");
}

TEST_P(SignalTest, SignalsToExecReachTheCommand)
{
    const Box box = startIdle();
    Process command(tamoBox({"exec", "--box", box.name, "--", helper("tamo-test-signals")}),
                    GetParam());
    ASSERT_TRUE(command.printed("started\n"));
    kill(command.pid(), SIGUSR1);
    EXPECT_TRUE(command.printed("USR1\n"));
    kill(command.pid(), SIGTERM);
    EXPECT_EQ(command.wait(), 3);
}

BOX_TEST_USERS(SignalTest);

} // namespace
