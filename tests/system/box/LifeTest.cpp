// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include "ProcessTable.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

class LifeTest : public BoxTest
{
};

TEST_P(LifeTest, ACommandIsAnsweredThoughTheApplicationLeavesBecauseOfIt)
{
    constexpr int runs = 10;
    for (int i = 0; i < runs; ++i) {
        Box box =
            start({"sh", "-c", "echo started; exec head -n 2 '/pps/services/power/battery?wait'"});
        ASSERT_THAT(in(box, {"battery", "level", "57"}), succeeds()) << "run " << i;
        EXPECT_EQ(box.launcher->wait(), 0);
    }
}

TEST_P(LifeTest, ACommandThatDoesNotEndDoesNotHoldTheBox)
{
    Box box = startIdle();
    Process watcher(tamoBox({"pps", "watch", "services/power/battery", "--box", box.name}),
                    GetParam());
    ASSERT_THAT(in(box, {"battery", "level", "57"}), succeeds());
    ASSERT_TRUE(watcher.printed("57"));
    box.signal("tamo-test-idle", SIGKILL);
    EXPECT_EQ(box.launcher->wait(), 128 + SIGKILL);
    EXPECT_EQ(watcher.wait(), 1);
}

TEST_P(LifeTest, KilledLauncherLeavesNothing)
{
    const Box box = startIdle();
    kill(box.launcher->pid(), SIGKILL);
    EXPECT_EQ(box.launcher->wait(), 128 + SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return box.isGone(); }));
    EXPECT_THAT(in(box, {"status"}), failsWith(1, "no box '" + box.name + "' is running"));
}

TEST_P(LifeTest, KilledNamespaceMakerLeavesNothing)
{
    const Box box = startIdle();
    kill(box.bwrap, SIGKILL);
    EXPECT_EQ(box.launcher->wait(), 125);
    EXPECT_TRUE(box.isGone()); // at once: the launcher is the last to go
    EXPECT_EQ(box.launcher->errors(),
              "tamo-box: the box was killed, and the application with it\n");
}

TEST_P(LifeTest, KilledInitLeavesNothing)
{
    const Box box = startIdle();
    kill(box.init, SIGKILL);
    EXPECT_EQ(box.launcher->wait(), 125);
    EXPECT_TRUE(box.isGone());
    EXPECT_EQ(box.launcher->errors(),
              "tamo-box: the box was killed, and the application with it\n");
}

TEST_P(LifeTest, KilledGroupLeavesNothing)
{
    const Box box = startIdle();
    kill(-box.launcher->pid(), SIGKILL);
    EXPECT_EQ(box.launcher->wait(), 128 + SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return box.isGone(); }));
}

TEST_P(LifeTest, KilledApplicationEndsTheBox)
{
    const Box box = startIdle();
    box.signal("tamo-test-idle", SIGKILL);
    EXPECT_EQ(box.launcher->wait(), 128 + SIGKILL);
    EXPECT_TRUE(box.isGone());
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(LifeTest, ApplicationRunsOnWithoutTheFilesystem)
{
    const Box box = startIdle();
    box.signal("ppsfs", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("the application runs on without them\n"));
    EXPECT_EQ(box.launcher->errors(),
              "tamo-box: ppsfs ended by signal 9; /pps and the services are "
              "gone, the application runs on without them\n");
    EXPECT_THAT(in(box, {"battery", "level", "5"}), failsWith(1, "/pps has ended"));
    EXPECT_NE(box.find("tamo-test-idle"), -1);
    kill(box.launcher->pid(), SIGTERM);
    EXPECT_EQ(box.launcher->wait(), 128 + SIGTERM);
    EXPECT_TRUE(box.isGone());
}

TEST_P(LifeTest, KilledServiceIsStartedAgainAndGoesOn)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"battery", "level", "42"}), succeeds());
    const pid_t killed = box.signal("power-service", SIGKILL);
    EXPECT_TRUE(
        box.launcher->complained("tamo-box: power-service ended by signal 9; started again\n"));
    EXPECT_THAT(in(box, {"battery"}).output, HasSubstr("42 %"));
    EXPECT_THAT(in(box, {"battery", "level", "41"}), succeeds());
    EXPECT_THAT(in(box, {"battery"}).output, HasSubstr("41 %"));
    EXPECT_NE(box.find("power-service"), killed);
}

TEST_P(LifeTest, ServiceThatEndsOverAndOverIsGivenUp)
{
    const Box box = startIdle();
    pid_t killed = -1;
    for (int i = 0; i < 11; ++i) {
        pid_t service = -1;
        ASSERT_TRUE(waitUntil([&] {
            service = box.find("power-service");
            return service != -1 && service != killed;
        })) << "after "
            << i;
        kill(service, SIGKILL);
        killed = service;
    }
    EXPECT_TRUE(
        box.launcher->complained("power-service ended by signal 9; it ended 11 times within "
                                 "10 s and is not started again\n"));
    EXPECT_THAT(in(box, {"battery", "level", "5"}), failsWith(1, "nothing serves it"));
    EXPECT_NE(box.find("tamo-test-idle"), -1);
}

TEST_P(LifeTest, WhatTheApplicationLeavesRunningEndsWithIt)
{
    const Box box =
        start({"sh", "-c", "setsid sleep 1000 >/dev/null 2>&1 & exec " + helper("tamo-test-idle")});
    ASSERT_TRUE(waitUntil([&] { return box.find("sleep") != -1; }));
    kill(box.launcher->pid(), SIGTERM);
    EXPECT_EQ(box.launcher->wait(), 128 + SIGTERM);
    EXPECT_TRUE(box.isGone());
}

TEST_P(LifeTest, SignalBeforeTheBoxIsReadyEndsIt)
{
    Process launcher(tamoBox({"run", "--", helper("tamo-test-idle")}), GetParam());
    kill(launcher.pid(), SIGTERM);
    EXPECT_EQ(launcher.wait(), 128 + SIGTERM);
}

TEST_P(LifeTest, BoxesDoNotSeeEachOther)
{
    const Box one = startIdle();
    const Box other = startIdle();
    EXPECT_THAT(in(one, {"battery", "level", "11"}), succeeds());
    EXPECT_THAT(in(other, {"battery"}).output, HasSubstr("unknown"));
    EXPECT_THAT(in(other, {"battery", "level", "22"}), succeeds());
    EXPECT_THAT(in(one, {"battery"}).output, HasSubstr("11 %"));
    EXPECT_THAT(in(one, {"exec", "--", "ps", "ax"}).output, Not(HasSubstr(other.name)));
}

TEST_P(LifeTest, CommandWithoutANameListsSeveralBoxes)
{
    const Box one = startIdle();
    const Box other = startIdle();
    EXPECT_THAT(run({"battery"}), failsWith(1, one.name + ", " + other.name));
}

TEST_P(LifeTest, CommandWithoutANameMeansTheOnlyBox)
{
    EXPECT_THAT(run({"battery"}), failsWith(1, "no box is running"));
    const Box box = startIdle();
    EXPECT_THAT(run({"status"}).output, HasSubstr(box.name));
}

TEST_P(LifeTest, SecondBoxOfANameIsRefused)
{
    const Box box = startIdle();
    EXPECT_THAT(run({"run", "--box", box.name, "--", "true"}),
                failsWith(125, "is running already"));
}

TEST_P(LifeTest, AnotherUsersBoxIsRefused)
{
    if (users().size() < 2)
        return; // there is only one user to be
    const Box box = startIdle();
    const User another = GetParam() == User::Caller ? User::Ordinary : User::Caller;
    Process command(tamoBox({"battery", "level", "5", "--box", box.name}), another);
    EXPECT_EQ(command.wait(), 1);
    EXPECT_THAT(command.errors(), HasSubstr("belongs to user"));
}

BOX_TEST_USERS(LifeTest);

} // namespace
