// SPDX-License-Identifier: Apache-2.0
#include "PaymentTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

class PaymentFailureTest : public PaymentTest
{
protected:
    /** A purchase with as much metadata as there may be. */
    static std::string largePurchase(const std::string& id, const std::string& good)
    {
        std::string request = purchase(id, good);
        request.replace(request.find("\"meta\""), 6, '"' + std::string(8192, 'x') + '"');
        return request;
    }

    /** Buys so much that one purchase more makes the list too long. */
    void buyUpToTheLongestList(const Box& box) const
    {
        for (int i = 0; i < 7; ++i)
            EXPECT_THAT(answerTo(box, largePurchase("1", "approved")),
                        HasSubstr("paymentSystemSuccess"));
    }

    /** So many requests like one; see sendMany(). */
    using Many = std::pair<std::string, int>;

    /** As sendMany(), with one sort of requests after the other; and when /pps/go is published, it
     * prints what it is sent. */
    std::unique_ptr<Process> sendThenRead(const Box& box, const std::vector<Many>& requests) const
    {
        std::string script = ": > /pps/go; exec 3<>'/pps/services/paymentsystem/control?wait'; ";
        for (const auto& [request, count] : requests)
            script += "for i in $(seq " + std::to_string(count) + "); do until printf '" +
                      forPrintf(request) + "' $i >&3; do :; done 2>/dev/null; done; ";
        script += "echo sent; dd 'if=/pps/go?wait' bs=4096 count=1 status=none; exec cat <&3";
        return std::make_unique<Process>(
            tamoBox({"exec", "--box", box.name, "--", "sh", "-c", script}), GetParam());
    }

    void killService(const Box& box) const
    {
        const pid_t killed = box.signal("payment-service", SIGKILL);
        EXPECT_TRUE(box.launcher->complained("payment-service ended by signal 9; started again\n"));
        EXPECT_TRUE(waitUntil([&] {
            const pid_t now = box.find("payment-service");
            return now != -1 && now != killed;
        }));
    }
};

TEST_P(PaymentFailureTest, MalformedRequestsAreErrorsAndNothingIsBought)
{
    const Box box = startIdle();
    for (const char* type : {"paymentSystem", "getExistingPurchases", "getPrice", "checkExisting",
                             "cancelSubscription"}) {
        const std::string name = type;
        for (const char* dat : {"dat:json:{}\n", "dat:json:[]\n", "dat::text\n", "",
                                "dat:json:{\"digitalGoodID\":7,\"uiGroupID\":null}\n"})
            EXPECT_THAT(answerTo(box, "msg::" + name + "Type\nid::9\n" + dat),
                        AllOf(HasSubstr("id::9\nres::" + name + "Failure\n"),
                              HasSubstr(R"({"errorID":7,"errorText":"The request is malformed: )")))
                << type << dat;
    }
    EXPECT_EQ(purchasesAsJson(box), "[]\n");
    EXPECT_TRUE(box.launcher->complained("was refused: The request is malformed: "));
}

TEST_P(PaymentFailureTest, WhatCannotBeAnsweredIsComplainedOf)
{
    const Box box = startIdle();
    const Client client = startClient(box, {"msg::unheardOf\nid::1\n"});
    EXPECT_TRUE(box.launcher->complained(
        "a request of process " + client.pid +
        " (tamo-test-clien) to services/paymentsystem/control has no effect: "
        "there is no request 'unheardOf'\n"));
    have(box, client, "id::1\n");
    EXPECT_TRUE(box.launcher->complained("has no effect: msg must be a text"));
    have(box, client, "msg::getPriceType\n");
    EXPECT_TRUE(box.launcher->complained("has no effect: id must be a text"));
    have(box, client, "msg::getPriceType\nid:n:5\n");
    have(box, client, "msg::getPriceType\nid::\n");
    EXPECT_TRUE(box.launcher->complained("has no effect: id must not be empty"));
    EXPECT_EQ(occurrences(client.process->output(), "@control"), 0);
}

TEST_P(PaymentFailureTest, ApplicationsThatGoTakeTheirRequestsWithThem)
{
    const Box box = startIdle();
    Client client = startClient(box, {purchase("1", "coins-100")});
    EXPECT_THAT(in(box, {"payment", "list", "--json"}).output, HasSubstr("\"request\":1"));
    killClient(box, client);
    EXPECT_EQ(outputWith(box, {"payment", "list", "--json"}, "[]"), "[]\n");
    EXPECT_THAT(in(box, {"payment", "approve", "--request", "1", "--wait", "1ms"}),
                failsWith(1, "no request 1"));
    EXPECT_EQ(purchasesAsJson(box), "[]\n");
}

TEST_P(PaymentFailureTest, AnswersWaitForAnApplicationThatDoesNotReadYet)
{
    const Box box = startIdle();
    const auto late = sendThenRead(box, {{price("%d", "coins-100"), 200}});
    ASSERT_TRUE(late->printed("sent"));
    EXPECT_EQ(in(box, {"payment", "list", "--json"}).output, "[]\n"); // all of them are answered
    EXPECT_THAT(answerTo(box, price("1", "coins-100")), HasSubstr("$1.99"));
    EXPECT_THAT(in(box, {"pps", "set", "go", "on::"}), succeeds());
    EXPECT_TRUE(late->printed("\nid::200\n"));
    EXPECT_EQ(occurrences(late->output(), "@control"), 200);
    EXPECT_LT(late->output().find("\nid::128\n"), late->output().find("\nid::129\n"));
    EXPECT_THAT(box.launcher->errors(), Not(HasSubstr("is lost")));
}

TEST_P(PaymentFailureTest, AnApplicationThatNeverReadsLosesAnswersAndIsNamed)
{
    const Box box = startIdle();
    buyUpToTheLongestList(box);
    // The queue and what is kept beside it are more than 300 of such lists, and less than one more
    // when many short answers have followed.
    const auto deaf = sendThenRead(
        box,
        {{purchase("1", "coins-100"), 1}, {existing("2"), 450}, {price("3", "coins-100"), 1000}});
    EXPECT_TRUE(deaf->printed("sent"));
    EXPECT_TRUE(box.launcher->complained(
        " is lost: it does not read what it is sent, and no more of it is kept"));
    EXPECT_THAT(in(box, {"payment", "approve"}),
                failsWith(1, "was decided, and purchase-8 recorded, but the application could not "
                             "be told: it is leaving, or does not read"));
    EXPECT_THAT(answerTo(box, price("1", "coins-100")), HasSubstr("$1.99"));
}

TEST_P(PaymentFailureTest, AKilledServiceKeepsWhatWasBoughtAndWhatWaits)
{
    const Box box = startIdle();
    EXPECT_THAT(answerTo(box, purchase("1", "approved")), HasSubstr("purchase-1"));
    EXPECT_THAT(in(box, {"clock", "advance", "2d"}), succeeds());
    Client client = startClient(box, {purchase("8", "coins-100")});
    Client leaving = startClient(box, {purchase("9", "coins-100")});
    EXPECT_EQ(occurrences(in(box, {"payment", "list", "--json"}).output, "\"request\":"), 2);
    killService(box);
    EXPECT_TRUE(box.launcher->complained("payment-service: goes on with 2 requests that wait\n"));
    EXPECT_THAT(answerTo(box, existing("2")), HasSubstr("purchase-1"));
    EXPECT_THAT(in(box, {"clock"}).output, HasSubstr("(advanced by 2d)"));
    EXPECT_THAT(in(box, {"payment", "approve"}), succeeds());
    EXPECT_TRUE(client.heard("id::8 res::paymentSystemSuccess"));
    killClient(box, leaving);
    EXPECT_EQ(outputWith(box, {"payment", "list", "--json"}, "[]"), "[]\n");
    killService(box);
    EXPECT_EQ(occurrences(purchasesAsJson(box), "purchaseID"), 2);
    EXPECT_EQ(occurrences(client.process->output(), "@control"), 1);
}

TEST_P(PaymentFailureTest, AnAnswerThatWouldBeTooLongIsAnError)
{
    const Box box = startIdle();
    buyUpToTheLongestList(box);
    EXPECT_THAT(answerTo(box, existing("2")), HasSubstr("getExistingPurchasesSuccess"));
    std::string request = largePurchase("1", "approved");
    EXPECT_THAT(answerTo(box, request), HasSubstr("paymentSystemSuccess"));
    EXPECT_THAT(answerTo(box, existing("2")),
                HasSubstr("res::getExistingPurchasesFailure\ndat:json:{\"errorID\":9,"));
    request.insert(request.find("xxx"), "x");
    EXPECT_THAT(answerTo(box, request), HasSubstr(R"("errorID":7)"));
}

TEST_P(PaymentFailureTest, WhatIsNoKeptRequestIsForgotten)
{
    const Box box = startIdle();
    Client client = startClient(box, {purchase("8", "coins-100")});
    EXPECT_THAT(in(box, {"payment", "list", "--json"}).output, HasSubstr("\"request\":1"));
    EXPECT_THAT(in(box, {"pps", "set", "box/waiting/0", "2::", "3::unknown", "4::pgarbage", "5::d",
                         "6::p@control.99\\nmsg::x", "2000000000::p"}),
                succeeds());
    killService(box);
    EXPECT_TRUE(box.launcher->complained("payment-service: goes on with 1 requests that wait\n"));
    EXPECT_EQ(occurrences(in(box, {"pps", "get", "box/waiting/0"}).output, "\n"), 2);
    EXPECT_THAT(in(box, {"payment", "approve"}), succeeds());
    EXPECT_TRUE(client.heard("id::8 res::paymentSystemSuccess"));
    EXPECT_THAT(answerTo(box, price("1", "coins-100")), HasSubstr("$1.99"));
}

TEST_P(PaymentFailureTest, OneApplicationCannotTakeAllTheRoom)
{
    const Box box = startIdle();
    const std::string large = purchase("1", "never") + "pad::" + std::string(900'000, 'x') + '\n';
    EXPECT_THAT(in(box, {"exec", "--", "sh", "-c", ": >/pps/control"}), succeeds());
    EXPECT_THAT(in(box, {"pps", "set", "control", "-"}, large), succeeds());
    const std::string send = "until dd if=/pps/control bs=1M count=1 status=none >&3; do :; done";
    Process greedy(
        tamoBox({"exec", "--box", box.name, "--", "sh", "-c",
                 "exec 3<>'/pps/services/paymentsystem/control?wait'; for i in $(seq 150); do " +
                     send + " 2>/dev/null; done; echo sent; exec cat <&3"}),
        GetParam());
    EXPECT_TRUE(greedy.printed("sent"));
    EXPECT_TRUE(greedy.printed(R"({"errorID":10,"errorText":"Too many requests are waiting."})"));
    Client other = startClient(box, {purchase("2", "coins-100")});
    EXPECT_THAT(in(box, {"payment", "approve"}), succeeds());
    EXPECT_TRUE(other.heard("id::2 res::paymentSystemSuccess"));
}

TEST_P(PaymentFailureTest, AfterARestartADelayBeginsAgainAndWhatIsNeverAnsweredIsForgotten)
{
    const Box box = startIdleWith(
        {"--catalogue",
         fileWith(R"({"goods":[{"id":"late","name":"L","price":"1","policy":{"answer":"approve",)"
                  R"("after":"1h"}},{"id":"never","name":"N","price":"1",)"
                  R"("policy":{"answer":"never"}}]})")});
    Client client = startClient(box, {purchase("1", "never"), purchase("2", "late")});
    EXPECT_EQ(occurrences(in(box, {"payment", "list", "--json"}).output, "\"request\":"), 2);
    EXPECT_THAT(in(box, {"clock", "advance", "1d"}), succeeds()); // which is not the delay's clock
    killService(box);
    EXPECT_TRUE(box.launcher->complained("payment-service: goes on with 1 requests that wait\n"));
    EXPECT_THAT(in(box, {"payment", "list", "--json"}).output,
                AllOf(HasSubstr(R"("request":2,"id":"2")"), HasSubstr(R"("decides":"itself")")));
    EXPECT_THAT(in(box, {"payment", "approve", "--request", "2"}), succeeds());
    EXPECT_TRUE(client.heard("id::2 res::paymentSystemSuccess"));
    EXPECT_EQ(occurrences(client.process->output(), "@control"), 1);
}

BOX_TEST_USERS(PaymentFailureTest);

} // namespace
