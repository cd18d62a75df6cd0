// SPDX-License-Identifier: Apache-2.0
#include "ClientTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

const std::vector<std::string> asJson = {"led", "--json"};
const std::string off = "{\"lit\":null,\"shown\":null,\"waiting\":[]}\n";

std::string status(const std::string& red, const std::string& green, const std::string& blue)
{
    return "@status\nred::" + red + "\ngreen::" + green + "\nblue::" + blue + '\n';
}

const std::string dark = status("off", "off", "off");

class LedTest : public ClientTest
{
protected:
    LedTest() : ClientTest("services/led/control") {}

    static std::string flash(const std::string& id, const std::string& color, int count)
    {
        return request("requestLED", "{\"id\":\"" + id + "\",\"color\":\"" + color +
                                         "\",\"blinkCount\":" + std::to_string(count) + '}');
    }

    static std::string cancel(const std::string& id)
    {
        return request("cancelLED", "{\"id\":\"" + id + "\"}");
    }

    /** Prints the status as it is published, from now on. */
    std::unique_ptr<Process> watch(const Box& box) const
    {
        auto watcher = std::make_unique<Process>(
            tamoBox({"pps", "watch", "services/led/status", "--box", box.name}), GetParam());
        EXPECT_TRUE(watcher->printed("blue::"));
        return watcher;
    }
};

TEST_P(LedTest, IsOffAtFirst)
{
    const Box box = startIdle();
    EXPECT_EQ(in(box, {"led"}).output, "off\n");
    EXPECT_EQ(in(box, asJson).output, off);
    EXPECT_EQ(in(box, {"pps", "get", "services/led/status"}).output, dark);
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("\nled          off\n"));
    EXPECT_THAT(in(box, {"status", "--json"}).output,
                HasSubstr("\"led\":" + off.substr(0, off.size() - 1)));
}

TEST_P(LedTest, EachFlashIsPublishedOnceWithDarknessBetween)
{
    const Box box = startIdle();
    const auto watcher = watch(box);
    const Client client = startClient(box, {flash("1", "magenta", 3)});
    const std::string lit = status("on", "off", "on");
    EXPECT_TRUE(watcher->printed(dark + lit + dark + lit + dark + lit + dark));
    EXPECT_EQ(outputWith(box, asJson, off), off);
    have(box, client, flash("2", "yellow", 1));
    EXPECT_TRUE(watcher->printed(status("on", "on", "off") + dark));
    EXPECT_EQ(watcher->output(),
              dark + lit + dark + lit + dark + lit + dark + status("on", "on", "off") + dark);
}

TEST_P(LedTest, NewestRequestIsShownAndTheOneBeforeGoesOn)
{
    const Box box = startIdle();
    const Client first = startClient(box, {flash("1", "red", -1)});
    outputWith(box, asJson, "\"lit\":\"red\"");
    const Client second = startClient(box, {flash("1", "blue", 2147483647)});
    const std::string both = outputWith(box, asJson, "\"lit\":\"blue\"");
    EXPECT_THAT(both, HasSubstr("\"shown\":{\"pid\":" + second.pid +
                                ",\"application\":\"tamo-test-clien\",\"id\":\"1\",\"color\":"
                                "\"blue\",\"remaining\":21474836"));
    EXPECT_THAT(both, HasSubstr("\"waiting\":[{\"pid\":" + first.pid +
                                ",\"application\":\"tamo-test-clien\",\"id\":\"1\",\"color\":"
                                "\"red\",\"remaining\":-1}]"));
    EXPECT_THAT(in(box, {"led"}).output,
                AllOf(HasSubstr("; flashes blue for process " + second.pid + " tamo-test-clien, "),
                      HasSubstr("; 1 waiting\n  waits: red for process " + first.pid +
                                " tamo-test-clien, id 1, until cancelled\n")));
    // One application's cancel is nothing to another that uses the same id.
    have(box, second, cancel("1"));
    EXPECT_THAT(outputWith(box, asJson, "\"lit\":\"red\""), HasSubstr("\"waiting\":[]"));
    have(box, first, cancel("unknown"));
    have(box, first, cancel("1"));
    outputWith(box, asJson, off);
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(LedTest, ChangeOfColorGoesThroughDarkness)
{
    const Box box = startIdle();
    const auto watcher = watch(box);
    const Client client = startClient(box, {flash("1", "red", -1)});
    ASSERT_TRUE(watcher->printed("red::on"));
    have(box, client, cancel("1"));
    have(box, client, flash("1", "green", 1));
    ASSERT_TRUE(watcher->printed("green::on"));
    outputWith(box, asJson, off);
    EXPECT_THAT(watcher->output(),
                HasSubstr(status("on", "off", "off") + dark + status("off", "on", "off")));
}

TEST_P(LedTest, ApplicationThatHasGoneIsForgotten)
{
    const Box box = startIdle();
    Client killed = startClient(box, {flash("1", "red", -1), flash("2", "white", 5)});
    const Client closing = startClient(box, {flash("1", "cyan", -1)});
    outputWith(box, asJson, "\"lit\":\"cyan\"");
    killClient(box, killed);
    EXPECT_THAT(outputWith(box, asJson, "\"waiting\":[]"), HasSubstr("\"color\":\"cyan\""));
    have(box, closing, "close");
    outputWith(box, asJson, off);
    EXPECT_EQ(in(box, {"pps", "get", "services/led/status"}).output, dark);
}

TEST_P(LedTest, FollowPrintsALineForEachChange)
{
    const Box box = startIdle();
    Process text(tamoBox({"led", "--follow", "--box", box.name}), GetParam());
    Process json(tamoBox({"led", "--follow", "--json", "--box", box.name}), GetParam());
    ASSERT_TRUE(text.printed("off\n"));
    ASSERT_TRUE(json.printed(off));
    const Client client = startClient(box, {flash("7", "green", 2)});
    const std::string of = "; flashes green for process " + client.pid + " tamo-test-clien, id 7, ";
    EXPECT_TRUE(text.printed("lit green" + of + "0 left\noff\n"));
    EXPECT_THAT(text.output(), EndsWith("lit green" + of + "1 left\ndark" + of +
                                        "1 left\nlit green" + of + "0 left\noff\n"));
    EXPECT_TRUE(json.printed(off, off.size()));
    EXPECT_EQ(occurrences(json.output(), "{\"lit\":\"green\",\"shown\":{"), 2);
    kill(text.pid(), SIGINT);
    kill(json.pid(), SIGINT);
    EXPECT_EQ(text.wait(), 0);
    EXPECT_EQ(json.wait(), 0);
    EXPECT_EQ(text.errors() + json.errors(), "");
}

TEST_P(LedTest, FollowEndsWithTheBox)
{
    Box box = startIdle();
    Process follow(tamoBox({"led", "--follow", "--box", box.name}), GetParam());
    ASSERT_TRUE(follow.printed("off\n"));
    box.signal("tamo-test-idle", SIGKILL);
    EXPECT_EQ(follow.wait(), 1);
    EXPECT_THAT(follow.errors(), StartsWith("tamo-box: cannot read /pps/box/led: "));
}

TEST_P(LedTest, GarbageIsReportedAndChangesNothing)
{
    const std::vector<Garbage> rows = {
        {"msg::requestLED\n", "dat must be an object"},
        {"msg::requestLED\ndat::text\n", "dat must be an object"},
        {"dat:json:{}\n", "msg is missing"},
        {request("explode", "{}"), "there is no request 'explode'"},
        {request("cancelLED", "{}"), "id must be a text of at most 128 bytes"},
        {request("requestLED", "{\"id\":\"1\",\"blinkCount\":1}"), "color must be one of red, "},
        {flash("1", "Red", 1), "color must be one of red, "},
        {flash("1", "ultraviolet", 1), "color must be one of red, "},
        {flash("1", "red", 0), "blinkCount must be a whole number from 1 to 2147483647, or -1 "},
        {flash("1", "red", -2), "blinkCount must be"},
        {request("requestLED", "{\"id\":\"1\",\"color\":\"red\"}"), "blinkCount must be"},
        {request("requestLED", "{\"id\":\"1\",\"color\":\"red\",\"blinkCount\":0.5}"),
         "blinkCount must be"},
        {request("requestLED", "{\"id\":\"1\",\"color\":\"red\",\"blinkCount\":\"1\"}"),
         "blinkCount must be"},
        {request("requestLED", "{\"id\":1,\"color\":\"red\",\"blinkCount\":1}"), "id must be"},
    };
    checkGarbage("led-service", rows, asJson);
}

TEST_P(LedTest, FloodHarmsNobodyElse)
{
    const Box box = startIdle();
    Process flood(tamoBox({"exec", "--box", box.name, "--", "sh", "-c",
                           "exec 3<>/pps/services/led/control; echo started; "
                           "while :; do printf 'garbage::\\n' >&3; done 2>/dev/null"}),
                  GetParam());
    ASSERT_TRUE(flood.printed("started"));
    EXPECT_TRUE(box.launcher->complained(" more lines like that were left out\n"));
    const Client client = startClient(box, {flash("1", "white", 1)});
    const auto watcher = watch(box);
    have(box, client, flash("2", "cyan", 2));
    EXPECT_TRUE(watcher->printed(status("off", "on", "on") + dark + status("off", "on", "on")));
}

TEST_P(LedTest, NumberOfRequestsIsLimited)
{
    const Box box = startIdle();
    const auto many = sendMany(box,
                               "msg::requestLED\\ndat:json:{\"id\":\"%d\",\"color\":\"red\","
                               "\"blinkCount\":-1}\\n",
                               257);
    ASSERT_TRUE(many->printed("sent"));
    EXPECT_TRUE(box.launcher->complained("has no effect: it has 256 requests already\n"));
    outputWith(box, {"led"}, "id 256, until cancelled; 255 waiting\n");
    const Client client = startClient(box, {flash("1", "blue", -1)});
    outputWith(box, asJson, "\"lit\":\"blue\"");
}

TEST_P(LedTest, ServiceThatWasKilledGoesOnWithWhatTheClientsThatAreThereHadAsked)
{
    const Box box = startIdle();
    const Client stays = startClient(box, {flash("1", "red", -1)});
    Client dies = startClient(box, {flash("1", "blue", -1)});
    outputWith(box, asJson, "\"lit\":\"blue\"");
    // While it is stopped, an application ends that it cannot hear of.
    box.signal("led-service", SIGSTOP);
    killClient(box, dies);
    const auto watcher = watch(box);
    box.signal("led-service", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("led-service ended by signal 9; started again\n"));
    EXPECT_TRUE(box.launcher->complained(
        "led-service: requests that go on: 1, that ended with their applications: 1; what was "
        "asked for meanwhile is lost\n"));
    const std::string red = status("on", "off", "off");
    EXPECT_TRUE(watcher->printed(dark + red + dark + red));
    EXPECT_THAT(in(box, asJson).output,
                HasSubstr("\"shown\":{\"pid\":" + stays.pid + ",\"application\""));
    have(box, stays, cancel("1"));
    outputWith(box, asJson, off);
}

BOX_TEST_USERS(LedTest);

} // namespace
