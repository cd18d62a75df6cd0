// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

constexpr const char* displays = "services/screen/displays";

class DisplayTest : public BoxTest
{
protected:
    Result rotate(const Box& box, const std::string& arguments) const
    {
        return in(box, {"pps", "set", "box/display", "--wait", "10s", "msg::rotate", "id::x",
                        "dat:json:" + arguments});
    }

    std::string list(const Box& box) const { return in(box, {"display", "list", "--json"}).output; }

    /** Kills the service and waits until the next one answers. */
    void restart(const Box& box) const
    {
        box.signal("display-service", SIGKILL);
        ASSERT_TRUE(box.launcher->complained("display-service ended by signal 9; started again\n"));
        ASSERT_TRUE(waitUntil([&] { return rotate(box, "{}").output.find("res::") != npos; }));
    }

    static constexpr std::size_t npos = std::string::npos;
};

TEST_P(DisplayTest, BuiltInOneIsThereBeforeTheApplication)
{
    const Box box =
        start({"sh", "-c", "cat /pps/services/screen/displays; exec " + helper("tamo-test-idle")});
    EXPECT_THAT(box.launcher->output(), StartsWith("@displays\ndisplays:json:["));
    const Result table = in(box, {"display", "list"});
    EXPECT_THAT(table, succeeds());
    EXPECT_THAT(table.output,
                MatchesRegex("id .*name\n1 +internal +yes +0 +768 x 1280 +53 x 88 +Built-in "
                             "display\n"));
    EXPECT_EQ(list(box),
              "{\"displays\":[{\"id\":1,\"name\":\"Built-in display\",\"type\":\"internal\","
              "\"attached\":true,\"detachable\":false,\"rotation\":0,\"width\":768,"
              "\"height\":1280,\"physicalWidth\":53,\"physicalHeight\":88}]}\n");
}

TEST_P(DisplayTest, IsTurnedWhenTheRequestIsAnswered)
{
    const Box box = startIdle();
    for (const char* rotation : {"90", "180", "270", "0"}) {
        EXPECT_THAT(rotate(box, std::string("{\"rotation\":") + rotation + '}').output,
                    HasSubstr("id::x\nres::ok\n"));
        EXPECT_THAT(list(box), HasSubstr(std::string("\"rotation\":") + rotation + ','));
    }
    EXPECT_THAT(rotate(box, R"({"id":1,"rotation":90})").output, HasSubstr("res::ok"));
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("768 x 1280, rotation 90\n"));
}

TEST_P(DisplayTest, WrongRequestsAreRefusedAndChangeNothing)
{
    const Box box = startIdle();
    const std::string before = list(box);
    EXPECT_THAT(rotate(box, "{}").output, HasSubstr("res::error\ntext::rotation must be"));
    EXPECT_THAT(rotate(box, R"({"rotation":45})").output, HasSubstr("0, 90, 180 or 270"));
    EXPECT_THAT(rotate(box, R"({"rotation":"90"})").output, HasSubstr("0, 90, 180 or 270"));
    EXPECT_THAT(rotate(box, R"({"id":"1","rotation":90})").output, HasSubstr("id must be"));
    EXPECT_THAT(rotate(box, R"({"id":2,"rotation":90})").output,
                HasSubstr("there is no display 2; there are: 1"));
    EXPECT_EQ(list(box), before);
}

TEST_P(DisplayTest, ServiceThatDiedGoesOnFromWhatIsPublished)
{
    const Box box = startIdle();
    EXPECT_THAT(rotate(box, R"({"rotation":270})").output, HasSubstr("res::ok"));
    const std::string before = list(box);
    restart(box);
    EXPECT_EQ(list(box), before);
    EXPECT_THAT(rotate(box, R"({"rotation":90})").output, HasSubstr("res::ok"));
    EXPECT_THAT(list(box), HasSubstr("\"rotation\":90,"));
}

TEST_P(DisplayTest, DamagedListIsSaidAndKept)
{
    const Box box = startIdle();
    const std::string damaged = "displays:json:[{\"id\":1,\"width\":10}]";
    EXPECT_THAT(in(box, {"pps", "set", displays, damaged}), succeeds());
    restart(box);
    EXPECT_THAT(rotate(box, R"({"rotation":90})").output,
                HasSubstr("res::error\ntext::/pps/services/screen/displays: display 1: the "
                          "display's height must be"));
    EXPECT_EQ(in(box, {"pps", "get", displays}).output, "@displays\n" + damaged + '\n');
    EXPECT_THAT(in(box, {"display", "list"}), failsWith(1, "display 1: the display's height"));
    const Result status = in(box, {"status"});
    EXPECT_EQ(status.status, 0);
    EXPECT_THAT(status.output, HasSubstr("display      /pps/services/screen/displays: display 1"));
    EXPECT_THAT(in(box, {"status", "--json"}).output, HasSubstr("\"displays\":null"));
}

TEST_P(DisplayTest, TableShowsWhatIsUnusual)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"pps", "set", displays,
                         "displays:json:[{\"id\":12,\"width\":10,\"height\":20,\"attached\":false,"
                         "\"rotation\":180,\"name\":\"a\\u001b[31m\\nb\"}]"}),
                succeeds());
    EXPECT_THAT(in(box, {"display", "list"}).output,
                MatchesRegex("id .*\n12 +external +no +180 +10 x 20 +unknown +a.\\[31m.b\n"));
    EXPECT_THAT(in(box, {"display", "list"}).output, Not(HasSubstr("\x1b")));
    EXPECT_THAT(run({"display"}), failsWith(2, "a command is missing; there are: list"));
}

BOX_TEST_USERS(DisplayTest);

} // namespace
