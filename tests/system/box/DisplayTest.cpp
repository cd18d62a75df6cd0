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
    EXPECT_THAT(run({"display"}),
                failsWith(2, "a command is missing; there are: list, attach, detach"));
}

TEST_P(DisplayTest, AttachedAndDetachedDisplaysAreListedWhenTheCommandEnds)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"display", "attach", "2"}), succeeds());
    EXPECT_THAT(
        in(box, {"display", "list"}).output,
        HasSubstr("\n2          external  yes       0         1920 x 1080     unknown       "
                  "Display 2\n"));
    EXPECT_THAT(in(box, {"display", "detach", "2"}), succeeds());
    EXPECT_THAT(list(box), HasSubstr("{\"id\":2,\"name\":\"Display 2\",\"type\":\"external\","
                                     "\"attached\":false,"));
    const Result again = in(box, {"display", "attach", "2", "--json", "--size", "1280x720",
                                  "--physical-size", "160x90", "--name", "Wall", "--type",
                                  "internal", "--rotation", "270", "--detachable", "false"});
    EXPECT_THAT(again, succeeds());
    EXPECT_EQ(again.output, "{\"id\":2,\"name\":\"Wall\",\"type\":\"internal\",\"attached\":true,"
                            "\"detachable\":false,\"rotation\":270,\"width\":1280,\"height\":720,"
                            "\"physicalWidth\":160,\"physicalHeight\":90}\n");
    EXPECT_THAT(list(box), HasSubstr(again.output.substr(0, again.output.size() - 1)));
    EXPECT_THAT(in(box, {"display", "attach", "3"}), succeeds());
    const Result detached = in(box, {"display", "detach", "3", "--json"});
    EXPECT_THAT(detached.output, StartsWith("{\"id\":3,\"name\":\"Display 3\""));
    EXPECT_THAT(detached.output, HasSubstr("\"attached\":false"));
}

TEST_P(DisplayTest, WhatCannotBeAttachedOrDetachedIsSaidInOneSentence)
{
    const Box box = startIdle();
    const std::string before = list(box);
    EXPECT_THAT(in(box, {"display", "attach", "1"}), failsWith(1, "1 is attached already"));
    EXPECT_THAT(in(box, {"display", "detach", "1"}), failsWith(1, "1 cannot be detached"));
    EXPECT_THAT(in(box, {"display", "detach", "2"}),
                failsWith(1, "there is no display 2; there are: 1"));
    EXPECT_THAT(in(box, {"display", "attach", "2", "--name", std::string(129, 'n')}),
                failsWith(1, "name must be at most 128 bytes"));
    EXPECT_THAT(in(box, {"display", "attach", "2", "--name", "\xFF"}), failsWith(1, ""));
    for (const char* id : {"0", "-1", "two", "2147483648", "1.5"})
        EXPECT_THAT(in(box, {"display", "attach", id}), failsWith(2, ""));
    for (const char* size : {"0x5", "5x-5", "5", "5x5x5", "2147483648x1"})
        EXPECT_THAT(in(box, {"display", "attach", "2", "--size", size}),
                    failsWith(2, "is no size; sizes are like 1920x1080"));
    EXPECT_THAT(in(box, {"display", "attach", "2", "--physical-size", "1x-1"}),
                failsWith(2, "two whole numbers of 0 or above"));
    EXPECT_THAT(in(box, {"display", "attach", "2", "--rotation", "45"}), failsWith(2, "45"));
    EXPECT_THAT(in(box, {"display", "attach", "2", "--type", "big"}), failsWith(2, "big"));
    EXPECT_THAT(in(box, {"display", "attach"}), failsWith(2, "id"));
    EXPECT_THAT(in(box, {"display", "detach"}), failsWith(2, "id"));
    EXPECT_EQ(list(box), before);
    EXPECT_THAT(in(box, {"display", "attach", "2", "--size", "2147483647x1"}), succeeds());
    EXPECT_THAT(list(box), HasSubstr("\"width\":2147483647,\"height\":1,"));
}

TEST_P(DisplayTest, ServiceThatDiedKnowsItsDisplays)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"display", "attach", "2", "--name", "Wall"}), succeeds());
    EXPECT_THAT(in(box, {"display", "attach", "3"}), succeeds());
    EXPECT_THAT(in(box, {"display", "detach", "3"}), succeeds());
    const std::string before = list(box);
    restart(box);
    EXPECT_EQ(list(box), before);
    EXPECT_THAT(in(box, {"display", "attach", "3"}), succeeds());
    EXPECT_THAT(in(box, {"display", "detach", "2"}), succeeds());
}

TEST_P(DisplayTest, BoxesHaveTheirOwnDisplays)
{
    const Box one = startIdle();
    const Box other = startIdle();
    EXPECT_THAT(in(one, {"display", "attach", "2"}), succeeds());
    EXPECT_THAT(list(one), HasSubstr("\"id\":2"));
    EXPECT_THAT(list(other), Not(HasSubstr("\"id\":2")));
}

TEST_P(DisplayTest, WhereThereIsNoRoomForAnotherThatIsSaid)
{
    const Box box = startIdle();
    std::string all = "displays:json:[";
    for (int id = 1; all.size() < 1'000'000; ++id)
        all +=
            (id > 1 ? "," : "") + (R"({"id":)" + std::to_string(id) + R"(,"width":1,"height":1})");
    EXPECT_THAT(in(box, {"pps", "set", displays, "-"}, "@displays\n" + all + "]\n"), succeeds());
    const std::string before = list(box);
    EXPECT_THAT(before, HasSubstr("\"id\":20000,"));
    EXPECT_THAT(in(box, {"display", "attach", "999999"}),
                failsWith(1, "there is no room for another display"));
    EXPECT_EQ(list(box), before);
    EXPECT_THAT(in(box, {"pps", "set", displays, "displays:json:[]"}), succeeds());
    EXPECT_THAT(in(box, {"display", "attach", "2"}), succeeds());
}

BOX_TEST_USERS(DisplayTest);

} // namespace
