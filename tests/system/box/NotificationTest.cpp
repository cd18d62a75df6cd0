// SPDX-License-Identifier: Apache-2.0
#include "NotificationTest.h"

#include <chrono>

using namespace boxtest;
using namespace testing;

namespace {

TEST_P(NotificationTest, ThereIsNoneAtFirst)
{
    const Box box = startIdle();
    EXPECT_EQ(in(box, {"notification"}).output, "no notification\n");
    EXPECT_EQ(in(box, {"notification", "list", "--json"}).output, "[]\n");
    EXPECT_THAT(in(box, {"notification", "open", "1"}),
                failsWith(1, "there is no notification '1'; there is none at all"));
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("\nnotification 0 posted\n"));
    EXPECT_THAT(in(box, {"status", "--json"}).output, HasSubstr("\"notifications\":0"));
}

TEST_P(NotificationTest, IsListedAsItWasPosted)
{
    const Box box = startIdle();
    const Client client = startClient(
        box, {notify("{aa-1}", R"("text":"Tea\tis\nready","context":"kitchen","ledColor":255,)"
                               R"("notifyOnInvoke":true,"time":"1000","soundUrl":"file:///s",)"
                               R"("expirationTime":"9007199254740993","iconUrl":"/icon.png",)"
                               R"("promptChoices":[{"id":"{c1}","label":"Now","context":"n"},)"
                               R"({"id":"{c2}","label":"Later"}])"),
              notify("{aa-2}", R"("htmlText":"<b>b</b>")")});
    const Result list = in(box, {"notification", "list", "--json"});
    EXPECT_THAT(list, succeeds());
    EXPECT_EQ(list.output,
              R"([{"id":"{aa-1}","pid":)" + client.pid +
                  R"(,"application":"tamo-test-clien","gone":false,"opened":false,)"
                  R"("text":"Tea\tis\nready","html":false,)"
                  R"("choices":[{"id":"{c1}","label":"Now","context":"n"},)"
                  R"({"id":"{c2}","label":"Later","context":null}],)"
                  R"("ledColor":"blue","context":"kitchen","notifyOnInvoke":true,"time":1000,)"
                  R"("expirationTime":9007199254740993,"sound":"file:///s","icon":"/icon.png"},)"
                  R"({"id":"{aa-2}","pid":)" +
                  client.pid +
                  R"(,"application":"tamo-test-clien","gone":false,"opened":false,)"
                  R"("text":"<b>b</b>","html":true,"choices":[],"ledColor":null,"context":null,)"
                  R"("notifyOnInvoke":true,"time":null,"expirationTime":null,"sound":null,)"
                  R"("icon":null}])"
                  "\n");
    const std::string table = in(box, {"notification", "list"}).output;
    EXPECT_EQ(in(box, {"notification"}).output, table);
    EXPECT_THAT(table, StartsWith("id      pid  application      state  led   expires  "));
    EXPECT_THAT(table, HasSubstr("\n{aa-1}  " + client.pid));
    EXPECT_THAT(table, HasSubstr("  Now | Later  Tea?is?ready\n{aa-2}  "));
    EXPECT_THAT(table, EndsWith("  <b>b</b>\n"));
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("\nnotification 2 posted\n"));
}

TEST_P(NotificationTest, EachAnswerIsToldToItsApplication)
{
    const Box box = startIdle();
    Client client = startClient(
        box, {notify("1", R"("text":"a","context":"")"), notify("2", R"("text":"b")"),
              notify("3", R"("text":"c","context":"see","promptChoices":[)"
                          R"({"id":"{x}","label":"No"},{"id":"{y}","label":"Yes","context":"m"}])"),
              notify("4", R"("text":"d","promptChoices":[{"id":"{x}","label":"-x"}])")});
    EXPECT_THAT(in(box, {"notification", "open", "1"}), succeeds());
    EXPECT_TRUE(client.heard(R"(@control msg::Invoke dat:json:{"id":"1","context":""} )"));
    EXPECT_EQ(in(box, {"notification", "acknowledge", "2", "--json"}).output,
              R"({"id":"2","pid":)" + client.pid + "}\n");
    EXPECT_TRUE(client.heard(R"(@control msg::Acknowledge dat:json:{"id":"2"} )"));
    EXPECT_THAT(in(box, {"notification", "choose", "3", "Yes"}), succeeds());
    EXPECT_TRUE(client.heard(R"(@control msg::Acknowledge dat:json:{"id":"3","context":"see",)"
                             R"("promptResponse":1,"promptChoice":{"id":"{y}","label":"Yes",)"
                             R"("context":"m"}} )"));
    EXPECT_THAT(in(box, {"notification", "choose", "4", "--", "-x"}), succeeds());
    EXPECT_TRUE(client.heard(R"({"id":"4","promptResponse":0,"promptChoice":)"
                             R"({"id":"{x}","label":"-x","context":""}} )"));
    // What was opened stays, what was acknowledged does not.
    EXPECT_THAT(json(box), AllOf(StartsWith(R"([{"id":"1",)"), HasSubstr(R"("opened":true)"),
                                 Not(HasSubstr(R"("id":"2")"))));
    EXPECT_THAT(in(box, {"notification", "expire", "1"}), succeeds());
    EXPECT_TRUE(client.heard(R"(@control msg::Expire dat:json:{"id":"1","context":""} )"));
    EXPECT_EQ(json(box), "[]\n");
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(NotificationTest, ApplicationIsNotToldOfOpeningWhereItDoesNotWantThat)
{
    const Box box = startIdle();
    Client client = startClient(box, {notify("1", R"("text":"a","notifyOnInvoke":false)")});
    EXPECT_THAT(in(box, {"notification", "open", "1"}), succeeds());
    EXPECT_THAT(json(box), HasSubstr(R"("opened":true)"));
    EXPECT_THAT(in(box, {"notification", "acknowledge", "1"}), succeeds());
    EXPECT_TRUE(client.heard("msg::Acknowledge"));
    EXPECT_THAT(client.process->output(), Not(HasSubstr("msg::Invoke")));
}

TEST_P(NotificationTest, ApplicationsNeverHearEachOthersAnswers)
{
    const Box box = startIdle();
    const std::string choices =
        R"(,"promptChoices":[{"id":"{x}","label":"Yes"},{"id":"{y}","label":"No"}])";
    Client first = startClient(box, {notify("1", R"("text":"first","context":"f")" + choices),
                                     notify("2", R"("text":"first again")")});
    Client second = startClient(box, {notify("1", R"("text":"second","context":"s")" + choices)});
    EXPECT_THAT(in(box, {"notification", "choose", "1", "Yes"}),
                failsWith(1, "2 notifications have the id '1', of the processes " + first.pid +
                                 ", " + second.pid + "; name one with --application"));
    EXPECT_THAT(in(box, {"notification", "choose", "1", "No", "--application", second.pid}),
                succeeds());
    EXPECT_TRUE(second.heard(R"({"id":"1","context":"s","promptResponse":1)"));
    have(box, second, request("Cancel", R"({"id":"2"})")); // is the other's, and stays
    have(box, second, notify("end", R"("text":"")"));
    outputWith(box, listAsJson, R"("id":"end")");
    EXPECT_THAT(in(box, {"notification", "open", "1"}), succeeds());
    EXPECT_THAT(in(box, {"notification", "open", "2"}), succeeds());
    EXPECT_TRUE(first.heard(R"(msg::Invoke dat:json:{"id":"2"})"));
    EXPECT_THAT(first.process->output(),
                AllOf(HasSubstr(R"(msg::Invoke dat:json:{"id":"1","context":"f"})"),
                      Not(HasSubstr("Acknowledge"))));
    EXPECT_THAT(in(box, {"notification", "expire", "end"}), succeeds());
    EXPECT_TRUE(second.heard(R"(msg::Expire dat:json:{"id":"end"})"));
    EXPECT_EQ(occurrences(second.process->output(), "@control"), 2);
}

TEST_P(NotificationTest, PostedAgainItIsChangedInItsPlaceAndCancelledItIsGone)
{
    const Box box = startIdle();
    const Client client =
        startClient(box, {notify("1", R"("text":"old")"), notify("2", R"("text":"other")")});
    EXPECT_THAT(in(box, {"notification", "open", "1"}), succeeds());
    have(box, client, notify("1", R"("htmlText":"new")"));
    EXPECT_THAT(outputWith(box, listAsJson, "new"),
                AllOf(StartsWith(R"([{"id":"1",)"), Not(HasSubstr("old")),
                      Not(HasSubstr(R"("opened":true)"))));
    have(box, client, request("Cancel", R"({"id":"unknown"})"));
    have(box, client, request("Cancel", R"({"id":"1"})"));
    EXPECT_THAT(outputWith(box, listAsJson, R"([{"id":"2")"), Not(HasSubstr(R"("id":"1")")));
    EXPECT_THAT(in(box, {"notification", "open", "1"}),
                failsWith(1, "there is no notification '1'; there are: 2"));
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(NotificationTest, ExpiresAtItsTime)
{
    const Box box = startIdle();
    const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::system_clock::now().time_since_epoch());
    const auto in1s = std::to_string(now.count() + 1000);
    Client other = startClient(box, {notify("other", R"("text":"c")")});
    Client client = startClient(
        box, {notify("past", R"("text":"a","expirationTime":"-1")"),
              notify("soon", R"("text":"b","context":"x","expirationTime":")" + in1s + '"'),
              notify("late", R"("text":"c","expirationTime":"9223372036854775807")")});
    EXPECT_TRUE(client.heard(R"(@control msg::Expire dat:json:{"id":"past"} )"));
    EXPECT_TRUE(client.heard(R"(@control msg::Expire dat:json:{"id":"soon","context":"x"} )"));
    EXPECT_GE(std::chrono::system_clock::now().time_since_epoch(), now + std::chrono::seconds(1));
    EXPECT_THAT(json(box), AllOf(Not(HasSubstr("soon")), HasSubstr("late"), HasSubstr("other")));
    EXPECT_EQ(occurrences(client.process->output(), "@control"), 2);
    EXPECT_THAT(in(box, {"notification", "open", "other"}), succeeds());
    EXPECT_TRUE(other.heard("@control"));
    EXPECT_THAT(other.process->output(), Not(HasSubstr("Expire")));
}

TEST_P(NotificationTest, LedFlashesForTheLastNewOne)
{
    const Box box = startIdle();
    const std::vector<std::string> led = {"led", "--json"};
    const Client client = startClient(box, {notify("1", R"("text":"a","ledColor":16711680)"),
                                            notify("2", R"("text":"b","ledColor":65535)"),
                                            notify("3", R"("text":"c")")});
    EXPECT_THAT(outputWith(box, led, R"("lit":"cyan")"),
                AllOf(HasSubstr(R"("application":"notification-se","id":"2","color":"cyan")"),
                      HasSubstr(R"("waiting":[])")));
    EXPECT_THAT(in(box, {"notification", "open", "2"}), succeeds());
    outputWith(box, led, R"("lit":"red")");
    have(box, client, request("Cancel", R"({"id":"1"})"));
    outputWith(box, led, R"("lit":null,"shown":null)");
    have(box, client, notify("2", R"("text":"again","ledColor":16777215)"));
    outputWith(box, led, R"("lit":"white")");
    // The service of the LED is asked again where it has died.
    box.signal("led-service", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("led-service: requests that go on: "));
    outputWith(box, led, R"("lit":"white")");
    EXPECT_THAT(in(box, {"notification", "acknowledge", "2"}), succeeds());
    outputWith(box, led, R"("lit":null,"shown":null)");
}

TEST_P(NotificationTest, BeginningOfItsIdIsEnough)
{
    const Box box = startIdle();
    Client client =
        startClient(box, {notify("{12ab-1}", R"("text":"")"), notify("{12cd-1}", R"("text":"")")});
    EXPECT_THAT(in(box, {"notification", "open", "12"}),
                failsWith(1, "several notifications begin with '12': {12ab-1}, {12cd-1}; give "
                             "more of the id"));
    EXPECT_THAT(in(box, {"notification", "open", ""}),
                failsWith(1, "there is no notification ''; there are: {12ab-1}, {12cd-1}"));
    EXPECT_THAT(in(box, {"notification", "open", "12a"}), succeeds());
    EXPECT_TRUE(client.heard(R"("id":"{12ab-1}")"));
    EXPECT_THAT(in(box, {"notification", "open", "{12c"}), succeeds());
    EXPECT_TRUE(client.heard(R"("id":"{12cd-1}")"));
}

TEST_P(NotificationTest, ChoicesThatAreNotThereOrNotClearAreNamed)
{
    const Box box = startIdle();
    Client client =
        startClient(box, {notify("1", R"("text":"","promptChoices":[{"id":"{x}","label":"Yes"},)"
                                      R"({"id":"{y}","label":"Yes"},{"id":"{z}","label":"No"}])"),
                          notify("2", R"("text":"")")});
    EXPECT_THAT(in(box, {"notification", "choose", "1", "yes"}),
                failsWith(1, "1 has no choice 'yes'; there are: 'Yes', 'Yes', 'No'"));
    EXPECT_THAT(in(box, {"notification", "choose", "1", "Yes"}),
                failsWith(1, "1 has 2 choices 'Yes'; name one with --choice-id: {x} 'Yes', "
                             "{y} 'Yes'"));
    EXPECT_THAT(in(box, {"notification", "choose", "1", "No", "--choice-id", "y"}),
                failsWith(1, "1 has no choice 'No' of the id 'y'"));
    EXPECT_THAT(in(box, {"notification", "choose", "2", "Yes"}),
                failsWith(1, "2 offers no choices; acknowledge it instead"));
    EXPECT_THAT(in(box, {"notification", "choose", "1"}), failsWith(2, "the choice is missing"));
    EXPECT_THAT(in(box, {"notification", "choose", "1", "a", "--", "b"}),
                failsWith(2, "there is more than one label"));
    EXPECT_THAT(in(box, {"notification", "choose"}), failsWith(2, "id is required"));
    EXPECT_THAT(in(box, {"notification", "open"}), failsWith(2, "id is required"));
    EXPECT_THAT(in(box, {"notification", "choose", "1", "Yes", "--choice-id", "{y}"}), succeeds());
    EXPECT_TRUE(client.heard(R"("promptResponse":1,"promptChoice":{"id":"{y}",)"));
    EXPECT_EQ(occurrences(client.process->output(), "@control"), 1);
}

BOX_TEST_USERS(NotificationTest);

} // namespace
