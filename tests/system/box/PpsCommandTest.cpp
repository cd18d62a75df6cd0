// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

constexpr const char* battery = "services/power/battery";

class PpsCommandTest : public BoxTest
{
};

TEST_P(PpsCommandTest, SetPublishesAndGetPrints)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"pps", "set", battery, "StateOfCharge:n:5", "Text::a\\nb"}), succeeds());
    EXPECT_EQ(in(box, {"pps", "get", battery}).output,
              "@battery\nStateOfCharge:n:5\nText::a\\nb\n");
    EXPECT_EQ(in(box, {"pps", "get", "--json", std::string("/pps/") + battery}).output,
              "{\"@battery\":{\"StateOfCharge\":5,\"Text\":\"a\\nb\"}}\n");
    EXPECT_THAT(in(box, {"pps", "set", battery, "--", "-Text"}), succeeds());
    EXPECT_EQ(in(box, {"pps", "get", battery}).output, "@battery\nStateOfCharge:n:5\n");
}

TEST_P(PpsCommandTest, SetTakesAMessageFromStandardInput)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"pps", "set", battery, "-"}, "a::1\nb:json:[1,{\"c\":null}]\n"),
                succeeds());
    EXPECT_EQ(in(box, {"pps", "get", battery, "--json"}).output,
              "{\"@battery\":{\"a\":\"1\",\"b\":[1,{\"c\":null}]}}\n");
    const std::string large = "a::" + std::string(1'044'480 - 13, 'x') + '\n';
    EXPECT_THAT(in(box, {"pps", "set", battery, "-"}, "-b\n" + large.substr(0, 1'000'000) + '\n'),
                succeeds());
    EXPECT_THAT(in(box, {"pps", "set", battery, "-"}, large + large), failsWith(1, "longer than"));
}

TEST_P(PpsCommandTest, WrongMessagesAreRefusedWithTheReason)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"pps", "set", battery, "a::1", "b:n:x"}),
                failsWith(1, "line 2 of the message is malformed"));
    EXPECT_THAT(in(box, {"pps", "set", battery, "a:unknown:1"}), failsWith(1, "line 1"));
    EXPECT_THAT(in(box, {"pps", "set", battery, "a::1\nb::2"}), failsWith(2, "one line"));
    EXPECT_THAT(in(box, {"pps", "set", battery, "@other", "a::1"}), failsWith(1, battery));
    EXPECT_THAT(in(box, {"pps", "set", battery, "-"}, ""), failsWith(2, "a message is missing"));
    EXPECT_THAT(in(box, {"pps", "set", battery}), failsWith(2, "a message is missing"));
    EXPECT_THAT(in(box, {"pps", "get", battery}), failsWith(1, "has never been published"));
}

TEST_P(PpsCommandTest, WrongNamesAreRefusedWithTheReason)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"pps", "get", "no/such"}), failsWith(1, "there is no such object"));
    EXPECT_THAT(in(box, {"pps", "get", "services/power"}), failsWith(1, "directory"));
    EXPECT_THAT(in(box, {"pps", "get", "/etc/passwd"}), failsWith(2, "not an object's name"));
    EXPECT_THAT(in(box, {"pps", "get", "../etc/passwd"}), failsWith(2, "not an object's name"));
    EXPECT_THAT(in(box, {"pps", "get", "services/power/battery?wait"}), failsWith(2, "options"));
    EXPECT_THAT(in(box, {"pps", "get", ""}), failsWith(2, "not an object's name"));
    EXPECT_THAT(in(box, {"pps", "set", "new/object", "a::1"}),
                failsWith(1, "there is no such object"));
    EXPECT_THAT(in(box, {"pps", "set", "new/object", "a::1", "--create"}), succeeds());
    EXPECT_EQ(in(box, {"pps", "get", "new/object"}).output, "@object\na::1\n");
    EXPECT_THAT(in(box, {"pps"}), failsWith(2, "get, set, watch, serve"));
}

TEST_P(PpsCommandTest, WatchPrintsTheObjectNowAndWheneverItIsPublished)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"battery", "level", "1"}), succeeds());
    Process watcher(tamoBox({"pps", "watch", battery, "--box", box.name}), GetParam());
    EXPECT_TRUE(watcher.printed("@battery\nStateOfCharge:n:1\n"));
    EXPECT_THAT(in(box, {"battery", "level", "2"}), succeeds());
    EXPECT_TRUE(watcher.printed("@battery\nStateOfCharge:n:2\n"));
    EXPECT_THAT(in(box, {"exec", "--", "rm", std::string("/pps/") + battery}), succeeds());
    EXPECT_EQ(watcher.wait(), 1);
    EXPECT_THAT(watcher.output(), EndsWith("-@battery\n"));
    EXPECT_THAT(watcher.errors(), HasSubstr("has been removed"));
}

TEST_P(PpsCommandTest, WatchEndsWithTheBox)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"battery", "level", "1"}), succeeds());
    Process watcher(tamoBox({"pps", "watch", battery, "--json", "--box", box.name}), GetParam());
    EXPECT_TRUE(watcher.printed("{\"@battery\":{\"StateOfCharge\":1}}\n"));
    kill(box.launcher->pid(), SIGTERM);
    EXPECT_EQ(watcher.wait(), 1);
    EXPECT_THAT(watcher.errors(), HasSubstr("/pps has ended"));
}

TEST_P(PpsCommandTest, ServeAnswersRequestsFromStandardInput)
{
    const Box box = startIdle();
    Process server(
        tamoBox({"pps", "serve", "my/mailbox", "--create", "--count", "2", "--box", box.name}),
        GetParam(), "res::first\n\nres::second\n");
    ASSERT_TRUE(server.complained("serving /pps/my/mailbox\n"));
    EXPECT_EQ(in(box, {"pps", "set", "my/mailbox", "msg::a", "--wait", "10s"}).output,
              "@mailbox\nres::first\n");
    EXPECT_THAT(in(box, {"pps", "serve", "my/mailbox"}), failsWith(1, "it has a server already"));
    EXPECT_EQ(in(box, {"pps", "set", "my/mailbox", "msg::b", "--wait", "10s", "--json"}).output,
              "{\"@mailbox\":{\"res\":\"second\"}}\n");
    EXPECT_EQ(server.wait(), 0);
    EXPECT_THAT(server.output(), AllOf(HasSubstr("msg::a\n"), HasSubstr("msg::b\n")));
    EXPECT_THAT(in(box, {"pps", "set", "my/mailbox", "msg::c"}), failsWith(1, "nothing serves it"));
}

TEST_P(PpsCommandTest, WaitingForAnAnswerHasAnEnd)
{
    const Box box = startIdle();
    Process server(tamoBox({"pps", "serve", "my/mailbox", "--create", "--box", box.name}),
                   GetParam());
    ASSERT_TRUE(server.complained("serving"));
    EXPECT_THAT(in(box, {"pps", "set", "my/mailbox", "msg::a", "--wait", "1ms"}),
                failsWith(1, "no answer came in time"));
}

BOX_TEST_USERS(PpsCommandTest);

} // namespace
