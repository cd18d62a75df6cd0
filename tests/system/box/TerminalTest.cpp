// SPDX-License-Identifier: Apache-2.0
#include "Terminal.h"
#include "BoxTest.h"

using namespace boxtest;
using namespace testing;

namespace {

class TerminalTest : public BoxTest
{
};

TEST_P(TerminalTest, InterruptKeyReachesTheApplicationOnce)
{
    Terminal terminal(tamoBox({"run", "--", helper("tamo-test-signals")}), GetParam());
    ASSERT_TRUE(terminal.shows("started"));
    terminal.type("\x03");
    EXPECT_TRUE(terminal.shows("INT"));
    terminal.type("\x1c");
    EXPECT_TRUE(terminal.shows("QUIT"));
    terminal.signalForeground(SIGTERM);
    EXPECT_TRUE(terminal.shows("TERM"));
    EXPECT_TRUE(terminal.shows("[exit 3]"));
    EXPECT_EQ(terminal.screen().find("INT"), terminal.screen().rfind("INT"));
    EXPECT_EQ(terminal.screen().find("QUIT"), terminal.screen().rfind("QUIT"));
}

TEST_P(TerminalTest, StopKeyStopsTheJobAndItGoesOnInTheForeground)
{
    Terminal terminal(tamoBox({"run", "--", "cat"}), GetParam());
    terminal.type("first\n");
    ASSERT_TRUE(terminal.shows("first\r\nfirst\r\n"));
    terminal.type("\x1a");
    EXPECT_TRUE(terminal.shows("[stopped]"));
    terminal.type("second\n");
    EXPECT_TRUE(terminal.shows("second\r\nsecond\r\n"));
    terminal.type("\x04");
    EXPECT_TRUE(terminal.shows("[exit 0]"));
}

TEST_P(TerminalTest, WindowSizeReachesTheApplication)
{
    Terminal terminal(tamoBox({"run", "--", helper("tamo-test-signals")}), GetParam());
    ASSERT_TRUE(terminal.shows("started"));
    terminal.resize(33, 99);
    EXPECT_TRUE(terminal.shows("WINCH"));
    terminal.signalForeground(SIGTERM);
    EXPECT_TRUE(terminal.shows("[exit 3]"));
}

TEST_P(TerminalTest, ShellHasJobControlAndGivesTheTerminalBack)
{
    const Box box = startIdle();
    Terminal terminal({"sh", "-c",
                       "SHELL=/bin/bash " + tamoBox({})[0] + " shell --box " + box.name +
                           "; read answer; echo outside $answer"},
                      GetParam());
    terminal.type("set -m; echo jobs $-\n");
    EXPECT_TRUE(terminal.shows("jobs "));
    terminal.type("sleep 1000\n");
    ASSERT_TRUE(waitUntil([&] { return box.find("sleep") != -1; }));
    terminal.type("\x1a");
    EXPECT_TRUE(terminal.shows("Stopped"));
    terminal.type("kill -KILL %1; exec true\n");
    EXPECT_TRUE(waitUntil([&] { return box.find("bash") == -1; })) << terminal.screen();
    terminal.type("again\n");
    EXPECT_TRUE(terminal.shows("outside again")) << terminal.screen();
    EXPECT_TRUE(terminal.shows("[exit 0]"));
}

BOX_TEST_USERS(TerminalTest);

} // namespace
