// SPDX-License-Identifier: Apache-2.0
#include "NotificationTest.h"

using namespace boxtest;
using namespace testing;

namespace {

class NotificationFailureTest : public NotificationTest
{
};

TEST_P(NotificationFailureTest, ApplicationThatHasGoneCannotBeAnswered)
{
    const Box box = startIdle();
    Client killed =
        startClient(box, {notify("1", R"("text":"a","ledColor":255,)"
                                      R"("promptChoices":[{"id":"{x}","label":"Yes"}])")});
    const Client closing = startClient(box, {notify("2", R"("text":"b")")});
    outputWith(box, {"led", "--json"}, R"("color":"blue")");
    killClient(box, killed);
    have(box, closing, "close");
    EXPECT_THAT(outputWith(box, listAsJson,
                           R"("id":"2","pid":)" + closing.pid +
                               R"(,"application":"tamo-test-clien","gone":true)"),
                HasSubstr(R"("id":"1","pid":)" + killed.pid +
                          R"(,"application":"tamo-test-clien","gone":true)"));
    EXPECT_THAT(in(box, {"notification"}).output, HasSubstr("  gone  "));
    const std::string reason = "1 cannot be answered: its application, process " + killed.pid +
                               " (tamo-test-clien), has gone";
    for (const char* answer : {"open", "expire", "acknowledge"})
        EXPECT_THAT(in(box, {"notification", answer, "1"}), failsWith(1, reason));
    EXPECT_THAT(in(box, {"notification", "choose", "1", "Yes"}), failsWith(1, reason));
    outputWith(box, {"led", "--json"}, R"("lit":null,"shown":null)");
    // Started again, it takes over what it left, and may withdraw it.
    const Client again = startClient(box, {notify("1", R"("text":"again")")});
    EXPECT_THAT(in(box, {"notification", "open", "1"}), succeeds());
    have(box, again, request("Cancel", R"({"id":"2"})"));
    have(box, again, notify("3", R"("text":"c")"));
    EXPECT_THAT(outputWith(box, listAsJson, R"("id":"3")"), Not(HasSubstr("\"gone\":true")));
}

TEST_P(NotificationFailureTest, ExpiryOfWhatIsLeftTellsNobody)
{
    const Box box = startIdle();
    const std::string past = notify("1", R"("text":"a","expirationTime":"1")");
    EXPECT_THAT(
        in(box, {"pps", "set", "services/notification/control", "-"}, notify("2", R"("text":"b")")),
        succeeds());
    EXPECT_THAT(outputWith(box, listAsJson, "\"gone\":true"), HasSubstr("\"pid\":0"));
    EXPECT_THAT(in(box, {"pps", "set", "services/notification/control", "-"}, past), succeeds());
    EXPECT_THAT(in(box, {"notification", "open", "2"}),
                failsWith(1, "2 cannot be answered: its application, a process outside the box, "
                             "has gone"));
    EXPECT_THAT(json(box), Not(HasSubstr("\"id\":\"1\"")));
}

TEST_P(NotificationFailureTest, ApplicationThatDoesNotReadIsNamedAndHurtsNobody)
{
    const Box box = startIdle();
    Client deaf = startClient(box, {"deaf", notify("1", R"("text":"a")")});
    Client other = startClient(box, {notify("2", R"("text":"b")")});
    const std::string open = "printf 'msg::open\\ndat:json:{\"id\":\"1\"}\\n' >&3";
    EXPECT_THAT(in(box, {"exec", "--", "sh", "-c",
                         "exec 3<>/pps/box/notification; for i in $(seq 200); do until " + open +
                             "; do :; done 2>/dev/null; done"}),
                succeeds());
    Result result;
    ASSERT_TRUE(waitUntil([&] {
        result = in(box, {"notification", "acknowledge", "1"});
        return result.status != 0;
    }));
    EXPECT_THAT(result, failsWith(1, "1 was not answered with Acknowledge: its application, "
                                     "process " +
                                         deaf.pid +
                                         " (tamo-test-clien), does not read what it is sent, and "
                                         "its queue is full"));
    EXPECT_THAT(in(box, {"notification", "acknowledge", "2"}), succeeds());
    EXPECT_TRUE(other.heard("Acknowledge"));
    EXPECT_THAT(json(box), HasSubstr("\"id\":\"1\""));
    have(box, deaf, "read");
    EXPECT_TRUE(deaf.heard("msg::Invoke"));
    outputWith(box, {"notification", "acknowledge", "1", "--json"}, "\"id\":\"1\"");
    EXPECT_TRUE(deaf.heard("msg::Acknowledge"));
}

TEST_P(NotificationFailureTest, GarbageIsReportedAndChangesNothing)
{
    const std::vector<Garbage> rows = {
        {"msg::Notify\n", "dat must be an object"},
        {"msg::Notify\ndat:json:[1]\n", "id must be a text"},
        {"dat:json:{}\n", "msg is missing"},
        {request("notify", "{}"), "there is no request 'notify'"},
        {request("Cancel", "{}"), "id must be a text of at most 128 bytes"},
        {notify("", R"("text":"")"), "id must not be empty"},
        {notify("1", R"("text":1)"), "text must be a text of at most 65536 bytes"},
        {notify("1", R"("text":"","ledColor":"red")"), "ledColor must be the RGB value of one of"},
        {notify("1", R"("text":"","expirationTime":"soon")"),
         "expirationTime must be milliseconds since the epoch, as a text"},
        {notify("1", R"("text":"","time":5)"), "time must be milliseconds"},
        {notify("1", R"("text":"","promptChoices":{"id":"1","label":"x"})"),
         "promptChoices must be an array of objects"},
        {notify("1", R"("text":"","promptChoices":[{"id":"1"}])"), "label must be a text"},
    };
    checkGarbage("notification-service", rows, listAsJson);
}

TEST_P(NotificationFailureTest, GarbageOfCommandsIsAnsweredWithAnError)
{
    const Box box = startIdle();
    const Client client = startClient(box, {notify("1", R"("text":"a")")});
    const auto answerTo = [&](const std::string& message, const std::string& arguments) {
        return in(box, {"pps", "set", "box/notification", "--wait", "10s", "id::x",
                        "msg::" + message, "dat:json:" + arguments})
            .output;
    };
    EXPECT_THAT(answerTo("explode", "{}"), HasSubstr("there are: acknowledge, choose, expire, "));
    EXPECT_THAT(answerTo("open", "{}"), HasSubstr("res::error\ntext::id must be a text"));
    EXPECT_THAT(answerTo("open", R"({"id":"1","pid":"x"})"), HasSubstr("pid must be a whole"));
    EXPECT_THAT(answerTo("choose", R"({"id":"1","label":1})"), HasSubstr("label must be a text"));
    EXPECT_EQ(occurrences(client.process->output(), "@control"), 0);
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(NotificationFailureTest, FloodHarmsNobodyElse)
{
    const Box box = startIdle();
    const std::string request = R"(printf 'msg::Notify\ndat:json:{"id":"f","text":"f"}\n' >&3)";
    Process flood(tamoBox({"exec", "--box", box.name, "--", "sh", "-c",
                           "exec 3<>/pps/services/notification/control; echo started; "
                           "while :; do " +
                               request + "; printf 'garbage::\\n' >&3; done 2>/dev/null"}),
                  GetParam());
    ASSERT_TRUE(flood.printed("started"));
    EXPECT_TRUE(box.launcher->complained(" more lines like that were left out\n"));
    Client client = startClient(box, {notify("1", R"("text":"a")")});
    outputWith(box, listAsJson, "\"id\":\"1\"");
    EXPECT_THAT(in(box, {"notification", "acknowledge", "1"}), succeeds());
    EXPECT_TRUE(client.heard("msg::Acknowledge"));
}

TEST_P(NotificationFailureTest, WhatOneApplicationMayPostIsLimited)
{
    const Box box = startIdle();
    const auto many = sendMany(box, R"(msg::Notify\ndat:json:{"id":"many-%d","text":""}\n)", 1025);
    ASSERT_TRUE(many->printed("sent"));
    EXPECT_TRUE(
        box.launcher->complained("has no effect: it has posted 1024 notifications already\n"));
    EXPECT_EQ(occurrences(json(box), "\"id\":\"many-"), 1024);
    const std::string large = "\"text\":\"" + std::string(60'000, 'x') + '"';
    std::vector<std::string> requests;
    for (int i = 1; i <= 7; ++i)
        requests.push_back(notify("large-" + std::to_string(i), large));
    const Client greedy = startClient(box, requests);
    EXPECT_TRUE(box.launcher->complained(
        "has no effect: its notifications would take more than 393216 bytes\n"));
    EXPECT_EQ(occurrences(json(box), "\"id\":\"large-"), 6);
    Client client = startClient(box, {notify("1", R"("text":"a")")});
    EXPECT_THAT(in(box, {"notification", "open", "1"}), succeeds());
    EXPECT_TRUE(client.heard("msg::Invoke"));
}

TEST_P(NotificationFailureTest, ServiceThatWasKilledKnowsTheNotificationsAgain)
{
    const Box box = startIdle();
    Client stays = startClient(
        box, {notify("1", R"("text":"a","context":"c","ledColor":65280,)"
                          R"("promptChoices":[{"id":"{x}","label":"Yes","context":"y"}])"),
              notify("2", R"("text":"b")")});
    EXPECT_THAT(in(box, {"notification", "open", "2"}), succeeds());
    Client dies = startClient(box, {notify("3", R"("text":"c")")});
    const std::string before = outputWith(box, listAsJson, "\"id\":\"3\"");
    // While it is stopped, an application ends that it cannot hear of.
    box.signal("notification-se", SIGSTOP);
    killClient(box, dies);
    box.signal("notification-se", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("notification-service ended by signal 9; started again"));
    EXPECT_TRUE(box.launcher->complained(
        "notification-service: notifications that were kept: 3, of them of applications that have "
        "gone: 1; what was posted or withdrawn meanwhile is lost\n"));
    std::string expected = before;
    expected.replace(expected.rfind("\"gone\":false"), 12, "\"gone\":true");
    EXPECT_EQ(json(box), expected);
    outputWith(box, {"led", "--json"}, R"("lit":"green")");
    EXPECT_THAT(in(box, {"notification", "choose", "1", "Yes"}), succeeds());
    EXPECT_TRUE(stays.heard(R"("id":"1","context":"c","promptResponse":0,)"
                            R"("promptChoice":{"id":"{x}","label":"Yes","context":"y"})"));
    have(box, stays, notify("4", R"("text":"new")"));
    EXPECT_THAT(outputWith(box, listAsJson, "\"id\":\"4\""), HasSubstr("\"id\":\"3\""));
}

BOX_TEST_USERS(NotificationFailureTest);

} // namespace
