// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

using namespace boxtest;
using namespace testing;

namespace {

class RunTest : public BoxTest
{
protected:
    // What a program prints, outside and in a box.
    std::string outside(const std::vector<std::string>& command) const
    {
        Process process(command, GetParam());
        EXPECT_EQ(process.wait(), 0) << process.errors();
        return process.output();
    }

    std::string inside(std::vector<std::string> command) const
    {
        command.insert(command.begin(), {"run", "--"});
        const Result result = run(command);
        EXPECT_THAT(result, succeeds());
        return result.output;
    }
};

TEST_P(RunTest, EndsWithTheApplicationsExitStatus)
{
    EXPECT_EQ(run({"run", "--", "true"}).status, 0);
    EXPECT_EQ(run({"run", "--", "sh", "-c", "exit 7"}).status, 7);
    EXPECT_EQ(run({"run", "--", "sh", "-c", "exit 255"}).status, 255);
}

TEST_P(RunTest, TellsWhichSignalEndedTheApplication)
{
    EXPECT_EQ(run({"run", "--", "sh", "-c", "kill -TERM $$"}).status, 128 + SIGTERM);
    EXPECT_EQ(run({"run", "--", "sh", "-c", "kill -KILL $$"}).status, 128 + SIGKILL);
}

TEST_P(RunTest, ApplicationThatIsNotThereIs127)
{
    EXPECT_THAT(run({"run", "--", "no-such-program"}), failsWith(127, "no-such-program"));
}

TEST_P(RunTest, ApplicationThatIsNotExecutableIs126)
{
    EXPECT_THAT(run({"run", "--", "/etc/passwd"}), failsWith(126, "/etc/passwd"));
}

TEST_P(RunTest, UsageErrorsHaveTheBoxsOwnStatus)
{
    EXPECT_THAT(run({"run"}), failsWith(125, "an application is missing"));
    EXPECT_THAT(run({"run", "--no-such-option", "--", "true"}), failsWith(125, "--no-such-option"));
    EXPECT_THAT(run({"run", "true"}), failsWith(125, "the application comes after '--'"));
    EXPECT_THAT(run({"run", "--box", "a/b", "--", "true"}), failsWith(125, "no name for a box"));
}

TEST_P(RunTest, ArgumentsReachTheApplicationAsTheyAre)
{
    EXPECT_EQ(inside({"printf", "[%s]", "--box", "", "a b", "--", "-x", "exec", "\n"}),
              "[--box][][a b][--][-x][exec][\n]");
}

TEST_P(RunTest, ManyArgumentsReachTheApplication)
{
    std::vector<std::string> command = {"sh", "-c", "echo $#", "sh"};
    command.resize(command.size() + 30'000, "argument");
    EXPECT_EQ(inside(command), "30000\n");
}

TEST_P(RunTest, UserGroupsDirectoryAndLimitsAreTheCallers)
{
    const std::vector<std::string> command = {
        "sh", "-c", "id -u; id -g; id -G; pwd; umask; ulimit -a; ls -di . /usr /tmp"};
    EXPECT_EQ(inside(command), outside(command));
}

TEST_P(RunTest, WorkingDirectoryIsKeptInOddPlaces)
{
    for (const char* directory : {"/", "/proc", "/sys", "/dev", "/bin"}) {
        Process process(tamoBox({"run", "--", "pwd", "-P"}), GetParam(), {},
                        [=] { EXPECT_EQ(chdir(directory), 0); });
        EXPECT_EQ(process.wait(), 0) << process.errors();
        EXPECT_EQ(process.output(),
                  directory == std::string("/bin") ? "/usr/bin\n" : directory + std::string("\n"));
        EXPECT_EQ(process.errors(), "");
    }
}

TEST_P(RunTest, ADirectoryThatHasBeenRemovedIsSaid)
{
    Process process(tamoBox({"run", "--", "pwd"}), GetParam(), {}, [] {
        char path[] = "/tmp/tamo-test-XXXXXX";
        EXPECT_NE(mkdtemp(path), nullptr);
        EXPECT_EQ(chdir(path), 0);
        EXPECT_EQ(rmdir(path), 0);
    });
    EXPECT_EQ(process.wait(), 0);
    EXPECT_EQ(process.output(), "/\n");
    EXPECT_THAT(process.errors(), HasSubstr("the application starts in /"));
}

TEST_P(RunTest, EnvironmentIsTheCallersWithTheBoxsName)
{
    const auto prepare = [] {
        clearenv();
        setenv("PATH", "/usr/bin:/bin", 1);
        setenv("ODD", "a=b\nc", 1);
        setenv("TAMO_BOX", "another", 1);
    };
    Process process(tamoBox({"run", "--box", "named", "--", "env"}), GetParam(), {}, prepare);
    EXPECT_EQ(process.wait(), 0) << process.errors();
    EXPECT_EQ(process.output(), "PATH=/usr/bin:/bin\nODD=a=b\nc\nTAMO_BOX=named\n");
}

TEST_P(RunTest, ApplicationHasNoCapabilityThatItsUserLacks)
{
    for (const char* set : {"CapInh", "CapPrm", "CapEff", "CapAmb"}) {
        const std::vector<std::string> command = {"grep", set, "/proc/self/status"};
        EXPECT_EQ(inside(command), outside(command));
    }
}

TEST_P(RunTest, OnlyTheCallersDescriptorsAreOpen)
{
    EXPECT_EQ(inside({helper("tamo-test-descriptors")}), "0 1 2 \n");
    Process process(tamoBox({"run", "--", helper("tamo-test-descriptors")}), GetParam(), {}, [] {
        dup2(STDIN_FILENO, 7);
        close(STDIN_FILENO);
    });
    EXPECT_EQ(process.wait(), 0) << process.errors();
    EXPECT_EQ(process.output(), "1 2 7 \n");
}

TEST_P(RunTest, StandardInputIsTheApplications)
{
    EXPECT_EQ(run({"run", "--", "cat"}, "typed\n").output, "typed\n");
}

TEST_P(RunTest, APipeThatTheApplicationClosesIsClosed)
{
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    Process process(
        tamoBox({"run", "--", "sh", "-c",
                 "exec 1>&- 9>&-; echo closed >&2; exec " + helper("tamo-test-idle") + " 1>&2"}),
        GetParam(), {}, [&] { dup2(ends[1], 9); });
    close(ends[1]);
    EXPECT_TRUE(process.complained("started"));
    char byte = 0;
    EXPECT_EQ(read(ends[0], &byte, 1), 0); // the end, while the box goes on
    close(ends[0]);
    kill(process.pid(), SIGTERM);
    EXPECT_EQ(process.wait(), 128 + SIGTERM);
}

TEST_P(RunTest, ObjectsOfTheServicesAreThereUnpublished)
{
    EXPECT_EQ(inside({"sh", "-c", "cd /pps && find . -type f -size 0 | sort"}),
              "./box/clock\n"
              "./box/display\n"
              "./box/navigator\n"
              "./box/network\n"
              "./box/notification\n"
              "./box/notifications\n"
              "./box/payment\n"
              "./box/power\n"
              "./box/purchases/0\n"
              "./box/waiting/0\n"
              "./services/dialog/control\n"
              "./services/led/control\n"
              "./services/navigator/control\n"
              "./services/navigator/events\n"
              "./services/network/events\n"
              "./services/notification/control\n"
              "./services/paymentsystem/control\n"
              "./services/power/battery\n"
              "./services/power/charger\n");
}

TEST_P(RunTest, ServicesListenBeforeTheApplicationStarts)
{
    // A request to a mailbox that nobody serves would fail at once.
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(
            inside({"sh", "-c",
                    "printf 'msg::level\\nid::1\\ndat:json:{\"level\":5}\\n' >/pps/box/power"
                    " && dd bs=1M count=1 status=none 'if=/pps/services/power/battery?wait'"}),
            "@battery\nStateOfCharge:n:5\n");
}

TEST_P(RunTest, AServiceIsLeftOutForSomebodyToStandIn)
{
    const Box box = startIdleWith({"--without", "payment-service", "--without", "led-service"});
    EXPECT_THAT(in(box, {"status"}).output,
                AllOf(Not(HasSubstr("payment-service")), Not(HasSubstr("led-service")),
                      HasSubstr("\npayment      unknown\n"), HasSubstr("power-service: process")));
    Process server(tamoBox({"pps", "serve", "services/paymentsystem/control", "--count", "1",
                            "--box", box.name}),
                   GetParam(), "msg::x\n\n");
    ASSERT_TRUE(server.complained("serving "));
    const Result answer =
        in(box, {"pps", "set", "services/paymentsystem/control", "--wait", "10s", "msg::price"});
    EXPECT_EQ(answer.output, "@control\nmsg::x\n");
    EXPECT_EQ(server.wait(), 0);
    EXPECT_THAT(run({"run", "--without", "x", "--", "true"}),
                failsWith(125, "there is no service 'x'; there are: power-service, "));
}

TEST_P(RunTest, RootDirectoryRefusesNewEntries)
{
    const Result result = run({"run", "--", "sh", "-c", ": > /new-entry"});
    EXPECT_NE(result.status, 0);
    EXPECT_THAT(result.errors, HasSubstr("Read-only file system"));
}

TEST_P(RunTest, JsonSaysWhenTheApplicationRuns)
{
    const Result result = run({"run", "--json", "--box", "said", "--", "true"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors,
                MatchesRegex("\\{\"box\":\"said\",\"application\":\\{\"pid\":[0-9]+\\}\\}\n"));
}

BOX_TEST_USERS(RunTest);

} // namespace
