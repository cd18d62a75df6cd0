// SPDX-License-Identifier: Apache-2.0
#include "PaymentTest.h"

using namespace boxtest;
using namespace testing;

namespace {

TEST_P(PaymentTest, APurchaseWaitsAndIsApproved)
{
    const Box box = startIdle();
    EXPECT_EQ(in(box, {"payment"}).output, "no request is waiting\n");
    EXPECT_EQ(in(box, {"payment", "list", "--json"}).output, "[]\n");
    EXPECT_EQ(in(box, {"payment", "purchases"}).output, "nothing was bought\n");
    Client client = startClient(box, {purchase("41", "coins-100")});
    const Result list = in(box, {"payment", "list", "--json"});
    EXPECT_THAT(list, succeeds());
    EXPECT_THAT(list.output,
                AllOf(StartsWith(R"([{"request":1,"id":"41","pid":)" + client.pid +
                                 R"(,"application":"tamo-test-clien","kind":"purchase",)"
                                 R"("decides":"user","since":)"),
                      HasSubstr(R"("digitalGoodID":"coins-100")"), HasSubstr(R"("price":"$1.99")"),
                      HasSubstr(R"("purchaseAppName":"A shop")"),
                      HasSubstr(R"("purchaseAppID":"app.1")")));
    EXPECT_THAT(in(box, {"payment"}).output,
                AllOf(StartsWith("request  kind "), HasSubstr("coins-100")));
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("\npayment      1 waiting\n"));
    EXPECT_THAT(in(box, {"status", "--json"}).output, HasSubstr(R"("payments":{"waiting":1})"));
    EXPECT_EQ(in(box, {"payment", "approve", "--json"}).output,
              R"({"request":1,"id":"41","pid":)" + client.pid +
                  R"(,"application":"tamo-test-clien","purchaseID":"purchase-1"})"
                  "\n");
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("\npayment      0 waiting\n"));
    EXPECT_TRUE(client.heard("msg::paymentSystemType id::41 res::paymentSystemSuccess dat:json:"
                             R"({"itemState":"0","date":")"));
    EXPECT_TRUE(client.heard(R"("digitalGoodID":"coins-100","digitalGoodSKU":"COINS100",)"
                             R"("licenseKey":"","metaData":"meta","purchaseID":"purchase-1"})"));
    EXPECT_EQ(in(box, {"payment"}).output, "no request is waiting\n");
    EXPECT_THAT(in(box, {"payment", "purchases"}).output, HasSubstr("purchase-1"));
}

TEST_P(PaymentTest, RequestsAreCanceledAndFail)
{
    const Box box = startIdle();
    Client client = startClient(
        box, {purchase("1", "coins-100"), purchase("2", "coins-100"), purchase("3", "coins-100")});
    EXPECT_THAT(in(box, {"payment", "cancel"}), succeeds());
    EXPECT_TRUE(client.heard("id::1 res::paymentSystemFailure dat:json:"
                             R"({"errorID":1,"errorText":"The purchase was canceled."})"));
    EXPECT_THAT(in(box, {"payment", "fail", "The card \"x\" is stolen."}), succeeds());
    EXPECT_TRUE(client.heard(
        R"(id::2 res::paymentSystemFailure dat:json:{"errorID":2,"errorText":"The card \"x\" is stolen."})"));
    EXPECT_THAT(in(box, {"payment", "fail", "No.", "--code", "99"}), succeeds());
    EXPECT_TRUE(client.heard(
        R"(id::3 res::paymentSystemFailure dat:json:{"errorID":99,"errorText":"No."})"));
    EXPECT_EQ(purchasesAsJson(box), "[]\n");
}

TEST_P(PaymentTest, ARequestIsNamed)
{
    const Box box = startIdle();
    Client client = startClient(box, {purchase("1", "coins-100"), purchase("2", "full-version")});
    EXPECT_THAT(in(box, {"payment", "approve", "--request", "2"}), succeeds());
    EXPECT_TRUE(client.heard("id::2 res::paymentSystemSuccess"));
    EXPECT_THAT(in(box, {"payment", "list", "--json"}).output,
                AllOf(HasSubstr(R"("request":1)"), Not(HasSubstr(R"("request":2)"))));
    EXPECT_THAT(in(box, {"payment", "approve", "--request", "2", "--wait", "1ms"}),
                failsWith(1, "no request 2 is waiting"));
}

TEST_P(PaymentTest, WhatCannotBeIsRefusedThoughItIsApproved)
{
    const Box box = startIdle();
    Client client = startClient(box, {purchase("1", "magazine"), purchase("2", "magazine")});
    EXPECT_THAT(in(box, {"payment", "approve"}), succeeds());
    EXPECT_THAT(in(box, {"payment", "approve"}),
                failsWith(1, "was refused all the same, and told so: The subscription exists "
                             "already."));
    EXPECT_TRUE(client.heard("id::2 res::paymentSystemFailure dat:json:{\"errorID\":4,"));
    EXPECT_EQ(occurrences(purchasesAsJson(box), "purchaseID"), 1);
}

TEST_P(PaymentTest, ADecisionWaitsForItsRequest)
{
    const Box box = startIdle();
    Process approval(tamoBox({"payment", "approve", "--wait", "15s", "--box", box.name}),
                     GetParam());
    EXPECT_THAT(answerTo(box, purchase("5", "coins-100")),
                HasSubstr("id::5\nres::paymentSystemSuccess"));
    EXPECT_EQ(approval.wait(), 0);
}

TEST_P(PaymentTest, PoliciesDecide)
{
    const Box box = startIdle();
    EXPECT_THAT(answerTo(box, purchase("1", "approved")), HasSubstr("paymentSystemSuccess"));
    EXPECT_THAT(answerTo(box, purchase("2", "declined")),
                HasSubstr(R"({"errorID":2,"errorText":"The payment was declined."})"));
    EXPECT_THAT(answerTo(box, purchase("3", "canceled")), HasSubstr(R"({"errorID":1,)"));
    EXPECT_THAT(answerTo(box, purchase("4", "failed")),
                HasSubstr(R"({"errorID":17,"errorText":"The bank is closed."})"));
    EXPECT_EQ(answerTo(box, purchase("5", "garbage")), "@control\ngarbage::}{\nres:n:42\n");
    EXPECT_THAT(answerTo(box, purchase("6", "slow")), HasSubstr("paymentSystemSuccess"));
    EXPECT_THAT(answerTo(box, purchase("7", "unheard-of")),
                HasSubstr(R"({"errorID":3,"errorText":"There is no such digital good."})"));
    EXPECT_EQ(occurrences(purchasesAsJson(box), "purchaseID"), 2);
}

TEST_P(PaymentTest, WhatIsNeverAnsweredIsListed)
{
    const Box box = startIdle();
    Client client = startClient(box, {purchase("1", "never")});
    EXPECT_THAT(in(box, {"payment", "list", "--json"}).output, HasSubstr(R"("decides":"nobody")"));
    EXPECT_THAT(in(box, {"payment", "approve", "--wait", "1ms"}),
                failsWith(1, "no request is waiting for a decision"));
    EXPECT_THAT(in(box, {"payment", "approve", "--request", "1"}), succeeds());
    EXPECT_TRUE(client.heard("res::paymentSystemSuccess"));
}

TEST_P(PaymentTest, PurchasesBelongToTheirApplication)
{
    const Box box = startIdle();
    EXPECT_THAT(answerTo(box, purchase("1", "approved", "app.1")), HasSubstr("Success"));
    EXPECT_THAT(answerTo(box, purchase("1", "approved-subscription", "app.2")),
                HasSubstr(R"("itemState":"1","startDate":")"));
    for (const char* allowRefresh : {"true", "false"}) {
        const std::string list = answerTo(box, existing("2", "app.1", allowRefresh));
        EXPECT_THAT(list, AllOf(HasSubstr("res::getExistingPurchasesSuccess\ndat:json:[{"),
                                HasSubstr("purchase-1"), Not(HasSubstr("purchase-2"))));
    }
    EXPECT_THAT(answerTo(box, existing("2", "app.3")),
                HasSubstr("res::getExistingPurchasesSuccess\ndat:json:[]"));
    EXPECT_THAT(answerTo(box, status("3", "approved-subscription", "app.1")),
                HasSubstr(R"({"subscriptionExists":false})"));
    EXPECT_THAT(answerTo(box, cancellation("4", "purchase-2", "app.1")),
                HasSubstr("res::cancelSubscriptionFailure\ndat:json:{\"errorID\":5,"));
}

TEST_P(PaymentTest, EqualIdsOfTwoApplicationsDoNotCross)
{
    const Box box = startIdle();
    Client one = startClient(box, {purchase("0", "coins-100", "app.1")});
    Client other = startClient(box, {purchase("0", "full-version", "app.2")});
    EXPECT_THAT(in(box, {"payment", "approve", "--request", "2"}), succeeds());
    EXPECT_TRUE(other.heard("full-version"));
    EXPECT_THAT(in(box, {"payment", "approve", "--request", "1"}), succeeds());
    EXPECT_TRUE(one.heard("coins-100"));
    EXPECT_EQ(occurrences(one.process->output(), "@control"), 1);
    EXPECT_EQ(occurrences(other.process->output(), "@control"), 1);
}

TEST_P(PaymentTest, PricesAndTermsAreTold)
{
    const Box box = startIdle();
    EXPECT_THAT(answerTo(box, price("1", "coins-100")),
                HasSubstr("res::getPriceSuccess\ndat:json:{\"price\":\"$1.99\"}\n"));
    EXPECT_THAT(answerTo(box, price("2", "magazine")),
                HasSubstr(R"({"price":"$0.99","initialPeriod":"7","renewalPrice":"$2.99",)"
                          R"("renewalPeriod":"30"})"));
    EXPECT_THAT(answerTo(box, price("3", "nothing")),
                HasSubstr("res::getPriceFailure\ndat:json:{\"errorID\":3,"));
}

TEST_P(PaymentTest, SubscriptionsRunByTheClock)
{
    const Box box = startIdle();
    const std::string check = status("1", "approved-subscription");
    EXPECT_THAT(answerTo(box, check), HasSubstr(R"({"subscriptionExists":false})"));
    EXPECT_THAT(answerTo(box, purchase("2", "approved-subscription")), HasSubstr("Success"));
    EXPECT_THAT(answerTo(box, purchase("3", "approved-subscription")), HasSubstr(R"("errorID":4)"));
    EXPECT_THAT(answerTo(box, check), HasSubstr(R"({"subscriptionExists":true})"));
    EXPECT_THAT(in(box, {"clock"}).output, HasSubstr("(advanced by 0d)"));
    EXPECT_THAT(in(box, {"clock", "advance", "8d"}).output, HasSubstr("(advanced by 8d)"));
    EXPECT_THAT(answerTo(box, existing("4")), HasSubstr(R"("itemState":"2")"));
    const std::string bought = purchasesAsJson(box);
    const std::size_t begin = bought.find("purchase-");
    const std::string id = bought.substr(begin, bought.find('"', begin) - begin);
    EXPECT_THAT(answerTo(box, cancellation("6", id)),
                HasSubstr(R"({"purchaseID":")" + id + R"(","cancelled":"true"})"));
    EXPECT_THAT(answerTo(box, existing("7")), HasSubstr(R"("itemState":"3")"));
    EXPECT_THAT(answerTo(box, check), HasSubstr(R"({"subscriptionExists":true})"));
    EXPECT_THAT(in(box, {"clock", "advance", "14d", "--json"}).output,
                HasSubstr(R"("advanced":1900800000)"));
    EXPECT_THAT(answerTo(box, check), HasSubstr(R"({"subscriptionExists":false})"));
    EXPECT_THAT(answerTo(box, existing("8")), HasSubstr(R"("itemState":"4")"));
    EXPECT_THAT(answerTo(box, cancellation("9", id)), HasSubstr(R"("errorID":6)"));
}

TEST_P(PaymentTest, ManyRequestsAreListedWhole)
{
    const Box box = startIdle();
    const auto sender = sendMany(box, forPrintf(purchase("%d", "coins-100")), 300);
    ASSERT_TRUE(sender->printed("sent"));
    const std::string list = in(box, {"payment", "list", "--json"}).output;
    EXPECT_EQ(occurrences(list, "\"request\":"), 300);
    EXPECT_THAT(list, AllOf(HasSubstr(R"("request":1,"id":"1")"),
                            HasSubstr(R"("request":300,"id":"300")")));
}

BOX_TEST_USERS(PaymentTest);

} // namespace
