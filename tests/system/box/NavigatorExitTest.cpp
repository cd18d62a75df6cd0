// SPDX-License-Identifier: Apache-2.0
#include "NavigatedTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

class NavigatorExitTest : public NavigatedTest
{
protected:
    static int millisecondsIn(const std::string& json)
    {
        const std::string name = "\"milliseconds\":";
        return std::stoi(json.substr(json.find(name) + name.size()));
    }
};

TEST_P(NavigatorExitTest, EndsWhenTheApplicationHasLeftAndTheBoxWithIt)
{
    const Box box = startNavigated();
    const Result result = in(box, {"navigator", "exit"});
    EXPECT_THAT(result, succeeds());
    EXPECT_THAT(result.output, MatchesRegex(applicationOf(box).group + " left after [0-9]+ ms\n"));
    EXPECT_EQ(box.launcher->wait(), 3);
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(NavigatorExitTest, EndsWhenAnotherApplicationHasLeft)
{
    const Box box = startNavigated();
    const auto process = startBeside(box);
    const std::string group = applicationOf(*process).group;
    EXPECT_THAT(
        in(box, {"navigator", "exit", "--json"}).output,
        MatchesRegex("\\{\"group\":\"" + group + "\",\"left\":true,\"milliseconds\":[0-9]+\\}\n"));
    EXPECT_EQ(process->wait(), 3);
    EXPECT_THAT(in(box, {"navigator", "--json"}).output, Not(HasSubstr(group)));
}

TEST_P(NavigatorExitTest, KillsAnApplicationThatStaysAndTheBoxEnds)
{
    const Box box = startNavigated({"ignore=exit"});
    const std::string group = applicationOf(box).group;
    const Result result = in(box, {"navigator", "exit", "--grace", "50ms"});
    EXPECT_THAT(result, succeeds());
    EXPECT_THAT(result.output,
                MatchesRegex(group + " did not leave within [0-9]+ ms and was killed\n"));
    EXPECT_EQ(box.launcher->wait(), 128 + SIGKILL);
    EXPECT_THAT(box.launcher->errors(),
                MatchesRegex("tamo-box: navigator-service: " + group +
                             " was asked to leave and did not within [0-9]+ ms; it is killed\n"));
}

TEST_P(NavigatorExitTest, KillsAnotherApplicationThatStays)
{
    const Box box = startNavigated();
    const auto process = startBeside(box, {"ignore=exit"});
    const Result result = in(box, {"navigator", "exit", "--grace", "50ms", "--json"});
    EXPECT_THAT(result, succeeds());
    EXPECT_THAT(result.output, HasSubstr("\"left\":false"));
    EXPECT_GE(millisecondsIn(result.output), 50);
    EXPECT_EQ(process->wait(), 128 + SIGKILL);
    EXPECT_TRUE(box.launcher->complained("it is killed\n"));
    EXPECT_THAT(in(box, {"navigator", "back", "--group", applicationOf(box).group}), succeeds());
}

TEST_P(NavigatorExitTest, GivesTheTimeThatTheApplicationAsksFor)
{
    const Box box = startNavigated();
    const auto process = startBeside(box, {"extend=1500"});
    const Result result = in(box, {"navigator", "exit", "--grace", "1s", "--json"});
    EXPECT_THAT(result.output, HasSubstr("\"left\":false"));
    EXPECT_GE(millisecondsIn(result.output), 1500);
    EXPECT_EQ(process->wait(), 128 + SIGKILL);
}

TEST_P(NavigatorExitTest, LeavesTheApplicationAloneWhenItIsInterrupted)
{
    const Box box = startNavigated({"ignore=exit"});
    const auto command = begin(box, {"navigator", "exit", "--grace", "1s"});
    EXPECT_TRUE(box.launcher->printed("msg::exit\n"));
    kill(command->pid(), SIGINT);
    EXPECT_EQ(command->wait(), 128 + SIGINT);
    const auto second = startBeside(box, {"ignore=exit"});
    // Its grace ends after that of the interrupted command.
    EXPECT_THAT(in(box, {"navigator", "exit", "--grace", "1s"}), succeeds());
    EXPECT_EQ(second->wait(), 128 + SIGKILL);
    EXPECT_THAT(in(box, {"navigator", "back", "--group", applicationOf(box).group}), succeeds());
    EXPECT_TRUE(box.launcher->complained(applicationOf(*second).group + " was asked to leave"));
    EXPECT_EQ(countOf(box.launcher->errors(), "it is killed"), 1);
}

TEST_P(NavigatorExitTest, EachCommandThatWaitsIsAnswered)
{
    const Box box = startNavigated();
    const auto process = startBeside(box, {"ignore=exit"});
    const auto patient = begin(box, {"navigator", "exit", "--grace", "1h"});
    EXPECT_TRUE(process->printed("msg::exit\n"));
    EXPECT_THAT(in(box, {"navigator", "exit", "--grace", "1ms"}).output, HasSubstr("was killed"));
    EXPECT_EQ(patient->wait(), 0);
    EXPECT_THAT(patient->output(), HasSubstr("was killed"));
}

BOX_TEST_USERS(NavigatorExitTest);

} // namespace
