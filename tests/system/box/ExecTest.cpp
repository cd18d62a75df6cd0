// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include "ProcessTable.h"

#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

using namespace boxtest;
using namespace testing;

namespace {

class ExecTest : public BoxTest
{
};

TEST_P(ExecTest, EndsWithTheCommandsExitStatus)
{
    const Box box = startIdle();
    EXPECT_EQ(in(box, {"exec", "--", "sh", "-c", "exit 7"}).status, 7);
    EXPECT_EQ(in(box, {"exec", "--", "sh", "-c", "kill -TERM $$"}).status, 128 + SIGTERM);
    EXPECT_THAT(in(box, {"exec", "--", "no-such-program"}), failsWith(127, "no-such-program"));
    EXPECT_THAT(in(box, {"exec", "--", "/etc/passwd"}), failsWith(126, "/etc/passwd"));
    EXPECT_THAT(in(box, {"exec"}), failsWith(125, "a command is missing"));
}

TEST_P(ExecTest, CommandIsBesideTheApplication)
{
    const Box box = startIdle();
    const Result result = in(box, {"exec", "--", "readlink", "/proc/self/ns/pid"});
    EXPECT_EQ(result.output, "pid:[" + std::to_string(box.processNamespace) + "]\n");
    EXPECT_THAT(in(box, {"exec", "--", "ps", "ax"}).output, HasSubstr("tamo-test-idle"));
}

TEST_P(ExecTest, CommandHasTheCallersDirectoryAndTheBoxsName)
{
    const Box box = startIdle();
    Process command(
        tamoBox({"exec", "--box", box.name, "--", "sh", "-c", "pwd; echo $TAMO_BOX $ODD"}),
        GetParam(), {}, [] {
            EXPECT_EQ(chdir("/usr/share"), 0);
            setenv("ODD", "value", 1);
        });
    EXPECT_EQ(command.wait(), 0);
    EXPECT_EQ(command.output(), "/usr/share\n" + box.name + " value\n");
}

TEST_P(ExecTest, CommandHasNoCapabilityThatItsUserLacks)
{
    const Box box = startIdle();
    for (const char* set : {"CapInh", "CapPrm", "CapEff", "CapAmb"}) {
        Process outside({"grep", set, "/proc/self/status"}, GetParam());
        EXPECT_EQ(outside.wait(), 0);
        EXPECT_EQ(in(box, {"exec", "--", "grep", set, "/proc/self/status"}).output,
                  outside.output());
    }
}

TEST_P(ExecTest, CommandHasOnlyTheCallersDescriptors)
{
    const Box box = startIdle();
    EXPECT_EQ(in(box, {"exec", "--", helper("tamo-test-descriptors")}).output, "0 1 2 \n");
    EXPECT_EQ(in(box, {"exec", "--", "cat"}, "typed\n").output, "typed\n");
}

TEST_P(ExecTest, DebuggerAttachesToTheApplication)
{
    const Box box = startIdle();
    const std::string pids = statusField(std::to_string(box.find("tamo-test-idle")), "NSpid");
    const std::string pid = pids.substr(pids.rfind('\t') + 1);
    EXPECT_THAT(in(box, {"exec", "--", helper("tamo-test-attach"), pid}), succeeds());
}

TEST_P(ExecTest, CommandEndsWithTheBox)
{
    const Box box = startIdle();
    Process command(tamoBox({"exec", "--box", box.name, "--", helper("tamo-test-idle")}),
                    GetParam());
    ASSERT_TRUE(command.printed("started"));
    kill(box.launcher->pid(), SIGTERM);
    EXPECT_EQ(command.wait(), 128 + SIGKILL);
    EXPECT_EQ(command.errors(), "tamo-box: the box '" + box.name + "' has ended\n");
}

TEST_P(ExecTest, KilledExecTakesItsCommandWithIt)
{
    const Box box = startIdle();
    Process command(tamoBox({"exec", "--box", box.name, "--", helper("tamo-test-signals")}),
                    GetParam());
    ASSERT_TRUE(command.printed("started"));
    kill(command.pid(), SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return box.find("tamo-test-signa") == -1; }));
}

TEST_P(ExecTest, CommandsWorkInsideTheBox)
{
    const Box box = startIdle();
    const std::string level = tamoBox({})[0] + " battery level 5";
    EXPECT_THAT(in(box, {"exec", "--", "sh", "-c", level}), succeeds());
    EXPECT_THAT(in(box, {"battery"}).output, HasSubstr("5 %"));
    EXPECT_EQ(in(box, {"exec", "--", tamoBox({})[0], "exec", "--", "sh", "-c", "exit 9"}).status,
              9);
}

TEST_P(ExecTest, AnotherBoxIsOutOfReachFromInsideABox)
{
    const Box box = startIdle();
    const Box other = startIdle();
    const Result result =
        in(box, {"exec", "--", tamoBox({})[0], "battery", "level", "5", "--box", other.name});
    if (GetParam() == User::Ordinary || geteuid() != 0)
        EXPECT_THAT(result, failsWith(1, "cannot be entered from here"));
    else
        EXPECT_THAT(result, succeeds()); // root may go anywhere
}

TEST_P(ExecTest, ShellIsTheUsers)
{
    const Box box = startIdle();
    Process shell(tamoBox({"shell", "--box", box.name}), GetParam(), "echo in $TAMO_BOX; exit 6\n",
                  [] { setenv("SHELL", "/bin/sh", 1); });
    EXPECT_EQ(shell.wait(), 6);
    EXPECT_EQ(shell.output(), "in " + box.name + "\n");
}

BOX_TEST_USERS(ExecTest);

} // namespace
